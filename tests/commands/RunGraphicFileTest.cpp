#include <set>

#include "commands/FunctionChoice.h"
#include "doubles/Choices.h"
#include "doubles/EvaluateFunction.h"
#include "tests/commands/FigureFixture.h"

namespace vk {
namespace {

class RunGraphicFileTest : public FigureFixture {
 protected:
  RunGraphicFileTest() { files.content["OTHER.DAT"] = lines({"a", "b", "2 1", "5 6 .1 .2", "7 8 .3 .4"}); }
  /// A session with three points that no file holds, and effective errors.
  void loadOwnData(const std::string& name) {
    loadData(name, {{1, 2, .1, .5}, {2, 3, .1, .5}, {4, 1, .1, .5}}, true);
    for (int i = 1; i <= 3; ++i) session.loaded.data.ErrEff[i] = i / 8.0;
  }
  void expectOwnData(const DataSet& before) {
    const DataSet& data = session.loaded.data;
    EXPECT_EQ(data.NumPnt, before.NumPnt);
    EXPECT_EQ(data.kXpntErr, before.kXpntErr);
    EXPECT_EQ(data.Xpnt, before.Xpnt);
    EXPECT_EQ(data.Ypnt, before.Ypnt);
    EXPECT_EQ(data.ErrXpnt, before.ErrXpnt);
    EXPECT_EQ(data.ErrYpnt, before.ErrYpnt);
    EXPECT_EQ(data.ErrEff, before.ErrEff);
    EXPECT_EQ(data.TitleX, before.TitleX);
    EXPECT_EQ(data.TitleY, before.TitleY);
  }

