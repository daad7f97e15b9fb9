#include <gmock/gmock.h>

#include <cmath>
#include <nlohmann/json.hpp>

#include "batch/BatchRun.h"

namespace vk {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

/// A decay A*EXP(-k*x)+c with a constant background. The errors of A and k grow together.
std::string resultFile(const std::string& name = "R.JSON") {
  return temporaryFile(name, R"({"parameters": [
  {"name": "A", "value": 514.13, "error_linearised": 14.2099, "free": true},
  {"name": "c", "value": 1, "error_linearised": null, "free": false},
  {"name": "k", "value": 0.309163, "error_linearised": 0.00854487, "free": true}],
 "correlation_linearised": [[1, 0.5644], [0.5644, 1]]})");
}

std::string fromFit(const std::string& words) {
  return "propagate --from-fit '" + resultFile() + "' --seed 1 " + words;
}

TEST(BatchFromFit, TheErrorOfARatioTakesItsCorrelation) {
  const BatchRun run = batch(fromFit("--function 'A/k'"));
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_EQ(run.errors, "");
  EXPECT_THAT(run.output, StartsWith(R"(┌────────────────────────────────────────────┐
│                 y = A/k                    │
├────────────────────────────────────────────┤
│ x = 0.000000E+00   δx = 0.000E+00 σ        │
│ A = 0.514130E+03   δA = 0.142E+02 σ        │
│ k = 0.309163E+00   δk = 0.854E-02 σ        │
├─Espressioni Analitiche─────────────────────┤
│ y = 0.166297E+04   δy = 0.129E+03 Err. Max.│
│                    δy'= 0.429E+02 σ(y)     │
├─Simulazione di Monte Carlo─────────────────┤
)"));
  EXPECT_THAT(run.output, HasSubstr("┘\nParametri con errori correlati da " + resultFile() + "\n"));
  const BatchRun independent =
      batch("propagate --function 'A/k' --par A=514.13,14.2099 --par k=0.309163,0.00854487 --seed 1");
  EXPECT_THAT(independent.output, HasSubstr("δy'= 0.650E+02 σ(y)"));
  EXPECT_THAT(independent.output, Not(HasSubstr("correlati")));
}

TEST(BatchFromFit, OneParameterIsAsOneThatIsTyped) {
  const BatchRun run = batch(fromFit("--function 'LOG(2)/k' --json"));
  const BatchRun typed = batch("propagate --function 'LOG(2)/k' --par k=0.309163,0.00854487 --seed 1 --json");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  const std::size_t same = typed.output.rfind("\n}");
  EXPECT_EQ(run.output, typed.output.substr(0, same) + ",\n  \"fit_file\": \"" + resultFile() + "\"\n}\n");
}

TEST(BatchFromFit, AFitGoesOnToItsQuantities) {
  for (const char* option : {"", " --refine"}) {
    const std::string fit =
        batch(
            "fit examples/decay.dat --file examples/lab.fcn --entry 1 --par A=400 --par k=0.2 --par b=5 "
            "--derive 'ratio=A/k' --json" +
            std::string(option))
            .output;
    const BatchRun run = batch("propagate --from-fit '" + temporaryFile("FIT.JSON", fit) +
                               "' --function 'A/k' --seed 1 --json");
    ASSERT_EQ(run.exitCode, 0) << run.errors;
    const auto derived = nlohmann::json::parse(fit)["derived"][0];
    const auto found = nlohmann::json::parse(run.output);
    const double error = derived["error"];
    EXPECT_DOUBLE_EQ(found["value"], derived["value"]) << option;
    EXPECT_NEAR(found["error_sigma"].get<double>() / error, 1, 1E-5) << option;
    // Four deviations of the spread, and a hundredth for what is not linear.
    EXPECT_NEAR(found["samples"]["spread"].get<double>() / error, 1, 4 / std::sqrt(2E4) + 0.01) << option;
  }
}

TEST(BatchFromFit, FarFromTheOriginHugeErrorsLeaveTheSameSmallOne) {
  std::string points = "t\r\ns\r\n 5\r\n";
  for (const char* point : {"1001 3.1 .1", "1002 2.2 .1", "1003 2.1 .1", "1004 3.0 .1", "1005 5.2 .1"})
    points += std::string(point) + "\r\n";
  const std::string data = temporaryFile("FAR.DAT", points);
  const auto deviation = [&](const std::string& model, const std::string& quantity) {
    const std::string fit = batch("fit '" + data + "' " + model + " --refine --json").output;
    const BatchRun run = batch("propagate --from-fit '" + temporaryFile("FIT.JSON", fit) + "' --function '" +
                               quantity + "' --seed 1 --json");
    return nlohmann::json::parse(run.output)["error_sigma"].get<double>();
  };
  const double near =
      deviation("--function 'a*(x-1003)^2+b*(x-1003)+c' --par a=1 --par b=1 --par c=1", "a*2.25+b*1.5+c");
  const double far = deviation("--function 'a*x*x+b*x+c' --par a=1 --par b=-2000 --par c=1000000",
                               "a*1004.5*1004.5+b*1004.5+c");
  EXPECT_NEAR(far / near, 1, 1E-3);
}

TEST(BatchFromFit, OtherVariablesAreIndependent) {
  const BatchRun run = batch(fromFit("--function 'A*EXP(-k*x)*f+c' --par f=1,-.1 --par x=2,.01"));
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  for (const char* line :
       {"│ x = 0.200000E+01   δx = 0.100E-01 σ        │", "│ c = 0.100000E+01   δc = 0.000E+00 σ        │",
        "│ f = 0.100000E+01   δf = 0.100E+00 Err. Max.│"}) {
    EXPECT_THAT(run.output, HasSubstr(line));
  }
}

TEST(BatchFromFit, AModelOfTheCatalogueTakesItsParametersByName) {
  const BatchRun run = batch(fromFit("--catalogue 1,2 --par b=3,.5 --par x=2 --json"));
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_THAT(run.output, AllOf(HasSubstr("\"value\": 7"), Not(HasSubstr("\"A\""))));
}

TEST(BatchFromFit, AMissingOrDoubledParameterIsBadInput) {
  const BatchRun twice = batch(fromFit("--function 'A/k' --par k=1,.1"));
  EXPECT_EQ(twice.exitCode, 2);
  EXPECT_EQ(twice.errors, "k: valore dato piu` di una volta\n");
  const BatchRun none = batch(fromFit("--function 'A/q'"));
  EXPECT_EQ(none.exitCode, 2);
  EXPECT_EQ(none.errors, "A/q\n  ^ \"q\" non e` definita\n");
  const BatchRun missing = batch(fromFit("--catalogue 1,2"));
  EXPECT_EQ(missing.exitCode, 2);
  EXPECT_EQ(missing.errors, "Manca il valore del parametro b\n");
  const BatchRun other = batch(fromFit("--catalogue 1,1 --par q=2"));
  EXPECT_EQ(other.exitCode, 2);
  EXPECT_EQ(other.errors, "La funzione non ha il parametro q\n");
}

TEST(BatchFromFit, ANameOfTwoFittedParametersCannotBeTaken) {
  const std::string file = temporaryFile("TWICE.JSON", R"({"parameters": [
  {"name": "A", "value": 2, "error_linearised": 1, "free": true},
  {"name": "k", "value": 3, "error_linearised": 0.1, "free": true},
  {"name": "A", "value": 4, "error_linearised": 1, "free": true}],
 "correlation_linearised": [[1, 0, 0], [0, 1, 0], [0, 0, 1]]})");
  const BatchRun run = batch("propagate --from-fit '" + file + "' --function 'A/k'");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors, file + ": piu` di un parametro ha il nome A\n");
  EXPECT_EQ(batch("propagate --from-fit '" + file + "' --function '1/k'").exitCode, 0);
}

