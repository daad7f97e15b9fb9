#pragma once

namespace vk {

/// Orientation of the paper.
enum PaperOrientation : int { kPortrait = 1, kLandscape = 2 };

}  // namespace vk
