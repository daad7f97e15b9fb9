#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/EncodedText.h"
#include "base/Int16.h"
#include "platform/Form.h"
#include "platform/Texts.h"

namespace vk {

/// Pictures of the message dialog.
enum MessageIcon : int { kNoIcon = 0, kQuestion = 1, kExclamation = 2, kInformation = 3, kStop = 4 };

/// What `Get_Msg` shows; a carriage return in `text` starts a new paragraph.
struct MessageRequest {
  Form owner = Form::kMain;
  WindowText caption{};
  WindowText text{};
  Int16 icon = kNoIcon;
  std::vector<WindowText> captions{};  ///< of the buttons, "&" before the access key
  Int16 posX = 0;                      ///< -2 right of, -1 left of, 0 centred on, 1 left edges, 2 right edges
  Int16 posY = 0;                      ///< -2 above, -1 below, 0 centred on, 1 bottom edges, 2 top edges
};

/// What the file dialog shows.
struct FileRequest {
  bool save = false;
  WindowText caption{};
  std::string folder{};            ///< shown first
  WindowText filter{};             ///< "label|pattern|label|pattern|"
  Int16 filterIndex = 1;           ///< the selected pair, from 1
  std::string proposedName{};      ///< may be empty
  std::string defaultExtension{};  ///< given to a name to be saved that has none
};

/// Questions to the user. Every operation is modal: it returns with the answer.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  /// The message dialog of the program. Gives the number of the pressed button, from 1.
  virtual int Get_Msg(const MessageRequest& request) = 0;

  /// The platform's plain box with one button.
  virtual void plainBox(const WindowText& title, const WindowText& text) = 0;

  /// The file dialog: the full name chosen, or nothing when the user cancelled. It asks no question of its
  /// own about files that exist or do not.
  virtual std::optional<std::string> fileDialog(const FileRequest& request) = 0;
};

}  // namespace vk
