#include "commands/Checkpoint.h"

#include <utility>

#include "base/Guard.h"
#include "commands/DisplayRefresh.h"

namespace vk {

Checkpoint::Checkpoint(Session& session, Ports& ports)
    : session_(session),
      ports_(ports),
      before_(session),
      outputWindows_(ports.output.opened()),
      plotWindows_(ports.plots.made()),
      panelOpen_(ports.panels.isOpen()),
      editorOpen_(ports.editor.isOpen()) {}

// Each step stands on its own: one that fails as well does not keep the others from their work.
void Checkpoint::goBack() {
  session_ = std::move(before_);
  guard([&] { ports_.output.closeSince(outputWindows_); });
  guard([&] { ports_.plots.closeSince(plotWindows_); });
  guard([&] {
    if (!panelOpen_) ports_.panels.shut();
  });
  guard([&] {
    if (!editorOpen_ && ports_.editor.isOpen()) ports_.editor.MnuFilRin();
  });
  guard([&] { ports_.functions.refillSelection(); });
  guard([&] { ports_.functions.refillLoadList(); });
  guard([&] {
    if (!ports_.panels.isOpen()) showSession(session_, ports_.window);
  });
}

}  // namespace vk
