// Figures that leave the page by far, on devices with pixels of several sizes.

#include <cmath>
#include <functional>
#include <memory>

#include "GralFixture.h"
#include "doubles/Tolerances.h"
#include "gral/DrawnBox.h"

namespace vk {
namespace {

Array<double> valuesOf(std::initializer_list<double> values) {
  Array<double> result(static_cast<int>(values.size()));
  int i = 0;
  for (const double value : values) result[++i] = value;
  return result;
}

/// Keeps all places that a drawing sends, in twips.
class PlaceCatcher : public LineWriter {
 public:
  explicit PlaceCatcher(double twipsPerPixel) : twipsPerPixel_(twipsPerPixel) {}
  std::vector<TwipPoint> places;

  void line(const TwipPoint& a, const TwipPoint& b) override { add({a, b}); }
  void box(const TwipPoint& a, const TwipPoint& b) override { add({a, b}); }
  void filledBox(const TwipPoint& a, const TwipPoint& b, Colour) override { add({a, b}); }
  void circle(const TwipPoint& centre, Twips r) override {
    const TwipPoint corner = r.value() * TwipPoint{1, 1};
    add({centre - corner, centre + corner});
  }
  void polyline(std::span<const PixelPoint> points) override { addPixels(points); }
  void bezier(std::span<const PixelPoint> points) override { addPixels(points); }
  void figure(std::span<const PixelPoint> points, bool, bool) override { addPixels(points); }
  void text(const TextRun& run) override { add({run.place}); }
  void floodFill(const PixelPoint& start, Colour) override { addPixels({&start, 1}); }
  void clip(const PixelRect* region) override {
    if (region == nullptr) return;
    const PixelPoint corners[] = {{region->x1, region->y1}, {region->x2, region->y2}};
    addPixels(corners);
  }

