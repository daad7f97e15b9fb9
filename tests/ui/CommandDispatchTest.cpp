#include <algorithm>

#include "tests/ui/MainModFixture.h"

namespace vk {
namespace {

using testing::Each;
using testing::ElementsAre;

TEST_F(MainModTest, TheWindowFirstShowsTheTextsOfTheStart) {
  window.background = -1;
  atShowing = [this] {
    EXPECT_EQ(window.panels[1], "Dati: Nessuno ");
    EXPECT_EQ(window.panels[2], "Fun.: Nessuno ");
    EXPECT_EQ(window.panels[3], "Grafici: Nessuno ");
    EXPECT_EQ(window.panels[4], "Fun.Att.: NO ");
    EXPECT_EQ(window.panels[5], "Par.Var.: NO ");
    EXPECT_EQ(window.caption, "VOR_KEL");
    EXPECT_EQ(window.background, 0);
    EXPECT_TRUE(dialogs.messages.empty()) << "the welcome comes after the window";
  };
  start();
  EXPECT_EQ(window.panels[1], "Dati: Nessuno");
  EXPECT_EQ(window.panels[2], "Fun.: Nessuno");
  EXPECT_EQ(window.panels[3], "Gra.: Nessuno");
  EXPECT_EQ(window.panels[4], "Fun.Att.: NO");
  EXPECT_EQ(window.panels[5], "Par.Var.: NO");
}

TEST_F(MainModTest, TheWelcomeIsToldWithOneButton) {
  dialogs.press(1);
  mainMod.StartUp([] {});
  ASSERT_EQ(dialogs.messages.size(), 1u);
  const MessageRequest& welcome = dialogs.messages[0];
  EXPECT_EQ(welcome.caption, "VOR_KEL Versione Windows 98");
  EXPECT_EQ(welcome.captions, (std::vector<WindowText>{"&Continua"}));
  EXPECT_EQ(welcome.icon, kInformation);
  EXPECT_EQ(
      welcome.text.bytes().substr(0, welcome.text.bytes().find("La guida")),
      "La versione 1.0 di VOR_KEL per Windows 98 e` una versione preliminare che offre praticamente la "
      "stessa funzionalita` della versione 3.6 sviluppata per l'ambiente DOS.\rSi pregano gli utenti di "
      "segnalare i difetti di funzionamento che dovessero essere riscontrati.\r");
  EXPECT_EQ(std::ranges::count(welcome.text.bytes(), '\r'), 3);
}

TEST_F(MainModTest, TheStartSoundsOnceBehindTheWelcomeAndBeforeTheRefresh) {
  dialogs.press(1);
  std::size_t messages = 0;
  std::string panel;
  sound.atTone = [&] { messages = dialogs.messages.size(), panel = window.panels[3]; };
  mainMod.StartUp([] {});
  EXPECT_THAT(sound.tones, ElementsAre(RecordingSound::Tone{1000, 1}));
  EXPECT_EQ(messages, 1u);
  EXPECT_EQ(panel, "Grafici: Nessuno ");
  EXPECT_EQ(window.panels[3], "Gra.: Nessuno");
}

TEST_F(MainModTest, TheStartFillsFoldersAndCatalogue) {
  start();
  EXPECT_EQ(session.files.DataDir, "/program");
  EXPECT_THAT(session.files.WorkDir, Each(std::string("/program")));
  EXPECT_EQ(session.loaded.catalogue.inner.size(), 5u);
  EXPECT_EQ(session.loaded.catalogue.outer.size(), 9u);
  EXPECT_THAT(functions.calls, ElementsAre("refill selection"));
}

TEST_F(MainModTest, RightAfterTheStartTheMenusOfMissingThingsAreOff) {
  start();
  for (const Control control :
       {Control::MenDatSav, Control::MenDatTra, Control::MenDatSim, Control::MenGraDat, Control::MenGraFun,
        Control::MenGraDif, Control::MenAda, Control::MenAdaPar, Control::MenAdaAda, Control::MenSerPro,
        Control::MenFunCar, Control::MenGraVisFil, Control::MenGraPriFil}) {
    EXPECT_FALSE(on(control)) << control;
  }
  for (const Control control :
       {Control::MenDat, Control::MenDatLet, Control::MenDatMod, Control::MenFun, Control::MenFunSel,
        Control::MenFunLet, Control::MenFunMod, Control::MenGra, Control::MenGraLetFil, Control::MenGraModFil,
        Control::MenSer, Control::MenSerCal, Control::MenSerOpz, Control::MenSerErr}) {
    EXPECT_TRUE(on(control)) << control;
  }
  EXPECT_FALSE(window.menuChecked.at(Control::MenSerErr));
  EXPECT_FALSE(window.menuVisible.at(Control::MenSerMod));
  EXPECT_FALSE(window.menuVisible.at(Control::MenFunVar));
}

TEST(MainMod, EveryEntryThatRunsSomethingHasACommand) {
  for (const Command& command : commandTable()) {
    const bool runs = command.kind != CommandKind::kMenu && command.kind != CommandKind::kNothing;
    EXPECT_EQ(command.run != nullptr, runs) << command.control;
  }
}

TEST_F(MainModTest, HiddenEntriesDoNothing) {
  start();
  window.panels.clear();
  mainMod.run(Control::MenSerMod);
  mainMod.run(Control::MenFunVar);
  EXPECT_TRUE(window.panels.empty());
}

TEST_F(MainModTest, ACommandEndsWithTheRefreshOfTheDisplay) {
  start();
  readData();
  EXPECT_EQ(window.panels[1], "Dati: a.dat");
  EXPECT_TRUE(on(Control::MenDatSav));
  window.panels.clear();
  mainMod.run(Control::MenSerErr);
  EXPECT_EQ(window.panels[1], "Dati: a.dat");
}

TEST_F(MainModTest, TheTwoCommandsThatOpenAPanelLeaveTheDisplay) {
  start();
  for (const Control control : {Control::MenSerImpDir, Control::MenSerImpGra}) {
    window.panels.clear();
    mainMod.run(control);
    EXPECT_TRUE(window.panels.empty()) << control;
    EXPECT_TRUE(panels.isOpen());
    mainMod.run(Control::MenSerErr);
    EXPECT_EQ(session.settings.ShowErrors, kFalse) << "no command runs under a panel";
    panels.CmdWrkDir(0);
  }
}

TEST_F(MainModTest, ARecentEntryIsReadWithoutAsking) {
  start();
  readData();
  session.loaded.DataFile.clear();
  mainMod.run(Control::MenDatOld0);
  EXPECT_EQ(session.files.RecentData.pick, 1);
  EXPECT_EQ(session.loaded.DataFile, "/dati/a.dat");
  EXPECT_EQ(dialogs.fileRequests.size(), 1u);
}

TEST_F(MainModTest, RecentEntriesOfFunctionsAndFiguresTakeTheirOwnLists) {
  start();
  files.content["/f.fcn"] = "A\r\nA*x\r\nretta\r\n";
  dialogs.pick("/f.fcn");
  mainMod.run(Control::MenFunLet);
  files.content["/g.gra"] = "%\r\n";
  dialogs.pick("/g.gra");
  mainMod.run(Control::MenGraLetFil);
  mainMod.run(Control::MenFunOld0);
  EXPECT_EQ(session.files.RecentFun.pick, 0) << "asks again the next time";
  EXPECT_EQ(session.files.RecentFun.RecentCount, 2);
  mainMod.run(Control::MenGraOld0);
  EXPECT_EQ(session.files.RecentGra.pick, 1);
  EXPECT_EQ(session.loaded.GraFile, "/g.gra");
  EXPECT_EQ(window.panels[3], "Gra.: g.gra");
}

TEST_F(MainModTest, ModifyCommandsPickForTheEditor) {
  start();
  const struct {
    Control control;
    const char *caption, *filter;
    int kind;
  } cases[] = {
      {Control::MenDatMod, "VOR_KEL: Modifica File Dati", "File Dati (*.DAT)", kDataKind},
      {Control::MenFunMod, "VOR_KEL: Modifica File Funzioni", "File Funzioni (*.FCN)", kFunctionKind},
      {Control::MenGraModFil, "VOR_KEL: Modifica File Grafico", "File Grafici (*.GRA)", kGraphicKind}};
  files.content["/nota.txt"] = "testo\r\n";
  for (const auto& c : cases) {
    dialogs.fileRequests.clear();
    dialogs.pick("/nota.txt");
    mainMod.run(c.control);
    const FileRequest& asked = dialogs.fileRequests.at(0);
    EXPECT_EQ(asked.caption, c.caption);
    EXPECT_FALSE(asked.save);
    EXPECT_THAT(std::string(asked.filter.bytes()), testing::HasSubstr(c.filter));
    EXPECT_EQ(editorForm.caption, std::string(c.caption) + " nota.txt");
    EXPECT_TRUE(editorForm.visible);
    EXPECT_FALSE(window.enabled);
    editor.MnuFilRin();

    dialogs.pick(std::nullopt);
    mainMod.run(c.control);
    EXPECT_EQ(session.ErrFlag, kCancelled);
    EXPECT_FALSE(editorForm.visible) << "a cancel opens nothing";
  }
}

TEST_F(MainModTest, OneCommandRunsAtATime) {
  start();
  functions.whileOpen = [this] { mainMod.run(Control::MenSerErr); };
  functions.giveUpSelection();
  mainMod.run(Control::MenFunSel);
  EXPECT_EQ(session.settings.ShowErrors, kFalse);
  mainMod.run(Control::MenSerErr);
  EXPECT_EQ(session.settings.ShowErrors, kTrue);
}

TEST_F(MainModTest, TheDiagnosisIsShownWhereNothingElseRuns) {
  start();
  readData();
  chooseLine();
  input.execute({"1", "1", "1", "1"});
  mainMod.run(Control::MenAdaPar);
  mainMod.run(Control::MenAdaAda);
  functions.whileOpen = [this] { mainMod.diagnose(); };
  functions.giveUpSelection();
  mainMod.run(Control::MenFunSel);
  mainMod.run(Control::MenSerImpDir);
  mainMod.diagnose();
  EXPECT_TRUE(report.reports.empty()) << "neither in a command nor under a panel";
  panels.CmdWrkDir(0);
  mainMod.diagnose();
  EXPECT_EQ(report.reports.size(), 1U);
}

TEST_F(MainModTest, TheErrorOptionAndItsMarkChangeTogether) {
  start();
  for (int expected : {kTrue, kFalse, kTrue}) {
    mainMod.run(Control::MenSerErr);
    EXPECT_EQ(session.settings.ShowErrors, expected);
    EXPECT_EQ(window.menuChecked.at(Control::MenSerErr), expected == kTrue);
  }
}

TEST_F(MainModTest, FlagsAreExactlyTrueOrFalseAfterEveryCommand) {
  start();
  const auto check = [&](Control control) {
    for (const Flag flag :
         {session.loaded.DataDefined, session.loaded.FunFileRead, session.analysis.FunDefined,
          session.analysis.ParametersSet, session.analysis.ParVar, session.loaded.GraDefined,
          session.settings.ShowErrors, session.analysis.PropagationMode, session.analysis.SimFirstTime,
          session.figures.Landscape, session.settings.BeepOn, session.loaded.data.kXpntErr,
          panels.PanelClosed}) {
      EXPECT_TRUE(flag == kTrue || flag == kFalse) << control << ": " << flag;
    }
  };
  readData();
  check(Control::MenDatLet);
  files.content["/f.fcn"] = "A,B\r\nA*x+B\r\nretta\r\n";
  dialogs.pick("/f.fcn");
  mainMod.run(Control::MenFunLet);
  check(Control::MenFunLet);
  functions.load(1);
  mainMod.run(Control::MenFunCar);
  check(Control::MenFunCar);
  functions.select(6, 1);
  mainMod.run(Control::MenFunSel);
  check(Control::MenFunSel);
  input.execute({"1", "1", "1", "1"});
  mainMod.run(Control::MenAdaPar);
  check(Control::MenAdaPar);
  for (const Control control : {Control::MenAdaAda, Control::MenSerErr, Control::MenSerImpDir}) {
    mainMod.run(control);
    check(control);
  }
  panels.CmdWrkDir(1);
  mainMod.run(Control::MenSerImpGra);
  panels.CmdImpGra(1);
  check(Control::MenSerImpGra);
}

}  // namespace
}  // namespace vk
