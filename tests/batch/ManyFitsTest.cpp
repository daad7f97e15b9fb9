#include <gmock/gmock.h>
#include <signal.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "batch/BatchRun.h"
#include "doubles/Places.h"
#include "doubles/TemporaryFolder.h"

namespace vk {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* kModel = " --catalogue 1,2 --par b=1 --par c=0 ";
constexpr const char* kHeader =
    "file,status,points,b,b_error,b_error_linearised,c,c_error,c_error_linearised,chi_square,degrees_of_"
    "freedom,"
    "reduced_chi_square,confidence_percent,reason\n";
constexpr const char* kMissing = ",refused,,,,,,,,,,,,Impossibile trovare il file\n";

std::string lineFile(const std::string& name) {
  return temporaryFile(name, "t\r\ns\r\n 5\r\n1 3.1 .1\r\n2 5.0 .1\r\n3 6.9 .1\r\n4 9.1 .1\r\n5 11.0 .1\r\n");
}

std::string badFile(const std::string& name) {
  return temporaryFile(name, "x\r\ny\r\n2\r\n1 2 tre\r\n1 2 3\r\n1 2 3\r\n");
}

/// Data whose chi-square is beyond the range of numbers.
std::string failingFile(const std::string& name) {
  return temporaryFile(name, "x\r\ny\r\n2\r\n1 1E300 1E-300\r\n2 1E300 1E-300\r\n");
}

std::string missingFile() {
  return std::filesystem::path(temporaryFile("x", "")).parent_path() / "NONE.DAT";
}

/// The first cells of the lines.
std::vector<std::string> cells(const std::string& table, std::size_t count) {
  std::vector<std::string> starts;
  std::istringstream lines(table);
  for (std::string line; std::getline(lines, line);) {
    std::size_t end = 0;
    for (std::size_t i = 0; i < count; ++i) end = line.find(',', end + 1);
    starts.push_back(line.substr(0, end));
  }
  return starts;
}

TEST(BatchManyFits, GiveALineOfValuesForEachFileAndThoseOfTheObject) {
  const std::string a = lineFile("A.DAT");
  const BatchRun run = batch("fit " + a + kModel + "--csv");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.errors, "");
  ASSERT_THAT(run.output, StartsWith(kHeader + a + ",completed,5,"));
  EXPECT_THAT(run.output, EndsWith(",\n"));
  const std::string object = batch("fit " + a + kModel + "--json").output;
  std::istringstream names(kHeader), values(run.output.substr(run.output.find('\n') + 1));
  std::string name, value;
  int compared = 0;
  while (std::getline(names, name, ',') && std::getline(values, value, ',')) {
    const std::string key = name.ends_with("_error_linearised") ? "error_linearised"
                            : name.ends_with("_error")          ? "error"
                            : name == "b" || name == "c"        ? "value"
                                                                : name;
    if (name == "file" || name == "status" || name == "reason\n") continue;
    EXPECT_THAT(object, HasSubstr("\"" + key + "\": " + value + ",")) << name;
    ++compared;
  }
  EXPECT_EQ(compared, 11);
}

TEST(BatchManyFits, KeepTheOrderAndTellFailuresInTheirLines) {
  const std::string a = lineFile("A.DAT"), none = missingFile(), bad = badFile("BAD.DAT"),
                    fails = failingFile("F.DAT");
  for (const char* jobs : {"1", "2", "1000"}) {
    const BatchRun run =
        batch("fit " + a + " " + none + " " + bad + " " + fails + " " + a + kModel + "--csv --jobs " + jobs);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(cells(run.output, 2), ElementsAre("file,status", a + ",completed", none + ",refused",
                                                  bad + ",refused", fails + ",failed", a + ",completed"));
    EXPECT_THAT(run.output, HasSubstr(none + kMissing));
    EXPECT_THAT(run.output,
                HasSubstr(bad + ",refused,,,,,,,,,,,,***ERR. Linea 4; Dato 3: tre Dato NON numerico\n"));
    EXPECT_THAT(run.errors, StartsWith(none + ": Impossibile trovare il file\n" + bad +
                                       ": ***ERR. Linea 4; Dato 3: tre\n" + bad + ":    Dato NON numerico\n" +
                                       fails + ": "));
    EXPECT_THAT(run.errors, HasSubstr(fails + ": Adattamento non riuscito: "));
  }
}

