#pragma once

#include <string>
#include <vector>

#include "platform/InputForm.h"
#include "ui/CharFrame.h"
#include "ui/Geometry.h"
#include "ui/TextMeasure.h"

/// Where everything stands on the input form, from its tables and the cell of its font; twips.
namespace vk {

/// What the layout has to know of the world around the form.
struct InputSurroundings {
  Rect caller;                    ///< the window of the caller
  Size frame;                     ///< what the window adds to its content
  const TextMeasure* font;        ///< of the grid
  const TextMeasure* buttonFont;  ///< of the buttons
};

/// A text printed free of the grid.
struct PlacedText {
  double left = 0, top = 0;
  std::string text;
  bool operator==(const PlacedText&) const = default;
};

struct InputLayout {
  CellSize cell;
  Int16 InpFormH, InpFormW;  ///< outer size
  Rect form;                 ///< the whole window on the screen
  Rect cmdRin, cmdEse;
  std::vector<Rect> lblVal;  ///< 0 the template, on field 1; 1..N the fields. Empty without fields
  std::vector<PlacedText> prompts;
  std::vector<PlacedText> texts;  ///< fixed texts, trimmed; shortened where wider than the form
  std::vector<GridFrame> frames;
};

InputLayout layoutInput(const InputTables& tables, const InputSurroundings& around);

/// Place of the edit box on a field.
Rect editBoxOn(const Rect& field, CellSize cell);

inline constexpr const char* kInputCancel = "&Rinuncia";
inline constexpr const char* kInputExecute = "&Esegui";

}  // namespace vk
