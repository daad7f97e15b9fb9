#include <sstream>

#include "batch/BatchRun.h"
#include "doubles/TemporaryFolder.h"

namespace vk {
namespace {

using ::testing::HasSubstr;

/// The text with "#" for the name of a file where a line begins or ends with it.
std::string withoutName(const std::string& text, const std::string& name) {
  std::string result;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    const bool named = line.starts_with(name + ":") || line.starts_with(name + ",");
    const bool ends = line.ends_with(" " + name);
    result += (named  ? "#" + line.substr(name.size())
               : ends ? line.substr(0, line.size() - name.size()) + "#"
                      : line) +
              "\n";
  }
  return result;
}

// They give what the file itself gives, but for its name.
TEST(BatchStreams, EveryFileThatIsReadMayBeStandardInputOrAPipe) {
  struct Case {
    const char *words, *file;
  };
  const std::string fit = temporaryFile(
      "R.JSON", batch("fit examples/ohm.dat --catalogue 1,2 --par b=1 --par c=0 --json").output);
  for (const Case& c : {
           Case{"fit FILE --catalogue 1,2 --par b=1 --par c=0", "examples/ohm.dat"},
           Case{"fit FILE examples/decay.dat --catalogue 1,2 --par b=1 --par c=0 --csv", "examples/ohm.dat"},
           Case{"fit examples/decay.dat --file FILE --entry 1 --par A=400 --par k=.2 --par b=5",
                "examples/lab.fcn"},
           Case{"transform FILE --y '2*y'", "examples/ohm.dat"},
           Case{"check FILE", "examples/ohm.dat"},
           Case{"check FILE", "examples/lab.fcn"},
           Case{"check FILE", "tests/grafile/errors/several.gra"},
           Case{"import FILE --quiet", "tests/files/it-csv-utf8.csv"},
           Case{"propagate --function 'b*2+c' --from-fit FILE --seed 1", fit.c_str()},
           Case{"simulate --file FILE --entry 1 --par A=400 --par k=.2 --par b=5 --seed 1",
                "examples/lab.fcn"},
       }) {
    const auto run = [&](const std::string& name, const std::string& feed) {
      std::string words = c.words;
      words.replace(words.find("FILE"), 4, name);
      BatchRun result = shell("VOR " + words + feed);
      const std::string shown = name.starts_with("<(") ? "/dev/fd/63" : name;
      for (std::string* text : {&result.output, &result.errors}) *text = withoutName(*text, shown);
      return result;
    };
    const std::string file = c.file;
    const BatchRun plain = run(file, "");
    for (const BatchRun& other : {run("-", " < " + file), run("<(cat " + file + ")", "")}) {
      EXPECT_EQ(other.exitCode, plain.exitCode) << c.words;
      EXPECT_EQ(other.output, plain.output) << c.words;
      EXPECT_EQ(other.errors, plain.errors) << c.words;
    }
  }
}

TEST(BatchStreams, StandardInputIsReadFromWhereItStands) {
  EXPECT_EQ(shell("{ read -r; VOR transform -; } < <(echo altro; cat examples/ohm.dat)").output,
            shell("VOR transform examples/ohm.dat").output);
}

// The file has standard output for itself; what is printed besides goes to the other stream.
TEST(BatchStreams, EveryFileThatIsWrittenMayBeStandardOutput) {
  const std::string out = temporaryFile("OUT.DAT", "");
  for (const std::string& words : {
           std::string("simulate --catalogue 1,2 --par b=2 --par c=1 --seed 1 -o FILE"),
           std::string("simulate --catalogue 1,2 --par b=2 --par c=1 --seed 1 --json -o FILE"),
           std::string("transform examples/ohm.dat --y '2*y' -o FILE"),
           std::string("transform examples/ohm.dat --json -o FILE"),
           std::string("import tests/files/it-csv-utf8.csv -o FILE"),
           std::string("propagate --function 'a' --par a=1,.1 --seed 1 --histogram FILE"),
           std::string("fit examples/ohm.dat --catalogue 1,2 --par b=1 --par c=0 --save-gra FILE"),
           std::string("fit examples/ohm.dat --catalogue 1,2 --par b=1 --par c=0 --differences FILE"),
       }) {
    const auto named = [&](const std::string& name) {
      std::string result = words;
      return result.replace(result.find("FILE"), 4, name);
    };
    const BatchRun file = batch(named("'" + out + "'")), stream = batch(named("-")),
                   quiet = batch(named("- --quiet"));
    EXPECT_EQ(stream.exitCode, file.exitCode) << words;
    EXPECT_EQ(stream.output, fileContent(out)) << words;
    EXPECT_THAT(stream.errors, HasSubstr(file.output)) << words;
    EXPECT_EQ(quiet.output, stream.output) << words;
    EXPECT_EQ(quiet.errors, "") << words;
  }
}

TEST(BatchStreams, AFigureOnOneNamesTheFilesBesideIt) {
  const std::string figure = temporaryFile("F.GRA", "");
  const std::string folder = figure.substr(0, figure.rfind('/'));
  const BatchRun run =
      shell("ohm=$PWD/examples/ohm.dat; cd '" + folder +
            "'; VOR fit $ohm --catalogue 1,2 --par b=40 --par c=0 --style modern --residuals --save-gra -");
  EXPECT_THAT(run.output, HasSubstr("\\DATI(grafico_scarti.dat)\r\n"));
  EXPECT_NE(fileContent(folder + "/grafico_scarti.dat"), "");
}

TEST(BatchStreams, CommandsWorkInAPipe) {
  const BatchRun run = shell(
      "VOR simulate --catalogue 1,2 --par b=2 --par c=1 --seed 1 -o - --quiet | VOR transform - --y '2*y' -o "
      "- --quiet | "
      "VOR fit - --catalogue 1,2 --par b=1 --par c=0 --csv");
  EXPECT_EQ(run.errors, "");
  EXPECT_THAT(run.output, HasSubstr("\n-,completed,11,"));
}

TEST(BatchStreams, AStreamServesOneFile) {
  const BatchRun read = batch("fit - --file - --entry 1 --par A=1");
  EXPECT_EQ(read.exitCode, 2);
  EXPECT_EQ(read.errors, "-: un solo file si legge dall'ingresso standard\n");
  const BatchRun written =
      batch("fit examples/ohm.dat --catalogue 1,2 --par b=1 --par c=0 --save-gra - --differences -");
  EXPECT_EQ(written.exitCode, 2);
  EXPECT_EQ(written.output, "");
  EXPECT_EQ(written.errors, "-: un solo file si scrive sull'uscita standard\n");
}

TEST(BatchStreams, WhatIsWrongWithAStreamIsTold) {
  struct Case {
    const char *line, *told;
    int exitCode;
  };
  for (const Case& c : {
           Case{"VOR transform examples/ohm.dat -o - > /dev/full", "-: Disco pieno\n", 2},
           Case{"VOR transform examples/ohm.dat -o - >&-", "-: Errore di I/O della periferica\n", 2},
           Case{"VOR transform examples/ohm.dat --json -o - > /dev/null 2>&-", "", 0},
           Case{"VOR transform - <&-", "-: Errore di I/O della periferica\n", 2},
           Case{"VOR transform - < tests", "-: e` una cartella\n", 2},
           Case{"VOR check - < /dev/null", "-: il file contiene errori\n", 2},
           Case{"set -o pipefail; (sleep .05; VOR transform examples/ohm.dat -o -) | true", "", 141},
       }) {
    const BatchRun run = shell(c.line);
    EXPECT_EQ(run.errors, c.told) << c.line;
    EXPECT_EQ(run.exitCode, c.exitCode) << c.line;
  }
}

}  // namespace
}  // namespace vk
