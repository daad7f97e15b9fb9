#include "grafile/GridFigure.h"

#include "base/NumberText.h"
#include "base/Text.h"
#include "data/FigureText.h"
#include "grafile/NiceLimits.h"

namespace vk {
namespace {

std::string linesOf(std::initializer_list<std::string> lines) {
  std::string text;
  for (const std::string& line : lines) text += line + std::string(kCrLf);
  return text;
}

/// One side of the box of the contours: round ends around the grid.
struct RoundSide {
  explicit RoundSide(const Array<double>& places) : low(places[1]), high(places[places.upper()]) {
    NiceLimits(low, high, divisions);
  }
  std::string scale(const std::string& command, const std::string& cm) const {
    return "\\" + command + "(" + cm + ", " + generalText(low) + ", " + generalText(high) + ")";
  }

  double low, high;
  Int16 divisions;
};

std::string contourCommands(const Grid& grid, const std::string& fileName, const GridFigure& figure) {
  const RoundSide x(grid.x), y(grid.y);
  return linesOf({x.scale("XSCALA", "5, 22"), y.scale("YSCALA", "4, 18"),
                  "\\TITOLO(" + utf8OfFigureText(grid.titleZ) + ")",
                  "\\XLEGENDA(" + utf8OfFigureText(grid.titleX) + ")",
                  "\\YLEGENDA(" + utf8OfFigureText(grid.titleY) + ")",
                  "\\RIQUADRO(" + generalText(x.divisions) + ", " + generalText(y.divisions) + ", 1)",
                  "%Linee di Livello, a Colori e con la Loro Chiave", "\\TIPO_LINEA(3, 1)",
                  "\\CONTORNI(" + generalText(figure.levels) + ", 2, 1, " + fileName + ")"});
}

std::string spaceCommands(const std::string& fileName, const GridFigure& figure) {
  const bool columns = figure.kind == GridFigureKind::kColumns;
  const std::string view = generalText(figure.theta) + ", " + generalText(figure.phi) + ", 0.5, 0, 0, ";
  return linesOf({"\\XSCALA(5, 24, 0, 1)", "\\YSCALA(4, 18, 0, 1)",
                  "\\RIQUADRO3D(" + view + "1, " + (columns ? "1, " : "0, ") + fileName + ")",
                  columns
                      ? "\\COLONNE(" + view + "1, " + fileName + ")"
                      : "\\SUPERFICIE(" + view + "3, " + generalText(figure.levels) + ", " + fileName + ")"});
}

}  // namespace

std::string gridFigureText(const Grid& grid, const std::string& fileName, const GridFigure& figure) {
  return linesOf({"%File Grafico Griglia", "%File Griglia: " + fileName}) +
         (figure.kind == GridFigureKind::kContours ? contourCommands(grid, fileName, figure)
                                                   : spaceCommands(fileName, figure));
}

}  // namespace vk
