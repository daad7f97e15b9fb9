#include "commands/TransformationCommand.h"

#include <algorithm>
#include <span>
#include <vector>

#include "base/Guard.h"
#include "base/Text.h"
#include "commands/FormDescription.h"
#include "data/DataFiles.h"
#include "expr/CmpMod.h"
#include "expr/FunMod.h"
#include "session/Msg.h"

namespace vk {
namespace {

// ---- The form ----------------------------------------------------------------------------------------------

constexpr int kColumns = 45;
constexpr int kPromptWidth = 9;
constexpr int kTextColumn = 22;
constexpr const char* kTextKind = "#String";
// QUIRK: lists dx for data without errors of x too; such a formula passes the field and fails in the end.
constexpr const char* kFormulaKind = "#Function@y@x,y,dx,dy@ @ @";

void addField(InputTables& form, int i, const std::string& prompt, const std::string& value,
              const char* kind) {
  describeField(form, i,
                {.row = i + 3,
                 .promptColumn = 2,
                 .prompt = repeat(kPromptWidth - length(prompt), ' ') + prompt,
                 .promptLength = kPromptWidth,
                 .column = kPromptWidth + 3,
                 .width = kColumns - 3 - kPromptWidth,
                 .kind = kind,
                 .value = value});
}

void describeFields(InputTables& form, const DataSet& data) {
  const int count = 5 - data.kXpntErr;
  describeFieldCount(form, count);
  addField(form, 1, "Legenda x", data.TitleX, kTextKind);
  addField(form, 2, "Legenda y", data.TitleY, kTextKind);
  addField(form, 3, "x", "x", kFormulaKind);
  addField(form, 4, "y", "y", kFormulaKind);
  if (data.kXpntErr) addField(form, 5, "dx", "dx", kFormulaKind);
  addField(form, count, "dy", "dy", kFormulaKind);
}

/// The formula fields compile into the session's one area for models; however the form is left, the model
/// function has it back.
class ModelComesBack {
 public:
  explicit ModelComesBack(Session& session) : session_(session) {}
  ~ModelComesBack() {
    guard([this] { restoreModel(session_); });
  }
  ModelComesBack(const ModelComesBack&) = delete;
  ModelComesBack& operator=(const ModelComesBack&) = delete;

 private:
  Session& session_;
};

// ---- The columns -------------------------------------------------------------------------------------------

constexpr int kColumnName = 2;  // characters
constexpr int kFirstFormula = 3;

using Column = std::vector<double>;

/// One transformation of a data set: the old columns, and the new ones as far as they are computed.
class Transformation {
 public:
  Transformation(Session& session, Dialogs& dialogs)
      : session_(session), dialogs_(dialogs), points_(static_cast<std::size_t>(session.loaded.data.NumPnt)) {
    for (Array<double>* column : dataColumns()) old_.push_back(column->span(1, session.loaded.data.NumPnt));
  }

  /// Computes the next new column. False when the formula is bad.
  bool compute(const std::string& formula) {
    const int hit = columnHit(formula);
    if (hit == 0) return evaluate(formula);
    copy(hit);
    return true;
  }

  std::string columnName(int k) const { return mid(names(), (k - 1) * kColumnName + 1, kColumnName); }
  /// The columns computed so far that have rows whose formula failed.
  const std::vector<FailedRows>& failed() const { return failed_; }
  int columns() const { return static_cast<int>(old_.size()); }
  void store();

 private:
  std::vector<Array<double>*> dataColumns() const;
  const char* names() const { return session_.loaded.data.kXpntErr ? " x ydxdy" : " x ydy"; }
  int columnHit(const std::string& formula) const;
  void copy(int hit);
  bool evaluate(const std::string& formula);
  void noteFailures(const std::vector<Int16>& flags);

