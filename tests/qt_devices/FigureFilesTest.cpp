// A figure's files with what is asked of them: size, density, ground, words; judged by other programs.

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <optional>

#include "DevicesFixture.h"
#include "gral/sinks/PdfFile.h"

namespace vk {
namespace {

using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr double kTwipsPerCm = kTwipsPerInch / kCmPerInch;

FigureSheet wholeSheet() {
  return {.size = {12 * kTwipsPerCm, 8 * kTwipsPerCm},
          .dpi = 300,
          .words = {"Title <1>", "Perch\xC3\xA9 \xF0\x9D\x94\x98 & \x01more"}};
}

void drawWords(GralCls& g) {
  g.GralWPrint(14, 10, 1, 0, 18, "Words of a text: x_{max}^2 = 10^{-3} \\\\m");
  g.GralWPrint(3, 10, 1, 90, 18, "turned words");
  g.GralLine(1, 1, 10, 10);
}

void drawMany(GralCls& g) {
  drawWords(g);
  for (int i = 0; i < 1200; ++i) g.GralMark(2 + i % 20, 2 + i * 0.01);
}

class FigureFiles : public DevicesFixture {
 protected:
  QTemporaryDir folder;

  VectorDevice& drawn(void (*draw)(GralCls&)) {
    vectors_.emplace(letters());
    drawOn(*vectors_, draw, 0.5);
    return *vectors_;
  }
  QString written(const std::string& bytes) {
    const QString path = folder.filePath(QStringLiteral("figure"));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray::fromStdString(bytes));
    return path;
  }
  std::string told(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
    const QByteArray text = process.readAll();
    EXPECT_EQ(process.exitCode(), 0) << text.toStdString();
    return text.toStdString();
  }
  QImage page(const std::string& pdf) {
    const std::string pixels =
        told(QStringLiteral("pdftoppm"), {QStringLiteral("-r"), QStringLiteral("150"), written(pdf)});
    return QImage::fromData(QByteArray::fromStdString(pixels), "PPM");
  }

 private:
  std::optional<VectorDevice> vectors_;
};

TEST_F(FigureFiles, SvgIsWellFormedAndTellsItsWords) {
  const std::string svg = drawn(drawWords).svg(wholeSheet());
  EXPECT_EQ(told(QStringLiteral("xmllint"), {QStringLiteral("--noout"), written(svg)}), "");
  EXPECT_THAT(svg, HasSubstr(" width=\"340.16pt\" height=\"226.77pt\" viewBox=\"-90 0 4275 2850\""));
  EXPECT_THAT(svg, HasSubstr(" role=\"img\">\n<title>Title &lt;1&gt;</title>\n"
                             "<desc>Perch\xC3\xA9 \xF0\x9D\x94\x98 &amp; more</desc>\n<defs>"));
}

/// The box around the dark pixels.
QRect inkOf(const QImage& image) {
  QRect box;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qGray(image.pixel(x, y)) < 128) box |= QRect(x, y, 1, 1);
    }
  }
  return box;
}

TEST_F(FigureFiles, DrawingFillsItsSheetAndStandsInTheMiddle) {
  for (auto* draw : {drawWords, drawMany}) {
    const VectorDevice& figure = drawn(draw);
    ASSERT_DOUBLE_EQ(figure.area().width, 4095);
    ASSERT_DOUBLE_EQ(figure.area().height, 2850);
    FigureSheet sheet = wholeSheet();
    sheet.dpi = 150;
    const QImage found = page(figure.pdf(sheet));
    const QImage image = QImage::fromData(QByteArray::fromStdString(figure.png(sheet)), "PNG");
    EXPECT_EQ(image.size(), QSize(709, 472));
    EXPECT_EQ(found.size(), QSize(709, 473));  // a page begins with the pixel in which it begins
    const QRect alone = inkOf(page(figure.pdf()));
    // The sheet is 8 cm high, and 143 twips, which are 15 pixels, remain on either side of the drawing.
    const double scale = 8 * kTwipsPerCm / 2850;
    const QRectF expected(15 + scale * alone.left(), scale * alone.top(), scale * alone.width(),
                          scale * alone.height());
    for (const QRect& ink : {inkOf(found), inkOf(image)}) {
      EXPECT_NEAR(ink.left(), expected.left(), 2);
      EXPECT_NEAR(ink.top(), expected.top(), 2);
      EXPECT_NEAR(ink.width(), expected.width(), 3);
      EXPECT_NEAR(ink.height(), expected.height(), 3);
    }
  }
}

TEST_F(FigureFiles, PdfIsSoundAndTellsItsWords) {
  for (auto* draw : {drawWords, drawMany}) {
    const std::string pdf = drawn(draw).pdf(wholeSheet());
    EXPECT_THAT(told(QStringLiteral("qpdf"), {QStringLiteral("--check"), written(pdf)}),
                HasSubstr("No syntax or stream encoding errors"));
    const std::string info = told(QStringLiteral("pdfinfo"), {written(pdf)});
    EXPECT_THAT(info, ContainsRegex("Title: +Title <1>\n"));
    EXPECT_THAT(info, ContainsRegex("Subject: +Perch\xC3\xA9 \xF0\x9D\x94\x98 & "));
    EXPECT_THAT(info, ContainsRegex("Tagged: +yes"));
    EXPECT_THAT(info, ContainsRegex("Pages: +1\n"));
    EXPECT_THAT(info, ContainsRegex("Page size: +340.16 x 226.77 pts"));
    EXPECT_THAT(told(QStringLiteral("pdfinfo"), {QStringLiteral("-struct"), written(pdf)}),
                HasSubstr("Figure"));
  }
}