TEST(BatchFromFit, ABadFileIsBadInput) {
  const BatchRun missing = batch("propagate --from-fit /nowhere.json --function 'A/k'");
  EXPECT_EQ(missing.exitCode, 2);
  EXPECT_EQ(missing.errors, "/nowhere.json: Impossibile trovare il file\n");
  const BatchRun folder = batch("propagate --from-fit examples --function 'A/k'");
  EXPECT_EQ(folder.exitCode, 2);
  const BatchRun data = batch("propagate --from-fit examples/ohm.dat --function 'A/k'");
  EXPECT_EQ(data.exitCode, 2);
  EXPECT_EQ(data.errors, "examples/ohm.dat: JSON errato al byte 1\n");
  EXPECT_EQ(data.output, "");
}

TEST(BatchFromFit, ValuesThatAreNoMinimumAreToldAndTaken) {
  const std::string file = temporaryFile("STOPPED.JSON", R"({"refined": {"parameters": [
  {"name": "k", "value": 2, "error": 1, "free": true}], "correlation": [[1]], "stop_reason": "no_progress"}})");
  const BatchRun run = batch("propagate --from-fit '" + file + "' --function 'k' --seed 1");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.errors, file + ": valori che NON sono di un minimo\n");
}

}  // namespace
}  // namespace vk
