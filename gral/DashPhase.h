#pragma once

#include <string>
#include <string_view>

namespace vk {

/// What the whole codes of a dash pattern cannot hold: the part of a twip by which the pen is further on.
/// It counts when the text that it belongs to is handed in again.
class DashCarry {
 public:
  double fractionOf(std::string_view pattern) const { return pattern == pattern_ ? fraction_ : 0; }
  void keep(std::string_view pattern, double fraction) {
    pattern_ = pattern;
    fraction_ = fraction;
  }
  void forget() { keep({}, 0); }

 private:
  std::string pattern_;
  double fraction_ = 0;
};

/// A dash pattern at work: its elements in turn, and how much of the present one is left.
///
/// The text of a pattern is one state character (code 1: pen down, 0: up) and the lengths of its elements in
/// twips, beginning with the present one. While that is interrupted, its rest stands first and what is done
/// of it stands last, so that the number of lengths is odd.
class DashPhase {
 public:
  /// A text that is no pattern is run-time error 5: fewer than two elements, codes of 0 or above 255
  /// together.
  DashPhase(std::string_view pattern, double fraction);

  bool down() const { return down_; }
  double remaining() const { return remaining_; }
  /// The present element is done and goes to the end, whole; the next begins, with the other pen state.
  void next();
  /// A line ends inside the present element.
  void use(double length) { remaining_ -= length; }

  /// Goes on by a length of which nothing is seen.
  void skip(double length);

  /// The text of the present state, and the fraction by which the true rest exceeds its code. Every code is
  /// at least 1: a rest or a beginning shorter than half a twip is in the fraction alone.
  std::string text(double& fraction) const;

 private:
  int whole() const { return static_cast<unsigned char>(elements_.front()); }

  std::string elements_;  ///< codes, the present element first and whole
  double remaining_;
  bool down_;
};

}  // namespace vk
