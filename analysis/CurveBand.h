#pragma once

#include <optional>
#include <span>
#include <vector>

#include "analysis/Fit.h"
#include "numeric/CovarianceMatrix.h"

/// Bands about a fitted curve.
namespace vk {

/// What the bands are made of.
struct CurveBand {
  CovarianceMatrix covariance;  ///< of the free parameters
  double factor = 1;            ///< half width in standard deviations
  bool prediction = false;      ///< also that in which a further measurement would lie
  double percent = 0;           ///< the probability that this is, for the key of a figure
};

/// Half widths of the bands at some places. Not finite where the model has no value.
struct BandWidths {
  std::vector<double> values;  ///< of the model
  std::vector<double> confidence;
  std::vector<double> prediction;  ///< empty where it was not asked for
};

/// The half widths at the places x, `factor` sqrt(g'Cg) with the derivatives g of the model by the free parameters,
/// and `factor` sqrt(g'Cg + s^2) with the error s of a point there, between the points of the data by straight lines
/// (`ErrEff` for data with errors in x). Nothing where derivatives do not settle.
std::optional<BandWidths> bandWidths(const FitProblem& problem, const ParameterSet& par,
                                     const CurveBand& band, std::span<const double> x);

/// The half width, in standard deviations, of an interval that holds the true value with this probability in per cent.
/// With degrees of freedom the deviation is one that was told from the scatter of the points: Student's distribution;
/// without (0) it is known: the normal distribution.
double intervalFactor(double percent, int degreesOfFreedom);

}  // namespace vk
