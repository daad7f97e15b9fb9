#include "ui/DirectoryPanel.h"

#include "base/RuntimeError.h"
#include "doubles/MemoryFiles.h"
#include "session/Session.h"

namespace vk {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

/// A disk of folders only.
class FolderFiles : public MemoryFiles {
 public:
  std::vector<std::string> volumes{"/", "/media/chiave", "/media/rotto"};
  std::map<std::string, std::vector<std::string>> folders{
      {"/", {"home"}},        {"/home", {"u"}},         {"/home/u", {"dati", "funzioni"}},
      {"/home/u/dati", {}},   {"/home/u/funzioni", {}}, {"/media/chiave", {"a"}},
      {"/media/chiave/a", {}}};
  std::vector<std::string> drives() override { return volumes; }
  std::vector<std::string> subfolders(const std::string& folder) override {
    const auto found = folders.find(folder);
    if (found == folders.end()) throw RuntimeError(kPathNotFound);
    return found->second;
  }
};

class DirectoryPanelTest : public testing::Test {
 protected:
  void SetUp() override {
    session.files.WorkDir.fill("/home/u");
    session.files.DataDir = session.files.FunDir = session.files.GraDir = "/home/u";
    panel.open();
  }

  Session session;
  FolderFiles files;
  DirectoryPanel panel{session.files, files};
};

TEST_F(DirectoryPanelTest, OpensWithRow0Selected) {
  EXPECT_EQ(session.files.WorkRow, 0);
  EXPECT_EQ(panel.highlighted(), 0);
  EXPECT_EQ(panel.caption(0), " Tutti i File:\n /home/u");
  EXPECT_EQ(panel.caption(1), " File Dati:\n /home/u");
  EXPECT_EQ(panel.caption(2), " File Funzioni:\n /home/u");
  EXPECT_EQ(panel.caption(3), " File Grafici:\n /home/u");
  EXPECT_EQ(panel.folder(), "/home/u");
  EXPECT_THAT(panel.subfolders(), ElementsAre("dati", "funzioni"));
}

TEST_F(DirectoryPanelTest, TheDriveListShowsTheVolumeOfTheRowsFolder) {
  EXPECT_EQ(panel.drive(), 0) << "/";
  session.files.WorkDir[1] = "/media/chiave/a";
  panel.clickRow(1);
  EXPECT_EQ(panel.drive(), 1) << "/media/chiave";
  panel.clickRow(2);
  EXPECT_EQ(panel.drive(), 0);
  panel.enterFolder("/media/chiave");
  EXPECT_EQ(panel.drive(), 1);
}

TEST_F(DirectoryPanelTest, OfVolumesThatHoldAFolderTheInnermostIsItsDrive) {
  files.volumes = {"/", "/media/chiave", "/media", "/rete/"};
  panel.open();
  const std::pair<const char*, int> folders[] = {{"/media/chiave/a", 1}, {"/media/chiave", 1},
                                                 {"/media/chiave2", 2},  {"/mediateca", 0},
                                                 {"/rete/a", 3},         {"/rete", 0}};
  int row = 1;
  for (const auto& [folder, drive] : folders) {
    row = row == 1 ? 2 : 1;
    session.files.WorkDir[static_cast<std::size_t>(row)] = folder;
    panel.clickRow(row);
    EXPECT_EQ(panel.drive(), drive) << folder;
  }
}

TEST_F(DirectoryPanelTest, TheExamplesAreTheLastPlaceWhereTheyAreInstalled) {
  EXPECT_EQ(panel.drives(), files.volumes);
  EXPECT_EQ(panel.driveName(1), "/media/chiave");
  const std::string examples = "/share/vor_kel/examples";
  files.content[examples + "/README.md"] = "";
  files.folders[examples] = {};
  panel.open();
  ASSERT_THAT(panel.drives(), ElementsAre("/", "/media/chiave", "/media/rotto", examples));
  EXPECT_EQ(panel.driveName(3), "Esempi");
  panel.selectDrive(3);
  EXPECT_EQ(panel.drive(), 3);
  EXPECT_THAT(session.files.WorkDir, Each(examples));
}

TEST_F(DirectoryPanelTest, AFolderThatHasGoneShowsNoneOfTheFormerRowsEntries) {
  session.files.WorkDir[1] = "/media/chiave/perso";
  panel.clickRow(1);
  EXPECT_EQ(panel.folder(), "/media/chiave/perso");
  EXPECT_THAT(panel.subfolders(), IsEmpty());
  EXPECT_EQ(panel.drive(), 1);
  EXPECT_EQ(session.files.WorkDir[1], "/media/chiave/perso");
}

TEST_F(DirectoryPanelTest, AFolderInRow0GoesToAllRows) {
  panel.enterFolder("/home/u/dati");
  EXPECT_THAT(session.files.WorkDir, Each(std::string("/home/u/dati")));
  EXPECT_EQ(panel.caption(3), " File Grafici:\n /home/u/dati");
}

TEST_F(DirectoryPanelTest, AFolderInAnotherRowEmptiesRow0) {
  panel.clickRow(1);
  panel.enterFolder("/home/u/dati");
  EXPECT_THAT(session.files.WorkDir, ElementsAre("", "/home/u/dati", "/home/u", "/home/u"));
  EXPECT_EQ(panel.caption(0), " Tutti i File:\n ");
}

TEST_F(DirectoryPanelTest, TheSameFolderAgainChangesNothing) {
  panel.clickRow(2);
  panel.enterFolder("/home/u");
  EXPECT_EQ(session.files.WorkDir[0], "/home/u");
}

TEST_F(DirectoryPanelTest, AFolderThatCannotBeListedIsNotEntered) {
  panel.enterFolder("/home/nessuna");
  EXPECT_EQ(panel.folder(), "/home/u");
  EXPECT_EQ(session.files.WorkDir[0], "/home/u");
}

TEST_F(DirectoryPanelTest, RowsSelectTheirDriveAndThenTheirFolder) {
  session.files.WorkDir[2] = "/media/chiave/a";
  panel.clickRow(2);
  EXPECT_EQ(panel.drive(), 1);
  EXPECT_EQ(panel.folder(), "/media/chiave/a");
  EXPECT_EQ(session.files.WorkRow, 2);
  EXPECT_EQ(panel.highlighted(), 2);
  panel.clickRow(1);
  EXPECT_EQ(panel.drive(), 0);
  EXPECT_EQ(panel.folder(), "/home/u");
}

TEST_F(DirectoryPanelTest, AnEmptyRow0KeepsTheFolderList) {
  panel.clickRow(1);
  panel.enterFolder("/home/u/dati");
  panel.clickRow(0);
  EXPECT_EQ(panel.folder(), "/home/u/dati");
  EXPECT_EQ(session.files.WorkDir[0], "");
  EXPECT_EQ(session.files.WorkRow, 0);
}

TEST_F(DirectoryPanelTest, OpeningAgainSelectsRow0AsIfNoneHadBeenSelected) {
  panel.clickRow(3);
  panel.open();
  EXPECT_EQ(panel.highlighted(), 0);
  EXPECT_EQ(session.files.WorkRow, 0);
  panel.clickRow(0);
  EXPECT_EQ(panel.highlighted(), 0);
}

TEST_F(DirectoryPanelTest, ADriveShowsItsFolderAndStoresIt) {
  panel.clickRow(1);
  panel.selectDrive(1);
  EXPECT_EQ(panel.folder(), "/media/chiave");
  EXPECT_EQ(session.files.WorkDir[1], "/media/chiave");
}

TEST_F(DirectoryPanelTest, ADriveThatCannotBeReadGivesWayToTheOneOfTheFolder) {
  panel.selectDrive(2);
  EXPECT_EQ(panel.drive(), 0);
  EXPECT_EQ(panel.folder(), "/home/u");
  EXPECT_EQ(session.files.WorkDir[0], "/home/u");
  panel.selectDrive(1);
  panel.selectDrive(2);
  EXPECT_EQ(panel.drive(), 1);
}

TEST_F(DirectoryPanelTest, EseguiGivesTheThreeFoldersTheirRows) {
  session.files.WorkDir = {"", "/home/u/dati", "/home/u/funzioni", "/home"};
  panel.accept();
  EXPECT_EQ(session.files.DataDir, "/home/u/dati");
  EXPECT_EQ(session.files.FunDir, "/home/u/funzioni");
  EXPECT_EQ(session.files.GraDir, "/home");
}

TEST_F(DirectoryPanelTest, WithoutEseguiTheEditsWaitForTheNextOpening) {
  panel.clickRow(1);
  panel.enterFolder("/home/u/dati");
  panel.open();
  EXPECT_EQ(panel.caption(1), " File Dati:\n /home/u/dati");
  EXPECT_EQ(session.files.DataDir, "/home/u");
}

}  // namespace
}  // namespace vk
