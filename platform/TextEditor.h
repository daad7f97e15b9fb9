#pragma once

#include <string>

#include "base/Int16.h"

namespace vk {

/// The text editor as commands see it.
class TextEditor {
 public:
  virtual ~TextEditor() = default;

  /// Opens a file of a kind (`FileKindCode`): asks before a missing file is made and before a large one is opened.
  /// The main window is shut while the editor is open. A file that cannot be read is told and not opened. An editor
  /// that is open keeps its file and its text, and comes to the front.
  virtual void OpenEditor(const std::string& path, Int16 kind) = 0;

  /// True from the opening to the closing, be it that the form could not be shown.
  virtual bool isOpen() const = 0;

  /// Closes the editor; nothing is saved.
  virtual void MnuFilRin() = 0;
};

}  // namespace vk
