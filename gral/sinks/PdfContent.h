#pragma once

#include <map>
#include <string>
#include <vector>

#include "gral/ObserverDevice.h"

namespace vk {

/// Writes many lines and figures as the operators of a PDF page whose unit is the twip, y downward.
///
/// Numbers are tenths of a twip, the fiftieth part of a pixel at 300 to the inch: whole ones are short. A small
/// outline with the shape of one before, such as a mark, is called as an object. Letters, pictures and hatches are
/// not written.
class PdfContent : public CountingSink {
 public:
  /// `pixelRatio` pixels of the drawing make a nominal one. Objects are numbered from `firstObject` on.
  explicit PdfContent(int pixelRatio, std::size_t firstObject = 0);

  /// The operators of what was drawn, which leave the state of the page as it was. Nothing more can be drawn
  /// afterwards.
  std::string operators();
  /// The operators of each object, by their numbers.
  std::vector<std::string> objects() const;

  void pen(const Pen& pen) override;
  void filling(const Filling& filling) override { filling_ = filling; }
  void line(const TwipPoint& from, const TwipPoint& to) override;
  void box(const TwipPoint& a, const TwipPoint& b) override;
  void filledBox(const TwipPoint& a, const TwipPoint& b, Colour color) override;
  void circle(const TwipPoint& centre, Twips radius) override;
  void polyline(std::span<const PixelPoint> points) override;
  void bezier(std::span<const PixelPoint> points) override;
  void figure(std::span<const PixelPoint> points, bool fill, bool stroke) override;
  /// Limits what follows, once.
  void clip(const PixelRect* region) override;

 private:
  /// Tenths of a twip.
  struct Place {
    long x, y;
    bool operator==(const Place&) const = default;
  };
  static Place placeOf(const TwipPoint& point);
  Place placeOf(const PixelPoint& point) const;
  void write(std::initializer_list<long> numbers, const char* behind);
  void useStroke(Colour color, double width, int style);
  void useFilling(Colour color);
  void rectangle(const Place& a, const Place& b, const char* behind);
  const char* paintOperator(bool fill, bool stroke);
  void drawShared(const Place& origin, const std::string& shape, long reach);
  void flushLines();

  double unitsPerPixel_;
  std::size_t firstObject_;
  std::string text_;
  int lines_ = 0;  ///< that wait to be stroked
  Place lineEnd_{0, 0};
  Pen pen_;
  Filling filling_;
  Colour strokeColor_ = kBlack, fillColor_ = kBlack;  ///< what the operators have told last
  double strokeWidth_ = 0;
  int strokeStyle_ = kDrawSolid;
  /// Outlines that were drawn, with the numbers of their objects.
  std::map<std::string, std::size_t> shapes_;
  std::vector<const std::string*> objects_;
};

}  // namespace vk
