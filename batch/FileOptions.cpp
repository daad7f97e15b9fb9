#include "batch/FileOptions.h"

#include <algorithm>
#include <iostream>

#include "batch/TerminalPorts.h"

namespace vk {
namespace {

CLI::Option* withEndings(CLI::Option* option, const std::string& endings) {
  return option->type_name(kFileType + (endings.empty() ? "" : "." + endings));
}

/// True when one of the options names the standard stream; more than one such name raises `UsageError`.
bool claimsStream(const std::vector<const CLI::Option*>& options, const char* twice) {
  std::ptrdiff_t count = 0;
  for (const CLI::Option* option : options) {
    if (option->count() > 0) count += std::ranges::count(option->results(), std::string(kStandardStream));
  }
  if (count > 1) throw UsageError(twice);
  return count == 1;
}

}  // namespace

std::string endingsOf(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  const auto point = type.find('.');
  return point == std::string::npos ? "" : type.substr(point + 1);
}

CLI::Option* FileOptions::reads(CLI::Option* option, const std::string& endings) {
  read_.push_back(option);
  return withEndings(option, endings);
}

CLI::Option* FileOptions::writes(CLI::Option* option, const std::string& endings) {
  written_.push_back(option);
  return withEndings(option, endings);
}

void FileOptions::claimStreams() const {
  claimsStream(read_, "-: un solo file si legge dall'ingresso standard");
  if (claimsStream(written_, "-: un solo file si scrive sull'uscita standard"))
    std::cout.rdbuf(std::clog.rdbuf());
}

}  // namespace vk
