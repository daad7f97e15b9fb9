#pragma once

#include <string>
#include <vector>

#include "data/DataSet.h"

namespace vk {

/// The refusal of a file with too little in it.
inline constexpr const char* kTooFewPoints = "un file dati contiene almeno due punti";

/// Points in any number, as columns of one length.
struct PointColumns {
  std::vector<double> x, y;
  std::vector<double> dx, dy;  ///< empty where there are no such errors
};

/// How the errors of y follow from y.
struct ErrorRule {
  enum class Kind { kValue, kPercent, kRoot };
  Kind kind = Kind::kValue;
  double value = 0;  ///< the error itself or the percentage
};

/// Gives all points the errors of the rule. The root of a negative y is a `Refusal`.
void setErrors(PointColumns& points, const ErrorRule& rule);

/// Keeps one of each n points, the first of them.
void keepEvery(PointColumns& points, std::size_t n);

/// Makes each n points one, their mean, with the error of a mean of independent values; the last ones may be fewer.
void average(PointColumns& points, std::size_t n);

/// The columns of a data set.
PointColumns pointsOf(const DataSet& data);

/// The points as a data set without titles; missing errors of y are 1. Fewer than 2 points or more than 32767 are a
/// `Refusal`.
DataSet dataSetOf(const PointColumns& points);

}  // namespace vk
