#pragma once

#include <string>

#include "gral/sinks/TextLine.h"

namespace vk {

/// A line of text as an element of an SVG document, in UTF-8: the place of each letter is told, so that it stays where
/// the drawing has it. The line has a letter at least.
///
/// Some viewers take only the first place of a list and set the other letters behind it. They begin anew wherever that
/// would lead a letter astray.
std::string svgText(const TextLine& line, Colour color, LetterMetrics& metrics);

}  // namespace vk
