#pragma once

#include "base/Int16.h"

namespace vk {

/// Gives a flag another value until the end of the block, however that is left.
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
