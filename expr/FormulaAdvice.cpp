#include "expr/FormulaAdvice.h"

#include <algorithm>
#include <array>
#include <functional>

#include "base/NearWord.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "expr/FormulaWords.h"
#include "expr/Opcodes.h"
#include "expr/Tokens.h"

namespace vk {
namespace {

/// How a fault is told: what is at fault, in quotes or not at all, between two texts.
struct KindTexts {
  AdviceKind kind;
  bool quoted;
  const char* says;
};

constexpr std::array kTexts{
    KindTexts{AdviceKind::kComma, false, "la virgola separa solo gli argomenti di una funzione"},
    KindTexts{AdviceKind::kBehindNumber, true, " non e` un numero"},
    KindTexts{AdviceKind::kDoubleStar, true, " non e` un segno"},
    KindTexts{AdviceKind::kTwoSigns, true, ": due segni di seguito"},
    KindTexts{AdviceKind::kMissingSign, false, "manca un segno"},
    KindTexts{AdviceKind::kMissingValue, false, "manca un valore"},
    KindTexts{AdviceKind::kNotOpened, false, "parentesi mai aperta"},
    KindTexts{AdviceKind::kNotClosed, false, "parentesi mai chiusa"},
    KindTexts{AdviceKind::kCharacter, true, " non e` un segno delle formule"},
    KindTexts{AdviceKind::kUnknownFunction, true, " non e` una funzione"},
    KindTexts{AdviceKind::kUnknownName, true, " non e` definita"},
    KindTexts{AdviceKind::kBareFunction, true, " e` una funzione e vuole i suoi argomenti"},
    KindTexts{AdviceKind::kLongName, true, " ha piu` di 4 caratteri"},
    KindTexts{AdviceKind::kArguments, true, ": numero di argomenti errato"},
};

std::string adviceText(AdviceKind kind, const std::string& culprit, const std::string& meant) {
  const auto* texts = std::ranges::find(kTexts, kind, &KindTexts::kind);
  return (texts->quoted ? "\"" + culprit + "\"" : "") + texts->says +
         (meant.empty() ? "" : ": forse " + meant);
}

/// A name that the language takes for one that is too long: its beginning, and the digits at its end, which tell it
/// from its likes.
std::string shorterName(const std::string& name) {
  const std::size_t digits =
      std::min<std::size_t>(name.size() - 1 - name.find_last_not_of("0123456789"), kNameWidth - 1);
  return left(name, kNameWidth - static_cast<int>(digits)) + name.substr(name.size() - digits);
}

constexpr std::string_view kOperators = "+-*/^";

bool isOperator(char c) {
  return kOperators.find(c) != std::string_view::npos;
}
bool isSign(char c) {
  return c == '+' || c == '-';
}
bool continuesName(char c) {
  return isLetter(c) || isDigit(c) || c == '_';
}

const Operation* functionNamed(std::string_view name) {
  for (int i = 0; i < kFunctionCount; ++i) {
    if (equalIgnoringCase(functionOf(i).name, name)) return &functionOf(i);
  }
  return nullptr;
}

/// An opened parenthesis.
struct Opened {
  std::size_t at;  // of the parenthesis, or of the function's name in front of it
  bool arguments;  // of a function, be it known or not
  int wanted = 0;  // number of arguments; 0 for any
  int commas = 0;
  std::string name{};  // of the function
};

/// One walk over a formula without blanks.
class Reader {
 public:
  Reader(const std::string& formula, const std::vector<std::string>& names)
      : source_(TracedText(formula, 0).withoutBlanks()),
        text_(source_.text()),
        end_(length(formula)),
        names_(names) {
    std::erase_if(names_, [](const std::string& name) { return length(name) > kNameWidth; });
  }

  std::vector<FormulaAdvice> read() {
    while (at_ < text_.size()) step();
    if (operand_) tell(AdviceKind::kMissingValue, at_);
    for (const Opened& opened : opened_) tell(AdviceKind::kNotClosed, opened.at + opened.name.size());
    std::ranges::stable_sort(advice_, {}, &FormulaAdvice::first);
    return std::move(advice_);
  }

 private:
  void tell(AdviceKind kind, std::size_t at, const std::string& culprit = {}, const std::string& meant = {}) {
    const int first = at < text_.size() ? source_.placeOf(at, 1).first : end_;
    advice_.push_back({kind, first, adviceText(kind, culprit, meant)});
  }

  /// The sign at `at_`, or what was meant by one that the language has not.
  char sign() const {
    const std::string meant = signMeantBy(text_[at_]);
    return meant.size() == 1 ? meant[0] : text_[at_];
  }

