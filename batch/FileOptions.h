#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace vk {

/// The type of such an option in the help, before its endings.
inline constexpr const char* kFileType = "FILE";

/// The endings of the files that an option names, as "PNG|SVG"; empty for any.
std::string endingsOf(const CLI::Option& option);

/// The options of a command line that name files. "-" is the standard stream.
class FileOptions {
 public:
  /// Marks an option, and gives it back, whose files are read or written; `endings` as "DAT" or "PNG|SVG", empty for
  /// any. The help shows them.
  CLI::Option* reads(CLI::Option* option, const std::string& endings);
  CLI::Option* writes(CLI::Option* option, const std::string& endings);

  /// To be called when the words are read: two files for one stream raise `UsageError`. Where a file has the standard
  /// output for itself, whatever else is printed goes where the notes go.
  void claimStreams() const;

 private:
  std::vector<const CLI::Option*> read_, written_;
};

}  // namespace vk
