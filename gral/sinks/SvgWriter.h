#pragma once

#include <set>
#include <string>

#include "gral/FigureSheet.h"
#include "gral/sinks/SvgPath.h"
#include "gral/sinks/TextLine.h"

namespace vk {

/// Writes a drawing as a scalable picture: an SVG document whose unit is the twip, at its natural size.
///
/// Lines that follow one another with the same pen become one path, letters of a line one text, in "Arial" or what
/// the viewer has for it, each letter at its own place.
///
/// It is a writer of our own because the toolkit's (QSvgGenerator of Qt 6.4) leaves out clip regions.
class SvgWriter : public DrawingSink {
 public:
  /// `pixelRatio` pixels of the drawing make a nominal one. The letters tell where their base line is.
  SvgWriter(int pixelRatio, LetterMetrics& letters);

  /// The document of what was drawn since the last `clear`. Nothing more can be drawn afterwards.
  std::string document(const FigureSheet& sheet = {});

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
  void picture(const Picture& picture, const TwipPoint& corner) override;
  void refresh() override {}

 private:
  void flush();
  void openGroup();
  void openFilledGroup();
  void closeGroup();
  std::string& element();
  void element(const std::string& text) { element() += text + "\n"; }
  std::string place(const TwipPoint& point) const;
  std::string place(const PixelPoint& point) const;
  std::string path(std::span<const PixelPoint> points, bool closed) const;
  std::string paint();
  std::string touchingOutline() const;

  double twipsPerPixel_;
  LetterMetrics& letters_;
  SheetSize size_;
  Colour ground_ = kWhite;
  std::string body_;
  std::string definitions_;
  std::set<std::string> defined_;
  SvgPath path_;  ///< lines that wait for their end
  TextLineReader text_;
  bool groupOpen_ = false;
  Pen pen_;
  Filling filling_, groupFilling_;
  std::string clip_;  ///< name of the clip region, empty for none
};

}  // namespace vk
