#include "batch/CheckCommand.h"

#include <algorithm>
#include <array>
#include <iostream>

#include "base/Text.h"
#include "batch/DataInput.h"
#include "batch/DrawCommand.h"
#include "batch/TerminalPorts.h"
#include "data/DataFiles.h"
#include "expr/FunctionFile.h"
#include "gral/ObserverDevice.h"
#include "session/Session.h"

namespace vk {
namespace {

/// What the reader of a kind of file finds in one.
struct FileCheck {
  bool good = true;
  std::string report;
};

using Checker = FileCheck (*)(Files& files, std::string fileName);

FileCheck checkData(Files& files, std::string fileName) {
  const std::string errors = readData(files, fileName).errors;
  return {errors.empty(), errors};
}

FileCheck checkFunctions(Files& files, std::string fileName) {
  const ParsedFunctionFile parsed = parseFunctionFile(files.readAll(fileName));
  return {parsed.ok, parsed.report};
}

/// The figure is drawn on a form that nobody sees: what cannot be drawn is an error too.
FileCheck checkFigure(Files&, std::string fileName) {
  ObserverDevice page;
  const std::string errors = drawGraphicFile(fileName, page);
  return {errors.empty(), errors};
}

struct Kind {
  const char* extension;
  Checker check;
};

constexpr std::array kKinds{Kind{"DAT", checkData}, Kind{"FCN", checkFunctions}, Kind{"GRA", checkFigure}};

Checker checkerFor(const std::string& fileName) {
  const auto* kind = std::find_if(kKinds.begin(), kKinds.end(), [&](const Kind& k) {
    return equalIgnoringCase(GetExtensionName(fileName), k.extension);
  });
  if (kind == kKinds.end()) throw UsageError(shownName(fileName) + ": si attende un file .DAT, .FCN o .GRA");
  return kind->check;
}

}  // namespace

int runCheck(const std::string& fileName) {
  TerminalFiles files;
  const Checker check = checkerFor(fileName);
  FileCheck found;
  usingFile(fileName, [&] { found = check(files, fileName); });
  if (found.good) {
    std::cout << shownName(fileName) << ": nessun errore\n";
    return 0;
  }
  std::cout << terminalText(found.report);
  std::cerr << shownName(fileName) << ": il file contiene errori\n";
  return 2;
}

}  // namespace vk
