#include "data/DataFiles.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/Guard.h"
#include "base/NumberMasks.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "data/ErrorList.h"

namespace vk {
namespace {

constexpr int kTitleLines = 2;
constexpr int kCountLine = 3;
constexpr int kLeastLines = 5;
constexpr std::size_t kLeastPoints = 2;
constexpr std::size_t kMostPoints = 32767;

struct Translation {
  int code;
  const char* text;
};

/// Signs of the old 8-bit code and the markup that draws them.
constexpr std::array<Translation, 18> kTranslations{{
    {159, "A"},
    {171, "1/2"},
    {172, "1/4"},
    {224, "\\\\a"},
    {225, "\\\\b"},
    {226, "\\\\G"},
    {227, "\\\\p"},
    {228, "\\\\S"},
    {229, "\\\\s"},
    {230, "\\\\m"},
    {231, "\\\\g"},
    {232, "\\\\f"},
    {233, "\\\\q"},
    {234, "\\\\W"},
    {235, "\\\\d"},
    {248, "^o"},
    {252, "^n"},
    {253, "^2"},
}};

/// The markup of a sign above 127.
const char* markupOf(char c) {
  for (const Translation& translation : kTranslations) {
    if (translation.code == code(c)) return translation.text;
  }
  return "??";
}

/// One reading of the lines of a data file.
class LineParser {
 public:
  void take(std::string_view line) {
    ++number_;
    if (isComment(line)) return;
    ++significant_;
    if (significant_ == 1) reading_.data.TitleX = dataTitle(TranslateDosText(line));
    if (significant_ == kTitleLines) reading_.data.TitleY = dataTitle(TranslateDosText(line));
    if (significant_ == kCountLine) takeCounts(line);
    if (significant_ > kCountLine) takePoint(line);
  }

  DataReading finish() {
    reading_.errors = errors_.text();
    if (significant_ < kLeastLines) close("***ERR. un File Dati DEVE Contenere almeno 5 Linee");
    if (points_.size() < kLeastPoints) close("***ERR. un File Dati DEVE Contenere almeno 2 Linee di Dati");
    if (tooMany_) close("***ERR. un File Dati NON PUO` Contenere piu` di 32767 Linee di Dati");
    storePoints();
    return std::move(reading_);
  }

 private:
  using Tokens = std::vector<std::string_view>;
  using Point = std::array<double, 4>;

  void reportLine(std::string_view line, const std::string& reason) {
    errors_.add("***ERR. Linea " + FormatPattern(number_, "####") + ": " + std::string(line) +
                std::string(kCrLf) + reason);
  }
  void reportToken(std::size_t index, std::string_view token) {
    errors_.add("***ERR. Linea " + FormatPattern(number_, "####") + "; Dato " + std::to_string(index) + ": " +
                std::string(token) + std::string(kCrLf) + "   Dato NON numerico");
  }
  void close(const char* line) { reading_.errors.append(line).append(kCrLf); }

  void takeCounts(std::string_view line) {
    const Tokens tokens = SplitBlanks(line, 2);
    if (tokens.empty()) {
      return reportLine(line, "   La terza linea NON nulla o commentata DEVE contenere almeno un numero");
    }
    hasXErrors_ = tokens.size() > 1;
    if (!takeDeclaredCount(tokens[0])) reportToken(1, tokens[0]);
    if (hasXErrors_ && !isNumeric(tokens[1])) reportToken(2, tokens[1]);
  }

  bool takeDeclaredCount(std::string_view token) {
    // A count that no data set can have is as good as none.
    return isNumeric(token) && guard([&] { reading_.declaredCount = toInt16(scanNumber(token)); });
  }

  void takePoint(std::string_view line) {
    const std::size_t expected = hasXErrors_ ? 4 : 3;
    const Tokens tokens = SplitBlanks(line, expected + 1);
    if (tokens.size() != expected) {
      return reportLine(line, "   le linee Dati DEVONO contenere  " + std::to_string(expected) + " dati.");
    }
    Point point{};
    bool good = true;
    for (std::size_t i = 0; i < expected; ++i) {
      if (isNumeric(tokens[i])) {
        point[i] = scanNumber(tokens[i]);
      } else {
        reportToken(i + 1, tokens[i]);
        good = false;
      }
    }
    if (good) keep(point);
  }

  void keep(const Point& point) {
    tooMany_ = points_.size() == kMostPoints;
    if (!tooMany_) points_.push_back(point);
  }

  void storePoints() {
    DataSet& data = reading_.data;
    data.allocate(static_cast<int>(points_.size()), toFlag(hasXErrors_));
    int i = 0;
    for (const Point& point : points_) {
      ++i;
      data.Xpnt[i] = point[0];
      data.Ypnt[i] = point[1];
      if (hasXErrors_) data.ErrXpnt[i] = point[2];
      data.ErrYpnt[i] = point[hasXErrors_ ? 3 : 2];
    }
  }

  int number_ = 0;       // of the line, comments included
  int significant_ = 0;  // lines so far that are no comments
  bool hasXErrors_ = false;
  bool tooMany_ = false;
  std::vector<Point> points_;
  ErrorList errors_;
  DataReading reading_;
};

}  // namespace

DataReading parseLines(std::string_view text) {
  LineParser parser;
  TextLines lines(text);
  while (const auto line = lines.next()) parser.take(*line);
  return parser.finish();
}

DataReading readData(Files& files, const std::string& fileName) {
  return parseLines(files.readAll(fileName));
}

std::vector<std::string_view> SplitBlanks(std::string_view line, std::size_t most) {
  constexpr std::string_view kBetween = " \t";
  std::vector<std::string_view> tokens;
  for (auto start = line.find_first_not_of(kBetween);
       start != std::string_view::npos && tokens.size() < most;) {
    const auto end = std::min(line.find_first_of(kBetween, start), line.size());
    tokens.push_back(line.substr(start, end - start));
    start = line.find_first_not_of(kBetween, end);
  }
  return tokens;
}

std::string TranslateDosText(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (const char c : text) {
    if (code(c) <= 127) {
      result += c;
    } else {
      result += markupOf(c);
    }
  }
  return result;
}

}  // namespace vk
