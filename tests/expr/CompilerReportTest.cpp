#include "expr/CompileHelp.h"
#include "expr/FormulaText.h"
#include "expr/NameTable.h"

namespace vk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

TEST(CompilerReport, EndsItsLinesWithCarriageReturnAndLineFeed) {
  EXPECT_EQ(
      compile("y@x@@@x").report,
      "*** Controllo Sintattico delle Variabili...\r\n# Variabili: 1\r\n"
      "* x             O.K.\r\n*** Controllo Sintattico dei Parametri...\r\n# Parametri: 0\r\n"
      "*** Controllo Sintattico delle Costanti...\r\n# Costanti: 0\r\n*** Controllo della Funzione\r\n");
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
  Compilation said;
  CompilerReport report(said);
  const auto table = [&](const std::string& list) {
    return BuildNameTable(TracedText(list, 7).items(), 5, CompileFaultKind::kNameTooLong, report);
  };
  EXPECT_EQ(table("a,,bcd"), "a         bcd  ");
  EXPECT_EQ(said.report, "");
  EXPECT_THAT(said.faults, IsEmpty());
  EXPECT_EQ(table("abcdef,b"), "abcdeb    ");
  ASSERT_EQ(said.faults.size(), 1U);
  EXPECT_EQ(said.faults[0].first, 7);
  EXPECT_EQ(said.faults[0].length, 6);
  EXPECT_EQ(said.report, "* ERR. abcdefNome piu` Lungo di 5 Caratteri, Troncato a abcde\r\n");
  EXPECT_EQ(table(""), "");
}

TEST(NameTable, ChecksNamesTrimmedOnBothSides) {
  Compilation said;
  CompilerReport report(said);
  CheckNames(TracedText("    a,  b ", 0).items(), 5, report);
  EXPECT_THAT(said.faults, IsEmpty());
  EXPECT_EQ(said.report, "* a             O.K.\r\n* b             O.K.\r\n");
}

/// The faults as "kind: definition", with brackets around the place of the fault.
std::vector<std::string> faultsOf(const std::string& definition) {
  std::vector<std::string> result;
  for (const CompileFault& fault : compile(definition).faults) {
    std::string marked = definition;
    marked.insert(static_cast<std::size_t>(fault.first + fault.length), "]");
    marked.insert(static_cast<std::size_t>(fault.first), "[");
    result.push_back(std::to_string(static_cast<int>(fault.kind)) + ": " + marked);
  }
  return result;
}

std::string faultAt(CompileFaultKind kind, const std::string& marked) {
  return std::to_string(static_cast<int>(kind)) + ": " + marked;
}

TEST(CompileFaults, StandWhereTheNameStands) {
  using enum CompileFaultKind;
  EXPECT_THAT(faultsOf("y@x, A B C D E @@@x"), ElementsAre(faultAt(kNameTooLong, "y@x, [A B C D E] @@@x")));
  EXPECT_THAT(faultsOf("y@ 1a, b%&@@@1"), ElementsAre(faultAt(kNameStart, "y@ [1]a, b%&@@@1"),
                                                      faultAt(kNameCharacter, "y@ 1a, b[%]&@@@1"),
                                                      faultAt(kNameCharacter, "y@ 1a, b%[&]@@@1")));
  EXPECT_THAT(faultsOf("y@a, ,b@@@a"), ElementsAre(faultAt(kNameMissing, "y@a, [],b@@@a")));
  EXPECT_THAT(faultsOf("y@x@A,@@x"), ElementsAre(faultAt(kNameMissing, "y@x@A,[]@@x")));
  EXPECT_THAT(faultsOf("y@x, q@b, q@ @x"), ElementsAre(faultAt(kNameTaken, "y@x, [q]@b, q@ @x")));
  EXPECT_THAT(faultsOf("y@x@A@ A /1@x"), ElementsAre(faultAt(kNameTaken, "y@x@A@ [A] /1@x")));
}

TEST(CompileFaults, StandWhereTheExpressionIsWrong) {
  using enum CompileFaultKind;
  EXPECT_THAT(faultsOf("y@x@@@ ((x) "), ElementsAre(faultAt(kParentheses, "y@x@@@ [((x)] ")));
  EXPECT_THAT(faultsOf("y@x@@@ 2 * (-b 1 + SIN(+ c))"),
              ElementsAre(faultAt(kUnknownName, "y@x@@@ 2 * (-[b 1] + SIN(+ c))"),
                          faultAt(kUnknownName, "y@x@@@ 2 * (-b 1 + SIN(+ [c]))")));
  EXPECT_THAT(faultsOf("y@x@@@x+ABCDE"), ElementsAre(faultAt(kOperandTooLong, "y@x@@@x+[ABCDE]"),
                                                     faultAt(kUnknownName, "y@x@@@x+[ABCDE]")));
  EXPECT_THAT(faultsOf("y@x@@@SIN(x)+*2"), ElementsAre(faultAt(kGrammar, "y@x@@@SIN(x)+[*]2")));
  EXPECT_THAT(faultsOf("y@x@@@(x)(x)"), ElementsAre(faultAt(kGrammar, "y@x@@@(x)[(]x)")));
  EXPECT_THAT(faultsOf("y@x@@@ "), ElementsAre(faultAt(kGrammar, "y@x@@@ []")));
  EXPECT_THAT(faultsOf("y@x"), ElementsAre(faultAt(kGrammar, "y@x[]")));
  EXPECT_THAT(faultsOf("y@x@@@x+1.00000000000000000000001"),
              ElementsAre(faultAt(kNumberTooLong, "y@x@@@x+[1.00000000000000000000001]")));
  EXPECT_THAT(faultsOf("y@x@@G/ 1.00000000000000000000001@x"),
              ElementsAre(faultAt(kNumberTooLong, "y@x@@G/ [1.00000000000000000000001]@x")));
  EXPECT_THAT(faultsOf("y@x@@@ SIN(x,2)"), ElementsAre(faultAt(kArguments, "y@x@@@ [SIN(x,2)]")));
}

TEST(CompileFaults, OfAVariableBeyondTheBytesOfTheCodeStandAtTheExpression) {
  std::string definition = "y@a0";
  for (int i = 1; i < 256; ++i) definition += ",a" + std::to_string(i);
  definition += "@@@";
  EXPECT_THAT(faultsOf(definition + "a255"),
              ElementsAre(faultAt(CompileFaultKind::kTooManyOperands, definition + "[a255]")));
}

}  // namespace
}  // namespace vk
