#include <gmock/gmock.h>

#include <cmath>

#include "expr/BlockNumber.h"
#include "expr/ColumnMachine.h"
#include "expr/FunctionHelp.h"
#include "expr/RandomExpressions.h"

namespace vk {
namespace {

using testing::ElementsAre;
using testing::IsNan;

/// Points of more than two blocks, with awkward ones strewn in: most blocks hold some, one holds none.
std::vector<double> awkwardPoints(ExpressionMaker& maker) {
  std::vector<double> x(2 * kBlockPoints + 77);
  for (double& value : x) value = 0.01 * static_cast<double>(maker.below(500)) + 0.25;
  const std::vector<double> awkward{0, -0.0, -1, 1e155, -1e200, 1000, 1e-300};
  for (int i = 0; i < 6; ++i) {
    const bool firstBlock = maker.oneIn(2);
    x[maker.below(firstBlock ? kBlockPoints : 77) + (firstBlock ? 0 : 2 * kBlockPoints)] =
        awkward[maker.below(awkward.size())];
  }
  return x;
}

/// Everything that n evaluations leave behind.
struct Outcome {
  std::vector<double> values;
  std::vector<Fault> faults;
  Fault last = Fault::kNone;
  std::vector<Kernel> exhausted;
};

void expectSame(const Outcome& block, const Outcome& single, const std::string& what) {
  ASSERT_EQ(block.values.size(), single.values.size());
  for (std::size_t i = 0; i < single.values.size(); ++i) {
    ASSERT_TRUE(std::isfinite(single.values[i])) << what << " at " << i;
    ASSERT_TRUE(sameBits(block.values[i], single.values[i]))
        << what << " at " << i << ": " << block.values[i] << ", not " << single.values[i];
    ASSERT_EQ(block.faults[i], single.faults[i]) << what << " at " << i;
  }
  ASSERT_EQ(block.last, single.last) << what;
  ASSERT_EQ(block.exhausted, single.exhausted) << what;
}

void addTo(Outcome& outcome, const Evaluation& evaluation) {
  outcome.values.push_back(evaluation.value);
  outcome.faults.push_back(evaluation.fault);
  outcome.last = evaluation.fault;
}

/// The outcome of a block form: `run(result, listener, faults)` gives the fault of the last point.
template <class Run>
Outcome inOneCall(std::size_t points, Run run) {
  KernelLog log;
  Outcome outcome;
  outcome.values.resize(points);
  outcome.faults.resize(points, Fault::kExhausted);
  outcome.last = run(outcome.values, log, outcome.faults);
  outcome.exhausted = log.kernels;
  return outcome;
}

using Columns = std::vector<std::vector<double>>;

Outcome codePointByPoint(CompiledExpression compiled, const Columns& columns) {
  KernelLog log;
  Outcome outcome;
  for (std::size_t i = 0; i < columns[0].size(); ++i) {
    for (std::size_t v = 0; v < columns.size(); ++v) compiled.Values[static_cast<int>(v) + 1] = columns[v][i];
    loadSlots(compiled);
    addTo(outcome, evaluate(compiled.Code, compiled.Slots.span(0, compiled.Slots.upper()), log));
  }
  outcome.exhausted = log.kernels;
  return outcome;
}

Outcome codeInBlocks(const CompiledExpression& compiled, const Columns& columns) {
  const std::vector<std::span<const double>> spans(columns.begin(), columns.end());
  Formula formula(compiled);
  return inOneCall(columns[0].size(), [&](auto& result, auto& listener, auto& faults) {
    return formula.values(spans, result, listener, faults);
  });
}

Outcome functionPointByPoint(Model model, const Array<double>& parameters, const std::vector<double>& x) {
  KernelLog log;
  Outcome outcome;
  for (const double point : x) addTo(outcome, model.at(point, parameters, log));
  outcome.exhausted = log.kernels;
  return outcome;
}

Outcome functionInBlocks(Model model, const Array<double>& parameters, const std::vector<double>& x) {
  return inOneCall(x.size(), [&](auto& result, auto& listener, auto& faults) {
    return model.at(x, parameters, result, listener, faults);
  });
}

/// A formula of x, y and the parameter-like constant z.
CompiledExpression formula(const std::string& expression) {
  Compiled result = compiled("y@x,y@z@@" + expression);
  EXPECT_EQ(result.flag, 0) << expression;
  result.expression.Values[3] = 0.75;
  return result.expression;
}

TEST(FormulaValues, EqualSingleCallsForRandomExpressions) {
  ExpressionMaker maker(77, {"x", "y", "z"});
  int compared = 0;
  for (int i = 0; i < 1500; ++i) {
    const auto tree = maker.make(3);
    if (!passesArityCheck(*tree)) continue;
    const CompiledExpression compiled = formula(textOf(*tree));
    const Columns columns{awkwardPoints(maker), awkwardPoints(maker)};
    expectSame(codeInBlocks(compiled, columns), codePointByPoint(compiled, columns), textOf(*tree));
    ASSERT_FALSE(HasFatalFailure());
    ++compared;
  }
  EXPECT_GT(compared, 1000);
}

TEST(FormulaValues, EqualSingleCallsForChosenExpressions) {
  ExpressionMaker maker(5, {});
  const Columns columns{awkwardPoints(maker), awkwardPoints(maker)};
  for (const char* text : {"x",
                           "2",
                           "z",
                           "0-z",
                           "LOG(x)",
                           "1/x",
                           "LOG(z-1)+x",
                           "SUM(1,2,3)+D_N(x)",
                           "SUM(x,y,3)+D_N(x)",
                           "SUM(x,2)+D_N(1)",
                           "SQR(x)+D_N(1)",
                           "C_X2(x,3)",
                           "C_X2(800,800)*x",
                           "C_P(1000,x)",
                           "AVG(x,y,z)+STD(z,x)",
                           "(x,y)",
                           "C_N(x,y,z-0.75)",
                           "EXP(x)*EXP(-y)",
                           "SIN(x)+SIN(1,2)",
                           "GAM(z)*x"}) {
    const CompiledExpression compiled = formula(text);
    expectSame(codeInBlocks(compiled, columns), codePointByPoint(compiled, columns), text);
  }
}

TEST(FormulaValues, EqualSingleCallsForForeignCode) {
  ExpressionMaker maker(99, {});
  const Columns columns{awkwardPoints(maker)};
  for (int i = 0; i < 3000; ++i) {
    CompiledExpression compiled;
    compiled.Values.dim(3);
    compiled.Values[2] = 0.5;
    compiled.Values[3] = -2;
    compiled.LastSlot = static_cast<int>(maker.below(4));
    compiled.Slots.dim(static_cast<int>(maker.below(5)));
    for (std::size_t n = maker.below(6); n > 0; --n) compiled.OperandMap += static_cast<char>(maker.below(5));
    const std::size_t length = maker.below(14);
    for (std::size_t n = 0; n < length; ++n) {
      const std::size_t byte = maker.oneIn(2)   ? maker.below(6)
                               : maker.oneIn(9) ? maker.below(256)
                                                : maker.below(45);
      compiled.Code += static_cast<char>(byte);
    }
    const std::size_t few = 12;
    const Columns points{{columns[0].begin(), columns[0].begin() + few}};
    expectSame(codeInBlocks(compiled, points), codePointByPoint(compiled, points), listCode(compiled));
    ASSERT_FALSE(HasFatalFailure());
  }
}

TEST(FormulaValues, AreZeroForCodeThatDidNotCompile) {
  NoListener nobody;
  const std::vector<double> x{1, 2, 3};
  const std::vector<std::span<const double>> columns{x};
  std::vector<double> result(3, 9);
  EXPECT_EQ(Formula(CompiledExpression()).values(columns, result, nobody), Fault::kNone);
  EXPECT_EQ(result, std::vector<double>(3, 0));
}

TEST(FormulaValues, MayReplaceTheirColumn) {
  NoListener nobody;
  ExpressionMaker maker(3, {});
  for (const char* text : {"2*x+1", "LOG(x)"}) {
    const CompiledExpression compiled = formula(text);
    std::vector<double> x = awkwardPoints(maker);
    const Outcome expected = codePointByPoint(compiled, {x});
    const std::vector<std::span<const double>> columns{x};
    Formula(compiled).values(columns, x, nobody);
    EXPECT_EQ(x, expected.values) << text;
  }
}

TEST(FormulaValues, AtPlacesAreNotANumberWhereThereIsNone) {
  NoListener nobody;
  Formula root(formula("SQR(x)"));
  const std::vector<double> y = root.valuesAt(std::vector<double>{4, -1, 9, -2}, nobody);
  EXPECT_THAT(y, ElementsAre(2, IsNan(), 3, IsNan()));
  EXPECT_TRUE(root.valuesAt({}, nobody).empty());
}

TEST(FormulaValues, RefuseColumnsThatAreTooShort) {
  NoListener nobody;
  const std::vector<double> x{1, 2};
  const std::vector<std::span<const double>> columns{x};
  std::vector<double> result(3);
  EXPECT_THROW(Formula(formula("x")).values(columns, result, nobody), RuntimeError);
  EXPECT_THROW(Model(1, 1).at(x, parametersOf({1}), result, nobody), RuntimeError);
}

TEST(ModelAtPoints, EqualsSingleCallsForAllPairsOfTheCatalogue) {
  ExpressionMaker maker(11, {});
  const std::vector<std::vector<double>> sets{
      {1.5, 0.75, 2.5, 0.5, 0.125}, {-1.5, 2.25, 0, -3, 1e300}, {0, 0, 0, 0, 0}};
  for (int inner = 0; inner <= 5; ++inner) {
    for (int outer = 0; outer <= 10; ++outer) {
      for (const std::vector<double>& set : sets) {
        const Array<double> parameters = parametersOf(set);
        const std::vector<double> x = awkwardPoints(maker);
        const Model model(inner, outer);
        expectSame(functionInBlocks(model, parameters, x), functionPointByPoint(model, parameters, x),
                   std::to_string(inner) + "," + std::to_string(outer));
      }
    }
  }
}

TEST(ModelAtPoints, EqualsSingleCallsForLoadedFunctions) {
  ExpressionMaker maker(12, {});
  const Array<double> parameters = parametersOf({1.5, 0.25, 2, 0.5});
  for (const char* text :
       {"p*EXP(-q*x)*SIN(x+p)", "LOG(x-p)", "p", "C_X2(x,p)", "SUM(x,p,q)+D_N(x)", "C_P(1000,x)"}) {
    for (int outer = 1; outer <= 9; ++outer) {
      const Model model(6, outer, formulaOf("p,q", text));
      const std::vector<double> x = awkwardPoints(maker);
      expectSame(functionInBlocks(model, parameters, x), functionPointByPoint(model, parameters, x), text);
    }
  }
}

TEST(ModelAtPoints, ServesOneCallAfterTheOther) {
  NoListener nobody;
  Model model(6, 1, formulaOf("p", "p*x"));
  std::vector<double> result(2);
  const std::vector<double> x{2, 3};
  for (const double p : {1.0, 4.0}) {
    EXPECT_EQ(model.at(x, parametersOf({p}), result, nobody), Fault::kNone);
    EXPECT_EQ(result, (std::vector<double>{2 * p, 3 * p}));
    EXPECT_EQ(model.at(5, parametersOf({p}), nobody), Evaluation{5 * p});
  }
}

TEST(ModelAtPoints, WorksAsACopy) {
  NoListener nobody;
  Model model(6, 1, formulaOf("p", "p*x+1"));
  std::vector<double> result(2);
  const std::vector<double> x{2, 3};
  model.at(x, parametersOf({1}), result, nobody);
  Model copy = model;
  model = Model();
  copy.at(x, parametersOf({2}), result, nobody);
  EXPECT_EQ(result, (std::vector<double>{5, 7}));
}

TEST(ModelAtPoints, MayReplaceItsPoints) {
  NoListener nobody;
  ExpressionMaker maker(13, {});
  Model model(2, 3);
  const Array<double> parameters = parametersOf({1, 0});
  std::vector<double> x = awkwardPoints(maker);
  const Outcome expected = functionPointByPoint(model, parameters, x);
  model.at(x, parameters, x, nobody);
  EXPECT_EQ(x, expected.values);
}

}  // namespace
}  // namespace vk
