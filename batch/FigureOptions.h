#pragma once

#include <optional>
#include <string>

#include "gral/Device.h"
#include "gral/FigureSheet.h"

namespace vk {

/// What the command line asks of the file of a figure, as it is typed.
struct FigureOptions {
  std::string format{};           ///< where the name does not tell it
  std::string size{};             ///< "12x8cm"; empty for that of the figure
  std::optional<double> scale{};  ///< of letters and places, not of pens; 1 is half of the page
  bool portrait = false;
  std::optional<int> dpi{};  ///< only of an image
  bool transparent = false;
};

/// The page that a figure is drawn on.
struct FigurePage {
  PrinterMetrics sides{};
  bool portrait = false;
  double scale = 1;

  const char* orientation() const { return portrait ? "PORTRAIT" : "LANDSCAPE"; }
};

/// The sheet that is asked for. A size with a side that is not from 2 to 100 cm, a density that is not from 30 to 1200,
/// and a scale that is not from 0.1 to 5 raise `UsageError`.
FigureSheet sheetOf(const FigureOptions& options);

/// The page of A4, which tells places in cm.
FigurePage wholePage(const FigureOptions& options);

/// A page with the sides of the sheet, for a figure whose places follow them: letters keep their size unless the sheet
/// is too small for them.
FigurePage filledPage(const FigureOptions& options);

}  // namespace vk
