#include <gmock/gmock.h>

#include "batch/BatchRun.h"

namespace vk {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// What is said of a formula that is refused.
std::string refusal(const std::string& words) {
  const BatchRun run = batch(words);
  EXPECT_EQ(run.exitCode, 2) << words << run.output;
  EXPECT_EQ(run.output, "") << words;
  return run.errors;
}

std::string pairOfPoints() {
  return "'" + temporaryFile("D.DAT", "x\r\ny\r\n 3\r\n1 3 .1\r\n2 5 .1\r\n3 7 .1\r\n") + "' ";
}

/// The words that fit a formula at three points.
std::string fitOf(const std::string& formula) {
  return "fit " + pairOfPoints() + "--function '" + formula + "' --par a=1 ";
}

TEST(TypedFormula, IsRefusedWithThePlaceAndWhatWasMeant) {
  const std::pair<const char*, const char*> cases[] = {
      {"a*x+sen(x)", "    ^ \"sen\" non e` una funzione: forse SIN"},
      {"sqrt(x)", "^ \"sqrt\" non e` una funzione: forse SQR"},
      {"a*ln(x)", "  ^ \"ln\" non e` una funzione: forse LOG"},
      {"EPX(x)", "^ \"EPX\" non e` una funzione: forse EXP"},
      {"2*pi*x", "  ^ \"pi\" non e` definita: forse 3.1415926"},
      {"a*X", "  ^ \"X\" non e` definita: forse x"},
      {"x*tua", "  ^ \"tua\" non e` definita: forse tau"},
      {"alpha*x", "^ \"alpha\" ha piu` di 4 caratteri: forse alph"},
      {"x^-1", " ^ \"^-\": due segni di seguito: forse x^(-1)"},
      {"x**2", " ^ \"**\" non e` un segno: forse ^"},
      {"2x", "^ \"2x\" non e` un numero: forse 2*x"},
      {"2,5", " ^ la virgola separa solo gli argomenti di una funzione: forse 2.5"},
      {"a*(2,5)", "    ^ la virgola separa solo gli argomenti di una funzione: forse 2.5"},
      {"1.5.2", "^ \"1.5.2\" non e` un numero"},
      {"3A", "^ \"3A\" non e` un numero: forse 3*A"},
      {"(a", "^ parentesi mai chiusa"},
      {"µ*x", "^ \"µ\" non e` un segno delle formule"},
      // The compiler refuses these two, and has its own reason at most.
      {"a+123456789012345678901",
       "  ^ \"123456789012345678901\": Nome piu` Lungo di 20 Caratteri, Troncato a 12345678901234567890"},
      {"D_P(1,2)+ABS(x)", "^ la formula NON si compila"},
  };
  for (const auto& [formula, line] : cases) {
    EXPECT_EQ(refusal("eval '" + std::string(formula) + "' a=1 tau=1 x=3"),
              std::string(formula) + "\n" + line + "\n");
  }
}

TEST(TypedFormula, IsRefusedByEveryCommand) {
  const std::string told =
      "2a+sen(a)\n^ \"2a\" non e` un numero: forse 2*a\n   ^ \"sen\" non e` una funzione: forse SIN\n";
  const std::string wrong = " '2a+sen(a)' ", data = pairOfPoints();
  for (const std::string& words :
       {"eval" + wrong + "a=1", "fit " + data + "--function" + wrong + "--par a=1",
        fitOf("a*x") + "--derive 'T='" + wrong.substr(1),
        "fit " + data + data + "--csv --function" + wrong + "--par a=1",
        "propagate --function" + wrong + "--par a=1,.1", "simulate --function" + wrong + "--par a=1"}) {
    EXPECT_EQ(refusal(words), told) << words;
  }
  for (const char* option : {"--x", "--y", "--dy"}) {
    EXPECT_EQ(refusal("transform " + data + option + " 'dy*yd'"), "dy*yd\n   ^ \"yd\" non e` definita\n");
  }
  EXPECT_EQ(refusal("transform " + data + "--y ' dx'"), "dx\n^ \"dx\" non e` definita\n");
}

TEST(TypedFormula, OfWrongNamesIsRefusedInOneLine) {
  const std::pair<const char*, const char*> cases[] = {
      {"alpha=1", "\"alpha\": Nome piu` Lungo di 4 Caratteri, Troncato a alph\n"},
      {"5a=1", "\"5a\": il Nome NON Inizia con una Lettera\n"},
      {"a-b=1", "\"a-b\": -    Carattere NON Valido\n"},
  };
  for (const auto& [assignment, line] : cases) {
    EXPECT_EQ(refusal("eval x x=2 " + std::string(assignment)), line);
    EXPECT_EQ(refusal(fitOf("a*x") + "--par " + assignment), line);
  }
}

TEST(TypedFormula, HasTheReportOfTheCompilerWhereItIsAskedFor) {
  const std::string report =
      "*** Controllo Sintattico delle Variabili...\n"
      "# Variabili: 1\n"
      "* x             O.K.\n"
      "*** Controllo Sintattico dei Parametri...\n"
      "# Parametri: 0\n"
      "*** Controllo Sintattico delle Costanti...\n"
      "# Costanti: 0\n"
      "*** Controllo della Funzione\n";
  EXPECT_EQ(refusal("eval --trace 'x+q' x=2"),
            report + "* ERR. Variabile q NON definita\nx+q\n  ^ \"q\" non e` definita\n");
  const BatchRun good = batch("eval 'x+1' x=2 --trace");
  EXPECT_EQ(good.output, "3\n");
  EXPECT_EQ(good.errors, report);
  for (const std::string& words :
       {fitOf("a*x"), fitOf("a*x") + "--derive T=a", std::string("propagate --function a --par a=1,.1"),
        std::string("simulate --function a*x --par a=1"), "transform " + pairOfPoints() + "--x x+1",
        std::string(
            "fit examples/decay.dat --file examples/lab.fcn --entry 1 --par A=400 --par k=.2 --par b=5")}) {
    EXPECT_THAT(batch(words + " --trace").errors, HasSubstr("*** Controllo della Funzione\n")) << words;
    EXPECT_THAT(batch(words).errors, Not(HasSubstr("***"))) << words;
  }
}

TEST(TypedFormula, HasTheOptionForTheReportInTheHelpOfEveryCommandThatTakesOne) {
  for (const char* command : {"eval", "fit", "propagate", "simulate", "transform"}) {
    EXPECT_THAT(batch(std::string(command) + " --help").output, HasSubstr("--trace")) << command;
  }
}

TEST(TypedFormula, IsTakenAsItStandsWhereItMeansThat) {
  for (const char* formula : {"1E-3", "25E+1", "2*x", "SUM(1,2)", "D_N(x,0,1)", "( 2 * x )^(-1)"}) {
    EXPECT_EQ(batch("eval '" + std::string(formula) + "' x=3").exitCode, 0) << formula;
  }
}

/// A file of three functions: a good one, a doubtful one, and a third one.
std::string functionFile(const std::string& third) {
  return temporaryFile("F.FCN",
                       "a\na*x\nretta\n% which compiles as 2\na\na*2x\ndoppia\na\n" + third + "\nterza\n");
}

constexpr const char* kDoubt =
    ": attenzione: riga 6, funzione 2:\na*2x\n  ^ \"2x\" non e` un numero: forse 2*x\n";

TEST(FunctionOfAFile, ThatWouldPassInAnotherSenseIsAWarningOfCheck) {
  const std::string good = functionFile("a/x");
  const BatchRun run = batch("check '" + good + "'");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.output, good + ": nessun errore\n");
  EXPECT_EQ(run.errors, good + kDoubt);
  const std::string bad = functionFile("a/q");
  const BatchRun refused = batch("check '" + bad + "'");
  EXPECT_EQ(refused.exitCode, 2);
  EXPECT_EQ(refused.errors, bad + kDoubt + bad + ": il file contiene errori\n");
}

