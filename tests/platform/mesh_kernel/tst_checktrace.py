#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
"""Tests of checktrace.py, whose path is the first argument."""

import contextlib
import importlib.util
import io
import json
import os
import subprocess
import sys
import tempfile
import unittest
from unittest import mock

SCRIPT = ""


def event(phase, ts=1, name="A", **more):
    return {"ph": phase, "pid": 1, "tid": 1, "ts": ts, "name": name, **more}


def run(phase, ts, ident="0x1", name="A", **more):
    return event(phase, ts, name, **{"cat": "command", "id": ident, **more})


def without(key, source):
    return {k: v for k, v in source.items() if k != key}


GOOD = {
    "empty": [],
    "nested on one thread": [
        event("B", 1), event("B", 2, "C"), event("E", 3, "C"), event("E", 3)],
    "crossing async": [
        run("b", 1), run("b", 2, "0x2"), run("e", 3), run("e", 4, "0x2")],
    "nested async of one id": [
        run("b", 1), run("b", 2, name="C"), run("e", 3, name="C"), run("e", 4)],
    "ends on another thread": [run("b", 1), run("e", 2, tid=2)],
    "one thread behind another": [event("i", 5), event("i", 1, tid=2)],
    "complete, unordered": [event("X", 5, dur=0), event("X", 1, dur=9.5)],
    "metadata without time": [
        {"ph": "M", "pid": 1, "tid": 1, "name": "thread_name", "args": {"name": "main"}}],
    "end without a name": [event("B"), without("name", event("E"))],
    "numeric id": [run("b", 1, 7), run("e", 1, 7)],
}

BAD = {
    "no object": ([7], "event 0: is no object"),
    "no phase": ([without("ph", event("i"))], "unknown phase None"),
    "unknown phase": ([event("Q")], "unknown phase 'Q'"),
    "no process": ([without("pid", event("i"))], "'pid' is no whole number"),
    "thread is a text": ([event("i", tid="1")], "'tid' is no whole number"),
    "thread is a truth value": ([event("i", tid=True)], "'tid' is no whole number"),
    "no name": ([without("name", event("i"))], "'name' is no text"),
    "no time": ([without("ts", event("i"))], "'ts' is no time"),
    "time is a text": ([event("i", "1")], "'ts' is no time"),
    "negative time": ([event("i", -1)], "'ts' is no time"),
    "complete without duration": ([event("X")], "'dur' is no duration"),
    "negative duration": ([event("X", dur=-1)], "'dur' is no duration"),
    "async without category": (
        [without("cat", run("b", 1)), run("e", 2)], "event 0: 'cat' is no text"),
    "async without id": ([without("id", run("b", 1))], "'id' is neither"),
    "unknown scope": ([event("i", s="x")], "unknown scope 'x'"),
    "arguments are a list": ([event("i", args=[])], "'args' is no object"),
    "metadata without arguments": ([event("M")], "'args' is missing"),
    "time goes back": ([event("i", 2), event("i", 1)], "event 1: time goes back from 2 to 1"),
    "end without begin": ([event("E")], "event 0: ends what did not begin"),
    "end on another thread": (
        [event("B"), event("E", tid=2)], "event 1: ends what did not begin"),
    "crossing on one thread": (
        [event("B"), event("B", name="C"), event("E"), event("E", name="C")],
        "event 2: ends 'A' while 'C' is open"),
    "begin without end": ([event("B")], "event 0: 'A' begins and does not end"),
    "async end without begin": ([run("e", 1)], "ends what did not begin"),
    "async end of another id": (
        [run("b", 1), run("e", 2, "0x2")], "event 1: ends what did not begin"),
    "async end of another category": (
        [run("b", 1), run("e", 2, cat="other")], "event 1: ends what did not begin"),
    "async end in another process": (
        [run("b", 1), run("e", 2, pid=2)], "event 1: ends what did not begin"),
    "async begin without end": ([run("b", 1)], "event 0: 'A' begins and does not end"),
    "async ends before it begins": (
        [run("b", 5), run("e", 1, tid=2)], "'A' ends before it begins"),
}

