#include "platform/InstalledFolders.h"

#include <string>
#include <utility>
#include <vector>

#include "doubles/MemoryFiles.h"
#include "doubles/Places.h"
#include "platform/system/SystemFiles.h"

namespace vk {
namespace {

/// A disk of empty files with the program in a folder.
class ProgramAt : public MemoryFiles {
 public:
  ProgramAt(std::string folder, const std::vector<std::string>& paths) : folder_(std::move(folder)) {
    for (const std::string& path : paths) content[path] = "";
  }
  std::string programFolder() override { return folder_; }

 private:
  std::string folder_;
};

TEST(InstalledFolders, StandBesideTheFolderOfThePrograms) {
  for (const std::string root : {"", "/usr", "/home/anna/un posto"}) {
    const std::string shared = root + "/share/vor_kel/";
    ProgramAt files(root + "/bin", {shared + "examples/README.md", shared + "manuale/indice.html",
                                    shared + "docs/manuale/indice.md"});
    EXPECT_EQ(examplesFolder(files), shared + "examples");
    EXPECT_EQ(manualFolder(files), shared + "manuale");
    EXPECT_EQ(manualSourceFolder(files), shared + "docs/manuale");
  }
}

TEST(InstalledFolders, AreEmptyWhereNothingIsInstalled) {
  ProgramAt files("/usr/bin", {"/share/vor_kel/examples/README.md", "/usr/share/vor_kel/manuale/other.html",
                               "/usr/share/vor_kel/docs/manuale/indice.html"});
  EXPECT_EQ(examplesFolder(files), "");
  EXPECT_EQ(manualFolder(files), "");
  EXPECT_EQ(manualSourceFolder(files), "");
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
