#include "analysis/MonteCarlo.h"
#include "commands/RandomSource.h"
#include "doubles/Tolerances.h"

#include <cmath>
#include <functional>

#include "doubles/Doubles.h"
#include "platform/system/SystemRandom.h"
#include "tests/analysis/CorrelatedPair.h"
#include "tests/analysis/ModelFixture.h"

namespace vk {
namespace {

/// y = c around 0; the errors of c are told by the random numbers.
class MonteCarloTest : public ModelTest {
 protected:
  MonteCarloTest() {
    loadConstant();
    set(0, 0, 0);
  }
  /// The number that makes a maximum error of 32 this deviation.
  static float uniformFor(double deviation) { return static_cast<float>(0.5 - deviation / 64); }
  /// Draws samples of these values in turn over bins of a tenth of sigma around `F0`: with the usual ones of width 1
  /// between -30.5 and 29.5.
  bool sampleAll(const std::vector<double>& values, double F0 = 0, double sigma = 10) {
    std::vector<float> numbers;
    for (const double v : values) numbers.insert(numbers.end(), {0.5F, uniformFor(v)});
    set(1, 0, -32);
    return sample(std::make_unique<CyclingRandom>(numbers), F0, sigma);
  }
  bool sample(std::unique_ptr<Random> random, double F0 = 0, double sigma = 10) {
    RandomSource source(*random);
    MonteCarlo simulation(model, par, source, listener);
    simulation.setUpBins({.F0 = F0, .Derivatives = {}, .ErrorMax = 0, .ErrorSigma = sigma});
    end = simulation.run([this](const SampleStatistics& samples) { reported.push_back(samples); });
    histogram = simulation.histogram();
    lastSample = simulation.values();
    return end == MonteCarlo::End::kCompleted;
  }
  double hits(int b) const { return histogram.McBinHits[b]; }
  double allHits() const {
    double sum = 0;
    for (const double bin : histogram.McBinHits.span(1, 60)) sum += bin;
    return sum;
  }

