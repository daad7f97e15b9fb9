#include "numeric/SpecialFunctions.h"

#include <cmath>

#include "doubles/Tolerances.h"
#include "tests/numeric/KernelLog.h"

// The figures come from SpecialFunctionsTest.py.
namespace vk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Evaluation kOutside{0, Fault::kDomain};

TEST(LnGamma, QUIRK_IsNearlyButNotQuiteZeroAtOneAndTwo) {
  EXPECT_NEAR(lnGamma(1).value, -3.41e-11, 1e-13);
  EXPECT_NEAR(lnGamma(2).value, -7.82e-11, 1e-13);
}

TEST(LnGamma, IsCloseToTheTrueValue) {
  for (const double x : {0.01, 0.5, 1.5, 3.0, 10.5, 170.0, 1e6}) {
    EXPECT_NEAR(lnGamma(x).value, std::lgamma(x), 1e-9 * std::max(1.0, std::lgamma(x))) << x;
  }
}

TEST(LnGamma, FailsFromZeroDown) {
  for (const double x : {0.0, -1.0, -5.5}) EXPECT_EQ(lnGamma(x), kOutside) << x;
}

TEST(BetaFraction, ConvergesOrTellsThatItDoesNot) {
  KernelLog log;
  EXPECT_NEAR(betaFraction(2, 3, .4, log).value, 2.530864197530863, kFewRoundings);
  EXPECT_NEAR(betaFraction(20000, 20000, .5, log).value, 250.6643618006, kIterated);
  EXPECT_THAT(log.kernels, IsEmpty());
  const Evaluation reached = betaFraction(50000, 50000, .5, log);
  EXPECT_NEAR(reached.value, 396.3357586052, kIterated);
  EXPECT_EQ(reached.fault, Fault::kExhausted);
  EXPECT_THAT(log.kernels, ElementsAre(Kernel::kBetaFraction));
}

TEST(IncompleteBeta, GoesFromZeroToOne) {
  KernelLog log;
  EXPECT_EQ(incompleteBeta(2, 3, 0, log), Evaluation{0});
  EXPECT_EQ(incompleteBeta(2, 3, 1, log), Evaluation{1});
  EXPECT_NEAR(incompleteBeta(2, 3, .4, log).value, 0.5248, kIterated);
  // Above (a+1)/(a+b+2) the other tail is computed: 1 - P(at most 1 of 4) at 0.9.
  EXPECT_NEAR(incompleteBeta(2, 3, .9, log).value, 0.9963, kIterated);
  EXPECT_THAT(log.kernels, IsEmpty());
}

TEST(IncompleteBeta, TellsOfAnArgumentOutsideZeroToOne) {
  KernelLog log;
  for (const double x : {-0.1, 1.1}) EXPECT_EQ(incompleteBeta(2, 3, x, log), kOutside);
  EXPECT_THAT(log.kernels, IsEmpty());
}

TEST(UpperGamma, TakesTheSeriesBelowAndTheFractionAbove) {
  KernelLog log;
  EXPECT_EQ(upperGamma(2.5, 0, log), Evaluation{1});
  EXPECT_NEAR(upperGamma(4, 5, log).value, 0.265025915, kIterated);
  EXPECT_NEAR(upperGamma(4, 3, log).value, 0.647231910, kIterated);
  EXPECT_NEAR(upperGamma(1, 2, log).value, std::exp(-2.0), kKernelAccuracy);
  EXPECT_THAT(log.kernels, IsEmpty());
}

TEST(UpperGamma, TellsOfArgumentsOutsideItsDomain) {
  KernelLog log;
  EXPECT_EQ(upperGamma(0, 1, log), kOutside);
  EXPECT_EQ(upperGamma(1, -1, log), kOutside);
  EXPECT_THAT(log.kernels, IsEmpty());
}

TEST(GammaSeries, TellsWhenTheTermsDoNotSuffice) {
  KernelLog log;
  EXPECT_NEAR(gammaSeries(300, 300, log).value, 0.5076772953, 1e-7);
  EXPECT_THAT(log.kernels, IsEmpty());
  EXPECT_EQ(gammaSeries(400, 400, log), (Evaluation{0, Fault::kExhausted}));
  EXPECT_THAT(log.kernels, ElementsAre(Kernel::kGammaSeries));
}

