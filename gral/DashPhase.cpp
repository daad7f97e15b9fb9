#include "gral/DashPhase.h"

#include <algorithm>
#include <cmath>

#include "base/Rounding.h"
#include "base/Text.h"

namespace vk {
namespace {

constexpr int kLongestElement = 255;

char elementOf(int length) {
  return static_cast<char>(static_cast<unsigned char>(length));
}

void requirePattern(bool holds) {
  if (!holds) throw RuntimeError(kInvalidCall);
}

}  // namespace

DashPhase::DashPhase(std::string_view pattern, double fraction) {
  requirePattern(pattern.size() > 2 && pattern.find('\0', 1) == std::string_view::npos);
  down_ = pattern.front() == 1;
  elements_ = pattern.substr(1);
  const int rest = whole();
  if (elements_.size() % 2 != 0) {
    const int done = code(elements_.back());
    elements_.pop_back();
    requirePattern(rest + done <= kLongestElement);
    elements_.front() = elementOf(rest + done);
  }
  remaining_ = rest + fraction;
}

void DashPhase::next() {
  std::rotate(elements_.begin(), elements_.begin() + 1, elements_.end());
  remaining_ = whole();
  down_ = !down_;
}

void DashPhase::skip(double length) {
  double period = 0;
  for (const char element : elements_) period += code(element);
  double left = std::fmod(length, period);
  while (left > 0 && remaining_ <= left) {
    left -= remaining_;
    next();
  }
  use(left);
}

std::string DashPhase::text(double& fraction) const {
  const int rest = std::clamp(static_cast<int>(roundHalfEven(remaining_)), 1, whole());
  fraction = remaining_ - rest;
  std::string result(1, down_ ? '\1' : '\0');
  result += elements_;
  if (rest < whole()) {
    result[1] = elementOf(rest);
    result += elementOf(whole() - rest);
  }
  return result;
}

}  // namespace vk
