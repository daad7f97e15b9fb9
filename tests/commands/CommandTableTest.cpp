#include "commands/CommandTable.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>

namespace vk {
namespace {

TEST(CommandTable, HasEveryCaptionWithItsAccessKey) {
  const std::map<std::string_view, std::string_view> captions{
      {"MenDat", "&Dati"},
      {"MenDatLet", "&Lettura File"},
      {"MenDatMod", "&Modifica File"},
      {"MenDatSav", "Salva con &Nome"},
      {"MenDatTra", "&Trasformazione Dati"},
      {"MenDatSim", "&Simulazione Dati"},
      {"MenFun", "&Funzioni"},
      {"MenFunSel", "&Selezione Funzione"},
      {"MenFunVar", "Sostituzione &Variabili"},
      {"MenFunLet", "&Lettura File"},
      {"MenFunMod", "&Modifica File"},
      {"MenFunCar", "&Carica Funzione"},
      {"MenGra", "&Grafici"},
      {"MenGraDat", "&Dati"},
      {"MenGraDatVis", "&Visualizza"},
      {"MenGraDatGra", "Salva File &Grafico"},
      {"MenGraFun", "Dati e &Funzione"},
      {"MenGraFunVis", "&Visualizza"},
      {"MenGraFunGra", "Salva File &Grafico"},
      {"MenGraDif", "D&ifferenze"},
      {"MenGraDifVis", "&Visualizza"},
      {"MenGraDifGra", "Salva File &Grafico"},
      {"MenGraDifSav", "Salva File &Differenze"},
      {"MenGraLetFil", "&Lettura File Grafico"},
      {"MenGraModFil", "&Modifica File Grafico"},
      {"MenGraVisFil", "&Visualizza File Grafico"},
      {"MenGraPriFil", "&Stampa File Grafico"},
      {"MenAda", "&Adattamento"},
      {"MenAdaPar", "&Parametri Iniziali"},
      {"MenAdaAda", "&Adattamento Funzione-Dati"},
      {"MenSer", "&Servizi"},
      {"MenSerCal", "&Calcolatrice"},
      {"MenSerPro", "&Propagazione Errori"},
      {"MenSerMod", "&Modifica Diario"},
      {"MenSerOpz", "&Opzioni"},
      {"MenSerImpDir", "&Directory di Lavoro"},
      {"MenSerImpGra", "Impostazioni &Grafiche"},
      {"MenSerErr", "&Visualizzazione Messaggi Errori"},
  };
  std::map<std::string_view, std::string_view> found;
  for (const Command& command : commandTable()) {
    if (command.kind != CommandKind::kRecent) found[command.name] = command.caption.bytes();
  }
  EXPECT_EQ(found, captions);
}

TEST(CommandTable, HasTheFiveTopMenusInTheirOrder) {
  std::vector<std::string_view> top;
  for (const Command& command : commandTable()) {
    if (!command.parent) top.push_back(command.name);
  }
  EXPECT_EQ(top, (std::vector<std::string_view>{"MenDat", "MenFun", "MenGra", "MenAda", "MenSer"}));
}

TEST(CommandTable, EachEntryStandsBehindAMenuThatHoldsIt) {
  std::set<std::optional<Control>> menus{std::nullopt};
  for (const Command& command : commandTable()) {
    EXPECT_TRUE(menus.contains(command.parent)) << command.name;
    if (command.kind == CommandKind::kMenu) menus.insert(command.control);
  }
}

TEST(CommandTable, TheRecentEntriesEndTheirMenusAndAreHidden) {
  std::map<std::string_view, int> recent;
  for (const Command& command : commandTable()) {
    if (command.kind == CommandKind::kRecent) {
      EXPECT_FALSE(command.visible());
      const std::string_view parent = commandOf(command.parent.value()).name;
      EXPECT_EQ(command.name, std::string(parent) + "Old(" + std::to_string(recent[parent]++) + ")");
    } else if (command.parent) {
      EXPECT_FALSE(recent.contains(commandOf(*command.parent).name)) << command.name;
    }
  }
  EXPECT_EQ(recent, (std::map<std::string_view, int>{{"MenDat", 4}, {"MenFun", 4}, {"MenGra", 4}}));
}

TEST(CommandTable, TwoEntriesAreHiddenAndHaveNoCommand) {
  for (const Control control : {Control::MenSerMod, Control::MenFunVar}) {
    const auto command = std::ranges::find(commandTable(), control, &Command::control);
    ASSERT_NE(command, commandTable().end());
    EXPECT_EQ(command->kind, CommandKind::kNothing);
    EXPECT_FALSE(command->visible());
    EXPECT_FALSE(command->enabled());
  }
}

TEST(CommandTable, NamesAreUnique) {
  for (const Command& command : commandTable()) {
    EXPECT_EQ(std::ranges::count(commandTable(), command.name, &Command::name), 1) << command.name;
  }
}

}  // namespace
}  // namespace vk
