#include "commands/CommandDispatch.h"

#include <new>

#include "commands/CommandTable.h"
#include "doubles/ControlNames.h"
#include "doubles/Doubles.h"
#include "doubles/MemoryFiles.h"
#include "doubles/RecordingEditorForm.h"
#include "doubles/RecordingPlots.h"
#include "doubles/ScriptedDialogs.h"
#include "doubles/ScriptedForms.h"
#include "gral/NominalScreen.h"
#include "session/Session.h"
#include "ui/Editor.h"
#include "ui/MainPanels.h"

namespace vk {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Panels of the main window without a window.
class RecordingPanelView : public PanelView {
 public:
  std::vector<std::string> calls;
  void showPanel(Panel panel) override { note("show", panel); }
  void hidePanel(Panel panel) override { note("hide", panel); }
  void syncPanel(Panel panel) override {
    if (failure != 0) throw RuntimeError(failure);
    note("sync", panel);
  }
  int failure = 0;  ///< run-time error that the showing of a panel's content raises

 private:
  void note(const char* what, Panel panel) {
    calls.push_back(std::string(what) + (panel == Panel::kDirectory ? " FraDir" : " FraGra"));
  }
};

/// An output window that keeps what the session's flags were when it opened.
class FlagOutput : public RecordingOutput {
 public:
  explicit FlagOutput(const Session& session) : session_(session) {}
  std::vector<int> fitRunning;
  void OutShow(const OutputRequest& request) override {
    fitRunning.push_back(session_.FitRunning);
    RecordingOutput::OutShow(request);
  }

 private:
  const Session& session_;
};

class MainModTest : public testing::Test {
 protected:
  MainModTest() {
    panels.setView(view);
    editor.setForm(editorForm);
  }
  void start() {
    dialogs.press(1);
    mainMod.StartUp([this] { atShowing(); });
    dialogs.messages.clear();
    sound.tones.clear();
  }
  void readData() {
    files.content["/dati/a.dat"] = "x\r\ny\r\n3\r\n0 1 .1\r\n1 3 .1\r\n2 5.1 .1\r\n";
    dialogs.pick("/dati/a.dat");
    mainMod.run(Control::MenDatLet);
  }
  void chooseLine() {
    functions.select(2, 1);
    mainMod.run(Control::MenFunSel);
  }
  bool on(Control control) { return window.menuEnabled.at(control); }
  void expectBox(const std::string& title, const std::string& text) {
    ASSERT_EQ(dialogs.boxes.size(), 1u);
    EXPECT_EQ(dialogs.boxes[0], (ScriptedDialogs::Box{title, text}));
    dialogs.boxes.clear();
  }

