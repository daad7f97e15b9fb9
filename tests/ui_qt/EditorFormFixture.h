#pragma once

#include <QApplication>
#include <QClipboard>

#include "doubles/Doubles.h"
#include "doubles/MemoryFiles.h"
#include "doubles/ScriptedDialogs.h"
#include "doubles/ScriptedForms.h"
#include "expr/Catalogue.h"
#include "session/Session.h"
#include "ui/qt/forms/EditorForm.h"
#include "ui/qt/ports/QtClipboard.h"
#include "ui/qt/widgets/DesktopServices.h"
#include "ui_qt/User.h"

namespace vk {

/// The window of the editor over doubles of everything else.
class EditorFormFixture : public testing::Test {
 protected:
  void SetUp() override {
    owner.resize(750, 500);
    owner.move(20, 15);
    bringToFront(&owner);
    windows.add(Form::kMain, &owner);
    windows.add(Form::kEditor, &form);
    editor.setForm(form);
    BuildCatalogue(session.loaded.catalogue);
    QGuiApplication::clipboard()->clear();
  }

  void open(const std::string& bytes, int kind = kGraphicKind) {
    files.content[kPath] = bytes;
    editor.OpenEditor(kPath, kind);
    waitForFocus();
  }
  /// The window system answers with some delay.
  void waitForFocus() {
    ASSERT_TRUE(QTest::qWaitFor([this] {
      QWidget* focus = QApplication::focusWidget();
      return focus != nullptr && focus->window() == &form;
    }));
  }
  /// A file that is too large for the plain box: `start`, and many lines behind it.
  void openLarge(const std::string& start) {
    std::string bytes = start;
    while (bytes.size() <= 40000) bytes += "riga di riempimento\r\n";
    dialogs.press(2);
    open(bytes);
  }
  std::string saved() { return files.content.at(kPath); }
  /// The text of the control, with its line ends.
  std::string text() { return std::string(form.editorText().bytes()); }

  EditorBox* plainBox() { return control<EditorBox>(&form, "TxtEdiOld"); }
  EditorBox* richBox() { return control<EditorBox>(&form, "TxtEdi"); }
  QWidget* palette() { return control<QWidget>(&form, "FraIns"); }
  bool paletteShows() {
    const auto* palette = form.findChild<QWidget*>("FraIns");
    return palette != nullptr && palette->isVisible();
  }
  QLabel* cell(int i) { return control<QLabel>(&form, QString("LblChr(%1)").arg(i)); }
  QAction* entry(const QString& name) { return control<QAction>(&form, name); }

  void choose(const QString& name) {
    clickMenu(&form, name);
    if (form.isVisible()) waitForFocus();
  }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }
  void write(const QString& typed) { typeText(QApplication::focusWidget(), typed); }
  int caret(EditorBox* box) { return box->textCursor().position(); }
  void onClipboard(const QString& held) { QGuiApplication::clipboard()->setText(held); }

  static constexpr const char* kPath = "/lavoro/prova.txt";

  QWidget owner;
  Session session;
  MemoryFiles files;
  ScriptedDialogs dialogs;
  RecordingMainWindow window;
  RecordingOutput output;
  QtClipboard clipboard{session.settings.FontEdit};
  RecordingPrinter printer;
  RecordingSound sound;
  Windows windows;
  Editor editor{session, {files, dialogs, window, output, clipboard, printer, sound}};
  FrmEdi form{editor,
              {session.settings.FontEdit, session.settings.FontLabel, windows, sound,
               [](const auto& handler) { handler(); }}};
};

}  // namespace vk
