#include "data/foreign/ForeignFile.h"

#include <algorithm>
#include <array>
#include <span>

#include "base/NumberText.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "data/DataFiles.h"
#include "data/FigureText.h"
#include "data/foreign/Refusal.h"

namespace vk {
namespace {

using Lines = std::span<const ForeignLine>;

/// True when the last line with something in it may be a point of a data file: a quick look that saves reading a
/// long table in vain.
bool mayBeDataFile(std::string_view bytes) {
  std::string_view rest = bytes;
  while (!rest.empty()) {
    const auto start = rest.find_last_of("\r\n");
    const std::string_view line = start == std::string_view::npos ? rest : rest.substr(start + 1);
    if (!isComment(line)) {
      std::array<std::string_view, 3> place;
      const auto tokens = SplitBlanks(line, place);
      return tokens.size() == place.size() && std::all_of(tokens.begin(), tokens.end(), isNumeric);
    }
    rest = start == std::string_view::npos ? std::string_view() : rest.substr(0, start);
  }
  return false;
}

/// A title in UTF-8. A cell between quotes may hold line ends.
std::string titleOf(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return code(c) < ' '; }, ' ');
  return dataTitle(figureTextOfUtf8(text));
}

/// True when the third line is no row of a table. Of four columns without titles the reader of data files would take
/// the first two rows for titles and the third for the count.
bool hasCountLine(std::string_view bytes) {
  constexpr int kCountLine = 3;
  TextLines lines(bytes);
  int significant = 0;
  while (const auto line = lines.next()) {
    if (isComment(*line) || ++significant < kCountLine) continue;
    std::array<std::string_view, 3> place;
    return SplitBlanks(*line, place).size() < place.size();
  }
  return false;
}

bool hasMixedLineEnds(std::string_view text) {
  const auto pairs = [&] {
    std::ptrdiff_t count = 0;
    for (auto at = text.find(kCrLf); at != std::string_view::npos; at = text.find(kCrLf, at + 2)) ++count;
    return count;
  };
  const auto returns = std::count(text.begin(), text.end(), '\r');
  return returns > 0 && (returns != std::count(text.begin(), text.end(), '\n') || returns != pairs());
}

/// A cell in a message, not too long for it.
std::string quoted(std::string_view cell) {
  constexpr std::size_t kMost = 24;
  std::size_t size = std::min(cell.size(), kMost);
  while (size < cell.size() && (code(cell[size]) & 0xC0) == 0x80) --size;
  return "\"" + cellText(cell.substr(0, size)) + (size < cell.size() ? "..." : "") + "\"";
}

/// One reading of a text that is no data file.
class Reader {
 public:
  Reader(const ForeignOptions& options, ForeignReading& reading) : options_(options), reading_(reading) {}

  PointColumns read(const std::string& text) {
    const std::vector<ForeignLine> lines = splitLines(text);
    const Lines below = belowHeader(lines);
    if (below.empty()) throw Refusal("il file non contiene dati");
    reading_.dialect = guessDialect(below, options_.dialect);
    reading_.shape = shapeOf(sampleOf(below), reading_.dialect);
    const std::size_t first = options_.headerLines ? lines.size() - below.size() : firstRow(lines);
    if (first < lines.size()) reading_.firstLine = lines[first].number;
    readHeaderOf(Lines(lines).first(first), Lines(lines).subspan(first));
    reading_.roles =
        options_.roles ? *options_.roles : rolesOf(reading_.shape, reading_.header.names, options_.columns);
    columns_ = reading_.roles.columns();
    for (const ForeignLine& line : Lines(lines).subspan(first)) takeRow(line);
    nameAxes();
    return std::move(points_);
  }

 private:
  /// The lines that may hold points.
  Lines belowHeader(Lines lines) const {
    const int header = options_.headerLines.value_or(0);
    const auto start =
        std::find_if(lines.begin(), lines.end(), [&](const ForeignLine& l) { return l.number > header; });
    return {start, lines.end()};
  }

  bool isComment(const ForeignLine& line) const {
    return !commentIn(line.text, reading_.dialect.separator).empty();
  }

  void split(const ForeignLine& line) { splitCells(line.text, reading_.dialect, cells_); }

  std::ptrdiff_t numbers() const {
    return std::count_if(cells_.begin(), cells_.end(),
                         [&](auto cell) { return cellNumber(cell, reading_.dialect).has_value(); });
  }

  /// True for a line whose last cell, such as a remark, is there but empty.
  bool endsInEmptyCell(const ForeignLine& line) const {
    return cells_.size() < reading_.shape.cells && line.text.ends_with(reading_.dialect.separator);
  }

  /// The place of the first line that looks like most of those with numbers.
  std::size_t firstRow(Lines lines) {
    const auto isRow = [&](const ForeignLine& line) {
      if (isComment(line)) return false;
      split(line);
      return (cells_.size() == reading_.shape.cells || endsInEmptyCell(line)) &&
             2 * numbers() >= std::ssize(reading_.shape.numbered) && numbers() > 1;
    };
    return static_cast<std::size_t>(std::find_if(lines.begin(), lines.end(), isRow) - lines.begin());
  }

  /// True when the last of these lines is a count: that of the lines below, or what stands below two titles.
  bool endsInCount(const std::vector<ForeignLine>& header, Lines rows) {
    if (header.empty()) return false;
    split(header.back());
    if (cells_.empty() || cells_.size() > 2 || numbers() != std::ssize(cells_)) return false;
    const auto count =
        std::count_if(rows.begin(), rows.end(), [&](const auto& row) { return !isComment(row); });
    const bool underTitles = header.size() == 3 && cells_.size() == 1;
    return underTitles || cellNumber(cells_[0], reading_.dialect) == static_cast<double>(count);
  }

