#include "expr/Compiler.h"
#include "tests/commands/FunctionFileFixture.h"

namespace vk {
namespace {

using testing::HasSubstr;

/// What the compiler itself reports on a function.
std::string compilerReport(const std::string& definition) {
  return compile(definition).report;
}

TEST_F(FunctionFileTest, TheReportOfAGoodFunction) {
  EXPECT_EQ(report(lines({"A,B", "A*SIN(x)+B", "onda"})),
            "\r\n"
            "*********** Funzione:      1\r\n"
            "Parametri:   A,B\r\n"
            "Definizione: A*SIN(x)+B\r\n"
            "Descrizione: onda\r\n"
            "Controllo Funzione:\r\n" +
                compilerReport("y@x@A,B@ @A*SIN(x)+B") +
                "O.K.\r\n"
                "*********** Fine Funzione: 1\r\n"
                "\r\n");
}

TEST_F(FunctionFileTest, TheReportOfTwoFunctionsOfWhichTheFirstIsWrong) {
  EXPECT_EQ(report(lines({"A", "A*C", "prima", "B", "B+x", "seconda"})),
            "\r\n"
            "*********** Funzione:      1\r\n"
            "Parametri:   A\r\n"
            "Definizione: A*C\r\n"
            "Descrizione: prima\r\n"
            "Controllo Funzione:\r\n" +
                compilerReport("y@x@A@ @A*C") +
                "* ERR. Errori nella Compilazione\r\n"
                "A*C\r\n"
                "  ^ \"C\" non e` definita\r\n"
                "*********** Fine Funzione: 1\r\n"
                "\r\n"
                "\r\n"
                "*********** Funzione:      2\r\n"
                "Parametri:   B\r\n"
                "Definizione: B+x\r\n"
                "Descrizione: seconda\r\n"
                "Controllo Funzione:\r\n" +
                compilerReport("y@x@B@ @B+x") +
                "O.K.\r\n"
                "*********** Fine Funzione: 2\r\n"
                "\r\n");
  EXPECT_EQ(session.ErrFlag, kTrue);
  EXPECT_THAT(report(lines({"A", "A*C", "prima"})), HasSubstr("* ERR. Variabile C NON definita"));
}

TEST_F(FunctionFileTest, TheReportOfAnExpressionAtFaultSaysWhatWasMeant) {
  EXPECT_THAT(report(lines({"a", "a*x+sen(x)", "onda"})),
              HasSubstr("* ERR. Errori nella Compilazione\r\n"
                        "a*x+sen(x)\r\n"
                        "    ^ \"sen\" non e` una funzione: forse SIN\r\n"
                        "*********** Fine Funzione: 1\r\n"));
  EXPECT_THAT(report(lines({"alpha", "2*x", "retta"})),
              HasSubstr("* ERR. Errori nella Compilazione\r\n*********** Fine Funzione: 1\r\n"));
}

// The number and the letter behind it compile, as 2.
TEST_F(FunctionFileTest, TheReportOfAnExpressionThatCompilesHasNoAdvice) {
  EXPECT_THAT(report(lines({"a", "a*2x", "retta"})), HasSubstr("O.K.\r\n*********** Fine Funzione: 1\r\n"));
  EXPECT_EQ(session.ErrFlag, 0);
}

TEST_F(FunctionFileTest, WithoutTheCheckSwitchNothingIsCompiled) {
  const std::string bytes = lines({"A", "A*C", "prima"});
  checks.compile = false;
  EXPECT_EQ(parseFunctionFile(bytes, {.compile = false}).report,
            "\r\n"
            "*********** Funzione:      1\r\n"
            "Parametri:   A\r\n"
            "Definizione: A*C\r\n"
            "Descrizione: prima\r\n");
  read(bytes);
  EXPECT_EQ(session.ErrFlag, 0);
}

TEST_F(FunctionFileTest, OneBadFunctionRefusesTheWholeFile) {
  read(lines({"A", "A*x", "retta"}));
  read(lines({"A", "A*x", "buona", "B", "B*", "cattiva", "C", "C*x", "buona"}));
  EXPECT_EQ(session.ErrFlag, kTrue);
  ASSERT_EQ(entries().size(), 1U);
  EXPECT_EQ(entries()[0].description, "retta");
}

TEST_F(FunctionFileTest, AGoodFileShowsNoReportWhateverTheOption) {
  for (const bool option : {true, false}) {
    checks.trace = option;
    read(lines({"A", "A*x", "retta"}));
    EXPECT_EQ(session.ErrFlag, 0);
  }
  EXPECT_TRUE(output.requests.empty());
}

TEST_F(FunctionFileTest, AFileWithErrorsShowsItsReportWithTheOptionOn) {
  const std::string bytes = lines({"A", "A*C", "prima"});
  const std::string expected = report(bytes);
  checks.trace = true;
  read(bytes);
  ASSERT_EQ(output.requests.size(), 1U);
  const OutputRequest& shown = output.requests[0];
  EXPECT_EQ(shown.caption, "VOR_KEL: Lettura File Funzioni - Controllo File");
  EXPECT_EQ(shown.rows, 25);
  EXPECT_EQ(shown.cols, 80);
  EXPECT_EQ(shown.captions, (std::vector<WindowText>{"&Continua", "&Stampa", "Co&pia"}));
  EXPECT_EQ(shown.text, expected);
  EXPECT_EQ(session.ErrFlag, kTrue);
}

TEST_F(FunctionFileTest, AFileWithErrorsShowsNothingWithTheOptionOff) {
  read(lines({"A", "A*C", "prima"}));
  EXPECT_TRUE(output.requests.empty());
  EXPECT_EQ(session.ErrFlag, kTrue);
}

TEST_F(FunctionFileTest, AWrongStructureShowsNothingWithoutTheCheckSwitch) {
  checks = {.compile = false, .trace = true};
  read(lines({"A", "A*x"}));
  EXPECT_TRUE(output.requests.empty());
  EXPECT_EQ(session.ErrFlag, kTrue);
}

TEST_F(FunctionFileTest, TheCheckOfATextStoresNothingAndShowsNothing) {
  EXPECT_THAT(report(lines({"A", "A*x", "retta"})),
              HasSubstr("O.K.\r\n*********** Fine Funzione: 1\r\n\r\n"));
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_TRUE(entries().empty());
  EXPECT_THAT(report(lines({"A", "A*C", "cattiva"})), HasSubstr("* ERR. Errori nella Compilazione\r\n"));
  EXPECT_EQ(session.ErrFlag, kTrue);
  EXPECT_TRUE(output.requests.empty());
}

}  // namespace
}  // namespace vk
