#pragma once

#include <string>

#include "batch/FigureMaker.h"

/// Pictures in a terminal.
namespace vk {

/// What `--show` can say.
inline constexpr const char *kBlocks = "blocks", *kSixel = "sixel";

/// Raises `UsageError` where a word is none of them.
void requireShowWord(const std::string& word);

/// The picture in so many columns: two pixels, one above the other, are a half block in their colours of 24 bits.
std::string halfBlocks(const Picture& picture, int columns);

/// A form whose picture a terminal shows.
FigureForm shownForm(FigureMaker& maker);

/// Prints the picture as wide as the terminal is, or 80 columns where there is none; sixels as it is, at most as wide
/// as the terminal shows in letters of the usual size. Nothing is asked of the terminal. Where sixels cannot be made
/// `UsageError` is raised.
void showPicture(const Picture& picture, const std::string& word);

}  // namespace vk
