#include "commands/FitDiagnosis.h"

#include <algorithm>
#include <cmath>

#include "base/NumberMasks.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "commands/FitScreenTexts.h"
#include "commands/RefinedTable.h"
#include "grafile/ResidualFigure.h"

namespace vk {
namespace {

constexpr const char* kDiagnosisCaption = "VOR_KEL: Diagnosi dell'Adattamento";
constexpr const char* kFigureName = "Scarti e loro Istogramma";
constexpr int kMargin = 2;  // columns beside the text; the table has its frame there

/// The probability of the chi-square, as far as there is one.
std::string chiSquareText(const RefinedFit& refined) {
  std::string text = "X\xFD = " + trim(FormatMask(refined.chiSquare, kChiSquareMask)) +
                     ", gradi di liberta` " + generalText(refined.degreesOfFreedom);
  if (refined.confidencePercent)
    text += ": un X\xFD maggiore ha una probabilita` di " + trim(confidenceText(*refined.confidencePercent));
  return text + ".";
}

std::vector<std::string> remarks(const FitRecord& fit, const RefinedFit& refined,
                                 const std::vector<FitWarning>& warnings) {
  std::vector<std::string> list;
  if (std::isfinite(refined.chiSquare)) list.push_back(chiSquareText(refined));
  const auto add = [&](const FitText& text) {
    list.push_back(std::string(text.line) + ": " + std::string(text.sentence));
  };
  if (fit.data.kXpntErr) add(textOf(refined.xErrors));
  for (const FitWarning& warning : warnings) add(textOf(warning.kind));
  return list;
}

/// The function, the table below it, and the remarks in lines of its width.
CharGrid page(const std::string& function, const CharGrid& table, const std::vector<std::string>& remarks) {
  const int width = table.cols() - 2 * kMargin;
  std::vector<std::string> lines;
  for (const std::string& remark : remarks) {
    for (const std::string& line : wrapped(remark, width)) lines.push_back(line);
  }
  const std::vector<std::string> heading = wrapped(function, width);
  const auto headingRows = static_cast<int>(heading.size());
  CharGrid grid(headingRows + table.rows() + static_cast<int>(lines.size()) + 1, table.cols());
  int row = 0;
  for (const std::string& line : heading) grid.print(++row, 1 + kMargin, Cp437Text(line));
  grid.place(table, row + 1, 1);
  row += table.rows() + 1;
  for (const std::string& line : lines) grid.print(++row, 1 + kMargin, Cp437Text(line));
  return grid;
}

}  // namespace

FigureReport fitDiagnosis(const FitRecord& fit, const RefinedFit& refined) {
  const std::vector<FitWarning> warnings = fitWarnings(fit.data, fit.result, refined);
  std::vector<double> residuals = refined.residuals;
  // The minimiser counts what the model has more than the data.
  std::ranges::transform(residuals, residuals.begin(), std::negate<>());
  const ResidualFigure figure(fit.data.TitleX, fit.data.Xpnt.span(1, fit.data.NumPnt), residuals);
  return {.caption = kDiagnosisCaption,
          .text = page(fit.functionText, refinedTable(fit.data, refined, warnings),
                       remarks(fit, refined, warnings)),
          .figureName = kFigureName,
          .figureMeaning = WindowText(describe(figure)),
          .draw = [figure](GralCls& drawing, const PageArea& area) { drawResiduals(figure, drawing, area); }};
}

}  // namespace vk
