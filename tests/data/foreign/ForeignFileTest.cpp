#include "data/foreign/ForeignFile.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

constexpr const char* kDataFile = "x\ny\n3\n1 2 0.1\n2 3 0.1\n3 4 0.1\n";

TEST(ForeignReading, OfADataFileIsItsTextUnlessPointsChange) {
  ForeignOptions options;
  EXPECT_TRUE(keepsText(readForeign(kDataFile, options), options));
  for (const int which : {0, 1, 2}) {
    options = {};
    if (which == 0) options.every = 2;
    if (which == 1) options.average = 2;
    if (which == 2) options.dy = ErrorRule{ErrorRule::Kind::kPercent, 10};
    const ForeignReading reading = readForeign(kDataFile, options);
    EXPECT_TRUE(reading.isDataFile);
    EXPECT_FALSE(keepsText(reading, options));
    EXPECT_EQ(reading.data.NumPnt, which == 2 ? 3 : 2);
    EXPECT_DOUBLE_EQ(reading.data.Xpnt[2], which == 0 ? 3 : which == 1 ? 3 : 2);
  }
}

TEST(ForeignReading, TellsTheStartOfALongCellThatIsNoNumber) {
  const auto reasonOf = [](const std::string& cell) {
    const ForeignReading reading = readForeign("1;2\n2;3\n3;" + cell + "\n");
    return reading.leftOut.size() == 1 ? reading.leftOut.front().reason : "";
  };
  const std::string most(23, 'x');
  EXPECT_EQ(reasonOf(most + "y"), "\"" + most + "y\" non e` un numero");
  EXPECT_EQ(reasonOf(most + "yz"), "\"" + most + "y...\" non e` un numero");
  EXPECT_EQ(reasonOf(most + "\u00E0"), "\"" + most + "...\" non e` un numero");
}

TEST(ForeignReading, TakesALoneNumberForACountUnderTwoTitlesOrWhereItIsOne) {
  const struct {
    const char* header;
    bool counted;
  } cases[] = {{"t\nV\n7\n", true}, {"t\n7\n", false},          {"t\n2\n", true},
               {"7\n", false},      {"t\nV\nnota\n7\n", false}, {"t\nV\n7;1\n", false}};
  for (const auto& [header, counted] : cases)
    EXPECT_EQ(readForeign(header + std::string("1;2;3\n2;3;4\n")).counted, counted) << header;
}

TEST(ForeignReading, TakesARowWhoseLastCellIsEmptyForTheFirst) {
  const ForeignReading reading = readForeign("t;V;nota\n1;2,5;\n2;3,5;a\n3;4,5;b\n");
  EXPECT_EQ(reading.firstLine, 2);
  EXPECT_EQ(reading.data.NumPnt, 3);
}

TEST(LikelyCause, IsWhatADataFileHasOtherwise) {
  struct Case {
    std::string bytes, text;
  };
  const std::string wide("\xFE\xFF\0001\0\t\0002\0\t\0003\0\n\0002\0\t\0003\0\t\0003\0\n", 26);
  for (const Case& tried : std::vector<Case>{
           {kDataFile, ""},
           {wide, "sembra un testo UTF-16 BE"},
           {"1;2\n2;3\n", "sembra un file CSV"},
           {"1|2,5|3\n2|3,5|3\n", "sembra una tabella con separatore '|' con virgola decimale"},
           {"1\t2,5\t3\n2\t3,5\t3\n", "sembra una tabella con virgola decimale"},
           {"1 2\n2 3\n", "sembra una tabella di due colonne, senza errori"},
           {"t V dV\n2\n1 2 3\n4 5 6\n",
            "sembra una tabella senza le tre linee iniziali (due titoli e il numero dei punti)"}}) {
    EXPECT_EQ(likelyCause(readForeign(tried.bytes)).text, tried.text) << tried.bytes;
  }
}

}  // namespace
}  // namespace vk
