#pragma once

#include <compare>
#include <cstdint>

namespace vk {

/// A colour of 24 bits. It is made and read by a name that tells the order of its channels.
class Colour {
 public:
  /// Black.
  constexpr Colour() = default;
  /// 0xRRGGBB, as images and files of vectors have it; what stands above does not count.
  static constexpr Colour fromRgb(std::uint32_t rgb) { return {rgb >> 16, rgb >> 8, rgb}; }
  /// 0xBBGGRR, as drawing calls have it: red in the lowest byte.
  static constexpr Colour fromBgr(std::int32_t bgr) {
    const auto bits = static_cast<std::uint32_t>(bgr);
    return {bits, bits >> 8, bits >> 16};
  }
  /// Channels from 0 to 255.
  static constexpr Colour fromChannels(int red, int green, int blue) {
    return {static_cast<std::uint32_t>(red), static_cast<std::uint32_t>(green),
            static_cast<std::uint32_t>(blue)};
  }

  constexpr int red() const { return red_; }
  constexpr int green() const { return green_; }
  constexpr int blue() const { return blue_; }
  constexpr std::uint32_t rgb() const { return static_cast<std::uint32_t>(red_ << 16 | green_ << 8 | blue_); }
  constexpr std::int32_t bgr() const { return blue_ << 16 | green_ << 8 | red_; }

  constexpr auto operator<=>(const Colour&) const = default;

 private:
  constexpr Colour(std::uint32_t red, std::uint32_t green, std::uint32_t blue)
      : blue_(static_cast<std::uint8_t>(blue)),
        green_(static_cast<std::uint8_t>(green)),
        red_(static_cast<std::uint8_t>(red)) {}

  std::uint8_t blue_ = 0, green_ = 0, red_ = 0;
};

inline constexpr Colour kBlack;
inline constexpr Colour kWhite = Colour::fromRgb(0xFFFFFF);

}  // namespace vk
