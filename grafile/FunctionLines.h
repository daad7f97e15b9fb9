#pragma once

#include <string>

#include "platform/Dialogs.h"
#include "session/Session.h"

namespace vk {

/// The arguments of the lines that draw the session's function in a graphic text.
struct FunctionLines {
  std::string parameters;  ///< of `PARAMETRI`
  std::string expression;  ///< of `FUNZIONE`
};

/// The parameters have seven digits, and the expression their names. Where the curve of the session would be
/// seen to differ from one with these values, the expression has the values themselves, with all their
/// digits. `height` is the range of y that the figure shows.
FunctionLines functionLines(Session& session, Dialogs& dialogs, double height);

}  // namespace vk
