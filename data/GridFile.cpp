#include "data/GridFile.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

#include "base/FileText.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "data/DataFiles.h"
#include "data/ErrorList.h"
#include "data/FigureText.h"

namespace vk {
namespace {

constexpr int kTitles = 3;
constexpr int kCounts = kTitles + 1, kPlacesX = kCounts + 1, kPlacesY = kPlacesX + 1;
constexpr int kLeastSide = 2;
constexpr int kShownLength = 60;

/// Numbers in a file are rounded: steps are equal as far as few digits can tell.
bool hasEqualSteps(const Array<double>& values) {
  constexpr double kRounding = 0.01;
  const int n = values.upper();
  const double step = (values[n] - values[1]) / (n - 1);
  if (!(step > 0) || !std::isfinite(step)) return false;
  for (int i = 1; i <= n; ++i) {
    if (std::abs(values[1] + (i - 1) * step - values[i]) > kRounding * step) return false;
  }
  return true;
}

/// A side of a grid in a text that can be one: a whole number within the limits.
std::optional<int> sideIn(std::string_view token) {
  const auto number = numberIn(token);
  if (!number || *number < kLeastSide || *number > kMostGridPoints) return std::nullopt;
  const int whole = static_cast<int>(*number);
  return whole == *number ? std::optional(whole) : std::nullopt;
}

/// One reading of the lines of a grid file.
class GridParser {
 public:
  explicit GridParser(std::string_view bytes) : file_(bytes) {}

  GridReading parse() {
    TextLines lines(file_.text());
    while (const auto line = lines.next()) {
      ++number_;
      if (isComment(*line)) continue;
      take(*line);
      // Without its counts nothing can be said of the lines behind them.
      if (significant_ == kCounts && nx_ == 0) return {file_.gridText(errors_.text()), {}};
    }
    std::string errors = file_.gridText(errors_.text());
    if (significant_ < kPlacesY) {
      errors += "***ERR. un File Griglia DEVE Contenere 3 Titoli, nx e ny, le x, le y e le righe di z\r\n";
    } else if (rows_ != ny_) {
      errors += "***ERR. un File Griglia con ny = " + std::to_string(ny_) + " DEVE Contenere " +
                std::to_string(ny_) + " Linee di z, non " + std::to_string(rows_) + "\r\n";
    }
    if (!errors.empty()) return {std::move(errors), {}};
    return {"", std::move(grid_)};
  }

 private:
  void take(std::string_view line) {
    ++significant_;
    std::string* const titles[] = {&grid_.titleX, &grid_.titleY, &grid_.titleZ};
    if (significant_ <= kTitles) {
      *titles[significant_ - 1] = dataTitle(figureText(file_, line));
    } else if (significant_ == kCounts) {
      takeCounts(line);
    } else if (significant_ == kPlacesX) {
      takePlaces(line, nx_, "x", grid_.x);
    } else if (significant_ == kPlacesY) {
      takePlaces(line, ny_, "y", grid_.y);
    } else {
      takeRow(line);
    }
  }

  void takeCounts(std::string_view line) {
    std::vector<std::string_view> place(3);
    const auto tokens = SplitBlanks(line, place);
    const auto nx = tokens.size() == 2 ? sideIn(tokens[0]) : std::nullopt;
    const auto ny = tokens.size() == 2 ? sideIn(tokens[1]) : std::nullopt;
    if (!nx || !ny) {
      return report(line, "   questa linea DEVE contenere nx e ny, interi da " + std::to_string(kLeastSide) +
                              " a " + std::to_string(kMostGridPoints));
    }
    nx_ = *nx;
    ny_ = *ny;
    grid_.z = Array2<double>(nx_, ny_);
  }

  void takePlaces(std::string_view line, int count, const std::string& name, Array<double>& places) {
    auto values = numbersIn(line, count, "le " + name);
    if (!values) return;
    if (!hasEqualSteps(*values)) return report(line, "   le " + name + " DEVONO crescere a passi uguali");
    places = std::move(*values);
  }

  void takeRow(std::string_view line) {
    ++rows_;
    const auto values = numbersIn(line, nx_, "ogni linea di z");
    if (!values || rows_ > ny_) return;
    for (int i = 1; i <= nx_; ++i) grid_.z(i, rows_) = (*values)[i];
  }

  /// The numbers of a line that must have `count` of them; nothing when it is told what is wrong.
  std::optional<Array<double>> numbersIn(std::string_view line, int count, const std::string& what) {
    std::vector<std::string_view> place(static_cast<std::size_t>(count) + 1);
    const auto tokens = SplitBlanks(line, place);
    if (static_cast<int>(tokens.size()) != count) {
      report(line, "   " + what + ": servono " + std::to_string(count) + " dati.");
      return std::nullopt;
    }
    Array<double> values(count);
    bool good = true;
    for (int i = 1; i <= count; ++i) {
      const std::string_view token = tokens[static_cast<std::size_t>(i) - 1];
      const auto value = numberIn(token);
      values[i] = value.value_or(0);
      if (value) continue;
      errors_.add(lineError(number_, token, kNoNumber, static_cast<std::size_t>(i)));
      good = false;
    }
    return good ? std::optional(std::move(values)) : std::nullopt;
  }

  void report(std::string_view line, const std::string& reason) {
    errors_.add(lineError(number_, shortened(line, kShownLength), reason));
  }

  FileText file_;
  int number_ = 0;       // of the line, comments included
  int significant_ = 0;  // lines so far that are no comments
  int nx_ = 0, ny_ = 0, rows_ = 0;
  ErrorList errors_;
  Grid grid_;
};

}  // namespace

GridReading parseGrid(std::string_view bytes) {
  return GridParser(bytes).parse();
}

}  // namespace vk
