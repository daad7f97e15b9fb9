#include "commands/CommandTable.h"

#include <array>

namespace vk {
namespace {

using enum CommandKind;
using enum Control;

constexpr std::nullopt_t kTop = std::nullopt;
constexpr bool kOn = true;
constexpr bool kOff = false;
constexpr bool kShown = true;
constexpr bool kHidden = false;

constexpr std::array kTable{
    Command{MenDat, "MenDat", kTop, "&Dati", kMenu, kOn, kShown},
    Command{MenDatLet, "MenDatLet", MenDat, "&Lettura File", kCommand, kOn, kShown},
    Command{MenDatMod, "MenDatMod", MenDat, "&Modifica File", kCommand, kOn, kShown},
    Command{MenDatSav, "MenDatSav", MenDat, "Salva con &Nome", kCommand, kOff, kShown},
    Command{MenDatTra, "MenDatTra", MenDat, "&Trasformazione Dati", kCommand, kOff, kShown},
    Command{MenDatSim, "MenDatSim", MenDat, "&Simulazione Dati", kCommand, kOff, kShown},
    Command{MenDatOld0, "MenDatOld(0)", MenDat, "", kRecent, kOn, kHidden},
    Command{MenDatOld1, "MenDatOld(1)", MenDat, "", kRecent, kOn, kHidden},
    Command{MenDatOld2, "MenDatOld(2)", MenDat, "", kRecent, kOn, kHidden},
    Command{MenDatOld3, "MenDatOld(3)", MenDat, "", kRecent, kOn, kHidden},

    Command{MenFun, "MenFun", kTop, "&Funzioni", kMenu, kOn, kShown},
    Command{MenFunSel, "MenFunSel", MenFun, "&Selezione Funzione", kCommand, kOn, kShown},
    Command{MenFunVar, "MenFunVar", MenFun, "Sostituzione &Variabili", kNothing, kOff, kHidden},
    Command{MenFunLet, "MenFunLet", MenFun, "&Lettura File", kCommand, kOn, kShown},
    Command{MenFunMod, "MenFunMod", MenFun, "&Modifica File", kCommand, kOn, kShown},
    Command{MenFunCar, "MenFunCar", MenFun, "&Carica Funzione", kCommand, kOff, kShown},
    Command{MenFunOld0, "MenFunOld(0)", MenFun, "", kRecent, kOn, kHidden},
    Command{MenFunOld1, "MenFunOld(1)", MenFun, "", kRecent, kOn, kHidden},
    Command{MenFunOld2, "MenFunOld(2)", MenFun, "", kRecent, kOn, kHidden},
    Command{MenFunOld3, "MenFunOld(3)", MenFun, "", kRecent, kOn, kHidden},

    Command{MenGra, "MenGra", kTop, "&Grafici", kMenu, kOn, kShown},
    Command{MenGraDat, "MenGraDat", MenGra, "&Dati", kMenu, kOff, kShown},
    Command{MenGraDatVis, "MenGraDatVis", MenGraDat, "&Visualizza", kCommand, kOff, kShown},
    Command{MenGraDatGra, "MenGraDatGra", MenGraDat, "Salva File &Grafico", kCommand, kOff, kShown},
    Command{MenGraFun, "MenGraFun", MenGra, "Dati e &Funzione", kMenu, kOff, kShown},
    Command{MenGraFunVis, "MenGraFunVis", MenGraFun, "&Visualizza", kCommand, kOff, kShown},
    Command{MenGraFunGra, "MenGraFunGra", MenGraFun, "Salva File &Grafico", kCommand, kOff, kShown},
    Command{MenGraDif, "MenGraDif", MenGra, "D&ifferenze", kMenu, kOff, kShown},
    Command{MenGraDifVis, "MenGraDifVis", MenGraDif, "&Visualizza", kCommand, kOff, kShown},
    Command{MenGraDifGra, "MenGraDifGra", MenGraDif, "Salva File &Grafico", kCommand, kOff, kShown},
    Command{MenGraDifSav, "MenGraDifSav", MenGraDif, "Salva File &Differenze", kCommand, kOff, kShown},
    Command{MenGraLetFil, "MenGraLetFil", MenGra, "&Lettura File Grafico", kCommand, kOn, kShown},
    Command{MenGraModFil, "MenGraModFil", MenGra, "&Modifica File Grafico", kCommand, kOn, kShown},
    Command{MenGraVisFil, "MenGraVisFil", MenGra, "&Visualizza File Grafico", kCommand, kOff, kShown},
    Command{MenGraPriFil, "MenGraPriFil", MenGra, "&Stampa File Grafico", kCommand, kOff, kShown},
    Command{MenGraOld0, "MenGraOld(0)", MenGra, "", kRecent, kOn, kHidden},
    Command{MenGraOld1, "MenGraOld(1)", MenGra, "", kRecent, kOn, kHidden},
    Command{MenGraOld2, "MenGraOld(2)", MenGra, "", kRecent, kOn, kHidden},
    Command{MenGraOld3, "MenGraOld(3)", MenGra, "", kRecent, kOn, kHidden},

    Command{MenAda, "MenAda", kTop, "&Adattamento", kMenu, kOff, kShown},
    Command{MenAdaPar, "MenAdaPar", MenAda, "&Parametri Iniziali", kCommand, kOff, kShown},
    Command{MenAdaAda, "MenAdaAda", MenAda, "&Adattamento Funzione-Dati", kCommand, kOff, kShown},

    Command{MenSer, "MenSer", kTop, "&Servizi", kMenu, kOn, kShown},
    Command{MenSerCal, "MenSerCal", MenSer, "&Calcolatrice", kCommand, kOn, kShown},
    Command{MenSerPro, "MenSerPro", MenSer, "&Propagazione Errori", kCommand, kOff, kShown},
    Command{MenSerMod, "MenSerMod", MenSer, "&Modifica Diario", kNothing, kOff, kHidden},
    Command{MenSerOpz, "MenSerOpz", MenSer, "&Opzioni", kMenu, kOn, kShown},
    Command{MenSerImpDir, "MenSerImpDir", MenSerOpz, "&Directory di Lavoro", kCommand, kOn, kShown},
    Command{MenSerImpGra, "MenSerImpGra", MenSerOpz, "Impostazioni &Grafiche", kCommand, kOn, kShown},
    Command{MenSerErr, "MenSerErr", MenSerOpz, "&Visualizzazione Messaggi Errori", kCheck, kOn, kShown},
};

static_assert(
    [] {
      for (std::size_t i = 0; i < kTable.size(); ++i) {
        if (kTable[i].control != static_cast<Control>(i)) return false;
      }
      return true;
    }(),
    "the controls stand in the order of the menus");

}  // namespace

std::span<const Command> commandTable() {
  return kTable;
}

std::string_view controlName(Control control) {
  return kTable[static_cast<std::size_t>(control)].name;
}

}  // namespace vk
