#include <cstdlib>
#include <fstream>
#include <sstream>

#include "GralFixture.h"
#include "docs/gallery/Sheets.h"
#include "doubles/Places.h"
#include "gral/NoPrinter.h"

namespace vk {
namespace {

std::string referenceFile(const std::string& name) {
  return sourcePath("tests/gral/references/" + name + ".txt");
}

/// Compares a drawing with its reference line by line. Under VOR_RENEW_REFERENCES the reference is written
/// instead, and the test fails, so that nobody takes the renewal for a comparison.
void expectReference(const std::string& name, const std::vector<std::string>& lines) {
  if (std::getenv("VOR_RENEW_REFERENCES") != nullptr) {
    std::ofstream file(referenceFile(name), std::ios::binary);
    for (const std::string& line : lines) file << line << "\n";
    FAIL() << "renewed " << name;
  }
  std::ifstream file(referenceFile(name), std::ios::binary);
  ASSERT_TRUE(file) << "no reference for " << name;
  std::string expected;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    ASSERT_TRUE(std::getline(file, expected)) << name << " has only " << i << " lines";
    ASSERT_EQ(lines[i], expected) << name << ", line " << i + 1;
  }
  EXPECT_FALSE(std::getline(file, expected)) << name << " has more lines";
}

/// The subjects that a printer shows in another way: label sizes, rotated texts, sizes of marks, boxes.
bool differsOnPaper(const std::string& name) {
  return name == "marks" || name == "axes_linear" || name == "markup" || name == "areas";
}

TEST(Gallery, SheetsAreTheirReferences) {
  NoPrinter printer;
  for (const Sheet& sheet : gallerySheets()) {
    RecorderDevice form;
    GralCls drawing(printer);
    drawing.GralGrStr(form, sheet.orientation, kGalleryScale);
    sheet.draw(drawing);
    drawing.GralGrEnd();
    expectReference(sheet.name, form.lines());
  }
}

TEST(Gallery, SheetsOnAPrinterAreTheirReferences) {
  for (const Sheet& sheet : gallerySheets()) {
    if (!differsOnPaper(sheet.name)) continue;
    RecorderDevice printer{PrinterMetrics{}};
    GralCls drawing(printer);
    drawing.GralGrStr(printer, sheet.orientation, 1);
    sheet.draw(drawing);
    drawing.GralGrEnd();
    EXPECT_EQ(printer.documents(), 1);
    expectReference(std::string(sheet.name) + "_printed", printer.lines());
  }
}

}  // namespace
}  // namespace vk
