#include "commands/RefinedTable.h"

#include <algorithm>
#include <optional>

#include "base/Guard.h"
#include "base/NumberMasks.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "commands/FitScreenTexts.h"
#include "platform/Texts.h"

namespace vk {
namespace {

constexpr const char* kHeading = "Minimo e Errori Lineari";
const std::string kPoint = " Punto ";

const std::string kNoFigure = "__________";

constexpr int kHeadingRow = 2, kStatusTop = 3, kStatusBottom = 7, kFirstSection = 8;
constexpr int kHeadRows = 3;  // of a section: its rule, its head, a rule
constexpr int kTextMargin = 3;
constexpr int kMatrixStep = 6;

/// A warning or a reason in the lines of a section.
void addRemark(std::vector<std::string>& lines, const std::string& text, int width) {
  for (const std::string& line : wrapped("- " + text, width)) lines.push_back(line);
}

std::string warningLine(const FitWarning& warning) {
  std::string line(textOf(warning.kind).line);
  for (std::size_t i = 0; i < warning.parameters.size(); ++i)
    line += (i == 0 ? ": " : ", ") + warning.parameters[i];
  return line;
}

/// Why there is no minimum.
std::string endLine(const RefinedFit& refined) {
  std::string line(textOf(refined.end).sentence);
  if (refined.failedPoint > 0) line += kPoint + generalText(refined.failedPoint) + ".";
  return line;
}

/// The table while it is drawn, section by section.
class Table {
 public:
  Table(const DataSet& data, const RefinedFit& refined, const std::vector<FitWarning>& warnings);

  CharGrid draw() &&;

 private:
  bool hasMatrix() const { return free_ > 1 && refined_.covariance.size() > 0; }
  bool hasValue(int k) const { return k > free_ || refined_.end != LeastSquaresEnd::kFailed; }
  void drawStatus();
  void drawFigures();
  void drawParameters();
  void drawParameter(int row, int k);
  void drawMatrix();
  void drawRemarks();
  void drawSection(int rows);
  void print(int row, int column, const std::string& text) { grid_.print(row, column, Cp437Text(text)); }
  void printCentred(int row, int left, int right, const std::string& text);
  void frame(int top, int left, int bottom, int right) {
    grid_.frame({top, left, bottom, right, kFrameStyle});
  }

