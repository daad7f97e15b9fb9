#include "platform/Files.h"

namespace vk {
namespace {

TEST(FileNames, AreWhatStandsBehindTheLastSeparator) {
  EXPECT_EQ(GetFileName("/home/u/X.DAT"), "X.DAT");
  EXPECT_EQ(GetFileName("C:\\A\\X.DAT"), "X.DAT");
  EXPECT_EQ(GetFileName("X.DAT"), "X.DAT");
  EXPECT_EQ(GetFileName("/home/u/"), "");
}

TEST(FileNames, ExtensionIsBehindTheLastPointOfTheName) {
  EXPECT_EQ(GetExtensionName("/a.b/X"), "");
  EXPECT_EQ(GetExtensionName("/a/X.Y.TXT"), "TXT");
  EXPECT_EQ(GetExtensionName("X."), "");
}

TEST(FileNames, StandInTheFolderBeforeTheLastSeparator) {
  EXPECT_EQ(folderOf("/home/u/X.DAT"), "/home/u");
  EXPECT_EQ(folderOf("C:\\A\\X.DAT"), "C:\\A");
  EXPECT_EQ(folderOf("/X.DAT"), "/");
  EXPECT_EQ(folderOf("X.DAT"), ".");
}

TEST(FileNames, AreJoinedByOneSeparator) {
  EXPECT_EQ(joinPath("/a", "b"), "/a/b");
  EXPECT_EQ(joinPath("/", "b"), "/b");
  EXPECT_EQ(joinPath("", "b"), "b");
}

}  // namespace
}  // namespace vk
