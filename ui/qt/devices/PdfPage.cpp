#include "ui/qt/devices/PdfPage.h"

#include <QCoreApplication>
#include <QLibrary>
#include <QPageSize>
#include <cmath>
#include <utility>

#include "base/NumberText.h"
#include "base/RuntimeError.h"
#include "gral/sinks/PdfContent.h"
#include "gral/sinks/PdfFile.h"
#include "gral/sinks/SvgMarkup.h"

namespace vk {
namespace {

/// From so many figures on it is worth to write them beside the toolkit.
constexpr std::size_t kVeryMany = 1000;

/// The toolkit has pages of whole points: on one that is asked for, the drawing is cut behind them.
QSizeF pointsOf(const FigureSheet& sheet, const SheetSize& size) {
  const QSizeF points(size.width / kTwipsPerPoint, size.height / kTwipsPerPoint);
  return sheet.sized() ? QSizeF(std::ceil(points.width()), std::ceil(points.height())) : points;
}

}  // namespace

QString PdfPage::joiningLibrary() {
  return QCoreApplication::applicationDirPath() + QStringLiteral("/../lib/vor_kel/vor_pdf_pages");
}

PdfPage::PdfPage(const SheetSize& drawing, int pixelRatio, QtLetters& letters, const FigureSheet& sheet,
                 const QString& library)
    : sheet_(sheet), place_(sheet.placeFor(drawing)), pixelRatio_(pixelRatio), library_(library) {
  buffer_.open(QIODevice::WriteOnly);
  writer_.setCreator(QStringLiteral("Vor_Kel"));
  writer_.setResolution(static_cast<int>(kTwipsPerInch));
  writer_.setPageMargins(QMarginsF(0, 0, 0, 0));
  writer_.setPageSize(
      QPageSize(pointsOf(sheet, place_.sheet), QPageSize::Point, QString(), QPageSize::ExactMatch));
  if (!painter_.begin(&writer_)) throw RuntimeError(kDeviceIoError);
  painter_.translate(place_.corner.x, place_.corner.y);
  painter_.scale(place_.scale, place_.scale);
  painted_.emplace(painter_, letters, kNominalTwipsPerPixel / pixelRatio, kNominalTwipsPerPixel);
  if (sheet.transparent) painted_->keepGround();
}

std::string PdfPage::document() {
  drawWaiting();
  painted_.reset();
  painter_.end();
  std::string file = bytes_.toStdString();
  dropCreationDate(file);
  if (!drawn_.layers.empty()) {
    const std::string pages = std::exchange(file, {});
    drawn_.file = pages;
    layOver_(drawn_, file);
  }
  return withSheet(std::move(file), sheet_);
}

// ---- Who draws what

/// The toolkit, for what it draws over all that came before.
DrawingSink& PdfPage::toolkit() {
  drawWaiting();
  return *painted_;
}

void PdfPage::clear(const SheetSize& size, Colour background) {
  clip_.reset();
  toolkit().clear(size, background);
}

void PdfPage::pen(const Pen& pen) {
  pen_ = pen;
  waiting_.pen(pen);
}

void PdfPage::filling(const Filling& filling) {
  filling_ = filling;
  hatched_ = hatched_ || filling.style > kFillTransparent;
  waiting_.filling(filling);
}

void PdfPage::clip(const PixelRect* region) {
  toolkit().clip(region);
  clip_.reset();
  if (region != nullptr) clip_ = *region;
}

void PdfPage::drawWaiting() {
  if (waiting_.size() >= kVeryMany && !hatched_ && canLayOver()) {
    drawBeside();
  } else {
    waiting_.replay(*painted_);
  }
  waiting_.reset();
  hatched_ = filling_.style > kFillTransparent;
  penBefore_ = pen_;
  fillingBefore_ = filling_;
}

bool PdfPage::canLayOver() {
  if (layOver_ == nullptr) layOver_ = reinterpret_cast<LayOver*>(QLibrary::resolve(library_, "layOver"));
  return layOver_ != nullptr;
}

void PdfPage::drawBeside() {
  PdfContent content(pixelRatio_, drawn_.objects.size());
  content.clip(clip_ ? &*clip_ : nullptr);
  content.pen(penBefore_);
  content.filling(fillingBefore_);
  waiting_.replay(content);
  const std::string scale = generalText(place_.scale);
  drawn_.layers.push_back(scale + " 0 0 " + scale + " " + svgNumber(place_.corner.x) + " " +
                          svgNumber(place_.corner.y) + " cm\n" + content.operators());
  for (std::string& object : content.objects()) drawn_.objects.push_back(std::move(object));
  painted_->flush();
  writer_.newPage();
  painted_->pen(pen_);
  painted_->filling(filling_);
}

}  // namespace vk
