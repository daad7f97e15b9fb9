#include "ui/qt/QtPrinter.h"

#include <QPageLayout>
#include <QPrinterInfo>

#include "base/RuntimeError.h"
#include "ui/qt/Fonts.h"
#include "ui/qt/GridPainter.h"
#include "ui/qt/Text8.h"
#include "ui/qt/Twips.h"

namespace vk {
namespace {

constexpr double kTwipsOfPoint = 20;
constexpr double kTwipsOfInch = 1440;
constexpr double kMarginPoints = 12;  // 1/6 inch
constexpr double kLineSpacing = 1.2;

std::vector<std::string> textLines(const std::string& text) {
  std::vector<std::string> lines(1);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n' || text[i] == '\r') {
      if (text.compare(i, 2, "\r\n") == 0) ++i;
      lines.emplace_back();
    } else {
      lines.back() += text[i];
    }
  }
  if (lines.back().empty()) lines.pop_back();
  return lines;
}

/// A font in twips, for a painter whose units are twips.
QFont twipFont(const std::string& face, double points) {
  QFont font = toolkitFont({face, 10, 255});
  font.setPixelSize(static_cast<int>(points * kTwipsOfPoint));
  return font;
}

}  // namespace

QtPrinter::~QtPrinter() = default;

bool QtPrinter::present() {
  return usePrinters_ && !QPrinterInfo::defaultPrinter().isNull();
}

QPrinter& QtPrinter::printer() {
  if (!printer_) {
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (!present()) printer_->setOutputFormat(QPrinter::PdfFormat);
    if (!present()) printer_->setPageSize(QPageSize(QPageSize::A4));
    printer_->setPageMargins(QMarginsF(kMarginPoints, kMarginPoints, kMarginPoints, kMarginPoints),
                             QPageLayout::Point);
    setOrientation(orientation_);
  }
  return *printer_;
}

void QtPrinter::setOrientation(Int16 orientation) {
  orientation_ = orientation;
  if (!printer_) return;
  printer_->setPageOrientation(orientation == kLandscape ? QPageLayout::Landscape : QPageLayout::Portrait);
}

double QtPrinter::Width() {
  return printer().pageLayout().paintRect(QPageLayout::Point).width() * kTwipsOfPoint;
}

double QtPrinter::Height() {
  return printer().pageLayout().paintRect(QPageLayout::Point).height() * kTwipsOfPoint;
}

double QtPrinter::resolution() {
  return printer().resolution();
}

bool QtPrinter::mayReplace(const std::string& caption, const std::string& name) {
  return dialogs_.Get_Msg({.caption = caption,
                           .text = "Il File: " + name + " Esiste: lo Sostituisco?",
                           .icon = kQuestion,
                           .captions = {"  &Si  ", "  &No  "}}) == 1;
}

bool QtPrinter::wantsOtherName(const std::string& caption, const std::string& name) {
  return dialogs_.Get_Msg({.caption = caption,
                           .text = "Specificazione File: " + name + " ERRATA!",
                           .icon = kExclamation,
                           .captions = {"&Riprova", "&Continua"}}) == 1;
}

bool QtPrinter::askForFile() {
  FileRequest request{.save = true, .caption = "VOR_KEL: Stampa su File PDF"};
  request.folder = files_.documentsFolder();
  request.filter = "Tutti i File (*.*)|*.*|File PDF (*.pdf)|*.pdf|";
  request.filterIndex = 2;
  request.defaultExtension = "pdf";
  while (const std::optional<std::string> name = dialogs_.fileDialog(request)) {
    if (!files_.canWrite(*name)) {
      if (!wantsOtherName(request.caption, *name)) return false;
    } else if (!files_.FileExists(*name) || mayReplace(request.caption, *name)) {
      printer().setOutputFileName(fromFileName(*name));
      return true;
    }
  }
  return false;
}

void QtPrinter::begin() {
  if (printer().outputFormat() == QPrinter::PdfFormat && !askForFile()) {
    discarded_ = true;
    return;
  }
  painter_ = std::make_unique<QPainter>();
  if (!painter_->begin(&printer())) {
    painter_.reset();
    throw RuntimeError(kPrinterError);
  }
  scaleToTwips();
}

void QtPrinter::scaleToTwips() {
  painter_->resetTransform();
  painter_->scale(printer().resolution() / kTwipsOfInch, printer().resolution() / kTwipsOfInch);
}

QPainter* QtPrinter::page() {
  if (!painter_ && !discarded_) begin();
  return painter_.get();
}

void QtPrinter::newPage() {
  if (!painter_) return;
  if (!printer().newPage()) throw RuntimeError(kPrinterError);
  scaleToTwips();
}

void QtPrinter::printGrid(const CharGrid& grid, const GridPlace& place) {
  QPainter* painter = page();
  if (painter == nullptr) return;
  const CellSize cell{static_cast<int>(place.cellWidth), static_cast<int>(place.cellHeight)};
  GridPainter(*painter, twipFont(place.face, place.points), cell, 1)
      .grid(grid, place.left, place.top, kPaperWhite);
}

void QtPrinter::printText(const std::string& text, const std::string& face, double points) {
  QPainter* painter = page();
  if (painter == nullptr) return;
  painter->setFont(twipFont(face, points));
  const double lineHeight = kLineSpacing * points * kTwipsOfPoint;
  double y = 0;
  for (const std::string& line : textLines(text)) {
    if (y + lineHeight > Height()) {
      newPage();
      y = 0;
    }
    painter->drawText(QPointF(0, y + points * kTwipsOfPoint), fromCp437(line));
    y += lineHeight;
  }
}

void QtPrinter::EndDoc() {
  const bool failed = painter_ && (!painter_->end() || printer().printerState() == QPrinter::Error);
  painter_.reset();
  discarded_ = false;
  if (failed) throw RuntimeError(kPrinterError);
}

}  // namespace vk
