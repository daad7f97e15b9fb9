#include <filesystem>

#include "ui_qt/MainFormFixture.h"

namespace vk {
namespace {

const char* const kFunctions = "a,k\r\na*EXP(-k*x)\r\nDecadimento\r\n";

class FileOpeningTest : public MainFormFixture {
 protected:
  std::string dropped(const std::string& name, const std::string& bytes) {
    const std::string path = folder.make(name, bytes);
    open({path});
    return path;
  }
};

TEST_F(FileOpeningTest, EachKindIsReadByItsCommandWhateverTheCaseOfItsExtension) {
  const std::string data = dropped("a b.dAt", lineData());
  EXPECT_EQ(session().loaded.DataFile, data);
  EXPECT_EQ(panel(1), "Dati: a b.dAt");
  EXPECT_EQ(session().files.DataDir, folder.path()) << "as the file dialog remembers it";
  EXPECT_EQ(session().files.DataExt, "dAt");
  dropped("f.FCN", kFunctions);
  EXPECT_TRUE(session().loaded.FunFileRead);
  const std::string figure = dropped("g.gra", "%\r\n");
  EXPECT_EQ(session().loaded.GraFile, figure);
  EXPECT_EQ(session().files.RecentGra.paths[1], figure);
}

TEST_F(FileOpeningTest, ADropIsTheWayOutOfAPickedRecentEntry) {
  dropped("a.dat", lineData());
  choose("MenDatOld(0)");
  EXPECT_EQ(session().files.RecentData.pick, 1);
  const std::string other = dropped("b.dat", lineData());
  EXPECT_EQ(session().loaded.DataFile, other);
  user.choose("MenDatLet");
  user.cancelFile();
  act();
}

TEST_F(FileOpeningTest, SeveralFilesAreReadInTurnUpToTheFirstThatIsNot) {
  const std::string good = folder.make("a.dat", lineData()), functions = folder.make("f.fcn", kFunctions);
  open({good, functions});
  EXPECT_TRUE(session().loaded.FunFileRead);
  const std::string bad = folder.make("bad.dat", "t\r\ns\r\n2\r\n1 2 .1\r\n2 x .1\r\n"),
                    last = folder.make("g.gra", "%\r\n");
  session().settings.ShowErrors = kTrue;
  open({bad, last});
  EXPECT_EQ(session().loaded.DataFile, good);
  EXPECT_EQ(session().loaded.GraDefined, 0);
  EXPECT_NE(windowNamed("FrmOut"), nullptr) << "the list of errors";
  open({last});
  EXPECT_EQ(session().loaded.GraFile, last);
}

TEST_F(FileOpeningTest, AMissingFileIsToldAndAnotherMayBeChosen) {
  const std::string good = folder.make("a.dat", lineData()), missing = folder / "none.dat";
  for (const char* button : {"CmdMsg(1)", "CmdMsg(0)"}) {
    user.at("FrmMsg", [&](QWidget* box) {
      EXPECT_EQ(box->accessibleDescription().toStdString(),
                "Il File Dati Specificato: " + missing + " NON Esiste!");
      QTest::mouseClick(control<QPushButton>(box, button), Qt::LeftButton);
    });
    if (button == std::string("CmdMsg(0)")) user.file(QString::fromStdString(good));
    open({missing});
  }
  EXPECT_EQ(session().loaded.DataFile, good);
}

TEST_F(FileOpeningTest, NothingIsTakenWhereNoMenuEntryCouldBeChosen) {
  const std::string good = folder.make("a.dat", lineData());
  EXPECT_FALSE(drop({QUrl("https://example.org/a.dat")})) << "not on this machine";
  EXPECT_FALSE(drop(QList<QUrl>()));
  user.choose("MenDatMod");
  user.file(QString::fromStdString(good));
  act();
  EXPECT_FALSE(drop({good})) << "the editor holds the window shut";
  user.close("FrmEdi");
  user.choose("MenSerImpGra");
  act();
  EXPECT_FALSE(drop({good})) << "a panel is open";
  EXPECT_EQ(session().loaded.DataDefined, 0);
}

TEST_F(FileOpeningTest, TheCommandLineNamesFilesFromTheCurrentFolder) {
  folder.make("a.dat", lineData());
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  application.open({"./a.dat"});
  std::filesystem::current_path(before);
  EXPECT_EQ(session().loaded.DataFile, folder / "a.dat");
}

}  // namespace
}  // namespace vk
