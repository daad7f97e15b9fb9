#pragma once

#include <optional>
#include <string>
#include <vector>

namespace vk {

/// `import`: tables of other programs as data files. The words are those of the command line; what is left out, or
/// empty, is found out.
struct ImportArguments {
  std::vector<std::string> files;
  std::string output;  ///< a file, or a folder, which several files need; empty for standard output
  std::string encoding, separator, decimal, columns, dy;
  int header = -1;  ///< lines above the points; below 0 they are found out
  int every = 1, average = 1;
  std::optional<int> digits;  ///< of the data; by default those that data files have
  bool preview = false;       ///< print the first points and write nothing
};

/// Reads each file and writes it as a data file; one that is a data file is copied as it is where no option changes its
/// points or digits. What was taken, and the lines that were left out, are told on the error stream. Gives 0, and 2
/// when some file could not be read, understood or written, which is told; the others are done. Bad words raise
/// `UsageError`.
int runImport(const ImportArguments& arguments);

}  // namespace vk
