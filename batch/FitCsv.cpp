#include "batch/FitCsv.h"

#include "base/CodePage.h"
#include "base/NumberText.h"
#include "batch/FitReport.h"

namespace vk {
namespace {

using Number = std::optional<double>;

/// What a line tells beside the figures.
struct LineWords {
  std::string file, status, reason;
};

/// A text as one cell on one line.
std::string cell(const std::string& text) {
  std::string line;
  for (const char c : text) {
    const bool blank = c == ' ' || c == '\n' || c == '\t';
    if (!blank) {
      line += c == '"' ? "\"\"" : std::string(1, c);
    } else if (!line.empty() && line.back() != ' ') {
      line += ' ';
    }
  }
  return line.find_first_of(",\"") == std::string::npos ? line : '"' + line + '"';
}

std::string cell(const Number& number) {
  const std::string text = number ? Json(*number).text() : "";
  return text == "null" ? "" : text;
}

/// The names of the columns and a line below them.
class Columns {
 public:
  /// Without a fit its cells stay empty.
  explicit Columns(bool hasFit) : hasFit_(hasFit) {}

  void add(const std::string& name, const std::string& text) {
    const char* comma = header.empty() ? "" : ",";
    header += comma + cell(name);
    line += comma + text;
  }
  void number(const std::string& name, const Number& value) { add(name, hasFit_ ? cell(value) : ""); }

  std::string header, line;

 private:
  bool hasFit_;
};

std::string parameterName(const ParameterSet& par, int i) {
  return toUtf8(par.name(i), CodePage::kCp437);
}

void addParameters(Columns& columns, const FitFindings& f) {
  for (int i = 1; i <= f.start.ParCount; ++i) {
    const int k = freeNumber(f.start, i);
    const std::string name = parameterName(f.start, i);
    const auto known = [&](bool is, auto number) { return k > 0 && is ? Number(number()) : Number(); };
    columns.number(name, f.result.M > 0 ? Number(f.result.par.ParValues[i]) : Number());
    columns.number(name + "_error", known(f.fitted(), [&] { return f.result.par.ParDeltas[i]; }));
    columns.number(name + "_error_linearised",
                   known(f.linearised.has_value(), [&] { return f.linearised->deviation(k); }));
  }
}

void addFigures(Columns& columns, const FitFindings& f) {
  columns.number("chi_square", f.result.chi_square);
  columns.number("degrees_of_freedom", f.result.degrees_of_freedom);
  columns.number("reduced_chi_square", f.result.reduced_chi_square);
  columns.number("confidence_percent", f.result.confidence_percent);
}

void addRefined(Columns& columns, const FitFindings& f, bool hasFit) {
  const RefinedFit& r = f.refined;
  const bool hasValues = r.end != LeastSquaresEnd::kFailed;
  for (int i = 1; i <= f.start.ParCount; ++i) {
    const int k = freeNumber(f.start, i);
    const std::string name = parameterName(f.start, i) + "_refined";
    const bool hasError = k > 0 && r.covariance.size() > 0;
    columns.number(name, hasFit && (hasValues || k == 0) ? Number(r.par.ParValues[i]) : Number());
    columns.number(name + "_error", hasError ? Number(r.error(k)) : Number());
    columns.number(name + "_error_scaled", hasError ? r.scaledError(k) : Number());
  }
  columns.number("refined_chi_square", r.chiSquare);
  columns.number("refined_confidence_percent", r.confidencePercent);
  columns.add("refined_stop_reason", hasFit ? std::string(textOf(r.end).word) : "");
}

void addProfile(Columns& columns, const FitFindings& f) {
  for (int k = 1; k <= f.start.FreeCount; ++k) {
    const std::string name = parameterName(f.start, f.start.FreeIndex[k]);
    for (std::size_t level = 0; level < kProfileLevels.size(); ++level) {
      const auto interval =
          f.intervals.empty() ? ProfileInterval{} : f.intervals[static_cast<std::size_t>(k) - 1][level];
      const std::string percent = generalText(kProfileLevels[level].percent);
      columns.number(name + "_low_" + percent, interval.low);
      columns.number(name + "_high_" + percent, interval.high);
    }
  }
}

void addDerived(Columns& columns, const FitFindings& f) {
  for (const DerivedTable::Row& row : f.derived.rows()) {
    const std::string name = toUtf8(row.name, CodePage::kCp437);
    columns.number(name, row.result.value);
    columns.number(name + "_error", row.result.error);
    if (f.xErrors) columns.number(name + "_error_scaled", f.derived.scaledError(row));
  }
}

Columns columnsOf(const LineWords& words, const FitFindings& findings, bool hasFit) {
  Columns columns(hasFit);
  columns.add("file", cell(words.file));
  columns.add("status", words.status);
  columns.number("points", findings.result.M);
  addParameters(columns, findings);
  addFigures(columns, findings);
  if (findings.xErrors) addRefined(columns, findings, hasFit);
  if (findings.profile) addProfile(columns, findings);
  addDerived(columns, findings);
  columns.add("reason", cell(words.reason));
  return columns;
}

}  // namespace

std::string csvHeader(const FitFindings& wanted) {
  return columnsOf({}, wanted, false).header;
}

std::string csvLine(const std::string& file, const FitFindings& findings) {
  const FitResult& result = findings.result;
  return columnsOf({file, statusName(result.status), result.reason}, findings, true).line;
}

std::string csvLine(const std::string& file, const FitFindings& wanted, const std::string& status,
                    const std::string& reason) {
  return columnsOf({file, status, reason}, wanted, false).line;
}

}  // namespace vk
