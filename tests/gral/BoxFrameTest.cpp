#include <algorithm>
#include <cmath>

#include "SurfaceFixture.h"
#include "gral/BoxProjection.h"
#include "gral/Shade.h"

namespace vk {
namespace {

Array<std::string> textsOf(std::initializer_list<const char*> texts) {
  Array<std::string> result(static_cast<int>(texts.size()) - 1);
  int n = 0;
  for (const char* text : texts) result[n++] = text;
  return result;
}

/// A frame of 4 x 3 x 2 at (8, 4) seen from theta 30 and phi 45.
class Frames : public GralFixture {
 protected:
  void SetUp() override {
    GralFixture::SetUp();
    form.setFontSize(7);
  }
  void draw() {
    drawing.GralFrame3d(8, 4, theta, phi, 4, 3, 2, Tx, Ty, Tz, Tx.upper(), Ty.upper(), Tz.upper(), Sx, Sy, Sz,
                        nSx, nSy, nSz, false);
  }
  std::vector<LineCatcher::Line> lines() {
    LineCatcher catcher;
    form.list().replay(catcher);
    return catcher.caught;
  }
  void expectLine(const LineCatcher::Line& line, const UsrPoint& from, const UsrPoint& to) {
    EXPECT_NEAR(line.x1, drawing.xUsr2Scr(from.x), 0.01);
    EXPECT_NEAR(line.y1, drawing.yUsr2Scr(from.y), 0.01);
    EXPECT_NEAR(line.x2, drawing.xUsr2Scr(to.x), 0.01);
    EXPECT_NEAR(line.y2, drawing.yUsr2Scr(to.y), 0.01);
  }
  /// The text is centred under a point in Scr.
  void expectLabel(const TextRun& run, const std::string& text, double x, double y) {
    EXPECT_EQ(run.text, text);
    EXPECT_EQ(run.size, PointSize(12));
    EXPECT_EQ(run.angle, 0);
    form.setFontSize(12);
    EXPECT_NEAR(run.place.x, x - form.TextWidth(text) / 2, 0.01) << text;
    EXPECT_NEAR(run.place.y, y, 0.01) << text;
  }

