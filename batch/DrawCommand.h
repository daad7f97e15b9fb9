#pragma once

#include <string>

#include "batch/FigureMaker.h"
#include "gral/Device.h"

namespace vk {

/// `draw`: one figure from a graphic file.
struct DrawArguments {
  std::string graphicFile;
  std::string figure;   ///< the file to be made
  std::string format;   ///< its format where the name does not tell it
  bool anyway = false;  ///< also a figure with wrong lines is to be written, as far as they are good
};

/// Draws the figure and writes it. Gives 0, or 2 when a line was wrong: the list of errors goes to the error stream,
/// and an old file stays as it is. Files that cannot be read or written raise `UsageError`.
int runDraw(const DrawArguments& arguments, FigureMaker& maker);

/// Draws the bytes of a graphic file on a page of A4 and gives the list of its errors, CR LF ended. What is no graphic file
/// raises `UsageError`.
std::string drawGraphicFile(const std::string& fileName, const std::string& bytes, Device& page);

}  // namespace vk
