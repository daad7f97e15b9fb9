#include "session/LoadedFiles.h"

#include <gtest/gtest.h>

#include "data/DataFiles.h"

namespace vk {
namespace {

TEST(LoadDataFile, TakesTheDataAndTheNameOfTheFile) {
  LoadedFiles loaded;
  LoadDataFile(loaded, "X.DAT", parseLines("x\ny\n3\n1 2 .1\n2 4 .1\n3 6 .1\n").data);
  EXPECT_EQ(loaded.DataFile, "X.DAT");
  EXPECT_EQ(loaded.DataPath, "X.DAT");
  EXPECT_EQ(loaded.DataDefined, -1);
  EXPECT_EQ(loaded.data.NumPnt, 3);
  EXPECT_EQ(loaded.data.Ypnt[3], 6);
}

TEST(LoadDataFile, OldPointsAreGone) {
  LoadedFiles loaded;
  loaded.data.ErrEff[1] = 5;
  LoadDataFile(loaded, "X.DAT", parseLines("x\ny\n2\n1 2 .1\n2 4 .2\n").data);
  EXPECT_EQ(loaded.data.Xpnt.upper(), 2);
  EXPECT_EQ(loaded.data.ErrEff.upper(), 2);
  EXPECT_EQ(loaded.data.ErrEff[1], 0);
}

}  // namespace
}  // namespace vk
