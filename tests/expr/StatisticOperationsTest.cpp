#include <cmath>

#include "doubles/Tolerances.h"
#include "expr/EvaluateHelp.h"
#include "numeric/SpecialFunctions.h"

// The figures come from StatisticOperationsTest.py.
namespace vk {
namespace {

constexpr double kErrorFunctionAccuracy = 1.5e-7;

TEST(StatisticOperations, GammaIsRoundedForWholeNumbersOnly) {
  EXPECT_EQ(valueOf("GAM(5)"), 24);
  EXPECT_EQ(valueOf("GAM(1)"), 1);
  EXPECT_NEAR(valueOf("GAM(4.5)"), 11.63172839, kByDifferences);
  EXPECT_NE(valueOf("GAM(4.5)"), std::floor(valueOf("GAM(4.5)")));
  EXPECT_EQ(valueOf("LNGAM(4.5)"), lnGamma(4.5).value);
}

TEST(StatisticOperations, Binomial) {
  EXPECT_NEAR(valueOf("D_B(2,5,0.3)"), 0.3087, kIterated);
  EXPECT_NEAR(valueOf("C_B(2,5,0.3)"), 0.83692, kKernelAccuracy);
  EXPECT_NEAR(valueOf("C_B(0,5,0.3)"), 0.16807, kManyRoundings);
  EXPECT_EQ(valueOf("C_B(5,5,0.3)"), 1);
  EXPECT_EQ(valueOf("C_B(0,3,2)"), 0);  // p is cut to 1
  EXPECT_EQ(valueOf("D_B(-2,-5,-0.3)"), valueOf("D_B(2,5,0.3)"));
  EXPECT_EQ(valueOf("C_B(-2,-5,-0.3)"), valueOf("C_B(2,5,0.3)"));
  EXPECT_EQ(evaluated("D_B(2,5,1)"), failing(2));
  EXPECT_EQ(evaluated("C_B(6,5,0.3)"), failing(6));
}

TEST(StatisticOperations, Poisson) {
  EXPECT_NEAR(valueOf("D_P(3,2.5)"), 0.213763017250, kIterated);
  EXPECT_NEAR(valueOf("C_P(3,2.5)"), 0.757576133133, kKernelAccuracy);
  EXPECT_EQ(valueOf("D_P(-3,-2.5)"), valueOf("D_P(3,2.5)"));
  EXPECT_EQ(valueOf("D_P(0,0)"), 1);
  EXPECT_EQ(valueOf("D_P(1,0)"), 0);
  EXPECT_EQ(valueOf("C_P(7,0)"), 1);
}

TEST(StatisticOperations, Normal) {
  EXPECT_NEAR(valueOf("D_N(1,0,2)"), 0.17603267202998724, 1e-16);
  EXPECT_NEAR(valueOf("C_N(5,2,2)"), 0.933192798731, kErrorFunctionAccuracy);
  EXPECT_EQ(evaluated("C_N(x,1,0)", "x", {3}), failing(3));
  EXPECT_EQ(evaluated("D_N(x,1,0)", "x", {3}), failing(3));
}

TEST(StatisticOperations, QUIRK_NormalUsesAShortFactor) {
  EXPECT_EQ(valueOf("D_N(0,0,1)"), 0.3989423);
}

TEST(StatisticOperations, QUIRK_StudentUsesTheShortPi) {
  EXPECT_NEAR(valueOf("D_T(2,5)"), 0.06509031088033622, 1e-17);
  EXPECT_GT(std::fabs(valueOf("D_T(2,5)") - 0.0650903103262164), 4e-10);
}

TEST(StatisticOperations, NormalTails) {
  EXPECT_NEAR(valueOf("P(0)"), 0.5000000005, kLastBit);
  EXPECT_NEAR(valueOf("Q(0)"), 0.4999999995, kLastBit);
  EXPECT_NEAR(valueOf("A(0)"), 1e-9, kLastBit);
  EXPECT_NEAR(valueOf("P(1.96)"), 0.97500217, 5e-9);
  EXPECT_NEAR(valueOf("Q(1.96)"), 0.02499783, 5e-9);
  EXPECT_NEAR(valueOf("A(1)"), 0.682689492137, 2 * kErrorFunctionAccuracy);
  EXPECT_EQ(valueOf("A(-1)"), valueOf("A(1)"));
}

TEST(StatisticOperations, ChiSquare) {
  EXPECT_NEAR(valueOf("D_X2(0,2)"), 0.5, kIterated);
  EXPECT_NEAR(valueOf("D_X2(3,4)"), 0.167347620111, kIterated);
  EXPECT_NEAR(valueOf("C_X2(3,4)"), 0.44217459, kByDifferences);
  EXPECT_NEAR(valueOf("C_X2(10,4)"), 0.959572318005, kKernelAccuracy);
  EXPECT_EQ(valueOf("D_X2(-3,-4)"), valueOf("D_X2(3,4)"));
}

TEST(StatisticOperations, Student) {
  EXPECT_NEAR(valueOf("C_T(2,5)"), 0.94903026, kByDifferences);
  EXPECT_NEAR(valueOf("C_T(-2,5)"), 0.05096974, kByDifferences);
  EXPECT_NEAR(valueOf("C_T(0,5)"), 0.5, kKernelAccuracy);
}

TEST(StatisticOperations, Fisher) {
  EXPECT_NEAR(valueOf("D_F(2,3,4)"), 0.139427400463, kIterated);
  EXPECT_NEAR(valueOf("D_F(0.5,4,7)"), 0.645475679304, kIterated);
  EXPECT_NEAR(valueOf("C_F(2,3,4)"), 0.74361280, kByDifferences);
}

TEST(StatisticOperations, FailWithTheKernelThatTellsOfItsFailure) {
  // Series and fractions do not converge: the kernel is told of, and X stays.
  EXPECT_EQ(evaluated("C_X2(800,800)", "", {}, 1), (Evaluation{800, Fault::kExhausted}));
  EXPECT_EQ(evaluated("C_X2(20004,20000)", "", {}, 1), (Evaluation{20004, Fault::kExhausted}));
  EXPECT_EQ(evaluated("C_F(1,200000,200000)", "", {}, 1), (Evaluation{1, Fault::kExhausted}));
  EXPECT_EQ(evaluated("C_X2(1,0)"), failing(1));
  // An earlier failure is not forgotten by a later statement that succeeds.
  EXPECT_EQ(evaluated("C_X2(1,0)+P(0)*0"), failing(1));
}

}  // namespace
}  // namespace vk
