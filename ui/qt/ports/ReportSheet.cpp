#include "ui/qt/ports/ReportSheet.h"

#include <algorithm>
#include <cmath>

#include "base/Guard.h"
#include "gral/Plotting.h"
#include "ui/qt/widgets/Fonts.h"

namespace vk {
namespace {

constexpr double kSheetTextShare = 0.6;  // of the height of the page, at most
constexpr double kFigureHeight = 0.65;   // of its width
constexpr double kGap = 400;             // twips between text and figure

/// Where the text stands: centred at the top.
GridPlace placeOf(const CharGrid& text, const FontSpec& font, const SheetSize& page) {
  const CellSize cell = cellOf(toolkitFont(font));
  const double width = text.cols() * cell.width, height = text.rows() * cell.height;
  const double scale = std::min({1.0, page.width / width, kSheetTextShare * page.height / height});
  return {.left = (page.width - scale * width) / 2,
          .top = 0,
          .cellWidth = scale * cell.width,
          .cellHeight = scale * cell.height,
          .face = font.face,
          .points = scale * font.size};
}

}  // namespace

void printReport(const FigureReport& report, const FontSpec& font, Printer& printer, Device& figurePrinter) {
  const Int16 before = printer.Orientation();
  printer.setOrientation(kPortrait);
  const AtEnd turnBack([&] { guard([&] { printer.setOrientation(before); }); });
  const GridPlace place = placeOf(report.text, font, {printer.Width().value(), printer.Height().value()});
  printer.printGrid(report.text, place);

  GralCls drawing(figurePrinter);
  drawing.GralGrStr(figurePrinter, "PORTRAIT", 1);
  const double width = drawing.XrLog;
  const double top = drawing.yScr2Log(report.text.rows() * place.cellHeight + kGap);
  report.draw(drawing, {0, std::max(0.0, top - kFigureHeight * width), width, top});
  drawing.GralGrEnd();
  // A figure of which nothing was drawn does not end the page.
  printer.EndDoc();
}

}  // namespace vk
