#include "batch/CheckCommand.h"

#include <algorithm>
#include <array>
#include <iostream>

#include "base/Text.h"
#include "batch/DataInput.h"
#include "batch/DrawCommand.h"
#include "batch/FigureDesk.h"
#include "data/DataFiles.h"
#include "expr/FunctionFile.h"

namespace vk {
namespace {

/// The list of errors of one kind of file; the session's `ErrFlag` tells whether there are any.
using Checker = std::string (*)(Session& session, Files& files, std::string fileName);

std::string checkData(Session& session, Files& files, std::string fileName) {
  std::string errors = readData(files, fileName).errors;
  session.ErrFlag = toFlag(!errors.empty());
  return errors;
}

std::string checkFunctions(Session& session, Files& files, std::string fileName) {
  const ParsedFunctionFile parsed = parseFunctionFile(files.readAll(fileName));
  session.ErrFlag = toFlag(!parsed.ok);
  return parsed.report;
}

/// The figure is drawn on a form that nobody sees: what cannot be drawn is an error too.
std::string checkFigure(Session& session, Files&, std::string fileName) {
  const std::string errors = drawGraphicFile(fileName, *quietForm());
  session.ErrFlag = toFlag(!errors.empty());
  return errors;
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
  Session session;
  TerminalFiles files;
  const Checker check = checkerFor(fileName);
  std::string errors;
  usingFile(fileName, [&] { errors = check(session, files, fileName); });
  if (session.ErrFlag == 0) {
    std::cout << shownName(fileName) << ": nessun errore\n";
    return 0;
  }
  std::cout << terminalText(errors);
  std::cerr << shownName(fileName) << ": il file contiene errori\n";
  return 2;
}

}  // namespace vk
