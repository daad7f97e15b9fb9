#include "ui/PdfProposal.h"

#include "session/Session.h"

#include "platform/Files.h"
#include "session/FileSelection.h"

namespace vk {
namespace {

std::string printedName(const Session& session) {
  if (session.loaded.DataDefined) return nameWithoutExtension(session.loaded.DataFile);
  if (session.loaded.GraDefined) return nameWithoutExtension(session.loaded.GraFile);
  return "Stampa";
}

}  // namespace

std::string pdfProposal(const Session& session) {
  return joinPath(session.files.DataDir, printedName(session) + ".pdf");
}

}  // namespace vk
