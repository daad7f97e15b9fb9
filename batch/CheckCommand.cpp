#include "batch/CheckCommand.h"

#include <algorithm>
#include <array>
#include <iostream>

#include "base/Text.h"
#include "batch/DataInput.h"
#include "batch/DrawCommand.h"
#include "batch/TerminalPorts.h"
#include "commands/EditCommands.h"
#include "gral/ObserverDevice.h"
#include "session/FileSettings.h"

namespace vk {
namespace {

constexpr const char* kGoodFile = ": nessun errore\n";
constexpr const char* kBadFile = ": il file contiene errori\n";
constexpr const char* kNoKind = ": si attende un file .DAT, .FCN o .GRA";

using Checker = TextCheck (*)(const std::string& fileName);

template <FileKindCode kind>
TextCheck checkFile(const std::string& fileName) {
  TerminalFiles files;
  return checkText(kind, files.readAll(fileName));
}

/// The figure is drawn on a form that nobody sees: what cannot be drawn is an error too.
TextCheck checkFigure(const std::string& fileName) {
  ObserverDevice page;
  const std::string errors = drawGraphicFile(fileName, page);
  return {errors.empty(), errors};
}

struct Kind {
  const char* extension;
  Checker check;
};

constexpr std::array kKinds{Kind{"DAT", checkFile<kDataKind>}, Kind{"FCN", checkFile<kFunctionKind>},
                            Kind{"GRA", checkFigure}};

Checker checkerFor(const std::string& fileName) {
  const auto* kind = std::find_if(kKinds.begin(), kKinds.end(), [&](const Kind& k) {
    return equalIgnoringCase(GetExtensionName(fileName), k.extension);
  });
  if (kind == kKinds.end()) throw UsageError(shownName(fileName) + kNoKind);
  return kind->check;
}

}  // namespace

int runCheck(const std::string& fileName) {
  const Checker check = checkerFor(fileName);
  TextCheck found;
  usingFile(fileName, [&] { found = check(fileName); });
  if (found.good) {
    std::cout << shownName(fileName) << kGoodFile;
    return 0;
  }
  std::cout << terminalText(found.report);
  std::cerr << shownName(fileName) << kBadFile;
  return 2;
}

}  // namespace vk
