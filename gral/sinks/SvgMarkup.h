#pragma once

#include <string>
#include <string_view>

#include "base/Colour.h"

/// The words of an SVG document.
namespace vk {

/// Puts a whole number behind a text.
void svgAppend(std::string& text, long number);

/// A number, to the hundredth.
std::string svgNumber(double value);

/// A colour, "#rrggbb".
std::string svgColour(Colour color);

/// An attribute with a blank before it; the value holds no mark-up.
std::string svgAttribute(std::string_view name, std::string_view value);

/// A text in UTF-8 as the content of an element, without control characters.
std::string svgEscaped(std::string_view utf8);

}  // namespace vk
