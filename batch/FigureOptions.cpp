#include "batch/FigureOptions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "base/NumberText.h"
#include "batch/TerminalPorts.h"

namespace vk {
namespace {

constexpr double kTwipsPerCm = kTwipsPerInch / kCmPerInch;
/// A form shows a page in half its size.
constexpr double kFormScale = 0.5;
/// Margins and letters of a standard figure leave a box on a page of these sides, in cm, or more.
constexpr double kLeastWidth = 14, kLeastHeight = 12;

struct Range {
  double least, most;

  void require(const char* option, const char* what, double value) const {
    if (value >= least && value <= most) return;
    throw UsageError(std::string(option) + ": " + what + " da " + generalText(least) + " a " +
                     generalText(most));
  }
};
constexpr Range kSides{2, 100}, kScales{.1, 5}, kDensities{30, 1200};

struct LengthUnit {
  std::string_view name;
  double cm;
};
constexpr std::array kUnits{LengthUnit{"cm", 1}, LengthUnit{"mm", 1 / kMmPerCm}};

/// Takes a number and what has to stand behind it from a word; false when it is none.
bool takeNumber(std::string_view& word, double& number) {
  const auto [behind, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  word.remove_prefix(static_cast<std::size_t>(behind - word.data()));
  return error == std::errc();
}

SheetSize sizeOf(std::string_view word) {
  double width = 0, height = 0;
  bool good = takeNumber(word, width) && word.starts_with('x');
  if (good) word.remove_prefix(1);
  good = good && takeNumber(word, height);
  const auto unit = std::ranges::find(kUnits, word, &LengthUnit::name);
  if (!good || unit == kUnits.end())
    throw UsageError("--size: si attende LARGHEZZAxALTEZZA in cm o mm, per esempio 12x8cm o 120x80mm");
  for (double* side : {&width, &height}) {
    *side *= unit->cm;
    kSides.require("--size", "si attendono lati in cm", *side);
    *side *= kTwipsPerCm;
  }
  return {width, height};
}

}  // namespace

FigureSheet sheetOf(const FigureOptions& options) {
  FigureSheet sheet{.transparent = options.transparent};
  if (!options.size.empty()) sheet.size = sizeOf(options.size);
  if (options.scale) kScales.require("--scale", "si attende un numero", *options.scale);
  if (options.dpi) kDensities.require("--dpi", "si attende un numero", *options.dpi);
  sheet.dpi = options.dpi.value_or(sheet.dpi);
  return sheet;
}

FigurePage wholePage(const FigureOptions& options) {
  return {.portrait = options.portrait, .scale = options.scale.value_or(1)};
}

FigurePage filledPage(const FigureOptions& options) {
  FigurePage page = wholePage(options);
  const FigureSheet sheet = sheetOf(options);
  if (!sheet.sized()) return page;
  const double scale = kFormScale * page.scale;
  const double width = sheet.size.width / scale, height = sheet.size.height / scale;
  const double larger =
      std::max({1.0, kLeastWidth * kTwipsPerCm / width, kLeastHeight * kTwipsPerCm / height});
  page.portrait = width < height;
  page.sides.shortSide = Twips(larger * std::min(width, height));
  page.sides.longSide = Twips(larger * std::max(width, height));
  return page;
}

}  // namespace vk
