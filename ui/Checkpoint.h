#pragma once

#include "session/Session.h"
#include "ui/Editor.h"
#include "ui/MainPanels.h"
#include "ui/Ports.h"

namespace vk {

/// The program as it stood before a handler of an event: one that breaks off leaves nothing behind.
class Checkpoint {
 public:
  /// `plots` is none as long as no figure has been drawn.
  Checkpoint(Session& session, const Ports& ports, MainPanels& panels, Editor& editor,
             const PlotWindows* plots);

  /// Puts the session back, data and switches alike, closes what has been opened since, and shows all anew.
  /// Throws nothing.
  void goBack(PlotWindows* plots);

 private:
  Session& session_;
  const Ports& ports_;
  MainPanels& panels_;
  Editor& editor_;
  Session before_;
  int outputWindows_, plotWindows_;
  bool panelOpen_, editorOpen_;
};

}  // namespace vk
