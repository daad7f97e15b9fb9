#include "base/NumberMasks.h"

#include <bit>
#include <clocale>
#include <cmath>
#include <random>

namespace vk {
namespace {

const std::vector<std::string> kMasksInUse{"####",         "#####",         " #####",        "########",
                                           "###.####",     "#.##^^^^",      "#.###^^^^",     "#.####^^^^",
                                           "#.#####^^^^",  "#.######^^^^",  "#.#######^^^^", "##.####^^^^",
                                           "##.#####^^^^", "  ##.####^^^^", " ##.#####^^^^ "};

struct Worked {
  const char* mask;
  double value;
  const char* pattern;
  const char* underPattern;
  const char* underMask;
};

class WorkedMask : public testing::TestWithParam<Worked> {};

TEST_P(WorkedMask, GivesTheWrittenText) {
  const Worked& w = GetParam();
  EXPECT_EQ(MaskPattern(w.mask), w.pattern);
  EXPECT_EQ(FormatPattern(w.value, w.pattern), w.underPattern);
  EXPECT_EQ(FormatMask(w.value, w.mask), w.underMask);
}

INSTANTIATE_TEST_SUITE_P(
    Examples, WorkedMask,
    testing::Values(Worked{"##.#####^^^^", 1234.5, "#.00000E+00", "1.23450E+03", " 1.23450E+03"},
                    Worked{"##.#####^^^^", -0.00123, "#.00000E+00", "-1.23000E-03", "-1.23000E-03"},
                    Worked{" ##.#####^^^^ ", 1234.5, "#.00000E+00", "1.23450E+03", "  1.23450E+03 "},
                    Worked{"#.######^^^^", 1234.5, ".000000E+00", ".123450E+04", "0.123450E+04"},
                    Worked{"#.######^^^^", -1234.5, ".000000E+00", "-.123450E+04", "-.123450E+04"},
                    Worked{"####", 12.7, "###", "13", "  13"}, Worked{"####", 0, "###", "", "    "},
                    Worked{"####", 12345, "###", "12345", "****"},
                    Worked{"###.####", 0.5, "##.0000", ".5000", "  0.5000"},
                    Worked{"###.####", 100, "##.0000", "100.0000", "100.0000"},
                    Worked{"###.####", -100, "##.0000", "-100.0000", "********"}));

TEST(MaskPattern, LeavesTheFirstPositionToTheSign) {
  EXPECT_EQ(MaskPattern("##.#####^^^^"), "#.00000E+00");
  EXPECT_EQ(MaskPattern("#.######^^^^"), ".000000E+00");
  EXPECT_EQ(MaskPattern("###.####"), "##.0000");
  EXPECT_EQ(MaskPattern("####"), "###");
  EXPECT_EQ(MaskPattern(".##"), ".00");
  EXPECT_EQ(MaskPattern("#"), "");
  EXPECT_EQ(MaskPattern("#.##^^^^"), ".00E+00");
  EXPECT_EQ(MaskPattern("  ##.####^^^^"), "#.0000E+00");
}

TEST(FormatMask, IsAlwaysAsLongAsTheMask) {
  for (const std::string& mask : kMasksInUse) {
    for (const double value : {0.0, 1.0, 12.7, 1234.5, 1E5, 1E-5, 1E100, 1E-100}) {
      EXPECT_EQ(FormatMask(value, mask).size(), mask.size()) << mask << " " << value;
      EXPECT_EQ(FormatMask(-value, mask).size(), mask.size()) << mask << " " << -value;
    }
  }
}

TEST(FormatMask, PutsTheMarginsBackAndDoesNotCountThem) {
  EXPECT_EQ(FormatMask(123456, " #####"), " *****");
  EXPECT_EQ(FormatMask(12345, " #####"), " 12345");
  EXPECT_EQ(FormatMask(7, "  #### "), "     7 ");
}

TEST(FormatMask, AFieldExactlyFullIsNoOverflow) {
  EXPECT_EQ(FormatMask(-1234.5, "##.#####^^^^"), "-1.23450E+03");
  EXPECT_EQ(FormatMask(1234, "####"), "1234");
}

TEST(FormatMask, ADigitMoreAfterRoundingOverflows) {
  EXPECT_EQ(FormatMask(999.99996, "###.####"), "********");
  EXPECT_EQ(FormatPattern(999.99996, "##.0000"), "1000.0000");
  EXPECT_EQ(FormatMask(100, "###.####"), "100.0000");
  EXPECT_EQ(FormatMask(-100, "###.####"), "********");
}

TEST(FormatMask, AThreeDigitExponentCostsOnePosition) {
  EXPECT_EQ(FormatMask(1E100, "#.######^^^^"), "************");
  EXPECT_EQ(FormatPattern(1E100, ".000000E+00"), ".100000E+101");
  EXPECT_EQ(FormatMask(1E100, " ##.#####^^^^ "), " 1.00000E+100 ");
  EXPECT_EQ(FormatMask(-1E100, " ##.#####^^^^ "), " ************ ");
  EXPECT_EQ(FormatMask(1E-100, " ##.#####^^^^ "), " 1.00000E-100 ");
}

TEST(FormatMask, ZeroIsBlankUnderWholeMasksAndADigitUnderOthers) {
  EXPECT_EQ(FormatMask(0, "####"), "    ");
  EXPECT_EQ(FormatMask(0, "#.######^^^^"), "0.000000E+00");
  EXPECT_EQ(FormatMask(0, "##.#####^^^^"), " 0.00000E+00");
  EXPECT_EQ(FormatMask(0, "###.####"), "  0.0000");
  EXPECT_EQ(FormatMask(-0.0, "###.####"), "  0.0000");
}

TEST(FormatMask, ASignTakesThePlaceOfTheZero) {
  EXPECT_EQ(FormatMask(-0.5, "###.####"), "  -.5000");
}

TEST(FormatMask, RoundsHalvesAwayFromZero) {
  EXPECT_EQ(FormatMask(0.5, "####"), "   1");
  EXPECT_EQ(FormatMask(2.5, "####"), "   3");
  EXPECT_EQ(FormatMask(-2.5, "####"), "  -3");
  EXPECT_EQ(FormatMask(0.00005, "###.####"), "  0.0001");
}

TEST(FormatMask, ACarryRenormalisesTheMantissa) {
  EXPECT_EQ(FormatMask(9.999999, "##.#####^^^^"), " 1.00000E+01");
  EXPECT_EQ(FormatMask(0.99999999, "#.######^^^^"), "0.100000E+01");
  EXPECT_EQ(FormatMask(-9.9999996E99, " ##.#####^^^^ "), " ************ ");
}

TEST(FormatMask, AMaskOfOnePositionShowsTheGeneralText) {
  EXPECT_EQ(FormatMask(5, "#"), "5");
  EXPECT_EQ(FormatMask(-5, "#"), "*");
  EXPECT_EQ(FormatMask(0, "#"), "0");
}

TEST(FormatPattern, CutsToFifteenDigitsBeforeItRounds) {
  EXPECT_EQ(FormatPattern(2.675, "#.00"), "2.68");
  EXPECT_EQ(FormatPattern(1.005, "#.00"), "1.01");
  EXPECT_EQ(FormatPattern(0.1 + 0.2, ".00000000000000000000"), ".30000000000000000000");
}

TEST(FormatPattern, ANegativeValueThatRoundsToZeroKeepsItsSign) {
  EXPECT_EQ(FormatPattern(-0.00001, "##.0000"), "-.0000");
  EXPECT_EQ(FormatPattern(-0.3, "###"), "-");
}

TEST(FormatPattern, ShowsZeroWithoutADigitBeforeThePoint) {
  EXPECT_EQ(FormatPattern(0, "###"), "");
  EXPECT_EQ(FormatPattern(0, "#.00"), ".00");
  EXPECT_EQ(FormatPattern(0, ".000000E+00"), ".000000E+00");
  EXPECT_EQ(FormatPattern(0, "#.00000E+00"), ".00000E+00");
}

TEST(FormatPattern, SmallAndLargeValuesKeepTheirPlaces) {
  EXPECT_EQ(FormatPattern(0.0004, "##.0000"), ".0004");
  EXPECT_EQ(FormatPattern(0.00004, "##.0000"), ".0000");
  EXPECT_EQ(FormatPattern(1E-30, "##.0000"), ".0000");
  EXPECT_EQ(FormatPattern(0.04, "###"), "");
  EXPECT_EQ(FormatPattern(9.97, "##.0"), "10.0");
  EXPECT_EQ(FormatPattern(1E20, "###"), "100000000000000000000");
  EXPECT_EQ(FormatPattern(1234.5, "##.000E+00"), "12.345E+02");
}

TEST(FormatPattern, TheEmptyPatternIsTheGeneralText) {
  EXPECT_EQ(FormatPattern(0.5, ""), ".5");
  EXPECT_EQ(FormatPattern(1234.5), "1234.5");
  EXPECT_EQ(FormatPattern(-3), "-3");
}

TEST(FormatPattern, WhatIsNoNumberIsShownAsText) {
  EXPECT_EQ(FormatPattern(std::numeric_limits<double>::quiet_NaN(), "##.00"), "NaN");
  EXPECT_EQ(FormatPattern(-std::numeric_limits<double>::infinity(), ".00E+00"), "-Inf");
}

TEST(FormatMask, WhatIsWrittenReadsBackToTheLastPlaceOfTheMask) {
  std::mt19937_64 chance(3);
  for (int run = 0; run < 20000; ++run) {
    const double value = std::bit_cast<double>(chance());
    if (!std::isfinite(value)) continue;
    for (const std::string& mask : kMasksInUse) ASSERT_EQ(FormatMask(value, mask).size(), mask.size());
    const std::string text = FormatPattern(value, "#.00000E+00");
    ASSERT_TRUE(isNumeric(text)) << text;
    ASSERT_NEAR(scanNumber(text) / value, 1, 0.5001E-5) << text;
    const double moderate = std::ldexp(value, -std::ilogb(value) + static_cast<int>(chance() % 40) - 20);
    ASSERT_NEAR(scanNumber(FormatPattern(moderate, "###.0000")), moderate, 0.50001E-4) << moderate;
  }
}

TEST(FormatCompact, TakesTheShorterText) {
  EXPECT_EQ(FormatCompact(0.5), ".5");
  EXPECT_EQ(FormatCompact(3), "3");
  EXPECT_EQ(FormatCompact(-0.25), "-.25");
  EXPECT_EQ(FormatCompact(1234.5), "1234.5");
  EXPECT_EQ(FormatCompact(1.0 / 3), "0.333333E+00");
  EXPECT_EQ(FormatCompact(-1.0 / 3), "-.333333E+00");
  EXPECT_EQ(FormatCompact(1E100), "1E+100");
  EXPECT_EQ(FormatCompact(0), "0");
}

TEST(FormatCompact, ATieGoesToTheExponentForm) {
  EXPECT_EQ(FormatCompact(1234567.8901), "0.123457E+07");
  EXPECT_EQ(FormatCompact(1234567.89), "1234567.89");
}

TEST(FormatCompact, ALongValueWithAThreeDigitExponentIsAsterisks) {
  EXPECT_EQ(FormatCompact(1.23456789E100), "************");
}

TEST(FormatSigned, HasABlankInPlaceOfTheSign) {
  EXPECT_EQ(FormatSigned(0.5, "##.00"), " .50");
  EXPECT_EQ(FormatSigned(-0.5, "##.00"), "-.50");
  EXPECT_EQ(FormatSigned(1234.5, ".000000E+00"), " .123450E+04");
  EXPECT_EQ(FormatSigned(12345, "#"), " 12345");
  EXPECT_EQ(FormatSigned(0, "###"), " ");
}

TEST(FormatMask, TheDecimalPointDoesNotListenToTheLocale) {
  const char* italian = std::setlocale(LC_ALL, "it_IT.UTF-8");
  EXPECT_EQ(FormatMask(0.5, "###.####"), "  0.5000");
  EXPECT_EQ(FormatCompact(1234.5), "1234.5");
  if (italian != nullptr) std::setlocale(LC_ALL, "C");
}

}  // namespace
}  // namespace vk
