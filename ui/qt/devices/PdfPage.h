#pragma once

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <optional>

#include "gral/FigureSheet.h"
#include "gral/sinks/DisplayList.h"
#include "ui/qt/devices/PainterSink.h"
#include "ui/qt/devices/PdfLayers.h"

namespace vk {

/// A drawing as a PDF file with one page, the same whenever it is made.
///
/// The toolkit draws letters, pictures and what is little. It takes long over very many lines and marks, and writes
/// each mark anew, so these are written beside it: what it draws before and after them are pages of its file, which
/// are laid over one another in the end. A library beside the program does that; where it is missing the toolkit draws
/// all.
class PdfPage : public DrawingSink {
 public:
  /// A drawing of this size, of which `pixelRatio` pixels make a nominal one. The letters must outlive the page.
  /// `library` is the file that exports `layOver`, without prefix and ending. A failure of the toolkit is run-time
  /// error 57.
  PdfPage(const SheetSize& drawing, int pixelRatio, QtLetters& letters, const FigureSheet& sheet = {},
          const QString& library = joiningLibrary());

  /// The file. Nothing more can be drawn afterwards.
  std::string document();

  void clear(const SheetSize& size, Colour background) override;
  void pen(const Pen& pen) override;
  void filling(const Filling& filling) override;
  void line(const TwipPoint& from, const TwipPoint& to) override { waiting_.line(from, to); }
  void box(const TwipPoint& a, const TwipPoint& b) override { waiting_.box(a, b); }
  void filledBox(const TwipPoint& a, const TwipPoint& b, Colour color) override {
    waiting_.filledBox(a, b, color);
  }
  void circle(const TwipPoint& centre, Twips radius) override { waiting_.circle(centre, radius); }
  void polyline(std::span<const PixelPoint> points) override { waiting_.polyline(points); }
  void bezier(std::span<const PixelPoint> points) override { waiting_.bezier(points); }
  void figure(std::span<const PixelPoint> points, bool fill, bool stroke) override {
    waiting_.figure(points, fill, stroke);
  }
  /// Vectors have no pixels that an area could end at: `replayAsVectors` sends it as a picture.
  void floodFill(const PixelPoint&, Colour) override {}
  void text(const TextRun& run) override { toolkit().text(run); }
  void clip(const PixelRect* region) override;
  void picture(const Picture& picture, const TwipPoint& corner) override {
    toolkit().picture(picture, corner);
  }
  void refresh() override {}

 private:
  static QString joiningLibrary();
  DrawingSink& toolkit();
  void drawWaiting();
  bool canLayOver();
  void drawBeside();

  FigureSheet sheet_;
  DrawingPlace place_;
  int pixelRatio_;
  QByteArray bytes_;
  QBuffer buffer_{&bytes_};
  QPdfWriter writer_{&buffer_};
  QPainter painter_;
  std::optional<PainterSink> painted_;
  DisplayList waiting_;   ///< figures that follow one another
  bool hatched_ = false;  ///< one of them may be filled with lines
  Pen pen_, penBefore_;   ///< now, and at the begin of what waits
  Filling filling_, fillingBefore_;
  std::optional<PixelRect> clip_;
  QString library_;
  LayOver* layOver_ = nullptr;  ///< none as long as it is not needed
  PdfLayers drawn_;
};

}  // namespace vk
