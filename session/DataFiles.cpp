#include "session/DataFiles.h"

#include <algorithm>
#include <array>

#include "base/NumberText.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "session/SubMod.h"
#include "session/TextLines.h"

namespace vk {
namespace {

constexpr int kTitleLines = 2;
constexpr int kCountLine = 3;
constexpr int kLeastLines = 5;
constexpr int kLeastPoints = 2;
constexpr const char* kPointMask = " ##.#####^^^^ ";

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

std::string translated(char c) {
  if (code(c) <= 127) return {c};
  for (const Translation& translation : kTranslations) {
    if (translation.code == code(c)) return translation.text;
  }
  return "??";
}

/// The checking pass over the lines of one file.
class Checker {
 public:
  void take(int number, std::string_view raw) {
    const std::string line = cleanLine(raw);
    if (isComment(line)) return;
    ++significant_;
    if (significant_ == kCountLine) checkCountLine(number, raw, line);
    if (significant_ > kCountLine) checkPoint(number, raw, line);
  }

  void finish() {
    if (significant_ < kLeastLines) report("***ERR. un File Dati DEVE Contenere almeno 5 Linee");
    if (validCount < kLeastPoints) report("***ERR. un File Dati DEVE Contenere almeno 2 Linee di Dati");
  }

  std::string errorText;
  Int16 declaredCount;
  Int16 validCount;
  Flag hasXErrors;

 private:
  void report(const std::string& line) {
    errorText += line;
    errorText += kCrLf;
  }
  void reportLine(int number, std::string_view raw, const std::string& reason) {
    report("***ERR. Linea " + FormatPattern(number, "####") + ": " + std::string(raw));
    report(reason);
  }
  void reportToken(int number, int index) {
    report("***ERR. Linea " + FormatPattern(number, "####") + "; Dato " + FormatPattern(index, "###") + ": " +
           tokens_[index]);
    report("   Dato NON numerico");
  }

  void checkCountLine(int number, std::string_view raw, const std::string& line) {
    SplitBlanks(line, tokens_, count_);
    if (count_ == 0) {
      reportLine(number, raw, "   La terza linea NON nulla o commentata DEVE contenere almeno un numero");
      return;
    }
    hasXErrors = toFlag(count_ > 1);
    if (!takeDeclaredCount()) reportToken(number, 1);
    if (count_ > 1 && !isNumeric(tokens_[2])) reportToken(number, 2);
  }

  bool takeDeclaredCount() {
    if (!isNumeric(tokens_[1])) return false;
    try {
      declaredCount = toInt16(scanNumber(tokens_[1]));
      return true;
    } catch (const RuntimeError&) {
      // A count that no data set can have is as good as none.
      return false;
    }
  }

  void checkPoint(int number, std::string_view raw, const std::string& line) {
    const int expected = 3 - hasXErrors;
    SplitBlanks(line, tokens_, count_);
    if (count_ != expected) {
      reportLine(number, raw, "   le linee Dati DEVONO contenere " + signedText(expected) + " dati.");
      return;
    }
    bool valid = true;
    for (int i = 1; i <= count_; ++i) {
      if (isNumeric(tokens_[i])) continue;
      reportToken(number, i);
      valid = false;
    }
    if (valid) ++validCount;
  }

  int significant_ = 0;
  Array<std::string> tokens_;
  Int16 count_;
};

/// The loading pass over the lines of one file.
class Loader {
 public:
  explicit Loader(DataSet& data) : data_(data) {}

  void take(std::string_view raw) {
    const std::string line = cleanLine(raw);
    if (isComment(line)) return;
    ++significant_;
    if (significant_ == 1) data_.TitleX = TranslateDosText(line);
    if (significant_ == 2) data_.TitleY = TranslateDosText(line);
    if (significant_ > kCountLine) takePoint(significant_ - kCountLine, line);
  }

 private:
  void takePoint(int point, const std::string& line) {
    SplitBlanks(line, tokens_, count_);
    data_.Xpnt[point] = scanNumber(tokens_[1]);
    data_.Ypnt[point] = scanNumber(tokens_[2]);
    if (data_.kXpntErr != kFalse) data_.ErrXpnt[point] = scanNumber(tokens_[3]);
    data_.ErrYpnt[point] = scanNumber(tokens_[3 - data_.kXpntErr]);
  }

  DataSet& data_;
  int significant_ = 0;
  Array<std::string> tokens_;
  Int16 count_;
};

}  // namespace

void ReadTextLines(Files& files, const std::string& fileName, Array<std::string>& lines, int& count) {
  const std::string bytes = files.readAll(fileName);
  const TextLines text = splitLines(bytes);
  count = static_cast<int>(text.lines.size());
  lines.dim(count);
  for (int i = 1; i <= count; ++i) lines[i] = text.lines[static_cast<std::size_t>(i - 1)];
}

void SplitBlanks(const std::string& text, Array<std::string>& tokens, Int16& count) {
  std::vector<std::string_view> found;
  const std::string_view all = text;
  for (auto start = all.find_first_not_of(' '); start != std::string_view::npos;) {
    const auto end = std::min(all.find(' ', start), all.size());
    found.push_back(all.substr(start, end - start));
    start = all.find_first_not_of(' ', end);
  }
  count = static_cast<int>(found.size());
  tokens.dim(count);
  for (int i = 1; i <= count; ++i) tokens[i] = found[static_cast<std::size_t>(i - 1)];
}

std::string TranslateDosText(const std::string& text) {
  std::string result;
  for (const char c : text) result += translated(c);
  return result;
}

void CheckDataFile(Session& session, Files& files, const std::string& fileName, std::string& errorText,
                   Int16& declaredCount, Int16& validCount, Flag& hasXErrors) {
  session.ErrFlag = 0;
  Array<std::string> lines;
  int count = 0;
  ReadTextLines(files, fileName, lines, count);
  Checker checker;
  for (int number = 1; number <= count; ++number) checker.take(number, lines[number]);
  checker.finish();
  if (!checker.errorText.empty()) session.ErrFlag = kTrue;
  errorText = checker.errorText;
  declaredCount = checker.declaredCount;
  validCount = checker.validCount;
  hasXErrors = checker.hasXErrors;
}

void LoadDataFile(Session& session, Files& files, const std::string& fileName, int count, Flag hasXErrors) {
  session.DataFile = fileName;
  session.DataDefined = kTrue;
  session.data.allocate(count, hasXErrors);
  const std::string bytes = files.readAll(fileName);
  const TextLines text = splitLines(bytes);
  Loader loader(session.data);
  for (const std::string_view line : text.lines) loader.take(line);
  // QUIRK: the check does not see a last line without a line end, this pass does: such a point has no room.
  loader.take(text.rest);
}

std::string dataFileText(const DataSet& data) {
  const std::string lineEnd(kCrLf);
  const bool hasXErrors = data.kXpntErr != kFalse;
  std::string text = data.TitleX + lineEnd + data.TitleY + lineEnd + signedText(data.NumPnt) +
                     (hasXErrors ? " 1" : "") + lineEnd;
  for (int i = 1; i <= data.NumPnt; ++i) {
    text += FormatMask(data.Xpnt[i], kPointMask) + FormatMask(data.Ypnt[i], kPointMask);
    if (hasXErrors) text += FormatMask(data.ErrXpnt[i], kPointMask);
    text += FormatMask(data.ErrYpnt[i], kPointMask) + lineEnd;
  }
  return text;
}

}  // namespace vk
