#include "base/RuntimeError.h"
#include "doubles/MemoryFiles.h"
#include "session/Session.h"
#include "ui/DirectoryPanel.h"
#include "ui/GraphicPanel.h"

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

class GraphicPanelTest : public testing::Test {
 protected:
  void SetUp() override { panel.open(); }

  Session session;
  GraphicPanel panel{session.settings, session.figures};
};

TEST_F(GraphicPanelTest, StartsAtMagnificationOneAndHorizontalPaper) {
  for (int row = 0; row < 4; ++row) {
    EXPECT_EQ(panel.scrollValue(row), 10);
    EXPECT_EQ(panel.valueText(row), "1.0");
  }
  EXPECT_EQ(panel.paperOption(), 0);
}

TEST_F(GraphicPanelTest, AScrollBarSetsTheScaleAtOnce) {
  panel.scroll(1, 5);
  EXPECT_EQ(session.figures.GraphScale[1], 0.5F);
  // QUIRK: no zero before the point.
  EXPECT_EQ(panel.valueText(1), ".5");
  panel.scroll(1, 20);
  EXPECT_EQ(session.figures.GraphScale[1], 2.0F);
  EXPECT_EQ(panel.valueText(1), "2.0");
  EXPECT_EQ(session.figures.GraphScale[0], 1.0F);
}

TEST_F(GraphicPanelTest, AScrollBarStaysInItsRange) {
  panel.scroll(0, 4);
  EXPECT_EQ(panel.scrollValue(0), 5);
  panel.scroll(0, 21);
  EXPECT_EQ(panel.scrollValue(0), 20);
}

TEST_F(GraphicPanelTest, ThePictureStepsRoundFrom2To0) {
  std::vector<int> seen;
  for (int i = 0; i < 4; ++i) {
    panel.stepPicture();
    seen.push_back(session.settings.BackImage);
  }
  EXPECT_THAT(seen, ElementsAre(1, 2, 0, 1));
}

TEST_F(GraphicPanelTest, AccettaTakesWhatTheControlsShow) {
  panel.scroll(2, 7);
  panel.choosePaper(1);
  session.figures.GraphScale[2] = 9;
  panel.accept();
  EXPECT_EQ(session.figures.GraphScale[2], 0.7F);
  EXPECT_EQ(session.figures.Landscape, kFalse);
}

TEST_F(GraphicPanelTest, RinunciaPutsEverythingBack) {
  session.figures.GraphScale = {1.5F, 0.5F, 1, 2};
  session.settings.BackImage = 1;
  panel.open();
  for (int row = 0; row < 4; ++row) panel.scroll(row, 11);
  panel.stepPicture();
  panel.choosePaper(1);
  panel.cancel();
  EXPECT_THAT(session.figures.GraphScale, ElementsAre(1.5F, 0.5F, 1.0F, 2.0F));
  EXPECT_EQ(session.settings.BackImage, 1);
  EXPECT_EQ(session.figures.Landscape, kTrue);
}

TEST_F(GraphicPanelTest, OpeningShowsWhatTheSessionHolds) {
  session.figures.GraphScale = {0.5F, 1, 1, 2};
  session.figures.Landscape = kFalse;
  panel.open();
  EXPECT_EQ(panel.scrollValue(0), 5);
  EXPECT_EQ(panel.valueText(0), ".5");
  EXPECT_EQ(panel.valueText(3), "2.0");
  EXPECT_EQ(panel.paperOption(), 1);
}

}  // namespace
}  // namespace vk
