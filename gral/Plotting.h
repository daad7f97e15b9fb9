/// Unit GralCls: the plotting library.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "base/Array.h"
#include "base/Array2.h"
#include "base/Int16.h"
#include "gral/AxisMapping.h"
#include "gral/DashPhase.h"
#include "gral/Device.h"
#include "gral/Markup.h"
#include "gral/PlanePoint.h"

namespace vk {

struct AxisText;
struct LabelledAxis;

/// Size of a text that is written, in cm on the page; the height is that of a line.
struct TextExtent {
  double width, height;
};

/// The plotting library: one instance for one drawing, the same calls for a form and for the printer.
///
/// A point passes through four systems. Usr is the caller's own; Log is centimetres on the page, (0,0) at its
/// bottom left corner, y upward; Scr is twips of the device, (0,0) at its top left corner, y downward; Pixel
/// is device pixels with the same origin. Axes that are logarithmic take decimal logarithms as Usr values.
///
/// Single precision fields narrow what is stored in them; arithmetic is double. There is no error reporting
/// here: a division by zero (run-time error 11), a value that does not fit (6) or a logarithm of zero (5)
/// reaches the caller. Truth values are bool; what is drawn before a failure stays.
class GralCls {
 public:
  /// The system's printer, whose page is that of all drawings, outlives the instance.
  explicit GralCls(Device& printer) : printer_(printer) {}

  // ---- Public fields, with their values after `GralGrStr` ------------------------------------------------

  Device* GralDev = nullptr;   ///< the output surface
  std::string GralCaption;     ///< caption of a form; set before `GralGrStr`
  float GralMarkDim = 0;       ///< radius of the circular mark in millimetres, 1.5
  Int16 GralMarkTyp;           ///< type of the mark, 5
  Colour GralMarkColor;        ///< inside of the full marks, and outline of the upward triangle; black
  float XlLog = 0, XrLog = 0;  ///< left and right edge in Log: 0, page width
  float xScaleL2S = 0;         ///< Scr units per Log unit, positive
  float YtLog = 0, YbLog = 0;  ///< top and bottom edge in Log: page height, 0
  float yScaleL2S = 0;         ///< Scr units per Log unit, negative
  float XlUsr = 0, XrUsr = 0;  ///< left and right edge in Usr
  float xScaleU2L = 0;         ///< Log units per Usr unit, 1
  float YtUsr = 0, YbUsr = 0;  ///< top and bottom edge in Usr
  float yScaleU2L = 0;         ///< Log units per Usr unit, 1
  bool GralUseTra = false;     ///< dashed lines are drawn by the library; true
  std::string GralPenTra;      ///< the pen's dash pattern with its phase
  int kGralPen = 0;            ///< index of the pen, 0..4; 0

  // ---- Start and end --------------------------------------------------------------------------------------

  /// Opens a drawing. `GralOri` is "LANDSCAPE" in any case, or portrait. A form takes scale/2 times the size
  /// of the page; 2 shows it at natural size. The device outlives the drawing.
  void GralGrStr(Device& GralOut, std::string_view GralOri, double scale);
  /// Ends the drawing: clipping is over; the printer's document is sent and its settings are put back.
  void GralGrEnd();
  /// Ends a drawing that broke off: the printer's document is dropped, its settings are put back. Never fails.
  void GralGrAbort();
  /// Clears the form. Its name in the table of names is `GralCls`.
  void GralClear();
  /// Shows what was drawn so far on a form, and hides or shows the form. A printer has none of these.
  void GralRefresh();
  void GralHide();
  void GralShow();

  // ---- Mapping and conversions ----------------------------------------------------------------------------

  /// Log XiL, XfL correspond to Usr XiU, XfU. Equal ends are run-time error 11 and leave the mapping. A range
  /// that `needsDoubles` is mapped in double precision; its fields tell the nearest singles.
  void GralXMap(double XiL, double XfL, double XiU, double XfU);
  void GralYMap(double YiL, double YfL, double YiU, double YfU);

