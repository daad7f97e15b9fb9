#pragma once

#include <span>
#include <vector>

#include "analysis/ParameterSet.h"
#include "expr/Model.h"
#include "numeric/NormalDeviates.h"

namespace vk {

/// Samples of a model function with random errors of its variables, drawn and computed together: with the numbers
/// that single samples would take, in their order, and with the same bits.
class SampleBlock {
 public:
  static constexpr int kSamples = 200;

  SampleBlock(const ParameterSet& par, UniformSource& random);

  /// Draws all samples. False where one of them has a failure; then generator and deviates stand as before.
  bool draw(Model& model, GaussianState& deviates);
  /// Puts generator and deviates back to where they stood before all samples were drawn.
  void giveBack(GaussianState& deviates);

  /// Of the function, for sample 0..kSamples-1.
  double value(int sample) const { return values_[static_cast<std::size_t>(sample)]; }
  /// Variable i of the last sample.
  double lastVariable(int i) const { return columns_[static_cast<std::size_t>(i)].back(); }

 private:
  /// Remembers the numbers that it gives.
  class Numbers final : public UniformSource {
   public:
    explicit Numbers(UniformSource& random) : random_(random) {}
    float next() override { return given_.emplace_back(random_.next()); }
    void giveBack(std::span<const float> numbers) override { random_.giveBack(numbers); }
    void giveBackAll();
    void forget() { given_.clear(); }

   private:
    UniformSource& random_;
    std::vector<float> given_;
  };

  void drawNumbers();
  bool makeDeviates(GaussianState& deviates);
  void makeErrors();
  void correlateErrors();
  bool makeVariables();

  const ParameterSet& par_;
  Numbers numbers_;
  GaussianState before_;  ///< the samples
  int variables_;
  std::vector<std::vector<double>> columns_;  ///< of each variable: its values in the samples
  std::vector<const double*> places_;         ///< where those columns begin
  std::vector<double> normal_;   ///< normal deviates in the order of their use, at first their coordinates
  std::vector<double> factors_;  ///< of each pair of coordinates, at first the squared radius
  std::size_t used_ = 0;         ///< of the normal deviates
  std::vector<double> values_;
};

}  // namespace vk
