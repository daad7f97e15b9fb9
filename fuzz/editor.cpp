#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <string>

#include "base/CodePage.h"
#include "base/FileText.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "doubles/Doubles.h"
#include "doubles/MemoryFiles.h"
#include "doubles/RecordingEditorForm.h"
#include "fuzz/Input.h"
#include "platform/GridOutput.h"
#include "session/Session.h"
#include "ui/Editor.h"

namespace vk {
namespace {

/// A disk whose calls fail where the input says so.
class FailingFiles : public MemoryFiles {
 public:
  explicit FailingFiles(Input& input) : input_(input) {}

  std::string readAll(const std::string& path) override {
    failSometimes();
    return MemoryFiles::readAll(path);
  }
  void writeAll(const std::string& path, std::string_view bytes) override {
    failSometimes();
    MemoryFiles::writeAll(path, bytes);
  }
  bool canWrite(const std::string&) override { return input_.choice(4) != 3; }

 private:
  void failSometimes() {
    constexpr std::array kErrors{kDeviceIoError, kPermissionDenied, kPathAccessError, kPathNotFound,
                                 kOutOfMemory};
    const unsigned error = input_.choice(3 * kErrors.size());
    if (error >= 2 * kErrors.size()) throw RuntimeError(kErrors.at(error - 2 * kErrors.size()));
  }

  Input& input_;
};

/// A user who presses any button, and names any of a few files.
class AnyAnswers : public Dialogs {
 public:
  explicit AnyAnswers(Input& input) : input_(input) {}

  int Get_Msg(const MessageRequest& request) override {
    // Who has nothing left to say gives up, so that no question is asked for ever.
    if (input_.isEmpty()) return static_cast<int>(request.captions.size());
    return 1 + static_cast<int>(input_.choice(static_cast<unsigned>(request.captions.size())));
  }
  void plainBox(const WindowText&, const WindowText&) override {}
  std::optional<std::string> fileDialog(const FileRequest&) override {
    constexpr std::array kNames{"/a/uno.dat", "/a/UNO.DAT", "/b/due.gra"};
    const unsigned answer = input_.isEmpty() ? 0 : input_.choice(kNames.size() + 1);
    return answer == 0 ? std::nullopt : std::optional<std::string>(kNames.at(answer - 1));
  }

 private:
  Input& input_;
};

/// Runs the editor by the actions that the input chooses, and looks after each at the form and at the disk.
class EditorProbe {
 public:
  explicit EditorProbe(Input& input) : input_(input) {
    editor_.setForm(form_);
    files_.content["/a/uno.dat"] = input.part();
    files_.content["/b/due.gra"] = input.part();
  }

  void run() {
    constexpr int kMostActions = 20;
    for (int i = 0; i < kMostActions && !input_.isEmpty(); ++i) act(input_.choice(9));
  }

 private:
  using Disk = std::map<std::string, std::string>;

  void act(unsigned action) {
    const Disk before = files_.content;
    if (action == 0) open();
    if (editor_.isOpen()) work(action);
    require(editor_.isOpen() == form_.visible && window_.holders.empty() != editor_.isOpen(),
            "the main window is shut while the editor is open");
    require(action == 1 || files_.content == before, "only saving changes the disk");
  }

  void work(unsigned action) {
    switch (action) {
      case 1:
        return save();
      case 2:
        return type();
      case 3:
        return editor_.MnuFilRin();
      case 4:
        return select(), editor_.MnuModCop();
      case 5:
        return insert();
      case 6:
        return select(), editor_.LblChr(static_cast<int>(input_.choice(128)));
      case 7:
        printer_.error = input_.choice(2) == 1 ? kPrinterError : 0;
        return editor_.MnuPri();
      default:
        return;
    }
  }

