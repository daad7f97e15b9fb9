#include "ui/PdfProposal.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

TEST(PdfProposal, IsCalledAsTheDataInTheirFolder) {
  Session session;
  session.DataDir = "/home/u/misure";
  session.DataFile = "/home/u/misure/RETTA.DAT";
  session.DataDefined = kTrue;
  session.GraFile = "/home/u/x.gra";
  session.GraDefined = kTrue;
  EXPECT_EQ(pdfProposal(session), "/home/u/misure/RETTA.pdf");
}

TEST(PdfProposal, IsCalledAsTheGraphicFileWithoutData) {
  Session session;
  session.DataDir = "/home/u/misure";
  session.GraFile = "/home/u/x.gra";
  session.GraDefined = kTrue;
  EXPECT_EQ(pdfProposal(session), "/home/u/misure/x.pdf");
}

TEST(PdfProposal, HasANameWhenNothingIsLoaded) {
  Session session;
  session.DataDir = "/";
  EXPECT_EQ(pdfProposal(session), "/Stampa.pdf");
}

}  // namespace
}  // namespace vk
