#pragma once

#include <array>
#include <optional>
#include <span>

#include "commands/Ports.h"
#include "session/Session.h"

/// Simulated data take the place of the loaded ones and are fitted at once.
namespace vk {

/// Command: asks for the settings, simulates the data and fits them. `ParValues` holds the true values again
/// afterwards.
void MenDatSim(Session& session, Ports& ports);

/// Shows the form of the simulation, with the settings used last. Gives the numbers of its fields after "&Esegui".
std::optional<std::array<double, 7>> askSimulation(Session& session, InputForm& form);

/// Makes the data set "SIMULA.DAT" by the numbers of the fields, corrects unreasonable ones, and scatters the starting
/// values of its fit by up to 20 per cent. The generator goes on from where it stands.
///
/// True when the data are to be fitted. The corrections are told; the user can stop there, with the data replaced. A
/// number that does not fit its type ends it with the box "Overflow", before anything is changed.
bool SimulateData(Session& session, std::span<const double, 7> fields, Dialogs& dialogs, Random& random,
                  EvaluationListener& listener);

}  // namespace vk
