#include <cmath>

#include "expr/EvaluateHelp.h"
#include "expr/FunctionHelp.h"

namespace vk {
namespace {

/// What `EvaluateFunction` gives for a pair of the catalogue.
Evaluation composite(int inner, int outer, const std::vector<double>& parameters, double x) {
  Session session;
  ScriptedDialogs dialogs;
  setFunction(session, inner, outer, parameters);
  session.ErrFlag = 7;
  const double value = EvaluateFunction(session, dialogs, x);
  return {value, session.ErrFlag};
}

TEST(EvaluateFunction, ComputesTheInnerFunctionsOfTheCatalogue) {
  EXPECT_EQ(composite(1, 1, {2.5}, 3), (Evaluation{2.5, 0}));
  EXPECT_EQ(composite(2, 1, {2.5, -1}, 3), (Evaluation{6.5, 0}));
  EXPECT_EQ(composite(3, 1, {2, -1, 0.5}, 3), (Evaluation{15.5, 0}));
  EXPECT_EQ(composite(4, 1, {1, 4, 2}, 3), (Evaluation{4, 0}));   // m, a, b
  EXPECT_EQ(composite(5, 1, {61, 2, 2}, 3), (Evaluation{1, 0}));  // a, m, b: 61 / (25 + 36)
}

TEST(EvaluateFunction, ComputesTheOuterFunctionsOfTheCatalogue) {
  EXPECT_EQ(composite(1, 1, {2}, 3), (Evaluation{2, 0}));
  EXPECT_EQ(composite(1, 2, {3}, 3), (Evaluation{9, 0}));
  EXPECT_EQ(composite(1, 3, {4}, 3), (Evaluation{0.25, 0}));
  EXPECT_EQ(composite(1, 4, {9}, 3), (Evaluation{3, 0}));
  EXPECT_EQ(composite(1, 5, {2, 5}, 3), (Evaluation{4, 0}));
  EXPECT_EQ(composite(1, 6, {2, 5}, 3), (Evaluation{5 * std::log(2.0), 0}));
  EXPECT_EQ(composite(1, 7, {2, 5}, 3), (Evaluation{5 * std::exp(2.0), 0}));
  EXPECT_EQ(composite(1, 8, {2, 5}, 3), (Evaluation{5 * std::sin(2.0), 0}));
  EXPECT_EQ(composite(1, 9, {2, 5, 0.25}, 3), (Evaluation{5 * std::exp(-0.75) * std::sin(2.0), 0}));
}

TEST(EvaluateFunction, QUIRK_TakesTheRootAndLogarithmOfTheAbsoluteValue) {
  EXPECT_EQ(composite(1, 4, {-9}, 3), (Evaluation{3, 0}));
  EXPECT_EQ(composite(1, 6, {-2, 5}, 3), (Evaluation{5 * std::log(2.0), 0}));
  EXPECT_EQ(evaluated("SQR(c)", "c", {-9}).flag, -1);
}

TEST(EvaluateFunction, TakesUnknownIndicesAsTheInnerValueItself) {
  EXPECT_EQ(composite(1, 0, {2.5}, 3), (Evaluation{2.5, 0}));
  EXPECT_EQ(composite(1, 10, {2.5}, 3), (Evaluation{2.5, 0}));
}

TEST(EvaluateFunction, GoesOnWithZeroWhereTheInnerFunctionFails) {
  EXPECT_EQ(composite(4, 1, {1, 4, 0}, 3), (Evaluation{0, -1}));
  EXPECT_EQ(composite(4, 7, {1, 4, 0, 5}, 3), (Evaluation{5, -1}));  // 5 exp(0)
  EXPECT_EQ(composite(2, 7, {1e308, 0, 5}, 10), (Evaluation{5, -1}));
}

TEST(EvaluateFunction, IsZeroWhereTheOuterFunctionFails) {
  EXPECT_EQ(composite(1, 3, {0}, 3), (Evaluation{0, -1}));
  EXPECT_EQ(composite(1, 2, {1e200}, 3), (Evaluation{0, -1}));
  EXPECT_EQ(composite(1, 6, {0, 5}, 3), (Evaluation{0, -1}));
  EXPECT_EQ(composite(1, 7, {1000, 5}, 3), (Evaluation{0, -1}));
  EXPECT_EQ(composite(1, 5, {0, 5}, 3), (Evaluation{0, -1}));
}

TEST(EvaluateFunction, FailsWhereALaterStepWouldHideAnOverflow) {
  EXPECT_EQ(composite(5, 1, {1, 1e100, 1}, 3), (Evaluation{0, -1}));     // m^4 beyond the range, quotient 0
  EXPECT_EQ(composite(1, 9, {1, 5, 1e300}, 1e10), (Evaluation{0, -1}));  // exp(-infinity) would be 0
}

TEST(EvaluateFunction, TouchesNoParameterThatIsNotThere) {
  EXPECT_EQ(composite(3, 1, {2}, 3), (Evaluation{0, -1}));
  EXPECT_EQ(composite(1, 7, {}, 3), (Evaluation{0, -1}));
  EXPECT_EQ(composite(2, 2, {}, 3), (Evaluation{0, -1}));
}

TEST(EvaluateFunction, RunsTheCompiledCodeOfALoadedFunction) {
  Session session;
  ScriptedDialogs dialogs;
  setFunction(session, 6, 7, {2, 0.5, 3});
  compileModel(session, "p,q", "p*SIN(q*x)");
  const double value = EvaluateFunction(session, dialogs, 1.25);
  EXPECT_EQ(value, 3 * std::exp(valueOf("2*SIN(0.5*1.25)")));
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(session.analysis.model.Values[1], 1.25);
  EXPECT_EQ(session.analysis.model.Values[2], 2);
  EXPECT_EQ(session.analysis.model.Values[3], 0.5);
}

TEST(EvaluateFunction, KeepsTheValueOfALoadedFunctionThatFails) {
  Session session;
  ScriptedDialogs dialogs;
  setFunction(session, 6, 1, {2});
  compileModel(session, "p", "LOG(-p)+x");
  EXPECT_EQ(EvaluateFunction(session, dialogs, 5), 3);
  EXPECT_EQ(session.ErrFlag, -1);
}

TEST(EvaluateFunction, CopiesOnlyTheParametersOfTheLoadedFunction) {
  Session session;
  ScriptedDialogs dialogs;
  setFunction(session, 6, 7, {2, 9});  // the 9 belongs to the outer function
  compileModel(session, "p", "p+100");
  EvaluateFunction(session, dialogs, 0);
  EXPECT_EQ(session.analysis.model.Values[3], 100);
}

TEST(EvaluateFunction, IsZeroWithoutAnyModel) {
  EXPECT_EQ(composite(0, 0, {}, 3), (Evaluation{0, 0}));
  EXPECT_EQ(composite(7, 1, {1, 2, 3}, 3), (Evaluation{0, 0}));
}

}  // namespace
}  // namespace vk
