#pragma once

#include <string>
#include <string_view>

#include "base/FileText.h"

/// Texts that are drawn: titles of data, legends, the texts of figures. They are 8-bit: Windows-1252 with text markup.
namespace vk {

/// The text with the characters above 127 of the old 8-bit code as text markup; unknown ones become "??".
std::string TranslateDosText(std::string_view text);

/// A text in UTF-8 as it is drawn. Greek letters, raised signs and fractions are markup, as in old files; other
/// characters that Windows-1252 lacks become "?".
std::string figureTextOfUtf8(std::string_view utf8);

/// A piece of a file as it is drawn.
std::string figureText(const FileText& file, std::string_view piece);

/// A text that is drawn as files have it: UTF-8.
std::string utf8OfFigureText(std::string_view text);

}  // namespace vk
