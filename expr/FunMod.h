#pragma once

#include <string>
#include <string_view>

#include "platform/Files.h"
#include "platform/OutputWindow.h"
#include "session/Session.h"

/// Function files and the catalogue of composite functions f[g(x)].
namespace vk {

/// Number of built-in inner functions; entries above are loaded ones.
inline constexpr int kBuiltInInner = 5;
/// The inner list never grows beyond this.
inline constexpr int kMostInner = 9;

/// Reads and checks a function file. `name` is folded to capitals in the caller's variable.
///
/// Steered by the session's `TraceEnabled` (write the report) and `CheckFunctions` (compile each function).
/// The outcome is in `ErrFlag`. With `checkOnly` nothing is stored and the report stays in `TraceText`; else
/// the functions replace those of the file before if no error was found, a report with errors is shown, and
/// `TraceText` is cleared. A file that cannot be read is a run-time error (`Files::readAll`). A loaded model
/// that is current is compiled anew after the checks.
void ReadFunctionFile(Session& session, Files& files, OutputWindow& output, std::string& name,
                      Flag checkOnly);

/// Checks the text of a function file as `ReadFunctionFile` does with `checkOnly`.
void CheckFunctionText(Session& session, std::string_view text);

/// Sets both lists of the catalogue to what is built in.
void BuildCatalogue(Session& session);

/// Display text of the composite of the present indices, "y = ..." with a blank on each side, code page 437.
/// An index outside its list counts as an empty entry.
std::string compositeText(const Session& session);
/// The same as the dialog shows it: the first and last 28 characters when it is longer than 60.
std::string shownCompositeText(const std::string& text);

/// Formula of the current composite in the expression language, without blanks.
std::string ComposeFunctionText(const Session& session);

/// Makes the pair chosen by the session's indices the current function. `innerBefore`, `outerBefore` are the
/// indices before the choice: the same pair again keeps its parameters if a function was defined.
void TakeFunction(Session& session, Int16 innerBefore, Int16 outerBefore);

/// Compiles a loaded model anew from the catalogue; built-in ones need nothing. After any use of the shared
/// compile area by somebody else.
void restoreModel(Session& session);

/// Adds entry `index` (from 1) of the file read to the inner list; the oldest loaded one leaves a full list.
/// True when that one was the current function, which is no longer defined then.
bool loadFunction(Session& session, int index);

/// Drops the loaded functions. True when the current function was one of them; it is no longer defined then.
bool dropLoadedFunctions(Session& session);

}  // namespace vk
