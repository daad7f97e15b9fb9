#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Dialogs.h"
#include "ui/layout/Geometry.h"
#include "ui/layout/TextMeasure.h"

/// Where everything stands in the message dialog `FrmMsg`. All lengths in twips.
namespace vk {

/// One printed line of the message.
struct MessageLine {
  double left = 0, top = 0;
  std::string text;
  bool operator==(const MessageLine&) const = default;
};

/// What the layout has to know of the world around the dialog.
struct MessageSurroundings {
  Rect owner;   ///< the owner's window; a size of 0 stands for an owner that has vanished
  Size screen;  ///< what the dialog must not leave
  Size frame;   ///< what the window adds to its content: both borders, title and border
  Size icon;    ///< of the pictures
  double buttonHeight = 0;
  double captionWidth = 0;  ///< of the caption in the font of the title bar
};

struct MessageLayout {
  Rect form;     ///< the whole window on the screen
  Size content;  ///< of its inside
  std::vector<MessageLine> lines;
  Rect icon;  ///< of size 0 without an icon
  std::vector<Rect> buttons;
};

/// The text's paragraphs, split at each carriage return. A line feed behind one is dropped.
std::vector<std::string> paragraphs(std::string_view text);

/// Width of the widest paragraph.
Twips MaxLineWidth(const TextMeasure& font, std::string_view text);

/// The lines, not wider than `maxWidth`, into which a paragraph breaks: at the last blank that fits, which is
/// dropped, or inside a word that alone is too wide. An empty paragraph has no line.
std::vector<std::string> WrapText(const TextMeasure& font, std::string_view paragraph, double maxWidth);

/// Sizes and positions of the dialog for a request.
MessageLayout layoutMessage(const MessageRequest& request, const TextMeasure& font,
                            const MessageSurroundings& around);

/// Where a window of this size goes by the two position codes of a request, kept on the screen.
Rect placeMessage(Size window, int posX, int posY, const Rect& owner, Size screen);

}  // namespace vk
