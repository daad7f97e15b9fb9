#pragma once

#include "base/Int16.h"

/// States that end with the block that began them, however it is left.
namespace vk {

/// Gives a flag another value.
class FlagFor {
 public:
  FlagFor(Flag& flag, int value) : flag_(flag), before_(flag) { flag_ = value; }
  ~FlagFor() { flag_ = before_; }
  FlagFor(const FlagFor&) = delete;
  FlagFor& operator=(const FlagFor&) = delete;

 private:
  Flag& flag_;
  Flag before_;
};

}  // namespace vk
