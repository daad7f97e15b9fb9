#pragma once

#include <string>

#include "grafile/StandardFigure.h"

namespace vk {

/// The arguments of the lines that draw the function of a figure in its graphic file.
struct FunctionLines {
  std::string parameters;  ///< of `PARAMETRI`
  std::string expression;  ///< of `FUNZIONE`
};

/// The parameters have seven digits, and the expression their names. Where the curve of the figure would be seen to
/// differ from one with these values, the expression has the values themselves, with all their digits.
FunctionLines functionLines(const FigureSource& source, const FigureValues& values,
                            EvaluationListener& listener);

}  // namespace vk
