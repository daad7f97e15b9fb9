#include "batch/Json.h"

#include <limits>

namespace vk {
namespace {

TEST(Json, WritesMembersInTheirOrder) {
  const Json object(Json::Object{{"b", 1}, {"a", Json::List{true, Json(), "x"}}});
  EXPECT_EQ(object.text(), "{\n  \"b\": 1,\n  \"a\": [\n    true,\n    null,\n    \"x\"\n  ]\n}");
}

TEST(Json, NumbersComeBackExactlyAndOthersAreNull) {
  EXPECT_EQ(Json(0.1).text(), "0.1");
  EXPECT_EQ(Json(1.0 / 3).text(), "0.3333333333333333");
  EXPECT_EQ(Json(std::numeric_limits<double>::infinity()).text(), "null");
  EXPECT_EQ(Json(std::nan("")).text(), "null");
}

TEST(Json, EscapesWhatTextsMustNotHold) {
  EXPECT_EQ(Json("a\"b\\c\n").text(), "\"a\\\"b\\\\c\\u000a\"");
  EXPECT_EQ(Json("X²").text(), "\"X²\"");
}

TEST(Json, EmptyListsAndObjectsStayOnOneLine) {
  EXPECT_EQ(Json(Json::List{}).text(), "[]");
  EXPECT_EQ(Json(Json::Object{}).text(), "{}");
}

}  // namespace
}  // namespace vk
