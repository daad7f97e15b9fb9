#include <array>
#include <cmath>

#include "base/Text.h"
#include "expr/Compiler.h"
#include "expr/Formula.h"
#include "tests/commands/CatalogueFixture.h"

namespace vk {
namespace {

constexpr int kInnerCount = 5;
constexpr int kOuterCount = 9;

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

}  // namespace
}  // namespace vk
