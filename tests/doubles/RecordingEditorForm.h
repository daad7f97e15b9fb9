#pragma once

#include <string>
#include <vector>

#include "platform/EditorForm.h"

namespace vk {

/// An editor form that holds its text instead of showing it; the test types by changing the fields.
class RecordingEditorForm : public EditorForm {
 public:
  std::string caption, text;
  bool isUtf8 = false;  ///< of the text
  EditControl control = EditControl::kTxtEdiOld;
  std::size_t SelStart = 0, SelLength = 0;
  bool visible = false;
  bool palette = false;
  std::vector<std::string> calls;  ///< "show", "hide", "focus", "palette", "close palette" in order

  void showEditor(const WindowText& title, const PlainText& shown, EditControl which) override {
    calls.emplace_back("show");
    visible = true;
    caption = title.bytes();
    text = shown.bytes();
    isUtf8 = shown.isUtf8();
    control = which;
    SelStart = SelLength = 0;
  }
  void nameEditor(const WindowText& title) override { caption = title.bytes(); }
  void hideEditor() override { calls.emplace_back("hide"), visible = false; }
  void focusEditor() override { calls.emplace_back("focus"); }
  PlainText editorText() override { return {text, isUtf8}; }
  PlainText SelText() override { return {text.substr(SelStart, SelLength), isUtf8}; }
  void insertText(const PlainText& inserted) override {
    const bool same = inserted.isUtf8() == isUtf8;
    text.insert(SelStart, same ? std::string(inserted.bytes()) : toUtf8(inserted.bytes(), CodePage::kCp437));
    SelLength = 0;
  }
  void showPalette() override { calls.emplace_back("palette"), palette = true; }
  void hidePalette() override { calls.emplace_back("close palette"), palette = false; }
};

}  // namespace vk
