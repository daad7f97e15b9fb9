#include "batch/TerminalPorts.h"

#include <algorithm>
#include <iostream>

#include "base/CodePage.h"

namespace vk {
namespace {

void tell(const std::string& title, const std::string& text) {
  std::string lines = toUtf8(title + ": " + text, CodePage::kWindows1252);
  std::replace(lines.begin(), lines.end(), '\r', '\n');
  std::cerr << lines << '\n';
}

}  // namespace

std::string terminalText(const std::string& text) {
  std::string lines = toUtf8(text, CodePage::kCp437);
  std::erase(lines, '\r');
  return lines;
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

int TerminalDialogs::Get_Msg(const MessageRequest& request) {
  tell(request.caption, request.text);
  return 1;
}

void TerminalDialogs::plainBox(const std::string& title, const std::string& text) {
  tell(title, text);
}

std::optional<std::string> TerminalDialogs::fileDialog(const FileRequest&) {
  return std::nullopt;
}

}  // namespace vk
