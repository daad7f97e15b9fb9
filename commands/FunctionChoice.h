/// Unit FunMod: how a function becomes the current one.
#pragma once

#include "session/Session.h"

namespace vk {

/// Makes the pair chosen by the session's indices the current function. `innerBefore`, `outerBefore` are the
/// indices before the choice: the same pair again keeps its parameters if a function was defined.
void TakeFunction(Session& session, Int16 innerBefore, Int16 outerBefore);

/// Adds entry `index` (from 1) of the file read to the inner list; the oldest loaded one leaves a full list.
/// True when that one was the current function, which is no longer defined then.
bool loadFunction(Session& session, int index);

/// Drops the loaded functions. True when the current function was one of them; it is no longer defined then.
bool dropLoadedFunctions(Session& session);

}  // namespace vk
