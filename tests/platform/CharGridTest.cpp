#include "platform/CharGrid.h"

#include <utility>

#include "platform/GridOutput.h"

namespace vk {
namespace {

TEST(CharGrid, PrintingReplacesTheCellsItCovers) {
  CharGrid grid(1, 8);
  grid.print(1, 1, "abcdef");
  grid.print(1, 3, "XY");
  EXPECT_EQ(grid.rowText(1), "abXYef  ");
}

TEST(CharGrid, DropsWhatFallsOutside) {
  CharGrid grid(2, 3);
  grid.print(1, 2, "abc");
  grid.print(0, 1, "x");
  grid.print(3, 1, "x");
  grid.print(2, -1, "pqr");
  EXPECT_EQ(grid.toUtf8(), " ab\nr\n");
}

TEST(CharGrid, IsBlankAndUncoveredOutside) {
  CharGrid grid(2, 3);
  for (int row = 1; row <= 2; ++row) grid.print(row, 1, "abc");
  for (const auto& [row, col] : {std::pair(0, 1), {3, 1}, {1, 0}, {1, 4}}) {
    EXPECT_EQ(grid.at(row, col), ' ') << row << ',' << col;
    EXPECT_FALSE(grid.covers(row, col)) << row << ',' << col;
  }
}

TEST(CharGrid, CutsFramesThatGoBeyondIt) {
  CharGrid grid(2, 3);
  grid.frame({1, 1, 3, 4, 3});
  EXPECT_EQ(grid.toUtf8(), "┌──\n│\n");
}

TEST(CharGrid, TakesInAnotherOne) {
  CharGrid inner(3, 4), outer(4, 6);
  inner.frame({1, 1, 3, 4, 3});
  inner.print(2, 2, "ab");
  outer.print(1, 1, "x");
  outer.place(inner, 2, 2);
  EXPECT_EQ(outer.toUtf8(), "x\n ┌──┐\n │ab│\n └──┘\n");
  outer.place(inner, 4, 6);
  EXPECT_EQ(outer.at(4, 6), ' ') << "what falls outside is dropped";
}

TEST(CharGrid, JoinsFramesWhereTheyMeet) {
  CharGrid grid(5, 7);
  grid.frame({1, 1, 5, 7, 3});
  grid.frame({1, 1, 3, 4, 3});
  EXPECT_EQ(grid.toUtf8(),
            "┌──┬──┐\n"
            "│  │  │\n"
            "├──┘  │\n"
            "│     │\n"
            "└─────┘\n");
}

TEST(CharGrid, SortsTheCornersOfAFrame) {
  CharGrid grid(2, 2);
  grid.frame({2, 2, 1, 1, 3});
  EXPECT_EQ(grid.toUtf8(), "┌┐\n└┘\n");
}

TEST(CharGrid, TextOnAFrameHidesIt) {
  CharGrid grid(2, 6);
  grid.frame({1, 1, 2, 6, 3});
  grid.print(1, 2, "a b");
  EXPECT_EQ(grid.toUtf8(), "┌a b─┐\n└────┘\n");
}

TEST(CharGrid, AFrameShowsThroughEarlierBlanksButNotThroughLetters) {
  CharGrid grid(2, 6);
  grid.print(1, 2, "a b");
  grid.frame({1, 1, 2, 6, 3});
  EXPECT_EQ(grid.toUtf8(), "┌a─b─┐\n└────┘\n");
}

TEST(CharGrid, ShowsCodePage437) {
  CharGrid grid(1, 4);
  grid.print(1, 1, Cp437Text(std::string("X\xFD/\xE6")));
  EXPECT_EQ(grid.toUtf8(), "X²/µ\n");
}

TEST(GridOutput, BlanksAloneAreNoText) {
  GridOutput window;
  window.OutShow({.rows = 2, .cols = 10, .text = "   "});
  EXPECT_FALSE(window.isTextMode());
  window.OutShow({.rows = 2, .cols = 10, .text = " x "});
  EXPECT_TRUE(window.isTextMode());
}

TEST(GridOutput, PrintsTheTitleOfAFrameUnderItsTopSide) {
  GridOutput window;
  window.OutShow({.rows = 4, .cols = 9});
  window.CharFrame(1, 1, 4, 9, 3, "abc");
  EXPECT_EQ(window.grid().rowText(2), "   abc   ");  // column (1 + 9)/2 - 3/2 = 3.5, rounded to even
}

TEST(GridOutput, OpensEmptyAgain) {
  GridOutput window;
  window.OutShow({.rows = 1, .cols = 3});
  window.CharLocate(1, 1);
  window.print("abc");
  window.FrmOut_Exit();
  EXPECT_FALSE(window.isOpen());
  window.OutShow({.rows = 1, .cols = 3});
  EXPECT_TRUE(window.isOpen());
  EXPECT_EQ(window.grid().rowText(1), "   ");
}

}  // namespace
}  // namespace vk
