#include <gmock/gmock.h>

#include "base/FileText.h"
#include "base/NumberMasks.h"
#include "tests/commands/MakeGraphFixture.h"

namespace vk {
namespace {

TEST_F(MakeGraphTest, TheTextOfTheData) {
  loadPoints();
  makeGraph(kDataFigure);
  EXPECT_EQ(session.figures.GraphText[1], lines({"%File Grafico Dati",
                                                 "%File Dati: /D/A.DAT",
                                                 "%Coordinate Fisiche",
                                                 "\\PARAMETRI(Xcmi=5, Ycmi=4, Xcmf=18, Ycmf=13)",
                                                 "%Coordinate Logiche",
                                                 "\\PARAMETRI(Xi=0, Yi=1, Xf=10, Yf=2.6)",
                                                 "%Scala le Coordinate Fisiche in Coordinate Logiche",
                                                 "\\XSCALA(Xcmi, Xcmf, Xi, Xf)",
                                                 "\\YSCALA(Ycmi, Ycmf, Yi, Yf)",
                                                 "%Divisioni degli Assi",
                                                 "\\PARAMETRI(nDivX=10, nDivY=8)",
                                                 "%Disegna gli Assi",
                                                 "\\XASSE(Xi, Xf, Yi, nDivX, 3, 1,Tempo (s))",
                                                 "\\XASSE(Xi, Xf, Yf, nDivX, -3, 0)",
                                                 "\\YASSE(Yi, Yf, Xi, nDivY, 3, 1,Corsa (m))",
                                                 "\\YASSE(Yi, Yf, Xf, nDivY, -3, 0)",
                                                 "%Limita l'Area del Disegno",
                                                 "\\AREA(Xi, Yi, Xf, Yf)",
                                                 "%Seleziona il Simbolo",
                                                 "\\TIPO_SIMBOLO(1.5,5)",
                                                 "%Disegna i Dati",
                                                 "\\Dati(/D/A.DAT)"}));
  EXPECT_EQ(session.figures.GraphText[2], "");
  EXPECT_EQ(session.figures.GraphText[3], "");
  EXPECT_EQ(session.figures.DiffText, "");
}

TEST_F(MakeGraphTest, TheDrawingOfTheData) {
  loadPoints();
  EXPECT_EQ(makeGraph(kDataFigure), openDrawing([&](GralCls& d) {
              drawBox(d, {0, 10, 10}, {1, 2.6, 8}, "Corsa (m)");
              d.GralMakeMark(1.5, 5);
              d.GralClip(0, 1, 10, 2.6);
              plot(d, session.loaded.data);
            }));
}

TEST_F(MakeGraphTest, TheTextOfTheDataDrawsTheSameFigure) {
  loadData("/D/A.DAT", {{-3, 1, .5, .25}, {5, 200.5, .5, 50}, {9.75, 150, .75, .25}}, true);
  files.content["/D/A.DAT"] =
      lines({"Tempo (s)", "Corsa (m)", "3 1", "-3 1 .5 .25", "5 200.5 .5 50", "9.75 150 .75 .25"});
  std::vector<std::string> drawn = makeGraph(kDataFigure);
  drawn.emplace_back("clip off");
  EXPECT_EQ(run(session.figures.GraphText[1]), drawn);
  EXPECT_TRUE(output.requests.empty());
}

TEST_F(MakeGraphTest, ErrorsInXArePlottedWithTheData) {
  loadData("A.DAT", {{.3, 1, 1, .25}, {9.7, 2.5, 2, .5}}, true);
  EXPECT_EQ(makeGraph(kDataFigure), openDrawing([&](GralCls& d) {
              drawBox(d, {0, 10, 10}, {1, 2.6, 8}, "Corsa (m)");
              d.GralClip(0, 1, 10, 2.6);
              plot(d, session.loaded.data);
            }));
}

TEST_F(MakeGraphTest, TheTextOfDataAndFunction) {
  loadPoints();
  takeFunction(2, 7, {.25, -1, 12.5});
  makeGraph(kFunctionFigure);
  EXPECT_EQ(session.figures.GraphText[2],
            lines({"%File Grafico Dati e Funzione",
                   "%File Dati: /D/A.DAT",
                   "%Funzione :  y = A exp(bx+c) ",
                   "%Parametri: ",
                   "%          b = 0.2500E+00",
                   "%          c = -.1000E+01",
                   "%          A = 0.1250E+02",
                   "%Coordinate Fisiche",
                   "\\PARAMETRI(Xcmi=5, Ycmi=4, Xcmf=18, Ycmf=13)",
                   "%Coordinate Logiche",
                   "\\PARAMETRI(Xi=0, Yi=0, Xf=10, Yf=60)",
                   "%Scala le Coordinate Fisiche in Coordinate Logiche",
                   "\\XSCALA(Xcmi, Xcmf, Xi, Xf)",
                   "\\YSCALA(Ycmi, Ycmf, Yi, Yf)",
                   "%Divisioni degli Assi",
                   "\\PARAMETRI(nDivX=10, nDivY=6)",
                   "%Disegna gli Assi",
                   "\\XASSE(Xi, Xf, Yi, nDivX, 3, 1,Tempo (s))",
                   "\\XASSE(Xi, Xf, Yf, nDivX, -3, 0)",
                   "\\YASSE(Yi, Yf, Xi, nDivY, 3, 1,Corsa (m))",
                   "\\YASSE(Yi, Yf, Xf, nDivY, -3, 0)",
                   "%Limita l'Area del Disegno",
                   "\\AREA(Xi, Yi, Xf, Yf)",
                   "%Disegna la Funzione",
                   "\\PARAMETRI(b = 0.2500000E+00, c = -.1000000E+01, A = 0.1250000E+02)",
                   "\\FUNZIONE(A*EXP(b*x+c))",
                   "%Seleziona il Simbolo",
                   "\\TIPO_SIMBOLO(1.5,5)",
                   "%Disegna i Dati",
                   "\\Dati(/D/A.DAT)"}));
  EXPECT_EQ(session.figures.DiffText, "");
}

TEST_F(MakeGraphTest, NamesOfTheHeaderStandInAColumnOfTheWidestName) {
  loadPoints();
  session.loaded.catalogue.file.entries = {compiledEntry("k,tau0", "k*x+tau0", "retta")};
  loadFunction(session, 1);
  takeFunction(6, 1, {1, 2});
  makeGraph(kFunctionFigure);
  EXPECT_NE(
      session.figures.GraphText[2].find("%             k = 0.1000E+01\r\n%          tau0 = 0.2000E+01\r\n"),
      std::string::npos);
  EXPECT_NE(session.figures.GraphText[2].find("\\PARAMETRI(k = 0.1000000E+01, tau0 = 0.2000000E+01)"),
            std::string::npos);
}

TEST_F(MakeGraphTest, TheCurveHasASegmentForEachStepOverTheRoundedRange) {
  loadPoints();
  takeFunction(2, 1, {.5, -1});
  const auto drawn = makeGraph(kFunctionFigure);
  const SampledCurve curve = curveOfFigure();
  ASSERT_EQ(curve.segments, 50);
  for (int i = 0; i <= 50; ++i) {
    EXPECT_DOUBLE_EQ(curve.x[i], i * .2);
    EXPECT_DOUBLE_EQ(curve.y[i], .5 * (i * .2) - 1);
  }
  EXPECT_EQ(drawn, openDrawing([&](GralCls& d) {
              drawBox(d, {0, 10, 10}, {-1, 4, 5}, "Corsa (m)");
              for (int i = 1; i <= 50; ++i) {
                d.GralLine(curve.x[i - 1], curve.y[i - 1], curve.x[i], curve.y[i]);
              }
              d.GralClip(0, -1, 10, 4);
              plot(d, session.loaded.data);
            }));
}

TEST_F(MakeGraphTest, TheCurveHasTwiceAsManySegmentsAsThereArePointsAndAtLeastFifty) {
  takeFunction(2, 1, {.5, -1});
  for (const auto& [points, segments] : {std::pair(24, 50), std::pair(26, 52), std::pair(32767, 65534)}) {
    session.loaded.data.allocate(points, kFalse);
    const SampledCurve curve = curveOfFigure();
    EXPECT_EQ(curve.segments, segments);
    EXPECT_EQ(curve.x.upper(), segments);
    EXPECT_EQ(curve.y.upper(), segments);
  }
}

TEST_F(MakeGraphTest, TheTextsOfTheDifferences) {
  loadPoints();
  takeFunction(2, 1, {.25, .5});
  makeGraph(kDifferencesFigure);
  EXPECT_EQ(session.figures.GraphText[3], lines({"%File Grafico Differenze Dati-Funzione",
                                                 "%File Dati: /D/A.DAT",
                                                 "%Funzione :  y = bx+c ",
                                                 "%Parametri: ",
                                                 "%          b = 0.2500E+00",
                                                 "%          c = 0.5000E+00",
                                                 "%Coordinate Fisiche",
                                                 "\\PARAMETRI(Xcmi=5, Ycmi=4, Xcmf=18, Ycmf=13)",
                                                 "%Coordinate Logiche",
                                                 "\\PARAMETRI(Xi=0, Yi=-2, Xf=10, Yf=1.5)",
                                                 "%Scala le Coordinate Fisiche in Coordinate Logiche",
                                                 "\\XSCALA(Xcmi, Xcmf, Xi, Xf)",
                                                 "\\YSCALA(Ycmi, Ycmf, Yi, Yf)",
                                                 "%Divisioni degli Assi",
                                                 "\\PARAMETRI(nDivX=10, nDivY=7)",
                                                 "%Disegna gli Assi",
                                                 "\\XASSE(Xi, Xf, Yi, nDivX, 3, 1,Tempo (s))",
                                                 "\\XASSE(Xi, Xf, Yf, nDivX, -3, 0)",
                                                 "\\YASSE(Yi, Yf, Xi, nDivY, 3, 1,Corsa (m) (Mis.-Calc.))",
                                                 "\\YASSE(Yi, Yf, Xf, nDivY, -3, 0)",
                                                 "%Limita l'Area del Disegno",
                                                 "\\AREA(Xi, Yi, Xf, Yf)",
                                                 "%Seleziona il Simbolo",
                                                 "\\TIPO_SIMBOLO(1.5,5)",
                                                 "%Disegna la Linea dello Zero ",
                                                 "\\LINEA(Xi, 0, Xf, 0)",
                                                 "%Attenzione: per Disegnare i Dati",
                                                 "%1) Salvare il File Dati delle Differenze",
                                                 "%2) Inserire nella Riga Successiva il Nome del File",
                                                 "%\\DATI(inserire il nome del File Differenze)",
                                                 "%3) e Rimuovere il %"}));
  EXPECT_EQ(session.figures.DiffText,
            lines({"%File Dati Differenze Dati-Funzione", "%File Dati: /D/A.DAT", "%Funzione :  y = bx+c ",
                   "%Parametri: ", "%          b = 0.2500E+00", "%          c = 0.5000E+00", "", "Tempo (s)",
                   "Corsa (m)", " 3", "0.3000E+00 0.4250E+00 0.2500E+00", "0.5000E+01 0.7500E+00 0.5000E+00",
                   "0.9700E+01 -.1425E+01 0.2500E+00"}));
}

TEST_F(MakeGraphTest, TheDrawingOfTheDifferences) {
  loadPoints();
  takeFunction(2, 1, {.25, .5});
  EXPECT_EQ(makeGraph(kDifferencesFigure), openDrawing([&](GralCls& d) {
              drawBox(d, {0, 10, 10}, {-2, 1.5, 7}, "Corsa (m) (Mis.-Calc.)");
              d.GralLine(0, 0, 10, 0);
              d.GralClip(0, -2, 10, 1.5);
              DataSet differences = session.loaded.data;
              for (int i = 1; i <= 3; ++i) differences.Ypnt[i] -= .25 * differences.Xpnt[i] + .5;
              plot(d, differences);
            }));
}

TEST_F(MakeGraphTest, DifferencesOfDataWithXErrorsShowTheEffectiveErrorsAlone) {
  loadXErrors();
  session.loaded.data.ErrEff[1] = .5;
  session.loaded.data.ErrEff[2] = 1;
  expectDifferencesWithErrors(session.loaded.data.ErrEff);
  EXPECT_NE(session.figures.DiffText.find(
                " 2\r\n0.3000E+00 0.0000E+00 0.5000E+00\r\n0.9700E+01 0.1500E+01 0.1000E+01\r\n"),
            std::string::npos)
      << session.figures.DiffText;
}

TEST_F(MakeGraphTest, TheDifferencesAreAGoodDataFile) {
  loadPoints();
  takeFunction(2, 1, {.25, .5});
  makeGraph(kDifferencesFigure);
  const DataReading reading = parseLines(session.figures.DiffText);
  EXPECT_EQ(reading.errors, "");
  EXPECT_EQ(reading.declaredCount, 3);
  EXPECT_EQ(reading.data.NumPnt, 3);
  EXPECT_EQ(reading.data.kXpntErr, kFalse);
}

TEST_F(MakeGraphTest, DepartureDifferencesOfAnySizeAndTitleAreAGoodDataFile) {
  loadData("A.DAT", {{1, -1.5E-120, 0, 2.5E120}, {2, 1, 0, 1}});
  session.loaded.data.TitleX = "";
  session.loaded.data.TitleY = "% errori";
  takeFunction(2, 1, {0, 0});
  makeGraph(kDifferencesFigure);
  EXPECT_THAT(session.figures.DiffText, testing::HasSubstr("\r\n-\r\n- % errori\r\n 2\r\n"
                                                           "0.1000E+01 -.150E-119 0.250E+121\r\n"));
  EXPECT_EQ(parseLines(session.figures.DiffText).errors, "");
}

TEST_F(MakeGraphTest, TheTextOfANarrowFigureDrawsTheSameFigure) {
  loadData("/D/A.DAT",
           {{1700000012, 5.0001, 0, .0001}, {1700000300, 5.0002, 0, .0001}, {1700000590, 5.0004, 0, .0001}});
  files.content["/D/A.DAT"] = lines({"Tempo (s)", "Corsa (m)", "3", "1700000012 5.0001 .0001",
                                     "1700000300 5.0002 .0001", "1700000590 5.0004 .0001"});
  std::vector<std::string> drawn = makeGraph(kDataFigure);
  drawn.emplace_back("clip off");
  EXPECT_EQ(run(session.figures.GraphText[1]), drawn);
  EXPECT_TRUE(output.requests.empty());
}

TEST_F(MakeGraphTest, TheTextHasTheValuesOfTheParametersWhereSevenDigitsDrawAnotherCurve) {
  // A parabola about 2000, written so that large numbers cancel.
  loadData("A.DAT", {{1990, 1, 0, .1}, {2020, 4, 0, .1}});
  session.loaded.catalogue.file.entries = {compiledEntry("a,b", "a*(x*x+4000000)-b*x", "parabola")};
  loadFunction(session, 1);
  takeFunction(6, 1, {.01, 40});
  makeGraph(kFunctionFigure);
  EXPECT_EQ(commandsOf(session.figures.GraphText[2], "FUNZIONE").back(), "a*(x*x+4000000)-b*x");

  takeFunction(6, 1, {1234.567491, 4938269.964});
  makeGraph(kFunctionFigure);
  EXPECT_EQ(commandsOf(session.figures.GraphText[2], "PARAMETRI").back(),
            "a = 0.1234567E+04, b = 0.4938270E+07");
  EXPECT_EQ(commandsOf(session.figures.GraphText[2], "FUNZIONE").back(),
            "1234.567491*(x*x+4000000)-4938269.964*x");
  EXPECT_EQ(session.analysis.par.ParValues[1], 1234.567491);
  EXPECT_EQ(session.analysis.par.ParValues[2], 4938269.964);
  EXPECT_EQ(session.ErrFlag, 0);
}

TEST_F(MakeGraphTest, TheTextHasAValueThatNoParameterCanHold) {
  for (const double value : {1E-110, 1.1E-44, 1E44, 1E120}) {
    loadData("A.DAT", {{1, value, 0, value / 10}, {2, 2 * value, 0, value / 10}});
    takeFormula("t*x", value);
    makeGraph(kFunctionFigure);
    EXPECT_EQ(commandsOf(session.figures.GraphText[2], "FUNZIONE").back(), FormatPattern(value) + "*x");
    EXPECT_EQ(session.ErrFlag, 0);
  }
}

TEST_F(MakeGraphTest, TheCurveOfANarrowFigureIsThatOfItsText) {
  loadData("A.DAT", {{1700000012, 5, 0, 1}, {1700000590, 20, 0, 1}});
  takeFormula("SQR(x-t)", 1699999999.5);
  makeGraph(kFunctionFigure);
  EXPECT_EQ(commandsOf(session.figures.GraphText[2], "FUNZIONE").back(), "SQR(x-1699999999.5)");
}

TEST_F(MakeGraphTest, APageWithoutSizeIsAnError) {
  loadPoints();
  RecorderDevice form, page(PrinterMetrics{Twips(0), Twips(0), 600});
  makeFigure(session, dialogs, {[&]() -> Device& { return form; }, page}, kDataFigure, kernels, [] {});
  EXPECT_EQ(session.ErrFlag, kTrue);
}

TEST_F(MakeGraphTest, EachFigureHasAWindowOfItsOwnCaptionAndScale) {
  loadPoints();
  takeFunction(2, 1, {.25, .5});
  session.figures.GraphScale = {.5F, 1, 2, .25F};
  for (const int kind : {1, 2, 3}) makeGraph(kind);
  ASSERT_EQ(plots.windows.size(), 3U);
  const char* captions[] = {"VOR_KEL: Grafico Dati", "VOR_KEL: Grafico Dati e Funzione",
                            "VOR_KEL: Grafico Differenze Dati-Funzione"};
  const double scales[] = {.5, 1, 2};
  for (std::size_t i = 0; i < 3; ++i) {
    const PictureForm& form = plots.windows[i]->form;
    EXPECT_EQ(form.Caption(), captions[i]);
    EXPECT_NEAR(form.ScaleWidth(), scales[i] / 2 * 20 * 1440 / 2.54, 8);
    EXPECT_TRUE(form.Visible());
  }
  session.figures.Landscape = kFalse;
  makeGraph(1);
  EXPECT_NEAR(lastWindow().form.ScaleWidth(), .25 * 15 * 1440 / 2.54, 8);
}

TEST_F(MakeGraphTest, ANewFigureReplacesItsTextAndTurnsItsEntriesOn) {
  loadPoints();
  takeFunction(2, 1, {.25, .5});
  makeGraph(kDifferencesFigure);
  EXPECT_TRUE(window.menuEnabled[Control::MenGraDifGra]);
  EXPECT_TRUE(window.menuEnabled[Control::MenGraDifSav]);
  EXPECT_FALSE(window.menuEnabled[Control::MenGraDatGra]);
  const std::string first = session.figures.GraphText[3];
  session.analysis.par.ParValues[1] = 1;
  makeGraph(kDifferencesFigure);
  EXPECT_NE(session.figures.GraphText[3], first);
}

TEST_F(MakeGraphTest, WhatIsSavedIsInUtf8AndDrawsTheSameFigure) {
  loadPoints();
  takeFunction(2, 7, {.25, -1, 12.5});
  session.loaded.data.TitleX = "Velocit\xE0 (\\\\mm)";
  session.loaded.data.TitleY = "\xC8 \xB1 1";
  session.analysis.fun.FunctionText = " y = ax\xFD ";
  files.content["/D/A.DAT"] = dataFileText(session.loaded.data);
  const auto drawn = makeGraph(kFunctionFigure);
  const std::string& text = session.figures.GraphText[kFunctionFigure];
  EXPECT_THAT(text, testing::HasSubstr("%Funzione :  y = ax² \r\n"));
  EXPECT_THAT(text, testing::HasSubstr(",Velocità (\\\\mm))\r\n"));
  EXPECT_THAT(text, testing::HasSubstr(",È ± 1)\r\n"));
  EXPECT_TRUE(FileText(text).isUtf8());
  const auto texts = [](const std::vector<std::string>& lines) {
    std::vector<std::string> found;
    std::ranges::copy_if(lines, std::back_inserter(found),
                         [](auto& line) { return line.starts_with("text"); });
    return found;
  };
  EXPECT_EQ(texts(run(text)), texts(drawn));
  makeGraph(kDifferencesFigure);
  EXPECT_EQ(parseLines(session.figures.DiffText).data.TitleX, session.loaded.data.TitleX);
  EXPECT_EQ(parseLines(session.figures.DiffText).data.TitleY, session.loaded.data.TitleY);
}

TEST_F(MakeGraphTest, TheFunctionStaysAsItIs) {
  loadPoints();
  takeFunction(2, 7, {.25, -1, 12.5});
  const ParameterSet before = session.analysis.par;
  const DataSet data = session.loaded.data;
  makeGraph(kFunctionFigure);
  EXPECT_EQ(session.analysis.par.ParValues, before.ParValues);
  EXPECT_EQ(session.loaded.data.Ypnt, data.Ypnt);
  EXPECT_EQ(session.loaded.DataFile, "/D/A.DAT");
}

}  // namespace
}  // namespace vk
