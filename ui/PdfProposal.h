#pragma once

#include <string>

namespace vk {

struct Session;

/// The full name that is proposed for a PDF file: that of the data, or of the graphic file where no data are
/// loaded, in the folder of the data.
std::string pdfProposal(const Session& session);

}  // namespace vk
