#include "batch/DerivedTable.h"

#include <algorithm>
#include <cmath>
#include <iostream>

#include "base/CodePage.h"
#include "base/NumberMasks.h"
#include "base/Text.h"
#include "batch/Assignment.h"
#include "batch/TerminalPorts.h"
#include "commands/FitScreenTexts.h"
#include "platform/GridOutput.h"
#include "platform/Texts.h"

namespace vk {
namespace {

constexpr int kTitleRule = 3, kHeaderRow = 4, kHeaderRule = 5;
constexpr int kBesideCells = 3;  // a rule, and a blank on each side

const std::string kTitle = "Grandezze Derivate con Errori Lineari";
constexpr const char* kNameHead = "Nome";
constexpr const char* kFormulaHead = "Formula";
constexpr int kNumberWidth = 12;

Formula compiled(const std::string& word, const std::string& text, const ParameterSet& par) {
  Compilation compilation = compileQuantity(text, par);
  const auto refuse = [&](const std::string& why) { throw UsageError("\"" + word + "\": " + why); };
  if (!compilation.ok) {
    std::string why = "formula errata";
    for (const CompileFault& fault : compilation.faults) {
      if (!fault.text.empty()) why += "\n" + terminalText(fault.text);
    }
    refuse(why);
  }
  const int shared = ambiguousParameter(compilation.code, par);
  if (shared > 0) refuse("piu` di un parametro ha il nome " + terminalText(par.name(shared)));
  return Formula(std::move(compilation.code));
}

/// The head of a column of numbers, in its middle.
std::string numberHead(const std::string& head) {
  const int before = (kNumberWidth - length(head)) / 2;
  return repeat(before, ' ') + head + repeat(kNumberWidth - before - length(head), ' ');
}

std::string numberText(const std::optional<double>& number) {
  return number ? FormatMask(*number, kNumberMask) : kNoError;
}

/// The cells of a column, from its head down.
using Column = std::vector<std::string>;

int widthOf(const Column& column) {
  int width = 0;
  for (const std::string& cell : column) width = std::max(width, length(cell));
  return width;
}

std::string drawn(const std::vector<Column>& columns) {
  const int rows = kHeaderRule + static_cast<int>(columns.front().size());
  int width = 1;
  for (const Column& column : columns) width += widthOf(column) + kBesideCells;
  GridOutput output;
  OutputRequest request;
  request.rows = rows;
  request.cols = width;
  output.OutShow(request);
  output.CharFrame(1, 1, kTitleRule, width, kFrameStyle, Cp437Text(kTitle));
  int begin = 1;
  for (const Column& column : columns) {
    const int end = begin + widthOf(column) + kBesideCells;
    output.CharFrame(kTitleRule, begin, kHeaderRule, end, kFrameStyle, {});
    output.CharFrame(kTitleRule, begin, rows, end, kFrameStyle, {});
    int row = kHeaderRow;
    for (const std::string& cell : column) {
      output.CharLocate(row, begin + 2);
      output.print(Cp437Text(cell));
      row += row == kHeaderRow ? kHeaderRule + 1 - kHeaderRow : 1;
    }
    begin = end;
  }
  return output.grid().toUtf8();
}

}  // namespace

DerivedTable::DerivedTable(const std::vector<std::string>& words, const ParameterSet& par) {
  for (const std::string& word : words) {
    const NamedText given = parseNamedText(word, "NOME=FORMULA");
    Row row{textOfWord(given.name), textOfWord(given.text), {}, {}};
    const auto same = [&](const Row& before) { return before.name == row.name; };
    if (std::ranges::any_of(rows_, same))
      throw UsageError(terminalText(row.name) + ": formula data piu` di una volta");
    row.formula = compiled(word, row.text, par);
    rows_.push_back(std::move(row));
  }
}

bool DerivedTable::compute(const FittedValues& fitted, EvaluationListener& listener) {
  refined_ = fitted.refined;
  if (fitted.reducedChiSquare) scale_ = std::sqrt(*fitted.reducedChiSquare);
  const std::optional<CovarianceMatrix>& covariance = fitted.covariance;
  if (!covariance) std::cerr << "fit: errori lineari dei parametri NON calcolabili\n";
  bool complete = true;
  for (Row& row : rows_) {
    row.result = quantityOf(row.formula, fitted.par, covariance, listener);
    complete &= row.result.error.has_value();
    if (!row.result.value) {
      std::cerr << "fit: " << terminalText(row.name) << " NON calcolabile\n";
    } else if (covariance && !row.result.error) {
      std::cerr << "fit: errore di " << terminalText(row.name) << " NON calcolabile\n";
    }
  }
  return complete;
}

std::optional<double> DerivedTable::scaledError(const Row& row) const {
  if (!row.result.error || !scale_) return std::nullopt;
  return *row.result.error * *scale_;
}

std::string DerivedTable::screen() const {
  Column names{kNameHead}, values{numberHead(kValueHead)}, errors{numberHead(kErrorHead)},
      scaled{numberHead(kScaledHead)}, formulas{kFormulaHead};
  for (const Row& row : rows_) {
    names.push_back(row.name);
    values.push_back(numberText(row.result.value));
    errors.push_back(numberText(row.result.error));
    scaled.push_back(numberText(scaledError(row)));
    formulas.push_back(row.text);
  }
  return refined_ ? drawn({names, values, errors, scaled, formulas})
                  : drawn({names, values, errors, formulas});
}

Json DerivedTable::report() const {
  const auto orNull = [](const std::optional<double>& number) { return number ? Json(*number) : Json(); };
  Json::List list;
  for (const Row& row : rows_) {
    Json quantity = Json::Object{
        {"name", toUtf8(row.name, CodePage::kCp437)},
        {"formula", toUtf8(row.text, CodePage::kCp437)},
        {"value", orNull(row.result.value)},
        {"error", orNull(row.result.error)},
    };
    if (refined_) quantity.add("error_scaled", orNull(scaledError(row)));
    list.push_back(std::move(quantity));
  }
  return list;
}

}  // namespace vk
