#include "analysis/ParameterSet.h"

#include <algorithm>
#include <cmath>

#include "base/Text.h"

namespace vk {
namespace {

constexpr int kFirstParameters = 5;
// Slots before the first parameter: the dependent and the independent variable.
constexpr int kSlotsBefore = 2;

constexpr double kStartStepOfZero = 0.01;

double startingStep(double value) {
  return value == 0 ? kStartStepOfZero : std::abs(value) / 100;
}

}  // namespace

ParameterSet::ParameterSet() : ParValues(kFirstParameters), ParDeltas(kFirstParameters) {
  FreeValues.dim(kFirstParameters + 1);
  FreeSteps.dim(kFirstParameters + 1);
  FreeIndex.dim(kFirstParameters + 1);
}

std::string ParameterSet::name(int i) const {
  return trim(mid(ParNames, (i - 1 + kSlotsBefore) * kNameSlot + 1, kNameSlot));
}

void StoreParameters(ParameterSet& par, std::span<const double> values, std::span<const double> seconds,
                     int first) {
  const int last = static_cast<int>(values.size()) - 1 + first;
  par.ParValues.dim(last);
  par.ParDeltas.dim(last);
  std::ranges::copy(values, par.ParValues.span(first, last).begin());
  std::ranges::copy(seconds, par.ParDeltas.span(first, last).begin());
  par.correlated = {};
  classifyParameters(par);
}

void classifyParameters(ParameterSet& par) {
  const int last = par.ParCount;
  par.FreeSteps.dim(last + 1);
  par.FreeValues.dim(last + 1);
  par.FreeIndex.dim(last + 1);
  par.FreeCount = 0;
  int constants = 0;
  for (int i = 1; i <= last; ++i) {
    if (par.ParDeltas[i] == 0) {
      par.FreeIndex[last - constants++] = i;
      continue;
    }
    ++par.FreeCount;
    par.FreeSteps[par.FreeCount] = startingStep(par.ParValues[i]);
    par.FreeValues[par.FreeCount] = par.ParValues[i];
    par.FreeIndex[par.FreeCount] = i;
  }
}

std::vector<double> freeValues(const ParameterSet& par) {
  std::vector<double> values;
  for (int i = 1; i <= par.FreeCount; ++i) values.push_back(par.ParValues[par.FreeIndex[i]]);
  return values;
}

void storeFreeValues(ParameterSet& par, std::span<const double> X) {
  int i = 0;
  for (const double value : X) par.ParValues[par.FreeIndex[++i]] = value;
}

}  // namespace vk
