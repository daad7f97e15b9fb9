#include "batch/FitReport.h"

#include <array>

#include "base/CodePage.h"
#include "base/Text.h"
#include "session/Session.h"

namespace vk {
namespace {

using Covariance = std::optional<CovarianceMatrix>;

template <class Number>
Json orNull(const std::optional<Number>& number) {
  return number ? Json(*number) : Json();
}

const char* statusName(FitStatus status) {
  constexpr std::array kNames{"completed", "unreliable", "failed"};
  return kNames.at(static_cast<std::size_t>(status));
}

/// Number of parameter i among the free ones, from 1; 0 for a constant one.
int freeNumber(const FitResult& result, int i) {
  for (int k = 1; k <= result.N; ++k) {
    if (result.par.FreeIndex[k] == i) return k;
  }
  return 0;
}

Json parameter(const FitResult& result, const Covariance& linearised, int i) {
  const int k = freeNumber(result, i);
  const bool hasErrors = k > 0 && result.status != FitStatus::kFailed;
  return Json::Object{
      {"name", toUtf8(result.par.name(i), CodePage::kCp437)},
      {"value", result.par.ParValues[i]},
      {"error", hasErrors ? Json(result.par.ParDeltas[i]) : Json()},
      {"error_linearised", hasErrors && linearised ? Json(linearised->deviation(k)) : Json()},
      {"free", k > 0},
  };
}

Json parameters(const FitResult& result, const Covariance& linearised) {
  Json::List list;
  for (int i = 1; i <= result.par.ParCount; ++i) list.push_back(parameter(result, linearised, i));
  return list;
}

Json correlation(const CorrelationMatrix& matrix) {
  Json::List rows;
  for (int a = 1; a <= matrix.size(); ++a) {
    Json::List row;
    for (int b = 1; b <= matrix.size(); ++b) row.emplace_back(matrix.at(a, b));
    rows.emplace_back(std::move(row));
  }
  return rows;
}

}  // namespace

Json fitReport(const std::string& functionText, const FitResult& result, const Covariance& linearised) {
  return Json::Object{
      {"function", toUtf8(trim(functionText), CodePage::kCp437)},
      {"points", result.M},
      {"parameters", parameters(result, linearised)},
      {"correlation", correlation(result.correlation)},
      {"chi_square", result.chi_square},
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

}  // namespace vk
