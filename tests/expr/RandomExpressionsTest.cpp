#include "expr/RandomExpressions.h"

namespace vk {
namespace {

TEST(RandomExpressions, HaveTheValuesOfTheirTrees) {
  ExpressionMaker maker(20240101, {"x", "yy", "P", "z_3"});
  const std::vector<std::vector<double>> points{{0.5, 2, -1.25, 3}, {-2, 0, 1e200, 0.75}, {1, 1, 1, 1}};
  NoListener nobody;
  int compared = 0;
  for (int i = 0; i < 20000; ++i) {
    const auto tree = maker.make(4);
    const std::string text = textOf(*tree);
    if (text.size() > 400) continue;
    const Compiled result = compiled("y@x,yy,P,z_3@@@" + text);
    EXPECT_EQ(result.flag == 0, passesArityCheck(*tree)) << text;
    if (result.flag != 0) continue;
    Formula formula(result.expression);
    for (const std::vector<double>& point : points) {
      for (int v = 0; v < 4; ++v) formula.setValue(v + 1, point[static_cast<std::size_t>(v)]);
      bool failed = false;
      const double expected = valueOf(*tree, point, failed);
      const Evaluation evaluation = formula.value(nobody);
      ASSERT_TRUE(sameBits(evaluation.value, expected))
          << text << ": " << evaluation.value << ", not " << expected;
      ASSERT_EQ(evaluation.fault != Fault::kNone, failed) << text;
      ++compared;
    }
  }
  EXPECT_GT(compared, 30000);
}

}  // namespace
}  // namespace vk