TEST(BatchManyFits, TellHowFarTheyAreWhereAPersonLooksOn) {
  const std::string a = lineFile("A.DAT"), out = temporaryFile("TABLE", "");
  const BatchRun run =
      shell("script -qec \"VOR fit " + a + " " + a + kModel + "--csv > '" + out + "'\" /dev/null");
  EXPECT_EQ(run.exitCode, 0);
  const std::string away = "\r\x1B[K";
  EXPECT_EQ(run.output, away + "\r1/2" + away + "\r2/2" + away);
}

TEST(BatchManyFits, AFileThatMayNotBeReadStopsNoOther) {
  const std::string a = lineFile("A.DAT");
  const std::string folder = std::filesystem::path(a).parent_path();
  const BatchRun run = batch("fit " + folder + " " + a + kModel + "--csv");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_THAT(cells(run.output, 2), ElementsAre("file,status", folder + ",refused", a + ",completed"));
}

TEST(BatchManyFits, QuoteCellsThatHoldACommaOrAQuote) {
  const std::string odd = lineFile("a,\"b.DAT");
  const BatchRun run = batch("fit '" + odd + "'" + kModel + "--csv");
  const std::string folder = std::filesystem::path(odd).parent_path();
  EXPECT_THAT(run.output, HasSubstr("\n\"" + folder + "/a,\"\"b.DAT\",completed,5,"));
}

TEST(BatchManyFits, HaveColumnsForAllThatWasAskedFor) {
  const std::string words = std::string(kModel) + "--csv --refine --profile --derive 'T=b*c'";
  const BatchRun run = batch("fit " + lineFile("A.DAT") + " " + missingFile() + words);
  const std::string header = run.output.substr(0, run.output.find('\n'));
  EXPECT_THAT(header, HasSubstr(",b_refined,b_refined_error,b_refined_error_scaled,"));
  EXPECT_THAT(header,
              EndsWith(",refined_chi_square,refined_confidence_percent,refined_stop_reason,b_low_68.27,"
                       "b_high_68.27,b_low_95,b_high_95,c_low_68.27,c_high_68.27,c_low_95,c_high_95,T,"
                       "T_error,T_error_scaled,reason"));
  std::istringstream lines(run.output);
  for (std::string line; std::getline(lines, line);)
    EXPECT_EQ(std::ranges::count(line, ','), std::ranges::count(header, ',')) << line;
}

TEST(BatchManyFits, HaveNoErrorsOfConstantParametersAndOfNoMinimum) {
  const BatchRun run =
      batch("fit " + failingFile("F.DAT") + " --catalogue 1,2 --par b=1 --fixed c=0 --csv --refine");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_THAT(run.output, EndsWith(",failed,2,1,,,0,,,,1,,,,,,0,,,,,failed,"
                                   "il residuo dell'ultimo punto NON e` calcolabile\n"));
}

TEST(BatchManyFits, HaveNoScaledErrorsOfQuantitiesWithoutAMinimum) {
  const BatchRun run = batch("fit " + lineFile("A.DAT") + kModel + "--csv --derive 'Q=2*b'");
  EXPECT_THAT(run.output, HasSubstr(",confidence_percent,Q,Q_error,reason\n"));
}

TEST(BatchManyFits, PrintScreensBehindTheNamesOfTheFiles) {
  const std::string a = lineFile("A.DAT"), b = lineFile("B.DAT");
  const std::string screen = batch("fit " + a + kModel).output;
  const BatchRun run = batch("fit " + a + " " + missingFile() + " " + b + kModel);
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.output, a + ":\n" + screen + b + ":\n" + screen);
}

