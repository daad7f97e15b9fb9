#include "platform/InstalledFolders.h"

#include "doubles/MemoryFiles.h"
#include "doubles/Places.h"
#include "platform/system/SystemFiles.h"

namespace vk {
namespace {

/// A disk with the program in a folder.
class ProgramAt : public MemoryFiles {
 public:
  explicit ProgramAt(std::string folder) : folder_(std::move(folder)) {}
  std::string programFolder() override { return folder_; }

 private:
  std::string folder_;
};

TEST(InstalledFolders, StandBesideTheFolderOfThePrograms) {
  ProgramAt files("/usr/bin");
  files.content["/usr/share/vor_kel/examples/README.md"] = "";
  files.content["/usr/share/vor_kel/manuale/indice.html"] = "";
  EXPECT_EQ(examplesFolder(files), "/usr/share/vor_kel/examples");
  EXPECT_EQ(manualFolder(files), "/usr/share/vor_kel/manuale");
}

TEST(InstalledFolders, AreEmptyWhereNothingIsInstalled) {
  ProgramAt files("/usr/bin");
  files.content["/share/vor_kel/examples/README.md"] = "";
  files.content["/usr/share/vor_kel/manuale/other.html"] = "";
  EXPECT_EQ(examplesFolder(files), "");
  EXPECT_EQ(manualFolder(files), "");
}

TEST(InstalledFolders, AreFoundFromTheRoot) {
  ProgramAt files("/bin");
  files.content["/share/vor_kel/examples/README.md"] = "";
  EXPECT_EQ(examplesFolder(files), "/share/vor_kel/examples");
}

/// The disk of this machine, seen by a program in the folder that the build puts them in.
class BuiltProgram : public SystemFiles {
 public:
  std::string programFolder() override { return builtPath("bin"); }
};

TEST(InstalledFolders, AreInTheBuildToo) {
  BuiltProgram files;
  EXPECT_EQ(files.readAll(examplesFolder(files) + "/lab.fcn"), files.readAll(sourcePath("examples/lab.fcn")));
}

}  // namespace
}  // namespace vk
