#pragma once

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace vk {

/// Throws a `std::logic_error` where a promise is broken, which ends a fuzzer with the input that broke it.
inline void require(bool condition, const char* promise) {
  if (!condition) throw std::logic_error(promise);
}

/// The bytes of one run of a fuzzer. Texts are taken from the front and choices from the back, so that every file
/// is an input as it stands.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : left_(reinterpret_cast<const char*>(data), size) {}

  bool isEmpty() const { return left_.empty(); }

  /// In bytes.
  std::size_t size() const { return left_.size(); }

  /// A number from 0 to `count` - 1; 0 when nothing is left.
  unsigned choice(unsigned count) {
    if (left_.empty()) return 0;
    const auto byte = static_cast<unsigned char>(left_.back());
    left_.remove_suffix(1);
    return byte % count;
  }

  /// A double of any bits; 0 when too little is left.
  double number() {
    double value = 0;
    if (left_.size() < sizeof value) return value;
    std::memcpy(&value, left_.end() - sizeof value, sizeof value);
    left_.remove_suffix(sizeof value);
    return value;
  }

  /// What stands before the next line of two percent signs, or all that is left.
  std::string_view part() {
    constexpr std::string_view kSeparator = "\n%%\n";
    const auto at = left_.find(kSeparator);
    const std::string_view front = left_.substr(0, at);
    left_.remove_prefix(at == left_.npos ? left_.size() : at + kSeparator.size());
    return front;
  }

  std::string_view rest() { return std::exchange(left_, {}); }

 private:
  std::string_view left_;
};

/// What a target does with an input. It throws where a promise is broken.
void probe(Input input);

}  // namespace vk
