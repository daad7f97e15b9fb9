#pragma once

#include "commands/Ports.h"
#include "session/Session.h"

/// Starting values of the parameters, or values and errors for the propagation of errors: the form on which
/// they are entered, and the tables that the fit and the propagation read.
namespace vk {

/// Fills the tables of the input form from the session's parameters and shows it above the main window. True after
/// "&Esegui".
/// `mode` is the session's `PropagationMode`: when it is -1 the independent variable is listed first and the
/// second numbers are errors.
bool EnterParameters(Session& session, InputForm& form, Flag mode);

/// Takes the field texts of the input form over into the parameters: values in the first half of the fields,
/// second numbers in the other half. Then sorts them as the next one.
void StoreParameters(Session& session);
/// The same, and the main window comes back with its menus renewed.
void StoreParameters(Session& session, MainWindow& window);

/// The session's parameters have been entered: sets `ParametersSet` and `ParVar`. A loaded model gets the values into
/// its value table.
void markParametersSet(Session& session);

/// Sorts the session's parameters, and sets `ParametersSet` and `ParVar`. A loaded model gets the values into its
/// value table.
void classifyParameters(Session& session);

/// Command: enter the starting values of a fit.
void MenAdaPar(Session& session, Ports& ports);

/// Command: enter values and errors, and unless the user gives up, propagate the errors. Without a model function
/// nothing is asked. `ErrFlag` is 0 afterwards.
void MenSerPro(Session& session, Ports& ports);

}  // namespace vk
