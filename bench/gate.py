# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
"""Counts the instructions of fixed scenarios with callgrind and compares them with gate.json."""

import json
import os
import platform
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

RECORD = Path(__file__).with_name("gate.json")
TOLERANCE = 0.02
# The one function of the program that is counted, everything that it calls included.
MEASURED = "lumo_gate_measured"


class Failure(Exception):
    """A scenario that could not be counted."""


def environment():
    """Takes what differs between processors out of the count.

    The C library and Qt choose routines by the processor's vector units; without the newer units
    both fall back to the ones that every x86-64 has. Hashes are seeded alike.
    """
    return {**os.environ, "QT_QPA_PLATFORM": "offscreen", "QT_HASH_SEED": "0", "LC_ALL": "C.UTF-8",
            "QT_NO_CPU_FEATURE": "sse3 ssse3 sse4.1 sse4.2 avx avx2 avx512f",
            "GLIBC_TUNABLES": "glibc.cpu.hwcaps=-AVX512VL,-AVX512F,-AVX2,-AVX,-ERMS,-FSRM,"
                              "-SSE4_2,-SSE4_1,-SSSE3"}


def call(program, *arguments):
    result = subprocess.run([program, *arguments], env=environment(), capture_output=True,
                            text=True, timeout=300, check=False)
    if result.returncode != 0:
        raise Failure(f"{Path(program).name} {' '.join(map(str, arguments))} ended with "
                      f"{result.returncode}: {result.stderr.strip()[-300:]}")
    return result.stdout


def processor():
    try:
        found = re.search(r"^model name\s*:\s*(.*)$", Path("/proc/cpuinfo").read_text(), re.M)
    except OSError:
        found = None
    return found.group(1) if found else platform.machine()


def toolchain(program):
    """What the counts depend on, as the program tells it: one `key=value` in a line."""
    return dict(line.split("=", 1) for line in call(program, "--about").splitlines())


def count(valgrind, program, scenario):
    """Instructions per repetition of one scenario."""
    with tempfile.TemporaryDirectory() as folder:
        out = Path(folder) / "counts"
        told = call(valgrind, "--tool=callgrind", f"--callgrind-out-file={out}",
                    f"--toggle-collect={MEASURED}", program, scenario)
        found = re.search(r"^(?:totals|summary): (\d+)", out.read_text(), re.M)
    repetitions = int(told)
    if not found or int(found.group(1)) < repetitions:
        raise Failure(f"callgrind counted nothing in {scenario}")
    return int(found.group(1)) / repetitions


def compare(scenario, counted, recorded):
    """The line for one scenario and whether it passes."""
    if recorded is None:
        return f"{scenario:32} {counted:12,.1f}  not recorded", False
    change = counted / recorded - 1
    verdict = "ok"
    if change > TOLERANCE:
        verdict = "EXCEEDED"
    elif change < -TOLERANCE:
        verdict = "better; record it"
    text = f"{scenario:32} {counted:12,.1f} {recorded:12,.1f} {change:+8.2%}  {verdict}"
    return text, change <= TOLERANCE


def differences(recorded, present):
    return [f"{key} was {recorded.get(key, 'unknown')} and is {present.get(key, 'unknown')}"
            for key in sorted({*recorded, *present}) if recorded.get(key) != present.get(key)]


def load():
    if not RECORD.exists():
        return {"processor": "", "toolchain": {}, "instructions": {}}
    return json.loads(RECORD.read_text())


def as_json(present, counts):
    return json.dumps({"processor": processor(), "toolchain": present, "instructions": counts},
                      indent=2) + "\n"


def store(record, present, counts):
    """Writes the counts; those of scenarios that were not run stay if the toolchain is the same."""
    kept = record["instructions"] if record["toolchain"] == present else {}
    rounded = {name: round(value, 1) for name, value in counts.items()}
    RECORD.write_text(as_json(present, {**kept, **rounded}))
    print(f"recorded {len(counts)} scenarios in {RECORD.name}")


def print_comparison(record, counts):
    """Prints a line per scenario; true when all pass."""
    print(f"{'scenario':32} {'instructions':>12} {'recorded':>12} {'change':>8}")
    results = [compare(scenario, counted, record["instructions"].get(scenario))
               for scenario, counted in counts.items()]
    for text, _ in results:
        print(text)
    return all(passes for _, passes in results)


def report(record, present, counts):
    """Prints the comparison; true unless something is exceeded that can be compared."""
    passed = print_comparison(record, counts)
    changed = differences(record["toolchain"], present)
    if record["toolchain"] and changed:
        print("Recorded with another toolchain, so nothing fails: " + "; ".join(changed) + ".")
        return True
    if passed:
        print("No scenario takes over 2 % more instructions than recorded.")
        return True
    print("A scenario takes over 2 % more instructions than recorded, or was never recorded; when "
          "that is meant, run with --gate --record.")
    if record["processor"] != processor():
        print(f"Recorded on {record['processor'] or 'no machine'}, counted on {processor()}.")
    return False


def run(build, pattern, recording, json_file):
    program, valgrind = build / "bench" / "gate", shutil.which("valgrind")
    if not valgrind:
        print("The gate counts instructions with valgrind, which is not installed "
              "(package `valgrind`).", file=sys.stderr)
        return 2
    if not program.exists():
        print(f"{program} is missing; build the preset `release` first.", file=sys.stderr)
        return 2
    try:
        present = toolchain(program)
        scenarios = [s for s in call(program, "--list").split() if re.search(pattern, s)]
        counts = {scenario: count(valgrind, program, scenario) for scenario in scenarios}
    except (Failure, subprocess.TimeoutExpired, ValueError) as failure:
        print(f"failed: {failure}", file=sys.stderr)
        return 2
    if not counts:
        print(f"no scenario's name matches `{pattern}`", file=sys.stderr)
        return 1
    if json_file:
        json_file.write_text(as_json(present, counts))
    record = load()
    if recording:
        store(record, present, counts)
        return 0
    return 0 if report(record, present, counts) else 1
