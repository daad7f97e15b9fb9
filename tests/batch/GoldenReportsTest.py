"""Prints the lines of figures of GoldenReportsTest.cpp: those of the objects, as people read them."""

import sys
from decimal import Decimal
from pathlib import Path

from GoldenObjectsTest import line, propagated, through_a_point, transformed
sys.path.append(str(Path(__file__).parents[1] / "analysis"))
from least_squares import field


def whole_number(share):
    return "_____" if share is None else f"{round(100 * share):5d}"


def matrix(correlation):
    """The lines under the diagonal, which stays empty as what is beyond it."""
    return [" ".join(whole_number(share if j < i else None) for j, share in enumerate(row))
            for i, row in enumerate(correlation)]


def screen_of_fit(fit):
    degrees, reduced = fit["degrees_of_freedom"], field(fit["reduced_chi_square"], 4)
    yield f"│    Minimizzazione     │ µ                 {degrees:3d}   │"
    yield f"│      Completata       │ X²/µ       {reduced}   │"
    yield f"│ Sec.       Iter. {fit['iterations']:4d} │ Liv. Conf. {fit['confidence_percent']:8.4f} %   │"
    for row, correlations in zip(rows_of_fit(fit), matrix(fit["correlation"])):
        yield f"{row}{correlations}"


def rows_of_fit(fit):
    """Up to the correlations, of the free parameters."""
    for parameter in fit["parameters"]:
        if parameter["free"]:
            yield f"│  {parameter['name']}  │ {field(parameter['value'])} │ {field(parameter['error'])} │ "


def screen_of_minimum(fit):
    refined, degrees = fit["refined"], fit["degrees_of_freedom"]
    yield f"│     Minimizzazione      │ µ                 {degrees:3d}   │"
    yield f"│    Minimo Raggiunto     │ X²/µ       {field(refined['chi_square'] / degrees, 4)}   │"
    yield f"│                         │ Liv. Conf. {refined['confidence_percent']:8.4f} %   │"
    for parameter in refined["parameters"]:
        figures = [field(parameter[key]) for key in ["value", "error", "error_scaled"]]
        yield f"│  {parameter['name']}  │ {' │ '.join(figures)}  │"
    for parameter, correlations in zip(refined["parameters"], matrix(refined["correlation"])):
        yield f"│  {parameter['name']}  │ {correlations}"


def screen_of_profile(fit):
    for parameter in fit["profile"]:
        ends = [field(interval[key]) for interval in parameter["intervals"] for key in ["low", "high"]]
        yield f"│ {parameter['name']}   │ {' │ '.join(ends)} │"


def screen_of_derived(fit):
    for quantity in fit["derived"]:
        figures = [field(quantity[key]) for key in ["value", "error", "error_scaled"] if key in quantity]
        yield f"│ {quantity['name']}    │ {' │ '.join(figures)} │ {quantity['formula']}"


def screen_of_propagation(result):
    for variable in result["variables"]:
        name, kind = variable["name"], {"sigma": "σ       ", "maximum": "Err. Max."}[variable["error_kind"]]
        yield f"│ {name} = {field(variable['value'])}   δ{name} = {field(variable['error'], 3)} {kind}"
    maximum, sigma = field(result["error_maximum"], 3), field(result["error_sigma"], 3)
    yield f"│ y = {field(result['value'])}   δy = {maximum} Err. Max.│"
    yield f"│                    δy'= {sigma} σ(y)     │"
    samples = result["samples"]
    yield f"│<y>= {field(samples['mean'])}   δy = {field(samples['spread'], 3)} σ(y)     │"
    yield f"│ N = {samples['count']:8d}       δy'= {field(samples['mean_error'], 3)} σ(<y>)   │"


def rounded(value, error):
    """With two digits of an error below 1: as a sum and in short."""
    places = 1 - Decimal(error).adjusted()
    return f"{value:.{places}f} +- {error:.{places}f}", f"{value:.{places}f}({error * 10 ** places:.0f})"


def rounded_lines(quantities):
    for name, value, error in quantities:
        yield f"{name} = " + " = ".join(rounded(value, error))


def latex(fit, quantities):
    refined = fit["refined"]
    for k, (name, value, error) in enumerate(quantities):
        correlations = refined["correlation"][k][:k + 1] if k < len(refined["correlation"]) else []
        cells = [f" & \\num{{{share:.2f}}}" for share in correlations]
        cells += [" &"] * (len(refined["correlation"]) - len(cells))
        yield f"{name} & \\num{{{rounded(value, error)[1]}}}{''.join(cells)} \\\\"
    yield f"$\\chi^2/\\nu$ & \\num{{{refined['chi_square']:.4g}}}/{fit['degrees_of_freedom']} \\\\"


def main():
    fit, constant = line(), through_a_point()
    quantities = [(q["name"], q["value"], q["error"]) for q in [*fit["refined"]["parameters"], *fit["derived"]]]
    for text in [screen_of_fit(fit), screen_of_minimum(fit), screen_of_profile(fit), screen_of_derived(fit),
                 rows_of_fit(constant), screen_of_derived(constant), screen_of_propagation(propagated()),
                 rounded_lines(quantities), latex(fit, quantities)]:
        print(*text, sep="\n")
    columns = transformed()
    for row in zip(*[columns[key] for key in ["x", "y", "dx", "dy"]]):
        print(" ".join(f"{number:13.5E}" for number in row))


if __name__ == "__main__":
    main()
