#include <array>

#include "base/Text.h"
#include "commands/FigureCommands.h"
#include "commands/FilePicking.h"

namespace vk {
namespace {

/// What the files of a figure are called.
struct SavedText {
  const char* suffix;  ///< of the proposed name, behind that of the data file
  WindowText caption;
  int fileKind;
};

/// By kind: the differences file, then the graphic texts of the figures.
constexpr std::array<SavedText, 4> kSavedTexts{{
    {"_DIF", "VOR_KEL: Salva File Dati (Differenze Dati-Funzione)", kDataKind},
    {"_DAT", "VOR_KEL: Salva File Grafico (Dati)", kGraphicKind},
    {"_FUN", "VOR_KEL: Salva File Grafico (Dati e Funzione)", kGraphicKind},
    {"_DIF", "VOR_KEL: Salva File Grafico (Differenze Dati-Funzione)", kGraphicKind},
}};

}  // namespace

void SaveGraphText(Session& session, Ports& ports, Int16 kind) {
  const auto index = static_cast<std::size_t>(kind);
  const SavedText& saved = kSavedTexts.at(index);
  std::string name = nameWithoutExtension(session.loaded.DataFile) + saved.suffix;
  if (!pickFileToSave(session, ports, saved.caption, saved.fileKind, name)) return;
  const std::string& text = kind == 0 ? session.figures.DiffText : session.figures.GraphText.at(index);
  ports.files.writeAll(name, text + std::string(kCrLf));
}

}  // namespace vk
