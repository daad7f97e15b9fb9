#include "numeric/NistProblem.h"

#include <cmath>
#include <stdexcept>

#include "doubles/Places.h"
#include "doubles/Tolerances.h"
#include "platform/system/SystemFiles.h"

namespace vk {
namespace {

using testing::ElementsAre;

std::string published(const std::string& name) {
  SystemFiles files;
  return files.readAll(sourcePath("tests/numeric/nist/" + name + ".dat"));
}

/// The text with one change; it must hold what is to be changed.
std::string changed(std::string text, const std::string& from, const std::string& to) {
  return text.replace(text.find(from), from.size(), to);
}

std::string faultOf(const std::string& text) {
  try {
    parseNist(text);
  } catch (const std::runtime_error& fault) {
    return fault.what();
  }
  return "";
}

TEST(NistProblem, HasWhatItsFileTells) {
  const NistProblem problem = parseNist(published("DanWood"));
  EXPECT_EQ(problem.name, "DanWood");
  EXPECT_EQ(problem.names(), "b1,b2");
  EXPECT_THAT(problem.starts[0], ElementsAre(1, 5));
  EXPECT_THAT(problem.starts[1], ElementsAre(0.7, 4));
  EXPECT_THAT(problem.certified, ElementsAre(7.6886226176E-01, 3.8604055871E+00));
  EXPECT_THAT(problem.deviations, ElementsAre(1.8281973860E-02, 5.1726610913E-02));
  EXPECT_EQ(problem.sumOfSquares, 4.3173084083E-03);
  EXPECT_EQ(problem.residualDeviation, 3.2853114039E-02);
  EXPECT_EQ(problem.degreesOfFreedom, 4);
  EXPECT_THAT(problem.y, ElementsAre(2.138, 3.421, 3.597, 4.340, 4.882, 5.660));
  EXPECT_THAT(problem.x, ElementsAre(1.309, 1.471, 1.490, 1.565, 1.611, 1.680));
}

TEST(NistProblem, HasForEachFormulaAFileThatAgreesWithItself) {
  EXPECT_EQ(nistFormulas().size(), 26U);
  for (const NistFormula& formula : nistFormulas()) {
    const NistProblem problem = parseNist(published(formula.problem));
    EXPECT_EQ(problem.name, formula.problem);
    const double deviation = std::sqrt(problem.sumOfSquares / problem.degreesOfFreedom);
    EXPECT_NEAR(problem.residualDeviation / deviation, 1, kDerived) << problem.name;
  }
}

TEST(NistProblem, CorrectsMisprints) {
  EXPECT_EQ(parseNist(published("Roszman1")).certified[0], 2.0196866396E-01);
  EXPECT_EQ(parseNist(published("Rat43")).degreesOfFreedom, 11);
}

TEST(NistProblem, JudgesValuesByTheOneThatIsFarthestOff) {
  NistProblem problem;
  problem.certified = {100, -2};
  problem.deviations = {10, 0.01};
  EXPECT_NEAR(problem.digits(std::vector{100.1, -2.0}), 3, kIterated);
  EXPECT_NEAR(problem.digits(std::vector{100.0, -2.2}), 1, kIterated);
  EXPECT_EQ(problem.digits(problem.certified), 11);
  EXPECT_EQ(problem.digits(std::vector{1E30, -2.0}), 0);
  EXPECT_EQ(problem.digits(std::vector{std::nan(""), -2.0}), 0);
  EXPECT_NEAR(problem.deviationsOff(std::vector{101.0, -2.0}), 0.1, kIterated);
  EXPECT_NEAR(problem.deviationsOff(std::vector{100.0, -2.03}), 3, kIterated);
  EXPECT_FALSE(std::isfinite(problem.deviationsOff(std::vector{100.0, std::nan("")})));
}

TEST(NistProblem, TellsWhatIsWrongWithAFile) {
  const std::string good = published("DanWood");
  EXPECT_EQ(faultOf(good), "");
  EXPECT_EQ(faultOf(""), "problem without a name, line 0: there is no line Dataset Name:");
  EXPECT_EQ(faultOf(changed(good, "DanWood           (DanWood.dat)", "")),
            "problem without a name, line 2: a name was expected");
  EXPECT_EQ(faultOf(changed(good, "b1 =   1  ", "c =")), "DanWood, line 41: a parameter was expected");
  EXPECT_EQ(faultOf(changed(good, "b2 =   5", "b2 =")), "DanWood, line 42: 4 numbers were expected");
  EXPECT_EQ(faultOf(changed(good, "4.3173084083E-03", "4.3173084083F-03")),
            "DanWood, line 44: 4.3173084083F-03 is no number");
  EXPECT_EQ(faultOf(changed(good, "Degrees", "Grade")),
            "DanWood, line 66: there is no line Degrees of Freedom:");
  EXPECT_EQ(faultOf(changed(good, "Freedom:                                4",
                            "Freedom:                                5")),
            "DanWood, line 46: not 4");
  EXPECT_EQ(faultOf(changed(good, "Number of Observations:                            6",
                            "Number of Observations:                            7")),
            "DanWood, line 47: not 6");
  EXPECT_EQ(faultOf(good + "1.5 2 3"), "DanWood, line 67: 2 numbers were expected");
}

}  // namespace
}  // namespace vk
