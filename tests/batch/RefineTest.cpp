#include <gmock/gmock.h>

#include <filesystem>

#include "batch/BatchRun.h"

namespace vk {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

std::string fitOf(const std::string& points, const std::string& words) {
  return "fit '" + temporaryFile("D.DAT", "t\r\ns\r\n" + points) + "' " + words;
}

std::string decayed(const std::string& words = "") {
  return fitOf(
      " 8\r\n0 10.2 .2\r\n1 7.1 .2\r\n2 4.9 .2\r\n3 3.9 .2\r\n4 2.7 .2\r\n5 2.4 .2\r\n6 2.1 .2\r\n7 1.6 "
      ".2\r\n",
      "--function 'A*EXP(-B*x)+C' --par A=8 --par B=.4 --par C=1 " + words);
}

std::string straight(const std::string& words) {
  return fitOf(" 5\r\n1 2.1 .1\r\n2 3.9 .1\r\n3 6.2 .1\r\n4 7.8 .1\r\n5 10.1 .1\r\n", words);
}

/// From here the fit leaves the range of numbers.
std::string farLine(const std::string& words = "") {
  return straight("--function 'a*x+b' --par a=2E200 --par b=1 " + words);
}

std::string lineWithXErrors(const std::string& words) {
  return fitOf(" 4 1\r\n1 2.1 .1 .2\r\n2 3.9 .1 .1\r\n3 6.2 .3 .1\r\n4 7.8 .1 .1\r\n",
               "--catalogue 1,3 --par a=.1 --par b=1 --par c=0 " + words);
}

// The lines of the parameters come from RefineTest.py.
TEST(BatchRefine, PrintsTheMinimumBelowTheUnchangedReport) {
  const BatchRun plain = batch(decayed()), refined = batch(decayed("--refine"));
  EXPECT_EQ(refined.exitCode, 0);
  EXPECT_EQ(refined.errors, "");
  ASSERT_THAT(refined.output, StartsWith(plain.output));
  EXPECT_EQ(refined.output.substr(plain.output.size()),
            R"(┌───────────────────────────────────────────────────┐
│              Minimo e Errori Lineari              │
├─────────────────────────┬─────────────────────────┤
│     Minimizzazione      │ µ                   5   │
│    Minimo Raggiunto     │ X²/µ       0.6161E+00   │
│                         │ Liv. Conf.  68.7567 %   │
└─────────────────────────┴─────────────────────────┘
┌─────┬──────────────┬──────────────┬───────────────┐
│ Par │    Valore    │    Errore    │ Err. Scalato  │
├─────┼──────────────┼──────────────┼───────────────┤
│  A  │ 0.889209E+01 │ 0.248781E+00 │ 0.195275E+00  │
│  B  │ 0.434566E+00 │ 0.333107E-01 │ 0.261465E-01  │
│  C  │ 0.130636E+01 │ 0.222465E+00 │ 0.174619E+00  │
├─────┼──────────────┴──────────────┴───────────────┤
│ Par │ Mat. Cor.%                                  │
├─────┼─────────────────────────────────────────────┤
│  A  │ _____ _____ _____                           │
│  B  │   -41 _____ _____                           │
│  C  │   -68    88 _____                           │
├─────┴─────────────────────────────────────────────┤
│ - Errore dell'adattamento inesatto: A             │
└───────────────────────────────────────────────────┘
)");
}

TEST(BatchRefine, MakesGoodAFitThatFails) {
  EXPECT_EQ(batch(farLine()).exitCode, 1);
  const BatchRun run = batch(farLine("--refine"));
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.errors,
            "Adattamento non riuscito: il residuo dell'ultimo punto NON e` calcolabile\n"
            "La seconda minimizzazione ha raggiunto il minimo\n");
  EXPECT_THAT(run.output, Not(HasSubstr("Adattamento")));
  EXPECT_THAT(run.output, HasSubstr("│  a  │ 0.199000E+01 │ 0.316228E-01 │ 0.597216E-01  │"));
}

TEST(BatchRefine, DrawsNoFigureOfAFitThatFails) {
  const std::string file = std::filesystem::path(temporaryFile("x", "")).parent_path() / "figure.gra";
  EXPECT_EQ(batch(farLine("--refine --save-gra '" + file + "'")).exitCode, 1);
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST(BatchRefine, FailsWhereTheMinimumIsNotReachedEither) {
  const BatchRun run = batch(straight("--function 'LOG(a)*x' --par a=-1 --refine"));
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.errors, "Adattamento non riuscito: il residuo dell'ultimo punto NON e` calcolabile\n");
  EXPECT_THAT(run.output, HasSubstr("Minimo e Errori Lineari"));
  EXPECT_THAT(run.output, HasSubstr("Punto 1."));
}

TEST(BatchRefine, TakesErrorsInXByTheVarianceOrTheDistance) {
  const BatchRun first = batch(lineWithXErrors("--refine"));
  EXPECT_EQ(first.exitCode, 0) << first.errors;
  EXPECT_THAT(first.output, HasSubstr("Varianza Efficace"));
  EXPECT_EQ(batch(lineWithXErrors("--refine --x-errors effective")).output, first.output);
  EXPECT_THAT(batch(lineWithXErrors("--refine --x-errors orthogonal")).output,
              HasSubstr("Distanza Ortogonale"));
}

TEST(BatchRefine, RefusesAChoiceForErrorsInXThatSaysNothing) {
  const BatchRun none = batch(decayed("--refine --x-errors effective"));
  EXPECT_EQ(none.exitCode, 2);
  EXPECT_EQ(none.errors, "--x-errors: i dati non hanno errori di x\n");
  EXPECT_EQ(none.output, "");
  const BatchRun word = batch(lineWithXErrors("--refine --x-errors ortogonale"));
  EXPECT_EQ(word.exitCode, 2);
  EXPECT_EQ(word.errors, "--x-errors: si attende effective o orthogonal\n");
  const BatchRun alone = batch(lineWithXErrors("--x-errors effective"));
  EXPECT_EQ(alone.exitCode, 2);
  EXPECT_THAT(alone.errors, StartsWith("--x-errors richiede --refine\n"));
}

TEST(BatchRefine, GivesTheMinimumInTheObject) {
  const BatchRun run = batch(decayed("--refine --json"));
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_THAT(run.output, HasSubstr("\"stop_reason\": \"converged\"\n  },\n"
                                    "  \"warnings\": [\n    \"fit_error_wrong\"\n  ]\n}\n"));
}

TEST(BatchRefine, DerivesQuantitiesFromTheMinimum) {
  const std::string derived = "--derive 'T=a' ";
  EXPECT_EQ(batch(farLine(derived)).output, "");
  const BatchRun run = batch(farLine(derived + "--refine"));
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_THAT(run.output, HasSubstr("│ T    │ 0.199000E+01 │ 0.316228E-01 │ 0.597216E-01 │ a       │"));
}

}  // namespace
}  // namespace vk
