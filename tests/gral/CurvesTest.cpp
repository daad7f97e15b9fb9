#include <cmath>

#include "GralFixture.h"
#include "base/RuntimeError.h"
#include "doubles/Tolerances.h"
#include "gral/Spline.h"

namespace vk {
namespace {

Array<double> arrayOf(std::initializer_list<double> values) {
  Array<double> result(static_cast<int>(values.size()));
  int i = 0;
  for (const double value : values) result[++i] = value;
  return result;
}

class Curves : public GralFixture {};

TEST_F(Curves, SolidPolylineIsOneCall) {
  drawing.GralDraw(arrayOf({0, 4, 16}), arrayOf({8, 4, 0}), 3);
  EXPECT_EQ(drawn(), (std::vector<std::string>{"polyline 0,0 151,151 605,302 px", "refresh"}));
}

TEST_F(Curves, PolylineTakesOnlyItsPoints) {
  drawing.GralDraw(arrayOf({0, 4, 16}), arrayOf({8, 4, 0}), 2);
  EXPECT_EQ(drawn()[0], "polyline 0,0 151,151 px");
}

TEST_F(Curves, OnePointDrawsNothing) {
  drawing.GralDraw(arrayOf({1}), arrayOf({1}), 1);
  EXPECT_EQ(drawn(), std::vector<std::string>{"refresh"});
  drawing.GralPen(1, 2);
  drawing.GralDraw(arrayOf({1}), arrayOf({1}), 1);
  EXPECT_EQ(drawn(), std::vector<std::string>{"refresh"});
}

TEST_F(Curves, DeviceDashesAreLeftToThePolyline) {
  drawing.GralUseTra = false;
  drawing.GralPen(1, 2);
  drawing.GralDraw(arrayOf({0, 4}), arrayOf({8, 4}), 2);
  EXPECT_EQ(allDrawn(),
            (std::vector<std::string>{"pen 000000 width 1 dash", "polyline 0,0 151,151 px", "refresh"}));
}

TEST_F(Curves, DashedPolylineIsTheSameAsItsDashedLines) {
  const Array<double> x = arrayOf({1, 1.05, 1.3, 1.31, 4}), y = arrayOf({4, 4.1, 4.1, 4, 2});
  drawing.GralPen(1, 4);
  std::string text = drawing.GralPenTra;
  for (int i = 1; i < 5; ++i) drawing.GralTraLine(x[i], y[i], x[i + 1], y[i + 1], text);
  std::vector<std::string> expected = drawn();
  expected.emplace_back("refresh");
  drawing.GralDraw(x, y, 5);
  EXPECT_EQ(drawn(), expected);
  EXPECT_EQ(drawing.GralPenTra, pattern({1, 75, 45, 15, 45}));
}

TEST_F(Curves, DashesGoOnOverTheSegmentsAndBeginAnewWithEachPolyline) {
  // 0.1 cm are 56.72 twips: the dash of 75 reaches into the second segment
  const Array<double> x = arrayOf({1, 1.1, 1.2, 1.3}), y = arrayOf({4, 4, 4, 4});
  drawing.GralPen(1, 2);
  drawing.GralDraw(x, y, 4);
  const std::vector<std::string> first = drawn();
  EXPECT_EQ(first, (std::vector<std::string>{"line 567.188,2265 623.906,2265 tw",
                                             "line 623.906,2265 642.188,2265 tw",
                                             "line 687.188,2265 737.344,2265 tw", "refresh"}));
  drawing.GralDraw(x, y, 4);
  EXPECT_EQ(drawn(), first);
}

TEST_F(Curves, PolylineIsNotRefreshedOnAPrinter) {
  openPrinter();
  drawing.GralDraw(arrayOf({0, 4}), arrayOf({8, 4}), 2);
  drawing.GralCurve(arrayOf({0, 4}), arrayOf({8, 4}), 2);
  EXPECT_EQ(drawnOn(printer).size(), 2U);
}

TEST_F(Curves, SmoothCurveIsOneCallOfThreeTimesThePointsLessTwo) {
  drawing.GralCurve(arrayOf({1, 4, 6, 10}), arrayOf({1, 5, 2, 6}), 4);
  const std::vector<std::string> lines = drawn();
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[1], "refresh");
  const auto n = numbersOf(lines[0]);
  ASSERT_EQ(n.size(), 2U * (3 * 4 - 2));
  EXPECT_EQ(n[0], drawing.xUsr2Pixel(1));
  EXPECT_EQ(n[1], drawing.yUsr2Pixel(1));
  EXPECT_EQ(n[18], drawing.xUsr2Pixel(10));
  EXPECT_EQ(n[19], drawing.yUsr2Pixel(6));
  EXPECT_EQ(n[6], drawing.xUsr2Pixel(4));
  EXPECT_EQ(n[7], drawing.yUsr2Pixel(5));
}

// The natural spline through 0, 100, 0 at steps of 100 has the second derivative -0.03 in the middle, so the
// slopes 1.5, 0 and -1.5 at its points.
TEST_F(Curves, SmoothCurveIsTheNaturalSplineOfItsPixels) {
  drawing.GralXMap(0, 16, 0, 605);
  drawing.GralYMap(0, 8, 302, 0);
  drawing.GralCurve(arrayOf({0, 100, 200}), arrayOf({0, 100, 0}), 3);
  EXPECT_EQ(drawn()[0], "bezier 0,0 33,50 67,100 100,100 133,100 167,50 200,0 px");
}

TEST_F(Curves, SmoothCurveThatComesBackNearAPointTakesTheExactPlaces) {
  drawing.GralXMap(0, 16, 0, 605);
  drawing.GralYMap(0, 8, 302, 0);
  const auto throughAbscissa = [&](double third) {
    drawing.GralCurve(arrayOf({0, 10, third, 14}), arrayOf({0, 300, 0, 300}), 4);
    return drawn()[0];
  };
  // Two abscissae in one pixel: pixel 3 is too near to the curve's first point to stand for both, pixel 4 is not.
  EXPECT_NE(throughAbscissa(2.6), throughAbscissa(3));
  EXPECT_EQ(throughAbscissa(4.25), throughAbscissa(4));
}

TEST_F(Curves, SmoothCurveThroughTwoPointsIsStraight) {
  drawing.GralCurve(arrayOf({0, 16}), arrayOf({8, 0}), 2);
  // a third and two thirds of (605, 302)
  EXPECT_EQ(drawn()[0], "bezier 0,0 202,101 403,201 605,302 px");
}

TEST_F(Curves, SmoothCurveIgnoresDashPatterns) {
  drawing.GralPen(1, 2);
  drawing.GralCurve(arrayOf({0, 16}), arrayOf({8, 0}), 2);
  EXPECT_EQ(allDrawn()[0], "pen 000000 width 1 solid");
}

TEST_F(Curves, RepeatedAbscissaFailsToTheCaller) {
  try {
    drawing.GralCurve(arrayOf({1, 4, 4, 10}), arrayOf({1, 5, 2, 6}), 4);
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 11);
  }
  EXPECT_TRUE(drawn().empty());
}

