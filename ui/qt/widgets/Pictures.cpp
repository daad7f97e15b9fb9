#include "ui/qt/widgets/Pictures.h"

#include <QPainterPath>
#include <array>
#include <cmath>
#include <numbers>

namespace vk {
namespace {

constexpr double kPi = std::numbers::pi;

/// All backgrounds are drawn on a sheet of this size and stretched to the window.
constexpr double kSheetWidth = 750;
constexpr double kSheetHeight = 500;

void paper(QPainter& painter, const QColor& top, const QColor& bottom, const QColor& grid) {
  QLinearGradient shade(0, 0, 0, kSheetHeight);
  shade.setColorAt(0, top);
  shade.setColorAt(1, bottom);
  painter.fillRect(QRectF(0, 0, kSheetWidth, kSheetHeight), shade);
  painter.setPen(QPen(grid, 0.6));
  for (double x = 25; x < kSheetWidth; x += 25) painter.drawLine(QPointF(x, 0), QPointF(x, kSheetHeight));
  for (double y = 25; y < kSheetHeight; y += 25) painter.drawLine(QPointF(0, y), QPointF(kSheetWidth, y));
}

void axes(QPainter& painter, const QColor& colour) {
  painter.setPen(QPen(colour, 1.6));
  painter.drawLine(QPointF(75, 40), QPointF(75, 440));
  painter.drawLine(QPointF(55, 420), QPointF(700, 420));
  for (double x = 125; x < 700; x += 50) painter.drawLine(QPointF(x, 415), QPointF(x, 420));
  for (double y = 70; y < 420; y += 50) painter.drawLine(QPointF(75, y), QPointF(80, y));
}

double dampedWave(double x) {
  const double t = (x - 75) / 100;
  return 235 - 165 * std::exp(-0.28 * t) * std::cos(2.1 * t);
}

void pointsOnCurve(QPainter& painter) {
  paper(painter, QColor(247, 250, 253), QColor(225, 235, 244), QColor(206, 221, 233));
  axes(painter, QColor(140, 163, 184));
  QPainterPath curve(QPointF(75, dampedWave(75)));
  for (double x = 77; x <= 690; x += 2) curve.lineTo(x, dampedWave(x));
  painter.setPen(QPen(QColor(92, 142, 184), 2.4));
  painter.drawPath(curve);
  painter.setPen(QPen(QColor(176, 112, 92), 1.4));
  painter.setBrush(QColor(252, 246, 243));
  for (int i = 0; i < 24; ++i) {
    const double x = 90 + 25.0 * i;
    const double y = dampedWave(x) + 9 * std::sin(7.3 * i + 1.1);
    painter.drawLine(QPointF(x, y - 15), QPointF(x, y + 15));
    painter.drawEllipse(QPointF(x, y), 3.6, 3.6);
  }
}

/// A line of equal product of the distances to two poles, on both sides of the middle.
QPainterPath fieldLine(double level) {
  constexpr double kPole = 130;
  QPainterPath path;
  bool drawing = false;
  for (int step = 0; step <= 720; ++step) {
    const double angle = step * kPi / 360;
    const double cosine = std::cos(2 * angle), sine = std::sin(2 * angle);
    const double inside = level * level * level * level - sine * sine;
    if (inside < 0 || cosine + std::sqrt(std::max(inside, 0.0)) < 0) {
      drawing = false;
      continue;
    }
    const double r = kPole * std::sqrt(cosine + std::sqrt(inside));
    const QPointF point(375 + r * std::cos(angle), 250 + r * std::sin(angle));
    drawing ? path.lineTo(point) : path.moveTo(point);
    drawing = true;
  }
  return path;
}

void linesOfField(QPainter& painter) {
  paper(painter, QColor(248, 252, 249), QColor(226, 240, 233), QColor(208, 228, 218));
  painter.setBrush(Qt::NoBrush);
  for (int i = 0; i < 15; ++i) {
    const double level = 1.02 + 0.09 * i + 0.006 * i * i;
    painter.setPen(QPen(QColor(86 + 7 * i, 148 + 4 * i, 132 + 5 * i), i % 4 == 0 ? 2.0 : 1.1));
    painter.drawPath(fieldLine(level));
  }
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(180, 124, 96));
  painter.drawEllipse(QPointF(245, 250), 5, 5);
  painter.drawEllipse(QPointF(505, 250), 5, 5);
}

double bell(double x) {
  const double z = (x - 385) / 105;
  return 310 * std::exp(-0.5 * z * z);
}

void histogram(QPainter& painter) {
  paper(painter, QColor(253, 251, 246), QColor(243, 236, 222), QColor(230, 221, 203));
  painter.setPen(QPen(QColor(186, 168, 132), 1.1));
  painter.setBrush(QColor(234, 222, 196, 150));
  for (int i = 0; i < 23; ++i) {
    const double left = 98 + 25.0 * i;
    const double height = bell(left + 12.5) * (1 + 0.08 * std::sin(3.7 * i)) + 3;
    painter.drawRect(QRectF(left, 420 - height, 25, height));
  }
  QPainterPath curve(QPointF(75, 420 - bell(75)));
  for (double x = 77; x <= 690; x += 2) curve.lineTo(x, 420 - bell(x));
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(150, 108, 74), 2.4));
  painter.drawPath(curve);
  axes(painter, QColor(170, 152, 120));
}

