#include "commands/FileOpening.h"

#include <algorithm>
#include <array>

#include "base/Text.h"
#include "commands/DataCommands.h"
#include "commands/FilePicking.h"
#include "commands/FunctionCommands.h"
#include "session/FileSettings.h"

namespace vk {
namespace {

constexpr const char* kNoKind = " non ha Estensione DAT, FCN o GRA!";

/// The command that reads the files of an extension.
struct Reader {
  const char* extension;
  FileKindCode kind;
  void (*read)(Session& session, Ports& ports);
};

constexpr std::array kReaders{Reader{"DAT", kDataKind, MenDatLet}, Reader{"FCN", kFunctionKind, MenFunLet},
                              Reader{"GRA", kGraphicKind, MenGraLetFil}};

}  // namespace

bool openFile(Session& session, Ports& ports, const std::string& path) {
  const std::string extension = GetExtensionName(path);
  const auto* reader = std::ranges::find_if(
      kReaders, [&](const Reader& r) { return equalIgnoringCase(extension, r.extension); });
  if (reader == kReaders.end()) {
    ports.dialogs.plainBox(kProgramTitle, kTheFile + WindowText(path) + kNoKind);
    return false;
  }
  handFile(session, reader->kind, path);
  reader->read(session, ports);
  const RecentList& recent = recentList(session, reader->kind);
  return recent.RecentCount > 0 && recent.paths[1] == path;
}

}  // namespace vk
