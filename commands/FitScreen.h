#pragma once

#include <optional>
#include <string>

#include "analysis/FitMod.h"
#include "platform/OutputWindow.h"
#include "session/Session.h"

namespace vk {

/// Cells of the fit screen, from the number and the length of the names. Rows and columns of the window count
/// from 1; it stands centred on a screen of 80 columns.
struct FitScreenLayout {
  FitScreenLayout(const Session& session, int freeCount);

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

/// The screen of a fit: draws the running and the final figures on the output window. Texts are code page 437.
class FitScreen : public FitObserver {
 public:
  /// The session's function, names and constants are read when a minimisation begins.
  FitScreen(const Session& session, OutputWindow& output);

  void started(const FitStart& start) override;
  void working() override { output_.refresh(); }
  void progress(const FitProgress& progress) override;
  void finished(const FitFinal& final) override;
  void failed() override;

 private:
  void drawTitle();
  void drawStatusBlock();
  void drawTable();
  void drawRow(int row, int parameter, double value);
  void drawFrame(int row1, int column1, int row2, int column2, const std::string& title = "");
  void printStatusWord(int row, const std::string& word);
  void printFigures(const FitProgress& progress);
  void printConfidence(double confidence);
  void printColumn(int column, const Array<double>& numbers);
  void printMatrix(const CorrelationMatrix& correlation);
  void printAt(int row, int column, const std::string& text);

  const Session& session_;
  OutputWindow& output_;
  std::optional<FitScreenLayout> layout_;  // of the minimisation that runs
};

}  // namespace vk
