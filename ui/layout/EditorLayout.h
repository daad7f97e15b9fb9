#pragma once

#include <array>

#include "ui/layout/CharFrame.h"
#include "ui/layout/Geometry.h"
#include "ui/layout/TextMeasure.h"

/// Sizes and places of the editor and of its palette, in twips.
namespace vk {

struct EditorLayout {
  Rect form;     ///< the whole window on the screen
  Size control;  ///< of the text control
};

/// Room for 80 columns of a font below the top of the owner, centred on it. `around` is what the window adds to
/// its control: frame, title and menus.
EditorLayout layoutEditor(CellSize cell, const Rect& owner, const Size& around);

/// The palette shows the upper half of the code page: cell i has code i + 128.
inline constexpr int kPaletteCells = 128;
inline constexpr int kFirstPaletteCode = 128;
inline constexpr int kPaletteColumns = 16;

struct PaletteLayout {
  Size FraIns;
  std::array<Rect, kPaletteCells> LblChr;  ///< within the frame
};

/// 16 by 8 cells that suit the widest of the characters.
PaletteLayout layoutPalette(const TextMeasure& font);

}  // namespace vk
