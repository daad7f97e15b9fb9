/// Unit FitMod: the screen of the fit.
#pragma once

#include <optional>
#include <string>

#include "analysis/Fit.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/OutputWindow.h"

namespace vk {

/// Cells of the fit screen, from the number and the length of the names. Rows and columns of the window count
/// from 1; it stands centred on a screen of 80 columns.
struct FitScreenLayout {
  FitScreenLayout(const std::string& functionText, const ParameterSet& par, int freeCount);

  /// The window's column for a column of the screen.
  int fromScreen(int column) const { return column - leftColumn; }
  int valueColumn() const { return nameWidth + 6; }
  int errorColumn() const { return nameWidth + 21; }
  /// Of the correlations with free parameter b, from 1.
  int matrixColumn(int b) const { return nameWidth + 29 + 6 * b; }

  std::string title;  ///< the function with a blank on each side, of odd length
  int nameWidth;      ///< odd, at least 3
  int allCount;       ///< parameters, free and constant
  int freeCount;      ///< the free ones
  int width;          ///< columns of the window; odd, at least 49
  int half;           ///< where the two boxes of the status block meet
  int leftColumn;     ///< what a screen column has more than the window's
  int rows;           ///< of the window
};

/// What the screen of a fit works with.
struct FitScreenPorts {
  OutputWindow& output;
  Dialogs& dialogs;
  Clock& clock;
};

/// The screen of a fit: draws the running and the final figures on the output window. A parameter without
/// effect is told in a box. Texts are code page 437.
class FitScreen : public FitObserver {
 public:
  /// `par` has the names, and the values from before the fit; it must outlive this object.
  FitScreen(std::string functionText, const ParameterSet& par, const FitScreenPorts& ports);

  void started(const FitStart& start) override;
  void working() override { ports_.output.refresh(); }
  void progress(const FitProgress& progress) override;
  void finished(const FitFinal& final) override;
  void failed(const FitFailure& failure) override;

 private:
  void drawTitle();
  void drawStatusBlock();
  void drawTable();
  void drawRow(int row, int parameter, double value);
  void drawFrame(int row1, int column1, int row2, int column2, const std::string& title = "");
  void printStatusWord(int row, const std::string& word);
  void printFigures(const FitProgress& progress);
  void printColumn(int column, const Array<double>& numbers);
  void printMatrix(const CorrelationMatrix& correlation);
  void printAt(int row, int column, const std::string& text);

  const std::string functionText_;
  const ParameterSet& par_;
  const FitScreenPorts ports_;
  float started_ = 0;                      // when the minimisation began, the screen drawn
  std::optional<FitScreenLayout> layout_;  // of the minimisation that runs
};

}  // namespace vk
