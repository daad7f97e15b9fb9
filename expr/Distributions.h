#pragma once

#include <span>

#include "platform/Dialogs.h"
#include "session/Session.h"

namespace vk {

/// The value of an operation of kind `kStatistic` for its first argument and the further ones; not a number
/// when anything in it failed, an overflow that the formula would hide included. Leaves `ErrFlag` alone.
double statisticValue(Session& session, Dialogs& dialogs, int opcode, double x,
                      std::span<const double> further);

}  // namespace vk
