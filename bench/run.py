#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
"""Runs the benchmarks interleaved with their peers and prints one table of ratios and goals."""

import argparse
import json
import os
import re
import shutil
import statistics
import subprocess
import sys
from pathlib import Path

import gate
import node
from rows import ROWS

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


class Failure(Exception):
    """A benchmark that did not run or did not give its number."""


def environment(measure):
    """Headless, and the same order of every hash in every process."""
    variables = {**os.environ, "QT_QPA_PLATFORM": "xcb" if measure.desktop else "offscreen",
                 "QT_HASH_SEED": "0", "LC_ALL": "C.UTF-8"}
    variables.pop("LUMO_BENCH_THREADS", None)
    return {**variables, "LUMO_BENCH_THREADS": "1"} if measure.threads else variables


def command(build, measure):
    """How to start a program: one of the build tree, by itself or on a desktop, or one for node."""
    if measure.program.endswith(".mjs"):
        return node.command(build, Path(measure.program).stem)
    program = build / "bench" / measure.program
    if not program.exists():
        raise Failure(f"{program} is missing; build the preset `release` first")
    return [*desktop(), program] if measure.desktop else [program]


def desktop():
    for program in ("Xvfb", "openbox"):
        if not shutil.which(program):
            raise node.Missing(f"{program} is not installed")
    return [Path(__file__).parent.parent / "scripts" / "virtual-desktop"]


def run_program(build, measure, min_time):
    # Google Benchmark appends how it measured to the name, as in "post/4/manual_time".
    pattern = f"^{re.escape(measure.benchmark)}(/(real_time|manual_time|iterations:[0-9]+))*$"
    result = subprocess.run(
        [*command(build, measure), f"--benchmark_filter={pattern}",
         f"--benchmark_min_time={min_time}",
         "--benchmark_format=json"],
        env=environment(measure), capture_output=True, text=True, timeout=120, check=False)
    if result.returncode != 0:
        raise Failure(f"{measure.program} {measure.benchmark} ended with {result.returncode}: "
                      f"{result.stderr.strip()[-300:]}")
    return result.stdout


def take(build, measure, min_time):
    """Runs one benchmark and returns its number, times in nanoseconds."""
    results = json.loads(run_program(build, measure, min_time))["benchmarks"]
    if len(results) != 1 or results[0].get("error_occurred"):
        raise Failure(f"{measure.program} {measure.benchmark} gave no result")
    result = results[0]
    if measure.clock not in result:
        raise Failure(f"{measure.program} {measure.benchmark} has no `{measure.clock}`")
    is_time = measure.clock in ("cpu_time", "real_time")
    return result[measure.clock] * (NANOSECONDS[result["time_unit"]] if is_time else 1)


def interleave(build, rows, rounds, min_time):
    """Takes every measure once per round, peer beside ours; every second round goes backwards."""
    measures = list(dict.fromkeys(m for row in rows for m in row.measures()))
    samples = {m: [] for m in measures}
    failures, missing = {}, {}
    for number in range(rounds):
        for index, measure in enumerate(measures if number % 2 == 0 else reversed(measures)):
            progress(f"round {number + 1}/{rounds}, {index + 1}/{len(measures)} "
                     f"{measure.benchmark}")
            if measure in failures or measure in missing:
                continue
            try:
                samples[measure].append(take(build, measure, min_time))
            except node.Missing as reason:
                missing[measure] = str(reason)
            except (Failure, OSError, ValueError, subprocess.TimeoutExpired) as failure:
                failures[measure] = str(failure)
    progress("")
    return samples, failures, missing


def progress(text):
    if sys.stderr.isatty():
        print(f"\r\033[K{text}", end="", file=sys.stderr, flush=True)


def evaluate(row, samples, failures):
    """The row's medians and its verdict; the ratio is the median of the ratios of each round."""
    failed = [failures[m] for m in row.measures() if m in failures]
    outcome = {"name": row.name, "against": row.against, "unit": row.unit, "goal": row.goal,
               "goal_value": row.goal_value, "failures": failed}
    if failed:
        return {**outcome, "holds": None}
    peer, ours = samples[row.peer], samples[row.ours]
    ratios = [row.ratio(p, o) for o, p in zip(ours, peer)]
    outcome.update(peer=statistics.median(peer), ours=statistics.median(ours),
                   limit=statistics.median(samples[row.limit]) if row.limit else None,
                   ratio=statistics.median(ratios), ratio_low=min(ratios), ratio_high=max(ratios))
    return {**outcome, "holds": holds(row, outcome)}


