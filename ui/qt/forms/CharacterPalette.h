/// Form FraIns: the palette "Inserisci Carattere" of the editor.
#pragma once

#include <QLabel>
#include <QWidget>
#include <array>
#include <functional>

#include "ui/layout/EditorLayout.h"

namespace vk {

/// One character of the palette. Knows the mouse only; the palette has the keys.
class LblChr;

/// The palette "Inserisci Carattere": the upper half of the code page in 16 by 8 cells. A click on a cell chooses
/// it; so do the arrow keys with Return or the blank key. Escape chooses the last cell, which stands for nothing.
class FraIns : public QWidget {
 public:
  FraIns(QWidget* form, const QFont& font, const QFont& captionFont);

  /// Called with the number of the cell, 0..127.
  std::function<void(int)> chosen;

 protected:
  void showEvent(QShowEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void buildCells(const PaletteLayout& layout);
  void select(int cell);
  void choose(int cell);

  QFont captionFont_;
  std::array<LblChr*, kPaletteCells> LblChr_{};
  int selected_ = 0;
};

}  // namespace vk
