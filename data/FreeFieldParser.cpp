#include <algorithm>
#include <vector>

#include "base/Guard.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "data/DataFiles.h"
#include "data/FigureText.h"

namespace vk {
namespace {

bool separatesFields(char c) {
  return c == ' ' || c == ',' || c == '\r' || c == '\n';
}

/// The number of points in the third line; 0 when it cannot be used. With `exact` it must be a number as a
/// whole, else what follows a number does not matter.
int readCount(std::string_view line, bool exact, Flag& hasXErrors) {
  const std::string text = trim(line);
  const auto blank = text.find(' ');
  hasXErrors = toFlag(blank != std::string::npos);
  const std::string first = text.substr(0, blank);
  Int16 count;
  if (!exact || isNumeric(first)) guard([&] { count = toInt16(scanNumber(first)); });
  return std::max<int>(count, 0);
}

bool readPoints(std::string_view text, DataSet& data) {
  std::vector<Array<double>*> columns{&data.Xpnt, &data.Ypnt};
  if (data.kXpntErr != kFalse) columns.push_back(&data.ErrXpnt);
  columns.push_back(&data.ErrYpnt);
  bool complete = true;
  for (int i = 1; i <= data.NumPnt; ++i) {
    for (Array<double>* column : columns) {
      const auto value = numberIn(takeField(text, separatesFields));
      (*column)[i] = value.value_or(0);
      complete = complete && value.has_value();
    }
  }
  return complete;
}

FreeFieldReading readPlain(const FileText& file, std::string_view text, bool exact) {
  FreeFieldReading reading;
  TextLines lines(text);
  const auto titleX = lines.next();
  const auto titleY = lines.next();
  const auto countLine = lines.next();
  if (!countLine) return reading;
  Flag hasXErrors;
  reading.count = readCount(*countLine, exact, hasXErrors);
  if (reading.count == 0) return reading;
  reading.data.TitleX = figureText(file, *titleX);
  reading.data.TitleY = figureText(file, *titleY);
  reading.data.allocate(reading.count, hasXErrors);
  const auto behindHeader = static_cast<std::size_t>(countLine->data() + countLine->size() - text.data());
  reading.complete = readPoints(text.substr(behindHeader), reading.data);
  return reading;
}

/// The text as the checking reader sees it: no comments, tabs as blanks.
std::string withoutComments(std::string_view text) {
  std::string result;
  result.reserve(text.size() + kCrLf.size());
  TextLines lines(text);
  while (const auto line = lines.next()) {
    if (isComment(*line)) continue;
    result += cleanLine(*line);
    result += lines.lineEnd();
  }
  return result;
}

}  // namespace

FreeFieldReading parseFreeFields(std::string_view text) {
  const FileText file(text);
  FreeFieldReading plain = readPlain(file, file.text(), true);
  if (plain.complete) return plain;
  // Commented data files, the saved differences among them, are to be plotted too.
  FreeFieldReading uncommented = readPlain(file, withoutComments(file.text()), false);
  return uncommented.complete || plain.count == 0 ? uncommented : plain;
}

}  // namespace vk
