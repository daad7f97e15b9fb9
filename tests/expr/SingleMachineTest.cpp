#include <cmath>

#include "doubles/Tolerances.h"
#include "expr/EvaluateHelp.h"

namespace vk {
namespace {

constexpr double kTruePi = 3.14159265358979323846;

TEST(Evaluator, LeavesTheResultOfAnOperatorInItsLeftSlot) {
  const std::vector<std::pair<char, double>> cases{{1, 8}, {2, 6}, {3, 2.0 / 3}, {4, 5}, {5, -1}};
  for (const auto& [opcode, result] : cases) {
    std::vector<double> slots{7, 2, 3};
    EXPECT_EQ(evaluatedCode({opcode, 1, 2}, slots), Evaluation{result});
    EXPECT_EQ(slots, (std::vector<double>{7, result, 3}));
  }
}

TEST(Evaluator, ComputesTheValueOfAWholeExpression) {
  EXPECT_EQ(valueOf("2^3^2"), 64);
  EXPECT_EQ(valueOf("-x^2", "x", {3}), -9);
  EXPECT_EQ(valueOf("(x,2)", "x", {5}), 5);
  EXPECT_EQ(valueOf("10-4-3"), 3);
  EXPECT_EQ(valueOf("2+3*4/6-1"), 3);
  EXPECT_EQ(valueOf("2*(-x)", "x", {4}), -8);
}

TEST(Evaluator, ComputesSignAndIntegerPart) {
  EXPECT_EQ(valueOf("SGN(-3)"), -1);
  EXPECT_EQ(valueOf("SGN(3)"), 1);
  EXPECT_EQ(valueOf("INT(-1.5)"), -2);
  EXPECT_EQ(valueOf("INT(1.5)"), 1);
  EXPECT_EQ(valueOf("INT(-2)"), -2);
}

TEST(Evaluator, QUIRK_CallsTheSignOfZeroOne) {
  EXPECT_EQ(valueOf("SGN(0)"), 1);
  EXPECT_EQ(valueOf("SGN(x)", "x", {-0.0}), 1);
}

TEST(Evaluator, ComputesElementaryFunctions) {
  EXPECT_EQ(valueOf("ABS(-2.5)"), 2.5);
  EXPECT_EQ(valueOf("SQR(2)"), std::sqrt(2.0));
  EXPECT_DOUBLE_EQ(valueOf("EXP(1)"), 2.718281828459045);
  EXPECT_DOUBLE_EQ(valueOf("LOG(10)"), 2.302585092994046);
  EXPECT_DOUBLE_EQ(valueOf("ATAN(1)"), kTruePi / 4);
  EXPECT_DOUBLE_EQ(valueOf("SIN(0.5)"), 0.479425538604203);
  EXPECT_DOUBLE_EQ(valueOf("COS(0.5)"), 0.8775825618903728);
  EXPECT_DOUBLE_EQ(valueOf("TAN(0.5)"), 0.5463024898437905);
  EXPECT_DOUBLE_EQ(valueOf("ASIN(0.5)"), kTruePi / 6);
  EXPECT_NEAR(valueOf("ACOS(0.5)"), 1.5707963 - kTruePi / 6, kLastBit);
}

TEST(Evaluator, QUIRK_ReachesAShortPiAtTheEndsOfTheArcFunctions) {
  EXPECT_EQ(valueOf("ASIN(2)"), 1.5707963);
  EXPECT_EQ(valueOf("ASIN(-1)"), -1.5707963);
  EXPECT_EQ(valueOf("ASIN(-1E200)"), -1.5707963);
  EXPECT_EQ(valueOf("ACOS(1)"), 0);
  EXPECT_EQ(valueOf("ACOS(-1)"), 3.1415926);
  EXPECT_EQ(valueOf("ACOS(-5)"), 3.1415926);
}

TEST(Evaluator, RaisesToAPower) {
  EXPECT_EQ(valueOf("0^0"), 1);
  EXPECT_EQ(valueOf("2^0.5"), std::sqrt(2.0));
  EXPECT_EQ(valueOf("(-2)^3"), -8);
  EXPECT_EQ(valueOf("2^(-2)"), 0.25);
}

TEST(Evaluator, SumsItsArgumentLists) {
  EXPECT_EQ(valueOf("SUM(1,2,3)"), 6);
  EXPECT_EQ(valueOf("AVG(1,2,3)"), 2);
  EXPECT_EQ(valueOf("STD(1,2,3)"), 1);
  EXPECT_EQ(valueOf("SUM(5)"), 5);
  EXPECT_EQ(valueOf("AVG(5)"), 5);
  EXPECT_EQ(evaluated("STD(x)", "x", {5}), failing(5));
  EXPECT_EQ(evaluated("SUM(1E308,1E308,-1E308)"), failing(1e308));
}

struct Failure {
  const char* expression;
  double x;  ///< what X held before the failing statement
};

TEST(Evaluator, LeavesXWhereAStatementFails) {
  const std::vector<Failure> failures{
      {"1/0", 1},
      {"0/0", 0},
      {"SQR(-1)", -1},
      {"EXP(1000)", 1000},
      {"(-8)^(1/3)", -8},
      {"0^(-1)", 0},
      {"LOG(-1)", -1},
      {"LOG(0)", 0},
      {"1E200*1E200", 1e200},
      {"1E300/1E-300", 1e300},
      {"1E308+1E308", 1e308},
      {"-1E308-1E308", -1e308},
      {"10^400", 10},
      {"C_N(x,0,0)", 3},
      {"STD(3)", 3},
      {"LNGAM(0)", 0},
      {"GAM(-1)", -1},
      {"GAM(1E10)", 1e10},
      {"D_B(1,2,1)", 1},
  };
  for (const Failure& f : failures) {
    EXPECT_EQ(evaluated(f.expression, "x", {3}), failing(f.x)) << f.expression;
  }
}

TEST(Evaluator, GoesOnBehindAFailedStatement) {
  EXPECT_EQ(evaluated("LOG(-1)"), failing(-1));
  EXPECT_EQ(evaluated("LOG(-1)+5"), failing(4));
  EXPECT_EQ(evaluated("2*(x/0)", "x", {3}), failing(6));
}

TEST(Evaluator, FailsWhereALaterStepWouldHideAnOverflow) {
  EXPECT_EQ(evaluated("P(1E155)"), failing(1e155));
  EXPECT_EQ(evaluated("C_T(1E155,5)"), failing(1e155));
  EXPECT_EQ(evaluated("D_N(1E200,0,1)"), failing(1e200));
  EXPECT_EQ(evaluated("AVG(1E308,1E308)"), failing(1e308));
}

TEST(Evaluator, GivesZeroForEmptyCode) {
  std::vector<double> none;
  EXPECT_EQ(evaluatedCode("", none), Evaluation{0});
}

TEST(Evaluator, FailsWhereALaterFunctionHasTooFewArguments) {
  EXPECT_EQ(evaluated("SUM(1,2)+D_N(1)"), failing(4));
  EXPECT_EQ(evaluated("SQR(4)+D_P(3)"), failing(5));
}

TEST(Evaluator, QUIRK_WorksWithTheArgumentsOfAnEarlierFunction) {
  // D_N(1) runs on the 2 and 3 of the sum.
  EXPECT_EQ(valueOf("SUM(1,2,3)+D_N(1)"), 6 + valueOf("D_N(1,2,3)"));
  // A list function looks only at the arguments that it was given.
  EXPECT_EQ(valueOf("SUM(1,2,3)+SUM(1)"), 7);
  EXPECT_EQ(valueOf("SUM(1,2,3)+AVG(4)"), 10);
}

TEST(Evaluator, KeepsArgumentsForOneRunOnly) {
  std::vector<double> slots(3);
  evaluatedCode({23, 3, 0, 1, 2}, slots);
  EXPECT_EQ(evaluatedCode({30, 1, 0}, slots).fault, Fault::kDomain);
}

TEST(Evaluator, IgnoresFurtherArgumentsOfAnElementaryFunction) {
  EXPECT_EQ(valueOf("SQR(4)+ABS(1-3)+SIN(0,2)"), 4);
}

TEST(Evaluator, WritesXBackForAnOpcodeOutsideTheTable) {
  for (const int opcode : {0, 6, 9, 42, 107, 110, 255}) {
    std::vector<double> slots{4, 5};
    const char byte = static_cast<char>(opcode);
    const std::string code = opcode < 10 ? std::string{byte, 1, 0} : std::string{byte, 1, 1};
    EXPECT_EQ(evaluatedCode(code, slots), Evaluation{5}) << opcode;
    EXPECT_EQ(slots, (std::vector<double>{4, 5}));
  }
}

TEST(Evaluator, NegatesByItsReservedOpcode) {
  std::vector<double> slots{4, 5};
  EXPECT_EQ(evaluatedCode({109, 1, 1}, slots), Evaluation{-5});
  EXPECT_EQ(slots[1], -5);
}

TEST(Evaluator, ReadsZerosBehindTheEndOfTheCode) {
  std::vector<double> slots{4, 5};
  EXPECT_EQ(evaluatedCode({4}, slots), Evaluation{8});
  slots = {4, 5};
  EXPECT_EQ(evaluatedCode({23, 3}, slots), Evaluation{12});
}

TEST(Evaluator, TouchesNoSlotThatIsNotThere) {
  std::vector<double> slots{4, 5};
  // X keeps what it held, 0 at first, and is stored nowhere.
  EXPECT_EQ(evaluatedCode({17, 1, 2}, slots), failing(0));
  EXPECT_EQ(evaluatedCode({4, 0, 1, 4, 9, 0}, slots), failing(18));
  EXPECT_EQ(slots, (std::vector<double>{9, 5}));
  // A right slot that is not there leaves Y, an argument that is not there is 0.
  slots = {4, 5};
  EXPECT_EQ(evaluatedCode({4, 0, 9}, slots), failing(4));
  EXPECT_EQ(evaluatedCode({23, 3, 0, 9, 1}, slots), failing(9));
  std::vector<double> none;
  EXPECT_EQ(evaluatedCode({23, 3, 0, 9, 1}, none), failing(0));
}

TEST(Evaluator, TakesCountsOfForeignCode) {
  std::vector<double> slots{4, 5};
  EXPECT_EQ(evaluatedCode({24, 0, 0}, slots), failing(4));  // a mean of none
  EXPECT_EQ(evaluatedCode({23, 0, 0}, slots), Evaluation{4});
  const std::string manyArguments = {23, static_cast<char>(0xFF), 1};
  EXPECT_EQ(evaluatedCode(manyArguments, slots), Evaluation{5 + 254 * 4});
}

TEST(LoadSlots, FollowsTheMapAndLeavesOutWhatIsNotThere) {
  CompiledExpression e;
  e.Values.dim(2);
  e.Values[1] = 10;
  e.Values[2] = 20;
  e.LastSlot = 3;
  e.Slots.dim(3);
  e.Slots[1] = 7;
  e.OperandMap = {2, 9, 1};
  loadSlots(e);
  EXPECT_EQ(e.Slots[0], 20);
  EXPECT_EQ(e.Slots[1], 7);
  EXPECT_EQ(e.Slots[2], 10);
  EXPECT_EQ(e.Slots[3], 0);
  CompiledExpression empty;
  loadSlots(empty);
  EXPECT_EQ(empty.Slots.upper(), -1);
}

}  // namespace
}  // namespace vk
