#pragma once

#include <new>
#include <utility>

#include "base/Int16.h"
#include "base/RuntimeError.h"

namespace vk {

/// Runs one statement under the guard: if it fails, `errFlag` becomes -1 and the next statement runs.
///
/// The statement must make its store last, so that a failure stores nothing. Gives whether it succeeded.
/// For cold code only; the evaluator and the residuals test each case explicitly.
template <class Statement>
bool guard(Int16& errFlag, Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
    return true;
  } catch (const RuntimeError&) {
  } catch (const std::bad_alloc&) {
    // Memory that is exhausted is a run-time error like any other.
  }
  errFlag = kTrue;
  return false;
}

/// The same for routines that swallow their failures without a flag.
template <class Statement>
bool guard(Statement&& statement) {
  Int16 ignored;
  return guard(ignored, std::forward<Statement>(statement));
}

}  // namespace vk
