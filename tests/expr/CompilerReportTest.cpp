#include "expr/CompileHelp.h"

namespace vk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string traceOf(const std::string& definition, int flagBefore, int switchedOn) {
  Session session;
  session.TraceEnabled = switchedOn;
  session.TraceText = "before\r\n";
  CompiledExpression e;
  Int16 flag = flagBefore;
  CompileExpression(session, definition, e, flag);
  return session.TraceText;
}

TEST(CompilerReport, HasItsHeadingsInOrder) {
  EXPECT_THAT(
      compiled("y@x,y@A@G,H/1,2@x+A").report,
      ElementsAre("*** Controllo Sintattico delle Variabili...", "# Variabili: 2", "* x             O.K.",
                  "* y             O.K.", "*** Controllo Sintattico dei Parametri...", "# Parametri: 1",
                  "* A             O.K.", "*** Controllo Sintattico delle Costanti...", "# Costanti: 2",
                  "* G             O.K.", "* H             O.K.", "*** Controllo della Funzione"));
}

TEST(CompilerReport, CountsWhatIsNotThereAsZero) {
  EXPECT_THAT(compiled("y@ @ @ @1").report,
              ElementsAre("*** Controllo Sintattico delle Variabili...", "# Variabili: 0",
                          "*** Controllo Sintattico dei Parametri...", "# Parametri: 0",
                          "*** Controllo Sintattico delle Costanti...", "# Costanti: 0",
                          "*** Controllo della Funzione"));
}

TEST(CompilerReport, NeedsBothTheRequestAndTheSwitch) {
  const std::string all = traceOf("y@x@@@x", kTrue, kTrue);
  EXPECT_EQ(
      all,
      "before\r\n*** Controllo Sintattico delle Variabili...\r\n# Variabili: 1\r\n"
      "* x             O.K.\r\n*** Controllo Sintattico dei Parametri...\r\n# Parametri: 0\r\n"
      "*** Controllo Sintattico delle Costanti...\r\n# Costanti: 0\r\n*** Controllo della Funzione\r\n");
  EXPECT_EQ(traceOf("y@x@@@x", 1, kTrue), all);
  EXPECT_EQ(traceOf("y@x@@@x", kFalse, kTrue), "before\r\n");
  EXPECT_EQ(traceOf("y@x@@@x", kTrue, kFalse), "before\r\n");
  EXPECT_EQ(traceOf("y@x@@@b+ABCDE", kFalse, kFalse), "before\r\n");
}

TEST(CompilerReport, TellsALongNameAndUsesItsFirstFourLetters) {
  const Compiled result = compiled("y@ABCDE@@@ABCD");
  EXPECT_NE(result.flag, 0);
  EXPECT_EQ(result.expression.Code, "");
  ASSERT_GE(result.report.size(), 4U);
  EXPECT_EQ(result.report[2], "* ERR. ABCDENome piu` Lungo di 4 Caratteri, Troncato a ABCD");
  EXPECT_EQ(result.report[3], "* ABCD          O.K.");
  EXPECT_EQ(result.report.back(), "*** Controllo della Funzione");
  EXPECT_EQ(compiled("y@x@Param@@x").report[5],
            "* ERR. ParamNome piu` Lungo di 4 Caratteri, Troncato a Para");
}

TEST(CompilerReport, TellsAVariableThatIsAParameterToo) {
  const Compiled result = compiled("y@x,a@b,a@@a");
  EXPECT_NE(result.flag, 0);
  EXPECT_EQ(result.report[8], "* ERR. Nome a della Variabile  1 Eguale Nome del Parametro  5");
  EXPECT_EQ(compiled("y@x@x@@x").report[6], "* ERR. Nome x della Variabile  0 Eguale Nome del Parametro  1");
  // A parameter that only begins or ends like the variable is another name.
  EXPECT_EQ(compiled("y@a@ab,ba@@a").flag, 0);
}

TEST(CompilerReport, TellsAConstantThatIsAVariableOrParameterToo) {
  const Compiled result = compiled("y@x@A@x,A/1,2@x");
  EXPECT_NE(result.flag, 0);
  EXPECT_THAT(
      std::vector<std::string>(result.report.begin() + 8, result.report.end()),
      ElementsAre("* x             O.K.", "* A             O.K.",
                  "* Nome x della Costante  0 Eguale Nome di Var. o Par. 1",
                  "* Nome A della Costante  1 Eguale Nome di Var. o Par. 5", "*** Controllo della Funzione"));
}

