#include <sys/stat.h>

#include <filesystem>

#include "doubles/ErrorOf.h"
#include "doubles/OrdinaryUser.h"
#include "doubles/TemporaryFolder.h"
#include "platform/system/SystemFiles.h"

namespace vk {
namespace {

namespace fs = std::filesystem;

class RefusedFilesTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  SystemFiles files;
};

TEST_F(RefusedFilesTest, AFileWithoutReadPermissionIsRefused) {
  const std::string path = folder.make("secret.dat", "x");
  fs::permissions(path, fs::perms::none);
  const OrdinaryUser user(folder);
  EXPECT_EQ(errorOf([&] { files.readAll(path); }), kPermissionDenied);
}

TEST_F(RefusedFilesTest, DepartureAFileBehindAClosedFolderIsRefusedAndNotMissing) {
  folder.make("Misure/secret/deep/x.dat", "x");
  fs::permissions(folder / "Misure/secret", fs::perms::owner_read | fs::perms::owner_write);
  const OrdinaryUser user(folder);
  for (const char* name : {"Misure/secret/x.dat", "MISURE\\SECRET\\X.DAT", "Misure/secret/deep/x.dat"}) {
    EXPECT_EQ(errorOf([&] { files.readAll(folder / name); }), kPermissionDenied) << name;
    EXPECT_EQ(errorOf([&] { files.size(folder / name); }), kPermissionDenied) << name;
  }
  EXPECT_EQ(errorOf([&] { files.readAll(folder / "Misure/none.dat"); }), kFileNotFound);
  EXPECT_EQ(errorOf([&] { files.readAll(folder / "Misure/none/x.dat"); }), kPathNotFound);
  fs::permissions(folder / "Misure/secret", fs::perms::owner_all);
}

TEST_F(RefusedFilesTest, AnEmptyNameAndOneBelowTheRootAreMissing) {
  EXPECT_EQ(errorOf([&] { files.readAll(""); }), kFileNotFound);
  EXPECT_EQ(errorOf([&] { files.readAll("/none/x.dat"); }), kPathNotFound);
}

TEST_F(RefusedFilesTest, APipeHasNoSizeAndIsNoLongFile) {
  const std::string pipe = folder / "PIPE.DAT";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  int told = 0;
  files.onLongRead = [&] { ++told; };
  EXPECT_EQ(errorOf([&] { files.size(pipe); }), kDeviceIoError);
  EXPECT_EQ(errorOf([&] { files.readAll(pipe); }), kDeviceIoError);
  EXPECT_EQ(told, 0);
}

TEST_F(RefusedFilesTest, AFileOfACurrentFolderThatIsClosedIsRefused) {
  const fs::path before = fs::current_path();
  fs::create_directory(folder / "secret");
  fs::current_path(folder / "secret");
  fs::permissions(folder / "secret", fs::perms::none);
  {
    const OrdinaryUser user(folder);
    EXPECT_EQ(errorOf([&] { files.readAll("x.dat"); }), kPermissionDenied);
    EXPECT_EQ(errorOf([&] { files.readAll("none/x.dat"); }), kPermissionDenied);
  }
  fs::permissions(folder / "secret", fs::perms::owner_all);
  fs::current_path(before);
}

TEST_F(RefusedFilesTest, DepartureLinksInACircleAreRefusedAndNotMissing) {
  fs::create_symlink("b.dat", folder / "a.dat");
  fs::create_symlink("a.dat", folder / "b.dat");
  for (const char* name : {"a.dat", "b.dat", "a.dat/x.dat"}) {
    EXPECT_EQ(errorOf([&] { files.readAll(folder / name); }), kPermissionDenied) << name;
    EXPECT_EQ(errorOf([&] { files.size(folder / name); }), kPermissionDenied) << name;
  }
}

}  // namespace
}  // namespace vk
