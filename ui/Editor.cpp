#include "ui/Editor.h"

#include <array>

#include "base/CodePage.h"
#include "base/FileText.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "commands/DisplayRefresh.h"
#include "commands/FilePicking.h"
#include "session/Session.h"
#include "ui/layout/EditorLayout.h"

namespace vk {
namespace {

// ---- Texts ------------------------------------------------------------------------------------------------

const std::array<WindowText, 3> kKindWords{kDataWord, kFunctionsWord, kGraphicWord};
constexpr const char* kNotRead = " NON puo` essere Letto!";
constexpr const char* kNotSaved = " NON e` stato Salvato!";
constexpr const char* kNotChecked = " e` stato Salvato, ma NON puo` essere Controllato!";
constexpr const char* kNotPrinted = " NON e` stato Stampato!";
constexpr const char* kCreateQuestion[] = {"FILE ", " NON Esistente: lo Creo?"};
constexpr const char* kLargeFile =
    " contiene piu` di 40000 caratteri!\rContinuando la Modifica File sara` utilizzato un "
    "insieme di caratteri diverso da quello selezionato.";
constexpr const char* kErrorsInFile = "Errori nel File ";
constexpr const char* kGoOnButton = "&Continua Modifica";
constexpr const char* kIgnoreButton = "&Ignora e Esci";
constexpr const char* kShowErrorsButton = "&Visualizza Errori";

// ---- Files ------------------------------------------------------------------------------------------------

/// The most bytes that the plain box takes.
constexpr std::size_t kPlainBoxLimit = 40000;
constexpr int kTabColumns = 8;

/// Answers about a file with errors.
enum ErrorAnswer : int { kGoOnEditing = 1, kIgnore = 2, kShowErrors = 3 };

/// The text of a file with its lines ended by CR LF; the last one too where the control takes whole lines.
std::string textOfFile(const std::string& bytes, bool wholeLines) {
  std::string text;
  TextLines lines(bytes);
  while (const auto line = lines.next()) text.append(*line).append(kCrLf);
  const bool whole = wholeLines || bytes.ends_with(lines.lineEnd());
  if (!whole && !bytes.empty()) text.resize(text.size() - kCrLf.size());
  return text;
}

/// What the plain box leaves in the file: whole lines. Blanks behind the last line end are no line.
std::string fileOfLines(const std::string& text) {
  const std::size_t lastEnd = text.rfind(kCrLf);
  const std::size_t whole = lastEnd == std::string::npos ? 0 : lastEnd + kCrLf.size();
  if (trim(std::string_view(text).substr(whole)).empty()) return text.substr(0, whole);
  return text + std::string(kCrLf);
}

/// A text of code page 437 in UTF-8. Below 128 it stays as it is: control characters are no signs in a file.
std::string inUtf8(std::string_view text) {
  std::string utf8;
  for (const char c : text) appendUtf8(utf8, code(c) < 0x80 ? code(c) : toUnicode(c, CodePage::kCp437));
  return utf8;
}

/// Paper has no tab stops.
PlainText withoutTabs(const PlainText& text) {
  std::string expanded;
  int column = 0;
  for (const char c : text.bytes()) {
    if (c == '\t') {
      const int blanks = kTabColumns - column % kTabColumns;
      expanded += repeat(blanks, ' ');
      column += blanks;
    } else {
      expanded += c;
      const bool goesOn = text.isUtf8() && (code(c) & 0xC0U) == 0x80;
      column = c == '\n' ? 0 : column + (goesOn ? 0 : 1);
    }
  }
  return {expanded, text.isUtf8()};
}

const WindowText& kindWord(Int16 kind) {
  return kKindWords.at(static_cast<std::size_t>(kind - kDataKind));
}

WindowText captionOf(const EditedFile& file) {
  return kEditCaption + kindWord(file.kind);
}

/// "Dati: path", as most messages name the file.
WindowText nameOf(const EditedFile& file) {
  return kindWord(file.kind) + ": " + WindowText(file.path);
}

/// What tells the file of a text in front of the user: folders would leave no room for its name.
WindowText ownName(const EditedFile& file) {
  return WindowText(GetFileName(file.path));
}

WindowText titleOf(const EditedFile& file) {
  return captionOf(file) + " " + ownName(file);
}

}  // namespace

void Editor::tell(const EditedFile& file, const WindowText& failure, const RuntimeError& error) {
  ports_.dialogs.plainBox(captionOf(file),
                          kTheFile + nameOf(file) + failure +
                              WindowText("\n" + runtimeErrorText(error.number()) + kPressToContinue));
}

/// Runs a step; one that fails is told.
bool Editor::done(const WindowText& failure, const std::function<void()>& step) {
  try {
    step();
    return true;
  } catch (const RuntimeError& error) {
    tell(file_, failure, error);
    return false;
  }
}

void Editor::OpenEditor(const std::string& path, Int16 kind) {
  // A text that is being worked on makes no room for another one.
  if (shut_) return form_->focusEditor();
  EditedFile wanted{path, kind};
  std::string bytes;
  if (!readText(wanted, bytes)) return;
  if (bytes.size() > kPlainBoxLimit) {
    if (!wantsLargeFile(wanted)) return;
    wanted.control = EditControl::kTxtEdi;
  }
  takeEncoding(wanted, bytes);
  shut_ = std::make_unique<ShutWindow>(ports_.window, Form::kEditor);
  file_ = wanted;
  form_->showEditor(titleOf(wanted),
                    {textOfFile(bytes, wanted.control == EditControl::kTxtEdiOld), wanted.isUtf8},
                    wanted.control);
}

/// The bytes lose their byte order mark.
void Editor::takeEncoding(EditedFile& wanted, std::string& bytes) {
  const FileText file(bytes);
  wanted.isOld = file.lineOfSign() != 0;
  wanted.isUtf8 = file.isUtf8();
  wanted.mark = bytes.substr(0, bytes.size() - file.text().size());
  bytes.erase(0, wanted.mark.size());
}

/// False when the command is to stop.
bool Editor::readText(const EditedFile& wanted, std::string& bytes) {
  try {
    bytes = ports_.files.readAll(wanted.path);
    return true;
  } catch (const RuntimeError& error) {
    if (error.number() == kFileNotFound) return wantsToCreate(wanted);
    tell(wanted, kNotRead, error);
    return false;
  }
}

bool Editor::wantsToCreate(const EditedFile& wanted) {
  return ports_.dialogs.Get_Msg({.caption = WindowText(trim(kEditCaption)),
                                 .text = kCreateQuestion[0] + WindowText(wanted.path) + kCreateQuestion[1],
                                 .icon = kQuestion,
                                 .captions = {kWideYesButton, kWideNoButton}}) == 1;
}

bool Editor::wantsLargeFile(const EditedFile& wanted) {
  return ports_.dialogs.Get_Msg({.caption = captionOf(wanted),
                                 .text = kTheFile + nameOf(wanted) + kLargeFile,
                                 .icon = kQuestion,
                                 .captions = {kGiveUpButton, kContinueButton}}) == 2;
}

bool Editor::saved(const std::string& text) {
  const auto write = [&] { ports_.files.writeAll(file_.path, text); };
  if (done(kNotSaved, write)) return true;
  std::string other = GetFileName(file_.path);
  if (ports_.files.canWrite(file_.path) ||
      !pickFileToSave(session_, {ports_.files, ports_.dialogs}, captionOf(file_), file_.kind, other)) {
    return false;
  }
  file_.path = other;
  form_->nameEditor(titleOf(file_));
  return done(kNotSaved, write);
}

void Editor::MnuFilSav() {
  const std::string text = textOfForm();
  TextCheck found;
  if (!saved(text) || !done(kNotChecked, [&] { found = checkText(session_, file_.kind, text); })) {
    form_->focusEditor();
  } else if (found.good) {
    close();
  } else {
    tellErrors(found.report);
  }
}

/// The text as it goes into the file.
std::string Editor::textOfForm() {
  std::string text(form_->editorText().bytes());
  if (file_.control == EditControl::kTxtEdiOld) text = fileOfLines(text);
  return file_.mark + (file_.isOld || file_.isUtf8 ? text : inUtf8(text));
}

void Editor::tellErrors(const std::string& report) {
  switch (ports_.dialogs.Get_Msg({.owner = Form::kEditor,
                                  .caption = captionOf(file_),
                                  .text = kErrorsInFile + kindWord(file_.kind) + ": " + ownName(file_) + " !",
                                  .icon = kExclamation,
                                  .captions = {kGoOnButton, kIgnoreButton, kShowErrorsButton}})) {
    case kGoOnEditing:
      return form_->focusEditor();
    case kIgnore:
      return close();
    case kShowErrors: {
      // QUIRK: reports of function files bear the caption of data files as well.
      OutputRequest request =
          reportRequest(kReadCaption + kKindWords[0] + kErrorListSuffix, Cp437Text(report),
                        file_.kind == kDataKind ? ManualTopic::kDataErrors : ManualTopic::kFunctionErrors);
      request.owner = Form::kEditor;
      return ports_.output.OutShow(request);
    }
  }
}

void Editor::MnuFilRin() {
  close();
}

void Editor::close() {
  form_->hideEditor();
  shut_.reset();
  Msg(session_, ports_.window);
  ports_.window.refresh();
  ports_.window.toFront();
}

void Editor::MnuModCop() {
  ports_.clipboard.clear();
  ports_.clipboard.setText(form_->SelText());
}

bool Editor::canInsert() {
  const ClipboardText clipboard = ports_.clipboard.text();
  return !trim((file_.isUtf8 ? clipboard.whole : clipboard.text).bytes()).empty();
}

void Editor::MnuModInc() {
  const ClipboardText clipboard = ports_.clipboard.text();
  if (!clipboard.complete && !file_.isUtf8) ports_.sound.beep();
  // QUIRK: a selection is not replaced and the caret stays before the new text, so that the same text can be put
  // in at once more.
  form_->insertText(file_.isUtf8 ? clipboard.whole : clipboard.text);
}

void Editor::MnuChrIns() {
  form_->showPalette();
}

void Editor::LblChr(int cell) {
  // QUIRK: the last cell is the hard blank, which nobody could tell from a blank in a file: it inserts nothing.
  if (cell != kPaletteCells - 1) {
    form_->insertText(Cp437Text(std::string(1, static_cast<char>(cell + kFirstPaletteCode))));
  }
  form_->hidePalette();
}

void Editor::MnuPri() {
  const FontSpec& font = session_.settings.FontEdit;
  done(kNotPrinted, [&] {
    ports_.printer.printText(withoutTabs(form_->editorText()), font.face, font.size);
    ports_.printer.EndDoc();
  });
  form_->focusEditor();
}

}  // namespace vk
