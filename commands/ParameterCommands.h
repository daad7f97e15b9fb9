#pragma once

#include "commands/Ports.h"
#include "session/Session.h"

/// Starting values of the parameters, or values and errors for the propagation of errors: the form on which
/// they are entered, and the tables that the fit and the propagation read.
namespace vk {

/// Takes the field texts of the input form over into the parameters: values in the first half of the fields,
/// second numbers in the other half. Then sorts them as the next one.
void StoreParameters(Session& session);
/// The same, and the main window comes back with its menus renewed.
void StoreParameters(Session& session, MainWindow& window);

/// The session's parameters have been entered: sets `ParametersSet` and `ParVar`. A loaded model gets the values into
/// its value table.
void markParametersSet(Session& session);

/// Command: enter the starting values of a fit.
void MenAdaPar(Session& session, Ports& ports);

/// Command: enter values and errors, and unless the user gives up, propagate the errors. Without a model function
/// nothing is asked. `ErrFlag` is 0 afterwards.
void MenSerPro(Session& session, Ports& ports);

}  // namespace vk
