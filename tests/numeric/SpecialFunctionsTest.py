"""Prints the figures of SpecialFunctionsTest.cpp: what series and fractions give that are broken off at a change below
3E-7, as numeric/SpecialFunctions.h tells, and true values of whole numbers."""

from decimal import Decimal as D, getcontext
from math import comb, exp, log

getcontext().prec = 40
ENOUGH = 3e-7


def ln_gamma(x, number=float, ln=log):
    """The series of six terms, in numbers of any kind."""
    x = number(x) - 1
    base = x + number("5.5")
    series = number(1)
    for coefficient in ["76.18009173", "-86.50532033", "24.01409822", "-1.231739516", "0.00120858003", "-5.36382E-6"]:
        x = x + 1
        series = series + number(coefficient) / x
    x = x - 6
    return (x + number("0.5")) * ln(base) - base + ln(number("2.50662827465") * series)


def beta_fraction(a, b, x):
    """The fraction, of at most a hundred pairs of terms."""
    c, d = 1.0, 1 / (1 - (a + b) * x / (a + 1))
    h = d
    for m in range(1, 101):
        for term in (m * (b - m) * x / ((a - 1 + 2 * m) * (a + 2 * m)),
                     -(a + m) * (a + b + m) * x / ((a + 2 * m) * (a + 1 + 2 * m))):
            d = 1 / (1 + term * d)
            c = 1 + term / c
            h = h * d * c
        if abs(d * c - 1) < ENOUGH:
            break
    return h


def factor(a, x):
    return exp(-x + a * log(x) - ln_gamma(a))


def gamma_series(a, x):
    """The share of the Gamma distribution below x by its series."""
    total = term = 1 / a
    n = a
    while abs(term) >= abs(total) * ENOUGH:
        n = n + 1
        term = term * x / n
        total = total + term
    return total * factor(a, x)


def gamma_fraction(a, x):
    """The share above x by its fraction, of at most a hundred terms."""
    a0, a1, b0, b1, before = 1.0, x, 0.0, 1.0, 0.0
    for n in range(1, 101):
        a0, b0 = a1 + a0 * (n - a), b1 + b0 * (n - a)
        a1, b1 = x * a0 + n * a1, x * b0 + n * b1
        a0, b0, b1, a1 = a0 / a1, b0 / a1, b1 / a1, 1.0
        if abs((b1 - before) / b1) < ENOUGH:
            break
        before = b1
    return b1 * factor(a, x)


def lower_beta(a, b, x):
    """True share of the Beta distribution below x: a or more of a + b - 1 draws."""
    n = a + b - 1
    return sum(comb(n, k) * D(x) ** k * (1 - D(x)) ** (n - k) for k in range(a, n + 1))


if __name__ == "__main__":
    for x in (1, 2):
        print(f"EXPECT_NEAR(lnGamma({x}).value, {ln_gamma(x, D, D.ln):.2e},")
    print(f"EXPECT_NEAR(betaFraction(2, 3, .4, log).value, {beta_fraction(2, 3, .4):.15f},")
    print(f"EXPECT_NEAR(betaFraction(20000, 20000, .5, log).value, {beta_fraction(20000, 20000, .5):.10f},")
    print(f"EXPECT_NEAR(reached.value, {beta_fraction(50000, 50000, .5):.10f},")
    print(f"EXPECT_NEAR(incompleteBeta(2, 3, .4, log).value, {lower_beta(2, 3, '.4'):.4f},")
    print(f"EXPECT_NEAR(incompleteBeta(2, 3, .9, log).value, {lower_beta(2, 3, '.9'):.4f},")
    print(f"EXPECT_NEAR(upperGamma(4, 5, log).value, {gamma_fraction(4, 5):.9f},")
    print(f"EXPECT_NEAR(upperGamma(4, 3, log).value, {1 - gamma_series(4, 3):.9f},")
    print(f"EXPECT_NEAR(gammaSeries(300, 300, log).value, {gamma_series(300, 300):.10f},")
    print(f"EXPECT_NEAR(gammaFraction(2000, 2001, log).value, {gamma_fraction(2000, 2001):.10f},")
    print(f"EXPECT_NEAR(reached.value, {gamma_fraction(0.5, 0.01):.14f},")
