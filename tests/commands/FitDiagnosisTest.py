"""Prints the lines of the parameters of the straight line in FitDiagnosisTest.cpp."""

import sys
from pathlib import Path

sys.path.append(str(Path(__file__).parents[1] / "analysis"))
from least_squares import fit, table

result = fit(lambda p, x: p[0] * x + p[1], range(1, 6), [2.1, 3.9, 6.2, 7.8, 10.1], [0.1] * 5, [1, 1])
print("\n".join(table(["b", "c"], 5, result)))
