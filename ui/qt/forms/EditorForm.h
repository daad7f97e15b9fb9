/// Form FrmEdi: the window of the text editor.
#pragma once

#include <QMainWindow>

#include "platform/EditorForm.h"
#include "platform/FontSpec.h"
#include "platform/Sound.h"
#include "ui/Editor.h"
#include "ui/qt/forms/CharacterPalette.h"
#include "ui/qt/forms/Windows.h"
#include "ui/qt/widgets/EditorBox.h"
#include "ui/qt/widgets/FindBar.h"

namespace vk {

/// What the editor's window works with.
struct EditorServices {
  const FontSpec& FontEdit;
  const FontSpec& FontLabel;
  const Windows& windows;
  Sound& sound;
  EventRunner runEvent;
};

/// The window of the text editor: the controls `TxtEdiOld` and `TxtEdi`, of which one is visible, the menus, and
/// the palette `FraIns`. Its window control is "&Rinuncia e Esci".
class FrmEdi : public QMainWindow, public EditorForm {
 public:
  FrmEdi(Editor& engine, const EditorServices& services);

  void showEditor(const WindowText& caption, const PlainText& text, EditControl control) override;
  void nameEditor(const WindowText& caption) override;
  void hideEditor() override;
  void focusEditor() override;
  PlainText editorText() override { return box().bytes(); }
  PlainText SelText() override { return box().SelText(); }
  void insertText(const PlainText& text) override { box().insertBefore(text); }
  void showPalette() override;
  void hidePalette() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  using Command = void (Editor::*)();

  void buildMenus();
  QAction* addEntry(QWidget* menu, const char* name, const char* caption, Command command);
  void buildBoxes();
  void buildPalette();
  void buildFinding();
  void placeForm();
  void placePalette();
  EditorBox& box() { return control_ == EditControl::kTxtEdi ? *TxtEdi_ : *TxtEdiOld_; }

  Editor& engine_;
  EditorServices services_;
  EditControl control_ = EditControl::kTxtEdiOld;
  EditorBox* TxtEdiOld_;
  EditorBox* TxtEdi_;
  FindBar* find_;
  QMenu* MnuMod_ = nullptr;
  QAction* MnuModInc_ = nullptr;
  FraIns* FraIns_ = nullptr;  ///< none before it is first shown: its 128 characters take long to measure
};

}  // namespace vk
