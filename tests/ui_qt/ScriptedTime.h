#pragma once

#include <cstdint>

namespace vk {

/// While it lives, time is a number for the thread that made it, whatever the machine has to do meanwhile: each look
/// at a clock takes a tick, and a wait ends at once, at its end. So timers go off in the same order in every run. The
/// day begins in the morning of 3 March 2025. Other threads keep the time of the machine. One at a time.
class ScriptedTime {
 public:
  ScriptedTime();
  ~ScriptedTime();
  ScriptedTime(const ScriptedTime&) = delete;

  /// Goes on to the next even second: how often the clock was looked at no longer counts, which other threads can
  /// change by waking this one.
  static void settle();
};

}  // namespace vk
