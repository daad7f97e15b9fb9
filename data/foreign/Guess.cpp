#include "data/foreign/Guess.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "base/NumberText.h"
#include "base/Text.h"
#include "data/foreign/Refusal.h"

namespace vk {
namespace {

using Lines = std::span<const ForeignLine>;

// Where lines fit in several, as whole numbers do, the first is taken.
constexpr std::array kDialects{Dialect{'\t', '.'}, Dialect{'\t', ','},      Dialect{';', ','},
                               Dialect{';', '.'},  Dialect{'|', '.'},       Dialect{'|', ','},
                               Dialect{',', '.'},  Dialect{',', ',', true}, Dialect{',', ','},
                               Dialect{' ', '.'},  Dialect{' ', ','}};

/// The shares of numbers in the cells of the lines that hold two or more, added up.
double fit(Lines lines, const Dialect& dialect) {
  double sum = 0;
  std::vector<std::string_view> cells;
  for (const ForeignLine& line : lines) {
    if (!commentIn(line.text, dialect.separator).empty()) continue;
    splitCells(line.text, dialect, cells);
    const auto filled = std::count_if(cells.begin(), cells.end(), [](auto cell) { return !cell.empty(); });
    const auto numbers = std::count_if(cells.begin(), cells.end(),
                                       [&](auto cell) { return cellNumber(cell, dialect).has_value(); });
    if (numbers >= static_cast<std::ptrdiff_t>(kLeastNumbers)) {
      sum += static_cast<double>(numbers) / static_cast<double>(filled);
    }
  }
  return sum;
}

bool goesWith(const Dialect& dialect, const KnownDialect& known) {
  return (!known.separator || *known.separator == dialect.separator) &&
         (!known.decimal || *known.decimal == dialect.decimal);
}

/// What tells two decimal signs apart, over all lines.
struct Comparison {
  int onlyFirst = 0, onlySecond = 0;  ///< cells that are numbers with one of them alone
  std::string different;              ///< the first cell that is another number with each
};

Comparison compare(Lines lines, const Dialect& first, const Dialect& second) {
  Comparison found;
  std::vector<std::string_view> cells;
  for (const ForeignLine& line : lines) {
    if (!commentIn(line.text, first.separator).empty()) continue;
    splitCells(line.text, first, cells);
    for (const std::string_view cell : cells) {
      const auto a = cellNumber(cell, first);
      const auto b = cellNumber(cell, second);
      if (a && !b) ++found.onlyFirst;
      if (b && !a) ++found.onlySecond;
      if (a && b && *a != *b && found.different.empty()) found.different = cell;
    }
  }
  return found;
}

/// The dialect with the other decimal sign.
Dialect twinOf(Dialect dialect) {
  dialect.decimal = dialect.decimal == '.' ? ',' : '.';
  return dialect;
}

/// True where the readings are not equally likely: with the comma between cells, and with points between tabs or
/// blanks, the point is the decimal sign.
bool isCustomary(const Dialect& point, const std::string& cell) {
  return point.separator == ',' || (point.separator != ';' && cell.find('.') != std::string::npos);
}

[[noreturn]] void refuseBoth(const std::string& cell, const Dialect& point, const Dialect& comma) {
  const auto value = [&](const Dialect& dialect) {
    return generalText(cellNumber(cell, dialect).value_or(0));
  };
  throw Refusal("\"" + cell + "\" puo` valere " + value(comma) + " (--decimal ,) o " + value(point) +
                " (--decimal .): indicare il segno decimale");
}

/// Decides between a dialect and its twin that fits as well.
Dialect decided(Lines lines, const Dialect& dialect) {
  const Dialect point = dialect.decimal == '.' ? dialect : twinOf(dialect);
  const Dialect comma = twinOf(point);
  const Comparison found = compare(lines, point, comma);
  if (found.onlyFirst != found.onlySecond) return found.onlyFirst > found.onlySecond ? point : comma;
  if (found.different.empty()) return dialect;
  if (!isCustomary(point, found.different)) refuseBoth(found.different, point, comma);
  return point;
}

/// True when a second cell of a pair begins with a zero that no number of its own would have.
bool hasDecimals(const std::vector<std::string_view>& cells) {
  for (std::size_t i = 1; i < cells.size(); i += 2) {
    if (cells[i].size() > 1 && cells[i].front() == '0') return true;
  }
  return false;
}

/// Decides whether the comma stands between numbers or within them too, where each line fits both.
Dialect decidedPairs(Lines lines, const Dialect& plain, const Dialect& paired) {
  std::vector<std::string_view> cells;
  std::size_t names = 0;
  for (const ForeignLine& line : lines) {
    if (!commentIn(line.text, ',').empty()) continue;
    splitCells(line.text, plain, cells);
    const bool numbers = !cells.empty() && cellNumber(cells.front(), plain).has_value();
    if (!numbers) {
      names = cells.size();
      continue;
    }
    if (hasDecimals(cells) || 2 * names == cells.size()) return paired;
    if (names == cells.size()) return plain;
  }
  const std::string columns = std::to_string(cells.size());
  const std::string pairs = std::to_string(cells.size() / 2);
  throw Refusal("le virgole possono separare " + columns +
                " colonne (--decimal .) o essere anche segno decimale di " + pairs +
                " colonne (--decimal ,): indicare il segno decimale");
}

}  // namespace

Dialect guessDialect(std::span<const ForeignLine> lines, const KnownDialect& known) {
  const std::vector<ForeignLine> sample = sampleOf(lines);
  const auto fits = [&](const Dialect& dialect) {
    return goesWith(dialect, known) ? fit(sample, dialect) : 0;
  };
  Dialect best;
  double most = 0;
  for (const Dialect& dialect : kDialects) {
    constexpr double kRounding = 1E-9;
    const double sum = fits(dialect);
    if (sum <= most + kRounding) continue;
    most = sum;
    best = dialect;
  }
  if (most == 0) throw Refusal("nessuna riga contiene almeno due numeri");
  const auto fitsAsWell = [&](const Dialect& dialect) { return std::abs(fits(dialect) - most) < 1E-6; };
  const Dialect pairs{',', ',', true};
  if (best == Dialect{',', '.'} && fitsAsWell(pairs)) return decidedPairs(lines, best, pairs);
  return !best.paired && fitsAsWell(twinOf(best)) ? decided(lines, best) : best;
}

}  // namespace vk
