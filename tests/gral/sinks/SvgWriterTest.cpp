#include "gral/sinks/SvgWriter.h"

#include "gral/BlockLetters.h"

namespace vk {
namespace {

class Svg : public ::testing::Test {
 protected:
  void SetUp() override { writer.clear({3000, 1500}, kWhite); }
  /// The document between the background and its end.
  std::string body() {
    const std::string document = writer.document();
    const std::string background = "<rect width=\"3000\" height=\"1500\" fill=\"#ffffff\"/>\n";
    const std::size_t start = document.find(background) + background.size();
    return document.substr(start, document.rfind("</svg>") - start);
  }
  std::string definitions() {
    const std::string document = writer.document();
    const std::size_t start = document.find("<defs>\n") + 7;
    return document.substr(start, document.find("</defs>") - start);
  }

  BlockLetters letters;
  SvgWriter writer{15, letters};
};

constexpr const char* kBlackGroup = "<g stroke=\"#000000\" stroke-width=\"15\" fill=\"none\">\n";

TEST_F(Svg, HasTheNaturalSizeInPoints) {
  EXPECT_EQ(
      writer.document(),
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"150pt\" height=\"75pt\" viewBox=\"0 0 3000 1500\""
      " font-family=\"Arial, 'Liberation Sans', Helvetica, sans-serif\" stroke-linecap=\"round\""
      " stroke-linejoin=\"round\">\n<defs>\n</defs>\n"
      "<rect width=\"3000\" height=\"1500\" fill=\"#ffffff\"/>\n</svg>\n");
}

TEST_F(Svg, StandsInTheMiddleOfALargerSheet) {
  const std::string document = writer.document({.size = {6000, 6000}});
  EXPECT_NE(document.find("width=\"300pt\" height=\"300pt\" viewBox=\"0 -750 3000 3000\""),
            std::string::npos);
  EXPECT_NE(document.find("<rect x=\"0\" y=\"-750\" width=\"3000\" height=\"3000\""), std::string::npos);
}

TEST_F(Svg, LinesOfOnePenAreOnePathAndJoinedWhereTheyMeet) {
  writer.pen({});
  writer.line({1, 2}, {3.456, 4});
  writer.line({3.456, 4}, {-0.4, 0.001});
  writer.line({7, 8}, {9, 10});
  EXPECT_EQ(body(), kBlackGroup + std::string("<path fill=\"none\" d=\"M1 2l2 2-3-4m7 8 2 2\"/>\n</g>\n"));
}

TEST_F(Svg, CappedBarIsOneWayThereAndBackOnItsCaps) {
  writer.pen({});
  writer.line({50, 100}, {50, 20});
  writer.line({45, 100}, {55, 100});
  writer.line({45, 20}, {55, 20});
  EXPECT_EQ(body(), kBlackGroup + std::string("<path fill=\"none\" d=\"M45 100h10-5v-80h5-10\"/>\n</g>\n"));
}

TEST_F(Svg, BarAlongXIsTheSameTurnedRound) {
  writer.pen({});
  writer.line({100, 50}, {20, 50});
  writer.line({100, 45}, {100, 55});
  writer.line({20, 45}, {20, 55});
  EXPECT_EQ(body(), kBlackGroup + std::string("<path fill=\"none\" d=\"M100 45v10-5h-80v5-10\"/>\n</g>\n"));
}

TEST_F(Svg, DashedLinesAreTakenOnceAndInTheirOrder) {
  writer.pen({kBlack, 1, kDrawDash});
  writer.line({50, 100}, {50, 20});
  writer.line({45, 100}, {55, 100});
  writer.line({45, 20}, {55, 20});
  EXPECT_NE(body().find(" d=\"M50 100v-80m-5 80h10m-10-80h10\""), std::string::npos);
}

TEST_F(Svg, DashedLinesThatMeetAreOneWay) {
  writer.pen({kBlack, 1, kDrawDash});
  writer.line({1, 2}, {3, 4});
  writer.line({3, 4}, {5, 7});
  writer.line({3, 4}, {1, 2});
  EXPECT_NE(body().find(" d=\"M1 2l2 2 2 3m-2-3-2-2\""), std::string::npos);
}

TEST_F(Svg, LinesWithoutLengthAreDots) {
  writer.pen({});
  writer.line({5, 5}, {5, 5});
  writer.line({0, 5}, {9, 5});
  writer.line({4, 5}, {4, 5});
  EXPECT_NE(body().find(" d=\"M0 5h9-4 0m-1 0h0\""), std::string::npos);
}

TEST_F(Svg, NewPenBeginsANewGroup) {
  writer.pen({});
  writer.line({1, 2}, {3, 4});
  writer.pen({Colour::fromBgr(0x0000FF), 3, kDrawDot});
  writer.line({3, 4}, {5, 6});
  EXPECT_EQ(body(),
            kBlackGroup +
                std::string("<path fill=\"none\" d=\"M1 2l2 2\"/>\n</g>\n"
                            "<g stroke=\"#ff0000\" stroke-width=\"45\" fill=\"none\""
                            " stroke-dasharray=\"45 135\">\n<path fill=\"none\" d=\"M3 4l2 2\"/>\n</g>\n"));
}

TEST_F(Svg, LongPathsAreCut) {
  writer.pen({});
  for (double i = 0; i < 5000; ++i) writer.line({i, 0}, {i + 0.5, 10});
  const std::string text = body();
  int paths = 0;
  for (std::size_t at = text.find("<path"); at != std::string::npos; at = text.find("<path", at + 1)) ++paths;
  EXPECT_GT(paths, 2);
  EXPECT_LT(paths, 20);
}

TEST_F(Svg, ShapesAreElements) {
  writer.pen({});
  writer.filling({kWhite, kFillSolid});
  writer.circle({10, 20}, Twips(5));
  writer.box({1, 2}, {3, 4});
  writer.filledBox({1, 2}, {3, 4}, Colour::fromBgr(0x00FF00));
  const PixelPoint points[] = {{1, 2}, {3, 4}, {5, 6}, {7, 8}};
  writer.polyline(points);
  writer.bezier(points);
  writer.figure(points, true, true);
  writer.figure(points, true, false);
  writer.figure(points, false, true);
  EXPECT_EQ(body(),
            "<g stroke=\"#000000\" stroke-width=\"15\" fill=\"#ffffff\">\n"
            "<circle cx=\"10\" cy=\"20\" r=\"5\"/>\n"
            "<path fill=\"none\" d=\"M1 2H3V4H1Z\"/>\n"
            "<path stroke=\"none\" fill=\"#00ff00\" d=\"M1 2H3V4H1Z\"/>\n"
            "<path fill=\"none\" d=\"M1 2l2 2 2 2 2 2\"/>\n"
            "<path fill=\"none\" d=\"M1 2C3 4 5 6 7 8\"/>\n"
            "<path d=\"M1 2l2 2 2 2 2 2z\"/>\n"
            "<path stroke=\"#ffffff\" stroke-width=\"10\" shape-rendering=\"crispEdges\" d=\"M1 2l2 2 2 2 2 "
            "2z\"/>\n"
            "<path fill=\"none\" d=\"M1 2l2 2 2 2 2 2\"/>\n</g>\n");
}

TEST_F(Svg, ShapesCoverTheLinesBeforeThem) {
  writer.pen({});
  writer.line({1, 2}, {3, 4});
  writer.filledBox({1, 2}, {3, 4}, kWhite);
  writer.line({5, 6}, {7, 8});
  EXPECT_EQ(body(), kBlackGroup + std::string("<path fill=\"none\" d=\"M1 2l2 2\"/>\n"
                                              "<path stroke=\"none\" fill=\"#ffffff\" d=\"M1 2H3V4H1Z\"/>\n"
                                              "<path fill=\"none\" d=\"M5 6l2 2\"/>\n</g>\n"));
}

TEST_F(Svg, SmallestCirclesKeepTheirSize) {
  writer.pen({});
  writer.circle({10, 20}, Twips(0.4));
  writer.circle({10, 20}, Twips(-1.4));
  EXPECT_NE(body().find("r=\"0.4\"/>\n<circle cx=\"10\" cy=\"20\" r=\"1\"/>"), std::string::npos) << body();
}

TEST_F(Svg, CurveOfNoPointsIsNothing) {
  writer.pen({});
  writer.bezier({});
  EXPECT_EQ(body(), "");
}

TEST_F(Svg, PixelsAreTurnedIntoTwips) {
  SvgWriter coarse(2, letters);
  coarse.clear({3000, 1500}, kWhite);
  const PixelPoint points[] = {{1, 2}, {3, 4}};
  coarse.polyline(points);
  EXPECT_NE(coarse.document().find("d=\"M8 15l15 15\""), std::string::npos);
}

TEST_F(Svg, EveryCodeGivesWellFormedText) {
  for (int code = 0; code < 256; ++code) {
    for (const char* font : {"Arial", "Symbol"}) {
      writer.text({{0, 0}, PointSize(10), 0, font, std::string(1, static_cast<char>(code))});
    }
  }
  const std::string text = body();
  for (const char c : text) EXPECT_TRUE(c == '\n' || static_cast<unsigned char>(c) >= 32);
  EXPECT_NE(text.find("&amp;"), std::string::npos);
  EXPECT_NE(text.find("\xE2\x82\xAC"), std::string::npos);
}

TEST_F(Svg, ClipRegionsAreDefinedAndUsed) {
  const PixelRect region{10, 20, 110, 50};
  writer.clip(&region);
  writer.line({1, 2}, {3, 4});
  writer.clip(nullptr);
  writer.line({1, 2}, {3, 4});
  EXPECT_EQ(definitions(),
            "<clipPath id=\"clip0\"><rect x=\"10\" y=\"20\" width=\"100\" height=\"30\"/></clipPath>\n");
  EXPECT_EQ(body(),
            "<g stroke=\"#000000\" stroke-width=\"15\" fill=\"none\" clip-path=\"url(#clip0)\">\n"
            "<path fill=\"none\" d=\"M1 2l2 2\"/>\n</g>\n" +
                std::string(kBlackGroup) + "<path fill=\"none\" d=\"M1 2l2 2\"/>\n</g>\n");
}

/// The slanted lines pass the corners of a cell, and short pieces fill what the neighbour cannot draw there.
TEST_F(Svg, HatchesArePatterns) {
  writer.filling({Colour::fromBgr(0x00FF00), kFillUpward});
  writer.circle({10, 20}, Twips(5));
  writer.filling({Colour::fromBgr(0x00FF00), kFillSolid});
  writer.circle({10, 20}, Twips(5));
  writer.filling({Colour::fromBgr(0x00FF00), kFillUpward});
  writer.circle({10, 20}, Twips(5));
  EXPECT_EQ(definitions(),
            "<pattern id=\"hatch400ff00\" width=\"120\" height=\"120\" patternUnits=\"userSpaceOnUse\">"
            "<path stroke=\"#00ff00\" stroke-width=\"15\" "
            "d=\"M0 120L120 0M-15 15l30 -30M105 135l30 -30\"/></pattern>\n");
  EXPECT_NE(body().find("fill=\"url(#hatch400ff00)\""), std::string::npos);
}

TEST_F(Svg, EveryHatchHasItsLines) {
  const std::pair<int, const char*> hatches[] = {
      {kFillHorizontal, "M0 7.5H120\""},
      {kFillVertical, "M7.5 0V120\""},
      {kFillDownward, "M0 0L120 120M105 -15l30 30M-15 105l30 30\""},
      {kFillCross, "M0 7.5H120M7.5 0V120\""},
      {kFillDiagonalCross,
       "M0 120L120 0M-15 15l30 -30M105 135l30 -30M0 0L120 120M105 -15l30 30M-15 105l30 30\""}};
  for (const auto& [style, lines] : hatches) {
    writer.filling({kBlack, style});
    writer.circle({1, 1}, Twips(1));
    EXPECT_NE(definitions().find(lines), std::string::npos) << style;
  }
}

TEST_F(Svg, TransparentPenDrawsNoOutline) {
  writer.pen({kBlack, 1, kDrawTransparent});
  writer.circle({1, 1}, Twips(1));
  EXPECT_NE(body().find("<g stroke=\"none\""), std::string::npos);
}

TEST_F(Svg, AreasOfOtherColoursStayInTheirGroup) {
  const PixelPoint points[] = {{0, 0}, {3, 0}, {3, 4}};
  writer.pen({});
  writer.filling({Colour::fromBgr(0x0000FF), kFillSolid});
  writer.figure(points, true, false);
  writer.filling({Colour::fromBgr(0x00FF00), kFillSolid});
  writer.figure(points, true, false);
  writer.figure(points, false, true);
  writer.figure(points, true, true);
  const std::string area = "d=\"M0 0h3v4z\"/>\n";
  EXPECT_EQ(
      body(),
      "<g stroke=\"#000000\" stroke-width=\"15\" fill=\"#ff0000\">\n"
      "<path stroke=\"#ff0000\" stroke-width=\"10\" shape-rendering=\"crispEdges\" " +
          area +
          "<path fill=\"#00ff00\" stroke=\"#00ff00\" stroke-width=\"10\" shape-rendering=\"crispEdges\" " +
          area +
          "<path fill=\"none\" d=\"M0 0h3v4\"/>\n</g>\n"
          "<g stroke=\"#000000\" stroke-width=\"15\" fill=\"#00ff00\">\n<path " +
          area + "</g>\n");
}

TEST_F(Svg, AreasWithoutAnOutlineCoverTheirEdgesWhateverThePen) {
  const PixelPoint points[] = {{0, 0}, {3, 0}, {3, 4}};
  writer.pen({kBlack, 4, kDrawDash});
  writer.filling({Colour::fromBgr(0x0000FF), kFillSolid});
  writer.figure(points, true, false);
  EXPECT_NE(body().find("<path stroke=\"#ff0000\" stroke-width=\"10\" stroke-dasharray=\"none\" "),
            std::string::npos);
}

TEST_F(Svg, HatchedAreasWithoutAnOutlineHaveNone) {
  const PixelPoint points[] = {{0, 0}, {3, 0}, {3, 4}};
  writer.pen({});
  writer.filling({Colour::fromBgr(0x0000FF), kFillCross});
  writer.figure(points, true, false);
  EXPECT_NE(body().find("<path stroke=\"none\" shape-rendering"), std::string::npos);
}

TEST_F(Svg, PictureOfOneColourIsOnePathHoweverLong) {
  Picture picture{200, 200, 15, {}};
  for (int i = 0; i < 200 * 200; ++i) picture.pixels.push_back((i / 200 + i) % 2 == 0 ? 0xFF0000FF : 0);
  writer.picture(picture, {0, 0});
  const std::string text = body();
  EXPECT_GT(text.size(), 200000U);
  EXPECT_EQ(text.find("<path", text.find("<path") + 1), std::string::npos);
}

TEST_F(Svg, PicturesLeaveMissingPixelsAndJoinRowsThatAreAlike) {
  writer.picture({2, 3, 15, {0, 0xFF0000FF, 0, 0xFF0000FF, 0xFF0000FF, 0}}, {100, 200});
  EXPECT_NE(
      body().find("<path stroke=\"none\" fill=\"#0000ff\" d=\"M115 200h15v30h-15zM100 230h15v15h-15z\"/>"),
      std::string::npos);
}

TEST_F(Svg, PicturesAreRunsOfOneColour) {
  writer.picture({3, 1, 15, {0xFF0000FF, 0xFF0000FF, 0xFF102030}}, {100, 200});
  EXPECT_NE(body().find("<path stroke=\"none\" fill=\"#0000ff\" d=\"M100 200h30v15h-30z\"/>\n"
                        "<path stroke=\"none\" fill=\"#102030\" d=\"M130 200h15v15h-15z\"/>\n"),
            std::string::npos);
}

TEST_F(Svg, ClearingBeginsAnew) {
  writer.pen({});
  writer.line({1, 2}, {3, 4});
  writer.filling({kBlack, kFillCross});
  writer.circle({10, 20}, Twips(5));
  writer.clear({600, 300}, Colour::fromBgr(0x0000FF));
  const std::string document = writer.document();
  EXPECT_EQ(document.find("M1 2"), std::string::npos);
  EXPECT_EQ(document.find("<pattern"), std::string::npos);
  EXPECT_NE(document.find("viewBox=\"0 0 600 300\""), std::string::npos);
  EXPECT_NE(document.find("<rect width=\"600\" height=\"300\" fill=\"#ff0000\"/>"), std::string::npos);
}

}  // namespace
}  // namespace vk