  float theta = 30, phi = 45;
  Array<float> Tx{0}, Ty{0}, Tz{0};
  Array<std::string> Sx = textsOf({""}), Sy = textsOf({""}), Sz = textsOf({""});
  Int16 nSx, nSy, nSz;
  BoxProjection box{{8, 4, 30, 45, 4, 3, 2}};
};

TEST_F(Frames, HaveThreeLinesForEachTickOfX) {
  Tx = levelsOf({0, 1, 4});
  draw();
  const auto found = lines();
  ASSERT_EQ(found.size(), 9U);
  for (int k = 1; k <= 3; ++k) {
    const auto n = static_cast<std::size_t>(3 * (k - 1));
    const UsrPoint p = box.corner + static_cast<double>(Tx[k]) / 4.0 * box.xEdge, e = p + box.yEdge;
    expectLine(found[n], p, e);
    expectLine(found[n + 1], p, p + box.zEdge);
    expectLine(found[n + 2], e, {e.x, e.y - box.sp / 2});
  }
}

TEST_F(Frames, HaveThreeLinesForEachTickOfY) {
  Ty = levelsOf({0, 3});
  draw();
  const auto found = lines();
  ASSERT_EQ(found.size(), 6U);
  for (int k = 1; k <= 2; ++k) {
    const auto n = static_cast<std::size_t>(3 * (k - 1));
    const UsrPoint p = box.corner + static_cast<double>(Ty[k]) / 3.0 * box.yEdge, t = p + box.zEdge;
    expectLine(found[n], p, p + box.xEdge);
    expectLine(found[n + 1], p, t);
    expectLine(found[n + 2], t, {t.x - box.st / 2, t.y - box.ct * box.cp / 2});
  }
}

TEST_F(Frames, HaveThreeLinesForEachTickOfZ) {
  Tz = levelsOf({0, 0.5, 2});
  draw();
  const auto found = lines();
  ASSERT_EQ(found.size(), 9U);
  for (int k = 1; k <= 3; ++k) {
    const auto n = static_cast<std::size_t>(3 * (k - 1));
    const UsrPoint p = box.corner + UsrPoint{0, static_cast<double>(Tz[k]) * box.sp}, end = p + box.xEdge;
    expectLine(found[n], p, end);
    expectLine(found[n + 1], end, {end.x - box.ct / 2, end.y - box.cp * box.st / 2});
    expectLine(found[n + 2], p, p + box.yEdge);
  }
}

TEST_F(Frames, HaveLabelsAtTheirTicks) {
  Tx = levelsOf({0, 2, 4});
  Sx = textsOf({"", " 0", "2 ", "four"});
  nSx = 3;
  Ty = levelsOf({3});
  Sy = textsOf({"", "three"});
  nSy = 1;
  Tz = levelsOf({1});
  Sz = textsOf({"", "up"});
  nSz = 1;
  draw();
  const auto found = letters();
  ASSERT_EQ(found.size(), 5U);
  const char* texts[] = {"0", "2", "four"};
  for (int k = 1; k <= 3; ++k) {
    const UsrPoint e = box.corner + static_cast<double>(Tx[k]) / 4.0 * box.xEdge + box.yEdge;
    expectLabel(found[static_cast<std::size_t>(k - 1)], texts[k - 1], drawing.xUsr2Scr(e.x),
                drawing.yUsr2Scr(e.y - box.sp));
  }
  const UsrPoint t = box.corner + box.yEdge + box.zEdge;
  expectLabel(found[3], "three", drawing.xUsr2Scr(t.x - box.st), drawing.yUsr2Scr(t.y - box.ct * box.cp));
  const UsrPoint end = box.corner + 0.5 * box.zEdge + box.xEdge;
  expectLabel(found[4], "up", drawing.xUsr2Scr(end.x - box.ct), drawing.yUsr2Scr(end.y - box.cp * box.st));
}

TEST_F(Frames, HaveLabelsBetweenTheirTicks) {
  Tx = levelsOf({0, 1, 4});
  Sx = textsOf({"", "low", "high"});
  nSx = 2;
  Ty = levelsOf({0, 3});
  Sy = textsOf({"", "all"});
  nSy = 1;
  Tz = levelsOf({0, 2});
  Sz = textsOf({"", "up"});
  nSz = 1;
  draw();
  const auto found = letters();
  ASSERT_EQ(found.size(), 4U);
  const auto under = [&](double x) { return box.corner + x / 4 * box.xEdge + box.yEdge; };
  expectLabel(found[0], "low", drawing.xUsr2Scr(under(0.5).x), drawing.yUsr2Scr(under(0.5).y - box.sp));
  expectLabel(found[1], "high", drawing.xUsr2Scr(under(2.5).x), drawing.yUsr2Scr(under(2.5).y - box.sp));
  const UsrPoint t = box.corner + 0.5 * box.yEdge + box.zEdge - box.ex;
  expectLabel(found[2], "all", drawing.xUsr2Scr(t.x), drawing.yUsr2Scr(t.y));
  const UsrPoint end = box.corner + 0.5 * box.zEdge + box.xEdge - box.ey;
  expectLabel(found[3], "up", drawing.xUsr2Scr(end.x), drawing.yUsr2Scr(end.y));
}

TEST_F(Frames, HaveNoLabelForAnEmptyText) {
  Tx = levelsOf({0, 2, 4});
  Sx = textsOf({"", "a", "   ", ""});
  nSx = 3;
  draw();
  EXPECT_EQ(letters().size(), 1U);
}

TEST_F(Frames, HaveLabelsOf12PointsBesideTitles) {
  Tx = levelsOf({4});
  Sx = textsOf({"X", "a"});
  Ty = levelsOf({3});
  Sy = textsOf({"Y", "b"});
  Tz = levelsOf({2});
  Sz = textsOf({"Z", "c"});
  nSx = nSy = nSz = 1;
  draw();
  for (const TextRun& run : letters())
    EXPECT_NEAR(run.size.value(), run.text >= "a" ? 12 : 14, 0.5) << run.text;
  EXPECT_EQ(form.FontSize(), 7);
}

/// Middle of a title's only letter, in Scr.
TwipPoint middleOf(const TextRun& run, double width, double height) {
  const double a = run.angle * 3.14159265 / 180;
  return {run.place.x + width / 2 * std::cos(a) + height / 2 * std::sin(a),
          run.place.y - width / 2 * std::sin(a) + height / 2 * std::cos(a)};
}

TEST_F(Frames, HaveTitlesOf14PointsAlongTheirEdges) {
  Sx = textsOf({" X "});
  Sy = textsOf({"Y"});
  Sz = textsOf({"Z"});
  draw();
  const auto found = letters();
  ASSERT_EQ(found.size(), 3U);
  // The slopes are those of (Vx*st, Vx*ct*cp) and (Vy*ct, Vy*cp*st) in whole degrees: 50.77 and 22.21.
  EXPECT_EQ(found[0].angle, 51);
  EXPECT_EQ(found[1].angle, 22);
  EXPECT_EQ(found[2].angle, -90);
  form.setFontSize(14);
  const double height = form.TextHeight("");
  for (const TextRun& run : found) {
    // the height of a turned font is a whole number of pixels
    EXPECT_NEAR(run.size.value(), 14, 0.5);
  }
  const UsrPoint x = box.corner + 0.5 * box.xEdge + box.zEdge - 0.5 * box.ey + UsrPoint{0, box.sp / 2};
  const UsrPoint y = box.corner + box.xEdge + 0.5 * box.yEdge - UsrPoint{0, box.sp};
  form.setFontSize(12);
  const double m = std::max(box.ct, form.TextHeight("") / 100);
  const UsrPoint z = box.corner + box.yEdge + UsrPoint{m, box.cp * box.st} + 0.5 * box.zEdge;
  const UsrPoint places[] = {x, y, z};
  for (std::size_t n = 0; n < 3; ++n) {
    form.setFontSize(14);
    const TwipPoint middle = middleOf(found[n], form.TextWidth(found[n].text), height);
    EXPECT_NEAR(middle.x, drawing.xUsr2Scr(places[n].x), 3) << found[n].text;
    EXPECT_NEAR(middle.y, drawing.yUsr2Scr(places[n].y), 3) << found[n].text;
  }
}

TEST_F(Frames, HaveUprightTitlesWhereTheirEdgeHasNoRun) {
  theta = 0;
  Sx = textsOf({"X"});
  draw();
  EXPECT_EQ(letters()[0].angle, 90);
}

TEST_F(Frames, HaveTitlesOfTheTruePageSize) {
  open(1);
  Sx = textsOf({"X"});
  Tx = levelsOf({4});
  nSx = 1;
  Sx = textsOf({"X", "a"});
  draw();
  const auto found = letters();
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].size.value(), 12);  // labels are not scaled
  EXPECT_NEAR(found[1].size.value(), 7, 0.5);
}

