#pragma once

#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/MainWindow.h"
#include "platform/OutputWindow.h"
#include "session/Session.h"

namespace vk {

/// Command: fits the model function to the data and shows the fit screen. Where data, function or free
/// parameters are missing, a plain box says so and nothing else happens.
void MenAdaAda(Session& session, Dialogs& dialogs, MainWindow& window, OutputWindow& output, Clock& clock);

}  // namespace vk
