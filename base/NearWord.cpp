#include "base/NearWord.h"

#include <algorithm>
#include <vector>

#include "base/Text.h"

namespace vk {
namespace {

constexpr std::size_t kLettersOfAMistake = 3;

/// The number of mistakes between two words: the rows of the usual table, of which the last three are enough.
std::size_t mistakes(std::string_view a, std::string_view b) {
  std::vector<std::size_t> before, last(b.size() + 1), row(b.size() + 1);
  for (std::size_t k = 0; k <= b.size(); ++k) last[k] = k;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    for (std::size_t k = 1; k <= b.size(); ++k) {
      const std::size_t wrong = upper(a[i - 1]) == upper(b[k - 1]) ? 0 : 1;
      row[k] = std::min({last[k] + 1, row[k - 1] + 1, last[k - 1] + wrong});
      const bool exchanged =
          i > 1 && k > 1 && upper(a[i - 1]) == upper(b[k - 2]) && upper(a[i - 2]) == upper(b[k - 1]);
      if (exchanged) row[k] = std::min(row[k], before[k - 2] + 1);
    }
    before = last;
    last = row;
  }
  return last.back();
}

}  // namespace

std::string nearWord(std::string_view word, std::span<const std::string> candidates) {
  std::string nearest;
  std::size_t fewest = word.size() / kLettersOfAMistake + 1;
  for (const std::string& candidate : candidates) {
    const std::size_t count = mistakes(word, candidate);
    if (count >= fewest) continue;
    fewest = count;
    nearest = candidate;
  }
  return nearest;
}

}  // namespace vk