TEST_F(Frames, PutTheFontSizeBack) {
  draw();
  EXPECT_EQ(form.FontSize(), 7);
  Sx = Array<std::string>();
  EXPECT_EQ(failureOf([&] { draw(); }), 9);
  EXPECT_EQ(form.FontSize(), 7);
}

TEST_F(Frames, GiveShortArraysOfLabelsRoom) {
  Tx = levelsOf({0, 1, 2, 4});
  Sx = textsOf({"title", "a"});
  nSx = 3;
  Tz = levelsOf({0, 2});
  Sz = textsOf({"title", "a", "b", "c"});
  draw();
  EXPECT_EQ(Sx.upper(), 3);
  EXPECT_EQ(Sx[1], "a");
  EXPECT_EQ(Sx[3], "");
  EXPECT_EQ(Sz.upper(), 3);
  EXPECT_EQ(Sy.upper(), 0);
}

TEST_F(Frames, WithoutALabelForTheLastTickFail) {
  Tx = levelsOf({0, 1, 4});
  Sx = textsOf({"", "a", "b"});
  nSx = 3;
  EXPECT_EQ(failureOf([&] { draw(); }), 9);
}

TEST_F(Frames, WithoutAnEdgeFail) {
  Tx = levelsOf({0});
  nSx = 1;
  Sx = textsOf({"", "a"});
  EXPECT_EQ(failureOf([&] {
              drawing.GralFrame3d(8, 4, 30, 45, 0, 3, 2, Tx, Ty, Tz, 1, 0, 0, Sx, Sy, Sz, 1, 0, 0, false);
            }),
            11);
}

// ---- Filled walls

