#include <cstdlib>
#include <filesystem>

#include "batch/BatchRun.h"
#include "doubles/Places.h"
#include "doubles/TemporaryFolder.h"

namespace vk {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr const char* kLine =
    "tempo (s)\r\nspazio (m)\r\n 5\r\n1 3.1 .1\r\n2 5.0 .1\r\n3 6.9 .1\r\n4 9.1 .1\r\n5 11.0 .1\r\n";

TEST(BatchEval, PrintsTheValueWithSeventeenDigits) {
  const BatchRun run = batch("eval 'C_X2(x,n)' x=3 n=4");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_NEAR(std::stod(run.output), 0.44217459, 5e-9);
  EXPECT_EQ(batch("eval 0.1").output, "0.10000000000000001\n");
}

TEST(BatchEval, TakesAFormulaThatBeginsWithASign) {
  EXPECT_EQ(batch("eval '-x^2' x=3").output, "-9\n");
  EXPECT_EQ(batch("eval '-h*2' h=3").output, "-6\n");
  EXPECT_EQ(batch("eval 'x+y' x=-3 y=1E2").output, "97\n");
}

TEST(BatchEval, AFailedEvaluationHasExitCodeOneAndNoValue) {
  for (const char* words : {"eval 'LOG(-1)'", "eval 1/x x=0", "eval '1+EXP(1000)'"}) {
    const BatchRun run = batch(words);
    EXPECT_EQ(run.exitCode, 1) << words;
    EXPECT_EQ(run.output, "") << words;
    EXPECT_EQ(run.errors, "Errori nel Calcolo della Funzione\n") << words;
  }
}

TEST(BatchEval, WithoutAFormulaIsBadInput) {
  const BatchRun run = batch("eval");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors, "eval: manca la formula\n");
}

TEST(BatchEval, AFormulaThatDoesNotCompileIsBadInput) {
  const BatchRun run = batch("eval 'a*2' x=1");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(run.errors, "a*2\n^ \"a\" non e` definita\n");
}

TEST(BatchEval, AssignmentsNeedANameAndANumber) {
  for (const char* words : {"eval x x", "eval x =3", "eval x x=tre", "eval x x="}) {
    EXPECT_EQ(batch(words).exitCode, 2) << words;
  }
}

TEST(BatchEval, TheWordsBehindADoubleDashAreTheFormulaAndItsValues) {
  EXPECT_EQ(batch("eval -- '-x^2' x=3").output, "-9\n");
  EXPECT_EQ(batch("eval --list -- '-x' x=3").output, batch("eval --list '-x' x=3").output);
}

// Each of these would give the compiler another number of names than there are values.
TEST(BatchEval, ANameThatIsMoreThanOneNameIsBadInput) {
  for (const char* words : {"eval a+b a,b=3", "eval a 'a@b=3'", "eval ab 'a b=3'"}) {
    const BatchRun run = batch(words);
    EXPECT_EQ(run.exitCode, 2) << words;
    EXPECT_EQ(run.output, "") << words;
    EXPECT_THAT(run.errors, HasSubstr("si attende NOME=NUMERO")) << words;
  }
}

TEST(BatchEval, AValueThatIsGivenTwiceIsBadInput) {
  const BatchRun run = batch("eval x x=3 x=4");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.output, "");
  EXPECT_THAT(run.errors, HasSubstr("x: valore dato piu` di una volta"));
  const std::string fit = "fit examples/ohm.dat --catalogue 1,2 --par b=1 --par c=0 --par b=2";
  EXPECT_EQ(batch(fit).errors, "b: valore dato piu` di una volta\n");
}

TEST(BatchEval, TheReportOfTheCompilerHasTheLineEndsOfATerminal) {
  EXPECT_EQ(batch("eval 'a*2'").errors.find('\r'), std::string::npos);
}

TEST(BatchEval, ListsTheCompiledCode) {
  const BatchRun run = batch("eval --list 'A*SIN(B*x)' x=1 A=2 B=3");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_THAT(run.output, HasSubstr("SIN"));
}

TEST(BatchCheck, AGoodDataFileHasNoErrors) {
  const BatchRun run = batch("check '" + temporaryFile("GOOD.DAT", kLine) + "'");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.errors, "");
}

