#include "ui/PdfProposal.h"

#include "platform/Files.h"
#include "session/FileSelection.h"

namespace vk {
namespace {

std::string printedName(const Session& session) {
  if (session.DataDefined) return nameWithoutExtension(session.DataFile);
  if (session.GraDefined) return nameWithoutExtension(session.GraFile);
  return "Stampa";
}

}  // namespace

std::string pdfProposal(const Session& session) {
  return joinPath(session.DataDir, printedName(session) + ".pdf");
}

}  // namespace vk
