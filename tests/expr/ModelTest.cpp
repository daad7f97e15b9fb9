#include <cmath>

#include "expr/EvaluateHelp.h"
#include "expr/FunctionHelp.h"
#include "numeric/Elementary.h"

namespace vk {
namespace {

/// What a pair of the catalogue gives.
Evaluation composite(int inner, int outer, const std::vector<double>& parameters, double x) {
  NoListener nobody;
  return Model(inner, outer).at(x, parametersOf(parameters), nobody);
}

TEST(Model, ComputesTheInnerFunctionsOfTheCatalogue) {
  EXPECT_EQ(composite(1, 1, {2.5}, 3), Evaluation{2.5});
  EXPECT_EQ(composite(2, 1, {2.5, -1}, 3), Evaluation{6.5});
  EXPECT_EQ(composite(3, 1, {2, -1, 0.5}, 3), Evaluation{15.5});
  EXPECT_EQ(composite(4, 1, {1, 4, 2}, 3), Evaluation{4});   // m, a, b
  EXPECT_EQ(composite(5, 1, {61, 2, 2}, 3), Evaluation{1});  // a, m, b: 61 / (25 + 36)
}

TEST(Model, ComputesTheOuterFunctionsOfTheCatalogue) {
  EXPECT_EQ(composite(1, 1, {2}, 3), Evaluation{2});
  EXPECT_EQ(composite(1, 2, {3}, 3), Evaluation{9});
  EXPECT_EQ(composite(1, 3, {4}, 3), Evaluation{0.25});
  EXPECT_EQ(composite(1, 4, {9}, 3), Evaluation{3});
  EXPECT_EQ(composite(1, 5, {2, 5}, 3), Evaluation{4});
  EXPECT_EQ(composite(1, 6, {2, 5}, 3), Evaluation{5 * elementary::log(2.0)});
  EXPECT_EQ(composite(1, 7, {2, 5}, 3), Evaluation{5 * elementary::exp(2.0)});
  EXPECT_EQ(composite(1, 8, {2, 5}, 3), Evaluation{5 * elementary::sin(2.0)});
  EXPECT_EQ(composite(1, 9, {2, 5, 0.25}, 3), Evaluation{5 * elementary::exp(-0.75) * elementary::sin(2.0)});
}

TEST(Model, QUIRK_TakesTheRootAndLogarithmOfTheAbsoluteValue) {
  EXPECT_EQ(composite(1, 4, {-9}, 3), Evaluation{3});
  EXPECT_EQ(composite(1, 6, {-2, 5}, 3), Evaluation{5 * elementary::log(2.0)});
  EXPECT_EQ(evaluated("SQR(c)", "c", {-9}).fault, Fault::kDomain);
}

TEST(Model, TakesUnknownIndicesAsTheInnerValueItself) {
  EXPECT_EQ(composite(1, 0, {2.5}, 3), Evaluation{2.5});
  EXPECT_EQ(composite(1, 10, {2.5}, 3), Evaluation{2.5});
}

TEST(Model, GoesOnWithZeroWhereTheInnerFunctionFails) {
  EXPECT_EQ(composite(4, 1, {1, 4, 0}, 3), failing(0));
  EXPECT_EQ(composite(4, 7, {1, 4, 0, 5}, 3), failing(5));  // 5 exp(0)
  EXPECT_EQ(composite(2, 7, {1e308, 0, 5}, 10), failing(5));
}

TEST(Model, IsZeroWhereTheOuterFunctionFails) {
  EXPECT_EQ(composite(1, 3, {0}, 3), failing(0));
  EXPECT_EQ(composite(1, 2, {1e200}, 3), failing(0));
  EXPECT_EQ(composite(1, 6, {0, 5}, 3), failing(0));
  EXPECT_EQ(composite(1, 7, {1000, 5}, 3), failing(0));
  EXPECT_EQ(composite(1, 5, {0, 5}, 3), failing(0));
}

TEST(Model, FailsWhereALaterStepWouldHideAnOverflow) {
  EXPECT_EQ(composite(5, 1, {1, 1e100, 1}, 3), failing(0));     // m^4 beyond the range, quotient 0
  EXPECT_EQ(composite(1, 9, {1, 5, 1e300}, 1e10), failing(0));  // exp(-infinity) would be 0
}

TEST(Model, TouchesNoParameterThatIsNotThere) {
  EXPECT_EQ(composite(3, 1, {2}, 3), failing(0));
  EXPECT_EQ(composite(1, 7, {}, 3), failing(0));
  EXPECT_EQ(composite(2, 2, {}, 3), failing(0));
}

TEST(Model, RunsTheCompiledCodeOfALoadedFunction) {
  NoListener nobody;
  Model model(6, 7, formulaOf("p,q", "p*SIN(q*x)"));
  const Evaluation value = model.at(1.25, parametersOf({2, 0.5, 3}), nobody);
  EXPECT_EQ(value, Evaluation{3 * elementary::exp(valueOf("2*SIN(0.5*1.25)"))});
  EXPECT_EQ(model.loaded().Values[1], 1.25);
  EXPECT_EQ(model.loaded().Values[2], 2);
  EXPECT_EQ(model.loaded().Values[3], 0.5);
}

TEST(Model, KeepsTheValueOfALoadedFunctionThatFails) {
  NoListener nobody;
  Model model(6, 1, formulaOf("p", "LOG(-p)+x"));
  EXPECT_EQ(model.at(5, parametersOf({2}), nobody), failing(3));
}

TEST(Model, CopiesOnlyTheParametersOfTheLoadedFunction) {
  NoListener nobody;
  Model model(6, 7, formulaOf("p", "p+100"));
  model.at(0, parametersOf({2, 9}), nobody);  // the 9 belongs to the outer function
  EXPECT_EQ(model.loaded().Values[3], 100);
}

TEST(Model, IsZeroWithoutAnyModel) {
  EXPECT_EQ(composite(0, 0, {}, 3), Evaluation{0});
  EXPECT_EQ(composite(7, 1, {1, 2, 3}, 3), Evaluation{0});
}

}  // namespace
}  // namespace vk
