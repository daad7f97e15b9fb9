#include "ui/layout/EditorLayout.h"

#include <algorithm>
#include <string>

namespace vk {
namespace {

constexpr int kColumns = 80;
constexpr int kRows = 25;
/// The control needs room for its border and its scroll bars.
constexpr double kControlMargin = 300;
constexpr double kEditorBelowOwnersTop = 600;

constexpr int kPaletteRows = kPaletteCells / kPaletteColumns;
constexpr double kCellWidths = 3;  // of the widest character
constexpr double kCellExtraHeight = 40;
constexpr double kPaletteMargin = 300;  // both sides together
constexpr double kPaletteLeft = 150;
constexpr double kPaletteTop = 200;

double widestCharacter(const TextMeasure& font) {
  Twips widest;
  for (int code = kFirstPaletteCode; code < kFirstPaletteCode + kPaletteCells; ++code) {
    widest = std::max(widest, font.width(std::string(1, static_cast<char>(code))));
  }
  return widest.value();
}

}  // namespace

EditorLayout layoutEditor(CellSize cell, const Rect& owner, const Size& around) {
  const Size control{kColumns * cell.width + kControlMargin, kRows * cell.height + kControlMargin};
  const Size form = control + around;
  return {{owner.left + (owner.width - form.width) / 2, owner.top + kEditorBelowOwnersTop, form.width,
           form.height},
          control};
}

PaletteLayout layoutPalette(const TextMeasure& font) {
  const Size cell{kCellWidths * widestCharacter(font), font.height().value() + kCellExtraHeight};
  PaletteLayout layout;
  layout.FraIns = {kPaletteColumns * cell.width + kPaletteMargin,
                   kPaletteRows * cell.height + kPaletteMargin};
  for (int i = 0; i < kPaletteCells; ++i) {
    const int row = i / kPaletteColumns, column = i % kPaletteColumns;
    layout.LblChr[static_cast<std::size_t>(i)] = {column * cell.width + kPaletteLeft,
                                                  row * cell.height + kPaletteTop, cell.width, cell.height};
  }
  return layout;
}

}  // namespace vk
