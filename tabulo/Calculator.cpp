#include "tabulo/Calculator.h"

#include <algorithm>

#include "base/NumberText.h"
#include "base/Text.h"
#include "expr/Compiler.h"
#include "expr/Formula.h"

namespace vk {
namespace {

constexpr const char* kLastResult = "ris";
constexpr int kLongestName = 4;

/// The error line of a gamma function that does not converge.
class ExhaustedNote : public EvaluationListener {
 public:
  void exhausted(Kernel kernel) override {
    if (kernel != Kernel::kBetaFraction) note = "D_X2: Errori nel Calcolo della Funzione";
  }

  std::string note;
};

/// The first fault that the compiler has a text for.
std::string reasonOf(const std::vector<CompileFault>& faults) {
  const auto first =
      std::ranges::find_if(faults, [](const CompileFault& fault) { return !fault.text.empty(); });
  return first == faults.end() ? "Numero di Argomenti Errato" : trim(first->text);
}

bool isName(const std::string& text) {
  return !text.empty() && length(text) <= kLongestName && isLetter(text[0]) &&
         std::all_of(text.begin(), text.end(), [](char c) { return isLetter(c) || isDigit(c) || c == '_'; });
}

}  // namespace

bool Calculator::enter(std::string_view line) {
  const std::string typed = trim(line);
  const int equals = position(typed, "=");
  const std::string name = trim(left(typed, equals - 1));
  if (typed.empty()) return fail("Manca la formula");
  if (equals > 0 && !isName(name))
    return fail("\"" + name + "\" non e` un nome: una lettera, poi lettere o cifre, al massimo 4");
  if (name == kLastResult) return fail("\"ris\" e` il nome dell'ultimo risultato");

  Formula formula;
  double value = 0;
  if (!compileLine(mid(typed, equals + 1), formula) || !evaluate(formula, value)) return false;
  if (equals > 0) {
    const auto known =
        std::find_if(values_.begin(), values_.end(), [&](const NamedValue& v) { return v.first == name; });
    if (known == values_.end()) {
      values_.emplace_back(name, value);
    } else {
      known->second = value;
    }
  }
  last_ = value;
  history_.push_back({typed, generalText(value)});
  error_.clear();
  return true;
}

std::vector<Calculator::NamedValue> Calculator::variables() const {
  std::vector<NamedValue> all = values_;
  if (!history_.empty()) all.emplace_back(kLastResult, last_);
  return all;
}

bool Calculator::compileLine(const std::string& text, Formula& formula) {
  std::string names;
  for (const auto& [name, value] : variables()) names += (names.empty() ? "" : ",") + name;
  Compilation compiled = compile("y@" + names + "@ @ @" + text);
  if (!compiled.ok) return fail(reasonOf(compiled.faults));
  formula = Formula(std::move(compiled.code));
  return true;
}

bool Calculator::evaluate(Formula& formula, double& value) {
  int i = 0;
  for (const auto& [name, number] : variables()) formula.setValue(++i, number);
  ExhaustedNote exhausted;
  const Evaluation found = formula.value(exhausted);
  value = found.value;
  if (found.fault == Fault::kNone) return true;
  return fail(exhausted.note.empty() ? "Il calcolo NON riesce: argomento fuori dal campo della funzione"
                                     : exhausted.note);
}

bool Calculator::fail(const std::string& reason) {
  error_ = reason;
  return false;
}

void Calculator::clear() {
  *this = Calculator();
}

}  // namespace vk
