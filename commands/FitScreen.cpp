#include "commands/FitScreen.h"

#include <algorithm>

#include "base/Guard.h"
#include "base/NumberMasks.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "commands/FitScreenTexts.h"

namespace vk {
namespace {

constexpr int kScreenMiddle = 40;
constexpr int kLeastWidth = 49;

constexpr int kWordRow = 4, kOutcomeRow = 5;
constexpr int kFreedomRow = 4, kChiSquareRow = 5, kConfidenceRow = 6, kTimeRow = 6;
constexpr int kTableTop = 8, kHeaderRow = 9;
constexpr int kHeaderRule = 10;  // the i-th parameter stands on the i-th row below
constexpr int kNameColumn = 3, kSecondsColumn = 3;
// Columns of the screen.
constexpr int kIterationsScreen = 29, kRightScreen = 42, kNumberScreen = 53;

constexpr const char* kCaption = "VOR_KEL: Adattamento Funzione Dati";
const std::string kRunning = "in Corso";
const std::string kCompleted = "Completata";
const std::string kUnreliable = "NON Affidabile";

const std::string kSeconds = "Sec. ";
const std::string kIterations = "Iter. ";
const std::string kStartPattern = ".000000E+00";
const std::string kCountMask = "####";
constexpr const char* kTooSmall = ") ECCESSIVAMENTE PICCOLO!   <*> per Continuare";

std::string titleOf(const std::string& functionText) {
  const std::string title = " " + trim(functionText) + " ";
  return length(title) % 2 == 0 ? title + " " : title;
}

// Rules, name, two numbers, and the matrix where there is one.
int tableWidth(int nameWidth, int freeCount) {
  return nameWidth + 34 + (freeCount > 1 ? 2 + 6 * freeCount : 0);
}

}  // namespace

FitScreenLayout::FitScreenLayout(const std::string& functionText, const ParameterSet& par, int free)
    : title(titleOf(functionText)),
      nameWidth(nameWidthOf(par)),
      allCount(par.ParCount),
      freeCount(free),
      width(std::max({kLeastWidth, length(title), tableWidth(nameWidth, free)})),
      half((width - 1) / 2),
      leftColumn(kScreenMiddle - half),
      rows(11 + allCount) {}

FitScreen::FitScreen(std::string functionText, const ParameterSet& par, const FitScreenPorts& ports)
    : functionText_(std::move(functionText)), par_(par), ports_(ports) {}

void FitScreen::started(const FitStart& start) {
  layout_.emplace(functionText_, par_, start.N);
  OutputRequest request;
  request.rows = layout_->rows;
  request.cols = layout_->width;
  request.captions = kReportButtons;
  request.caption = kCaption;
  request.topic = ManualTopic::kFit;
  ports_.output.OutShow(request);
  drawTitle();
  drawStatusBlock();
  drawTable();

  int row = kHeaderRule;
  for (int i = 1; i <= start.N; ++i) drawRow(++row, par_.FreeIndex[i], start.X[i]);
  for (int i = layout_->allCount; i > start.N; --i) {
    drawRow(++row, par_.FreeIndex[i], par_.ParValues[par_.FreeIndex[i]]);
  }
  ports_.output.refresh();
  started_ = ports_.clock.timer();
}

// A title as wide as the window would cover the sides of its frame with its first and last character.
void FitScreen::drawTitle() {
  const bool fillsWindow = length(layout_->title) == layout_->width;
  drawFrame(1, 1, 3, layout_->width, fillsWindow ? "" : layout_->title);
  if (fillsWindow) printAt(2, 2, trim(layout_->title));
}

void FitScreen::drawStatusBlock() {
  drawFrame(3, 1, 7, layout_->half);
  drawFrame(3, layout_->half, 7, layout_->width);
  printStatusWord(kWordRow, kMinimisation);
  printStatusWord(kOutcomeRow, kRunning);
  const int right = layout_->fromScreen(kRightScreen);
  printAt(kTimeRow, kSecondsColumn, kSeconds + kCountMask);
  printAt(kTimeRow, layout_->fromScreen(kIterationsScreen), kIterations + kCountMask);
  printAt(kFreedomRow, right, kFreedom + kFreedomMask);
  printAt(kChiSquareRow, right, kChiSquare + kChiSquareMask);
  printAt(kConfidenceRow, right, kConfidence + kConfidenceMask + kPerCent);
}

void FitScreen::drawTable() {
  const int name = layout_->nameWidth;
  const int bottom = layout_->rows;
  drawFrame(kTableTop, 1, bottom, layout_->width);
  drawFrame(kTableTop, 1, kHeaderRule, layout_->width);
  drawFrame(kTableTop, name + 4, bottom, name + 19);
  drawFrame(kTableTop, name + 34, bottom, layout_->width);
  printAt(kHeaderRow, kNameColumn + (name - length(kParameterHead)) / 2, kParameterHead);
  printAt(kHeaderRow, name + 9, kValueHead);
  printAt(kHeaderRow, name + 24, kErrorHead);
  if (layout_->freeCount > 1) {
    printAt(kHeaderRow, name + 35 + (6 * layout_->freeCount - 10) / 2, kMatrixHead);
  }
}

void FitScreen::drawRow(int row, int parameter, double value) {
  printAt(row, kNameColumn, nameText(par_, parameter, layout_->nameWidth));
  printAt(row, layout_->valueColumn(), FormatSigned(value, kStartPattern));
  printAt(row, layout_->errorColumn(), kNoError);
  if (layout_->freeCount < 2) return;
  for (int b = 1; b <= layout_->freeCount; ++b) printAt(row, layout_->matrixColumn(b), kNoMatrix);
}

void FitScreen::progress(const FitProgress& progress) {
  printFigures(progress);
  printColumn(layout_->valueColumn(), progress.X);
  ports_.output.refresh();
}

void FitScreen::finished(const FitFinal& final) {
  printColumn(layout_->valueColumn(), final.progress.X);
  printColumn(layout_->errorColumn(), final.errors);
  printMatrix(final.correlation);
  printFigures(final.progress);
  if (final.last) {
    printStatusWord(kWordRow, kMinimisation);
    printStatusWord(kOutcomeRow, final.unreliable ? kUnreliable : kCompleted);
  }
  ports_.output.refresh();
}

void FitScreen::failed(const FitFailure& failure) {
  if (failure.end == MinimiseEnd::kNoEffect) {
    ports_.dialogs.plainBox(kErrorTitle, WindowText("E(" + signedText(failure.parameter) + kTooSmall));
  }
  ports_.output.FrmOut_Exit();
}

// A figure that could not be computed leaves what stands in its place.
void FitScreen::printFigures(const FitProgress& progress) {
  const int right = layout_->fromScreen(kRightScreen);
  const int seconds = static_cast<int>(Int(ports_.clock.timer() - started_));
  printAt(kTimeRow, kSecondsColumn + length(kSeconds), FormatMask(seconds, kCountMask));
  printAt(kTimeRow, layout_->fromScreen(kIterationsScreen) + length(kIterations),
          FormatMask(progress.iteration, kCountMask));
  printAt(kFreedomRow, right + length(kFreedom), FormatMask(progress.degreesOfFreedom, kFreedomMask));
  if (progress.reducedChiSquare) {
    printAt(kChiSquareRow, layout_->fromScreen(kNumberScreen),
            FormatMask(*progress.reducedChiSquare, kChiSquareMask));
  }
  if (progress.confidence)
    printAt(kConfidenceRow, layout_->fromScreen(kNumberScreen), confidenceText(*progress.confidence));
}

void FitScreen::printColumn(int column, const Array<double>& numbers) {
  for (int i = 1; i <= layout_->freeCount; ++i) {
    printAt(kHeaderRule + i, column, FormatMask(numbers[i], kNumberMask));
  }
}

void FitScreen::printMatrix(const CorrelationMatrix& correlation) {
  for (int a = 2; a <= layout_->freeCount; ++a) {
    for (int b = 1; b < a; ++b) {
      // A statement that fails prints nothing.
      guard(
          [&] { printAt(kHeaderRule + a, layout_->matrixColumn(b), correlationText(correlation.at(a, b))); });
    }
  }
}

void FitScreen::printStatusWord(int row, const std::string& word) {
  printAt(row, toInt16((layout_->half - length(word)) / 2.0 + 1), word);
}

void FitScreen::drawFrame(int row1, int column1, int row2, int column2, const std::string& title) {
  ports_.output.CharFrame(row1, column1, row2, column2, kFrameStyle, Cp437Text(title));
}

void FitScreen::printAt(int row, int column, const std::string& text) {
  ports_.output.CharLocate(row, column);
  ports_.output.print(Cp437Text(text));
}

}  // namespace vk
