#pragma once

#include <array>
#include <string>

#include "base/Array.h"
#include "base/EncodedText.h"
#include "base/Int16.h"
#include "platform/Form.h"
#include "platform/ManualPages.h"

namespace vk {

/// The tables by which a command describes the input form and gets the accepted texts back. Arrays run from
/// 1; element 0 stays unused. Rows and columns are character cells, from 1.
struct InputTables {
  WindowText caption;
  ManualTopic topic{};
  Int16 InpRows;        ///< rows of the grid, buttons not counted
  Int16 InpCols;        ///< columns of the grid
  Int16 InpFieldCount;  ///< number of fields
  Int16 InpFrameCount;
  Int16 InpTextCount;

  Array<Cp437Text> InpValues;               ///< in: content of the field; out: the accepted content
  Array<std::string> InpFieldKinds;         ///< "#Number", "#Function@...", "#String", "#File"
  Array<std::array<Int16, 3>> InpFieldPos;  ///< row, column, width + 1 (negative: flush right)
  Array<Cp437Text> InpLabels;               ///< prompts
  Array<std::array<Int16, 3>> InpLabelPos;  ///< row, column, length of the prompt
  Array<std::array<Int16, 5>> InpFrames;    ///< top, left, bottom, right, style
  Array<Cp437Text> InpTexts;                ///< fixed texts
  Array<std::array<Int16, 3>> InpTextPos;   ///< row, column, 1 centred / 2 right end / else left end
};

/// The modal form on which the fields of an analysis command are entered.
class InputForm {
 public:
  virtual ~InputForm() = default;

  /// Shows the form above `caller`. True after "&Esegui" with good fields: the form is closed and the accepted texts
  /// stand in `InpValues`. False after "&Rinuncia": the tables are as they were.
  virtual bool InpShow(InputTables& tables, Form caller) = 0;
};

}  // namespace vk
