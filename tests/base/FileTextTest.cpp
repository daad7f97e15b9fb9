#include "base/FileText.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

struct FileCase {
  std::string bytes;
  bool utf8;
  int lineOfSign;
  std::string text;
};

TEST(FileText, IsUtf8WhereAllItsHighBytesAre) {
  using namespace std::string_literals;
  for (const FileCase& c : {
           FileCase{"", false, 0, ""},
           FileCase{"plain\r\n", false, 0, "plain\r\n"},
           FileCase{"Velocità\nµ", true, 0, "Velocità\nµ"},
           FileCase{"\xEF\xBB\xBFplain", true, 0, "plain"},
           FileCase{"\xEF\xBB\xBF", true, 0, ""},
           FileCase{"\0à"s, true, 0, "\0à"s},
           FileCase{"0123456789012345é", true, 0, "0123456789012345é"},
           FileCase{"a\nb\nc\x82\n", false, 3, "a\nb\nc\x82\n"},
           FileCase{"a\r\nb\nc\r\nd\x82", false, 3, "a\r\nb\nc\r\nd\x82"},
           FileCase{"é\r\n\x82\r\n", false, 2, "é\r\n\x82\r\n"},
           FileCase{"\xEF\xBB\xBFx\xE0", false, 1, "\xEF\xBB\xBFx\xE0"},
           FileCase{"cut off \xC3", false, 1, "cut off \xC3"},
           FileCase{"overlong \xC0\xAF", false, 1, "overlong \xC0\xAF"},
           FileCase{"surrogate \xED\xA0\x80", false, 1, "surrogate \xED\xA0\x80"},
           FileCase{"\xC3\r\n\xA0", false, 1, "\xC3\r\n\xA0"},
       }) {
    SCOPED_TRACE(testing::PrintToString(c.bytes));
    const FileText file(c.bytes);
    EXPECT_EQ(file.isUtf8(), c.utf8);
    EXPECT_EQ(file.lineOfSign(), c.lineOfSign);
    EXPECT_EQ(file.text(), c.text);
  }
}

TEST(FileText, GoesToGridsInTheirCodePage) {
  EXPECT_EQ(FileText("é").gridText("é² αΣ∑ß"), "\x82\xFD \xE0\xE4\xE4\xE1");
  EXPECT_EQ(FileText("\x82").gridText("\x82 é"), "\x82 é");
  EXPECT_EQ(gridTextOfUtf8("È Ø Ã – “a” 3 × 4 € ≤ λ \u4E16 \U0001F600"),
            "E` O A - \"a\" 3 * 4 EUR \xF3 ? ? ?");
  EXPECT_EQ(gridTextOfUtf8("è \xFF"), "è \xFF") << "no UTF-8";
}

}  // namespace
}  // namespace vk
