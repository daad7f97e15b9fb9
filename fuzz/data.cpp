#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "base/FileText.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "data/DataFiles.h"
#include "data/DataWarnings.h"
#include "data/FigureText.h"
#include "data/GridFile.h"
#include "fuzz/Input.h"
#include "fuzz/SameData.h"

namespace vk {
namespace {

/// True where a number has few digits only: nearer to 0 than all with the full number of them.
bool isSubnormal(double value) {
  return std::fpclassify(value) == FP_SUBNORMAL;
}

/// True where the numbers of a data set have digits enough to be rounded.
bool haveAllDigits(const DataSet& data) {
  return std::ranges::none_of(
      std::array{&data.Xpnt, &data.Ypnt, &data.ErrXpnt, &data.ErrYpnt},
      [&](const auto* column) { return std::ranges::any_of(column->span(1, data.NumPnt), isSubnormal); });
}

/// Both readers take what the writer makes of a data set, with any number of digits; and with all digits, or where six
/// are told to be enough, they bring every number back.
void probeWriter(DataSet data, int digits) {
  // A tab at the end of a title in a file is a blank, which the writer keeps and the readers leave out.
  for (std::string* title : {&data.TitleX, &data.TitleY}) *title = trim(*title);
  const DataReading exact = parseLines(dataFileText(data, kMostDataDigits));
  require(exact.errors.empty() && areEqual(exact.data, data), "all digits bring the points back");
  const std::string text = dataFileText(data, digits);
  const DataReading rounded = parseLines(text);
  require(rounded.errors.empty() && rounded.declaredCount == data.NumPnt, "a data file that can be read");
  // Sixteen digits are more than a number has, but not enough to tell all numbers apart.
  require(digits == kMostDataDigits - 1 || !haveAllDigits(rounded.data) ||
              dataFileText(rounded.data, digits) == text,
          "one way to write");
  const FreeFieldReading free = parseFreeFields(text);
  require(free.complete && areEqual(free.data, rounded.data), "both readers read the same");
  require(losesDigits(data) != areEqual(parseLines(dataFileText(data)).data, data), "lost digits are told");
}

/// True when both readers see the same lines: the plain one counts comments as lines, and knows no tabs.
bool isPlain(std::string_view text) {
  TextLines lines(text);
  while (const auto line = lines.next()) {
    if (isComment(*line) || line->find('\t') != line->npos) return false;
  }
  return true;
}

void probeText(Input& input) {
  const int digits = 1 + static_cast<int>(input.choice(kMostDataDigits));
  const std::string_view text = input.rest();
  const FreeFieldReading free = parseFreeFields(text);
  require(free.count > 0 || !free.complete, "a count where all is read");
  require(free.count == 0 || free.data.NumPnt == free.count, "as many points as are counted");
  const DataReading reading = parseLines(text);
  require(reading.errors.empty() || reading.errors.ends_with("\r\n"), "errors in lines");
  if (!reading.errors.empty()) return;
  require(reading.data.NumPnt >= 2, "two points at least");
  const bool counted = reading.declaredCount == reading.data.NumPnt && isPlain(FileText(text).text());
  require(!counted || (free.complete && haveSamePoints(free.data, reading.data)),
          "both readers take the same points");
  dataWarnings(reading);
  probeWriter(reading.data, digits);
}

/// A title that may stand in a file.
std::string titleIn(std::string_view text) {
  const FileText file(text);
  return dataTitle(figureText(file, TextLines(file.text()).next().value_or("")));
}

void probeNumbers(Input& input) {
  const int digits = 1 + static_cast<int>(input.choice(kMostDataDigits));
  const auto takeNumber = [&input] {
    const double value = input.number();
    return std::isfinite(value) ? value : 0;
  };
  DataSet data;
  data.allocate(2 + static_cast<int>(input.choice(6)), toFlag(input.choice(2) == 1));
  for (int i = 1; i <= data.NumPnt; ++i) {
    data.Xpnt[i] = takeNumber();
    data.Ypnt[i] = takeNumber();
    data.ErrXpnt[i] = data.kXpntErr != kFalse ? takeNumber() : 0;
    data.ErrYpnt[i] = takeNumber();
  }
  data.TitleX = titleIn(input.part());
  data.TitleY = titleIn(input.rest());
  probeWriter(data, digits);
}

std::string gridLine(const Array<double>& values) {
  std::string line;
  for (const double value : values.span(1, values.upper())) line += dataField(value, kMostDataDigits);
  return line + "\r\n";
}

std::string gridText(const Grid& grid) {
  std::string text;
  // A tab at either end of a title in a file is a blank, which the reader would leave out.
  for (const std::string& title : {grid.titleX, grid.titleY, grid.titleZ})
    text += utf8OfFigureText(trim(title)) + "\r\n";
  text += std::to_string(grid.nx()) + " " + std::to_string(grid.ny()) + "\r\n" + gridLine(grid.x) +
          gridLine(grid.y);
  for (int j = 1; j <= grid.ny(); ++j) {
    Array<double> row(grid.nx());
    for (int i = 1; i <= grid.nx(); ++i) row[i] = grid.z(i, j);
    text += gridLine(row);
  }
  return text;
}

/// A grid that was read comes back when it is written with all digits.
void probeGrid(std::string_view text) {
  const GridReading reading = parseGrid(text);
  require(reading.errors.empty() || reading.errors.ends_with("\r\n"), "errors in lines");
  if (!reading.errors.empty()) return;
  const Grid& grid = reading.grid;
  for (const Array<double>* side : {&grid.x, &grid.y}) {
    const int n = side->upper();
    require(n >= 2 && n <= kMostGridPoints && (*side)[1] < (*side)[n], "a side that grows");
  }
  const std::string written = gridText(grid);
  const GridReading back = parseGrid(written);
  require(back.errors.empty() && gridText(back.grid) == written, "the same grid");
}

}  // namespace

void probe(Input input) {
  switch (input.choice(3)) {
    case 0:
      probeNumbers(input);
      break;
    case 1:
      probeText(input);
      break;
    default:
      probeGrid(input.rest());
  }
}

}  // namespace vk
