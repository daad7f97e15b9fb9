#pragma once

#include "numeric/Fault.h"

namespace vk {

/// Hears what happens while the function of a figure is computed, in the order in which it happens.
class FigureListener : public EvaluationListener {
 public:
  /// A point of the curve, or of the data, where the function has no value.
  virtual void pointFailed() = 0;
};

}  // namespace vk
