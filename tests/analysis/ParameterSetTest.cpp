#include "analysis/ParameterSet.h"

#include <gmock/gmock.h>

#include <vector>

namespace vk {
namespace {

using testing::ElementsAre;

ParameterSet stored(const std::vector<double>& values, const std::vector<double>& seconds, int first = 1) {
  ParameterSet par;
  par.ParCount = static_cast<int>(values.size()) - 1 + first;
  StoreParameters(par, values, seconds, first);
  return par;
}

TEST(ParameterSet, HoldsTheFreeParametersFromTheFrontAndTheConstantOnesFromTheBack) {
  const ParameterSet par = stored({3, -250, 7, 0, 8}, {0, 1, 0, -2, 0});
  EXPECT_THAT(par.ParValues.span(1, 5), ElementsAre(3, -250, 7, 0, 8));
  EXPECT_THAT(par.ParDeltas.span(1, 5), ElementsAre(0, 1, 0, -2, 0));
  EXPECT_EQ(par.FreeCount, 2);
  EXPECT_THAT(par.FreeIndex.span(1, 5), ElementsAre(2, 4, 5, 3, 1));
  EXPECT_THAT(par.FreeValues.span(1, 2), ElementsAre(-250, 0));
  EXPECT_THAT(par.FreeSteps.span(1, 2), ElementsAre(2.5, 0.01));
}

TEST(ParameterSet, OfConstantsHasNoFreeOne) {
  const ParameterSet par = stored({1, 2}, {0, 0});
  EXPECT_EQ(par.FreeCount, 0);
  EXPECT_THAT(par.FreeIndex.span(1, 2), ElementsAre(2, 1));
}

TEST(ParameterSet, MayBeginWithTheIndependentVariableWhichIsNeverFree) {
  const ParameterSet par = stored({9, 4}, {0.5, 0.25}, 0);
  EXPECT_EQ(par.ParValues[0], 9);
  EXPECT_EQ(par.ParDeltas[0], 0.5);
  EXPECT_EQ(par.FreeCount, 1);
  EXPECT_EQ(par.FreeIndex[1], 1);
}

TEST(ParameterSet, HasTablesOfTheSizeOfItsLastParameters) {
  ParameterSet par = stored({1, 2, 3}, {1, 1, 1});
  par.ParCount = 1;
  StoreParameters(par, std::vector<double>{5}, std::vector<double>{1}, 1);
  EXPECT_EQ(par.ParValues.upper(), 1);
  EXPECT_EQ(par.ParDeltas.upper(), 1);
  for (const Array<double>* table : {&par.FreeValues, &par.FreeSteps}) EXPECT_EQ(table->upper(), 2);
  EXPECT_EQ(par.FreeIndex.upper(), 2);
}

TEST(ParameterSet, HasRoomForFiveParametersFromTheStart) {
  const ParameterSet par;
  for (const Array<double>* table : {&par.ParValues, &par.ParDeltas}) EXPECT_EQ(table->upper(), 5);
  for (const Array<double>* table : {&par.FreeValues, &par.FreeSteps}) EXPECT_EQ(table->upper(), 6);
  EXPECT_EQ(par.FreeIndex.upper(), 6);
}

TEST(ParameterSet, TakesTheFreeValuesToTheirPlaces) {
  ParameterSet par = stored({1, 2, 3}, {1, 0, 1});
  storeFreeValues(par, std::vector<double>{10, 30});
  EXPECT_THAT(par.ParValues.span(1, 3), ElementsAre(10, 2, 30));
}

TEST(ParameterSet, NamesItsVariablesAndParameters) {
  ParameterSet par;
  par.ParNames = "    y    x    bGamma";
  EXPECT_EQ(par.name(-1), "y");
  EXPECT_EQ(par.name(0), "x");
  EXPECT_EQ(par.name(1), "b");
  EXPECT_EQ(par.name(2), "Gamma");
}

}  // namespace
}  // namespace vk