  Session session;
  MemoryFiles files;
  ScriptedDialogs dialogs;
  RecordingMainWindow window;
  ScriptedInputForm input;
  FlagOutput output{session};
  ScriptedFunctionForms functions{session};
  StillClock clock;
  RecordingSound sound;
  RecordingProcess process;
  CyclingRandom random{{0.5F, 0.75F, 0.25F, 0.875F, 0.375F}};
  RecordingPanelView view;
  MainPanels panels{session, files, window};
  RecordingClipboard clipboard;
  RecordingPrinter printer;
  RecordingEditorForm editorForm;
  Editor editor{session, {files, dialogs, window, output, clipboard, printer, sound}};
  RecordingPlotWindows plots;
  RecorderDevice figurePrinter{PrinterMetrics{}};
  NominalScreen screen;
  FigurePorts figures{files, dialogs, window, output, sound, plots, figurePrinter, screen};
  std::function<void()> atShowing = [] {};
  MainMod mainMod{session,
                  {files, dialogs, window, input, output, functions, clock, sound, process, random, editor,
                   panels, [this]() -> FigurePorts& { return figures; }}};
};

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
  EXPECT_THAT(welcome.captions, ElementsAre("&Continua"));
  EXPECT_EQ(welcome.icon, kInformation);
  EXPECT_EQ(
      welcome.text.substr(0, welcome.text.find("La guida")),
      "La versione 1.0 di VOR_KEL per Windows 98 e` una versione preliminare che offre praticamente la "
      "stessa funzionalita` della versione 3.6 sviluppata per l'ambiente DOS.\rSi pregano gli utenti di "
      "segnalare i difetti di funzionamento che dovessero essere riscontrati.\r");
  EXPECT_EQ(std::count(welcome.text.begin(), welcome.text.end(), '\r'), 3);
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
    EXPECT_NE(asked.filter.find(c.filter), std::string::npos) << asked.filter;
    EXPECT_EQ(session.files.FileKind, c.kind);
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

TEST_F(MainModTest, FiguresWithoutTheirInputAreRefused) {
  start();
  dialogs.expectBox();
  mainMod.run(Control::MenGraDatVis);
  expectBox("VOR_KEL", "Dati NON Definiti!     <*> per Continuare");
  for (const Control control : {Control::MenGraFunVis, Control::MenGraDifVis}) {
    dialogs.expectBox();
    mainMod.run(control);
    expectBox("VOR_KEL", "Dati e Funzione NON definiti!     <*> per Continuare");
  }
  chooseLine();
  dialogs.expectBox();
  mainMod.run(Control::MenGraFunVis);
  expectBox("VOR_KEL", "Dati NON Definiti!     <*> per Continuare");
}

TEST_F(MainModTest, FiguresAreDrawnAndTheirTextsSaved) {
  start();
  readData();
  chooseLine();
  input.execute({"1", "1", "1", "1"});
  mainMod.run(Control::MenAdaPar);
  const struct {
    Control draw, save;
    const char *caption, *figure;
  } cases[] = {
      {Control::MenGraDatVis, Control::MenGraDatGra, "VOR_KEL: Grafico Dati", "%File Grafico Dati\r\n"},
      {Control::MenGraFunVis, Control::MenGraFunGra, "VOR_KEL: Grafico Dati e Funzione",
       "%File Grafico Dati e Funzione\r\n"},
      {Control::MenGraDifVis, Control::MenGraDifGra, "VOR_KEL: Grafico Differenze Dati-Funzione",
       "%File Grafico Differenze Dati-Funzione\r\n"}};
  for (const auto& c : cases) {
    EXPECT_TRUE(on(c.draw)) << c.draw;
    EXPECT_FALSE(on(c.save)) << c.save;
    mainMod.run(c.draw);
    EXPECT_EQ(plots.windows.back()->form.Caption(), c.caption);
    EXPECT_TRUE(plots.windows.back()->form.Visible());
    EXPECT_TRUE(on(c.save)) << c.save;
    dialogs.pick("/figura.gra");
    mainMod.run(c.save);
    EXPECT_EQ(files.content.at("/figura.gra").rfind(c.figure, 0), 0u) << c.figure;
    files.content.erase("/figura.gra");
  }
  EXPECT_EQ(plots.windows.size(), 3u);
  EXPECT_TRUE(on(Control::MenGraDifSav));
  dialogs.pick("/differenze.dat");
  mainMod.run(Control::MenGraDifSav);
  EXPECT_EQ(files.content.at("/differenze.dat").rfind("%File Dati Differenze Dati-Funzione\r\n", 0), 0u);
}

TEST_F(MainModTest, TheChosenGraphicFileRunsOnTheScreenAndOnThePrinter) {
  start();
  files.content["/g.gra"] = "\\SIMBOLO(3,4)\r\n";
  dialogs.pick("/g.gra");
  mainMod.run(Control::MenGraLetFil);
  EXPECT_TRUE(on(Control::MenGraVisFil));
  EXPECT_TRUE(on(Control::MenGraPriFil));
  mainMod.run(Control::MenGraVisFil);
  ASSERT_EQ(plots.windows.size(), 1u);
  EXPECT_EQ(plots.windows[0]->form.Caption(), "VOR_KEL: Visualizza File Grafico");
  mainMod.run(Control::MenGraPriFil);
  EXPECT_EQ(plots.windows.size(), 1u);
  EXPECT_EQ(figurePrinter.documents(), 1);
}

TEST_F(MainModTest, AGraphicFileThatHasGoneEndsTheCommand) {
  start();
  files.content["/g.gra"] = "%\r\n";
  dialogs.pick("/g.gra");
  mainMod.run(Control::MenGraLetFil);
  files.content.erase("/g.gra");
  dialogs.expectBox();
  mainMod.run(Control::MenGraVisFil);
  expectBox("VOR_KEL", RuntimeError(kFileNotFound).message());
  EXPECT_EQ(window.panels[3], "Gra.: g.gra");
  EXPECT_TRUE(on(Control::MenGraVisFil));
  files.content["/g.gra"] = "%\r\n";
  mainMod.run(Control::MenGraVisFil);
  EXPECT_EQ(plots.windows.size(), 1u);
}

TEST_F(MainModTest, AGraphicFileThatEndsTooSoonLeavesNoWindowAndNoData) {
  start();
  readData();
  files.content["/B.DAT"] = "x\r\ny\r\n2\r\n5 1 .1\r\n6 3 .1\r\n";
  files.content["/g.gra"] = "\\DATI(/B.DAT)\r\n\\SIMBOLO(3,4)&";
  dialogs.pick("/g.gra");
  mainMod.run(Control::MenGraLetFil);
  for (const Control control : {Control::MenGraVisFil, Control::MenGraPriFil}) {
    dialogs.expectBox();
    mainMod.run(control);
    expectBox("VOR_KEL", "Errore di run-time '62':\n\nInput oltre la fine del file");
    EXPECT_THAT(plots.windows, IsEmpty());
    EXPECT_EQ(session.loaded.DataFile, "/dati/a.dat");
    EXPECT_EQ(session.loaded.data.NumPnt, 3);
  }
  files.content["/g.gra"] = "\\SIMBOLO(1,1)\r\n";
  mainMod.run(Control::MenGraPriFil);
  EXPECT_EQ(figurePrinter.documents(), 1);
  const std::vector<std::string> printed = figurePrinter.lines();
  EXPECT_THAT(printed, testing::Not(Contains(HasSubstr("3,4")))) << "nothing is left of what broke off";
}

TEST_F(MainModTest, ARecentFileThatHasGoneChangesNothingAndTheNextReadingAsks) {
  start();
  readData();
  files.content["/dati/b.dat"] = "x\r\ny\r\n2\r\n0 1 .1\r\n1 3 .1\r\n";
  dialogs.pick("/dati/b.dat");
  mainMod.run(Control::MenDatLet);
  files.content.erase("/dati/a.dat");
  const auto captions = window.menuCaption;
  dialogs.expectBox();
  mainMod.run(Control::MenDatOld1);
  expectBox("VOR_KEL", "Errore di run-time '53':\n\nImpossibile trovare il file");
  EXPECT_EQ(window.panels[1], "Dati: b.dat");
  EXPECT_EQ(window.menuCaption, captions);
  EXPECT_EQ(session.files.RecentData.RecentCount, 2);
  dialogs.pick("/dati/b.dat");
  mainMod.run(Control::MenDatLet);
  EXPECT_EQ(session.files.RecentData.RecentCount, 3) << "read by the dialog";
}

TEST_F(MainModTest, ACommandThatBreaksOffDropsThePickedEntryOfTheListThatItReadsAndOfNoOther) {
  start();
  struct Reading {
    Control control;
    RecentList FileSettings::*list;
  };
  for (const Reading& failing : {Reading{Control::MenDatLet, &FileSettings::RecentData},
                                 {Control::MenFunLet, &FileSettings::RecentFun},
                                 {Control::MenGraVisFil, nullptr}}) {
    for (RecentList* list : {&session.files.RecentData, &session.files.RecentFun, &session.files.RecentGra}) {
      list->paths[1] = "/manca";
      list->pick = 1;
    }
    session.loaded.GraFile = "/manca";
    dialogs.expectBox();
    mainMod.run(failing.control);
    ASSERT_EQ(dialogs.boxes.size(), 1U) << failing.control;
    dialogs.boxes.clear();
    for (RecentList FileSettings::*list :
         {&FileSettings::RecentData, &FileSettings::RecentFun, &FileSettings::RecentGra}) {
      EXPECT_EQ((session.files.*list).pick, list == failing.list ? 0 : 1) << failing.control;
    }
  }
}

TEST_F(MainModTest, APickedEntryOutlivesTheFailureOfAnotherCommand) {
  start();
  readData();
  mainMod.run(Control::MenDatOld0);
  session.loaded.GraFile = "/manca.gra";
  dialogs.expectBox();
  mainMod.run(Control::MenGraVisFil);
  dialogs.boxes.clear();
  const auto asked = dialogs.fileRequests.size();
  mainMod.run(Control::MenDatLet);
  EXPECT_EQ(dialogs.fileRequests.size(), asked) << "the entry is read without asking";
  EXPECT_EQ(session.files.RecentData.RecentCount, 3);
}

TEST_F(MainModTest, AClickIntoAFigureCanPutItAway) {
  start();
  readData();
  mainMod.run(Control::MenGraDatVis);
  window.calls.clear();
  dialogs.press(2);
  plots.windows[0]->click();
  EXPECT_FALSE(plots.windows[0]->form.Visible());
  EXPECT_THAT(window.calls, ElementsAre("front"));
}

TEST_F(MainModTest, TheFitIsRefusedWithItsFourTexts) {
  start();
  const auto refused = [&](const std::string& text) {
    dialogs.expectBox();
    mainMod.run(Control::MenAdaAda);
    expectBox("ERRORE !", text + "  <*> per Continuare");
  };
  refused("Dati e Funzione NON definiti!");
  chooseLine();
  refused("Dati NON Definiti!");
  readData();
  refused("Parametri NON Definiti!");
  session.analysis.FunDefined = kFalse;
  refused("Funzione NON Definita!");
}

TEST_F(MainModTest, TheFitRunsUnderItsFlag) {
  start();
  readData();
  chooseLine();
  input.execute({"1", "1", "1", "1"});
  mainMod.run(Control::MenAdaPar);
  EXPECT_EQ(session.analysis.ParVar, kTrue);
  mainMod.run(Control::MenAdaAda);
  EXPECT_THAT(output.fitRunning, ElementsAre(kTrue));
  EXPECT_EQ(session.FitRunning, kFalse);
  EXPECT_TRUE(output.isOpen());
  EXPECT_TRUE(window.enabled);
  EXPECT_EQ(window.panels[5], "Par.Var.: SI");
}

TEST_F(MainModTest, TheFlagOfTheFitFallsAlsoAfterAFailure) {
  start();
  readData();
  chooseLine();
  input.execute({"0", "0", "1", "1"});
  mainMod.run(Control::MenAdaPar);
  session.loaded.data.ErrYpnt.span(1, 3)[0] = 0;
  mainMod.run(Control::MenAdaAda);
  EXPECT_EQ(session.FitRunning, kFalse);
}

TEST_F(MainModTest, ParametersAreEnteredForAFit) {
  start();
  chooseLine();
  session.analysis.PropagationMode = kTrue;
  input.giveUp();
  mainMod.run(Control::MenAdaPar);
  EXPECT_EQ(session.analysis.PropagationMode, kFalse);
  EXPECT_EQ(input.shown.at(0).caption, "VOR_KEL: Parametri Iniziali");
  EXPECT_EQ(session.ErrFlag, kTrue);
}

TEST_F(MainModTest, PropagationAsksForErrorsAndLeavesNoFlag) {
  start();
  mainMod.run(Control::MenSerPro);
  EXPECT_TRUE(input.shown.empty()) << "without a function nothing happens";
  EXPECT_EQ(session.analysis.PropagationMode, kFalse);
  chooseLine();
  EXPECT_TRUE(on(Control::MenSerPro));
  input.giveUp();
  mainMod.run(Control::MenSerPro);
  EXPECT_EQ(input.shown.at(0).caption, "VOR_KEL: Propagazione Errori");
  EXPECT_EQ(session.analysis.PropagationMode, kTrue);
  EXPECT_EQ(session.ErrFlag, 0);
  input.execute({"1", "1", "1", "0", "-.5", "0"});
  mainMod.run(Control::MenSerPro);
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(output.request().caption, "VOR_KEL: Propagazione Errori");
  EXPECT_TRUE(output.isOpen());
  EXPECT_TRUE(window.enabled);
  EXPECT_THAT(random.seeds, ElementsAre(clock.now));
  EXPECT_EQ(window.panels[5], "Par.Var.: NO");
}

TEST_F(MainModTest, AHistogramIsSavedInTheFolderOfDataFiles) {
  start();
  chooseLine();
  input.execute({"1", "1", "1", "0", "-.5", "0"});
  mainMod.run(Control::MenSerPro);
  output.saveRoutine()();
  EXPECT_THAT(files.written, ElementsAre("/program/Mon_Sim.DAT"));
}

TEST_F(MainModTest, DataAreTransformed) {
  start();
  readData();
  input.execute({"x", "y", "x*2", "y", "dy"});
  mainMod.run(Control::MenDatTra);
  EXPECT_EQ(input.shown.at(0).caption, "VOR_KEL: Trasformazione Dati");
  EXPECT_EQ(session.loaded.data.Xpnt[3], 4);
}

TEST_F(MainModTest, EachCommandTellsOnceOfAGammaFunctionThatDoesNotConverge) {
  start();
  readData();
  for (int command = 1; command <= 2; ++command) {
    input.execute({"x", "y", "x+0*C_X2(800,800)", "y+0*C_P(400,401)", "dy"});
    dialogs.expectBox();
    mainMod.run(Control::MenDatTra);
    expectBox("D_X2", "Errori nel Calcolo della Funzione");
  }
}

TEST_F(MainModTest, DataAreSimulatedAndFittedUnderTheFlagOfTheFit) {
  start();
  chooseLine();
  input.execute({"2", "1", "1", "1"});
  mainMod.run(Control::MenAdaPar);
  input.execute({"0", "10", "11", "1", "1", "0", "0"});
  mainMod.run(Control::MenDatSim);
  EXPECT_EQ(input.shown.at(1).caption, "VOR_KEL: Simulazione Dati");
  EXPECT_EQ(window.panels[1], "Dati: SIMULA.DAT");
  EXPECT_THAT(output.fitRunning, ElementsAre(kTrue));
  EXPECT_EQ(session.FitRunning, kFalse);
  EXPECT_EQ(session.analysis.par.ParValues[1], 2);
  EXPECT_THAT(random.seeds, IsEmpty());
}

TEST_F(MainModTest, TheCalculatorIsStartedAtEachClick) {
  start();
  mainMod.run(Control::MenSerCal);
  mainMod.run(Control::MenSerCal);
  EXPECT_THAT(process.started, ElementsAre("/program/tabulo", "/program/tabulo"));
  process.works = false;
  dialogs.expectBox();
  mainMod.run(Control::MenSerCal);
  expectBox("VOR_KEL", "Calcolatrice NON Trovata!     <*> per Continuare");
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

TEST_F(MainModTest, TheErrorOptionAndItsMarkChangeTogether) {
  start();
  for (int expected : {kTrue, kFalse, kTrue}) {
    mainMod.run(Control::MenSerErr);
    EXPECT_EQ(session.settings.ShowErrors, expected);
    EXPECT_EQ(window.menuChecked.at(Control::MenSerErr), expected == kTrue);
  }
}

TEST_F(MainModTest, AnUnguardedErrorIsToldAndEndsTheCommand) {
  start();
  files.content["/a.dat"] = "x";
  files.readError["/a.dat"] = kPermissionDenied;
  dialogs.pick("/a.dat");
  dialogs.expectBox();
  window.panels.clear();
  mainMod.run(Control::MenDatLet);
  expectBox("VOR_KEL", "Errore di run-time '70':\n\nAutorizzazione negata");
  EXPECT_EQ(window.panels[1], "Dati: Nessuno");
  EXPECT_EQ(session.loaded.DataFile, "Nessuno");
  mainMod.run(Control::MenSerErr);
  EXPECT_EQ(session.settings.ShowErrors, kTrue) << "the program goes on";
}

TEST_F(MainModTest, AFunctionFileThatCannotBeReadLeavesSwitchesAndFunctions) {
  start();
  session.analysis.PropagationMode = kTrue;
  session.settings.ShowErrors = kTrue;
  files.content["/f.fcn"] = "A\r\nA*x\r\nretta\r\n";
  files.readError["/f.fcn"] = kDeviceIoError;
  dialogs.pick("/f.fcn");
  dialogs.expectBox();
  mainMod.run(Control::MenFunLet);
  dialogs.boxes.clear();
  EXPECT_EQ(session.TraceEnabled, kFalse);
  EXPECT_EQ(session.CheckFunctions, kFalse);
  EXPECT_EQ(session.analysis.PropagationMode, kTrue);
  EXPECT_EQ(session.loaded.FunFileRead, kFalse);
  EXPECT_FALSE(on(Control::MenFunCar));
}

TEST_F(MainModTest, ExhaustedMemoryIsRunTimeErrorSeven) {
  dialogs.expectBox();
  mainMod.guarded([] { throw std::bad_alloc(); });
  expectBox("VOR_KEL", "Errore di run-time '7':\n\nMemoria esaurita");
}

TEST_F(MainModTest, APanelThatCannotBeOpenedLeavesTheMenus) {
  start();
  view.failure = kOutOfMemory;
  dialogs.expectBox();
  mainMod.run(Control::MenSerImpDir);
  dialogs.boxes.clear();
  EXPECT_FALSE(panels.isOpen());
  EXPECT_EQ(window.caption, "VOR_KEL");
  EXPECT_TRUE(on(Control::MenDat));
}

TEST_F(MainModTest, FlagsAreExactlyTrueOrFalseAfterEveryCommand) {
  start();
  const auto check = [&](Control control) {
    for (const Flag flag :
         {session.loaded.DataDefined, session.loaded.FunFileRead, session.analysis.FunDefined,
          session.analysis.ParametersSet, session.analysis.ParVar, session.loaded.GraDefined,
          session.settings.ShowErrors, session.TraceEnabled, session.CheckFunctions, session.FitRunning,
          session.analysis.PropagationMode, session.analysis.SimFirstTime, session.figures.Landscape,
          session.settings.BeepOn, session.loaded.data.kXpntErr, panels.PanelClosed}) {
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
