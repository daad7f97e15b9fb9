#include "batch/DerivedTable.h"

#include <algorithm>
#include <iostream>

#include "base/CodePage.h"
#include "base/NumberMasks.h"
#include "base/Text.h"
#include "batch/Assignment.h"
#include "batch/TerminalPorts.h"
#include "platform/GridOutput.h"

namespace vk {
namespace {

constexpr int kRuledFrame = 3;
constexpr int kTitleRule = 3, kHeaderRow = 4, kHeaderRule = 5;
constexpr int kBesideCells = 3;  // a rule, and a blank on each side

const std::string kTitle = "Grandezze Derivate con Errori Lineari";
const std::string kNumberMask = "#.######^^^^";
const std::string kNoNumber = "___________";

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

std::string numberText(const std::optional<double>& number) {
  return number ? FormatMask(*number, kNumberMask) : kNoNumber;
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
  output.CharFrame(1, 1, kTitleRule, width, kRuledFrame, Cp437Text(kTitle));
  int begin = 1;
  for (const Column& column : columns) {
    const int end = begin + widthOf(column) + kBesideCells;
    output.CharFrame(kTitleRule, begin, kHeaderRule, end, kRuledFrame, {});
    output.CharFrame(kTitleRule, begin, rows, end, kRuledFrame, {});
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

bool DerivedTable::compute(const ParameterSet& par, const std::optional<CovarianceMatrix>& covariance,
                           EvaluationListener& listener) {
  if (!covariance) std::cerr << "fit: errori lineari dei parametri NON calcolabili\n";
  bool complete = true;
  for (Row& row : rows_) {
    row.result = quantityOf(row.formula, par, covariance, listener);
    complete &= row.result.error.has_value();
    if (!row.result.value) {
      std::cerr << "fit: " << terminalText(row.name) << " NON calcolabile\n";
    } else if (covariance && !row.result.error) {
      std::cerr << "fit: errore di " << terminalText(row.name) << " NON calcolabile\n";
    }
  }
  return complete;
}

std::string DerivedTable::screen() const {
  Column names{"Nome"}, values{"   Valore   "}, errors{"   Errore   "}, formulas{"Formula"};
  for (const Row& row : rows_) {
    names.push_back(row.name);
    values.push_back(numberText(row.result.value));
    errors.push_back(numberText(row.result.error));
    formulas.push_back(row.text);
  }
  return drawn({names, values, errors, formulas});
}

Json DerivedTable::report() const {
  const auto orNull = [](const std::optional<double>& number) { return number ? Json(*number) : Json(); };
  Json::List list;
  for (const Row& row : rows_) {
    list.push_back(Json::Object{
        {"name", toUtf8(row.name, CodePage::kCp437)},
        {"formula", toUtf8(row.text, CodePage::kCp437)},
        {"value", orNull(row.result.value)},
        {"error", orNull(row.result.error)},
    });
  }
  return list;
}

}  // namespace vk
