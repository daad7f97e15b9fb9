#include "batch/TerminalPicture.h"

#include <algorithm>
#include <array>
#include <iostream>

#include "base/Colour.h"
#include "batch/TerminalPorts.h"
#include "platform/system/Sixel.h"
#include "platform/system/Terminal.h"

namespace vk {
namespace {

constexpr int kUsualColumns = 80;
constexpr int kPixelsPerColumn = 10;
constexpr std::uint32_t kWhitePixel = 0xFFFFFF;
constexpr const char* kUpperHalf = "\u2580";
constexpr const char* kPlainColours = "\x1B[0m";

/// The colour of a rectangle of the picture, on white paper.
Colour meanColour(const Picture& picture, int left, int right, int top, int bottom) {
  std::array<long, 3> sums{};
  for (int y = top; y < bottom; ++y) {
    for (int x = left; x < right; ++x) {
      const std::uint32_t pixel =
          picture.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                         static_cast<std::size_t>(x)];
      const Colour colour = Colour::fromRgb(pixel == 0 ? kWhitePixel : pixel);
      sums[0] += colour.red();
      sums[1] += colour.green();
      sums[2] += colour.blue();
    }
  }
  const long count = std::max(1L, static_cast<long>(right - left) * (bottom - top));
  const auto mean = [count](long sum) { return static_cast<int>((sum + count / 2) / count); };
  return Colour::fromChannels(mean(sums[0]), mean(sums[1]), mean(sums[2]));
}

/// The picture in another size, not larger than it is.
Picture reduced(const Picture& picture, int width, int height) {
  Picture result{.width = width, .height = height, .pixels = {}};
  const auto part = [](int i, int parts, int length) {
    return static_cast<int>(static_cast<long>(i) * length / parts);
  };
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const int left = part(x, width, picture.width), top = part(y, height, picture.height);
      result.pixels.push_back(meanColour(picture, left, std::max(left + 1, part(x + 1, width, picture.width)),
                                         top, std::max(top + 1, part(y + 1, height, picture.height)))
                                  .rgb());
    }
  }
  return result;
}

int heightFor(const Picture& picture, int width) {
  return std::max(1,
                  static_cast<int>(static_cast<long>(picture.height) * width / std::max(1, picture.width)));
}

std::string colourCode(const char* place, std::uint32_t rgb) {
  const Colour colour = Colour::fromRgb(rgb);
  return std::string("\x1B[") + place + ";2;" + std::to_string(colour.red()) + ";" +
         std::to_string(colour.green()) + ";" + std::to_string(colour.blue()) + "m";
}

}  // namespace

void requireShowWord(const std::string& word) {
  if (word != kBlocks && word != kSixel)
    throw UsageError(std::string("--show: si attende ") + kBlocks + " o " + kSixel);
}

std::string halfBlocks(const Picture& picture, int columns) {
  const int height = (heightFor(picture, columns) + 1) / 2 * 2;
  const Picture small = reduced(picture, columns, height);
  std::string text;
  auto upper = small.pixels.begin();
  for (int row = 0; row < height; row += 2) {
    const auto lower = upper + columns;
    for (int x = 0; x < columns; ++x) {
      const bool firstUpper = x == 0 || upper[x] != upper[x - 1],
                 firstLower = x == 0 || lower[x] != lower[x - 1];
      if (firstUpper) text += colourCode("38", upper[x]);
      if (firstLower) text += colourCode("48", lower[x]);
      text += kUpperHalf;
    }
    text += kPlainColours;
    text += '\n';
    upper += 2 * columns;
  }
  return text;
}

FigureForm shownForm(FigureMaker& maker) {
  FigureOptions options;
  options.format = "png";
  return maker.formFor("", options);
}

void showPicture(const Picture& picture, const std::string& word) {
  const int columns = terminalColumns().value_or(kUsualColumns);
  if (word == kBlocks) {
    std::cout << halfBlocks(picture, std::min(columns, picture.width));
    return;
  }
  const int width = std::min(picture.width, kPixelsPerColumn * columns);
  const Picture small = reduced(picture, width, heightFor(picture, width));
  const auto sixels = sixelsOf(small.pixels, small.width, small.height);
  if (!sixels) throw UsageError("--show=sixel: serve la libreria libsixel1");
  std::cout << *sixels << '\n';
}

}  // namespace vk
