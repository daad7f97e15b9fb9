#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "bench/validation/NumberCell.h"
#include "bench/validation/Precise.h"
#include "bench/validation/Sections.h"
#include "numeric/Distributions.h"
#include "numeric/SpecialFunctions.h"

namespace vk {
namespace {

/// What a difference is divided by.
enum class Measure { kAbsolute, kRelative, kRelativeAboveOne /**< the larger of 1 and the value */ };

/// The largest difference of a function from the truth.
class Accuracy {
 public:
  explicit Accuracy(Measure measure) : measure_(measure) {}

  /// Values that fall below the range of a double tell nothing.
  void take(const Evaluation& found, const Precise& exact) {
    const double size = std::abs(exact.toDouble());
    if (measure_ == Measure::kRelative && size < kTiny) return;
    ++count_;
    if (found.fault != Fault::kNone) {
      ++exhausted_;
      return;
    }
    const double difference = std::abs((exact - found.value).toDouble());
    const double unit = measure_ == Measure::kAbsolute   ? 1
                        : measure_ == Measure::kRelative ? size
                                                         : std::max(1.0, size);
    largest_ = std::max(largest_, difference / unit);
  }

  std::string cells() const {
    return std::to_string(count_) + " | " + (exhausted_ == 0 ? "" : std::to_string(exhausted_)) + " | " +
           formatted("%.1e", largest_) + (measure_ == Measure::kAbsolute ? "" : " of the value");
  }

 private:
  static constexpr double kTiny = 1E-290;

  Measure measure_;
  int count_ = 0, exhausted_ = 0;
  double largest_ = 0;
};

/// The rows of the table.
class Table {
 public:
  explicit Table(std::ostream& page) : page_(page) {}

  /// `compare(accuracy)` takes all arguments; `told` is the accuracy that the program's documentation tells.
  template <class Compare>
  void row(const std::string& function, const std::string& arguments, const std::string& told,
           Measure measure, Compare compare) {
    Accuracy accuracy(measure);
    compare(accuracy);
    page_ << "| " << function << " | " << arguments << " | " << accuracy.cells() << " | " << told << " |\n";
  }

