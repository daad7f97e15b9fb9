#include "commands/TransformationCommand.h"

#include "base/Text.h"
#include "commands/DisplayRefresh.h"
#include "commands/ExhaustedBox.h"
#include "commands/FormDescription.h"
#include "data/FigureText.h"

namespace vk {
namespace {

// ---- Texts ------------------------------------------------------------------------------------------------

constexpr const char* kTransformationCaption = "VOR_KEL: Trasformazione Dati";
constexpr const char* kDataFileHead = "File Dati";
constexpr const char* kLegendX = "Legenda x";
constexpr const char* kLegendY = "Legenda y";

// ---- The form ---------------------------------------------------------------------------------------------

constexpr int kColumns = 45;
constexpr int kPromptWidth = 9;
constexpr int kTextColumn = 22;
constexpr int kFirstFormula = 3;
constexpr const char* kTextKind = "#String";
constexpr std::size_t kMostRanges = 5;  // of rows that a box names
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

/// A title as its field shows it.
std::string titleField(const std::string& title) {
  return gridTextOfUtf8(utf8OfFigureText(title));
}

/// The title of a field. One that was not touched keeps the letters that the field cannot show.
std::string enteredTitle(const Cp437Text& field, const std::string& title) {
  return field.bytes() == titleField(title) ? title : figureTextOfUtf8(toUtf8(field));
}

void describeFields(InputTables& form, const DataSet& data) {
  const int count = 5 - data.kXpntErr;
  describeFieldCount(form, count);
  addField(form, 1, kLegendX, titleField(data.TitleX), kTextKind);
  addField(form, 2, kLegendY, titleField(data.TitleY), kTextKind);
  addField(form, 3, "x", "x", kFormulaKind);
  addField(form, 4, "y", "y", kFormulaKind);
  if (data.kXpntErr) addField(form, 5, "dx", "dx", kFormulaKind);
  addField(form, count, "dy", "dy", kFormulaKind);
}

}  // namespace

void MenDatTra(Session& session, Ports& ports) {
  InputTables& tables = session.input;
  describeFields(tables, session.loaded.data);
  const int rows = tables.InpFieldCount + 4;
  tables.InpRows = rows;
  tables.InpCols = kColumns;
  describeFrames(tables,
                 {{1, 1, rows, kColumns}, {3, 1, rows, kColumns}, {3, kPromptWidth + 2, rows, kColumns}});
  describeTexts(tables,
                {{1, kTextColumn, kDataFileHead}, {2, kTextColumn, FileBaseName(session.loaded.DataFile)}});
  tables.caption = kTransformationCaption;
  tables.topic = ManualTopic::kTransformation;
  if (askForm(session, ports.input)) TransformData(session, ports);
}

void TransformData(Session& session, Ports& ports) {
  const Array<Cp437Text>& fields = session.input.InpValues;
  const DataSet& data = session.loaded.data;
  TransformFormulas formulas{enteredTitle(fields[1], data.TitleX), enteredTitle(fields[2], data.TitleY), {}};
  for (int i = kFirstFormula; i <= fields.upper(); ++i) formulas.columns.emplace_back(fields[i].bytes());
  session.loaded.data = TransformData(session.loaded.data, formulas, ports.dialogs).data;
  ports.window.refresh();
  Msg(session, ports.window);
}

TransformResult TransformData(const DataSet& data, const TransformFormulas& formulas, Dialogs& dialogs) {
  ExhaustedBox listener(dialogs);
  TransformResult result = transform(data, formulas, listener);
  if (!result.replaced()) {
    dialogs.plainBox(kProgramTitle, WindowText(kBadDefinition + result.badColumn + kPressToContinueClose));
  } else if (!result.failed.empty()) {
    dialogs.plainBox(kProgramTitle,
                     WindowText(failedRowsText(result.failed, kMostRanges) + kPressToContinueClose));
  }
  return result;
}

}  // namespace vk