  const std::string otherData = lines({"\\DATI(OTHER.DAT)", "\\SPEZZATA(OTHER.DAT)", "\\CURVA(OTHER.DAT)"});
};

// QUIRK: what a command before left in the register counts as an error of a file without lines.
TEST_F(RunGraphicFileTest, AnEmptyFileShowsTheFailureOfTheCommandBeforeAsAnEmptyList) {
  session.settings.ShowErrors = kTrue;
  session.ErrFlag = kCancelled;
  run("%only a comment\r\n");
  EXPECT_TRUE(output.requests.empty()) << "each line clears the register";
  session.ErrFlag = kCancelled;
  run("");
  ASSERT_EQ(output.requests.size(), 1U);
  EXPECT_EQ(output.request().text, "");
  EXPECT_EQ(output.request().caption, "VOR_KEL: File Grafico - Controllo File");
}

TEST_F(RunGraphicFileTest, DataThatNoFileHoldsSurviveARun) {
  loadOwnData("SIMULA.DAT");
  const DataSet before = session.loaded.data;
  run(otherData);
  expectOwnData(before);
  EXPECT_EQ(session.loaded.DataFile, "SIMULA.DAT");
  EXPECT_EQ(session.loaded.DataDefined, kTrue);
}

TEST_F(RunGraphicFileTest, DataOfAFileAreAsBeforeAndItsNameIsInCapitals) {
  files.content["/data/own.dat"] = lines({"% a comment", "Tempo (s)", "Corsa (m)", "2", "9 9 9", "8 8 8"});
  loadOwnData("/data/own.dat");
  const DataSet before = session.loaded.data;
  run(otherData);
  expectOwnData(before);
  EXPECT_EQ(session.loaded.DataFile, "/DATA/OWN.DAT");
  EXPECT_EQ(session.loaded.DataPath, "/data/own.dat");
  EXPECT_EQ(window.panels[1], "Dati: OWN.DAT");
}

TEST_F(RunGraphicFileTest, DepartureAGeneratedFigureNamesTheDataFileAsItWasOpened) {
  files.content["/data/own.dat"] = lines({"Tempo (s)", "Corsa (m)", "2", "1 9 9", "2 8 8"});
  loadOwnData("/data/own.dat");
  run(otherData);
  MakeGraph(session, ports, kDataFigure, kernels);
  EXPECT_THAT(session.figures.GraphText[1], testing::HasSubstr("%File Dati: /DATA/OWN.DAT\r\n"));
  EXPECT_THAT(session.figures.GraphText[1], testing::HasSubstr("\\Dati(/data/own.dat)\r\n"));
}

TEST_F(RunGraphicFileTest, DepartureFilesAreSoughtInTheCurrentFolderThenAmongTheDataThenBesideTheFigure) {
  session.files.DataDir = "/data";
  const auto foldersRead = [&] {
    files.read.clear();
    run(lines({"\\DATI(t)", "\\SPEZZATA(t)", "\\CURVA(t)", "\\BANDA(t)", "\\CONTORNI(3,0,0,t)",
               "\\SUPERFICIE(40,30,5,0,9,1,3,t)", "\\COLONNE(40,30,5,0,9,1,t)",
               "\\RIQUADRO3D(1,2,3,0,9,1,1,t)"}));
    std::multiset<std::string> folders;
    for (const std::string& name : files.read) folders.insert(folderOf(name));
    return folders;
  };
  EXPECT_EQ(foldersRead().count("."), 8U) << "where they are not";
  for (const std::string folder : {"/", "/data", "."}) {
    files.content[folder == "." ? "t" : joinPath(folder, "t")] = "";
    EXPECT_EQ(foldersRead().count(folder), folder == "/" ? 9U : 8U) << folder;
  }
}

TEST_F(RunGraphicFileTest, WithoutDataThereAreNoneAfterwards) {
  const DataSet before = session.loaded.data;
  run(otherData);
  expectOwnData(before);
  EXPECT_EQ(session.loaded.DataFile, "Nessuno");
  EXPECT_EQ(session.loaded.DataDefined, kFalse);
  EXPECT_FALSE(window.menuEnabled[Control::MenGraDat]);
}

TEST_F(RunGraphicFileTest, ADataFileThatHasGoneLeavesNoErrorBehind) {
  loadOwnData("GONE.DAT");
  run(otherData);
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_TRUE(output.requests.empty());
}

TEST_F(RunGraphicFileTest, ALoadedFunctionAndItsParametersAreAsBefore) {
  session.loaded.catalogue.file.entries = {compiledEntry("k,ab", "k*x^2+ab+0.5", "prova")};
  loadFunction(session, 1);
  takeFunction(6, 7, {2, 3, 4});
  const ParameterSet before = session.analysis.par;
  const double value = EvaluateFunction(session, dialogs, 0.25);
  run(lines({"\\XASSE(0,9,1,3,3,0)", "\\FUNZIONE(SIN(x)*2+x^3)", "\\FUNZIONE(1+)"}));
  EXPECT_EQ(session.analysis.par.ParNames, before.ParNames);
  EXPECT_EQ(session.analysis.par.ParNameWidth, before.ParNameWidth);
  EXPECT_EQ(session.analysis.par.ParCount, before.ParCount);
  EXPECT_EQ(session.analysis.par.ParValues, before.ParValues);
  EXPECT_EQ(EvaluateFunction(session, dialogs, 0.25), value);
  EXPECT_EQ(session.ErrFlag, 0);
}

TEST_F(RunGraphicFileTest, ErrorsAreShownOnTheFigureWhenTheUserWantsThem) {
  run(lines({"\\NO()", "\\SIMBOLO(q)"}));
  ASSERT_EQ(output.requests.size(), 1U);
  const OutputRequest& shown = output.request();
  EXPECT_EQ(shown.owner, Form::kActivePlot);
  EXPECT_EQ(shown.rows, 25);
  EXPECT_EQ(shown.cols, 80);
  EXPECT_EQ(shown.captions, (std::vector<WindowText>{"&Continua", "&Stampa", "Co&pia"}));
  EXPECT_EQ(shown.caption, "VOR_KEL: File Grafico - Controllo File");
  EXPECT_EQ(shown.text, "***\\NO() Comando Errato\r\n*** Parametri di SIMBOLO Errati\r\n");
}

TEST_F(RunGraphicFileTest, ErrorsAreNotShownOtherwise) {
  session.settings.ShowErrors = kFalse;
  run(lines({"\\NO()", "\\SIMBOLO(q)"}));
  EXPECT_TRUE(output.requests.empty());
}

TEST_F(RunGraphicFileTest, AFileWithoutErrorsShowsNothing) {
  run(lines({"\\SIMBOLO(3,4)"}));
  EXPECT_TRUE(output.requests.empty());
}

TEST_F(RunGraphicFileTest, TheListOfAPrintedFigureBelongsToTheMainWindow) {
  run(lines({"\\NO()"}), "Printer");
  ASSERT_EQ(output.requests.size(), 1U);
  EXPECT_EQ(output.request().owner, Form::kMain);
}

TEST_F(RunGraphicFileTest, EachRunHasAWindowOfItsOwnWithCaptionScaleAndOrientation) {
  session.figures.GraphScale[3] = 1.5F;
  run("");
  session.figures.Landscape = kFalse;
  run("");
  ASSERT_EQ(plots.windows.size(), 2U);
  PictureForm& first = plots.windows[0]->form;
  PictureForm& second = plots.windows[1]->form;
  EXPECT_EQ(first.Caption(), "VOR_KEL: Visualizza File Grafico");
  EXPECT_TRUE(first.Visible());
  EXPECT_TRUE(second.Visible());
  EXPECT_NEAR(first.ScaleWidth(), 0.75 * 20 * 1440 / 2.54, 8);
  EXPECT_NEAR(first.ScaleHeight(), 0.75 * 15 * 1440 / 2.54, 8);
  EXPECT_NEAR(second.ScaleWidth(), 0.75 * 15 * 1440 / 2.54, 8);
}

TEST_F(RunGraphicFileTest, ThePrinterGetsOrientationAndScaleAndOnePage) {
  session.figures.GraphScale[3] = 0.5F;
  for (const bool landscape : {true, false}) {
    session.figures.Landscape = toFlag(landscape);
    printer.forget();
    const int before = printer.documents();
    const auto printed = run("\\SCRIVI(1,2,0,0,10,a)\r\n\\AREA(1,1,5,5)\r\n", "Printer");
    EXPECT_EQ(plots.windows.size(), 0U);
    EXPECT_EQ(printer.documents(), before + 1);
    EXPECT_EQ(printer.Orientation(), kPortrait) << "as it was";

    RecorderDevice other{
        PrinterMetrics{Twips(15 * kTwipsPerInch / kCmPerInch), Twips(20 * kTwipsPerInch / kCmPerInch), 600}};
    GralCls drawing(other);
    drawing.GralGrStr(other, landscape ? "LANDSCAPE" : "PORTRAIT", 0.5);
    drawing.GralWPrint(1, 2, 0, 0, 10, "a");
    drawing.GralClip(1, 1, 5, 5);
    drawing.GralGrEnd();
    EXPECT_EQ(printed, other.lines());
    EXPECT_EQ(printed.back(), "clip off");
  }
}

TEST_F(RunGraphicFileTest, TheEndOfTheRunReleasesTheClipRegion) {
  EXPECT_EQ(run("\\AREA(2,3,15,12)\r\n").back(), "clip off");
}

TEST_F(RunGraphicFileTest, AMissingFileIsARunTimeError) {
  EXPECT_EQ(errorOf([&] { RunGraphicFile(session, ports, "NONE.GRA", "Form", 0); }), kFileNotFound);
}

TEST_F(RunGraphicFileTest, TheMenusAreRenewedAtTheEnd) {
  run("");
  EXPECT_FALSE(window.panels.empty());
}

}  // namespace
}  // namespace vk
