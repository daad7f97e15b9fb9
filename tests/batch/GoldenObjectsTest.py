"""Prints the objects of GoldenObjectsTest.cpp with their data: straight lines and a parabola solved as fractions, a fit
with certified figures, random numbers and the fit's own procedure transcribed, and what follows from these."""

import json
import random
import struct
import sys
from fractions import Fraction
from math import erfc, exp, gamma, log, sqrt
from pathlib import Path
from statistics import NormalDist

for folder in ["analysis", "numeric"]:
    sys.path.append(str(Path(__file__).parents[1] / folder))
from MinimiseTest import Minimiser
from least_squares import fit as newton, gradient, inverse

HALF_95 = NormalDist().inv_cdf(0.975)


# ---- Solutions

def confidence(freedom, chi_square):
    """Per cent of larger values of chi-square, by the recurrence of the incomplete gamma function."""
    half, a = chi_square / 2, freedom % 2 / 2 or 1.0
    total = erfc(sqrt(half)) if freedom % 2 else exp(-half)
    while a < freedom / 2:
        total, a = total + half**a * exp(-half) / gamma(a + 1), a + 1
    return 100 * total


def solved(functions, rows):
    """Values, covariances and chi-square by the normal equations, as fractions of the decimals of the data."""
    rows = [[Fraction(str(number)) for number in row] for row in rows]
    designs = [[f(row[0]) / row[-1] for f in functions] for row in rows]
    y = [row[1] / row[-1] for row in rows]
    n = range(len(functions))
    covariance = inverse([[sum(d[i] * d[j] for d in designs) for j in n] for i in n])
    right = [sum(d[i] * q for d, q in zip(designs, y)) for i in n]
    p = [sum(covariance[i][j] * right[j] for j in n) for i in n]
    chi_square = sum((q - sum(a * b for a, b in zip(d, p))) ** 2 for d, q in zip(designs, y))
    return [float(q) for q in p], [[float(q) for q in row] for row in covariance], float(chi_square)


def deviations(covariance):
    return [sqrt(covariance[i][i]) for i in range(len(covariance))]


def correlations(covariance):
    s = deviations(covariance)
    return [[c / (s[i] * s[j]) for j, c in enumerate(row)] for i, row in enumerate(covariance)]


def run(model, rows, errors, start, steps):
    """The fit's own way to the minimum."""
    def residuals(p):
        return [(model(p, row[0]) - row[1]) / e for row, e in zip(rows, errors)]
    return Minimiser(residuals, start, steps)


# ---- Objects

class Golden:
    """A fit of rows of x, y and their errors; of (name, start, whether it is free)."""

    def __init__(self, function, formula, parameters, rows, minimum, fits):
        self.names, self.start, self.free = zip(*parameters)
        self.freedom = len(rows) - sum(self.free)
        self.minimum, self.last = minimum, fits[-1]
        self.object = {"schema_version": 1, "data_file": "D.DAT", "function": function, "formula": formula,
                       "points": len(rows)}
        self.fits = fits

    def spread(self, of_free, otherwise):
        rest = iter(of_free)
        return [next(rest) if free else other for free, other in zip(self.free, otherwise)]

    def of_fit(self, covariance):
        last, none = self.last, [None] * len(self.names)
        columns = zip(self.names, self.spread(last.X, self.start), self.spread(last.errors, none),
                      self.spread(deviations(covariance), none), self.free, self.start)
        keys = ["name", "value", "error", "error_linearised", "free", "start"]
        self.object |= {
            "parameters": [dict(zip(keys, column)) for column in columns],
            "correlation": last.correlation, "correlation_linearised": correlations(covariance),
            "chi_square": last.sum, "degrees_of_freedom": self.freedom, "reduced_chi_square": last.sum / self.freedom,
            "confidence_percent": confidence(self.freedom, last.sum), "iterations": last.iterations,
            "evaluations": sum(fit.evaluations for fit in self.fits), "passes": last.passes, "status": "completed",
            "reason": ""}
        return self

    def of_minimum(self, x_errors=None, warnings=()):
        p, covariance, chi_square = self.minimum
        none, scale = [None] * len(self.names), sqrt(chi_square / self.freedom)
        errors = deviations(covariance)
        columns = zip(self.names, self.spread(p, self.start), self.spread(errors, none),
                      self.spread([e * scale for e in errors], none), self.free)
        keys = ["name", "value", "error", "error_scaled", "free"]
        self.object["refined"] = {
            "parameters": [dict(zip(keys, column)) for column in columns], "correlation": correlations(covariance),
            "chi_square": chi_square, "confidence_percent": confidence(self.freedom, chi_square),
            "x_errors": x_errors, "stop_reason": "converged"}
        self.object["warnings"] = list(warnings)
        return self

    def of_profile(self):
        """Of a model that is linear in its parameters, all of them free."""
        p, covariance, _ = self.minimum
        self.object["profile"] = [
            {"name": name, "intervals": [{"percent": percent, "low": q - width * e, "high": q + width * e}
                                         for percent, width in [(68.27, 1), (95, HALF_95)]]}
            for name, q, e in zip(self.names, p, deviations(covariance))]
        return self

    def derived(self, name, formula, function):
        p, covariance, chi_square = self.minimum
        slope = gradient(function, p)
        error = sqrt(sum(a * b * c for a, row in zip(slope, covariance) for b, c in zip(slope, row)))
        quantity = {"name": name, "formula": formula, "value": function(p), "error": error}
        if "refined" in self.object:
            quantity["error_scaled"] = error * sqrt(chi_square / self.freedom)
        self.object["derived"] = [quantity]
        return self


