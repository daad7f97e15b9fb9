"""Prints quantiles of the normal distribution and of Student's with one degree of freedom for CurveBandTest.cpp."""

from math import erf, pi, sqrt, tan
from statistics import NormalDist

print(f"EXPECT_NEAR(intervalFactor({100 * erf(1 / sqrt(2)):.8f}, 0), 1,")
print(f"EXPECT_NEAR(intervalFactor(95, 0), {NormalDist().inv_cdf(0.975):.9f},")
print(f"EXPECT_NEAR(intervalFactor(95, 1), {tan(pi * 0.95 / 2):.4f},")
