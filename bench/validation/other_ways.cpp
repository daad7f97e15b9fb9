#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <sstream>

#include "analysis/RefinedFit.h"
#include "bench/validation/NumberCell.h"
#include "bench/validation/Sections.h"
#include "bench/validation/SimulatedSets.h"
#include "platform/system/SystemFiles.h"
#include "tests/analysis/FitTask.h"

namespace vk {
namespace {

constexpr int kSetsAsked = 100;  // of each model
constexpr double kSame = 1E-6;

/// The same fit asked first in one way, and then in others.
struct Question {
  FitTask asked;
  std::vector<FitTask> inOtherWays;  ///< one for each of `kWays`
};

constexpr std::array kWays{"lines mixed", "other start", "other units", "other names"};

Question questionOf(const FitTask& task, const std::vector<double>& otherStart) {
  FitTask fromOtherStart = task;
  fromOtherStart.start = otherStart;
  return {task, {withLinesMixed(task, 1), fromOtherStart, inOtherUnits(task), withOtherNames(task)}};
}

/// The covariances that the prescribed fit tells and those of the refined one.
struct Covariances {
  CovarianceMatrix prescribed, refined;
};

Covariances covariancesOf(const FitTask& task, XErrors xErrors) {
  FitCase fit = task.fitCase();
  const ParameterSet start = fit.par;
  const FitResult prescribed = fit.fit();
  Covariances result{{}, refine(fit.problem(), start, &prescribed, xErrors).covariance};
  if (prescribed.status != FitStatus::kFailed)
    result.prescribed = covarianceOf(prescribed.par.ParDeltas.span(1, prescribed.N), prescribed.correlation);
  return result;
}

/// The largest changes, for each way.
struct Changes {
  std::array<double, kWays.size()> prescribed{}, refined{};
};

Changes changesOf(const Question& question, XErrors xErrors) {
  const Covariances before = covariancesOf(question.asked, xErrors);
  Changes changes;
  for (std::size_t way = 0; way < kWays.size(); ++way) {
    const FitTask& other = question.inOtherWays[way];
    const Covariances after = covariancesOf(other, xErrors);
    changes.prescribed[way] = largestChange(before.prescribed, after.prescribed, other.places);
    changes.refined[way] = largestChange(before.refined, after.refined, other.places);
  }
  return changes;
}

Changes largestOf(const std::vector<Question>& questions, XErrors xErrors) {
  std::vector<Changes> all(questions.size());
  doAll(static_cast<int>(all.size()), [&](int i) {
    const auto at = static_cast<std::size_t>(i);
    all[at] = changesOf(questions[at], xErrors);
  });
  Changes largest;
  for (const Changes& changes : all) {
    for (std::size_t way = 0; way < kWays.size(); ++way) {
      largest.prescribed[way] = std::max(largest.prescribed[way], changes.prescribed[way]);
      largest.refined[way] = std::max(largest.refined[way], changes.refined[way]);
    }
  }
  return largest;
}

std::vector<Question> simulated(const SimulatedModel& model) {
  std::vector<Question> questions;
  for (int set = 1; set <= kSetsAsked; ++set) {
    const FitCase fit = simulatedSet(model, set);
    const FitTask task = taskOf(model.formula, model.names, freeValues(fit.par), fit.points);
    questions.push_back(questionOf(task, freeValues(simulatedSet(model, kSetsAsked + set).par)));
  }
  return questions;
}

// ---- Tables

/// A change, or of a small one the power of ten that it does not exceed.
std::string textOf(double change) {
  if (!std::isfinite(change)) return "no errors";
  if (change > kSame) return formatted("%.2g", change);
  int power = -15;
  for (double limit = 1E-15; limit < change; limit *= 10) ++power;
  return "1e" + std::to_string(power);
}

class ReportOfWays {
 public:
  void add(const std::string& name, const Changes& changes) {
    table_ << "| " << name;
    for (std::size_t way = 0; way < kWays.size(); ++way) {
      table_ << " | " << textOf(changes.prescribed[way]) << " | " << textOf(changes.refined[way]);
      all_.prescribed[way].push_back(changes.prescribed[way]);
      all_.refined[way].push_back(changes.refined[way]);
    }
    table_ << " |\n";
  }

  void write(std::ostream& page) const {
    page << "| Of " << all_.refined[0].size()
         << " rows below, those without a change of more than 1E-6 | prescribed | refined |\n"
            "|---|---|---|\n";
    for (std::size_t way = 0; way < kWays.size(); ++way) {
      page << "| " << kWays[way] << " | " << steady(all_.prescribed[way]) << " | "
           << steady(all_.refined[way]) << " |\n";
    }
  }

  void writeAll(std::ostream& page) const {
    page << "\n| Problem";
    for (const char* way : kWays) page << " | " << way << ": prescribed | refined";
    page << " |\n|---";
    for (std::size_t way = 0; way < kWays.size(); ++way) page << "|---|---";
    page << "|\n" << table_.str();
  }

 private:
  static std::ptrdiff_t steady(const std::vector<double>& changes) {
    return std::ranges::count_if(changes, [](double change) { return change <= kSame; });
  }

  struct {
    std::array<std::vector<double>, kWays.size()> prescribed, refined;
  } all_;
  std::ostringstream table_;
};

}  // namespace

void writeOtherWays(std::ostream& page) {
  ReportOfWays report;
  for (const SimulatedModel& model : simulatedModels()) {
    const std::vector<Question> questions = simulated(model);
    report.add(model.name, largestOf(questions, XErrors::kEffective));
    if (model.hasXErrors())
      report.add(model.name + ", by distance", largestOf(questions, XErrors::kOrthogonal));
  }
  SystemFiles files;
  for (const NistFormula& formula : nistFormulas()) {
    const NistProblem problem = parseNist(files.readAll("tests/numeric/nist/" + formula.problem + ".dat"));
    const FitTask task = taskOf(problem, formula.formula, 1);
    report.add(problem.name, largestOf({questionOf(task, problem.starts[0])}, XErrors::kEffective));
  }
  report.write(page);
  page << R"(
The same points were fitted with their lines in another order, from another start (for the certified problems the far
one), in other units of x, y and the parameters, and with the parameters named and ordered in another way. The table has
the largest change of the errors, as a part of them, and of the correlations, up to 1E-6 the power of ten that it does
not exceed; of the simulated models )"
       << kSetsAsked << R"( sets were fitted. *No errors*: one of the fits failed, or told the error 0.
)";
  report.writeAll(page);
}

}  // namespace vk
