#include "commands/FunctionCommands.h"

#include "commands/DisplayRefresh.h"
#include "commands/FilePicking.h"
#include "commands/FunctionChoice.h"
#include "commands/FunctionFiles.h"
#include "session/Session.h"

namespace vk {
namespace {

const WindowText kReadFunctions = kReadCaption + WindowText(kFunctionsWord);
constexpr const char* kFunctionFileErrors = "Errori nella Lettura del File Funzioni: ";

/// The file has been read without error: its functions replace all that came from the file before.
void takeFile(Session& session, Ports& ports, const std::string& name, const std::string& path) {
  session.loaded.FunFile = name;
  session.loaded.FunFileRead = kTrue;
  ports.window.setMenuEnabled(Control::MenFunCar, true);
  ports.functions.refillLoadList();
  const bool lost = dropLoadedFunctions(session);
  ports.functions.refillSelection();
  if (lost) {
    using enum Control;
    for (const Control control : {MenSerPro, MenAda, MenAdaAda, MenAdaPar, MenGraFun, MenGraDif}) {
      ports.window.setMenuEnabled(control, false);
    }
  }
  addRecentFile(session, ports.window, kFunctionKind, name, path);
}

void tellErrors(const Session& session, Ports& ports, const std::string& name) {
  if (session.settings.ShowErrors) {
    // QUIRK: this window comes up empty; the reader has shown its report, which stays open.
    OutputRequest request =
        reportRequest(kReadFunctions + kErrorListSuffix, "", ManualTopic::kFunctionErrors);
    request.beside = true;
    ports.output.OutShow(request);
  } else {
    ports.dialogs.Get_Msg({.caption = kReadFunctions,
                           .text = WindowText(kFunctionFileErrors + name + "!"),
                           .icon = kExclamation,
                           .captions = {kContinueButton}});
  }
}

}  // namespace

void MenFunLet(Session& session, Ports& ports) {
  std::string name;
  const bool chosen = pickFileToRead(session, ports, kReadFunctions, kFunctionKind, name);
  session.files.RecentFun.pick = 0;
  if (!chosen) return;
  const std::string path = name;  // the reader folds the name
  ReadFunctionFile(session, ports.files, ports.output, name,
                   {.trace = session.settings.ShowErrors != kFalse});
  if (session.ErrFlag == 0) {
    takeFile(session, ports, name, path);
  } else {
    tellErrors(session, ports, name);
  }
  session.ErrFlag = 0;
  Msg(session, ports.window);
}

void MenFunSel(Session& session, Ports& ports) {
  const FunctionDef before = session.analysis.fun;
  if (ports.functions.selectFunction()) {
    TakeFunction(session, before.InnerIndex, before.OuterIndex);
    ports.window.setMenuEnabled(Control::MenSerPro, true);
  }
  Msg(session, ports.window);
}

void MenFunCar(Session& session, Ports& ports) {
  const int entry = [&] {
    const ShutWindow shut(ports.window, Form::kLoad);
    return ports.functions.chooseLoadedFunction();
  }();
  if (entry > 0) {
    if (loadFunction(session, entry)) ports.window.setMenuEnabled(Control::MenSerPro, false);
    ports.functions.refillSelection();
  }
  ports.window.toFront();
  Msg(session, ports.window);
}

}  // namespace vk
