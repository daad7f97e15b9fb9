#include "commands/PropagationScreen.h"

#include <cmath>

#include "base/NumberMasks.h"
#include "base/Rounding.h"
#include "base/Text.h"

namespace vk {
namespace {

const std::string kAnalyticTitle = "Espressioni Analitiche";
const std::string kSimulationTitle = "Simulazione di Monte Carlo";

const std::string kValueMask = "#.######^^^^";
const std::string kErrorMask = "#.###^^^^";
const std::string kSamplesMask = "########";

// \xE5 shows as a small sigma and \xEB as a small delta.
const std::string kSigma = "\xE5";
const std::string kDelta = "\xEB";
const std::string kStandardDeviation = " " + kSigma + "       ";
const std::string kSampleCount = " N =";
const std::string kMaximumError = " Err. Max.";

constexpr int kRuledFrame = 3;
constexpr int kFunctionRow = 2, kTitleRule = 3;
constexpr int kRowsBesideVariables = 11;
constexpr int kColumnsBesideNames = 44;
constexpr int kVariableColumn = 3, kTitleColumn = 3;
constexpr int kErrorNameColumn = 22;
constexpr int kValueBehindName = 6, kErrorBehindName = 26;

constexpr int kLongestFunction = 45;

}  // namespace

PropagationScreen::PropagationScreen(std::string functionText, const ParameterSet& par, OutputWindow& output)
    : functionText_(std::move(functionText)),
      par_(par),
      output_(output),
      width_(par.ParNameWidth),
      columns_(2 * width_ + kColumnsBesideNames),
      name_(par.name(-1)) {
  OutputRequest request;
  request.rows = par_.ParCount + kRowsBesideVariables;
  request.cols = columns_;
  request.captions = {kContinueButton, kPrintButton, kCopyButton, kSaveFileButton};
  request.caption = kPropagationCaption;
  request.topic = ManualTopic::kPropagation;
  output_.OutShow(request);
  output_.CharFrame(1, 1, request.rows, columns_, kRuledFrame, "");
  output_.CharFrame(1, 1, kTitleRule, columns_, kRuledFrame, "");
  drawFunction();
  for (int i = 0; i <= par_.ParCount; ++i) drawVariable(i);
}

void PropagationScreen::drawFunction() {
  const std::string text = shortened(trim(functionText_), kLongestFunction);
  printAt(kFunctionRow, toInt16(columns_ / 2.0) - toInt16(length(text) / 2.0), text);
}

void PropagationScreen::drawVariable(int i) {
  const int row = kTitleRule + i + 1;
  const std::string name = par_.name(i);
  printAt(row, kVariableColumn, right(repeat(width_, ' ') + name, width_) + " =");
  printAt(row, width_ + kValueBehindName, FormatMask(par_.ParValues[i], kValueMask));
  const double error = par_.ParDeltas[i];
  printError(row, errorLabel(name), std::abs(error), error < 0 ? kMaximumError : kStandardDeviation);
}

void PropagationScreen::derived(const AnalyticErrors& errors) {
  const int row = kTitleRule + par_.ParCount + 3;
  openSection(row, kAnalyticTitle);
  printAt(row, kVariableColumn, name_ + " =");
  printAt(row, width_ + kValueBehindName, FormatMask(errors.F0, kValueMask));
  printError(row, errorLabel(name_), errors.ErrorMax, kMaximumError);
  printError(row + 1, errorLabel(name_, "'"), errors.ErrorSigma, " " + kSigma + "(" + name_ + ")");
}

int PropagationScreen::simulationRow() const {
  return kTitleRule + par_.ParCount + 6;
}

void PropagationScreen::simulationBegins() {
  openSection(simulationRow(), kSimulationTitle);
}

void PropagationScreen::sampled(const SampleStatistics& samples) {
  const int row = simulationRow();
  printAt(row, width_ - length(name_) + 2, "<" + name_ + ">=");
  printAt(row, width_ + kValueBehindName, FormatMask(samples.mean, kValueMask));
  printError(row, errorLabel(name_), samples.spread, " " + kSigma + "(" + name_ + ")");
  printAt(row + 1, width_ + 1, kSampleCount);
  printAt(row + 1, width_ + kValueBehindName, FormatMask(samples.count, kSamplesMask));
  printError(row + 1, errorLabel(name_, "'"), samples.meanError, " " + kSigma + "(<" + name_ + ">)");
  output_.refresh();
}

/// A frame down to the row above, with the title of what follows on its lower edge.
void PropagationScreen::openSection(int row, const std::string& title) {
  output_.CharFrame(1, 1, row - 1, columns_, kRuledFrame, "");
  printAt(row - 1, kTitleColumn, title);
}

std::string PropagationScreen::errorLabel(const std::string& name, const std::string& mark) const {
  return repeat(width_ - length(name), ' ') + kDelta + name + (mark.empty() ? " =" : mark + "=");
}

void PropagationScreen::printError(int row, const std::string& label, double error, const std::string& kind) {
  printAt(row, kErrorNameColumn, label);
  printAt(row, width_ + kErrorBehindName, FormatMask(error, kErrorMask) + kind);
}

void PropagationScreen::printAt(int row, int column, const std::string& text) {
  output_.CharLocate(row, column);
  output_.print(Cp437Text(text));
}

}  // namespace vk
