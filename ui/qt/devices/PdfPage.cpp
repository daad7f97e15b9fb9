#include "ui/qt/devices/PdfPage.h"

#include <QCoreApplication>
#include <QLibrary>
#include <QPageSize>

#include "base/RuntimeError.h"
#include "gral/sinks/PdfContent.h"

namespace vk {
namespace {

/// From so many figures on it is worth to write them beside the toolkit.
constexpr std::size_t kVeryMany = 1000;

}  // namespace

QString PdfPage::joiningLibrary() {
  return QCoreApplication::applicationDirPath() + QStringLiteral("/../lib/vor_kel/vor_pdf_pages");
}

PdfPage::PdfPage(const SheetSize& size, int pixelRatio, QtLetters& letters, const QString& library)
    : pixelRatio_(pixelRatio), library_(library) {
  buffer_.open(QIODevice::WriteOnly);
  writer_.setCreator(QStringLiteral("Vor_Kel"));
  writer_.setResolution(static_cast<int>(kTwipsPerInch));
  writer_.setPageMargins(QMarginsF(0, 0, 0, 0));
  const QSizeF points(size.width / kTwipsPerPoint, size.height / kTwipsPerPoint);
  writer_.setPageSize(QPageSize(points, QPageSize::Point, QString(), QPageSize::ExactMatch));
  if (!painter_.begin(&writer_)) throw RuntimeError(kDeviceIoError);
  painted_.emplace(painter_, letters, kNominalTwipsPerPixel / pixelRatio, kNominalTwipsPerPixel);
}

std::string PdfPage::document() {
  drawWaiting();
  painted_.reset();
  painter_.end();
  if (drawn_.layers.empty()) return bytes_.toStdString();
  drawn_.file = {bytes_.constData(), static_cast<std::size_t>(bytes_.size())};
  std::string result;
  layOver_(drawn_, result);
  return result;
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
  drawn_.layers.push_back(content.operators());
  for (std::string& object : content.objects()) drawn_.objects.push_back(std::move(object));
  painted_->flush();
  writer_.newPage();
  painted_->pen(pen_);
  painted_->filling(filling_);
}

}  // namespace vk
