#include "platform/InstalledFolders.h"

#include "platform/Files.h"

namespace vk {
namespace {

/// The folder is there when the page is that it begins with.
std::string sharedFolder(Files& files, const char* name, const char* firstPage) {
  const std::string programs = files.programFolder();
  const std::string folder = programs.substr(0, programs.rfind('/')) + "/share/vor_kel/" + name;
  return files.FileExists(joinPath(folder, firstPage)) ? folder : "";
}

}  // namespace

std::string examplesFolder(Files& files) {
  return sharedFolder(files, "examples", "README.md");
}

std::string manualFolder(Files& files) {
  return sharedFolder(files, "manuale", "indice.html");
}

std::string manualSourceFolder(Files& files) {
  return sharedFolder(files, "docs/manuale", "indice.md");
}

}  // namespace vk