LINE = [(1, 3.1, 0.1), (2, 4.8, 0.2), (3, 7.3, 0.1), (4, 8.7, 0.4), (5, 11.2, 0.2), (6, 12.9, 0.1)]
ARC = [(-3, 9.9, 1), (-2, 5.2, 1), (-1, 0.4, 1), (0, -1.3, 1), (1, -0.6, 1), (2, 3.8, 1), (3, 8.1, 1)]
# x, y, the error of x and that of y
BOTH = [(1, 2.9, 0.1, 0.2), (2, 5.3, 0.1, 0.1), (3, 6.8, 0.2, 0.3), (4, 9.2, 0.1, 0.2), (5, 10.7, 0.2, 0.1)]
# The 14 points of Misra1d.dat, with what is certified of them.
PRESSURE = [77.6, 114.9, 141.1, 190.8, 239.9, 289, 332.8, 378.4, 434.8, 477.3, 536.8, 593.1, 689.1, 760]
VOLUME = [10.07, 14.73, 17.94, 23.93, 29.61, 35.18, 40.02, 44.82, 50.76, 55.05, 61.01, 66.4, 75.47, 81.78]
CERTIFIED = {"b1": (4.3736970754e+02, 3.6489174345e+00), "b2": (3.0227324449e-04, 2.9334354479e-06)}
CERTIFIED_SUM = 5.6419295283e-02


def straight(p, x):
    return p[0] * x + p[1]


def errors_of(rows):
    return [row[-1] for row in rows]


def line():
    minimum = solved([lambda x: x, lambda x: 1], LINE)
    fit = run(straight, LINE, errors_of(LINE), [1.0, 0.5], [0.01, 0.005])
    golden = Golden("y = bx+c", "b*x+c", [("b", 1, True), ("c", 0.5, True)], LINE, minimum, [fit])
    return golden.of_fit(minimum[1]).of_minimum().of_profile().derived("T", "b/c", lambda p: p[0] / p[1]).object


def through_a_point():
    """A line whose value at 0 is given."""
    above = [(x, Fraction(str(y)) - 1, e) for x, y, e in LINE]
    minimum = solved([lambda x: x], above)
    fit = run(lambda p, x: p[0] * x + 1, LINE, errors_of(LINE), [1.0], [0.01])
    golden = Golden("y = bx+c", "b*x+c", [("b", 1, True), ("c", 1, False)], LINE, minimum, [fit])
    return golden.of_fit(minimum[1]).derived("R", "1/b", lambda p: 1 / p[0]).object


def parabola():
    minimum = solved([lambda x: x * x, lambda x: x, lambda x: 1], ARC)
    fit = run(lambda p, x: p[0] * (x * x) + p[1] * x + p[2], ARC, errors_of(ARC), [2.0, -1.0, -2.0], [0.02, 0.01, 0.02])
    golden = Golden("y = ax²+bx+c", "a*x*x+b*x+c", [("a", 2, True), ("b", -1, True), ("c", -2, True)], ARC, minimum,
                    [fit])
    golden.of_fit(minimum[1]).of_minimum(warnings=["errors_invented"])
    return golden.derived("V", "-b/(2*a)", lambda p: -p[1] / (2 * p[0])).object


