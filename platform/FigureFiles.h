#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Device.h"

namespace vk {

/// Kinds of files that a figure can be written as.
enum class FigureFormat { kPng, kSvg, kPdf };

/// The kind that the ending of a file name asks for, in any case; nothing for another ending.
std::optional<FigureFormat> figureFormatOf(std::string_view path);

/// A figure on its way into a file.
class FigureFile {
 public:
  virtual ~FigureFile() = default;
  /// The surface to draw on, a form.
  virtual Device& device() = 0;
  /// What was drawn so far as the bytes of the file.
  virtual std::string bytes() = 0;
};

/// Makes figures into files. The toolkit's side of this port is a module that a program loads only when a
/// figure is asked for.
class FigureFiles {
 public:
  virtual ~FigureFiles() = default;
  virtual std::unique_ptr<FigureFile> create(FigureFormat format) = 0;
};

/// The name of the function by which a module gives its `FigureFiles`, and its type.
inline constexpr const char* kFigureModuleEntry = "vor_figure_files";
using FigureModuleEntry = FigureFiles* (*)();

}  // namespace vk