  void step() {
    const char c = text_[at_];
    if (sign() != c) tell(AdviceKind::kCharacter, at_, {c}, {sign()});
    switch (sign()) {
      case '(':
        return open({at_, false});
      case ')':
        return close();
      case ',':
        return comma();
      default:
        break;
    }
    if (isOperator(sign())) {
      operand_ ? operatorForOperand() : operatorBehindOperand();
    } else if (numberLength(std::string_view(text_).substr(at_, 2)) > 0) {
      number();
    } else if (continuesName(c)) {
      name();
    } else {
      unknownCharacter();
    }
  }

  void unknownCharacter() {
    const std::string meant = signMeantBy(text_[at_]);
    tell(AdviceKind::kCharacter, at_, text_.substr(at_, 1), meant);
    if (operand_ || numberLength(meant) > 0) return endOperand(meant, at_ + 1);
    ++at_;
  }

  void operatorBehindOperand() {
    before_ = sign();
    operand_ = true;
    ++at_;
  }

  /// In front of an operand may stand a sign: any number of "+", then one "-".
  void operatorForOperand() {
    const char c = sign();
    const bool first = before_ == 0;
    if (c == '*' && before_ == '*' && text_[at_ - 1] == '*') {
      tell(AdviceKind::kDoubleStar, at_ - 1, "**", "^");
    } else if (isSign(c) && !first) {
      const std::string together{before_, c};
      tell(AdviceKind::kTwoSigns, at_ - 1, together,
           lastOperand_ + before_ + "(" + c + operandAt(at_ + 1) + ")");
    } else if (!isSign(c)) {
      tell(AdviceKind::kMissingValue, at_);
    }
    if (c != '+' || !first) before_ = c;
    ++at_;
  }

  std::size_t endOfName(std::size_t at) const {
    while (at < text_.size() && continuesName(text_[at])) ++at;
    return at;
  }
  std::size_t endOfNumber(std::size_t at) const {
    return at + numberLength(std::string_view(text_).substr(at, endOfOperand(text_, at) - at));
  }

  /// What stands at `at` as far as it is one name or number.
  std::string operandAt(std::size_t at) const {
    if (at >= text_.size()) return "...";
    const std::size_t number = endOfNumber(at);
    const std::size_t end = number > at ? number : endOfName(at);
    const bool called = end < text_.size() && text_[end] == '(';
    return text_.substr(at, end - at) + (called ? "(...)" : "");
  }

  /// An operand follows; where one stands before it, a sign is missing between them.
  void beginOperand(const std::string& operand) {
    if (!operand_) tell(AdviceKind::kMissingSign, at_, {}, lastOperand_ + "*" + operand);
  }

  void endOperand(const std::string& operand, std::size_t end) {
    lastOperand_ = operand;
    operand_ = false;
    before_ = 0;
    at_ = end;
  }

  void expectOperand() {
    lastOperand_.clear();
    operand_ = true;
    before_ = 0;
  }

  void open(Opened opened) {
    if (!opened.arguments) beginOperand("(");
    at_ = opened.at + opened.name.size() + 1;
    opened_.push_back(std::move(opened));
    expectOperand();
  }

  /// Of a function, be it known or not, whose name begins at `at`.
  void openArguments(std::size_t at, const std::string& name) {
    const Operation* function = functionNamed(name);
    open({at, true, function != nullptr ? function->arity : 0, 0, name});
  }

  void close() {
    if (operand_) tell(AdviceKind::kMissingValue, at_);
    if (opened_.empty()) {
      tell(AdviceKind::kNotOpened, at_);
    } else {
      const Opened& opened = opened_.back();
      if (opened.wanted > 0 && opened.wanted != opened.commas + 1) {
        tell(AdviceKind::kArguments, opened.at, opened.name);
      }
      opened_.pop_back();
    }
    endOperand(")", at_ + 1);
  }

  void comma() {
    if (operand_) tell(AdviceKind::kMissingValue, at_);
    if (opened_.empty() || !opened_.back().arguments) {
      tell(AdviceKind::kComma, at_, {}, decimalNumber());
    } else {
      ++opened_.back().commas;
    }
    expectOperand();
    ++at_;
  }

  /// What a comma between two numbers was meant for.
  std::string decimalNumber() const {
    const bool digits =
        std::ranges::all_of(lastOperand_, isDigit) && at_ + 1 < text_.size() && isDigit(text_[at_ + 1]);
    return digits ? lastOperand_ + "." + text_.substr(at_ + 1, endOfNumber(at_ + 1) - at_ - 1) : "";
  }

  void number() {
    const std::size_t end = endOfNumber(at_);
    const std::string number = text_.substr(at_, end - at_);
    beginOperand(number);
    std::size_t tailEnd = end;
    while (tailEnd < text_.size() && (continuesName(text_[tailEnd]) || text_[tailEnd] == '.')) ++tailEnd;
    const std::string tail = text_.substr(end, tailEnd - end);
    const bool called = tailEnd < text_.size() && text_[tailEnd] == '(';
    const std::size_t begin = at_;
    endOperand(number + tail, tailEnd);
    if (tail.empty() && !called) return;
    tell(AdviceKind::kBehindNumber, begin, number + tail + (called ? "(" : ""),
         productOf(number, tail, called));
    if (!called) return;
    operand_ = true;
    if (tail.empty()) return;
    openArguments(end, tail);
  }

