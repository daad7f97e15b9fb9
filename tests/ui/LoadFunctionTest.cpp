#include "ui/LoadFunction.h"

#include "session/Session.h"

namespace vk {
namespace {

using testing::ElementsAre;

class LoadFunctionTest : public testing::Test {
 protected:
  LoadFunctionTest() {
    session.loaded.catalogue.file.entries = {{"A,B", "A*x+B", "retta"}, {"C", "C*x*x", "parabola"}};
    form.refill();
  }

  Session session;
  LoadFunction form{session.loaded.catalogue.file};
};

TEST_F(LoadFunctionTest, TheListShowsTheDescriptionsWithTheFirstSelected) {
  EXPECT_THAT(form.list(), ElementsAre("retta", "parabola"));
  EXPECT_EQ(form.selected(), 1);
}

TEST_F(LoadFunctionTest, DefinitionAndParametersFollowTheSelection) {
  EXPECT_EQ(form.entry().definition, "A*x+B");
  EXPECT_EQ(form.entry().parameters, "A,B");
  form.select(2);
  EXPECT_EQ(form.entry().definition, "C*x*x");
  EXPECT_EQ(form.entry().parameters, "C");
}

TEST_F(LoadFunctionTest, AnotherFileSelectsItsFirstFunction) {
  form.select(2);
  session.loaded.catalogue.file.entries = {{"D", "D", "costante"}};
  form.refill();
  EXPECT_EQ(form.selected(), 1);
  EXPECT_EQ(form.entry().definition, "D");
}

TEST_F(LoadFunctionTest, AnEntryThatHasGoneIsEmpty) {
  form.select(2);
  session.loaded.catalogue.file.entries.pop_back();
  EXPECT_EQ(form.entry().definition, "");
}

TEST_F(LoadFunctionTest, WithoutAFileNothingIsSelected) {
  session.loaded.catalogue.file = {};
  form.refill();
  EXPECT_EQ(form.selected(), 0);
  EXPECT_EQ(form.entry().definition, "");
  EXPECT_EQ(form.entry().parameters, "");
}

TEST(LoadFunctionTexts, CaptionAndFrames) {
  EXPECT_STREQ(kLoadCaption, "VOR_KEL: Carica Funzione");
  EXPECT_STREQ(kDescriptionFrame, "Descrizione");
  EXPECT_STREQ(kDefinitionFrame, "Definizione");
  EXPECT_STREQ(kParametersFrame, "Parametri");
}

}  // namespace
}  // namespace vk
