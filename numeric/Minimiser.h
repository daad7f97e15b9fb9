#pragma once

#include "numeric/Minimise.h"

namespace vk {

/// One run of `Minimise`: its three stages and what they share. Indices of spans count from 0.
class Minimiser {
 public:
  Minimiser(Residuals& residuals, int M, int N, Array<double>& F, Array<double>& X, Array<double>& E,
            const MinimiseOptions& options, MinimiseWork& W, MinimiseObserver& observer);

  MinimiseResult run();

 private:
  // Each stage is false when the run has come to a premature end, which stands in the result.
  bool findFirstDirections();
  bool iterate();
  bool findErrors();

  bool computeResiduals(double& sum);
  bool fail(MinimiseEnd end);

  // Stage 1.
  void raiseTinyAccuracy(std::size_t i);
  bool addFirstDirection(std::size_t i);

  // Stage 2.
  void showProgress();
  bool findStep();
  int leavingDirection() const;
  bool search();
  void moveToBest();
  bool replaceDirection(int leaving);
  void addDirection(double FB);

  // Stage 3.
  bool errorsAreFinite() const;
  bool lowerCoarseAccuracies();

  Residuals& residuals_;
  const MinimiseOptions& options_;
  MinimiseWork& W;
  MinimiseObserver& observer_;
  Array<double>& parameters_;
  std::span<const double> F;  // the residuals of the present point, which stand in one of the places
  std::array<std::span<double>, 4>
      places_;  // those of the best two points, of the present one, and a free one
  std::span<double> X, E;
  MinimiseResult result_;

  double FS = 0;             // sum of squares at the present point
  double u = 0;              // length of the last step in units of E
  bool lastSearch_ = false;  // the search that follows a step of at most one unit
  bool exhausted_ = false;   // more residual computations than allowed
  int nf = 0;                // residual computations of the pass
  int untilProgress_ = 0;
};

}  // namespace vk
