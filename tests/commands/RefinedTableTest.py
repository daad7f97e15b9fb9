"""Prints the lines of the table of the exponential decay in RefinedTableTest.cpp."""

import sys
from cmath import exp
from pathlib import Path

sys.path.append(str(Path(__file__).parents[1] / "analysis"))
from least_squares import fit, table

DECAY = [10.2, 7.1, 4.9, 3.9, 2.7, 2.4, 2.1, 1.6]
result = fit(lambda p, x: p[0] * exp(-p[1] * x) + p[2], range(8), DECAY, [0.2] * 8, [8, 0.4, 1])
print("\n".join(table(["A", "tau", "C"], 8, result)))
