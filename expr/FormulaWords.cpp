#include "expr/FormulaWords.h"

#include <array>

#include "base/Text.h"
#include "expr/Opcodes.h"

namespace vk {
namespace {

struct Meaning {
  std::string_view word;
  std::string_view meant;
};

constexpr std::array kFunctionWords{
    Meaning{"SEN", "SIN"},
    Meaning{"SENO", "SIN"},
    Meaning{"COSENO", "COS"},
    Meaning{"TG", "TAN"},
    Meaning{"TANG", "TAN"},
    Meaning{"ARCSIN", "ASIN"},
    Meaning{"ARCSEN", "ASIN"},
    Meaning{"ASEN", "ASIN"},
    Meaning{"ARCCOS", "ACOS"},
    Meaning{"ARCTAN", "ATAN"},
    Meaning{"ARCTG", "ATAN"},
    Meaning{"ATG", "ATAN"},
    Meaning{"ATN", "ATAN"},
    Meaning{"SINH", "(EXP(u)-EXP(-u))/2"},
    Meaning{"COSH", "(EXP(u)+EXP(-u))/2"},
    Meaning{"TANH", "1-2/(EXP(2*u)+1)"},
    Meaning{"SQRT", "SQR"},
    Meaning{"RADQ", "SQR"},
    Meaning{"RAD", "SQR"},
    Meaning{"LN", "LOG"},
    Meaning{"LOG10", "LOG(u)/LOG(10)"},
    Meaning{"LG", "LOG(u)/LOG(10)"},
    Meaning{"LOG2", "LOG(u)/LOG(2)"},
    Meaning{"ESP", "EXP"},
    Meaning{"POW", "u^v"},
    Meaning{"POTENZA", "u^v"},
    Meaning{"POWER", "u^v"},
    Meaning{"FABS", "ABS"},
    Meaning{"ASS", "ABS"},
    Meaning{"SIGN", "SGN"},
    Meaning{"SEGNO", "SGN"},
    Meaning{"FLOOR", "INT"},
    Meaning{"GAMMA", "GAM"},
    Meaning{"LGAMMA", "LNGAM"},
    Meaning{"GAMMALN", "LNGAM"},
    Meaning{"ERF", "A(u*SQR(2))"},
    Meaning{"ERFC", "1-A(u*SQR(2))"},
    Meaning{"SOMMA", "SUM"},
    Meaning{"MEDIA", "AVG"},
    Meaning{"MEAN", "AVG"},
    Meaning{"AVERAGE", "AVG"},
    Meaning{"STDEV", "STD"},
    Meaning{"DEVST", "STD"},
};

constexpr std::array kValueWords{
    Meaning{"PI", "3.1415926"},
    Meaning{"PIGRECO", "3.1415926"},
    Meaning{"E", "EXP(1)"},
};

// The signs of code page 437 for a division, products, the square, the root and pi.
constexpr std::array kSigns{
    Meaning{"[", "("},
    Meaning{"]", ")"},
    Meaning{"{", "("},
    Meaning{"}", ")"},
    Meaning{":", "/"},
    Meaning{"\\", "/"},
    Meaning{";", ","},
    Meaning{"\xF6", "/"},
    Meaning{"\xF9", "*"},
    Meaning{"\xFA", "*"},
    Meaning{"\xFD", "^2"},
    Meaning{"\xFB", "SQR"},
    Meaning{"\xE3", "3.1415926"},
};

template <class Table>
std::string meaningIn(const Table& table, std::string_view word) {
  for (const Meaning& meaning : table) {
    if (equalIgnoringCase(meaning.word, word)) return std::string(meaning.meant);
  }
  return {};
}

}  // namespace

std::string functionMeantBy(std::string_view word) {
  return meaningIn(kFunctionWords, word);
}

std::string valueMeantBy(std::string_view word) {
  return meaningIn(kValueWords, word);
}

std::string signMeantBy(char c) {
  return meaningIn(kSigns, {&c, 1});
}

const std::vector<std::string>& functionNames() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> list;
    for (int i = 0; i < kFunctionCount; ++i) list.emplace_back(functionOf(i).name);
    return list;
  }();
  return names;
}

}  // namespace vk
