#include "grafile/FunctionLines.h"

#include "tests/commands/MakeGraphFixture.h"

namespace vk {
namespace {

using FunctionLinesTest = MakeGraphTest;

TEST_F(FunctionLinesTest, HaveAllDigitsOfAParameterThatWithSevenLeavesNoValueAtAPoint) {
  loadData("A.DAT", {{1, 1, 0, .1}, {2, 4, 0, .1}});
  takeFormula("LOG(x-t)", .99999999);
  makeGraph(kFunctionFigure);
  EXPECT_THAT(session.figures.GraphText[kFunctionFigure],
              testing::HasSubstr("\\FUNZIONE(LOG(x-.99999999))\r\n"));
}

}  // namespace
}  // namespace vk
