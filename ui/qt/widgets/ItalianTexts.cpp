#include "ui/qt/widgets/ItalianTexts.h"

#include <array>
#include <string_view>

namespace vk {
namespace {

struct Word {
  std::string_view source;
  const char* italian;
};

constexpr std::array kWords{
    // the file dialog
    Word{"Name", "Nome"},
    Word{"Size", "Dimensione"},
    Word{"Type", "Tipo"},
    Word{"Date Modified", "Ultima modifica"},
    Word{"Computer", "Computer"},
    Word{"Back", "Indietro"},
    Word{"Go back", "Torna indietro"},
    Word{"Forward", "Avanti"},
    Word{"Go forward", "Vai avanti"},
    Word{"Parent Directory", "Cartella superiore"},
    Word{"Go to the parent directory", "Vai alla cartella superiore"},
    Word{"Create New Folder", "Nuova cartella"},
    Word{"Create a New Folder", "Crea una nuova cartella"},
    Word{"New Folder", "Nuova cartella"},
    Word{"&New Folder", "&Nuova cartella"},
    Word{"List View", "Elenco"},
    Word{"Change to list view mode", "Mostra l'elenco"},
    Word{"Detail View", "Dettagli"},
    Word{"Change to detail view mode", "Mostra i dettagli"},
    Word{"Sidebar", "Luoghi"},
    Word{"List of places and bookmarks", "Luoghi e segnalibri"},
    Word{"Files", "File"},
    Word{"&Rename", "&Rinomina"},
    Word{"&Delete", "&Elimina"},
    Word{"Show &hidden files", "Mostra i file &nascosti"},
    Word{"Folder", "Cartella"},
    Word{"File Folder", "Cartella"},
    Word{"Recent Places", "Luoghi recenti"},
    Word{"Remove", "Rimuovi"},
    // edit boxes
    Word{"&Undo", "&Annulla"},
    Word{"&Redo", "&Ripeti"},
    Word{"Cu&t", "&Taglia"},
    Word{"&Copy", "&Copia"},
    Word{"Copy &Link Location", "Copia &indirizzo"},
    Word{"&Paste", "&Incolla"},
    Word{"Delete", "Elimina"},
    Word{"Select All", "Seleziona tutto"},
    // scroll bars
    Word{"Scroll here", "Scorri fin qui"},
    Word{"Top", "Inizio"},
    Word{"Bottom", "Fine"},
    Word{"Left edge", "Bordo sinistro"},
    Word{"Right edge", "Bordo destro"},
    Word{"Page up", "Pagina su"},
    Word{"Page down", "Pagina giù"},
    Word{"Page left", "Pagina a sinistra"},
    Word{"Page right", "Pagina a destra"},
    Word{"Scroll up", "Scorri su"},
    Word{"Scroll down", "Scorri giù"},
    Word{"Scroll left", "Scorri a sinistra"},
    Word{"Scroll right", "Scorri a destra"},
};

}  // namespace

QString ItalianTexts::translate(const char*, const char* source, const char*, int) const {
  for (const Word& word : kWords) {
    if (word.source == source) return word.italian;
  }
  return {};
}

}  // namespace vk
