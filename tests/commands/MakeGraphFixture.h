#pragma once

#include <cmath>
#include <set>

#include "commands/FunctionChoice.h"
#include "data/DataFiles.h"
#include "doubles/Choices.h"
#include "doubles/DrawingLines.h"
#include "tests/commands/FigureFixture.h"

namespace vk {

/// An axis of the box of a figure.
struct BoxAxis {
  double from, to;
  int divisions;
};

/// The box of a figure and its axes.
inline void drawBox(GralCls& d, const BoxAxis& x, const BoxAxis& y, const std::string& legend) {
  d.GralXMap(5, 18, x.from, x.to);
  d.GralYMap(4, 13, y.from, y.to);
  d.GralOaxis(x.from, x.to, y.from, x.divisions, 3, false, true, "Tempo (s)");
  d.GralOaxis(x.from, x.to, y.to, x.divisions, -3, false, false, "");
  d.GralVaxis(y.from, y.to, x.from, y.divisions, 3, false, true, legend);
  d.GralVaxis(y.from, y.to, x.to, y.divisions, -3, false, false, "");
}

/// The points of a figure.
inline void plot(GralCls& d, const DataSet& data) {
  d.PlotData(data.Xpnt, data.ErrXpnt, data.Ypnt, data.ErrYpnt, data.NumPnt, data.kXpntErr != 0, false, false);
}

/// A figure of the page of 20 x 15 cm has its plot box from 5 to 18 and from 4 to 13 cm.
class MakeGraphTest : public FigureFixture {
 protected:
  std::vector<std::string> makeGraph(int kind) {
    MakeGraph(session, ports, kind, kernels);
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
    session.loaded.catalogue.file.entries = {compiledEntry("t", formula, "formula")};
    loadFunction(session, 1);
    takeFunction(6, 1, {t});
  }
  /// The figure of the function over the points of `loadPoints`, with a line between neighbours that are
  /// both good.
  void expectCurveWithout(const std::set<int>& failed, double Yi, double Yf, int nDivY) {
    const auto drawn = makeGraph(kFunctionFigure);
    const SampledCurve curve = curveOfFigure();
    for (int i = 0; i <= 50; ++i) EXPECT_EQ(curve.failed[i], toFlag(failed.contains(i))) << i;
    EXPECT_EQ(drawn, openDrawing([&](GralCls& d) {
                drawBox(d, {0, 10, 10}, {Yi, Yf, nDivY}, "Corsa (m)");
                for (int i = 1; i <= 50; ++i) {
                  if (failed.contains(i - 1) || failed.contains(i)) continue;
                  d.GralLine(curve.x[i - 1], curve.y[i - 1], curve.x[i], curve.y[i]);
                }
                d.GralClip(0, Yi, 10, Yf);
                plot(d, session.loaded.data);
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
                drawBox(d, {0, 10, 10}, {-.5, 2, 5}, "Corsa (m) (Mis.-Calc.)");
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

}  // namespace vk
