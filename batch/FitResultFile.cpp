#include "batch/FitResultFile.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "batch/Assignment.h"
#include "batch/DataInput.h"
#include "batch/TerminalPorts.h"

namespace vk {
namespace {

// What rounding leaves of a number that is 1, or of two that are equal.
constexpr double kRounding = 1E-9;

constexpr const char* kAge = ": il file e` di una versione precedente, ripetere l'adattamento con fit --json";

/// A value of the file, which knows where it stands there.
class Value {
 public:
  Value(const nlohmann::json& json, std::string place) : json_(json), place_(std::move(place)) {}

  [[noreturn]] void refuse(const std::string& why) const { throw UsageError(place_ + ": " + why); }

  bool has(const char* key) const { return json_.contains(key); }
  /// The member of this object. Where it is missing, `hint` tells more.
  Value member(const char* key, const char* hint = "") const {
    require(json_.is_object(), "un oggetto");
    if (!has(key)) refuse("manca \"" + std::string(key) + "\"" + hint);
    return {json_[key], place_ + ": " + key};
  }
  std::vector<Value> items() const {
    require(json_.is_array(), "un elenco");
    std::vector<Value> result;
    for (std::size_t i = 0; i < json_.size(); ++i)
      result.emplace_back(json_[i], place_ + "[" + std::to_string(i) + "]");
    return result;
  }
  double number() const {
    require(json_.is_number(), "un numero");
    return json_.get<double>();
  }
  std::string text() const {
    require(json_.is_string(), "un testo");
    return json_.get<std::string>();
  }
  bool truth() const {
    require(json_.is_boolean(), "true o false");
    return json_.get<bool>();
  }

 private:
  void require(bool kind, const char* expected) const {
    if (json_.is_null()) refuse("null, l'adattamento non ha dato questo valore");
    if (!kind) refuse(std::string("si attende ") + expected);
  }

  const nlohmann::json& json_;
  std::string place_;
};

nlohmann::json parsed(const std::string& bytes, const std::string& file) {
  try {
    return nlohmann::json::parse(bytes);
  } catch (const nlohmann::json::parse_error& error) {
    throw UsageError(file + ": JSON errato al byte " + std::to_string(error.byte));
  } catch (const nlohmann::json::out_of_range&) {
    throw UsageError(file + ": un numero e` fuori dai limiti");
  }
}

// A name that is none is not told: it could steer the terminal.
std::string nameIn(const Value& value) {
  const std::string name = value.text();
  try {
    if (isOneName(name) && name != "x") return textOfWord(name);
  } catch (const UsageError&) {
  }
  value.refuse("si attende il nome di un parametro");
}

/// The error of a free parameter.
double errorIn(const Value& value) {
  const double error = value.number();
  if (error < 0) value.refuse("si attende un numero non negativo");
  return error;
}

/// Enters the correlations of the parameters with these numbers, which are the free ones.
void readCorrelation(const Value& value, const std::vector<int>& free, CorrelationMatrix& correlation) {
  const auto requireSize = [&](std::size_t size) {
    const std::string count = std::to_string(free.size());
    if (size != free.size()) value.refuse("si attende una matrice " + count + " x " + count);
  };
  std::vector<std::vector<double>> rows;
  for (const Value& row : value.items()) {
    rows.emplace_back();
    for (const Value& number : row.items()) rows.back().push_back(number.number());
    requireSize(rows.back().size());
  }
  requireSize(rows.size());
  for (std::size_t a = 0; a < free.size(); ++a) {
    if (std::abs(rows[a][a] - 1) > kRounding) value.refuse("sulla diagonale si attende 1");
    for (std::size_t b = 0; b < a; ++b) {
      if (std::abs(rows[a][b] - rows[b][a]) > kRounding) value.refuse("la matrice non e` simmetrica");
      correlation.set(free[a], free[b], rows[a][b]);
    }
  }
}

/// Where a result keeps its errors and correlations.
struct Keys {
  const char* error;
  const char* correlation;
  const char* hint = "";  ///< where there are no correlations
};

FittedParameters parametersIn(const Value& result, const Keys& keys, const std::string& file) {
  FittedParameters fitted;
  fitted.file = file;
  std::vector<int> free;
  for (const Value& item : result.member("parameters").items()) {
    const bool isFree = item.member("free").truth();
    fitted.parameters.push_back({nameIn(item.member("name")), item.member("value").number(),
                                 isFree ? errorIn(item.member(keys.error)) : 0});
    if (isFree) free.push_back(static_cast<int>(fitted.parameters.size()));
  }
  fitted.correlation = CorrelationMatrix(static_cast<int>(fitted.parameters.size()));
  readCorrelation(result.member(keys.correlation, keys.hint), free, fitted.correlation);
  factorOf(fitted.correlation, file);
  return fitted;
}

}  // namespace

FittedParameters readFitResult(Files& files, const std::string& fileName) {
  const std::string file = shownName(fileName);
  FittedParameters fitted;
  usingFile(fileName, [&] {
    const nlohmann::json json = parsed(files.readAll(fileName), file);
    const Value whole(json, file);
    if (json.is_object() && whole.has("refined")) {
      const Value refined = whole.member("refined");
      fitted = parametersIn(refined, {"error", "correlation"}, file);
      fitted.converged = refined.member("stop_reason").text() == "converged";
    } else {
      fitted = parametersIn(whole, {"error_linearised", "correlation_linearised", kAge}, file);
    }
  });
  return fitted;
}

CholeskyFactor factorOf(const CorrelationMatrix& correlation, const std::string& file) {
  auto factor = CholeskyFactor::of(correlation);
  if (!factor) throw UsageError(file + ": nessun errore ha queste correlazioni");
  return *std::move(factor);
}

}  // namespace vk
