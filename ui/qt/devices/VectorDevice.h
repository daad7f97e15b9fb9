#pragma once

#include <string>

#include "gral/Device.h"
#include "gral/sinks/DisplayList.h"
#include "ui/qt/devices/QtLetters.h"

namespace vk {

/// A form that keeps its drawing as lines and letters and gives it as files of vectors. Its pixels are
/// twips.
class VectorDevice : private DisplayList, public Device {
 public:
  static constexpr int kPixelRatio = 15;

  /// The letters must outlive the device.
  explicit VectorDevice(QtLetters& letters);

  /// The drawing so far as a file of the SVG format, and of the PDF format with one page of its size.
  std::string svg() const;
  std::string pdf() const;

  const DisplayList& list() const { return *this; }

 private:
  QtLetters& fonts_;
};

/// The drawing of a form as such files: its size, and `pixelRatio` pixels to the nominal one.
std::string svgOf(const DisplayList& list, int pixelRatio, QtLetters& letters);
std::string pdfOf(const DisplayList& list, const SheetSize& size, int pixelRatio, QtLetters& letters);

}  // namespace vk
