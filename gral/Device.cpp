#include "gral/Device.h"

#include <algorithm>

#include "base/Rounding.h"

namespace vk {
namespace {

constexpr SheetSize kFirstForm{4800, 3600};

Int16 checkedStyle(Int16 style, int last) {
  if (style < 0 || style > last) throw RuntimeError(kInvalidCall);
  return style;
}

double wholeNominalPixels(double twips) {
  return std::max(1.0, roundHalfEven(twips / kNominalTwipsPerPixel)) * kNominalTwipsPerPixel;
}

}  // namespace

Device::Device(const FormMetrics& form, DrawingSink& sink, LetterMetrics& letters)
    : sink_(sink), letters_(letters), isForm_(true), formMetrics_(form) {
  setArea(kFirstForm);
}

Device::Device(const PrinterMetrics& printer, DrawingSink& sink, LetterMetrics& letters)
    : sink_(sink),
      letters_(letters),
      isForm_(false),
      printer_(printer),
      twipsPerPixel_(kTwipsPerInch / printer.resolution) {
  turnPage();
}

void Device::requireForm() const {
  if (!isForm_) throw RuntimeError(kInvalidCall);
}

void Device::requirePrinter() const {
  if (isForm_) throw RuntimeError(kInvalidCall);
}

// ---- Settings

void Device::setBackColor(Colour color) {
  settings_.backColor = color;
  if (isForm_) clearPicture();
}

void Device::setFillStyle(Int16 style) {
  settings_.fillStyle = checkedStyle(style, kFillDiagonalCross);
}

void Device::setDrawStyle(Int16 style) {
  settings_.drawStyle = checkedStyle(style, kDrawInside);
}

void Device::setDrawWidth(double width) {
  const double least = std::max(1.0, width);
  settings_.drawWidth = isForm_ ? int{toInt16(least)} : toInt32(least);
}

void Device::setFontSize(double points) {
  if (points < 0) throw RuntimeError(kInvalidCall);
  settings_.fontSize = points;
}

// ---- The scale

void Device::setScaleMode(Int16 mode) {
  if (mode != kScaleTwips && mode != kScalePixels) throw RuntimeError(kInvalidCall);
  if (mode == kScaleTwips) {
    scale_ = {mode, area_.width, area_.height, 0, 0};
  } else {
    scale_ = {mode, static_cast<double>(pixelWidth()), static_cast<double>(pixelHeight()), 0, 0};
  }
}

void Device::setArea(const SheetSize& area) {
  area_ = area;
  setScaleMode(scale_.mode);
}

int Device::pixelWidth() const {
  return static_cast<int>(roundHalfEven(area_.width / twipsPerContextPixel()));
}

int Device::pixelHeight() const {
  return static_cast<int>(roundHalfEven(area_.height / twipsPerContextPixel()));
}

// ---- Forms

template <class Value>
void Device::changeForm(Value& setting, const Value& value) {
  requireForm();
  setting = value;
  sink_.formChanged();
}

void Device::setCaption(std::string_view caption) {
  changeForm(form_.caption, std::string(caption));
}

void Device::setAutoRedraw(bool on) {
  requireForm();
  form_.autoRedraw = on;
}

void Device::setVisible(bool on) {
  changeForm(form_.visible, on);
}

void Device::setLeft(double left) {
  changeForm(form_.left, left);
}

void Device::setTop(double top) {
  changeForm(form_.top, top);
}

double Device::Width() {
  return area_.width + formMetrics_.frame.width;
}

double Device::Height() {
  return area_.height + formMetrics_.frame.height;
}

void Device::setWidth(double width) {
  requireForm();
  resizeForm({width - formMetrics_.frame.width, area_.height});
}

void Device::setHeight(double height) {
  requireForm();
  resizeForm({area_.width, height - formMetrics_.frame.height});
}

void Device::resizeForm(const SheetSize& area) {
  setArea({wholeNominalPixels(area.width), wholeNominalPixels(area.height)});
  clearPicture();
  sink_.formChanged();
}

void Device::Cls() {
  requireForm();
  clearPicture();
}

void Device::clearPicture() {
  forgetAnnounced();
  sink_.clear(area_, settings_.backColor);
  if (selectedRegion_ != 0) sink_.clip(&regions_.at(selectedRegion_));
}

void Device::Refresh() {
  requireForm();
  sink_.refresh();
}

// ---- Printers

Int16 Device::Orientation() {
  requirePrinter();
  return orientation_;
}

void Device::setOrientation(Int16 orientation) {
  requirePrinter();
  if (orientation != kPortrait && orientation != kLandscape) throw RuntimeError(kInvalidCall);
  orientation_ = orientation;
  turnPage();
  sink_.turned(orientation);
}

void Device::turnPage() {
  SheetSize page{printer_.shortSide.value(), printer_.longSide.value()};
  if (orientation_ == kLandscape) std::swap(page.width, page.height);
  setArea(page);
}

double Device::Resolution() const {
  requirePrinter();
  return printer_.resolution;
}

void Device::PaintPicture(const Picture& picture, double x, double y) {
  requirePrinter();
  sink_.picture(picture, {x, y});
}

void Device::EndDoc() {
  requirePrinter();
  sink_.endDocument();
}

}  // namespace vk
