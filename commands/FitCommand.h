/// Unit FitMod: the command that fits.
#pragma once

#include "analysis/Fit.h"
#include "commands/Ports.h"
#include "session/Session.h"

namespace vk {

/// Command: fits the model function to the data and shows the fit screen; the main window is shut while it runs.
/// Where data, function or free parameters are missing, a plain box says so and nothing else happens.
void MenAdaAda(Session& session, Ports& ports);

/// The same as a step of a command, whose listener hears of kernels that run out of their terms.
void fitOnScreen(Session& session, Ports& ports, EvaluationListener& listener);

/// Opens the diagnosis of the last fit, whatever has been read since; the main window is shut while the minimum is
/// looked for. Before the first fit nothing happens.
void showDiagnosis(Session& session, Ports& ports);

/// Fits the session's model function to its data, and leaves values, errors and effective errors there. `ErrFlag` is 0
/// afterwards, or -1 when the fit or a figure at its end could not be computed.
FitResult FitData(Session& session, EvaluationListener& listener, FitObserver& observer);

}  // namespace vk
