#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Text.h"
#include "data/GridFile.h"

namespace vk {
namespace {

using ::testing::StartsWith;

const std::string kHead = "% una sella\r\nx (cm)\r\ny (cm)\r\n\r\nz (V)\r\n3 2\r\n";

std::string errorsOf(const std::string& text) {
  return parseGrid(text).errors;
}

TEST(GridFile, HasTitlesPlacesAndRows) {
  const GridReading read = parseGrid(kHead + "0 .5 1\r\n% le y\r\n-1\t1\r\n 1 2 3\r\n4 5 6E2");
  EXPECT_EQ(read.errors, "");
  const Grid& grid = read.grid;
  EXPECT_EQ(grid.titleX, "x (cm)");
  EXPECT_EQ(grid.titleY, "y (cm)");
  EXPECT_EQ(grid.titleZ, "z (V)");
  ASSERT_EQ(grid.nx(), 3);
  ASSERT_EQ(grid.ny(), 2);
  EXPECT_EQ(grid.x[2], .5);
  EXPECT_EQ(grid.y[1], -1);
  EXPECT_EQ(grid.z(1, 1), 1);
  EXPECT_EQ(grid.z(3, 1), 3);
  EXPECT_EQ(grid.z(3, 2), 600);
}

TEST(GridFile, IsReadWithLineFeedsAlone) {
  EXPECT_EQ(errorsOf("x\ny\nz\n2 2\n0 1\n0 1\n1 2\n3 4\n"), "");
}

TEST(GridFile, StepsAreEqualAsFarAsDigitsTell) {
  EXPECT_EQ(errorsOf("x\ny\nz\n4 2\n0 .333 .667 1\n0 1\n1 2 3 4\n1 2 3 4\n"), "");
}

TEST(GridFile, TellsTheLineOfEachError) {
  struct Case {
    std::string text, errors;
  };
  const Case cases[] = {
      {kHead + "0 1\r\n0 1\r\n1 2 3\r\n1 2 x\r\n",
       "***ERR. Linea 7: 0 1\r\n   le x: servono 3 dati.\r\n"
       "***ERR. Linea 10; Dato 3: x\r\n   Dato NON numerico\r\n"},
      {kHead + "0 1 3\r\n1 0\r\n1 2 3\r\n1 2 3 4\r\n",
       "***ERR. Linea 7: 0 1 3\r\n   le x DEVONO crescere a passi uguali\r\n"
       "***ERR. Linea 8: 1 0\r\n   le y DEVONO crescere a passi uguali\r\n"
       "***ERR. Linea 10: 1 2 3 4\r\n   ogni linea di z: servono 3 dati.\r\n"},
      {kHead + "0 1 2\r\n0 1\r\nnan 1E999 3\r\n1 2 inf\r\n",
       "***ERR. Linea 9; Dato 1: nan\r\n   Dato NON numerico\r\n"
       "***ERR. Linea 9; Dato 2: 1E999\r\n   Dato NON numerico\r\n"
       "***ERR. Linea 10; Dato 3: inf\r\n   Dato NON numerico\r\n"},
      {kHead + "0 1 2\r\n0 1\r\n1 2 3\r\n",
       "***ERR. un File Griglia con ny = 2 DEVE Contenere 2 Linee di z, non 1\r\n"},
      {kHead + "0 1 2\r\n0 1\r\n1 2 3\r\n1 2 3\r\n1 2 3\r\n",
       "***ERR. un File Griglia con ny = 2 DEVE Contenere 2 Linee di z, non 3\r\n"},
      {kHead, "***ERR. un File Griglia DEVE Contenere 3 Titoli, nx e ny, le x, le y e le righe di z\r\n"},
      {"", "***ERR. un File Griglia DEVE Contenere 3 Titoli, nx e ny, le x, le y e le righe di z\r\n"},
      {kHead + "-1E308 0 1.7E308\r\n0 1\r\n1 2 3\r\n1 2 3\r\n",
       "***ERR. Linea 7: -1E308 0 1.7E308\r\n   le x DEVONO crescere a passi uguali\r\n"},
  };
  for (const Case& c : cases) EXPECT_EQ(errorsOf(c.text), c.errors);
}

TEST(GridFile, EndsAtCountsThatTellNothing) {
  for (const std::string counts : {"3", "3 2 1", "3 due", "1 2", "2 501", "2.5 3", "-2 3", "1E300 2"}) {
    EXPECT_EQ(
        errorsOf("x\ny\nz\n" + counts + "\n0 x\n0 y\n"),
        "***ERR. Linea 4: " + counts + "\r\n   questa linea DEVE contenere nx e ny, interi da 2 a 500\r\n");
  }
}

TEST(GridFile, ShowsTheEndsOfLongLines) {
  EXPECT_THAT(errorsOf("x\ny\nz\n2 2\n" + repeat(300, '7') + "\n0 1\n1 2\n3 4\n"),
              StartsWith("***ERR. Linea 5: " + shortened(repeat(300, '7'), 60) + "\r\n"));
}

TEST(GridFile, TheLargestHas500PointsOnASide) {
  std::string places, row;
  for (int i = 1; i <= kMostGridPoints; ++i) {
    places += std::to_string(i) + " ";
    row += "1 ";
  }
  std::string text = "x\ny\nz\n500 500\n" + places + "\n" + places + "\n";
  for (int j = 1; j <= kMostGridPoints; ++j) text += row + "\n";
  const GridReading read = parseGrid(text);
  EXPECT_EQ(read.errors, "");
  EXPECT_EQ(read.grid.z(500, 500), 1);
}

}  // namespace
}  // namespace vk
