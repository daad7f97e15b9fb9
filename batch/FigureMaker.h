#pragma once

#include <functional>
#include <memory>
#include <string>

#include "gral/Device.h"

namespace vk {

/// A form to draw a figure on, and what gives its drawing as a file as long as the form lives.
struct FigureForm {
  std::unique_ptr<Device> device;
  std::function<std::string()> bytes;
};

/// Makes forms that become files. Only the program with the toolkit has one.
class FigureMaker {
 public:
  virtual ~FigureMaker() = default;

  /// A form for a file in this format: PNG, SVG or PDF. Where it is empty, the ending of the name tells it. Another word
  /// raises `UsageError`.
  virtual FigureForm formFor(const std::string& fileName, const std::string& format) = 0;
};

}  // namespace vk
