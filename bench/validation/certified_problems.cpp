#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "analysis/RefinedFit.h"
#include "bench/validation/NumberCell.h"
#include "bench/validation/Sections.h"
#include "platform/system/SystemFiles.h"
#include "tests/analysis/NistCase.h"

namespace vk {
namespace {

constexpr double kFewDigits = 4, kManyDigits = 6;
constexpr double kSameError = 0.01;  // as a part of the certified deviation
// In certified standard deviations.
constexpr double kMuchOff = 0.1, kNotOff = 1E-4;

/// How near values and errors are to the certified ones.
struct Nearness {
  double digits, deviationsOff;
  double errorsOff;  ///< the largest difference of an error from the certified deviation, as a part of that
};

/// What a fit said and how good its values are.
struct Outcome {
  std::string said;
  bool completed;                    ///< nothing was said but that it is done
  std::optional<Nearness> nearness;  ///< missing after a failure
  int computations;

  bool hasDigits(double digits) const { return nearness && nearness->digits >= digits; }
  bool misleads() const { return completed && !hasDigits(kManyDigits) && nearness->deviationsOff > kMuchOff; }
};

/// A kind of fit, from one start of a problem after the other.
struct Fits {
  std::string heading;
  std::vector<Outcome> outcomes;
};

/// All fits; the problems in the order of `nistFormulas`, each from its first start and then from its second.
struct Comparison {
  std::vector<std::string> runs;  ///< problem and start, as cells of a table
  Fits prescribed{"prescribed", {}}, refined{"refined", {}};

