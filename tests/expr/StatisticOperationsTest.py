"""Prints the figures of StatisticOperationsTest.cpp: true values, and in the last lines what the short factors and the
broken-off series of the program give."""

import sys
from fractions import Fraction
from math import comb, erf, exp, lgamma, log, pi, sqrt
from pathlib import Path

sys.path.append(str(Path(__file__).parents[1] / "numeric"))
from SpecialFunctionsTest import beta_fraction, gamma_fraction, gamma_series, ln_gamma


def binomial(k, n, p):
    return float(comb(n, k) * p**k * (1 - p) ** (n - k))


def student(x, n, ln_gamma, pi):
    return exp(ln_gamma(n / 2 + 0.5) - ln_gamma(n / 2) - (n / 2 + 0.5) * log(1 + x * x / n)) / sqrt(n * pi)


def fisher(x, m, n):
    a, b, ratio = m / 2, n / 2, m / n
    return exp(lgamma(a + b) - lgamma(a) - lgamma(b)) * ratio**a * x ** (a - 1) * (1 + ratio * x) ** (-a - b)


def incomplete_beta(a, b, x):
    factor = exp(ln_gamma(a + b) - ln_gamma(a) - ln_gamma(b) + a * log(x) + b * log(1 - x))
    if x < (a + 1) / (a + b + 2):
        return factor * beta_fraction(a, b, x) / a
    return 1 - factor * beta_fraction(b, a, 1 - x) / b


def upper_tail(x):
    """Of the normal distribution, by a polynomial of five terms."""
    t = 1 / (1 + 0.3275911 * x / sqrt(2))
    terms = [0.254829592, -0.284496736, 1.421413741, -1.453152027, 1.061405429]
    return exp(-x * x / 2) / 2 * sum(term * t ** (k + 1) for k, term in enumerate(terms))


share = Fraction(3, 10)
lower_tail_student = incomplete_beta(2.5, 0.5, 1 / (1 + 4 / 5)) / 2
for call, value, digits in [
    ("D_B(2,5,0.3)", binomial(2, 5, share), ".4f"),
    ("C_B(2,5,0.3)", sum(binomial(k, 5, share) for k in range(3)), ".5f"),
    ("C_B(0,5,0.3)", binomial(0, 5, share), ".5f"),
    ("D_P(3,2.5)", exp(-2.5) * 2.5**3 / 6, ".12f"),
    ("C_P(3,2.5)", exp(-2.5) * (1 + 2.5 + 2.5**2 / 2 + 2.5**3 / 6), ".12f"),
    ("C_N(5,2,2)", (1 + erf(1.5 / sqrt(2))) / 2, ".12f"),
    ("A(1)", erf(1 / sqrt(2)), ".12f"),
    ("D_X2(3,4)", 3 * exp(-1.5) / 4, ".12f"),
    ("C_X2(10,4)", 1 - exp(-5) * 6, ".12f"),
    ("D_F(2,3,4)", fisher(2, 3, 4), ".12f"),
    ("D_F(0.5,4,7)", fisher(0.5, 4, 7), ".12f"),
    ("D_N(1,0,2)", 0.3989423 / 2 * exp(-0.125), ".17f"),
    ("GAM(4.5)", exp(ln_gamma(4.5)), ".8f"),
    ("P(0)", 1 - upper_tail(0), ".10f"),
    ("Q(0)", upper_tail(0), ".10f"),
    ("P(1.96)", 1 - upper_tail(1.96), ".8f"),
    ("Q(1.96)", upper_tail(1.96), ".8f"),
    ("C_X2(3,4)", gamma_series(2, 1.5), ".8f"),
    ("D_T(2,5)", student(2, 5, ln_gamma, 3.1415926), ".17f"),
    ("C_T(2,5)", 1 - lower_tail_student, ".8f"),
    ("C_T(-2,5)", lower_tail_student, ".8f"),
    ("C_F(2,3,4)", 1 - incomplete_beta(2, 1.5, 1 / (1 + 2 * 3 / 4)), ".8f"),
]:
    print(f'EXPECT_NEAR(valueOf("{call}"), {value:{digits}},')
print(f'EXPECT_GT(std::fabs(valueOf("D_T(2,5)") - {student(2, 5, lgamma, pi):.16f}), 4e-10);')
