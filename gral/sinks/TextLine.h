#pragma once

#include <vector>

#include "gral/DrawingSink.h"

namespace vk {

/// A text of one line, put together from what is printed letter by letter, so that a file holds words.
struct TextLine {
  /// A letter and where its base line begins, in twips from the place of the line: along it, and across it downward.
  struct Letter {
    char code;
    bool symbol;
    double size;  ///< in twips
    double x, base;
  };

  TwipPoint place;
  double angle = 0;             ///< degrees, counter-clockwise
  std::vector<Letter> letters;  ///< no control characters; the first and the last are no blanks
};

/// Collects the runs of a line.
class TextLineReader {
 public:
  explicit TextLineReader(LetterMetrics& metrics) : metrics_(metrics) {}

  bool empty() const { return line_.letters.empty(); }
  /// Whether a run goes on where the line ends: at the same angle, at most raised or lowered by a script.
  bool continues(const TextRun& run) const;
  /// Takes a run that begins a line or continues it.
  void add(const TextRun& run);
  /// The line, which begins anew.
  TextLine take();

 private:
  void addBlank();
  /// Twips along the line and across it.
  TwipPoint inLine(const TwipPoint& point) const;

  LetterMetrics& metrics_;
  TextLine line_;
  double end_ = 0;  ///< where the next letter would stand
};

}  // namespace vk
