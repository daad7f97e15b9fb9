#include "batch/DerivedTable.h"

#include <algorithm>
#include <cmath>
#include <iostream>

#include "base/CodePage.h"
#include "base/NumberMasks.h"
#include "base/Text.h"
#include "batch/Assignment.h"
#include "batch/TerminalPorts.h"
#include "batch/TypedFormula.h"
#include "commands/ColumnTable.h"
#include "commands/FitScreenTexts.h"
#include "platform/Texts.h"

namespace vk {
namespace {

const std::string kDerivedTitle = "Grandezze Derivate con Errori Lineari";
constexpr const char* kNameHead = "Nome";
constexpr const char* kFormulaHead = "Formula";

Formula compiled(const std::string& word, const std::string& text, const ParameterSet& par, bool trace) {
  Formula formula(compileTyped(quantityDefinition(text, par), trace));
  const int shared = ambiguousParameter(formula.compiled(), par);
  if (shared > 0) {
    throw UsageError("\"" + word + "\": piu` di un parametro ha il nome " + terminalText(par.name(shared)));
  }
  return formula;
}

/// Also the letters beyond ASCII, which no formula could use.
bool beginsAName(char c) {
  constexpr int kHighCodes = 0x80;
  return isLetter(c) || code(c) >= kHighCodes;
}

std::string numberText(const std::optional<double>& number) {
  return number ? FormatMask(*number, kNumberMask) : kNoError;
}

}  // namespace

DerivedTable::DerivedTable(const std::vector<std::string>& words, const ParameterSet& par, bool trace) {
  for (const std::string& word : words) {
    const NamedText given = parseNamedText(word, "NOME=FORMULA");
    Row row{textOfWord(given.name), textOfWord(given.text), {}, {}};
    if (!beginsAName(row.name.front()))
      throw UsageError("\"" + word + "\": un nome comincia con una lettera");
    const auto same = [&](const Row& before) { return before.name == row.name; };
    if (std::ranges::any_of(rows_, same))
      throw UsageError(terminalText(row.name) + ": formula data piu` di una volta");
    row.formula = compiled(word, row.text, par, trace);
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
  TableColumn names{kNameHead}, values{numberHead(kValueHead)}, errors{numberHead(kErrorHead)},
      scaled{numberHead(kScaledHead)}, formulas{kFormulaHead};
  for (const Row& row : rows_) {
    names.push_back(row.name);
    values.push_back(numberText(row.result.value));
    errors.push_back(numberText(row.result.error));
    scaled.push_back(numberText(scaledError(row)));
    formulas.push_back(row.text);
  }
  const std::vector<TableColumn> columns = refined_ ? std::vector{names, values, errors, scaled, formulas}
                                                    : std::vector{names, values, errors, formulas};
  return columnTable(kDerivedTitle, columns).toUtf8();
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