TEST(FunctionOfAFile, ThatWouldPassInAnotherSenseIsAWarningWhereItIsUsed) {
  const std::string file = functionFile("a/x");
  const std::string model = "--file '" + file + "' --par a=1 --entry ";
  for (const std::string& command : {"fit " + pairOfPoints(), std::string("simulate --seed 1 ")}) {
    EXPECT_EQ(batch(command + model + "2").errors, file + kDoubt) << command;
    EXPECT_EQ(batch(command + model + "1").errors, "") << command;
  }
  EXPECT_THAT(batch("propagate " + model + "2").errors, StartsWith(file + kDoubt));
  const std::string fit = "fit " + pairOfPoints() + model + "2 --json ";
  EXPECT_EQ(batch(fit).exitCode, 0);
  EXPECT_EQ(batch(fit + "--quiet").errors, "");
  EXPECT_EQ(batch(fit + "--quiet").output, batch(fit).output);
  EXPECT_EQ(batch("fit " + pairOfPoints() + pairOfPoints() + model + "2 --csv --jobs 2").errors,
            file + kDoubt);
}

TEST(FunctionOfAFile, ThatDoesNotCompileIsToldWithItsPlace) {
  const std::string file = functionFile("a*sen(x)");
  const std::string words = "fit " + pairOfPoints() + "--file '" + file + "' --entry 1 --par a=1";
  EXPECT_EQ(refusal(words), file +
                                ":\nControllo Funzione:\nO.K.\n*********** Fine Funzione: 1\n\n"
                                "Controllo Funzione:\nO.K.\n*********** Fine Funzione: 2\n\n"
                                "Controllo Funzione:\n* ERR. Errori nella Compilazione\n"
                                "a*sen(x)\n  ^ \"sen\" non e` una funzione: forse SIN\n"
                                "*********** Fine Funzione: 3\n");
  EXPECT_THAT(refusal(words + " --trace"), HasSubstr("* ERR. Variabile sen( NON definita\n"));
}

TEST(ConstantParameter, ThatTheFormulaLacksIsToldAndKept) {
  const std::string told = "parametro B: non compare nella formula\n";
  const std::string file = temporaryFile("B.FCN", "a,B\na*x\nretta\n");
  for (const std::string& words :
       {fitOf("a*x") + "--fixed B=2",
        "fit " + pairOfPoints() + "--file '" + file + "' --entry 1 --par a=1 --fixed B=2",
        std::string("simulate --function a*x --par a=1 --fixed B=2 --seed 1")}) {
    const BatchRun run = batch(words);
    EXPECT_EQ(run.exitCode, 0) << words;
    EXPECT_EQ(run.errors, told) << words;
    EXPECT_THAT(run.output, HasSubstr("│  B  │  .200000E+01 │")) << words;
  }
  EXPECT_EQ(batch(fitOf("a*x+B") + "--fixed B=2").errors, "");
  EXPECT_EQ(batch("fit " + pairOfPoints() + "--catalogue 1,2 --par b=1 --fixed c=1").errors, "");
  const BatchRun free = batch(fitOf("a*x") + "--par B=2");
  EXPECT_EQ(free.exitCode, 1);
  EXPECT_THAT(free.errors, HasSubstr("il parametro B NON cambia i residui\n"));
}

}  // namespace
}  // namespace vk
