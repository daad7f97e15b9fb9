#pragma once

#include "gral/Device.h"
#include "gral/sinks/DisplayList.h"

namespace vk {

/// A form or a printer that writes down what is drawn on it. Its letters have fixed widths, so that the
/// same drawing gives the same lines everywhere.
class RecorderDevice : protected DisplayList, protected FixedLetterMetrics, public Device {
 public:
  explicit RecorderDevice(const FormMetrics& form = {}) : Device(form, *this, *this) {}
  explicit RecorderDevice(const PrinterMetrics& printer) : Device(printer, *this, *this) {}

  const DisplayList& list() const { return *this; }
  using DisplayList::lines;
  /// Forgets what was drawn so far; the settings stay.
  void forget() {
    reset();
    forgetAnnounced();
  }
  /// Number of documents ended.
  int documents() const { return documents_; }

 protected:
  void endDocument() override { ++documents_; }
  void dropDocument() override { forget(); }

 private:
  int documents_ = 0;
};

}  // namespace vk
