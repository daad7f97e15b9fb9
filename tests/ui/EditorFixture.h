#pragma once

#include "doubles/Doubles.h"
#include "doubles/MemoryFiles.h"
#include "doubles/RecordingEditorForm.h"
#include "doubles/ScriptedDialogs.h"
#include "doubles/ScriptedForms.h"
#include "expr/Catalogue.h"
#include "session/Session.h"
#include "ui/Editor.h"

namespace vk {

inline constexpr const char* kGoodData = "x\r\ny\r\n3\r\n0 1 .1\r\n1 3 .1\r\n2 5.1 .1\r\n";
inline constexpr const char* kBadData = "x\r\ny\r\n3\r\n0 1 .1\r\n1 tre .1\r\n2 5.1 .1\r\n";
inline constexpr const char* kGoodFunctions = "A,B\r\nA*x+B\r\nretta\r\n";
inline constexpr const char* kBadFunctions = "A,B\r\nA*x+C\r\nretta\r\n";

class EditorTest : public testing::Test {
 protected:
  EditorTest() {
    editor.setForm(form);
    BuildCatalogue(session.loaded.catalogue);
  }
  void open(const std::string& bytes, int kind = kGraphicKind) {
    if (form.visible) editor.MnuFilRin();
    files.content[kPath] = bytes;
    editor.OpenEditor(kPath, kind);
    form.calls.clear();
    window.calls.clear();
  }
  /// What opening and saving leaves of a file.
  std::string saved(const std::string& bytes) {
    open(bytes);
    editor.MnuFilSav();
    return files.content.at(kPath);
  }
  void expectOpen() {
    EXPECT_TRUE(form.visible);
    EXPECT_FALSE(window.enabled);
  }
  void expectClosed() {
    EXPECT_FALSE(form.visible);
    EXPECT_TRUE(window.enabled);
  }

  static inline constexpr const char* kPath = "/lavoro/prova.txt";

  Session session;
  MemoryFiles files;
  ScriptedDialogs dialogs;
  RecordingMainWindow window;
  RecordingOutput output;
  RecordingClipboard clipboard;
  RecordingPrinter printer;
  RecordingSound sound;
  RecordingEditorForm form;
  Editor editor{session, {files, dialogs, window, output, clipboard, printer, sound}};
};

}  // namespace vk
