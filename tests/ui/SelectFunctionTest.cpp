#include "ui/SelectFunction.h"

#include "commands/FunctionChoice.h"
#include "expr/Catalogue.h"
#include "session/Session.h"

namespace vk {
namespace {

using testing::ElementsAre;

class SelectFunctionTest : public testing::Test {
 protected:
  SelectFunctionTest() {
    BuildCatalogue(session.loaded.catalogue);
    form.refill();
  }

  Session session;
  SelectFunction form{session};
};

TEST_F(SelectFunctionTest, TheListsShowTheCatalogue) {
  EXPECT_THAT(form.innerList(),
              ElementsAre("c", "bx+c", "ax\xFD+bx+c", "[(x-m)\xFD+a]/b", "a/[(x\xFD-m\xFD)\xFD+b\xFDx\xFD]"));
  EXPECT_THAT(form.outerList(), ElementsAre("u", "u\xFD", "1/u", "\xFBu", "(x+A)/u", "A ln(u)", "A exp(u)",
                                            "A sin(u)", "A exp[-Bx] sin(u)"));
}

TEST_F(SelectFunctionTest, ARefillShowsALoadedFunction) {
  session.loaded.catalogue.file.entries.push_back({"A", "A*x", "retta"});
  loadFunction(session, 1);
  form.refill();
  ASSERT_EQ(form.innerList().size(), 6U);
  EXPECT_EQ(form.innerList()[5], "retta");
}

TEST_F(SelectFunctionTest, ItOpensOnTheFirstEntries) {
  session.analysis.fun.InnerIndex = 4;
  session.analysis.fun.OuterIndex = 9;
  form.open();
  EXPECT_EQ(session.analysis.fun.InnerIndex, 1);
  EXPECT_EQ(session.analysis.fun.OuterIndex, 1);
  EXPECT_EQ(form.text(), " y = c ");
}

TEST_F(SelectFunctionTest, TheTextFollowsEachSelection) {
  form.open();
  form.selectInner(2);
  EXPECT_EQ(form.text(), " y = bx+c ");
  form.selectOuter(2);
  EXPECT_EQ(form.text(), " y = (bx+c)\xFD ");
  form.selectInner(1);
  EXPECT_EQ(form.text(), " y = c\xFD ");
  EXPECT_EQ(session.analysis.fun.InnerIndex, 1);
  EXPECT_EQ(session.analysis.fun.OuterIndex, 2);
}

TEST_F(SelectFunctionTest, ALongTextIsShortenedInTheFieldOnly) {
  session.loaded.catalogue.file.entries.push_back({"A", "A*x", std::string(56, 'd')});
  loadFunction(session, 1);
  form.refill();
  form.open();
  form.selectInner(6);
  EXPECT_EQ(form.text(), " y = " + std::string(23, 'd') + "..." + std::string(27, 'd') + " ");
  EXPECT_EQ(form.innerList()[5], std::string(56, 'd'));
}

TEST_F(SelectFunctionTest, GivingUpRestoresIndicesAndText) {
  form.open();
  form.selectInner(3);
  form.selectOuter(4);
  form.open();
  form.selectInner(5);
  form.selectOuter(5);
  form.giveUp();
  EXPECT_EQ(session.analysis.fun.InnerIndex, 3);
  EXPECT_EQ(session.analysis.fun.OuterIndex, 4);
  EXPECT_EQ(form.text(), " y = \xFB(ax\xFD+bx+c) ");
}

TEST_F(SelectFunctionTest, GivingUpWithoutAFunctionGoesBackToNone) {
  form.open();
  form.selectInner(2);
  form.giveUp();
  EXPECT_EQ(session.analysis.fun.InnerIndex, 0);
  EXPECT_EQ(session.analysis.fun.OuterIndex, 0);
  EXPECT_EQ(form.text(), "");
}

TEST(SelectFunctionTexts, CaptionsAndHeadings) {
  EXPECT_STREQ(kSelectCaption, "VOR_KEL: Selezione Funzione");
  EXPECT_STREQ(kSelectHeading, "F(x)=f[u], u=g(x)");
  EXPECT_STREQ(kOuterHeading, "f[u]");
  EXPECT_STREQ(kInnerHeading, "g(x)");
  EXPECT_STREQ(kAcceptButton, "&Accetta");
  EXPECT_STREQ(kGiveUpButton, "&Rinuncia");
}

TEST(SelectFunctionPlace, RightOfTheLeftEdgeAndCentredInHeight) {
  EXPECT_EQ(placeBeside({1000, 2000, 9000, 6000}, {3000, 4000}), (Rect{1600, 3000, 3000, 4000}));
  EXPECT_EQ(placeBeside({0, 0, 1000, 1000}, {300, 2000}), (Rect{600, -500, 300, 2000}));
}

}  // namespace
}  // namespace vk