TEST(BatchManyFits, RefuseWhatMakesNoSense) {
  const std::string a = lineFile("A.DAT");
  const auto errors = [&](const std::string& words) {
    const BatchRun run = batch("fit " + a + kModel + words);
    EXPECT_EQ(run.exitCode, 2) << words;
    EXPECT_EQ(run.output, "") << words;
    return run.errors;
  };
  for (const char* jobs : {"0", "-1", "1001"})
    EXPECT_EQ(errors(std::string("--csv --jobs ") + jobs), "--jobs: si attende un numero da 1 a 1000\n");
  EXPECT_EQ(errors(a + " --json"), "--json: per piu` di un file serve --json-lines\n");
  for (const char* figure :
       {"--save-gra f.gra", "--differences d.dat", "--save-gra f.gra --band 68", "--band 68"}) {
    const std::string told = "Grafici e differenze: solo di un file alla volta, senza --csv e --json-lines\n";
    EXPECT_EQ(errors(a + " " + figure), told);
    EXPECT_EQ(errors(std::string("--csv ") + figure), told);
  }
  EXPECT_THAT(errors("--csv --json-lines"), HasSubstr("esclude"));
  EXPECT_THAT(errors(a + " --csv --par d=1"), HasSubstr("La funzione non ha il parametro d"));
}

TEST(BatchManyFits, AnOutputThatNobodyReadsEndsTheRunWithoutAWord) {
  const std::string a = lineFile("A.DAT"), err = temporaryFile("err", "");
  std::string files;  // whose lines are more than a pipe holds
  for (int i = 0; i < 1000; ++i) files += " " + a;
  const std::string command = "bash -c \"'" + builtPath("batch/vor_kel_batch") + "' fit" + files + kModel +
                              "--csv --jobs 2 2> '" + err +
                              "' | head -n 1 > /dev/null; exit \\${PIPESTATUS[0]}\"";
  EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 128 + SIGPIPE);
  EXPECT_EQ(fileContent(err), "");
}

TEST(BatchManyFits, AFullDiskBehindTheOutputEndsTheRun) {
  const BatchRun run = batch("fit " + lineFile("A.DAT") + kModel + "--csv", "", "/dev/full");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors, "fit: Disco pieno\n");
}

TEST(BatchManyFits, AProcessThatIsKilledIsAFailureOfItsFileAlone) {
  const std::string folder = std::filesystem::path(lineFile("A.DAT")).parent_path();
  const std::string out = temporaryFile("out", ""), err = temporaryFile("err", "");
  const std::string command =
      "cd '" + folder + "' && rm -f WAITS.DAT && mkfifo WAITS.DAT && { '" + builtPath("batch/vor_kel_batch") +
      "' fit A.DAT WAITS.DAT A.DAT" + kModel + "--csv > '" + out + "' 2> '" + err +
      "' & id=$!; until grep -q A.DAT '" + out +
      "'; do sleep 0.05; done; sleep 0.2; kill -KILL $(cat /proc/$id/task/$id/children); "
      "wait $id; }";
  EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 1);
  EXPECT_EQ(fileContent(err), "WAITS.DAT: processo terminato dal segnale 9\n");
  EXPECT_THAT(cells(fileContent(out), 2),
              ElementsAre("file,status", "A.DAT,completed", "WAITS.DAT,broken_off", "A.DAT,completed"));
}

// A shell starts what is to run in the background deaf to interrupts.
TEST(BatchManyFits, AnInterruptLeavesWholeLines) {
  std::string files;
  for (int i = 0; i < 3000; ++i) files += " A.DAT";
  const std::string folder = std::filesystem::path(lineFile("A.DAT")).parent_path();
  const std::string out = temporaryFile("out", "");
  const std::string command = "cd '" + folder + "' && { env --default-signal=INT '" +
                              builtPath("batch/vor_kel_batch") + "' fit" + files + kModel +
                              "--csv --jobs 2 > '" + out + "' & id=$!; until grep -q A.DAT '" + out +
                              "'; do sleep 0.02; done; kill -INT $id; wait $id; }";
  EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 128 + SIGINT);
  const std::string table = fileContent(out);
  EXPECT_THAT(table, StartsWith(kHeader));
  EXPECT_THAT(table, EndsWith(",\n"));
  EXPECT_LT(std::ranges::count(table, '\n'), 3001);
  std::istringstream lines(table);
  for (std::string line; std::getline(lines, line);) EXPECT_EQ(std::ranges::count(line, ','), 13) << line;
}

}  // namespace
}  // namespace vk
