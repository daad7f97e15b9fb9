#include "platform/system/Descriptors.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "doubles/ErrorOf.h"
#include "doubles/TemporaryFolder.h"
#include "faults/SystemCalls.h"
#include "platform/system/OpenFile.h"

namespace vk {
namespace {

constexpr int kNobodys = 999;  // a number that no file of this process has

class DescriptorsTest : public testing::Test {
 protected:
  std::string link(const std::string& name, const std::string& target) const {
    std::filesystem::create_symlink(target, folder / name);
    return folder / name;
  }

  TemporaryFolder folder;
};

TEST_F(DescriptorsTest, AreNamedInTheFolderOfOpenFilesAlsoThroughLinks) {
  const std::string number = link("number", "/dev/fd/7"), again = link("again", "number");
  for (const std::string& path : {std::string("/proc/self/fd/7"), std::string("/dev/fd/7"), number, again}) {
    EXPECT_EQ(descriptorOf(path), 7) << path;
  }
  EXPECT_EQ(descriptorOf("/dev/stdout"), STDOUT_FILENO);
}

TEST_F(DescriptorsTest, OtherPathsNameNone) {
  const std::string file = folder.make("X.DAT"), nowhere = link("nowhere", "missing");
  for (const std::string& path :
       {file, nowhere, folder / "missing/X.DAT", file + "/X.DAT", link("file", file),
        std::string("/dev/fd/7x"), std::string("/dev/fd/x"), std::string("/dev/null")}) {
    EXPECT_EQ(descriptorOf(path), std::nullopt) << path;
  }
  EXPECT_EQ(descriptorOf(link("circle", "circle")), std::nullopt);
}

TEST_F(DescriptorsTest, ALookThatFailsIsNoAnswer) {
  link("circle", "circle");
  EXPECT_EQ(errorOf([&] { descriptorOf(folder / "circle/X.DAT"); }), kPathAccessError);
  EXPECT_EQ(errorOf([&] { descriptorOf(folder / std::string(300, 'x')); }), kPathAccessError);
}

TEST_F(DescriptorsTest, AreReadAndWrittenWhereTheyStand) {
  const std::string path = folder.make("X.DAT", "before");
  const OpenFile file(path, O_RDWR);
  EXPECT_EQ(readFromDescriptor(file.handle(), 6), "before");
  writeToDescriptor(file.handle(), " and after");
  EXPECT_EQ(folder.bytesOf("X.DAT"), "before and after");
  EXPECT_EQ(::lseek(file.handle(), 0, SEEK_SET), 0);
  EXPECT_EQ(errorOf([&] { readFromDescriptor(file.handle(), 6); }), kDeviceIoError);
}

TEST_F(DescriptorsTest, OnesThatAreNotOpenOrRefuseAreErrors) {
  EXPECT_EQ(errorOf([] { readFromDescriptor(kNobodys, 1); }), kDeviceIoError);
  EXPECT_EQ(errorOf([] { writeToDescriptor(kNobodys, "x"); }), kDeviceIoError);
  const OpenFile full("/dev/full", O_WRONLY);
  EXPECT_EQ(errorOf([&] { writeToDescriptor(full.handle(), "x"); }), kDeviceIoError);
  const OpenFile file(folder.make("X.DAT"), O_RDWR);
  const SystemCalls calls(folder.path(), {{1, EIO, "close"}});
  EXPECT_EQ(errorOf([&] { writeToDescriptor(file.handle(), "x"); }), kDeviceIoError);
}

}  // namespace
}  // namespace vk