TEST(BatchCheck, PrintsTheListOfErrors) {
  const BatchRun run = batch("check '" + temporaryFile("bad.dat", "x\r\ny\r\n2\r\n1 2\r\n") + "'");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.output,
            "***ERR. Linea 4: 1 2\n"
            "   le linee Dati DEVONO contenere  3 dati.\n"
            "***ERR. un File Dati DEVE Contenere almeno 5 Linee\n"
            "***ERR. un File Dati DEVE Contenere almeno 2 Linee di Dati\n");
}

TEST(BatchCheck, PrintsTheReportOfAFunctionFile) {
  const BatchRun run = batch("check '" + temporaryFile("none.fcn", "% only a comment\r\n") + "'");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_THAT(run.output, HasSubstr("*** ERR. Il File NON Contiene Funzioni!\n"));
}

TEST(BatchCheck, MissingFilesAndUnknownKindsAreBadInput) {
  const BatchRun missing = batch("check /nowhere/at/all.dat");
  EXPECT_EQ(missing.exitCode, 2);
  EXPECT_EQ(missing.errors, "/nowhere/at/all.dat: Impossibile trovare il percorso\n");
  EXPECT_EQ(batch("check examples/manca.dat").errors, "examples/manca.dat: Impossibile trovare il file\n");
  EXPECT_EQ(batch("check '" + temporaryFile("A.TXT", "") + "'").exitCode, 2);
}

TEST(BatchFit, PrintsTheScreenOfTheProgram) {
  const BatchRun run =
      batch("fit '" + temporaryFile("L.DAT", kLine) + "' --catalogue 1,2 --par b=1 --par c=0");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.errors, "");
  for (const char* text : {"y = bx+c", "Minimizzazione", "Completata", "Liv. Conf.", "Mat. Cor.%"}) {
    EXPECT_THAT(run.output, HasSubstr(text));
  }
}

TEST(BatchFit, TheThreeWaysToNameAFunctionAgree) {
  const std::string data = "fit '" + temporaryFile("L.DAT", kLine) + "' --json --par b=1 --par c=0 ";
  const std::string library = temporaryFile("L.FCN", "b,c\r\nb*x+c\r\nRetta\r\n");
  const auto numbers = [](const BatchRun& run) { return run.output.substr(run.output.find("\"points\"")); };
  const BatchRun formula = batch(data + "--function 'b*x+c'");
  EXPECT_EQ(formula.exitCode, 0) << formula.errors;
  EXPECT_EQ(numbers(formula), numbers(batch(data + "--catalogue 1,2")));
  EXPECT_EQ(numbers(formula), numbers(batch(data + "--file '" + library + "' --entry 1")));
}

TEST(BatchFit, ParametersOfAFormulaStandInTheOrderOfTheCommandLine) {
  const BatchRun run = batch("fit '" + temporaryFile("L.DAT", kLine) +
                             "' --json --function 'a*x+d+k' --fixed k=0 --par a=1 --fixed d=1.05");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  const auto k = run.output.find("\"name\": \"k\"");
  const auto a = run.output.find("\"name\": \"a\"");
  const auto d = run.output.find("\"name\": \"d\"");
  EXPECT_LT(k, a);
  EXPECT_LT(a, d);
  EXPECT_NE(d, std::string::npos);
}

TEST(BatchFit, WarnsWhenTheDeclaredCountIsWrong) {
  std::string text = kLine;
  text.replace(text.find(" 5\r\n"), 2, " 7");
  const BatchRun run =
      batch("fit '" + temporaryFile("L.DAT", text) + "' --catalogue 1,2 --par b=1 --par c=0");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_THAT(run.errors, HasSubstr("Numero Dati Dichiarati Diverso da Numero Dati Trovati!"));
}

TEST(BatchFit, AParameterWithoutEffectIsAFailedComputation) {
  const BatchRun run =
      batch("fit '" + temporaryFile("L.DAT", kLine) + "' --function 'a*x+0*b' --par a=1 --par b=1 --json");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.errors, "Adattamento non riuscito: il parametro b NON cambia i residui\n");
  EXPECT_THAT(run.output, HasSubstr("\"status\": \"failed\""));
}

TEST(BatchFit, ErrorsThatAreNotFiniteAreAFailedComputation) {
  const std::string data = temporaryFile("AWAY.DAT", "t\r\ns\r\n 2 1\r\n.5 0 .1 .1\r\n1 0 .1 .1\r\n");
  const std::string words = "fit '" + data + "' --catalogue 5,1 --par c=-23518 --fixed A=-7.5625";
  const BatchRun run = batch(words);
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(run.errors, "Adattamento non riuscito: errori non finiti\n");
  const BatchRun object = batch(words + " --json");
  EXPECT_EQ(object.exitCode, 1);
  EXPECT_THAT(object.output, HasSubstr("\"status\": \"failed\""));
  EXPECT_THAT(object.output, HasSubstr("\"reason\": \"errori non finiti\""));
}

