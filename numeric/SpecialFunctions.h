#pragma once

#include "numeric/Fault.h"

/// Gamma function, incomplete beta and gamma functions, error function: values with their fault.
///
/// Outside its domain, and where a step leaves the range of a double, a function has the fault `kDomain` and,
/// where nothing else is said, the value 0. Series and fractions end at a relative change of 3E-7 or after
/// 100 terms, with the fault `kExhausted`, which the listener is told at that moment. Numbers in brackets are
/// those of the Handbook of Mathematical Functions of Abramowitz and Stegun.
///
/// The errors told are the largest measured against an arithmetic with a mantissa of 64 bits, at 1E5 to 1E6
/// random arguments where nothing is exhausted: x of gamma(x) from 1E-6 on, a and b from 1E-3 to 1E4.
namespace vk {

/// ln(gamma(x)), x > 0. Lanczos' series of six terms with g = 5.
///
/// Error 1.3E-10 relative to the larger of 1 and the value, more below x = 1E-6, where x - 1 loses digits. Not
/// quite 0 at x = 1 (-3.4E-11) and x = 2 (-7.8E-11); every figure that was printed so far was made with it.
Evaluation lnGamma(double x);

/// gamma(x) = exp(ln(gamma(x))), x > 0, rounded to the whole number for a whole x. Relative error 2.1E-10.
Evaluation gammaFunction(double x);

/// The continued fraction of the incomplete beta function [26.5.8] without the factor x^a (1-x)^b / (a B(a,b)) in
/// front, evaluated from the front with the ratios of successive numerators and denominators (Lentz, modified).
/// When its terms do not suffice, the value is what was reached.
Evaluation betaFraction(double a, double b, double x, EvaluationListener& listener);

/// Regularised incomplete beta function I_x(a,b) [26.5.1], a, b > 0, 0 <= x <= 1, by the fraction or, from
/// (a+1)/(a+b+2) on, by that of 1 - I_{1-x}(b,a) [26.5.2]. Error 6E-8.
Evaluation incompleteBeta(double a, double b, double x, EvaluationListener& listener);

/// Regularised lower incomplete gamma function P(a,x) by its series [6.5.29], a > 0; 0 for x <= 0. Relative
/// error 5.1E-7 for a <= 100 and x < a + 1, where it converges quickly, and 2E-6 for larger a. When its terms do
/// not suffice, the value is 0.
Evaluation gammaSeries(double a, double x, EvaluationListener& listener);

/// Regularised upper incomplete gamma function Q(a,x) by its continued fraction [6.5.31], a > 0, x > 0. Relative
/// error 5.1E-7 for x >= a + 1, where it converges quickly. When its terms do not suffice, the value is what was
/// reached.
Evaluation gammaFraction(double a, double x, EvaluationListener& listener);

/// Q(a,x) = 1 - P(a,x) [6.5.1 to 6.5.3], a > 0, x >= 0: the series below x = a + 1, the fraction from there on.
/// Error 2.7E-7 for a <= 100, 5.6E-7 above.
Evaluation upperGamma(double a, double x, EvaluationListener& listener);

/// Q(a,x) with as many terms as it takes, and the same bits where 100 suffice. Error 3.1E-6.
Evaluation fullUpperGamma(double a, double x);

/// Complementary error function [7.1.26], odd about 1. Error 1.4E-7. Not quite 1 at x = 0.
Evaluation complementaryError(double x);

}  // namespace vk
