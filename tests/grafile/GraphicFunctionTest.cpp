#include <cmath>
#include <limits>

#include "grafile/GraphicCommandsFixture.h"

namespace vk {
namespace {

class GraphicFunctionTest : public GraphicCommandsTest {
 protected:
  static constexpr int kPoints = 200;
  static constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

  /// The pieces of a function over an interval under a pen of this type: each one goes on up to a point of
  /// `kNone`, and a piece of one point is left out.
  template <class Function>
  static Calls pieces(double from, double to, int type, Function function) {
    return [=](GralCls& d) {
      d.GralPen(2, type);
      d.GralOaxis(from, to, 1, 4, 3, false, false, "");
      Array<double> x(kPoints), y(kPoints);
      int count = 0;
      for (int i = 0; i <= kPoints; ++i) {
        const double at = from + i * ((to - from) / (kPoints - 1));
        const double value = i == kPoints ? kNone : function(at);
        if (!std::isnan(value)) {
          x[++count] = at;
          y[count] = value;
          continue;
        }
        if (count > 1) d.GralDraw(x, y, count);
        count = 0;
      }
    };
  }

  /// The polyline of a function over an interval.
  template <class Function>
  static Calls curve(double from, double to, Function function) {
    return [=](GralCls& d) {
      d.GralOaxis(from, to, 1, 4, 3, false, false, "");
      Array<double> x(kPoints), y(kPoints);
      for (int i = 1; i <= kPoints; ++i) {
        x[i] = from + (i - 1) * ((to - from) / (kPoints - 1));
        y[i] = function(x[i]);
      }
      d.GralDraw(x, y, kPoints);
    };
  }
};

TEST_F(GraphicFunctionTest, IsSampledAt200PointsOfTheIntervalOfTheXAxis) {
  expectDraws(lines({"\\PARAMETRI(a1=-2.5,b=4)", "\\XASSE(2,10,1,4,3,0)", "\\FUNZIONE(a1*SIN(x)+b)"}),
              curve(2, 10, [](double x) { return -2.5 * std::sin(x) + 4; }));
}

TEST_F(GraphicFunctionTest, TheIntervalIsSortedAndThatOfTheLastXAxis) {
  const Calls line = curve(2, 10, [](double x) { return x / 2; });
  EXPECT_EQ(run(lines({"\\XASSE(0,1,1,0,3,0)", "\\XASSE(10,2,1,4,3,0)", "\\FUNZIONE(x/2)"})).back(),
            drawing(line).back());
  const auto drawn = run(lines({"\\XASSE(10,2,1,4,3,0)", "\\YASSE(0,9,1,3,3,0)", "\\FUNZIONE(x/2)"}));
  const auto wanted = drawing(line);
  EXPECT_EQ(drawn[drawn.size() - 2], wanted[wanted.size() - 2]);
}

TEST_F(GraphicFunctionTest, IsDashedByThePen) {
  expectDraws(lines({"\\XASSE(2,10,1,4,3,0)", "\\TIPO_LINEA(2,3)", "\\FUNZIONE(x)"}), [](GralCls& d) {
    d.GralOaxis(2, 10, 1, 4, 3, false, false, "");
    d.GralPen(2, 3);
    Array<double> x(kPoints);
    for (int i = 1; i <= kPoints; ++i) x[i] = 2 + (i - 1) * (8.0 / (kPoints - 1));
    d.GralDraw(x, x, kPoints);
  });
}

TEST_F(GraphicFunctionTest, UnderLogFlagsBothCoordinatesBecomeLogarithms) {
  expectDraws(lines({"\\XLOG(1)", "\\YLOG(1)", "\\XASSE(1,3,1,2,3,0)", "\\FUNZIONE(-x^2)"}), [](GralCls& d) {
    d.GralOaxis(1, 3, 1, 2, 3, true, false, "");
    Array<double> x(kPoints), y(kPoints);
    for (int i = 1; i <= kPoints; ++i) {
      const double at = 1 + (i - 1) * (2.0 / (kPoints - 1));
      x[i] = std::log10(at);
      y[i] = std::log10(at * at);
    }
    d.GralDraw(x, y, kPoints);
  });
}

TEST_F(GraphicFunctionTest, ItsParametersKeepTheirDoublesInANarrowFigure) {
  expectDraws(kNarrowScales + lines({"\\PARAMETRI(t0=1700000123.5,b=1E-6,c=5.0001234)",
                                     "\\XASSE(Xi,Xf,Yi,6,3,0)", "\\FUNZIONE(b*(x-t0)+c)"}),
              [](GralCls& d) {
                mapNarrowly(d);
                d.GralOaxis(1.7E9, 1.7E9 + 600, 5, 6, 3, false, false, "");
                Array<double> x(kPoints), y(kPoints);
                for (int i = 1; i <= kPoints; ++i) {
                  x[i] = 1.7E9 + (i - 1) * (600.0 / (kPoints - 1));
                  y[i] = 1E-6 * (x[i] - 1700000123.5) + 5.0001234;
                }
                d.GralDraw(x, y, kPoints);
              });
}

TEST_F(GraphicFunctionTest, BeforeAnXAxisItCannotBeComputed) {
  EXPECT_EQ(errorsOf(lines({"\\FUNZIONE(a + x)", "\\YASSE(0,9,1,3,3,0)", "\\FUNZIONE(x)",
                            "\\XASSE(3,3,1,2,3,0)", "\\FUNZIONE(x*2)"})),
            lines({"*** Funzione a + x NON Calcolabile (Intervallo x NON Definito)",
                   "*** Funzione x NON Calcolabile (Intervallo x NON Definito)",
                   "*** Funzione x*2 NON Calcolabile (Intervallo x NON Definito)"}));
}

TEST_F(GraphicFunctionTest, AnUnknownNameOrABadFormulaIsTold) {
  EXPECT_EQ(errorsOf(lines({"\\XASSE(0,9,1,3,3,0)", "\\FUNZIONE(q * x)", "\\FUNZIONE(x**2)", "\\FUNZIONE()",
                            "\\FUNZIONE(SIN(x)", "\\FUNZIONE(X)"})),
            lines({"*** Funzione q * x Errata", "*** Funzione x**2 Errata", "*** Funzione  Errata",
                   "*** Funzione SIN(x Errata", "*** Funzione X Errata"}));
}

TEST_F(GraphicFunctionTest, ExponentsOfNumbersAreNotTakenForNames) {
  expectDraws(lines({"\\PARAMETRI(E=5)", "\\XASSE(2,10,1,4,3,0)", "\\FUNZIONE(1E-3*x+2.5E0)"}),
              curve(2, 10, [](double x) { return 1e-3 * x + 2.5; }));
}

TEST_F(GraphicFunctionTest, PointsThatCannotBeComputedAreNotDrawn) {
  expectDraws(lines({"\\XASSE(-2,10,1,4,3,0)", "\\FUNZIONE(LOG(x))", "% end"}),
              pieces(-2, 10, 1, [](double x) { return x <= 0 ? kNone : std::log(x); }));
}

TEST_F(GraphicFunctionTest, TheLineAndItsDashesBeginAnewBehindPointsThatCannotBeComputed) {
  const auto root = [](double x) {
    const double square = (x - 3) * (x - 5);
    return square < 0 ? kNone : std::sqrt(square);
  };
  for (const int type : {1, 2, 5}) {
    const std::string pen = "\\TIPO_LINEA(2," + std::to_string(type) + ")";
    expectDraws(lines({pen, "\\XASSE(2,10,1,4,3,0)", "\\FUNZIONE(SQR((x-3)*(x-5)))"}),
                pieces(2, 10, type, root));
  }
}

TEST_F(GraphicFunctionTest, AGoodPointBetweenTwoThatFailIsNotDrawn) {
  // Over 0..199 the points are the integers.
  const auto gaps = [](double x) {
    const double product = (x - 6.5) * (x - 7.5) * (x - 8.5) * (x - 9.5) * (x - 197.5) * (x - 198.5);
    return product < 0 ? kNone : .01 * std::sqrt(product);
  };
  expectDraws(lines({"\\XASSE(0,199,1,4,3,0)",
                     "\\FUNZIONE(.01*SQR((x-6.5)*(x-7.5)*(x-8.5)*(x-9.5)*(x-197.5)*(x-198.5)))"}),
              pieces(0, 199, 1, gaps));
}

TEST_F(GraphicFunctionTest, PointsWithoutALogarithmAreNotDrawn) {
  const auto drawn = run(lines({"\\XASSE(0,3,1,3,3,0)", "\\XLOG(1)", "\\FUNZIONE(x)"}));
  EXPECT_TRUE(output.requests.empty());
  EXPECT_EQ(drawn, drawing([](GralCls& d) {
              d.GralOaxis(0, 3, 1, 3, 3, false, false, "");
              Array<double> x(kPoints), y(kPoints);
              for (int i = 2; i <= kPoints; ++i) {
                y[i - 1] = (i - 1) * (3.0 / (kPoints - 1));
                x[i - 1] = std::log10(y[i - 1]);
              }
              d.GralDraw(x, y, kPoints - 1);
            }));
}

TEST_F(GraphicFunctionTest, AFunctionWithoutAnyPointIsToldAndDrawsNothing) {
  EXPECT_EQ(run(lines({"\\PARAMETRI(a=-1)", "\\XASSE(1,3,1,3,3,0)", "\\FUNZIONE(SQR( a*x ))", "\\YLOG(1)",
                       "\\FUNZIONE(0*x)"})),
            drawing([](GralCls& d) { d.GralOaxis(1, 3, 1, 3, 3, false, false, ""); }));
  EXPECT_EQ(output.request().text,
            lines({"*** Funzione SQR( a*x ) NON Calcolabile", "*** Funzione 0*x NON Calcolabile"}));
}

TEST_F(GraphicFunctionTest, APointThatCannotBeComputedDoesNotMakeTheFunctionWrong) {
  EXPECT_EQ(errorsOf(lines({"\\XASSE(-2,10,1,4,3,0)", "\\FUNZIONE(SQR(x))", "% end"})), "");
}

// QUIRK: a function that fails at its last point leaves the error register set at the end of the file.
TEST_F(GraphicFunctionTest, AFunctionOfTheLastLineThatFailsAtItsLastPointOpensAnEmptyList) {
  run(lines({"\\XASSE(-2,10,1,4,3,0)", "\\FUNZIONE(SQR(-x))"}));
  ASSERT_EQ(output.requests.size(), 1U);
  EXPECT_EQ(output.request().text, "");
}

}  // namespace
}  // namespace vk
