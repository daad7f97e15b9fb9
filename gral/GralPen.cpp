#include <algorithm>
#include <cmath>

#include "base/CheckedMath.h"
#include "base/Rounding.h"
#include "gral/GralCls.h"

namespace vk {
namespace {

constexpr int kPenKinds = 5;
constexpr double kTenthsOfMmPerInch = 254;
/// The unit at which the longest element, five units, just fits one character.
constexpr double kLargestUnit = 51;
constexpr int kFillStyleBits = 7;

/// Where an element and a line end this close together, in twips, they end together: the coordinates of a
/// line carry the rounding of several multiplications.
constexpr double kSameEnd = 1E-6;

/// Of a line longer than this, in twips, only the part that can be seen is cut into dashes: a curve with a
/// pole leaves the page by millions of them.
constexpr double kLongLine = 1E6;

char lengthCode(double twips) {
  const double whole = std::clamp(roundHalfEven(twips), 1.0, 255.0);
  return static_cast<char>(static_cast<unsigned char>(whole));
}

}  // namespace

void GralCls::GralColor(Color color) {
  GralDev->setForeColor(color);
}

void GralCls::GralFillColor(Color color) {
  GralDev->setFillColor(color);
}

void GralCls::GralFillStyle(Int16 iFillStyle) {
  GralDev->setFillStyle(iFillStyle & kFillStyleBits);
}

void GralCls::GralPen(double fdim, double itra) {
  const int p = toInt32(itra - 1) % kPenKinds;
  const double nominalWidth = Int(fdim / 2);
  const double width =
      IsPrinter ? fdim * printer_.Resolution() / kTenthsOfMmPerInch : (nominalWidth == 0 ? 1 : nominalWidth);
  const double tp = IsPrinter ? printer_.TwipsPerPixelX() : screen_.TwipsPerPixelX();
  GralDev->setDrawWidth(width);
  if (GralUseTra && p > 0) {
    makePatterns(tp);
    GralPenTra = PenPatterns[p];
    dashCarry_.forget();
  } else {
    GralDev->setDrawStyle(p);
  }
  if (IsPrinter) GralDev->setDrawWidth(width);
  kGralPen = p;
}

void GralCls::makePatterns(double tp) {
  double u = tp * GralDev->DrawWidth();
  if (5 * u > 255) u = kLargestUnit;
  const std::string start(1, '\1');
  const std::string dot = {lengthCode(u), lengthCode(3 * u)};
  const std::string dash = {lengthCode(5 * u), lengthCode(3 * u)};
  PenPatterns[1] = start + dash;
  PenPatterns[2] = start + dot;
  PenPatterns[3] = start + dash + dot;
  PenPatterns[4] = start + dash + dot + dot;
}

void GralCls::GralLine(double xi, double yi, double xf, double yf) {
  GralLineScr(xUsr2Scr(xi), yUsr2Scr(yi), xUsr2Scr(xf), yUsr2Scr(yf));
}

void GralCls::GralLineScr(double xi, double yi, double xf, double yf) {
  GralDev->Line(xi, yi, xf, yf);
}

void GralCls::GralTraLine(double xi, double yi, double xf, double yf, std::string& LinPat) {
  const double x1 = xUsr2Scr(xi), y1 = yUsr2Scr(yi);
  const double x2 = xUsr2Scr(xf), y2 = yUsr2Scr(yf);
  const double d = std::sqrt((x1 - x2) * (x1 - x2) + (y1 - y2) * (y1 - y2));
  const double cx = checked::divide(x2 - x1, d);
  const double cy = checked::divide(y2 - y1, d);
  DashPhase phase(LinPat, dashCarry_.fractionOf(LinPat));
  const Stretch seen = d > kLongLine ? seenStretch(x1, y1, cx, cy, d) : Stretch{0, d};
  phase.skip(seen.begin);
  drawDashes(x1, y1, cx, cy, seen, phase);
  phase.skip(d - seen.end);
  double fraction = 0;
  LinPat = phase.text(fraction);
  dashCarry_.keep(LinPat, fraction);
}

/// The part of a line, by its distances from the start, that passes near the drawing area.
GralCls::Stretch GralCls::seenStretch(double x1, double y1, double cx, double cy, double d) const {
  Stretch seen{0, d};
  const auto limit = [&seen](double start, double slope, double size) {
    const double low = -kLongLine, high = size + kLongLine;
    if (slope == 0) {
      if (start < low || start > high) seen.end = seen.begin;
      return;
    }
    const double a = (low - start) / slope, b = (high - start) / slope;
    seen.begin = std::max(seen.begin, std::min(a, b));
    seen.end = std::min(seen.end, std::max(a, b));
  };
  limit(x1, cx, ScrWidth);
  limit(y1, cy, ScrHeight);
  return seen.begin < seen.end ? seen : Stretch{d, d};
}

void GralCls::drawDashes(double x1, double y1, double cx, double cy, const Stretch& stretch,
                         DashPhase& phase) {
  double done = stretch.begin;
  while (done < stretch.end) {
    const double left = stretch.end - done;
    const double begin = done;
    const bool down = phase.down();
    if (phase.remaining() <= left + kSameEnd) {
      done = left - phase.remaining() < kSameEnd ? stretch.end : done + phase.remaining();
      phase.next();
    } else {
      done = stretch.end;
      phase.use(left);
    }
    if (down) GralLineScr(cx * begin + x1, cy * begin + y1, cx * done + x1, cy * done + y1);
  }
}

void GralCls::GralBox(double xi, double yi, double xf, double yf, double) {
  const double x1 = xUsr2Scr(xi), y1 = yUsr2Scr(yi);
  const double x2 = xUsr2Scr(xf), y2 = yUsr2Scr(yf);
  if (!IsPrinter) GralDev->FilledBox(x1, y1, x2, y2, GralDev->BackColor());
  GralDev->Box(x1, y1, x2, y2);
}

void GralCls::GralClip(double xi, double yi, double xf, double yf) {
  releaseClip();
  std::int32_t xa = xUsr2Pixel(xi), ya = yUsr2Pixel(yi);
  std::int32_t xb = xUsr2Pixel(xf), yb = yUsr2Pixel(yf);
  if (xa == xb || ya == yb) {
    // QUIRK: the first corner stays, so that only what lies right of it and below it is free again.
    xb = PixWidth;
    yb = PixHeight;
    if (!IsPrinter) GralDev->setVisible(true);
  }
  if (xa > xb) std::swap(xa, xb);
  if (ya > yb) std::swap(ya, yb);
  hClipRgn = GralDev->CreateRectRgn(xa, ya, xb, yb);
  GralDev->SelectClipRgn(hClipRgn);
}

}  // namespace vk
