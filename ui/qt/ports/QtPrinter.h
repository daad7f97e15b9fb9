#pragma once

#include <QPainter>
#include <QPrinter>
#include <functional>
#include <memory>
#include <optional>

#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Printer.h"

namespace vk {

/// Whether the system has a default printer.
bool systemHasPrinter();

/// The default printer of the system, looked for anew by each document. Without one a document becomes a PDF file:
/// its name is asked when the document begins, and a user who gives none prints nothing. The file is written as a
/// whole when the document ends; where that fails the user is told, and may give another name.
class QtPrinter : public Printer {
 public:
  /// `hasPrinter` is asked when a document begins and when it ends, as printers come and go.
  QtPrinter(Files& files, Dialogs& dialogs, std::function<bool()> hasPrinter = systemHasPrinter);
  ~QtPrinter() override;

  /// The full name that is proposed for the first file. Later ones are proposed in the folder of the last.
  void setProposal(std::function<std::string()> proposal) { proposal_ = std::move(proposal); }

  bool present() override { return hasPrinter_(); }
  Int16 Orientation() override { return orientation_; }
  void setOrientation(Int16 orientation) override;
  Twips Width() override;
  Twips Height() override;
  /// Dots per inch.
  double resolution();
  void printText(const PlainText& text, const std::string& face, double points) override;
  void printGrid(const CharGrid& grid, const GridPlace& place) override;
  void EndDoc() override;
  /// Drops the document that has not ended.
  void KillDoc();

  /// The painter of the present page, in twips; begins a document where none has begun. None when the user
  /// gave no name. Run-time error 482 when the printer fails.
  QPainter* page();
  /// Goes to the next page of the document.
  void newPage();

 private:
  struct Pdf;

  QPagedPaintDevice& paper();
  FileRequest fileRequest();
  bool askForFile();
  bool mayReplace(const std::string& name);
  bool wantsOtherName(const WindowText& text);
  bool isGone();
  void begin();
  void dropPaper();
  void scaleToTwips();
  void writeFile(const std::string& document);

  Files& files_;
  Dialogs& dialogs_;
  std::function<bool()> hasPrinter_;
  std::function<std::string()> proposal_;
  std::optional<std::string> folder_;  ///< of the last file that the user named
  std::string fileName_;               ///< of the document, where it becomes a file
  std::unique_ptr<QPrinter> printer_;
  std::unique_ptr<Pdf> pdf_;
  std::unique_ptr<QPainter> painter_;
  bool discarded_ = false;  ///< the user gave no name: the rest of the document goes nowhere
  Int16 orientation_ = kPortrait;
};

}  // namespace vk
