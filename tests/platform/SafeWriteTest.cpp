#include "platform/system/SafeWrite.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "doubles/ErrorOf.h"
#include "doubles/OrdinaryUser.h"
#include "doubles/TemporaryFolder.h"
#include "faults/SystemCalls.h"
#include "platform/system/OpenFile.h"

namespace vk {
namespace {

constexpr const char* kReplacing = "open write fsync close rename open fsync close";
/// What follows a temporary file that the folder does not take.
constexpr const char* kInPlace = "open open read read close open write ftruncate fsync close";

class SafeWriteTest : public testing::Test {
 protected:
  TemporaryFolder folder{folderInMemory()};
  const std::string path = folder / "X.DAT";
};

TEST_F(SafeWriteTest, WaitsForTheBytesBeforeAndForTheNameAfterTheyAreGiven) {
  const SystemCalls calls(folder.path());
  writeSafely(path, "new");
  EXPECT_EQ(calls.names(), kReplacing);
  EXPECT_TRUE(calls.made().at(2).path.starts_with(folder / ".vor_kel-"));
  EXPECT_EQ(calls.made().at(4).path, path);
  EXPECT_EQ(calls.made().at(6).path, folder.path());
}

// To the system a backslash is a letter like any other.
TEST_F(SafeWriteTest, AFileWithBackslashesInItsNameIsWrittenInItsFolder) {
  for (const char* name : {R"(a\b)", R"(a\\b)", R"(\b)"}) {
    for (const char* bytes : {"new", "newer"}) {
      const SystemCalls calls(folder.path());
      EXPECT_EQ(errorOf([&] { writeSafely(folder.path() + "/" + name, bytes); }), 0) << name;
      EXPECT_EQ(calls.names(), kReplacing) << name;
      EXPECT_TRUE(calls.made().at(0).path.starts_with(folder / ".vor_kel-")) << calls.made().at(0).path;
      EXPECT_EQ(fileContent(folder.path() + "/" + name), bytes);
    }
  }
  EXPECT_EQ(folder.count(), 3);
}

TEST_F(SafeWriteTest, ANameThatDoesNotComeToTheDiskIsTold) {
  folder.make("X.DAT", "old");
  const SystemCalls calls(folder.path(), {{2, EIO, "fsync"}});
  EXPECT_EQ(errorOf([&] { writeSafely(path, "new"); }), kDeviceIoError);
  EXPECT_EQ(folder.bytesOf("X.DAT"), "new");
  EXPECT_EQ(folder.count(), 1);
}

TEST_F(SafeWriteTest, AFolderOrADiskThatKnowsNoWaitIsNotWaitedFor) {
  for (const CallFault& fault : {CallFault{2, EINVAL, "fsync"}, {1, EINVAL, "fsync"}, {2, EACCES, "open"}}) {
    const SystemCalls calls(folder.path(), {fault});
    writeSafely(path, fault.name);
    EXPECT_EQ(calls.failed().size(), 1U);
    EXPECT_EQ(folder.bytesOf("X.DAT"), fault.name);
  }
}

TEST_F(SafeWriteTest, AFailureOfAnyCallLeavesTheOldFileOrTheNewOne) {
  for (const int error : {EIO, ENOSPC, EACCES}) {
    for (int call = 1; call <= kCallsOfASave; ++call) {
      folder.make("X.DAT", "old");
      const SystemCalls calls(folder.path(), {{call, error}});
      const bool failed = errorOf([&] { writeSafely(path, "new"); }) != 0;
      ASSERT_EQ(calls.failed().size(), 1U);
      const std::string told = calls.failed().front().name + " " + std::to_string(error);
      // The name has been given when the folder is waited for.
      EXPECT_EQ(folder.bytesOf("X.DAT"), failed && call < 5 ? "old" : "new") << told;
      EXPECT_EQ(failed, (call > 1 && call < 5) || (call == 6 && error != EACCES) || call == 7) << told;
      EXPECT_EQ(folder.count(), 1) << told;
    }
  }
}

TEST_F(SafeWriteTest, WhatASignalBreaksOffGoesOn) {
  folder.make("X.DAT", "old");
  for (int call = 1, failed = 1; failed > 0; ++call) {
    const SystemCalls calls(folder.path(), {{call, EINTR}});
    const std::string bytes = std::to_string(call);
    writeSafely(path, bytes);
    EXPECT_EQ(folder.bytesOf("X.DAT"), bytes);
    EXPECT_EQ(folder.count(), 1);
    failed = static_cast<int>(calls.failed().size());
    // A file that is closed again could be somebody else's.
    const bool again = failed > 0 && calls.failed().front().name != "close";
    EXPECT_EQ(calls.made().size(), again ? kCallsOfASave + 1U : kCallsOfASave);
  }
}

TEST_F(SafeWriteTest, AFullDiskMayTakeTheBytesOneByOne) {
  const SystemCalls calls(folder.path(), {{1, kOneByte, "write"}, {2, kOneByte, "write"}});
  writeSafely(path, "new");
  EXPECT_EQ(folder.bytesOf("X.DAT"), "new");
  EXPECT_EQ(std::ranges::count(calls.made(), std::string("write"), &SystemCall::name), 3);
}

class WriteInPlaceTest : public SafeWriteTest {};

TEST_F(WriteInPlaceTest, AFailureOfAnyCallPutsTheOldFileBackAndASignalNone) {
  folder.make("X.DAT", "old");
  ::chmod(folder.path().c_str(), 0555);
  const OrdinaryUser user(folder);
  const auto restore = [&] {
    const OpenFile file(path, O_WRONLY | O_TRUNC);
    ASSERT_EQ(file.write("old"), 0);
  };
  for (const int error : {EIO, ENOSPC, EACCES, EINTR}) {
    for (int call = 2, left = 1; left > 0; ++call) {
      restore();
      const SystemCalls calls(folder.path(), {{call, error}});
      const bool failed = errorOf([&] { writeSafely(path, "newer"); }) != 0;
      left = static_cast<int>(calls.failed().size());
      const std::string told = std::to_string(call) + " " + std::to_string(error);
      EXPECT_EQ(folder.bytesOf("X.DAT"), failed ? "old" : "newer") << told;
      EXPECT_FALSE(failed && (error == EINTR || left == 0)) << told;
      EXPECT_TRUE(left > 0 || calls.names() == kInPlace) << calls.names();
    }
  }
}

TEST_F(WriteInPlaceTest, WhatIsReadInPartsIsPutBackWhole) {
  folder.make("X.DAT", "old and long");
  ::chmod(folder.path().c_str(), 0555);
  const OrdinaryUser user(folder);
  const SystemCalls calls(folder.path(),
                          {{1, kOneByte, "read"}, {2, kOneByte, "read"}, {1, EIO, "ftruncate"}});
  EXPECT_EQ(errorOf([&] { writeSafely(path, "new"); }), kDeviceIoError);
  EXPECT_EQ(calls.failed().size(), 3U);
  EXPECT_EQ(folder.bytesOf("X.DAT"), "old and long");
}

TEST_F(SafeWriteTest, ATemporaryFileOfThatNameIsLeftAlone) {
  const std::string name = ".vor_kel-" + std::to_string(::getpid()) + "-1";
  folder.make(name, "another's");
  writeSafely(path, "new");
  EXPECT_EQ(folder.bytesOf("X.DAT"), "new");
  EXPECT_EQ(folder.bytesOf(name), "another's");
  EXPECT_EQ(folder.count(), 2);
}

TEST_F(SafeWriteTest, AnEmptyNameIsNoFile) {
  EXPECT_FALSE(isWritableFile(""));
  EXPECT_FALSE(isWritableFile(folder / "none/"));
  EXPECT_EQ(errorOf([&] { writeSafely(folder / "none/", "x"); }), kPathAccessError);
}

TEST_F(SafeWriteTest, APipeThatRefusesItsBytesIsAnError) {
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  const OpenFile reader(path, O_RDWR | O_NONBLOCK);
  for (const char* call : {"open", "write", "close"}) {
    const SystemCalls calls(folder.path(), {{1, EIO, call}});
    EXPECT_EQ(errorOf([&] { writeSafely(path, "new"); }), kDeviceIoError) << call;
    EXPECT_EQ(calls.failed().size(), 1U) << call;
  }
  writeSafely(path, "new");
  EXPECT_EQ(folder.count(), 1);
}

}  // namespace
}  // namespace vk
