#include <filesystem>

#include "batch/BatchRun.h"
#include "doubles/Places.h"
#include "doubles/TemporaryFolder.h"

namespace vk {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* kTable = "t (s);V;dV\n0,5;1,5;0,1\n1,5;2,5;0,1\n2,5;4;0,2\n";
constexpr const char* kAsDataFile =
    "t (s)\r\nV\r\n 3\r\n"
    "  5.00000E-01   1.50000E+00   1.00000E-01 \r\n"
    "  1.50000E+00   2.50000E+00   1.00000E-01 \r\n"
    "  2.50000E+00   4.00000E+00   2.00000E-01 \r\n";

std::string file(const std::string& content, const std::string& name = "IN.csv") {
  return "'" + temporaryFile(name, content) + "' ";
}

/// The points that a run prints, without the lines above them.
std::string pointsOf(const BatchRun& run) {
  std::string text = run.output;
  for (int line = 0; line < 3; ++line) text.erase(0, text.find('\n') + 1);
  return text;
}

TEST(BatchImport, WritesADataFileAndSaysWhatItTook) {
  const std::string in = temporaryFile("IN.csv", kTable), out = temporaryFile("OUT.DAT", "");
  const BatchRun run = batch("import '" + in + "' -o '" + out + "'");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(run.errors,
            in + ": ASCII, separatore ';', virgola decimale, 1 riga di intestazione, colonne 1, 2 e 3, "
                 "3 punti\n");
  EXPECT_EQ(fileContent(out), kAsDataFile);
  EXPECT_EQ(batch("check '" + out + "'").exitCode, 0);
}

TEST(BatchImport, PrintsTheDataWithoutAName) {
  const BatchRun run = batch("import " + file(kTable));
  EXPECT_THAT(run.output, StartsWith("t (s)\nV\n 3\n  5.00000E-01 "));
  EXPECT_THAT(run.errors, HasSubstr("separatore ';'"));
  EXPECT_EQ(batch("import /dev/stdin", temporaryFile("IN.csv", kTable)).output, run.output);
}

TEST(BatchImport, PreviewShowsTenPointsAndWritesNothing) {
  std::string table = "x,y\n";
  for (int i = 1; i <= 20; ++i) table += std::to_string(i) + "," + std::to_string(2 * i) + "\n";
  const std::string out = temporaryFile("OUT.DAT", "vecchio");
  const BatchRun run = batch("import --preview " + file(table) + "-o '" + out + "'");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_THAT(run.output, StartsWith("x\ny\n 20\n"));
  EXPECT_THAT(run.output, EndsWith("\n  1.00000E+01   2.00000E+01   1.00000E+00 \n"));
  EXPECT_THAT(run.errors, EndsWith("20 punti; errori assenti: dy = 1\n"));
  EXPECT_EQ(fileContent(out), "vecchio");
}

TEST(BatchImport, ADataFileIsCopiedAsItIs) {
  const std::string text = "% a remark\r\nx\r\n\xE6m\r\n7\r\n1 2 .1 \r\n3   4 .2";
  const std::string out = temporaryFile("OUT.DAT", "");
  const BatchRun run = batch("import " + file(text) + "-o '" + out + "'");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(fileContent(out), text);
  EXPECT_THAT(run.errors, EndsWith(": file dati, 2 punti\n"));
  EXPECT_EQ(pointsOf(batch("import --dy .5 " + file(text))),
            "  1.00000E+00   2.00000E+00   5.00000E-01 \n  3.00000E+00   4.00000E+00   5.00000E-01 \n");
}

TEST(BatchImport, ErrorsOfYMayBeGiven) {
  const std::string table = file("1;4\n2;9\n3;16\n");
  const auto errors = [&](const std::string& words) {
    const BatchRun run = batch("import " + words + " " + table);
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_EQ(run.errors.find("errori assenti"), std::string::npos);
    std::string found;
    for (std::size_t at = run.output.find(" 3\n") + 3; at < run.output.size(); at += 43) {
      found += run.output.substr(at + 30, 11) + ' ';
    }
    return found;
  };
  EXPECT_EQ(errors("--dy .25"), "2.50000E-01 2.50000E-01 2.50000E-01 ");
  EXPECT_EQ(errors("--dy 50%"), "2.00000E+00 4.50000E+00 8.00000E+00 ");
  EXPECT_EQ(errors("--dy sqrt"), "2.00000E+00 3.00000E+00 4.00000E+00 ");
  const BatchRun negative = batch("import --dy sqrt " + file("1;-4\n2;9\n"));
  EXPECT_EQ(negative.exitCode, 2);
  EXPECT_THAT(negative.errors, EndsWith(": --dy sqrt: ci sono y negativi\n"));
}

TEST(BatchImport, EveryGuessCanBeOverruled) {
  const std::string five = file("n;t;V;dt;dV\n1;1,234;2,5;0,1;0,2\n2;1,5;3,5;0,1;0,2\n");
  for (const char* columns : {"2,3,5", "t,V,dV", "T,3,dv"}) {
    const BatchRun run = batch(std::string("import --columns ") + columns + " " + five);
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_THAT(run.output, StartsWith("t\nV\n 2\n  1.23400E+00   2.50000E+00   2.00000E-01 \n"));
  }
  EXPECT_THAT(batch("import --columns t,V,dt,dV " + five).output, StartsWith("t\nV\n 2 1\n"));
  EXPECT_THAT(batch("import --columns t,Q " + five).errors,
              EndsWith(": --columns: non c'e` una colonna \"Q\"; colonne di numeri: 1 (n), 2 (t), 3 (V), 4 "
                       "(dt), 5 (dV)\n"));
  for (const char* columns : {"ETÀ,δV", "età,Δv"}) {
    EXPECT_THAT(
        batch(std::string("import --columns ") + columns + " " + file("n;Età;ΔV (V)\n1;2;3\n4;5;6\n")).output,
        StartsWith("Età\n"));
  }
  // Names that differ by their case only are two.
  const std::string cases = file("t;T;V\n1;2;3\n4;5;6\n");
  EXPECT_THAT(batch("import --columns T,V " + cases).output, StartsWith("T\nV\n 2\n  2.00000E+00 "));
  EXPECT_THAT(batch("import --columns t,v " + cases).output, StartsWith("t\nV\n 2\n  1.00000E+00 "));
  const std::string open = file("1,250;3,125\n1,500;4,250\n");
  EXPECT_THAT(batch("import --decimal , " + open).output, HasSubstr(" 2\n  1.25000E+00   3.12500E+00 "));
  EXPECT_THAT(batch("import --decimal . " + open).output, HasSubstr(" 2\n  1.25000E+03   3.12500E+03 "));
  const std::string pairs = file("1,2,3,4\n2,3,4,5\n");
  EXPECT_THAT(batch("import --decimal virgola " + pairs).output,
              HasSubstr(" 2\n  1.20000E+00   3.40000E+00 "));
  EXPECT_THAT(batch("import --decimal punto " + pairs).output,
              HasSubstr(" 2 1\n  1.00000E+00   2.00000E+00   3.00000E+00 "));
  EXPECT_THAT(batch("import --header 1 " + file("1;2\n3;4\n5;6\n")).output, HasSubstr(" 2\n  3.00000E+00 "));
  EXPECT_THAT(batch("import --encoding cp437 " + file("Et\x85;y\n1;2\n3;4\n")).output,
              StartsWith("Età\ny\n"));
  EXPECT_THAT(batch("import --separator spazio " + file("1 2\t3\n4 5\t6\n")).output,
              HasSubstr("1.00000E+00   2.00"));
}

TEST(BatchImport, BadWordsAreBadInput) {
  for (const char* words : {"", "--separator x", "--decimal -", "--encoding klingon", "--dy due", "--dy -1",
                            "--dy 0%", "--every 0", "--average -3", "--every due", "--columns 1",
                            "--columns 1,2,3,4,5", "--columns 1,9", "--separator tab"}) {
    const std::string table = *words == '\0' ? "" : file(kTable);
    const BatchRun run = batch(std::string("import ") + words + " " + table);
    EXPECT_EQ(run.exitCode, 2) << words;
    EXPECT_FALSE(run.errors.empty()) << words;
    EXPECT_EQ(run.output, "") << words;
  }
}

TEST(BatchImport, LinesThatAreLeftOutAreTold) {
  const std::string in = temporaryFile("IN.csv", "x;y\n1;2,5\n\n2;n/a\n3;3,5\nMedia;3\n4;;\n");
  EXPECT_EQ(batch("import '" + in + "'").errors,
            in + ": riga 4 tralasciata: \"n/a\" non e` un numero\n" + in +
                ": riga 6 tralasciata: \"Media\" non e` un numero\n" + in +
                ": riga 7 tralasciata: manca la colonna 2\n" + in +
                ": ASCII, separatore ';', virgola decimale, 1 riga di intestazione, colonne 1 e 2, 2 punti, "
                "3 righe tralasciate; errori assenti: dy = 1\n");
}

TEST(BatchImport, OfManyLinesThatAreLeftOutTheFirstAreTold) {
  std::string table = "x;y\n1;1\n2;2\n3;3\n", told;
  const std::string in = temporaryFile("IN.csv", "");
  for (int line = 5; line < 30; ++line) {
    table += "4;q\n";
    if (line < 25) told += in + ": riga " + std::to_string(line) + " tralasciata: \"q\" non e` un numero\n";
  }
  temporaryFile("IN.csv", table);
  EXPECT_THAT(batch("import '" + in + "'").errors,
              ::testing::StartsWith(told + in + ": altre righe tralasciate: 5\n" + in + ": ASCII"));
}

TEST(BatchImport, SeveralFilesGoIntoAFolder) {
  const std::string folder = std::filesystem::path(temporaryFile("x", "")).parent_path().string();
  const std::string files = file(kTable, "a.csv") + file("letter\n", "b.txt") + file(kTable, "c");
  const BatchRun run = batch("import " + files + "'" + folder + "/none.csv' -o '" + folder + "'");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(fileContent(folder + "/a.DAT"), kAsDataFile);
  EXPECT_EQ(fileContent(folder + "/c.DAT"), kAsDataFile);
  EXPECT_FALSE(std::filesystem::exists(folder + "/b.DAT"));
  EXPECT_THAT(run.errors, HasSubstr("/b.txt: nessuna riga contiene almeno due numeri\n"));
  EXPECT_THAT(run.errors, EndsWith("/none.csv: Impossibile trovare il file\n"));
  EXPECT_EQ(batch("import " + file(kTable, "d.csv") + "-o '" + folder + "'").exitCode, 0);
  EXPECT_EQ(fileContent(folder + "/d.DAT"), kAsDataFile);
}

TEST(BatchImport, SeveralFilesWithoutAFolderOfTheirOwnAreRefused) {
  const std::string files = file(kTable, "a.csv") + file(kTable, "A.txt");
  const std::string folder = std::filesystem::path(temporaryFile("x", "")).parent_path().string();
  EXPECT_EQ(batch("import " + files).errors, "import: per piu` file -o deve essere una cartella\n");
  EXPECT_EQ(batch("import " + files + "-o '" + folder + "/x'").exitCode, 2);
  EXPECT_THAT(batch("import " + files + "-o '" + folder + "'").errors,
              EndsWith("/A.txt darebbero lo stesso file dati\n"));
  EXPECT_EQ(batch("import --preview " + files).exitCode, 0);
  EXPECT_EQ(batch("import " + file(kTable) + "-o /nowhere/at/all.DAT").exitCode, 2);
}

TEST(BatchImport, NoFileIsReplacedByItsOwnImport) {
  const std::string in = temporaryFile("dati.dat", kTable);
  const std::string folder = std::filesystem::path(in).parent_path().string();
  for (const std::string& output : {folder + "/.", in, folder + "/DATI.DAT"}) {
    EXPECT_EQ(batch("import '" + in + "' -o '" + output + "'").errors,
              "import: " + in + " andrebbe su se stesso\n");
  }
  EXPECT_EQ(fileContent(in), kTable);
  const BatchRun run = batch("import '" + folder + "'");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_THAT(run.errors, StartsWith(folder + ": "));
}

TEST(BatchImport, MorePointsThanADataFileHoldsAreThinnedOnDemand) {
  std::string table;
  for (int i = 0; i < 40000; ++i) table += std::to_string(i) + ";" + std::to_string(i % 2) + ",5;0,2\n";
  const std::string in = file(table);
  EXPECT_THAT(batch("import " + in).errors,
              EndsWith(": 40000 punti, piu` di 32767: --every 2 ne tiene uno ogni 2, "
                       "--average 2 la media di ogni 2\n"));
  const BatchRun every = batch("import --every 3 " + in);
  EXPECT_THAT(every.output, StartsWith("x\ny\n 13334\n  0.00000E+00   5.00000E-01   2.00000E-01 \n"
                                       "  3.00000E+00   1.50000E+00   2.00000E-01 \n"));
  const BatchRun average = batch("import --average 4 " + in);
  EXPECT_THAT(average.output, StartsWith("x\ny\n 10000\n  1.50000E+00   1.00000E+00   1.00000E-01 \n"));
}

TEST(BatchImport, MessagesCannotSteerTheTerminal) {
  const BatchRun run = batch("import " + file("x;y\n1;2,5\n2;\x1B[2J\n3;3,5\n"));
  EXPECT_EQ(run.errors.find('\x1B'), std::string::npos);
  EXPECT_EQ(run.exitCode, 0);
}

}  // namespace
}  // namespace vk
