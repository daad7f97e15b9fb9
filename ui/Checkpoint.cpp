#include "ui/Checkpoint.h"

#include "base/Guard.h"
#include "session/Msg.h"

namespace vk {

Checkpoint::Checkpoint(Session& session, const Ports& ports, MainPanels& panels, Editor& editor,
                       const PlotWindows* plots)
    : session_(session),
      ports_(ports),
      panels_(panels),
      editor_(editor),
      before_(session),
      outputWindows_(ports.output.opened()),
      plotWindows_(plots != nullptr ? plots->made() : 0),
      panelOpen_(panels.isOpen()),
      editorOpen_(editor.isOpen()) {}

// Each step stands on its own: one that fails as well does not keep the others from their work.
void Checkpoint::goBack(PlotWindows* plots) {
  session_ = std::move(before_);
  guard([&] { ports_.output.closeSince(outputWindows_); });
  guard([&] {
    if (plots != nullptr) plots->closeSince(plotWindows_);
  });
  guard([&] {
    if (!panelOpen_) panels_.shut();
  });
  guard([&] {
    if (!editorOpen_ && editor_.isOpen()) editor_.MnuFilRin();
  });
  guard([&] { ports_.functions.refillSelection(); });
  guard([&] { ports_.functions.refillLoadList(); });
  guard([&] {
    if (!panels_.isOpen()) showSession(session_, ports_.window);
  });
}

}  // namespace vk
