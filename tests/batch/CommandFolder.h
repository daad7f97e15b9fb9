#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "batch/RunHere.h"
#include "doubles/Places.h"
#include "doubles/TemporaryFolder.h"

namespace vk {

/// A folder in memory with something to read for every command of the terminal: data, functions, tables of others, a
/// figure, a grid, the report of a fit.
class CommandFolder : public TemporaryFolder {
 public:
  CommandFolder();

  /// What it holds at first: bytes by name.
  const std::map<std::string, std::string>& inputs() const { return inputs_; }
  /// Makes it hold just these files.
  void lay(const std::map<std::string, std::string>& wanted) const;
  /// Runs a command here, in which "@" is the folder.
  BatchRun run(std::string line, const AroundCommand& around = commandAlone) const;

 private:
  std::map<std::string, std::string> inputs_;
};

inline CommandFolder::CommandFolder() : TemporaryFolder(folderInMemory()) {
  for (const char* name : {"ohm.dat", "lab.fcn"})
    make(name, fileContent(sourcePath(std::string("examples/") + name)));
  for (const char* name : {"A.CSV", "B.CSV"}) make(name, "x;y;dy\n1;2,5;0,1\n2;4,5;0,1\n3;6,6;0,1\n");
  make("ohm.gra", "\\XSCALA(5,25,0,8)\n\\YSCALA(5,15,0,300)\n\\DATI(" + *this / "ohm.dat" + ")\n");
  make("plane.grd", "x\ny\nz\n3 3\n0 1 2\n0 1 2\n0 1 2\n1 2 3\n2 3 4\n");
  make("FIT.JSON", run("fit @/ohm.dat --catalogue 1,2 --par b=40 --par c=0 --json").output);
  inputs_ = files();
}

inline void CommandFolder::lay(const std::map<std::string, std::string>& wanted) const {
  const std::map<std::string, std::string> present = files();
  for (const auto& [name, bytes] : present) {
    if (!wanted.contains(name)) std::filesystem::remove(*this / name);
  }
  for (const auto& [name, bytes] : wanted) {
    if (!present.contains(name) || present.at(name) != bytes) make(name, bytes);
  }
}

inline BatchRun CommandFolder::run(std::string line, const AroundCommand& around) const {
  for (std::size_t at = 0; (at = line.find('@', at)) != std::string::npos;) line.replace(at, 1, path());
  return runHere(line, around);
}

}  // namespace vk