  std::array<const Fits*, 2> all() const { return {&prescribed, &refined}; }
};

/// `errorOf` gives the error of parameter i, from 1, as the scatter of the points has it.
template <class ErrorOf>
Nearness nearnessOf(const NistProblem& problem, const ParameterSet& par, ErrorOf errorOf) {
  const auto values = par.ParValues.span(1, problem.parameters());
  double errorsOff = 0;
  for (int i = 1; i <= problem.parameters(); ++i) {
    const double part = errorOf(i) / problem.deviations[static_cast<std::size_t>(i) - 1];
    errorsOff = std::max(errorsOff, std::abs(part - 1));
  }
  return {problem.digits(values), problem.deviationsOff(values), errorsOff};
}

Outcome outcomeOf(const NistProblem& problem, const FitResult& fit) {
  if (fit.status == FitStatus::kFailed) return {"failed", false, {}, fit.evaluations};
  const double scatter = std::sqrt(*fit.chi_square / fit.degrees_of_freedom);
  const Nearness nearness =
      nearnessOf(problem, fit.par, [&](int i) { return scatter * fit.par.ParDeltas[i]; });
  const bool completed = fit.status == FitStatus::kCompleted;
  return {completed ? "completed" : "unreliable", completed, nearness, fit.evaluations};
}

std::string wordOf(LeastSquaresEnd end) {
  switch (end) {
    case LeastSquaresEnd::kConverged:
      return "converged";
    case LeastSquaresEnd::kNoProgress:
      return "no progress";
    case LeastSquaresEnd::kEvaluations:
      return "evaluations";
    case LeastSquaresEnd::kSingular:
      return "singular";
    case LeastSquaresEnd::kFailed:
      break;
  }
  return "failed";
}

Outcome outcomeOf(const NistProblem& problem, const RefinedFit& fit) {
  Outcome outcome{wordOf(fit.end), fit.converged(), {}, fit.evaluations};
  if (fit.covariance.size() > 0)
    outcome.nearness = nearnessOf(problem, fit.par, [&](int i) { return *fit.scaledError(i); });
  return outcome;
}

Comparison compare() {
  SystemFiles files;
  Comparison result;
  for (const NistFormula& formula : nistFormulas()) {
    const NistProblem problem = parseNist(files.readAll("tests/numeric/nist/" + formula.problem + ".dat"));
    for (std::size_t start = 0; start < problem.starts.size(); ++start) {
      FitCase fit = nistCase(problem, formula.formula, problem.starts[start], 1);
      result.runs.push_back(problem.name + " | " + std::to_string(start + 1));
      const ParameterSet begin = fit.par;
      const FitResult prescribed = fit.fit();
      result.prescribed.outcomes.push_back(outcomeOf(problem, prescribed));
      const RefinedFit refined = refine(fit.problem(), begin, &prescribed, XErrors::kEffective);
      result.refined.outcomes.push_back(outcomeOf(problem, refined));
    }
  }
  return result;
}

// ---- Tables -----------------------------------------------------------------------------------------------

/// A distance as far as it matters.
std::string distance(double deviations) {
  return deviations < kNotOff ? "" : formatted("%.2g", deviations);
}

int medianComputations(const Fits& fits) {
  std::vector<int> sorted;
  for (const Outcome& outcome : fits.outcomes) sorted.push_back(outcome.computations);
  std::ranges::sort(sorted);
  return (sorted[(sorted.size() - 1) / 2] + sorted[sorted.size() / 2]) / 2;
}

std::string countOf(const Fits& fits, bool (*counts)(const Outcome&)) {
  return std::to_string(std::ranges::count_if(fits.outcomes, counts));
}

/// A line of the table of counts, with the figure of each kind of fit.
template <class Figure>
void line(std::ostream& page, const Comparison& comparison, const std::string& name, Figure figure) {
  page << "| " << name;
  for (const Fits* fits : comparison.all()) page << " | " << figure(*fits);
  page << " |\n";
}

void writeSummary(std::ostream& page, const Comparison& comparison) {
  const std::string count = std::to_string(comparison.runs.size());
  const auto counts = [&](const std::string& name, bool (*counted)(const Outcome&)) {
    line(page, comparison, name, [&](const Fits& fits) { return countOf(fits, counted); });
  };
  line(page, comparison, "Of " + count + " fits", [](const Fits& fits) { return fits.heading; });
  line(page, comparison, "---", [](const Fits&) { return "---"; });
  counts("at least 4 digits", [](const Outcome& outcome) { return outcome.hasDigits(kFewDigits); });
  counts("at least 6 digits", [](const Outcome& outcome) { return outcome.hasDigits(kManyDigits); });
  counts("said completed or converged, but below 6 digits and more than 0.1 standard deviations off",
         [](const Outcome& outcome) { return outcome.misleads(); });
  counts("all errors within 1 % of the certified standard deviations", [](const Outcome& outcome) {
    return outcome.nearness && outcome.nearness->errorsOff <= kSameError;
  });
  line(page, comparison, "computations of all residuals, median", medianComputations);
}

void writeFits(std::ostream& page, const Comparison& comparison) {
  page << "\n| Problem | start";
  for (const Fits* fits : comparison.all())
    page << " | " << fits->heading << " | digits | off | computations";
  page << " |\n|---|---";
  for (std::size_t i = 0; i < comparison.all().size(); ++i) page << "|---|---|---|---";
  page << "|\n";
  for (std::size_t run = 0; run < comparison.runs.size(); ++run) {
    page << "| " << comparison.runs[run];
    for (const Fits* fits : comparison.all()) {
      const Outcome& outcome = fits->outcomes[run];
      const auto& nearness = outcome.nearness;
      page << " | " << outcome.said << " | " << (nearness ? formatted("%.1f", nearness->digits) : "") << " | "
           << (nearness ? distance(nearness->deviationsOff) : "") << " | " << outcome.computations;
    }
    page << " |\n";
  }
}

}  // namespace

void writeCertifiedProblems(std::ostream& page) {
  const Comparison comparison = compare();
  writeSummary(page, comparison);
  page << R"(
The problems are those of the NIST/ITL Statistical Reference Datasets, nonlinear regression, with one predictor
(`tests/numeric/nist`), each from its two published starts. Every point has the error 1, as where nothing is known about
errors; those of the parameters are scaled to the scatter of the points. *Digits* are those to which the parameter that
is farthest off agrees with its certified value, at most the 11 certified ones; *off* is the largest distance from a
certified value in certified standard deviations, if that is 0.0001 or more. The refined fit comes after the prescribed
one and goes out from its result too, where there is one; its computations are counted apart.
)";
  writeFits(page, comparison);
}

}  // namespace vk
