"""Prints the figures of a long search in MinimiseStagesTest.cpp."""

from MinimiseTest import Minimiser, residuals_of


fit = Minimiser(residuals_of(lambda X, x: X[0] * X[0] * X[0] * x, [1, 2], [8.5, 15.5], 1.0), [0.2], [2.0])
print(f"EXPECT_NEAR(fit.log.entries[1].sum, {fit.progress[1][1]:.17g},")
print(f"EXPECT_EQ(fit.result.passes, {fit.passes});")
print(f"EXPECT_EQ(fit.result.evaluations, {fit.evaluations});")
