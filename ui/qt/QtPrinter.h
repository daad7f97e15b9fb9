#pragma once

#include <QPainter>
#include <QPrinter>
#include <memory>

#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Printer.h"

namespace vk {

/// The default printer of the system. Without one a document becomes a PDF file: its name is asked when the
/// document begins, and a user who gives none prints nothing.
class QtPrinter : public Printer {
 public:
  /// Without `usePrinters` every document becomes a file, whatever printers there are.
  QtPrinter(Files& files, Dialogs& dialogs, bool usePrinters = true)
      : files_(files), dialogs_(dialogs), usePrinters_(usePrinters) {}
  ~QtPrinter() override;

  bool present() override;
  Int16 Orientation() override { return orientation_; }
  void setOrientation(Int16 orientation) override;
  double Width() override;
  double Height() override;
  /// Dots per inch.
  double resolution();
  void printText(const std::string& text, const std::string& face, double points) override;
  void printGrid(const CharGrid& grid, const GridPlace& place) override;
  void EndDoc() override;

  /// The painter of the present page, in twips; begins a document where none has begun. None when the user
  /// gave no name. Run-time error 482 when the printer fails.
  QPainter* page();
  /// Goes to the next page of the document.
  void newPage();

 private:
  QPrinter& printer();
  bool askForFile();
  bool mayReplace(const std::string& caption, const std::string& name);
  bool wantsOtherName(const std::string& caption, const std::string& name);
  void begin();
  void scaleToTwips();

  Files& files_;
  Dialogs& dialogs_;
  bool usePrinters_;
  std::unique_ptr<QPrinter> printer_;
  std::unique_ptr<QPainter> painter_;
  bool discarded_ = false;  ///< the user gave no name: the rest of the document goes nowhere
  Int16 orientation_ = kPortrait;
};

}  // namespace vk
