#include "expr/RandomExpressions.h"
#include "fuzz/DefinitionProbe.h"

namespace vk {
namespace {

/// A definition text that is well formed, but for the arity of its functions now and then.
std::string wellFormed(ExpressionMaker& maker) {
  const bool constants = maker.oneIn(2);
  const std::string expression = textOf(*maker.make(3));
  return "y@x,yy" + std::string(maker.oneIn(5) ? " " : "") + "@P" + (maker.oneIn(2) ? ",q" : "") + "@" +
         (constants ? "z_3,K/9.8,-1E5" : "z_3") + "@" + expression;
}

/// The text with some of its characters dropped, doubled, moved or replaced.
std::string damaged(ExpressionMaker& maker, std::string text) {
  const std::string kAlphabet = "()()+-*/^,,#@@0123456789.EeDxXaASINLOGPQ_ \t%\xE9\x01";
  for (std::size_t n = 1 + maker.below(4); n > 0 && !text.empty(); --n) {
    const std::size_t at = maker.below(text.size());
    switch (maker.below(4)) {
      case 0:
        text.erase(at, 1 + maker.below(3));
        break;
      case 1:
        text.insert(at, 1, kAlphabet[maker.below(kAlphabet.size())]);
        break;
      case 2:
        text[at] = kAlphabet[maker.below(kAlphabet.size())];
        break;
      default:
        text.insert(at, text.substr(maker.below(text.size()), maker.below(12)));
        break;
    }
  }
  return text;
}

std::string noise(ExpressionMaker& maker) {
  const std::string kAlphabet = "((()))+-*/^,#@0123456789.E##98xyAB SIN(SUM(";
  std::string text = "y@x@A@@";
  for (std::size_t n = maker.below(24); n > 0; --n) text += kAlphabet[maker.below(kAlphabet.size())];
  return text;
}

TEST(RandomDefinitions, ThatEndBeforeTheirExpressionHaveTheirFaultsWithin) {
  DefinitionProbe probe;
  for (const char* text : {"", "@", "y@", "y@x@@@", "y@x@A@@ "}) EXPECT_NO_THROW(probe.probe(text)) << text;
}

TEST(RandomDefinitions, NeverCrashHangOrGiveAValueThatIsNotFinite) {
  ExpressionMaker maker(314159, {"x", "yy", "P", "z_3"});
  DefinitionProbe probe;
  int good = 0;
  constexpr int kTexts = 40000;
  for (int i = 0; i < kTexts; ++i) {
    std::string text = maker.oneIn(4) ? noise(maker) : wellFormed(maker);
    if (maker.oneIn(2)) text = damaged(maker, text);
    ASSERT_NO_THROW(good += probe.probe(text) ? 1 : 0) << text;
  }
  // Both kinds are there in numbers.
  EXPECT_GT(good, kTexts / 4);
  EXPECT_LT(good, kTexts * 3 / 4);
}

}  // namespace
}  // namespace vk
