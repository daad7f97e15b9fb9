#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <sstream>

#include "analysis/CurveBand.h"
#include "analysis/RefinedFit.h"
#include "bench/validation/NumberCell.h"
#include "bench/validation/Sections.h"
#include "bench/validation/SimulatedSets.h"
#include "tests/analysis/Statistics.h"

namespace vk {
namespace {

constexpr int kSetsOfModel = 10000;
constexpr int kLongSets = 1000, kLongPoints = 1000;
// Where the bands are looked at, as parts of the range of x.
constexpr std::array kPlaces{0.2, 0.5, 0.8};

/// What one fit of a set says, and how far it is from the truth in units of the errors that it tells.
struct Finding {
  bool completed = false;      ///< nothing was said but that it is done
  bool hasErrors = false;      ///< a positive one for each parameter; without them all below is empty
  std::vector<double> values;  ///< of the parameters
  std::vector<double> pulls;
  CorrelationMatrix correlation;
  std::optional<double> probability;  ///< of a larger chi-square, 0..1
  // At each place.
  std::vector<double> curve;
  std::vector<double> furtherPoints;  ///< of measurements that took no part in the fit
};

/// A kind of fit of all sets.
struct FitsOfSets {
  std::string heading;
  std::vector<Finding> findings;
};

/// Measurements at the places, for after the fit.
struct FurtherPoints {
  std::vector<double> x, y;
};

FurtherPoints furtherPoints(const SimulatedModel& model, int seed) {
  // The sets have the positive seeds.
  const std::vector<double> deviates = normalDeviates(-seed, 2 * kPlaces.size());
  FurtherPoints points;
  for (std::size_t k = 0; k < kPlaces.size(); ++k) {
    const double place = model.place(kPlaces[k]);
    points.x.push_back(place + deviates[2 * k] * model.settings.SimErrX);
    points.y.push_back(model.at(place) + deviates[2 * k + 1] * model.settings.SimErrY);
  }
  return points;
}

void lookAtBands(Finding& finding, const SimulatedModel& model, FitCase& fit, const FurtherPoints& further,
                 const CovarianceMatrix& covariance) {
  std::vector<double> x;
  for (const double part : kPlaces) x.push_back(model.place(part));
  x.insert(x.end(), further.x.begin(), further.x.end());
  const auto bands = bandWidths(fit.problem(), fit.par, {covariance, 1, true}, x);
  if (!bands) return;
  const auto valueAt = [&](double place) {
    return fit.model.at(place, fit.par.ParValues, fit.listener).value;
  };
  const std::size_t count = kPlaces.size();
  for (std::size_t k = 0; k < count; ++k) {
    finding.curve.push_back((valueAt(x[k]) - model.at(x[k])) / bands->confidence[k]);
    finding.furtherPoints.push_back((further.y[k] - valueAt(further.x[k])) / bands->prediction[count + k]);
  }
}

/// What is said by a fit that ended at these parameters, which stay in `fit`.
Finding findingOf(const SimulatedModel& model, FitCase& fit, const ParameterSet& par,
                  const CovarianceMatrix& covariance, std::optional<double> confidencePercent) {
  Finding finding;
  fit.par = par;
  finding.values = freeValues(par);
  for (int i = 1; i <= covariance.size(); ++i) {
    const auto at = static_cast<std::size_t>(i) - 1;
    if (!(covariance.deviation(i) > 0)) return {};
    finding.pulls.push_back((finding.values[at] - model.truth[at]) / covariance.deviation(i));
  }
  finding.hasErrors = covariance.size() > 0;
  finding.correlation = covariance.correlation();
  if (confidencePercent) finding.probability = *confidencePercent / 100;
  return finding;
}

/// All kinds of fits of one set.
std::vector<Finding> findingsOf(const SimulatedModel& model, int seed, bool withBands) {
  FitCase fit = simulatedSet(model, seed);
  const ParameterSet start = fit.par;
  const FurtherPoints further = furtherPoints(model, seed);
  const FitResult prescribed = fit.fit();
  std::vector<Finding> findings;
  const auto add = [&](bool completed, const ParameterSet& par, const CovarianceMatrix& covariance,
                       std::optional<double> confidencePercent) {
    Finding finding = findingOf(model, fit, par, covariance, confidencePercent);
    finding.completed = completed;
    if (withBands && finding.hasErrors) lookAtBands(finding, model, fit, further, covariance);
    findings.push_back(std::move(finding));
  };
  const bool failed = prescribed.status == FitStatus::kFailed;
  add(prescribed.status == FitStatus::kCompleted, prescribed.par,
      failed ? CovarianceMatrix()
             : covarianceOf(prescribed.par.ParDeltas.span(1, prescribed.N), prescribed.correlation),
      prescribed.confidence_percent);
  const auto addRefined = [&](XErrors xErrors) {
    const RefinedFit refined = refine(fit.problem(), start, &prescribed, xErrors);
    add(refined.converged(), refined.par, refined.covariance, refined.confidencePercent);
  };
  addRefined(XErrors::kEffective);
  if (model.hasXErrors()) addRefined(XErrors::kOrthogonal);
  return findings;
}

std::vector<FitsOfSets> fitsOf(const SimulatedModel& model, int firstSeed, int sets, bool withBands) {
  std::vector<FitsOfSets> kinds{{"prescribed", {}}, {"refined", {}}};
  if (model.hasXErrors()) kinds.push_back({"by distance", {}});
  for (FitsOfSets& fits : kinds) fits.findings.resize(static_cast<std::size_t>(sets));
  doAll(sets, [&](int set) {
    std::vector<Finding> findings = findingsOf(model, firstSeed + set, withBands);
    for (std::size_t kind = 0; kind < kinds.size(); ++kind)
      kinds[kind].findings[static_cast<std::size_t>(set)] = std::move(findings[kind]);
  });
  return kinds;
}

/// One number of each finding that has errors.
template <class Number>
std::vector<double> columnOf(const FitsOfSets& fits, Number number) {
  std::vector<double> column;
  for (const Finding& finding : fits.findings) {
    if (finding.hasErrors) column.push_back(number(finding));
  }
  return column;
}

std::vector<double> pullsOf(const FitsOfSets& fits, std::size_t i) {
  return columnOf(fits, [i](const Finding& finding) { return finding.pulls[i]; });
}

// ---- Tables

/// A row of a table: its name, and a text for each kind of fit.
template <class Text>
void row(std::ostream& page, const std::vector<FitsOfSets>& kinds, const std::string& name, Text text) {
  page << "| " << name;
  for (const FitsOfSets& fits : kinds) page << " | " << text(fits);
  page << " |\n";
}

void heading(std::ostream& page, const std::vector<FitsOfSets>& kinds, const std::string& name) {
  row(page, kinds, name, [](const FitsOfSets& fits) { return fits.heading; });
  row(page, kinds, "---", [](const FitsOfSets&) { return "---"; });
}

/// The parts of deviations in units of their errors that lie in the intervals of 68.27 and 95 per cent.
std::string coverage(const std::vector<double>& pulls) {
  return formatted("%.1f", 100 * within(pulls, intervalFactor(68.27, 0))) + ", " +
         formatted("%.1f", 100 * within(pulls, intervalFactor(95, 0)));
}

void writePulls(std::ostream& page, const std::vector<FitsOfSets>& kinds,
                const std::vector<std::string>& names) {
  heading(page, kinds, "Mean and width of the pulls, % within 68.27 and 95 %");
  for (std::size_t i = 0; i < names.size(); ++i) {
    row(page, kinds, names[i], [&](const FitsOfSets& fits) {
      const std::vector<double> pulls = pullsOf(fits, i);
      return formatted("%.2f", mean(pulls)) + ", " + formatted("%.2f", width(pulls)) + "; " + coverage(pulls);
    });
  }
}

void writeBands(std::ostream& page, const std::vector<FitsOfSets>& kinds, const SimulatedModel& model) {
  for (std::size_t k = 0; k < kPlaces.size(); ++k) {
    const std::string place = " at x = " + formatted("%g", model.place(kPlaces[k]));
    row(page, kinds, "curve" + place + ", % within its bands", [&](const FitsOfSets& fits) {
      return coverage(columnOf(fits, [&](const Finding& finding) { return finding.curve.at(k); }));
    });
    row(page, kinds, "further point" + place + ", % within its bands", [&](const FitsOfSets& fits) {
      return coverage(columnOf(fits, [&](const Finding& finding) { return finding.furtherPoints.at(k); }));
    });
  }
}

void writeCounts(std::ostream& page, const std::vector<FitsOfSets>& kinds) {
  const auto count = [&](const std::string& name, bool Finding::*counted) {
    row(page, kinds, name, [&](const FitsOfSets& fits) {
      return std::to_string(std::ranges::count_if(fits.findings, counted));
    });
  };
  count("said completed or converged", &Finding::completed);
  count("tells a positive error for each parameter", &Finding::hasErrors);
  const auto probability = [](const Finding& finding) { return finding.probability.value(); };
  row(page, kinds, "chi-square probability: mean, distance from the uniform distribution",
      [&](const FitsOfSets& fits) {
        const std::vector<double> column = columnOf(fits, probability);
        return formatted("%.3f", mean(column)) + ", " + formatted("%.3f", distanceFromUniform(column));
      });
}

/// The correlation of the values over all sets, and what single fits tell of it.
std::string correlations(const FitsOfSets& fits, std::size_t i, std::size_t j) {
  const auto told = columnOf(fits, [&](const Finding& finding) {
    return finding.correlation.at(static_cast<int>(i) + 1, static_cast<int>(j) + 1);
  });
  const auto value = [&](std::size_t k) {
    return columnOf(fits, [k](const Finding& finding) { return finding.values[k]; });
  };
  return formatted("%.2f", correlation(value(i), value(j))) + "; " + formatted("%.2f", mean(told)) + " +- " +
         formatted("%.2f", width(told));
}

void writeCorrelations(std::ostream& page, const std::vector<FitsOfSets>& kinds,
                       const std::vector<std::string>& names) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    for (std::size_t j = i + 1; j < names.size(); ++j) {
      row(page, kinds, "correlation of " + names[i] + " and " + names[j] + ": of the sets; told",
          [&](const FitsOfSets& fits) { return correlations(fits, i, j); });
    }
  }
}

