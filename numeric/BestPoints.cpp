#include "numeric/BestPoints.h"

#include <utility>

namespace vk {
namespace {

void store(TriedPoint& point, double position, double sum, std::span<const double> X,
           std::span<const double> F) {
  point.position = position;
  point.sum = sum;
  point.X.assign(X.begin(), X.end());
  point.F = F;
}

}  // namespace

void BestPoints::begin(double sum, std::span<const double> X, std::span<const double> F) {
  store(best_, 0, sum, X, F);
  hasSecond_ = false;
}

void BestPoints::consider(double position, double sum, std::span<const double> X, std::span<const double> F) {
  if (sum == best_.sum || (hasSecond_ && !(sum < second_.sum))) return;
  hasSecond_ = true;
  if (sum < best_.sum) {
    std::swap(best_, second_);
    store(best_, position, sum, X, F);
  } else {
    store(second_, position, sum, X, F);
  }
}

}  // namespace vk
