#include <fcntl.h>
#include <pthread.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/TextLines.h"
#include "batch/CommandLine.h"
#include "batch/TerminalPorts.h"
#include "fuzz/Input.h"
#include "fuzz/StreamText.h"
#include "gral/ObserverDevice.h"
#include "tests/doubles/TemporaryFolder.h"

namespace vk {
namespace {

/// A form that is seen as a few pixels.
class SmallForm : private CountingSink, private FixedLetterMetrics, public Device {
 public:
  SmallForm() : Device(FormMetrics{}, *this, *this) {}

 private:
  Picture image() override {
    return {.width = 2, .height = 2, .pixels = {0xFF000000, 0xFFFFFFFF, 0xFFFF0000, 0xFF0000FF}};
  }
};

/// Makes figures without the toolkit.
class SmallFigures : public FigureMaker {
 public:
  FigureForm formFor(const std::string& fileName, const FigureOptions& options) override {
    if (fileName.empty() && options.format.empty()) throw UsageError("Un grafico senza nome");
    sheetOf(options);
    return {std::make_unique<SmallForm>(), [](const FigureWords& words) { return words.title; }};
  }
};

struct NamedBytes {
  const char *name, *bytes;
};

/// Files that a command line can name.
constexpr std::array kFiles{
    NamedBytes{"d.dat", "x (s)\r\ny (m)\r\n4\r\n0 1 .1\r\n1 3 .1\r\n2 5.5 .2\r\n3 7 .2\r\n"},
    NamedBytes{"e.dat", "x\r\ny\r\n3\r\n0 1 .1 .1\r\n1 3 .1 .1\r\n2 5.5 .2 .1\r\n"},
    NamedBytes{"g.grd", "x\r\ny\r\nz\r\n3 2\r\n0 1 2\r\n0 1\r\n0 1 5\r\n2 3 4\r\n"},
    NamedBytes{"f.fcn", "Retta\r\na*x+b\r\na,b\r\n"},
    NamedBytes{"p.gra", "\\XSCALA(5, 20, 0, 3)\r\n\\YSCALA(4, 16, 0, 8)\r\n\\DATI(d.dat)\r\n"},
    NamedBytes{"r.json",
               R"({"parameters": [{"name": "a", "value": 2, "error_linearised": 0.1, "free": true},
                   {"name": "b", "value": 1, "error_linearised": 0.2, "free": true}],
                   "correlation_linearised": [[1, 0.5], [0.5, 1]]})"},
    NamedBytes{"t.csv", "t;U\r\n0;1,5\r\n1;2,5\r\n2;3,5\r\n"},
};

/// The folder where commands run, with these files and nothing else.
class Folder {
 public:
  // In memory where the system has a folder there, as commands wait for the disk.
  Folder() {
    if (::access("/dev/shm", W_OK) == 0) ::setenv("TMPDIR", "/dev/shm", 1);
    folder_.emplace();
    ::dup2(::open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
  }

  /// Runs a statement there.
  template <class Statement>
  void within(Statement&& statement) const {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder_->path());
    tidy();
    std::forward<Statement>(statement)();
    std::filesystem::current_path(before);
  }

 private:
  static void tidy() {
    for (const auto& entry : std::filesystem::directory_iterator("."))
      std::filesystem::remove_all(entry.path());
    for (const NamedBytes& file : kFiles) std::ofstream(file.name, std::ios::binary) << file.bytes;
  }

  std::optional<TemporaryFolder> folder_;
};

/// A word that names no file outside of the folder: a slash divides only.
std::string tamed(std::string_view word) {
  std::string text;
  for (const char c : word) {
    const bool divides = !text.starts_with('-') && !text.empty() &&
                         (std::isalnum(static_cast<unsigned char>(text.back())) != 0 || text.back() == ')');
    const bool leads = c == '/' ? !divides : c == '.' && text.ends_with('.');
    if (c != '\0') text += leads ? '_' : c;
  }
  return text;
}

/// Whether several files were fitted, by children whose messages stay in their copy of the stream.
bool hadChildren = false;

}  // namespace

/// Each line is a word of a command line. It gives one of the exit codes, and says why where it is not 0.
void probe(Input input) {
  static const Folder folder;
  static const int watch = ::pthread_atfork(
      nullptr, [] { hadChildren = true; }, nullptr);
  require(watch == 0, "a watch over children");
  hadChildren = false;
  std::vector<std::string> words{"vor_kel_batch"};
  TextLines lines(input.rest());
  while (const auto line = lines.next()) words.push_back(tamed(*line));
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const StreamText output(std::cout), errors(std::cerr), notes(std::clog);
  SmallFigures figures;
  int code = 0;
  folder.within([&] { code = runCommandLine(static_cast<int>(words.size()), arguments.data(), &figures); });
  require(code == kExitDone || code == kExitFailed || code == kExitBadInput, "one of the exit codes");
  require(code == kExitDone || hadChildren || !errors.text().empty(), "a message with a failure");
}

}  // namespace vk
