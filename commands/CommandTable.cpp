#include "commands/CommandTable.h"

#include <array>

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

// ---- What they run ----------------------------------------------------------------------------------------

/// Reads an entry of a recent list.
template <int index, FileKindCode kind, auto read>
void readRecent(Session& session, Ports& ports) {
  pickRecentFile(session, kind, index);
  read(session, ports);
}

// ---- The table --------------------------------------------------------------------------------------------

constexpr std::nullopt_t kTop = std::nullopt;
constexpr bool kOn = true;
constexpr bool kOff = false;
constexpr bool kShown = true;
constexpr bool kHidden = false;

// Captions of several entries.
constexpr const char* kDataEntry = "&Dati";
constexpr const char* kReadEntry = "&Lettura File";
constexpr const char* kEditEntry = "&Modifica File";
constexpr const char* kShowEntry = "&Visualizza";
constexpr const char* kSaveGraphicEntry = "Salva File &Grafico";

constexpr std::array kTable{
    Command{Control::MenDat, "MenDat", kTop, kDataEntry, kMenu, kOn, kShown},
    Command{Control::MenDatLet, "MenDatLet", Control::MenDat, kReadEntry, kCommand, kOn, kShown, kAsAtStart,
            MenDatLet, kDataKind},
    Command{Control::MenDatMod, "MenDatMod", Control::MenDat, kEditEntry, kCommand, kOn, kShown, kAsAtStart,
            MenDatMod},
    Command{Control::MenDatSav, "MenDatSav", Control::MenDat, "Salva con &Nome", kCommand, kOff, kShown,
            follows(dataDefined), MenDatSav},
    Command{Control::MenDatTra, "MenDatTra", Control::MenDat, "&Trasformazione Dati", kCommand, kOff, kShown,
            follows(dataDefined), MenDatTra},
    Command{Control::MenDatSim, "MenDatSim", Control::MenDat, "&Simulazione Dati", kCommand, kOff, kShown,
            follows(parameterFree), MenDatSim},
    Command{Control::MenDatOld0, "MenDatOld(0)", Control::MenDat, "", kRecent, kOn, kHidden, kAsAtStart,
            readRecent<0, kDataKind, MenDatLet>, kDataKind},
    Command{Control::MenDatOld1, "MenDatOld(1)", Control::MenDat, "", kRecent, kOn, kHidden, kAsAtStart,
            readRecent<1, kDataKind, MenDatLet>, kDataKind},
    Command{Control::MenDatOld2, "MenDatOld(2)", Control::MenDat, "", kRecent, kOn, kHidden, kAsAtStart,
            readRecent<2, kDataKind, MenDatLet>, kDataKind},
    Command{Control::MenDatOld3, "MenDatOld(3)", Control::MenDat, "", kRecent, kOn, kHidden, kAsAtStart,
            readRecent<3, kDataKind, MenDatLet>, kDataKind},

    Command{Control::MenFun, "MenFun", kTop, "&Funzioni", kMenu, kOn, kShown},
    Command{Control::MenFunSel, "MenFunSel", Control::MenFun, "&Selezione Funzione", kCommand, kOn, kShown,
            kAsAtStart, MenFunSel},
    Command{Control::MenFunVar, "MenFunVar", Control::MenFun, "Sostituzione &Variabili", kNothing, kOff,
            kHidden},
    Command{Control::MenFunLet, "MenFunLet", Control::MenFun, kReadEntry, kCommand, kOn, kShown, kAsAtStart,
            MenFunLet, kFunctionKind},
    Command{Control::MenFunMod, "MenFunMod", Control::MenFun, kEditEntry, kCommand, kOn, kShown, kAsAtStart,
            MenFunMod},
    Command{Control::MenFunCar, "MenFunCar", Control::MenFun, "&Carica Funzione", kCommand, kOff, kShown,
            needs(functionFileRead), MenFunCar},
    Command{Control::MenFunOld0, "MenFunOld(0)", Control::MenFun, "", kRecent, kOn, kHidden, kAsAtStart,
            readRecent<0, kFunctionKind, MenFunLet>, kFunctionKind},
    Command{Control::MenFunOld1, "MenFunOld(1)", Control::MenFun, "", kRecent, kOn, kHidden, kAsAtStart,
            readRecent<1, kFunctionKind, MenFunLet>, kFunctionKind},
    Command{Control::MenFunOld2, "MenFunOld(2)", Control::MenFun, "", kRecent, kOn, kHidden, kAsAtStart,
            readRecent<2, kFunctionKind, MenFunLet>, kFunctionKind},
    Command{Control::MenFunOld3, "MenFunOld(3)", Control::MenFun, "", kRecent, kOn, kHidden, kAsAtStart,
            readRecent<3, kFunctionKind, MenFunLet>, kFunctionKind},

    Command{Control::MenGra, "MenGra", kTop, "&Grafici", kMenu, kOn, kShown},
    Command{Control::MenGraDat, "MenGraDat", Control::MenGra, kDataEntry, kMenu, kOff, kShown,
            follows(dataDefined)},
    Command{Control::MenGraDatVis, "MenGraDatVis", Control::MenGraDat, kShowEntry, kCommand, kOff, kShown,
            follows(dataDefined), MenGraDatVis},
    Command{Control::MenGraDatGra, "MenGraDatGra", Control::MenGraDat, kSaveGraphicEntry, kCommand, kOff,
            kShown, follows(dataDrawn), MenGraDatGra},
    Command{Control::MenGraFun, "MenGraFun", Control::MenGra, "Dati e &Funzione", kMenu, kOff, kShown,
            follows(drawableOrFree)},
    Command{Control::MenGraFunVis, "MenGraFunVis", Control::MenGraFun, kShowEntry, kCommand, kOff, kShown,
            follows(fitDrawable), MenGraFunVis},
    Command{Control::MenGraFunGra, "MenGraFunGra", Control::MenGraFun, kSaveGraphicEntry, kCommand, kOff,
            kShown, follows(functionDrawn), MenGraFunGra},
    Command{Control::MenGraDif, "MenGraDif", Control::MenGra, "D&ifferenze", kMenu, kOff, kShown,
            follows(drawableOrFree)},
    Command{Control::MenGraDifVis, "MenGraDifVis", Control::MenGraDif, kShowEntry, kCommand, kOff, kShown,
            follows(fitDrawable), MenGraDifVis},
    Command{Control::MenGraDifGra, "MenGraDifGra", Control::MenGraDif, kSaveGraphicEntry, kCommand, kOff,
            kShown, follows(differencesDrawn), MenGraDifGra},
    Command{Control::MenGraDifSav, "MenGraDifSav", Control::MenGraDif, "Salva File &Differenze", kCommand,
            kOff, kShown, follows(differencesKept), MenGraDifSav},
    Command{Control::MenGraLetFil, "MenGraLetFil", Control::MenGra, "&Lettura File Grafico", kCommand, kOn,
            kShown, kAsAtStart, MenGraLetFil, kGraphicKind},
    Command{Control::MenGraModFil, "MenGraModFil", Control::MenGra, "&Modifica File Grafico", kCommand, kOn,
            kShown, kAsAtStart, MenGraModFil},
    Command{Control::MenGraVisFil, "MenGraVisFil", Control::MenGra, "&Visualizza File Grafico", kCommand,
            kOff, kShown, needs(graphicFileChosen), MenGraVisFil},
    Command{Control::MenGraPriFil, "MenGraPriFil", Control::MenGra, "&Stampa File Grafico", kCommand, kOff,
            kShown, needs(graphicFileChosen), MenGraPriFil},
    Command{Control::MenGraOld0, "MenGraOld(0)", Control::MenGra, "", kRecent, kOn, kHidden, kAsAtStart,
            readRecent<0, kGraphicKind, MenGraLetFil>, kGraphicKind},
    Command{Control::MenGraOld1, "MenGraOld(1)", Control::MenGra, "", kRecent, kOn, kHidden, kAsAtStart,
            readRecent<1, kGraphicKind, MenGraLetFil>, kGraphicKind},
    Command{Control::MenGraOld2, "MenGraOld(2)", Control::MenGra, "", kRecent, kOn, kHidden, kAsAtStart,
            readRecent<2, kGraphicKind, MenGraLetFil>, kGraphicKind},
    Command{Control::MenGraOld3, "MenGraOld(3)", Control::MenGra, "", kRecent, kOn, kHidden, kAsAtStart,
            readRecent<3, kGraphicKind, MenGraLetFil>, kGraphicKind},

    Command{Control::MenAda, "MenAda", kTop, "&Adattamento", kMenu, kOff, kShown,
            turnedOnBy(functionDefined)},
    Command{Control::MenAdaPar, "MenAdaPar", Control::MenAda, "&Parametri Iniziali", kCommand, kOff, kShown,
            turnedOnBy(functionDefined), MenAdaPar},
    Command{Control::MenAdaAda, "MenAdaAda", Control::MenAda, "&Adattamento Funzione-Dati", kCommand, kOff,
            kShown, turnedOnBy(parameterFree), MenAdaAda},

    Command{Control::MenSer, "MenSer", kTop, "&Servizi", kMenu, kOn, kShown},
    Command{Control::MenSerCal, "MenSerCal", Control::MenSer, "&Calcolatrice", kCommand, kOn, kShown,
            kAsAtStart, MenSerCal},
    Command{Control::MenSerPro, "MenSerPro", Control::MenSer, "&Propagazione Errori", kCommand, kOff, kShown,
            keptBy(functionDefined), MenSerPro},
    Command{Control::MenSerMod, "MenSerMod", Control::MenSer, "&Modifica Diario", kNothing, kOff, kHidden},
    Command{Control::MenSerOpz, "MenSerOpz", Control::MenSer, "&Opzioni", kMenu, kOn, kShown},
    Command{Control::MenSerImpDir, "MenSerImpDir", Control::MenSerOpz, "&Directory di Lavoro", kCommand, kOn,
            kShown, kAsAtStart, MenSerImpDir},
    Command{Control::MenSerImpGra, "MenSerImpGra", Control::MenSerOpz, "Impostazioni &Grafiche", kCommand,
            kOn, kShown, kAsAtStart, MenSerImpGra},
    Command{Control::MenSerErr, "MenSerErr", Control::MenSerOpz, "&Visualizzazione Messaggi Errori", kCheck,
            kOn, kShown, kAsAtStart, MenSerErr},
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

const Command& commandOf(Control control) {
  return kTable[static_cast<std::size_t>(control)];
}

}  // namespace vk
