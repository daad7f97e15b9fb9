// A process that makes the toolkit, loads two fonts, and draws a line and a word on a page of A4:
// plain_draw <file.png, file.svg or file.pdf>

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QRawFont>
#include <clocale>

namespace {

constexpr int kWidth = 16365, kHeight = 11415;  // twips
constexpr double kTwipsPerPixel = 7.5, kTwipsPerPoint = 20;

void draw(QPainter& painter) {
  painter.setPen(QPen(Qt::black, 15));
  painter.drawLine(1000, 1000, 9000, 5000);
  QFont font(QStringLiteral("Liberation Sans"));
  font.setPixelSize(240);
  painter.setFont(font);
  painter.drawText(2000, 5000, QStringLiteral("word"));
}

bool drawImage(const QString& file) {
  QImage image(static_cast<int>(kWidth / kTwipsPerPixel), static_cast<int>(kHeight / kTwipsPerPixel),
               QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.scale(1 / kTwipsPerPixel, 1 / kTwipsPerPixel);
  draw(painter);
  return image.save(file);
}

bool drawPdf(const QString& file) {
  QPdfWriter writer(file);
  writer.setResolution(1440);
  writer.setPageSize(QPageSize(QSizeF(kWidth / kTwipsPerPoint, kHeight / kTwipsPerPoint), QPageSize::Point));
  QPainter painter(&writer);
  draw(painter);
  return painter.end();
}

bool drawSvg(const QString& name) {
  QFile file(name);
  return file.open(QIODevice::WriteOnly) &&
         file.write(
             "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 16365 11415\">"
             "<path stroke=\"#000000\" d=\"M1000 1000L9000 5000\"/>"
             "<text font-family=\"Arial\" font-size=\"240\" x=\"2000\" y=\"5000\">word</text></svg>\n") > 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 1;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication toolkit(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  for (const char* family : {"Liberation Sans", "DejaVu Sans"}) {
    QFont font(QString::fromLatin1(family));
    font.setPixelSize(1000);
    if (!QRawFont::fromFont(font).supportsCharacter('w')) return 2;
  }
  const QString file = QString::fromLocal8Bit(argv[1]);
  const bool drawn = file.endsWith(QLatin1String(".png"))   ? drawImage(file)
                     : file.endsWith(QLatin1String(".pdf")) ? drawPdf(file)
                                                            : drawSvg(file);
  return drawn ? 0 : 3;
}