// ---- Parts of the section

/// A line of the first table: the smallest and the largest width of the pulls of a parameter.
std::string widths(const FitsOfSets& fits, std::size_t parameters) {
  std::vector<double> all;
  for (std::size_t i = 0; i < parameters; ++i) all.push_back(width(pullsOf(fits, i)));
  const auto [least, most] = std::ranges::minmax(all);
  return formatted("%.2f", least) + " to " + formatted("%.2f", most);
}

/// The table of all models, and behind it those of each.
class CalibrationReport {
 public:
  void add(const SimulatedModel& model) {
    const std::vector<FitsOfSets> kinds = fitsOf(model, seed_, kSetsOfModel, true);
    seed_ += kSetsOfModel;
    const std::vector<std::string> names = splitItems(model.names);
    row(summary_, kinds, model.name,
        [&](const FitsOfSets& fits) { return widths(fits, model.parameters()); });
    parts_ << "\n### " << model.name << "\n\n" << model.description() << "\n\n";
    writePulls(parts_, kinds, names);
    writeBands(parts_, kinds, model);
    writeCounts(parts_, kinds);
    writeCorrelations(parts_, kinds, names);
  }

  void addLongLine() {
    const SimulatedModel model{"", "b*x+c", "b,c", {2, 1}, measured(0, 10, kLongPoints, 0.6, 0.3)};
    const std::vector<FitsOfSets> kinds = fitsOf(model, seed_, kLongSets, false);
    row(summary_, kinds, "Mean pull of the slope, many points with dx",
        [](const FitsOfSets& fits) { return formatted("%.2f", mean(pullsOf(fits, 0))); });
    parts_ << "\n### Many points with dx\n\n" << model.description() << " " << kLongSets << " sets.\n\n";
    writePulls(parts_, kinds, splitItems(model.names));
  }

