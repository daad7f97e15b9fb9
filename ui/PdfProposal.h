#pragma once

#include <string>

#include "session/LoadedFiles.h"

namespace vk {

/// The full name that is proposed for a PDF file: that of the data, or of the graphic file where no data are
/// loaded, in the folder `DataDir`.
std::string pdfProposal(const LoadedFiles& loaded, const std::string& DataDir);

}  // namespace vk
