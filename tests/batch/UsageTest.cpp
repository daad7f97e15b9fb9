#include <fstream>

#include "batch/BatchRun.h"
#include "doubles/Places.h"
#include "doubles/TemporaryFolder.h"

namespace vk {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;

constexpr const char* kHelpLine = "\nL'opzione --help elenca comandi e argomenti.\n";

/// The version of the project where it is set.
std::string projectVersion() {
  std::ifstream lists(sourcePath("CMakeLists.txt"));
  for (std::string word; lists >> word;) {
    if (word == "VERSION" && lists >> word && word.find("LANGUAGES") == word.npos && word != "3.25)")
      return word;
  }
  return {};
}

TEST(BatchUsage, TellsItsVersion) {
  EXPECT_FALSE(projectVersion().empty());
  for (const char* words : {"--version", "fit --version", "eval --version"})
    EXPECT_EQ(batch(words).output, "vor_kel_batch " + projectVersion() + "\n") << words;
}

TEST(BatchUsage, TheShortOptionHelpsToo) {
  for (const std::string command : {"", "fit ", "draw ", "eval "}) {
    const BatchRun run = batch(command + "-h");
    EXPECT_EQ(run.exitCode, 0) << command;
    EXPECT_EQ(run.output, batch(command + "--help").output) << command;
  }
  EXPECT_EQ(batch("eval -h h=3").errors, batch("eval -- -h h=3").errors);
}

TEST(BatchUsage, UnknownWordsAreNamedWithTheNearestKnownOne) {
  struct Case {
    const char *words, *told;
  };
  for (const Case& c : {
           Case{"nonsense", "Comando sconosciuto: nonsense"},
           Case{"improt A.CSV", "Comando sconosciuto: improt (forse import)"},
           Case{"FIT A.DAT", "Comando sconosciuto: FIT (forse fit)"},
           Case{"--verison", "Opzione sconosciuta: --verison (forse --version)"},
           Case{"--verison fit", "Opzione sconosciuta: --verison (forse --version)"},
           Case{"fit --jsno", "Opzione sconosciuta: --jsno (forse --json)"},
           Case{"fit A.DAT --catalog=1,2", "Opzione sconosciuta: --catalog (forse --catalogue)"},
           Case{"draw A.GRA --ouptut A.PNG", "Opzione sconosciuta: --ouptut (forse --output)"},
           Case{"simulate --frobnicate", "Opzione sconosciuta: --frobnicate"},
           Case{"check -z A.DAT", "Opzione sconosciuta: -z"},
           Case{"check '--\x1B[2J' A.DAT", "Opzione sconosciuta: --\u2190[2J"},
           Case{"check A.DAT B.DAT", "Argomento sconosciuto: B.DAT"},
           Case{"check A.DAT -", "Argomento sconosciuto: -"},
       }) {
    const BatchRun run = batch(c.words);
    EXPECT_EQ(run.exitCode, 2) << c.words;
    EXPECT_EQ(run.output, "") << c.words;
    EXPECT_EQ(run.errors, c.told + std::string(kHelpLine));
  }
}

TEST(BatchQuiet, LeavesOnlyErrors) {
  const std::string counts = "'" + temporaryFile("COUNT.DAT", "t\nV\n7\n1 2 .1\n3 4 .1\n5 6.5 .1\n") + "' ";
  const std::string table = "'" + temporaryFile("T.CSV", "t;V\n1,5;2,5\n?\n3;4\n") + "' ";
  const std::string odd = "'" + temporaryFile("ODD.DAT", "t\nV\n2\n1 2 .1\n3 4 0\n") + "' ";
  const std::string line = "--catalogue 1,2 --par b=1 --par c=0 ";
  const std::string out = "-o '" + temporaryFile("OUT.DAT", "") + "' ";
  for (const std::string& words : {
           "fit " + counts + line,
           "fit " + counts + counts + line + "--jobs 2 --csv ",
           "import " + table,
           "check " + odd,
           "transform " + counts + "--y 'y/3' " + out,
       }) {
    const BatchRun told = batch(words), quiet = batch(words + "--quiet"), before = batch("--quiet " + words);
    EXPECT_NE(told.errors, "") << words;
    EXPECT_EQ(quiet.errors, "") << words;
    EXPECT_EQ(before.errors, "") << words;
    EXPECT_EQ(quiet.output, told.output) << words;
    EXPECT_EQ(quiet.exitCode, told.exitCode) << words;
  }
  struct Case {
    std::string words;
    const char* told;
  };
  for (const Case& c : {
           Case{"fit missing.dat " + line, "missing.dat: Impossibile trovare il file\n"},
           Case{"fit missing.dat " + counts + line + "--csv ", "missing.dat: Impossibile trovare il file\n"},
           Case{"eval 'LOG(-1)' ", "Errori nel Calcolo della Funzione\n"},
           Case{"transform " + counts + "--y 'LOG(x-2)' ",
                "transform: formula di y NON calcolabile nelle righe 1\n"},
       }) {
    EXPECT_EQ(batch(c.words + "--quiet").errors, c.told);
  }
}

TEST(BatchUsage, AFunctionThatTheFileDoesNotHaveIsRefused) {
  for (const char* entry : {"0", "-1", "4"}) {
    const BatchRun run =
        batch(std::string("fit examples/ohm.dat --file examples/lab.fcn --par a=1 --entry ") + entry);
    EXPECT_EQ(run.exitCode, 2) << entry;
    EXPECT_EQ(run.output, "") << entry;
    EXPECT_EQ(run.errors, "--entry: il file examples/lab.fcn contiene le funzioni da 1 a 3\n") << entry;
  }
}

TEST(BatchUsage, AReaderThatHasGoneEndsTheProgramWithoutAWord) {
  const std::string err = temporaryFile("err", "");
  // Whoever ignores the signal hands that down to the program.
  const std::string command = "bash -c \"trap '' PIPE; { sleep 0.05; '" + builtPath("batch/vor_kel_batch") +
                              "' --help 2> '" + err + "'; } | true\"";
  EXPECT_EQ(std::system(command.c_str()), 0);
  EXPECT_EQ(fileContent(err), "");
}

}  // namespace
}  // namespace vk