BAD_TEXTS = {
    "empty file": ("", "Expecting value"),
    "cut off": ('{"traceEvents":[', "Expecting value"),
    "trailing comma": ("[1,]", "Expecting value"),
    "raw control character": ('["\n"]', "Invalid control character"),
    "not a number": ('[{"ts":NaN}]', "NaN is no JSON number"),
    "key twice": ('[{"ph":"i","ph":"i"}]', "a key twice"),
    "no events": ('{"events":[]}', "no list of trace events"),
    "only a text": ('"traceEvents"', "no list of trace events"),
}


def load_script():
    spec = importlib.util.spec_from_file_location("checktrace", SCRIPT)
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    return module


class CheckTrace(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        sys.dont_write_bytecode = True
        cls.script = load_script()
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)

    def write(self, content, name="trace.json"):
        path = os.path.join(self.folder.name, name)
        with open(path, "wb") as file:
            file.write(content if isinstance(content, bytes) else content.encode())
        return path

    def run_script(self, *arguments):
        """Exit code, output and error output of the script's main function."""
        out, err = io.StringIO(), io.StringIO()
        with mock.patch.object(sys, "argv", [SCRIPT, *arguments]):
            with contextlib.redirect_stdout(out), contextlib.redirect_stderr(err):
                code = self.script.main()
        return code, out.getvalue(), err.getvalue()

    def check(self, content, *options):
        return self.run_script(self.write(content), *options)

    def assert_good(self, content, *options):
        code, out, err = self.check(content, *options)
        self.assertEqual((code, err), (0, ""))
        return out

    def assert_bad(self, content, message, *options):
        code, out, err = self.check(content, *options)
        self.assertEqual((code, out), (1, ""))
        self.assertIn(message, err)

    def test_acceptsValidTracesAsListAndAsObject(self):
        for tag, events in GOOD.items():
            with self.subTest(tag):
                self.assert_good(json.dumps(events))
                self.assert_good(json.dumps({"displayTimeUnit": "ms", "traceEvents": events}))

    def test_refusesBadEventsAndSaysWhy(self):
        for tag, (events, message) in BAD.items():
            with self.subTest(tag):
                self.assert_bad(json.dumps(events), message)

    def test_refusesBadDocumentsAndSaysWhy(self):
        for tag, (text, message) in BAD_TEXTS.items():
            with self.subTest(tag):
                self.assert_bad(text, message)
        self.assert_bad(b'["\xff"]', "not UTF-8")

    def test_countsWhatItFound(self):
        events = [run("b", 1), event("X", 1, dur=1), event("i", 2, tid=2), run("e", 3)]
        self.assertIn("2 slices, 1 instants, 2 threads", self.assert_good(json.dumps(events)))

    def test_acceptsOpenSlicesOnDemand(self):
        self.assert_good(json.dumps([run("b", 1), event("B")]), "--allow-open")

    def test_demandsSlicesByName(self):
        trace = json.dumps([run("b", 1), run("e", 2)])
        self.assert_good(trace, "--require", "A")
        self.assert_bad(trace, "there is no slice 'B'", "--require", "A", "--require", "B")
        self.assert_bad(json.dumps([run("b", 1)]), "there is no slice 'A'",
                        "--allow-open", "--require", "A")

    def test_missingFileIsAnErrorOfItsOwn(self):
        code, _, err = self.run_script(os.path.join(self.folder.name, "missing.json"))
        self.assertEqual(code, 2)
        self.assertIn("No such file", err)

    def test_oneBadFileAmongGoodOnesCounts(self):
        good = self.write("[]", "good.json")
        bad = self.write(json.dumps([event("E")]), "bad.json")
        self.assertEqual(self.run_script(bad, good)[0], 1)
        self.assertEqual(self.run_script(good, good)[0], 0)

    def test_programExitsWithTheResult(self):
        for content, code in (("[]", 0), ("[", 1)):
            with self.subTest(code):
                command = [sys.executable, SCRIPT, self.write(content)]
                result = subprocess.run(command, capture_output=True, check=False)
                self.assertEqual(result.returncode, code)
        result = subprocess.run([sys.executable, SCRIPT], capture_output=True, check=False)
        self.assertEqual(result.returncode, 2)


if __name__ == "__main__":
    SCRIPT = sys.argv.pop(1)
    unittest.main()
