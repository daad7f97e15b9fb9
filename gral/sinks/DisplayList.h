#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "gral/DrawingSink.h"

namespace vk {

/// A drawing kept as the list of its primitives. It can be drawn again on another sink, and read as text.
class DisplayList : public DrawingSink {
 public:
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
  void floodFill(const PixelPoint& start, Colour limit) override;
  void text(const TextRun& run) override;
  void clip(const PixelRect* region) override;
  void picture(const Picture& picture, const TwipPoint& corner) override;
  void refresh() override;

  std::size_t size() const { return entries_.size(); }
  /// What is drawn depends on the pixels under it: an area is filled up to a colour.
  bool needsPixels() const { return needsPixels_; }
  bool empty() const { return entries_.empty(); }
  /// Forgets everything.
  void reset();

  /// Draws the primitives from number `first` (from 0) to the end.
  void replay(DrawingSink& sink, std::size_t first = 0) const;

  /// One line for each primitive, with its units: "tw" twips, "px" pixels, "pt" points, "deg" degrees;
  /// colours as RRGGBB, lengths to the thousandth. A line that repeats a "refresh" is kept.
  std::vector<std::string> lines() const;

 private:
  enum class Kind : std::uint8_t {
    kClear,
    kPen,
    kFilling,
    kLine,
    kBox,
    kFilledBox,
    kCircle,
    kPolyline,
    kBezier,
    kFill,
    kStroke,
    kFillAndStroke,
    kFloodFill,
    kText,
    kClip,
    kUnclip,
    kPicture,
    kRefresh,
  };
  /// `first` is the place in the store of the kind: numbers, points, texts or pictures.
  struct Entry {
    Kind kind;
    std::size_t first;
    std::size_t count;
  };

  void add(Kind kind, std::initializer_list<double> numbers);
  void add(Kind kind, std::span<const PixelPoint> points);
  const double* numbers(const Entry& entry) const { return numbers_.data() + entry.first; }
  std::span<const PixelPoint> points(const Entry& entry) const {
    return std::span<const PixelPoint>(points_).subspan(entry.first, entry.count);
  }
  void replay(const Entry& entry, DrawingSink& sink) const;
  bool replaySettings(const Entry& entry, DrawingSink& sink) const;
  void replayFigure(const Entry& entry, DrawingSink& sink) const;

  struct PlacedPicture {
    Picture picture;
    TwipPoint corner;
  };
  bool needsPixels_ = false;
  std::vector<Entry> entries_;
  std::vector<double> numbers_;
  std::vector<PixelPoint> points_;
  std::vector<TextRun> texts_;
  std::vector<PlacedPicture> pictures_;
};

}  // namespace vk
