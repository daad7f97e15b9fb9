#include "gral/sinks/PdfContent.h"

#include <gmock/gmock.h>

namespace vk {
namespace {

constexpr const char* kBegin = "q .1 0 0 .1 0 0 cm 1 J 1 j []0 d 0 0 0 RG 0 0 0 rg\n";
constexpr PixelPoint kTriangle[] = {{10, 20}, {13, 20}, {10, 24}};

class Pdf : public ::testing::Test {
 protected:
  PdfContent content{15};

  void mark(int x, int y) {
    const PixelPoint points[] = {{x, y}, {x + 3, y}, {x, y + 4}};
    content.figure(points, true, true);
  }
  void expect(const std::string& operators) { EXPECT_EQ(content.operators(), kBegin + operators + "Q\n"); }
};

TEST_F(Pdf, LinesOfOnePenAreOnePathInTenthsOfATwip) {
  content.line({1, 2}, {3.44, 4});
  content.line({3.44, 4}, {-0.5, 0.01});
  content.line({7, 8}, {9, 10});
  expect("150 w\n10 20 m 34 40 l\n-5 0 l\n70 80 m 90 100 l\nS\n");
}

TEST_F(Pdf, PenAndFillingAreToldWhenTheyChange) {
  content.pen({Colour::fromRgb(0xFF0080), 2, kDrawDot});
  content.line({1, 2}, {3, 4});
  content.pen({kBlack, 2, kDrawSolid});
  content.line({1, 2}, {3, 4});
  expect(
      "1 .000 .502 RG\n300 w\n[300 900 ]0 d\n10 20 m 30 40 l\nS\n"
      ".000 .000 .000 RG\n[]0 d\n10 20 m 30 40 l\nS\n");
}

TEST_F(Pdf, DashesGrowWithThePen) {
  for (const int width : {2, 3, 3}) {
    content.pen({kBlack, width, kDrawDot});
    content.line({1, 2}, {3, 4});
  }
  expect(
      "300 w\n[300 900 ]0 d\n10 20 m 30 40 l\nS\n"
      "450 w\n[450 1350 ]0 d\n10 20 m 30 40 l\nS\n10 20 m 30 40 l\nS\n");
}

TEST_F(Pdf, FiguresOfNoPointsAreNothing) {
  content.polyline({});
  content.bezier({});
  content.figure({}, true, true);
  expect("");
}

TEST_F(Pdf, CurvesGoOnFromPieceToPiece) {
  const PixelPoint points[] = {{0, 1}, {1, 2}, {2, 2}, {3, 1}, {4, 0}, {5, 0}, {6, 1}};
  content.bezier(points);
  expect("150 w\n0 10 m\n10 20 20 20 30 10 c\n40 0 50 0 60 10 c\nS\n");
}

TEST_F(Pdf, BoxesAreEmptyWhateverTheFilling) {
  content.filling({kWhite, kFillSolid});
  content.box({1, 2}, {4, 8});
  expect("150 w\n10 20 30 60 re S\n");
}

TEST_F(Pdf, OutlinesOfManyCornersAreNoMarks) {
  content.filling({kWhite, kFillSolid});
  std::vector<PixelPoint> corners;
  for (int i = 0; i < 9; ++i) corners.push_back({i, i * i});
  for (int i = 0; i < 3; ++i) content.figure(corners, true, true);
  EXPECT_THAT(content.objects(), testing::IsEmpty());
  corners.pop_back();
  for (int i = 0; i < 3; ++i) content.figure(corners, true, true);
  EXPECT_THAT(content.objects(), testing::SizeIs(1));
}

TEST_F(Pdf, LongPathsAreCut) {
  for (int i = 0; i < 2001; ++i) content.line({1.0 * i, 0}, {1.0 * i, 10});
  EXPECT_THAT(content.operators(),
              testing::HasSubstr("19990 0 m 19990 100 l\nS\n20000 0 m 20000 100 l\nS\n"));
}

TEST_F(Pdf, OutlinesOfOneShapeAreCalledAsAnObject) {
  content.filling({kWhite, kFillSolid});
  mark(10, 20);
  mark(20, 20);
  mark(30, 25);
  const std::string shape = "0 0 m 30 0 l\n0 40 l\nh B*\n";
  EXPECT_THAT(content.objects(), testing::ElementsAre(shape));
  expect("1 1 1 rg\n150 w\nq 1 0 0 1 100 200 cm\n" + shape +
         "Q\nq 1 0 0 1 200 200 cm/Mark0 Do Q\nq 1 0 0 1 300 250 cm/Mark0 Do Q\n");
}

TEST_F(Pdf, CirclesAreCurvesAndObjectsAreNumberedOn) {
  PdfContent later(15, 7);
  for (int i = 0; i < 2; ++i) later.circle({10.0 * i, 20}, Twips{1});
  EXPECT_THAT(later.objects(),
              testing::ElementsAre("10 0 m\n10 6 6 10 0 10 c\n-6 10 -10 6 -10 0 c\n-10 -6 -6 -10 0 -10 c\n"
                                   "6 -10 10 -6 10 0 c\nh\nS\n"));
  EXPECT_THAT(later.operators(), testing::EndsWith("q 1 0 0 1 100 200 cm/Mark7 Do Q\nQ\n"));
}

TEST_F(Pdf, WhatLeavesTheBoxOfAnObjectIsWrittenEachTime) {
  for (int i = 0; i < 3; ++i) content.circle({0, 0}, Twips{1990});
  EXPECT_THAT(content.objects(), testing::IsEmpty());
  for (int i = 0; i < 3; ++i) content.circle({0, 0}, Twips{1980});
  EXPECT_THAT(content.objects(), testing::SizeIs(1));
}

TEST_F(Pdf, AreasWithoutAnOutlineCoverTheirEdgesWhateverThePen) {
  content.pen({kBlack, 1, kDrawDash});
  content.filling({Colour::fromRgb(0xFF0000), kFillSolid});
  content.figure(kTriangle, true, false);
  expect("1 .000 .000 rg\n1 .000 .000 RG\n100 w\n100 200 m 130 200 l\n100 240 l\nh B*\n");
}

TEST_F(Pdf, PenAndFillingThatAreNotSeenPaintNothing) {
  content.pen({kBlack, 1, kDrawTransparent});
  content.line({1, 2}, {3, 4});
  content.filling({kBlack, kFillTransparent});
  content.figure(kTriangle, true, false);
  content.filling({kBlack, kFillSolid});
  mark(1, 2);
  expect(
      "10 20 m 30 40 l\nn\n100 200 m 130 200 l\n100 240 l\nh n\n"
      "q 1 0 0 1 10 20 cm\n0 0 m 30 0 l\n0 40 l\nh f*\nQ\n");
}

TEST_F(Pdf, OtherFigures) {
  const PixelRect region{1, 2, 5, 9};
  content.clip(&region);
  content.box({1, 2}, {3, 5});
  content.filledBox({1, 2}, {3, 5}, kWhite);
  content.polyline(kTriangle);
  const PixelPoint curve[] = {{1, 2}, {3, 4}, {5, 6}, {7, 8}};
  content.bezier(curve);
  expect(
      "10 20 40 70 re W n\n150 w\n10 20 20 30 re S\n1 1 1 rg\n10 20 20 30 re f\n"
      "100 200 m 130 200 l\n100 240 l\nS\n10 20 m\n30 40 50 60 70 80 c\nS\n");
}

}  // namespace
}  // namespace vk
