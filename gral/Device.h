#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Int16.h"
#include "gral/DeviceTypes.h"
#include "gral/DrawingSink.h"
#include "gral/PlanePoint.h"

namespace vk {

/// An output surface of the graphics library: a form on the screen, a file that stands for one, or the
/// printer.
///
/// It keeps the settings, plain values that the next primitive uses, and the sizes. What is drawn goes to a
/// sink, which is all that distinguishes one device from another; what lies far outside the drawing area is cut
/// away first. Operations of forms are refused by a printer and the other way round, with run-time error 5.
///
/// Lengths are twips (1440 per inch) from the top left corner of the drawing area, y downward, except for the
/// operations of the graphics context, which take whole pixels of the device. Nothing drawn outside the
/// drawing area or the clip region is seen. Texts are 8-bit: in the layout of the Symbol font when the font's
/// name is "Symbol", else Windows-1252.
class Device {
 public:
  /// Sink and letter widths must live as long as the device; neither is called before the first operation.
  Device(const FormMetrics& form, DrawingSink& sink, LetterMetrics& letters);
  Device(const PrinterMetrics& printer, DrawingSink& sink, LetterMetrics& letters);
  Device(const Device&) = delete;
  Device& operator=(const Device&) = delete;
  virtual ~Device() = default;

  // ---- Settings ------------------------------------------------------------------------------------------

  Colour ForeColor() const { return settings_.foreColor; }
  void setForeColor(Colour color) { settings_.foreColor = color; }
  Colour FillColor() const { return settings_.fillColor; }
  void setFillColor(Colour color) { settings_.fillColor = color; }
  Colour BackColor() const { return settings_.backColor; }
  /// A form also loses its picture and shows this colour all over.
  void setBackColor(Colour color);

  /// One of `FillStyles`; anything else is refused with run-time error 5.
  Int16 FillStyle() const { return settings_.fillStyle; }
  void setFillStyle(Int16 style);
  /// One of `DrawStyles`; anything else is refused with run-time error 5.
  Int16 DrawStyle() const { return settings_.drawStyle; }
  void setDrawStyle(Int16 style);
  /// Width of the pen: nominal pixels on a form, the printer's own on the printer. It is taken as a whole
  /// number, a tie going to the even one, and at least 1; on a form it has 16 bits.
  int DrawWidth() const { return settings_.drawWidth; }
  void setDrawWidth(double width);

  const std::string& FontName() const { return settings_.fontName; }
  void setFontName(std::string_view name) { settings_.fontName = name; }
  /// Size in points; a text of size 0 is not seen, a negative size is refused with run-time error 5.
  double FontSize() const { return settings_.fontSize; }
  void setFontSize(double points);
  bool FontTransparent() const { return settings_.fontTransparent; }
  void setFontTransparent(bool on) { settings_.fontTransparent = on; }

  double CurrentX() const { return settings_.currentX; }
  void setCurrentX(double x) { settings_.currentX = x; }
  double CurrentY() const { return settings_.currentY; }
  void setCurrentY(double y) { settings_.currentY = y; }

  // ---- The scale -----------------------------------------------------------------------------------------

  /// The unit in which the size of the drawing area is told, one of `ScaleModes`. Setting it gives the area
  /// its own size in that unit, with the origin at the top left corner. Drawing is in twips all the same.
  Int16 ScaleMode() const { return scale_.mode; }
  void setScaleMode(Int16 mode);
  double ScaleWidth() const { return scale_.width; }
  double ScaleHeight() const { return scale_.height; }
  double ScaleLeft() const { return scale_.left; }
  double ScaleTop() const { return scale_.top; }
  /// These put back a value that was read before; the other values of the scale stay.
  void setScaleWidth(double width) { scale_.width = width; }
  void setScaleHeight(double height) { scale_.height = height; }
  void setScaleLeft(double left) { scale_.left = left; }
  void setScaleTop(double top) { scale_.top = top; }
  /// Size of the drawing area, whatever the scale mode.
  const SheetSize& area() const { return area_; }
  /// The same in pixels of the graphics context.
  int pixelWidth() const;
  int pixelHeight() const;
  /// Twips of a pixel of the graphics context.
  double twipsPerContextPixel() const {
    return isForm_ ? twipsPerPixel_ / formMetrics_.pixelRatio : twipsPerPixel_;
  }

  /// Twips of a nominal pixel on a form, of a device pixel on the printer.
  double TwipsPerPixelX() const { return twipsPerPixel_; }
  double TwipsPerPixelY() const { return twipsPerPixel_; }

  // ---- Drawing in twips ----------------------------------------------------------------------------------

  /// A line with the current pen, both ends included.
  void Line(double x1, double y1, double x2, double y2);
  /// The outline of a rectangle with the current pen.
  void Box(double x1, double y1, double x2, double y2);
  /// A rectangle filled with a colour, without outline.
  void FilledBox(double x1, double y1, double x2, double y2, Colour color);
  /// A circle with the current pen, filled with the current filling.
  void Circle(double x, double y, double radius);

  /// Width of a text in the font of the settings; a selected font record does not count.
  double TextWidth(std::string_view text);
  /// Height of a line in the font of the settings, also for an empty text.
  double TextHeight(std::string_view text);
  /// Writes in the font of the settings, or in the selected font record, with the top left corner of the text
  /// at `CurrentX`, `CurrentY`, which stay.
  void Print(std::string_view text);

  // ---- The graphics context, in pixels --------------------------------------------------------------------

