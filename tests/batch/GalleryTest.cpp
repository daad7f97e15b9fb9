#include <filesystem>
#include <sstream>

#include "batch/BatchRun.h"
#include "doubles/Places.h"

namespace vk {
namespace {

namespace fs = std::filesystem;

constexpr const char* kRedraw = ": if the change is meant, docs/gallery/make.sh draws the figures anew";

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

/// What people copy: the files that the commands read, without the pictures.
fs::path copyOfFigures() {
  const fs::path folder = fs::path(temporaryFile("x", "")).parent_path() / "figures";
  fs::create_directory(folder);
  for (const auto& file : fs::directory_iterator(keptFigures())) {
    if (file.path().extension() != ".png") fs::copy(file.path(), folder);
  }
  return folder;
}

TEST(Gallery, CommandsOfThePageMakeItsFigures) {
  const fs::path folder = copyOfFigures();
  const std::string begin = "cd '" + folder.string() + "'\nPATH='" + builtPath("batch") + "':$PATH\n";
  for (const std::string& commands : pageCommands()) {
    const BatchRun run = shell(begin + commands);
    EXPECT_EQ(run.exitCode, 0) << commands;
    EXPECT_EQ(run.errors, "") << commands;
  }
  int pictures = 0;
  for (const auto& file : fs::directory_iterator(folder)) {
    const std::string name = file.path().filename();
    EXPECT_TRUE(fileContent(file.path()) == fileContent(keptFigures() / name)) << name << kRedraw;
    pictures += file.path().extension() == ".png";
  }
  EXPECT_EQ(pictures, pageCommands().size()) << "each block makes one";
}

TEST(Gallery, ThePageShowsEachFigureBesideThatOfGnuplot) {
  const std::string page = galleryPage();
  int scripts = 0;
  for (const auto& file : fs::directory_iterator(keptFigures())) {
    const fs::path name = "figures" / file.path().filename();
    const bool ofPage = name.extension() == ".png" || name.extension() == ".gp";
    EXPECT_TRUE(!ofPage || page.find("(" + name.string() + ")") != page.npos) << name;
    if (name.extension() != ".gp") continue;
    ++scripts;
    const std::string stem = name.stem();
    EXPECT_TRUE(fs::exists(keptFigures() / (stem + ".png"))) << stem;
    EXPECT_TRUE(fs::exists(keptFigures() / (stem + "-gnuplot.png")))
        << stem << ": see docs/gallery/compare.sh";
  }
  EXPECT_EQ(scripts, pageCommands().size());
}

}  // namespace
}  // namespace vk
