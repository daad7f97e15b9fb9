#include "ui/qt/ports/QtPrinter.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPdfWriter>
#include <QPrinterInfo>

#include "base/RuntimeError.h"
#include "ui/qt/widgets/Fonts.h"
#include "ui/qt/widgets/GridPainter.h"
#include "ui/qt/widgets/TextConversion.h"
#include "ui/qt/widgets/Twips.h"

namespace vk {
namespace {

constexpr double kMarginPoints = 12;  // 1/6 inch
constexpr double kLineSpacing = 1.2;
constexpr int kPdfResolution = 1200;
constexpr const char* kPdfCaption = "VOR_KEL: Stampa su File PDF";
constexpr const char* kPdfFilter = "File PDF (*.pdf)|*.pdf|";
constexpr const char* kNamedFile = "Il File: ";

std::vector<std::string> textLines(std::string_view text) {
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
  QFont font = toolkitFont({face, 10});
  font.setPixelSize(static_cast<int>(points * kTwipsPerPoint));
  return font;
}

}  // namespace

/// A document on its way to a file.
struct QtPrinter::Pdf {
  QBuffer bytes;
  QPdfWriter writer{&bytes};

  Pdf() {
    bytes.open(QIODevice::WriteOnly);
    writer.setCreator("Vor_Kel");
    writer.setResolution(kPdfResolution);
    writer.setPageSize(QPageSize(QPageSize::A4));
  }
};

bool systemHasPrinter() {
  return !QPrinterInfo::defaultPrinter().isNull();
}

QtPrinter::QtPrinter(Files& files, Dialogs& dialogs, std::function<bool()> hasPrinter)
    : files_(files), dialogs_(dialogs), hasPrinter_(std::move(hasPrinter)) {}

QtPrinter::~QtPrinter() = default;

QPagedPaintDevice& QtPrinter::paper() {
  if (printer_) return *printer_;
  if (pdf_) return pdf_->writer;
  if (present()) {
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
  } else {
    pdf_ = std::make_unique<Pdf>();
  }
  paper().setPageMargins(QMarginsF(kMarginPoints, kMarginPoints, kMarginPoints, kMarginPoints),
                         QPageLayout::Point);
  setOrientation(orientation_);
  return paper();
}

void QtPrinter::setOrientation(Int16 orientation) {
  orientation_ = orientation;
  if (!printer_ && !pdf_) return;
  paper().setPageOrientation(orientation == kLandscape ? QPageLayout::Landscape : QPageLayout::Portrait);
}

Twips QtPrinter::Width() {
  return toTwips(PointSize(paper().pageLayout().paintRect(QPageLayout::Point).width()));
}

Twips QtPrinter::Height() {
  return toTwips(PointSize(paper().pageLayout().paintRect(QPageLayout::Point).height()));
}

double QtPrinter::resolution() {
  return paper().logicalDpiX();
}

bool QtPrinter::mayReplace(const std::string& name) {
  return dialogs_.Get_Msg({.caption = kPdfCaption,
                           .text = kNamedFile + WindowText(name) + " Esiste: lo Sostituisco?",
                           .icon = kQuestion,
                           .captions = {kWideYesButton, kWideNoButton}}) == 1;
}

bool QtPrinter::wantsOtherName(const WindowText& text) {
  return dialogs_.Get_Msg({.caption = kPdfCaption,
                           .text = text,
                           .icon = kExclamation,
                           .captions = {kRetryButton, kContinueButton}}) == 1;
}

FileRequest QtPrinter::fileRequest() {
  const std::string proposal = proposal_ ? proposal_() : std::string();
  const std::string name = GetFileName(proposal);
  FileRequest request{.save = true, .caption = kPdfCaption};
  request.folder = folder_.value_or(proposal.empty() ? files_.documentsFolder() : folderOf(proposal));
  request.filter = WindowText(kAllFilesFilter) + kPdfFilter;
  request.filterIndex = 2;
  request.proposedName = name;
  request.defaultExtension = "pdf";
  return request;
}

bool QtPrinter::askForFile() {
  while (const std::optional<std::string> name = dialogs_.fileDialog(fileRequest())) {
    if (!files_.canWrite(*name)) {
      if (!wantsOtherName(kWrongName[0] + WindowText(*name) + kWrongName[1])) return false;
    } else if (!files_.FileExists(*name) || mayReplace(*name)) {
      fileName_ = *name;
      folder_ = folderOf(*name);
      return true;
    }
  }
  return false;
}

/// The toolkit prints on a printer that nobody knows any more without a word.
bool QtPrinter::isGone() {
  return printer_ && (!present() || QPrinterInfo::printerInfo(printer_->printerName()).isNull());
}

void QtPrinter::begin() {
  QPagedPaintDevice& sheets = paper();
  if (pdf_ && !askForFile()) {
    discarded_ = true;
    return;
  }
  painter_ = std::make_unique<QPainter>();
  if (isGone() || !painter_->begin(&sheets)) {
    dropPaper();
    throw RuntimeError(kPrinterError);
  }
  scaleToTwips();
}

void QtPrinter::dropPaper() {
  painter_.reset();
  printer_.reset();
  pdf_.reset();
}

void QtPrinter::scaleToTwips() {
  painter_->resetTransform();
  painter_->scale(resolution() / kTwipsPerInch, resolution() / kTwipsPerInch);
}

QPainter* QtPrinter::page() {
  if (!painter_ && !discarded_) begin();
  return painter_.get();
}

void QtPrinter::newPage() {
  if (!painter_) return;
  if (!paper().newPage()) {
    KillDoc();
    throw RuntimeError(kPrinterError);
  }
  scaleToTwips();
}

void QtPrinter::printGrid(const CharGrid& grid, const GridPlace& place) {
  QPainter* painter = page();
  if (painter == nullptr) return;
  const CellSize cell{static_cast<int>(place.cellWidth), static_cast<int>(place.cellHeight)};
  GridPainter(*painter, twipFont(place.face, place.points), cell, 1)
      .grid(grid, place.left, place.top, kWhite);
}

void QtPrinter::printText(const PlainText& text, const std::string& face, double points) {
  QPainter* painter = page();
  if (painter == nullptr) return;
  painter->setFont(twipFont(face, points));
  const double lineHeight = kLineSpacing * points * kTwipsPerPoint;
  double y = 0;
  for (const std::string& line : textLines(text.bytes())) {
    if (y + lineHeight > Height().value()) {
      newPage();
      y = 0;
    }
    painter->drawText(QPointF(0, y + points * kTwipsPerPoint),
                      text.isUtf8() ? QString::fromStdString(line) : fromText(Cp437Text(line)));
    y += lineHeight;
  }
}

void QtPrinter::KillDoc() {
  discarded_ = false;
  if (!painter_) return;
  if (!pdf_) printer_->abort();
  painter_->end();
  dropPaper();
}

void QtPrinter::EndDoc() {
  discarded_ = false;
  if (!painter_) return;
  const bool failed =
      !painter_->end() || isGone() || (printer_ && printer_->printerState() == QPrinter::Error);
  const std::optional<std::string> document =
      pdf_ && !failed ? std::optional(pdf_->bytes.data().toStdString()) : std::nullopt;
  dropPaper();
  if (failed) throw RuntimeError(kPrinterError);
  if (document) writeFile(*document);
}

void QtPrinter::writeFile(const std::string& document) {
  while (true) {
    try {
      return files_.writeAll(fileName_, document);
    } catch (const RuntimeError& error) {
      const WindowText reason =
          error.number() == kDeviceIoError ? "Disco Pieno" : WindowText(runtimeErrorText(error.number()));
      if (!wantsOtherName(kNamedFile + WindowText(fileName_) + " NON e` stato Scritto: " + reason + "!"))
        return;
    }
    if (!askForFile()) return;
  }
}

}  // namespace vk
