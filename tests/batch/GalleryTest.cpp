#include <algorithm>
#include <filesystem>
#include <set>
#include <sstream>

#include "batch/BatchRun.h"
#include "doubles/Places.h"
#include "doubles/TemporaryFolder.h"

namespace vk {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

constexpr const char* kRedraw = ": if the change is meant, docs/gallery/make.sh draws the figures anew";
const std::string kLink = "(figures/";

std::string galleryPage() {
  return fileContent(sourcePath("docs/gallery/README.md"));
}

fs::path keptFigures() {
  return sourcePath("docs/gallery/figures");
}

/// The commands of the page, each block one script.
std::vector<std::string> pageCommands() {
  std::istringstream page(galleryPage());
  std::vector<std::string> blocks;
  bool inside = false;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("```")) {
      inside = line == "```sh";
      if (inside) blocks.emplace_back();
    } else if (inside) {
      blocks.back() += line + "\n";
    }
  }
  return blocks;
}

/// What people copy: the files that a table of the page names before those that its command writes.
fs::path copyOfInputs() {
  const fs::path folder = fs::path(temporaryFile("x", "")).parent_path() / "figures";
  fs::create_directory(folder);
  std::istringstream page(galleryPage());
  for (std::string line; std::getline(page, line);) {
    if (!line.starts_with("| [")) continue;
    line.erase(std::min(line.find("it writes"), line.size()));
    for (std::size_t at = 0; (at = line.find(kLink, at)) != line.npos;) {
      at += kLink.size();
      fs::copy(keptFigures() / line.substr(at, line.find(')', at) - at), folder,
               fs::copy_options::overwrite_existing);
    }
  }
  return folder;
}

bool ofGnuplot(const std::string& name) {
  return name.ends_with(".gp") || name.ends_with("-gnuplot.png");
}

TEST(Gallery, CommandsOfThePageMakeItsFigures) {
  const fs::path folder = copyOfInputs();
  const std::string begin = "cd '" + folder.string() + "'\nPATH='" + builtPath("batch") + "':$PATH\n";
  for (const std::string& commands : pageCommands()) {
    const BatchRun run = shell(begin + commands);
    EXPECT_EQ(run.exitCode, 0) << commands;
    EXPECT_EQ(run.errors, "") << commands;
  }
  for (const auto& kept : fs::directory_iterator(keptFigures())) {
    const std::string name = kept.path().filename();
    if (ofGnuplot(name)) continue;
    EXPECT_TRUE(fileContent(folder / name) == fileContent(kept.path())) << name << kRedraw;
  }
}

TEST(Gallery, EachFigureStandsBesideThatOfGnuplot) {
  const std::string page = galleryPage();
  std::set<std::string> pictures, others;
  for (const auto& kept : fs::directory_iterator(keptFigures())) {
    const std::string name = kept.path().filename();
    EXPECT_THAT(page, HasSubstr(kLink + name + ")"));
    if (!name.ends_with(".png")) continue;
    if (ofGnuplot(name)) {
      others.insert(name);
    } else {
      pictures.insert(kept.path().stem().string() + "-gnuplot.png");
    }
  }
  EXPECT_EQ(pictures, others) << "see docs/gallery/compare.sh";
  EXPECT_EQ(pictures.size(), pageCommands().size());
}

}  // namespace
}  // namespace vk
