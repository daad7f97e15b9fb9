#include "ui/layout/InputLayout.h"

#include <algorithm>
#include <cstdlib>

#include "base/Text.h"

namespace vk {
namespace {

constexpr int kRowsOfButtons = 2;
constexpr double kBelowCallersTop = 600;
/// Columns that a text wider than the form leaves free for the frames.
constexpr int kColumnsOfFrames = 4;

double columnLeft(int col, CellSize cell) {
  return (col - 1) * cell.width;
}
double rowTop(int row, CellSize cell) {
  return (row - 1) * cell.height;
}

Rect fieldRect(const std::array<Int16, 3>& position, CellSize cell) {
  const auto& [row, col, width] = position;
  return {columnLeft(col, cell), rowTop(row, cell) + 5, (std::abs(width) - 1.0) * cell.width,
          cell.height + 40.0};
}

std::vector<Rect> fieldRects(const InputTables& tables, CellSize cell) {
  std::vector<Rect> rects;
  if (tables.InpFieldCount < 1) return rects;
  rects.push_back(fieldRect(tables.InpFieldPos[1], cell));
  for (int i = 1; i <= tables.InpFieldCount; ++i) rects.push_back(fieldRect(tables.InpFieldPos[i], cell));
  return rects;
}

std::vector<PlacedText> placePrompts(const InputTables& tables, CellSize cell) {
  std::vector<PlacedText> prompts;
  for (int i = 1; i <= tables.InpFieldCount; ++i) {
    const auto& [row, col, length] = tables.InpLabelPos[i];
    prompts.push_back({columnLeft(col, cell), rowTop(row, cell), tables.InpLabels[i]});
  }
  return prompts;
}

double alignmentOffset(int alignment, double width) {
  if (alignment == 1) return -width / 2;
  return alignment == 2 ? -width : 0;
}

std::vector<PlacedText> placeTexts(const InputTables& tables, CellSize cell, const TextMeasure& font) {
  std::vector<PlacedText> texts;
  for (int i = 1; i <= tables.InpTextCount; ++i) {
    const auto& [row, col, alignment] = tables.InpTextPos[i];
    std::string text = trim(tables.InpTexts[i].bytes());
    if (length(text) > tables.InpCols) text = shortened(text, tables.InpCols - kColumnsOfFrames);
    const double left = columnLeft(col, cell) + alignmentOffset(alignment, font.width(text).value());
    texts.push_back({left, rowTop(row, cell), Cp437Text(text)});
  }
  return texts;
}

std::vector<GridFrame> gridFrames(const InputTables& tables) {
  std::vector<GridFrame> frames;
  for (int i = 1; i <= tables.InpFrameCount; ++i) {
    const auto& [top, left, bottom, right, style] = tables.InpFrames[i];
    frames.push_back({top, left, bottom, right, style});
  }
  return frames;
}

void placeForm(InputLayout& layout, const InputTables& tables, const InputSurroundings& around) {
  layout.InpFormH =
      static_cast<int>(around.frame.height) + (tables.InpRows + kRowsOfButtons) * layout.cell.height;
  layout.InpFormW = static_cast<int>(around.frame.width) + tables.InpCols * layout.cell.width;
  layout.form = {around.caller.left + (around.caller.width - layout.InpFormW) / 2,
                 around.caller.top + kBelowCallersTop, layout.InpFormW * 1.0, layout.InpFormH * 1.0};
}

void placeButtons(InputLayout& layout, const InputTables& tables, const TextMeasure& buttonFont) {
  const double width =
      1.2 * std::max(buttonFont.width(kGiveUpButton), buttonFont.width(kExecuteButton)).value();
  const double height = 1.5 * layout.cell.height;
  const double top = tables.InpRows * layout.cell.height;
  const double formWidth = tables.InpCols * layout.cell.width;
  layout.cmdRin = {formWidth / 4 - width / 2, top, width, height};
  layout.cmdEse = {3 * formWidth / 4 - width / 2, top, width, height};
}

}  // namespace

InputLayout layoutInput(const InputTables& tables, const InputSurroundings& around) {
  InputLayout layout;
  layout.cell = cellOf(*around.font);
  placeForm(layout, tables, around);
  placeButtons(layout, tables, *around.buttonFont);
  layout.lblVal = fieldRects(tables, layout.cell);
  layout.prompts = placePrompts(tables, layout.cell);
  layout.texts = placeTexts(tables, layout.cell, *around.font);
  layout.frames = gridFrames(tables);
  return layout;
}

Rect editBoxOn(const Rect& field, CellSize cell) {
  return {field.left + 20, field.top + 20, field.width - 40, cell.height - 17.0};
}

}  // namespace vk
