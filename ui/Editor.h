/// Unit Editor: the small text editor.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "commands/EditCommands.h"
#include "platform/Clipboard.h"
#include "platform/Dialogs.h"
#include "platform/EditorForm.h"
#include "platform/Files.h"
#include "platform/MainWindow.h"
#include "platform/OutputWindow.h"
#include "platform/Printer.h"
#include "platform/Sound.h"
#include "platform/TextEditor.h"
#include "session/FileSettings.h"

namespace vk {

struct Session;

/// What the editor works with, beside its form.
struct EditorPorts {
  Files& files;
  Dialogs& dialogs;
  MainWindow& window;
  OutputWindow& output;
  Clipboard& clipboard;
  Printer& printer;
  Sound& sound;
};

/// A file with the control that takes its text.
struct EditedFile {
  std::string path;
  Int16 kind = kGraphicKind;  ///< `FileKindCode`
  EditControl control = EditControl::kTxtEdiOld;
  bool isOld = false;   ///< of 8-bit signs, which come back as they are; else it is saved in UTF-8
  bool isUtf8 = false;  ///< shown as such, so that every letter can be entered
  std::string mark{};   ///< its byte order mark
};

/// The small text editor for data, function and graphic files. It changes the file, never what the session has
/// loaded: a file that was changed is to be read again. Data and function files are checked by their own readers
/// when they are saved. Handlers bear the names of the menu entries and controls that run them.
class Editor : public TextEditor {
 public:
  Editor(Session& session, const EditorPorts& ports) : session_(session), ports_(ports) {}
  /// The form, once it is there; it outlives the editor's work.
  void setForm(EditorForm& form) { form_ = &form; }

  void OpenEditor(const std::string& path, Int16 kind) override;
  bool isOpen() const override { return shut_ != nullptr; }

  /// Writes the file and, when its check finds nothing, closes the editor. A file that cannot be written is told, and
  /// stays as it was on the disk; where its folder or its rights are the cause, another name is asked for. Without one
  /// the editor stays open with the text.
  void MnuFilSav();
  void MnuFilRin() override;

  /// The selection replaces what is on the clipboard.
  void MnuModCop();
  /// True when there is something to insert: the clipboard holds text that is not blank.
  bool canInsert();
  /// Inserts the text of the clipboard at `SelStart`. Where the file is not in UTF-8, characters without a place in
  /// the code page are left out with a beep.
  void MnuModInc();

  void MnuChrIns();
  /// A click on cell 0..127 of the palette: its character is inserted at `SelStart` and the palette closes. The
  /// last cell only closes it.
  void LblChr(int cell);

  /// Prints the text in `FontEdit`. A printer that fails is told.
  void MnuPri();

  const std::string& EditFile() const { return file_.path; }
  EditControl control() const { return file_.control; }

 private:
  bool readText(const EditedFile& wanted, std::string& bytes);
  static void takeEncoding(EditedFile& wanted, std::string& bytes);
  bool wantsToCreate(const EditedFile& wanted);
  bool wantsLargeFile(const EditedFile& wanted);
  std::string textOfForm();
  bool done(const WindowText& failure, const std::function<void()>& step);
  /// Writes the text into the file, or into another one that the user names. False when it is nowhere.
  bool saved(const std::string& text);
  void tellErrors(const std::string& report);
  void close();

  void tell(const EditedFile& file, const WindowText& failure, const RuntimeError& error);

  Session& session_;
  EditorPorts ports_;
  EditorForm* form_ = nullptr;
  EditedFile file_;
  std::unique_ptr<ShutWindow> shut_;  ///< there while the editor is open
};

}  // namespace vk
