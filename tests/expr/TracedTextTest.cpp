#include "expr/TracedText.h"

#include <gmock/gmock.h>

namespace vk {
namespace {

using From = std::pair<int, int>;

/// First character in the definition, and how many.
From placeOf(const TracedText& text, std::size_t at, std::size_t count) {
  const Place place = text.placeOf(at, count);
  return {place.first, place.length};
}

TEST(TracedText, TellsWhereItsCharactersComeFrom) {
  const TracedText text("abc", 5);
  EXPECT_EQ(placeOf(text, 0, 3), From(5, 3));
  EXPECT_EQ(placeOf(text, 1, 1), From(6, 1));
  EXPECT_EQ(placeOf(text, 1, 0), From(6, 0));
  EXPECT_EQ(placeOf(text, 1, 9), From(6, 2));
  EXPECT_EQ(placeOf(text, 3, 1), From(7, 0)) << "behind its end";
  EXPECT_EQ(placeOf(TracedText("", 4), 0, 1), From(4, 0));
}

TEST(TracedText, KeepsThePlacesInItsParts) {
  const TracedText text("abcd", 5);
  EXPECT_EQ(text.part(1, 3).text(), "bc");
  EXPECT_EQ(placeOf(text.part(1, 3), 0, 2), From(6, 2));
  EXPECT_EQ(placeOf(text.part(2, 2), 0, 0), From(7, 0));
  EXPECT_EQ(placeOf(text.part(4, 4), 0, 0), From(9, 0));
  EXPECT_EQ(placeOf(TracedText("", 4).part(0, 0), 0, 0), From(4, 0));
  EXPECT_EQ(text.inCapitals().text(), "ABCD");
  EXPECT_EQ(placeOf(text.inCapitals(), 3, 1), From(8, 1));
}

TEST(TracedText, KeepsThePlacesWithoutItsBlanks) {
  const TracedText text = TracedText(" a  b", 2).withoutBlanks();
  EXPECT_EQ(text.text(), "ab");
  EXPECT_EQ(placeOf(text, 0, 1), From(3, 1));
  EXPECT_EQ(placeOf(text, 1, 1), From(6, 1));
  EXPECT_EQ(placeOf(text, 1, 0), From(6, 0));
  EXPECT_EQ(placeOf(text, 0, 2), From(3, 4)) << "with what stood between";
}

TEST(TracedText, PartsAtItsCommas) {
  const std::vector<TracedText> items = TracedText("a,,bc,", 1).items();
  ASSERT_EQ(items.size(), 4U);
  EXPECT_EQ(placeOf(items[0], 0, 1), From(1, 1));
  EXPECT_EQ(placeOf(items[1], 0, 1), From(3, 0));
  EXPECT_EQ(placeOf(items[2], 0, 2), From(4, 2));
  EXPECT_EQ(placeOf(items[3], 0, 1), From(7, 0));
  EXPECT_TRUE(TracedText("", 1).items().empty());
}

TEST(TracedText, LaysWhatReplacesItWhereItStood) {
  TracedText text("a--b---c", 10);
  text.replaceAll("--", "+");
  EXPECT_EQ(text.text(), "a+b+-c");
  EXPECT_EQ(placeOf(text, 1, 1), From(11, 1));
  EXPECT_EQ(placeOf(text, 2, 1), From(13, 1));
  EXPECT_EQ(placeOf(text, 3, 1), From(14, 1));
  EXPECT_EQ(placeOf(text, 5, 1), From(17, 1));
  text = TracedText("xEy", 3);
  text.replaceAll("E", "*10^");
  EXPECT_EQ(text.text(), "x*10^y");
  EXPECT_EQ(placeOf(text, 1, 4), From(4, 1));
  EXPECT_EQ(placeOf(text, 5, 1), From(5, 1));
}

TEST(TracedText, ReadsAgainWhatAReplacementHasMade) {
  TracedText text("---", 0);
  text.replaceAll("--", "-");
  EXPECT_EQ(text.text(), "-");
  EXPECT_EQ(placeOf(text, 0, 1).second, 1);
}

TEST(TracedText, IsReplacedAtPlaces) {
  TracedText text("a**b**c", 3);
  text.replaceAt({1, 4}, 2, "^");
  EXPECT_EQ(text.text(), "a^b^c");
  EXPECT_EQ(placeOf(text, 1, 1), From(4, 1));
  EXPECT_EQ(placeOf(text, 2, 1), From(6, 1));
  EXPECT_EQ(placeOf(text, 4, 1), From(9, 1));
}

}  // namespace
}  // namespace vk
