#include "platform/system/Places.h"

#include <cstdlib>
#include <filesystem>

#include "doubles/TemporaryFolder.h"
#include "platform/system/SystemFiles.h"

namespace vk {
namespace {

TEST(DocumentsFolder, IsReadFromTheDesktopsList) {
  EXPECT_EQ(documentsFolderOf("# comment\nXDG_DESKTOP_DIR=\"$HOME/Scrivania\"\n"
                              "XDG_DOCUMENTS_DIR=\"$HOME/Documenti\"\n",
                              "/home/u"),
            "/home/u/Documenti");
  EXPECT_EQ(documentsFolderOf("XDG_DOCUMENTS_DIR=\"/dati\"", "/home/u"), "/dati");
}

TEST(DocumentsFolder, IsEmptyWhereTheListDoesNotNameIt) {
  for (const char* text :
       {"", "XDG_DESKTOP_DIR=\"/x\"\n", "XDG_DOCUMENTS_DIR=\"", "XDG_DOCUMENTS_DIR=/x\n"}) {
    EXPECT_EQ(documentsFolderOf(text, "/home/u"), "") << text;
  }
}

TEST(DocumentsFolder, StandsInTheFolderOfSettingsWhereThatIsAPath) {
  const TemporaryFolder folder;
  folder.make("config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"" + folder.path() + "\"\n");
  SystemFiles files;
  const std::string usual = files.documentsFolder();
  ::setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
  EXPECT_EQ(files.documentsFolder(), folder.path());
  ::setenv("XDG_CONFIG_HOME", "config", 1);
  EXPECT_EQ(files.documentsFolder(), usual);
  ::unsetenv("XDG_CONFIG_HOME");
}

TEST(CurrentFolder, IsTheRootWhereItIsGone) {
  namespace fs = std::filesystem;
  const fs::path before = fs::current_path();
  {
    const TemporaryFolder gone;
    fs::current_path(gone.path());
  }
  EXPECT_EQ(SystemFiles().currentFolder(), "/");
  fs::current_path(before);
}

TEST(Volumes, AreTheMountPointsThatUsersKnow) {
  const std::string mounts =
      "/dev/sda1 / ext4 rw 0 0\n"
      "proc /proc proc rw 0 0\n"
      "/dev/sdc1 /run/media/u/STICK\\040B vfat rw 0 0\n"
      "/dev/sdb1 /media/u/STICK vfat rw 0 0\n"
      "server:/x /mnt nfs rw 0 0\n"
      "server:/y /mnt/dati nfs rw 0 0\n"
      "portal /run/user/1000/doc fuse rw 0 0\n"
      "remote /home/u/lab fuse rw 0 0\n"
      "cache /home/u/.cache/x fuse rw 0 0\n"
      "/dev/sdb1 /media/u/STICK vfat rw 0 0\n"
      "x /mntx ext4 rw 0 0\n";
  EXPECT_EQ(volumesOf(mounts, "/home/u"), (std::vector<std::string>{"/home/u/lab", "/media/u/STICK", "/mnt",
                                                                    "/mnt/dati", "/run/media/u/STICK B"}));
}

TEST(Volumes, HaveCodesOfThreeOctalDigitsOnly) {
  for (const std::string& name :
       std::vector<std::string>{"a\\04", "a\\", "a\\x40b", "a\\0x0b", "a\\04xb", "a\\940b", "a\\4-0b"}) {
    EXPECT_EQ(volumesOf("x /mnt/" + name + " ext4 rw 0 0\n", "/"), std::vector<std::string>{"/mnt/" + name});
  }
  EXPECT_EQ(volumesOf("x /mnt/\\040b ext4 rw 0 0\n", "/"), std::vector<std::string>{"/mnt/ b"});
}

TEST(Volumes, AreNoneInAnEmptyOrBrokenTable) {
  EXPECT_TRUE(volumesOf("", "/").empty());
  EXPECT_TRUE(volumesOf("/dev/sda1\n", "/").empty());
  EXPECT_TRUE(volumesOf("/dev/sda1 /mnt", "/").empty());
  EXPECT_TRUE(volumesOf("x /home/u ext4 rw 0 0\n", "/").empty());
}

}  // namespace
}  // namespace vk
