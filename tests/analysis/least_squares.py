"""Least squares of generators of figures: Gauss and Newton with derivatives by complex steps, in plain numbers."""

from math import sqrt


def inverse(matrix):
    """By Gauss and Jordan with pivots."""
    n = len(matrix)
    rows = [list(row) + [int(i == j) for j in range(n)] for i, row in enumerate(matrix)]
    for k in range(n):
        pivot = max(range(k, n), key=lambda i: abs(rows[i][k]))
        rows[k], rows[pivot] = rows[pivot], rows[k]
        rows[k] = [x / rows[k][k] for x in rows[k]]
        for i in range(n):
            if i != k:
                rows[i] = [x - rows[i][k] * y for x, y in zip(rows[i], rows[k])]
    return [row[n:] for row in rows]


def gradient(function, p):
    """Of a function of a list of complex numbers."""
    step = 1e-30
    return [function([q + step * 1j * (i == k) for i, q in enumerate(p)]).imag / step for k in range(len(p))]


def fit(model, x, y, errors, start, rounds=50):
    """Values, covariances and chi-square at the minimum."""
    p = list(start)
    for _ in range(rounds):
        rows = [[d / e for d in gradient(lambda q, a=a: model(q, a), p)] for a, e in zip(x, errors)]
        rest = [(b - model(p, a).real) / e for a, b, e in zip(x, y, errors)]
        normal = [[sum(row[i] * row[j] for row in rows) for j in range(len(p))] for i in range(len(p))]
        slope = [sum(row[i] * r for row, r in zip(rows, rest)) for i in range(len(p))]
        covariance = inverse(normal)
        p = [q + sum(c * s for c, s in zip(line, slope)) for q, line in zip(p, covariance)]
    return p, covariance, sum(abs((b - model(p, a)) / e) ** 2 for a, b, e in zip(x, y, errors))


def field(value, digits=6):
    """So many digits behind the point, as the screens show them."""
    digits, exponent = f"{abs(value):.{digits - 1}e}".split("e")
    text = f"{'-' if value < 0 else '0'}.{digits.replace('.', '')}E{int(exponent) + 1:+03d}"
    return text if value else "0.000000E+00"


def row(name, value, error, scale):
    """A line of the table of a refined fit."""
    return f"│ {name.center(3) if len(name) < 3 else name} │ {field(value)} │ {field(error)} │ {field(error * scale)}  │"


def table(names, points, result):
    """The lines of the parameters, and the shown reduced chi-square."""
    p, covariance, chi_square = result
    scale = sqrt(chi_square / (points - len(p)))
    return [row(name, p[k], sqrt(covariance[k][k]), scale) for k, name in enumerate(names)]