def holds(row, outcome):
    """Compares to the three digits that the table shows."""
    if row.goal_value is not None:
        return float(f"{outcome['ours']:.3g}") <= row.goal_value
    if row.goal is not None:
        return float(f"{outcome['ratio']:.3g}") <= row.goal
    return None


def quantity(value, unit):
    if value is None:
        return "-"
    if unit == "B":
        return f"{value:,.0f} B"
    for step, name in ((1e9, "s"), (1e6, "ms"), (1e3, "us")):
        if value >= step:
            return f"{number(value / step)} {name}"
    return f"{number(value)} {unit}"


def number(value):
    return f"{value:.3g}" if value < 99.5 else f"{value:.0f}"


def goal_text(outcome):
    if outcome["goal_value"] is not None:
        return quantity(outcome["goal_value"], outcome["unit"])
    return "-" if outcome["goal"] is None else number(outcome["goal"])


def cells(outcome):
    title = [outcome["name"], outcome["against"]]
    verdict = {True: "yes", False: "NO", None: "-"}[outcome["holds"]]
    if outcome["failures"]:
        return [*title, "-", "-", "-", "-", goal_text(outcome), "failed"]
    unit = outcome["unit"]
    return [*title,
            *(quantity(outcome[column], unit) for column in ("peer", "ours", "limit")),
            number(outcome["ratio"]), goal_text(outcome), verdict]


def print_table(outcomes):
    header = ["name", "measured against", "peer", "ours", "limit", "ratio", "goal", "holds"]
    lines = [header, *(cells(outcome) for outcome in outcomes)]
    widths = [max(len(line[column]) for line in lines) for column in range(len(header))]
    for index, line in enumerate(lines):
        texts = [text.ljust(width) if column < 2 else text.rjust(width)
                 for column, (text, width) in enumerate(zip(line, widths))]
        print("  ".join(texts).rstrip())
        if index == 0:
            print("  ".join("-" * width for width in widths))


def print_summary(outcomes, rounds):
    with_goal = [o for o in outcomes if o["holds"] is not None]
    held = sum(o["holds"] for o in with_goal)
    print(f"\n{held} of {len(with_goal)} goals hold; medians over {rounds} rounds.")
    for failure in dict.fromkeys(f for o in outcomes for f in o["failures"]):
        print(f"failed: {failure}")


def print_left_out(rows, missing):
    for row in rows:
        reasons = dict.fromkeys(missing[m] for m in row.measures() if m in missing)
        print(f"left out: {row.name}, since {', '.join(reasons)}")


def measure_rows(options):
    rows = [row for row in ROWS if re.search(options.filter, f"{row.name}, {row.against}")]
    if not rows:
        print(f"no row's name matches `{options.filter}`", file=sys.stderr)
        return 1
    samples, failures, missing = interleave(options.build, rows, options.rounds, options.min_time)
    measured = [row for row in rows if not any(m in missing for m in row.measures())]
    outcomes = [evaluate(row, samples, failures) for row in measured]
    print_table(outcomes)
    print_left_out([row for row in rows if row not in measured], missing)
    print_summary(outcomes, options.rounds)
    if options.json:
        options.json.write_text(json.dumps({"rounds": options.rounds, "rows": outcomes}, indent=2)
                                + "\n")
    return 1 if failures else 0


def parse(arguments):
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", type=Path, default=Path("build/release"),
                        help="build tree of the preset `release`")
    parser.add_argument("--filter", default="", metavar="R",
                        help="only rows, or scenarios of the gate, whose name matches")
    parser.add_argument("--rounds", type=int, default=9, help="how often each number is taken")
    parser.add_argument("--min-time", type=float, default=0.03, metavar="S",
                        help="seconds that one benchmark runs per round")
    parser.add_argument("--json", type=Path, metavar="FILE", help="write the table's numbers there")
    parser.add_argument("--gate", action="store_true",
                        help="compare instruction counts with the recorded ones instead")
    parser.add_argument("--record", action="store_true",
                        help="record the instruction counts instead of comparing them")
    return parser.parse_args(arguments)


def main():
    options = parse(sys.argv[1:])
    if options.gate or options.record:
        return gate.run(options.build, options.filter, options.record, options.json)
    return measure_rows(options)


if __name__ == "__main__":
    sys.exit(main())
