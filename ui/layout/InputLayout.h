#pragma once

#include <string>
#include <vector>

#include "platform/InputForm.h"
#include "platform/Texts.h"
#include "ui/layout/CharFrame.h"
#include "ui/layout/Geometry.h"
#include "ui/layout/TextMeasure.h"

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
  Cp437Text text;
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

/// Codes of the keys that move between the fields.
enum InputKey : int { kKeyEnter = 13, kKeyUp = 38, kKeyDown = 40 };

inline constexpr Colour InpColorEdit = Colour::fromChannels(240, 240, 240);

/// The edit box `txtGet`.
struct EditBox {
  bool visible = false;
  Rect place;
  Cp437Text text;
  Colour background = InpColorEdit;
  bool flushRight = false;
};

/// Place of the edit box on a field.
Rect editBoxOn(const Rect& field, CellSize cell);

}  // namespace vk
