#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// A file of the toolkit, and what is written beside it.
struct PdfLayers {
  std::string_view file;             ///< one page more than layers
  std::vector<std::string> layers;   ///< operators, each between two pages
  std::vector<std::string> objects;  ///< that they call
};

/// Lays pages and layers over one another, in turn, as one page of a new file.
using LayOver = void(const PdfLayers& layers, std::string& file);

}  // namespace vk
