#pragma once

#include <optional>
#include <string>

#include "analysis/ParameterSet.h"
#include "data/DataSet.h"
#include "expr/Model.h"
#include "numeric/Minimise.h"

/// Unit FitMod: the fit of a model function to data.
namespace vk {

/// What a fit works on; all of it must outlive the fit.
struct FitProblem {
  const DataSet& data;
  Model& model;
  EvaluationListener& listener;
};

/// A minimisation begins. With errors in x there are two, and each begins anew.
struct FitStart {
  int M = 0;               ///< points
  int N = 0;               ///< free parameters
  const Array<double>& X;  ///< their values, 1..N
};

/// How far a minimisation is. A figure that cannot be computed is missing.
struct FitProgress {
  int iteration = 0;
  int degreesOfFreedom = 0;
  std::optional<double> reducedChiSquare;
  std::optional<double> confidence;  ///< per cent; 0, without meaning, where no degree of freedom is left
  const Array<double>& X;            ///< 1..N
};

/// A minimisation has come to its end with values and errors.
struct FitFinal {
  FitProgress progress;
  const Array<double>& errors;  ///< 1..N
  const CorrelationMatrix& correlation;
  bool last = true;         ///< false for the first of the two fits of data with x errors
  bool unreliable = false;  ///< the accuracy asked for stayed coarse against the error
};

/// Why a fit has no result.
struct FitFailure {
  MinimiseEnd end = MinimiseEnd::kCompleted;
  int parameter = 0;  ///< the free one without effect, from 1
};

/// Hears of a fit at fixed points; the engine itself shows nothing.
class FitObserver {
 public:
  virtual ~FitObserver() = default;
  virtual void started(const FitStart& start) = 0;
  /// Now and then within an iteration, of which a large set of data makes a long one.
  virtual void working() {}
  virtual void progress(const FitProgress& progress) = 0;
  virtual void finished(const FitFinal& final) = 0;
  /// The fit ended without a result; no `finished` follows.
  virtual void failed(const FitFailure& failure) = 0;
};

/// How a fit ended.
enum class FitStatus {
  kCompleted,
  kUnreliable,  ///< completed, but the accuracy asked for stayed coarse against the error
  kFailed,
};

/// What came of a fit. With errors in x the figures are those of the second fit where nothing else is said.
struct FitResult {
  /// False also where a figure at the end of the fit could not be computed.
  bool complete() const { return status != FitStatus::kFailed && reduced_chi_square && confidence_percent; }

  FitStatus status = FitStatus::kFailed;
  FitFailure failure;
  std::string reason;  ///< of a failure, Italian, for people; else empty
  /// Values and errors. After a failure `ParValues` holds the values tried last, or those from before the fit when a
  /// parameter had no effect, and `ParDeltas` what it held: errors that are not finite are such a failure.
  ParameterSet par;
  Array<double> ErrEff;  ///< 1..M: the effective errors of data with errors in x; without a second fit none
  int M = 0;             ///< points
  int N = 0;             ///< free parameters
  std::optional<double> chi_square;  ///< missing where a residual could not be computed
  int degrees_of_freedom = 0;
  std::optional<double> reduced_chi_square;  ///< missing, as the next one, where no degree of freedom is left
  std::optional<double> confidence_percent;
  int iterations = 0;   ///< of the last pass
  int evaluations = 0;  ///< residual computations of all passes of both fits
  int passes = 0;       ///< of the last fit
  CorrelationMatrix correlation;
};

/// Fits the free parameters of `par`, which hold the starting values and steps, to the data.
///
/// Data with errors in x are fitted twice, the second time with effective errors by the slope of the first solution.
FitResult FitData(const FitProblem& problem, ParameterSet par, FitObserver& observer);

}  // namespace vk
