#include "ui/PdfProposal.h"

#include "commands/FilePicking.h"
#include "platform/Files.h"

namespace vk {
namespace {

std::string printedName(const LoadedFiles& loaded) {
  if (loaded.DataDefined) return nameWithoutExtension(loaded.DataFile);
  if (loaded.GraDefined) return nameWithoutExtension(loaded.GraFile);
  return "Stampa";
}

}  // namespace

std::string pdfProposal(const LoadedFiles& loaded, const std::string& DataDir) {
  return joinPath(DataDir, printedName(loaded) + ".pdf");
}

}  // namespace vk