  std::vector<SampleStatistics> reported;
  MonteCarlo::End end = MonteCarlo::End::kCompleted;
  MonteCarloResult histogram;
  Array<double> lastSample;  ///< its variables
};

TEST_F(MonteCarloTest, LaysSixtyBinsOfATenthOfSigma) {
  sampleAll({0});
  EXPECT_EQ(histogram.McBinCount, 60);
  for (int b = 1; b <= 60; ++b) EXPECT_EQ(histogram.McBinCentre[b], -30 + (b - 1));
}

TEST_F(MonteCarloTest, BinsOfHalfAUnitAroundAnotherValue) {
  EXPECT_TRUE(sampleAll({-11.75, -11.5, -11.3125, -11.25, 16.5, 16.75}, 2, 5));
  EXPECT_EQ(histogram.McBinWidth, 0.5);
  for (int b = 1; b <= 60; ++b) EXPECT_EQ(histogram.McBinCentre[b], -13 + (b - 1) / 2.0);
  EXPECT_EQ(hits(4), 3 * 10000 / 6 + 1) << "from -11.75 on";
  EXPECT_EQ(hits(5), 10000 / 6 + 1) << "from -11.25 on";
  EXPECT_EQ(hits(60), 10000 / 6) << "up to 16.75";
}

TEST_F(MonteCarloTest, WithoutASigmaTheBinsCoverTheRangeOfSamples) {
  EXPECT_TRUE(sampleAll({-30, 15, 30}, 0, 0));
  EXPECT_EQ(histogram.McBinWidth, 1);
  for (int b = 1; b <= 60; ++b) EXPECT_EQ(histogram.McBinCentre[b], -30 + (b - 1));
}

TEST_F(MonteCarloTest, QUIRK_TheFirstBinNeverReceivesAHit) {
  EXPECT_TRUE(sampleAll({-30.5, -30, -29.75, -29.5}));
  EXPECT_EQ(hits(1), 0);
  EXPECT_EQ(hits(2), 2500);
  EXPECT_EQ(allHits(), 2500);
}

TEST_F(MonteCarloTest, ASampleCountsInTheBinWhoseLowerEdgeItReaches) {
  EXPECT_TRUE(sampleAll({-29.5, -28.75, -28.5, 0, 0.25, 28.5, 29.25, 29.5}));
  EXPECT_EQ(hits(2), 2 * 1250);
  EXPECT_EQ(hits(3), 1250);
  EXPECT_EQ(hits(31), 2 * 1250);
  EXPECT_EQ(hits(60), 2 * 1250);
  EXPECT_EQ(allHits(), 7 * 1250);
}

TEST_F(MonteCarloTest, SamplesOutsideAllBinsCountInMeanAndSpread) {
  EXPECT_TRUE(sampleAll({-31, 31}));
  EXPECT_EQ(allHits(), 0);
  EXPECT_EQ(histogram.McSamples, 10000);
  EXPECT_EQ(reported.back().count, 10000);
  EXPECT_EQ(reported.back().mean, 0);
  EXPECT_EQ(reported.back().spread, 31);
  EXPECT_EQ(reported.back().meanError, 0.31);
}

TEST_F(MonteCarloTest, TellsEveryHundredSamples) {
  sampleAll({1, 3});
  ASSERT_EQ(reported.size(), 100U);
  for (int i = 0; i < 100; ++i) EXPECT_EQ(reported[static_cast<std::size_t>(i)].count, 100 * (i + 1));
  EXPECT_EQ(reported[0].mean, 2);
  EXPECT_EQ(reported[0].spread, 1);
  EXPECT_EQ(reported[0].meanError, 0.1);
}

TEST_F(MonteCarloTest, APositiveErrorIsDrawnFromTheNormalDeviates) {
  set(1, 5, 2);
  // Uniform for x, a pair for c; uniform for x, the stored deviate 0 for c.
  EXPECT_TRUE(sample(std::make_unique<CyclingRandom>(std::vector{0.5F, 0.5F, 0.75F, 0.5F})));
  const double deviate = 0.5 * std::sqrt(8 * std::log(4.0));
  EXPECT_NEAR(reported[0].mean, 5 + deviate, kManyRoundings);
  EXPECT_NEAR(reported[0].spread, deviate, kIterated);
}

TEST_F(MonteCarloTest, AMaximumErrorIsUniformOnBothSidesOfTheValue) {
  set(1, 5, -2);
  EXPECT_TRUE(sample(std::make_unique<CyclingRandom>(std::vector{0.5F, 0.0F})));
  EXPECT_EQ(reported[0].mean, 5 + 2);
  set(1, 5, -2);
  EXPECT_TRUE(sample(std::make_unique<CyclingRandom>(std::vector{0.5F, 0.75F})));
  EXPECT_EQ(reported.back().mean, 5 - 1);
}

TEST_F(MonteCarloTest, TheNumberOfABinHasSixteenBits) {
  const auto fails = [&](double v) {
    set(1, v, 0);
    return !sample(std::make_unique<CyclingRandom>(std::vector{0.5F}));
  };
  EXPECT_FALSE(fails(32736.25));
  EXPECT_TRUE(fails(32736.5));
  EXPECT_EQ(end, MonteCarlo::End::kFailed);
  EXPECT_EQ(histogram.McSamples, 1);
  EXPECT_FALSE(fails(-32799.5));
  EXPECT_TRUE(fails(-32799.75));
}

TEST_F(MonteCarloTest, WithoutAnyWidthTheRunEndsForThat) {
  set(1, 7, 0);
  CyclingRandom random({0.25F});
  RandomSource source(random);
  MonteCarlo simulation(model, par, source, listener);
  simulation.setUpBins({.F0 = 7, .Derivatives = {}, .ErrorMax = 0, .ErrorSigma = 0});
  EXPECT_EQ(random.drawn, 2 * 200);
  EXPECT_EQ(simulation.run([](const SampleStatistics&) { FAIL(); }), MonteCarlo::End::kNoWidth);
  EXPECT_EQ(simulation.histogram().McBinWidth, 0);
}

TEST_F(MonteCarloTest, AFailedEvaluationAmongBinsOfSomeWidthIsAnotherFailure) {
  load("a", "LOG(a)");
  set(1, -1, 0);
  EXPECT_FALSE(sample(std::make_unique<CyclingRandom>(std::vector{0.5F})));
  EXPECT_EQ(end, MonteCarlo::End::kFailed);
}

TEST_F(MonteCarloTest, FailuresWhileTheBinsAreSetUpAreForgotten) {
  set(1, 0, -1);
  CyclingRandom random({0.25F});
  RandomSource source(random);
  MonteCarlo simulation(model, par, source, listener);
  simulation.setUpBins({.F0 = -1.7E308, .Derivatives = {}, .ErrorMax = 0, .ErrorSigma = 1E307});
  EXPECT_EQ(simulation.run([](const SampleStatistics&) {}), MonteCarlo::End::kCompleted);
}

TEST_F(MonteCarloTest, TheCentreOfTheCircleHasNoDeviateAndTheValueStays) {
  set(1, 0, 1);
  EXPECT_TRUE(sample(std::make_unique<CyclingRandom>(std::vector{0.5F})));
  EXPECT_EQ(lastSample[1], 0);
  EXPECT_EQ(hits(31), MonteCarlo::kSamples);
}

/// Samples drawn one by one, beside a simulation that starts with the same numbers.
class MonteCarloBesideSingleSamplesTest : public MonteCarloTest {
 protected:
  Evaluation drawOne() {
    for (int i = 0; i <= par.ParCount; ++i) {
      const double e = par.ParDeltas[i];
      double d = 0;
      if (e <= 0) {
        d = e * (2 * static_cast<double>(singleSource.next()) - 1);
      } else if (const double deviate = GaussianDeviate(singleSource, deviates).value;
                 par.correlated.has(i)) {
        correlated[i] = deviate;
        d = par.correlated.error(i, [&](int k) { return correlated[k]; });
      } else {
        d = e * deviate;
      }
      single[i] = par.ParValues[i] + d;
    }
    return model.at(single[0], single, listener);
  }
  /// After `samples` more, with faults in none but the last if at all, both have the same to go on with.
  void expectSameAfter(int samples, const MonteCarlo& simulation) {
    for (int i = 1; i <= samples; ++i) {
      const Fault fault = drawOne().fault;
      EXPECT_TRUE(i == samples || fault == Fault::kNone);
    }
    EXPECT_EQ(simulation.values(), single);
    SystemRandom next = random;
    SystemRandom nextSingle = singleRandom;
    for (int i = 0; i < 10; ++i) EXPECT_EQ(next.next(), nextSingle.next());
  }
  /// Runs over bins around `F0` until all samples are drawn; a run goes on where the one before has failed.
  int runsOverBins(double F0, double sigma) {
    MonteCarlo simulation(model, par, source, listener);
    simulation.setUpBins({.F0 = F0, .Derivatives = {}, .ErrorMax = 0, .ErrorSigma = sigma});
    single = par.ParValues;
    int runs = 0;
    for (int drawn = 0; drawn < MonteCarlo::kSamples && !HasFailure(); ++runs) {
      end = simulation.run([](const SampleStatistics&) {});
      const int samples = simulation.histogram().McSamples - drawn;
      expectSameAfter(samples, simulation);
      drawn += samples;
    }
    return runs;
  }

