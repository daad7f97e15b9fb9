#include "batch/CheckCommand.h"

#include <array>
#include <iostream>

#include "base/FileText.h"
#include "base/Text.h"
#include "batch/DataInput.h"
#include "batch/DrawCommand.h"
#include "batch/FileKind.h"
#include "batch/TerminalPorts.h"
#include "batch/TypedFormula.h"
#include "commands/EditCommands.h"
#include "data/DataFiles.h"
#include "data/DataWarnings.h"
#include "data/GridFile.h"
#include "expr/FunctionFile.h"
#include "gral/ObserverDevice.h"
#include "platform/system/Descriptors.h"

namespace vk {
namespace {

constexpr const char* kGoodFile = ": nessun errore\n";
constexpr const char* kBadFile = ": il file contiene errori\n";
constexpr const char* kNoKind = ": si attende un file .DAT, .GRD, .FCN o .GRA";

/// What was found in a file: the program's own list, and what it does not tell.
struct Findings {
  TextCheck check;
  std::string cause;  ///< why it is no data file, and the way out; empty if unknown
  std::vector<std::string> warnings;
};

using Checker = Findings (*)(const std::string& fileName, const std::string& bytes);

Findings checkData(const std::string& fileName, const std::string& bytes) {
  const DataReading read = parseLines(bytes);
  if (read.errors.empty()) return {{true, {}}, {}, dataWarnings(read)};
  return {{false, read.errors}, causeOf(fileName, bytes), {}};
}

Findings checkFunctions(const std::string&, const std::string& bytes) {
  const ParsedFunctionFile parsed = parseFunctionFile(bytes);
  Findings found{{parsed.ok, parsed.report}, parsed.ok ? "" : whyNot(FileKind::kFunctions, bytes), {}};
  for (const DoubtfulFunction& function : parsed.doubtful) found.warnings.push_back(doubtText(function));
  return found;
}

/// The figure is drawn on a form that nobody sees: what cannot be drawn is an error too.
Findings checkFigure(const std::string& fileName, const std::string& bytes) {
  ObserverDevice page;
  const DrawnFigure drawn = drawGraphicFile(fileName, bytes, page);
  return {{drawn.errors.empty(), drawn.errors}, {}, drawn.warnings};
}

Findings checkGrid(const std::string&, const std::string& bytes) {
  const std::string errors = parseGrid(bytes).errors;
  return {{errors.empty(), errors}, errors.empty() ? "" : whyNot(FileKind::kGrid, bytes), {}};
}

std::string signWarning(int line) {
  return "linea " + std::to_string(line) +
         ": un byte non e` UTF-8: il testo e` letto con la tabella dei codici 437";
}

/// By kinds of file.
constexpr std::array<Checker, 4> kCheckers{checkData, checkFunctions, checkFigure, checkGrid};

/// The kind of a file; a stream has no name that tells it. Another ending than the four raises `UsageError`.
FileKind kindOf(const std::string& fileName, const std::string& bytes) {
  if (const auto kind = kindOfName(fileName)) return *kind;
  if (fileName == kStandardStream || descriptorOf(fileName))
    return kindOfContent(bytes).value_or(FileKind::kData);
  const std::string cause = causeOf(fileName, bytes);
  throw UsageError(shownName(fileName) + kNoKind + (cause.empty() ? "" : "; " + cause));
}

}  // namespace

int runCheck(const std::string& fileName) {
  Findings found;
  usingFile(fileName, [&] {
    const std::string bytes = TerminalFiles().readAll(fileName);
    found = kCheckers.at(static_cast<std::size_t>(kindOf(fileName, bytes)))(fileName, bytes);
    if (const int line = FileText(bytes).lineOfSign(); line != 0) found.warnings.push_back(signWarning(line));
  });
  const std::string name = shownName(fileName);
  for (const std::string& warning : found.warnings) std::clog << warningLine(fileName, warning);
  if (found.check.good) {
    std::cout << name << kGoodFile;
    return kExitDone;
  }
  std::cout << terminalText(found.check.report);
  if (!found.cause.empty()) std::cout << found.cause << '\n';
  std::cerr << name << kBadFile;
  return kExitBadInput;
}

}  // namespace vk