class Splines : public ::testing::Test {
 protected:
  Array<double> t = arrayOf({0, 1, 2.5, 3, 7, 7.25});
  Array<double> v = arrayOf({1, -2, 0.5, 0.5, 4, -3});
  int n = 6;

  /// The spline on piece k at the share s of it, from its second derivatives.
  double spline(const Array<double>& d2, int k, double s) const {
    const double h = t[k + 1] - t[k], a = 1 - s;
    return a * v[k] + s * v[k + 1] + ((a * a * a - a) * d2[k] + (s * s * s - s) * d2[k + 1]) * h * h / 6;
  }
};

TEST_F(Splines, PassSmoothlyThroughThePoints) {
  Array<double> d2;
  SplineDerivatives(t, v, n, kNaturalEnd, kNaturalEnd, d2);
  EXPECT_EQ(d2[1], 0);
  EXPECT_EQ(d2[6], 0);
  for (int k = 2; k < n; ++k) {
    const double before = t[k] - t[k - 1], after = t[k + 1] - t[k];
    const double left = (v[k] - v[k - 1]) / before + before * (d2[k - 1] + 2 * d2[k]) / 6;
    const double right = (v[k + 1] - v[k]) / after - after * (2 * d2[k] + d2[k + 1]) / 6;
    EXPECT_NEAR(left, right, kManyRoundings) << k;
    EXPECT_NEAR(spline(d2, k, 0), v[k], kManyRoundings);
  }
}

TEST_F(Splines, TakeGivenSlopesAtTheirEnds) {
  Array<double> d2;
  SplineDerivatives(t, v, n, 2, -1, d2);
  const double first = t[2] - t[1], last = t[n] - t[n - 1];
  EXPECT_NEAR((v[2] - v[1]) / first - first * (2 * d2[1] + d2[2]) / 6, 2, kManyRoundings);
  EXPECT_NEAR((v[n] - v[n - 1]) / last + last * (d2[n - 1] + 2 * d2[n]) / 6, -1, kManyRoundings);
}

