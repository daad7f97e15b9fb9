#include "base/EncodedText.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace vk {
namespace {

static_assert(!std::is_convertible_v<Cp437Text, WindowText>);
static_assert(!std::is_constructible_v<WindowText, Cp437Text>);
static_assert(!std::is_assignable_v<Cp437Text&, WindowText>);
static_assert(!std::is_convertible_v<std::string, Cp437Text>);
static_assert(!std::is_convertible_v<Cp437Text, std::string>);

/// True when two texts can be joined.
template <typename Left, typename Right>
concept Joined = requires(const Left& left, const Right& right) {
  left + right;
};
static_assert(Joined<Cp437Text, Cp437Text>);
static_assert(!Joined<Cp437Text, WindowText>);
static_assert(!Joined<WindowText, std::string>);

constexpr const char* kWord = "Dati";

TEST(EncodedText, TakesConstantsOfAsciiInEitherCodePage) {
  constexpr WindowText kCaption = "Lettura File ";
  EXPECT_EQ((kCaption + kWord).bytes(), "Lettura File Dati");
  EXPECT_EQ(("(" + Cp437Text(kWord) + ")").bytes(), "(Dati)");
  EXPECT_EQ(WindowText().bytes(), "");
}

TEST(EncodedText, EqualsByItsBytesHoweverItWasMade) {
  EXPECT_EQ(WindowText(std::string("Dati")), WindowText(kWord));
  EXPECT_NE(WindowText(std::string("Dati")), WindowText("dati"));
  const WindowText copy = WindowText(std::string(100, 'x'));
  EXPECT_EQ(copy, WindowText(WindowText(copy)));
}

template <CodePage page>
void expectEveryCodeBack() {
  std::string all;
  for (int code = 0; code < 256; ++code) all += static_cast<char>(code);
  const EncodedText<page> text(all);
  EXPECT_EQ(text.bytes(), all);
  std::string back;
  const std::u32string signs = decodeUtf8(toUtf8(text)).value();
  for (const char32_t sign : signs) back += fromUnicode(sign, page).value();
  EXPECT_EQ(EncodedText<page>(back), text);
}

TEST(EncodedText, EveryCodeComesBackFromUtf8) {
  expectEveryCodeBack<CodePage::kCp437>();
  expectEveryCodeBack<CodePage::kWindows1252>();
}

TEST(EncodedText, TheSameByteIsAnotherCharacterInAnotherCodePage) {
  EXPECT_EQ(toUtf8(Cp437Text(std::string("\xE0"))), "α");
  EXPECT_EQ(toUtf8(WindowText(std::string("\xE0"))), "à");
}

}  // namespace
}  // namespace vk
