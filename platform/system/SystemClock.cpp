#include "platform/system/SystemClock.h"

#include <ctime>

namespace vk {

float secondsOfDay(std::chrono::system_clock::time_point moment) {
  using Tick = std::chrono::duration<int, std::ratio<1, 128>>;
  const auto whole = std::chrono::floor<std::chrono::seconds>(moment);
  const std::time_t seconds = std::chrono::system_clock::to_time_t(whole);
  std::tm local{};
  localtime_r(&seconds, &local);
  const int ticks = std::chrono::floor<Tick>(moment - whole).count();
  return static_cast<float>(local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec) +
         static_cast<float>(ticks) / 128;
}

}  // namespace vk