TEST_F(Splines, OfACubicAreTheCubicWhenTheSlopesAreIts) {
  Array<double> cubic(n), d2;
  for (int i = 1; i <= n; ++i) cubic[i] = t[i] * t[i] * t[i] - 2 * t[i];
  SplineDerivatives(t, cubic, n, 3 * t[1] * t[1] - 2, 3 * t[n] * t[n] - 2, d2);
  for (int i = 1; i <= n; ++i) EXPECT_NEAR(d2[i], 6 * t[i], 1E-10) << i;
}

TEST_F(Splines, AreTheirBezierCurvesEverywhere) {
  Array<double> d2, c1, c2;
  SplineDerivatives(t, v, n, kNaturalEnd, kNaturalEnd, d2);
  SplineControlPoints(t, v, d2, c1, c2, n);
  for (int k = 1; k < n; ++k) {
    for (int i = 0; i <= 20; ++i) {
      const double s = i / 20.0, a = 1 - s;
      const double bezier =
          a * a * a * v[k] + 3 * a * a * s * c1[k] + 3 * a * s * s * c2[k] + s * s * s * v[k + 1];
      EXPECT_NEAR(bezier, spline(d2, k, s), kManyRoundings) << "piece " << k << " at " << s;
    }
  }
}

TEST_F(Splines, ControlPointsOfTheParameterItselfAreEvenlySpaced) {
  Array<double> d2, c1, c2;
  SplineDerivatives(t, t, n, kNaturalEnd, kNaturalEnd, d2);
  SplineControlPoints(t, t, d2, c1, c2, n);
  for (int k = 1; k < n; ++k) {
    EXPECT_NEAR(c1[k], t[k] + (t[k + 1] - t[k]) / 3, kManyRoundings);
    EXPECT_NEAR(c2[k], t[k] + (t[k + 1] - t[k]) * 2 / 3, kManyRoundings);
  }
}

TEST_F(Splines, WithEqualNeighboursFail) {
  t[3] = t[2];
  Array<double> d2;
  EXPECT_THROW(SplineDerivatives(t, v, n, kNaturalEnd, kNaturalEnd, d2), RuntimeError);
}

/// One data point at (8, 4) cm, with the mark of 1.5 mm radius unless told.
class DataPlots : public GralFixture {
 protected:
  std::vector<std::string> plot(double ex, double ey, bool hasErrX) {
    drawing.PlotData(arrayOf({8}), arrayOf({ex}), arrayOf({4}), arrayOf({ey}), 1, hasErrX, false, false);
    return drawn();
  }
};

TEST_F(DataPlots, YBarHasCapsOfTheMarksWidth) {
  // 1 cm is 566.25 twips high; 1.5 mm are 85.078 twips wide
  EXPECT_EQ(plot(0, 1, false),
            (std::vector<std::string>{
                "line 4537.5,2831.25 4537.5,1698.75 tw", "line 4452.422,2831.25 4622.578,2831.25 tw",
                "line 4452.422,1698.75 4622.578,1698.75 tw", "circle 4537.5,2265 radius 85.078 tw"}));
}

TEST_F(DataPlots, XBarHasCapsOfTheMarksHeight) {
  EXPECT_EQ(plot(1, 0, true),
            (std::vector<std::string>{
                "line 3970.312,2265 5104.688,2265 tw", "line 3970.312,2349.938 3970.312,2180.062 tw",
                "line 5104.688,2349.938 5104.688,2180.062 tw", "circle 4537.5,2265 radius 85.078 tw"}));
}

TEST_F(DataPlots, BarThatHidesInTheMarkIsNotDrawn) {
  EXPECT_EQ(plot(0, 0.149, false), std::vector<std::string>{"circle 4537.5,2265 radius 85.078 tw"});
  EXPECT_EQ(plot(0, 0.151, false).size(), 4U);
  EXPECT_EQ(plot(0, -0.151, false).size(), 4U);
}

TEST_F(DataPlots, XErrorsCountOnlyWhenThereAreAny) {
  EXPECT_EQ(plot(1, 0, false).size(), 1U);
}