  void open() {
    constexpr std::array kNames{"/a/uno.dat", "/b/due.gra", "/b/DUE.GRA", "/b/tre"};
    const std::string name = kNames.at(input_.choice(kNames.size()));
    const bool wasOpen = editor_.isOpen();
    const std::string text = form_.text;
    editor_.OpenEditor(name, static_cast<int>(kDataKind + input_.choice(3)));
    if (wasOpen) return require(editor_.isOpen() && form_.text == text, "a text that is open stays");
    if (!editor_.isOpen()) return;
    const std::string bytes = files_.FileExists(name) ? files_.MemoryFiles::readAll(name) : "";
    const FileText file(bytes);
    mark_ = bytes.substr(0, bytes.size() - file.text().size());
    isOld_ = file.lineOfSign() != 0;
    require(form_.isUtf8 == file.isUtf8(), "the encoding of the file");
    require(sameLines(form_.text, file.text()), "the lines of the file");
  }

  /// True when both have the same lines, however these end.
  static bool sameLines(std::string_view one, std::string_view other) {
    TextLines first(one), second(other);
    for (auto line = first.next();; line = first.next()) {
      if (line != second.next()) return false;
      if (!line) return true;
    }
  }

  /// The text as a file holds it, without what the plain box does to its end.
  std::string wanted() const {
    if (isOld_ || form_.isUtf8) return mark_ + form_.text;
    std::string utf8 = mark_;
    for (const char c : form_.text)
      appendUtf8(utf8, code(c) < 0x80 ? code(c) : toUnicode(c, CodePage::kCp437));
    return utf8;
  }

  /// Whole lines, or the text to the letter.
  bool isWhole(const std::string& bytes) const {
    const std::string text = wanted();
    if (bytes == text) return true;
    if (editor_.control() != EditControl::kTxtEdiOld) return false;
    if (bytes == text + "\r\n") return true;
    return text.starts_with(bytes) && trim(text.substr(bytes.size())).empty();
  }

  void save() {
    const Disk before = files_.content;
    const std::string text = form_.text;
    editor_.MnuFilSav();
    require(form_.text == text, "no text is lost");
    int changed = 0;
    for (const auto& [name, bytes] : files_.content) {
      const auto old = before.find(name);
      if (old != before.end() && old->second == bytes) continue;
      ++changed;
      require(isWhole(bytes), "the old file or the new one");
    }
    require(changed <= 1 && files_.content.size() >= before.size(), "one file alone");
    if (!editor_.isOpen())
      require(isWhole(files_.MemoryFiles::readAll(editor_.EditFile())), "the text is saved");
  }

  /// A place among the characters, and some of them.
  void select() {
    const std::string& text = form_.text;
    const auto place = [&](std::size_t at) {
      return form_.isUtf8 ? leadingUtf8(std::string_view(text).substr(0, at)) : std::min(at, text.size());
    };
    form_.SelStart = place(input_.choice(200));
    form_.SelLength = place(form_.SelStart + input_.choice(8)) - form_.SelStart;
  }

  void type() {
    const std::string_view given = input_.part();
    const std::string typed(given.substr(0, form_.isUtf8 ? leadingUtf8(given) : given.size()));
    if (input_.choice(2) == 0) form_.text.clear();
    form_.text += typed;
    if (typed.empty() || input_.choice(32) != 31) return;
    while (form_.text.size() <= kMoreThanThePlainBox) form_.text += typed;
  }

  void insert() {
    select();
    clipboard_.held = input_.part();
    clipboard_.whole = toUtf8(clipboard_.held, CodePage::kCp437);
    if (editor_.canInsert()) editor_.MnuModInc();
  }

  static constexpr std::size_t kMoreThanThePlainBox = 40000;

  Input& input_;
  Session session_;
  FailingFiles files_{input_};
  AnyAnswers dialogs_{input_};
  RecordingMainWindow window_;
  GridOutput output_;
  RecordingClipboard clipboard_;
  RecordingPrinter printer_;
  RecordingSound sound_;
  RecordingEditorForm form_;
  Editor editor_{session_, {files_, dialogs_, window_, output_, clipboard_, printer_, sound_}};
  std::string mark_;    // of the file that is open
  bool isOld_ = false;  // it holds 8-bit signs
};

}  // namespace

void probe(Input input) {
  EditorProbe(input).run();
}

}  // namespace vk
