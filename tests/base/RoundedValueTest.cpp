#include "base/RoundedValue.h"

#include <gtest/gtest.h>

#include <limits>

namespace vk {
namespace {

struct Case {
  double value;
  std::optional<double> error;
  const char* plain;
  const char* compact;
};

void expectCases(std::initializer_list<Case> cases) {
  for (const Case& c : cases) {
    const RoundedValue rounded = roundedValue(c.value, c.error);
    EXPECT_EQ(rounded.plain, c.plain) << c.value;
    EXPECT_EQ(rounded.compact, c.compact) << c.value;
  }
}

TEST(RoundedValue, TheErrorHasTwoDigitsAndTheValueEndsAtItsPlace) {
  expectCases({{473.2, 12.1, "473 +- 12", "4.73(12)E2"},
               {8.89209, 0.248781, "8.89 +- 0.25", "8.89(25)"},
               {-8.89209, 0.248781, "-8.89 +- 0.25", "-8.89(25)"},
               {0.434566, 0.0333107, "0.435 +- 0.033", "4.35(33)E-1"},
               {3, 0.001, "3.0000 +- 0.0010", "3.0000(10)"},
               {8.89209, -0.248781, "8.89 +- 0.25", "8.89(25)"}});
}

TEST(RoundedValue, RoundingMayCarryToAnotherDigit) {
  expectCases({{473.2, 9.96, "473 +- 10", "4.73(10)E2"},
               {999.7, 10, "1000 +- 10", "1.000(10)E3"},
               {0.9996, 0.001, "0.9996 +- 0.0010", "9.996(10)E-1"},
               {0.99996, 0.001, "1.0000 +- 0.0010", "1.0000(10)"}});
}

TEST(RoundedValue, AnErrorMayBeLargerThanTheValue) {
  expectCases({{0.3, 12, "0 +- 12", "0.0(12)E1"},
               {-0.3, 12, "0 +- 12", "0.0(12)E1"},
               {0.7, 12, "1 +- 12", "0.1(12)E1"},
               {-0.7, 12, "-1 +- 12", "-0.1(12)E1"},
               {0.049, 12, "0 +- 12", "0.0(12)E1"},
               {0.4999, 12, "0 +- 12", "0.0(12)E1"},
               {0, 0.25, "0.00 +- 0.25", "0.0(25)E-1"}});
}

TEST(RoundedValue, DigitsThatNobodyKnowsAndFarOnesGoToAnExponent) {
  expectCases({{47321, 1234, "(4.73 +- 0.12)E4", "4.73(12)E4"},
               {4.732e-15, 1.2e-16, "(4.73 +- 0.12)E-15", "4.73(12)E-15"},
               {4.732e300, 1.2e299, "(4.73 +- 0.12)E300", "4.73(12)E300"},
               {4.732e-300, 1.2e-300, "(4.7 +- 1.2)E-300", "4.7(12)E-300"},
               {0.0001234, 0.0000056, "0.0001234 +- 0.0000056", "1.234(56)E-4"},
               {0.00001234, 0.00000056, "(1.234 +- 0.056)E-5", "1.234(56)E-5"}});
}

TEST(RoundedValue, WithoutAnErrorTheValueStandsAlone) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  expectCases({{473, std::nullopt, "473", "4.73E2"},
               {473, 0, "473", "4.73E2"},
               {0.1, std::nullopt, "0.1", "1E-1"},
               {-1.5, kInfinity, "-1.5", "-1.5"},
               {0, std::nullopt, "0", "0"},
               {2e20, std::nullopt, "2E20", "2E20"},
               {200, std::nullopt, "200", "2E2"},
               {1, 1e-30, "1", "1"},
               {kInfinity, 1, "Inf", "Inf"}});
}

}  // namespace
}  // namespace vk