TEST(BatchFit, WithoutDegreesOfFreedomThereIsNoConfidence) {
  const std::string data = temporaryFile("TWO.DAT", "t\r\ns\r\n 2\r\n1 3 .1\r\n2 5 .1\r\n");
  const BatchRun run = batch("fit '" + data + "' --catalogue 1,2 --par b=1 --par c=2 --json");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_THAT(run.output, HasSubstr("\"reduced_chi_square\": null"));
  EXPECT_THAT(run.output, HasSubstr("\"confidence_percent\": null"));
}

TEST(BatchFit, BadArgumentsAreBadInput) {
  const std::string data = "fit '" + temporaryFile("L.DAT", kLine) + "' ";
  for (const char* words :
       {"", "--catalogue 1,2", "--catalogue 1,2 --par b=1", "--catalogue 1,2 --par b=1 --par c=0 --par d=0",
        "--catalogue 10,2 --par b=1 --par c=0", "--catalogue 1,1.5 --par b=1 --par c=0",
        "--catalogue 1,9 --par b=1 --par c=0", "--catalogue uno", "--function 'b*x+q' --par b=1",
        "--catalogue 1,2 --fixed b=1 --fixed c=0", "--catalogue 1,2 --par b --par c=0",
        "--file /nowhere/x.fcn --entry 1 --par b=1", "--catalogue 1,2 --function x --par b=1"}) {
    const BatchRun run = batch(data + words);
    EXPECT_EQ(run.exitCode, 2) << words;
    EXPECT_FALSE(run.errors.empty()) << words;
    EXPECT_EQ(run.output, "") << words;
  }
}

TEST(BatchFit, ABadDataFileIsToldWithItsOwnList) {
  const BatchRun run =
      batch("fit '" + temporaryFile("B.DAT", "x\r\ny\r\n2\r\n1 2 tre\r\n1 2 3\r\n1 2 3\r\n") +
            "' --catalogue 1,1 --par c=0");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_THAT(run.errors, HasSubstr("***ERR. Linea 4; Dato 3: tre"));
  EXPECT_THAT(run.errors, EndsWith("   Dato NON numerico\n"));
}

TEST(BatchUsage, AFullDiskBehindTheOutputIsToldInOneLine) {
  std::string data = "x\r\ny\r\n 600\r\n";
  for (int i = 0; i < 600; ++i) data += std::to_string(i) + " 1 .1\r\n";
  const std::string large = "transform '" + temporaryFile("L.DAT", data) + "'";
  for (const std::string& words : {std::string("eval 1"), large}) {
    const BatchRun run = batch(words, "", "/dev/full");
    EXPECT_EQ(run.exitCode, 2) << words;
    EXPECT_EQ(run.errors, words.substr(0, words.find(' ')) + ": Disco pieno\n");
  }
  const BatchRun help = batch("--help", "", "/dev/full");
  EXPECT_EQ(help.exitCode, 2);
  EXPECT_EQ(help.errors, "vor_kel_batch: Disco pieno\n");
}

TEST(BatchUsage, AFullDiskBehindAFileIsToldInOneLine) {
  const BatchRun run = batch("simulate --catalogue 1,2 --par b=2 --par c=1 --seed 1 -o /dev/full");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors, "/dev/full: Disco pieno\n");
}

TEST(BatchUsage, DepartureAFileNamedAsTheOutputIsWrittenWhereTheOutputStands) {
  const std::string data = temporaryFile("A.DAT", "x\r\ny\r\n 2\r\n1 2 .5\r\n2 3 .5\r\n");
  const std::string link = temporaryFile("link.dat", "");
  std::filesystem::remove(link);
  std::filesystem::create_symlink("/dev/stdout", link);
  const std::string file = temporaryFile("alone.dat", ""), out = temporaryFile("out", "");
  ASSERT_EQ(batch("transform '" + data + "' -o '" + file + "'").exitCode, 0);
  const std::string bytes = fileContent(file);
  ASSERT_THAT(bytes, StartsWith("x\r\ny\r\n"));
  for (const std::string& name :
       {std::string("/dev/stdout"), std::string("/dev/fd/1"), std::string("/proc/self/fd/1"), link}) {
    const std::string command = "(echo first; '" + builtPath("batch/vor_kel_batch") + "' transform '" + data +
                                "' -o '" + name + "'; echo last) > '" + out + "'";
    EXPECT_EQ(std::system(command.c_str()), 0) << name;
    EXPECT_EQ(fileContent(out), "first\n" + bytes + "last\n") << name;
  }
}

