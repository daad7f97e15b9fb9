#pragma once

#include <optional>
#include <string>
#include <vector>

#include "batch/FigureMaker.h"
#include "batch/QuickSheet.h"
#include "gral/Device.h"

namespace vk {

/// `draw`: one figure from a graphic file, from a grid, or from data files and formulas.
struct DrawArguments {
  std::string graphicFile;
  std::string figure;  ///< the file to be made
  FigureOptions options{};
  std::string gridFile;
  QuickSheetArguments sheet{};
  std::string show{};                     ///< how a terminal shows it; empty where none does
  bool surface = false, columns = false;  ///< of the grid; else contours
  std::optional<double> theta, phi;
  std::optional<int> levels;
  std::string savedFile;  ///< where the graphic file that draws the grid or the sheet is to be written
  bool anyway = false;    ///< also a figure with wrong lines is to be written, as far as they are good
};

/// Draws the figure, writes it and shows it. What looks other than people think is told on the stream of notes. Gives
/// 0, or 2 when a line was wrong: the list of errors goes to the error stream, and an old file stays as it is. Files
/// that cannot be read or written raise `UsageError`.
int runDraw(const DrawArguments& arguments, FigureMaker& maker);

/// What is said of a figure that was drawn: the list of its errors, CR LF ended, and warnings.
struct DrawnFigure {
  std::string errors;
  std::vector<std::string> warnings;
  FigureWords words;
};

/// Draws the bytes of a graphic file on a form as a page. What is no graphic file raises `UsageError`.
DrawnFigure drawGraphicFile(const std::string& fileName, const std::string& bytes, Device& form,
                            const FigurePage& page = {});

}  // namespace vk
