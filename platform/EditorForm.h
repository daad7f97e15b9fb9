#pragma once

#include "base/EncodedText.h"

namespace vk {

/// The controls of the editor, of which one holds the text: the plain box, and the one for large files.
enum class EditControl { kTxtEdiOld, kTxtEdi };

/// The text editor `FrmEdi`. Each pair of CR and LF ends a line; a CR or LF of its
/// own is a character of its line and comes back as such. A text in UTF-8 takes every letter that is entered, any
/// other one those of code page 437.
class EditorForm {
 public:
  virtual ~EditorForm() = default;

  /// Empties the control, gives it the text, and shows the editor, modeless, with the caret at the start and the
  /// palette closed. What was done to an earlier text cannot be undone.
  virtual void showEditor(const WindowText& caption, const PlainText& text, EditControl control) = 0;
  /// Gives the editor that is shown another caption.
  virtual void nameEditor(const WindowText& caption) = 0;
  /// The editor vanishes; its text stays until the next showing.
  virtual void hideEditor() = 0;
  /// The focus goes back to the control; the editor stays open.
  virtual void focusEditor() = 0;

  /// The text as it stands in the control, in the encoding of the one that was shown.
  virtual PlainText editorText() = 0;
  /// The selected part of it; empty when nothing is selected.
  virtual PlainText SelText() = 0;
  /// Puts a text in at `SelStart`, the start of the selection or the caret. What is selected stays, without its
  /// selection; the caret stands at `SelStart`, before the new text.
  virtual void insertText(const PlainText& text) = 0;

  /// Shows the palette and disables the control.
  virtual void showPalette() = 0;
  /// Closes the palette and enables the control again.
  virtual void hidePalette() = 0;
};

}  // namespace vk