constexpr std::array<void (*)(QPainter&), kBackgrounds> kSheets{pointsOnCurve, linesOfField, histogram};

QPixmap blankPixmap(int pixels, double ratio) {
  QPixmap pixmap(QSize(pixels, pixels) * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  return pixmap;
}

/// Signs of the dialog icons, on a field of 32 units: a stem or hook above and a dot below.
void questionSign(QPainter& painter) {
  QPainterPath hook(QPointF(11.5, 12.5));
  hook.cubicTo(11.5, 5.5, 21, 6, 20.5, 12.5);
  hook.cubicTo(20.3, 15.8, 16, 15.8, 16, 19.8);
  painter.strokePath(hook, QPen(Qt::white, 3, Qt::SolidLine, Qt::RoundCap));
  painter.drawEllipse(QPointF(16, 24.6), 2, 2);
}

void stemAndDot(QPainter& painter, double stemTop, double stemBottom, double dot) {
  painter.strokePath(
      [&] {
        QPainterPath stem(QPointF(16, stemTop));
        stem.lineTo(16, stemBottom);
        return stem;
      }(),
      QPen(Qt::white, 3.4, Qt::SolidLine, Qt::RoundCap));
  painter.drawEllipse(QPointF(16, dot), 2, 2);
}

void disc(QPainter& painter, const QColor& colour) {
  painter.setBrush(colour);
  painter.drawEllipse(QPointF(16, 16), 14.5, 14.5);
  painter.setBrush(Qt::white);
}

void questionIcon(QPainter& painter) {
  disc(painter, QColor(58, 110, 165));
  questionSign(painter);
}

void exclamationIcon(QPainter& painter) {
  QPainterPath triangle;
  triangle.moveTo(16, 3.5);
  triangle.lineTo(29, 27.5);
  triangle.lineTo(3, 27.5);
  triangle.closeSubpath();
  const QColor amber(214, 140, 24);
  painter.setBrush(amber);
  painter.strokePath(triangle, QPen(amber, 3.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.fillPath(triangle, amber);
  painter.setBrush(Qt::white);
  stemAndDot(painter, 11, 18, 24);
}

void informationIcon(QPainter& painter) {
  disc(painter, QColor(70, 130, 120));
  stemAndDot(painter, 15, 24, 8.5);
}

void stopIcon(QPainter& painter) {
  disc(painter, QColor(184, 62, 54));
  painter.drawRoundedRect(QRectF(7.5, 13.4, 17, 5.2), 1.5, 1.5);
}

constexpr std::array<void (*)(QPainter&), 4> kIcons{questionIcon, exclamationIcon, informationIcon, stopIcon};

/// The picture of packaging/icons/vor_kel.svg, on its field of 256 units.
QPixmap programPixmap(int pixels) {
  QPixmap pixmap = blankPixmap(pixels, 1);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(pixels / 256.0, pixels / 256.0);
  QLinearGradient ground(0, 8, 0, 248);
  ground.setColorAt(0, QColor(0x1b, 0x6c, 0xa8));
  ground.setColorAt(1, QColor(0x0b, 0x35, 0x58));
  painter.setPen(Qt::NoPen);
  painter.setBrush(ground);
  painter.drawRoundedRect(QRectF(8, 8, 240, 240), 48, 48);

  const auto pen = [](const QColor& colour, double width) {
    return QPen(colour, width, Qt::SolidLine, Qt::RoundCap);
  };
  painter.setPen(pen(QColor(0x9f, 0xc5, 0xe0), 12));
  painter.drawLine(QPointF(40, 216), QPointF(216, 216));
  QPainterPath curve(QPointF(40, 176));
  curve.cubicTo(108, 176, 84, 52, 128, 52);
  curve.cubicTo(172, 52, 148, 176, 216, 176);
  painter.strokePath(curve, pen(QColor(0xf5, 0xab, 0x1a), 20));
  painter.setPen(pen(Qt::white, 12));
  painter.setBrush(Qt::white);
  for (const QRectF& point : {QRectF(56, 116, 40, 72), QRectF(112, 32, 40, 60), QRectF(160, 124, 40, 72)}) {
    painter.drawLine(QPointF(point.center().x(), point.top()), QPointF(point.center().x(), point.bottom()));
    painter.drawEllipse(point.center(), 14, 14);
  }
  return pixmap;
}

}  // namespace

void paintBackground(QPainter& painter, const QRectF& place, int picture) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setClipRect(place);
  painter.translate(place.topLeft());
  painter.scale(place.width() / kSheetWidth, place.height() / kSheetHeight);
  kSheets.at(static_cast<std::size_t>(picture))(painter);
  painter.restore();
}

QPixmap dialogIcon(int icon, int pixels, double ratio) {
  QPixmap pixmap = blankPixmap(pixels, ratio);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(pixels / 32.0, pixels / 32.0);
  painter.setPen(Qt::NoPen);
  kIcons.at(static_cast<std::size_t>(icon) - 1)(painter);
  return pixmap;
}

QIcon applicationIcon() {
  QIcon icon;
  for (int pixels : {16, 24, 32, 48, 64, 128, 256}) icon.addPixmap(programPixmap(pixels));
  return icon;
}

}  // namespace vk
