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

TEST(BatchCheck, NamesTheLineOfTheByteThatIsNoUtf8) {
  const std::string told = "linea 2: un byte non e` UTF-8: il testo e` letto con la tabella dei codici 437\n";
  const std::string old = temporaryFile("IN.DAT", "Età\nV\x85\n2\n1 2 .1\n3 4 .1\n");
  const BatchRun good = batch("check '" + old + "'");
  EXPECT_EQ(good.exitCode, 0);
  EXPECT_EQ(good.errors, old + ": attenzione: " + told);
  for (const auto& [name, content] :
       {std::pair{"A.FCN", "% Età\na\x85\n"}, std::pair{"A.GRA", "% Età\n\\x\x85\n"},
        std::pair{"A.DAT", "% Età\nx\x85\n"}}) {
    const std::string file = temporaryFile(name, content);
    const BatchRun run = batch("check '" + file + "'");
    EXPECT_EQ(run.exitCode, 2) << name;
    EXPECT_THAT(run.errors, HasSubstr(file + ": attenzione: " + told)) << name;
  }
  const std::string utf8 = temporaryFile("IN.DAT", "Età\n\u4E16\n2\n1 2 .1\n3 4 .1\n");
  EXPECT_EQ(batch("check '" + utf8 + "'").errors, "");
  EXPECT_THAT(batch("check '" + temporaryFile("IN.FCN", "a\na*è\nEtà\n") + "'").output, HasSubstr("a*è"));
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
                ": si attende un file .DAT, .GRD, .FCN o .GRA; sembra un file CSV con virgola decimale: "
                "vor_kel_batch import '" +
                file + "'\n");
  const std::string good = temporaryFile("A.XYZ", "t\nV\n2\n1 2 .1\n3 4 .1\n");
  EXPECT_EQ(batch("check '" + good + "'").errors, good + ": si attende un file .DAT, .GRD, .FCN o .GRA\n");
}

TEST(BatchCheck, WhatIsOddAboutAGoodFileIsAWarning) {
  const std::string file = temporaryFile("IN.DAT", "t\nV\n2\n1 2 .1\n3 4 0\n");
  const BatchRun run = batch("check '" + file + "'");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.output, file + ": nessun errore\n");
  EXPECT_EQ(run.errors, file + ": attenzione: dy nullo o negativo nel punto 2\n");
}

TEST(BatchCheck, AGoodGraphicFileHasNoErrors) {
  const BatchRun run = batch("check '" + temporaryFile("A.GRA", "\\SIMBOLO(3,4)\r\n") + "'");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.errors, "");
}

TEST(BatchCheck, PrintsTheListOfAGraphicFile) {
  const BatchRun run = batch(
      "check '" + temporaryFile("a.gra", "\\CERCHIO(3,4)\n\\SIMBOLO(q,1)\n\\XASSE(0,1,2,0,3,1)\n") + "'");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.output,
            "***\\CERCHIO(3,4) Comando Errato\n"
            "*** Parametri di SIMBOLO Errati\n"
            "*** Parametri di XASSE Errati\n");
}

TEST(BatchCheck, AGraphicFileThatEndsTooSoonIsBadInput) {
  const std::string figure = temporaryFile("A.GRA", "\\SIMBOLO(3,&");
  const BatchRun run = batch("check '" + figure + "'");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors, figure + ": Input oltre la fine del file\n");
}

// What may stand in a file of each kind.
TEST(BatchCheck, TellsWhatAFileOfAnotherKindIs) {
  const std::string image = "\x89PNG\r\n\x1A\n0", figure = "\\SIMBOLO(3,4)\r\n",
                    data = "t\nV\n2\n1 2 .1\n3 4 .1\n", functions = "b,c\nb*x+c\nRetta\n",
                    grid = "x\ny\nz\n2 2\n0 1\n0 1\n0 1\n1 2\n";
  EXPECT_EQ(lastLine("", "A.FCN"), "il file e` vuoto");
  EXPECT_EQ(lastLine(image, "A.FCN"), "sembra un'immagine");
  EXPECT_EQ(lastLine(figure, "A.FCN"), "sembra un file grafico (.GRA)");
  EXPECT_EQ(lastLine(data, "A.FCN"), "sembra un file dati (.DAT)");
  EXPECT_EQ(lastLine(functions, "A.DAT"), "sembra un file funzioni (.FCN)");
  EXPECT_EQ(lastLine(grid, "A.FCN"), "sembra un file griglia (.GRD)");
  EXPECT_EQ(lastLine(figure, "A.DAT"), "sembra un file grafico (.GRA)");
}

TEST(BatchCheck, AFolderIsToldAsSuch) {
  for (const char* words : {"check tests", "check tests/", "fit tests --catalogue 1,2 --par b=1 --par c=0",
                            "import tests", "simulate --catalogue 1,2 --par b=1 --par c=0 -o tests"}) {
    const BatchRun run = batch(words);
    EXPECT_EQ(run.exitCode, 2) << words;
    EXPECT_THAT(run.errors, HasSubstr(": e` una cartella\n")) << words;
  }
}

TEST(BatchData, OfAnotherProgramAreRefusedWithTheirCure) {
  const std::string table = temporaryFile("TABLE.DAT", "t;V;dV\n1,5;2,5;0,1\n2,5;3;0,1\n");
  for (const std::string words : {"fit --catalogue 1,2 --par b=1 --par c=0 '", "transform '"}) {
    const BatchRun run = batch(words + table + "'");
    EXPECT_EQ(run.exitCode, 2) << words;
    EXPECT_THAT(run.errors,
                EndsWith("\nsembra un file CSV con virgola decimale: vor_kel_batch import " + table + "\n"))
        << words;
  }
}

TEST(BatchCheck, TheCureIsALineOfTheShell) {
  const std::string table = temporaryFile("l'altra tabella.DAT", "t;V\n1,5;2,5\n2,5;3\n");
  const std::string report = batch("check \"" + table + "\"").output;
  const auto cure = report.find("vor_kel_batch import ");
  ASSERT_NE(cure, std::string::npos) << report;
  EXPECT_EQ(shell("vor_kel_batch() { VOR \"$@\"; }\n" + report.substr(cure)).output,
            batch("import \"" + table + "\"").output);
}

}  // namespace
}  // namespace vk
