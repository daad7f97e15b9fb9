#pragma once

#include <string>
#include <string_view>

namespace vk {

/// True when a file of this name (as it stands) can be written: it exists and is not protected against
/// writing, or it does not exist and its folder takes new files.
bool isWritableFile(const std::string& path);

/// True when this process can make files in the folder.
bool isWritableDirectory(const std::string& folder);

/// Replaces the content of the file, keeping its permissions and owner, or makes the file.
///
/// The bytes go to a temporary file beside it, which then takes its name, so that a failure leaves the old
/// file whole. Where the folder takes no new file, the file itself is written, after its space is reserved; a
/// failure puts the old bytes back. Links stay: what they lead to is written, or made where it is missing.
/// Leftovers of older saves in the folder are removed.
/// Errors: folder missing 76; no permission, a folder of that name or links in a circle 75; no space or a broken
/// device 57.
void writeSafely(const std::string& path, std::string_view bytes);

}  // namespace vk
