#include "ui/PdfProposal.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

TEST(PdfProposal, IsCalledAsTheDataInTheirFolder) {
  LoadedFiles loaded;
  loaded.DataFile = "/home/u/misure/RETTA.DAT";
  loaded.DataDefined = kTrue;
  loaded.GraFile = "/home/u/x.gra";
  loaded.GraDefined = kTrue;
  EXPECT_EQ(pdfProposal(loaded, "/home/u/misure"), "/home/u/misure/RETTA.pdf");
}

TEST(PdfProposal, IsCalledAsTheGraphicFileWithoutData) {
  LoadedFiles loaded;
  loaded.GraFile = "/home/u/x.gra";
  loaded.GraDefined = kTrue;
  EXPECT_EQ(pdfProposal(loaded, "/home/u/misure"), "/home/u/misure/x.pdf");
}

TEST(PdfProposal, HasANameWhenNothingIsLoaded) {
  EXPECT_EQ(pdfProposal(LoadedFiles(), "/"), "/Stampa.pdf");
}

}  // namespace
}  // namespace vk