TEST(BatchUsage, DepartureWhatIsPrintedBeforeAFileNamedAsTheOutputComesFirst) {
  const std::string words = "simulate --catalogue 1,2 --par b=2 --par c=1 --seed 1";
  const std::string file = temporaryFile("alone.dat", "");
  const std::string report = batch(words + " -o '" + file + "'").output;
  EXPECT_EQ(batch(words + " -o /dev/stdout").output, report + fileContent(file));
}

TEST(BatchUsage, AFullDiskBehindAFileNamedAsTheOutputIsToldInOneLine) {
  const std::string data = temporaryFile("A.DAT", "x\r\ny\r\n 2\r\n1 2 .5\r\n2 3 .5\r\n");
  const BatchRun run = batch("transform '" + data + "' -o /dev/stdout", "", "/dev/full");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors, "/dev/stdout: Disco pieno\n");
}

TEST(BatchUsage, AFileThatIsProtectedIsToldInOneLine) {
  const std::string file = temporaryFile("OUT.DAT", "before");
  std::filesystem::permissions(file, std::filesystem::perms::owner_read);
  const BatchRun run = batch("simulate --catalogue 1,2 --par b=2 --par c=1 --seed 1 -o '" + file + "'");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_EQ(run.errors, file + ": accesso negato\n");
  EXPECT_EQ(fileContent(file), "before");
}

TEST(BatchUsage, NamesAndTextsOfFilesCannotSteerTheTerminal) {
  const std::string file =
      temporaryFile("a\x1B[2J\nb\xC2\x9B.dat", "x\r\ny\r\n2\r\n1 2 \x1B[31m\r\n1\n2\r3 2 1\r\n");
  const BatchRun run = batch("check '" + file + "'");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_THAT(run.output, HasSubstr("***ERR. Linea 4; Dato 3: \u2190[31m\n"));
  EXPECT_THAT(run.output, HasSubstr("***ERR. Linea 5; Dato 1: 1\u25D92\u266A3\n"));
  EXPECT_THAT(run.errors, EndsWith("/a\u2190[2J\u25D9b\uFFFD.dat: il file contiene errori\n"));
}

TEST(BatchUsage, WithoutACommandTheHelpIsNamed) {
  EXPECT_EQ(batch("").exitCode, 2);
  EXPECT_EQ(batch("--help").exitCode, 0);
}

TEST(BatchUsage, HelpAndComplaintsAreItalian) {
  const std::string end = "\nL'opzione --help elenca comandi e argomenti.\n";
  EXPECT_EQ(batch("").errors, "Si attende un comando" + end);
  EXPECT_EQ(batch("check").errors, "FILE: manca" + end);
  EXPECT_EQ(batch("check A.DAT B.DAT").errors, "Argomento sconosciuto: B.DAT" + end);
  EXPECT_THAT(batch("check A.DAT B.DAT C.DAT").errors, HasSubstr("Argomenti sconosciuti: "));
  EXPECT_EQ(batch("fit A.DAT --file").errors, "--file: manca il valore" + end);
  EXPECT_EQ(batch("fit A.DAT --file B.FCN --entry").errors, "--entry: manca il numero" + end);
  EXPECT_EQ(batch("fit A.DAT --file B.FCN").errors, "--file richiede --entry" + end);
  EXPECT_EQ(batch("fit A.DAT --file B.FCN --entry due").errors, "Valore errato: --entry = due" + end);
  EXPECT_EQ(batch("fit A.DAT --function x --catalogue 1,1").errors, "--function esclude --catalogue" + end);
  for (const char* words : {"--help", "fit --help", "check --help", "draw --help", "import --help",
                            "propagate --help", "simulate --help"}) {
    const std::string help = batch(words).output;
    EXPECT_THAT(help, HasSubstr("Uso: vor_kel_batch")) << words;
    EXPECT_THAT(help, HasSubstr("Opzioni:\n")) << words;
    for (const char* english : {"ptions", "OPTIONS", "ommand", "REQUIRED", "TEXT", "INT", "FLOAT",
                                "Positionals", "Needs", "Excludes", "more"}) {
      EXPECT_THAT(help, Not(HasSubstr(english))) << words;
    }
  }
}

}  // namespace
}  // namespace vk
