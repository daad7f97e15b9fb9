#pragma once

#include <functional>
#include <optional>

#include "analysis/Simulation.h"
#include "commands/Ports.h"
#include "session/Session.h"

/// Simulated data take the place of the loaded ones and are fitted at once.
namespace vk {

/// Command: asks for the settings, simulates the data and fits them. `ParValues` holds the true values again
/// afterwards.
void MenDatSim(Session& session, Ports& ports);

/// Shows the form of the simulation, with the settings used last. True after "&Esegui".
bool askSimulation(Session& session, InputForm& form);

/// Takes the settings from the fields of the form, corrects unreasonable ones, makes the data set "SIMULA.DAT" and
/// scatters the starting values of its fit by up to 20 per cent. The generator goes on from where it stands.
///
/// True when the data are to be fitted. The corrections are told; the user can stop there, with the data replaced. A
/// number that does not fit its type ends the command with the box "Overflow", before anything is changed.
bool SimulateData(Session& session, Ports& ports, EvaluationListener& listener);

/// Tells what was not reasonable in the settings. True when the user wants to go on with what was corrected, or when
/// there was nothing.
bool acceptCorrections(Dialogs& dialogs, const SimulatedData& simulated, int freeCount);

/// Runs a simulation; one that fails with numbers too large is told in the box "Overflow", and gives nothing.
std::optional<SimulatedData> simulateUnlessOverflow(Dialogs& dialogs,
                                                    const std::function<SimulatedData()>& simulate);

}  // namespace vk
