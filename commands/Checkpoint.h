#pragma once

#include "commands/Ports.h"
#include "session/Session.h"

namespace vk {

/// The program as it stood before a handler of an event: one that breaks off leaves nothing behind.
class Checkpoint {
 public:
  /// `plots` is none as long as no figure has been drawn.
  Checkpoint(Session& session, Ports& ports, const PlotWindows* plots);

  /// Puts the session back, data and switches alike, closes what has been opened since, and shows all anew.
  /// Throws nothing.
  void goBack(PlotWindows* plots);

 private:
  Session& session_;
  Ports& ports_;
  Session before_;
  int outputWindows_, plotWindows_;
  bool panelOpen_, editorOpen_;
};

}  // namespace vk
