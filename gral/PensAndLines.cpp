// Unit GralCls: pens, lines and clipping.

#include <algorithm>
#include <cmath>

#include "base/CheckedMath.h"
#include "base/Rounding.h"
#include "gral/DrawnBox.h"
#include "gral/Plotting.h"

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

double lengthOf(const TwipPoint& way) {
  const double squares = way.x * way.x + way.y * way.y;
  return std::isfinite(squares) ? std::sqrt(squares) : std::hypot(way.x, way.y);
}

char lengthCode(double twips) {
  const double whole = std::clamp(roundHalfEven(twips), 1.0, 255.0);
  return static_cast<char>(static_cast<unsigned char>(whole));
}

}  // namespace

void GralCls::GralColor(Colour color) {
  GralDev->setForeColor(color);
}

void GralCls::GralFillColor(Colour color) {
  GralDev->setFillColor(color);
}

void GralCls::GralFillStyle(Int16 iFillStyle) {
  GralDev->setFillStyle(iFillStyle & kFillStyleBits);
}

void GralCls::GralPen(double fdim, double itra) {
  const int p = toInt32(itra - 1) % kPenKinds;
  // The widest pen is the same on all devices: that of a form, whose width has 16 bits.
  const int nominalWidth = toInt16(std::max(1.0, Int(fdim / 2)));
  const double width = IsPrinter ? fdim * printer_.Resolution() / kTenthsOfMmPerInch : nominalWidth;
  const double tp = IsPrinter ? printer_.TwipsPerPixelX() : kNominalTwipsPerPixel;
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
  const TwipPoint from{xUsr2Scr(xi), yUsr2Scr(yi)}, to{xUsr2Scr(xf), yUsr2Scr(yf)};
  const double d = lengthOf(to - from);
  const TwipPoint direction{checked::divide(to.x - from.x, d), checked::divide(to.y - from.y, d)};
  DashPhase phase(LinPat, dashCarry_.fractionOf(LinPat));
  // Only what can be seen becomes dashes: a curve with a pole leaves the page by millions of them.
  const DrawnBox<unit::Twip> box = drawnTwips(*GralDev);
  TwipPoint begin = from, end = to;
  if (box.holds(from, to)) {
    drawDashes(from, direction, d, phase);
  } else if (cutLine(box, begin, end)) {
    phase.skip(lengthOf(begin - from));
    drawDashes(begin, direction, lengthOf(end - begin), phase);
    phase.skip(lengthOf(to - end));
  } else {
    phase.skip(d);
  }
  double fraction = 0;
  LinPat = phase.text(fraction);
  dashCarry_.keep(LinPat, fraction);
}

void GralCls::drawDashes(const TwipPoint& from, const TwipPoint& direction, double length, DashPhase& phase) {
  double done = 0;
  while (done < length) {
    const double left = length - done;
    const double begin = done;
    const bool down = phase.down();
    if (phase.remaining() <= left + kSameEnd) {
      done = left - phase.remaining() < kSameEnd ? length : done + phase.remaining();
      phase.next();
    } else {
      done = length;
      phase.use(left);
    }
    const TwipPoint a = begin * direction + from, b = done * direction + from;
    if (down) GralLineScr(a.x, a.y, b.x, b.y);
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
  PixelPlace a = inPixels(xUsr2Scr(xi), yUsr2Scr(yi)), b = inPixels(xUsr2Scr(xf), yUsr2Scr(yf));
  // Nominal pixels tell on all devices alike whether there is an area.
  const double nominal = GralDev->twipsPerContextPixel() / kNominalTwipsPerPixel;
  const auto sameNominal = [nominal](double p, double q) {
    return roundHalfEven(nominal * p) == roundHalfEven(nominal * q);
  };
  if (sameNominal(a.x, b.x) || sameNominal(a.y, b.y)) {
    // QUIRK: the first corner stays, so that only what lies right of it and below it is free again.
    b = {static_cast<double>(PixWidth), static_cast<double>(PixHeight)};
    if (!IsPrinter) GralDev->setVisible(true);
  }
  const DrawnBox<unit::Pixel> box = drawnPixels(*GralDev);
  a = box.nearest(a);
  b = box.nearest(b);
  const auto [xa, xb] = std::minmax({toInt32(a.x), toInt32(b.x)});
  const auto [ya, yb] = std::minmax({toInt32(a.y), toInt32(b.y)});
  hClipRgn = GralDev->CreateRectRgn(xa, ya, xb, yb);
  GralDev->SelectClipRgn(hClipRgn);
}

}  // namespace vk
