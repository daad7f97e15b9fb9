#include "platform/InstalledFolders.h"

#include "platform/Files.h"

namespace vk {
namespace {

/// The folder is there when the page is that it begins with.
std::string sharedFolder(Files& files, const char* name, const char* firstPage) {
  const std::string shared = joinPath(folderOf(files.programFolder()), "share/vor_kel");
  const std::string folder = joinPath(shared, name);
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
