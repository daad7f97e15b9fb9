#include <cmath>

#include "tests/commands/CatalogueFixture.h"

namespace vk {
namespace {

TEST_F(CatalogueTest, TakingANewPairStartsItsParameters) {
  session.analysis.ParVar = kTrue;
  session.analysis.ParametersSet = kTrue;
  session.analysis.SimFirstTime = kFalse;
  session.analysis.par.FreeCount = 2;
  take(3, 9);
  EXPECT_EQ(session.analysis.FunDefined, kTrue);
  EXPECT_EQ(session.analysis.SimFirstTime, kTrue);
  EXPECT_EQ(session.analysis.ParVar, kFalse);
  EXPECT_EQ(session.analysis.ParametersSet, kFalse);
  EXPECT_EQ(session.analysis.fun.FunctionText, " y = A exp[-Bx] sin(ax\xFD+bx+c) ");
  EXPECT_EQ(session.analysis.par.ParCount, 5);
  EXPECT_EQ(session.analysis.par.FreeCount, 0);
  EXPECT_EQ(session.analysis.par.ParValues, Array<double>(5));
  EXPECT_EQ(session.analysis.par.ParDeltas, Array<double>(5));
  EXPECT_EQ(session.analysis.par.FreeIndex, Array<Int16>(6));
}

TEST_F(CatalogueTest, TakingTheSamePairAgainKeepsTheParameters) {
  take(2, 1);
  session.analysis.par.ParValues[1] = 7;
  session.analysis.ParVar = kTrue;
  session.analysis.ParametersSet = kTrue;
  take(2, 1);
  EXPECT_EQ(session.analysis.SimFirstTime, kFalse);
  EXPECT_EQ(session.analysis.par.ParValues[1], 7);
  EXPECT_EQ(session.analysis.ParVar, kTrue);
  EXPECT_EQ(session.analysis.ParametersSet, kTrue);
  EXPECT_EQ(session.analysis.FunDefined, kTrue);
}

TEST_F(CatalogueTest, OnlyOneIndexChangedIsANewPair) {
  take(2, 1);
  session.analysis.par.ParValues[1] = 7;
  take(2, 2);
  EXPECT_EQ(session.analysis.SimFirstTime, kTrue);
  EXPECT_EQ(session.analysis.par.ParValues[1], 0);
}

TEST_F(CatalogueTest, TheSameIndicesAfterTheFunctionWasDroppedAreANewPair) {
  addToFile("alfa", "alfa*x", "vecchia");
  load(1, 1);
  take(6, 1);
  EXPECT_TRUE(dropLoadedFunctions(session));
  EXPECT_EQ(session.analysis.fun.InnerIndex, 1);
  take(1, 1);
  EXPECT_EQ(session.analysis.FunDefined, kTrue);
  EXPECT_EQ(session.analysis.par.ParNames, "    y    x    c");
  EXPECT_EQ(session.analysis.par.ParCount, 1);
  EXPECT_EQ(session.analysis.par.ParNameWidth, 1);
  EXPECT_EQ(session.analysis.SimFirstTime, kTrue);
}

TEST_F(CatalogueTest, TakingALoadedFunctionTakesItsCode) {
  addToFile("A, omeg ,z", "A*SIN(omeg*x)+z", "onda");
  load(1, 1);
  EXPECT_EQ(session.loaded.catalogue.inner[5].names, "    A omeg    z");
  take(6, 1);
  EXPECT_EQ(session.analysis.par.ParNames, "    y    x    A omeg    z");
  EXPECT_EQ(session.analysis.par.ParCount, 3);
  EXPECT_EQ(session.analysis.par.ParNameWidth, 4);
  EXPECT_EQ(session.analysis.model.loaded().nVar, 1);
  EXPECT_EQ(session.analysis.model.loaded().nPar, 3);
  EXPECT_EQ(session.analysis.model.loaded().Slots.upper(), session.analysis.model.loaded().LastSlot);
  session.analysis.par.ParValues[1] = 2;
  session.analysis.par.ParValues[2] = 0.5;
  session.analysis.par.ParValues[3] = 1;
  EXPECT_DOUBLE_EQ(EvaluateFunction(session, dialogs, 3), 2 * std::sin(1.5) + 1);
}

TEST_F(CatalogueTest, TheSameNameInBothFunctionsStaysTwoParameters) {
  addToFile("A", "A*x", "retta");
  load(1, 1);
  take(6, 7);
  EXPECT_EQ(session.analysis.par.ParNames, "    y    x    A    A");
  EXPECT_EQ(session.analysis.par.ParCount, 2);
  session.analysis.par.ParValues[1] = 2;
  session.analysis.par.ParValues[2] = 3;
  EXPECT_DOUBLE_EQ(EvaluateFunction(session, dialogs, 0.5), 3 * std::exp(1.0));
}

TEST_F(CatalogueTest, ALoadedFunctionWithoutParametersCanBeTaken) {
  addToFile("", "2*x", "doppio");
  load(1, 1);
  take(6, 1);
  EXPECT_EQ(session.analysis.par.ParNames, "    y    x");
  EXPECT_EQ(session.analysis.par.ParCount, 0);
  EXPECT_EQ(session.analysis.par.ParNameWidth, 1);
  EXPECT_EQ(session.analysis.par.ParValues, Array<double>(0));
  EXPECT_EQ(EvaluateFunction(session, dialogs, 4), 8);
}

TEST_F(CatalogueTest, TakingAnIndexOutsideTheListsIsARuntimeError) {
  EXPECT_THROW(take(6, 1), RuntimeError);
  EXPECT_THROW(take(1, 10), RuntimeError);
}

TEST_F(CatalogueTest, LoadingAddsTheFunctionAsTheLastEntry) {
  addToFile("a,bb", "a*x+bb", "una retta");
  EXPECT_FALSE(loadFunction(session, 1));
  ASSERT_EQ(session.loaded.catalogue.inner.size(), 6U);
  EXPECT_EQ(session.loaded.catalogue.inner[5].display, "una retta");
  EXPECT_EQ(session.loaded.catalogue.inner[5].machine, "a*x+bb");
  EXPECT_EQ(session.loaded.catalogue.inner[5].names, "    a   bb");
}

TEST_F(CatalogueTest, LoadingAnEntryThatTheFileDoesNotHaveIsARuntimeError) {
  readFiveFunctions();
  EXPECT_THROW(loadFunction(session, 0), RuntimeError);
  EXPECT_THROW(loadFunction(session, 6), RuntimeError);
  EXPECT_EQ(session.loaded.catalogue.inner.size(), 5U);
}

TEST_F(CatalogueTest, TheFifthLoadDropsTheFirstLoadedFunction) {
  readFiveFunctions();
  load(1, 4);
  EXPECT_EQ(session.loaded.catalogue.inner.size(), 9U);
  EXPECT_FALSE(loadFunction(session, 5));
  EXPECT_THAT(innerTexts(), testing::ElementsAre("c", "bx+c", "ax\xFD+bx+c", "[(x-m)\xFD+a]/b",
                                                 "a/[(x\xFD-m\xFD)\xFD+b\xFDx\xFD]", "times 2", "times 3",
                                                 "times 4", "times 5"));
}

TEST_F(CatalogueTest, AFifthLoadLeavesABuiltInCurrentFunctionAlone) {
  readFiveFunctions();
  take(5, 2);
  load(1, 5);
  EXPECT_EQ(session.analysis.fun.InnerIndex, 5);
  EXPECT_EQ(session.analysis.fun.OuterIndex, 2);
  EXPECT_EQ(session.analysis.FunDefined, kTrue);
}

TEST_F(CatalogueTest, AFifthLoadDropsTheCurrentFunctionWhenItIsTheOldest) {
  readFiveFunctions();
  load(1, 4);
  take(6, 2);
  session.analysis.ParVar = kTrue;
  EXPECT_TRUE(loadFunction(session, 5));
  EXPECT_EQ(session.analysis.FunDefined, kFalse);
  EXPECT_EQ(session.analysis.ParVar, kFalse);
  EXPECT_EQ(session.analysis.fun.InnerIndex, 0);
  EXPECT_EQ(session.analysis.fun.OuterIndex, 0);
}

TEST_F(CatalogueTest, AFifthLoadMovesALaterCurrentFunctionDownByOne) {
  readFiveFunctions();
  load(1, 4);
  take(8, 2);
  session.analysis.ParVar = kTrue;
  EXPECT_FALSE(loadFunction(session, 5));
  EXPECT_EQ(session.analysis.fun.InnerIndex, 7);
  EXPECT_EQ(session.analysis.fun.OuterIndex, 2);
  EXPECT_EQ(session.analysis.FunDefined, kTrue);
  EXPECT_EQ(session.analysis.ParVar, kTrue);
  EXPECT_EQ(compositeText(session.loaded.catalogue, session.analysis.fun), " y = (times 3)\xFD ");
  session.analysis.par.ParValues[1] = 1;
  EXPECT_EQ(EvaluateFunction(session, dialogs, 1), 9);
}

TEST_F(CatalogueTest, DroppingTheLoadedFunctionsKeepsABuiltInCurrentOne) {
  readFiveFunctions();
  load(1, 3);
  take(4, 3);
  session.analysis.ParVar = kTrue;
  EXPECT_FALSE(dropLoadedFunctions(session));
  EXPECT_EQ(session.loaded.catalogue.inner.size(), 5U);
  EXPECT_EQ(session.analysis.fun.InnerIndex, 4);
  EXPECT_EQ(session.analysis.FunDefined, kTrue);
  EXPECT_EQ(session.analysis.ParVar, kTrue);
}

TEST_F(CatalogueTest, DroppingACurrentLoadedFunctionLeavesNone) {
  readFiveFunctions();
  load(1, 3);
  take(7, 3);
  session.analysis.ParVar = kTrue;
  session.analysis.ParametersSet = kTrue;
  EXPECT_TRUE(dropLoadedFunctions(session));
  EXPECT_EQ(session.analysis.FunDefined, kFalse);
  EXPECT_EQ(session.analysis.ParVar, kFalse);
  EXPECT_EQ(session.analysis.ParametersSet, kTrue);
  EXPECT_EQ(session.analysis.fun.InnerIndex, 1);
  EXPECT_EQ(session.analysis.fun.OuterIndex, 3);
}

}  // namespace
}  // namespace vk
