# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
"""Peers that are programs for node: their packages are installed into the build tree, once."""

import shutil
import subprocess
from pathlib import Path


class Missing(Exception):
    """Something that a peer needs and that this machine does not have."""


def install(source, folder):
    """Copies the program and its lists of packages, and fetches the packages by those lists."""
    npm = shutil.which("npm")
    if not npm:
        raise Missing("npm is not installed")
    folder.mkdir(parents=True, exist_ok=True)
    for name in ("package.json", "package-lock.json"):
        shutil.copy(source / name, folder)
    try:
        result = subprocess.run([npm, "ci", "--no-fund", "--no-audit", "--ignore-scripts"],
                                cwd=folder, capture_output=True, text=True, timeout=120,
                                check=False)
    except subprocess.TimeoutExpired:
        raise Missing("npm gave no answer") from None
    if result.returncode != 0:
        raise Missing(f"npm could not fetch the packages of {source.name}")


def is_installed(source, folder):
    copied = folder / "package-lock.json"
    return (folder / "node_modules").is_dir() and copied.exists() \
        and copied.read_bytes() == (source / "package-lock.json").read_bytes()


def command(build, name):
    """How to start the program bench/<name>/<name>.mjs.

    One thread does all of its work, so that its processor time is what a caller waits for.
    """
    node = shutil.which("node")
    if not node:
        raise Missing("node is not installed")
    source = Path(__file__).parent / name
    folder = build / "bench" / name
    if not is_installed(source, folder):
        install(source, folder)
    program = folder / f"{name}.mjs"
    shutil.copy(source / program.name, program)
    return [node, "--single-threaded", program]
