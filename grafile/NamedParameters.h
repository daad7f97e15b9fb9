/// Unit GralPlt: the parameters of graphic files.
#pragma once

#include <string>
#include <unordered_map>

#include "base/Array.h"
#include "base/Int16.h"

/// The named parameters of a graphic file, and the fields of its commands.
namespace vk {

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

}  // namespace vk