  const DataSet& data_;
  const RefinedFit& refined_;
  const ParameterSet& par_;
  const int name_, all_, free_;  // columns of the names; parameters; the free ones
  const int width_, half_;       // columns; where the boxes of the status block meet
  const int nameRule_;           // behind the names
  std::vector<std::string> remarks_;
  CharGrid grid_;
  int row_ = kFirstSection;  // the top of the next section
};

Table::Table(const DataSet& data, const RefinedFit& refined, const std::vector<FitWarning>& warnings)
    : data_(data),
      refined_(refined),
      par_(refined.par),
      name_(nameWidthOf(par_)),
      all_(par_.ParCount),
      free_(par_.FreeCount),
      width_(std::max(name_ + 50, hasMatrix() ? name_ + 6 + kMatrixStep * free_ : 0)),
      half_((width_ + 1) / 2),
      nameRule_(name_ + 4) {
  if (!refined.converged()) addRemark(remarks_, endLine(refined), width_ - 4);
  for (const FitWarning& warning : warnings) addRemark(remarks_, warningLine(warning), width_ - 4);
  const auto remarkRows = remarks_.empty() ? 0 : static_cast<int>(remarks_.size()) + 1;
  grid_ =
      CharGrid(kFirstSection + kHeadRows + all_ + (hasMatrix() ? kHeadRows + free_ : 0) + remarkRows, width_);
}

CharGrid Table::draw() && {
  drawStatus();
  drawFigures();
  drawParameters();
  if (hasMatrix()) drawMatrix();
  if (!remarks_.empty()) drawRemarks();
  return std::move(grid_);
}

void Table::drawStatus() {
  frame(1, 1, kStatusTop, width_);
  printCentred(kHeadingRow, 1, width_, kHeading);
  frame(kStatusTop, 1, kStatusBottom, half_);
  frame(kStatusTop, half_, kStatusBottom, width_);
  printCentred(kStatusTop + 1, 1, half_, kMinimisation);
  printCentred(kStatusTop + 2, 1, half_, std::string(textOf(refined_.end).line));
  if (data_.kXpntErr) printCentred(kStatusTop + 3, 1, half_, std::string(textOf(refined_.xErrors).line));
}

void Table::drawFigures() {
  const int column = half_ + 2;
  const auto& chiSquare = refined_.reducedChiSquare;
  const auto& confidence = refined_.confidencePercent;
  print(kStatusTop + 1, column, kFreedom + FormatMask(refined_.degreesOfFreedom, kFreedomMask));
  print(kStatusTop + 2, column,
        kChiSquare + (chiSquare ? FormatMask(*chiSquare, kChiSquareMask) : kNoFigure));
  print(kStatusTop + 3, column, kConfidence + (confidence ? confidenceText(*confidence) : kNoFigure));
}

/// A section's frame with its head, and a rule behind the names.
void Table::drawSection(int rows) {
  frame(row_, 1, row_ + kHeadRows + rows, width_);
  frame(row_, 1, row_ + kHeadRows - 1, width_);
  frame(row_, nameRule_, row_ + kHeadRows + rows, width_);
  print(row_ + 1, kTextMargin + (name_ - length(kParameterHead)) / 2, kParameterHead);
}

void Table::drawParameters() {
  drawSection(all_);
  frame(row_, name_ + 19, row_ + kHeadRows + all_, name_ + 34);
  print(row_ + 1, name_ + 9, kValueHead);
  print(row_ + 1, name_ + 24, kErrorHead);
  print(row_ + 1, name_ + 36, kScaledHead);
  row_ += kHeadRows;
  for (int k = 1; k <= free_; ++k) drawParameter(row_++, k);
  for (int k = all_; k > free_; --k) drawParameter(row_++, k);
}

void Table::drawParameter(int row, int k) {
  const int i = par_.FreeIndex[k];
  const bool hasError = k <= refined_.covariance.size();
  const auto scaled = hasError ? refined_.scaledError(k) : std::nullopt;
  print(row, kTextMargin, nameText(par_, i, name_));
  print(row, name_ + 6, hasValue(k) ? FormatMask(par_.ParValues[i], kNumberMask) : kNoError);
  print(row, name_ + 21, hasError ? FormatMask(refined_.error(k), kNumberMask) : kNoError);
  print(row, name_ + 36, scaled ? FormatMask(*scaled, kNumberMask) : kNoError);
}

void Table::drawMatrix() {
  drawSection(free_);
  print(row_ + 1, nameRule_ + 2, kMatrixHead);
  row_ += kHeadRows;
  const CorrelationMatrix correlation = refined_.covariance.correlation();
  for (int a = 1; a <= free_; ++a, ++row_) {
    print(row_, kTextMargin, nameText(par_, par_.FreeIndex[a], name_));
    for (int b = 1; b <= free_; ++b) {
      std::string text = kNoMatrix;
      // Of variances beyond the range of numbers there is none.
      if (b < a) guard([&] { text = correlationText(correlation.at(a, b)); });
      print(row_, nameRule_ + 1 + kMatrixStep * (b - 1), text);
    }
  }
}

void Table::drawRemarks() {
  frame(row_, 1, row_ + static_cast<int>(remarks_.size()) + 1, width_);
  for (const std::string& line : remarks_) print(++row_, kTextMargin, line);
}

void Table::printCentred(int row, int left, int right, const std::string& text) {
  print(row, (left + right + 1 - length(text)) / 2, text);
}

}  // namespace

CharGrid refinedTable(const DataSet& data, const RefinedFit& refined,
                      const std::vector<FitWarning>& warnings) {
  return Table(data, refined, warnings).draw();
}

}  // namespace vk
