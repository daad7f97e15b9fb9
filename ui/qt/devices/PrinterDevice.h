#pragma once

#include "gral/Device.h"
#include "gral/sinks/DisplayList.h"
#include "ui/qt/devices/QtLetters.h"

class QPainter;

namespace vk {

/// The paper that a printer's figures end up on.
class Paper {
 public:
  virtual ~Paper() = default;
  /// Printable area and resolution.
  virtual PrinterMetrics metrics() = 0;
  /// 1 portrait, 2 landscape, for the document that has not begun.
  virtual void setOrientation(Int16 orientation) = 0;
  /// The painter of a page, in twips; a document begins. None when the user wants no document. A printer that
  /// fails is run-time error 482.
  virtual QPainter* page() = 0;
  virtual void EndDoc() = 0;
  /// Drops the document that has not ended.
  virtual void KillDoc() = 0;
};

/// The printer as a device. A figure goes out as vectors when its document ends.
class PrinterDevice : private DisplayList, public Device {
 public:
  /// Paper and letters must outlive the device.
  PrinterDevice(Paper& paper, QtLetters& letters);

 private:
  void turned(Int16 orientation) override { paper_.setOrientation(orientation); }
  void endDocument() override;
  void dropDocument() override;
  void print();
  void forgetDrawing();

  Paper& paper_;
  QtLetters& fonts_;
};

/// Paper that becomes a PDF file of A4 pages.
class PdfPaper : public Paper {
 public:
  PdfPaper();
  ~PdfPaper() override;

  PrinterMetrics metrics() override;
  void setOrientation(Int16 orientation) override;
  QPainter* page() override;
  void EndDoc() override;
  void KillDoc() override;

  /// The last document that was ended; empty before.
  const std::string& document() const { return document_; }

 private:
  struct Writer;
  std::unique_ptr<Writer> writer_;
  Int16 orientation_ = 1;
  std::string document_;
};

}  // namespace vk
