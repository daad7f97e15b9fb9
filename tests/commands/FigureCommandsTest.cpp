#include "commands/DataCommands.h"
#include "doubles/TestPorts.h"
#include "tests/commands/FigureFixture.h"

namespace vk {
namespace {

class FigureCommandsTest : public FigureFixture {
 protected:
  using Command = void (*)(Session&, Ports&);

  /// The box with which a command refuses.
  std::string refusalOf(Command command) {
    dialogs.expectBox();
    command(session, ports);
    EXPECT_TRUE(plots.windows.empty());
    EXPECT_EQ(dialogs.boxes.back().title, "VOR_KEL");
    return dialogs.boxes.back().text;
  }
  void loadPoints() { loadData("A.DAT", {{0, 1, 0, .25}, {10, 2.5, 0, .5}}); }
};

TEST_F(FigureCommandsTest, FiguresTellWhatIsMissing) {
  EXPECT_EQ(refusalOf(MenGraDatVis), "Dati NON Definiti!     <*> per Continuare");
  EXPECT_EQ(refusalOf(MenGraFunVis), "Dati e Funzione NON definiti!     <*> per Continuare");
  EXPECT_EQ(refusalOf(MenGraDifVis), "Dati e Funzione NON definiti!     <*> per Continuare");
  loadPoints();
  EXPECT_EQ(refusalOf(MenGraFunVis), "Funzione NON Definita!     <*> per Continuare");
  EXPECT_EQ(refusalOf(MenGraDifVis), "Funzione NON Definita!     <*> per Continuare");
  session.loaded.DataDefined = kFalse;
  takeFunction(2, 1, {1, 0});
  EXPECT_EQ(refusalOf(MenGraFunVis), "Dati NON Definiti!     <*> per Continuare");
  EXPECT_EQ(refusalOf(MenGraDifVis), "Dati NON Definiti!     <*> per Continuare");
}

TEST_F(FigureCommandsTest, EachDrawsItsFigure) {
  loadPoints();
  takeFunction(2, 1, {1, 0});
  const Command commands[] = {MenGraDatVis, MenGraFunVis, MenGraDifVis};
  std::size_t kind = 0;
  for (const Command command : commands) {
    command(session, ports);
    EXPECT_NE(session.figures.GraphText[++kind], "");
  }
  EXPECT_EQ(plots.windows.size(), 3U);
}

TEST_F(FigureCommandsTest, EachSavesItsText) {
  session.figures.DiffText = "zero";
  session.figures.GraphText = {"", "one", "two", "three"};
  void (*const commands[])(Session&, Ports&) = {MenGraDifSav, MenGraDatGra, MenGraFunGra, MenGraDifGra};
  const char* texts[] = {"zero\r\n", "one\r\n", "two\r\n", "three\r\n"};
  for (std::size_t i = 0; i < 4; ++i) {
    const std::string name = "FILE" + std::to_string(i);
    dialogs.pick(name);
    commands[i](session, TestPorts(files, dialogs));
    EXPECT_EQ(files.content[name], texts[i]);
  }
}

TEST_F(FigureCommandsTest, TheChosenGraphicFileRunsOnTheScreenAndOnThePrinter) {
  files.content["/G/FIG.GRA"] = lines({"\\SIMBOLO(3,4)", "\\NO()"});
  dialogs.pick("/G/FIG.GRA");
  MenGraLetFil(session, TestPorts(files, dialogs, window));
  EXPECT_EQ(session.loaded.GraFile, "/G/FIG.GRA");
  EXPECT_TRUE(window.menuEnabled[Control::MenGraVisFil]);
  EXPECT_TRUE(window.menuEnabled[Control::MenGraPriFil]);
  MenGraVisFil(session, ports);
  EXPECT_EQ(lastWindow().form.lines(), drawing([](GralCls& d) { d.GralMark(3, 4); }));
  MenGraPriFil(session, ports);
  EXPECT_EQ(printer.documents(), 1);
  EXPECT_EQ(plots.windows.size(), 1U);
  EXPECT_EQ(output.requests.size(), 2U);
}

TEST_F(FigureCommandsTest, TheFilePickerOfGraphicFilesHasItsCaptionAndKind) {
  dialogs.pick(std::nullopt);
  MenGraLetFil(session, TestPorts(files, dialogs, window));
  EXPECT_EQ(dialogs.fileRequests[0].caption, "VOR_KEL: Lettura File Grafico");
  EXPECT_EQ(dialogs.fileRequests[0].filter, "Tutti i File (*.*)|*.*|File Grafici (*.GRA)|*.GRA|");
  EXPECT_EQ(session.loaded.GraDefined, kFalse);
}

TEST_F(FigureCommandsTest, TextsOfFiguresAreForgottenWithTheirData) {
  loadPoints();
  MenGraDatVis(session, ports);
  EXPECT_NE(session.figures.GraphText[1], "");
  files.content["B.DAT"] = lines({"x", "y", "2", "1 2 .5", "2 3 .5"});
  dialogs.pick("B.DAT");
  MenDatLet(session, TestPorts(files, dialogs, output, window));
  EXPECT_EQ(session.figures.GraphText[1], "");
  EXPECT_FALSE(window.menuEnabled[Control::MenGraDatGra]);
}

}  // namespace
}  // namespace vk
