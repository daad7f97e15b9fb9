#pragma once

#include "platform/CharGrid.h"

namespace vk {

/// A text from the clipboard.
struct ClipboardText {
  PlainText text{};      ///< in code page 437
  bool complete = true;  ///< false when characters without a place in the code page were left out
  PlainText whole{};     ///< all of it, in UTF-8
};

/// The clipboard, as far as texts go; windows put their pictures there themselves. Lines of texts end in CR LF,
/// whatever other programs use.
class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual void clear() = 0;
  virtual void setText(const PlainText& text) = 0;
  /// A grid of characters and frames as a bitmap, with its text beside it for programs that take no pictures.
  virtual void setGrid(const CharGrid& grid) = 0;
  /// The text on the clipboard; empty when it holds none.
  virtual ClipboardText text() = 0;
};

}  // namespace vk
