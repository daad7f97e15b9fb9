#include <cmath>

#include "expr/ColumnMachine.h"
#include "expr/FunctionHelp.h"
#include "expr/RandomExpressions.h"

namespace vk {
namespace {

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
  std::vector<Int16> flags;
  int lastFlag = 0;
  int boxes = 0;
};

void expectSame(const Outcome& block, const Outcome& single, const std::string& what) {
  ASSERT_EQ(block.values.size(), single.values.size());
  for (std::size_t i = 0; i < single.values.size(); ++i) {
    ASSERT_TRUE(std::isfinite(single.values[i])) << what << " at " << i;
    ASSERT_TRUE(sameBits(block.values[i], single.values[i]))
        << what << " at " << i << ": " << block.values[i] << ", not " << single.values[i];
    ASSERT_EQ(block.flags[i], single.flags[i]) << what << " at " << i;
  }
  ASSERT_EQ(block.lastFlag, single.lastFlag) << what;
  ASSERT_EQ(block.boxes, single.boxes) << what;
}

using Columns = std::vector<std::vector<double>>;

Outcome codePointByPoint(CompiledExpression compiled, const Columns& columns) {
  Session session;
  CountingDialogs dialogs;
  Outcome outcome;
  for (std::size_t i = 0; i < columns[0].size(); ++i) {
    for (std::size_t v = 0; v < columns.size(); ++v) compiled.Values[static_cast<int>(v) + 1] = columns[v][i];
    loadSlots(compiled);
    outcome.values.push_back(EvaluateCode(session, dialogs, compiled.Code, compiled.Slots));
    outcome.flags.push_back(session.ErrFlag);
  }
  outcome.lastFlag = session.ErrFlag;
  outcome.boxes = dialogs.boxes;
  return outcome;
}

Outcome codeInBlocks(CompiledExpression compiled, const Columns& columns) {
  Session session;
  CountingDialogs dialogs;
  session.ErrFlag = 7;
  Outcome outcome;
  outcome.values.resize(columns[0].size());
  outcome.flags.resize(columns[0].size(), 7);
  const std::vector<std::span<const double>> spans(columns.begin(), columns.end());
  evaluateCodeAt(session, dialogs, compiled, spans, outcome.values, outcome.flags);
  outcome.lastFlag = session.ErrFlag;
  outcome.boxes = dialogs.boxes;
  return outcome;
}

Outcome functionPointByPoint(Session& session, const std::vector<double>& x) {
  CountingDialogs dialogs;
  session.GammaTold = kFalse;
  Outcome outcome;
  for (const double point : x) {
    outcome.values.push_back(EvaluateFunction(session, dialogs, point));
    outcome.flags.push_back(session.ErrFlag);
  }
  outcome.lastFlag = session.ErrFlag;
  outcome.boxes = dialogs.boxes;
  return outcome;
}

Outcome functionInBlocks(Session& session, const std::vector<double>& x) {
  CountingDialogs dialogs;
  session.GammaTold = kFalse;
  session.ErrFlag = 7;
  Outcome outcome;
  outcome.values.resize(x.size());
  outcome.flags.resize(x.size(), 7);
  evaluateFunctionAt(session, dialogs, x, outcome.values, outcome.flags);
  outcome.lastFlag = session.ErrFlag;
  outcome.boxes = dialogs.boxes;
  return outcome;
}

/// A formula of x, y and the parameter-like constant z.
CompiledExpression formula(const std::string& expression) {
  Session session;
  CompiledExpression compiled;
  Int16 flag;
  CompileExpression(session, "y@x,y@z@@" + expression, compiled, flag);
  EXPECT_EQ(flag, 0) << expression;
  compiled.Values[3] = 0.75;
  return compiled;
}

TEST(EvaluateCodeAt, EqualsSingleCallsForRandomExpressions) {
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

TEST(EvaluateCodeAt, EqualsSingleCallsForChosenExpressions) {
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

TEST(EvaluateCodeAt, EqualsSingleCallsForForeignCode) {
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

TEST(EvaluateCodeAt, GivesZeroForCodeThatDidNotCompile) {
  Session session;
  CountingDialogs dialogs;
  CompiledExpression compiled;
  const std::vector<double> x{1, 2, 3};
  const std::vector<std::span<const double>> columns{x};
  std::vector<double> result(3, 9);
  evaluateCodeAt(session, dialogs, compiled, columns, result);
  EXPECT_EQ(result, std::vector<double>(3, 0));
  EXPECT_EQ(session.ErrFlag, 0);
}

TEST(EvaluateCodeAt, MayReplaceItsColumn) {
  Session session;
  CountingDialogs dialogs;
  ExpressionMaker maker(3, {});
  for (const char* text : {"2*x+1", "LOG(x)"}) {
    CompiledExpression compiled = formula(text);
    std::vector<double> x = awkwardPoints(maker);
    const Outcome expected = codePointByPoint(compiled, {x});
    const std::vector<std::span<const double>> columns{x};
    evaluateCodeAt(session, dialogs, compiled, columns, x);
    EXPECT_EQ(x, expected.values) << text;
  }
}

TEST(EvaluateCodeAt, RefusesColumnsThatAreTooShort) {
  Session session;
  CountingDialogs dialogs;
  CompiledExpression compiled = formula("x");
  const std::vector<double> x{1, 2};
  const std::vector<std::span<const double>> columns{x};
  std::vector<double> result(3);
  EXPECT_THROW(evaluateCodeAt(session, dialogs, compiled, columns, result), RuntimeError);
  EXPECT_THROW(evaluateFunctionAt(session, dialogs, x, result), RuntimeError);
}

TEST(EvaluateFunctionAt, EqualsSingleCallsForAllPairsOfTheCatalogue) {
  ExpressionMaker maker(11, {});
  const std::vector<std::vector<double>> sets{
      {1.5, 0.75, 2.5, 0.5, 0.125}, {-1.5, 2.25, 0, -3, 1e300}, {0, 0, 0, 0, 0}};
  for (int inner = 0; inner <= 5; ++inner) {
    for (int outer = 0; outer <= 10; ++outer) {
      for (const std::vector<double>& parameters : sets) {
        Session session;
        setFunction(session, inner, outer, parameters);
        const std::vector<double> x = awkwardPoints(maker);
        expectSame(functionInBlocks(session, x), functionPointByPoint(session, x),
                   std::to_string(inner) + "," + std::to_string(outer));
      }
    }
  }
}

TEST(EvaluateFunctionAt, EqualsSingleCallsForLoadedFunctions) {
  ExpressionMaker maker(12, {});
  for (const char* text :
       {"p*EXP(-q*x)*SIN(x+p)", "LOG(x-p)", "p", "C_X2(x,p)", "SUM(x,p,q)+D_N(x)", "C_P(1000,x)"}) {
    for (int outer = 1; outer <= 9; ++outer) {
      Session session;
      setFunction(session, 6, outer, {1.5, 0.25, 2, 0.5});
      compileModel(session, "p,q", text);
      const std::vector<double> x = awkwardPoints(maker);
      expectSame(functionInBlocks(session, x), functionPointByPoint(session, x), text);
    }
  }
}

TEST(EvaluateFunctionAt, MayReplaceItsPoints) {
  Session session;
  CountingDialogs dialogs;
  ExpressionMaker maker(13, {});
  setFunction(session, 2, 3, {1, 0});
  std::vector<double> x = awkwardPoints(maker);
  const Outcome expected = functionPointByPoint(session, x);
  evaluateFunctionAt(session, dialogs, x, x);
  EXPECT_EQ(x, expected.values);
}

TEST(EvaluateFunctionAt, LeavesTheFlagAloneWithoutPoints) {
  Session session;
  CountingDialogs dialogs;
  session.ErrFlag = 7;
  evaluateFunctionAt(session, dialogs, {}, {});
  EXPECT_EQ(session.ErrFlag, 7);
}

}  // namespace
}  // namespace vk
