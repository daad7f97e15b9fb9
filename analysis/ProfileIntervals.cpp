#include "analysis/ProfileIntervals.h"

#include <algorithm>
#include <cmath>

#include "numeric/DampedSteps.h"
#include "numeric/DirectionSet.h"

namespace vk {
namespace {

constexpr double kFarthest = 1000;  // errors from the value
constexpr double kAccuracy = 1E-7;  // of the number of errors, in chi-square or distance
constexpr int kMostTrials = 60;

/// One parameter moved away from the minimum, the other free ones following it.
class Profile {
 public:
  /// Free parameter i, from 1.
  Profile(const FitProblem& problem, const RefinedFit& minimum, int i);

  /// The value on this side (-1 or 1) at which the chi-square has grown by the square of `errors`.
  std::optional<double> side(int sign, double errors);

 private:
  double growth(double distance);
  double sumAt(double distance);

  const RefinedFit& minimum_;
  const int i_, at_;
  const FitProblem problem_;
  ParameterSet par_;  // the parameter is constant here
};

Profile::Profile(const FitProblem& problem, const RefinedFit& minimum, int i)
    : minimum_(minimum), i_(i), at_(minimum.par.FreeIndex[i]), problem_(problem), par_(minimum.par) {
  par_.ParDeltas[at_] = 0;
  classifyParameters(par_);
}

// The chi-square with the parameter so many errors away. The others begin where the covariances lead them.
double Profile::sumAt(double distance) {
  par_.ParValues = minimum_.par.ParValues;
  par_.ParValues[at_] += distance * minimum_.error(i_);
  const auto function = residualsOf(problem_, par_, minimum_.xErrors);
  if (par_.FreeCount == 0) {
    std::vector<double> residuals(function->count());
    function->at({}, residuals);
    return dot(residuals, residuals);
  }
  std::vector<double> start;
  for (int k = 1; k <= minimum_.par.FreeCount; ++k) {
    if (k == i_) continue;
    const double slope = minimum_.covariance.at(k, i_) / minimum_.error(i_);
    start.push_back(minimum_.par.ParValues[minimum_.par.FreeIndex[k]] + distance * slope);
  }
  return dampedSteps(*function, start).sum;
}

// The root of what the chi-square has grown by, with the sign of the distance: nearly the distance itself.
double Profile::growth(double distance) {
  const double grown = sumAt(distance) - minimum_.chiSquare;
  return std::isnan(grown) ? HUGE_VAL : std::sqrt(std::max(0.0, grown));
}

// By the secant, kept between distances below and above.
std::optional<double> Profile::side(int sign, double errors) {
  double low = 0, high = errors, atLow = 0, atHigh = growth(sign * high);
  while (atHigh < errors) {
    if (high > kFarthest * errors) return std::nullopt;
    low = high, atLow = atHigh;
    high *= 2;
    atHigh = growth(sign * high);
  }
  double distance = high, now = atHigh;
  const double accuracy = kAccuracy * errors;
  for (int k = 0; k < kMostTrials && std::abs(now - errors) > accuracy && high - low > accuracy; ++k) {
    const double secant = low + (high - low) * (errors - atLow) / (atHigh - atLow);
    const double middle = (low + high) / 2;
    // Where the secant gets stuck at one end, as beside a pole or where the function ends, halving goes on.
    distance = secant > low && k % 3 != 2 ? secant : middle;
    now = growth(sign * distance);
    (now < errors ? low : high) = distance;
    (now < errors ? atLow : atHigh) = now;
  }
  return minimum_.par.ParValues[at_] + sign * distance * minimum_.error(i_);
}

}  // namespace

std::vector<ProfileIntervals> profileIntervals(const FitProblem& problem, const RefinedFit& minimum) {
  std::vector<ProfileIntervals> result;
  for (int i = 1; i <= minimum.covariance.size(); ++i) {
    Profile profile(problem, minimum, i);
    ProfileIntervals& intervals = result.emplace_back();
    for (std::size_t k = 0; k < kProfileLevels.size(); ++k)
      intervals[k] = {profile.side(-1, kProfileLevels[k].errors), profile.side(1, kProfileLevels[k].errors)};
  }
  return result;
}

}  // namespace vk
