#include "batch/FileKind.h"

#include <array>

#include "base/FileText.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "data/DataFiles.h"
#include "data/GridFile.h"
#include "data/foreign/BinaryKinds.h"
#include "expr/FunctionFile.h"
#include "platform/Files.h"

namespace vk {
namespace {

struct KindName {
  FileKind kind;
  const char *extension, *shown;
};

constexpr std::array kKindNames{
    KindName{FileKind::kData, "DAT", "un file dati (.DAT)"},
    KindName{FileKind::kFunctions, "FCN", "un file funzioni (.FCN)"},
    KindName{FileKind::kGraphic, "GRA", "un file grafico (.GRA)"},
    KindName{FileKind::kGrid, "GRD", "un file griglia (.GRD)"},
};

/// The lines that count, and those of them that are commands of a graphic file.
struct LineCounts {
  int all = 0, commands = 0;
};

LineCounts countLines(const std::string& bytes) {
  LineCounts count;
  TextLines lines(FileText(bytes).text());
  while (const auto next = lines.next()) {
    const std::string line = trim(*next);
    if (line.empty() || line.front() == '%') continue;
    ++count.all;
    if (line.front() == '\\') ++count.commands;
  }
  return count;
}

}  // namespace

std::optional<FileKind> kindOfName(const std::string& fileName) {
  for (const KindName& name : kKindNames) {
    if (equalIgnoringCase(GetExtensionName(fileName), name.extension)) return name.kind;
  }
  return std::nullopt;
}

// A title may begin as a command does.
std::optional<FileKind> kindOfContent(const std::string& bytes) {
  const LineCounts count = countLines(bytes);
  if (2 * count.commands > count.all) return FileKind::kGraphic;
  if (parseLines(bytes).errors.empty()) return FileKind::kData;
  if (parseGrid(bytes).errors.empty()) return FileKind::kGrid;
  if (parseFunctionFile(bytes).ok) return FileKind::kFunctions;
  return std::nullopt;
}

std::string whyNot(FileKind kind, const std::string& bytes) {
  if (bytes.find_first_not_of(" \t\r\n") == std::string::npos) return "il file e` vuoto";
  if (const auto other = nameOfOtherKind(bytes); !other.empty()) return "sembra " + std::string(other);
  const auto content = kindOfContent(bytes);
  for (const KindName& name : kKindNames) {
    if (content == name.kind && content != kind) return std::string("sembra ") + name.shown;
  }
  return kind == FileKind::kGraphic && countLines(bytes).commands == 0 ? "non contiene comandi" : "";
}

}  // namespace vk
