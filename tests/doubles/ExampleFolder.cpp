#include "doubles/ExampleFolder.h"
#include "doubles/Places.h"

#include <filesystem>

#include "platform/system/SystemFiles.h"

namespace vk {

std::map<std::string, std::string> exampleFiles() {
  SystemFiles disk;
  std::map<std::string, std::string> content;
  for (const auto& entry : std::filesystem::directory_iterator(sourcePath("examples"))) {
    const std::string extension = entry.path().extension();
    if (extension != ".dat" && extension != ".fcn" && extension != ".gra" && extension != ".grd") continue;
    content[entry.path().filename()] = disk.readAll(entry.path());
  }
  return content;
}

}  // namespace vk
