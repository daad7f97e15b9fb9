#pragma once

#include "gral/DisplayList.h"
#include "gral/SinkDevice.h"

namespace vk {

/// Gives a device parts of its own that are made before it.
struct RecorderParts {
  DisplayList recorded_;
  FixedLetterMetrics fixedLetters_;
};

/// A form or a printer that writes down what is drawn on it. Its letters have fixed widths, so that the
/// same drawing gives the same lines everywhere.
class RecorderDevice : private RecorderParts, public SinkDevice {
 public:
  explicit RecorderDevice(const FormMetrics& form = {}) : SinkDevice(form, recorded_, fixedLetters_) {}
  explicit RecorderDevice(const PrinterMetrics& printer) : SinkDevice(printer, recorded_, fixedLetters_) {}

  const DisplayList& list() const { return recorded_; }
  std::vector<std::string> lines() const { return recorded_.lines(); }
  /// Forgets what was drawn so far; the settings stay.
  void forget();

  void PaintPicture(const Picture& picture, double x, double y) override;
  void EndDoc() override;
  void KillDoc() override { forget(); }
  /// Number of documents ended.
  int documents() const { return documents_; }

 private:
  int documents_ = 0;
};

}  // namespace vk
