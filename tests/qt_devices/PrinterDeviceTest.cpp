#include "ui/qt/devices/PrinterDevice.h"

#include <cmath>

#include "DevicesFixture.h"
#include "VectorReader.h"
#include "base/RuntimeError.h"
#include "ui/qt/devices/ScreenDevice.h"

namespace vk {
namespace {

class Printed : public DevicesFixture {
 protected:
  static void drawOnPrinter(Device& printer, void (*draw)(GralCls&)) {
    GralCls drawing(printer);
    drawing.GralGrStr(printer, "LANDSCAPE", 1);
    draw(drawing);
    drawing.GralGrEnd();
  }
};

TEST_F(Printed, FigureBecomesVectorsOnTheTurnedPage) {
  PdfPaper paper;
  PrinterDevice printer(paper, letters());
  GralCls drawing(printer);
  drawing.GralGrStr(printer, "LANDSCAPE", 1);
  drawing.GralLine(0, 0, drawing.XrLog, drawing.YtLog);
  drawing.GralWPrint(5, 5, 0, 0, 12, "abc");
  EXPECT_TRUE(paper.document().empty());
  drawing.GralGrEnd();
  const std::string document = paper.document();
  EXPECT_NE(document.find("/Count 1"), std::string::npos);
  const VectorContent content = readPdf(document);
  ASSERT_EQ(content.shapes.size(), 1U);
  EXPECT_EQ(content.letters.size(), 3U);
  const QRectF box = inkBox(content);
  EXPECT_NEAR(box.width(), kA4LongSide.value(), 20);
  EXPECT_NEAR(box.height(), kA4ShortSide.value(), 20);
  EXPECT_EQ(printer.Orientation(), kPortrait);
}

TEST_F(Printed, MarginsAreASixthOfAnInch) {
  PdfPaper paper;
  PrinterDevice printer(paper, letters());
  printer.Line(0, 0, printer.Width(), 0);
  printer.EndDoc();
  const VectorContent content = readPdf(paper.document());
  ASSERT_EQ(content.shapes.size(), 1U);
  EXPECT_NEAR(content.shapes[0].points[0].x(), 240, 1);
  EXPECT_NEAR(content.shapes[0].points[0].y(), 240, 20);
}

TEST_F(Printed, DocumentWithNothingOnItIsNotMade) {
  PdfPaper paper;
  PrinterDevice printer(paper, letters());
  printer.EndDoc();
  EXPECT_TRUE(paper.document().empty());
}

TEST_F(Printed, NextDocumentBeginsAnew) {
  PdfPaper paper;
  PrinterDevice printer(paper, letters());
  printer.Line(0, 0, 100, 100);
  printer.Line(0, 100, 100, 0);
  printer.EndDoc();
  EXPECT_EQ(readPdf(paper.document()).shapes.size(), 2U);
  printer.Line(0, 0, 100, 100);
  printer.EndDoc();
  EXPECT_EQ(readPdf(paper.document()).shapes.size(), 1U);
}

/// Paper that the user does not want, or that fails.
class NoPaper : public PdfPaper {
 public:
  bool fails = false;
  int ended = 0;
  QPainter* page() override {
    if (fails) throw RuntimeError(kPrinterError);
    return nullptr;
  }
  void EndDoc() override { ++ended; }
};

TEST_F(Printed, DocumentThatTheUserDoesNotWantIsDropped) {
  NoPaper paper;
  PrinterDevice printer(paper, letters());
  printer.Line(0, 0, 100, 100);
  EXPECT_NO_THROW(printer.EndDoc());
  EXPECT_EQ(paper.ended, 1);
}

TEST_F(Printed, FailureOfThePrinterReachesTheCaller) {
  NoPaper paper;
  paper.fails = true;
  PrinterDevice printer(paper, letters());
  printer.Line(0, 0, 100, 100);
  try {
    printer.EndDoc();
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 482);
  }
}

TEST_F(Printed, FilledAreasGoOntoThePage) {
  PdfPaper paper;
  PrinterDevice printer(paper, letters());
  drawOnPrinter(printer, drawFilledRing);
  const std::vector<VectorContent::Shape> shapes = readPdf(paper.document()).shapes;
  ASSERT_GT(shapes.size(), 2U + 4);
  // the area between the boxes comes last, as boxes above, beside and below the inner one
  const std::vector<QPointF>& side = shapes[shapes.size() - 2].points;
  const QRectF right = QRectF(side[0], side[2]).normalized();
  constexpr double kPerCm = kTwipsPerInch / kCmPerInch, kMargin = 240;
  EXPECT_NEAR(right.width(), 3 * kPerCm, 8);
  EXPECT_NEAR(right.height(), 4 * kPerCm, 8);
  EXPECT_NEAR(right.left(), kMargin + 12 * kPerCm, 8);
}

TEST_F(Printed, TheDrawingOfAWindowGoesOntoThePageAgainAndNotItsPixels) {
  ScreenDevice form(letters(), 1);
  form.setWidth(6000);
  form.setHeight(4500);
  form.Line(1500, 3000, 9000, 3000);
  form.setCurrentX(600);
  form.setCurrentY(600);
  form.Print("abc");
  const Picture picture = form.Image();
  form.Line(0, 0, 6000, 4500);  // comes too late for the picture

  PdfPaper paper;
  PrinterDevice printer(paper, letters());
  printer.PaintPicture(picture, 1000, 2000);
  printer.Line(100, 100, 200, 100);
  printer.EndDoc();
  EXPECT_EQ(paper.document().find("/Subtype /Image"), std::string::npos);
  const VectorContent content = readPdf(paper.document());
  EXPECT_EQ(content.letters.size(), 3U);
  constexpr double kMargin = 240;
  int lines = 0;
  for (const VectorContent::Shape& shape : content.shapes) {
    if (shape.penWidth == 0) continue;
    const bool ofTheForm = lines++ == 0;
    EXPECT_NEAR(shape.points.front().x(), kMargin + (ofTheForm ? 1000 + 1500 : 100), 8);
    EXPECT_NEAR(shape.points.front().y(), kMargin + (ofTheForm ? 2000 + 3000 : 100), 20);
    if (ofTheForm) {
      EXPECT_NEAR(shape.penWidth, 15, 1);
    }
  }
  EXPECT_EQ(lines, 2);
  // The line leaves the form, and is cut there.
  ASSERT_FALSE(content.clips.empty());
  EXPECT_NEAR(content.clips[0].left(), kMargin + 1000, 8);
  EXPECT_NEAR(content.clips[0].right(), kMargin + 1000 + 6000, 8);
}

TEST_F(Printed, PicturesGoOntoThePage) {
  PdfPaper paper;
  PrinterDevice printer(paper, letters());
  Picture picture{2, 1, 150, {0xFF000000, 0xFFFF0000}};
  printer.PaintPicture(picture, 100, 100);
  printer.EndDoc();
  EXPECT_NE(paper.document().find("/Subtype /Image"), std::string::npos);
}

}  // namespace
}  // namespace vk
