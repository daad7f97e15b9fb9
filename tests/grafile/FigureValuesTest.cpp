#include "tests/commands/MakeGraphFixture.h"

namespace vk {
namespace {

using FigureValuesTest = MakeGraphTest;

TEST_F(FigureValuesTest, FivePointsThatCannotBeComputedAreNotDrawnAndBeepEach) {
  loadData("/D/A.DAT", {{.3, 200, 0, .25}, {5, 201, 0, .5}, {9.7, 202, 0, .25}});
  takeFormula("LOG(x-t)+200", .9);
  expectCurveWithout({0, 1, 2, 3, 4}, 197, 203, 6);
  EXPECT_DOUBLE_EQ(curveOfFigure().y[5], 200 + std::log(.1));
  EXPECT_NE(session.figures.GraphText[2], "");
  EXPECT_EQ(session.ErrFlag, 0);
}

TEST_F(FigureValuesTest, TheLineBeginsAnewBehindAPointThatCannotBeComputed) {
  loadPoints();
  takeFormula("t*SQR((x-.3)*(x-.5))", .5);
  expectCurveWithout({2}, 0, 5, 5);
}

TEST_F(FigureValuesTest, AGoodPointBetweenTwoThatFailIsNotDrawn) {
  loadPoints();
  takeFormula("t*SQR((x-.1)*(x-.3)*(x-.5)*(x-.7))", .01);
  expectCurveWithout({1, 3}, 0, 2.5, 5);
}

TEST_F(FigureValuesTest, TheSixthPointThatCannotBeComputedEndsTheFigure) {
  loadPoints();
  session.figures.DiffText = "differences";
  session.figures.GraphText = {"", "one", "two", "three"};
  takeLogarithm(1.1);
  dialogs.expectBox();
  MakeGraph(session, ports, kFunctionFigure, kernels);
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

TEST_F(FigureValuesTest, OnePointThatCannotBeComputedEndsTheDifferences) {
  loadPoints();
  session.figures.DiffText = "differences";
  session.figures.GraphText = {"", "one", "two", "three"};
  takeLogarithm(.9);
  MakeGraph(session, ports, kDifferencesFigure, kernels);
  EXPECT_EQ(lowTones(), 1);
  EXPECT_TRUE(dialogs.boxes.empty());
  EXPECT_EQ(session.figures.GraphText[2], "two");
  EXPECT_EQ(session.figures.GraphText[3], "");
  EXPECT_EQ(session.figures.DiffText, "");
  EXPECT_TRUE(plots.windows.empty());
  EXPECT_FALSE(window.menuEnabled[Control::MenGraDifSav]);
}

/// The number of lines of the band about the logarithm of the fixture, whose parameter has the error 1.
class FigureOfABandTest : public MakeGraphTest {
 protected:
  FigureOfABandTest() { loadPoints(); }
  std::ptrdiff_t linesOfBand(const std::string& formula, double t) {
    takeFormula(formula, t);
    session.analysis.par.ParDeltas[1] = 1;
    classifyParameters(session.analysis.par);
    CovarianceMatrix covariance(1);
    covariance.set(1, 1, 1E-4);
    session.figures.band = CurveBand{covariance, 1, false};
    makeGraph(kFunctionFigure);
    const std::string& text = session.figures.GraphText[kFunctionFigure];
    EXPECT_THAT(text, testing::Not(testing::HasSubstr("nan")));
    std::ptrdiff_t count = 0;
    for (auto at = text.find("\\LINEA("); at != std::string::npos; at = text.find("\\LINEA(", at + 1))
      ++count;
    return count;
  }
};

TEST_F(FigureOfABandTest, HasNoneWhereTheFunctionHasNoValue) {
  // Of the 200 pieces from 0 to 10 every other one is drawn below and above: but for six of them up to 0.5.
  EXPECT_EQ(linesOfBand("LOG(x-t)", .5), 2 * (100 - 6));
  EXPECT_EQ(session.ErrFlag, 0);
}

TEST_F(FigureOfABandTest, HasNoneBehindTheEndOfTheFunction) {
  // The piece from 9.50 to 9.55 is the first of five.
  EXPECT_EQ(linesOfBand("LOG(t-x)", 9.52), 2 * (100 - 5));
  EXPECT_EQ(session.ErrFlag, 0);
}

TEST_F(FigureOfABandTest, IsAFailedStepWhereTheParameterHasNoDerivative) {
  EXPECT_EQ(linesOfBand("x+SQR(t-1)", 1), 0);
  EXPECT_NE(session.ErrFlag, 0);
}

TEST_F(FigureValuesTest, EqualXAreOpenedByHalfTheirValueOnBothSides) {
  loadData("A.DAT", {{3, 1, 0, .25}, {3, 2, 0, .5}});
  EXPECT_EQ(makeGraph(kDataFigure), openDrawing([&](GralCls& d) {
              drawBox(d, {1.5, 4.5, 6}, {1, 2, 5}, "Corsa (m)");
              d.GralClip(1.5, 1, 4.5, 2);
              plot(d, session.loaded.data);
            }));
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_NE(session.figures.GraphText[1].find("\\PARAMETRI(Xi=1.5, Yi=1, Xf=4.5, Yf=2)\r\n"),
            std::string::npos);
  EXPECT_NE(session.figures.GraphText[1].find("\\PARAMETRI(nDivX=6, nDivY=5)\r\n"), std::string::npos);
}

TEST_F(FigureValuesTest, EqualXOfEveryFigureAreOpened) {
  loadData("A.DAT", {{3, 1, 0, .25}, {3, 2, 0, .5}});
  takeFunction(2, 1, {.25, .5});
  makeGraph(kFunctionFigure);
  const SampledCurve curve = curveOfFigure();
  EXPECT_DOUBLE_EQ(curve.x[0], 1.5);
  EXPECT_DOUBLE_EQ(curve.x[50], 4.5);
  makeGraph(kDifferencesFigure);
  EXPECT_EQ(plots.windows.size(), 2U);
  EXPECT_EQ(session.ErrFlag, 0);
}

TEST_F(FigureValuesTest, EqualYAreOpenedNegativeOnesAndZerosToo) {
  struct Case {
    double y, low, high;
    int divisions;
  };
  for (const Case& equal : {Case{2, 1, 3, 4}, Case{-2, -3, -1, 4}, Case{0, -1, 1, 4}}) {
    loadData("A.DAT", {{1, equal.y, 0, .25}, {2.5, equal.y, 0, .25}});
    EXPECT_EQ(makeGraph(kDataFigure), openDrawing([&](GralCls& d) {
                drawBox(d, {1, 2.6, 8}, {equal.low, equal.high, equal.divisions}, "Corsa (m)");
                d.GralClip(1, equal.low, 2.6, equal.high);
                plot(d, session.loaded.data);
              }));
    EXPECT_EQ(session.ErrFlag, 0);
  }
}

TEST_F(FigureValuesTest, ASinglePointHasAFigure) {
  loadData("A.DAT", {{4, -4, 0, .25}});
  EXPECT_EQ(makeGraph(kDataFigure), openDrawing([&](GralCls& d) {
              drawBox(d, {2, 6, 8}, {-6, -2, 8}, "Corsa (m)");
              d.GralClip(2, -6, 6, -2);
              plot(d, session.loaded.data);
            }));
}

TEST_F(FigureValuesTest, DifferencesThatAreAllZeroAreOpened) {
  loadData("A.DAT", {{1, 2, 0, 0}, {2.5, 5, 0, 0}});
  takeFunction(2, 1, {2, 0});
  makeGraph(kDifferencesFigure);
  EXPECT_NE(session.figures.GraphText[3].find("\\PARAMETRI(Xi=1, Yi=-1, Xf=2.6, Yf=1)\r\n"),
            std::string::npos);
  EXPECT_EQ(session.ErrFlag, 0);
}

TEST_F(FigureValuesTest, ARangeThatIsNothingButRoundingIsOpened) {
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

}  // namespace
}  // namespace vk
