#include "data/DataFiles.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/Guard.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "data/ErrorList.h"
#include "data/FigureText.h"

namespace vk {
namespace {

constexpr int kTitleLines = 2;
constexpr int kCountLine = 3;
constexpr int kLeastLines = 5;
constexpr std::size_t kMostColumns = 4;
constexpr int kLeastPoints = 2;
constexpr std::ptrdiff_t kMostPoints = 32767;
constexpr std::ptrdiff_t kShortestPoint = 5;  // characters

/// One reading of the lines of a data file.
class LineParser {
 public:
  explicit LineParser(std::string_view bytes) : file_(bytes) {}

  DataReading parse() {
    const std::string_view text = file_.text();
    TextLines lines(text);
    while (const auto line = lines.next()) {
      left_ = text.end() - line->begin();
      take(*line);
    }
    return finish();
  }

 private:
  using Point = std::array<double, kMostColumns>;

  void take(std::string_view line) {
    ++number_;
    if (isComment(line)) return;
    ++significant_;
    if (significant_ == 1) reading_.data.TitleX = dataTitle(figureText(file_, line));
    if (significant_ == kTitleLines) reading_.data.TitleY = dataTitle(figureText(file_, line));
    if (significant_ == kCountLine) takeCounts(line);
    if (significant_ > kCountLine) takePoint(line);
  }

  DataReading finish() {
    reading_.errors = file_.gridText(errors_.text());
    if (significant_ < kLeastLines) close("***ERR. un File Dati DEVE Contenere almeno 5 Linee");
    if (points_ < kLeastPoints) close("***ERR. un File Dati DEVE Contenere almeno 2 Linee di Dati");
    if (tooMany_) close("***ERR. un File Dati NON PUO` Contenere piu` di 32767 Linee di Dati");
    reading_.data.shorten(points_);
    return std::move(reading_);
  }

  void reportLine(std::string_view text, const std::string& reason) {
    errors_.add(lineError(number_, text, reason));
  }
  void reportToken(std::size_t index, std::string_view token) {
    errors_.add(lineError(number_, token, kNoNumber, index));
  }
  void close(const char* line) { reading_.errors.append(line).append(kCrLf); }

  void takeCounts(std::string_view line) {
    std::array<std::string_view, 2> place;
    const auto tokens = SplitBlanks(line, place);
    reading_.data.allocate(static_cast<int>(std::min(left_ / kShortestPoint, kMostPoints)),
                           toFlag(tokens.size() > 1));
    if (tokens.empty()) {
      return reportLine(line, "   La terza linea NON nulla o commentata DEVE contenere almeno un numero");
    }
    if (!takeDeclaredCount(tokens[0])) reportToken(1, tokens[0]);
    if (tokens.size() > 1 && !isNumeric(tokens[1])) reportToken(2, tokens[1]);
  }

  bool takeDeclaredCount(std::string_view token) {
    // A count that no data set can have is as good as none.
    const auto count = numberIn(token);
    return count && guard([&] { reading_.declaredCount = toInt16(*count); });
  }

  void takePoint(std::string_view line) {
    const std::size_t expected = reading_.data.kXpntErr != kFalse ? 4 : 3;
    std::array<std::string_view, kMostColumns + 1> place;
    const auto tokens = SplitBlanks(line, std::span(place).first(expected + 1));
    if (tokens.size() != expected) {
      return reportLine(line, "   le linee Dati DEVONO contenere  " + std::to_string(expected) + " dati.");
    }
    Point point{};
    bool good = true;
    for (std::size_t i = 0; i < expected; ++i) {
      if (const auto value = numberIn(tokens[i])) {
        point[i] = *value;
      } else {
        reportToken(i + 1, tokens[i]);
        good = false;
      }
    }
    if (good) keep(point);
  }

  void keep(const Point& point) {
    tooMany_ = points_ == kMostPoints;
    if (tooMany_) return;
    DataSet& data = reading_.data;
    ++points_;
    data.Xpnt[points_] = point[0];
    data.Ypnt[points_] = point[1];
    if (data.kXpntErr != kFalse) data.ErrXpnt[points_] = point[2];
    data.ErrYpnt[points_] = point[data.kXpntErr != kFalse ? 3 : 2];
  }

  FileText file_;
  std::ptrdiff_t left_ = 0;  // characters from the present line on
  int number_ = 0;           // of the line, comments included
  int significant_ = 0;      // lines so far that are no comments
  int points_ = 0;           // good ones so far
  bool tooMany_ = false;
  ErrorList errors_;
  DataReading reading_;
};

}  // namespace

DataReading parseLines(std::string_view text) {
  return LineParser(text).parse();
}

DataReading readData(Files& files, const std::string& fileName) {
  return parseLines(files.readAll(fileName));
}

std::span<const std::string_view> SplitBlanks(std::string_view line, std::span<std::string_view> tokens) {
  std::size_t count = 0;
  while (count < tokens.size()) {
    tokens[count] = takeField(line, [](char c) { return c == ' ' || c == '\t'; });
    if (tokens[count].empty()) break;
    ++count;
  }
  return tokens.first(count);
}

}  // namespace vk
