#include "platform/ManualPages.h"

#include <array>

#include "platform/Files.h"
#include "platform/InstalledFolders.h"
#include "platform/Process.h"

namespace vk {
namespace {

constexpr const char* kNoManual = "Manuale NON Trovato!";
constexpr const char* kNotOpened = "Manuale NON Aperto: ";

/// Of each topic, in their order. Headings are written small, with "-" for blanks and without other signs.
constexpr std::array<ManualPlace, kManualTopics> kPlaces{{
    {"20-finestre", "la-finestra-principale"},
    {"20-finestre", "la-scelta-di-un-file"},
    {"20-finestre", "importazione-tabella"},
    {"20-finestre", "selezione-funzione"},
    {"20-finestre", "carica-funzione"},
    {"20-finestre", "parametri-iniziali"},
    {"20-finestre", "adattamento-funzione-dati"},
    {"20-finestre", "diagnosi-delladattamento"},
    {"20-finestre", "la-finestra-di-una-figura"},
    {"20-finestre", "leditor"},
    {"20-finestre", "directory-di-lavoro"},
    {"20-finestre", "impostazioni-grafiche"},
    {"20-finestre", "calcolatrice"},
    {"70-propagazione", "nelle-finestre"},
    {"80-simulazione", "nelle-finestre"},
    {"85-trasformazione", "nelle-finestre"},
    {"30-dati", "il-controllo"},
    {"35-funzioni", "i-file-di-funzioni"},
    {"40-figure", "gli-errori"},
}};

/// The path of a page; empty when it is not there, or the folder is not.
std::string pageIn(Files& files, const std::string& folder, const std::string& name) {
  std::string path = joinPath(folder, name);
  return !folder.empty() && files.FileExists(path) ? path : "";
}

}  // namespace

ManualPlace manualPlace(ManualTopic topic) {
  return kPlaces.at(static_cast<std::size_t>(topic));
}

WindowText openManual(Files& files, Process& process, ManualTopic topic) {
  const ManualPlace place = manualPlace(topic);
  const std::string name = place.page;
  const std::string page = pageIn(files, manualFolder(files), name + ".html");
  const std::string path = !page.empty() ? page : pageIn(files, manualSourceFolder(files), name + ".md");
  if (path.empty()) return kNoManual;
  return process.show(path, page.empty() ? "" : place.heading) ? "" : kNotOpened + WindowText(path);
}

}  // namespace vk
