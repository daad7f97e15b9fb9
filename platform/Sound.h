#pragma once

namespace vk {

/// Tones. A machine without a tone generator drops the sound.
class Sound {
 public:
  virtual ~Sound() = default;
  /// A tone of `hertz` for `milliseconds`.
  virtual void tone(int hertz, int milliseconds) = 0;
  /// The platform's own beep, for refused input.
  virtual void beep() = 0;
};

}  // namespace vk
