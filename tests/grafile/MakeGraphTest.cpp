#include <cmath>
#include <set>

#include "base/NumberMasks.h"
#include "data/DataFiles.h"
#include "expr/FunMod.h"
#include "grafile/DrawingLines.h"
#include "grafile/FigureFixture.h"

namespace vk {
namespace {

void drawBox(GralCls& d, double Xi, double Xf, int nDivX, double Yi, double Yf, int nDivY,
             const std::string& legend) {
  d.GralXMap(5, 18, Xi, Xf);
  d.GralYMap(4, 13, Yi, Yf);
  d.GralOaxis(Xi, Xf, Yi, nDivX, 3, false, true, "Tempo (s)");
  d.GralOaxis(Xi, Xf, Yf, nDivX, -3, false, false, "");
  d.GralVaxis(Yi, Yf, Xi, nDivY, 3, false, true, legend);
  d.GralVaxis(Yi, Yf, Xf, nDivY, -3, false, false, "");
}

void plot(GralCls& d, const DataSet& data) {
  d.PlotData(data.Xpnt, data.ErrXpnt, data.Ypnt, data.ErrYpnt, data.NumPnt, data.kXpntErr != 0, false, false);
}

/// A figure of the page of 20 x 15 cm has its plot box from 5 to 18 and from 4 to 13 cm.
class MakeGraphTest : public FigureFixture {
 protected:
  std::vector<std::string> makeGraph(int kind) {
    MakeGraph(session, ports, kind);
    return lastWindow().form.lines();
  }
  /// The drawing without the end of its clipping, which a figure of the generator keeps.
  std::vector<std::string> openDrawing(const Calls& calls) {
    std::vector<std::string> drawn = drawing(calls);
    drawn.pop_back();
    return drawn;
  }
  void loadPoints() { loadData("/D/A.DAT", {{.3, 1, 0, .25}, {5, 2.5, 0, .5}, {9.7, 1.5, 0, .25}}); }
  /// The function LOG(x-t) of a function file, which fails up to x = t.
  void takeLogarithm(double t) { takeFormula("LOG(x-t)", t); }
  /// A function of a function file with the parameter t.
  void takeFormula(const std::string& formula, double t) {
    session.loaded.catalogue.file.entries = {{"t", formula, "formula"}};
    loadFunction(session, 1);
    takeFunction(6, 1, {t});
  }
  /// The figure of the function over the points of `loadPoints`, with a line between neighbours that are
  /// both good.
  void expectCurveWithout(const std::set<int>& failed, double Yi, double Yf, int nDivY) {
    const auto drawn = makeGraph(kFunctionFigure);
    const DataSet& data = session.loaded.data;
    for (int i = 0; i <= 50; ++i) EXPECT_EQ(data.FunFailed[i], toFlag(failed.contains(i))) << i;
    EXPECT_EQ(drawn, openDrawing([&](GralCls& d) {
                drawBox(d, 0, 10, 10, Yi, Yf, nDivY, "Corsa (m)");
                for (int i = 1; i <= 50; ++i) {
                  if (failed.contains(i - 1) || failed.contains(i)) continue;
                  d.GralLine(data.FunX[i - 1], data.FunY[i - 1], data.FunX[i], data.FunY[i]);
                }
                d.GralClip(0, Yi, 10, Yf);
                plot(d, data);
              }));
    EXPECT_EQ(lowTones(), static_cast<int>(failed.size()));
  }
  /// Two points with errors in x and the constant 1.
  void loadXErrors() {
    loadData("A.DAT", {{.3, 1, 1, .25}, {9.7, 2.5, 2, .5}}, true);
    takeFunction(1, 1, {1});
  }
  /// The differences of `loadXErrors`; their range holds the errors in y: from 0 - 0.25 to 1.5 + 0.5.
  void expectDifferencesWithErrors(const Array<double>& errors) {
    EXPECT_EQ(makeGraph(kDifferencesFigure), openDrawing([&](GralCls& d) {
                drawBox(d, 0, 10, 10, -.5, 2, 5, "Corsa (m) (Mis.-Calc.)");
                d.GralLine(0, 0, 10, 0);
                d.GralClip(0, -.5, 10, 2);
                DataSet differences = session.loaded.data;
                differences.Ypnt[1] = 0;
                differences.Ypnt[2] = 1.5;
                differences.ErrYpnt = errors;
                differences.kXpntErr = kFalse;
                plot(d, differences);
              }));
  }
  int lowTones() const {
    for (const auto& tone : sound.tones) EXPECT_EQ(tone, (RecordingSound::Tone{500, 1}));
    return static_cast<int>(sound.tones.size());
  }
};

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
              drawBox(d, 0, 10, 10, 1, 2.6, 8, "Corsa (m)");
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
              drawBox(d, 0, 10, 10, 1, 2.6, 8, "Corsa (m)");
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
  session.loaded.catalogue.file.entries = {{"k,tau0", "k*x+tau0", "retta"}};
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
  const DataSet& data = session.loaded.data;
  ASSERT_EQ(data.NumFunPnt, 50);
  for (int i = 0; i <= 50; ++i) {
    EXPECT_DOUBLE_EQ(data.FunX[i], i * .2);
    EXPECT_DOUBLE_EQ(data.FunY[i], .5 * (i * .2) - 1);
  }
  EXPECT_EQ(drawn, openDrawing([&](GralCls& d) {
              drawBox(d, 0, 10, 10, -1, 4, 5, "Corsa (m)");
              for (int i = 1; i <= 50; ++i) {
                d.GralLine(data.FunX[i - 1], data.FunY[i - 1], data.FunX[i], data.FunY[i]);
              }
              d.GralClip(0, -1, 10, 4);
              plot(d, data);
            }));
}

// QUIRK: the first point of the curve, with index 0, is not kept.
TEST_F(MakeGraphTest, TheCurveIsKeptFromItsSecondPointOn) {
  loadPoints();
  takeFunction(2, 1, {.5, -1});
  session.loaded.data.OldFunX[0] = session.loaded.data.OldFunY[0] = 77;
  makeGraph(kFunctionFigure);
  const DataSet& data = session.loaded.data;
  EXPECT_EQ(data.NumOldFun, 50);
  EXPECT_EQ(data.OldFunX[0], 77);
  EXPECT_EQ(data.OldFunY[0], 77);
  for (int i = 1; i <= 50; ++i) {
    EXPECT_EQ(data.OldFunX[i], data.FunX[i]);
    EXPECT_EQ(data.OldFunY[i], data.FunY[i]);
  }
}

TEST_F(MakeGraphTest, OnlyTheFigureWithTheFunctionKeepsItsCurve) {
  loadPoints();
  takeFunction(2, 1, {.5, -1});
  makeGraph(kDataFigure);
  makeGraph(kDifferencesFigure);
  EXPECT_EQ(session.loaded.data.NumOldFun, 0);
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
              drawBox(d, 0, 10, 10, -2, 1.5, 7, "Corsa (m) (Mis.-Calc.)");
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

TEST_F(MakeGraphTest, FivePointsThatCannotBeComputedAreNotDrawnAndBeepEach) {
  loadData("/D/A.DAT", {{.3, 200, 0, .25}, {5, 201, 0, .5}, {9.7, 202, 0, .25}});
  takeFormula("LOG(x-t)+200", .9);
  for (int i = 0; i <= 50; ++i) session.loaded.data.FunY[i] = session.loaded.data.OldFunY[i] = 77;
  expectCurveWithout({0, 1, 2, 3, 4}, 197, 203, 6);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(session.loaded.data.FunY[i], 77);
  EXPECT_DOUBLE_EQ(session.loaded.data.FunY[5], 200 + std::log(.1));
  EXPECT_NE(session.figures.GraphText[2], "");
  EXPECT_EQ(session.ErrFlag, 0);
}

TEST_F(MakeGraphTest, TheLineBeginsAnewBehindAPointThatCannotBeComputed) {
  loadPoints();
  takeFormula("t*SQR((x-.3)*(x-.5))", .5);
  expectCurveWithout({2}, 0, 5, 5);
}

TEST_F(MakeGraphTest, AGoodPointBetweenTwoThatFailIsNotDrawn) {
  loadPoints();
  takeFormula("t*SQR((x-.1)*(x-.3)*(x-.5)*(x-.7))", .01);
  expectCurveWithout({1, 3}, 0, 2.5, 5);
}

TEST_F(MakeGraphTest, TheCurveBeforeKeepsItsPointsThatFailed) {
  loadPoints();
  takeFormula("t*SQR((x-.3)*(x-.5))", .5);
  makeGraph(kFunctionFigure);
  for (int i = 1; i <= 50; ++i) EXPECT_EQ(session.loaded.data.OldFunFailed[i], toFlag(i == 2));
}

TEST_F(MakeGraphTest, TheSixthPointThatCannotBeComputedEndsTheFigure) {
  loadPoints();
  session.figures.DiffText = "differences";
  session.figures.GraphText = {"", "one", "two", "three"};
  takeLogarithm(1.1);
  dialogs.expectBox();
  MakeGraph(session, ports, kFunctionFigure);
  EXPECT_EQ(lowTones(), 6);
  EXPECT_EQ(dialogs.boxes[0].text, "Errori nel Calcolo della Funzione  <*> per Continuare");
  EXPECT_EQ(session.figures.GraphText[1], "one");
  EXPECT_EQ(session.figures.GraphText[2], "");
  EXPECT_EQ(session.figures.GraphText[3], "three");
  EXPECT_EQ(session.figures.DiffText, "");
  EXPECT_TRUE(plots.windows.empty());
  EXPECT_FALSE(window.menuEnabled[Control::MenGraFunGra]);
  EXPECT_TRUE(window.menuEnabled[Control::MenGraDatGra]);
}

TEST_F(MakeGraphTest, OnePointThatCannotBeComputedEndsTheDifferences) {
  loadPoints();
  session.figures.DiffText = "differences";
  session.figures.GraphText = {"", "one", "two", "three"};
  takeLogarithm(.9);
  MakeGraph(session, ports, kDifferencesFigure);
  EXPECT_EQ(lowTones(), 1);
  EXPECT_TRUE(dialogs.boxes.empty());
  EXPECT_EQ(session.figures.GraphText[2], "two");
  EXPECT_EQ(session.figures.GraphText[3], "");
  EXPECT_EQ(session.figures.DiffText, "");
  EXPECT_TRUE(plots.windows.empty());
  EXPECT_FALSE(window.menuEnabled[Control::MenGraDifSav]);
}

TEST_F(MakeGraphTest, EqualXAreOpenedByHalfTheirValueOnBothSides) {
  loadData("A.DAT", {{3, 1, 0, .25}, {3, 2, 0, .5}});
  EXPECT_EQ(makeGraph(kDataFigure), openDrawing([&](GralCls& d) {
              drawBox(d, 1.5, 4.5, 6, 1, 2, 5, "Corsa (m)");
              d.GralClip(1.5, 1, 4.5, 2);
              plot(d, session.loaded.data);
            }));
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_NE(session.figures.GraphText[1].find("\\PARAMETRI(Xi=1.5, Yi=1, Xf=4.5, Yf=2)\r\n"),
            std::string::npos);
  EXPECT_NE(session.figures.GraphText[1].find("\\PARAMETRI(nDivX=6, nDivY=5)\r\n"), std::string::npos);
}

TEST_F(MakeGraphTest, EqualXOfEveryFigureAreOpened) {
  loadData("A.DAT", {{3, 1, 0, .25}, {3, 2, 0, .5}});
  takeFunction(2, 1, {.25, .5});
  makeGraph(kFunctionFigure);
  EXPECT_DOUBLE_EQ(session.loaded.data.FunX[0], 1.5);
  EXPECT_DOUBLE_EQ(session.loaded.data.FunX[50], 4.5);
  makeGraph(kDifferencesFigure);
  EXPECT_EQ(plots.windows.size(), 2U);
  EXPECT_EQ(session.ErrFlag, 0);
}

TEST_F(MakeGraphTest, EqualYAreOpenedNegativeOnesAndZerosToo) {
  struct Case {
    double y, low, high;
    int divisions;
  };
  for (const auto& [y, low, high, divisions] : {Case{2, 1, 3, 4}, Case{-2, -3, -1, 4}, Case{0, -1, 1, 4}}) {
    loadData("A.DAT", {{1, y, 0, .25}, {2.5, y, 0, .25}});
    EXPECT_EQ(makeGraph(kDataFigure), openDrawing([&](GralCls& d) {
                drawBox(d, 1, 2.6, 8, low, high, divisions, "Corsa (m)");
                d.GralClip(1, low, 2.6, high);
                plot(d, session.loaded.data);
              }));
    EXPECT_EQ(session.ErrFlag, 0);
  }
}

TEST_F(MakeGraphTest, ASinglePointHasAFigure) {
  loadData("A.DAT", {{4, -4, 0, .25}});
  EXPECT_EQ(makeGraph(kDataFigure), openDrawing([&](GralCls& d) {
              drawBox(d, 2, 6, 8, -6, -2, 8, "Corsa (m)");
              d.GralClip(2, -6, 6, -2);
              plot(d, session.loaded.data);
            }));
}

TEST_F(MakeGraphTest, DifferencesThatAreAllZeroAreOpened) {
  loadData("A.DAT", {{1, 2, 0, 0}, {2.5, 5, 0, 0}});
  takeFunction(2, 1, {2, 0});
  makeGraph(kDifferencesFigure);
  EXPECT_NE(session.figures.GraphText[3].find("\\PARAMETRI(Xi=1, Yi=-1, Xf=2.6, Yf=1)\r\n"),
            std::string::npos);
  EXPECT_EQ(session.ErrFlag, 0);
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

TEST_F(MakeGraphTest, ARangeThatIsNothingButRoundingIsOpened) {
  takeFunction(2, 1, {0, 5});
  loadData("A.DAT", {{1, 5, 0, .5}, {2.5, 5.0000000000000009, 0, .5}});
  for (const int kind : {1, 2}) {
    makeGraph(kind);
    const std::string& text = session.figures.GraphText.at(static_cast<std::size_t>(kind));
    EXPECT_EQ(commandsOf(text, "PARAMETRI")[1], "Xi=1, Yi=2, Xf=2.6, Yf=8");
  }
  loadData("A.DAT", {{1, 5, 0, .5}, {2.5, 5.00000000001, 0, .5}});
  makeGraph(1);
  EXPECT_EQ(commandsOf(session.figures.GraphText[1], "PARAMETRI")[1], "Xi=1, Yi=5, Xf=2.6, Yf=5.00000000001");
}

TEST_F(MakeGraphTest, TheTextHasTheValuesOfTheParametersWhereSevenDigitsDrawAnotherCurve) {
  // A parabola about 2000, written so that large numbers cancel.
  loadData("A.DAT", {{1990, 1, 0, .1}, {2020, 4, 0, .1}});
  session.loaded.catalogue.file.entries = {{"a,b", "a*(x*x+4000000)-b*x", "parabola"}};
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
