/// Unit GralPlt: the standard figures.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "analysis/CurveBand.h"
#include "base/Array.h"
#include "base/Int16.h"
#include "data/DataSet.h"
#include "expr/Model.h"
#include "grafile/FigureKind.h"
#include "grafile/LineText.h"
#include "gral/Plotting.h"

/// The figures of data and function that the program draws by itself.
namespace vk {

/// What a figure is called in its window and in its graphic file.
std::string nameOfFigure(int kind);

/// What a standard figure is made of.
struct FigureSource {
  int kind;  ///< `FigureKind`
  const DataSet& data;
  std::string dataName;      ///< of the data file, as it is shown
  std::string dataPath;      ///< as it was opened
  std::string functionText;  ///< as it is shown, code page 437
  std::string expression;    ///< the function in the formula language
  Model& model;
  const ParameterSet& parameters;
  const CurveBand* band = nullptr;  ///< about the function, where it is asked for
  std::optional<int> digits{};      ///< of the differences file, where others than its own are wanted
  bool residuals = false;           ///< those of a modern figure stand below it
  std::string beside{};  ///< how the names of the files begin that its graphic file needs beside it
};

/// The notes that a graphic file begins with: which figure it is, and which data and which function that shows.
LineText headingOf(const FigureSource& source);

/// A function over the range of x: points 0..segments.
struct SampledCurve {
  int segments = 0;
  Array<double> x, y;
  Array<Flag> failed;  ///< the function has no value here: y tells nothing
};

/// What a figure shows.
struct FigureValues {
  double Xi = 0, Xf = 0, Yi = 0, Yf = 0;  ///< limits in user coordinates
  Int16 nDivX, nDivY;
  SampledCurve curve;         ///< of the figure with the function
  std::vector<double> bandX;  ///< places of the band, over the range of x
  BandWidths band;  ///< empty without a band, and where it cannot be computed, which is a failed step
  Array<double> differences;  ///< 1..points, of the figure of the differences
  bool failed = false;        ///< in a step
};

/// Computes what a figure shows. Limits that are equal, but for the rounding of their values, are opened on both
/// sides: by half their value, or by 1 where that is 0. A failing step is passed over.
///
/// `pointFailed` runs at each point where the function has no value. Nothing when that are more than five of the
/// curve, or one of the differences.
std::optional<FigureValues> computeFigure(const FigureSource& source, EvaluationListener& listener,
                                          const std::function<void()>& pointFailed);

/// The texts of a figure, with lines that end in CR LF.
struct FigureTexts {
  std::string graph{};        ///< the graphic file that draws the figure
  std::string differences{};  ///< the differences as a data file; only of their figure
  std::map<std::string, std::string>
      files{};          ///< names and texts of those that the graphic file needs beside it
  bool failed = false;  ///< in a step, also of the computing
};

/// Draws a figure on an open drawing and describes it line by line, side by side.
FigureTexts drawFigure(const FigureSource& source, const FigureValues& values, GralCls& drawing,
                       EvaluationListener& listener);

}  // namespace vk
