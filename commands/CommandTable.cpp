#include "commands/CommandTable.h"

#include <iterator>

#include "base/Text.h"
#include "commands/DataCommands.h"
#include "commands/EditCommands.h"
#include "commands/FigureCommands.h"
#include "commands/FilePicking.h"
#include "commands/FitCommand.h"
#include "commands/FunctionCommands.h"
#include "commands/ParameterCommands.h"
#include "commands/ServiceCommands.h"
#include "commands/SimulationCommand.h"
#include "commands/TransformationCommand.h"
#include "grafile/FigureKind.h"
#include "session/Session.h"

namespace vk {
namespace {

using enum CommandKind;

// ---- What the entries depend on ---------------------------------------------------------------------------

bool dataDefined(const Session& session) {
  return session.loaded.DataDefined != kFalse;
}
bool functionDefined(const Session& session) {
  return session.analysis.FunDefined != kFalse;
}
bool functionFileRead(const Session& session) {
  return session.loaded.FunFileRead != kFalse;
}
bool graphicFileChosen(const Session& session) {
  return session.loaded.GraDefined != kFalse;
}
/// A parameter is free.
bool parameterFree(const Session& session) {
  return session.analysis.ParVar != kFalse;
}
/// The model function can be drawn with the data.
bool fitDrawable(const Session& session) {
  return (session.analysis.ParametersSet & session.loaded.DataDefined) != kFalse;
}
bool drawableOrFree(const Session& session) {
  return fitDrawable(session) || parameterFree(session);
}
bool hasFigure(const Session& session, FigureKind figure) {
  return !trim(session.figures.GraphText[figure]).empty();
}
bool dataDrawn(const Session& session) {
  return hasFigure(session, kDataFigure) && dataDefined(session);
}
bool functionDrawn(const Session& session) {
  return hasFigure(session, kFunctionFigure) && fitDrawable(session);
}
bool differencesDrawn(const Session& session) {
  return hasFigure(session, kDifferencesFigure) && fitDrawable(session);
}
bool differencesKept(const Session& session) {
  return !trim(session.figures.DiffText).empty() && fitDrawable(session);
}

using Condition = bool (*)(const Session& session);

constexpr EnableRule follows(Condition condition) {
  return {condition, Refreshed::kBoth};
}
constexpr EnableRule turnedOnBy(Condition condition) {
  return {condition, Refreshed::kOnlyOn};
}
/// As `turnedOnBy`, and shown as it is from the ground up.
constexpr EnableRule needs(Condition condition) {
  return {condition, Refreshed::kOnlyOn, true};
}
/// Only commands turn the entry on and off.
constexpr EnableRule keptBy(Condition condition) {
  return {condition, Refreshed::kNever, true};
}
constexpr EnableRule kAsAtStart{};

// ---- The entries of recent lists --------------------------------------------------------------------------

/// Entry `index`, from 0, of a recent list, which `read` reads.
template <int index, FileKindCode kind, auto read>
constexpr Command recent(Control control, std::string_view name, Control menu) {
  const auto readEntry = [](Session& session, Ports& ports) {
    pickRecentFile(session, kind, index);
    read(session, ports);
  };
  return {control, name, menu, "", kRecent, readEntry, kAsAtStart, kind};
}

// ---- The table --------------------------------------------------------------------------------------------

using C = Control;
constexpr std::nullopt_t kTop = std::nullopt;

// Captions of several entries.
constexpr const char* kDataEntry = "&Dati";
constexpr const char* kReadEntry = "&Lettura File";
constexpr const char* kEditEntry = "&Modifica File";
constexpr const char* kShowEntry = "&Visualizza";
constexpr const char* kSaveGraphicEntry = "Salva File &Grafico";

constexpr Command kTable[]{
    {C::MenDat, "MenDat", kTop, kDataEntry, kMenu},
    {C::MenDatLet, "MenDatLet", C::MenDat, kReadEntry, kCommand, MenDatLet, kAsAtStart, kDataKind},
    {C::MenDatMod, "MenDatMod", C::MenDat, kEditEntry, kCommand, MenDatMod},
    {C::MenDatSav, "MenDatSav", C::MenDat, "Salva con &Nome", kCommand, MenDatSav, follows(dataDefined)},
    {C::MenDatTra, "MenDatTra", C::MenDat, "&Trasformazione Dati", kCommand, MenDatTra, follows(dataDefined)},
    {C::MenDatSim, "MenDatSim", C::MenDat, "&Simulazione Dati", kCommand, MenDatSim, follows(parameterFree)},
    recent<0, kDataKind, MenDatLet>(C::MenDatOld0, "MenDatOld(0)", C::MenDat),
    recent<1, kDataKind, MenDatLet>(C::MenDatOld1, "MenDatOld(1)", C::MenDat),
    recent<2, kDataKind, MenDatLet>(C::MenDatOld2, "MenDatOld(2)", C::MenDat),
    recent<3, kDataKind, MenDatLet>(C::MenDatOld3, "MenDatOld(3)", C::MenDat),

    {C::MenFun, "MenFun", kTop, "&Funzioni", kMenu},
    {C::MenFunSel, "MenFunSel", C::MenFun, "&Selezione Funzione", kCommand, MenFunSel},
    {C::MenFunVar, "MenFunVar", C::MenFun, "Sostituzione &Variabili", kNothing},
    {C::MenFunLet, "MenFunLet", C::MenFun, kReadEntry, kCommand, MenFunLet, kAsAtStart, kFunctionKind},
    {C::MenFunMod, "MenFunMod", C::MenFun, kEditEntry, kCommand, MenFunMod},
    {C::MenFunCar, "MenFunCar", C::MenFun, "&Carica Funzione", kCommand, MenFunCar, needs(functionFileRead)},
    recent<0, kFunctionKind, MenFunLet>(C::MenFunOld0, "MenFunOld(0)", C::MenFun),
    recent<1, kFunctionKind, MenFunLet>(C::MenFunOld1, "MenFunOld(1)", C::MenFun),
    recent<2, kFunctionKind, MenFunLet>(C::MenFunOld2, "MenFunOld(2)", C::MenFun),
    recent<3, kFunctionKind, MenFunLet>(C::MenFunOld3, "MenFunOld(3)", C::MenFun),

    {C::MenGra, "MenGra", kTop, "&Grafici", kMenu},
    {C::MenGraDat, "MenGraDat", C::MenGra, kDataEntry, kMenu, nullptr, follows(dataDefined)},
    {C::MenGraDatVis, "MenGraDatVis", C::MenGraDat, kShowEntry, kCommand, MenGraDatVis, follows(dataDefined)},
    {C::MenGraDatGra, "MenGraDatGra", C::MenGraDat, kSaveGraphicEntry, kCommand, MenGraDatGra,
     follows(dataDrawn)},
    {C::MenGraFun, "MenGraFun", C::MenGra, "Dati e &Funzione", kMenu, nullptr, follows(drawableOrFree)},
    {C::MenGraFunVis, "MenGraFunVis", C::MenGraFun, kShowEntry, kCommand, MenGraFunVis, follows(fitDrawable)},
    {C::MenGraFunGra, "MenGraFunGra", C::MenGraFun, kSaveGraphicEntry, kCommand, MenGraFunGra,
     follows(functionDrawn)},
    {C::MenGraDif, "MenGraDif", C::MenGra, "D&ifferenze", kMenu, nullptr, follows(drawableOrFree)},
    {C::MenGraDifVis, "MenGraDifVis", C::MenGraDif, kShowEntry, kCommand, MenGraDifVis, follows(fitDrawable)},
    {C::MenGraDifGra, "MenGraDifGra", C::MenGraDif, kSaveGraphicEntry, kCommand, MenGraDifGra,
     follows(differencesDrawn)},
    {C::MenGraDifSav, "MenGraDifSav", C::MenGraDif, "Salva File &Differenze", kCommand, MenGraDifSav,
     follows(differencesKept)},
    {C::MenGraLetFil, "MenGraLetFil", C::MenGra, "&Lettura File Grafico", kCommand, MenGraLetFil, kAsAtStart,
     kGraphicKind},
    {C::MenGraModFil, "MenGraModFil", C::MenGra, "&Modifica File Grafico", kCommand, MenGraModFil},
    {C::MenGraVisFil, "MenGraVisFil", C::MenGra, "&Visualizza File Grafico", kCommand, MenGraVisFil,
     needs(graphicFileChosen)},
    {C::MenGraPriFil, "MenGraPriFil", C::MenGra, "&Stampa File Grafico", kCommand, MenGraPriFil,
     needs(graphicFileChosen)},
    recent<0, kGraphicKind, MenGraLetFil>(C::MenGraOld0, "MenGraOld(0)", C::MenGra),
    recent<1, kGraphicKind, MenGraLetFil>(C::MenGraOld1, "MenGraOld(1)", C::MenGra),
    recent<2, kGraphicKind, MenGraLetFil>(C::MenGraOld2, "MenGraOld(2)", C::MenGra),
    recent<3, kGraphicKind, MenGraLetFil>(C::MenGraOld3, "MenGraOld(3)", C::MenGra),

    {C::MenAda, "MenAda", kTop, "&Adattamento", kMenu, nullptr, turnedOnBy(functionDefined)},
    {C::MenAdaPar, "MenAdaPar", C::MenAda, "&Parametri Iniziali", kCommand, MenAdaPar,
     turnedOnBy(functionDefined)},
    {C::MenAdaAda, "MenAdaAda", C::MenAda, "&Adattamento Funzione-Dati", kCommand, MenAdaAda,
     turnedOnBy(parameterFree)},

    {C::MenSer, "MenSer", kTop, "&Servizi", kMenu},
    {C::MenSerCal, "MenSerCal", C::MenSer, "&Calcolatrice", kCommand, MenSerCal},
    {C::MenSerPro, "MenSerPro", C::MenSer, "&Propagazione Errori", kCommand, MenSerPro,
     keptBy(functionDefined)},
    {C::MenSerMod, "MenSerMod", C::MenSer, "&Modifica Diario", kNothing},
    {C::MenSerOpz, "MenSerOpz", C::MenSer, "&Opzioni", kMenu},
    {C::MenSerImpDir, "MenSerImpDir", C::MenSerOpz, "&Directory di Lavoro", kCommand, MenSerImpDir},
    {C::MenSerImpGra, "MenSerImpGra", C::MenSerOpz, "Impostazioni &Grafiche", kCommand, MenSerImpGra},
    {C::MenSerErr, "MenSerErr", C::MenSerOpz, "&Visualizzazione Messaggi Errori", kCheck, MenSerErr},
};

static_assert(
    [] {
      for (std::size_t i = 0; i < std::size(kTable); ++i) {
        if (kTable[i].control != static_cast<Control>(i)) return false;
      }
      return true;
    }(),
    "the controls stand in the order of the menus");

}  // namespace

std::span<const Command> commandTable() {
  return kTable;
}

const Command& commandOf(Control control) {
  return kTable[static_cast<std::size_t>(control)];
}

}  // namespace vk
