/// Unit Module6: the screen of the propagation of errors.
#pragma once

#include <string>

#include "analysis/Propagation.h"
#include "platform/OutputWindow.h"

namespace vk {

/// The screen of a propagation of errors on the output window: the variables with their errors, the error by
/// derivatives, and the distribution of the samples. Texts are code page 437.
class PropagationScreen : public PropagationObserver {
 public:
  /// Opens the window and lists the variables with their values and errors. `par` must outlive this object.
  PropagationScreen(std::string functionText, const ParameterSet& par, OutputWindow& output);

  /// The value of the function and its errors by derivatives.
  void derived(const AnalyticErrors& errors) override;
  void simulationBegins() override;
  /// The samples so far; the window is repainted.
  void sampled(const SampleStatistics& samples) override;

 private:
  void drawFunction();
  void drawVariable(int i);
  int simulationRow() const;
  void openSection(int row, const std::string& title);
  void printAt(int row, int column, const std::string& text);
  void printError(int row, const std::string& label, double error, const std::string& kind);
  std::string errorLabel(const std::string& name, const std::string& mark = "") const;

  const std::string functionText_;
  const ParameterSet& par_;
  OutputWindow& output_;
  const int width_;         ///< of the names
  const int columns_;       ///< of the window
  const std::string name_;  ///< of the function's value
};

}  // namespace vk