TEST(CompilerReport, TellsNamesThatAreNone) {
  const Compiled result = compiled("y@1a,b%&,_c,A_1@@@b");
  EXPECT_NE(result.flag, 0);
  EXPECT_THAT(
      std::vector<std::string>(result.report.begin() + 1, result.report.begin() + 8),
      ElementsAre("# Variabili: 4", "* ERR. 1a        il Nome NON Inizia con una Lettera",
                  "* ERR. b%&       %    Carattere NON Valido", "* ERR. b%&       &    Carattere NON Valido",
                  "* ERR. _c        il Nome NON Inizia con una Lettera", "* A_1           O.K.",
                  "*** Controllo Sintattico dei Parametri..."));
}

TEST(CompilerReport, TellsBothErrorsOfOneName) {
  EXPECT_THAT(compiled("y@%@@@1").report,
              testing::Contains("* ERR. %         il Nome NON Inizia con una Lettera").Times(1));
  EXPECT_THAT(compiled("y@%@@@1").report,
              testing::Contains("* ERR. %         %    Carattere NON Valido").Times(1));
}

TEST(CompilerReport, QUIRK_PassesOverAnEmptyNameInSilence) {
  const Compiled result = compiled("y@a,,b@@@a");
  EXPECT_NE(result.flag, 0);
  EXPECT_THAT(std::vector<std::string>(result.report.begin() + 1, result.report.begin() + 5),
              ElementsAre("# Variabili: 3", "* a             O.K.", "* b             O.K.",
                          "*** Controllo Sintattico dei Parametri..."));
}

TEST(CompilerReport, QUIRK_KeepsTheErrorsOfTheGenerationToItself) {
  for (const char* expression : {"SIN(1,2)", "2(3)", "D_N(x,0,1)*ABS(x)"}) {
    const Compiled result = compiled("y@x@@@" + std::string(expression));
    EXPECT_NE(result.flag, 0) << expression;
    EXPECT_EQ(result.report.back(), "*** Controllo della Funzione") << expression;
  }
}

TEST(CompilerText, StripsCountsAndReplaces) {
  EXPECT_EQ(StripBlanks(" a b\t c "), "ab\tc");
  EXPECT_EQ(CountItems(""), 0);
  EXPECT_EQ(CountItems("a"), 1);
  EXPECT_EQ(CountItems("a,,"), 3);
  EXPECT_THAT(splitItems(""), IsEmpty());
  EXPECT_THAT(splitItems("a,,"), ElementsAre("a", "", ""));
  std::string text = "((++a)";
  ReplaceAll(text, "(+", "(");
  EXPECT_EQ(text, "((a)");
  text = "aabb";
  ReplaceAll(text, "ab", "");
  EXPECT_EQ(text, "");
}

TEST(CompilerText, SplitsAtTheFirstMark) {
  std::string text = " a / b / c ";
  std::string right = "old";
  SplitAtMark(text, right, '/');
  EXPECT_EQ(text, "a");
  EXPECT_EQ(right, "b / c");
  text = " a ";
  SplitAtMark(text, right, '/');
  EXPECT_EQ(text, "a");
  EXPECT_EQ(right, "");
}

TEST(NameTable, PadsItemsAndCutsLongOnes) {
  Session session;
  session.TraceEnabled = kTrue;
  std::string table = "old";
  Int16 flag;
  BuildNameTable(session, "a,,bcd", table, 5, kTrue, flag);
  EXPECT_EQ(table, "a         bcd  ");
  EXPECT_EQ(flag, 0);
  EXPECT_EQ(session.TraceText, "");
  BuildNameTable(session, "abcdef,b", table, 5, kTrue, flag);
  EXPECT_EQ(table, "abcdeb    ");
  EXPECT_EQ(flag, -1);
  EXPECT_EQ(session.TraceText, "* ERR. abcdefNome piu` Lungo di 5 Caratteri, Troncato a abcde\r\n");
  BuildNameTable(session, "", table, 5, kTrue, flag);
  EXPECT_EQ(table, "");
}

TEST(NameTable, ChecksNamesTrimmedOnBothSides) {
  Session session;
  session.TraceEnabled = kTrue;
  Int16 flag;
  CheckNames(session, "    a  b ", 2, 5, kTrue, flag);
  EXPECT_EQ(flag, 0);
  EXPECT_EQ(session.TraceText, "* a             O.K.\r\n* b             O.K.\r\n");
}

}  // namespace
}  // namespace vk
