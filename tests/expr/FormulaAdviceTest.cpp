#include "expr/FormulaAdvice.h"

#include <algorithm>

#include "doubles/ExampleFolder.h"
#include "expr/Catalogue.h"
#include "expr/CompileHelp.h"
#include "expr/FunctionFile.h"
#include "expr/RandomExpressions.h"

namespace vk {
namespace {

using testing::EndsWith;
using testing::IsEmpty;

const std::vector<std::string> kNames{"x", "a", "b", "tau", "z_3", "E"};

/// The pieces of advice on a formula, each as its place and its text.
std::vector<std::pair<int, std::string>> told(const std::string& formula) {
  std::vector<std::pair<int, std::string>> list;
  for (const FormulaAdvice& piece : adviseOn(formula, kNames)) list.emplace_back(piece.first, piece.text);
  return list;
}

/// The only piece of advice on a formula with the formula and the "^" below it.
std::string shown(const std::string& formula) {
  const auto advice = adviseOn(formula, kNames);
  EXPECT_EQ(advice.size(), 1U) << formula;
  std::string lines = adviceLines(formula, advice);
  std::erase(lines, '\r');
  return lines;
}

std::string definitionOf(const std::string& formula) {
  std::string list;
  for (const std::string& name : kNames) list += (list.empty() ? "" : ",") + name;
  return "y@" + list + "@ @ @" + formula;
}

TEST(FormulaAdvice, AFunctionThatThereIsNot) {
  EXPECT_EQ(shown("a*x+sen(x)"),
            "a*x+sen(x)\n"
            "    ^ \"sen\" non e` una funzione: forse SIN\n");
  EXPECT_EQ(shown("sqrt(x)"), "sqrt(x)\n^ \"sqrt\" non e` una funzione: forse SQR\n");
  EXPECT_EQ(shown("1+ln(x)"), "1+ln(x)\n  ^ \"ln\" non e` una funzione: forse LOG\n");
  EXPECT_EQ(shown("pow(x,2)"), "pow(x,2)\n^ \"pow\" non e` una funzione: forse u^v\n");
  EXPECT_EQ(shown("xSIN(a)"), "xSIN(a)\n^ \"xSIN\" non e` una funzione: forse x*SIN\n");
  EXPECT_EQ(shown("D_X(x,2)"), "D_X(x,2)\n^ \"D_X\" non e` una funzione: forse D_B\n");
  EXPECT_EQ(shown("besselj(x)"), "besselj(x)\n^ \"besselj\" non e` una funzione\n");
}

TEST(FormulaAdvice, ANameThatThereIsNot) {
  EXPECT_EQ(shown("2*pi*x"), "2*pi*x\n  ^ \"pi\" non e` definita: forse 3.1415926\n");
  EXPECT_EQ(shown("A*x"), "A*x\n^ \"A\" non e` definita: forse a\n");
  EXPECT_EQ(shown("ax+b"), "ax+b\n^ \"ax\" non e` definita: forse a*x\n");
  EXPECT_EQ(shown("x/tua"), "x/tua\n  ^ \"tua\" non e` definita: forse tau\n");
  EXPECT_EQ(shown("x+q"), "x+q\n  ^ \"q\" non e` definita\n");
  EXPECT_EQ(shown("x+alpha"), "x+alpha\n  ^ \"alpha\" ha piu` di 4 caratteri: forse alph\n");
  EXPECT_EQ(shown("speed1"), "speed1\n^ \"speed1\" ha piu` di 4 caratteri: forse spe1\n");
  EXPECT_EQ(shown("v12345"), "v12345\n^ \"v12345\" ha piu` di 4 caratteri: forse v345\n");
  EXPECT_EQ(shown("SIN*x"), "SIN*x\n^ \"SIN\" e` una funzione e vuole i suoi argomenti\n");
}

TEST(FormulaAdvice, ACommaOutsideTheArgumentsOfAFunction) {
  const std::string comma = "la virgola separa solo gli argomenti di una funzione";
  EXPECT_EQ(shown("2,5*x"), "2,5*x\n ^ " + comma + ": forse 2.5\n");
  EXPECT_EQ(shown("a*(x,b)"), "a*(x,b)\n    ^ " + comma + "\n");
  EXPECT_EQ(shown("SUM(1,(2,5))"), "SUM(1,(2,5))\n        ^ " + comma + ": forse 2.5\n");
  EXPECT_EQ(shown("a*2,5E-3"), "a*2,5E-3\n   ^ " + comma + ": forse 2.5E-3\n");
  EXPECT_THAT(told("SUM(1,2)+AVG(x,SUM(a,b),STD(1,2,3))"), IsEmpty());
  EXPECT_THAT(told("D_N(x,(a+b),SUM(1,2))"), IsEmpty());
}

TEST(FormulaAdvice, WhatStandsDirectlyBehindANumber) {
  EXPECT_EQ(shown("1+2x"), "1+2x\n  ^ \"2x\" non e` un numero: forse 2*x\n");
  EXPECT_EQ(shown("3A"), "3A\n^ \"3A\" non e` un numero: forse 3*A\n");
  EXPECT_EQ(shown("1.5.2"), "1.5.2\n^ \"1.5.2\" non e` un numero\n");
  EXPECT_EQ(shown("2pi"), "2pi\n^ \"2pi\" non e` un numero: forse 2*3.1415926\n");
  EXPECT_EQ(shown("2sen(x)"), "2sen(x)\n^ \"2sen(\" non e` un numero: forse 2*SIN(\n");
  EXPECT_EQ(shown("2EXP(x)"), "2EXP(x)\n^ \"2EXP(\" non e` un numero: forse 2*EXP(\n");
  EXPECT_EQ(shown("2(x+1)"), "2(x+1)\n^ \"2(\" non e` un numero: forse 2*(\n");
  EXPECT_EQ(shown("1D-3"), "1D-3\n^ \"1D\" non e` un numero: forse 1E\n");
  EXPECT_EQ(shown("2E-x"), "2E-x\n^ \"2E\" non e` un numero: forse 2*E\n");
  EXPECT_EQ(shown("1E2.5"), "1E2.5\n^ \"1E2.5\" non e` un numero\n");
  for (const char* number :
       {"1E-3", "25E+1", "1e5", "1D3", "2.", ".5", "1 000", "1 E - 3", "0.5E10*x", "2-x", "2 *x"})
    EXPECT_THAT(told(number), IsEmpty()) << number;
}

TEST(FormulaAdvice, SignsSideBySide) {
  EXPECT_EQ(shown("x**2"), "x**2\n ^ \"**\" non e` un segno: forse ^\n");
  EXPECT_EQ(shown("x^-1"), "x^-1\n ^ \"^-\": due segni di seguito: forse x^(-1)\n");
  EXPECT_EQ(shown("2*-SIN(x)"), "2*-SIN(x)\n ^ \"*-\": due segni di seguito: forse 2*(-SIN(...))\n");
  EXPECT_EQ(shown("a--b"), "a--b\n ^ \"--\": due segni di seguito: forse a-(-b)\n");
  EXPECT_EQ(shown("a*(--x)"), "a*(--x)\n   ^ \"--\": due segni di seguito: forse -(-x)\n");
  EXPECT_EQ(shown("x*/2"), "x*/2\n  ^ manca un valore\n");
  for (const char* formula : {"-x^2", "+x", "(-x)", "SUM(-1,+2)", "(+-x)", "x^(-1)", "- x * ( - a )"})
    EXPECT_THAT(told(formula), IsEmpty()) << formula;
}

TEST(FormulaAdvice, WhatIsMissingOrTooMuch) {
  EXPECT_EQ(shown("(a)(b)"), "(a)(b)\n   ^ manca un segno: forse )*(\n");
  EXPECT_EQ(shown("(a)x"), "(a)x\n   ^ manca un segno: forse )*x\n");
  EXPECT_EQ(shown("b(x+1)"), "b(x+1)\n ^ manca un segno: forse b*(\n");
  EXPECT_EQ(shown("x+"), "x+\n  ^ manca un valore\n");
  EXPECT_EQ(shown("SUM()"), "SUM()\n    ^ manca un valore\n");
  EXPECT_EQ(shown(""), "\n^ manca un valore\n");
  EXPECT_EQ(shown("a*(x+1"), "a*(x+1\n  ^ parentesi mai chiusa\n");
  EXPECT_EQ(shown("SIN(x"), "SIN(x\n   ^ parentesi mai chiusa\n");
  EXPECT_EQ(shown("x)+1"), "x)+1\n ^ parentesi mai aperta\n");
  EXPECT_EQ(shown("SIN(2,5)"), "SIN(2,5)\n^ \"SIN\": numero di argomenti errato\n");
}

TEST(FormulaAdvice, TellsAllThatIsWrongInTheOrderOfItsPlaces) {
  EXPECT_EQ(told("[a+b]*q:2"),
            (std::vector<std::pair<int, std::string>>{{0, "\"[\" non e` un segno delle formule: forse ("},
                                                      {4, "\"]\" non e` un segno delle formule: forse )"},
                                                      {6, "\"q\" non e` definita"},
                                                      {7, "\":\" non e` un segno delle formule: forse /"}}));
}

// "\xE3" is the letter pi of code page 437, "\xFD" the square.
TEST(FormulaAdvice, SignsOfTheCodePageAreOneCharacterEach) {
  EXPECT_EQ(shown("\xE3*x"), "\xE3*x\n^ \"\xE3\" non e` un segno delle formule: forse 3.1415926\n");
  EXPECT_EQ(told("a\xFD+\xE3"), (std::vector<std::pair<int, std::string>>{
                                    {1, "\"\xFD\" non e` un segno delle formule: forse ^2"},
                                    {3, "\"\xE3\" non e` un segno delle formule: forse 3.1415926"}}));
}

TEST(FormulaAdvice, ThePlaceIsThatInTheTextWithItsBlanks) {
  EXPECT_EQ(shown("  a * 2 x "), "  a * 2 x \n      ^ \"2x\" non e` un numero: forse 2*x\n");
  EXPECT_THAT(adviceLines("\ta*q", adviseOn("\ta*q", kNames)), EndsWith("\t  ^ \"q\" non e` definita\r\n"));
}

// A page of signs taken for a formula is wrong at each of them, and each would have a line as long as the page.
TEST(FormulaAdvice, EndsWhereNobodyWouldReadOn) {
  const std::string fault = "^ \"#\" non e` un segno delle formule\r\n";
  const auto lines = [](int faults) {
    const std::string formula(static_cast<std::size_t>(faults), '#');
    return adviceLines(formula, adviseOn(formula, kNames));
  };
  EXPECT_THAT(lines(20), EndsWith(std::string(19, ' ') + fault));
  EXPECT_THAT(lines(21), EndsWith(std::string(20, ' ') + fault));
  EXPECT_THAT(lines(22), EndsWith(std::string(19, ' ') + fault + "... e altri 2 errori\r\n"));
  EXPECT_LT(lines(40000).size(), 1'000'000U);
  EXPECT_THAT(lines(40000), EndsWith("... e altri 39980 errori\r\n"));
}

TEST(FormulaAdvice, OfADefinitionIsThatOfItsExpression) {
  const std::string wrong = "y@x@a, b@c/3@ a*x+b*c+2q ";
  EXPECT_EQ(adviceLines(wrong, compile(wrong)),
            "a*x+b*c+2q\r\n        ^ \"2q\" non e` un numero: forse 2*q\r\n");
  const std::string good = "y@x@a@ @a*x";
  EXPECT_EQ(adviceLines(good, compile(good)), "");
  // The compiler counts the arguments of the first function only, and takes their number for that of ABS too.
  const std::string refused = "y@x@a@ @D_P(1,2)+ABS(a*x)";
  EXPECT_EQ(adviceLines(refused, compile(refused)), "D_P(1,2)+ABS(a*x)\r\n^ la formula NON si compila\r\n");
  const std::string names = "y@x@alpha@ @x";
  EXPECT_EQ(adviceLines(names, compile(names)), "");
}

TEST(FormulaAdvice, HasNothingToSayOnFormulasOfTheGrammar) {
  ExpressionMaker maker(1, {"x", "a", "tau", "z_3", "E"});
  for (int i = 0; i < 3000; ++i) {
    const std::string formula = textOf(*maker.make(4));
    ASSERT_THAT(told(formula), IsEmpty()) << formula;
  }
}

/// The functions of all function files of the samples, and the composites of the catalogue.
std::vector<std::string> knownDefinitions() {
  std::vector<std::string> definitions;
  for (const auto& [name, bytes] : exampleFiles()) {
    if (!name.ends_with(".fcn")) continue;
    const ParsedFunctionFile parsed = parseFunctionFile(bytes);
    EXPECT_TRUE(parsed.ok && parsed.doubtful.empty()) << name << parsed.report;
    for (const FunctionFile::Entry& entry : parsed.file.entries)
      definitions.push_back(functionDefinition(entry.parameters, entry.definition));
  }
  Catalogue catalogue;
  BuildCatalogue(catalogue);
  FunctionDef fun;
  for (fun.InnerIndex = 1; fun.InnerIndex <= static_cast<int>(catalogue.inner.size()); ++fun.InnerIndex) {
    for (fun.OuterIndex = 1; fun.OuterIndex <= static_cast<int>(catalogue.outer.size()); ++fun.OuterIndex)
      definitions.push_back(functionDefinition("a,b,c,m,A,B", ComposeFunctionText(catalogue, fun)));
  }
  return definitions;
}

TEST(FormulaAdvice, HasNothingToSayOnTheFunctionsThatComeWithTheProgram) {
  const std::vector<std::string> definitions = knownDefinitions();
  EXPECT_GT(definitions.size(), 45U + 5U);
  for (const std::string& definition : definitions) {
    const Compilation compiled = compile(definition);
    EXPECT_TRUE(compiled.ok) << definition;
    EXPECT_EQ(adviceLines(definition, compiled), "");
  }
}

// What is silent about a formula passes the compiler, but for its count of arguments.
TEST(FormulaAdvice, HasSomethingToSayOnWhatTheCompilerRefuses) {
  constexpr std::string_view kSigns = "+-*/^(),. 2xaqE#";
  ExpressionMaker maker(2, {"x", "a", "tau", "z_3"});
  int refused = 0;
  for (int i = 0; i < 2000; ++i) {
    std::string formula = textOf(*maker.make(3));
    for (int change = 0; change < 2; ++change) {
      const std::size_t at = maker.below(formula.size());
      maker.oneIn(2) ? formula.replace(at, 1, 1, kSigns[maker.below(kSigns.size())])
                     : formula.insert(at, 1, kSigns[maker.below(kSigns.size())]);
    }
    const Compilation compiled = compile(definitionOf(formula));
    if (compiled.ok) continue;
    ++refused;
    const bool arguments = std::ranges::all_of(compiled.faults, [](const CompileFault& fault) {
      return fault.kind == CompileFaultKind::kArguments || fault.kind == CompileFaultKind::kNumberTooLong;
    });
    ASSERT_TRUE(arguments || !told(formula).empty()) << formula;
    ASSERT_NE(adviceLines(definitionOf(formula), compiled), "") << formula;
  }
  EXPECT_GT(refused, 500);
}

}  // namespace
}  // namespace vk
