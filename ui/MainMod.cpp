#include "ui/MainMod.h"

#include <array>
#include <optional>

#include "base/FlagFor.h"
#include "base/Guard.h"
#include "base/NumberMasks.h"
#include "commands/DataCommands.h"
#include "commands/FigureCommands.h"
#include "commands/FitCommand.h"
#include "commands/FunctionCommands.h"
#include "commands/ParameterCommands.h"
#include "commands/PropagationCommand.h"
#include "commands/ServiceCommands.h"
#include "commands/SimulationCommand.h"
#include "commands/StartUp.h"
#include "commands/TransformationCommand.h"
#include "expr/FunMod.h"
#include "session/FileSelection.h"
#include "session/Msg.h"
#include "session/Session.h"
#include "session/SoundSignal.h"
#include "ui/Checkpoint.h"

namespace vk {
namespace {

constexpr const char* kWelcome =
    "La versione 1.0 di VOR_KEL per Windows 98 e` una versione preliminare"
    " che offre praticamente la stessa funzionalita` della versione 3.6"
    " sviluppata per l'ambiente DOS.\r"
    "Si pregano gli utenti di segnalare i difetti di"
    " funzionamento che dovessero essere riscontrati.\r"
    "La guida si trova nella cartella della documentazione (docs).\r"
    "VOR_KEL e` opera di chi lo usa e di chi lo sviluppa.";

}  // namespace

struct MainMod::Handler {
  Control control;
  void (MainMod::*command)() = nullptr;
  void (MainMod::*recent)(int index) = nullptr;
  void (*figure)(Session& session, FigurePorts& ports) = nullptr;
  int reads = 0;  ///< `FileKindCode` of what a reading command reads; 0 for any other
};

const MainMod::Handler* MainMod::findHandler(Control control) {
  static constexpr std::array kHandlers{
      Handler{.control = Control::MenDatLet, .command = &MainMod::menDatLet, .reads = kDataKind},
      Handler{Control::MenDatMod, &MainMod::menDatMod},
      Handler{Control::MenDatSav, &MainMod::menDatSav},
      Handler{Control::MenDatTra, &MainMod::menDatTra},
      Handler{Control::MenDatSim, &MainMod::menDatSim},
      Handler{.control = Control::MenDatOld0, .recent = &MainMod::recent<kDataKind>, .reads = kDataKind},
      Handler{.control = Control::MenDatOld1, .recent = &MainMod::recent<kDataKind>, .reads = kDataKind},
      Handler{.control = Control::MenDatOld2, .recent = &MainMod::recent<kDataKind>, .reads = kDataKind},
      Handler{.control = Control::MenDatOld3, .recent = &MainMod::recent<kDataKind>, .reads = kDataKind},
      Handler{Control::MenFunSel, &MainMod::menFunSel},
      Handler{.control = Control::MenFunLet, .command = &MainMod::menFunLet, .reads = kFunctionKind},
      Handler{Control::MenFunMod, &MainMod::menFunMod},
      Handler{Control::MenFunCar, &MainMod::menFunCar},
      Handler{
          .control = Control::MenFunOld0, .recent = &MainMod::recent<kFunctionKind>, .reads = kFunctionKind},
      Handler{
          .control = Control::MenFunOld1, .recent = &MainMod::recent<kFunctionKind>, .reads = kFunctionKind},
      Handler{
          .control = Control::MenFunOld2, .recent = &MainMod::recent<kFunctionKind>, .reads = kFunctionKind},
      Handler{
          .control = Control::MenFunOld3, .recent = &MainMod::recent<kFunctionKind>, .reads = kFunctionKind},
      Handler{.control = Control::MenGraDatVis, .figure = MenGraDatVis},
      Handler{.control = Control::MenGraDatGra, .figure = MenGraDatGra},
      Handler{.control = Control::MenGraFunVis, .figure = MenGraFunVis},
      Handler{.control = Control::MenGraFunGra, .figure = MenGraFunGra},
      Handler{.control = Control::MenGraDifVis, .figure = MenGraDifVis},
      Handler{.control = Control::MenGraDifGra, .figure = MenGraDifGra},
      Handler{.control = Control::MenGraDifSav, .figure = MenGraDifSav},
      Handler{.control = Control::MenGraLetFil, .command = &MainMod::menGraLetFil, .reads = kGraphicKind},
      Handler{Control::MenGraModFil, &MainMod::menGraModFil},
      Handler{.control = Control::MenGraVisFil, .figure = MenGraVisFil},
      Handler{.control = Control::MenGraPriFil, .figure = MenGraPriFil},
      Handler{
          .control = Control::MenGraOld0, .recent = &MainMod::recent<kGraphicKind>, .reads = kGraphicKind},
      Handler{
          .control = Control::MenGraOld1, .recent = &MainMod::recent<kGraphicKind>, .reads = kGraphicKind},
      Handler{
          .control = Control::MenGraOld2, .recent = &MainMod::recent<kGraphicKind>, .reads = kGraphicKind},
      Handler{
          .control = Control::MenGraOld3, .recent = &MainMod::recent<kGraphicKind>, .reads = kGraphicKind},
      Handler{Control::MenAdaPar, &MainMod::menAdaPar},
      Handler{Control::MenAdaAda, &MainMod::menAdaAda},
      Handler{Control::MenSerCal, &MainMod::menSerCal},
      Handler{Control::MenSerPro, &MainMod::menSerPro},
      Handler{Control::MenSerImpDir, &MainMod::menSerImpDir},
      Handler{Control::MenSerImpGra, &MainMod::menSerImpGra},
      Handler{Control::MenSerErr, &MainMod::menSerErr},
  };
  for (const Handler& handler : kHandlers) {
    if (handler.control == control) return &handler;
  }
  return nullptr;
}

void MainMod::StartUp(const std::function<void()>& showMainWindow) {
  guarded([this] { setFirstFolders(session_, ports_.files); });
  guarded([this] { prepareWindow(); });
  guarded(showMainWindow);
  guarded([this] { welcome(); });
  guarded([this] { fillCatalogue(); });
  guarded([this] { SoundSignal(session_, ports_.sound, 0); });
  guarded([this] { Msg(session_, ports_.window); });
}

void MainMod::prepareWindow() {
  for (int panel = 1; panel <= 5; ++panel) {
    ports_.window.setPanel(panel, kStartPanels[static_cast<std::size_t>(panel) - 1]);
  }
  setFirstMenus(ports_.window);
  ports_.window.setBackground(session_.settings.BackImage);
  ports_.window.setCaption(kProgramTitle);
}

void MainMod::fillCatalogue() {
  BuildCatalogue(session_);
  ports_.functions.refillSelection();
}

void MainMod::welcome() {
  ports_.dialogs.Get_Msg({.caption = "VOR_KEL Versione Windows 98",
                          .text = kWelcome,
                          .icon = kInformation,
                          .captions = {"&Continua"}});
}

void MainMod::run(Control control) {
  if (running_) return;
  const Handler* handler = findHandler(control);
  const bool ended = guarded([&] {
    const FlagFor running(running_, kTrue);
    if (handler == nullptr || panels_.isOpen()) return;
    session_.GammaTold = kFalse;
    if (handler->recent != nullptr) {
      (this->*handler->recent)(static_cast<int>(control) -
                               static_cast<int>(recentControl(handler->reads, 0)));
    } else if (handler->figure != nullptr) {
      handler->figure(session_, figures());
    } else {
      (this->*handler->command)();
    }
    if (!panels_.isOpen()) Msg(session_, ports_.window);
  });
  // The entry that is picked may be what failed; it would fail at every reading, and nobody would be asked.
  if (!ended && handler != nullptr && handler->reads != 0) recentList(session_, handler->reads).pick = 0;
}

bool MainMod::guarded(const std::function<void()>& handler) {
  std::optional<Checkpoint> before;
  try {
    before.emplace(session_, ports_, panels_, editor_, plots());
    handler();
    return true;
  } catch (...) {
    const RuntimeError error = presentRuntimeError();
    guard([&] { tell(error); });
    if (before) before->goBack(plots());
    return false;
  }
}

void MainMod::tell(const RuntimeError& error) {
  ports_.dialogs.plainBox(kProgramTitle, error.message());
}

FigurePorts& MainMod::figures() {
  if (figures_ == nullptr) figures_ = &ports_.figures();
  return *figures_;
}

void MainMod::runInputAction(int action) {
  switch (action) {
    case kStoreParameters:
      StoreParameters(session_, ports_.window);
      break;
    case kTransformData:
      TransformData(session_, ports_.dialogs, ports_.window);
      break;
    case kSimulateData:
      SimulateData(session_, ports_.dialogs, ports_.window, ports_.random, [this] { menAdaAda(); });
      break;
  }
}

void MainMod::edit(const std::string& caption, Int16 kind) {
  std::string name;
  PickFile(session_, ports_.files, ports_.dialogs, caption, name, kind, kPickForEditor);
  if (session_.ErrFlag == 0) editor_.OpenEditor(name, kind);
}

template <FileKindCode kind>
void MainMod::recent(int index) {
  pickRecentFile(session_, kind, index);
  switch (kind) {
    case kDataKind:
      return menDatLet();
    case kFunctionKind:
      return menFunLet();
    case kGraphicKind:
      return menGraLetFil();
  }
}

void MainMod::menDatLet() {
  MenDatLet(session_, ports_.files, ports_.dialogs, ports_.output, ports_.window);
}
void MainMod::menDatMod() {
  edit("VOR_KEL: Modifica File Dati", kDataKind);
}
void MainMod::menDatSav() {
  MenDatSav(session_, ports_.files, ports_.dialogs);
}
void MainMod::menDatTra() {
  MenDatTra(session_, ports_.input);
}
void MainMod::menDatSim() {
  MenDatSim(session_, ports_.input);
}
void MainMod::menFunSel() {
  MenFunSel(session_, ports_.window, ports_.functions);
}
void MainMod::menFunLet() {
  MenFunLet(session_, ports_.files, ports_.dialogs, ports_.output, ports_.window, ports_.functions);
}
void MainMod::menFunMod() {
  edit("VOR_KEL: Modifica File Funzioni", kFunctionKind);
}
void MainMod::menFunCar() {
  MenFunCar(session_, ports_.window, ports_.functions);
}
void MainMod::menGraLetFil() {
  MenGraLetFil(session_, ports_.files, ports_.dialogs, ports_.window);
}
void MainMod::menGraModFil() {
  edit("VOR_KEL: Modifica File Grafico", kGraphicKind);
}
void MainMod::menAdaPar() {
  MenAdaPar(session_, ports_.input);
}
void MainMod::menAdaAda() {
  MenAdaAda(session_, ports_.dialogs, ports_.window, ports_.output, ports_.clock);
}
void MainMod::menSerCal() {
  MenSerCal(ports_.files, ports_.process, ports_.dialogs);
}
void MainMod::menSerPro() {
  MenSerPro(session_, ports_.input, [this] {
    PropagateErrors(
        session_, {ports_.dialogs, ports_.window, ports_.output, ports_.files, ports_.clock, ports_.random});
  });
}
void MainMod::menSerErr() {
  MenSerErr(session_, ports_.window);
}

}  // namespace vk
