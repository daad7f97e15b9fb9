#include <algorithm>
#include <filesystem>
#include <sstream>

#include "batch/BatchRun.h"
#include "doubles/Places.h"
#include "doubles/TemporaryFolder.h"

namespace vk {
namespace {

using ::testing::HasSubstr;

using Words = std::vector<std::string>;

/// What bash offers behind each of the lines, whose last words are to be completed.
std::vector<Words> completions(const std::vector<std::string>& lines) {
  const std::string folder = std::filesystem::path(temporaryFile("DATI.DAT", "")).parent_path();
  for (const char* name : {"dati.dat", "LIB.FCN", "A.GRA", "b.png", "note.txt", "un nome.DAT"})
    temporaryFile(name, "");
  std::filesystem::create_directory(folder + "/sotto");
  std::string script =
      "cd '" + folder + "'\nsource <('" + builtPath("batch/vor_kel_batch") + "' completion)\n";
  for (const std::string& line : lines) {
    script += "COMP_WORDS=(vor_kel_batch " + line +
              ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_vor_kel_batch\n" +
              "printf '%s|' \"${COMPREPLY[@]}\"\necho\n";
  }
  const std::string file = temporaryFile("script", script), out = temporaryFile("out", "");
  EXPECT_EQ(std::system(("env -i PATH=\"$PATH\" bash '" + file + "' > '" + out + "' 2>&1").c_str()), 0);
  std::vector<Words> offered;
  std::istringstream stream(fileContent(out));
  for (std::string line; std::getline(stream, line);) {
    Words words;
    std::istringstream items(line);
    for (std::string item; std::getline(items, item, '|');) {
      if (!item.empty()) words.push_back(item);
    }
    std::ranges::sort(words);
    offered.push_back(words);
  }
  return offered;
}

TEST(BatchCompletion, OffersWhatMayFollow) {
  struct Case {
    const char* line;
    Words offered;
  };
  const std::vector<Case> cases{
      {"''",
       {"catalogue", "check", "completion", "draw", "eval", "fit", "import", "propagate", "simulate",
        "transform"}},
      {"c", {"catalogue", "check", "completion"}},
      {"--", {"--help", "--quiet", "--version"}},
      {"--quiet dr", {"draw"}},
      {"fit ''", {"DATI.DAT", "dati.dat", "sotto", "un nome.DAT"}},
      {"fit d", {"dati.dat"}},
      {"fit dati.dat un", {"un nome.DAT"}},
      {"fit dati.dat --json", {"--json", "--json-lines"}},
      {"fit dati.dat --json ''", {"DATI.DAT", "dati.dat", "sotto", "un nome.DAT"}},
      {"fit --file ''", {"LIB.FCN", "sotto"}},
      {"fit --file = L", {"LIB.FCN"}},
      {"fit --file =", {"LIB.FCN", "sotto"}},
      {"fit --figure ''", {"b.png", "sotto"}},
      {"fit --band ''", {"68", "95"}},
      {"fit --catalogue 9,", {"9,1", "9,2", "9,3", "9,4", "9,5"}},
      {"fit --par ''", {}},
      {"fit dati.dat --x-errors e", {"effective"}},
      {"draw ''", {"A.GRA", "sotto"}},
      {"draw A.GRA -o ''", {"b.png", "sotto"}},
      {"draw A.GRA --format ''", {"eps", "pdf", "png", "svg"}},
      {"check ''", {"A.GRA", "DATI.DAT", "LIB.FCN", "dati.dat", "sotto", "un nome.DAT"}},
      {"import n", {"note.txt"}},
      {"import --decimal ''", {"punto", "virgola"}},
      {"eval ''", {}},
      {"eval --l", {"--list"}},
      {"catalogue --j", {"--json"}},
      {"nonsense ''", {}},
  };
  std::vector<std::string> lines;
  for (const Case& c : cases) lines.emplace_back(c.line);
  const std::vector<Words> offered = completions(lines);
  ASSERT_EQ(offered.size(), cases.size());
  for (std::size_t i = 0; i < cases.size(); ++i) EXPECT_EQ(offered[i], cases[i].offered) << cases[i].line;
}

/// The long names of the options in a help, each at the begin of its line.
Words optionsInHelp(const std::string& help) {
  Words names;
  std::istringstream lines(help);
  for (std::string line; std::getline(lines, line);) {
    const auto at = line.find("--");
    const bool own = at == 2 || (at == 5 && line[2] == '-');
    if (own) names.push_back(line.substr(at, line.find(' ', at) - at));
  }
  std::ranges::sort(names);
  return names;
}

TEST(BatchCompletion, OffersTheOptionsOfTheHelp) {
  const Words commands = completions({"''"}).front();
  ASSERT_FALSE(commands.empty());
  std::vector<std::string> lines{"-"};
  for (const std::string& command : commands) lines.push_back(command + " -");
  const std::vector<Words> offered = completions(lines);
  ASSERT_EQ(offered.size(), lines.size());
  EXPECT_EQ(offered.front(), optionsInHelp(batch("--help").output));
  for (std::size_t i = 0; i < commands.size(); ++i) {
    const std::string help = batch(commands[i] + " --help").output;
    EXPECT_FALSE(offered[i + 1].empty()) << commands[i];
    EXPECT_EQ(offered[i + 1], optionsInHelp(help)) << help;
  }
}

TEST(BatchCatalogue, ListsNumbersFormulasAndParameters) {
  const BatchRun run = batch("catalogue");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_THAT(run.output, HasSubstr("\n  g  Funzione                 Formula                  Parametri\n"));
  EXPECT_THAT(run.output, HasSubstr("\n  2  bx+c                     b*x+c                    b c\n"));
  EXPECT_THAT(run.output, HasSubstr("\n  4  \u221Au                       SQR(u)\n"));
}

}  // namespace
}  // namespace vk