// QUIRK: the test of the x bar takes its upper end through the y mapping.
TEST_F(DataPlots, XBarIsTestedWithTheYMappingOfItsUpperEnd) {
  drawing.GralYMap(0, 8, 0, 80);
  // y 40 stands at 4 cm; the upper end 8.05 is at 8.05 cm in x but at 0.805 cm by the y mapping
  drawing.PlotData(arrayOf({8}), arrayOf({0.05}), arrayOf({40}), arrayOf({0}), 1, true, false, false);
  EXPECT_EQ(drawn().size(), 4U);
  drawing.GralYMap(0, 8, 0, 8);
  drawing.GralXMap(0, 16, 0, 8);
  // the bar is 2 cm long, but x 4 - 0.5 at 7 cm and 4.5 + 2.5 by the y mapping coincide
  drawing.GralYMap(2.5, 8, 0, 5.5);
  drawing.PlotData(arrayOf({4}), arrayOf({0.5}), arrayOf({1}), arrayOf({0}), 1, true, false, false);
  EXPECT_EQ(drawn().size(), 1U);
}

TEST_F(DataPlots, MarksLieAboveAllBars) {
  drawing.PlotData(arrayOf({2, 4, 6}), Array<double>(), arrayOf({4, 4, 4}), arrayOf({1, 1, 1}), 3, false,
                   false, false);
  std::string kinds;
  for (const std::string& line : drawn()) kinds += line[0];
  EXPECT_EQ(kinds, "lllllllllccc");
}

TEST_F(DataPlots, LogarithmicAxesTakeTheLogarithmsOfValuesAndEnds) {
  drawing.PlotData(arrayOf({1000}), arrayOf({900}), arrayOf({-100}), arrayOf({90}), 1, true, true, true);
  const std::vector<std::string> lines = drawn();
  ASSERT_EQ(lines.size(), 7U);
  // x 3 from 2 to 3.2788 cm; y 2 from log 190 to log 10 by absolute values
  const auto y = numbersOf(lines[0]);
  EXPECT_NEAR(y[0], 3 * 567.1875, 0.01);
  EXPECT_NEAR(y[1], (8 - std::log10(190.0)) * 566.25, 0.01);
  EXPECT_NEAR(y[3], (8 - 1) * 566.25, 0.01);
  const auto x = numbersOf(lines[3]);
  EXPECT_NEAR(x[0], 2 * 567.1875, 0.01);
  EXPECT_NEAR(x[1], 6 * 566.25, 0.01);
  EXPECT_NEAR(x[2], std::log10(1900.0) * 567.1875, 0.01);
  const auto mark = numbersOf(lines[6]);
  EXPECT_NEAR(mark[0], 3 * 567.1875, 0.01);
  EXPECT_NEAR(mark[1], 6 * 566.25, 0.01);
}

TEST_F(DataPlots, ZeroUnderALogarithmicAxisFailsToTheCaller) {
  const auto fails = [&](double x, double ex, double y, double ey, bool hasErrX) {
    try {
      drawing.PlotData(arrayOf({x}), arrayOf({ex}), arrayOf({y}), arrayOf({ey}), 1, hasErrX, true, true);
      return 0;
    } catch (const RuntimeError& error) {
      return error.number();
    }
  };
  EXPECT_EQ(fails(0, 0, 10, 1, false), 5);
  EXPECT_EQ(fails(10, 0, 0, 1, false), 5);
  EXPECT_EQ(fails(10, 10, 10, 1, true), 5);
  EXPECT_EQ(fails(10, 0, 10, 10, false), 5);
  EXPECT_EQ(fails(10, 10, 10, 1, false), 0);
}

TEST_F(DataPlots, AreRefreshedAfterEvery100PointsOfBothPasses) {
  Array<double> values(250), errors(250);
  for (int i = 1; i <= 250; ++i) values[i] = 4;
  for (int i = 1; i <= 250; ++i) errors[i] = 1;
  drawing.PlotData(values, errors, values, errors, 250, false, false, false);
  const std::vector<std::string> lines = drawn();
  std::vector<int> refreshes;
  int barLines = 0, marks = 0;
  for (const std::string& line : lines) {
    if (line == "refresh") refreshes.push_back(barLines / 3 + marks);
    if (line[0] == 'c') ++marks;
    if (line[0] == 'l') ++barLines;
  }
  EXPECT_EQ(refreshes, (std::vector<int>{100, 200, 250 + 100, 250 + 200}));
  openPrinter();
  drawing.PlotData(values, errors, values, errors, 250, false, false, false);
  EXPECT_EQ(drawnOn(printer).size(), 250U * (3 + 1));
}

TEST_F(DataPlots, OfNoPointsDrawNothing) {
  drawing.PlotData(Array<double>(), Array<double>(), Array<double>(), Array<double>(), 0, true, true, true);
  EXPECT_TRUE(drawn().empty());
}

}  // namespace
}  // namespace vk
