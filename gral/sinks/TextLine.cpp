#include "gral/sinks/TextLine.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace vk {
namespace {

/// Letters of a line are placed by widths of whole twips, those of a turned one in sizes of whole pixels: so far from
/// its end, in sizes of a letter, the next one may begin.
constexpr double kGap = 0.25;
/// A raised letter behind a lowered one is this far from it at most.
constexpr double kRise = 0.8;

bool isControl(char code) {
  return (code >= 0 && code < ' ') || code == '\x7F';
}

double radians(double degrees) {
  return degrees * std::numbers::pi / 180;
}

}  // namespace

TwipPoint TextLineReader::inLine(const TwipPoint& point) const {
  const TwipPoint way = point - line_.place;
  if (line_.angle == 0) return way;
  const double cosine = std::cos(radians(line_.angle)), sine = std::sin(radians(line_.angle));
  return {way.x * cosine - way.y * sine, way.x * sine + way.y * cosine};
}

bool TextLineReader::continues(const TextRun& run) const {
  if (empty() || run.angle != line_.angle) return false;
  const TwipPoint start = inLine(run.place);
  const double size = std::max(line_.letters.back().size, toTwips(run.size).value());
  return std::abs(start.x - end_) <= kGap * size && std::abs(start.y) <= kRise * size;
}

void TextLineReader::add(const TextRun& run) {
  const bool symbol = isSymbolFont(run.fontName);
  const double size = toTwips(run.size).value();
  if (empty()) line_ = {run.place, run.angle, {}};
  const TwipPoint start = inLine(run.place);
  end_ = start.x;
  for (const char code : run.text) {
    if (code == ' ') {
      addBlank();
    } else if (!isControl(code)) {
      line_.letters.push_back({code, symbol, size, end_, start.y + metrics_.ascent(symbol) * size});
    }
    end_ += metrics_.advance(symbol, static_cast<unsigned char>(code)) * size;
  }
}

/// A blank is like the letter before it, so that it stays with its word.
void TextLineReader::addBlank() {
  if (empty()) return;
  TextLine::Letter blank = line_.letters.back();
  blank.code = ' ';
  blank.x = end_;
  line_.letters.push_back(blank);
}

TextLine TextLineReader::take() {
  while (!empty() && line_.letters.back().code == ' ') line_.letters.pop_back();
  return std::exchange(line_, {});
}

}  // namespace vk
