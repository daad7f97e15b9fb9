#pragma once

#include <new>
#include <utility>

#include "base/RuntimeError.h"

namespace vk {

/// Runs one statement under the guard: true, or false when it has failed.
///
/// The statement must make its store last, so that a failure stores nothing. For cold code only; the evaluator and
/// the residuals test each case explicitly.
template <class Statement>
bool guard(Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
    return true;
  } catch (const RuntimeError&) {
  } catch (const std::bad_alloc&) {
    // Memory that is exhausted is a run-time error like any other.
  }
  return false;
}

/// The same for one of a row of statements: `failed` becomes true when it has.
template <class Statement>
void guard(bool& failed, Statement&& statement) {
  if (!guard(std::forward<Statement>(statement))) failed = true;
}

/// Runs a statement, which does not fail, at the end of the block, however that is left.
template <class Statement>
class AtEnd {
 public:
  explicit AtEnd(Statement statement) : statement_(std::move(statement)) {}
  ~AtEnd() { statement_(); }
  AtEnd(const AtEnd&) = delete;
  AtEnd& operator=(const AtEnd&) = delete;

 private:
  Statement statement_;
};

}  // namespace vk
