#include "data/foreign/TableLines.h"

#include <algorithm>

#include "data/foreign/Lines.h"

namespace vk {
namespace {

/// Splits lines as they were read.
class Splitter {
 public:
  explicit Splitter(const ForeignReading& reading) : reading_(reading) {}

  TableLine split(const ForeignLine& line) {
    TableLine result{line.number, {}, kindOf(line), {}};
    if (const LeftOutLine* leftOut = leftOutAt(line.number)) {
      result.kind = TableLine::Kind::kLeftOut;
      result.reason = leftOut->reason;
    }
    if (isWhole(line)) {
      result.cells = {cellText(line.text)};
    } else {
      for (const std::string_view cell : cells_) result.cells.push_back(cellText(cell));
    }
    return result;
  }
  bool isLeftOut(const ForeignLine& line) const { return leftOutAt(line.number) != nullptr; }

 private:
  TableLine::Kind kindOf(const ForeignLine& line) const {
    const bool comment = !commentIn(line.text, reading_.dialect.separator).empty();
    const bool below = reading_.firstLine > 0 && line.number >= reading_.firstLine;
    return below && !comment ? TableLine::Kind::kPoint : TableLine::Kind::kAbove;
  }

  /// True for a line that is no row, and for words that blanks would tear apart.
  bool isWhole(const ForeignLine& line) {
    if (reading_.shape.cells == 0 || !commentIn(line.text, reading_.dialect.separator).empty()) return true;
    splitCells(line.text, reading_.dialect, cells_);
    return reading_.dialect.separator == ' ' && std::ranges::none_of(cells_, [&](std::string_view cell) {
             return cellNumber(cell, reading_.dialect).has_value();
           });
  }

  const LeftOutLine* leftOutAt(int number) const {
    const auto found = std::ranges::lower_bound(reading_.leftOut, number, {}, &LeftOutLine::number);
    return found == reading_.leftOut.end() || found->number != number ? nullptr : &*found;
  }

  const ForeignReading& reading_;
  std::vector<std::string_view> cells_;
};

}  // namespace

std::vector<TableLine> tableLines(std::string_view bytes, const ForeignReading& reading, std::size_t most) {
  if (!whyNoText(bytes).empty()) return {};
  const std::string text = decodeText(bytes, reading.encoding);
  Splitter splitter(reading);
  std::vector<TableLine> lines;
  std::size_t seen = 0;
  for (const ForeignLine& line : splitLines(text)) {
    if (++seen > most && !splitter.isLeftOut(line)) continue;
    lines.push_back(splitter.split(line));
    if (lines.size() == 2 * most) break;
  }
  return lines;
}

}  // namespace vk
