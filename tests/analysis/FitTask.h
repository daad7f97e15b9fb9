#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <regex>
#include <string>
#include <utility>
#include <vector>

#include "tests/analysis/FitFixture.h"
#include "tests/numeric/NistProblem.h"

namespace vk {

/// A fit as texts and numbers, so that the same can be asked in other ways.
struct FitTask {
  /// Where another way of asking has a parameter, from 1, and how many of its units are one of before.
  struct Place {
    int index;
    double unit;
  };

  FitCase fitCase() const {
    FitCase fit(formula, names);
    fit.data(x, y, dy, dx);
    fit.start(start);
    return fit;
  }

  std::string formula, names;
  std::vector<double> start;
  std::vector<double> x, y, dy, dx;
  std::vector<Place> places;
};

inline FitTask taskOf(std::string formula, std::string names, std::vector<double> start,
                      const DataSet& data) {
  const auto column = [&](const Array<double>& values) {
    const auto span = values.span(1, data.NumPnt);
    return std::vector<double>(span.begin(), span.end());
  };
  FitTask task{std::move(formula),
               std::move(names),
               std::move(start),
               column(data.Xpnt),
               column(data.Ypnt),
               column(data.ErrYpnt),
               {},
               {}};
  if (data.kXpntErr != kFalse) task.dx = column(data.ErrXpnt);
  for (int i = 1; i <= static_cast<int>(task.start.size()); ++i) task.places.push_back({i, 1});
  return task;
}

/// A certified problem from one of its starts, every point with the error 1.
inline FitTask taskOf(const NistProblem& problem, const std::string& formula, std::size_t start) {
  FitTask task{formula,
               problem.names(),
               problem.starts[start],
               problem.x,
               problem.y,
               std::vector<double>(problem.x.size(), 1),
               {},
               {}};
  for (int i = 1; i <= problem.parameters(); ++i) task.places.push_back({i, 1});
  return task;
}

/// The same points in another order, for each seed one.
inline FitTask withLinesMixed(FitTask task, unsigned seed) {
  for (std::vector<double>* column : {&task.x, &task.y, &task.dy, &task.dx}) {
    std::mt19937 random(seed);
    for (std::size_t left = column->size(); left > 1; --left)
      std::swap((*column)[left - 1], (*column)[random() % left]);
  }
  return task;
}

/// Writes another text for a name in a formula.
inline std::string replaceName(const std::string& formula, const std::string& name, const std::string& text) {
  return std::regex_replace(formula, std::regex("\\b" + name + "\\b"), text);
}

/// x in sixtieths, y in thousandths, the parameters by turns in thousandths and thousands of their units.
inline FitTask inOtherUnits(FitTask task) {
  const auto scale = [](std::vector<double>& values, double factor) {
    for (double& value : values) value *= factor;
  };
  scale(task.x, 60);
  scale(task.dx, 60);
  scale(task.y, 1000);
  scale(task.dy, 1000);
  std::string formula = replaceName(task.formula, "x", "(x/60)");
  const std::vector<std::string> names = splitItems(task.names);
  for (std::size_t i = 0; i < names.size(); ++i) {
    const bool large = i % 2 == 0;
    formula = replaceName(formula, names[i], "(" + names[i] + (large ? "/" : "*") + "1000)");
    task.places[i].unit = large ? 1000 : 0.001;
    task.start[i] *= task.places[i].unit;
  }
  task.formula = "1000*(" + formula + ")";
  return task;
}

/// The parameters in reverse order and with other names.
inline FitTask withOtherNames(FitTask task) {
  const std::vector<std::string> names = splitItems(task.names);
  const int count = static_cast<int>(names.size());
  task.names.clear();
  for (int i = 1; i <= count; ++i) {
    const std::string name = "q" + std::to_string(i);
    task.formula = replaceName(task.formula, names[static_cast<std::size_t>(i) - 1], name);
    task.names = name + (i == 1 ? "" : ",") + task.names;
    task.places[static_cast<std::size_t>(i) - 1].index = count + 1 - i;
  }
  std::ranges::reverse(task.start);
  return task;
}

/// The largest change from covariances to those of the same fit asked in another way: of an error as a part of it, of
/// a correlation itself. Not below 0; infinite where there are none.
inline double largestChange(const CovarianceMatrix& before, const CovarianceMatrix& after,
                            const std::vector<FitTask::Place>& places) {
  const int count = static_cast<int>(places.size());
  if (before.size() != count || after.size() != count) return std::numeric_limits<double>::infinity();
  const auto place = [&](int i) { return places[static_cast<std::size_t>(i) - 1]; };
  double largest = 0;
  for (int i = 1; i <= count; ++i) {
    const double ratio = after.deviation(place(i).index) / place(i).unit / before.deviation(i);
    const double change = std::max(ratio, 1 / ratio) - 1;
    if (!(change <= largest)) largest = change;
    for (int j = 1; j < i; ++j) {
      largest = std::max(largest, std::abs(after.correlation().at(place(i).index, place(j).index) -
                                           before.correlation().at(i, j)));
    }
  }
  return largest;
}

}  // namespace vk
