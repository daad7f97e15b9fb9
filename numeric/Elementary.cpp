#include "numeric/Elementary.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace vk::elementary {
namespace {

std::vector<InstructionSet> setsOfMachine() {
  std::vector<InstructionSet> sets{{"scalar", &simd::kScalar}};
#ifdef __x86_64__
  sets.push_back({"sse2", &simd::kSse2});
  if (__builtin_cpu_supports("sse4.1")) sets.push_back({"sse4", &simd::kSse4});
  if (__builtin_cpu_supports("avx")) sets.push_back({"avx", &simd::kAvx});
  if (__builtin_cpu_supports("avx512f")) sets.push_back({"avx512", &simd::kAvx512});
#endif
  return sets;
}

// Chosen when the program is loaded, so that no call asks whether they are; what is computed before has the same bits.
// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables)
constinit const simd::Kernels* ofBlocks = &simd::kScalar;
constinit const simd::Kernels* ofSingles = &simd::kScalar;
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

[[maybe_unused]] const bool kChosen = [] {
  ofBlocks = instructionSet().kernels;
  // For a single value the registers of two are the quickest, where the set chosen has them.
  ofSingles = std::min(&instructionSet(), &instructionSetOf("sse4"))->kernels;
  return true;
}();

}  // namespace

std::span<const InstructionSet> instructionSets() {
  static const std::vector<InstructionSet> sets = setsOfMachine();
  return sets;
}

const InstructionSet& instructionSetOf(std::string_view name) {
  const std::span<const InstructionSet> sets = instructionSets();
  const auto found = std::ranges::find(sets, name, &InstructionSet::name);
  return found != sets.end() ? *found : sets.back();
}

const InstructionSet& instructionSet() {
  static const InstructionSet& set = []() -> const InstructionSet& {
    const char* name = std::getenv("VOR_SIMD");
    return instructionSetOf(name != nullptr ? name : "");
  }();
  return set;
}

const simd::Kernels& kernels() {
  return *ofBlocks;
}

double exp(double x) {
  return ofSingles->exp(x);
}

double log(double x) {
  return ofSingles->log(x);
}

double sin(double x) {
  return ofSingles->sin(x);
}

double cos(double x) {
  return ofSingles->cos(x);
}

double tan(double x) {
  return ofSingles->tan(x);
}

double atan(double x) {
  return ofSingles->atan(x);
}

double pow(double x, double y) {
  return ofSingles->pow(x, y);
}

}  // namespace vk::elementary
