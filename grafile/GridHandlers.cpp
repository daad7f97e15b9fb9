// The commands of graphic files that draw a grid file.

#include <algorithm>
#include <utility>

#include "base/Guard.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "expr/FormulaText.h"
#include "grafile/GraphicFile.h"
#include "grafile/GridLevels.h"
#include "grafile/SpaceFigure.h"

namespace vk {
namespace {

constexpr int kMostLevels = 50;

void require(bool condition) {
  if (!condition) throw RuntimeError(kInvalidCall);
}

}  // namespace

/// What stands before the semicolon is the name of the file. Nothing when the line has failed.
std::optional<Grid> GraphicRun::readGrid(const std::string& text) {
  const std::string name = trim(text.substr(0, text.find(';')));
  GridReading reading;
  if (guard([&] { reading = parseGrid(files_.readAll(placeOf(name))); }) && reading.errors.empty()) {
    return std::move(reading.grid);
  }
  fail("*** File Griglia " + upper(name) + " Errato");
  return std::nullopt;
}

/// The levels behind the semicolon in ascending order, or `count` round ones where there is none.
std::vector<double> GraphicRun::levelsOf(const std::string& text, int count, const HeightRange& range) const {
  const auto semicolon = text.find(';');
  if (semicolon == std::string::npos) {
    require(count > 0 && count <= kMostLevels);
    return roundLevels(range, count);
  }
  std::vector<double> levels;
  for (std::string item : splitItems(text.substr(semicolon + 1))) {
    Int16 unknown;
    SubstituteName(parameters_, item, unknown, Precision::kDouble);
    const auto level = numberIn(item);
    require(level.has_value());
    levels.push_back(*level);
  }
  require(!levels.empty() && static_cast<int>(levels.size()) <= kMostLevels);
  std::ranges::sort(levels);
  levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
  return levels;
}

void GraphicRun::warn(const std::string& command, const SpaceView& view, const char* what) {
  const auto angles = [](double theta, double phi) {
    return "theta = " + generalText(theta) + " e phi = " + generalText(phi);
  };
  const std::string better = angles(kGoodTheta, kGoodPhi), present = angles(view.theta, view.phi);
  warnings_.push_back(command + " con " + present + ": " + what +
                      (present == better ? "" : " (meglio " + better + ")"));
}

void GraphicRun::drawContourLines(const CommandFields& fields) {
  const auto& i = fields.integers;
  const auto grid = readGrid(fields.text);
  if (!grid) return;
  require(i[2] >= kPresentColour && i[2] <= kColours);
  const auto levels = levelsOf(fields.text, i[1], heightRange(*grid));
  if (!drawContours(drawing_, box_, *grid, levels, i[2], i[3] != 0)) {
    warnings_.emplace_back("CONTORNI: nessun livello cade fra i valori di z");
  }
}

/// The five numbers that tell how a figure in space is seen.
SpaceView GraphicRun::viewOf(const CommandFields& fields) {
  const auto& n = fields.numbers;
  return {n[1], n[2], n[3], fields.doubles[4], fields.doubles[5]};
}

void GraphicRun::drawSpaceFrame(const CommandFields& fields) {
  const auto grid = readGrid(fields.text);
  if (!grid) return;
  SpaceView view = viewOf(fields);
  view.columns = fields.integers[2] != 0;
  const bool clear = SpaceFigure(drawing_, box_, view, *grid).drawFrame(fields.integers[1] != 0);
  if (!clear) warn("RIQUADRO3D", view, "le etichette si sovrappongono");
}

void GraphicRun::drawSurface(const CommandFields& fields) {
  const auto& i = fields.integers;
  const auto grid = readGrid(fields.text);
  if (!grid) return;
  require(i[1] >= kWires && i[1] <= kLevelLines);
  std::vector<double> levels;
  if (i[1] >= kBands) levels = levelsOf(fields.text, i[2], heightRange(*grid));
  drawInSpace("SUPERFICIE", viewOf(fields), *grid,
              [&](SpaceFigure& figure) { figure.drawSurface(i[1], levels); });
}

void GraphicRun::drawColumns(const CommandFields& fields) {
  const auto grid = readGrid(fields.text);
  if (!grid) return;
  drawInSpace("COLONNE", viewOf(fields), *grid,
              [&](SpaceFigure& figure) { figure.drawColumns(fields.integers[1] != 0); });
}

template <class Draw>
void GraphicRun::drawInSpace(const char* command, const SpaceView& view, const Grid& grid, Draw draw) {
  SpaceFigure figure(drawing_, box_, view, grid);
  draw(figure);
  if (!figure.hidesRightly()) warn(command, view, "le parti lontane coprono le vicine");
}

}  // namespace vk
