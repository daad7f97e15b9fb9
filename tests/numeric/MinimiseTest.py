"""Prints the figures of a whole run in MinimiseTest.cpp: a plain transcription of the procedures that
numeric/LineSearch.h and numeric/Minimise.h tell, for models of the four operations, so that all machines find the same
digits."""

from math import sqrt


def dot(a, b):
    total = 0.0
    for x, y in zip(a, b):
        total = total + x * y
    return total


def line_search(start, absolute, relative, step=0.5, most=20):
    """Yields positions from 0 on, where the value is `start`; takes the value at each."""
    a = b = c = (0.0, start)
    d, x, phase, bracketed = 2 * step, step, "first", False
    for _ in range(most):
        point = (x, (yield x))
        if phase == "first":
            if b[1] == point[1]:
                x, d = x + d, 2 * d
                continue
            if b[1] < point[1]:
                a, d = point, -d
            else:
                a, b = b, point
            x, phase = 2 * b[0] - a[0], "third"
            continue
        if phase == "third":
            a, b, c = b, point, a
        elif a[1] < b[1]:
            if c[1] > b[1]:
                b, c = c, b
            if (vertex - a[0]) * (vertex - b[0]) < 0:
                b = point
            elif point[1] < c[1]:
                a, b = point, a
            else:
                c = point
        elif point[1] < a[1]:
            a, c = point, a
        else:
            b = point
        if a[1] <= b[1]:
            bracketed, d = True, b[0]
            if a[1] == b[1]:
                x = (a[0] + b[0]) / 2
                if (x - a[0]) * (b[0] - x) > 0:
                    continue
                return
        p = (c[1] - a[1]) / (c[0] - a[0]) - (c[1] - b[1]) / (c[0] - b[0])
        upward = (a[0] - b[0]) * p > 0
        if upward:
            vertex = ((a[0] + b[0]) - (a[1] - b[1]) / p) / 2
            if abs(vertex - x) <= max(absolute, abs(relative * vertex)):
                return
            x, phase = vertex, "predicted"
            inside = (b[0] - x) * (c[0] - b[0])
            if inside < 0:
                continue
            if not inside > 0:
                return
        phase = "third"
        near = upward and (abs(d - x) > abs(x - b[0]) if bracketed else abs(x - b[0]) <= abs(d))
        if near:
            continue
        if bracketed:
            x = (b[0] + d) / 2
            if not (x - b[0]) * (d - x) > 0:
                return
        else:
            x, d = b[0] + d, 2 * d


class Directions:
    """Pairs of a displacement and the change of the residuals, with the inverse of the products of the changes."""

    def __init__(self):
        self.pairs, self.inverse = [], []

    def add(self, displacement, change):
        dots = [dot(pair[1], change) for pair in self.pairs]
        v = [dot(row, dots) for row in self.inverse]
        rest = 1 - dot(dots, v)
        for i, row in enumerate(self.inverse):
            for j in range(len(row)):
                row[j] += v[i] * v[j] / rest
            row.append(-v[i] / rest)
        self.inverse.append([-x / rest for x in v] + [1 / rest])
        self.pairs.append((displacement, change))

    def remove(self, r):
        out = list(self.inverse[r])
        kept = [k for k in range(len(out)) if k != r]
        self.inverse = [[self.inverse[i][j] - out[i] * out[j] / out[r] for j in kept] for i in kept]
        del self.pairs[r]


