#include "platform/system/SystemFiles.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <thread>

#include "doubles/ErrorOf.h"
#include "doubles/OrdinaryUser.h"
#include "doubles/ResourceLimit.h"
#include "doubles/TemporaryFolder.h"
#include "platform/system/OpenFile.h"

namespace vk {
namespace {

namespace fs = std::filesystem;

/// For its lifetime no file can grow beyond `bytes`: what a full disk does.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)), limit_(RLIMIT_FSIZE, bytes) {}
  ~FullDisk() { std::signal(SIGXFSZ, signal_); }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  void (*signal_)(int);
  ResourceLimit limit_;
};

unsigned modeOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0);
  return status.st_mode & 07777;
}

class SystemFilesTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  SystemFiles files;
};

TEST_F(SystemFilesTest, ReadsAllBytesAsTheyAre) {
  const std::string bytes("a\r\nb\n\0\xFF\x1A z", 10);
  const std::string path = folder.make("X.DAT", bytes);
  EXPECT_EQ(files.readAll(path), bytes);
  EXPECT_EQ(files.size(path), 10);
  EXPECT_TRUE(files.FileExists(path));
}

TEST_F(SystemFilesTest, TellsBeforeALongFileIsRead) {
  const std::string shortFile = folder.make("corto.dat", std::string(1000, 'x'));
  const std::string longFile = folder.make("lungo.dat", std::string(SystemFiles::kLongFile, 'x'));
  int told = 0;
  files.onLongRead = [&] { ++told; };
  files.readAll(shortFile);
  EXPECT_EQ(told, 0);
  EXPECT_EQ(files.readAll(longFile).size(), SystemFiles::kLongFile);
  EXPECT_EQ(told, 1);
}

TEST_F(SystemFilesTest, FindsNamesIgnoringCaseNameByName) {
  folder.make("Misure/Luglio/molla.Dat", "x");
  for (const char* name : {"Misure/Luglio/molla.Dat", "MISURE/LUGLIO/MOLLA.DAT", "misure\\Luglio\\molla.dat",
                           "MISURE//luglio/MOLLA.dat"}) {
    EXPECT_TRUE(files.FileExists(folder / name)) << name;
    EXPECT_EQ(files.readAll(folder / name), "x") << name;
  }
  EXPECT_FALSE(files.FileExists(folder / "MISURE/MOLLA.DAT"));
}

TEST_F(SystemFilesTest, TheExactNameComesBeforeOneOfOtherCase) {
  folder.make("a.dat", "small");
  folder.make("A.DAT", "capital");
  EXPECT_EQ(files.readAll(folder / "a.dat"), "small");
  EXPECT_EQ(files.readAll(folder / "A.DAT"), "capital");
  EXPECT_EQ(files.readAll(folder / "A.dat"), "capital");
}

TEST_F(SystemFilesTest, TriesEveryFolderOfOtherCase) {
  fs::create_directory(folder / "Dati");
  folder.make("DATI/x.dat", "found");
  EXPECT_EQ(files.readAll(folder / "Dati/X.DAT"), "found");
}

TEST_F(SystemFilesTest, LinksBackIntoTheirFolderDoNotMultiplyTheSearch) {
  fs::create_directory_symlink(".", folder / "a");
  fs::create_directory_symlink(".", folder / "A");
  std::string path = folder.path();
  for (int i = 0; i < 36; ++i) path += "/a";  // the system follows 40 links
  EXPECT_FALSE(files.FileExists(path + "/none.dat"));
  folder.make("X.DAT", "found");
  EXPECT_EQ(files.readAll(path + "/x.dat"), "found");
}

TEST_F(SystemFilesTest, ABackslashInANameThatExistsIsNoSeparator) {
  folder.make("a\\b.dat", "odd");
  EXPECT_EQ(files.readAll(folder / "a\\b.dat"), "odd");
}

