#pragma once

namespace vk {

/// Why a value is none to rely upon.
enum class Fault : unsigned char {
  kNone,
  kDomain,     ///< an argument lies outside the domain, or a step leaves the range of a double
  kExhausted,  ///< a series or fraction has used up its terms
};

/// A value with its fault.
struct Evaluation {
  double value = 0;
  Fault fault = Fault::kNone;

  bool operator==(const Evaluation&) const = default;
};

/// The kernels that work with a limited number of terms.
enum class Kernel { kBetaFraction, kGammaSeries, kGammaFraction };

/// Hears of a kernel that runs out of its terms, at that moment.
class EvaluationListener {
 public:
  virtual ~EvaluationListener() = default;
  virtual void exhausted(Kernel kernel) = 0;
};

/// For whom the fault of the value is enough.
class NoListener : public EvaluationListener {
 public:
  void exhausted(Kernel) override {}
};

}  // namespace vk