 private:
  void add(std::initializer_list<TwipPoint> points) { places.insert(places.end(), points); }
  void addPixels(std::span<const PixelPoint> points) {
    for (const PixelPoint& p : points) places.push_back({p.x * twipsPerPixel_, p.y * twipsPerPixel_});
  }
  double twipsPerPixel_;
};

/// A figure that may lie anywhere: `far` tells how far.
struct FarFigure {
  const char* name;
  std::function<void(GralCls& g, double far)> draw;
};

const FarFigure kFarFigures[] = {
    {"line", [](GralCls& g, double far) { g.GralLine(0, 0, far, far / 10); }},
    {"line from far to far", [](GralCls& g, double far) { g.GralLine(-far, 4, far, 5); }},
    {"dashed line",
     [](GralCls& g, double far) {
       g.GralPen(1, 2);
       std::string text = g.GralPenTra;
       g.GralTraLine(0, 0, far, far / 10, text);
     }},
    {"box", [](GralCls& g, double far) { g.GralBox(1, 1, far, -far, 0); }},
    {"joined points",
     [](GralCls& g, double far) {
       g.GralDraw(valuesOf({1, 2, 3, 4}), valuesOf({1, far, -far, 2}), 4);
     }},
    {"dashed points",
     [](GralCls& g, double far) {
       g.GralPen(1, 4);
       g.GralDraw(valuesOf({1, 2, 3, 4}), valuesOf({1, far, -far, 2}), 4);
     }},
    {"smooth curve",
     [](GralCls& g, double far) {
       g.GralCurve(valuesOf({1, 4, 7, 10}), valuesOf({1, far, 3, 4}), 4);
     }},
    {"area", [](GralCls& g, double far) { g.GralClip(-far, -far, far, 4); }},
    {"filling", [](GralCls& g, double far) { g.GralFill(far, far, kBlack); }},
    {"text", [](GralCls& g, double far) { g.GralWPrint(far, 3, 1, 0, 12, "far"); }},
    {"data",
     [](GralCls& g, double far) {
       g.PlotData(valuesOf({1, 2}), valuesOf({1, far}), valuesOf({3, far}), valuesOf({far, 1}), 2, true,
                  false, false);
     }},
    {"marks",
     [](GralCls& g, double far) {
       for (int type = 0; type <= 10; ++type) {
         g.GralMakeMark(1.5, type);
         g.GralMark(far, 4);
         g.GralMark(4, -far);
       }
     }},
    {"large marks",
     [](GralCls& g, double far) {
       for (int type = 0; type <= 10; ++type) {
         g.GralMakeMark(std::min(far, 1E38), type);
         g.GralMark(far / 20, 4);
       }
     }},
};

/// Forms with pixels of several sizes.
std::vector<std::unique_ptr<RecorderDevice>> devicesOfAllKinds() {
  std::vector<std::unique_ptr<RecorderDevice>> devices;
  for (const int ratio : {1, 4, 15}) {
    devices.push_back(std::make_unique<RecorderDevice>(FormMetrics{{120, 405}, ratio}));
  }
  return devices;
}

class FarFigures : public GralFixture {
 protected:
  /// The number of the run-time error that these calls end with, 0 for none.
  template <class Calls>
  int errorOn(Device& device, Calls&& calls) {
    GralCls g(printer);
    g.GralGrStr(device, "LANDSCAPE", &device == &printer ? 1 : 2);
    try {
      calls(g);
    } catch (const RuntimeError& error) {
      return error.number();
    }
    return 0;
  }
  std::vector<Device*> all() {
    std::vector<Device*> result{&printer};
    for (const auto& fine : forms) result.push_back(fine.get());
    return result;
  }
  std::vector<std::unique_ptr<RecorderDevice>> forms = devicesOfAllKinds();
};

TEST_F(FarFigures, SendNothingFromFarOutside) {
  std::size_t sent = 0;
  for (const FarFigure& figure : kFarFigures) {
    for (const double far : {1E4, 1E8, 1E12, 1E30}) {
      for (Device* device : all()) {
        auto& recorder = dynamic_cast<RecorderDevice&>(*device);
        recorder.forget();
        EXPECT_EQ(errorOn(*device, [&](GralCls& g) { figure.draw(g, far); }), 0) << figure.name << " " << far;
        PlaceCatcher catcher(device->twipsPerContextPixel());
        recorder.list().replay(catcher);
        sent += catcher.places.size();
        for (const TwipPoint& p : catcher.places) {
          EXPECT_LT(std::abs(p.x), 1.2E5) << figure.name << " " << far;
          EXPECT_LT(std::abs(p.y), 1.2E5) << figure.name << " " << far;
        }
      }
    }
  }
  EXPECT_GT(sent, 0U);
}

TEST_F(FarFigures, FailAlikeWhateverTheSizeOfThePixels) {
  for (const FarFigure& figure : kFarFigures) {
    for (const double far : {1E3, 1E5, 1E6, 1E7, 1E9, 1E12, 1E38, 1E40, 1E150, 1E200, 1E300}) {
      const int expected = errorOn(printer, [&](GralCls& g) { figure.draw(g, far); });
      for (const auto& fine : forms) {
        EXPECT_EQ(errorOn(*fine, [&](GralCls& g) { figure.draw(g, far); }), expected)
            << figure.name << " " << far;
      }
    }
  }
}

TEST_F(FarFigures, PlacesThatAreNotFiniteAreRunTimeErrorSix) {
  for (Device* device : all()) {
    EXPECT_EQ(errorOn(*device, [](GralCls& g) { g.GralLine(0, 0, 1.7E308, 0); }), 6);
    EXPECT_EQ(errorOn(*device, [](GralCls& g) { g.GralBox(0, 0, 1.7E308, 0, 0); }), 6);
    EXPECT_EQ(errorOn(*device, [](GralCls& g) { g.GralMark(0, 1.7E308); }), 6);
    EXPECT_EQ(errorOn(*device, [](GralCls& g) { g.GralClip(0, 0, 1, -1.7E308); }), 6);
    EXPECT_EQ(errorOn(*device,
                      [](GralCls& g) {
                        g.GralDraw(valuesOf({0, 1}), valuesOf({0, 1.7E308}), 2);
                      }),
              6);
  }
}

TEST_F(FarFigures, WidestPenIsTheSameOnAllDevices) {
  for (Device* device : all()) {
    EXPECT_EQ(errorOn(*device, [](GralCls& g) { g.GralPen(65535, 1); }), 0);
    EXPECT_EQ(errorOn(*device, [](GralCls& g) { g.GralPen(65536, 1); }), 6);
    EXPECT_EQ(errorOn(*device, [](GralCls& g) { g.GralPen(-1E30, 1); }), 0);
  }
}

TEST_F(FarFigures, LineKeepsItsDirection) {
  drawing.GralLine(0, 0, 1E8, 1E7);
  const std::vector<std::string> lines = drawn();
  ASSERT_EQ(lines.size(), 1U);
  const std::vector<double> n = numbersOf(lines[0]);
  EXPECT_EQ(n[0], 0);
  EXPECT_EQ(n[1], kHeight);
  EXPECT_NEAR(n[2], kWidth + 100015, 0.01);
  EXPECT_NEAR((kHeight - n[3]) / n[2], kTwipsPerLogY / kTwipsPerLogX / 10, kSingles);
}

TEST_F(FarFigures, SolidLineGoesWhereTheDashedOneGoes) {
  drawing.GralLine(1, 2, 1E12, 3E11);
  const std::vector<double> solid = numbersOf(drawn().at(0));
  std::string text = pattern({1, 75, 45});
  drawing.GralTraLine(1, 2, 1E12, 3E11, text);
  const std::vector<std::string> dashes = drawn();
  ASSERT_GT(dashes.size(), 100U);
  const double slope = (solid[3] - solid[1]) / (solid[2] - solid[0]);
  for (const std::string& dash : dashes) {
    const std::vector<double> n = numbersOf(dash);
    EXPECT_NEAR(n[1], solid[1] + (n[0] - solid[0]) * slope, 0.01);
    EXPECT_LE(n[2], solid[2] + 0.01);
  }
  EXPECT_GT(numbersOf(dashes.back())[2], solid[2] - 100);
}

TEST_F(FarFigures, LineThatComesBackIsDrawnInTwoParts) {
  drawing.GralDraw(valuesOf({1, 2, 3, 4}), valuesOf({1, 1E12, 1E12, 2}), 4);
  const std::vector<std::string> lines = drawn();
  ASSERT_EQ(lines.size(), 3U);  // and the refresh
  EXPECT_EQ(lines[0].substr(0, 17), "polyline 38,264 3") << lines[0];
  const std::vector<double> back = numbersOf(lines[1]);
  EXPECT_EQ(back[2], 151);
  EXPECT_EQ(back[3], 226);
}

TEST_F(FarFigures, MarksAreDrawnWithTheirRealOutlineHoweverLarge) {
  // The right side of the circle passes through x = 4 cm.
  drawing.GralMakeMark(1E9, 10);
  drawing.GralMark(4 - 1E8, 4);
  const std::vector<std::string> lines = drawn();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].substr(0, 12), "fill+stroke ");
  const std::vector<double> n = numbersOf(lines[0]);
  double right = -1E9;
  for (std::size_t i = 0; i + 1 < n.size(); i += 2) right = std::max(right, n[i]);
  EXPECT_NEAR(right, 4 * kTwipsPerLogX / 15, 1);
}

