#include "tabulo/Calculator.h"

#include <algorithm>

#include "base/NumberText.h"
#include "base/Text.h"
#include "expr/CmpMod.h"

namespace vk {
namespace {

constexpr const char* kLastResult = "ris";
constexpr std::string_view kErrorMark = "* ERR.";
constexpr int kLongestName = 4;

/// Boxes of the formula language become part of the error line.
class NotedBoxes : public Dialogs {
 public:
  int Get_Msg(const MessageRequest&) override { return 1; }
  void plainBox(const std::string& title, const std::string& text) override { note = title + ": " + text; }
  std::optional<std::string> fileDialog(const FileRequest&) override { return std::nullopt; }

  std::string note;
};

/// The first error of a compiler report, without its mark; empty when the report tells of none.
std::string firstError(const std::string& report) {
  const int start = position(report, kErrorMark);
  if (start == 0) return {};
  const std::string rest = mid(report, start + length(kErrorMark));
  std::string line = trim(left(rest, position(rest + std::string(kCrLf), kCrLf) - 1));
  if (line.starts_with(':')) line.erase(0, 1);
  return trim(line);
}

bool isName(const std::string& text) {
  return !text.empty() && length(text) <= kLongestName && isLetter(text[0]) &&
         std::all_of(text.begin(), text.end(), [](char c) { return isLetter(c) || isDigit(c) || c == '_'; });
}

}  // namespace

bool Calculator::enter(const std::string& line) {
  const std::string typed = trim(line);
  const int equals = position(typed, "=");
  const std::string name = trim(left(typed, equals - 1));
  if (typed.empty()) return fail("Manca la formula");
  if (equals > 0 && !isName(name))
    return fail("\"" + name + "\" non e` un nome: una lettera, poi lettere o cifre, al massimo 4");
  if (name == kLastResult) return fail("\"ris\" e` il nome dell'ultimo risultato");

  CompiledExpression compiled;
  double value = 0;
  if (!compile(mid(typed, equals + 1), compiled) || !evaluate(compiled, value)) return false;
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

bool Calculator::compile(const std::string& formula, CompiledExpression& compiled) {
  Session session;
  session.TraceEnabled = kTrue;
  std::string names;
  for (const auto& [name, value] : variables()) names += (names.empty() ? "" : ",") + name;
  Int16 flag = kTrue;
  CompileExpression(session, "y@" + names + "@ @ @" + formula, compiled, flag);
  if (flag == 0) return true;
  // A wrong number of arguments leaves no line in the report.
  const std::string reason = firstError(session.TraceText);
  return fail(reason.empty() ? "Numero di Argomenti Errato" : reason);
}

bool Calculator::evaluate(CompiledExpression& compiled, double& value) {
  Session session;
  NotedBoxes boxes;
  int i = 0;
  for (const auto& [name, number] : variables()) compiled.Values[++i] = number;
  loadSlots(compiled);
  value = EvaluateCode(session, boxes, compiled.Code, compiled.Slots);
  if (session.ErrFlag == 0) return true;
  return fail(boxes.note.empty() ? "Il calcolo NON riesce: argomento fuori dal campo della funzione"
                                 : boxes.note);
}

bool Calculator::fail(const std::string& reason) {
  error_ = reason;
  return false;
}

void Calculator::clear() {
  *this = Calculator();
}

}  // namespace vk