def line_with_errors_in_x():
    """On a straight line the distance and the variance that follows the slope have the same minimum."""
    first = run(straight, BOTH, errors_of(BOTH), [1.0, 0.5], [0.01, 0.005])
    h = (BOTH[-1][0] - BOTH[0][0]) / 100
    slopes = [(straight(first.X, x + h) - straight(first.X, x - h)) / h / 2 for x, *_ in BOTH]
    both = [sqrt(dy * dy + (dx * slope) * (dx * slope)) for (*_, dx, dy), slope in zip(BOTH, slopes)]
    last = run(straight, BOTH, both, first.X, first.E)

    def residual(p, k):
        x, y, dx, dy = BOTH[k]
        return (straight(p, x) - y) / (dy * dy + (p[0] * dx) ** 2) ** 0.5
    minimum = newton(residual, range(5), [0] * 5, [1] * 5, [2.0, 1.0])
    linearised = newton(straight, *zip(*[row[:2] for row in BOTH]), both, first.X)[1]
    golden = Golden("y = bx+c", "b*x+c", [("b", 1, True), ("c", 0.5, True)], BOTH, minimum, [first, last])
    return golden.of_fit(linearised).of_minimum("effective", ["fit_off_minimum"]).object


def certified():
    def model(p, x):
        return p[0] * p[1] * x / (1 + p[1] * x)
    rows, ones = list(zip(PRESSURE, VOLUME)), [1.0] * 14
    fit = run(model, rows, ones, [450.0, 0.0003], [4.5, 0.000003])
    found = newton(model, PRESSURE, VOLUME, ones, [450, 0.0003])
    slopes = [gradient(lambda p, x=x: model(p, x), fit.X) for x in PRESSURE]
    linearised = inverse([[sum(s[i] * s[j] for s in slopes) for j in range(2)] for i in range(2)])
    golden = Golden("y = b1*b2*x/(1+b2*x)", "b1*b2*x/(1+b2*x)", [("b1", 450, True), ("b2", 0.0003, True)], rows, found,
                    [fit])
    warnings = ["chi_square_low", "correlation_high", "fit_off_minimum", "errors_invented"]
    golden.of_fit(linearised).of_minimum(warnings=warnings)
    refined = golden.derived("I", "b1*b2", lambda p: p[0] * p[1]).object["refined"]
    refined["chi_square"] = CERTIFIED_SUM
    for parameter in refined["parameters"]:
        parameter["value"], parameter["error_scaled"] = CERTIFIED[parameter["name"]]
    return golden.object


# ---- Random numbers

class Uniform:
    """Singles of the Mersenne twister (Matsumoto and Nishimura 1998), whose seed is a single's bits."""

    def __init__(self, seed):
        state = list(struct.unpack("<I", struct.pack("<f", seed)))
        for i in range(1, 624):
            state.append((1812433253 * (state[-1] ^ state[-1] >> 30) + i) % 2**32)
        self.source, self.stored = random.Random(), None
        self.source.setstate((3, (*state, 624), None))

    def next(self):
        return (self.source.getrandbits(32) >> 8) / 2**24

    def deviate(self):
        if self.stored is not None:
            stored, self.stored = self.stored, None
            return stored
        s = 1.0
        while not s < 1:
            w1, w2 = 2 * self.next() - 1, 2 * self.next() - 1
            s = w1 * w1 + w2 * w2
        factor = sqrt(-2 * log(s) / s)
        self.stored = w1 * factor
        return w2 * factor


def sampled(values):
    count, mean = len(values), sum(values) / len(values)
    spread = sqrt(abs(mean * mean - sum(v * v for v in values) / count))
    return {"count": count, "mean": mean, "spread": spread, "mean_error": spread / sqrt(count)}


def propagated():
    """Of a*x, with a maximum error of x and a standard deviation of a."""
    x, dx, a, da = 3, 0.25, 2, 0.5
    source = Uniform(7)
    values = []
    for _ in range(10000):
        shifted = x - dx * (2 * source.next() - 1)
        values.append(shifted * (a + da * source.deviate()))
    variable = {"name": "x", "value": x, "error": dx, "error_kind": "maximum", "derivative": a}
    parameter = {"name": "a", "value": a, "error": da, "error_kind": "sigma", "derivative": x}
    return {"schema_version": 1, "function": "y = a*x", "variables": [variable, parameter], "value": a * x,
            "error_maximum": dx * a + 3 * da * x, "error_sigma": sqrt((dx * a) ** 2 / 3 + (da * x) ** 2),
            "samples": sampled(values), "seed": 7, "status": "completed"}


