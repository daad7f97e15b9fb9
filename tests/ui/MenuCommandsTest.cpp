#include "tests/ui/MainModFixture.h"

namespace vk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

TEST_F(MainModTest, ACommandReadsItsFileOnceAndEveryOtherCommandNone) {
  const auto expectRead = [&](Control control, const std::vector<std::string>& names) {
    files.read.clear();
    mainMod.run(control);
    EXPECT_EQ(files.read, names) << control;
  };
  start();
  files.content["/a.dat"] = "x\r\ny\r\n3\r\n0 1 .1\r\n1 3 .1\r\n2 5.1 .1\r\n";
  files.content["/f.fcn"] = "A,B\r\nA*x+B\r\nretta\r\n";
  files.content["/g.gra"] = "\\XASSE(0,1,2,2,3,0)\r\n\\DATI(/a.dat)\r\n\\FUNZIONE(x)\r\n";
  dialogs.pick("/a.dat");
  expectRead(Control::MenDatLet, {"/a.dat"});
  expectRead(Control::MenDatOld0, {"/a.dat"});
  dialogs.pick("/f.fcn");
  expectRead(Control::MenFunLet, {"/f.fcn"});
  expectRead(Control::MenFunOld0, {"/f.fcn"});
  functions.load(1);
  expectRead(Control::MenFunCar, {});
  functions.select(6, 1);
  expectRead(Control::MenFunSel, {});
  input.execute({"1", "1", "1", "1"});
  expectRead(Control::MenAdaPar, {});
  for (const Control control :
       {Control::MenAdaAda, Control::MenGraDatVis, Control::MenGraFunVis, Control::MenGraDifVis}) {
    expectRead(control, {});
  }
  dialogs.pick("/g.gra");
  expectRead(Control::MenGraLetFil, {});
  expectRead(Control::MenGraVisFil, {"/g.gra", "/a.dat"});
  dialogs.pick("/a.dat");
  expectRead(Control::MenDatMod, {"/a.dat"});
  files.read.clear();
  editor.MnuFilSav();
  EXPECT_TRUE(files.read.empty()) << "the text is checked, not the file";
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

TEST_F(MainModTest, TheFitShowsItsScreen) {
  start();
  readData();
  chooseLine();
  input.execute({"1", "1", "1", "1"});
  mainMod.run(Control::MenAdaPar);
  EXPECT_EQ(session.analysis.ParVar, kTrue);
  mainMod.run(Control::MenAdaAda);
  EXPECT_EQ(output.requests.size(), 1U);
  EXPECT_TRUE(output.isOpen());
  EXPECT_TRUE(window.enabled);
  EXPECT_EQ(window.panels[5], "Par.Var.: SI");
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
    dialogs.expectBox();
    mainMod.run(Control::MenDatTra);
    using Box = ScriptedDialogs::Box;
    EXPECT_THAT(
        dialogs.boxes,
        ElementsAre(Box{"D_X2", "Errori nel Calcolo della Funzione"},
                    Box{"VOR_KEL",
                        "formula di x NON calcolabile nelle righe 1-3; formula di y NON calcolabile nelle "
                        "righe 1-3  <*> per Continuare"}));
    dialogs.boxes.clear();
  }
}

TEST_F(MainModTest, DataAreSimulatedAndFitted) {
  start();
  chooseLine();
  input.execute({"2", "1", "1", "1"});
  mainMod.run(Control::MenAdaPar);
  input.execute({"0", "10", "11", "1", "1", "0", "0"});
  mainMod.run(Control::MenDatSim);
  EXPECT_EQ(input.shown.at(1).caption, "VOR_KEL: Simulazione Dati");
  EXPECT_EQ(window.panels[1], "Dati: SIMULA.DAT");
  EXPECT_EQ(output.requests.size(), 1U);
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

}  // namespace
}  // namespace vk
