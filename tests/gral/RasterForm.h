#pragma once

#include "BlockLetters.h"
#include "gral/Device.h"
#include "gral/sinks/RasterSink.h"

namespace vk {

inline constexpr std::uint32_t kInk = 0xFF000000, kPaper = 0xFFFFFFFF, kRed = 0xFFFF0000;

/// The picture as rows of "#" for ink and "." for paper.
inline std::vector<std::string> rowsOf(const Raster& raster) {
  std::vector<std::string> rows;
  for (int y = 0; y < raster.height(); ++y) {
    std::string row;
    for (int x = 0; x < raster.width(); ++x) row += raster.at(x, y) == kPaper ? '.' : '#';
    rows.push_back(row);
  }
  return rows;
}

/// A form on a raster of its own.
class RasterForm : private BlockLetters, private RasterSink, public Device {
 public:
  /// Of so many nominal pixels.
  explicit RasterForm(int ratio, int width = 20, int height = 10)
      : RasterSink(ratio, static_cast<BlockLetters&>(*this)),
        Device(FormMetrics{{0, 0}, ratio}, *this, static_cast<BlockLetters&>(*this)) {
    setWidth(width * 15);
    setHeight(height * 15);
  }
  using BlockLetters::asked;
  using RasterSink::raster;
  int refreshes = 0;

 private:
  Picture image() override { return raster().reduced(1); }
  void refresh() override { ++refreshes; }
};

}  // namespace vk
