#pragma once

#include <string>
#include <vector>

#include "platform/EditorForm.h"

namespace vk {

/// An editor form that holds its text instead of showing it; the test types by changing the fields.
class RecordingEditorForm : public EditorForm {
 public:
  std::string caption, text;
  EditControl control = EditControl::kTxtEdiOld;
  std::size_t SelStart = 0, SelLength = 0;
  bool visible = false;
  bool palette = false;
  std::vector<std::string> calls;  ///< "show", "hide", "focus", "palette", "close palette" in order

  void showEditor(const WindowText& title, const Cp437Text& shown, EditControl which) override {
    calls.emplace_back("show");
    visible = true;
    caption = title.bytes();
    text = shown.bytes();
    control = which;
    SelStart = SelLength = 0;
  }
  void hideEditor() override { calls.emplace_back("hide"), visible = false; }
  void focusEditor() override { calls.emplace_back("focus"); }
  Cp437Text editorText() override { return Cp437Text(text); }
  Cp437Text SelText() override { return Cp437Text(text.substr(SelStart, SelLength)); }
  void insertText(const Cp437Text& inserted) override {
    text.insert(SelStart, inserted.bytes());
    SelLength = 0;
  }
  void showPalette() override { calls.emplace_back("palette"), palette = true; }
  void hidePalette() override { calls.emplace_back("close palette"), palette = false; }
};

}  // namespace vk
