#pragma once

#include "commands/Ports.h"
#include "session/Session.h"

namespace vk {

/// The program as it stood before a handler of an event: one that breaks off leaves nothing behind.
class Checkpoint {
 public:
  Checkpoint(Session& session, Ports& ports);

  /// Puts the session back, data and switches alike, closes what has been opened since, and shows all anew.
  /// Throws nothing.
  void goBack();

 private:
  Session& session_;
  Ports& ports_;
  Session before_;
  int outputWindows_, plotWindows_;
  bool panelOpen_, editorOpen_;
};

}  // namespace vk
