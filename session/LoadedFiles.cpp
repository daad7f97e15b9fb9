#include "session/LoadedFiles.h"

#include <utility>

namespace vk {

void LoadDataFile(LoadedFiles& loaded, const std::string& fileName, DataSet&& data) {
  loaded.DataFile = loaded.DataPath = fileName;
  loaded.DataDefined = kTrue;
  loaded.data = std::move(data);
}

}  // namespace vk
