#include "analysis/Simulation.h"

#include <array>
#include <cmath>

#include "commands/RandomSource.h"
#include "doubles/Doubles.h"
#include "doubles/ErrorOf.h"
#include "tests/analysis/ModelFixture.h"
#include "tests/numeric/KernelLog.h"

namespace vk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The first deviate of the numbers 0.5, 0.75; the second one is 0.
const double kDeviate = 0.5 * std::sqrt(8 * std::log(4.0));

/// y = 2x+1.
class SimulateTest : public ModelTest {
 protected:
  SimulateTest() {
    loadLine();
    set(1, 2, 1);
    set(2, 1, 1);
    classifyParameters(par);
  }
  /// Data by settings in the order of their fields: limits and count, then error and kind of y and of x.
  SimulatedData simulated(const std::array<double, 7>& settings) {
    CyclingRandom numbers({0.5F, 0.75F});
    RandomSource source(numbers);
    return simulate(settingsOf(settings), model, par, source, log);
  }

  KernelLog log;
};

std::vector<double> column(const Array<double>& values) {
  const auto points = values.span(1, values.upper());
  return {points.begin(), points.end()};
}

TEST_F(SimulateTest, ScattersEachYByTheNextDeviate) {
  const SimulatedData made = simulated({1, 2, 3, 0.5, 1, 0, 0});
  EXPECT_THAT(made.corrections, IsEmpty());
  EXPECT_THAT(column(made.data.Xpnt), ElementsAre(1, 1.5, 2));
  EXPECT_THAT(column(made.data.Ypnt), ElementsAre(kDeviate * 0.5 + 3, 4, kDeviate * 0.5 + 5));
  EXPECT_THAT(column(made.data.ErrYpnt), ElementsAre(0.5, 0.5, 0.5));
  EXPECT_EQ(made.data.kXpntErr, kFalse);
}

TEST_F(SimulateTest, ScattersXBehindTheYOfItsPoint) {
  const SimulatedData made = simulated({1, 2, 3, 50, 0, 0.25, 1});
  EXPECT_THAT(column(made.data.ErrYpnt), ElementsAre(1.5, 2, 2.5));
  EXPECT_THAT(column(made.data.Ypnt), ElementsAre(kDeviate * 1.5 + 3, kDeviate * 2 + 4, kDeviate * 2.5 + 5));
  EXPECT_THAT(column(made.data.Xpnt), ElementsAre(1, 1.5, 2)) << "the second deviate of each pair is 0";
  EXPECT_THAT(column(made.data.ErrXpnt), ElementsAre(0.25, 0.25, 0.25));
  EXPECT_EQ(made.data.kXpntErr, kTrue);
}

TEST_F(SimulateTest, TellsItsCorrectionsInTheirOrderAndTheSettingsMadeOfThem) {
  const SimulatedData made = simulated({5, 4, 2, 0, 0, 0, 0});
  EXPECT_THAT(made.corrections,
              ElementsAre(Correction::kPoints, Correction::kExchanged, Correction::kErrorOfY));
  EXPECT_EQ(made.settings.SimPoints, 3);
  EXPECT_EQ(made.settings.SimXMin, 4);
  EXPECT_EQ(made.settings.SimXMax, 5);
  EXPECT_EQ(made.settings.SimErrY, 1);
  const SimulatedData moved = simulated({5, 5, 3, 1, 0, 0, 0});
  EXPECT_THAT(moved.corrections, ElementsAre(Correction::kMoved));
  EXPECT_EQ(moved.settings.SimXMax, 6);
}

TEST_F(SimulateTest, TellsOfAnExhaustedKernelOnceForEachPoint) {
  load("b", "b*x+C_X2(800,800)");
  par.FreeCount = 0;
  const SimulatedData made = simulated({0, 1, 7, 1, 0, 0, 0});
  EXPECT_EQ(made.data.NumPnt, 7);
  EXPECT_EQ(log.kernels.size(), 7U);
}

TEST_F(SimulateTest, FailsWhereNumbersGiveNoDeviate) {
  CyclingRandom centre({0.5F});
  RandomSource source(centre);
  const SimulationSettings settings = settingsOf(std::array{0.0, 1.0, 3.0, 1.0, 0.0, 0.0, 0.0});
  EXPECT_EQ(errorOf([&] { simulate(settings, model, par, source, log); }), kInvalidCall);
}

TEST_F(SimulateTest, FailsBeyondAllNumbers) {
  EXPECT_EQ(errorOf([&] { simulated({-1E308, 1E308, 3, 1, 0, 0, 0}); }), kOverflow);
}

TEST(ScatterStart, MovesOnlyTheStartsOfTheFreeParametersByUpToAFifth) {
  ParameterSet par = parametersOf({"a", "b", "c", "d"});
  StoreParameters(par, std::vector<double>{10, 20, 30, -40}, std::vector<double>{1, 0, 1, 1}, 1);
  CyclingRandom numbers({0, 0.5F, 0.75F});
  RandomSource source(numbers);
  scatterStart(par, source);
  EXPECT_THAT(par.FreeValues.span(1, 3), ElementsAre(8, 30, -44));
  EXPECT_THAT(par.ParValues.span(1, 4), ElementsAre(10, 20, 30, -40));
}

TEST(SettingsOf, RoundCountsAndTakeSizesWithoutTheirSigns) {
  const SimulationSettings sim = settingsOf(std::array{-1.0, 2.0, -3.6, -0.25, 1.5, -0.5, -1.0});
  EXPECT_EQ(sim.SimXMin, -1);
  EXPECT_EQ(sim.SimXMax, 2);
  EXPECT_EQ(sim.SimPoints, 4);
  EXPECT_EQ(sim.SimErrY, 0.25);
  EXPECT_EQ(sim.SimErrYAbs, 2);
  EXPECT_EQ(sim.SimErrX, 0.5);
  EXPECT_EQ(sim.SimErrXAbs, -1);
  EXPECT_EQ(errorOf([] { settingsOf(std::array{0.0, 1.0, 4E4, 1.0, 0.0, 0.0, 0.0}); }), kOverflow);
}

}  // namespace
}  // namespace vk
