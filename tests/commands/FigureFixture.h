#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/Text.h"
#include "commands/ExhaustedBox.h"
#include "commands/FigureCommands.h"
#include "commands/PlotWindowCommands.h"
#include "commands/Preconditions.h"
#include "doubles/Doubles.h"
#include "doubles/ErrorOf.h"
#include "doubles/MemoryFiles.h"
#include "doubles/RecordingPlots.h"
#include "doubles/ScriptedDialogs.h"
#include "doubles/ScriptedForms.h"
#include "doubles/TestPorts.h"
#include "grafile/StandardFigure.h"
#include "gral/Plotting.h"

namespace vk {

/// Lines of a file, each ended by CR LF.
std::string lines(std::initializer_list<std::string> content);

/// Calls on a drawing that is open.
using Calls = std::function<void(GralCls& drawing)>;

/// A session with recorders in place of windows and printer; the page has 20 x 15 cm.
class FigureFixture : public ::testing::Test {
 protected:
  FigureFixture();

  /// Runs a text as a graphic file and gives what was drawn on its new window.
  std::vector<std::string> run(const std::string& text, const std::string& device = "Form");
  /// What these calls draw on a window of a graphic file.
  std::vector<std::string> drawing(const Calls& calls);
  /// The text draws what the calls draw, and has no errors.
  void expectDraws(const std::string& text, const Calls& calls);
  /// The list of errors that the text gives.
  std::string errorsOf(const std::string& text);

  /// Loads points as a data set of the session that was read from a file.
  void loadData(const std::string& name, const std::vector<std::array<double, 4>>& points,
                bool xErrors = false);
  /// Makes a pair of the catalogue current, with these parameters.
  void takeFunction(int inner, int outer, const std::vector<double>& parameters);

  /// The curve of the figure with the function.
  SampledCurve curveOfFigure() const;

  RecordingPlotWindow& lastWindow() { return *plots.windows.back(); }

  Session session;
  MemoryFiles files;
  ScriptedDialogs dialogs;
  ExhaustedBox kernels{dialogs};
  RecordingMainWindow window;
  RecordingOutput output;
  RecordingSound sound;
  RecordingPlotWindows plots;
  RecorderDevice printer{
      PrinterMetrics{Twips(15 * kTwipsPerInch / kCmPerInch), Twips(20 * kTwipsPerInch / kCmPerInch), 600}};
  TestPorts ports{files, dialogs, window, output, sound, plots, printer};
};

}  // namespace vk
