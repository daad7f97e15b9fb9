#pragma once

#include <string>
#include <unordered_map>

#include "base/Array.h"
#include "grafile/FigurePorts.h"
#include "session/Session.h"

/// Graphic files: the interpreter that draws a figure from one, and the generator that draws the standard
/// figures and writes each as the text of such a file.
namespace vk {

// ---- Named parameters of a graphic file --------------------------------------------------------------------

/// The parameters that a graphic file has defined so far. A key is "*", blanks and the name, 6 characters
/// together; its place in `ParamNames` tells the index of the value.
struct NamedParameters {
  std::string ParamNames;
  Array<float> ParamValues;    ///< 1..ParamCount
  Array<double> ParamDoubles;  ///< the same as they were told
  Int16 ParamCount;
  std::unordered_map<std::string, int> places;  ///< each key in `ParamNames`: index of the first one there
};

/// Defines the parameters of a comma list of "name=number". What is no such definition is passed over: a name
/// begins with a letter and has at most 5 characters. A number beyond single precision is run-time error 6.
void DefineParameters(NamedParameters& parameters, const std::string& text);
/// One such definition; a name that is known gets the new value.
void DefineParameter(NamedParameters& parameters, const std::string& text);

/// How the value of a parameter comes back: with the digits of a single, or with those of a double.
enum class Precision { kSingle, kDouble };

/// Replaces the name of a parameter, perhaps with "-" before it, by its value. Numbers, "x" and the empty
/// field stay. An unknown name sets the flag to -1 and stays.
void SubstituteName(const NamedParameters& parameters, std::string& field, Int16& flag,
                    Precision precision = Precision::kSingle);

/// Replaces all names of parameters in an expression by their values, negative ones in brackets, and removes
/// the blanks. Names before "(" are functions and stay, and so does "x"; an unknown name sets the flag to -1.
void SubstituteExpression(const NamedParameters& parameters, std::string& expression, Int16& flag,
                          Precision precision = Precision::kSingle);

/// Takes the fields at the beginning of an argument list into numbers(1..) and integers(1..), which have room
/// for them; `rest` gets what follows. Missing fields are 0. An unknown name sets the flag to -1; an integer
/// that does not fit is run-time error 6. `doubles` gets the numbers again, with the doubles of parameters.
void ParseFields(const NamedParameters& parameters, const std::string& text, Array<double>& numbers,
                 Array<Int16>& integers, std::string& rest, int numericCount, int integerCount, Int16& flag,
                 Array<double>* doubles = nullptr);

// ---- Interpreter -------------------------------------------------------------------------------------------

/// Draws a graphic file on a new plot window ("Form") or on the printer ("Printer") and refreshes the menus.
///
/// A line that fails draws nothing, and the next line runs; the list of errors is shown if the session's
/// `ShowErrors` is on. With an `errorFlag` other than 0 every command fails. The data of the session are
/// afterwards as they were; only the name of a loaded file is folded to capitals. A file that cannot be opened
/// is a run-time error (`Files::readAll`), a last line that asks for a continuation is 62.
void RunGraphicFile(Session& session, FigurePorts& ports, const std::string& fileName,
                    const std::string& device, Int16 errorFlag);

// ---- Generator ---------------------------------------------------------------------------------------------

/// Draws a standard figure (`FigureKind`) on a new plot window, leaves its graphic text in `GraphText`, and for
/// the differences their data file in `DiffText`; refreshes the menus.
///
/// Limits that are equal, but for the rounding of their values, are opened on both sides: by half their value,
/// or by 1 where that is 0.
/// A failing step sets `ErrFlag` to -1 and the next one goes on. Where the function cannot be computed, its
/// curve has a gap. More than five such points of the curve, or one of the differences, end the figure: both
/// texts are empty then and no window is opened.
void MakeGraph(Session& session, FigurePorts& ports, Int16 kind);

/// Rounds an interval with high above low outward to multiples of a round step, and tells how many steps it
/// has. Another interval is a run-time error, which leaves all three as they were.
void NiceLimits(double& low, double& high, Int16& divisions);

/// Smallest and largest of values(1..count); an empty range leaves both.
void RangeOf(double& min, double& max, const Array<double>& values, int count);

/// Asks for a name and writes the graphic text of a figure (1 to 3), or with kind 0 the differences file.
/// `ErrFlag` is 0 afterwards. A disk that fails while writing is a run-time error.
void SaveGraphText(Session& session, Files& files, Dialogs& dialogs, Int16 kind);

}  // namespace vk
