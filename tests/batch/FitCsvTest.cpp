#include "batch/FitCsv.h"

#include <gmock/gmock.h>

#include <limits>

#include "tests/analysis/FormulaModel.h"

namespace vk {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

TEST(FitCsv, SetsTextsOnOneLineAndQuotesThoseThatNeedIt) {
  const auto line = [](const std::string& reason) { return csvLine("A.DAT", {}, "refused", reason); };
  EXPECT_THAT(line("\n una\t\n riga "), EndsWith(",una riga "));
  EXPECT_THAT(line("a, \"b\""), EndsWith(",\"a, \"\"b\"\"\""));
  EXPECT_THAT(line(""), StartsWith("A.DAT,refused,,"));
}

TEST(FitCsv, LeavesTheCellOfANumberThatIsNoneEmpty) {
  FitFindings findings;
  findings.result.chi_square = std::numeric_limits<double>::infinity();
  findings.result.confidence_percent = 50;
  EXPECT_THAT(csvHeader(findings),
              EndsWith(",chi_square,degrees_of_freedom,reduced_chi_square,confidence_percent,reason"));
  EXPECT_THAT(csvLine("A.DAT", findings), EndsWith(",,0,,50,"));
}

TEST(FitCsv, TellsValuesWhereAFitHasBegunWithOnePointEven) {
  FitFindings findings;
  findings.start = findings.result.par = parametersOf({"a"});
  findings.result.par.ParValues[1] = 2.5;
  EXPECT_THAT(csvLine("A.DAT", findings), Not(HasSubstr(",2.5,")));
  findings.result.M = 1;
  EXPECT_THAT(csvLine("A.DAT", findings), HasSubstr(",2.5,"));
}

}  // namespace
}  // namespace vk