class WalledFrames : public Frames {
 protected:
  struct Wall {
    std::string points;
    std::string color;
  };
  void drawWalled(bool gray, bool color, double Vx = 4) {
    drawing.Frame3D(8, 4, theta, phi, static_cast<float>(Vx), 3, 2, Tx, Ty, Tz, Tx.upper(), Ty.upper(),
                    Tz.upper(), Sx, Sy, Sz, nSx, nSy, nSz, false, gray, color, levelsOf({0.6, 0.5, 0.9}));
  }
  std::vector<Wall> walls() {
    std::vector<Wall> result;
    std::string color;
    for (const std::string& line : allDrawn()) {
      if (line.rfind("filling ", 0) == 0) color = line.substr(8);
      if (line.rfind("fill ", 0) == 0) result.push_back({line, color});
    }
    return result;
  }
  std::string fillOf(std::initializer_list<UsrPoint> corners) const {
    std::string line = "fill";
    for (const UsrPoint& c : corners) {
      line += " " + std::to_string(drawing.xUsr2Pixel(c.x)) + "," + std::to_string(drawing.yUsr2Pixel(c.y));
    }
    return line + " px";
  }
  static std::string solid(Colour color) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string text;
    for (int shift = 20; shift >= 0; shift -= 4) text += kDigits[color.rgb() >> shift & 15];
    return text + " solid";
  }
  static Colour grey(double gray) {
    const int channel = static_cast<int>(std::nearbyint(gray));
    return Colour::fromChannels(channel, channel, channel);
  }
};

TEST_F(WalledFrames, HaveThreeWallsUnderTheirLines) {
  Tx = levelsOf({0});
  nSx = 1;
  Sx = textsOf({"", "a"});
  drawWalled(false, false);
  const std::vector<std::string> lines = form.lines();
  const auto firstLine =
      std::find_if(lines.begin(), lines.end(), [](const auto& l) { return l.rfind("line", 0) == 0; });
  const auto lastFill =
      std::find_if(lines.rbegin(), lines.rend(), [](const auto& l) { return l.rfind("fill ", 0) == 0; });
  EXPECT_LT(lastFill.base() - lines.begin(), firstLine - lines.begin() + 1);
  const auto found = walls();
  ASSERT_EQ(found.size(), 3U);
  const UsrPoint c = box.corner;
  EXPECT_EQ(found[0].points, fillOf({c, c + box.xEdge, c + box.xEdge + box.zEdge, c + box.zEdge}));
  EXPECT_EQ(found[1].points, fillOf({c, c + box.xEdge, c + box.xEdge + box.yEdge, c + box.yEdge}));
  EXPECT_EQ(found[2].points, fillOf({c, c + box.yEdge, c + box.yEdge + box.zEdge, c + box.zEdge}));
  for (const Wall& wall : found) EXPECT_EQ(wall.color, "FFFFFF solid");
}

TEST_F(WalledFrames, AreShadedByWhatIsSeenOfThem) {
  drawWalled(true, false);
  const auto found = walls();
  const double st = 0.5, ct = std::sqrt(0.75), sp = std::sqrt(0.5), cp = sp;
  const auto gray = [](double ratio) { return grey(255 * std::pow(ratio, 0.25)); };
  EXPECT_EQ(found[0].color, solid(gray(st * sp)));
  EXPECT_EQ(found[1].color, solid(gray(std::abs(st * cp * st - ct * cp * ct))));
  EXPECT_EQ(found[2].color, solid(gray(sp * ct)));
}

TEST_F(WalledFrames, AreWhiteAtMost) {
  // from above the floor is seen whole
  theta = 0;
  phi = 0;
  drawWalled(true, false);
  const auto found = walls();
  EXPECT_EQ(found[0].color, "000000 solid");
  EXPECT_EQ(found[1].color, "FFFFFF solid");
  EXPECT_EQ(found[2].color, "000000 solid");
}

TEST_F(WalledFrames, HaveHueAndSaturationOfTheFrame) {
  drawWalled(true, true);
  const double sp = std::sqrt(0.5);
  EXPECT_EQ(walls()[0].color, solid(HsbToRgb(0.6F, 0.5F, 255 * std::pow(0.5 * sp, 0.25) / 512)));
  drawWalled(false, true);
  for (const Wall& wall : walls()) EXPECT_EQ(wall.color, solid(HsbToRgb(0.6F, 0.5F, 255.0 / 512)));
}

TEST_F(WalledFrames, PutTheFillingBack) {
  drawing.GralFillStyle(kFillCross);
  drawing.GralFillColor(Colour::fromBgr(0x010203));
  drawWalled(true, true);
  EXPECT_EQ(form.FillStyle(), kFillCross);
  EXPECT_EQ(form.FillColor(), Colour::fromBgr(0x010203));
}

TEST_F(WalledFrames, WithoutAnEdgeFail) {
  EXPECT_EQ(failureOf([&] { drawWalled(true, false, 0); }), 11);
}

}  // namespace
}  // namespace vk
