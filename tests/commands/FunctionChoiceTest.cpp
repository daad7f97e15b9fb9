#include <array>
#include <cmath>

#include "base/CodePage.h"
#include "base/Text.h"
#include "commands/FunctionChoice.h"
#include "doubles/Choices.h"
#include "doubles/EvaluateFunction.h"
#include "doubles/ScriptedDialogs.h"
#include "expr/Catalogue.h"
#include "expr/Compiler.h"
#include "expr/Formula.h"

namespace vk {
namespace {

constexpr int kInnerCount = 5;
constexpr int kOuterCount = 9;

/// A session with its catalogue, and two ways to choose from it.
class CatalogueTest : public testing::Test {
 protected:
  CatalogueTest() { BuildCatalogue(session.loaded.catalogue); }

  void take(int inner, int outer) { choose(session, inner, outer); }
  std::string composite(int inner, int outer) {
    session.analysis.fun.InnerIndex = inner;
    session.analysis.fun.OuterIndex = outer;
    return toUtf8(compositeText(session.loaded.catalogue, session.analysis.fun), CodePage::kCp437);
  }
  std::string machine(int inner, int outer) {
    session.analysis.fun.InnerIndex = inner;
    session.analysis.fun.OuterIndex = outer;
    return ComposeFunctionText(session.loaded.catalogue, session.analysis.fun);
  }
  void addToFile(const std::string& parameters, const std::string& definition,
                 const std::string& description) {
    session.loaded.catalogue.file.entries.push_back({parameters, definition, description});
  }
  /// A file of five functions p*x, p*x*2, ...; `load` takes one of them into the catalogue.
  void readFiveFunctions() {
    for (const char* factor : {"1", "2", "3", "4", "5"}) {
      addToFile("p", std::string("p*x*") + factor, std::string("times ") + factor);
    }
  }
  void load(int from, int to) {
    for (int entry = from; entry <= to; ++entry) loadFunction(session, entry);
  }
  std::vector<std::string> innerTexts() const {
    std::vector<std::string> texts;
    for (const CatalogueEntry& entry : session.loaded.catalogue.inner) texts.push_back(entry.display);
    return texts;
  }

