#include <gmock/gmock.h>

#include <cmath>

#include "batch/BatchRun.h"
#include "doubles/TemporaryFolder.h"

namespace vk {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

/// A line by three points with errors of .1: its slope has the error .1/sqrt(2), the value in the middle .1/sqrt(3).
std::string lineFit(const std::string& dy = ".1") {
  const std::string points = " 3\r\n1 3 " + dy + "\r\n2 5 " + dy + "\r\n3 7.3 " + dy + "\r\n";
  return "fit '" + temporaryFile("LINE.DAT", "x\r\ny\r\n" + points) +
         "' --catalogue 1,2 --par b=1 --par c=0 ";
}

// ---- Intervals

TEST(BatchProfile, PrintsIntervalsUnderTheMinimum) {
  const std::string plain = batch(lineFit() + "--refine").output;
  const BatchRun run = batch(lineFit() + "--refine --profile");
  EXPECT_EQ(run.exitCode, 0);
  ASSERT_EQ(run.output.substr(0, plain.size()), plain);
  EXPECT_EQ(run.output.substr(plain.size()),
            R"(┌─────────────────────────────────────────────────────────────────┐
│           Intervalli di Confidenza dal Profilo di X²            │
├─────┬──────────────┬──────────────┬──────────────┬──────────────┤
│ Par │  68.27 % da  │      a       │   95 % da    │      a       │
├─────┼──────────────┼──────────────┼──────────────┼──────────────┤
│ b   │ 0.207929E+01 │ 0.222071E+01 │ 0.201141E+01 │ 0.228859E+01 │
│ c   │ 0.647247E+00 │ 0.952753E+00 │ 0.500611E+00 │ 0.109939E+01 │
└─────┴──────────────┴──────────────┴──────────────┴──────────────┘
)");
}

TEST(BatchProfile, LeavesOpenEndsBlankAndConstantParametersOut) {
  // EXP(a) goes to 0 as a falls, 1.5 errors from the mean of both points.
  const std::string points = " 2\r\n0 1.5 1.4142136\r\n1 1.5 1.4142136\r\n";
  const std::string fit = "fit '" + temporaryFile("OPEN.DAT", "x\r\ny\r\n" + points) +
                          "' --function 'EXP(a)+c*x' --par a=0 --fixed c=0 --refine --profile ";
  EXPECT_THAT(batch(fit).output,
              HasSubstr("│ a   │ -.693147E+00 │ 0.916291E+00 │ ___________  │ 0.124126E+01 │\n└"));
  EXPECT_THAT(batch(fit + "--json").output, HasSubstr("\"low\": null"));
}

TEST(BatchProfile, NeedsTheMinimum) {
  const BatchRun run = batch(lineFit() + "--profile");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_THAT(run.errors, HasSubstr("--profile richiede --refine"));
}

TEST(BatchProfile, HasNoIntervalsAboutValuesThatAreNoMinimum) {
  // The steeper the function, the better it leaves the middle point alone.
  const std::string file =
      temporaryFile("STEEP.DAT", "x\r\ny\r\n 3\r\n1 -2.707 .1\r\n2 1.343 .1\r\n3 -2.867 .1\r\n");
  const std::string fit = "fit '" + file + "' --function 'a*EXP(b*x)' --par a=1.5 --par b=1.08 --refine ";
  const BatchRun plain = batch(fit), profile = batch(fit + "--profile");
  EXPECT_THAT(plain.output, HasSubstr("Troppi Calcoli"));
  EXPECT_THAT(plain.output, HasSubstr("Mat. Cor.%"));
  EXPECT_EQ(profile.output, plain.output);
}

// ---- Bands

std::string savedFigure(const std::string& dy, const std::string& words) {
  const std::string file = temporaryFile("BAND.GRA", "");
  const BatchRun run = batch(lineFit(dy) + "--save-gra '" + file + "' " + words);
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  return fileContent(file);
}

/// Where the first line of a band begins.
double firstY(const std::string& figure) {
  const auto at = figure.find(", ", figure.find("\\LINEA("));
  return std::stod(figure.substr(at + 2));
}

TEST(BatchBand, StandsInTheGraphicFileWhereItIsAskedFor) {
  EXPECT_THAT(savedFigure(".1", ""), Not(HasSubstr("Banda")));
  const std::string figure = savedFigure(".1", "--band 68");
  EXPECT_THAT(figure, HasSubstr("%Disegna la Banda di Confidenza\r\n\\TIPO_LINEA(1,1)\r\n\\LINEA(1, "));
  EXPECT_THAT(figure, Not(HasSubstr("Previsione")));
  EXPECT_THAT(savedFigure(".1", "--band 68 --prediction"), HasSubstr("%Disegna la Banda di Previsione\r\n"));
}

TEST(BatchBand, IsAsWideAsTheErrorOfTheFunctionSays) {
  // At the first point the line has the error .1 sqrt(1/3 + 1/2).
  const double error = 0.1 * std::sqrt(1.0 / 3 + 1.0 / 2);
  EXPECT_NEAR(firstY(savedFigure(".1", "--band 68")), 2.95 - error, 1E-5);
  EXPECT_NEAR(firstY(savedFigure(".1", "--band 95")), 2.95 - 1.959964 * error, 1E-6);
  EXPECT_NEAR(firstY(savedFigure(".1", "--band 95 --refine")), 2.95 - 1.959964 * error, 1E-6);
}

TEST(BatchBand, OfInventedErrorsIsTheScattersByStudent) {
  // Differences .05, -.1, .05, and one degree of freedom: t is 12.7062 at 95 per cent.
  const double error = std::sqrt(0.015) * std::sqrt(1.0 / 3 + 1.0 / 2);
  EXPECT_NEAR(firstY(savedFigure("1", "--band 95")), 2.95 - 12.7062 * error, 1E-4);
}

TEST(BatchBand, OfInventedErrorsWithoutAScatterIsThatOfTheErrors) {
  const std::string file = temporaryFile("BAND.GRA", ""), data = "x\r\ny\r\n 2\r\n1 3 1\r\n2 5 1\r\n";
  const BatchRun run = batch("fit '" + temporaryFile("TWO.DAT", data) +
                             "' --catalogue 1,2 --par b=1 --par c=0 --band 68 --save-gra '" + file + "'");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_NEAR(firstY(fileContent(file)), 3 - 1, 1E-4);
}

TEST(BatchBand, NeedsAFigureAndAPercentage) {
  const BatchRun alone = batch(lineFit() + "--band 68");
  EXPECT_EQ(alone.exitCode, 2);
  EXPECT_THAT(alone.errors, EndsWith("--band: serve --figure, --save-gra o --show\n"));
  const BatchRun other = batch(lineFit() + "--band 90 --save-gra /tmp/BAND.GRA");
  EXPECT_EQ(other.exitCode, 2);
  EXPECT_THAT(other.errors, EndsWith("--band: si attende 68 o 95\n"));
  const BatchRun bare = batch(lineFit() + "--prediction --save-gra /tmp/BAND.GRA");
  EXPECT_EQ(bare.exitCode, 2);
  EXPECT_THAT(bare.errors, HasSubstr("--prediction richiede --band"));
}

TEST(BatchBand, IsMissedWhereThereAreNoErrors) {
  // A function that trembles has no derivatives; the figure is drawn without the band.
  const std::string points = " 3\r\n1 3 .1\r\n2 5 .1\r\n3 7.3 .1\r\n";
  const std::string file = temporaryFile("BAND.GRA", "");
  const BatchRun run = batch(
      "fit '" + temporaryFile("LINE.DAT", "x\r\ny\r\n" + points) +
      "' --function 'b*x+c+1E-2*SIN(1E12*c)' --par b=1 --par c=0.5 --band 68 --save-gra '" + file + "'");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_THAT(run.errors, EndsWith("fit: la banda di confidenza NON si puo` calcolare\n"));
  EXPECT_THAT(fileContent(file), testing::AllOf(HasSubstr("\\FUNZIONE("), Not(HasSubstr("Banda"))));
}

}  // namespace
}  // namespace vk