  double xLog2Scr(double x) const { return xAxis().log2Scr(x); }
  double xScr2Log(double x) const { return xAxis().scr2Log(x); }
  double xUsr2Log(double x) const { return xAxis().usr2Log(x); }
  double xLog2Usr(double x) const { return xAxis().log2Usr(x); }
  double xUsr2Scr(double x) const { return xAxis().usr2Scr(x); }
  double xScr2Usr(double x) const { return xAxis().scr2Usr(x); }
  double yLog2Scr(double y) const { return yAxis().log2Scr(y); }
  double yScr2Log(double y) const { return yAxis().scr2Log(y); }
  double yUsr2Log(double y) const { return yAxis().usr2Log(y); }
  double yLog2Usr(double y) const { return yAxis().log2Usr(y); }
  double yUsr2Scr(double y) const { return yAxis().usr2Scr(y); }
  double yScr2Usr(double y) const { return yAxis().scr2Usr(y); }
  /// Pixels are rounded to the nearest, a tie going to the even one; beyond 32 bits is run-time error 6.
  std::int32_t xUsr2Pixel(double x) const { return xScr2Pixel(xUsr2Scr(x)); }
  std::int32_t yUsr2Pixel(double y) const { return yScr2Pixel(yUsr2Scr(y)); }
  std::int32_t xScr2Pixel(double x) const;
  std::int32_t yScr2Pixel(double y) const;
  /// The same for points that may lie anywhere: whole pixels, beyond 32 bits too. A place that is not finite is
  /// run-time error 6.
  PixelPlace pixelOfUsr(double x, double y) const;
  PixelPlace pixelOfScr(double x, double y) const;
  float xPixel2Usr(double p) const;
  float yPixel2Usr(double p) const;

  // ---- Pens, lines, clipping ------------------------------------------------------------------------------

  /// The colour of lines and texts, and that of fillings.
  void GralColor(Colour color);
  void GralFillColor(Colour color);
  /// One of `FillStyles`: its last three bits.
  void GralFillStyle(Int16 iFillStyle);
  /// Pen of `fdim` tenths of a millimetre and of line type `itra`, from 1; types repeat after five: solid,
  /// dash, dot, dash-dot, dash-dot-dot. A type below 1 is refused by the device.
  void GralPen(double fdim, double itra);
  /// A solid line in Usr; only the device's own line style applies.
  void GralLine(double xi, double yi, double xf, double yf);
  /// The same in Scr.
  void GralLineScr(double xi, double yi, double xf, double yf);
  /// A dashed line in Usr. `LinPat` comes back with the phase advanced, for the next line. Its first
  /// character is the state (code 1 pen down), the others are lengths in twips, 1 to 255, pen down and up in
  /// turn; while an element is interrupted, its first part stands at the end. A pattern of another form is
  /// run-time error 5.
  void GralTraLine(double xi, double yi, double xf, double yf, std::string& LinPat);
  /// A rectangle in Usr; on a form it erases what lies under it. `iGrid` has no effect.
  void GralBox(double xi, double yi, double xf, double yf, double iGrid);
  /// Limits drawing to a rectangle in Usr; equal ends give it back.
  void GralClip(double xi, double yi, double xf, double yf);

  // ---- Marks ----------------------------------------------------------------------------------------------

  /// Radius in millimetres and type: 1 triangle up, 2 triangle down, 3 square, 4 diamond, 5 circle in white,
  /// 6 to 10 in black, higher ones repeat in black, 0 nothing.
  void GralMakeMark(double fdim, double jMark);
  /// The mark at a Usr point. All shapes have the same area.
  void GralMark(double x, double y);

  // ---- Axes -----------------------------------------------------------------------------------------------

  /// A horizontal axis at Usr height y with nx intervals. `dy` is the tick length in millimetres, positive
  /// upward; labels stand on the other side. Those of a linear axis are chosen so that they can be read, and the
  /// title may tell a unit with them (`chooseLabels`). nx = 0 is run-time error 11.
  void GralOaxis(double xi, double xf, double y, double nx, double dy, bool ilog, bool iscript,
                 std::string_view xlab);
  /// A vertical axis at Usr abscissa x; `dx` positive turns the ticks to the right.
  void GralVaxis(double yi, double yf, double x, double ny, double dx, bool ilog, bool iscript,
                 std::string_view yLab);
  /// The labels of an axis in xsc(0..ndx), and in `xmaxlen` the length of the longest in characters.
  void Makescale(double xi, double xf, Array<std::string>& xsc, double ndx, bool ilog, double& xmaxlen,
                 bool isy);
  /// Rounds x to four decimals in place and writes it into xx.
  void basnum2str(double& x, std::string& xx);
  /// `inn` as 16 bits, rotated left by `ish`.
  Int16 Shift(Int16 inn, Int16 ish);

  // ---- Text -----------------------------------------------------------------------------------------------

