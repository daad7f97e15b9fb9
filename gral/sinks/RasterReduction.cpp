// The smooth reduction of a picture.

#include <algorithm>
#include <bit>
#include <cstring>

#include "gral/sinks/Raster.h"

namespace vk {
namespace {

/// Sums of the channels of pixels, two pixels at a time: the four 16-bit parts of a number hold a channel each, for
/// up to 512 pixels.
class ChannelSums {
 public:
  void addPair(const std::uint32_t* pixels) {
    std::uint64_t pair = 0;
    std::memcpy(&pair, pixels, sizeof pair);
    even_ += pair & kParts;
    odd_ += pair >> 8 & kParts;
  }
  void add(std::uint32_t pixel) {
    even_ += pixel & kParts;
    odd_ += pixel >> 8 & kParts;
  }
  /// Of a count that is a power of two.
  std::uint32_t meanOfPower(int logarithm) const {
    const std::uint64_t half = kOnes << logarithm >> 1;
    const auto both = [&](std::uint64_t sums) {
      return (((sums + (sums >> 32)) & kLowParts) + half) >> logarithm & kLowBytes;
    };
    return static_cast<std::uint32_t>(both(even_) | both(odd_) << 8);
  }
  std::uint32_t mean(std::uint32_t count) const {
    const auto channel = [count](std::uint64_t sum) {
      return (static_cast<std::uint32_t>((sum & 0xFFFF) + (sum >> 32 & 0xFFFF)) + count / 2) / count;
    };
    return channel(odd_ >> 16) << 24 | channel(even_ >> 16) << 16 | channel(odd_) << 8 | channel(even_);
  }

 private:
  static constexpr std::uint64_t kParts = 0x00FF00FF00FF00FF, kLowParts = 0xFFFFFFFF, kLowBytes = 0x00FF00FF,
                                 kOnes = 0x00010001;
  std::uint64_t even_ = 0, odd_ = 0;
};

ChannelSums sumsOf(const std::uint32_t* corner, int rowLength, int factor) {
  ChannelSums sums;
  for (int j = 0; j < factor; ++j, corner += rowLength) {
    for (int i = 0; i + 1 < factor; i += 2) sums.addPair(corner + i);
    if (factor % 2 == 1) sums.add(corner[factor - 1]);
  }
  return sums;
}

/// The mean colours of squares beside one another; a factor that the compiler knows is faster.
template <int factor>
void reduceRow(const std::uint32_t* corner, int rowLength, std::uint32_t* mean, std::uint32_t* end) {
  for (; mean < end; ++mean, corner += factor)
    *mean = sumsOf(corner, rowLength, factor).meanOfPower(2 * std::countr_zero(unsigned{factor}));
}

void reduceRow(const std::uint32_t* corner, int rowLength, std::uint32_t* mean, std::uint32_t* end,
               int factor) {
  if (factor == 2) return reduceRow<2>(corner, rowLength, mean, end);
  if (factor == 4) return reduceRow<4>(corner, rowLength, mean, end);
  const auto count = static_cast<std::uint32_t>(factor * factor);
  for (; mean < end; ++mean, corner += factor) *mean = sumsOf(corner, rowLength, factor).mean(count);
}

}  // namespace

Picture Raster::reduced(int factor) const {
  return reduced(factor, {0, 0, width_, height_});
}

Picture Raster::reduced(int factor, const PixelRect& part) const {
  const auto squares = [&](const PixelRect& pixels) {
    return PixelRect{pixels.x1 / factor, pixels.y1 / factor,
                     std::min((pixels.x2 + factor - 1) / factor, width_ / factor),
                     std::min((pixels.y2 + factor - 1) / factor, height_ / factor)};
  };
  const PixelRect asked = squares(part);
  Picture result;
  result.width = std::max(0, asked.x2 - asked.x1);
  result.height = std::max(0, asked.y2 - asked.y1);
  result.pixels.assign(static_cast<std::size_t>(result.width) * static_cast<std::size_t>(result.height),
                       ground_);
  if (pixels_.empty()) return result;
  const PixelRect drawn = squares(drawn_);
  const int x1 = std::max(asked.x1, drawn.x1), x2 = std::min(asked.x2, drawn.x2);
  for (int y = std::max(asked.y1, drawn.y1); x1 < x2 && y < std::min(asked.y2, drawn.y2); ++y) {
    std::uint32_t* mean =
        result.pixels.data() + static_cast<std::ptrdiff_t>(y - asked.y1) * result.width - asked.x1;
    reduceRow(&pixels_[index(x1 * factor, y * factor)], width_, mean + x1, mean + x2, factor);
  }
  return result;
}

}  // namespace vk