def propagated_from_a_fit():
    """Of the sum of both parameters of the line, whose errors come from the normal equations."""
    (b, c), covariance, _ = solved([lambda x: x, lambda x: 1], LINE)
    (sb, sc), r = deviations(covariance), correlations(covariance)[0][1]
    source = Uniform(7)
    values = []
    for _ in range(10000):
        source.next()  # an error of 0 takes a number, too
        first, second = source.deviate(), source.deviate()
        values.append(b + sb * first + c + sc * (r * first + sqrt(1 - r * r) * second))
    sigma = sqrt(sb * sb + sc * sc + 2 * r * sb * sc)
    names = [("x", 0, 0, 0), ("b", b, sb, 1), ("c", c, sc, 1)]
    variables = [{"name": name, "value": value, "error": error, "error_kind": "sigma", "derivative": slope}
                 for name, value, error, slope in names]
    return {"schema_version": 1, "function": "y = b+c", "variables": variables, "value": b + c,
            "error_maximum": 3 * sigma, "error_sigma": sigma, "samples": sampled(values), "seed": 7,
            "status": "completed", "fit_file": "F.JSON"}


def simulated():
    """Of 2x+1 with errors of y of 0.5 and a constant c."""
    source, b, c, dy, points = Uniform(3), 2.0, 1.0, 0.5, 5
    rows = [(x, b * x + c + dy * source.deviate(), dy) for x in range(points)]
    start = b * ((source.next() - 0.5) * 0.4 + 1)
    fit = run(lambda p, x: p[0] * x + c, rows, [dy] * points, [start], [0.02])
    minimum = newton(lambda p, x: p[0] * x + c, *list(zip(*rows))[:2], [dy] * points, [b])
    golden = Golden("y = bx+c", "b*x+c", [("b", 2, True), ("c", 1, False)], rows, minimum, [fit])
    settings = {"x_min": 0, "x_max": 4, "points": points, "error_y": dy, "error_y_absolute": True, "error_x": 0,
                "error_x_absolute": False, "seed": 3}
    return {"schema_version": 1, "settings": settings,
            "truth": [{"name": "b", "value": 2}, {"name": "c", "value": 1}],
            "fit": golden.of_fit(minimum[1]).object | {"data_file": None}}


def transformed():
    """Logarithms of y over the squares of x, with errors to first order."""
    x, y, dx, dy = zip(*BOTH)
    return {"schema_version": 1, "title_x": "t^2", "title_y": "ln s", "x": [a * a for a in x],
            "y": [log(b) for b in y], "dx": [2 * a * d for a, d in zip(x, dx)], "dy": [d / b for b, d in zip(y, dy)]}


# ---- Texts

def rounded(value):
    """With the digits that all machines share."""
    if isinstance(value, dict):
        return {key: rounded(inner) for key, inner in value.items()}
    if isinstance(value, (list, tuple)):
        return [rounded(inner) for inner in value]
    return float(f"{value:.12g}") if isinstance(value, float) else value


def lines(value):
    """As text with as much on a line as it has room for."""
    result = [""]
    for piece in json.dumps(value, ensure_ascii=False).replace(", ", ",\n").split("\n"):
        if len(result[-1]) + 1 + len(piece) > 110:
            result.append("")
        result[-1] += " " * bool(result[-1]) + piece
    return result


def data():
    """Each in one word of lines."""
    certified_rows = [(x, y, 1) for x, y in zip(PRESSURE, VOLUME)]
    return [";".join(" ".join(str(number) for number in row) for row in rows)
            for rows in [LINE, ARC, BOTH, certified_rows[:7], certified_rows[7:]]]


def main():
    print(*data(), sep="\n")
    for golden in [line, through_a_point, parabola, line_with_errors_in_x, certified, propagated, propagated_from_a_fit,
                   simulated, transformed]:
        print(*lines(rounded(golden())), sep="\n")


if __name__ == "__main__":
    main()
