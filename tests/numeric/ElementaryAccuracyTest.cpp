#include <gtest/gtest.h>
#include <mpfr.h>

#include <cstdlib>
#include <map>

#include "ElementaryArguments.h"

namespace vk {
namespace {

/// A number of 300 bits.
class Precise {
 public:
  explicit Precise(double x) {
    mpfr_init2(value_, 300);
    mpfr_set_d(value_, x, MPFR_RNDN);
  }
  ~Precise() { mpfr_clear(value_); }
  Precise(const Precise&) = delete;
  Precise& operator=(const Precise&) = delete;

  mpfr_ptr get() { return value_; }

  /// Whether it is a number that the functions give; those next to the largest double are infinite.
  bool isWithinRange() { return std::fabs(mpfr_get_d(value_, MPFR_RNDZ)) < 1.79769E308; }

  /// The distance of a double from this, in units of the last place that a double of this size has.
  double unitsFrom(double x) {
    const double rounded = std::fabs(mpfr_get_d(value_, MPFR_RNDZ));
    const double unit = std::nextafter(rounded, std::numeric_limits<double>::infinity()) - rounded;
    mpfr_sub_d(value_, value_, x, MPFR_RNDN);
    mpfr_div_d(value_, value_, unit, MPFR_RNDN);
    return std::fabs(mpfr_get_d(value_, MPFR_RNDN));
  }

 private:
  mpfr_t value_;
};

const std::map<simd::Function, int (*)(mpfr_t, mpfr_srcptr, mpfr_rnd_t)> kPrecise{
    {simd::kExp, mpfr_exp}, {simd::kLog, mpfr_log}, {simd::kSin, mpfr_sin},
    {simd::kCos, mpfr_cos}, {simd::kTan, mpfr_tan}, {simd::kAtan, mpfr_atan}};

/// Arguments for each function; VOR_ACCURACY_ARGUMENTS sets how many.
int howMany() {
  const char* count = std::getenv("VOR_ACCURACY_ARGUMENTS");
  return count != nullptr ? std::atoi(count) : 3000;
}

struct Worst {
  double units = 0;
  double x = 0, y = 0;

  void take(double found, double x1, double y1, Precise& exact) {
    if (!exact.isWithinRange()) return;
    const double here = std::isfinite(found) ? exact.unitsFrom(found) : found;
    if (!(here <= units)) *this = {here, x1, y1};
  }
};

TEST(ElementaryAccuracy, FunctionsAreWithinAUnitOfTheLastPlace) {
  for (const NamedFunction& named : kElementary) {
    Arguments arguments;
    Worst worst;
    for (int i = 0; i < howMany(); ++i) {
      const double x = arguments.of(named.function);
      Precise exact(x);
      kPrecise.at(named.function)(exact.get(), exact.get(), MPFR_RNDN);
      worst.take(named.single(x), x, 0, exact);
    }
    EXPECT_LE(worst.units, 1) << named.name << " of " << worst.x;
    RecordProperty(named.name, std::to_string(worst.units));
  }
}

TEST(ElementaryAccuracy, PowersAreWithinAUnitOfTheLastPlace) {
  Arguments arguments;
  Worst worst;
  for (int i = 0; i < howMany(); ++i) {
    const auto [x, y] = arguments.ofPower();
    Precise exact(x);
    Precise exponent(y);
    mpfr_pow(exact.get(), exact.get(), exponent.get(), MPFR_RNDN);
    worst.take(elementary::pow(x, y), x, y, exact);
  }
  EXPECT_LE(worst.units, 1) << worst.x << " to the " << worst.y;
  RecordProperty("pow", std::to_string(worst.units));
}

}  // namespace
}  // namespace vk
