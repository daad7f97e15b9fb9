// Very many figures are written beside the toolkit: the page looks as if it had drawn them.

#include "ui/qt/devices/PdfPage.h"

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <cmath>
#include <cstdlib>

#include "DevicesFixture.h"
#include "Pixels.h"
#include "VectorReader.h"
#include "gral/sinks/FloodPictures.h"

namespace vk {
namespace {

constexpr int kPoints = 150;

/// Points with bars, one kind of marks after the other.
void drawMarks(GralCls& g) {
  Array<double> x(kPoints), y(kPoints), ex(kPoints), ey(kPoints);
  for (int mark = 1; mark <= 10; ++mark) {
    for (int i = 1; i <= kPoints; ++i) {
      x[i] = 1 + 22.0 * i / kPoints;
      y[i] = 1 + mark * 1.6 + 0.4 * std::sin(i * 0.37 * mark);
      ex[i] = 0.2 + 0.03 * (i % 7);
      ey[i] = 0.2 + 0.05 * (i % 5);
    }
    g.GralMakeMark(1.5 + 0.2 * mark, mark);
    g.PlotData(x, ex, y, ey, kPoints, true, false, false);
  }
}

void drawDashedCircles(GralCls& g) {
  for (int i = 0; i < 600; ++i) {
    g.GralPen(1 + i % 3, 1 + i % 5);
    g.GralDev->setForeColor(Colour::fromRgb(static_cast<std::uint32_t>(0x1F3355 * i) & 0xFFFFFF));
    g.GralDev->setFillStyle(i % 2);
    g.GralDev->setFillColor(Colour::fromRgb(static_cast<std::uint32_t>(0x31F1F3 * i) & 0xFFFFFF));
    g.GralDev->Circle(300.0 * (i % 50), 900.0 * (i / 50), 120 + i % 7);
    g.GralLine(0.5 * (i % 50), 20, 12, 0.02 * i);
    g.GralBox(0.5 * (i % 50), i / 50, 0.5 * (i % 50) + 0.3, i / 50 + 0.2, 0);
  }
}

const Feature kMany[] = {
    {"marks with bars", drawMarks},
    {"circles, lines and boxes of all pens", drawDashedCircles},
    {"letters above and below",
     [](GralCls& g) {
       g.GralWPrint(3, 15, 1, 30, 60, "Below");
       drawMarks(g);
       g.GralWPrint(3, 12, 1, -30, 60, "Above");
       drawDashedCircles(g);
     }},
    {"clip region",
     [](GralCls& g) {
       g.GralClip(3, 3, 12, 12);
       drawMarks(g);
       g.GralClip(0, 0, 0, 0);
       g.GralBox(1, 1, 5, 5, 0);
     }},
    {"hatches",
     [](GralCls& g) {
       g.GralDev->setFillStyle(kFillCross);
       for (int i = 0; i < 1200; ++i) g.GralDev->Circle(300 * (i % 50), 200 * (i / 25), 150);
     }},
    {"surface",
     [](GralCls& g) {
       constexpr int kSide = 30;
       Array2<float> z(kSide, kSide);
       for (int j = 1; j <= kSide; ++j) {
         for (int i = 1; i <= kSide; ++i) z(i, j) = 2 + std::sin(0.4F * static_cast<float>(i + j));
       }
       Array<float> color(3), levels(1);
       color[1] = 0.6F;
       color[2] = color[3] = 0.5F;
       g.Surf3D(g.XrLog / 2, 4, 75, 125, 10, 10, 3, z, kSide, kSide, true, true, color, levels, 0,
                Array2<float>(1, 3), 0);
     }},
};

/// All drawn by the toolkit.
std::string toolkitsPdf(const VectorDevice& vectors, QtLetters& letters) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setResolution(static_cast<int>(kTwipsPerInch));
  writer.setPageMargins(QMarginsF(0, 0, 0, 0));
  const QSizeF size(vectors.area().width / kTwipsPerPoint, vectors.area().height / kTwipsPerPoint);
  writer.setPageSize(QPageSize(size, QPageSize::Point, QString(), QPageSize::ExactMatch));
  QPainter painter(&writer);
  {
    PainterSink sink(painter, letters, kNominalTwipsPerPixel / VectorDevice::kPixelRatio,
                     kNominalTwipsPerPixel);
    replayAsVectors(vectors.list(), sink, letters, {VectorDevice::kPixelRatio, 1});
  }
  painter.end();
  return buffer.data().toStdString();
}

class PdfPages : public DevicesFixture {
 protected:
  QTemporaryDir folder;

  QString written(const char* name, const std::string& bytes) {
    const QString path = folder.filePath(QLatin1String(name));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray::fromStdString(bytes));
    return path;
  }
  QByteArray outputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0);
    return process.readAllStandardOutput();
  }
  QImage pageOf(const QString& path) {
    const QByteArray pixels =
        outputOf(QStringLiteral("pdftoppm"), {QStringLiteral("-r"), QStringLiteral("300"), path});
    return QImage::fromData(pixels, "PPM").convertToFormat(QImage::Format_RGB32);
  }
  QByteArray wordsOf(const QString& path) {
    return outputOf(QStringLiteral("pdftotext"), {path, QStringLiteral("-")});
  }
};

TEST_F(PdfPages, PageLooksAsTheToolkitDrawsItAndHasTheSameWords) {
  for (const Feature& feature : kMany) {
    VectorDevice vectors(letters());
    drawOn(vectors, feature.draw);
    const QString expected = written("toolkit.pdf", toolkitsPdf(vectors, letters()));
    const QString found = written("found.pdf", vectors.pdf());
    const QImage a = pageOf(expected), b = pageOf(found);
    ASSERT_EQ(a.size(), b.size()) << feature.name;
    ASSERT_GT(a.width(), 1500) << feature.name;
    const ImageDifference difference = differenceOf(a, b);
    EXPECT_LT(difference.mean, 0.4) << feature.name;
    EXPECT_LT(difference.clear, 0.001) << feature.name;
    EXPECT_EQ(wordsOf(expected), wordsOf(found)) << feature.name;
  }
}

TEST_F(PdfPages, VeryManyFiguresTakeNoMoreRoomThanWithTheToolkitAndOnePage) {
  VectorDevice vectors(letters());
  drawOn(vectors, drawMarks);
  const std::string found = vectors.pdf();
  EXPECT_NE(found.find("/Mark0"), std::string::npos);
  EXPECT_NE(found.find("/Count 1"), std::string::npos);
  // marks, and bars with the line across each end
  EXPECT_GT(readPdf(found).shapes.size(), 10U * kPoints * 4);
  EXPECT_LT(found.size(), toolkitsPdf(vectors, letters()).size());
}

TEST_F(PdfPages, ToolkitDrawsAllWhereThePagesCannotBeJoined) {
  VectorDevice vectors(letters());
  drawOn(vectors, drawMarks);
  PdfPage page(vectors.area(), VectorDevice::kPixelRatio, letters(), {},
               folder.filePath(QStringLiteral("missing")));
  replayAsVectors(vectors.list(), page, letters(), {VectorDevice::kPixelRatio, 1});
  const std::string found = page.document();
  EXPECT_EQ(found.find("/Mark0"), std::string::npos);
  EXPECT_NE(found.find("/Count 1"), std::string::npos);
  EXPECT_GT(readPdf(found).shapes.size(), 10U * kPoints * 4);
  const std::string expected = toolkitsPdf(vectors, letters());
  EXPECT_EQ(pageOf(written("found.pdf", found)), pageOf(written("toolkit.pdf", expected)));
}

}  // namespace
}  // namespace vk