  Session& session_;
  Dialogs& dialogs_;
  std::size_t points_;
  std::vector<std::span<const double>> old_;
  std::vector<Column> TransformTable_;
  std::vector<FailedRows> failed_;
  double copiedLast_ = 0;
};

std::vector<Array<double>*> Transformation::dataColumns() const {
  DataSet& data = session_.loaded.data;
  if (data.kXpntErr) return {&data.Xpnt, &data.Ypnt, &data.ErrXpnt, &data.ErrYpnt};
  return {&data.Xpnt, &data.Ypnt, &data.ErrYpnt};
}

/// Where a formula stands among the column names, from 1; 0 for one that must be compiled.
int Transformation::columnHit(const std::string& formula) const {
  if (formula.empty()) return 0;
  return position(names(), length(formula) == 1 ? " " + formula : formula);
}

// QUIRK: a text across two names, such as "yd", is no column, and the value copied last fills the new one.
void Transformation::copy(int hit) {
  const bool isName = hit % kColumnName == 1;
  Column& column = TransformTable_.emplace_back();
  for (std::size_t i = 0; i < points_; ++i) {
    if (isName) copiedLast_ = old_[static_cast<std::size_t>(hit / kColumnName)][i];
    column.push_back(copiedLast_);
  }
}

bool Transformation::evaluate(const std::string& formula) {
  const std::string variables = session_.loaded.data.kXpntErr ? "x,y,dx,dy" : "x,y,dy";
  CompiledExpression compiled;
  Int16 flag;
  CompileExpression(session_, "y@" + variables + "@ @ @" + formula, compiled, flag);
  if (flag != 0) return false;
  std::vector<Int16> flags(points_);
  evaluateCodeAt(session_, dialogs_, compiled, old_, TransformTable_.emplace_back(points_), flags);
  noteFailures(flags);
  return true;
}

void Transformation::noteFailures(const std::vector<Int16>& flags) {
  FailedRows failures{trim(columnName(static_cast<int>(TransformTable_.size()))), {}};
  for (std::size_t i = 0; i < flags.size(); ++i) {
    if (flags[i] != 0) failures.rows.push_back(static_cast<int>(i) + 1);
  }
  if (!failures.rows.empty()) failed_.push_back(std::move(failures));
}

void Transformation::store() {
  const std::vector<Array<double>*> columns = dataColumns();
  for (std::size_t k = 0; k < columns.size(); ++k) {
    std::ranges::copy(TransformTable_[k], columns[k]->span(1, session_.loaded.data.NumPnt).begin());
  }
}

TransformResult transform(Session& session, Dialogs& dialogs) {
  const InputTables& fields = session.input;
  Transformation transformation(session, dialogs);
  for (int k = 1; k <= transformation.columns(); ++k) {
    if (transformation.compute(trim(fields.InpValues[k + kFirstFormula - 1]))) continue;
    dialogs.plainBox(kProgramTitle,
                     "Errore nella Definizione di " + transformation.columnName(k) + "  <*> per Continuare");
    return {};
  }
  session.loaded.data.TitleX = dataTitle(fields.InpValues[1]);
  session.loaded.data.TitleY = dataTitle(fields.InpValues[2]);
  transformation.store();
  return {true, transformation.failed()};
}

}  // namespace

void MenDatTra(Session& session, InputForm& form) {
  InputTables& tables = session.input;
  describeFields(tables, session.loaded.data);
  const int rows = tables.InpFieldCount + 4;
  tables.InpRows = rows;
  tables.InpCols = kColumns;
  describeFrames(tables,
                 {{1, 1, rows, kColumns}, {3, 1, rows, kColumns}, {3, kPromptWidth + 2, rows, kColumns}});
  describeTexts(tables,
                {{1, kTextColumn, "File Dati"}, {2, kTextColumn, FileBaseName(session.loaded.DataFile)}});
  tables.InpAction = kTransformData;
  tables.caption = "VOR_KEL: Trasformazione Dati";
  const ModelComesBack back(session);
  form.InpShow(tables, Form::kMain);
}

TransformResult TransformData(Session& session, Dialogs& dialogs, MainWindow& window) {
  TransformResult result = transform(session, dialogs);
  restoreModel(session);
  window.refresh();
  Msg(session, window);
  return result;
}

}  // namespace vk
