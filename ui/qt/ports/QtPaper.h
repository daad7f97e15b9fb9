#pragma once

#include "ui/qt/devices/PrinterDevice.h"
#include "ui/qt/ports/QtPrinter.h"

namespace vk {

/// The paper of the system's printer, for figures.
class QtPaper : public Paper {
 public:
  explicit QtPaper(QtPrinter& printer) : printer_(printer) {}

  PrinterMetrics metrics() override;
  void setOrientation(Int16 orientation) override { printer_.setOrientation(orientation); }
  QPainter* page() override { return printer_.page(); }
  void EndDoc() override { printer_.EndDoc(); }
  void KillDoc() override { printer_.KillDoc(); }

 private:
  QtPrinter& printer_;
};

}  // namespace vk
