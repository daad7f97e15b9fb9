#include "gral/sinks/SvgText.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/CodePage.h"
#include "gral/sinks/SvgMarkup.h"

namespace vk {
namespace {

/// A letter may stand so many twips from its place: a tenth of a point.
constexpr double kAstray = kTwipsPerPoint / 10;

/// Letters that a viewer sets behind the first, nearly where they are to stand.
struct Piece {
  TextLine::Letter first;
  std::string places, letters;
};

/// Divides a line where a letter has another size or height than the one before, or would be led astray.
class Pieces {
 public:
  explicit Pieces(LetterMetrics& metrics) : metrics_(metrics) {}

  void add(const TextLine::Letter& letter) {
    const bool follows = !pieces_.empty() && goesOn_ && this->follows(letter);
    // Some viewers leave out a blank at the begin.
    goesOn_ = follows || letter.code != ' ';
    if (!follows && goesOn_) {
      pieces_.push_back({letter, {}, {}});
      end_ = letter.x;
    }
    Piece& piece = pieces_.back();
    piece.places += (piece.places.empty() ? "" : " ") + svgNumber(letter.x);
    piece.letters +=
        svgEscaped(toUtf8({&letter.code, 1}, letter.symbol ? CodePage::kSymbol : CodePage::kWindows1252));
    end_ += metrics_.advance(letter.symbol, code(letter)) * letter.size;
    last_ = letter;
  }
  const std::vector<Piece>& all() const { return pieces_; }

 private:
  static unsigned char code(const TextLine::Letter& letter) {
    return static_cast<unsigned char>(letter.code);
  }
  /// Faces of their own have signs that a viewer may be without: it sets them as wide as it likes.
  bool follows(const TextLine::Letter& letter) const {
    if (letter.symbol || last_.symbol || letter.size != last_.size) return false;
    const double kerned = metrics_.kerning(false, code(last_), code(letter)) * letter.size;
    return std::abs(end_ + kerned - letter.x) <= kAstray && std::abs(letter.base - last_.base) <= kAstray;
  }

  LetterMetrics& metrics_;
  std::vector<Piece> pieces_;
  TextLine::Letter last_{};
  bool goesOn_ = false;  ///< the next letter may follow in the same piece
  double end_ = 0;       ///< where a viewer would set the next letter
};

std::string placeOf(const Piece& piece) {
  return svgAttribute("x", piece.places) + svgAttribute("y", svgNumber(piece.first.base));
}

/// Blanks that follow one another are one for a viewer that is not told to keep them.
bool hasWideGap(const TextLine& line) {
  const auto blanks = [](const TextLine::Letter& a, const TextLine::Letter& b) {
    return a.code == ' ' && b.code == ' ';
  };
  return std::ranges::adjacent_find(line.letters, blanks) != line.letters.end();
}

}  // namespace

std::string svgText(const TextLine& line, Colour color, LetterMetrics& metrics) {
  Pieces pieces(metrics);
  for (const TextLine::Letter& letter : line.letters) pieces.add(letter);
  std::string text;
  const double size = line.letters.front().size;
  for (const Piece& piece : pieces.all()) {
    if (&piece == &pieces.all().front()) {
      text = placeOf(piece) + ">" + piece.letters;
      continue;
    }
    text += "<tspan" +
            (piece.first.size == size ? "" : svgAttribute("font-size", svgNumber(piece.first.size))) +
            placeOf(piece) + ">" + piece.letters + "</tspan>";
  }
  const std::string place = svgNumber(line.place.x) + " " + svgNumber(line.place.y);
  const std::string turn = line.angle == 0 ? "" : "rotate(" + svgNumber(-line.angle) + ")";
  return "<text stroke=\"none\"" + svgAttribute("fill", svgColour(color)) +
         svgAttribute("font-size", svgNumber(size)) +
         svgAttribute("transform", "translate(" + place + ")" + turn) +
         (hasWideGap(line) ? " xml:space=\"preserve\"" : "") + text + "</text>";
}

}  // namespace vk
