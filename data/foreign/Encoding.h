#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

/// How the bytes of a text file stand for characters. The guesses rest on what titles of measured data hold: the
/// statistics of languages have nothing to say about a few words among numbers.
namespace vk {

enum class Encoding { kAscii, kUtf8, kUtf8Bom, kUtf16Le, kUtf16Be, kLatin1, kWindows1252, kCp437 };

/// The encoding as a line of Italian names it, for example "UTF-16 LE".
std::string_view encodingName(Encoding encoding);

/// The encoding that an option names, for example "utf-16le", in any case of the letters.
std::optional<Encoding> encodingNamed(std::string_view word);

/// The encoding of a file. Spreadsheets, archives, pictures and other files that are no text are a `Refusal` that
/// names what they are and the way out.
Encoding guessEncoding(std::string_view bytes);

/// The text in UTF-8, without byte order mark and without what old systems put behind the end. Hard and narrow blanks
/// are blanks, and the typographic minus is "-".
std::string decodeText(std::string_view bytes, Encoding encoding);

}  // namespace vk
