#include "ui/layout/MessageLayout.h"

#include <algorithm>

#include "base/Text.h"

namespace vk {
namespace {

/// Around the content, beyond the gaps between the buttons.
constexpr double kMargin = 180;
constexpr double kLettersOfWidestText = 50;

/// Widths that the whole dialog is built from.
struct Measures {
  double button, gap, letter, text, linePitch;
};

Measures measure(const MessageRequest& request, const TextMeasure& font) {
  Measures m{};
  for (const WindowText& caption : request.captions) {
    m.button = std::max(m.button, 1.2 * font.width(caption.bytes()).value());
  }
  m.gap = 0.2 * m.button;
  m.letter = font.width("A").value();
  m.text = std::min(MaxLineWidth(font, request.text.bytes()).value(), kLettersOfWidestText * m.letter);
  // QUIRK: the pitch comes from the width of the letter, not its height; the dialogs are spaced by it.
  m.linePitch = 2 * m.letter;
  return m;
}

/// The longest prefix of at least one character that fits.
std::size_t fittingPrefix(const TextMeasure& font, std::string_view text, double maxWidth) {
  std::size_t count = 1;
  while (count < text.size() && font.width(text.substr(0, count + 1)).value() <= maxWidth) ++count;
  return count;
}

/// Position of the last blank up to which the text fits; npos when the first word is too wide already.
std::size_t lastFittingBlank(const TextMeasure& font, std::string_view text, double maxWidth) {
  std::size_t best = std::string_view::npos;
  for (std::size_t blank = text.find(' '); blank != std::string_view::npos;
       blank = text.find(' ', blank + 1)) {
    if (font.width(text.substr(0, blank)).value() > maxWidth) break;
    best = blank;
  }
  return best;
}

std::vector<std::string> wrapAll(const TextMeasure& font, std::string_view text, double maxWidth) {
  std::vector<std::string> lines;
  for (const std::string& paragraph : paragraphs(text)) {
    std::ranges::move(WrapText(font, paragraph, maxWidth), std::back_inserter(lines));
  }
  return lines;
}

std::vector<Rect> placeButtons(std::size_t count, const Measures& m, double width, double top,
                               double height) {
  const double n = static_cast<double>(count);
  const double space = (width - n * m.button) / (n + 1);
  std::vector<Rect> buttons;
  for (std::size_t i = 0; i < count; ++i) {
    const double left = space + static_cast<double>(i) * (m.button + space);
    buttons.push_back({left, top, m.button, height});
  }
  return buttons;
}

double along(int code, double ownerStart, double ownerLength, double length, double screenLength) {
  switch (code) {
    case 1:
      return ownerStart;
    case 2:
      return ownerStart + ownerLength - length;
    default:
      break;
  }
  const double centre = ownerStart + ownerLength / 2;
  return (centre == 0 ? screenLength / 2 : centre) - length / 2;
}

double keepOn(double start, double length, double screenLength) {
  return std::max(0.0, std::min(start, screenLength - length));
}

double horizontal(int code, const Rect& owner, double width, double screenWidth) {
  if (code == -2) return owner.right();
  if (code == -1) return owner.left - width;
  return along(code, owner.left, owner.width, width, screenWidth);
}

double vertical(int code, const Rect& owner, double height, double screenHeight) {
  // QUIRK: "above" goes up by the owner's own height, not the dialog's; a tall dialog covers the owner.
  if (code == -2) return owner.top - owner.height;
  if (code == -1) return owner.bottom();
  // Edges are counted from the bottom upward: 1 aligns the bottoms, 2 the tops.
  const int mirrored = code == 1 ? 2 : code == 2 ? 1 : code;
  return along(mirrored, owner.top, owner.height, height, screenHeight);
}

}  // namespace

std::vector<std::string> paragraphs(std::string_view text) {
  std::vector<std::string> result(1);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r') {
      result.back() += text[i];
      continue;
    }
    result.emplace_back();
    if (text.substr(i + 1, 1) == "\n") ++i;
  }
  return result;
}

Twips MaxLineWidth(const TextMeasure& font, std::string_view text) {
  Twips widest;
  for (const std::string& paragraph : paragraphs(text)) widest = std::max(widest, font.width(paragraph));
  return widest;
}

std::vector<std::string> WrapText(const TextMeasure& font, std::string_view paragraph, double maxWidth) {
  std::vector<std::string> lines;
  while (!paragraph.empty() && font.width(paragraph).value() > maxWidth) {
    const std::size_t blank = lastFittingBlank(font, paragraph, maxWidth);
    const bool atBlank = blank != std::string_view::npos;
    const std::size_t cut = atBlank ? blank : fittingPrefix(font, paragraph, maxWidth);
    lines.emplace_back(paragraph.substr(0, cut));
    paragraph.remove_prefix(atBlank ? cut + 1 : cut);
  }
  if (!paragraph.empty()) lines.emplace_back(paragraph);
  return lines;
}

Rect placeMessage(Size window, int posX, int posY, const Rect& owner, Size screen) {
  const double left = horizontal(posX, owner, window.width, screen.width);
  const double top = vertical(posY, owner, window.height, screen.height);
  return {keepOn(left, window.width, screen.width), keepOn(top, window.height, screen.height), window.width,
          window.height};
}

MessageLayout layoutMessage(const MessageRequest& request, const TextMeasure& font,
                            const MessageSurroundings& around) {
  const Measures m = measure(request, font);
  const std::vector<std::string> lines = wrapAll(font, request.text.bytes(), m.text);
  const bool hasIcon = request.icon >= kQuestion && request.icon <= kStop;
  const double iconSpace = hasIcon ? around.icon.width + kMargin : 0;
  const double textHeight = std::max(0.0, (static_cast<double>(lines.size()) - 0.5) * m.linePitch);
  const double blockHeight = hasIcon ? std::max(textHeight, around.icon.height) : textHeight;
  const double n = static_cast<double>(request.captions.size());

  MessageLayout layout;
  layout.content.width = 2 * kMargin + std::max({(n + 1) * m.gap + n * m.button,
                                                 around.captionWidth + 2 * m.gap, iconSpace + m.text});
  layout.content.height = 2 * kMargin + blockHeight + around.buttonHeight + 2 * m.gap;

  const double textTop = kMargin + (blockHeight - textHeight) / 2;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    layout.lines.push_back({kMargin + iconSpace, textTop + static_cast<double>(i) * m.linePitch, lines[i]});
  }
  if (hasIcon) {
    const double iconTop = kMargin + (blockHeight - around.icon.height) / 2;
    layout.icon = {kMargin, iconTop, around.icon.width, around.icon.height};
  }
  layout.buttons = placeButtons(request.captions.size(), m, layout.content.width,
                                1.5 * kMargin + blockHeight + m.gap, around.buttonHeight);
  layout.form =
      placeMessage(layout.content + around.frame, request.posX, request.posY, around.owner, around.screen);
  return layout;
}

}  // namespace vk