TEST_F(SystemFilesTest, AFolderIsNoFile) {
  fs::create_directory(folder / "X.DAT");
  EXPECT_FALSE(files.FileExists(folder / "X.DAT"));
  EXPECT_FALSE(files.FileExists(""));
  EXPECT_EQ(errorOf([&] { files.readAll(folder / "X.DAT"); }), kPathAccessError);
  EXPECT_EQ(errorOf([&] { files.size(folder / "x.dat"); }), kPathAccessError);
  EXPECT_EQ(errorOf([&] { files.writeAll(folder / "X.DAT", "a"); }), kPathAccessError);
  EXPECT_FALSE(files.canWrite(folder / "X.DAT"));
}

TEST_F(SystemFilesTest, AMissingFileAndAMissingFolderAreToldApart) {
  EXPECT_EQ(errorOf([&] { files.readAll(folder / "none.dat"); }), kFileNotFound);
  EXPECT_EQ(errorOf([&] { files.size(folder / "none.dat"); }), kFileNotFound);
  EXPECT_EQ(errorOf([&] { files.readAll(folder / "none/x.dat"); }), kPathNotFound);
  for (const char* name :
       {"none/x.dat", "none//x.dat", R"(none\x.dat)", R"(none\\x.dat)", R"(none\\\x.dat)"}) {
    EXPECT_EQ(errorOf([&] { files.writeAll(folder / name, "a"); }), kPathNotFound) << name;
    EXPECT_FALSE(files.canWrite(folder / name)) << name;
    EXPECT_EQ(folder.count(), 0) << name;
  }
  folder.make("plain");
  EXPECT_EQ(errorOf([&] { files.writeAll(folder / "plain/x.dat", "a"); }), kPathNotFound);
}

TEST_F(SystemFilesTest, AReadThatBreaksOffIsADeviceError) {
  EXPECT_EQ(errorOf([&] { files.readAll("/proc/self/mem"); }), kDeviceIoError);
}

TEST_F(SystemFilesTest, AnEndlessDeviceEnds) {
  EXPECT_EQ(errorOf([&] { SystemFiles(Streams::kTaken, 100000).readAll("/dev/zero"); }), kDeviceIoError);
}

TEST_F(SystemFilesTest, DepartureWhatIsNeitherFileNorFolderIsRefusedAtOnce) {
  const std::string pipe = folder / "PIPE.DAT";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& path : {pipe, std::string("/dev/zero"), std::string("/dev/null")}) {
    EXPECT_EQ(errorOf([&] { files.readAll(path); }), kDeviceIoError) << path;
    EXPECT_EQ(errorOf([&] { files.writeAll(path, "x"); }), kDeviceIoError) << path;
    EXPECT_FALSE(files.canWrite(path)) << path;
  }
}

TEST_F(SystemFilesTest, APipeIsReadToItsEndWhereStreamsAreTaken) {
  const std::string pipe = folder / "PIPE.DAT", bytes(200000, 'x');
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  std::thread writer([&] { std::ofstream(pipe, std::ios::binary) << bytes; });
  SystemFiles all(Streams::kTaken);
  EXPECT_TRUE(all.canWrite(pipe));
  EXPECT_EQ(all.readAll(pipe), bytes);
  writer.join();
}

TEST_F(SystemFilesTest, WritesNewFilesAndReplacesOldOnes) {
  EXPECT_TRUE(files.canWrite(folder / "new.dat"));
  EXPECT_EQ(folder.count(), 0);
  files.writeAll(folder / "new.dat", "one\r\n");
  EXPECT_EQ(folder.bytesOf("new.dat"), "one\r\n");
  files.writeAll(folder / "new.dat", "");
  EXPECT_EQ(folder.bytesOf("new.dat"), "");
  EXPECT_EQ(folder.count(), 1);
}

TEST_F(SystemFilesTest, WritesTheFileThatIsFoundIgnoringCase) {
  folder.make("Misure/molla.dat", "old");
  files.writeAll(folder / "MISURE\\MOLLA.DAT", "new");
  EXPECT_EQ(folder.bytesOf("Misure/molla.dat"), "new");
  files.writeAll(folder / "MISURE\\ALTRA.DAT", "other");
  EXPECT_EQ(folder.bytesOf("Misure/ALTRA.DAT"), "other");
  EXPECT_EQ(folder.count(), 1);
}

