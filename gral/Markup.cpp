#include "gral/Markup.h"

namespace vk {
namespace {

using Level = MarkupLetter::Level;

/// The state between two characters of a text.
class MarkupState {
 public:
  void script(Level level) {
    script_ = true;
    level_ = level;
  }
  void openGroup() { group_ = true; }
  void closeGroup() {
    group_ = false;
    endSwitches();
  }
  /// QUIRK: a second pair of backslashes ends the wait for a Symbol character but not the font, which then
  /// lasts to the end of the text.
  void toggleSymbol() {
    symbolFont_ = true;
    inSymbol_ = !inSymbol_;
  }
  MarkupLetter letter(char c) {
    const MarkupLetter result{c, level_, symbolFont_};
    if (!group_) endSwitches();
    return result;
  }

 private:
  void endSwitches() {
    if (script_) level_ = Level::kNormal;
    script_ = false;
    if (inSymbol_) symbolFont_ = false;
    inSymbol_ = false;
  }

  Level level_ = Level::kNormal;
  bool script_ = false;
  bool group_ = false;
  bool symbolFont_ = false;
  bool inSymbol_ = false;
};

}  // namespace

std::vector<MarkupLetter> readMarkup(std::string_view text) {
  std::vector<MarkupLetter> letters;
  MarkupState state;
  for (std::size_t i = 0; i < text.size(); ++i) {
    switch (text[i]) {
      case '^':
        state.script(Level::kSuperscript);
        break;
      case '_':
        state.script(Level::kSubscript);
        break;
      case '{':
        state.openGroup();
        break;
      case '}':
        state.closeGroup();
        break;
      default:
        if (text.substr(i, 2) == "\\\\") {
          state.toggleSymbol();
          ++i;
        } else {
          letters.push_back(state.letter(text[i]));
        }
    }
  }
  return letters;
}

}  // namespace vk