class Minimiser:
    """One run; what it leaves are X, E, errors, correlations, sum, iterations, passes, evaluations and progress."""

    def __init__(self, residuals, X, E):
        self.residuals, self.X, self.E = residuals, list(X), list(E)
        self.evaluations, self.progress = 0, []
        for self.passes in range(1, 5):
            self.begin()
            self.iterate()
            self.find_errors()
            if not self.lower_accuracies():
                break

    def compute(self):
        self.evaluations += 1
        F = self.residuals(self.X)
        return F, dot(F, F)

    def begin(self):
        self.F, self.sum = self.compute()
        self.directions = Directions()
        for i in range(len(self.X)):
            if abs(self.E[i]) / (1 + abs(self.X[i])) < 1e-6:
                self.E[i] = 1e-5 * abs(self.X[i])
            self.X[i] = self.X[i] + self.E[i]
            moved, _ = self.compute()
            self.X[i] = self.X[i] - self.E[i]
            change = [f - g for f, g in zip(moved, self.F)]
            q = 1 / sqrt(dot(change, change))
            displacement = [0.0] * len(self.X)
            displacement[i] = self.E[i] * q
            self.directions.add(displacement, [h * q for h in change])

    def iterate(self):
        self.iterations, last, u = 0, False, 0.0
        while True:
            if self.iterations % len(self.X) == 0:
                self.progress.append((self.iterations, self.sum))
            if last and u <= 1:
                return
            self.iterations += 1
            pairs = self.directions.pairs
            dots = [dot(change, self.F) for _, change in pairs]
            shares = [dot(row, dots) for row in self.directions.inverse]
            step = [dot(shares, [pair[0][i] for pair in pairs]) for i in range(len(self.X))]
            leaving = max(range(len(pairs)), key=lambda k: (abs(dots[k] * shares[k]), k))
            u = max(abs(s / e) for s, e in zip(step, self.E))
            if u == 0:
                return
            last = u <= 1
            best, second = self.search(step, u)
            self.X, self.F = list(best[2]), best[3]
            if second is None or best[3] == second[3]:
                return
            self.directions.remove(leaving)
            u = u * abs(best[0]) if self.sum - best[1] > 0 else 0.0
            self.sum = min(self.sum, best[1])
            self.add_direction(best, second)

    def search(self, step, u):
        """The two best points: position, sum, parameters, residuals."""
        best, second = (0.0, self.sum, list(self.X), self.F), None
        search = line_search(self.sum, 0.1 / u, 0.1)
        reached, position = 0.0, next(search)
        while True:
            self.X = [x + (position - reached) * s for x, s in zip(self.X, step)]
            reached = position
            F, sum = self.compute()
            point = (position, sum, list(self.X), F)
            if sum < best[1]:
                best, second = point, best
            elif sum != best[1] and (second is None or sum < second[1]):
                second = point
            try:
                position = search.send(sum)
            except StopIteration:
                return best, second

    def add_direction(self, best, second):
        change = [f - g for f, g in zip(best[3], second[3])]
        length, product = dot(change, change), dot(change, self.F)
        tau = -product / best[1] if best[1] else 0.0
        square = tau * product + length
        if not square > 0:
            tau, square = 0.0, length
        q = 1 / sqrt(square)
        self.directions.add([q * (x - y) for x, y in zip(best[2], second[2])],
                            [q * (h + tau * f) for h, f in zip(change, self.F)])

    def find_errors(self):
        self.F, self.sum = self.compute()
        columns = list(zip(*(pair[0] for pair in self.directions.pairs)))
        self.errors = [sqrt(dot(column, column)) for column in columns]
        self.correlation = [[dot(a, b) / (s * t) for b, t in zip(columns, self.errors)]
                            for a, s in zip(columns, self.errors)]

    def lower_accuracies(self):
        lowered = False
        for i, error in enumerate(self.errors):
            if self.E[i] > error / 10 and abs(self.E[i]) > 2e-5 * abs(self.X[i]):
                self.E[i] = error / 10
                lowered = True
        return lowered


def residuals_of(model, x, y, error):
    return lambda X: [(model(X, a) - b) / error for a, b in zip(x, y)]


def main():
    hyperbola = residuals_of(lambda X, x: X[0] / (1 + X[1] * x), range(6), [2.1, 1.3, 1.0, 0.8, 0.7, 0.6], 0.1)
    fit = Minimiser(hyperbola, [1.5, 1.0], [0.015, 0.01])
    for name, value in [("X[0]", fit.X[0]), ("X[1]", fit.X[1]), ("E[0]", fit.E[0]), ("E[1]", fit.E[1]),
                        ("result.errors[1]", fit.errors[0]), ("result.errors[2]", fit.errors[1]),
                        ("result.correlation.at(2, 1)", fit.correlation[1][0]), ("result.FS", fit.sum)]:
        print(f"EXPECT_DOUBLE_EQ(fit.{name}, {value:.17g});")
    for name in ["iterations", "passes", "evaluations"]:
        print(f"EXPECT_EQ(fit.result.{name}, {getattr(fit, name)});")


if __name__ == "__main__":
    main()
