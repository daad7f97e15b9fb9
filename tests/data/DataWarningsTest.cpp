#include "data/DataWarnings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/DataFiles.h"

namespace vk {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

std::vector<std::string> warningsOf(const std::string& points, const char* count = "3") {
  const DataReading reading = parseLines(std::string("x\ny\n") + count + "\n" + points);
  EXPECT_EQ(reading.errors, "");
  return dataWarnings(reading);
}

TEST(DataWarnings, OrdinaryPointsHaveNone) {
  EXPECT_THAT(warningsOf("1 2 .1\n2 -3 .1\n3 4 .2\n"), IsEmpty());
  // Errors of points near 0, and errors that were only supposed.
  EXPECT_THAT(warningsOf("1 .01 .5\n2 -.02 .4\n3 .03 .5\n"), IsEmpty());
  EXPECT_THAT(warningsOf("1 .01 1\n2 .02 1\n3 .03 1\n"), IsEmpty());
  // Errors of x in a small unit beside y in a large one.
  EXPECT_THAT(warningsOf("100 .1 5 .01\n200 .2 6 .01\n300 .3 7 .01\n", "3 1"), IsEmpty());
}

TEST(DataWarnings, TitlesThatSeemToBePointsAreSeen) {
  const auto warnings = [](const char* text) { return dataWarnings(parseLines(text)); };
  EXPECT_THAT(warnings("1 2 .1 .1\n2 3\t.1 .1\n3 4 .1 .1\n4 5 .1 .1\n5 6 .1 .1\n"),
              ElementsAre("i titoli sembrano punti; senza le tre linee iniziali: import --header 0"));
  EXPECT_THAT(warnings("1 2 .1\n2 3 .1\n2\n4 5 .1\n5 6 .1\n"), SizeIs(1));
  EXPECT_THAT(warnings("1 2 .1 .1\ny\n2 1\n4 5 .1 .1\n5 6 .1 .1\n"), IsEmpty());
  EXPECT_THAT(warnings("1\n2\n2\n4 5 .1\n5 6 .1\n"), IsEmpty());
  EXPECT_THAT(warnings("1 2 3 4 5\n2 3 4 5 6\n2 1\n4 5 .1 .1\n5 6 .1 .1\n"), IsEmpty());
}

TEST(DataWarnings, AnotherNumberOfPointsThanTheCountLineTellsIsSeen) {
  EXPECT_THAT(warningsOf("1 2 .1\n2 3 .1\n", "5"), ElementsAre("la terza linea annuncia 5 punti, ma sono 2"));
  EXPECT_THAT(warningsOf("1 2 .1 0\n2 3 .1 -1\n", "1 1"),
              ElementsAre("la terza linea annuncia 1 punti, ma sono 2",
                          "dy nullo o negativo in 2 punti, il primo il 1"));
}

TEST(DataWarnings, ErrorsThatAreNoneAreCounted) {
  EXPECT_THAT(warningsOf("1 2 .1\n2 3 0\n3 4 .2\n"), ElementsAre("dy nullo o negativo nel punto 2"));
  EXPECT_THAT(warningsOf("1 2 .1\n2 3 0\n3 4 -.2\n"),
              ElementsAre("dy nullo o negativo in 2 punti, il primo il 2"));
}

TEST(DataWarnings, ExchangedColumnsAreSeen) {
  EXPECT_THAT(warningsOf("1 .1 20\n2 .1 30\n3 .2 40\n"),
              ElementsAre("le colonne y e dy sembrano scambiate: gli errori superano ogni y"));
  EXPECT_THAT(
      warningsOf("1 .1 20 .5\n2 .1 30 .5\n3 .2 40 .5\n", "3 1"),
      ElementsAre("le colonne y e dx sembrano scambiate: gli errori di x superano l'intervallo delle x"));
}

}  // namespace
}  // namespace vk
