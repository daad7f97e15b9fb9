#pragma once

#include <optional>
#include <string>

namespace vk {

/// The files that the program reads.
enum class FileKind { kData, kFunctions, kGraphic, kGrid };

/// The kind that the ending of a name tells, in any case of the letters.
std::optional<FileKind> kindOfName(const std::string& fileName);

/// The kind that these bytes show; nothing where they could be of any or of none. A file with errors may tell too.
std::optional<FileKind> kindOfContent(const std::string& bytes);

/// Why the bytes are no file of this kind, in a few words of UTF-8 such as "sembra un'immagine"; empty where they may
/// be one, perhaps with errors.
std::string whyNot(FileKind kind, const std::string& bytes);

}  // namespace vk
