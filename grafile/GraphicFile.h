/// Unit GralPlt: the interpreter of graphic files.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/FileText.h"
#include "data/DataSet.h"
#include "data/ErrorList.h"
#include "data/GridFile.h"
#include "expr/Formula.h"
#include "grafile/GridLevels.h"
#include "grafile/NamedParameters.h"
#include "grafile/PlotBox.h"
#include "grafile/SpaceFigure.h"
#include "gral/Plotting.h"
#include "numeric/Fault.h"
#include "platform/Files.h"

namespace vk {

/// The fields of one command, as many as its row of the table tells.
struct CommandFields {
  static constexpr int kMost = 5;

  Array<double> numbers{kMost};  ///< 1..
  Array<double> doubles{kMost};  ///< the same, where parameters are not narrowed
  Array<Int16> integers{kMost};  ///< 1..
  std::string text;
};

/// The values of a formula on points 1.. of x; not a number where it has none.
struct FormulaCurve {
  Array<double> x, y;
};

/// One run through the lines of a graphic file: draws what they say and lists what is wrong with them.
class GraphicRun {
 public:
  /// The drawing is open. With an error flag other than 0 every command fails.
  GraphicRun(Files& files, GralCls& drawing, EvaluationListener& listener, Int16 errorFlag = 0);

  /// From now on a file of this name, as commands tell it, holds these data; the columns of a band stand in place of x,
  /// y and its error.
  void know(const std::string& name, DataSet data);

  /// Files that are not where their names lead are sought in these folders, in turn.
  void seekIn(std::vector<std::string> folders) { folders_ = std::move(folders); }

  /// Runs all lines of a text (`FileText`), which must stay. A last line that asks for a continuation is run-time error
  /// 62.
  void runText(std::string_view text);

  /// The messages of the lines that failed, CR LF ended, code page 437.
  std::string errors() const { return file_.gridText(errors_.text()); }

  /// What is drawn and shows something else than people think; ASCII.
  const std::vector<std::string>& warnings() const { return warnings_; }

  /// The formulas that were refused or drawn in a sense that nobody means, as "2x" for 2: each with advice
  /// (`adviceLines`), CR LF ended, code page 437.
  const std::vector<std::string>& doubts() const { return doubts_; }

  /// The last line drew a function that has no value at the last of its points.
  bool lastPointFailed() const { return lastPointFailed_; }

  // ---- What the commands do; the table of commands tells which is which -----------------------------------

  void defineParameters(const CommandFields& fields);
  void setXLog(const CommandFields& fields);
  void setYLog(const CommandFields& fields);
  void scaleX(const CommandFields& fields);
  void scaleY(const CommandFields& fields);
  void limitArea(const CommandFields& fields);
  void drawLine(const CommandFields& fields);
  void drawXAxis(const CommandFields& fields);
  void drawYAxis(const CommandFields& fields);
  void setXLegend(const CommandFields& fields);
  void setYLegend(const CommandFields& fields);
  void write(const CommandFields& fields);
  void chooseMark(const CommandFields& fields);
  void chooseLine(const CommandFields& fields);
  void drawMark(const CommandFields& fields);
  void plotFile(const CommandFields& fields);
  void joinFile(const CommandFields& fields);
  void curveFile(const CommandFields& fields);
  void plotFunction(const CommandFields& fields);
  void chooseColour(const CommandFields& fields);
  void writeTitle(const CommandFields& fields);
  void addKey(const CommandFields& fields);
  void fillBand(const CommandFields& fields);
  void frameBox(const CommandFields& fields);
  void drawContourLines(const CommandFields& fields);
  void drawSpaceFrame(const CommandFields& fields);
  void drawSurface(const CommandFields& fields);
  void drawColumns(const CommandFields& fields);

 private:
  void runLine(const std::string& line);
  void obey(const std::string& line);
  void fail(const std::string& message) { failure_ = message; }
  std::string placeOf(const std::string& name) const;
  std::optional<DataSet> readData(const std::string& name);
  std::optional<DataSet> readBand(const std::string& name);
  std::optional<Formula> readFormula(const std::string& formula);
  void doubt(const std::string& formula);
  std::optional<FormulaCurve> sampleFormula(const std::string& text);
  std::optional<FormulaCurve> sampleFinely(const std::string& text);
  void fillBetween(const Array<double>& x, const Array<double>& low, const Array<double>& high,
                   const std::string& described);
  std::optional<Grid> readGrid(const std::string& text);
  std::vector<double> levelsOf(const std::string& text, int count, const HeightRange& range) const;
  static SpaceView viewOf(const CommandFields& fields);
  template <class Draw>
  void drawInSpace(const char* command, const SpaceView& view, const Grid& grid, Draw draw);
  void warn(const std::string& command, const SpaceView& view, const char* what);
  bool isNarrow(char axis) const { return axis == 'x' ? xNarrow_ : axis == 'y' && yNarrow_; }
  void keepDoubles(std::string_view kinds, CommandFields& fields) const;

  Files& files_;
  GralCls& drawing_;
  EvaluationListener& listener_;
  Int16 errorFlag_;
  NamedParameters parameters_;
  bool xNarrow_ = false, yNarrow_ = false;  // parameters keep their doubles on this axis
  Int16 xLog_, yLog_;
  PlotBox box_;          // of the last scales; before them the page
  bool framed_ = false;  // by a box with numbers, over which functions run
  bool linesSeen_ = true;
  std::map<std::string, DataSet> known_;
  std::vector<std::string> folders_;
  std::string xLegend_, yLegend_;
  double FunXMin_ = 0, FunXMax_ = 0;
  std::string failure_;  // of the present line; empty while it is good
  FileText file_{{}};    // what is run
  ErrorList errors_;
  std::vector<std::string> warnings_, doubts_;
  bool lastPointFailed_ = false;
};

}  // namespace vk
