#include <algorithm>
#include <filesystem>

#include "base/TextLines.h"
#include "doubles/Places.h"
#include "platform/system/SystemFiles.h"
#include "tests/commands/FigureFixture.h"

namespace vk {
namespace {

const std::string kFolder = sourcePath("tests/grafile/errors/");
constexpr std::string_view kExpected = "%=";

/// A graphic file that tells the list of its errors itself, in comments.
class GraphicErrorFiles : public FigureFixture, public ::testing::WithParamInterface<std::string> {
 protected:
  GraphicErrorFiles() {
    SystemFiles disk;
    for (const auto& entry : std::filesystem::directory_iterator(kFolder)) {
      files.content[entry.path().filename().string()] = disk.readAll(entry.path().string());
    }
  }
};

TEST_P(GraphicErrorFiles, GiveTheListThatTheyTell) {
  const std::string text = files.content.at(GetParam());
  std::string expected;
  TextLines lines(text);
  while (const auto line = lines.next()) {
    if (line->starts_with(kExpected)) expected += std::string(line->substr(kExpected.size())) + "\r\n";
  }
  EXPECT_EQ(errorsOf(text), expected);
  EXPECT_EQ(expected.empty(), GetParam() == "none.gra");
}

std::vector<std::string> graphicFiles() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(kFolder)) {
    if (entry.path().extension() == ".gra") names.push_back(entry.path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

std::string errorFileTestName(const ::testing::TestParamInfo<std::string>& file) {
  return file.param.substr(0, file.param.find('.'));
}

INSTANTIATE_TEST_SUITE_P(All, GraphicErrorFiles, ::testing::ValuesIn(graphicFiles()), errorFileTestName);

TEST(GraphicErrorFileSet, HasAFileForEachMessage) {
  EXPECT_GE(graphicFiles().size(), 16U);
}

}  // namespace
}  // namespace vk
