#include "grafile/ModernFigure.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/NumberText.h"
#include "base/Text.h"
#include "data/DataFiles.h"
#include "data/FigureText.h"
#include "grafile/FunctionValues.h"

namespace vk {
namespace {

constexpr double kNoValue = std::numeric_limits<double>::quiet_NaN();
constexpr int kLongestEntry = 40;

/// Takes the points of a column at which a value can be drawn.
DataSet dataOf(std::span<const double> x, std::span<const double> y, std::span<const double> third) {
  std::vector<std::size_t> good;
  for (std::size_t i = 0; i < x.size(); ++i) {
    if (std::isfinite(y[i]) && std::isfinite(third[i])) good.push_back(i);
  }
  DataSet data;
  data.allocate(static_cast<int>(good.size()), kFalse);
  int point = 0;
  for (const std::size_t i : good) {
    ++point;
    data.Xpnt[point] = x[i];
    data.Ypnt[point] = y[i];
    data.ErrYpnt[point] = third[i];
  }
  return data;
}

/// The values of the model; not a number where it has none.
std::vector<double> valuesAt(const FigureSource& source, std::span<const double> x,
                             EvaluationListener& listener) {
  std::vector<double> y(x.size(), kNoValue);
  eachValue(source.model, source.parameters.ParValues, x, listener,
            [&](std::size_t i, const Evaluation& value) {
              if (value.fault == Fault::kNone) y[i] = value.value;
              return true;
            });
  return y;
}

class ModernFigure {
 public:
  ModernFigure(const FigureSource& source, const FigureValues& values, EvaluationListener& listener)
      : source_(source), values_(values), listener_(listener) {}

  PlotSheet sheet();

 private:
  SheetData residuals() const;
  void addBands(PlotSheet& sheet) const;
  std::string functionName() const;

  const FigureSource& source_;
  const FigureValues& values_;
  EvaluationListener& listener_;
};

/// A point without an error has none.
SheetData ModernFigure::residuals() const {
  const DataSet& data = source_.data;
  const auto x = data.Xpnt.span(1, data.NumPnt);
  const Array<double>& errors = data.kXpntErr != kFalse ? data.ErrEff : data.ErrYpnt;
  std::vector<double> y = valuesAt(source_, x, listener_);
  for (std::size_t i = 0; i < x.size(); ++i) {
    const int point = static_cast<int>(i) + 1;
    y[i] = errors[point] > 0 ? (data.Ypnt[point] - y[i]) / errors[point] : kNoValue;
  }
  return {"", source_.beside + "_scarti.dat", dataOf(x, y, std::vector<double>(x.size(), 1))};
}

std::string ModernFigure::functionName() const {
  const std::string name = trim(source_.functionText);
  return length(name) <= kLongestEntry ? formulaInKey(name) : "Funzione";
}

void ModernFigure::addBands(PlotSheet& sheet) const {
  const BandWidths& band = values_.band;
  const std::string percent = " " + generalText(source_.band ? source_.band->percent : 0) + " %";
  const auto add = [&](const char* name, const char* ending, const std::vector<double>& widths) {
    if (widths.empty()) return;
    std::vector<double> low, high;
    for (std::size_t i = 0; i < widths.size(); ++i) {
      low.push_back(band.values[i] - widths[i]);
      high.push_back(band.values[i] + widths[i]);
    }
    sheet.bands.push_back({name + percent, source_.beside + ending, dataOf(values_.bandX, low, high)});
  };
  add("Previsione", "_previsione.dat", band.prediction);
  add("Banda", "_banda.dat", band.confidence);
}

PlotSheet ModernFigure::sheet() {
  const DataSet& data = source_.data;
  PlotSheet sheet;
  sheet.heading = headingOf(source_).text();
  sheet.titleX = data.TitleX;
  sheet.titleY = data.TitleY;
  sheet.points = {{figureTextOfUtf8(nameInKey(source_.dataName)), source_.dataPath, data}};
  if (source_.kind != kFunctionFigure) return sheet;
  sheet.curves = {{functionName(), functionLines(source_, values_, listener_),
                   [&source = source_, &listener = listener_](std::span<const double> x) {
                     return valuesAt(source, x, listener);
                   }}};
  addBands(sheet);
  if (source_.residuals) sheet.residuals = residuals();
  return sheet;
}

}  // namespace

PlotSheet modernSheet(const FigureSource& source, const FigureValues& values, EvaluationListener& listener) {
  return ModernFigure(source, values, listener).sheet();
}

FigureTexts drawModern(const FigureSource& source, const FigureValues& values, Files& files, GralCls& drawing,
                       EvaluationListener& listener) {
  const PlotSheet sheet = modernSheet(source, values, listener);
  FigureTexts texts;
  texts.graph = sheetText(sheet, drawing);
  texts.failed = values.failed || !drawSheet(sheet, texts.graph, files, drawing, listener).empty();
  const auto add = [&](const SheetData& data) {
    texts.files[data.file] = dataFileText(data.data, kMostDataDigits);
  };
  std::ranges::for_each(sheet.bands, add);
  if (sheet.residuals) add(*sheet.residuals);
  return texts;
}

}  // namespace vk
