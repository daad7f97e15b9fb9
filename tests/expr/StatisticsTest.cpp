#include <cmath>

#include "doubles/Doubles.h"
#include "doubles/ErrorOf.h"
#include "expr/EvaluateHelp.h"

namespace vk {
namespace {

// The kernels stop at a relative change of 3E-7; most values are better.
/// A session and a user who sees as many boxes as told.
struct Kernels {
  explicit Kernels(int boxes = 0) {
    for (int i = 0; i < boxes; ++i) dialogs.expectBox();
  }
  Session session;
  ScriptedDialogs dialogs;
};

TEST(LnGamma, QUIRK_IsNearlyButNotQuiteZeroAtOneAndTwo) {
  EXPECT_NEAR(LnGamma(1), -3.41e-11, 1e-13);
  EXPECT_NEAR(LnGamma(2), -7.82e-11, 1e-13);
}

TEST(LnGamma, IsCloseToTheTrueValue) {
  for (const double x : {0.01, 0.5, 1.5, 3.0, 10.5, 170.0, 1e6}) {
    EXPECT_NEAR(LnGamma(x), std::lgamma(x), 1e-9 * std::max(1.0, std::lgamma(x))) << x;
  }
}

TEST(LnGamma, FailsFromZeroDown) {
  EXPECT_EQ(errorOf([] { LnGamma(0); }), kDivisionByZero);
  EXPECT_EQ(errorOf([] { LnGamma(-1); }), kDivisionByZero);
  EXPECT_EQ(errorOf([] { LnGamma(-5.5); }), kInvalidCall);
}

TEST(BetaFraction, ConvergesOrSetsTheFlagWithoutABox) {
  Kernels k;
  EXPECT_NEAR(BetaFraction(k.session, 2, 3, .4), 2.530864197530863, 1e-14);
  EXPECT_NEAR(BetaFraction(k.session, 20000, 20000, .5), 250.66436180064647, 1e-9);
  EXPECT_EQ(k.session.ErrFlag, 0);
  EXPECT_NEAR(BetaFraction(k.session, 50000, 50000, .5), 396.33575860523536, 1e-9);
  EXPECT_EQ(k.session.ErrFlag, -1);
}

TEST(IncompleteBeta, GoesFromZeroToOne) {
  Kernels k;
  EXPECT_EQ(IncompleteBeta(k.session, 2, 3, 0), 0);
  EXPECT_EQ(IncompleteBeta(k.session, 2, 3, 1), 1);
  EXPECT_NEAR(IncompleteBeta(k.session, 2, 3, .4), 0.5248, 1e-9);
  // Above (a+1)/(a+b+2) the other tail is computed: 1 - P(at most 1 of 4) at 0.9.
  EXPECT_NEAR(IncompleteBeta(k.session, 2, 3, .9), 0.9963, 1e-9);
  EXPECT_EQ(k.session.ErrFlag, 0);
}

TEST(IncompleteBeta, TellsOfAnArgumentOutsideZeroToOne) {
  for (const double x : {-0.1, 1.1}) {
    Kernels k;
    EXPECT_EQ(IncompleteBeta(k.session, 2, 3, x), 0);
    EXPECT_EQ(k.session.ErrFlag, -1);
  }
}

TEST(UpperGamma, TakesTheSeriesBelowAndTheFractionAbove) {
  Kernels k;
  EXPECT_EQ(UpperGamma(k.session, k.dialogs, 2.5, 0), 1);
  EXPECT_NEAR(UpperGamma(k.session, k.dialogs, 4, 5), 0.265025915, 1e-9);
  EXPECT_NEAR(UpperGamma(k.session, k.dialogs, 4, 3), 0.647231910, 1e-9);
  EXPECT_NEAR(UpperGamma(k.session, k.dialogs, 1, 2), std::exp(-2.0), kKernelAccuracy);
  EXPECT_EQ(k.session.ErrFlag, 0);
}

TEST(UpperGamma, TellsOfArgumentsOutsideItsDomain) {
  Kernels k;
  EXPECT_EQ(UpperGamma(k.session, k.dialogs, 0, 1), 0);
  EXPECT_EQ(k.session.ErrFlag, -1);
  k.session.ErrFlag = 0;
  EXPECT_EQ(UpperGamma(k.session, k.dialogs, 1, -1), 0);
  EXPECT_EQ(k.session.ErrFlag, -1);
}

const ScriptedDialogs::Box kExhausted{"D_X2", "Errori nel Calcolo della Funzione"};

TEST(GammaSeries, ShowsItsBoxWhenTheTermsDoNotSuffice) {
  double gln = 0;
  Kernels enough;
  EXPECT_NEAR(GammaSeries(enough.session, enough.dialogs, 300, 300, gln), 0.5076772952754106, 1e-7);
  EXPECT_EQ(gln, LnGamma(300));
  EXPECT_EQ(enough.session.ErrFlag, 0);

  Kernels k(1);
  EXPECT_EQ(GammaSeries(k.session, k.dialogs, 400, 400, gln), 0);
  EXPECT_EQ(k.session.ErrFlag, -1);
  EXPECT_EQ(k.dialogs.boxes, std::vector{kExhausted});
}

TEST(GammaSeries, IsZeroAtZero) {
  Kernels k;
  double gln = 0;
  EXPECT_EQ(GammaSeries(k.session, k.dialogs, 3, 0, gln), 0);
  EXPECT_EQ(gln, LnGamma(3));
}

TEST(GammaFraction, ShowsTheSameBoxAndGivesItsResultAllTheSame) {
  double gln = 0;
  Kernels enough;
  EXPECT_NEAR(GammaFraction(enough.session, enough.dialogs, 2000, 2001, gln), 0.488109234280292, 1e-7);
  EXPECT_EQ(gln, LnGamma(2000));
  EXPECT_EQ(enough.session.ErrFlag, 0);

  Kernels k(1);
  // After a hundred terms it is still far from the true value, 0.8875.
  EXPECT_NEAR(GammaFraction(k.session, k.dialogs, 0.5, 0.01, gln), 0.9242862490084263, 1e-12);
  EXPECT_EQ(k.session.ErrFlag, -1);
  EXPECT_EQ(k.dialogs.boxes, std::vector{kExhausted});
}

TEST(GammaSeriesAndFraction, ShowTheirBoxOnceInACommand) {
  double gln = 0;
  Kernels k(1);
  GammaSeries(k.session, k.dialogs, 400, 400, gln);
  k.session.ErrFlag = 0;
  GammaFraction(k.session, k.dialogs, 0.5, 0.01, gln);
  EXPECT_EQ(k.session.ErrFlag, -1) << "told by the flag all the same";
  k.session.GammaTold = kFalse;  // the next command
  k.dialogs.expectBox();
  GammaSeries(k.session, k.dialogs, 400, 400, gln);
  EXPECT_EQ(k.dialogs.boxes, std::vector(2, kExhausted));
}

TEST(FullUpperGamma, HasTheSameBitsWhereAHundredTermsSuffice) {
  for (const double a : {0.5, 1.0, 2.5, 40.0, 300.0, 2000.0}) {
    for (const double part : {0.0, 0.3, 0.9, 0.99, 1.0, 1.001, 1.1, 2.0, 5.0}) {
      struct : ScriptedDialogs {
        void plainBox(const std::string&, const std::string&) override {}
      } patient;
      Session session;
      const double limited = UpperGamma(session, patient, a, part * a);
      if (session.ErrFlag != 0) continue;
      EXPECT_EQ(fullUpperGamma(a, part * a), limited) << a << ' ' << part;
    }
  }
}

TEST(FullUpperGamma, TakesAsManyTermsAsItNeeds) {
  // Half of the chi-square distribution with many degrees of freedom lies below its median, a - 1/3 nearly.
  for (const double a : {400.0, 1000.0, 16383.5}) {
    EXPECT_NEAR(fullUpperGamma(a, a - 1 / 3.0), 0.5, 3E-5) << a;
    EXPECT_NEAR(fullUpperGamma(a, a + 1), 0.5 - 4 / 3.0 / std::sqrt(2 * 3.14159265 * a), 1E-4) << a;
    EXPECT_NEAR(fullUpperGamma(a, a / 2), 1, 1E-6) << a;
    EXPECT_NEAR(fullUpperGamma(a, 2 * a), 0, 1E-6) << a;
  }
  EXPECT_NEAR(fullUpperGamma(0.5, 1.5), std::erfc(std::sqrt(1.5)), kKernelAccuracy);
}

TEST(FullUpperGamma, EndsForAnyNumbers) {
  EXPECT_EQ(fullUpperGamma(0.5, 1E100), 0);
  EXPECT_EQ(fullUpperGamma(1E12, 1), 1);
  EXPECT_EQ(errorOf([] { fullUpperGamma(0.5, 1E300); }), kOverflow);
  EXPECT_EQ(errorOf([] { fullUpperGamma(1, -1); }), kInvalidCall);
  EXPECT_EQ(errorOf([] { fullUpperGamma(0, 1); }), kInvalidCall);
  EXPECT_EQ(errorOf([] { fullUpperGamma(-0.5, 1); }), kInvalidCall);
}

TEST(ComplementaryError, QUIRK_IsNotQuiteOneAtZero) {
  EXPECT_NEAR(ComplementaryError(0), 0.999999999, 1e-15);
}

TEST(ComplementaryError, StaysWithinItsAccuracy) {
  for (int i = -500; i <= 500; ++i) {
    EXPECT_NEAR(ComplementaryError(i / 100.0), std::erfc(i / 100.0), 1.5e-7) << i;
  }
  EXPECT_EQ(ComplementaryError(-1), 2 - ComplementaryError(1));
}

TEST(GaussianDeviate, GivesTheSecondNumberOfAPairFirst) {
  Session session;
  ScriptedRandom random{0.75F, 0.375F};
  Int16 flag;
  // w1 = 0.5, w2 = -0.25, s = 0.3125
  const double fac = std::sqrt(-2 * std::log(0.3125) / 0.3125);
  EXPECT_EQ(GaussianDeviate(session, random, flag), -0.25 * fac);
  EXPECT_EQ(flag, 1);
  EXPECT_EQ(GaussianDeviate(session, random, flag), 0.5 * fac);
  EXPECT_EQ(flag, 0);
}

TEST(GaussianDeviate, NarrowsItsNumbersToSinglePrecision) {
  Session session;
  const float small = 1e-8F;  // 2*r-1 needs more digits than a single has
  ScriptedRandom random{small, 0.5F, 0.75F, 0.5F};
  Int16 flag;
  // w1 = -1 after rounding, so that s = 1 is refused; else s would be below 1.
  const double fac = std::sqrt(-2 * std::log(0.25) / 0.25);
  EXPECT_EQ(GaussianDeviate(session, random, flag), 0 * fac);
  EXPECT_EQ(GaussianDeviate(session, random, flag), 0.5 * fac);
}

TEST(GaussianDeviate, DrawsAgainOutsideTheUnitCircle) {
  Session session;
  ScriptedRandom random{1.0F / 16, 1.0F / 16, 0.75F, 0.75F};
  Int16 flag;
  const double fac = std::sqrt(-2 * std::log(0.5) / 0.5);
  EXPECT_EQ(GaussianDeviate(session, random, flag), 0.5 * fac);
}

TEST(GaussianDeviate, FailsInTheLogarithmOfZero) {
  Session session;
  ScriptedRandom random{0.5F, 0.5F};
  Int16 flag;
  EXPECT_EQ(errorOf([&] { GaussianDeviate(session, random, flag); }), kInvalidCall);
}

}  // namespace
}  // namespace vk
