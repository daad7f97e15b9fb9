#include <array>

#include "base/Text.h"
#include "commands/FigureCommands.h"
#include "commands/FilePicking.h"
#include "grafile/StandardFigure.h"

namespace vk {
namespace {

/// How the files of a figure differ.
struct SavedText {
  const char* suffix;  ///< of the proposed name, behind that of the data file
  WindowText word;     ///< of the kind of file
  int fileKind;
};

constexpr const char* kSaveCaption = "VOR_KEL: Salva File ";

/// By kind: the differences file, then the graphic texts of the figures.
constexpr std::array<SavedText, 4> kSavedTexts{{
    {"_DIF", kDataWord, kDataKind},
    {"_DAT", kGraphicWord, kGraphicKind},
    {"_FUN", kGraphicWord, kGraphicKind},
    {"_DIF", kGraphicWord, kGraphicKind},
}};

}  // namespace

void SaveGraphText(Session& session, Ports& ports, int kind) {
  const auto index = static_cast<std::size_t>(kind);
  const SavedText& saved = kSavedTexts.at(index);
  std::string name = nameWithoutExtension(session.loaded.DataFile) + saved.suffix;
  const WindowText caption = kSaveCaption + saved.word + " (" + WindowText(nameOfFigure(kind)) + ")";
  if (!pickFileToSave(session, ports, caption, saved.fileKind, name)) return;
  const std::string& text = kind == 0 ? session.figures.DiffText : session.figures.GraphText.at(index);
  ports.files.writeAll(name, text + std::string(kCrLf));
}

}  // namespace vk
