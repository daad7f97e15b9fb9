#pragma once

#include <string>

#include "gral/FigureSheet.h"

/// What is changed in a file of the PDF format with one page after a toolkit has written it.
namespace vk {

/// Takes the moment of its making out of a file: the same figure is the same file.
void dropCreationDate(std::string& file);

/// Adds what a sheet tells: its exact size, where the page has it in whole points, rounded up; its title, and its
/// description as the text that is read in place of the page. The file has a plain table of its objects and holds no
/// such things; one without a size and words stays as it is.
std::string withSheet(std::string file, const FigureSheet& sheet);

}  // namespace vk
