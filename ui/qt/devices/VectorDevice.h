#pragma once

#include <string>

#include "gral/Device.h"
#include "gral/FigureSheet.h"
#include "gral/sinks/DisplayList.h"
#include "ui/qt/devices/QtLetters.h"

namespace vk {

struct DrawingFiles;

/// A form that keeps its drawing as lines and letters and gives it as files of vectors. Its pixels are
/// twips.
class VectorDevice : private DisplayList, public Device {
 public:
  static constexpr int kPixelRatio = 15;

  /// The letters must outlive the device.
  explicit VectorDevice(QtLetters& letters);

  /// The drawing so far as a file of the SVG format, of the PDF format with one page, and as pixels of the PNG format,
  /// smoothed.
  std::string svg(const FigureSheet& sheet = {}) const;
  std::string pdf(const FigureSheet& sheet = {}) const;
  std::string png(const FigureSheet& sheet = {}) const;

  /// The drawing so far as the list of its primitives.
  const DisplayList& list() const { return *this; }

 private:
  DrawingFiles files() const;

  QtLetters& fonts_;
};

/// The drawing of a form of a size, with `pixelRatio` pixels to the nominal one, as such files.
struct DrawingFiles {
  const DisplayList& list;
  SheetSize size;
  int pixelRatio;
  QtLetters& letters;

  std::string svg(const FigureSheet& sheet) const;
  std::string pdf(const FigureSheet& sheet) const;
  std::string png(const FigureSheet& sheet) const;

 private:
  void drawOn(DrawingSink& sink) const;
};

}  // namespace vk
