#include "ui/qt/devices/PrinterDevice.h"

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>

#include "base/RuntimeError.h"
#include "gral/sinks/FloodPictures.h"
#include "ui/qt/devices/PainterSink.h"

namespace vk {
namespace {

constexpr double kMarginPoints = 12;
constexpr int kPdfResolution = 1440;

}  // namespace

PrinterDevice::PrinterDevice(Paper& paper, QtLetters& letters)
    : Device(paper.metrics(), *this, letters), paper_(paper), fonts_(letters) {}

void PrinterDevice::endDocument() {
  if (empty()) return;
  try {
    print();
    paper_.EndDoc();
  } catch (...) {
    dropDocument();
    throw;
  }
  forgetDrawing();
}

void PrinterDevice::print() {
  QPainter* painter = paper_.page();
  if (painter == nullptr) return;
  PainterSink sink(*painter, fonts_, twipsPerContextPixel(), twipsPerContextPixel());
  const double unit = twipsPerContextPixel() / kNominalTwipsPerPixel;
  replayAsVectors(*this, sink, fonts_, {1 / unit, unit}, area());
}

void PrinterDevice::dropDocument() {
  paper_.KillDoc();
  forgetDrawing();
}

void PrinterDevice::forgetDrawing() {
  reset();
  forgetAnnounced();
}

struct PdfPaper::Writer {
  QBuffer buffer;
  QPdfWriter pdf{&buffer};
  QPainter painter;
};

PdfPaper::PdfPaper() = default;
PdfPaper::~PdfPaper() = default;

PrinterMetrics PdfPaper::metrics() {
  return {kA4ShortSide, kA4LongSide, kPdfResolution};
}

void PdfPaper::setOrientation(Int16 orientation) {
  orientation_ = orientation;
}

QPainter* PdfPaper::page() {
  if (writer_) return &writer_->painter;
  writer_ = std::make_unique<Writer>();
  writer_->buffer.open(QIODevice::WriteOnly);
  QPdfWriter& pdf = writer_->pdf;
  pdf.setCreator(QStringLiteral("Vor_Kel"));
  pdf.setResolution(kPdfResolution);
  pdf.setPageSize(QPageSize(QPageSize::A4));
  pdf.setPageOrientation(orientation_ == kLandscape ? QPageLayout::Landscape : QPageLayout::Portrait);
  pdf.setPageMargins(QMarginsF(kMarginPoints, kMarginPoints, kMarginPoints, kMarginPoints),
                     QPageLayout::Point);
  if (!writer_->painter.begin(&pdf)) throw RuntimeError(kPrinterError);
  return &writer_->painter;
}

void PdfPaper::EndDoc() {
  if (!writer_) return;
  writer_->painter.end();
  document_ = writer_->buffer.data().toStdString();
  writer_.reset();
}

void PdfPaper::KillDoc() {
  writer_.reset();
}

}  // namespace vk
