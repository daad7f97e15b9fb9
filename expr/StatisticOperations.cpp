#include "expr/StatisticOperations.h"

#include "expr/Opcodes.h"
#include "numeric/Distributions.h"
#include "numeric/SpecialFunctions.h"

namespace vk {
namespace {

Evaluation ofOne(int opcode, double x) {
  switch (opcode) {
    case kOpLnGam:
      return lnGamma(x);
    case kOpGam:
      return gammaFunction(x);
    case kOpLowerTail:
      return normalLowerTail(x);
    case kOpUpperTail:
      return normalUpperTail(x);
    default:
      return normalCentralArea(x);
  }
}

Evaluation ofTwo(int opcode, double x, double p, EvaluationListener& listener) {
  switch (opcode) {
    case kOpPoissonDensity:
      return poissonDensity(x, p);
    case kOpPoissonCumulative:
      return poissonCumulative(x, p, listener);
    case kOpChiSquareDensity:
      return chiSquareDensity(x, p);
    case kOpChiSquareCumulative:
      return chiSquareCumulative(x, p, listener);
    case kOpStudentDensity:
      return studentDensity(x, p);
    default:
      return studentCumulative(x, p, listener);
  }
}

Evaluation ofThree(int opcode, double x, double p, double q, EvaluationListener& listener) {
  switch (opcode) {
    case kOpBinomialDensity:
      return binomialDensity(x, p, q);
    case kOpBinomialCumulative:
      return binomialCumulative(x, p, q, listener);
    case kOpNormalDensity:
      return normalDensity(x, p, q);
    case kOpNormalCumulative:
      return normalCumulative(x, p, q);
    case kOpFisherDensity:
      return fisherDensity(x, p, q);
    default:
      return fisherCumulative(x, p, q, listener);
  }
}

}  // namespace

Evaluation statisticValue(int opcode, double x, std::span<const double> further,
                          EvaluationListener& listener) {
  const int arity = kArities[static_cast<std::size_t>(opcode)];
  if (static_cast<int>(further.size()) + 1 < arity) return {0, Fault::kDomain};
  if (arity == 1) return ofOne(opcode, x);
  if (arity == 2) return ofTwo(opcode, x, further[0], listener);
  return ofThree(opcode, x, further[0], further[1], listener);
}

}  // namespace vk
