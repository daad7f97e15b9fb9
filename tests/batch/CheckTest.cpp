#include "batch/BatchRun.h"

namespace vk {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;

/// The last line that a check of a data file with this content prints; `FILE` for its name.
std::string lastLine(const std::string& content, const std::string& name = "IN.DAT") {
  const std::string file = temporaryFile(name, content);
  const BatchRun run = batch("check '" + file + "'");
  EXPECT_EQ(run.exitCode, 2) << content;
  std::string line = run.output.substr(0, run.output.size() - 1);
  line.erase(0, line.rfind('\n') + 1);
  if (const auto at = line.find(file); at != std::string::npos) line.replace(at, file.size(), "FILE");
  return line;
}

TEST(BatchCheck, NamesTheLikelyCauseBehindTheList) {
  const std::string cure = ": vor_kel_batch import FILE";
  EXPECT_EQ(lastLine("t;V\n1,5;2,5\n3;4\n"), "sembra un file CSV con virgola decimale" + cure);
  EXPECT_EQ(lastLine("t,V\n1.5,2.5\n3,4\n"), "sembra un file CSV" + cure);
  EXPECT_EQ(lastLine("t\nV\n2\n1,5 2,5 0,1\n3 4 0,1\n"), "sembra una tabella con virgola decimale" + cure);
  EXPECT_EQ(lastLine("t\nV\n2\n1 2\n3 4\n"), "sembra una tabella di due colonne, senza errori" + cure);
  EXPECT_EQ(lastLine("1 2 .1\n3 4 .1\n"),
            "sembra una tabella senza le tre linee iniziali (due titoli e il numero dei punti)" + cure);
  EXPECT_EQ(lastLine("t\r\nV\r\n2\r\n1 2 .1\n3 4 .1\r\n"),
            "le linee non finiscono tutte allo stesso modo" + cure);
  EXPECT_EQ(lastLine("t\nV\n2\n1 2 .1 .1\n3 4 .1 .1\n"),
            "la terza linea non annuncia gli errori di x" + cure);
  EXPECT_EQ(lastLine("t\nV\n2 1\n1 2 .1\n3 4 .1\n"),
            "la terza linea annuncia errori di x, che mancano" + cure);
  EXPECT_EQ(lastLine("| 1 | 2 |\n| 3 | 4 |\n"), "sembra una tabella con separatore '|'" + cure);
  EXPECT_EQ(lastLine(std::string("1\0\t\0"
                                 "2\0\n\0"
                                 "3\0\t\0"
                                 "4\0\n\0",
                                 16)),
            "sembra un testo UTF-16 LE" + cure);
}

TEST(BatchCheck, NamesCausesThatNeedMoreThanAnImport) {
  EXPECT_EQ(lastLine("PK\3\4.....xl/workbook"),
            "sembra una cartella di lavoro .xlsx: aprirla con il foglio elettronico e salvarla come CSV");
  EXPECT_EQ(lastLine("1 2 3 4 5\n6 7 8 9 10\n"),
            "5 colonne di numeri: 1, 2, 3, 4, 5; indicare quali usare con --columns x,y[,dx],dy: "
            "vor_kel_batch import FILE");
}

TEST(BatchCheck, SaysNothingBehindFaultsOfSingleLines) {
  EXPECT_EQ(lastLine("t\nV\n3\n1 2 .1\n3 4 due\n5 6 .1\n"), "   Dato NON numerico");
}

TEST(BatchCheck, TheCauseOfOtherEndingsIsToldToo) {
  const std::string file = temporaryFile("IN 1.csv", "t;V\n1,5;2,5\n3;4\n");
  const BatchRun run = batch("check '" + file + "'");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors,
            file +
                ": si attende un file .DAT, .FCN o .GRA; sembra un file CSV con virgola decimale: "
                "vor_kel_batch import '" +
                file + "'\n");
}

TEST(BatchCheck, WhatIsOddAboutAGoodFileIsAWarning) {
  const std::string file = temporaryFile("IN.DAT", "t\nV\n2\n1 2 .1\n3 4 0\n");
  const BatchRun run = batch("check '" + file + "'");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.output, file + ": nessun errore\n");
  EXPECT_EQ(run.errors, file + ": attenzione: dy nullo o negativo nel punto 2\n");
}

}  // namespace
}  // namespace vk