  Session session;
  ScriptedDialogs dialogs;
};

TEST_F(CatalogueTest, TheInnerListHasFiveFunctionsWithSquaresAsByte253) {
  const auto& g = session.loaded.catalogue.inner;
  ASSERT_EQ(g.size(), 5U);
  EXPECT_EQ(g[0].display, "c");
  EXPECT_EQ(g[1].display, "bx+c");
  EXPECT_EQ(g[2].display, "ax\xFD+bx+c");
  EXPECT_EQ(g[3].display, "[(x-m)\xFD+a]/b");
  EXPECT_EQ(g[4].display, "a/[(x\xFD-m\xFD)\xFD+b\xFDx\xFD]");
  EXPECT_EQ(g[0].machine, "c");
  EXPECT_EQ(g[1].machine, "b*x+c");
  EXPECT_EQ(g[2].machine, "a*x*x+b*x+c");
  EXPECT_EQ(g[3].machine, "((x-m)^2+a)/b");
  EXPECT_EQ(g[4].machine, "a/((x*x-m*m)^2+(b*x)^2)");
  EXPECT_EQ(g[0].names, "    c");
  EXPECT_EQ(g[1].names, "    b    c");
  EXPECT_EQ(g[2].names, "    a    b    c");
  EXPECT_EQ(g[3].names, "    m    a    b");
  EXPECT_EQ(g[4].names, "    a    m    b");
}

TEST_F(CatalogueTest, TheOuterListHasNineFunctionsWithTheRootAsByte251) {
  const std::array<std::array<const char*, 2>, kOuterCount> expected{{{"u", ""},
                                                                      {"u\xFD", ""},
                                                                      {"1/u", ""},
                                                                      {"\xFBu", ""},
                                                                      {"(x+A)/u", "    A"},
                                                                      {"A ln(u)", "    A"},
                                                                      {"A exp(u)", "    A"},
                                                                      {"A sin(u)", "    A"},
                                                                      {"A exp[-Bx] sin(u)", "    A    B"}}};
  const auto& f = session.loaded.catalogue.outer;
  ASSERT_EQ(f.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(f[i].display, expected[i][0]);
    EXPECT_EQ(f[i].names, expected[i][1]);
  }
}

TEST_F(CatalogueTest, BuildingAnewThrowsTheLoadedFunctionsAway) {
  readFiveFunctions();
  load(1, 2);
  BuildCatalogue(session.loaded.catalogue);
  EXPECT_EQ(session.loaded.catalogue.inner.size(), 5U);
}

TEST_F(CatalogueTest, DisplayTextsOfAll45Pairs) {
  const std::array<std::array<const char*, kInnerCount>, kOuterCount> expected{{
      {"c", "bx+c", "ax²+bx+c", "[(x-m)²+a]/b", "a/[(x²-m²)²+b²x²]"},
      {"c²", "(bx+c)²", "(ax²+bx+c)²", "([(x-m)²+a]/b)²", "(a/[(x²-m²)²+b²x²])²"},
      {"1/c", "1/(bx+c)", "1/(ax²+bx+c)", "b/[(x-m)²+a]", "[(x²-m²)²+b²x²]/a"},
      {"√c", "√(bx+c)", "√(ax²+bx+c)", "√([(x-m)²+a]/b)", "√(a/[(x²-m²)²+b²x²])"},
      {"(x+A)/c", "(x+A)/(bx+c)", "(x+A)/(ax²+bx+c)", "(x+A)b/[(x-m)²+a]", "(x+A)[(x²-m²)²+b²x²]/a"},
      {"A ln(c)", "A ln(bx+c)", "A ln(ax²+bx+c)", "A ln([(x-m)²+a]/b)", "A ln(a/[(x²-m²)²+b²x²])"},
      {"A exp(c)", "A exp(bx+c)", "A exp(ax²+bx+c)", "A exp([(x-m)²+a]/b)", "A exp(a/[(x²-m²)²+b²x²])"},
      {"A sin(c)", "A sin(bx+c)", "A sin(ax²+bx+c)", "A sin([(x-m)²+a]/b)", "A sin(a/[(x²-m²)²+b²x²])"},
      {"A exp[-Bx] sin(c)", "A exp[-Bx] sin(bx+c)", "A exp[-Bx] sin(ax²+bx+c)",
       "A exp[-Bx] sin([(x-m)²+a]/b)", "A exp[-Bx] sin(a/[(x²-m²)²+b²x²])"},
  }};
  for (int f = 1; f <= kOuterCount; ++f) {
    for (int g = 1; g <= kInnerCount; ++g) {
      const std::string text = expected[static_cast<std::size_t>(f - 1)][static_cast<std::size_t>(g - 1)];
      EXPECT_EQ(composite(g, f), " y = " + text + " ") << "f " << f << ", g " << g;
    }
  }
}

TEST_F(CatalogueTest, ALoadedFunctionIsPutInParenthesesAndItsDivisionFlattened) {
  addToFile("q", "q+x", "somma");
  addToFile("v", "v*x", "velocita m/s/t");
  load(1, 2);
  EXPECT_EQ(composite(6, 1), " y = somma ");
  EXPECT_EQ(composite(6, 3), " y = 1/(somma) ");
  EXPECT_EQ(composite(6, 6), " y = A ln(somma) ");
  EXPECT_EQ(composite(7, 3), " y = s/t/velocita m ");
  EXPECT_EQ(composite(7, 5), " y = (x+A)s/t/velocita m ");
}

TEST_F(CatalogueTest, WithoutAFunctionTheTextIsBare) {
  EXPECT_EQ(composite(0, 0), " y =  ");
  EXPECT_EQ(machine(0, 0), "");
}

TEST_F(CatalogueTest, TextsOverSixtyCharactersAreShownByTheirEnds) {
  const std::string sixty = "123456789-123456789-123456789-123456789-123456789-123456789-";
  EXPECT_EQ(shownCompositeText(sixty), sixty);
  EXPECT_EQ(shownCompositeText(sixty + "A"), "123456789-123456789-12345678...456789-123456789-123456789-A");
}

TEST_F(CatalogueTest, TheStoredTextOfALongFunctionIsWhole) {
  const std::string longText(58, 'd');
  addToFile("q", "q*x", longText);
  load(1, 1);
  take(6, 1);
  EXPECT_EQ(session.analysis.fun.FunctionText, " y = " + longText + " ");
  EXPECT_EQ(shownCompositeText(session.analysis.fun.FunctionText),
            " y = " + std::string(23, 'd') + "..." + std::string(27, 'd') + " ");
}

TEST_F(CatalogueTest, MachineTextsOfAll45Pairs) {
  const std::array<const char*, kInnerCount> g{"c", "b*x+c", "a*x*x+b*x+c", "((x-m)^2+a)/b",
                                               "a/((x*x-m*m)^2+(b*x)^2)"};
  for (int i = 1; i <= kInnerCount; ++i) {
    const std::string t = g[static_cast<std::size_t>(i - 1)];
    const std::array<std::string, kOuterCount> expected{t,
                                                        "(" + t + ")^2",
                                                        "1/(" + t + ")",
                                                        "SQR(" + t + ")",
                                                        "(x+A)/(" + t + ")",
                                                        "A*LOG(" + t + ")",
                                                        "A*EXP(" + t + ")",
                                                        "A*SIN(" + t + ")",
                                                        "A*EXP(-B*x)*SIN(" + t + ")"};
    for (int f = 1; f <= kOuterCount; ++f)
      EXPECT_EQ(machine(i, f), expected[static_cast<std::size_t>(f - 1)]);
  }
}

TEST_F(CatalogueTest, TheMachineTextOfALoadedFunctionLosesItsBlanksAndKeepsAParameterCalledT) {
  addToFile("T", "T * x + T", "rampa");
  load(1, 1);
  EXPECT_EQ(machine(6, 1), "T*x+T");
  EXPECT_EQ(machine(6, 8), "A*SIN(T*x+T)");
  EXPECT_EQ(machine(6, 0), "T*x+T");
}

// The names of ParNames as the compiler wants them.
std::string parameterList(const ParameterSet& par) {
  std::string list;
  for (int i = 1; i <= par.ParCount; ++i) list += (i > 1 ? "," : "") + par.name(i);
  return list;
}

TEST_F(CatalogueTest, FastPathAndCompiledTextAgreeForAll45Pairs) {
  for (int f = 1; f <= kOuterCount; ++f) {
    for (int g = 1; g <= kInnerCount; ++g) {
      take(g, f);
      for (int i = 1; i <= session.analysis.par.ParCount; ++i)
        session.analysis.par.ParValues[i] = 0.3 + 0.4 * i;
      const Compilation compiled =
          compile("y@x@" + parameterList(session.analysis.par) + "@ @" + machine(g, f));
      ASSERT_TRUE(compiled.ok);
      Formula formula(compiled.code);
      NoListener nobody;
      for (double x : {0.25, 1.0, 2.5}) {  // u stays above zero here
        const double fast = EvaluateFunction(session, dialogs, x);
        EXPECT_EQ(session.ErrFlag, 0);
        formula.setValue(1, x);
        for (int i = 1; i <= session.analysis.par.ParCount; ++i) {
          formula.setValue(i + 1, session.analysis.par.ParValues[i]);
        }
        const double slow = formula.value(nobody).value;
        EXPECT_NEAR(fast, slow, 1E-13 * std::abs(slow)) << "f " << f << ", g " << g << ", x " << x;
      }
    }
  }
}

TEST_F(CatalogueTest, NamesAndCountOfAll45Pairs) {
  const std::array<const char*, kInnerCount> inner{"    c", "    b    c", "    a    b    c",
                                                   "    m    a    b", "    a    m    b"};
  const std::array<const char*, kOuterCount> outer{"",      "",      "",      "",          "    A",
                                                   "    A", "    A", "    A", "    A    B"};
  for (int f = 1; f <= kOuterCount; ++f) {
    for (int g = 1; g <= kInnerCount; ++g) {
      take(g, f);
      const std::string names =
          std::string(inner[static_cast<std::size_t>(g - 1)]) + outer[static_cast<std::size_t>(f - 1)];
      EXPECT_EQ(session.analysis.par.ParNames, "    y    x" + names);
      EXPECT_EQ(session.analysis.par.ParCount, length(names) / 5);
      EXPECT_EQ(session.analysis.par.ParNameWidth, 1);
    }
  }
}

TEST_F(CatalogueTest, TakingANewPairStartsItsParameters) {
  session.analysis.ParVar = kTrue;
  session.analysis.ParametersSet = kTrue;
  session.analysis.SimFirstTime = kFalse;
  session.analysis.par.FreeCount = 2;
  take(3, 9);
  EXPECT_EQ(session.analysis.FunDefined, kTrue);
  EXPECT_EQ(session.analysis.SimFirstTime, kTrue);
  EXPECT_EQ(session.analysis.ParVar, kFalse);
  EXPECT_EQ(session.analysis.ParametersSet, kFalse);
  EXPECT_EQ(session.analysis.fun.FunctionText, " y = A exp[-Bx] sin(ax\xFD+bx+c) ");
  EXPECT_EQ(session.analysis.par.ParCount, 5);
  EXPECT_EQ(session.analysis.par.FreeCount, 0);
  EXPECT_EQ(session.analysis.par.ParValues, Array<double>(5));
  EXPECT_EQ(session.analysis.par.ParDeltas, Array<double>(5));
  EXPECT_EQ(session.analysis.par.FreeIndex, Array<Int16>(6));
}

TEST_F(CatalogueTest, TakingTheSamePairAgainKeepsTheParameters) {
  take(2, 1);
  session.analysis.par.ParValues[1] = 7;
  session.analysis.ParVar = kTrue;
  session.analysis.ParametersSet = kTrue;
  take(2, 1);
  EXPECT_EQ(session.analysis.SimFirstTime, kFalse);
  EXPECT_EQ(session.analysis.par.ParValues[1], 7);
  EXPECT_EQ(session.analysis.ParVar, kTrue);
  EXPECT_EQ(session.analysis.ParametersSet, kTrue);
  EXPECT_EQ(session.analysis.FunDefined, kTrue);
}

TEST_F(CatalogueTest, OnlyOneIndexChangedIsANewPair) {
  take(2, 1);
  session.analysis.par.ParValues[1] = 7;
  take(2, 2);
  EXPECT_EQ(session.analysis.SimFirstTime, kTrue);
  EXPECT_EQ(session.analysis.par.ParValues[1], 0);
}

TEST_F(CatalogueTest, TheSameIndicesAfterTheFunctionWasDroppedAreANewPair) {
  addToFile("alfa", "alfa*x", "vecchia");
  load(1, 1);
  take(6, 1);
  EXPECT_TRUE(dropLoadedFunctions(session));
  EXPECT_EQ(session.analysis.fun.InnerIndex, 1);
  take(1, 1);
  EXPECT_EQ(session.analysis.FunDefined, kTrue);
  EXPECT_EQ(session.analysis.par.ParNames, "    y    x    c");
  EXPECT_EQ(session.analysis.par.ParCount, 1);
  EXPECT_EQ(session.analysis.par.ParNameWidth, 1);
  EXPECT_EQ(session.analysis.SimFirstTime, kTrue);
}

TEST_F(CatalogueTest, TakingALoadedFunctionCompilesIt) {
  addToFile("A, omeg ,z", "A*SIN(omeg*x)+z", "onda");
  load(1, 1);
  EXPECT_EQ(session.loaded.catalogue.inner[5].names, "    A omeg    z");
  take(6, 1);
  EXPECT_EQ(session.analysis.par.ParNames, "    y    x    A omeg    z");
  EXPECT_EQ(session.analysis.par.ParCount, 3);
  EXPECT_EQ(session.analysis.par.ParNameWidth, 4);
  EXPECT_EQ(session.analysis.model.loaded().nVar, 1);
  EXPECT_EQ(session.analysis.model.loaded().nPar, 3);
  EXPECT_EQ(session.analysis.model.loaded().Slots.upper(), session.analysis.model.loaded().LastSlot);
  session.analysis.par.ParValues[1] = 2;
  session.analysis.par.ParValues[2] = 0.5;
  session.analysis.par.ParValues[3] = 1;
  EXPECT_DOUBLE_EQ(EvaluateFunction(session, dialogs, 3), 2 * std::sin(1.5) + 1);
}

TEST_F(CatalogueTest, TheSameNameInBothFunctionsStaysTwoParameters) {
  addToFile("A", "A*x", "retta");
  load(1, 1);
  take(6, 7);
  EXPECT_EQ(session.analysis.par.ParNames, "    y    x    A    A");
  EXPECT_EQ(session.analysis.par.ParCount, 2);
  session.analysis.par.ParValues[1] = 2;
  session.analysis.par.ParValues[2] = 3;
  EXPECT_DOUBLE_EQ(EvaluateFunction(session, dialogs, 0.5), 3 * std::exp(1.0));
}

TEST_F(CatalogueTest, ALoadedFunctionWithoutParametersCanBeTaken) {
  addToFile("", "2*x", "doppio");
  load(1, 1);
  take(6, 1);
  EXPECT_EQ(session.analysis.par.ParNames, "    y    x");
  EXPECT_EQ(session.analysis.par.ParCount, 0);
  EXPECT_EQ(session.analysis.par.ParNameWidth, 1);
  EXPECT_EQ(session.analysis.par.ParValues, Array<double>(0));
  EXPECT_EQ(EvaluateFunction(session, dialogs, 4), 8);
}

TEST_F(CatalogueTest, TakingAnIndexOutsideTheListsIsARuntimeError) {
  EXPECT_THROW(take(6, 1), RuntimeError);
  EXPECT_THROW(take(1, 10), RuntimeError);
}

TEST_F(CatalogueTest, LoadingAddsTheFunctionAsTheLastEntry) {
  addToFile("a,bb", "a*x+bb", "una retta");
  EXPECT_FALSE(loadFunction(session, 1));
  ASSERT_EQ(session.loaded.catalogue.inner.size(), 6U);
  EXPECT_EQ(session.loaded.catalogue.inner[5].display, "una retta");
  EXPECT_EQ(session.loaded.catalogue.inner[5].machine, "a*x+bb");
  EXPECT_EQ(session.loaded.catalogue.inner[5].names, "    a   bb");
}

TEST_F(CatalogueTest, LoadingAnEntryThatTheFileDoesNotHaveIsARuntimeError) {
  readFiveFunctions();
  EXPECT_THROW(loadFunction(session, 0), RuntimeError);
  EXPECT_THROW(loadFunction(session, 6), RuntimeError);
  EXPECT_EQ(session.loaded.catalogue.inner.size(), 5U);
}

TEST_F(CatalogueTest, TheFifthLoadDropsTheFirstLoadedFunction) {
  readFiveFunctions();
  load(1, 4);
  EXPECT_EQ(session.loaded.catalogue.inner.size(), 9U);
  EXPECT_FALSE(loadFunction(session, 5));
  EXPECT_THAT(innerTexts(), testing::ElementsAre("c", "bx+c", "ax\xFD+bx+c", "[(x-m)\xFD+a]/b",
                                                 "a/[(x\xFD-m\xFD)\xFD+b\xFDx\xFD]", "times 2", "times 3",
                                                 "times 4", "times 5"));
}

TEST_F(CatalogueTest, AFifthLoadLeavesABuiltInCurrentFunctionAlone) {
  readFiveFunctions();
  take(5, 2);
  load(1, 5);
  EXPECT_EQ(session.analysis.fun.InnerIndex, 5);
  EXPECT_EQ(session.analysis.fun.OuterIndex, 2);
  EXPECT_EQ(session.analysis.FunDefined, kTrue);
}

TEST_F(CatalogueTest, AFifthLoadDropsTheCurrentFunctionWhenItIsTheOldest) {
  readFiveFunctions();
  load(1, 4);
  take(6, 2);
  session.analysis.ParVar = kTrue;
  EXPECT_TRUE(loadFunction(session, 5));
  EXPECT_EQ(session.analysis.FunDefined, kFalse);
  EXPECT_EQ(session.analysis.ParVar, kFalse);
  EXPECT_EQ(session.analysis.fun.InnerIndex, 0);
  EXPECT_EQ(session.analysis.fun.OuterIndex, 0);
}

TEST_F(CatalogueTest, AFifthLoadMovesALaterCurrentFunctionDownByOne) {
  readFiveFunctions();
  load(1, 4);
  take(8, 2);
  session.analysis.ParVar = kTrue;
  EXPECT_FALSE(loadFunction(session, 5));
  EXPECT_EQ(session.analysis.fun.InnerIndex, 7);
  EXPECT_EQ(session.analysis.fun.OuterIndex, 2);
  EXPECT_EQ(session.analysis.FunDefined, kTrue);
  EXPECT_EQ(session.analysis.ParVar, kTrue);
  EXPECT_EQ(compositeText(session.loaded.catalogue, session.analysis.fun), " y = (times 3)\xFD ");
  session.analysis.par.ParValues[1] = 1;
  EXPECT_EQ(EvaluateFunction(session, dialogs, 1), 9);
}

TEST_F(CatalogueTest, DroppingTheLoadedFunctionsKeepsABuiltInCurrentOne) {
  readFiveFunctions();
  load(1, 3);
  take(4, 3);
  session.analysis.ParVar = kTrue;
  EXPECT_FALSE(dropLoadedFunctions(session));
  EXPECT_EQ(session.loaded.catalogue.inner.size(), 5U);
  EXPECT_EQ(session.analysis.fun.InnerIndex, 4);
  EXPECT_EQ(session.analysis.FunDefined, kTrue);
  EXPECT_EQ(session.analysis.ParVar, kTrue);
}

TEST_F(CatalogueTest, DroppingACurrentLoadedFunctionLeavesNone) {
  readFiveFunctions();
  load(1, 3);
  take(7, 3);
  session.analysis.ParVar = kTrue;
  session.analysis.ParametersSet = kTrue;
  EXPECT_TRUE(dropLoadedFunctions(session));
  EXPECT_EQ(session.analysis.FunDefined, kFalse);
  EXPECT_EQ(session.analysis.ParVar, kFalse);
  EXPECT_EQ(session.analysis.ParametersSet, kTrue);
  EXPECT_EQ(session.analysis.fun.InnerIndex, 1);
  EXPECT_EQ(session.analysis.fun.OuterIndex, 3);
}

}  // namespace
}  // namespace vk
