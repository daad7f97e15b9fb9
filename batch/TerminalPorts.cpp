#include "batch/TerminalPorts.h"

#include <algorithm>
#include <iostream>

#include "base/CodePage.h"
#include "base/FileText.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "expr/FormulaText.h"
#include "platform/Texts.h"
#include "platform/system/Descriptors.h"

namespace vk {
namespace {

constexpr const char* kLineStarts = "\r\n";

/// The paragraphs of a box as one line, without what tells how to close it.
std::string onOneLine(std::string box) {
  box.erase(std::min(box.find(trim(kPressToContinue)), box.size()));
  std::string line;
  while (!box.empty()) {
    const auto end = std::min(box.find_first_of(kLineStarts), box.size());
    const std::string paragraph = trim(box.substr(0, end));
    box.erase(0, std::min(end + 1, box.size()));
    if (paragraph.empty()) continue;
    if (!line.empty()) line += position("!.:", line.substr(line.size() - 1)) > 0 ? " " : "; ";
    line += paragraph;
  }
  ReplaceAll(line, "  ", " ");
  return line;
}

// The numbers of the standard streams.
constexpr int kInput = 0, kOutput = 1;

constexpr int kFirstHighCode = 0x80;
constexpr const char* kUnknown = "\uFFFD";

bool isControl(char c) {
  return code(c) < ' ' || code(c) == 0x7F;
}

/// True where UTF-8 spells one of the control characters that eight-bit terminals know beside the common ones.
bool isHighControl(std::string_view bytes) {
  return bytes.size() > 1 && code(bytes[0]) == 0xC2 && code(bytes[1]) < 0xA0;
}

/// The sign that a character-mode screen shows for a code of code page 437.
std::string visibleSign(char c) {
  switch (c) {
    case '\t':
      return "\u25CB";
    case '\n':
      return "\u25D9";
    case '\r':
      return "\u266A";
    default:
      return toUtf8({&c, 1}, CodePage::kCp437);
  }
}

enum class Tabs { kStay, kAreSigns };

/// A text in UTF-8 without control characters. In one that is none, bytes above 127 are unknown characters.
std::string visibleText(std::string_view text, Tabs tabs) {
  const bool utf8 = leadingUtf8(text) == text.size();
  std::string shown;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (isControl(c) && (c != '\t' || tabs == Tabs::kAreSigns)) {
      shown += visibleSign(c);
    } else if (!utf8 && code(c) >= kFirstHighCode) {
      shown += kUnknown;
    } else if (isHighControl(text.substr(i))) {
      shown += kUnknown;
      ++i;
    } else {
      shown += c;
    }
  }
  return shown;
}

}  // namespace

std::string terminalFile(const std::string& bytes) {
  const FileText file(bytes);
  const std::string_view text = file.text();
  TextLines lines(text);
  std::string shown;
  while (const auto line = lines.next()) {
    shown += file.isUtf8() ? visibleText(*line, Tabs::kStay) : terminalText(std::string(*line));
    if (line->end() != text.end()) shown += '\n';
  }
  return shown;
}

std::string terminalText(const std::string& text) {
  std::string lines;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool pair = text.compare(i, kCrLf.size(), kCrLf) == 0;
    if (pair) ++i;
    lines += pair ? "\n" : text[i] == '\t' ? "\t" : visibleSign(text[i]);
  }
  return lines;
}

std::string shownName(const std::string& fileName) {
  return visibleText(fileName, Tabs::kAreSigns);
}

std::string warningLine(const std::string& fileName, const std::string& warning) {
  return shownName(fileName) + ": attenzione: " + warning + "\n";
}

std::string textOfWord(const std::string& word) {
  const auto characters = decodeUtf8(word);
  if (!characters) return word;
  std::string text;
  for (const char32_t c : *characters) {
    const auto code = fromUnicode(unifiedForCp437(c), CodePage::kCp437);
    const bool lineEnd = c == '\r' || c == '\n';
    if (!code || lineEnd)
      throw UsageError("\"" + word + "\": un carattere non esiste nella tabella dei codici 437");
    text += *code;
  }
  return text;
}

std::string TerminalFiles::readAll(const std::string& path) {
  return path == kStandardStream ? readFromDescriptor(kInput, kLargestFile) : SystemFiles::readAll(path);
}

void TerminalFiles::writeAll(const std::string& path, std::string_view bytes) {
  std::cout.flush();
  if (path == kStandardStream) return writeToDescriptor(kOutput, bytes);
  SystemFiles::writeAll(path, bytes);
}

void TerminalDialogs::tell(const WindowText& text) {
  stream_ << subject_ << ": " << onOneLine(toUtf8(text)) << '\n';
}

int TerminalDialogs::Get_Msg(const MessageRequest& request) {
  tell(request.text);
  return 1;
}

void TerminalDialogs::plainBox(const WindowText&, const WindowText& text) {
  tell(text);
}

std::optional<std::string> TerminalDialogs::fileDialog(const FileRequest&) {
  return std::nullopt;
}

}  // namespace vk
