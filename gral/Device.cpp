#include "gral/Device.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Rounding.h"

namespace vk {
namespace {

constexpr double kFirstFormWidth = 4800;
constexpr double kFirstFormHeight = 3600;

Int16 checkedStyle(Int16 style, int last) {
  if (style < 0 || style > last) throw RuntimeError(kInvalidCall);
  return style;
}

double wholeNominalPixels(double twips) {
  return std::max(1.0, roundHalfEven(twips / kNominalTwipsPerPixel)) * kNominalTwipsPerPixel;
}

}  // namespace

Device::Device(const FormMetrics& form) : isForm_(true), formMetrics_(form) {
  setArea(kFirstFormWidth, kFirstFormHeight);
}

Device::Device(const PrinterMetrics& printer) : isForm_(false) {
  setPrinter(printer);
}

void Device::setPrinter(const PrinterMetrics& printer) {
  requirePrinter();
  printer_ = printer;
  twipsPerPixel_ = kTwipsPerInch / printer.resolution;
  turnPage();
}

void Device::requireForm() const {
  if (!isForm_) throw RuntimeError(kInvalidCall);
}

void Device::requirePrinter() const {
  if (isForm_) throw RuntimeError(kInvalidCall);
}

// ---- Settings

void Device::setBackColor(Color color) {
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
    scale_ = {mode, areaWidth_, areaHeight_, 0, 0};
  } else {
    scale_ = {mode, static_cast<double>(pixelWidth()), static_cast<double>(pixelHeight()), 0, 0};
  }
}

void Device::setArea(double width, double height) {
  areaWidth_ = width;
  areaHeight_ = height;
  setScaleMode(scale_.mode);
}

int Device::pixelWidth() const {
  return static_cast<int>(roundHalfEven(areaWidth_ / twipsPerContextPixel()));
}

int Device::pixelHeight() const {
  return static_cast<int>(roundHalfEven(areaHeight_ / twipsPerContextPixel()));
}

// ---- Primitives

void Device::Polyline(std::span<const PixelPoint> points) {
  if (pathOpen_) {
    path_.insert(path_.end(), points.begin(), points.end());
  } else if (points.size() > 1) {
    drawPolyline(points);
  }
}

void Device::BeginPath() {
  path_.clear();
  pathOpen_ = true;
}

void Device::drawPath(bool fill, bool stroke) {
  pathOpen_ = false;
  if (!path_.empty()) drawFigure(path_, fill, stroke);
  path_.clear();
}

std::int32_t Device::CreateRectRgn(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2) {
  regions_[++lastHandle_] = {x1, y1, x2, y2};
  return lastHandle_;
}

void Device::SelectClipRgn(std::int32_t region) {
  const auto found = regions_.find(region);
  if (found == regions_.end()) throw RuntimeError(kInvalidCall);
  selectedRegion_ = region;
  clipTo(&found->second);
}

std::int32_t Device::CreateFontIndirect(const FontRecord& record) {
  fonts_[++lastHandle_] = record;
  return lastHandle_;
}

std::int32_t Device::SelectObject(std::int32_t font) {
  if (font != 0 && !fonts_.contains(font)) throw RuntimeError(kInvalidCall);
  return std::exchange(selectedFont_, font);
}

const FontRecord* Device::selectedFont() const {
  return selectedFont_ == 0 ? nullptr : &fonts_.at(selectedFont_);
}

void Device::DeleteObject(std::int32_t handle) {
  if (regions_.erase(handle) + fonts_.erase(handle) == 0) throw RuntimeError(kInvalidCall);
  if (handle == selectedFont_) selectedFont_ = 0;
  if (handle == selectedRegion_) {
    selectedRegion_ = 0;
    clipTo(nullptr);
  }
}

void Device::Print(std::string_view text) {
  writeText(settings_.currentX, settings_.currentY, text);
}

void Device::TextOut(std::int32_t x, std::int32_t y, std::string_view text) {
  writeText(x * twipsPerContextPixel(), y * twipsPerContextPixel(), text);
}

void Device::writeText(double x, double y, std::string_view text) {
  TextRun run{x, y, settings_.fontSize, 0, settings_.fontName, std::string(text)};
  if (const FontRecord* font = selectedFont()) {
    run.points = std::abs(static_cast<double>(font->height)) * twipsPerPixel_ / kTwipsPerPoint;
    run.angle = font->escapement / 10.0;
    run.fontName = font->faceName.data();
  }
  drawText(run);
}

// ---- Forms

void Device::setCaption(std::string_view caption) {
  requireForm();
  form_.caption = caption;
  formChanged();
}

void Device::setAutoRedraw(bool on) {
  requireForm();
  form_.autoRedraw = on;
}

void Device::setVisible(bool on) {
  requireForm();
  form_.visible = on;
  formChanged();
}

void Device::setLeft(double left) {
  requireForm();
  form_.left = left;
  formChanged();
}

void Device::setTop(double top) {
  requireForm();
  form_.top = top;
  formChanged();
}

double Device::Width() {
  return areaWidth_ + formMetrics_.frameWidth;
}

double Device::Height() {
  return areaHeight_ + formMetrics_.frameHeight;
}

void Device::setWidth(double width) {
  requireForm();
  resizeForm(width - formMetrics_.frameWidth, areaHeight_);
}

void Device::setHeight(double height) {
  requireForm();
  resizeForm(areaWidth_, height - formMetrics_.frameHeight);
}

void Device::resizeForm(double clientWidth, double clientHeight) {
  setArea(wholeNominalPixels(clientWidth), wholeNominalPixels(clientHeight));
  clearPicture();
  formChanged();
}

void Device::Cls() {
  requireForm();
  clearPicture();
}

void Device::clearPicture() {
  cleared();
  if (selectedRegion_ != 0) clipTo(&regions_.at(selectedRegion_));
}

void Device::Refresh() {
  requireForm();
  refreshed();
}

Picture Device::Image() {
  throw RuntimeError(kInvalidCall);
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
  orientationChanged();
}

void Device::turnPage() {
  if (orientation_ == kLandscape) {
    setArea(printer_.longSide, printer_.shortSide);
  } else {
    setArea(printer_.shortSide, printer_.longSide);
  }
}

double Device::Resolution() const {
  requirePrinter();
  return printer_.resolution;
}

void Device::PaintPicture(const Picture&, double, double) {
  throw RuntimeError(kInvalidCall);
}

void Device::EndDoc() {
  throw RuntimeError(kInvalidCall);
}

}  // namespace vk
