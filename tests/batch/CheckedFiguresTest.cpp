#include "batch/BatchRun.h"
#include "doubles/TemporaryFolder.h"

namespace vk {
namespace {

using ::testing::EndsWith;

TEST(BatchCheck, AFormulaOfAGraphicFileInAnotherSenseIsAWarning) {
  const std::string axes = "\\XASSE(0,9,1,3,3,0)\r\n\\YASSE(0,9,1,3,3,0)\r\n\\PARAMETRI(omega=3,a=-1)\r\n";
  const std::string file = temporaryFile(
      "A.GRA", axes + "\\FUNZIONE(SIN( omega*x )+a)\r\n\\FUNZIONE(2x+1)\r\n\\FUNZIONE(x*2,5)\r\n");
  const std::string told = file + ": attenzione: formula:\n2x+1\n^ \"2x\" non e` un numero: forse 2*x\n" +
                           file +
                           ": attenzione: formula:\nx*2,5\n   ^ la virgola separa solo gli argomenti di una "
                           "funzione: forse 2.5\n";
  const BatchRun check = batch("check '" + file + "'");
  EXPECT_EQ(check.exitCode, 0);
  EXPECT_EQ(check.output, file + ": nessun errore\n");
  EXPECT_EQ(check.errors, told);
  const BatchRun draw = batch("draw --format svg -o - '" + file + "'");
  EXPECT_EQ(draw.exitCode, 0);
  EXPECT_EQ(draw.errors, told);
}

TEST(BatchCheck, ARefusedFormulaOfAGraphicFileHasItsAdvice) {
  const std::string file =
      temporaryFile("A.GRA",
                    "\\XASSE(0,9,1,3,3,0)\r\n\\YASSE(0,9,1,3,3,0)\r\n\\PARAMETRI(omega=3)\r\n"
                    "\\FUNZIONE(omega*x**2)\r\n\\FUNZIONE(sen(q))\r\n");
  const std::string advice =
      file + ": attenzione: formula:\nomega*x**2\n       ^ \"**\" non e` un segno: forse ^\n" + file +
      ": attenzione: formula:\nsen(q)\n^ \"sen\" non e` una funzione: forse SIN\n"
      "    ^ \"q\" non e` definita\n";
  const std::string refusal = "*** Funzione omega*x**2 Errata\n*** Funzione sen(q) Errata\n";
  const BatchRun check = batch("check '" + file + "'");
  EXPECT_EQ(check.exitCode, 2);
  EXPECT_EQ(check.output, refusal);
  EXPECT_EQ(check.errors, advice + file + ": il file contiene errori\n");
  const BatchRun draw = batch("draw --format svg -o - '" + file + "'");
  EXPECT_EQ(draw.exitCode, 2);
  EXPECT_EQ(draw.errors, advice + file + ":\n" + refusal);
}

// What may stand in a graphic file, and why it is no figure.
TEST(BatchDraw, RefusesAFileOfAnotherKindAsTheCheckDoes) {
  const std::string drawing = temporaryFile("OUT.svg", "old");
  for (const auto& [bytes, reason] : {
           std::pair{"\r\n", "il file e` vuoto"},
           std::pair{"\x89PNG\r\n\x1A\n0", "sembra un'immagine"},
           std::pair{"%PDF-1.4\n", "sembra un documento PDF"},
           std::pair{"t\nV\n2\n1 2 .1\n3 4 .1\n", "sembra un file dati (.DAT)"},
           std::pair{"b,c\nb*x+c\nRetta\n", "sembra un file funzioni (.FCN)"},
           std::pair{"% note\nuna nota\n", "non contiene comandi"},
       }) {
    const std::string file = temporaryFile("A.GRA", bytes);
    const std::string told = file + ": non e` un file grafico: " + reason + "\n";
    EXPECT_EQ(batch("check '" + file + "'").errors, told);
    const BatchRun draw = batch("draw '" + file + "' --anyway -o '" + drawing + "'");
    EXPECT_EQ(draw.exitCode, 2) << reason;
    EXPECT_EQ(draw.errors, told);
    EXPECT_EQ(fileContent(drawing), "old");
  }
}

TEST(BatchDraw, AFolderIsToldAsSuch) {
  const BatchRun run = batch("draw tests -o x.svg");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_THAT(run.errors, EndsWith(": e` una cartella\n"));
}

}  // namespace
}  // namespace vk
