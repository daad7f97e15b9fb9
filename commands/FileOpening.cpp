#include "commands/FileOpening.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "commands/DataCommands.h"
#include "commands/FilePicking.h"
#include "commands/FunctionCommands.h"
#include "data/foreign/ForeignFile.h"
#include "session/FileSettings.h"

namespace vk {
namespace {

/// The command that reads the files of an extension.
struct Reader {
  const char* extension;
  FileKindCode kind;
  void (*read)(Session& session, Ports& ports);
};

constexpr Reader kDataReader{"DAT", kDataKind, MenDatLet};
constexpr std::array kReaders{kDataReader, Reader{"FCN", kFunctionKind, MenFunLet},
                              Reader{"GRA", kGraphicKind, MenGraLetFil}};

constexpr const char* kImported = "_IMP";

bool hasExtension(const std::string& path, const Reader& reader) {
  return equalIgnoringCase(GetExtensionName(path), reader.extension);
}

bool readBy(const Reader& reader, Session& session, Ports& ports, const std::string& path) {
  handFile(session, reader.kind, path);
  reader.read(session, ports);
  const RecentList& recent = recentList(session, reader.kind);
  return recent.RecentCount > 0 && recent.paths[1] == path;
}

/// The name of the data file that a table becomes, which is not that of the table.
std::string proposedName(const std::string& path) {
  return nameWithoutExtension(path) + (hasExtension(path, kDataReader) ? kImported : "") + "." +
         kDataReader.extension;
}

void refuse(Dialogs& dialogs, const std::string& path, const std::string& reason) {
  dialogs.plainBox(kProgramTitle, WindowText(kTheFile + path + ": " + reason));
}

/// Lets the user make a data file of a table, and reads that one.
bool importTable(Session& session, Ports& ports, const std::string& path, std::string bytes) {
  std::string saved;
  ports.importForm.show(GetFileName(path), std::move(bytes), [&](const std::string& text) {
    std::string name = proposedName(path);
    if (!saveDataText(session, ports, text, name)) return false;
    saved = name;
    return true;
  });
  return !saved.empty() && readBy(kDataReader, session, ports, saved);
}

bool openOtherFile(Session& session, Ports& ports, const std::string& path) {
  std::string bytes;
  try {
    bytes = ports.files.readAll(path);
  } catch (const RuntimeError& error) {
    refuse(ports.dialogs, path, error.reason());
    return false;
  }
  const std::string why = whyNoText(bytes);
  if (why.empty()) return importTable(session, ports, path, std::move(bytes));
  refuse(ports.dialogs, path, why);
  return false;
}

/// A data file that its command has refused may be a table that only bears the extension.
bool openRefusedDataFile(Session& session, Ports& ports, const std::string& path) {
  if (!ports.files.FileExists(path)) return false;
  std::string bytes = ports.files.readAll(path);
  return likelyCause(readForeign(bytes)).cured && importTable(session, ports, path, std::move(bytes));
}

}  // namespace

bool openFile(Session& session, Ports& ports, const std::string& path) {
  const auto* reader = std::ranges::find_if(kReaders, [&](const Reader& r) { return hasExtension(path, r); });
  if (reader == kReaders.end()) return openOtherFile(session, ports, path);
  if (readBy(*reader, session, ports, path)) return true;
  return reader->kind == kDataKind && openRefusedDataFile(session, ports, path);
}

}  // namespace vk
