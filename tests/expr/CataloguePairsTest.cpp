#include <cmath>

#include "expr/CompositeFunction.h"
#include "expr/EvaluateHelp.h"
#include "expr/FunctionHelp.h"

namespace vk {
namespace {

/// A function of the catalogue: its formula and its parameters, in the order in which they are stored.
struct Entry {
  const char* formula;
  const char* parameters;
};
const std::vector<Entry> kInner{{"c", "c"},
                                {"b*x+c", "b,c"},
                                {"a*x*x+b*x+c", "a,b,c"},
                                {"((x-m)^2+a)/b", "m,a,b"},
                                {"a/((x*x-m*m)^2+(b*x)^2)", "a,m,b"}};
// T stands for the inner formula.
const std::vector<Entry> kOuter{{"T", ""},         {"(T)^2", ""},      {"1/(T)", ""},
                                {"SQR(T)", ""},    {"(x+A)/(T)", "A"}, {"A*LOG(T)", "A"},
                                {"A*EXP(T)", "A"}, {"A*SIN(T)", "A"},  {"A*EXP(-B*x)*SIN(T)", "A,B"}};

std::string definitionOf(std::size_t inner, std::size_t outer) {
  std::string formula = kOuter[outer].formula;
  formula.replace(formula.find('T'), 1, kInner[inner].formula);
  const std::string further = kOuter[outer].parameters;
  return std::string("y@x@") + kInner[inner].parameters + (further.empty() ? "" : ",") + further + "@ @" +
         formula;
}

class CataloguePairs : public testing::TestWithParam<std::tuple<int, int>> {};

/// Both ways at one point. The texts have no absolute values: where they fail for a negative inner value, the
/// fast path goes on, and there only the two are not compared.
void expectAgreement(Formula& formula, Model& model, const Array<double>& parameters, double x) {
  NoListener nobody;
  formula.setValue(1, x);
  for (int i = 1; i <= parameters.upper(); ++i) formula.setValue(i + 1, parameters[i]);
  const Evaluation byText = formula.value(nobody);
  const Evaluation value = model.at(x, parameters, nobody);
  const bool textFailed = byText.fault != Fault::kNone;
  const bool hasAbsoluteValue = model.outer() == 4 || model.outer() == 6;
  if (textFailed && hasAbsoluteValue) return;
  EXPECT_EQ(value.fault != Fault::kNone, textFailed) << x;
  if (textFailed) return;
  EXPECT_NEAR(value.value, byText.value, 1e-13 * (1 + std::fabs(byText.value))) << x;
}

TEST_P(CataloguePairs, GiveTheSameValuesAsTheirText) {
  const auto [inner, outer] = GetParam();
  const Compiled text =
      compiled(definitionOf(static_cast<std::size_t>(inner - 1), static_cast<std::size_t>(outer - 1)));
  ASSERT_EQ(text.flag, 0);
  Formula formula(text.expression);
  Model model(inner, outer);
  const std::vector<std::vector<double>> sets{
      {1.25, 0.75, 2.5, 0.5, 0.125}, {-1.5, 2.25, 0.5, -3, 0.25}, {0, 0, 0, 0, 0}};
  for (std::vector<double> parameters : sets) {
    parameters.resize(static_cast<std::size_t>(text.expression.nPar));
    for (const double x : {-2.5, -1.0, 0.0, 0.375, 1.0, 4.75}) {
      expectAgreement(formula, model, parametersOf(parameters), x);
    }
  }
}

/// The values of points with parameters of their own, together; empty where one of them has a fault.
std::vector<double> together(Model& model, const std::vector<Array<double>>& points) {
  std::vector<std::vector<double>> columns(static_cast<std::size_t>(points[0].upper()) + 1);
  for (const Array<double>& point : points) {
    for (int i = 0; i <= point.upper(); ++i) columns[static_cast<std::size_t>(i)].push_back(point[i]);
  }
  std::vector<const double*> places;
  for (const std::vector<double>& column : columns) places.push_back(column.data());
  std::vector<double> values(points.size());
  if (!model.together(places, values)) values.clear();
  return values;
}

TEST_P(CataloguePairs, GiveTheSameBitsForPointsWithParametersOfTheirOwn) {
  const auto [inner, outer] = GetParam();
  const Compiled text =
      compiled(definitionOf(static_cast<std::size_t>(inner - 1), static_cast<std::size_t>(outer - 1)));
  NoListener nobody;
  for (Model model : {Model(inner, outer), Model(kLastPlainInner + 1, 1, text.expression)}) {
    std::vector<Array<double>> points;
    std::vector<double> expected;
    for (int point = 0; point < 21; ++point) {
      Array<double> variables(text.expression.nPar);
      for (int i = 0; i <= variables.upper(); ++i) variables[i] = 0.5 + 0.13 * i + 0.03 * point;
      expected.push_back(model.at(variables[0], variables, nobody).value);
      points.push_back(std::move(variables));
    }
    EXPECT_EQ(together(model, points), expected);
    points[5][0] = points[5][1] = 1E308;
    points[5][points[5].upper()] = 1E308;
    const bool fails = model.at(points[5][0], points[5], nobody).fault != Fault::kNone;
    EXPECT_EQ(together(model, points).empty(), fails);
  }
}

INSTANTIATE_TEST_SUITE_P(All, CataloguePairs, testing::Combine(testing::Range(1, 6), testing::Range(1, 10)));

}  // namespace
}  // namespace vk
