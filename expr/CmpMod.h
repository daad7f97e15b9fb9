#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/Dialogs.h"
#include "platform/Random.h"
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

/// Loads the slots of a compiled expression from its values by the operand map.
void loadSlots(CompiledExpression& compiled);

/// The current model function at a point; `ErrFlag` as for `EvaluateCode`.
double EvaluateFunction(Session& session, Dialogs& dialogs, double x);

/// The model function at n points: results, boxes and the final `ErrFlag` are bit for bit those of n single
/// calls. `flags`, when not empty, gets the `ErrFlag` of each point. The spans have one length; `result` may be
/// `x` itself.
void evaluateFunctionAt(Session& session, Dialogs& dialogs, std::span<const double> x,
                        std::span<double> result, std::span<Int16> flags = {});

/// A compiled formula at n points: `columns[v]` holds the values of variable v + 1, all as long as `result`.
/// The same promise as above. What stands in the variables' values and in the slots afterwards is undefined.
void evaluateCodeAt(Session& session, Dialogs& dialogs, CompiledExpression& compiled,
                    std::span<const std::span<const double>> columns, std::span<double> result,
                    std::span<Int16> flags = {});

// ---- Statistics --------------------------------------------------------------------------------------------
// The kernels below fail by run-time errors (5, 6, 11), which the evaluator turns into its flag.
// Where a function tells of its own failure it sets `ErrFlag` to -1.

/// ln(gamma(x)) for x > 0 by a Lanczos series of six terms, accurate to about 1E-10.
double LnGamma(double x);
/// Continued fraction of the incomplete beta function, modified Lentz. When 100 terms do not suffice, `ErrFlag`
/// is set and what was reached is given.
double BetaFraction(Session& session, double a, double b, double x);
/// Regularised incomplete beta function I_x(a,b); x outside 0..1 sets `ErrFlag` and gives 0.
double IncompleteBeta(Session& session, double a, double b, double x);
/// Lower regularised incomplete gamma by its series; `gln` gets ln(gamma(a)). When 100 terms do not suffice, a
/// box comes, the first time in a command, `ErrFlag` is set and 0 is given.
double GammaSeries(Session& session, Dialogs& dialogs, double a, double x, double& gln);
/// Upper regularised incomplete gamma by its continued fraction. When 100 terms do not suffice, the same box
/// comes, `ErrFlag` is set and what was reached is given.
double GammaFraction(Session& session, Dialogs& dialogs, double a, double x, double& gln);
/// Regularised upper incomplete gamma Q(a,x); x < 0 or a <= 0 sets `ErrFlag` and gives 0.
double UpperGamma(Session& session, Dialogs& dialogs, double a, double x);
/// The same with as many terms as it takes, and the same bits where 100 suffice. x < 0 or a <= 0 is run-time
/// error 5.
double fullUpperGamma(double a, double x);
/// Complementary error function, Abramowitz and Stegun 7.1.26; absolute accuracy 1.5E-7.
double ComplementaryError(double x);
/// A normal deviate of mean 0 and width 1, polar Box-Muller. The caller starts the flag at 0 and passes the
/// same variable each time.
double GaussianDeviate(Session& session, Random& random, Int16& flag);

}  // namespace vk
