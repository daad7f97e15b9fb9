#pragma once

#include <string>

#include "base/Int16.h"

namespace vk {

/// The text editor `FrmEdi`.
class EditorForm {
 public:
  virtual ~EditorForm() = default;

  /// Shows a text for editing, modeless, with the main window disabled. `rich` selects the control for large
  /// files. The text is code page 437 with CR LF line ends.
  virtual void showEditor(const std::string& caption, const std::string& text, bool rich) = 0;

  /// The text as it stands in the control, CR LF line ends.
  virtual std::string editorText() = 0;

  /// Gives the focus back to the control; the editor stays open.
  virtual void focusEditor() = 0;

  /// Hides the editor, enables and refreshes the main window.
  virtual void closeEditor() = 0;
};

}  // namespace vk