  /// Writes at a Usr point; see `GralWinPrintString`.
  void GralWPrint(double x, double y, double iCentr, Int16 iRot, double iPunti, std::string_view Text);
  /// Writes a text with markup at a Scr point, its vertical middle. `iCentr`: 0 begins there, 1 is centred
  /// there, 2 ends there. `iRot` in degrees counter-clockwise, `iPointIn` the size in points at full page
  /// scale. `ibold` has no effect. Failures inside are passed over, statement by statement.
  ///
  /// "^" and "_" raise and lower the character or the group in braces that follows; two backslashes take it
  /// from the Symbol font.
  void GralWinPrintString(double xxx, double yyy, double iCentr, Int16 iRot, double iPointIn, double ibold,
                          std::string_view b);
  /// How much room such a text takes on the page.
  TextExtent GralTextExtent(double iPointIn, std::string_view b);
  /// Measures the letters 32..128 of both fonts at the present size.
  void MakLenLett();
  /// What was measured, in twips: code 0..128 in font 1 (text) or 2 (Symbol); 0 below code 32. An index
  /// outside is run-time error 9.
  Int16 LetterWidth(int c, int font) const;

  // ---- Curves and data ------------------------------------------------------------------------------------

  /// Joins the points 1..np, in Usr, with straight lines under the current pen.
  void GralDraw(const Array<double>& x, const Array<double>& y, int np);
  /// A smooth curve through the points 1..nPt, in Usr, from left to right: a natural cubic spline. Two points
  /// of one abscissa are run-time error 11. Dash patterns do not apply.
  void GralCurve(const Array<double>& x, const Array<double>& y, int nPt);
  /// Points with error bars and marks, all marks above all bars. Errors in x only when `kXpntErr` is true.
  /// On a logarithmic axis the data are given linear; a zero is run-time error 5.
  void PlotData(const Array<double>& Xpnt, const Array<double>& ErrXpnt, const Array<double>& Ypnt,
                const Array<double>& ErrYpnt, int NumPnt, bool kXpntErr, bool iXLog, bool iYLog);

  // ---- Filling, print of the screen -----------------------------------------------------------------------

  /// Fills the area around a Usr point, up to the colour `LimitColor` on all sides or the clip region, with
  /// the device's filling. A point of that colour has no area.
  void GralFill(double x, double y, Colour LimitColor);
  /// Prints what the form shows in its natural size, in the middle of a sheet turned as the drawing is. A
  /// form larger than the sheet begins at half the difference all the same.
  void GralPrintScreen();

  // ---- Contours -------------------------------------------------------------------------------------------

  /// The level lines of a function over a rectangle in Usr: z(i, j) is its value at grid point i = 1..nx
  /// along x and j = 1..ny along y. Level k = 1..nl, in ascending order, is drawn in colour CLev(k), with the
  /// present pen; the device's colour stays. One grid point along x or y is run-time error 11.
  void GralContour(double xmin, double xmax, double ymin, double ymax, const Array2<float>& z, Int16 nx,
                   Int16 ny, const Array<float>& VLev, const Array<Colour>& CLev, int nl);

  // ---- Surfaces and frames in space -----------------------------------------------------------------------
  //
  // All of these see a box in parallel projection: the centre of its floor stands on the Usr point (Xoc, Yoc),
  // `theta` turns it about the vertical and `phi` raises the viewer, in degrees; Vx, Vy, Vz are its edge
  // lengths in Usr units. Heights z(i, j), i = 1..nx along x and j = 1..ny along y, are Usr units of the box.
  // Parts are drawn in the order of the indices whatever the angles, so that what is in front must come last.
  // Colours are triples of hue, saturation and brightness in elements 1..3.

