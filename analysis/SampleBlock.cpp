#include "analysis/SampleBlock.h"

#include "numeric/Elementary.h"

namespace vk {

void SampleBlock::Numbers::giveBackAll() {
  random_.giveBack(given_);
  forget();
}

SampleBlock::SampleBlock(const ParameterSet& par, UniformSource& random)
    : par_(par), numbers_(random), variables_(par.ParCount + 1), values_(kSamples) {
  for (const double value : par.ParValues.span(0, par.ParValues.upper())) {
    columns_.emplace_back(kSamples, value);
  }
  for (const std::vector<double>& column : columns_) places_.push_back(column.data());
}

/// Leaves the uniform errors in the columns, and points of the circle for the normal ones.
void SampleBlock::drawNumbers() {
  const std::span<const double> errors = par_.ParDeltas.span(0, par_.ParCount);
  for (std::size_t sample = 0; sample < kSamples; ++sample) {
    for (std::size_t i = 0; i < errors.size(); ++i) {
      if (errors[i] <= 0) {
        columns_[i][sample] = errors[i] * (2 * static_cast<double>(numbers_.next()) - 1);
      } else if (used_++ == normal_.size()) {
        const PointInCircle point = drawInCircle(numbers_);
        normal_.insert(normal_.end(), {point.w2, point.w1});
        factors_.push_back(point.s);
      }
    }
  }
}

bool SampleBlock::makeDeviates(GaussianState& deviates) {
  const std::size_t stored = normal_.size() - 2 * factors_.size();
  if (!replaceByFactors(factors_)) return false;
  for (std::size_t i = stored; i < normal_.size(); ++i) normal_[i] *= factors_[(i - stored) / 2];
  deviates.hasStored = used_ < normal_.size();
  if (deviates.hasStored) deviates.stored = normal_.back();
  return true;
}

bool SampleBlock::makeVariables() {
  const std::span<const double> errors = par_.ParDeltas.span(0, par_.ParCount);
  auto deviate = normal_.begin();
  for (std::size_t sample = 0; sample < kSamples; ++sample) {
    for (std::size_t i = 0; i < errors.size(); ++i) {
      if (!(errors[i] <= 0)) columns_[i][sample] = errors[i] * *deviate++;
    }
  }
  bool finite = true;
  const auto plus = elementary::kernels().operators[simd::kPlus];
  for (int i = 0; i < variables_; ++i) {
    double* const column = columns_[static_cast<std::size_t>(i)].data();
    finite &= plus({nullptr, par_.ParValues[i]}, {column}, column, kSamples);
  }
  return finite;
}

bool SampleBlock::draw(Model& model, GaussianState& deviates) {
  numbers_.forget();
  before_ = deviates;
  normal_.assign(deviates.hasStored ? 1 : 0, deviates.stored);
  factors_.clear();
  used_ = 0;
  drawNumbers();
  if (makeDeviates(deviates) && makeVariables() && model.together(places_, values_)) return true;
  giveBack(deviates);
  return false;
}

void SampleBlock::giveBack(GaussianState& deviates) {
  numbers_.giveBackAll();
  deviates = before_;
}

}  // namespace vk
