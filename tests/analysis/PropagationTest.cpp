#include "analysis/Propagation.h"

#include "commands/RandomSource.h"
#include "doubles/Doubles.h"
#include "tests/analysis/ModelFixture.h"

namespace vk {
namespace {

using testing::IsEmpty;

/// What was told, in its order; of the samples only the first and the last time.
struct PropagationLog : PropagationObserver {
  void derived(const AnalyticErrors& errors) override {
    events.push_back("derived " + std::to_string(static_cast<int>(errors.F0)));
  }
  void simulationBegins() override { events.emplace_back("simulation"); }
  void sampled(const SampleStatistics& samples) override {
    if (samples.count == 100 || samples.count == 10000) {
      events.push_back("samples " + std::to_string(samples.count));
    }
  }
  std::vector<std::string> events;
};

class PropagateErrorsTest : public ModelTest {
 protected:
  PropagationResult propagated() {
    CyclingRandom numbers({0.5F, 0.75F, 0.25F, 0.875F});
    RandomSource source(numbers);
    return PropagateErrors(model, par, source, listener, log);
  }

  PropagationLog log;
};

TEST_F(PropagateErrorsTest, TellsOfTheDerivativesAndThenOfTheSamples) {
  loadLine();
  set(0, 4, 0);
  set(1, 3, -0.5);
  set(2, 1, 0);
  const Array<double> values = par.ParValues, errors = par.ParDeltas;
  const PropagationResult result = propagated();
  EXPECT_EQ(result.end, PropagationEnd::kCompleted);
  EXPECT_THAT(log.events, testing::ElementsAre("derived 13", "simulation", "samples 100", "samples 10000"));
  EXPECT_EQ(result.samples.count, 10000);
  EXPECT_EQ(result.histogram.McSamples, 10000);
  EXPECT_EQ(result.histogram.McBinWidth, result.analytic.ErrorSigma / 10);
  EXPECT_EQ(par.ParValues, values);
  EXPECT_EQ(par.ParDeltas, errors);
}

TEST_F(PropagateErrorsTest, DrawsNoSamplesWhereTheDerivativesFail) {
  load("a", "LOG(a)");
  set(1, -1, 0.5);
  const PropagationResult result = propagated();
  EXPECT_EQ(result.end, PropagationEnd::kDerivativesFailed);
  EXPECT_THAT(log.events, IsEmpty());
  EXPECT_EQ(result.histogram.McBinCount, 0);
}

TEST_F(PropagateErrorsTest, EndsForAFunctionThatDoesNotDependOnItsVariables) {
  loadLine();
  set(1, 3, 0);
  EXPECT_EQ(propagated().end, PropagationEnd::kNoDependence);
}

TEST_F(PropagateErrorsTest, EndsForASampleThatCannotBeComputed) {
  load("a", "LOG(a)");
  set(1, 1, -2);
  EXPECT_EQ(propagated().end, PropagationEnd::kSimulationFailed);
}

}  // namespace
}  // namespace vk
