#include "batch/FitReport.h"

#include <array>

#include "base/CodePage.h"
#include "base/Text.h"

namespace vk {
namespace {

using Covariance = std::optional<CovarianceMatrix>;

template <class Number>
Json orNull(const std::optional<Number>& number) {
  return number ? Json(*number) : Json();
}

Json nameOf(const ParameterSet& par, int i) {
  return toUtf8(par.name(i), CodePage::kCp437);
}

Json parameter(const FitOrigin& origin, const FitResult& result, const Covariance& linearised, int i) {
  const int k = freeNumber(origin.start, i);
  const bool hasError = k > 0 && result.status != FitStatus::kFailed;
  return Json::Object{
      {"name", nameOf(result.par, i)},
      {"value", result.par.ParValues[i]},
      {"error", hasError ? Json(result.par.ParDeltas[i]) : Json()},
      {"error_linearised", k > 0 && linearised ? Json(linearised->deviation(k)) : Json()},
      {"free", k > 0},
      {"start", origin.start.ParValues[i]},
  };
}

Json refinedParameter(const RefinedFit& refined, int i) {
  const int k = freeNumber(refined.par, i);
  const bool hasValue = k == 0 || refined.end != LeastSquaresEnd::kFailed;
  const bool hasErrors = k > 0 && refined.covariance.size() > 0;
  return Json::Object{
      {"name", nameOf(refined.par, i)},
      {"value", hasValue ? Json(refined.par.ParValues[i]) : Json()},
      {"error", hasErrors ? Json(refined.error(k)) : Json()},
      {"error_scaled", hasErrors ? orNull(refined.scaledError(k)) : Json()},
      {"free", k > 0},
  };
}

/// A list of what `item` gives for 1 to `count`.
template <class Item>
Json list(int count, const Item& item) {
  Json::List list;
  for (int i = 1; i <= count; ++i) list.push_back(item(i));
  return list;
}

Json matrix(const CorrelationMatrix& matrix) {
  return list(matrix.size(),
              [&](int a) { return list(matrix.size(), [&](int b) { return Json(matrix.at(a, b)); }); });
}

Json wordOf(const FitText& text) {
  return std::string(text.word);
}

}  // namespace

const char* statusName(FitStatus status) {
  constexpr std::array kNames{"completed", "unreliable", "failed"};
  return kNames.at(static_cast<std::size_t>(status));
}

int freeNumber(const ParameterSet& par, int i) {
  for (int k = 1; k <= par.FreeCount; ++k) {
    if (par.FreeIndex[k] == i) return k;
  }
  return 0;
}

Json fitReport(const FitOrigin& origin, const FitResult& result, const Covariance& linearised) {
  return Json::Object{
      {"schema_version", kSchemaVersion},
      {"data_file", origin.dataFile.empty() ? Json() : Json(origin.dataFile)},
      {"function", toUtf8(trim(origin.functionText), CodePage::kCp437)},
      {"formula", toUtf8(origin.formula, CodePage::kCp437)},
      {"points", result.M},
      {"parameters",
       list(result.par.ParCount, [&](int i) { return parameter(origin, result, linearised, i); })},
      {"correlation", matrix(result.correlation)},
      {"correlation_linearised", linearised ? matrix(linearised->correlation()) : Json()},
      {"chi_square", orNull(result.chi_square)},
      {"degrees_of_freedom", result.degrees_of_freedom},
      {"reduced_chi_square", orNull(result.reduced_chi_square)},
      {"confidence_percent", orNull(result.confidence_percent)},
      {"iterations", result.iterations},
      {"evaluations", result.evaluations},
      {"passes", result.passes},
      {"status", statusName(result.status)},
      {"reason", result.reason},
  };
}

Json refinedReport(const DataSet& data, const RefinedFit& refined) {
  const CovarianceMatrix& covariance = refined.covariance;
  Json::Object report{
      {"parameters", list(refined.par.ParCount, [&](int i) { return refinedParameter(refined, i); })},
      {"correlation", covariance.size() > 0 ? matrix(covariance.correlation()) : Json()},
      {"chi_square", refined.chiSquare},
      {"confidence_percent", orNull(refined.confidencePercent)},
      {"x_errors", data.kXpntErr ? wordOf(textOf(refined.xErrors)) : Json()},
      {"stop_reason", wordOf(textOf(refined.end))},
  };
  if (refined.failedPoint > 0) report.emplace_back("failed_point", refined.failedPoint);
  return report;
}

Json warningsReport(const std::vector<FitWarning>& warnings) {
  Json::List words;
  for (const FitWarning& warning : warnings) words.push_back(wordOf(textOf(warning.kind)));
  return words;
}

}  // namespace vk
