#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/Array.h"

/// Which labels a linear axis gets, so that nobody reads a wrong number from it.
namespace vk {

/// A linear axis to be labelled.
struct LabelledAxis {
  double from, to;   ///< values at its ends
  double intervals;  ///< between its ticks
  double room;       ///< from one tick to the next along the axis, in characters; infinite on a vertical one
};

/// The labels of an axis and the title that they belong to.
struct AxisText {
  Array<std::string> labels;  ///< 0..intervals; an empty one is left out
  std::string title;
};

/// The plain labels 0..intervals of an axis from a value to another.
using PlainLabels = std::function<Array<std::string>(double from, double to)>;

/// The plain labels where they say what the ticks are and stand clear of one another. Else those of the values
/// divided by a power of 1000, which goes into the title; else those of the differences from the first value,
/// which goes into the title too. Labels that are only too close are thinned out to every second, third, ...
/// one: the plain ones where they say what the ticks are, else the others; and so are plain ones that nothing
/// can replace.
AxisText chooseLabels(const LabelledAxis& axis, std::string_view title, const PlainLabels& plain);

}  // namespace vk
