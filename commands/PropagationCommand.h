/// Unit Module6: the propagation of errors on its screen.
#pragma once

#include "analysis/Propagation.h"
#include "commands/Ports.h"
#include "session/Session.h"

/// The propagation of errors on its screen.
namespace vk {

/// Propagates the errors of the session's parameters through its model function, live on the screen.
///
/// The generator is seeded from the clock. The main window is shut while it runs. After a failure, which a box
/// tells, the window is closed. In any case `ErrFlag` is 0. The histogram stays in the session; the open window's
/// "Salva &File" writes it by `SaveMonteCarlo`.
PropagationResult PropagateErrors(Session& session, Ports& ports);

/// The same on a screen that is open; the generator goes on from where it stands. A box tells of a failure.
PropagationResult PropagateErrors(AnalysisState& analysis, PropagationObserver& screen, Random& random,
                                  Dialogs& dialogs);

/// Merges the thin bins of the session's histogram and writes it into "Mon_Sim.DAT" in the folder of data files. Where
/// that cannot be written the user may name another file; it is a run-time error if he does not.
void SaveMonteCarlo(Session& session, const FilePorts& ports);

}  // namespace vk