  /// Joins the points with the current pen; one point alone draws nothing. Between `BeginPath` and `EndPath`
  /// it adds them to the path.
  void Polyline(std::span<const PixelPoint> points);
  /// Bézier curves of third degree through the points 0, 3, 6, ...; the others are control points.
  void PolyBezier(std::span<const PixelPoint> points);

  /// A path is the outline of one figure. The three operations that draw it use it up.
  void BeginPath();
  void EndPath() { pathOpen_ = false; }
  void StrokePath() { drawPath(false, true); }
  /// These two close the figure first.
  void FillPath() { drawPath(true, false); }
  void StrokeAndFillPath() { drawPath(true, true); }

  /// Fills the area around a pixel, up to the colour `limit` on all sides, with the current filling. Pixels
  /// touch along their sides. A pixel of that colour, or one outside the clip region, has no area.
  void FloodFill(std::int32_t x, std::int32_t y, Colour limit);

  /// A rectangle of pixels x1 <= x < x2, y1 <= y < y2 that drawing can be limited to. Gives its handle.
  std::int32_t CreateRectRgn(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2);
  /// Limits all drawing to the region until another is selected or this one is deleted.
  void SelectClipRgn(std::int32_t region);
  /// Makes a font and gives its handle. While it is selected, texts are written with it.
  std::int32_t CreateFontIndirect(const FontRecord& record);
  /// Selects a font by its handle, 0 being the font of the settings. Gives the handle selected before.
  std::int32_t SelectObject(std::int32_t font);
  /// The font record that texts are written with, or none.
  const FontRecord* selectedFont() const;
  /// Releases a region or a font; what was selected through it ends. An unknown handle is run-time error 5.
  void DeleteObject(std::int32_t handle);

  /// Writes as `Print` does, with the top left corner at a pixel.
  void TextOut(std::int32_t x, std::int32_t y, std::string_view text);

  // ---- Forms ----------------------------------------------------------------------------------------------

  const std::string& Caption() const { return form_.caption; }
  void setCaption(std::string_view caption);
  bool AutoRedraw() const { return form_.autoRedraw; }
  void setAutoRedraw(bool on);
  bool Visible() const { return form_.visible; }
  void setVisible(bool on);
  /// Place on the screen.
  double Left() const { return form_.left; }
  void setLeft(double left);
  double Top() const { return form_.top; }
  void setTop(double top);
  /// Outer size of a form. It takes the nearest size whose drawing area has whole nominal pixels, at least
  /// one; the picture is lost. Printable size of a printer's page, which cannot be set.
  double Width();
  double Height();
  void setWidth(double width);
  void setHeight(double height);
  /// Clears the picture to `BackColor`, whatever the clip region, which stays in force.
  void Cls();
  /// Shows what has been drawn so far.
  void Refresh();
  void Hide() { setVisible(false); }
  void Show() { setVisible(true); }
  /// The picture that the form shows.
  Picture Image() { return sink_.image(); }

  // ---- Printers -------------------------------------------------------------------------------------------

  /// A `PaperOrientation`. Setting it turns the page and renews the scale in its mode.
  Int16 Orientation();
  void setOrientation(Int16 orientation);
  /// Dots per inch.
  double Resolution() const;
  /// A picture in its natural size with its top left corner at the point.
  void PaintPicture(const Picture& picture, double x, double y);
  /// Ends the document and sends it. A printer that fails is run-time error 482.
  void EndDoc();
  /// Drops the document that has not ended. Never fails.
  void KillDoc() { sink_.dropDocument(); }

 protected:
  /// The sink has forgotten: the next primitive announces pen and filling again.
  void forgetAnnounced();

 private:
  struct Settings {
    Colour foreColor = kBlack;
    Colour backColor = kWhite;
    Colour fillColor = kBlack;
    Int16 fillStyle = kFillTransparent;
    Int16 drawStyle = kDrawSolid;
    int drawWidth = 1;
    std::string fontName = "Arial";
    double fontSize = 8;
    bool fontTransparent = true;
    double currentX = 0;
    double currentY = 0;
  };
  struct Scale {
    Int16 mode = kScaleTwips;
    double width = 0, height = 0, left = 0, top = 0;
  };
  struct FormState {
    std::string caption;
    bool autoRedraw = false;
    bool visible = false;
    double left = 0;
    double top = 0;
  };

  void setArea(const SheetSize& area);
  void turnPage();
  void clearPicture();
  void resizeForm(const SheetSize& area);
  template <class Value>
  void changeForm(Value& setting, const Value& value);
  void requireForm() const;
  void requirePrinter() const;
  std::pair<TwipPoint, TwipPoint> drawnCorners(const TwipPoint& a, const TwipPoint& b) const;
  void announcePen();
  void announceFilling();
  void drawPath(bool fill, bool stroke);
  void writeText(const TwipPoint& place, std::string_view text);

  DrawingSink& sink_;
  LetterMetrics& letters_;
  std::optional<Pen> pen_;  ///< what the sink was told last
  std::optional<Filling> filling_;
  bool isForm_;
  FormMetrics formMetrics_;
  PrinterMetrics printer_;
  double twipsPerPixel_ = kNominalTwipsPerPixel;
  SheetSize area_;
  Settings settings_;
  Scale scale_;
  FormState form_;
  Int16 orientation_ = 1;
  std::vector<PixelPoint> path_;
  bool pathOpen_ = false;
  std::map<std::int32_t, PixelRect> regions_;
  std::map<std::int32_t, FontRecord> fonts_;
  std::int32_t lastHandle_ = 0;
  std::int32_t selectedRegion_ = 0;
  std::int32_t selectedFont_ = 0;
};

}  // namespace vk
