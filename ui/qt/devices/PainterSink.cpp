#include "ui/qt/devices/PainterSink.h"

#include <QGlyphRun>
#include <algorithm>
#include <cmath>
#include <utility>

#include "gral/sinks/Hatch.h"
#include "gral/sinks/PictureBoxes.h"
#include "ui/qt/devices/FontGlyph.h"
#include "ui/qt/devices/QtPicture.h"

namespace vk {
namespace {

/// So many line ends go into one path.
constexpr int kLongPath = 2000;

QColor colorOf(Colour color) {
  return QColor(color.rgb());
}

QPainterPath hatchPath(int style, const QRectF& box) {
  QPainterPath path;
  for (const auto& [from, to] : hatchLines(style, {box.left(), box.top()}, {box.right(), box.bottom()})) {
    path.moveTo(from.x, from.y);
    path.lineTo(to.x, to.y);
  }
  return path;
}

/// A picture of one colour, with or without missing pixels.
bool isStencil(const Picture& picture) {
  std::uint32_t color = 0;
  for (const std::uint32_t pixel : picture.pixels) {
    if (color == 0) color = pixel;
    if (pixel != 0 && pixel != color) return false;
  }
  return true;
}

}  // namespace

PainterSink::PainterSink(QPainter& painter, QtLetters& letters, double twipsPerPixel, double twipsPerPenUnit,
                         const QRectF& area)
    : painter_(painter),
      letters_(letters),
      twipsPerPixel_(twipsPerPixel),
      twipsPerPenUnit_(twipsPerPenUnit),
      area_(area),
      text_(letters) {
  showWholeArea();
  pen({});
}

PainterSink::~PainterSink() {
  flush();
}

void PainterSink::clear(const SheetSize& size, Colour background) {
  lines_ = QPainterPath();
  text_.take();
  showWholeArea();
  if (!groundKept_) painter_.fillRect(QRectF(0, 0, size.width, size.height), colorOf(background));
}

void PainterSink::pen(const Pen& pen) {
  flush();
  pen_ = QPen(colorOf(pen.color), pen.width * twipsPerPenUnit_, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
  const std::span<const int> dashes = dashesOf(pen.style);
  if (!dashes.empty()) pen_.setDashPattern(QList<qreal>(dashes.begin(), dashes.end()));
  if (pen.style == kDrawTransparent) pen_.setStyle(Qt::NoPen);
}

void PainterSink::filling(const Filling& filling) {
  flush();
  filling_ = filling;
}

QPointF PainterSink::place(const PixelPoint& point) const {
  return {point.x * twipsPerPixel_, point.y * twipsPerPixel_};
}

QPainterPath PainterSink::path(std::span<const PixelPoint> points) const {
  QPainterPath path(place(points[0]));
  for (const PixelPoint& point : points.subspan(1)) path.lineTo(place(point));
  return path;
}

void PainterSink::flush() {
  if (!lines_.isEmpty()) painter_.strokePath(std::exchange(lines_, {}), pen_);
  if (!text_.empty()) drawText(text_.take());
}

void PainterSink::line(const TwipPoint& a, const TwipPoint& b) {
  if (!text_.empty()) flush();
  const QPointF from = place(a);
  if (lines_.isEmpty() || lines_.currentPosition() != from) lines_.moveTo(from);
  lines_.lineTo(place(b));
  if (lines_.elementCount() > kLongPath) flush();
}

void PainterSink::stroke(const QPainterPath& path) {
  flush();
  painter_.strokePath(path, pen_);
}

void PainterSink::drawArea(const QPainterPath& path, const QPen& outline) {
  flush();
  if (filling_.style > kFillTransparent) {
    painter_.save();
    painter_.setClipPath(path, painter_.hasClipping() ? Qt::IntersectClip : Qt::ReplaceClip);
    painter_.strokePath(hatchPath(filling_.style, path.boundingRect()),
                        QPen(colorOf(filling_.color), kNominalTwipsPerPixel));
    painter_.restore();
  }
  painter_.setPen(outline);
  painter_.setBrush(filling_.style == kFillSolid ? QBrush(colorOf(filling_.color)) : QBrush(Qt::NoBrush));
  painter_.drawPath(path);
}

void PainterSink::box(const TwipPoint& a, const TwipPoint& b) {
  // Dashes begin at the first corner.
  QPainterPath path(place(a));
  for (const QPointF& corner : {QPointF(b.x, a.y), place(b), QPointF(a.x, b.y)}) path.lineTo(corner);
  path.closeSubpath();
  stroke(path);
}

void PainterSink::filledBox(const TwipPoint& a, const TwipPoint& b, Colour color) {
  flush();
  painter_.fillRect(QRectF(place(a), place(b)).normalized(), colorOf(color));
}

void PainterSink::circle(const TwipPoint& centre, Twips radius) {
  QPainterPath path;
  path.addEllipse(place(centre), std::abs(radius.value()), std::abs(radius.value()));
  drawArea(path, pen_);
}

void PainterSink::polyline(std::span<const PixelPoint> points) {
  stroke(path(points));
}

void PainterSink::bezier(std::span<const PixelPoint> points) {
  if (points.empty()) return;
  QPainterPath curve(place(points[0]));
  for (std::size_t k = 1; k + 2 < points.size(); k += 3) {
    curve.cubicTo(place(points[k]), place(points[k + 1]), place(points[k + 2]));
  }
  stroke(curve);
}

void PainterSink::figure(std::span<const PixelPoint> points, bool fill, bool strokeToo) {
  if (points.empty()) return;
  QPainterPath outline = path(points);
  if (!fill) return stroke(outline);
  outline.closeSubpath();
  drawArea(outline, strokeToo ? pen_ : touchingOutline());
}

QPen PainterSink::touchingOutline() const {
  if (filling_.style != kFillSolid) return QPen(Qt::NoPen);
  return QPen(colorOf(filling_.color), kTouchingOutline, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void PainterSink::text(const TextRun& run) {
  if (!text_.continues(run)) flush();
  text_.add(run);
}

/// Letters of one font that follow one another go out together, blanks among them: so they are read as words.
void PainterSink::drawText(const TextLine& line) {
  painter_.save();
  painter_.setPen(pen_.color());
  painter_.translate(place(line.place));
  painter_.rotate(-line.angle);
  QGlyphRun run;
  QList<quint32> numbers;
  QList<QPointF> places;
  const auto draw = [&] {
    run.setGlyphIndexes(std::exchange(numbers, {}));
    run.setPositions(std::exchange(places, {}));
    painter_.drawGlyphRun(QPointF(), run);
  };
  for (const TextLine::Letter& letter : line.letters) {
    const int pixels = std::max(1, static_cast<int>(std::lround(letter.size)));
    const auto glyph = letters_.fontGlyph(letter.symbol, static_cast<unsigned char>(letter.code), pixels);
    if (!glyph) continue;
    if (run.rawFont() != glyph->font) {
      if (!numbers.isEmpty()) draw();
      run.setRawFont(glyph->font);
    }
    numbers.append(glyph->number);
    places.append(QPointF(letter.x, letter.base));
  }
  if (!numbers.isEmpty()) draw();
  painter_.restore();
}

void PainterSink::clip(const PixelRect* region) {
  flush();
  if (region == nullptr) return showWholeArea();
  const QRectF limits(place(PixelPoint{region->x1, region->y1}), place(PixelPoint{region->x2, region->y2}));
  painter_.setClipRect(area_.isNull() ? limits : limits & area_);
}

void PainterSink::showWholeArea() {
  if (area_.isNull()) return painter_.setClipping(false);
  painter_.setClipRect(area_);
}

void PainterSink::picture(const Picture& picture, const TwipPoint& corner) {
  flush();
  const QRectF whole(place(corner), QSizeF(picture.width, picture.height) * picture.twipsPerPixel);
  if (picture.source) return drawAgain(*picture.source, whole);
  if (isStencil(picture)) return fillBoxes(picture, whole.topLeft());
  painter_.drawImage(whole, imageWithHoles(picture));
}

void PainterSink::drawAgain(const PictureSource& source, const QRectF& place) {
  painter_.save();
  painter_.translate(place.topLeft());
  {
    PainterSink form(painter_, letters_, source.twipsPerPixel(), kNominalTwipsPerPixel,
                     QRectF(QPointF(), place.size()));
    source.drawOn(form);
  }
  painter_.restore();
}

/// Viewers draw images up to whole pixels of their own, over the lines around an area; paths end where they
/// end.
void PainterSink::fillBoxes(const Picture& stencil, const QPointF& corner) {
  const double scale = stencil.twipsPerPixel;
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  std::uint32_t color = 0;
  for (const PictureBox& box : boxesOf(stencil)) {
    path.addRect(corner.x() + box.x * scale, corner.y() + box.y * scale, box.width * scale,
                 box.height * scale);
    color = box.color;
  }
  painter_.fillPath(path, QColor(color));
}

}  // namespace vk
