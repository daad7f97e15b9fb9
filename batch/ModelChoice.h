#pragma once

#include <string>

#include "platform/Files.h"
#include "session/Session.h"

namespace vk {

/// The three ways by which a command line names the model function. They leave it as the session's current
/// one; what cannot be found or compiled raises `UsageError`.

/// A formula in x, with its parameter names as a comma list.
void useFormula(Session& session, const std::string& formula, const std::string& names);
/// "f,g": the numbers of the outer and the inner function in the catalogue, from 1.
void useCatalogue(Session& session, const std::string& pair);
/// Entry `entry` (from 1) of a function file.
void useFunctionFile(Session& session, Files& files, const std::string& fileName, int entry);

}  // namespace vk
