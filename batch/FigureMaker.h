#pragma once

#include <functional>
#include <memory>
#include <string>

#include "batch/FigureOptions.h"

namespace vk {

/// A form to draw a figure on, and what gives its drawing as a file as long as the form lives.
struct FigureForm {
  std::unique_ptr<Device> device;
  std::function<std::string(const FigureWords& words)> bytes;
};

/// Makes forms that become files. Only the program with the toolkit has one.
class FigureMaker {
 public:
  virtual ~FigureMaker() = default;

  /// A form for a file in the format of the options: PNG, SVG, PDF or EPS. Where it is empty, the ending of the name
  /// tells it. Another word, and bad options, raise `UsageError`; `bytes` does where an image would have too many
  /// pixels.
  virtual FigureForm formFor(const std::string& fileName, const FigureOptions& options) = 0;
};

}  // namespace vk