  std::string summary() const { return summary_.str(); }
  std::string parts() const { return parts_.str(); }

 private:
  std::ostringstream summary_, parts_;
  int seed_ = 1;
};

}  // namespace

void writeCalibration(std::ostream& page) {
  CalibrationReport report;
  for (const SimulatedModel& model : simulatedModels()) report.add(model);
  report.addLongLine();
  page << "| Width of the pulls | prescribed | refined | by distance |\n|---|---|---|---|\n"
       << report.summary() << "\nEach model was simulated " << kSetsOfModel
       << R"( times, with the noise of the program's own generator, and fitted from values that are
up to 5 % off. The *pull* of a parameter is its difference from the true value in units of the error that the fit
tells: over the sets its mean should be 0 and its width (standard deviation) 1, which so many sets tell to 0.01. Then
68.27 and 95 % of the pulls, of the curve within its confidence bands and of further points within the prediction bands
lie in the intervals of these names, and the chi-square probability is as often in each part of 0 to 1: its mean is 0.5,
and its distance from the uniform distribution (Kolmogorov) about 0.01. A fit in which a parameter has no error counts
in the rows of counts alone. *Refined* takes errors in x by the effective variance, *by distance* by that from the
curve. The error of a further point is that of the points beside it.
)" << report.parts();
}

}  // namespace vk
