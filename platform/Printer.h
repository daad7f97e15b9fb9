#pragma once

#include <string>

#include "base/Int16.h"
#include "base/Length.h"
#include "platform/CharGrid.h"
#include "platform/PaperOrientation.h"

namespace vk {

/// Where on the page a character grid goes; lengths in twips.
struct GridPlace {
  double left = 0, top = 0;              ///< of the first cell
  double cellWidth = 0, cellHeight = 0;  ///< each character is printed in a cell of its own
  std::string face;                      ///< fixed-width font
  double points = 0;
  bool operator==(const GridPlace&) const = default;
};

/// The default printer, as far as whole pages of text go. Figures have a device of their own for it.
class Printer {
 public:
  virtual ~Printer() = default;

  /// True when there is a printer; without one the pages go to a PDF file that the user names.
  virtual bool present() = 0;

  /// A `PaperOrientation`.
  virtual Int16 Orientation() = 0;
  virtual void setOrientation(Int16 orientation) = 0;

  /// Printable area in the present orientation.
  virtual Twips Width() = 0;
  virtual Twips Height() = 0;

  /// Prints text lines from the top of the page in a fixed-width font of `points`.
  virtual void printText(const PlainText& text, const std::string& face, double points) = 0;

  /// Prints a grid of characters and frames; it stays text and lines on paper.
  virtual void printGrid(const CharGrid& grid, const GridPlace& place) = 0;

  /// Ends the document and sends it. A printer that fails is run-time error 482.
  virtual void EndDoc() = 0;
};

}  // namespace vk