  SystemRandom random, singleRandom;
  RandomSource source{random}, singleSource{singleRandom};
  GaussianState deviates;
  Array<double> correlated{5};  ///< deviates of the correlated variables
  Array<double> single;         ///< variables of the sample drawn last
};

TEST_F(MonteCarloBesideSingleSamplesTest, DrawsTheSameNumbersWithoutAFailure) {
  load("a,b,c", "a*EXP(-b)*SIN(c)+x");
  set(0, 1, 0.5), set(1, 5, 0.1), set(2, 0.7, -0.02), set(3, 1.2, 0.05);
  EXPECT_EQ(runsOverBins(3.3, 1), 1);
  EXPECT_EQ(end, MonteCarlo::End::kCompleted);
}

TEST_F(MonteCarloBesideSingleSamplesTest, DrawsTheSameNumbersOfCorrelatedErrors) {
  for (const char* formula : {"a*EXP(-b)*SIN(c)+x", "LOG(a-4.2)+b+c+x"}) {
    load("a,b,c", formula);
    set(0, 1, 0.5), set(1, 5, 0.3), set(2, 0.7, -0.02), set(3, 1.2, 0.05);
    par.correlated = correlatedErrors({1, 3}, {0.3, 0.05}, -0.9);
    EXPECT_GT(runsOverBins(3.3, 1), formula[0] == 'L' ? 5 : 0);
  }
}

TEST_F(MonteCarloBesideSingleSamplesTest, StandsAtTheSampleWhoseEvaluationFails) {
  load("a", "LOG(a)");
  set(1, 2.5, 1);
  const int runs = runsOverBins(1, 1);
  EXPECT_GT(runs, 40) << "one sample of 160 is negative";
  EXPECT_LT(runs, 100);
}

TEST_F(MonteCarloBesideSingleSamplesTest, StandsAtTheSampleThatOverflowsTheBins) {
  set(1, 0, 1);
  const int runs = runsOverBins(0, 1 / 1250.0);
  EXPECT_GT(runs, 50) << "one sample of 114 lies more than 3277 widths of 1/1250 away";
  EXPECT_LT(runs, 130);
}

TEST_F(MonteCarloBesideSingleSamplesTest, StandsWhereSingleSamplesOfTheRangeEnd) {
  for (const char* formula : {"SIN(a)+x", "LOG(a)"}) {
    load("a", formula);
    set(1, 1, 2);
    MonteCarlo simulation(model, par, source, listener);
    simulation.setUpBins({.F0 = 1, .Derivatives = {}, .ErrorMax = 0, .ErrorSigma = 0});
    single = par.ParValues;
    deviates = {};
    for (int i = 1; i <= 199; ++i) drawOne();
    expectSameAfter(1, simulation);
  }
}

TEST_F(MonteCarloTest, AnErrorThatLeadsOutOfAllNumbersLeavesTheValueOfTheSampleBefore) {
  load("a", "a/1E300");
  set(1, 1.7E308, -1.7E308);
  EXPECT_FALSE(sample(std::make_unique<CyclingRandom>(std::vector{0.5F, 0.0F})));
  EXPECT_EQ(lastSample[1], 1.7E308);
}

}  // namespace
}  // namespace vk
