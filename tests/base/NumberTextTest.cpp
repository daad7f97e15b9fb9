#include "base/NumberText.h"

#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <optional>
#include <random>
#include <regex>
#include <sstream>
#include <string>

namespace vk {
namespace {

TEST(GeneralText, HasNoZeroBeforeThePoint) {
  EXPECT_EQ(generalText(0.5), ".5");
  EXPECT_EQ(generalText(-0.25), "-.25");
  EXPECT_EQ(generalText(1234.5), "1234.5");
  EXPECT_EQ(generalText(3.0), "3");
  EXPECT_EQ(generalText(0.0), "0");
}

TEST(GeneralText, ChangesToExponentFormAtTheFifteenthPower) {
  EXPECT_EQ(generalText(123456789012345.0), "123456789012345");
  EXPECT_EQ(generalText(1E15), "1E+15");
  EXPECT_EQ(generalText(999999999999999.0), "999999999999999");
  EXPECT_EQ(generalText(999999999999999.9), "1E+15");
  EXPECT_EQ(generalText(-1.25E200), "-1.25E+200");
}

TEST(GeneralText, ChangesToExponentFormWhenMoreThanFifteenDecimalsAreNeeded) {
  EXPECT_EQ(generalText(1E-15), ".000000000000001");
  EXPECT_EQ(generalText(1.5E-15), "1.5E-15");
  EXPECT_EQ(generalText(1.0 / 3), ".333333333333333");
  EXPECT_EQ(generalText(1.0 / 30), "3.33333333333333E-02");
  EXPECT_EQ(generalText(1E-16), "1E-16");
}

TEST(GeneralText, SinglesHaveSevenDigits) {
  EXPECT_EQ(generalText(0.1234567891F), ".1234568");
  EXPECT_EQ(generalText(2.5F), "2.5");
  EXPECT_EQ(generalText(0.1F), ".1");
}

TEST(SignedText, HasABlankInPlaceOfTheSign) {
  EXPECT_EQ(signedText(12), " 12");
  EXPECT_EQ(signedText(-12), "-12");
  EXPECT_EQ(signedText(0.5), " .5");
  EXPECT_EQ(signedText(-0.5), "-.5");
}

TEST(NumericTest, AcceptsSignDigitsPointAndExponent) {
  for (const char* text :
       {"1", "+1", "-1", "1.", ".5", "1e3", "1E+3", "1d-3", "1D3", "00012", "-.5E-2", "1E-400"}) {
    EXPECT_TRUE(isNumeric(text)) << text;
  }
}

TEST(NumericTest, RefusesEverythingElse) {
  for (const char* text : {"", ".", "-", "+-1", "1e", "1e+", "junk", "1,5", "1 2", " 1", "1 ", "0x10", "nan",
                           "inf", "1E400", "1.2.3", "E5", "--1"}) {
    EXPECT_FALSE(isNumeric(text)) << text;
  }
}

/// The value by the grammar and a stream: nothing for what is no number.
std::optional<double> referenceValue(const std::string& text) {
  static const std::regex grammar(R"(([+-]?(\d+\.?\d*|\.\d+))([eEdD]([+-]?\d+))?)");
  std::smatch parts;
  if (!std::regex_match(text, parts, grammar)) return std::nullopt;
  std::istringstream stream(parts[1].str() + "E" + (parts[4].matched ? parts[4].str() : "0"));
  stream.imbue(std::locale::classic());
  double value = 0;
  stream >> value;
  if (std::abs(value) > 1 && stream.fail()) return std::nullopt;
  return value;
}

TEST(NumericTest, AgreesWithTheGrammarForAnyText) {
  const std::string characters = "0123456789012345678901234567890123456789....++--EeDd x";
  std::mt19937 chance(4);
  int numbers = 0;
  for (int run = 0; run < 30000; ++run) {
    std::string text;
    for (auto left = chance() % 12; left > 0; --left) text += characters[chance() % characters.size()];
    const std::optional<double> expected = referenceValue(text);
    ASSERT_EQ(numberIn(text), expected) << text;
    ASSERT_EQ(isNumeric(text), expected.has_value()) << text;
    if (expected) {
      ASSERT_EQ(scanNumber("  " + text + "x"), *expected) << text;
      ++numbers;
    }
  }
  EXPECT_GT(numbers, 3000);
}

TEST(NumericScan, TakesTheLongestPrefix) {
  EXPECT_EQ(scanNumber("12abc"), 12);
  EXPECT_EQ(scanNumber("   -2.5e2x"), -250);
  EXPECT_EQ(scanNumber("1e+"), 1);
  EXPECT_EQ(scanNumber("1D3"), 1000);
  EXPECT_EQ(scanNumber("+7"), 7);
  EXPECT_EQ(scanNumber("2x"), 2);
}

TEST(NumericScan, GivesZeroWhereNothingIsNumeric) {
  for (const char* text : {"", "   ", "abc", ".", "-x", "\t5"}) EXPECT_EQ(scanNumber(text), 0) << text;
}

TEST(NumericScan, NeverLeavesTheRangeOfADouble) {
  EXPECT_EQ(scanNumber("1E400"), 1E40);
  EXPECT_EQ(scanNumber("1E-400"), 0);
  EXPECT_EQ(scanNumber("0.0000001E-320"), 0);
  EXPECT_EQ(scanNumber("-1E308999"), -1E308);
  EXPECT_EQ(scanNumber("12E+309"), 12E+30);
}

TEST(NumericScan, TakesTheDigitsThatFitOfAMantissaBeyondTheRange) {
  const std::string nines(308, '9');
  EXPECT_EQ(scanNumber(nines + "99"), std::stod(nines));
  EXPECT_EQ(scanNumber("1" + std::string(309, '0')), 1E308);
  EXPECT_EQ(scanNumber("-" + std::string(400, '1') + "E-5"), -std::stod(std::string(309, '1')));
  EXPECT_EQ(scanNumber(std::string(400, '1') + "E-200"), std::stod(std::string(400, '1') + "E-200"));
}

TEST(NumericTest, SeesTheSizeOfANumberByMantissaAndExponentTogether) {
  EXPECT_FALSE(isNumeric("1" + std::string(400, '0') + "E-50"));
  EXPECT_FALSE(isNumeric("." + std::string(50, '0') + "1E+400"));
  EXPECT_TRUE(isNumeric("." + std::string(400, '0') + "1E+50"));
  EXPECT_EQ(scanNumber("-." + std::string(400, '0') + "1E+50"), 0);
  EXPECT_TRUE(isNumeric("1" + std::string(50, '0') + "E-999999999999999999999"));
  EXPECT_FALSE(isNumeric("." + std::string(50, '0') + "1E999999999999999999999"));
}

TEST(NumericScan, ReadsALongLineOfDigitsAtOnce) {
  EXPECT_EQ(scanNumber(std::string(1000000, '1')), std::stod(std::string(309, '1')));
  EXPECT_EQ(scanNumber("1E" + std::string(1000000, '9')), 1E99);
}

TEST(NumberText, DoesNotListenToTheLocale) {
  const char* italian = std::setlocale(LC_ALL, "it_IT.UTF-8");
  EXPECT_EQ(generalText(1.5), "1.5");
  EXPECT_EQ(scanNumber("1.5"), 1.5);
  EXPECT_FALSE(isNumeric("1,5"));
  if (italian != nullptr) std::setlocale(LC_ALL, "C");
}

TEST(DecimalDigits, AreRoundedAtTheLastPlace) {
  EXPECT_EQ(decimalDigits(0.00123, 3).digits, "123");
  EXPECT_EQ(decimalDigits(0.00123, 3).exponent, -2);
  EXPECT_EQ(decimalDigits(999.6, 3).digits, "100");
  EXPECT_EQ(decimalDigits(999.6, 3).exponent, 4);
  EXPECT_EQ(decimalDigits(0, 4).digits, "0000");
}

}  // namespace
}  // namespace vk
