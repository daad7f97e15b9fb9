#pragma once

#include <span>
#include <string>
#include <vector>

#include "expr/Formula.h"
#include "platform/Dialogs.h"
#include "session/Session.h"

/// The formula language: from a definition text to a byte code, and from the code to values.
namespace vk {

// ---- Compiler ----------------------------------------------------------------------------------------------

/// Compiles "result@variables@parameters@constants@expression".
///
/// On entry a non-zero `flag` asks for the report, which is appended to the session's `TraceText` while
/// `TraceEnabled` is on; on return the flag is 0 for success. After a failure the code is empty; evaluating it
/// gives 0. `Slots` is allocated 0..LastSlot.
void CompileExpression(Session& session, const std::string& definition, CompiledExpression& compiled,
                       Int16& flag);

/// The text without any blank.
std::string StripBlanks(const std::string& text);
/// 0 for an empty text, else the number of commas plus one.
int CountItems(const std::string& text);
/// The items of a comma list, as many as `CountItems` tells.
std::vector<std::string> splitItems(const std::string& text);
/// Replaces every occurrence, scanning again from the start after each replacement.
void ReplaceAll(std::string& text, const std::string& search, const std::string& replacement);
/// Leaves the trimmed part before the first mark in `text` and the trimmed part behind it in `right`.
void SplitAtMark(std::string& text, std::string& right, char mark);

/// The items of a comma list, each padded on the right to `width`; a longer one is cut, reported and sets the
/// flag. The flag on entry asks for the report as above.
void BuildNameTable(Session& session, const std::string& list, std::string& table, int width, Int16 report,
                    Int16& flag);
/// Checks that each of the `count` names of the table is a letter followed by letters, digits and "_".
void CheckNames(Session& session, const std::string& table, int count, int width, Int16 report, Int16& flag);

/// The code for people, lines ended by LF: the bytes as "code 4 0 1 | 108 1 0", "map 1 1" and "LastSlot 1",
/// then a line for each instruction with its name and slots, then a line for each value.
std::string listCode(const CompiledExpression& compiled);

// ---- Evaluator ---------------------------------------------------------------------------------------------

/// Runs the code over the loaded slots and gives the value of the expression. Clears `ErrFlag` on entry; a
/// failing statement stores nothing, sets `ErrFlag` to -1, and the run goes on. From finite slots comes a finite
/// value, whatever bytes the code is made of.
double EvaluateCode(Session& session, Dialogs& dialogs, const std::string& code, Array<double>& Slots);

/// The current model function at a point; `ErrFlag` as for `EvaluateCode`.
double EvaluateFunction(Session& session, Dialogs& dialogs, double x);

/// The model function at n points: results, boxes and the final `ErrFlag` are bit for bit those of n single
/// calls. `flags`, when not empty, gets the `ErrFlag` of each point. The spans have one length; `result` may be
/// `x` itself.
void evaluateFunctionAt(Session& session, Dialogs& dialogs, std::span<const double> x,
                        std::span<double> result, std::span<Int16> flags = {});

/// A compiled formula at n points: `columns[v]` holds the values of variable v + 1, all as long as `result`.
/// The same promise as above.
void evaluateCodeAt(Session& session, Dialogs& dialogs, CompiledExpression& compiled,
                    std::span<const std::span<const double>> columns, std::span<double> result,
                    std::span<Int16> flags = {});

}  // namespace vk