TEST_F(SystemFilesTest, KeepsThePermissionsOfTheOldFile) {
  const std::string path = folder.make("X.DAT", "old");
  ::chmod(path.c_str(), 0640);
  files.writeAll(path, "new");
  EXPECT_EQ(modeOf(path), 0640U);
  const mode_t mask = ::umask(027);
  files.writeAll(folder / "Y.DAT", "new");
  ::umask(mask);
  EXPECT_EQ(modeOf(folder / "Y.DAT"), 0640U);
}

TEST_F(SystemFilesTest, ALinkStaysALink) {
  folder.make("real/X.DAT", "old");
  fs::create_symlink(folder / "real/X.DAT", folder / "link.dat");
  files.writeAll(folder / "link.dat", "new");
  EXPECT_TRUE(fs::is_symlink(folder / "link.dat"));
  EXPECT_EQ(folder.bytesOf("real/X.DAT"), "new");
}

TEST_F(SystemFilesTest, DepartureALinkToAMissingFileMakesThatFile) {
  fs::create_directory(folder / "real");
  fs::create_symlink("real/NEW.DAT", folder / "second.dat");
  fs::create_symlink("second.dat", folder / "link.dat");
  folder.make("LINK.DAT", "another");
  EXPECT_TRUE(files.canWrite(folder / "link.dat"));
  files.writeAll(folder / "link.dat", "new");
  EXPECT_TRUE(fs::is_symlink(folder / "link.dat"));
  EXPECT_TRUE(fs::is_symlink(folder / "second.dat"));
  EXPECT_EQ(folder.bytesOf("real/NEW.DAT"), "new");
  EXPECT_EQ(folder.bytesOf("LINK.DAT"), "another");
}

TEST_F(SystemFilesTest, ALinkIntoAMissingFolderMakesNothing) {
  fs::create_symlink("none/NEW.DAT", folder / "link.dat");
  EXPECT_FALSE(files.canWrite(folder / "link.dat"));
  EXPECT_EQ(errorOf([&] { files.writeAll(folder / "link.dat", "new"); }), kPathNotFound);
  EXPECT_EQ(folder.count(), 1);
}

TEST_F(SystemFilesTest, DepartureLinksInACircleAreRefusedAndStay) {
  fs::create_symlink("b.dat", folder / "a.dat");
  fs::create_symlink("a.dat", folder / "b.dat");
  EXPECT_FALSE(files.canWrite(folder / "a.dat"));
  EXPECT_EQ(errorOf([&] { files.writeAll(folder / "a.dat", "new"); }), kPathAccessError);
  EXPECT_TRUE(fs::is_symlink(folder / "a.dat"));
  EXPECT_TRUE(fs::is_symlink(folder / "b.dat"));
  EXPECT_EQ(folder.count(), 2);
}

TEST_F(SystemFilesTest, DepartureASaveRemovesOldLeftoversThatNobodyHolds) {
  const auto makeOld = [&](const std::string& name, int hours) {
    const std::string path = folder.make(name, "left");
    fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::hours(hours));
    return path;
  };
  makeOld(".vor_kel-17-1", 25);
  makeOld(".vor_kel-17-2", 23);
  makeOld(".other-17-1", 25);
  const OpenFile held(makeOld(".vor_kel-17-3", 25), O_RDWR);
  ASSERT_TRUE(held.lock());
  fs::create_directory(folder / ".vor_kel-folder");
  files.writeAll(folder / "X.DAT", "new");
  EXPECT_FALSE(fs::exists(folder / ".vor_kel-17-1"));
  EXPECT_TRUE(fs::exists(folder / ".vor_kel-17-2"));
  EXPECT_TRUE(fs::exists(folder / ".vor_kel-17-3"));
  EXPECT_TRUE(fs::exists(folder / ".other-17-1"));
  EXPECT_EQ(folder.count(), 5);
}