  void readHeaderOf(Lines above, Lines rows) {
    std::vector<ForeignLine> words;
    std::copy_if(above.begin(), above.end(), std::back_inserter(words),
                 [&](const auto& l) { return !isComment(l); });
    reading_.counted = endsInCount(words, rows);
    if (reading_.counted) words.pop_back();
    for (const ForeignLine& line : words) {
      split(line);
      // A row with a cell less above the others must not pass for a title.
      if (numbers() > 1 && numbers() == std::ssize(cells_)) leaveOutCount(line);
    }
    reading_.header = readHeader(above, reading_.dialect, reading_.shape.cells, reading_.counted);
    reading_.header.lines -= static_cast<int>(reading_.leftOut.size());
  }

  void leaveOut(const ForeignLine& line, std::string reason) {
    reading_.leftOut.push_back({line.number, std::move(reason)});
  }
  void leaveOutCount(const ForeignLine& line) {
    leaveOut(line,
             std::to_string(cells_.size()) + " celle invece di " + std::to_string(reading_.shape.cells));
  }

  void takeRow(const ForeignLine& line) {
    if (isComment(line)) return;
    split(line);
    if (cells_.empty()) return;
    for (std::size_t i = reading_.shape.cells; i < cells_.size(); ++i) {
      // Words behind the numbers are a remark.
      if (cellNumber(cells_[i], reading_.dialect)) return leaveOutCount(line);
    }
    std::array<double, 4> values{};
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const std::size_t column = columns_[i];
      const std::string_view cell = column < cells_.size() ? cells_[column] : std::string_view();
      const auto value = cellNumber(cell, reading_.dialect);
      if (!value)
        return leaveOut(line, cell.empty() ? "manca la colonna " + std::to_string(column + 1)
                                           : quoted(cell) + " non e` un numero");
      note(cell);
      values.at(i) = *value;
    }
    keep(values);
  }

  void note(std::string_view cell) {
    if (!reading_.hasDecimals)
      reading_.hasDecimals = cell.find(reading_.dialect.decimal) != std::string_view::npos;
  }

  void keep(const std::array<double, 4>& values) {
    const Roles& roles = reading_.roles;
    points_.x.push_back(values[0]);
    points_.y.push_back(values[1]);
    if (roles.dx != Roles::kNone) points_.dx.push_back(values[2]);
    if (roles.dy != Roles::kNone) points_.dy.push_back(values.at(columns_.size() - 1));
  }

  void nameAxes() {
    const ForeignHeader& header = reading_.header;
    const auto name = [&](std::size_t axis, std::size_t column, const char* otherwise) {
      if (!header.axes.empty()) return header.axes[axis];
      return column < header.names.size() && !header.names[column].empty() ? header.names[column] : otherwise;
    };
    reading_.data.TitleX = titleOf(name(0, reading_.roles.x, "x"));
    reading_.data.TitleY = titleOf(name(1, reading_.roles.y, "y"));
  }

  const ForeignOptions& options_;
  ForeignReading& reading_;
  std::vector<std::size_t> columns_;
  std::vector<std::string_view> cells_;  // of the present line
  PointColumns points_;
};

/// True when no option says how the file is to be read.
bool leavesReadingOpen(const ForeignOptions& options) {
  return !options.encoding && !options.dialect.separator && !options.dialect.decimal &&
         !options.headerLines && options.columns.empty() && !options.roles;
}

/// The data set of the points as the options want them, with the titles that it has.
void setPoints(ForeignReading& reading, PointColumns points, const ForeignOptions& options) {
  if (options.dy) setErrors(points, *options.dy);
  keepEvery(points, options.every);
  if (options.average > 1) average(points, options.average);  // one error alone keeps its sign
  reading.errorsMissing = points.dy.empty();
  DataSet data = dataSetOf(points);
  data.TitleX = reading.data.TitleX;
  data.TitleY = reading.data.TitleY;
  reading.data = std::move(data);
}

void read(std::string_view bytes, const ForeignOptions& options, ForeignReading& reading) {
  reading.encoding = options.encoding ? *options.encoding : guessEncoding(bytes);
  if (leavesReadingOpen(options) && mayBeDataFile(bytes) && hasCountLine(FileText(bytes).text())) {
    DataReading own = parseLines(bytes);
    reading.isDataFile = own.errors.empty();
    if (reading.isDataFile) reading.data = std::move(own.data);
  }
  if (!reading.isDataFile) {
    const std::string text = decodeText(bytes, reading.encoding);
    reading.mixedLineEnds = hasMixedLineEnds(text);
    setPoints(reading, Reader(options, reading).read(text), options);
  } else if (options.changesPoints()) {
    setPoints(reading, pointsOf(reading.data), options);
  }
}

}  // namespace

ForeignReading readForeign(std::string_view bytes, const ForeignOptions& options) {
  ForeignReading reading;
  try {
    read(bytes, options, reading);
  } catch (const Refusal& refusal) {
    reading.refusal = refusal.what();
  }
  return reading;
}

bool keepsText(const ForeignReading& reading, const ForeignOptions& options) {
  return reading.isDataFile && !options.changesPoints();
}

std::string importPreview(const ForeignReading& reading, int digits) {
  constexpr int kShown = 13;
  const std::string text = dataFileText(reading.data, digits);
  std::string shown;
  TextLines lines(text);
  for (int i = 0; i < kShown; ++i) {
    if (const auto line = lines.next()) shown.append(*line).append(kCrLf);
  }
  return shown;
}

std::string whyNoText(std::string_view bytes) {
  try {
    guessEncoding(bytes);
  } catch (const Refusal& refusal) {
    return refusal.what();
  }
  return {};
}

}  // namespace vk
