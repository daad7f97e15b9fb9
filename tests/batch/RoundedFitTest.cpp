#include <gmock/gmock.h>

#include <filesystem>

#include "batch/BatchRun.h"

namespace vk {
namespace {

using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;

std::string straightFit(const std::string& words) {
  return "fit '" +
         temporaryFile("A_1.DAT",
                       "t\r\ns\r\n 5\r\n1 3.1 .1\r\n2 5.0 .1\r\n3 6.9 .1\r\n4 9.1 .1\r\n5 11.0 .1\r\n") +
         "' --function 'b_1*x+c' " + words;
}

TEST(BatchRounded, PrintsValuesAndErrorsRoundedTogether) {
  const BatchRun run = batch(straightFit("--par b_1=1 --par c=0 --derive 'T=1E4*b_1' --rounded"));
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.errors, "");
  EXPECT_EQ(run.output,
            "b_1 = 1.990 +- 0.032 = 1.990(32)\n"
            "c = 1.05 +- 0.10 = 1.05(10)\n"
            "T = (1.990 +- 0.032)E4 = 1.990(32)E4\n");
}

TEST(BatchRounded, SaysWhichParametersAreConstant) {
  EXPECT_EQ(batch(straightFit("--par b_1=1 --fixed c=1 --rounded")).output,
            "b_1 = 2.004 +- 0.013 = 2.004(13)\nc = 1 costante\n");
}

TEST(BatchRounded, TakesTheMinimumWhereTheFitFails) {
  const BatchRun run = batch(straightFit("--par b_1=2E200 --par c=1 --rounded --refine"));
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.output, "b_1 = 1.990 +- 0.032 = 1.990(32)\nc = 1.05 +- 0.10 = 1.05(10)\n");
  const BatchRun alone = batch(straightFit("--par b_1=2E200 --par c=1 --rounded"));
  EXPECT_EQ(alone.exitCode, 1);
  EXPECT_EQ(alone.output, "");
}

TEST(BatchRounded, LeavesOutWhatIsNotKnown) {
  // Of a product only the product is known; what the function trembles about has no derivative.
  const std::string product = straightFit("--par b_1=1 --par c=2 --refine --rounded");
  const BatchRun unknown = batch(std::string(product).replace(product.find("b_1*x+c"), 7, "b_1*c*x"));
  EXPECT_EQ(unknown.exitCode, 0);
  EXPECT_THAT(unknown.output, MatchesRegex("b_1 = 0\\.980[0-9]+ = 9\\.80[0-9]+E-1\nc = 2\\.32[0-9]+\n"));
  const BatchRun missing = batch(straightFit("--par b_1=1 --fixed c=1 --derive 'Q=1/(c-1)' --rounded"));
  EXPECT_EQ(missing.exitCode, 1);
  EXPECT_EQ(missing.output, "b_1 = 2.004 +- 0.013 = 2.004(13)\nc = 1 costante\n");
}

TEST(BatchLatex, HasNoCorrelationsWhereTheyAreNotKnownAndNoTableOfAFitThatFailed) {
  const std::string fit = straightFit("--par b_1=1 --par c=0.5 --latex");
  const auto of = [&](const char* function) {
    return batch(std::string(fit).replace(fit.find("b_1*x+c"), 7, function));
  };
  EXPECT_THAT(of("b_1*x+c+1E-2*SIN(1E12*c)").output,
              ContainsRegex("b\\\\_1 & \\\\num\\{1\\.98[0-9]+\\} & & "));
  const BatchRun failed = of("b_1*x+c-c");
  EXPECT_EQ(failed.exitCode, 1);
  EXPECT_EQ(failed.output, "");
}

TEST(BatchLatex, PrintsATableOfValuesAndCorrelations) {
  const BatchRun run = batch(straightFit("--par b_1=1 --par c=0 --latex"));
  EXPECT_EQ(run.exitCode, 0);
  const std::string file = temporaryFile("A_1.DAT", "");
  EXPECT_EQ(run.output, "% \\usepackage{siunitx}\n% " + file + R"(
\begin{tabular}{lrrr}
\hline
Parametro & Valore & b\_1 & c \\
\hline
b\_1 & \num{1.990(32)} & \num{1.00} & \\
c & \num{1.05(10)} & \num{-0.90} & \num{1.00} \\
\hline
$\chi^2/\nu$ & \num{2.7}/3 \\
\hline
\end{tabular}
)");
}

TEST(BatchLatex, GivesATableForEachFile) {
  const std::string one = batch(straightFit("--par b_1=1 --par c=0 --latex")).output;
  const std::string same = std::filesystem::path(temporaryFile("x", "")).parent_path() / "A_1.DAT";
  EXPECT_EQ(batch(straightFit("--par b_1=1 --par c=0 --latex '" + same + "'")).output, one + one);
  EXPECT_EQ(batch(straightFit("--par b_1=1 --par c=0 --latex /none/none.dat")).output, one);
}

TEST(BatchLatex, SetsEverySignOfANameAsItIs) {
  EXPECT_THAT(batch(straightFit("--par b_1=1 --par c=0 --derive 'T^2\\~%=2*c' --latex")).output,
              HasSubstr(R"(T\^{}2\textbackslash{}\~{}\% & \num{2.10(21)})"));
}

TEST(BatchLatex, IsOneFormOfSeveral) {
  EXPECT_THAT(batch(straightFit("--par b_1=1 --par c=0 --latex --csv")).errors, HasSubstr("esclude"));
}

}  // namespace
}  // namespace vk
