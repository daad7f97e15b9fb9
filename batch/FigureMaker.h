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

  /// A form for a file of this name, whose ending tells the format: PNG, SVG or PDF. Another ending raises
  /// `UsageError`.
  virtual FigureForm formFor(const std::string& fileName) = 0;
};

}  // namespace vk