TEST_F(FigureFiles, PdfTellsOnlyWhatItIsGiven) {
  FigureSheet sized = wholeSheet(), titled, described;
  sized.words = {};
  titled.words.title = "Title";
  described.words.description = "Words";
  const VectorDevice& figure = drawn(drawWords);
  const std::string withSize = told(QStringLiteral("pdfinfo"), {written(figure.pdf(sized))});
  EXPECT_THAT(withSize, Not(ContainsRegex("Title: +[^ \n]")));
  EXPECT_THAT(withSize, ContainsRegex("Page size: +340.16 x 226.77 pts"));
  const std::string withTitle = told(QStringLiteral("pdfinfo"), {written(figure.pdf(titled))});
  EXPECT_THAT(withTitle, ContainsRegex("Title: +Title\n"));
  EXPECT_THAT(withTitle, ContainsRegex("Tagged: +no"));
  EXPECT_THAT(withTitle, Not(ContainsRegex("Page size: +340.16")));
  const std::string withWords = told(QStringLiteral("pdfinfo"), {written(figure.pdf(described))});
  EXPECT_THAT(withWords, Not(ContainsRegex("Title: +[^ \n]")));
  EXPECT_THAT(withWords, ContainsRegex("Subject: +Words\n"));
  EXPECT_THAT(withWords, ContainsRegex("Tagged: +yes"));
}

TEST(PdfFiles, WithoutADateStayAsTheyAre) {
  std::string dated = "<< /CreationDate (D:2020) >>", undated = "<< /Creator (x) >>";
  dropCreationDate(dated);
  dropCreationDate(undated);
  EXPECT_EQ(dated, "<<" + std::string(24, ' ') + ">>");
  EXPECT_EQ(undated, "<< /Creator (x) >>");
}

TEST_F(FigureFiles, PdfHasItsFontsInItAndItsWordsAreRead) {
  const std::string pdf = drawn(drawWords).pdf();
  const std::string fonts = told(QStringLiteral("pdffonts"), {written(pdf)});
  EXPECT_THAT(fonts, ContainsRegex("yes (yes|no ) yes"));
  EXPECT_THAT(fonts, Not(ContainsRegex("  no  +(yes|no) +(yes|no)")));
  const std::string words = told(QStringLiteral("pdftotext"), {written(pdf), QStringLiteral("-")});
  EXPECT_THAT(words, HasSubstr("Words of a text: x"));
  EXPECT_THAT(words, HasSubstr("turned words"));
  EXPECT_THAT(words, HasSubstr("\xCE\xBC"));
}

TEST_F(FigureFiles, SameFigureIsTheSameFileWheneverItIsMade) {
  for (auto* draw : {drawWords, drawMany}) {
    const FigureSheet sheet = wholeSheet();
    const VectorDevice& figure = drawn(draw);
    const std::string pdf = figure.pdf(sheet), plain = figure.pdf(), svg = figure.svg(sheet);
    EXPECT_EQ(pdf.find("/CreationDate"), std::string::npos);
    EXPECT_EQ(plain.find("/CreationDate"), std::string::npos);
    const VectorDevice& again = drawn(draw);
    EXPECT_EQ(again.pdf(sheet), pdf);
    EXPECT_EQ(again.pdf(), plain);
    EXPECT_EQ(again.svg(sheet), svg);
  }
}

TEST_F(FigureFiles, ImageHasTheSizeAndTheDensityThatAreAskedFor) {
  for (const int dpi : {72, 300, 1200}) {
    FigureSheet sheet = wholeSheet();
    sheet.dpi = dpi;
    const QImage image = QImage::fromData(QByteArray::fromStdString(drawn(drawWords).png(sheet)), "PNG");
    EXPECT_EQ(image.size(), QSize(qRound(12 / 2.54 * dpi), qRound(8 / 2.54 * dpi)));
    EXPECT_EQ(image.dotsPerMeterX(), qRound(dpi / 0.0254));
    EXPECT_FALSE(image.hasAlphaChannel());
    EXPECT_EQ(image.pixelColor(1, 1), QColor(Qt::white));
  }
}

TEST_F(FigureFiles, TransparentFilesHaveNoGround) {
  FigureSheet sheet = wholeSheet();
  sheet.transparent = true;
  const VectorDevice& figure = drawn(drawWords);
  EXPECT_THAT(figure.svg(sheet), Not(HasSubstr("fill=\"#ffffff\"")));
  const QImage image = QImage::fromData(QByteArray::fromStdString(figure.png(sheet)), "PNG");
  EXPECT_EQ(image.pixelColor(1, 1).alpha(), 0);
  int inked = 0;
  for (int x = 0; x < image.width(); ++x)
    inked += image.pixelColor(x, image.height() / 2).alpha() > 0 ? 1 : 0;
  EXPECT_GT(inked, 10);
  EXPECT_LT(inked, image.width() / 2);
  const QString path = written(figure.pdf(sheet));
  const std::string pixels =
      told(QStringLiteral("pdftocairo"), {QStringLiteral("-png"), QStringLiteral("-transp"),
                                          QStringLiteral("-singlefile"), path, QStringLiteral("-")});
  EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(pixels), "PNG").pixelColor(1, 1).alpha(), 0);
}

}  // namespace
}  // namespace vk
