#pragma once

#include "base/Int16.h"

namespace vk {

/// What a search keeps between two calls of `LineSearch`. A first call resets all that matters.
struct LineSearchState {
  Int16 is = 0;   ///< phase of the point returned last: 1 predicted minimum, 2 third point, 3 first steps
  Int16 inc = 0;  ///< 1 while the search still extends, 2 once a bracket exists
  double d = 0;   ///< the current step, doubled when used; with a bracket the position of its far end
  Int16 mc = 0;   ///< function values requested so far
  double xa = 0, fa = 0;  ///< point a
  double fb = 0, xb = 0;  ///< point b
  double xc = 0, fc = 0;  ///< point c, set from phase 2 on
  double xp = 0;          ///< divided difference of the parabola, then its minimum
};

/// Outcomes of a call.
enum LineSearchOutcome : int {
  kSearchBegin = 0,     ///< (on entry) begin; the first request is for the value at x itself
  kSearchEvaluate = 1,  ///< evaluate at x and call again with f set
  kSearchAccurate = 2,  ///< the step predicted is below the accuracy asked for
  kSearchBeginAt = 3,   ///< (on entry) begin; f holds the value at x
  kSearchFlat = 3,      ///< the points cannot be told apart any more, or no minimum is left to find
  kSearchExhausted = 4  ///< `maxfun` values were used
};

/// Minimum of a function of one variable without derivatives, by successive parabolic interpolation; by reverse
/// communication: it never calls the function.
///
/// Goes downhill by doubled steps. As soon as there are three points a, b, c, the next one is the vertex of their
/// parabola,
///
///     x = ((xa + xb) - (fa - fb) / p) / 2,   p = (fc - fa) / (xc - xa) - (fc - fb) / (xc - xb).
///
/// Where the parabola has no minimum, (xa - xb) p <= 0, and where its vertex lies too far off, the search takes the
/// next doubled step, or halves the bracket once there is one.
///
/// Begin with `itest` 0 or 3; as long as it returns 1, evaluate at `x`, store the value in `f` and call again.
/// Otherwise the search is over, and x, f are the best of the points it still holds. A prediction nearer
/// than |absacc|, or than |relacc * position|, is accurate enough; `xstep` is the first step.
void LineSearch(LineSearchState& state, Int16& itest, double& x, double& f, Int16 maxfun, double absacc,
                double relacc, double xstep);

}  // namespace vk
