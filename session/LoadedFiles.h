#pragma once

#include <string>

#include "base/Int16.h"
#include "data/DataSet.h"
#include "expr/Catalogue.h"
#include "platform/Texts.h"

namespace vk {

/// What has been read from files, or put in their place.
struct LoadedFiles {
  std::string DataFile = kNoFile;  ///< as it is shown, folded to capitals behind a graphic file
  std::string DataPath;            ///< as it was opened
  Flag DataDefined;
  DataSet data;
  std::string FunFile = kNoFile;
  Flag FunFileRead;  ///< functions can be loaded from a file that was read
  Catalogue catalogue;
  std::string GraFile;
  Flag GraDefined;
};

/// Takes the data of a file that was read, and sets `DataFile`, `DataPath` and `DataDefined`.
void LoadDataFile(LoadedFiles& loaded, const std::string& fileName, DataSet&& data);

}  // namespace vk