  /// What a number with letters directly behind it was meant for.
  std::string productOf(const std::string& number, const std::string& tail, bool called) const {
    if (tail.empty()) return number + "*(";
    if (!isLetter(tail[0])) return {};
    const bool exponent = upper(tail) == "D" && at_ < text_.size() && isSign(text_[at_]);
    if (exponent) return number + "E";
    const std::string meant = called ? functionMeantBy(tail) : isKnown(tail) ? "" : valueMeantBy(tail);
    return number + "*" + (meant.empty() ? tail : meant) +
           (called && meant.find('(') == std::string::npos ? "(" : "");
  }

  bool isKnown(const std::string& name) const { return std::ranges::find(names_, name) != names_.end(); }

  void name() {
    const std::size_t begin = at_, end = endOfName(begin);
    const std::string name = text_.substr(begin, end - begin);
    beginOperand(name);
    const bool called = end < text_.size() && text_[end] == '(';
    const Operation* function = functionNamed(name);
    if (called && !function && isKnown(name)) {
      endOperand(name, end);  // the parenthesis tells that a sign is missing
    } else if (called) {
      if (!function) tell(AdviceKind::kUnknownFunction, begin, name, functionFor(name));
      openArguments(begin, name);
    } else {
      if (!isKnown(name))
        unknownName(name, function != nullptr && name.size() > 1);  // A, P and Q are names, too
      endOperand(name, end);
    }
  }

  void unknownName(const std::string& name, bool isFunction) {
    if (isFunction) return tell(AdviceKind::kBareFunction, at_, name);
    const std::string meant = nameFor(name);
    if (length(name) <= kNameWidth) return tell(AdviceKind::kUnknownName, at_, name, meant);
    tell(AdviceKind::kLongName, at_, name, meant.empty() ? shorterName(name) : meant);
  }

  std::string functionFor(const std::string& name) const {
    std::string meant = functionMeantBy(name);
    if (!meant.empty()) return meant;
    const std::string product =
        productFor(name, [](const std::string& rest) { return functionNamed(rest) != nullptr; });
    return product.empty() ? nearWord(name, functionNames()) : product;
  }

  std::string nameFor(const std::string& name) const {
    const auto same = [&](const std::string& known) { return equalIgnoringCase(known, name); };
    if (const auto known = std::ranges::find_if(names_, same); known != names_.end()) return *known;
    std::string meant = valueMeantBy(name);
    if (!meant.empty()) return meant;
    const std::string product = productFor(name, [&](const std::string& rest) { return isKnown(rest); });
    return product.empty() ? nearWord(name, names_) : product;
  }

  /// A name that is two, one behind the other.
  std::string productFor(const std::string& name,
                         const std::function<bool(const std::string&)>& isSecond) const {
    for (std::size_t k = 1; k < name.size(); ++k) {
      const std::string first = name.substr(0, k), second = name.substr(k);
      if (isKnown(first) && isSecond(second)) return first + "*" + second;
    }
    return {};
  }

  const TracedText source_;
  const std::string& text_;
  const int end_;
  std::vector<std::string> names_;
  std::size_t at_ = 0;
  bool operand_ = true;  // one must stand at `at_`
  char before_ = 0;      // the operator in front of it
  std::string lastOperand_;
  std::vector<Opened> opened_;
  std::vector<FormulaAdvice> advice_;
};

}  // namespace

std::vector<FormulaAdvice> adviseOn(const std::string& formula, const std::vector<std::string>& names) {
  return Reader(formula, names).read();
}

std::string adviceLines(const std::string& formula, const std::vector<FormulaAdvice>& advice) {
  if (advice.empty()) return {};
  // Each line is as long as its place is far: on a page of faults they would not fit into any memory.
  constexpr std::size_t kMostLines = 20;
  const std::size_t told = advice.size() <= kMostLines + 1 ? advice.size() : kMostLines;
  std::string lines = formula;
  lines += kCrLf;
  for (std::size_t i = 0; i < told; ++i) {
    // A tab in the formula is one below it too.
    std::string margin = left(formula, advice[i].first);
    std::ranges::replace_if(
        margin, [](char c) { return c != '\t'; }, ' ');
    lines += margin + "^ " + advice[i].text;
    lines += kCrLf;
  }
  if (told < advice.size()) {
    lines += "... e altri " + std::to_string(advice.size() - told) + " errori";
    lines += kCrLf;
  }
  return lines;
}

}  // namespace vk