 private:
  std::ostream& page_;
};

// ---- Arguments: the same on every machine

std::vector<double> geometric(double from, double to, double factor) {
  std::vector<double> values;
  for (double x = from; x <= to; x *= factor) values.push_back(x);
  return values;
}

std::vector<double> even(double from, double to, int steps) {
  std::vector<double> values;
  for (int i = 0; i <= steps; ++i) values.push_back(from + i * (to - from) / steps);
  return values;
}

/// Positive places on the scale of x and close to a mean with this deviation.
std::vector<double> about(double mean, double deviation) {
  std::vector<double> values = geometric(mean / 1000, mean * 20, 1.5);
  for (const double z : even(-6, 6, 48)) {
    if (mean + z * deviation > 0) values.push_back(mean + z * deviation);
  }
  return values;
}

const std::vector<double>& degrees() {
  static const std::vector<double> values{1, 2, 3, 4, 5, 7, 10, 15, 20, 30, 50, 70, 100, 150, 200};
  return values;
}

// ---- Functions

void compareGamma(Table& table) {
  const auto gamma = [](double x) { return Precise::of(mpfr_gamma, x); };
  table.row("logarithm of the gamma function", "x 1E-6 to 1E6", "1.3E-10", Measure::kRelativeAboveOne,
            [](Accuracy& accuracy) {
              for (const double x : geometric(1E-6, 1E6, 1.01))
                accuracy.take(lnGamma(x), lnGamma(Precise(x)));
            });
  table.row("gamma function", "x 1E-6 to 170", "2.1E-10", Measure::kRelative, [&](Accuracy& accuracy) {
    for (const double x : geometric(1E-6, 170, 1.01)) accuracy.take(gammaFunction(x), gamma(x));
  });
  table.row("factorial", "0! to 169!", "2.1E-10", Measure::kRelative, [&](Accuracy& accuracy) {
    for (const double x : even(1, 170, 169)) accuracy.take(gammaFunction(x), gamma(x));
  });
  table.row("complementary error function", "x -6 to 6", "1.4E-7", Measure::kAbsolute,
            [](Accuracy& accuracy) {
              for (const double x : even(-6, 6, 1200)) accuracy.take(complementaryError(x), erfc(x));
            });
}

/// Compares at all a of a range, and at x below, about and above each.
template <class Compare>
void overGammaArguments(double from, double to, Compare compare) {
  for (const double a : geometric(from, to, 1.3)) {
    for (const double x : about(a, std::sqrt(a))) compare(a, x);
  }
}

void compareIncompleteGamma(Table& table) {
  NoListener listener;
  const auto upper = [&](const std::string& arguments, const std::string& told, double from, double to) {
    table.row("incomplete gamma function Q(a,x)", arguments, told, Measure::kAbsolute,
              [&](Accuracy& accuracy) {
                overGammaArguments(from, to, [&](double a, double x) {
                  accuracy.take(upperGamma(a, x, listener), upperGamma(Precise(a), x));
                });
              });
  };
  upper("a 0.001 to 100", "2.7E-7", 0.001, 100);
  upper("a 100 to 1E4", "5.6E-7", 100, 1E4);
  table.row("the same with all terms", "a 0.001 to 1E4", "3.1E-6", Measure::kAbsolute,
            [](Accuracy& accuracy) {
              overGammaArguments(0.001, 1E4, [&](double a, double x) {
                accuracy.take(fullUpperGamma(a, x), upperGamma(Precise(a), x));
              });
            });
  table.row("series of P(a,x)", "a 0.001 to 100, x < a + 1", "5.1E-7", Measure::kRelative,
            [&](Accuracy& accuracy) {
              overGammaArguments(0.001, 100, [&](double a, double x) {
                if (x < a + 1) accuracy.take(gammaSeries(a, x, listener), lowerGamma(a, x));
              });
            });
  table.row("fraction of Q(a,x)", "a 0.001 to 1E4, x >= a + 1", "5.1E-7", Measure::kRelative,
            [&](Accuracy& accuracy) {
              overGammaArguments(0.001, 1E4, [&](double a, double x) {
                if (x >= a + 1) accuracy.take(gammaFraction(a, x, listener), upperGamma(Precise(a), x));
              });
            });
}

void compareIncompleteBeta(Table& table) {
  NoListener listener;
  table.row("incomplete beta function I(a,b)", "a, b 0.001 to 1000", "6E-8", Measure::kAbsolute,
            [&](Accuracy& accuracy) {
              for (const double a : geometric(0.001, 2000, 4)) {
                for (const double b : geometric(0.001, 2000, 4)) {
                  const double mean = a / (a + b);
                  for (const double x : about(mean, std::sqrt(mean * (1 - mean) / (a + b + 1)))) {
                    if (x < 1)
                      accuracy.take(incompleteBeta(a, b, x, listener), incompleteBeta(Precise(a), b, x));
                  }
                }
              }
            });
}

// ---- Distributions

Precise binomialExact(double k, double n, double p) {
  return exp(lnGamma(Precise(n + 1)) - lnGamma(Precise(n - k + 1)) - lnGamma(Precise(k + 1)) +
             k * log(Precise(p)) + (n - k) * log(1 - Precise(p)));
}

void compareCounts(Table& table) {
  NoListener listener;
  const auto overBinomial = [](auto compare) {
    for (const double n : {1, 2, 5, 10, 30, 100, 300, 1000}) {
      for (const double p : even(0.02, 0.98, 24)) {
        for (int k = 0; k <= n; k += n < 50 ? 1 : 7) compare(k, n, p);
      }
    }
  };
  const auto overPoisson = [](double to, auto compare) {
    for (const double m : geometric(0.01, to, 1.4)) {
      const int step = m < 50 ? 1 : 7;
      for (int x = 0; x <= m + 8 * std::sqrt(m) + 3; x += step) compare(x, m);
    }
  };
  table.row("binomial density", "n to 1000", "2.5E-10", Measure::kRelative, [&](Accuracy& accuracy) {
    overBinomial([&](double k, double n, double p) {
      accuracy.take(binomialDensity(k, n, p), binomialExact(k, n, p));
    });
  });
  table.row("binomial distribution", "n to 1000", "6E-8", Measure::kAbsolute, [&](Accuracy& accuracy) {
    overBinomial([&](double k, double n, double p) {
      accuracy.take(binomialCumulative(k, n, p, listener),
                    k == n ? Precise(1) : 1 - incompleteBeta(Precise(k + 1), n - k, p));
    });
  });
  table.row("Poisson density", "mean 0.01 to 1000", "2.1E-10", Measure::kRelative, [&](Accuracy& accuracy) {
    overPoisson(1000, [&](double x, double m) {
      accuracy.take(poissonDensity(x, m), exp(x * log(Precise(m)) - m - lnGamma(Precise(x + 1))));
    });
  });
  table.row("Poisson distribution", "mean 0.01 to 100", "2.7E-7", Measure::kAbsolute,
            [&](Accuracy& accuracy) {
              overPoisson(100, [&](double x, double m) {
                accuracy.take(poissonCumulative(x, m, listener), upperGamma(Precise(x + 1), m));
              });
            });
}

void compareNormal(Table& table) {
  const std::vector<double> places = even(-6, 6, 1200);
  const auto below = [](double z) { return erfc(-z / sqrt(Precise(2))) / 2; };
  table.row("normal density", "-6 to 6", "seven digits of a factor", Measure::kRelative,
            [&](Accuracy& accuracy) {
              for (const double z : places)
                accuracy.take(normalDensity(z, 0, 1), exp(Precise(z) * -z / 2) / sqrt(2 * Precise::pi()));
            });
  table.row("normal distribution", "-6 to 6", "7E-8", Measure::kAbsolute, [&](Accuracy& accuracy) {
    for (const double z : places) accuracy.take(normalCumulative(z, 0, 1), below(z));
  });
  table.row("normal area above x", "-6 to 6", "7E-8", Measure::kAbsolute, [&](Accuracy& accuracy) {
    for (const double z : places) accuracy.take(normalUpperTail(z), below(-z));
  });
  table.row("normal area between -x and x", "0 to 6", "1.4E-7", Measure::kAbsolute, [&](Accuracy& accuracy) {
    for (const double z : even(0, 6, 600)) accuracy.take(normalCentralArea(z), 1 - 2 * below(-z));
  });
}

void compareChiSquare(Table& table) {
  NoListener listener;
  const auto overArguments = [](auto compare) {
    for (const double n : degrees()) {
      for (const double x : about(n, std::sqrt(2 * n))) compare(x, n);
    }
  };
  table.row("chi-square density", "1 to 200 degrees", "that of its gamma function", Measure::kRelative,
            [&](Accuracy& accuracy) {
              overArguments([&](double x, double n) {
                const Precise t = Precise(x) / 2, a = n / 2;
                accuracy.take(chiSquareDensity(x, n), exp((a - 1) * log(t) - t - lnGamma(a)) / 2);
              });
            });
  table.row("chi-square distribution", "1 to 200 degrees", "2.7E-7", Measure::kAbsolute,
            [&](Accuracy& accuracy) {
              overArguments([&](double x, double n) {
                accuracy.take(chiSquareCumulative(x, n, listener), lowerGamma(n / 2, Precise(x) / 2));
              });
            });
}

Precise studentBelow(double x, double n) {
  const Precise tail = incompleteBeta(Precise(n / 2), 0.5, n / (n + Precise(x) * x)) / 2;
  return x > 0 ? 1 - tail : tail;
}

void compareStudent(Table& table) {
  NoListener listener;
  const auto overArguments = [](auto compare) {
    for (const double n : degrees()) {
      for (const double x : even(-10, 10, 200)) {
        if (x != 0) compare(x, n);
      }
    }
  };
  table.row("Student's density", "1 to 200 degrees", "eight digits of pi", Measure::kRelative,
            [&](Accuracy& accuracy) {
              overArguments([&](double x, double n) {
                const Precise a = n / 2;
                accuracy.take(studentDensity(x, n),
                              exp(lnGamma(a + 0.5) - lnGamma(a) - (a + 0.5) * log(1 + Precise(x) * x / n)) /
                                  sqrt(n * Precise::pi()));
              });
            });
  table.row("Student's distribution", "1 to 200 degrees", "3E-8", Measure::kAbsolute,
            [&](Accuracy& accuracy) {
              overArguments([&](double x, double n) {
                accuracy.take(studentCumulative(x, n, listener), studentBelow(x, n));
              });
            });
}

void compareFisher(Table& table) {
  NoListener listener;
  const auto overArguments = [](auto compare) {
    for (const double m : degrees()) {
      for (const double n : degrees()) {
        for (const double x : geometric(0.01, 20, 1.3)) compare(x, m, n);
      }
    }
  };
  table.row("Fisher's density", "1 to 200 degrees", "that of its gamma functions", Measure::kRelative,
            [&](Accuracy& accuracy) {
              overArguments([&](double x, double m, double n) {
                const Precise a = m / 2, b = n / 2, ratio = a / b;
                accuracy.take(fisherDensity(x, m, n),
                              exp(lnGamma(a + b) - lnGamma(a) - lnGamma(b) + a * log(ratio) +
                                  (a - 1) * log(Precise(x)) - (a + b) * log(1 + ratio * x)));
              });
            });
  table.row("Fisher's distribution", "1 to 200 degrees", "6E-8", Measure::kAbsolute, [&](Accuracy& accuracy) {
    overArguments([&](double x, double m, double n) {
      accuracy.take(fisherCumulative(x, m, n, listener),
                    1 - incompleteBeta(Precise(n / 2), m / 2, n / (n + Precise(m) * x)));
    });
  });
}

}  // namespace

void writeFunctions(std::ostream& page) {
  page << "| Function | arguments | how many | exhausted | largest difference | told "
          "|\n|---|---|---|---|---|---|\n";
  Table table(page);
  compareGamma(table);
  compareIncompleteGamma(table);
  compareIncompleteBeta(table);
  compareCounts(table);
  compareNormal(table);
  compareChiSquare(table);
  compareStudent(table);
  compareFisher(table);
  page << R"(
The special functions and distributions of the program are made with the short constants and series of the figures that
it has always printed. Here they stand beside numbers of 200 bits: functions of MPFR, and for the incomplete ones the
series [6.5.29] and the fractions [6.5.31] and [26.5.8] of the Handbook of Mathematical Functions, to 45 digits. *Told*
is the accuracy that the documentation of the program's functions gives. *Exhausted* are arguments for which the program
tells that a series or a fraction has not come to its end; they are not compared.
)";
}

}  // namespace vk
