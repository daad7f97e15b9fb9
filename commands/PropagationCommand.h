#pragma once

#include <string>

#include "analysis/AnalyticErrors.h"
#include "analysis/MonteCarlo.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/MainWindow.h"
#include "platform/OutputWindow.h"
#include "platform/Random.h"
#include "session/Session.h"

/// The propagation of errors through the model function, by derivatives and by simulation.
namespace vk {

/// How a propagation came to its end.
enum class PropagationEnd {
  kCompleted,
  kDerivativesFailed,
  kSimulationFailed,
  kNoDependence,  ///< the simulation failed because the function never changed
};

/// What came of a propagation.
struct PropagationResult {
  PropagationEnd end = PropagationEnd::kCompleted;
  AnalyticErrors analytic;
  SampleStatistics samples;  ///< as shown last
};

/// The ports that a propagation works with. `files` is kept for "Salva &File" of the open window.
struct PropagationPorts {
  Dialogs& dialogs;
  MainWindow& window;
  OutputWindow& output;
  Files& files;
  Clock& clock;
  Random& random;
};

/// Shows the value of the model function at the session's `ParValues`, its error from those in `ParDeltas`
/// (positive: standard deviation, negative: maximum error, index 0 the independent variable), and its
/// distribution in 10000 samples, live while they are drawn.
///
/// The generator is seeded from the clock. The main window is shut while it runs. After a failure, which a box
/// tells, the window is closed. In any case `ParValues` is as before and `ErrFlag` 0. The histogram stays in
/// the session; the open window's "Salva &File" writes it by `SaveMonteCarlo`.
PropagationResult PropagateErrors(Session& session, const PropagationPorts& ports);

/// Merges the thin bins at the tails of the session's histogram and gives it as a data file of a probability
/// density with errors, CR LF line ends.
std::string monteCarloFileText(Session& session);

/// Writes that text into "Mon_Sim.DAT" in the folder of data files. A file that cannot be written is a run-time
/// error.
void SaveMonteCarlo(Session& session, Files& files);

}  // namespace vk
