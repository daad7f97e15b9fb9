#include <filesystem>
#include <fstream>

#include "batch/BatchRun.h"
#include "doubles/Places.h"

namespace vk {
namespace {

/// A fit of a sample, and what its parameters truly are.
struct ExampleFit {
  const char* name;
  const char* words;
  std::vector<std::pair<const char*, double>> truth;
};

void PrintTo(const ExampleFit& fit, std::ostream* out) {
  *out << fit.name;
}

class Examples : public ::testing::TestWithParam<ExampleFit> {};

double numberBehind(const std::string& text, const std::string& key, std::size_t from) {
  return std::stod(text.substr(text.find(key, from) + key.size()));
}

TEST_P(Examples, FitFindsTheTruthWithinItsErrors) {
  const BatchRun run = batch(std::string(GetParam().words) + " --json");
  ASSERT_EQ(run.exitCode, 0) << run.errors;
  for (const auto& [name, truth] : GetParam().truth) {
    const auto at = run.output.find("\"name\": \"" + std::string(name) + "\"");
    ASSERT_NE(at, std::string::npos) << name;
    const double value = numberBehind(run.output, "\"value\": ", at);
    const double error = numberBehind(run.output, "\"error_linearised\": ", at);
    EXPECT_NEAR(value, truth, 3 * error) << name;
    EXPECT_GT(error, 0) << name;
  }
  EXPECT_GT(numberBehind(run.output, "\"confidence_percent\": ", 0), 1);
}

INSTANTIATE_TEST_SUITE_P(
    All, Examples,
    ::testing::Values(
        ExampleFit{
            "ohm", "fit examples/ohm.dat --catalogue 1,2 --par b=40 --par c=0", {{"b", 47}, {"c", 0.05}}},
        ExampleFit{
            "decay",
            "fit examples/decay.dat --file examples/lab.fcn --entry 1 --par A=400 --par k=0.2 --par b=5",
            {{"A", 520}, {"k", 0.31}, {"b", 24}}},
        ExampleFit{"resonance",
                   "fit examples/resonance.dat --catalogue 4,5 --par a=8 --par m=5 --par b=0.4",
                   {{"a", 9.2}, {"m", 5.03}, {"b", 0.34}}},
        ExampleFit{"pendulum",
                   "fit examples/pendulum.dat --catalogue 9,2 --par b=2.5 --par c=0.5 --par A=30 --par B=0.1",
                   {{"A", 31}, {"B", 0.16}, {"b", 2.4}, {"c", 0.5}}},
        ExampleFit{"thermocouple",
                   "fit examples/thermocouple.dat --catalogue 1,3 --par a=0.00001 --par b=0.04 --par c=0",
                   {{"a", 2.4e-5}, {"b", 0.0388}, {"c", 0.01}}}),
    [](const auto& fit) { return fit.param.name; });

TEST(ExampleFiles, AreWhatTheirGeneratorMakes) {
  const std::string folder = std::filesystem::path(temporaryFile("x", "")).parent_path().string();
  ASSERT_EQ(std::system(("'" + builtPath("examples/make_examples") + "' '" + folder + "'").c_str()), 0);
  for (const char* name : {"ohm.dat", "decay.dat", "resonance.dat", "pendulum.dat", "thermocouple.dat"}) {
    EXPECT_EQ(fileContent(folder + "/" + name), fileContent(sourcePath("examples/" + std::string(name))))
        << name;
  }
}

TEST(ExampleFiles, AllPassTheirCheck) {
  int checked = 0;
  for (const auto& entry : std::filesystem::directory_iterator(sourcePath("examples"))) {
    const std::string extension = entry.path().extension();
    if (extension != ".dat" && extension != ".fcn") continue;
    const BatchRun run = batch("check '" + entry.path().string() + "'");
    EXPECT_EQ(run.exitCode, 0) << entry.path() << run.output << run.errors;
    ++checked;
  }
  EXPECT_GE(checked, 6) << "five samples and a function file";
}

}  // namespace
}  // namespace vk
