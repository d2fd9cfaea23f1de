#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
"""Checks that files are valid traces in the JSON trace event format.

Checked are the JSON itself, the keys and types that each kind of event needs, that the timestamps
of a thread never go back, and that begin and end events pair: nested by name on their thread for
"B" and "E", by category and id for the asynchronous "b" and "e".

Exit code: 0 all files are valid, 1 at least one is not (each problem is told on the standard error
output), 2 a file can't be read or the command line is wrong.
"""

import argparse
import json
import sys

PHASES = frozenset("BEXiIbenMCstfPNOD")
ASYNC_PHASES = frozenset("ben")
ORDERED_PHASES = frozenset("BEiben")
SCOPES = ("g", "p", "t")


def is_integer(value):
    return isinstance(value, int) and not isinstance(value, bool)


def is_number(value):
    return is_integer(value) or isinstance(value, float)


def refuse_constant(name):
    raise ValueError(f"{name} is no JSON number")


def object_without_duplicates(pairs):
    result = dict(pairs)
    if len(result) != len(pairs):
        raise ValueError("an object holds a key twice")
    return result


def load(text):
    """The list of events in the text of a trace."""
    document = json.loads(
        text, parse_constant=refuse_constant, object_pairs_hook=object_without_duplicates
    )
    events = document.get("traceEvents") if isinstance(document, dict) else document
    if not isinstance(events, list):
        raise ValueError("there is no list of trace events")
    return events


class Checker:
    """Walks the events of one trace in the order of the file and gathers its problems."""

    def __init__(self):
        self.problems = []
        self.slices = {}  # name to number of complete slices
        self.instants = 0
        self.threads = set()
        self._last_time = {}  # (pid, tid) to timestamp
        self._open = {}  # key of a stack to the events that are open on it
        self._position = 0

    def check(self, events, allow_open):
        for self._position, event in enumerate(events):
            if self._has_valid_keys(event):
                self._check_order(event)
                self._count(event)
        if not allow_open:
            self._report_open()

    def _problem(self, text):
        self.problems.append(f"event {self._position}: {text}")

    def _has_valid_keys(self, event):
        if not isinstance(event, dict):
            self._problem("is no object")
            return False
        phase = event.get("ph")
        if not isinstance(phase, str) or phase not in PHASES:
            self._problem(f"unknown phase {phase!r}")
            return False
        before = len(self.problems)
        for text in self._key_problems(event, phase):
            self._problem(text)
        return len(self.problems) == before

    @staticmethod
    def _key_problems(event, phase):
        for key in ("pid", "tid"):
            if not is_integer(event.get(key)):
                yield f"'{key}' is no whole number"
        if phase != "E" and not isinstance(event.get("name"), str):
            yield "'name' is no text"
        if phase != "M" and not (is_number(event.get("ts")) and event["ts"] >= 0):
            yield "'ts' is no time"
        if phase == "X" and not (is_number(event.get("dur")) and event["dur"] >= 0):
            yield "'dur' is no duration"
        if phase in ASYNC_PHASES:
            if not isinstance(event.get("cat"), str):
                yield "'cat' is no text"
            if not (isinstance(event.get("id"), str) or is_integer(event.get("id"))):
                yield "'id' is neither a text nor a whole number"
        if phase == "i" and event.get("s", "t") not in SCOPES:
            yield f"unknown scope {event['s']!r}"
        if "args" in event and not isinstance(event["args"], dict):
            yield "'args' is no object"
        if phase == "M" and not event.get("args"):
            yield "'args' is missing"

    def _check_order(self, event):
        if event["ph"] not in ORDERED_PHASES:
            return
        thread = (event["pid"], event["tid"])
        last = self._last_time.get(thread)
        if last is not None and event["ts"] < last:
            self._problem(f"time goes back from {last} to {event['ts']} on thread {thread[1]}")
        self._last_time[thread] = event["ts"]

    def _count(self, event):
        phase = event["ph"]
        if phase != "M":
            self.threads.add((event["pid"], event["tid"]))
        if phase in "Bb":
            self._open.setdefault(self._stack(event), []).append((self._position, event))
        elif phase in "Ee":
            self._end(event)
        elif phase == "X":
            self._add_slice(event["name"])
        elif phase in "iI":
            self.instants += 1

    @staticmethod
    def _stack(event):
        if event["ph"] in "BE":
            return ("thread", event["pid"], event["tid"])
        return ("async", event["pid"], event["cat"], event["id"])

    def _end(self, event):
        stack = self._open.get(self._stack(event))
        if not stack:
            self._problem("ends what did not begin")
            return
        _, begin = stack.pop()
        if event.get("name", begin["name"]) != begin["name"]:
            self._problem(f"ends {event['name']!r} while {begin['name']!r} is open")
        elif event["ts"] < begin["ts"]:
            self._problem(f"{begin['name']!r} ends before it begins")
        else:
            self._add_slice(begin["name"])

    def _add_slice(self, name):
        self.slices[name] = self.slices.get(name, 0) + 1

    def _report_open(self):
        for stack in self._open.values():
            for position, event in stack:
                self._position = position
                self._problem(f"{event['name']!r} begins and does not end")


def check_file(path, options):
    """Checks one file; returns its exit code."""
    checker = Checker()
    try:
        with open(path, encoding="utf-8") as file:
            text = file.read()
    except OSError as error:
        print(f"{path}: {error.strerror}", file=sys.stderr)
        return 2
    except UnicodeDecodeError as error:
        print(f"{path}: not UTF-8: {error}", file=sys.stderr)
        return 1
    try:
        checker.check(load(text), options.allow_open)
    except (ValueError, RecursionError) as error:
        checker.problems.append(str(error))
    for name in options.require:
        if name not in checker.slices:
            checker.problems.append(f"there is no slice {name!r}")
    for problem in checker.problems:
        print(f"{path}: {problem}", file=sys.stderr)
    if checker.problems:
        return 1
    slices = sum(checker.slices.values())
    print(f"{path}: {slices} slices, {checker.instants} instants, {len(checker.threads)} threads")
    return 0


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("files", nargs="+", metavar="FILE", help="a trace")
    parser.add_argument(
        "--allow-open",
        action="store_true",
        help="accept slices that don't end, as in the trace of a process that crashed",
    )
    parser.add_argument(
        "--require",
        action="append",
        default=[],
        metavar="NAME",
        help="demand at least one complete slice of this name; can be given several times",
    )
    options = parser.parse_args()
    return max(check_file(path, options) for path in options.files)


if __name__ == "__main__":
    sys.exit(main())
