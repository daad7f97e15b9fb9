#include "analysis/Transformation.h"

#include <algorithm>
#include <span>

#include "base/Text.h"
#include "data/DataFiles.h"
#include "expr/Compiler.h"
#include "expr/Formula.h"

namespace vk {
namespace {

constexpr int kColumnName = 2;  // characters

std::vector<Array<double>*> columnsOf(DataSet& data) {
  if (data.kXpntErr) return {&data.Xpnt, &data.Ypnt, &data.ErrXpnt, &data.ErrYpnt};
  return {&data.Xpnt, &data.Ypnt, &data.ErrYpnt};
}

/// The old columns, and the new ones as far as they are computed.
class Transformation {
 public:
  Transformation(DataSet& data, EvaluationListener& listener)
      : data_(data),
        listener_(listener),
        names_(columnNames(data)),
        points_(static_cast<std::size_t>(data.NumPnt)) {
    for (const Array<double>* column : columnsOf(data)) old_.push_back(column->span(1, data.NumPnt));
  }

  /// Computes the next new column. False when the formula is bad.
  bool compute(const std::string& formula) {
    const int hit = columnHit(formula);
    if (hit == 0) return evaluate(formula);
    copy(hit);
    return true;
  }

  int columns() const { return static_cast<int>(old_.size()); }
  std::string columnName(int k) const { return mid(names_, (k - 1) * kColumnName + 1, kColumnName); }
  /// Puts the new columns in the place of the old ones; gives those that have rows whose formula failed.
  std::vector<FailedRows> store();

 private:
  std::span<double> newColumn() { return TransformTable_.emplace_back(data_.NumPnt).span(1, data_.NumPnt); }
  int columnHit(const std::string& formula) const;
  void copy(int hit);
  bool evaluate(const std::string& formula);
  void noteFailures(const std::vector<Fault>& faults);

  DataSet& data_;
  EvaluationListener& listener_;
  std::string names_;
  std::size_t points_;
  std::vector<std::span<const double>> old_;
  std::vector<Array<double>> TransformTable_;
  std::vector<FailedRows> failed_;
  double copiedLast_ = 0;
};

/// Where a formula stands among the column names, from 1; 0 for one that must be compiled.
int Transformation::columnHit(const std::string& formula) const {
  if (formula.empty()) return 0;
  return position(names_, length(formula) == 1 ? " " + formula : formula);
}

// QUIRK: a text across two names, such as "yd", is no column, and the value copied last fills the new one.
void Transformation::copy(int hit) {
  const std::span<double> column = newColumn();
  if (hit % kColumnName == 1) {
    std::ranges::copy(old_[static_cast<std::size_t>(hit / kColumnName)], column.begin());
    if (!column.empty()) copiedLast_ = column.back();
  } else {
    std::ranges::fill(column, copiedLast_);
  }
}

bool Transformation::evaluate(const std::string& formula) {
  Compilation compiled = compile(columnDefinition(data_, formula));
  if (!compiled.ok) return false;
  std::vector<Fault> faults(points_);
  Formula(std::move(compiled.code)).values(old_, newColumn(), listener_, faults);
  noteFailures(faults);
  return true;
}

void Transformation::noteFailures(const std::vector<Fault>& faults) {
  FailedRows failures{trim(columnName(static_cast<int>(TransformTable_.size()))), {}};
  for (std::size_t i = 0; i < faults.size(); ++i) {
    if (faults[i] != Fault::kNone) failures.rows.push_back(static_cast<int>(i) + 1);
  }
  if (!failures.rows.empty()) failed_.push_back(std::move(failures));
}

std::vector<FailedRows> Transformation::store() {
  const std::vector<Array<double>*> columns = columnsOf(data_);
  for (std::size_t k = 0; k < columns.size(); ++k) *columns[k] = std::move(TransformTable_[k]);
  return std::move(failed_);
}

/// "3, 7-9, 12": row numbers, three or more that follow one another as a range.
std::string rowList(const std::vector<int>& rows, std::size_t most) {
  std::string list;
  for (std::size_t i = 0; i < rows.size(); --most) {
    list += list.empty() ? "" : ", ";
    if (most == 0) return list + "...";
    std::size_t last = i;
    while (last + 1 < rows.size() && rows[last + 1] == rows[last] + 1) ++last;
    if (last < i + 2) last = i;
    list += std::to_string(rows[i]);
    if (last > i) list += "-" + std::to_string(rows[last]);
    i = last + 1;
  }
  return list;
}

}  // namespace

std::string failedRowsText(const std::vector<FailedRows>& failed, std::size_t most) {
  std::string text;
  for (const FailedRows& column : failed) {
    text += (text.empty() ? "" : "; ") + ("formula di " + column.column) + " NON calcolabile nelle righe " +
            rowList(column.rows, most);
  }
  return text;
}

std::string columnNames(const DataSet& data) {
  return data.kXpntErr ? " x ydxdy" : " x ydy";
}

std::string columnDefinition(const DataSet& data, const std::string& formula) {
  return (data.kXpntErr ? "y@x,y,dx,dy@ @ @" : "y@x,y,dy@ @ @") + formula;
}

TransformResult transform(DataSet data, const TransformFormulas& formulas, EvaluationListener& listener) {
  TransformResult result;
  Transformation transformation(data, listener);
  for (int k = 1; k <= transformation.columns() && result.replaced(); ++k) {
    const std::string formula = trim(formulas.columns.at(static_cast<std::size_t>(k - 1)));
    if (!transformation.compute(formula)) result.badColumn = transformation.columnName(k);
  }
  if (result.replaced()) {
    data.TitleX = dataTitle(formulas.TitleX);
    data.TitleY = dataTitle(formulas.TitleY);
    result.failed = transformation.store();
  }
  result.data = std::move(data);
  return result;
}

}  // namespace vk
