#include "tests/ui/MainModFixture.h"

namespace vk {
namespace {

using testing::Each;
using testing::ElementsAre;

class MainPanelsTest : public MainModTest {
 protected:
  void SetUp() override { start(); }
  std::vector<bool> topMenus() {
    return {on(Control::MenAda), on(Control::MenDat), on(Control::MenFun), on(Control::MenGra),
            on(Control::MenSer)};
  }
};

TEST_F(MainPanelsTest, TheDirectoryPanelIsABusyState) {
  mainMod.run(Control::MenSerImpDir);
  EXPECT_EQ(panels.PanelClosed, kFalse);
  EXPECT_EQ(window.caption, "VOR_KEL: Selezione Directory di Lavoro");
  EXPECT_THAT(topMenus(), Each(false));
  EXPECT_THAT(view.calls, ElementsAre("show FraDir", "sync FraDir"));
  EXPECT_EQ(session.files.WorkRow, 0);
}

TEST_F(MainPanelsTest, BothButtonsEndTheDirectoryPanel) {
  for (int button : {0, 1}) {
    mainMod.run(Control::MenSerImpDir);
    panels.CmdWrkDir(button);
    EXPECT_EQ(panels.PanelClosed, kTrue);
    EXPECT_EQ(window.caption, "VOR_KEL");
    EXPECT_THAT(topMenus(), ElementsAre(false, true, true, true, true));
    EXPECT_EQ(view.calls.back(), "hide FraDir");
  }
}

TEST_F(MainPanelsTest, TheMenuOfFitsComesBackWithAFunctionOnly) {
  chooseLine();
  mainMod.run(Control::MenSerImpDir);
  EXPECT_FALSE(on(Control::MenAda));
  panels.CmdWrkDir(0);
  EXPECT_TRUE(on(Control::MenAda));
}

TEST_F(MainPanelsTest, EseguiReachesTheFilePickerAndRinunciaDoesNot) {
  mainMod.run(Control::MenSerImpDir);
  session.files.WorkDir = {"", "/d", "/f", "/g"};
  panels.CmdWrkDir(0);
  EXPECT_EQ(session.files.DataDir, "/program");
  mainMod.run(Control::MenSerImpDir);
  EXPECT_EQ(panels.directory().caption(1), " File Dati:\n /d");
  panels.CmdWrkDir(1);
  EXPECT_EQ(session.files.DataDir, "/d");
  EXPECT_EQ(session.files.FunDir, "/f");
  EXPECT_EQ(session.files.GraDir, "/g");
}

TEST_F(MainPanelsTest, TheOptionsPanelShowsItsCaption) {
  mainMod.run(Control::MenSerImpGra);
  EXPECT_EQ(window.caption, "VOR_KEL: Impostazioni Grafiche");
  EXPECT_THAT(topMenus(), Each(false));
  EXPECT_THAT(view.calls, ElementsAre("show FraGra", "sync FraGra"));
  panels.CmdImpGra(0);
  EXPECT_EQ(window.caption, "VOR_KEL");
  EXPECT_EQ(view.calls.back(), "hide FraGra");
}

TEST_F(MainPanelsTest, AccettaSetsThePictureOfTheWindow) {
  mainMod.run(Control::MenSerImpGra);
  panels.graphics().stepPicture();
  EXPECT_EQ(window.background, 0);
  panels.CmdImpGra(1);
  EXPECT_EQ(window.background, 1);
}

TEST_F(MainPanelsTest, RinunciaKeepsThePictureAndTheScales) {
  mainMod.run(Control::MenSerImpGra);
  panels.graphics().stepPicture();
  for (int row = 0; row < 4; ++row) panels.graphics().scroll(row, 20);
  panels.graphics().choosePaper(1);
  panels.CmdImpGra(0);
  EXPECT_EQ(window.background, 0);
  EXPECT_EQ(session.settings.BackImage, 0);
  EXPECT_THAT(session.figures.GraphScale, Each(1.0F));
  EXPECT_EQ(session.figures.Landscape, kTrue);
}

}  // namespace
}  // namespace vk
