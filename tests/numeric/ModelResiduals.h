#pragma once

#include <functional>
#include <set>
#include <vector>

#include "numeric/Minimise.h"

namespace vk {

/// A model of parameters X (from 0) at x, over points with errors, without any session around it.
class ModelResiduals : public Residuals {
 public:
  using Model = std::function<double(std::span<const double> X, double x)>;

  ModelResiduals(Model model, std::vector<double> x, std::vector<double> y, std::vector<double> s)
      : model_(std::move(model)), x_(std::move(x)), y_(std::move(y)), s_(std::move(s)) {}

  int points() const { return static_cast<int>(x_.size()); }
  int calls() const { return calls_; }
  /// Makes call number `call`, from 1, fail.
  void failAt(int call) { failing_.insert(call); }
  /// The parameters of each call.
  std::vector<std::vector<double>> tried;

  bool ComputeResiduals(std::span<const double> X, std::span<const double>, std::span<double> F,
                        double& sum) override {
    tried.emplace_back(X.begin(), X.end());
    sum = 0;
    for (std::size_t j = 0; j < x_.size(); ++j) {
      F[j] = (model_(X, x_[j]) - y_[j]) / s_[j];
      sum = sum + F[j] * F[j];
    }
    return !failing_.contains(++calls_);
  }

 private:
  Model model_;
  std::vector<double> x_, y_, s_;
  int calls_ = 0;
  std::set<int> failing_;
};

/// Keeps what a minimisation told.
struct ProgressLog : MinimiseObserver {
  struct Entry {
    int iteration;
    double sum;
    std::vector<double> X;
  };
  std::vector<Entry> entries;
  void progress(int iteration, double sum, const Array<double>& X) override {
    const auto values = X.span(1, X.upper());
    entries.push_back({iteration, sum, {values.begin(), values.end()}});
  }
};

}  // namespace vk
