#pragma once

namespace vk {

/// Kinds of file, for the picker and the editor.
enum FileKindCode : int { kDataKind = 1, kFunctionKind = 2, kGraphicKind = 3 };

}  // namespace vk
