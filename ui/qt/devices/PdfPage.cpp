#include "ui/qt/devices/PdfPage.h"

#include <QPageSize>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>

#include "base/RuntimeError.h"
#include "gral/sinks/PdfContent.h"

namespace vk {
namespace {

/// From so many figures on it is worth to write them beside the toolkit.
constexpr std::size_t kVeryMany = 1000;
/// More packing takes five times as long for a tenth of the size.
constexpr int kFastPacking = 1;

QPDFObjectHandle streamOf(QPDF& file, const std::string& content) {
  constexpr qsizetype kLengthBefore = 4;  // which the toolkit puts before what it packs
  const QByteArray packed = qCompress(reinterpret_cast<const uchar*>(content.data()),
                                      static_cast<qsizetype>(content.size()), kFastPacking);
  QPDFObjectHandle stream = file.newStream();
  stream.replaceStreamData(packed.mid(kLengthBefore).toStdString(), QPDFObjectHandle::newName("/FlateDecode"),
                           QPDFObjectHandle::newNull());
  return stream;
}

QPDFObjectHandle objectOf(QPDF& file, const std::string& content) {
  constexpr double kReach = PdfContent::kObjectReach;
  QPDFObjectHandle object = streamOf(file, content), dictionary = object.getDict();
  dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/XObject"));
  dictionary.replaceKey("/Subtype", QPDFObjectHandle::newName("/Form"));
  dictionary.replaceKey(
      "/BBox", QPDFObjectHandle::newArray(QPDFObjectHandle::Rectangle(-kReach, -kReach, kReach, kReach)));
  return object;
}

}  // namespace

PdfPage::PdfPage(const SheetSize& size, int pixelRatio, QtLetters& letters) : pixelRatio_(pixelRatio) {
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
  return layers_.empty() ? bytes_.toStdString() : laidOver();
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
  if (waiting_.size() < kVeryMany || hatched_) {
    waiting_.replay(*painted_);
  } else {
    drawBeside();
  }
  waiting_.reset();
  hatched_ = filling_.style > kFillTransparent;
  penBefore_ = pen_;
  fillingBefore_ = filling_;
}

void PdfPage::drawBeside() {
  PdfContent content(pixelRatio_, objects_.size());
  content.clip(clip_ ? &*clip_ : nullptr);
  content.pen(penBefore_);
  content.filling(fillingBefore_);
  waiting_.replay(content);
  layers_.push_back(content.operators());
  for (std::string& object : content.objects()) objects_.push_back(std::move(object));
  writer_.newPage();
  painted_->pen(pen_);
  painted_->filling(filling_);
}

// ---- The file

/// The content of the toolkit's pages and the layers in turn, as one page. A page leaves its unit in force for the
/// layer behind it.
std::string PdfPage::laidOver() {
  QPDF file;
  file.processMemoryFile("figure", bytes_.constData(), static_cast<std::size_t>(bytes_.size()));
  std::vector<QPDFObjectHandle> pages = file.getAllPages();
  QPDFObjectHandle page = pages.front(), content = QPDFObjectHandle::newArray();
  QPDFObjectHandle resources = page.getKey("/Resources");
  content.appendItem(streamOf(file, "q\n"));
  for (std::size_t i = 0; i < pages.size(); ++i) {
    content.appendItem(pages[i].getKey("/Contents"));
    content.appendItem(streamOf(file, i < layers_.size() ? layers_[i] + "Q q\n" : "Q\n"));
    if (i == 0) continue;
    resources.mergeResources(pages[i].getKey("/Resources"));
    file.removePage(pages[i]);
  }
  for (std::size_t i = 0; i < objects_.size(); ++i) {
    resources.getKey("/XObject").replaceKey(PdfContent::objectName(i), objectOf(file, objects_[i]));
  }
  page.replaceKey("/Contents", content);
  QPDFWriter writer(file);
  writer.setOutputMemory();
  writer.setStreamDataMode(qpdf_s_preserve);
  writer.write();
  const auto result = writer.getBufferSharedPointer();
  return {reinterpret_cast<const char*>(result->getBuffer()), result->getSize()};
}

}  // namespace vk
