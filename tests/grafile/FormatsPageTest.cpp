#include <sstream>

#include "base/Text.h"
#include "commands/FunctionFiles.h"
#include "data/DataFiles.h"
#include "data/GridFile.h"
#include "doubles/DrawingLines.h"
#include "doubles/Places.h"
#include "platform/system/SystemFiles.h"
#include "tests/commands/FigureFixture.h"

namespace vk {
namespace {

/// An example of the page: a block that opens with "```kind name".
struct PageExample {
  std::string kind, name, text;
};

std::vector<PageExample> pageExamples() {
  SystemFiles disk;
  std::istringstream page(disk.readAll(sourcePath("docs/formats.md")));
  std::vector<PageExample> examples;
  bool inside = false;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("```")) {
      inside = !inside;
      const int blank = position(line, " ");
      if (inside) examples.push_back({blank == 0 ? "" : mid(line, 4, blank - 4), mid(line, blank + 1), ""});
    } else if (inside) {
      examples.back().text += line + "\r\n";
    }
  }
  std::erase_if(examples, [](const PageExample& example) { return example.kind.empty(); });
  return examples;
}

class FormatsPage : public FigureFixture {
 protected:
  FormatsPage() {
    for (const PageExample& example : examples) {
      if (example.kind != "errors") files.content[example.name] = example.text;
    }
  }
  std::vector<PageExample> of(const std::string& kind) const {
    std::vector<PageExample> found;
    for (const PageExample& example : examples) {
      if (example.kind == kind) found.push_back(example);
    }
    return found;
  }

  const std::vector<PageExample> examples = pageExamples();
};

TEST_F(FormatsPage, HasExamplesOfEachKind) {
  EXPECT_EQ(of("dat").size(), 1U);
  EXPECT_EQ(of("fcn").size(), 1U);
  EXPECT_EQ(of("gra").size(), 5U);
  EXPECT_EQ(of("grd").size(), 1U);
  EXPECT_EQ(of("errors").size(), 1U);
}

TEST_F(FormatsPage, TheDataFileHasItsPoints) {
  const std::string name = of("dat")[0].name;
  DataReading reading = readData(files, name);
  EXPECT_EQ(reading.errors, "");
  EXPECT_EQ(reading.declaredCount, 5);
  EXPECT_EQ(reading.data.NumPnt, 5);
  LoadDataFile(session.loaded, name, std::move(reading.data));
  EXPECT_EQ(session.loaded.data.TitleX, "Massa (g)");
  EXPECT_EQ(session.loaded.data.TitleY, "Elongazione (mm)");
  EXPECT_EQ(session.loaded.data.Ypnt[5], 101.5);
  EXPECT_EQ(session.loaded.data.ErrXpnt[5], .5);
  EXPECT_EQ(session.loaded.data.ErrYpnt[5], 1);
}

TEST_F(FormatsPage, TheFunctionFileHasItsFunctions) {
  std::string name = of("fcn")[0].name;
  ReadFunctionFile(session, files, output, name, {});
  EXPECT_EQ(session.ErrFlag, 0);
  const auto& functions = session.loaded.catalogue.file.entries;
  ASSERT_EQ(functions.size(), 2U);
  EXPECT_EQ(functions[0].definition, "x/k+l0");
  EXPECT_EQ(functions[1].parameters, "k,l0,q");
  EXPECT_EQ(functions[1].definition, "x/k+l0+q*(x/k)^2");
  EXPECT_EQ(functions[1].description, "Molla con termine quadratico");
}

TEST_F(FormatsPage, TheFirstFigureShowsLineDataAndTexts) {
  const auto drawn = run(files.content.at("molla.gra"));
  EXPECT_TRUE(output.requests.empty()) << output.request().text.bytes();
  int marks = 0;
  for (const std::string& line : drawn) marks += line.starts_with("fill+stroke ");
  EXPECT_EQ(marks, 5);
  EXPECT_TRUE(contains(drawn, "text "));
}

TEST_F(FormatsPage, TheHiddenAxisGivesTheFormulaItsRangeOnALogarithmicAxis) {
  const auto drawn = run(files.content.at("potenza.gra"));
  EXPECT_TRUE(output.requests.empty()) << output.request().text.bytes();
  // From (0.01, 200) above the area to (10, 6.3), in pixels of a form at half size.
  for (const std::string& line : drawn) {
    if (!line.starts_with("polyline ")) continue;
    const auto pixels = numbersOf(line);
    const double cm = 0.5 * 1440 / 2.54 / 15;
    const auto x = [&](double value) { return (5 + (std::log10(value) + 2) * 20 / 3) * cm; };
    const auto y = [&](double value) { return (15 - (4 + (std::log10(value) + 1) * 14 / 3)) * cm; };
    ASSERT_EQ(pixels.size(), 400U);
    EXPECT_NEAR(pixels[0], x(.01), 1);
    EXPECT_NEAR(pixels[1], y(200), 1);
    EXPECT_NEAR(pixels[398], x(10), 1);
    EXPECT_NEAR(pixels[399], y(20 / std::sqrt(10)), 1);
    return;
  }
  FAIL() << "no curve";
}

TEST_F(FormatsPage, TheFigureWithABandHasItsParts) {
  const auto drawn = run(files.content.at("banda.gra"));
  EXPECT_TRUE(output.requests.empty()) << output.request().text.bytes();
  const auto place = [&](const char* begin) {
    return std::ranges::find_if(drawn, [&](const std::string& line) { return line.starts_with(begin); });
  };
  EXPECT_LT(place("fill "), place("polyline "));
  EXPECT_NE(place("polyline "), drawn.end());
}

TEST_F(FormatsPage, TheGridIsDrawnAsContoursAndInSpace) {
  const GridReading read = parseGrid(files.content.at("sella.grd"));
  EXPECT_EQ(read.errors, "");
  EXPECT_EQ(read.grid.z(5, 2), 3.75);
  const auto drawn = run(files.content.at("sella.gra"));
  EXPECT_TRUE(output.requests.empty()) << output.request().text.bytes();
  EXPECT_TRUE(contains(drawn, "fill "));
}

TEST_F(FormatsPage, TheFileWithErrorsGivesItsList) {
  const PageExample list = of("errors")[0];
  EXPECT_EQ(errorsOf(files.content.at(list.name)), list.text);
}

}  // namespace
}  // namespace vk
