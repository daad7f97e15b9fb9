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
