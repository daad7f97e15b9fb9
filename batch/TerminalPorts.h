#pragma once

#include <iostream>
#include <stdexcept>

#include "platform/Dialogs.h"
#include "platform/system/SystemFiles.h"

namespace vk {

/// What a run tells the shell.
enum ExitCode : int { kExitDone = 0, kExitFailed = 1, kExitBadInput = 2 };

/// Bad words on the command line, or a bad file: told on the error stream, exit code 2. The text is UTF-8.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A report, code page 437, as a terminal shows it: UTF-8 with bare line feeds. Control characters become the signs
/// of the code page, so that no file can steer the terminal; tabs stay.
std::string terminalText(const std::string& text);
/// A data file as a terminal shows it, in the same way.
std::string terminalFile(const std::string& bytes);
/// The name of a file as a terminal shows it, with signs for control characters as well: always one line.
std::string shownName(const std::string& fileName);
/// The line that warns of something in a file.
std::string warningLine(const std::string& fileName, const std::string& warning);
/// A word of the command line as texts are inside: UTF-8 becomes code page 437, anything else is taken as it is. A
/// character without a place in the code page, or a line end, raises `UsageError`.
std::string textOfWord(const std::string& word);

/// Nobody sits at a terminal run: the first button is taken, and each message becomes one line of a stream, behind the
/// name of the command or file that it is about. Errors belong to `std::cerr`, notes to `std::clog`.
class TerminalDialogs : public Dialogs {
 public:
  explicit TerminalDialogs(std::string subject, std::ostream& stream = std::cerr)
      : subject_(std::move(subject)), stream_(stream) {}
  int Get_Msg(const MessageRequest& request) override;
  void plainBox(const WindowText& title, const WindowText& text) override;
  std::optional<std::string> fileDialog(const FileRequest& request) override;

 private:
  void tell(const WindowText& text);

  std::string subject_;
  std::ostream& stream_;
};

/// The name of standard input for a file that is read, and of standard output for one that is written.
inline constexpr const char* kStandardStream = "-";

/// The disk as the command line names it: a pipe is as good as a file.
class TerminalFiles : public SystemFiles {
 public:
  TerminalFiles() : SystemFiles(Streams::kTaken) {}
  std::string readAll(const std::string& path) override;
  /// What was printed before comes first, also where the file is the output itself.
  void writeAll(const std::string& path, std::string_view bytes) override;
};

}  // namespace vk