TEST_F(SystemFilesTest, AProtectedFileIsRefusedFirst) {
  const std::string path = folder.make("X.DAT", "old");
  ::chmod(path.c_str(), 0444);
  EXPECT_FALSE(files.canWrite(path));
  EXPECT_EQ(errorOf([&] { files.writeAll(path, "new"); }), kPathAccessError);
  EXPECT_EQ(folder.bytesOf("X.DAT"), "old");
}

TEST_F(SystemFilesTest, AFileThatOnlyOthersMayWriteIsRefused) {
  const std::string path = folder.make("X.DAT", "old");
  ::chmod(path.c_str(), 0466);
  const OrdinaryUser user(folder);
  EXPECT_FALSE(files.canWrite(path));
  EXPECT_EQ(errorOf([&] { files.writeAll(path, "new"); }), kPathAccessError);
}

TEST_F(SystemFilesTest, WritesInPlaceWhereTheFolderTakesNoFile) {
  const std::string path = folder.make("X.DAT", "old and long");
  ::chmod(path.c_str(), 0644);
  ::chmod(folder.path().c_str(), 0555);
  const OrdinaryUser user(folder);
  EXPECT_FALSE(files.isWritableFolder(folder.path()));
  EXPECT_TRUE(files.canWrite(path));
  files.writeAll(path, "new");
  EXPECT_EQ(folder.bytesOf("X.DAT"), "new");
  files.writeAll(path, "new and longer still");
  EXPECT_EQ(folder.bytesOf("X.DAT"), "new and longer still");
  EXPECT_FALSE(files.canWrite(folder / "Y.DAT"));
  EXPECT_EQ(errorOf([&] { files.writeAll(folder / "Y.DAT", "new"); }), kPathAccessError);
}

TEST_F(SystemFilesTest, AFullDiskLeavesTheOldFileWhateverTheByteItStopsAt) {
  const std::string path = folder.make("X.DAT", "old");
  for (rlim_t room = 0; room < 8; ++room) {
    {
      const FullDisk disk(room);
      EXPECT_EQ(errorOf([&] { files.writeAll(path, "12345678"); }), kDeviceIoError) << room;
    }
    EXPECT_EQ(folder.bytesOf("X.DAT"), "old") << room;
    EXPECT_EQ(folder.count(), 1) << room;
  }
  const FullDisk disk(8);
  files.writeAll(path, "12345678");
  EXPECT_EQ(folder.bytesOf("X.DAT"), "12345678");
}

TEST_F(SystemFilesTest, AFullDiskLeavesTheOldFileAlsoWhereItIsWrittenInPlace) {
  folder.make("SHORT.DAT", "old");
  folder.make("LONG.DAT", "old and long");  // breaks off in the midst of the writing
  ::chmod(folder.path().c_str(), 0555);
  const OrdinaryUser user(folder);
  {
    const FullDisk disk(5);
    for (const char* name : {"SHORT.DAT", "LONG.DAT"}) {
      EXPECT_EQ(errorOf([&] { files.writeAll(folder / name, "12345678"); }), kDeviceIoError) << name;
    }
  }
  EXPECT_EQ(folder.bytesOf("SHORT.DAT"), "old");
  EXPECT_EQ(folder.bytesOf("LONG.DAT"), "old and long");
}

TEST_F(SystemFilesTest, AWriteInPlaceThatFailsPutsTheOldLengthBack) {
  // A file that grows, but takes no bytes.
  const int sealed = ::memfd_create("sealed", MFD_ALLOW_SEALING);
  ASSERT_GE(sealed, 0);
  ASSERT_EQ(::write(sealed, "old", 3), 3);
  ASSERT_EQ(::fcntl(sealed, F_ADD_SEALS, F_SEAL_WRITE), 0);
  const std::string path = "/proc/self/fd/" + std::to_string(sealed);
  EXPECT_EQ(errorOf([&] { files.writeAll(path, "12345678"); }), kPathAccessError);
  EXPECT_EQ(files.readAll(path), "old");
  ::close(sealed);
}

