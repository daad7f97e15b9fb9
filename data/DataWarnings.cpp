#include "data/DataWarnings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "base/NumberText.h"
#include "data/DataFiles.h"

namespace vk {
namespace {

using Column = std::span<const double>;

std::string errorsWarning(Column errors) {
  const auto bad = [](double error) { return error <= 0; };
  const auto first = std::find_if(errors.begin(), errors.end(), bad) - errors.begin();
  const auto count = std::count_if(errors.begin(), errors.end(), bad);
  if (count == 0) return {};
  if (count == 1) return "dy nullo o negativo nel punto " + std::to_string(first + 1);
  return "dy nullo o negativo in " + std::to_string(count) + " punti, il primo il " +
         std::to_string(first + 1);
}

/// True when nine tenths of the errors, which are not all the same, are beyond a size that values have.
bool areBeyond(Column errors, double size) {
  const auto beyond =
      std::count_if(errors.begin(), errors.end(), [&](double e) { return std::abs(e) > size; });
  const bool constant =
      std::all_of(errors.begin(), errors.end(), [&](double e) { return e == errors.front(); });
  return !constant && 10 * beyond >= 9 * std::ssize(errors);
}

/// True for a title that is a row of so many numbers.
bool isPoint(const std::string& title, std::size_t columns) {
  std::array<std::string_view, 5> tokens;
  const auto fields = SplitBlanks(title, tokens);
  return fields.size() == columns &&
         std::ranges::all_of(fields, [](std::string_view field) { return numberIn(field).has_value(); });
}

}  // namespace

std::vector<std::string> dataWarnings(const DataReading& reading) {
  const DataSet& data = reading.data;
  const Column x = data.Xpnt.span(1, data.NumPnt);
  const Column y = data.Ypnt.span(1, data.NumPnt);
  const auto [leastX, mostX] = std::minmax_element(x.begin(), x.end());
  const auto [leastY, mostY] = std::minmax_element(y.begin(), y.end());
  std::vector<std::string> warnings;
  // A point in the place of the count announces errors of x, and four columns pass.
  const std::size_t columns = data.kXpntErr ? 4 : 3;
  if (isPoint(data.TitleX, columns) && isPoint(data.TitleY, columns))
    warnings.emplace_back("i titoli sembrano punti; senza le tre linee iniziali: import --header 0");
  else if (reading.declaredCount != data.NumPnt)
    warnings.push_back("la terza linea annuncia " + std::to_string(reading.declaredCount) +
                       " punti, ma sono " + std::to_string(data.NumPnt));
  if (const std::string text = errorsWarning(data.ErrYpnt.span(1, data.NumPnt)); !text.empty()) {
    warnings.push_back(text);
  }
  // Errors that stand in the place of y are all positive.
  if (*leastY > 0 && areBeyond(data.ErrYpnt.span(1, data.NumPnt), *mostY)) {
    warnings.emplace_back("le colonne y e dy sembrano scambiate: gli errori superano ogni y");
  }
  const double range = *mostX - *leastX;
  if (data.kXpntErr && *leastY > 0 && *mostY < range && areBeyond(data.ErrXpnt.span(1, data.NumPnt), range)) {
    warnings.emplace_back(
        "le colonne y e dx sembrano scambiate: gli errori di x superano l'intervallo delle x");
  }
  return warnings;
}

}  // namespace vk
