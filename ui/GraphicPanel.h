#pragma once

#include <array>
#include <string>

#include "session/DesktopSettings.h"
#include "session/FigureSettings.h"

namespace vk {

/// The graphic options panel `FraGra` without its widgets: background picture, paper orientation and the
/// magnification of the figures.
class GraphicPanel {
 public:
  static constexpr int kScrollMin = 5;
  static constexpr int kScrollMax = 20;

  GraphicPanel(DesktopSettings& settings, FigureSettings& figures) : settings_(settings), figures_(figures) {}

  /// The panel opens: copies for the cancel are taken, and the controls show what the session holds.
  void open();

  /// A scroll bar `VScFct(row)` was moved to `value`, tenths of the magnification.
  void scroll(int row, int value);

  /// A click on the visible picture shows the next one.
  void stepPicture();

  /// One of `OptOri` was chosen: 0 horizontal, 1 vertical.
  void choosePaper(int option) { option_ = option; }

  /// "&Accetta": the session takes what the controls show.
  void accept();
  /// "&Rinuncia": the session gets back what it had.
  void cancel();

  /// Number of the visible picture.
  int picture() const { return settings_.BackImage; }
  int scrollValue(int row) const { return scroll_[static_cast<std::size_t>(row)]; }
  /// Text of `LblFctVal(row)`.
  const std::string& valueText(int row) const { return values_[static_cast<std::size_t>(row)]; }
  int paperOption() const { return option_; }

 private:
  void showScale(std::size_t row);

  DesktopSettings& settings_;
  FigureSettings& figures_;
  std::array<int, 4> scroll_{10, 10, 10, 10};
  std::array<std::string, 4> values_;
  int option_ = 0;
};

}  // namespace vk
