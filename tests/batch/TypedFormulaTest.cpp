#include <gmock/gmock.h>

#include "batch/BatchRun.h"

namespace vk {
namespace {

using testing::HasSubstr;

/// What is said of a formula that is refused.
std::string refusal(const std::string& words) {
  const BatchRun run = batch(words);
  EXPECT_EQ(run.exitCode, 2) << words << run.output;
  EXPECT_EQ(run.output, "") << words;
  return run.errors;
}

std::string pairOfPoints() {
  return "'" + temporaryFile("D.DAT", "x\r\ny\r\n 3\r\n1 3 .1\r\n2 5 .1\r\n3 7 .1\r\n") + "' ";
}

TEST(TypedFormula, IsRefusedWhereItWouldPassInAnotherSense) {
  EXPECT_EQ(refusal("eval '2x' x=3"), "2x\n^ \"2x\" non e` un numero: forse 2*x\n");
  EXPECT_THAT(refusal("eval '2,5'"), HasSubstr("2,5\n ^ "));
  EXPECT_THAT(refusal("eval '1.5.2'"), HasSubstr("1.5.2\n^ "));
  EXPECT_THAT(refusal("eval '3A' A=1"), HasSubstr("3A\n^ "));
}

TEST(TypedFormula, IsRefusedByEveryCommand) {
  EXPECT_THAT(refusal("fit " + pairOfPoints() + "--function 'b*x+2c' --par b=1 --par c=1"),
              HasSubstr("b*x+2c\n    ^ "));
  EXPECT_THAT(refusal("fit " + pairOfPoints() + "--catalogue 1,2 --par b=1 --par c=1 --derive 'T=2b'"),
              HasSubstr("2b\n^ "));
  EXPECT_THAT(refusal("propagate --function '2a' --par a=1,.1"), HasSubstr("2a\n^ "));
  EXPECT_THAT(refusal("simulate --function '2a' --par a=1"), HasSubstr("2a\n^ "));
  EXPECT_THAT(refusal("transform " + pairOfPoints() + "--y '2y'"), HasSubstr("2y\n^ "));
}

TEST(TypedFormula, IsTakenAsItStandsWhereItMeansThat) {
  for (const char* formula : {"1E-3", "25E+1", "2*x", "SUM(1,2)", "D_N(x,0,1)", "( 2 * x )^(-1)"}) {
    EXPECT_EQ(batch("eval '" + std::string(formula) + "' x=3").exitCode, 0) << formula;
  }
}

}  // namespace
}  // namespace vk
