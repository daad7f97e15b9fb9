#pragma once

#include <array>
#include <string>
#include <vector>

#include "data/GridFile.h"
#include "grafile/PlotBox.h"
#include "gral/BoxProjection.h"

/// A function on a grid as it is seen in space.
namespace vk {

/// From where a figure is seen, and its shape.
struct SpaceView {
  double theta, phi;  ///< degrees, as the drawing library takes them; phi between 0 and 180
  double height;      ///< of the box in space, in sides of its square floor; above 0
  double zFrom, zTo;  ///< ends of its vertical scale, ascending; equal for round ends beyond the values of z
  bool columns = false;  ///< the floor reaches half a step beyond the grid
};

enum SurfaceStyle : int { kWires, kGreyShades, kColourShades, kBands, kShadedBands, kLevelLines };

/// Angles from which all is seen rightly.
inline constexpr double kGoodTheta = 110, kGoodPhi = 125;

/// Draws the parts of a figure in space, which fit together when they are given the same view and grid. The figure is
/// as large as the plot box allows; labels stand outside of it. Another view than told above is run-time error 5.
class SpaceFigure {
 public:
  /// All of these outlive the figure; the mapping of the drawing is put back at its end.
  SpaceFigure(GralCls& drawing, const PlotBox& plot, const SpaceView& view, const Grid& grid);
  ~SpaceFigure();
  SpaceFigure(const SpaceFigure&) = delete;
  SpaceFigure& operator=(const SpaceFigure&) = delete;

  /// Floor and two walls with ticks, labels and titles; walls are filled in shades of grey or left open. False when
  /// labels overlap each other or the box.
  bool drawFrame(bool greyWalls);
  /// The surface with the present pen; levels count in the styles that have them.
  void drawSurface(int style, const std::vector<double>& levels);
  void drawColumns(bool grey);

  /// What is in front is drawn last.
  bool hidesRightly() const;

 private:
  struct Ticks;
  struct Label;
  Ticks ticksOf(double from, double to, double length, const std::string& title) const;
  void place();
  Array2<float> heights() const;
  std::array<UsrPoint, 4> cornersOf(const Label& label) const;
  void outline(const UsrPoint& corner, const UsrPoint& edge1, const UsrPoint& edge2) const;
  void addLabels(std::vector<Label>& labels, const Ticks& ticks, const UsrPoint& begin, const UsrPoint& edge,
                 const UsrPoint& outward) const;
  bool areClear(const std::vector<Label>& labels) const;
  std::array<float, 7> singles() const;

  GralCls& drawing_;
  const PlotBox& plot_;
  SpaceView view_;
  const Grid& grid_;
  BoxView place_{};
  double labelPoints_;
};

}  // namespace vk
