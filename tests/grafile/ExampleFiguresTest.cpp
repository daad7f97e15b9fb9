#include <algorithm>
#include <filesystem>

#include "doubles/DrawingLines.h"
#include "doubles/ExampleFolder.h"
#include "doubles/Places.h"
#include "grafile/GraphicCommand.h"
#include "tests/commands/FigureFixture.h"
#include "tests/doubles/TemporaryFolder.h"

namespace vk {
namespace {

class ExampleFigures : public FigureFixture, public ::testing::WithParamInterface<std::string> {
 protected:
  ExampleFigures() { files.content = exampleFiles(); }
};

TEST_P(ExampleFigures, RunWithoutErrorsAndShowTheirData) {
  const std::string text = files.content.at(GetParam());
  const auto drawn = run(text);
  EXPECT_TRUE(output.requests.empty()) << output.request().text.bytes();
  EXPECT_GT(drawn.size(), 100U);
  // The curves of the log-log plot and a grid have no marks.
  EXPECT_EQ(contains(drawn, "circle "), GetParam() != "loglog.gra" && GetParam() != "hills.gra");
}

std::vector<std::string> graphicNames() {
  std::vector<std::string> names;
  for (const auto& [name, content] : exampleFiles()) {
    if (name.ends_with(".gra")) names.push_back(name);
  }
  return names;
}

std::string testName(const ::testing::TestParamInfo<std::string>& file) {
  return file.param.substr(0, file.param.find('.'));
}

INSTANTIATE_TEST_SUITE_P(All, ExampleFigures, ::testing::ValuesIn(graphicNames()), testName);

TEST(ExampleFigureFiles, AreThreeForEachSampleAndFourWrittenByHand) {
  EXPECT_EQ(graphicNames().size(), 19U);
}

TEST(ExampleFigureFiles, AreWhatTheirGeneratorMakes) {
  const TemporaryFolder folder;
  const std::string command = "cd '" + sourcePath("examples") + "' && '" +
                              builtPath("examples/make_figures") + "' '" + folder.path() + "'";
  ASSERT_EQ(std::system(command.c_str()), 0);
  int made = 0;
  for (const auto& [name, content] : exampleFiles()) {
    if (!std::filesystem::exists(folder / name)) continue;
    EXPECT_EQ(folder.bytesOf(name), content) << name;
    ++made;
  }
  EXPECT_EQ(made, 20);
}

TEST(ExampleFigureFiles, ThreeOfThemUseEveryCommand) {
  const std::string sheet =
      exampleFiles().at("sheet.gra") + exampleFiles().at("band.gra") + exampleFiles().at("hills.gra");
  for (const GraphicCommand& command : graphicCommands()) {
    EXPECT_FALSE(commandsOf(sheet, std::string(command.name)).empty()) << command.name;
  }
}

class LogLogExample : public FigureFixture {};

TEST_F(LogLogExample, HasDecadesTwoCurvesAndGreekLegends) {
  files.content = exampleFiles();
  const auto drawn = run(files.content.at("loglog.gra"));
  EXPECT_EQ(std::ranges::count_if(drawn, [](const auto& line) { return line.starts_with("bezier "); }), 1);
  EXPECT_TRUE(std::ranges::any_of(drawn, [](const auto& line) { return line.find("Symbol") != line.npos; }));
  EXPECT_FALSE(contains(drawn, "polyline "));
}

}  // namespace
}  // namespace vk
