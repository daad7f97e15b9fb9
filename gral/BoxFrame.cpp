// Unit GralCls: the box around a function of two variables.

#include <algorithm>
#include <array>
#include <cmath>

#include "base/CheckedMath.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "gral/BoxProjection.h"
#include "gral/PixelPath.h"
#include "gral/Plotting.h"
#include "gral/SavedDrawing.h"
#include "gral/Shade.h"

namespace vk {
namespace {

constexpr double kLabelPoints = 12;
constexpr double kTitlePoints = 14;

/// The ticks of one axis of the frame and its texts: element 0 is the title.
struct AxisTexts {
  const Array<float>& T;
  int nT;
  const Array<std::string>& S;
  int nS;
};

/// The labels must have room for what a caller may leave out: all ticks but the last.
void makeRoom(Array<std::string>& S, int nT) {
  if (S.upper() < nT - 1) S.redim(nT - 1);
}

/// Writes the labels of an axis from tick to tick: at the ticks when there are as many texts as ticks, else
/// between them.
class TickLabels {
 public:
  TickLabels(GralCls& drawing, const AxisTexts& axis) : drawing_(drawing), axis_(axis) {}

  /// The label of tick k stands under a point in Usr.
  void at(int k, const UsrPoint& usr) {
    const TwipPoint here{drawing_.xUsr2Scr(usr.x), drawing_.yUsr2Scr(usr.y)};
    if (axis_.nT == axis_.nS) {
      print(axis_.S[k], here);
    } else if (k > 1) {
      print(axis_.S[k - 1], 0.5 * (before_ + here));
    }
    before_ = here;
  }

 private:
  void print(const std::string& text, const TwipPoint& top) {
    const std::string label = trim(text);
    if (label.empty()) return;
    Device& device = *drawing_.GralDev;
    device.setCurrentX(top.x - device.TextWidth(label) / 2);
    device.setCurrentY(top.y);
    device.Print(label);
  }

  GralCls& drawing_;
  AxisTexts axis_;
  TwipPoint before_;
};

/// Degrees of an edge, or `upright` when it has no run in x.
Int16 slopeOf(const UsrPoint& edge, int upright) {
  if (edge.x == 0) return upright;
  return toInt16(std::atan(edge.y / edge.x) / BoxProjection::kRadians);
}

/// A frame while it is drawn.
class Frame {
 public:
  Frame(GralCls& drawing, const BoxView& view) : drawing_(drawing), view_(view), box_(view) {}

  void drawX(const AxisTexts& axis) {
    TickLabels labels(drawing_, axis);
    for (int k = 1; k <= axis.nT; ++k) {
      const UsrPoint p = box_.corner + checked::divide(axis.T[k], view_.Vx) * box_.xEdge;
      const UsrPoint e = p + box_.yEdge;
      line(p, e);
      line(p, p + box_.zEdge);
      line(e, e - 0.5 * box_.ez);
      labels.at(k, e - box_.ez);
    }
    title(axis.S, box_.corner + 0.5 * box_.xEdge + box_.zEdge - 0.5 * box_.ey + 0.5 * box_.ez,
          slopeOf(box_.xEdge, 90));
  }

  void drawY(const AxisTexts& axis) {
    TickLabels labels(drawing_, axis);
    for (int k = 1; k <= axis.nT; ++k) {
      const UsrPoint p = box_.corner + checked::divide(axis.T[k], view_.Vy) * box_.yEdge;
      const UsrPoint t = p + box_.zEdge;
      line(p, p + box_.xEdge);
      line(p, t);
      line(t, t - 0.5 * box_.ex);
      labels.at(k, t - box_.ex);
    }
    title(axis.S, box_.corner + box_.xEdge + 0.5 * box_.yEdge - box_.ez, slopeOf(box_.yEdge, -90));
  }

  void drawZ(const AxisTexts& axis) {
    TickLabels labels(drawing_, axis);
    for (int k = 1; k <= axis.nT; ++k) {
      const UsrPoint p = box_.corner + checked::divide(axis.T[k], view_.Vz) * box_.zEdge;
      const UsrPoint end = p + box_.xEdge;
      line(p, end);
      line(end, end - 0.5 * box_.ey);
      line(p, p + box_.yEdge);
      labels.at(k, end - box_.ey);
    }
    const double height = std::abs(drawing_.GralDev->TextHeight(axis.S[0]));
    const double m = std::max(box_.ct, height / 100);
    title(axis.S, box_.corner + box_.yEdge + UsrPoint{m, box_.ey.y} + 0.5 * box_.zEdge, -90);
  }

