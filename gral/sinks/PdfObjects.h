#pragma once

#include <string>

namespace vk {

/// No object of a PDF page reaches further from its origin, in its units.
constexpr long kPdfObjectReach = 20000;

/// The name that the operators call an object by.
inline std::string pdfObjectName(std::size_t number) {
  return "/Mark" + std::to_string(number);
}

}  // namespace vk