TEST_F(FarFigures, SmoothCurveThroughPointsOfOneColumnIsTheSameOnAllDevices) {
  const auto draw = [](GralCls& g) {
    g.GralCurve(valuesOf({1, 4, 4.004, 10}), valuesOf({1, 3, 2.99, 6}), 4);
  };
  std::vector<std::vector<TwipPoint>> curves;
  for (const auto& fine : forms) {
    EXPECT_EQ(errorOn(*fine, draw), 0);
    PlaceCatcher catcher(fine->twipsPerContextPixel());
    fine->list().replay(catcher);
    curves.push_back(catcher.places);
  }
  ASSERT_EQ(curves[0].size(), 10U);
  for (const auto& curve : curves) {
    ASSERT_EQ(curve.size(), curves[0].size());
    for (std::size_t i = 0; i < curve.size(); ++i) {
      EXPECT_NEAR(curve[i].x, curves[0][i].x, 15) << i;
      EXPECT_NEAR(curve[i].y, curves[0][i].y, 30) << i;
    }
  }
}

TEST_F(FarFigures, SmoothCurveThroughTwoPointsOfOneAbscissaFailsOnAllDevices) {
  for (Device* device : all()) {
    EXPECT_EQ(errorOn(*device,
                      [](GralCls& g) {
                        g.GralCurve(valuesOf({1, 4, 4, 10}), valuesOf({1, 5, 2, 6}), 4);
                      }),
              11);
  }
}

TEST_F(FarFigures, AreaFarOutsideShowsNothingAndOneAroundThePageShowsAll) {
  drawing.GralClip(1E12, 1E12, 1E13, 1E13);
  std::vector<double> n = numbersOf(drawn().at(0));
  EXPECT_GT(n[0], kWidth / 15);
  drawing.GralClip(-1E12, -1E12, 1E13, 1E13);
  n = numbersOf(drawn().back());
  EXPECT_LT(n[0], 0);
  EXPECT_LT(n[1], 0);
  EXPECT_GT(n[2], kWidth / 15);
  EXPECT_GT(n[3], kHeight / 15);
}

TEST_F(FarFigures, AreaWithinOneNominalPixelIsNoneOnAllDevices) {
  for (const auto& fine : forms) {
    errorOn(*fine, [](GralCls& g) { g.GralClip(4, 3, 4.004, 5); });
    PlaceCatcher catcher(fine->twipsPerContextPixel());
    fine->list().replay(catcher);
    ASSERT_EQ(catcher.places.size(), 2U);
    EXPECT_NEAR(catcher.places[1].x, kWidth, 15);
    EXPECT_NEAR(catcher.places[1].y, kHeight, 15);
  }
}

}  // namespace
}  // namespace vk
