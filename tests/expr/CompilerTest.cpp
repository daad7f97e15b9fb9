#include "base/Text.h"
#include "expr/CompileHelp.h"
#include "expr/FormulaText.h"

namespace vk {
namespace {

using testing::ElementsAre;

const std::string kGrammarLine = "* ERR. Scrittura dell'Espressione Errata";

/// The literals and constants of a definition: the values above variables and parameters.
std::vector<double> constantsOf(const std::string& definition) {
  const Compiled result = compiled(definition);
  EXPECT_EQ(result.flag, 0) << definition;
  std::vector<double> values;
  const CompiledExpression& e = result.expression;
  for (int i = e.nVar + e.nPar + 1; i <= e.Values.upper(); ++i) values.push_back(e.Values[i]);
  return values;
}

/// The value of a single literal.
double literal(const std::string& text) {
  const std::vector<double> values = constantsOf("y@@@@" + text);
  EXPECT_EQ(values.size(), 1U) << text;
  return values.empty() ? -1 : values.front();
}

/// The lines of the report behind the heading of the expression.
std::vector<std::string> expressionLines(const std::string& definition) {
  const Compiled result = compiled(definition);
  EXPECT_NE(result.flag, 0) << definition;
  const auto heading = std::find(result.report.begin(), result.report.end(), "*** Controllo della Funzione");
  EXPECT_NE(heading, result.report.end());
  return {heading + 1, result.report.end()};
}

bool isRefusedByGrammar(const std::string& definition) {
  return expressionLines(definition) == std::vector<std::string>{kGrammarLine};
}

std::string sumOf(int operands, const std::string& operand = "x") {
  std::string text = operand;
  for (int i = 1; i < operands; ++i) text += "+" + operand;
  return text;
}

TEST(Compiler, EmitsOperatorsByPrecedenceAndFunctionsAsTheirParenthesesClose) {
  EXPECT_EQ(codeOf("y@x@A,B@G,H/9.8,1.5@A*SIN(B*x)+G"),
            "code 2 1 2 | 17 1 1 | 2 0 1 | 4 0 3 | 108 1 0; map 2 3 1 4; LastSlot 3");
  EXPECT_EQ(codeOf("y@@@@2^3^2"), "code 1 0 1 | 1 0 2 | 108 1 0; map 1 2 3; LastSlot 2");
  EXPECT_EQ(codeOf("y@a,b,c,d@@@a-b*c/d"), "code 2 1 2 | 3 1 3 | 5 0 1 | 108 1 0; map 1 2 3 4; LastSlot 3");
}

TEST(Compiler, GivesEachOccurrenceOfANameAnOperandOfItsOwn) {
  EXPECT_EQ(codeOf("y@x@@@x+x"), "code 4 0 1 | 108 1 0; map 1 1; LastSlot 1");
}

TEST(Compiler, TurnsALeadingSignIntoAnOperation) {
  EXPECT_EQ(codeOf("y@x@@@-x^2"), "code 1 1 2 | 5 0 1 | 108 1 0; map 2 1 3; LastSlot 2");
  EXPECT_EQ(codeOf("y@a@@@+a"), "code 108 1 0; map 1; LastSlot 0");
  EXPECT_EQ(codeOf("y@a,b@@@SUM(a,+b)"), "code 23 2 0 1 | 108 1 0; map 1 2; LastSlot 1");
  EXPECT_EQ(codeOf("y@a,b@@@SUM(a,-b)"), "code 5 1 2 | 23 2 0 1 | 108 1 0; map 1 3 2; LastSlot 2");
  EXPECT_EQ(codeOf("y@a,b@@@a*(-b)"), "code 5 1 2 | 2 0 1 | 108 1 0; map 1 3 2; LastSlot 2");
}

TEST(Compiler, RewritesPlusSignsBeforeMinusSigns) {
  EXPECT_EQ(codeOf("y@a@@@+-a"), "code 5 0 1 | 108 1 0; map 2 1; LastSlot 1");
  EXPECT_EQ(codeOf("y@a,b@@@SUM(a,+-b)"), "code 5 1 2 | 23 2 0 1 | 108 1 0; map 1 3 2; LastSlot 2");
  EXPECT_EQ(codeOf("y@a@@@++a"), "code 108 1 0; map 1; LastSlot 0");
  EXPECT_TRUE(isRefusedByGrammar("y@a@@@-+a"));
  EXPECT_TRUE(isRefusedByGrammar("y@a,b@@@SUM(a,-+b)"));
}

TEST(Compiler, RefusesASignBehindAnOperator) {
  EXPECT_TRUE(isRefusedByGrammar("y@a,b@@@a*-b"));
  EXPECT_TRUE(isRefusedByGrammar("y@a@@@a^-2"));
}

TEST(Compiler, FindsFunctionsInAnyCaseAndVariablesInTheirOwn) {
  EXPECT_EQ(codeOf("y@x@@@sin(x)"), "code 17 1 0 | 108 1 0; map 1; LastSlot 0");
  EXPECT_EQ(codeOf("y@x@@@Sin(x)"), "code 17 1 0 | 108 1 0; map 1; LastSlot 0");
  EXPECT_THAT(expressionLines("y@x@A@@a*x"), ElementsAre("* ERR. Variabile a NON definita"));
}

struct FunctionCase {
  const char* name;
  int opcode;
  const char* arguments;
};

class EachFunction : public testing::TestWithParam<FunctionCase> {};

TEST_P(EachFunction, HasItsOpcode) {
  const FunctionCase& c = GetParam();
  const CompiledExpression e = compiled("y@x@@@" + std::string(c.name) + "(" + c.arguments + ")").expression;
  ASSERT_FALSE(e.Code.empty()) << c.name;
  EXPECT_EQ(code(e.Code[0]), c.opcode) << c.name;
  EXPECT_EQ(code(e.Code[1]), static_cast<int>(splitItems(c.arguments).size())) << c.name;
}

INSTANTIATE_TEST_SUITE_P(Compiler, EachFunction,
                         testing::Values(FunctionCase{"ABS", 10, "x"}, FunctionCase{"SQR", 11, "x"},
                                         FunctionCase{"EXP", 12, "x"}, FunctionCase{"LOG", 13, "x"},
                                         FunctionCase{"ASIN", 14, "x"}, FunctionCase{"ACOS", 15, "x"},
                                         FunctionCase{"ATAN", 16, "x"}, FunctionCase{"SIN", 17, "x"},
                                         FunctionCase{"COS", 18, "x"}, FunctionCase{"TAN", 19, "x"},
                                         FunctionCase{"SGN", 20, "x"}, FunctionCase{"LNGAM", 21, "x"},
                                         FunctionCase{"GAM", 22, "x"}, FunctionCase{"SUM", 23, "x,1,2,3"},
                                         FunctionCase{"AVG", 24, "x,1"}, FunctionCase{"STD", 25, "x,1,2"},
                                         FunctionCase{"D_B", 26, "x,1,2"}, FunctionCase{"C_B", 27, "x,1,2"},
                                         FunctionCase{"D_P", 28, "x,1"}, FunctionCase{"C_P", 29, "x,1"},
                                         FunctionCase{"D_N", 30, "x,1,2"}, FunctionCase{"C_N", 31, "x,1,2"},
                                         FunctionCase{"D_X2", 32, "x,1"}, FunctionCase{"C_X2", 33, "x,1"},
                                         FunctionCase{"D_T", 34, "x,1"}, FunctionCase{"C_T", 35, "x,1"},
                                         FunctionCase{"D_F", 36, "x,1,2"}, FunctionCase{"C_F", 37, "x,1,2"},
                                         FunctionCase{"P", 38, "x"}, FunctionCase{"Q", 39, "x"},
                                         FunctionCase{"A", 40, "x"}, FunctionCase{"INT", 41, "x"}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Compiler, TellsAFunctionFromAParameterOfItsName) {
  EXPECT_EQ(codeOf("y@x@A@@A(x)+A"), "code 40 1 0 | 4 0 1 | 108 1 0; map 1 2; LastSlot 1");
}

TEST(Compiler, ReadsASignBehindEAsPartOfANumberOnly) {
  EXPECT_EQ(codeOf("y@@@@1E-3"), "code 108 1 0; map 1; LastSlot 0");
  EXPECT_EQ(literal("1E-3"), 1e-3);
  EXPECT_EQ(literal("1e+3"), 1e3);
  EXPECT_EQ(literal("1E 3"), 1e3);
  EXPECT_EQ(codeOf("y@X1E@@@X1E-3"), "code 5 0 1 | 108 1 0; map 1 2; LastSlot 1");
}

TEST(Compiler, QUIRK_TakesTheNumericPrefixOfAMalformedLiteral) {
  EXPECT_EQ(literal("2x"), 2);
  EXPECT_EQ(literal(".5.5"), .5);
  EXPECT_EQ(literal("1E"), 1);
  EXPECT_EQ(literal("."), 0);
  EXPECT_EQ(compiled("y@@@@2x").report.back(), "*** Controllo della Funzione");
}

TEST(Compiler, RefusesEmptyParentheses) {
  EXPECT_TRUE(isRefusedByGrammar("y@x@@@"));
  EXPECT_TRUE(isRefusedByGrammar("y@x@@@SIN()"));
}

TEST(Compiler, RefusesAProductWithoutSign) {
  EXPECT_TRUE(isRefusedByGrammar("y@@@@(2)(3)"));
}

TEST(Compiler, QUIRK_SwallowsAParenthesisBehindANumber) {
  EXPECT_TRUE(expressionLines("y@@@@2(3)").empty());
  EXPECT_EQ(codeOf("y@@@@2(3)"), "failed");
}

TEST(Compiler, AcceptsACommaOutsideAFunction) {
  EXPECT_EQ(codeOf("y@x@@@(x,2)"), "code 108 2 0 1; map 1 2; LastSlot 1");
  EXPECT_EQ(codeOf("y@x@@@SUM((x,2),3)"), "code 23 2 0 2 | 108 1 0; map 1 2 3; LastSlot 2");
  // An operator takes the operand that stands next to it.
  EXPECT_EQ(codeOf("y@x@@@(x,2)*3"), "code 2 1 2 | 108 2 0 1; map 1 2 3; LastSlot 2");
}

TEST(Compiler, QUIRK_EndsWithTheFirstGroupWhenTheWrappingParenthesesAreClosedEarly) {
  EXPECT_EQ(codeOf("y@x@@@x)+(2"), "code 108 1 0; map 1 2; LastSlot 1");
}

TEST(Compiler, QUIRK_TearsANameThatEndsLikeAFunction) {
  EXPECT_THAT(expressionLines("y@@@@XSIN(2)"), ElementsAre("* ERR. X##07(2 Espressione Variabile Errata",
                                                           "* ERR. Variabile X##0 NON definita"));
}

TEST(Compiler, HasRoomForAHundredOperands) {
  EXPECT_EQ(compiled("y@x@@@" + sumOf(100)).expression.LastSlot, 99);
  EXPECT_TRUE(compiles("y@x@@@" + sumOf(100)));
  EXPECT_TRUE(isRefusedByGrammar("y@x@@@" + sumOf(101)));
  // More than 255 literals do not fit into the operand map either; the grammar comes first.
  EXPECT_TRUE(isRefusedByGrammar("y@x@@@" + sumOf(300, "2")));
}

TEST(Compiler, RefusesAnIndexThatDoesNotFitIntoTheMap) {
  const auto variables = [](int count) {
    std::string list = "a0";
    for (int i = 1; i < count; ++i) list += ",a" + std::to_string(i);
    return list;
  };
  EXPECT_EQ(codeOf("y@" + variables(255) + "@@@a254"), "code 108 1 0; map 255; LastSlot 0");
  EXPECT_FALSE(compiles("y@" + variables(256) + "@@@a255"));
}

TEST(Compiler, ReportsALongNameInTheExpressionAndGoesOn) {
  EXPECT_THAT(expressionLines("y@x@@@ABCDE+bad+x"),
              ElementsAre("* ERR. ABCDE Espressione Variabile Errata", "* ERR. Variabile ABCD NON definita",
                          "* ERR. Variabile bad NON definita"));
  EXPECT_THAT(expressionLines("y@ABCD@@@ABCDE"), ElementsAre("* ERR. ABCDE Espressione Variabile Errata"));
}

TEST(Compiler, QUIRK_FindsANameAcrossTwoEntriesOfTheTable) {
  EXPECT_EQ(codeOf("y@xabc,dyyy@@@abcd"), "code 108 1 0; map 1; LastSlot 0");
  // Character 3 is index 1.5 and character 7 index 2.5: both go to 2.
  EXPECT_EQ(codeOf("y@xxab,cdyy@@@abcd"), "code 108 1 0; map 2; LastSlot 0");
  EXPECT_EQ(codeOf("y@zzzz,xxab,cdyy@@@abcd"), "code 108 1 0; map 2; LastSlot 0");
}

TEST(Compiler, ReportsUnequalParenthesesAndMakesNoCode) {
  EXPECT_THAT(expressionLines("y@x@@@((x)"), ElementsAre("* ERR.:  2Parentesi Aperte e  1 Chiuse"));
  EXPECT_THAT(expressionLines("y@x@@@x)*()"), ElementsAre("* ERR.:  1Parentesi Aperte e  2 Chiuse"));
  EXPECT_THAT(expressionLines("y@x@@@(x+b"),
              ElementsAre("* ERR.:  1Parentesi Aperte e  0 Chiuse", "* ERR. Variabile b NON definita"));
  EXPECT_EQ(codeOf("y@x@@@((x)"), "failed");
}

TEST(Compiler, StoresConstantsBehindVariablesAndParameters) {
  const CompiledExpression e = compiled("y@x@A,B@G,H/9.8,1.5@A*x*G+H+B+2.25").expression;
  EXPECT_EQ(e.nVar, 1);
  EXPECT_EQ(e.nPar, 2);
  EXPECT_EQ(e.Values.upper(), 6);
  EXPECT_THAT(constantsOf("y@x@A,B@G,H/9.8,1.5@A*x*G+H+B+2.25"), ElementsAre(9.8, 1.5, 2.25));
  EXPECT_EQ(e.Values[0], 0);
  EXPECT_EQ(e.Slots.upper(), e.LastSlot);
}

TEST(Compiler, QUIRK_ShiftsLiteralsWhenValuesAreMissing) {
  EXPECT_THAT(constantsOf("y@x@@G,H/9.8@G+H+2+3"), ElementsAre(9.8, 2, 3, 0));
  EXPECT_THAT(constantsOf("y@x@@G@G+2"), ElementsAre(2, 0));
  EXPECT_THAT(constantsOf("y@x@@G/1,7@G+2"), ElementsAre(1, 7));
  EXPECT_THAT(constantsOf("y@x@@/5@x+2"), ElementsAre(5));
  EXPECT_THAT(constantsOf("y@x@@G,H/,4@G+H"), ElementsAre(0, 4));
}

TEST(Compiler, RefusesALiteralOfMoreThanTwentyCharacters) {
  EXPECT_EQ(literal("0.123456789012345678"), 0.123456789012345678);
  EXPECT_THAT(expressionLines("y@@@@0.1234567890123456789"),
              ElementsAre("* ERR. 0.1234567890123456789Nome piu` Lungo di 20 Caratteri, Troncato a "
                          "0.123456789012345678"));
  EXPECT_EQ(codeOf("y@@@@0.1234567890123456789"), "failed");
}

TEST(Compiler, ComparesTheFirstReducedFunctionWithItsArity) {
  EXPECT_FALSE(compiles("y@x@@@SIN(1,2)"));
  EXPECT_FALSE(compiles("y@x@@@D_N(x)"));
  EXPECT_TRUE(compiles("y@x@@@D_N(x,0,1)"));
  EXPECT_TRUE(expressionLines("y@x@@@SIN(1,2)").empty());
}

TEST(Compiler, QUIRK_ComparesLaterFunctionsWithWhatIsLeftOfTheArities) {
  EXPECT_EQ(codeOf("y@x@@@SQR(x)+SIN(1,2)"),
            "code 11 1 0 | 17 2 1 2 | 4 0 1 | 108 1 0; map 1 2 3; LastSlot 2");
  EXPECT_FALSE(compiles("y@x@@@D_N(x,0,1)*ABS(x)"));
  EXPECT_TRUE(compiles("y@x@@@SIN(x)*ABS(x)"));
  EXPECT_TRUE(compiles("y@x@@@ABS(x)+C_B(1,2,3)"));
  EXPECT_TRUE(compiles("y@x@@@SIN(x)+ABS(x)+D_N(x)"));
  // A count of two digits leaves two of them: ABS is compared with the first, SQR with the second.
  const std::string twelve = "SUM(1,2,3,4,5,6,7,8,9,10,11,12)";
  EXPECT_TRUE(compiles("y@x@@@" + twelve + "+ABS(x)"));
  EXPECT_FALSE(compiles("y@x@@@" + twelve + "+SQR(x)"));
  EXPECT_TRUE(compiles("y@x@@@" + twelve + "+SQR(x,1)"));
  // A zero among them takes any count.
  EXPECT_TRUE(compiles("y@x@@@SUM(1,2,3,4,5,6,7,8,9,10)+SQR(x,1,2)"));
}

TEST(Compiler, TakesAnyNumberOfArgumentsInTheListFunctions) {
  for (const char* name : {"SUM", "AVG", "STD"}) {
    EXPECT_TRUE(compiles("y@x@@@" + std::string(name) + "(x)"));
    EXPECT_TRUE(compiles("y@x@@@" + std::string(name) + "(x,1)"));
    EXPECT_TRUE(compiles("y@x@@@" + std::string(name) + "(x,1,2,3,4,5,6,7,8,9,10,11)"));
  }
}

TEST(Compiler, TakesFunctionTokensThatTheUserTyped) {
  EXPECT_EQ(codeOf("y@x@@@##07(x)"), "code 17 1 0 | 108 1 0; map 1; LastSlot 0");
  EXPECT_EQ(codeOf("y@x@@@##99(x)"), "code 109 1 0 | 108 1 0; map 1; LastSlot 0");
  EXPECT_EQ(codeOf("y@x@@@##98(x,2)"), "code 108 2 0 1 | 108 1 0; map 1 2; LastSlot 1");
  EXPECT_FALSE(compiles("y@x@@@##xy(x)"));
  EXPECT_FALSE(compiles("y@x@@@(##)"));
}

TEST(Compiler, IgnoresBlanksInAllFields) {
  EXPECT_EQ(codeOf(" y @ x , z @ A , B @ G , H / 9.8 , 1.5 @ A * S IN ( B * x ) + G "),
            "code 2 1 2 | 17 1 1 | 2 0 1 | 4 0 3 | 108 1 0; map 3 4 1 5; LastSlot 3");
  EXPECT_EQ(compiled("y@ @ @ @1").expression.nVar, 0);
  EXPECT_EQ(codeOf("y@ @ @ @1"), "code 108 1 0; map 1; LastSlot 0");
}

TEST(Compiler, TakesEverythingBehindTheFourthMarkAsTheExpression) {
  EXPECT_THAT(expressionLines("y@x@@@x@2"), ElementsAre("* ERR. Variabile x@2 NON definita"));
  EXPECT_THAT(expressionLines("y@x"), ElementsAre(kGrammarLine));
}

// ---- Any length -------------------------------------------------------------------------------------------
// Work that grew with the square of these lengths would not come to its end.

std::string times(int count, const std::string& text) {
  std::string result;
  for (int i = 0; i < count; ++i) result += text;
  return result;
}

constexpr int kVeryMany = 1000000;

TEST(Compiler, ReducesAnyNumberOfParentheses) {
  EXPECT_EQ(codeOf("y@x@@@" + times(kVeryMany, "(") + "x" + times(kVeryMany, ")")),
            "code 108 1 0; map 1; LastSlot 0");
}

TEST(Compiler, ReducesAnyNumberOfFunctionsInOneAnother) {
  constexpr int kMany = kVeryMany / 2;
  const Compiled result = compiled("y@x@@@" + times(kMany, "abs(") + "x" + times(kMany, ")"));
  EXPECT_EQ(result.flag, 0);
  EXPECT_EQ(result.expression.Code.size(), 3U * kMany + 3);
}

TEST(Compiler, DropsAnyNumberOfSignsBehindAParenthesis) {
  EXPECT_EQ(codeOf("y@x@@@(" + times(kVeryMany, "+") + "x)"), "code 108 1 0; map 1; LastSlot 0");
}

}  // namespace
}  // namespace vk
