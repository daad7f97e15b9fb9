#pragma once

#include <string>

#include "platform/Clock.h"

namespace vk {

/// The clock that random generators are seeded from: it stands still at the seed of the command line, or at
/// the time of day when there is none.
class Seed : public Clock {
 public:
  /// A text that is no number raises `UsageError`; the empty text asks for the time of day.
  explicit Seed(const std::string& text);
  float timer() override { return seed_; }

 private:
  float seed_;
};

}  // namespace vk
