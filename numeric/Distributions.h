#pragma once

#include "numeric/Fault.h"

/// Densities and distribution functions, as values with their fault; see SpecialFunctions.h for what a fault
/// means, for the kernels and for their errors, which are those of what is made of them.
///
/// Counts, degrees of freedom and other arguments that cannot be negative are taken by their magnitude.
/// Where a logarithm would meet a zero, 1E-15 stands in its place.
namespace vk {

/// n! / (k! (n-k)!) p^k (1-p)^(n-k). Relative error 2.5E-10 for n <= 1000.
Evaluation binomialDensity(double k, double n, double p);
/// Probability of at most k of n: 1 - I_p(k+1, n-k). Fault of the domain for k > n.
Evaluation binomialCumulative(double k, double n, double p, EvaluationListener& listener);

/// m^x exp(-m) / x!. Relative error 2.1E-10 for m <= 1000.
Evaluation poissonDensity(double x, double m);
/// Probability of at most x: Q(x+1, m).
Evaluation poissonCumulative(double x, double m, EvaluationListener& listener);

/// exp(-z^2/2) / (sigma sqrt(2 pi)), z = (x-m)/sigma, with seven digits of the factor.
Evaluation normalDensity(double x, double m, double sigma);
/// 1 - erfc(z/sqrt(2))/2. Error 7E-8.
Evaluation normalCumulative(double x, double m, double sigma);

/// t^(n/2) exp(-t) / (2 t gamma(n/2)), t = x/2.
Evaluation chiSquareDensity(double x, double n);
/// 1 - Q(n/2, x/2).
Evaluation chiSquareCumulative(double x, double n, EvaluationListener& listener);

/// gamma((n+1)/2) / (gamma(n/2) sqrt(n pi)) (1 + x^2/n)^(-(n+1)/2), with eight digits of pi.
Evaluation studentDensity(double x, double n);
/// 1 - I_w(n/2, 1/2)/2 for x > 0, w = n/(n + x^2); the other tail for x <= 0.
Evaluation studentCumulative(double x, double n, EvaluationListener& listener);

/// (a/b)^a x^(a-1) / (B(a,b) (1 + x a/b)^(a+b)), a = m/2, b = n/2.
Evaluation fisherDensity(double x, double m, double n);
/// 1 - I_w(n/2, m/2), w = n/(n + m x).
Evaluation fisherCumulative(double x, double m, double n, EvaluationListener& listener);

/// Area of the standard normal distribution below x. Error 7E-8.
Evaluation normalLowerTail(double x);
/// Area above x. Error 7E-8.
Evaluation normalUpperTail(double x);
/// Area between -|x| and |x|. Error 1.4E-7.
Evaluation normalCentralArea(double x);

}  // namespace vk
