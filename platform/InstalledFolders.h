#pragma once

#include <string>

namespace vk {

class Files;

/// What comes with the programs stands in "share/vor_kel" beside the folder that holds them: in /usr, below any other
/// root that it was unpacked in, and in a folder that it was built in.

/// The folder of the examples, where the user can read but as a rule not write; empty when it is not there.
std::string examplesFolder(Files& files);

/// The folder of the manual's pages for a browser, which begin with "indice.html"; empty when they are not there.
std::string manualFolder(Files& files);

/// The folder of the manual's pages as they are written, which begin with "indice.md"; empty except in a folder that
/// the program was built in.
std::string manualSourceFolder(Files& files);

}  // namespace vk
