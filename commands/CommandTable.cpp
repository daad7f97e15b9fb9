#include "commands/CommandTable.h"

#include <array>

namespace vk {
namespace {

using enum CommandKind;

constexpr bool kOn = true;
constexpr bool kOff = false;
constexpr bool kShown = true;
constexpr bool kHidden = false;

constexpr std::array kTable{
    Command{"MenDat", "", "&Dati", kMenu, kOn, kShown},
    Command{"MenDatLet", "MenDat", "&Lettura File", kCommand, kOn, kShown},
    Command{"MenDatMod", "MenDat", "&Modifica File", kCommand, kOn, kShown},
    Command{"MenDatSav", "MenDat", "Salva con &Nome", kCommand, kOff, kShown},
    Command{"MenDatTra", "MenDat", "&Trasformazione Dati", kCommand, kOff, kShown},
    Command{"MenDatSim", "MenDat", "&Simulazione Dati", kCommand, kOff, kShown},
    Command{"MenDatOld(0)", "MenDat", "", kRecent, kOn, kHidden},
    Command{"MenDatOld(1)", "MenDat", "", kRecent, kOn, kHidden},
    Command{"MenDatOld(2)", "MenDat", "", kRecent, kOn, kHidden},
    Command{"MenDatOld(3)", "MenDat", "", kRecent, kOn, kHidden},

    Command{"MenFun", "", "&Funzioni", kMenu, kOn, kShown},
    Command{"MenFunSel", "MenFun", "&Selezione Funzione", kCommand, kOn, kShown},
    Command{"MenFunVar", "MenFun", "Sostituzione &Variabili", kNothing, kOff, kHidden},
    Command{"MenFunLet", "MenFun", "&Lettura File", kCommand, kOn, kShown},
    Command{"MenFunMod", "MenFun", "&Modifica File", kCommand, kOn, kShown},
    Command{"MenFunCar", "MenFun", "&Carica Funzione", kCommand, kOff, kShown},
    Command{"MenFunOld(0)", "MenFun", "", kRecent, kOn, kHidden},
    Command{"MenFunOld(1)", "MenFun", "", kRecent, kOn, kHidden},
    Command{"MenFunOld(2)", "MenFun", "", kRecent, kOn, kHidden},
    Command{"MenFunOld(3)", "MenFun", "", kRecent, kOn, kHidden},

    Command{"MenGra", "", "&Grafici", kMenu, kOn, kShown},
    Command{"MenGraDat", "MenGra", "&Dati", kMenu, kOff, kShown},
    Command{"MenGraDatVis", "MenGraDat", "&Visualizza", kCommand, kOff, kShown},
    Command{"MenGraDatGra", "MenGraDat", "Salva File &Grafico", kCommand, kOff, kShown},
    Command{"MenGraFun", "MenGra", "Dati e &Funzione", kMenu, kOff, kShown},
    Command{"MenGraFunVis", "MenGraFun", "&Visualizza", kCommand, kOff, kShown},
    Command{"MenGraFunGra", "MenGraFun", "Salva File &Grafico", kCommand, kOff, kShown},
    Command{"MenGraDif", "MenGra", "D&ifferenze", kMenu, kOff, kShown},
    Command{"MenGraDifVis", "MenGraDif", "&Visualizza", kCommand, kOff, kShown},
    Command{"MenGraDifGra", "MenGraDif", "Salva File &Grafico", kCommand, kOff, kShown},
    Command{"MenGraDifSav", "MenGraDif", "Salva File &Differenze", kCommand, kOff, kShown},
    Command{"MenGraLetFil", "MenGra", "&Lettura File Grafico", kCommand, kOn, kShown},
    Command{"MenGraModFil", "MenGra", "&Modifica File Grafico", kCommand, kOn, kShown},
    Command{"MenGraVisFil", "MenGra", "&Visualizza File Grafico", kCommand, kOff, kShown},
    Command{"MenGraPriFil", "MenGra", "&Stampa File Grafico", kCommand, kOff, kShown},
    Command{"MenGraOld(0)", "MenGra", "", kRecent, kOn, kHidden},
    Command{"MenGraOld(1)", "MenGra", "", kRecent, kOn, kHidden},
    Command{"MenGraOld(2)", "MenGra", "", kRecent, kOn, kHidden},
    Command{"MenGraOld(3)", "MenGra", "", kRecent, kOn, kHidden},

    Command{"MenAda", "", "&Adattamento", kMenu, kOff, kShown},
    Command{"MenAdaPar", "MenAda", "&Parametri Iniziali", kCommand, kOff, kShown},
    Command{"MenAdaAda", "MenAda", "&Adattamento Funzione-Dati", kCommand, kOff, kShown},

    Command{"MenSer", "", "&Servizi", kMenu, kOn, kShown},
    Command{"MenSerCal", "MenSer", "&Calcolatrice", kCommand, kOn, kShown},
    Command{"MenSerPro", "MenSer", "&Propagazione Errori", kCommand, kOff, kShown},
    Command{"MenSerMod", "MenSer", "&Modifica Diario", kNothing, kOff, kHidden},
    Command{"MenSerOpz", "MenSer", "&Opzioni", kMenu, kOn, kShown},
    Command{"MenSerImpDir", "MenSerOpz", "&Directory di Lavoro", kCommand, kOn, kShown},
    Command{"MenSerImpGra", "MenSerOpz", "Impostazioni &Grafiche", kCommand, kOn, kShown},
    Command{"MenSerErr", "MenSerOpz", "&Visualizzazione Messaggi Errori", kCheck, kOn, kShown},
};

}  // namespace

std::span<const Command> commandTable() {
  return kTable;
}

}  // namespace vk
