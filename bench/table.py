#!/usr/bin/env python3
"""Prints what the work of the program costs beside the plain work in the same run. See bench/run."""

import argparse
import json
import math
import os
import pathlib
import random
import statistics
import subprocess
import sys

PAIRS = 15
POINTS = 32767
SLOWER = 1.15  # times the ratio that is kept
ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build/bench"
KEPT = ROOT / "bench/baseline.json"
LARGE = BUILD / "large.dat"
SMALL = ROOT / "examples/pendulum.dat"
SHEET = BUILD / "sheet.gra"


class Loop:
    """A measurement of a Google Benchmark program."""

    def __init__(self, program, name):
        self.command = [BUILD / "bench" / f"bench_{program}", f"--benchmark_filter=^{name}$",
                        "--benchmark_format=json", "--benchmark_min_time=0.05"]
        self.label = ""

    def seconds(self):
        output = subprocess.run(self.command, check=True, capture_output=True, text=True).stdout
        figures = json.loads(output)["benchmarks"][0]
        if figures.get("error_occurred"):
            sys.exit(f"{self.command[1]}: {figures['error_message']}")
        self.label = figures.get("label", "")
        return figures["cpu_time"] * {"ns": 1e-9, "us": 1e-6, "ms": 1e-3}[figures["time_unit"]]


class Process:
    """Processor time of a whole process."""

    label = ""

    def __init__(self, program, *words):
        self.command = [BUILD / program, *map(str, words)]

    def seconds(self):
        process = subprocess.Popen(self.command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        _, status, used = os.wait4(process.pid, 0)
        if status != 0:
            sys.exit(f"{self.command}: status {status}")
        process.returncode = status
        return used.ru_utime + used.ru_stime


def fits(file):
    """The fit of a damped oscillation, and the same by a kept library with the compiled function."""
    start = {"A": 30, "B": 0.1, "C": 2.5, "D": 0.5} if file == SMALL else {"A": 4, "B": 0.3, "C": 2.9, "D": 0.4}
    words = [f"--par={name}={value}" for name, value in start.items()]
    return (Process("batch/vor_kel_batch", "fit", file, "--function=A*EXP(-B*x)*SIN(C*x+D)", *words),
            Process("bench/plain/plain_fit", file, *start.values()))


def rows():
    """Each figure: its name, its own work, the plain work, and how many units of work both are."""
    batch = "batch/vor_kel_batch"
    for name in ("Oscillation", "Parabola"):
        yield (f"{name.lower()}, a point", Loop("expression", f"{name}_Block"), Loop("expression", f"{name}_Plain"),
               POINTS)
    yield "check of 32767 points", Process(batch, "check", LARGE), Process("bench/plain/plain_read", LARGE), 1
    yield "fit of 32767 points", *fits(LARGE), 1
    yield "fit of 61 points", *fits(SMALL), 1
    yield "start", Process(batch, "--help"), Process("bench/plain/plain_nothing"), 1
    for label, name in (("10000 samples", "TenThousandSamples"), ("transformation", "TransformTwoColumns")):
        yield label, Loop("errors_and_columns", name), Loop("errors_and_columns", f"{name}_Plain"), 1
    for program, label, name in (("figures", "bars", "points_with_bars"), ("surfaces", "surface", "shaded_surface")):
        yield f"{label}, image", Loop(program, f"onImage/{name}/2"), Loop(program, f"plainImage/{name}"), 1
        yield f"{label}, PDF", Loop(program, f"toPdf/{name}"), Loop(program, f"plainPdf/{name}"), 1
    yield "bars, SVG", Loop("figures", "toSvg/points_with_bars"), Loop("figures", "plainSvg/points_with_bars"), 1
    for ending in ("png", "svg", "pdf"):
        yield (f"draw, {ending.upper()}",
               Process("batch/vor_kel_figures", "draw", SHEET, "-o", BUILD / f"own.{ending}"),
               Process("bench/plain/plain_draw", BUILD / f"plain.{ending}"), 1)


def measured(own, plain, units):
    """Medians of the pairs, with the quartiles of the ratios."""
    pairs = [(own.seconds(), plain.seconds()) for _ in range(PAIRS)]
    low, ratio, high = statistics.quantiles([a / b for a, b in pairs], n=4)
    return {"own": statistics.median(a for a, _ in pairs) / units,
            "plain": statistics.median(b for _, b in pairs) / units,
            "ratio": round(ratio, 3), "low": round(low, 3), "high": round(high, 3)}


def shown(seconds):
    for unit, size in (("s", 1), ("ms", 1e-3), ("us", 1e-6)):
        if seconds >= size:
            return f"{seconds / size:.3g} {unit}"
    return f"{seconds * 1e9:.3g} ns"


def write_large():
    """32767 points of a damped oscillation, with deviations that are the same in every run."""
    chance = random.Random(1)
    lines = ["x", "y", f" {POINTS}"]
    for i in range(POINTS):
        x = 10 * i / POINTS
        y = 5 * math.exp(-0.2 * x) * math.sin(3 * x + 0.5) + 0.35 * (chance.random() - 0.5)
        lines.append(f"{x:.6E} {y:.6E} 1.0E-1")
    LARGE.write_bytes("".join(line + "\r\n" for line in lines).encode())


def write_sheet():
    """A line and a word."""
    SHEET.write_bytes(b"\\LINEA(2, 18, 26, 10)\r\n\\SCRIVI(5, 12, 1, 0, 12,word)\r\n")


def line(name, now, before, worse, label):
    kept = f"{before['ratio']:.2f}" if before else "-"
    quartiles = f"{now['low']:.2f} .. {now['high']:.2f}"
    return (f"{name:24}{shown(now['own']):>9}{shown(now['plain']):>9}{now['ratio']:8.2f}  {quartiles:16}{kept:>6}"
            f"{'  SLOWER' if worse else ''}{'  ' + label if label else ''}")


def is_slower(now, before):
    return before is not None and now["ratio"] > SLOWER * before["ratio"] and now["low"] > before["high"]


def keep(figures):
    commit = subprocess.run(["git", "rev-parse", "--short", "HEAD"], cwd=ROOT, check=True, capture_output=True)
    KEPT.write_text(json.dumps({"commit": commit.stdout.decode().strip(), "figures": figures}, indent=1) + "\n")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--keep", action="store_true", help="keep the ratios of this run as those to compare with")
    parser.add_argument("words", nargs="*", help="only the figures whose names hold one of these words")
    arguments = parser.parse_args()
    write_large()
    write_sheet()
    figures = json.loads(KEPT.read_text())["figures"] if KEPT.exists() else {}
    slower = []
    print(f"{'figure':24}{'own':>9}{'plain':>9}{'ratio':>8}  {'quartiles':16}{'kept':>6}")
    for name, own, plain, units in rows():
        if arguments.words and not any(word in name for word in arguments.words):
            continue
        now = measured(own, plain, units)
        worse = is_slower(now, figures.get(name))
        slower += [name] * worse
        print(line(name, now, figures.get(name), worse, own.label), flush=True)
        figures[name] = {key: now[key] for key in ("ratio", "low", "high")}
    if arguments.keep:
        keep(figures)
    return 1 if slower and not arguments.keep else 0


if __name__ == "__main__":
    sys.exit(main())
