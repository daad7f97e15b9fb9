#include "analysis/FitWarnings.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vk {
namespace {

constexpr double kImprobable = 0.1;  // per cent
constexpr double kHighCorrelation = 0.98;
constexpr double kFarOff = 0.1;  // errors
constexpr double kWrongFactor = 1.5;

// In the order of the kinds.
constexpr std::array kWarningTexts{
    FitText{
        "chi_square_high", "Chi quadro troppo grande",
        "Il chi quadro e` molto maggiore dei gradi di liberta` (probabilita` sotto 0.1 %): la funzione NON "
        "descrive i dati, o i loro errori sono troppo piccoli."},
    FitText{"chi_square_low", "Chi quadro troppo piccolo",
            "Il chi quadro e` molto minore dei gradi di liberta` (probabilita` oltre 99.9 %): gli errori dei "
            "dati sono troppo grandi, o i punti NON sono indipendenti."},
    FitText{
        "correlation_high", "Correlazione oltre 98 %",
        "I dati distinguono appena questi parametri: uno compensa l'altro, e l'errore di ciascuno vale solo "
        "insieme alla correlazione."},
    FitText{"error_above_value", "Errore maggiore del valore",
            "L'errore supera il valore del parametro: i dati NON lo distinguono da zero."},
    FitText{"fit_off_minimum", "Adattamento lontano dal minimo",
            "L'adattamento si e` fermato a piu` di 0.1 errori dal minimo: vale il valore di questa tabella."},
    FitText{"fit_error_wrong", "Errore dell'adattamento inesatto",
            "L'errore dell'adattamento si scosta di oltre un fattore 1.5 da quello lineare: vale quello di "
            "questa tabella."},
    FitText{"errors_invented", "Errori di y tutti uguali a 1",
            "Gli errori di y sono tutti 1, come dove NON sono noti: il chi quadro NON giudica la funzione, e "
            "degli errori vale quello scalato."},
};

constexpr std::array kEndTexts{
    FitText{"converged", "Minimo Raggiunto", "Il minimo e` raggiunto fino alle ultime cifre."},
    FitText{"no_progress", "Senza Progresso",
            "Nessun passo riduce piu` il chi quadro, ma il minimo NON e` certo."},
    FitText{"evaluations", "Troppi Calcoli",
            "Il numero dei calcoli permessi e` finito prima del minimo: servono altri valori iniziali."},
    FitText{"singular", "Parametri Dipendenti",
            "I dati NON distinguono i parametri, o sono meno di questi: qualcuno va tenuto costante."},
    FitText{"failed", "NON Calcolabile",
            "La funzione NON si calcola in un punto: servono altri valori iniziali, o altri dati."},
};

constexpr std::array kXErrorTexts{
    FitText{"effective", "Varianza Efficace",
            "Gli errori di x entrano nella varianza, con la pendenza della funzione nel minimo."},
    FitText{"orthogonal", "Distanza Ortogonale",
            "Degli scarti conta la distanza dei punti dalla curva, x e y in unita` dei loro errori."},
};

/// The comparison of one fit with its minimum.
class Diagnosis {
 public:
  Diagnosis(const DataSet& data, const FitResult& fit, const RefinedFit& refined)
      : dy_(data.ErrYpnt.span(1, data.NumPnt)), fit_(fit), refined_(refined) {
    const bool equal = !dy_.empty() && std::ranges::count(dy_, dy_.front()) == data.NumPnt;
    scaled_ = equal && refined.reducedChiSquare;
    invented_ = haveInventedErrors(data);
  }

  std::vector<FitWarning> warnings() && {
    judgeChiSquare();
    judgeCorrelations();
    const bool hasMinimum = refined_.converged() && fit_.status != FitStatus::kFailed;
    addWhere(FitWarningKind::kErrorAboveValue, [&](int i) { return measure(i) > std::abs(minimum(i)); });
    if (hasMinimum) {
      addWhere(FitWarningKind::kFitOffMinimum,
               [&](int i) { return std::abs(fitted(i) - minimum(i)) > kFarOff * measure(i); });
      addWhere(FitWarningKind::kFitErrorWrong, [&](int i) {
        const double ratio = fit_.par.ParDeltas[place(i)] / refined_.error(i);
        return !(ratio <= kWrongFactor && ratio >= 1 / kWrongFactor);
      });
    }
    if (invented_) list_.push_back({FitWarningKind::kErrorsInvented});
    return std::move(list_);
  }

 private:
  // Where there is no covariance nothing can be said of the parameters.
  int count() const { return refined_.covariance.size(); }
  int place(int i) const { return refined_.par.FreeIndex[i]; }
  double minimum(int i) const { return refined_.par.ParValues[place(i)]; }
  double fitted(int i) const { return fit_.par.ParValues[place(i)]; }
  double measure(int i) const { return scaled_ ? *refined_.scaledError(i) : refined_.error(i); }

  void judgeChiSquare() {
    const auto& confidence =
        refined_.confidencePercent ? refined_.confidencePercent : fit_.confidence_percent;
    if (!confidence) return;
    if (*confidence < kImprobable) list_.push_back({FitWarningKind::kChiSquareHigh});
    if (*confidence > 100 - kImprobable) list_.push_back({FitWarningKind::kChiSquareLow});
  }

  void judgeCorrelations() {
    const CorrelationMatrix correlation = refined_.covariance.correlation();
    std::vector<std::string> pairs;
    for (int a = 1; a <= count(); ++a) {
      for (int b = a + 1; b <= count(); ++b) {
        if (std::abs(correlation.at(a, b)) > kHighCorrelation)
          pairs.push_back(refined_.par.name(place(a)) + "-" + refined_.par.name(place(b)));
      }
    }
    add(FitWarningKind::kCorrelationHigh, std::move(pairs));
  }

  template <class Holds>
  void addWhere(FitWarningKind kind, const Holds& holds) {
    std::vector<std::string> names;
    for (int i = 1; i <= count(); ++i) {
      if (holds(i)) names.push_back(refined_.par.name(place(i)));
    }
    add(kind, std::move(names));
  }

  void add(FitWarningKind kind, std::vector<std::string> parameters) {
    if (!parameters.empty()) list_.push_back({kind, std::move(parameters)});
  }

  const std::span<const double> dy_;
  const FitResult& fit_;
  const RefinedFit& refined_;
  bool scaled_ = false, invented_ = false;
  std::vector<FitWarning> list_;
};

}  // namespace

bool haveInventedErrors(const DataSet& data) {
  const auto dy = data.ErrYpnt.span(1, data.NumPnt);
  return !dy.empty() && std::ranges::all_of(dy, [](double error) { return error == 1; });
}

std::vector<FitWarning> fitWarnings(const DataSet& data, const FitResult& fit, const RefinedFit& refined) {
  return Diagnosis(data, fit, refined).warnings();
}

const FitText& textOf(FitWarningKind kind) {
  return kWarningTexts.at(static_cast<std::size_t>(kind));
}

const FitText& textOf(LeastSquaresEnd end) {
  return kEndTexts.at(static_cast<std::size_t>(end));
}

const FitText& textOf(XErrors xErrors) {
  return kXErrorTexts.at(static_cast<std::size_t>(xErrors));
}

}  // namespace vk
