#pragma once

#include <chrono>

#include "platform/Clock.h"

namespace vk {

/// Seconds since the local midnight, cut to 1/128 s, which a single holds exactly all day; below 86400.
float secondsOfDay(std::chrono::system_clock::time_point moment);

/// The clock of this machine.
class SystemClock : public Clock {
 public:
  float timer() override { return secondsOfDay(std::chrono::system_clock::now()); }
};

}  // namespace vk
