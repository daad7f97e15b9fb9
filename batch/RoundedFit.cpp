#include "batch/RoundedFit.h"

#include <array>
#include <charconv>

#include "base/CodePage.h"
#include "base/RoundedValue.h"
#include "batch/FitReport.h"

namespace vk {
namespace {

constexpr const char* kConstant = "costante";

/// A parameter or a derived quantity.
struct Quantity {
  std::string name;
  RoundedValue value;
  int freeNumber = 0;  ///< among the free parameters, from 1; 0 for any other quantity
  bool constant = false;
};

std::vector<Quantity> quantitiesOf(const FitFindings& f) {
  std::vector<Quantity> quantities;
  const auto covariance = f.covariance();
  for (int i = 1; i <= f.par().ParCount; ++i) {
    const int k = freeNumber(f.start, i);
    const auto error = k > 0 && covariance ? std::optional(covariance->deviation(k)) : std::nullopt;
    quantities.push_back(
        {toUtf8(f.par().name(i), CodePage::kCp437), roundedValue(f.par().ParValues[i], error), k, k == 0});
  }
  for (const DerivedTable::Row& row : f.derived.rows()) {
    if (row.result.value)
      quantities.push_back(
          {toUtf8(row.name, CodePage::kCp437), roundedValue(*row.result.value, row.result.error)});
  }
  return quantities;
}

/// The text as LaTeX sets it.
std::string escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '\\') {
      result += "\\textbackslash{}";
    } else if (c == '^' || c == '~') {
      result += std::string("\\") + c + "{}";
    } else {
      if (std::string_view("&%$#_{}").find(c) != std::string_view::npos) result += '\\';
      result += c;
    }
  }
  return result;
}

std::string number(const std::string& text) {
  return "\\num{" + text + "}";
}

/// With `digits` of them behind the point, or in all.
std::string numberText(double value, std::chars_format format, int digits) {
  std::array<char, 64> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format, digits);
  return {buffer.data(), end.ptr};
}

constexpr const char* kRowEnd = " \\\\\n";
constexpr const char* kRule = "\\hline\n";

std::string row(const Quantity& quantity, const std::optional<CorrelationMatrix>& correlation, int count) {
  std::string text = escaped(quantity.name) + " & " + number(quantity.value.compact);
  for (int k = 1; k <= count; ++k) {
    text += " &";
    if (correlation && k <= quantity.freeNumber)
      text += " " + number(numberText(correlation->at(quantity.freeNumber, k), std::chars_format::fixed, 2));
  }
  return text + kRowEnd;
}

std::string heads(const std::vector<Quantity>& quantities, int count) {
  std::string text = "Parametro & Valore";
  for (int k = 1; k <= count; ++k) {
    for (const Quantity& quantity : quantities) {
      if (quantity.freeNumber == k) text += " & " + escaped(quantity.name);
    }
  }
  return text + kRowEnd;
}

}  // namespace

std::string roundedLines(const FitFindings& findings) {
  if (!findings.hasValues()) return "";
  std::string lines;
  for (const Quantity& quantity : quantitiesOf(findings)) {
    const auto& [plain, compact] = quantity.value;
    lines += quantity.name + " = " + plain;
    if (quantity.constant) {
      lines += std::string(" ") + kConstant;
    } else if (compact != plain) {
      lines += " = " + compact;
    }
    lines += '\n';
  }
  return lines;
}

std::string latexTable(const FitFindings& findings, const std::string& file) {
  if (!findings.hasValues()) return "";
  const std::vector<Quantity> quantities = quantitiesOf(findings);
  const auto covariance = findings.covariance();
  const auto correlation = covariance ? std::optional(covariance->correlation()) : std::nullopt;
  const int count = findings.start.FreeCount;
  std::string text = "% \\usepackage{siunitx}\n% " + file + "\n";
  text += "\\begin{tabular}{lr" + std::string(static_cast<std::size_t>(count), 'r') + "}\n" + kRule;
  text += heads(quantities, count) + kRule;
  for (const Quantity& quantity : quantities) text += row(quantity, correlation, count);
  const double chiSquare =
      findings.refined.converged() ? findings.refined.chiSquare : *findings.result.chi_square;
  const std::string degrees = std::to_string(findings.result.M - count);
  text += kRule + std::string("$\\chi^2/\\nu$ & ") +
          number(numberText(chiSquare, std::chars_format::general, 4)) + "/" + degrees + kRowEnd;
  return text + kRule + "\\end{tabular}\n";
}

}  // namespace vk
