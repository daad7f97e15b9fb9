#include "session/Session.h"
#include "ui/PdfProposal.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

TEST(PdfProposal, IsCalledAsTheDataInTheirFolder) {
  Session session;
  session.files.DataDir = "/home/u/misure";
  session.loaded.DataFile = "/home/u/misure/RETTA.DAT";
  session.loaded.DataDefined = kTrue;
  session.loaded.GraFile = "/home/u/x.gra";
  session.loaded.GraDefined = kTrue;
  EXPECT_EQ(pdfProposal(session), "/home/u/misure/RETTA.pdf");
}

TEST(PdfProposal, IsCalledAsTheGraphicFileWithoutData) {
  Session session;
  session.files.DataDir = "/home/u/misure";
  session.loaded.GraFile = "/home/u/x.gra";
  session.loaded.GraDefined = kTrue;
  EXPECT_EQ(pdfProposal(session), "/home/u/misure/x.pdf");
}

TEST(PdfProposal, HasANameWhenNothingIsLoaded) {
  Session session;
  session.files.DataDir = "/";
  EXPECT_EQ(pdfProposal(session), "/Stampa.pdf");
}

}  // namespace
}  // namespace vk