 private:
  void line(const UsrPoint& from, const UsrPoint& to) { drawing_.GralLine(from.x, from.y, to.x, to.y); }

  void title(const Array<std::string>& S, const UsrPoint& middle, Int16 degrees) {
    const std::string text = trim(S[0]);
    if (text.empty()) return;
    drawing_.GralWPrint(middle.x, middle.y, 1, degrees, kTitlePoints, text);
    drawing_.GralDev->setFontSize(kLabelPoints);
  }

  GralCls& drawing_;
  BoxView view_;
  BoxProjection box_;
};

/// Fills the walls of a box.
class Walls {
 public:
  Walls(GralCls& drawing, bool Gray3d, bool Col3d, const Array<float>& HSFrmCol)
      : drawing_(drawing), Gray3d_(Gray3d), Col3d_(Col3d), HSFrmCol_(HSFrmCol) {}

  /// The wall between two edges from a corner; `seen` of its `area` is left when it is seen from its side.
  void fill(const UsrPoint& corner, const UsrPoint& edge1, const UsrPoint& edge2, double seen,
            double area) const {
    Device& device = *drawing_.GralDev;
    device.setFillColor(colorOf(seen, area));
    std::array<PixelPlace, 4> points;
    std::size_t count = 0;
    for (const UsrPoint& point : {corner, corner + edge1, corner + edge1 + edge2, corner + edge2}) {
      points[count++] = drawing_.pixelOfUsr(point.x, point.y);
    }
    makePath(device, points);
    device.FillPath();
  }

 private:
  Colour colorOf(double seen, double area) const {
    const double share = std::min(1.0, checked::divide(std::abs(seen), area));
    return faceColor(grayOf(Gray3d_ ? share : 1), Col3d_, HSFrmCol_);
  }

  GralCls& drawing_;
  bool Gray3d_, Col3d_;
  const Array<float>& HSFrmCol_;
};

}  // namespace

void GralCls::GralFrame3d(float Xoc, float Yoc, float theta, float phi, float Vx, float Vy, float Vz,
                          const Array<float>& Tx, const Array<float>& Ty, const Array<float>& Tz, Int16 nTx,
                          Int16 nTy, Int16 nTz, Array<std::string>& Sx, Array<std::string>& Sy,
                          Array<std::string>& Sz, Int16 nSx, Int16 nSy, Int16 nSz, bool) {
  const SavedDrawing saved(*GralDev);
  GralDev->setFontSize(kLabelPoints);
  makeRoom(Sx, nTx);
  makeRoom(Sy, nTy);
  makeRoom(Sz, nTz);
  Frame frame(*this, {Xoc, Yoc, theta, phi, Vx, Vy, Vz});
  frame.drawX({Tx, nTx, Sx, nSx});
  frame.drawY({Ty, nTy, Sy, nSy});
  frame.drawZ({Tz, nTz, Sz, nSz});
}

void GralCls::Frame3D(float Xoc, float Yoc, float theta, float phi, float Vx, float Vy, float Vz,
                      const Array<float>& Tx, const Array<float>& Ty, const Array<float>& Tz, Int16 nTx,
                      Int16 nTy, Int16 nTz, Array<std::string>& Sx, Array<std::string>& Sy,
                      Array<std::string>& Sz, Int16 nSx, Int16 nSy, Int16 nSz, bool Scr3d, bool Gray3d,
                      bool Col3d, const Array<float>& HSFrmCol) {
  const BoxView view{Xoc, Yoc, theta, phi, Vx, Vy, Vz};
  const BoxProjection box(view);
  {
    const SavedDrawing saved(*GralDev);
    GralDev->setFillStyle(kFillSolid);
    const Walls walls(*this, Gray3d, Col3d, HSFrmCol);
    walls.fill(box.corner, box.xEdge, box.zEdge, box.xEdge.x * box.zEdge.y, view.Vx * view.Vz);
    walls.fill(box.corner, box.xEdge, box.yEdge, box.xEdge.x * box.yEdge.y - box.xEdge.y * box.yEdge.x,
               view.Vx * view.Vy);
    walls.fill(box.corner, box.yEdge, box.zEdge, box.zEdge.y * box.yEdge.x, view.Vy * view.Vz);
  }
  GralFrame3d(Xoc, Yoc, theta, phi, Vx, Vy, Vz, Tx, Ty, Tz, nTx, nTy, nTz, Sx, Sy, Sz, nSx, nSy, nSz, Scr3d);
}

}  // namespace vk
