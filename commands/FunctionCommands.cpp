#include "commands/FunctionCommands.h"

#include "expr/FunMod.h"
#include "session/FileSelection.h"
#include "session/Msg.h"

namespace vk {
namespace {

constexpr const char* kReadFunctions = "VOR_KEL: Lettura File Funzioni";

/// The file has been read without error: its functions replace all that came from the file before.
void takeFile(Session& session, MainWindow& window, FunctionForms& forms, const std::string& name,
              const std::string& path) {
  session.loaded.FunFile = name;
  session.loaded.FunFileRead = kTrue;
  window.setMenuEnabled(Control::MenFunCar, true);
  forms.refillLoadList();
  const bool lost = dropLoadedFunctions(session);
  forms.refillSelection();
  if (lost) {
    using enum Control;
    for (const Control control : {MenSerPro, MenAda, MenAdaAda, MenAdaPar, MenGraFun, MenGraDif}) {
      window.setMenuEnabled(control, false);
    }
  }
  addRecentFile(session, window, kFunctionKind, name, path);
}

void tellErrors(const Session& session, Dialogs& dialogs, OutputWindow& output, const std::string& name) {
  if (session.settings.ShowErrors) {
    // QUIRK: this window comes up empty, because the reader has shown its report, which stays open, and cleared it.
    OutputRequest request = reportRequest(std::string(kReadFunctions) + " - ERRORI", session.TraceText);
    request.beside = true;
    output.OutShow(request);
  } else {
    dialogs.Get_Msg({.caption = kReadFunctions,
                     .text = "Errori nella Lettura del File Funzioni: " + name + "!",
                     .icon = kExclamation,
                     .captions = {"&Continua"}});
  }
}

}  // namespace

void MenFunLet(Session& session, Files& files, Dialogs& dialogs, OutputWindow& output, MainWindow& window,
               FunctionForms& forms) {
  std::string name;
  const bool chosen = pickFileToRead(session, files, dialogs, kReadFunctions, kFunctionKind, name);
  session.files.RecentFun.pick = 0;
  if (!chosen) return;
  session.TraceText.clear();
  session.CheckFunctions = kTrue;
  session.TraceEnabled = session.settings.ShowErrors;
  const std::string path = name;  // the reader folds the name
  ReadFunctionFile(session, files, output, name, kFalse);
  if (session.ErrFlag == 0) {
    takeFile(session, window, forms, name, path);
  } else {
    tellErrors(session, dialogs, output, name);
  }
  session.ErrFlag = 0;
  Msg(session, window);
}

void MenFunSel(Session& session, MainWindow& window, FunctionForms& forms) {
  const FunctionDef before = session.analysis.fun;
  if (forms.selectFunction()) {
    TakeFunction(session, before.InnerIndex, before.OuterIndex);
    window.setMenuEnabled(Control::MenSerPro, true);
  }
  Msg(session, window);
}

void MenFunCar(Session& session, MainWindow& window, FunctionForms& forms) {
  const int entry = [&] {
    const ShutWindow shut(window, Form::kLoad);
    return forms.chooseLoadedFunction();
  }();
  if (entry > 0) {
    if (loadFunction(session, entry)) window.setMenuEnabled(Control::MenSerPro, false);
    forms.refillSelection();
  }
  window.toFront();
  Msg(session, window);
}

}  // namespace vk
