/// Unit InpMod: the tables of the input form.
#pragma once

#include <initializer_list>
#include <string>

#include "platform/InputForm.h"

/// The input form of a command: fills its tables and asks. Rows and columns are character cells, from 1.
namespace vk {

struct Session;

/// A field of the form with its prompt.
struct FormField {
  int row = 0;
  int promptColumn = 0;
  std::string prompt;
  int promptLength = 0;  ///< from which the caller has its columns
  int column = 0;        ///< of the content
  int width = 0;         ///< cells + 1; negative: flush right
  std::string kind;
  std::string value;
};

/// A frame, by the cells of its corners.
struct FormRectangle {
  int top, left, bottom, right;
};

/// A fixed text.
struct FormText {
  int row, column;
  std::string text;
};

/// Sizes the field tables for this many fields.
void describeFieldCount(InputTables& form, int count);
/// Field i, from 1.
void describeField(InputTables& form, int i, const FormField& field);
/// All frames, which are engraved.
void describeFrames(InputTables& form, std::initializer_list<FormRectangle> frames);
/// All fixed texts, which are centred on their columns.
void describeTexts(InputTables& form, std::initializer_list<FormText> texts);

/// Shows the form that the session's tables describe above the main window. True after "&Esegui"; `ErrFlag` is 0 then,
/// else -1.
bool askForm(Session& session, InputForm& form);

}  // namespace vk
