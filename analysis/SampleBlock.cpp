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

void SampleBlock::makeErrors() {
  const std::span<const double> errors = par_.ParDeltas.span(0, par_.ParCount);
  std::vector<double> units(errors.begin(), errors.end());
  for (int i = 0; i < variables_; ++i) {
    if (par_.correlated.has(i)) units[static_cast<std::size_t>(i)] = 1;
  }
  auto deviate = normal_.begin();
  for (std::size_t sample = 0; sample < kSamples; ++sample) {
    for (std::size_t i = 0; i < errors.size(); ++i) {
      if (!(errors[i] <= 0)) columns_[i][sample] = units[i] * *deviate++;
    }
  }
  correlateErrors();
}

// From the last variable down, since each takes its own deviate and those of variables before it.
void SampleBlock::correlateErrors() {
  for (int i = variables_ - 1; i >= 0; --i) {
    if (!par_.correlated.has(i)) continue;
    for (std::size_t sample = 0; sample < kSamples; ++sample) {
      const auto deviate = [&](int k) { return columns_[static_cast<std::size_t>(k)][sample]; };
      columns_[static_cast<std::size_t>(i)][sample] = par_.correlated.error(i, deviate);
    }
  }
}

bool SampleBlock::makeVariables() {
  makeErrors();
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