TEST(GammaSeries, IsZeroAtZero) {
  KernelLog log;
  EXPECT_EQ(gammaSeries(3, 0, log), Evaluation{0});
}

TEST(GammaFraction, TellsTheSameAndGivesItsResultAllTheSame) {
  KernelLog log;
  EXPECT_NEAR(gammaFraction(2000, 2001, log).value, 0.4881092343, 1e-7);
  EXPECT_THAT(log.kernels, IsEmpty());
  // After a hundred terms it is still far from the true value, 0.8875.
  const Evaluation reached = gammaFraction(0.5, 0.01, log);
  EXPECT_NEAR(reached.value, 0.92428624900843, kManyRoundings);
  EXPECT_EQ(reached.fault, Fault::kExhausted);
  EXPECT_THAT(log.kernels, ElementsAre(Kernel::kGammaFraction));
}

TEST(GammaFraction, HasNoneAtZero) {
  KernelLog log;
  EXPECT_EQ(gammaFraction(2, 0, log), kOutside);
  EXPECT_THAT(log.kernels, ElementsAre(Kernel::kGammaFraction)) << "all its terms have been tried";
}

TEST(FullUpperGamma, HasTheSameBitsWhereAHundredTermsSuffice) {
  int compared = 0;
  for (const double a : {0.5, 1.0, 2.5, 40.0, 300.0, 2000.0}) {
    for (const double part : {0.0, 0.3, 0.9, 0.99, 1.0, 1.001, 1.1, 2.0, 5.0}) {
      KernelLog log;
      const Evaluation limited = upperGamma(a, part * a, log);
      if (limited.fault != Fault::kNone) continue;
      EXPECT_EQ(fullUpperGamma(a, part * a), limited) << a << ' ' << part;
      ++compared;
    }
  }
  EXPECT_GT(compared, 40);
}

TEST(FullUpperGamma, TakesAsManyTermsAsItNeeds) {
  // Half of the chi-square distribution with many degrees of freedom lies below its median, a - 1/3 nearly.
  for (const double a : {400.0, 1000.0, 16383.5}) {
    EXPECT_NEAR(fullUpperGamma(a, a - 1 / 3.0).value, 0.5, 3E-5) << a;
    EXPECT_NEAR(fullUpperGamma(a, a + 1).value, 0.5 - 4 / 3.0 / std::sqrt(2 * 3.14159265 * a), 1E-4) << a;
    EXPECT_NEAR(fullUpperGamma(a, a / 2).value, 1, kMinimum) << a;
    EXPECT_NEAR(fullUpperGamma(a, 2 * a).value, 0, kMinimum) << a;
  }
  EXPECT_NEAR(fullUpperGamma(0.5, 1.5).value, std::erfc(std::sqrt(1.5)), kKernelAccuracy);
}

TEST(FullUpperGamma, EndsForAnyNumbers) {
  EXPECT_EQ(fullUpperGamma(0.5, 1E100), Evaluation{0});
  EXPECT_EQ(fullUpperGamma(1E12, 1), Evaluation{1});
  EXPECT_EQ(fullUpperGamma(0.5, 1E300), kOutside) << "beyond the range";
  EXPECT_EQ(fullUpperGamma(1, -1), kOutside);
  EXPECT_EQ(fullUpperGamma(0, 1), kOutside);
  EXPECT_EQ(fullUpperGamma(-0.5, 1), kOutside);
}

TEST(ComplementaryError, QUIRK_IsNotQuiteOneAtZero) {
  EXPECT_NEAR(complementaryError(0).value, 0.999999999, kLastBit);
}

TEST(ComplementaryError, StaysWithinItsAccuracy) {
  for (int i = -500; i <= 500; ++i) {
    EXPECT_NEAR(complementaryError(i / 100.0).value, std::erfc(i / 100.0), 1.5e-7) << i;
  }
  EXPECT_EQ(complementaryError(-1).value, 2 - complementaryError(1).value);
}

}  // namespace
}  // namespace vk
