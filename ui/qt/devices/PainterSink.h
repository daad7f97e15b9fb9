#pragma once

#include <QPainter>
#include <QPainterPath>

#include "gral/sinks/TextLine.h"
#include "ui/qt/devices/QtLetters.h"

namespace vk {

/// Draws on a painter whose unit is the twip.
class PainterSink : public DrawingSink {
 public:
  /// A pixel of the drawing and the unit of its pens, in twips; nothing is seen outside `area` unless that is
  /// empty. Painter and letters outlive the sink.
  PainterSink(QPainter& painter, QtLetters& letters, double twipsPerPixel, double twipsPerPenUnit,
              const QRectF& area = {});
  ~PainterSink() override;

  void clear(const SheetSize& size, Colour background) override;
  void pen(const Pen& pen) override;
  void filling(const Filling& filling) override;
  void line(const TwipPoint& a, const TwipPoint& b) override;
  void box(const TwipPoint& a, const TwipPoint& b) override;
  void filledBox(const TwipPoint& a, const TwipPoint& b, Colour color) override;
  void circle(const TwipPoint& centre, Twips radius) override;
  void polyline(std::span<const PixelPoint> points) override;
  void bezier(std::span<const PixelPoint> points) override;
  void figure(std::span<const PixelPoint> points, bool fill, bool stroke) override;
  /// Vectors have no pixels that an area could end at: `replayAsVectors` sends it as a picture.
  void floodFill(const PixelPoint&, Colour) override {}
  void text(const TextRun& run) override;
  void clip(const PixelRect* region) override;
  /// Draws the picture again where its source is known, else copies its pixels.
  void picture(const Picture& picture, const TwipPoint& corner) override;
  void refresh() override {}
  /// Leaves what is under the drawing: to clear it paints nothing.
  void keepGround() { groundKept_ = true; }
  /// Draws what waits for more of its kind.
  void flush();

 private:
  void showWholeArea();
  void drawAgain(const PictureSource& source, const QRectF& place);
  void fillBoxes(const Picture& stencil, const QPointF& corner);
  void drawText(const TextLine& line);
  static QPointF place(const TwipPoint& point) { return {point.x, point.y}; }
  QPointF place(const PixelPoint& point) const;
  QPainterPath path(std::span<const PixelPoint> points) const;
  void stroke(const QPainterPath& path);
  QPen touchingOutline() const;
  void drawArea(const QPainterPath& path, const QPen& outline);

  QPainter& painter_;
  QtLetters& letters_;
  double twipsPerPixel_;
  double twipsPerPenUnit_;
  QRectF area_;
  bool groundKept_ = false;
  QPen pen_;
  Filling filling_;
  QPainterPath lines_;  ///< that wait for others with the same pen
  TextLineReader text_;
};

}  // namespace vk
