#include <algorithm>
#include <filesystem>

#include "batch/BatchRun.h"
#include "doubles/Places.h"
#include "doubles/TemporaryFolder.h"

namespace vk {
namespace {

namespace fs = std::filesystem;

/// A fit of a sample, and what its parameters truly are.
struct ExampleFit {
  const char* name;
  const char* folder;  ///< in examples/
  const char* words;   ///< of the command in that folder
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
  const BatchRun run =
      shell("cd examples/" + std::string(GetParam().folder) + " && VOR fit " + GetParam().words + " --json");
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
    Samples, Examples,
    ::testing::Values(
        ExampleFit{"ohm", ".", "ohm.dat --catalogue 1,2 --par b=40 --par c=0", {{"b", 47}, {"c", 0.05}}},
        ExampleFit{"decay",
                   ".",
                   "decay.dat --file lab.fcn --entry 1 --par A=400 --par k=0.2 --par b=5",
                   {{"A", 520}, {"k", 0.31}, {"b", 24}}},
        ExampleFit{"resonance",
                   ".",
                   "resonance.dat --catalogue 4,5 --par a=8 --par m=5 --par b=0.4",
                   {{"a", 9.2}, {"m", 5.03}, {"b", 0.34}}},
        ExampleFit{"pendulum",
                   ".",
                   "pendulum.dat --catalogue 9,2 --par b=2.5 --par c=0.5 --par A=30 --par B=0.1",
                   {{"A", 31}, {"B", 0.16}, {"b", 2.4}, {"c", 0.5}}},
        ExampleFit{"thermocouple",
                   ".",
                   "thermocouple.dat --catalogue 1,3 --par a=0.00001 --par b=0.04 --par c=0",
                   {{"a", 2.4e-5}, {"b", 0.0388}, {"c", 0.01}}}),
    [](const auto& fit) { return fit.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Laboratory, Examples,
    ::testing::Values(
        ExampleFit{"pendulum",
                   "laboratorio/01-pendolo",
                   "pendolo.dat --catalogue 4,2 --par b=4 --par c=0.1",
                   {{"b", 39.478418 / 9.806}, {"c", 0.02 * 39.478418 / 9.806}}},
        ExampleFit{"spring",
                   "laboratorio/02-molla",
                   "molla.dat --catalogue 1,2 --par b=0.1 --par c=15",
                   {{"b", 0.9806 / 8}, {"c", 15.2}}},
        ExampleFit{"fall",
                   "laboratorio/03-caduta",
                   "caduta.dat --catalogue 1,3 --par a=5 --par b=0.5 --par c=0.01",
                   {{"a", 4.903}, {"b", 0.42}, {"c", 0.013}}},
        ExampleFit{"capacitor",
                   "laboratorio/04-condensatore",
                   "condensatore.dat --catalogue 7,2 --par b=-0.1 --fixed c=0 --par A=10",
                   {{"b", -1 / 10.8}, {"A", 9.8}}},
        ExampleFit{"diode",
                   "laboratorio/05-diodo",
                   "diodo.dat --file diodo.fcn --entry 1 --par I0=1 --par n=1.8",
                   {{"I0", 3}, {"n", 1.8}}},
        ExampleFit{"resonance",
                   "laboratorio/06-risonanza",
                   "risonanza.dat --file risonanza.fcn --entry 1 --par A=1.8 --par f0=16 --par Q=9",
                   {{"A", 1.79}, {"f0", 15.93}, {"Q", 8.9}}},
        ExampleFit{"decay",
                   "laboratorio/07-decadimento",
                   "decadimento.dat --file decadimento.fcn --entry 1 --par A=800 --par k=0.005 --fixed b=6.2",
                   {{"A", 800}, {"k", 0.693147 / 153.1}}},
        ExampleFit{"absorption",
                   "laboratorio/08-assorbimento",
                   "corretto.dat --file assorbimento.fcn --entry 1 --par N0=10000 --par m=1 --fixed b=139.8",
                   {{"N0", 12000}, {"m", 1.25}}},
        ExampleFit{"lens",
                   "laboratorio/09-lente",
                   "lente.dat --catalogue 5,2 --par b=0.01 --fixed c=-1 --fixed A=0",
                   {{"b", 1 / 101.2}}},
        ExampleFit{"calibration",
                   "laboratorio/10-taratura",
                   "taratura.dat --catalogue 1,2 --par b=0.05 --par c=0.2",
                   {{"b", 0.0452}, {"c", 0.21}}},
        ExampleFit{"peaks",
                   "laboratorio/11-due-picchi",
                   "due-picchi.dat --file due-picchi.fcn --entry 2 --par N1=12000 --par E1=5.9 --par N2=1000 "
                   "--par E2=6.5 --par s=0.2 --par b=10",
                   {{"N1", 12000}, {"E1", 5.895}, {"N2", 1650}, {"E2", 6.49}, {"s", 0.2}, {"b", 12}}},
        ExampleFit{"cooling",
                   "laboratorio/12-raffreddamento",
                   "raffreddamento.dat --file raffreddamento.fcn --entry 2 --fixed T=21.5 --par D=60 --par "
                   "k=0.01",
                   {{"D", 60}, {"k", 0.014}}}),
    [](const auto& fit) { return fit.param.name; });

TEST(ExampleFiles, AreWhatTheirGeneratorMakes) {
  const std::string folder = fs::path(temporaryFile("x", "")).parent_path().string();
  ASSERT_EQ(std::system(("'" + builtPath("examples/make_examples") + "' '" + folder + "'").c_str()), 0);
  for (const char* name : {"ohm.dat", "decay.dat", "resonance.dat", "pendulum.dat", "thermocouple.dat"}) {
    EXPECT_EQ(fileContent(folder + "/" + name), fileContent(sourcePath("examples/" + std::string(name))))
        << name;
  }
}

TEST(ExampleFiles, OfTheLaboratoryAreWhatTheirGeneratorMakes) {
  const fs::path folder = freshPath("laboratory");
  ASSERT_EQ(
      std::system(("'" + builtPath("examples/make_laboratory") + "' '" + folder.string() + "'").c_str()), 0);
  int compared = 0;
  for (const auto& made : fs::recursive_directory_iterator(folder)) {
    if (!made.is_regular_file()) continue;
    const fs::path kept = sourcePath("examples/laboratorio") / fs::relative(made.path(), folder);
    EXPECT_EQ(fileContent(made.path()), fileContent(kept)) << kept;
    ++compared;
  }
  EXPECT_EQ(compared, 12);
}

TEST(ExampleFiles, AllPassTheirCheck) {
  const BatchRun run =
      shell("shopt -s globstar; for f in examples/**/*.{dat,fcn}; do VOR check $f || exit; done");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.errors, "");
  EXPECT_GE(std::ranges::count(run.output, '\n'), 30) << "samples, those of the laboratory, and functions";
}

}  // namespace
}  // namespace vk
