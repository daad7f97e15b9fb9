#include "gral/DrawingSink.h"

#include "base/Text.h"

namespace vk {
namespace {

constexpr double kLineHeight = 1.15;
constexpr double kAscent = 0.9;

constexpr int kDash[] = {5, 3};
constexpr int kDot[] = {1, 3};
constexpr int kDashDot[] = {5, 3, 1, 3};
constexpr int kDashDotDot[] = {5, 3, 1, 3, 1, 3};

}  // namespace

std::span<const int> dashesOf(int style) {
  switch (style) {
    case kDrawDash:
      return kDash;
    case kDrawDot:
      return kDot;
    case kDrawDashDot:
      return kDashDot;
    case kDrawDashDotDot:
      return kDashDotDot;
    default:
      return {};
  }
}

double FixedLetterMetrics::advance(bool symbol, unsigned char code) {
  const char c = static_cast<char>(code);
  if (symbol) return isLetter(c) ? 0.6 : 0.5;
  if (std::string_view(" !'(),./:;I[\\]fijlt|").find(c) != std::string_view::npos) return 0.3;
  if (std::string_view("MWm%@").find(c) != std::string_view::npos) return 0.9;
  return isLetter(c) && c == upper(c) ? 0.7 : 0.6;
}

double FixedLetterMetrics::lineHeight(bool) {
  return kLineHeight;
}

double FixedLetterMetrics::ascent(bool) {
  return kAscent;
}

bool isSymbolFont(std::string_view name) {
  return equalIgnoringCase(name, "Symbol");
}

}  // namespace vk
