#include "data/foreign/Header.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vk {
namespace {

using ::testing::ElementsAre;

ForeignHeader headerOf(const std::string& text, const Dialect& dialect, std::size_t columns,
                       bool counted = false) {
  return readHeader(splitLines(text), dialect, columns, counted);
}

TEST(ForeignHeader, HasUnitsInALineOfItsOwnWhereAllItsCellsAreSome) {
  const Dialect dialect{';', '.'};
  EXPECT_THAT(headerOf("t;V;n\n(s);[mV];\n", dialect, 2).names, ElementsAre("t (s)", "V [mV]"));
  EXPECT_THAT(headerOf("t;n;V\n(s);;mV\n", dialect, 3).names, ElementsAre("t (s)", "n", "V (mV)"));
  for (const std::string cell : {"(s", "s)x", "[s", "x]"}) {
    EXPECT_THAT(headerOf("t;V\ns;" + cell + "\n", dialect, 2).names, ElementsAre("s", cell));
  }
}

TEST(ForeignHeader, HasTwoTitlesInLinesOfOneCell) {
  const Dialect tabs{'\t', '.'};
  EXPECT_THAT(headerOf("Tempo\nCorrente\n", tabs, 3).axes, ElementsAre("Tempo", "Corrente"));
  EXPECT_THAT(headerOf("Misura 1\nTempo\nCorrente\n", tabs, 3).axes, ElementsAre());
  EXPECT_THAT(headerOf("Misura 1\nTempo\nCorrente\n2\n", tabs, 3, true).axes,
              ElementsAre("Tempo", "Corrente"));
}

TEST(ForeignHeader, HasItsNamesInACommentWhereNoOtherLineHolds) {
  const ForeignHeader header = headerOf("# t, V\n", {';', '.'}, 2);
  EXPECT_THAT(header.names, ElementsAre("t", "V"));
  EXPECT_EQ(header.lines, 1);
  EXPECT_EQ(headerOf("# misura\n", {';', '.'}, 2).lines, 0);
}

}  // namespace
}  // namespace vk