  /// A surface over the whole floor. `Gray3d` shades it by its tilt, in the colour HSBColSur when `Col3d`.
  /// With levels ValLev(1..nValLev) in ascending order it has one colour HSBColLev(c, 1..3) more than levels
  /// for the bands between them, or as many for level lines. With neither it is a wire mesh. One grid point
  /// along x or y is run-time error 11.
  void Surf3D(float Xoc, float Yoc, float theta, float phi, float Vx, float Vy, float Vz,
              const Array2<float>& z, Int16 nx, Int16 ny, bool Gray3d, bool Col3d,
              const Array<float>& HSBColSur, const Array<float>& ValLev, int nValLev,
              const Array2<float>& HSBColLev, int nColLev);
  /// A field of columns, nx by ny cells, with shades of gray when `Gray3d`. The last argument, `Col3d`, has no
  /// effect.
  void GralLego3d(float Xoc, float Yoc, float theta, float phi, float Vx, float Vy, float Vz,
                  const Array2<float>& z, Int16 nx, Int16 ny, bool Gray3d, bool Col3d);
  /// The box itself: lines on floor and walls at the ticks Tx(1..nTx) from 0 to Vx, and so on, with labels
  /// Sx(1..): as many as ticks stand at them, else each between two. Sx(0) is the title of the axis, which
  /// must be there. Arrays of labels get room for all ticks but the last; a label beyond the array is run-time
  /// error 9. `Scr3d` has no effect. The font size of the device stays.
  void GralFrame3d(float Xoc, float Yoc, float theta, float phi, float Vx, float Vy, float Vz,
                   const Array<float>& Tx, const Array<float>& Ty, const Array<float>& Tz, Int16 nTx,
                   Int16 nTy, Int16 nTz, Array<std::string>& Sx, Array<std::string>& Sy,
                   Array<std::string>& Sz, Int16 nSx, Int16 nSy, Int16 nSz, bool Scr3d);
  /// The same with its three walls filled: white, or shaded when `Gray3d`, or in hue and saturation of HSFrmCol
  /// when `Col3d`.
  void Frame3D(float Xoc, float Yoc, float theta, float phi, float Vx, float Vy, float Vz,
               const Array<float>& Tx, const Array<float>& Ty, const Array<float>& Tz, Int16 nTx, Int16 nTy,
               Int16 nTz, Array<std::string>& Sx, Array<std::string>& Sy, Array<std::string>& Sz, Int16 nSx,
               Int16 nSy, Int16 nSz, bool Scr3d, bool Gray3d, bool Col3d, const Array<float>& HSFrmCol);

 private:
  struct SavedPrinterState {
    Int16 orientation, scaleMode;
    double scaleWidth = 0, scaleHeight = 0, scaleTop = 0, scaleLeft = 0;
  };
  struct PageSize {
    double width, height;  // cm
  };
  /// The ticks of an axis, in Scr along it.
  struct AxisTicks {
    double first, last, step;
  };
  /// A place in Scr as an axis sees it.
  struct AxisPlace {
    double along, across;
  };

  AxisMapping xAxis() const;
  AxisMapping yAxis() const;
  PageSize pageSize() const;
  void openPrinter();
  void openForm(Device& form, const PageSize& page);
  void readDeviceSize();
  void resetScales(const PageSize& page);
  /// A Scr point in pixels, before they are rounded to whole ones.
  PixelPlace inPixels(double x, double y) const;
  void releaseClip();
  void restorePrinter();
  void makePatterns(double tp);

  void drawDashes(const TwipPoint& from, const TwipPoint& direction, double length, DashPhase& phase);

  void outlineMark(int shape, double px, double py, double radius);
  void polygonMark(std::initializer_list<std::array<double, 2>> vertices);

  double labelSize(double tickLength) const;
  void lineAlong(bool upright, const AxisPlace& from, const AxisPlace& to);
  AxisTicks drawTicks(const LabelledAxis& axis, double at, double tickLength, bool ilog, bool upright);
  AxisText axisText(const LabelledAxis& axis, bool ilog, bool vertical, std::string_view title);
  double widestText(const Array<std::string>& texts) const;

  void DrawTextRun(Int16 iRot, Device& device, const std::string& font, double size, double x, double y,
                   std::string_view text);
  void drawRotatedRun(Int16 iRot, Device& device, const std::string& font, double size, double x, double y,
                      std::string_view text);
  double yPixelsPerUsr() const;
  std::vector<double> letterAdvances(const std::vector<MarkupLetter>& letters) const;

  struct PlotPoint;
  static PlotPoint plotPoint(double value, double error, bool hasError, bool logarithmic);
  void drawBar(bool upright, const PlotPoint& bar, double at);

  Device& printer_;
  bool IsPrinter = false;
  std::int32_t hClipRgn = 0;
  int Orientation = 1;
  Array<std::array<Int16, 3>> LetterWidths;
  std::string FontName;
  float fScale = 0;
  float fScaleEff = 0;
  double ScrWidth = 0, ScrLeft = 0, ScrRight = 0;
  double ScrHeight = 0, ScrTop = 0, ScrBottom = 0;
  Array<std::string> PenPatterns;
  int PixHeight = 0, PixWidth = 0;
  SavedPrinterState SavedPrinter;
  DashCarry dashCarry_;
  NarrowMapping xNarrow_, yNarrow_;
};

}  // namespace vk