TEST_F(SystemFilesTest, AFullDeviceIsADeviceErrorAndStaysADevice) {
  SystemFiles all(Streams::kTaken);
  EXPECT_EQ(errorOf([&] { all.writeAll("/dev/full", "x"); }), kDeviceIoError);
  all.writeAll("/dev/null", "x");
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(SystemFilesTest, AnUnusableNameIsRefused) {
  EXPECT_EQ(errorOf([&] { files.writeAll("", "x"); }), kPathAccessError);
  EXPECT_EQ(errorOf([&] { files.writeAll(folder / "", "x"); }), kPathAccessError);
  EXPECT_FALSE(files.canWrite(""));
  EXPECT_FALSE(files.canWrite(folder / ""));
  const std::string longName(300, 'x');
  EXPECT_FALSE(files.canWrite(folder / longName));
  EXPECT_EQ(errorOf([&] { files.writeAll(folder / longName, "x"); }), kPathAccessError);
  EXPECT_EQ(folder.count(), 0);
}

TEST_F(SystemFilesTest, KnowsWhereItRuns) {
  EXPECT_TRUE(fs::exists(files.programFolder() + "/test_platform"));
  EXPECT_EQ(files.currentFolder(), fs::current_path().string());
  EXPECT_TRUE(files.isWritableFolder(folder.path()));
  EXPECT_FALSE(files.isWritableFolder(folder / "none"));
  EXPECT_FALSE(files.isWritableFolder(folder.make("plain")));
}

TEST_F(SystemFilesTest, TheDocumentsFolderIsTheOneTheDesktopNames) {
  const std::string home = ::getenv("HOME") ? ::getenv("HOME") : "";
  ::unsetenv("XDG_CONFIG_HOME");
  ::setenv("HOME", folder.path().c_str(), 1);
  EXPECT_EQ(files.documentsFolder(), folder.path());
  fs::create_directory(folder / "Documents");
  EXPECT_EQ(files.documentsFolder(), folder / "Documents");
  folder.make(".config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"$HOME/Documenti\"\n");
  EXPECT_EQ(files.documentsFolder(), folder / "Documents");
  fs::create_directory(folder / "Documenti");
  EXPECT_EQ(files.documentsFolder(), folder / "Documenti");
  ::setenv("HOME", home.c_str(), 1);
}

TEST_F(SystemFilesTest, WhereNoHomeIsNamedItIsThatOfTheUser) {
  const std::string home = ::getenv("HOME") ? ::getenv("HOME") : "";
  ::unsetenv("XDG_CONFIG_HOME");
  ::setenv("HOME", ::getpwuid(::getuid())->pw_dir, 1);
  const std::string documents = files.documentsFolder();
  ::setenv("HOME", "", 1);
  EXPECT_EQ(files.documentsFolder(), documents);
  ::unsetenv("HOME");
  EXPECT_EQ(files.documentsFolder(), documents);
  ::setenv("HOME", home.c_str(), 1);
}

TEST_F(SystemFilesTest, TheRootIsTheFirstDrive) {
  const auto drives = files.drives();
  EXPECT_EQ(drives.front(), "/");
  EXPECT_EQ(std::count(drives.begin(), drives.end(), "/"), 1);
}

TEST_F(SystemFilesTest, ListsTheFoldersSortedWithoutHiddenOnes) {
  for (const char* name : {"beta", "Alfa", "alfa2", ".hidden", "Gamma"}) fs::create_directory(folder / name);
  folder.make("file.dat");
  fs::create_directory_symlink(folder / "beta", folder / "link");
  EXPECT_EQ(files.subfolders(folder.path()),
            (std::vector<std::string>{"Alfa", "alfa2", "beta", "Gamma", "link"}));
  EXPECT_EQ(errorOf([&] { files.subfolders(folder / "none"); }), kPathNotFound);
  EXPECT_EQ(errorOf([&] { files.subfolders(folder / "file.dat"); }), kPathNotFound);
}

}  // namespace
}  // namespace vk
