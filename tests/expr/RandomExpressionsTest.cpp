#include "expr/RandomExpressions.h"

namespace vk {
namespace {

/// Compiles the text of a tree; the flag must be what the arity check makes of it.
bool compileTree(Session& session, const Node& tree, CompiledExpression& compiled) {
  const std::string text = textOf(tree);
  Int16 flag;
  CompileExpression(session, "y@x,yy,P,z_3@@@" + text, compiled, flag);
  EXPECT_EQ(flag == 0, passesArityCheck(tree)) << text;
  return flag == 0;
}

TEST(RandomExpressions, HaveTheValuesOfTheirTrees) {
  ExpressionMaker maker(20240101, {"x", "yy", "P", "z_3"});
  const std::vector<std::vector<double>> points{{0.5, 2, -1.25, 3}, {-2, 0, 1e200, 0.75}, {1, 1, 1, 1}};
  Session session;
  CountingDialogs dialogs;
  int compared = 0;
  for (int i = 0; i < 20000; ++i) {
    const auto tree = maker.make(4);
    CompiledExpression compiled;
    if (textOf(*tree).size() > 400 || !compileTree(session, *tree, compiled)) continue;
    for (const std::vector<double>& point : points) {
      for (int v = 0; v < 4; ++v) compiled.Values[v + 1] = point[static_cast<std::size_t>(v)];
      loadSlots(compiled);
      bool failed = false;
      const double expected = valueOf(*tree, point, failed);
      const double value = EvaluateCode(session, dialogs, compiled.Code, compiled.Slots);
      ASSERT_TRUE(sameBits(value, expected)) << textOf(*tree) << ": " << value << ", not " << expected;
      ASSERT_EQ(session.ErrFlag, failed ? -1 : 0) << textOf(*tree);
      ++compared;
    }
  }
  EXPECT_GT(compared, 30000);
}

}  // namespace
}  // namespace vk
