#include "platform/system/FigureModule.h"

#include "base/RuntimeError.h"
#include "gral/GralCls.h"
#include "gral/NoPrinter.h"
#include "gral/NominalScreen.h"

namespace vk {
namespace {

std::string builtModule() {
  return figureModulePath(std::string(VOR_BINARY_DIR) + "/bin");
}

TEST(FigureModules, WriteFiguresInEachFormat) {
  FigureModule module(builtModule());
  const std::pair<FigureFormat, std::string> starts[] = {
      {FigureFormat::kPng, "\x89PNG"}, {FigureFormat::kSvg, "<?xml"}, {FigureFormat::kPdf, "%PDF"}};
  for (const auto& [format, start] : starts) {
    const std::unique_ptr<FigureFile> file = module.create(format);
    NoPrinter printer;
    NominalScreen screen;
    GralCls drawing(printer, screen);
    drawing.GralGrStr(file->device(), "PORTRAIT", 1);
    drawing.GralOaxis(2, 10, 5, 4, 3, false, true, "x");
    drawing.GralGrEnd();
    EXPECT_EQ(file->bytes().substr(0, start.size()), start);
  }
}

TEST(FigureModules, FailuresOfTheirDevicesReachTheCaller) {
  FigureModule module(builtModule());
  const std::unique_ptr<FigureFile> file = module.create(FigureFormat::kSvg);
  try {
    file->device().setDrawStyle(99);
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 5);
  }
}

TEST(FigureModules, ThatAreMissingAreFilesNotFound) {
  FigureModule module("/nowhere/vor_figures.so");
  try {
    module.create(FigureFormat::kPng);
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 53);
  }
}

TEST(FigureModules, StandBesideTheProgramOrInItsLibraryFolder) {
  EXPECT_EQ(figureModulePath("/nowhere/bin"), "/nowhere/bin/../lib/vor_kel/vor_figures.so");
  EXPECT_EQ(builtModule(), std::string(VOR_BINARY_DIR) + "/bin/vor_figures.so");
}

TEST(FigureFormats, AreToldByTheEnding) {
  EXPECT_EQ(figureFormatOf("a/b.png"), FigureFormat::kPng);
  EXPECT_EQ(figureFormatOf("B.SVG"), FigureFormat::kSvg);
  EXPECT_EQ(figureFormatOf("x.y.Pdf"), FigureFormat::kPdf);
  EXPECT_FALSE(figureFormatOf("x.gif"));
  EXPECT_FALSE(figureFormatOf("png"));
}

}  // namespace
}  // namespace vk
