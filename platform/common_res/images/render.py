#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
"""Renders the drawings in svg/ to what the resource library holds.

    render.py           renders everything and removes what has no drawing any more
    render.py --check   only compares the drawings and files with manifest.txt

svg/ holds one master per drawing. A master whose name begins with "cmd_" shows a command at rest;
its two states, name_normal and name_active, are derived from it, the active one in the darker
accent with stronger tints. Every picture is written to png/ at 1, 2 and 3 pixels per unit ("@2x",
"@3x"), the states of commands are written to states/ as SVG too. images.qrc lists them under
":/resources/images/", and manifest.txt has the checksum of every master and of every file made
from it.

Needs rsvg-convert (Debian: librsvg2-bin). The results are part of the repository, so a build needs
neither that tool nor this script.
"""

import hashlib
import itertools
import pathlib
import re
import struct
import subprocess
import sys
import zlib

HERE = pathlib.Path(__file__).resolve().parent
MASTERS, PNGS, STATES = HERE / "svg", HERE / "png", HERE / "states"
SCALES = {1: "", 2: "@2x", 3: "@3x"}
SPDX = ("<!-- SPDX-FileCopyrightText: 2026 The lumo_ui_base authors\n"
        "     SPDX-License-Identifier: MIT -->\n")
PNG_SIGNATURE = b"\x89PNG\r\n\x1a\n"


def active(drawing):
    """The drawing of a command in its active state."""
    drawing = drawing.replace("#5383B5", "#2965A3")
    return re.sub(r'fill-opacity="([\d.]+)"',
                  lambda m: f'fill-opacity="{min(1.0, float(m[1]) * 2):g}"', drawing)


def compact(drawing):
    """The drawing without comments and indentation."""
    drawing = re.sub(r"<!--.*?-->", "", drawing, flags=re.S)
    return re.sub(r">\s+<", "><", drawing).strip() + "\n"


def pictures(master):
    """Name and SVG text of each picture that a master gives."""
    text = master.read_text()
    if not master.stem.startswith("cmd_"):
        return {master.stem: text}
    return {master.stem + "_normal": text, master.stem + "_active": active(text)}


def size(drawing):
    return tuple(int(re.search(rf'<svg[^>]* {side}="(\d+)"', drawing)[1])
                 for side in ("width", "height"))


def chunks(png):
    """Type and data of the chunks of a PNG file."""
    at = len(PNG_SIGNATURE)
    while at < len(png):
        length, kind = struct.unpack_from(">I4s", png, at)
        yield kind, png[at + 8:at + 8 + length]
        at += 12 + length


def paeth(a, b, c):
    pa, pb, pc = abs(b - c), abs(a - c), abs(a + b - 2 * c)
    return a if pa <= pb and pa <= pc else b if pb <= pc else c


def predicted(kind, row, above, i):
    left, up = row[i - 4] if i >= 4 else 0, above[i]
    corner = above[i - 4] if i >= 4 else 0
    return (0, left, up, (left + up) // 2, paeth(left, up, corner))[kind]


def pixel_rows(png):
    """The rows of an RGBA picture with 8 bits per channel, without filters."""
    parts = list(chunks(png))
    width, _, depth, colour, *_, interlaced = struct.unpack(">IIBBBBB", parts[0][1])
    assert (depth, colour, interlaced) == (8, 6, 0), "rsvg-convert writes RGBA of 8 bits"
    data = zlib.decompress(b"".join(d for k, d in parts if k == b"IDAT"))
    above, stride = bytes(4 * width), 4 * width + 1
    for start in range(0, len(data), stride):
        kind, row = data[start], bytearray(data[start + 1:start + stride])
        for i in range(len(row)):
            row[i] = (row[i] + predicted(kind, row, above, i)) & 255
        yield bytes(row)
        above = row


def filtered(rows, choose):
    above, out = bytes(len(rows[0])), bytearray()
    for row in rows:
        best = None
        for kind in choose:
            line = bytes((row[i] - predicted(kind, row, above, i)) & 255 for i in range(len(row)))
            cost = sum(min(b, 256 - b) for b in line)
            if best is None or cost < best[0]:
                best = cost, kind, line
        out += bytes([best[1]]) + best[2]
        above = row
    return bytes(out)


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def indexed(rows):
    """Header fields, palette chunks and rows of the same picture with a palette, if it fits one."""
    pixels = [[row[i:i + 4] for i in range(0, len(row), 4)] for row in rows]
    colours = sorted(set(itertools.chain.from_iterable(pixels)), key=lambda c: (c[3], c))
    if len(colours) > 256:
        return None
    index = {c: i for i, c in enumerate(colours)}
    palette = chunk(b"PLTE", b"".join(c[:3] for c in colours))
    alpha = chunk(b"tRNS", bytes(c[3] for c in colours).rstrip(b"\xff") or b"\xff")
    return palette + alpha, b"".join(b"\0" + bytes(index[c] for c in row) for row in pixels)


def smallest(png):
    """The same visible pixels, no metadata: with a palette, else with the best of a few filters."""
    width, height = struct.unpack_from(">II", png, 16)
    rows = list(pixel_rows(png))
    rows = [b"".join(r[i:i + 4] if r[i + 3] else b"\0\0\0\0" for i in range(0, len(r), 4))
            for r in rows]
    with_palette = indexed(rows)
    forms = [(3, *with_palette)] if with_palette else [
        (6, b"", filtered(rows, kinds)) for kinds in ((0,), (2,), (4,), range(5))]
    files = [PNG_SIGNATURE + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, f, 0, 0, 0))
             + extra + chunk(b"IDAT", zlib.compress(data, 9)) + chunk(b"IEND", b"")
             for f, extra, data in forms]
    return min(files, key=len)


def rendered(drawing, scale):
    width, height = (side * scale for side in size(drawing))
    return smallest(subprocess.run(
        ["rsvg-convert", "--width", str(width), "--height", str(height), "--format", "png"],
        input=drawing.encode(), stdout=subprocess.PIPE, check=True).stdout)


def digest(path):
    return hashlib.sha256(path.read_bytes()).hexdigest()


def qrc(files):
    lines = [SPDX + '<RCC>\n  <qresource prefix="/resources/images">\n']
    lines += [f'    <file alias="{f.name}">{f.relative_to(HERE)}</file>\n' for f in files]
    return "".join(lines) + "  </qresource>\n</RCC>\n"


def render(master):
    """Writes the files of one master and returns them."""
    files = []
    for name, drawing in pictures(master).items():
        if master.stem != name:
            files.append(STATES / f"{name}.svg")
            files[-1].write_text(compact(drawing))
        for scale, suffix in SCALES.items():
            files.append(PNGS / f"{name}{suffix}.png")
            files[-1].write_bytes(rendered(drawing, scale))
    return files


def manifest(made):
    """One line per file: checksum, path, and for what a master gave the name of the master."""
    lines = []
    for master, files in made.items():
        lines.append(f"{digest(master)} {master.relative_to(HERE)}\n")
        lines += [f"{digest(f)} {f.relative_to(HERE)} {master.stem}\n" for f in files]
    return "".join(lines)


def check():
    listed = {}
    for line in (HERE / "manifest.txt").read_text().splitlines():
        checksum, path, *_ = line.split(" ")
        listed[HERE / path] = checksum
    present = [f for folder in (MASTERS, PNGS, STATES) for f in folder.iterdir()]
    bad = [f for f in present if listed.get(f) != digest(f)]
    bad += [f for f in listed if not f.exists()]
    for f in sorted(set(bad)):
        print(f"{f.relative_to(HERE)} does not match manifest.txt", file=sys.stderr)
    return 1 if bad else 0


def main():
    if sys.argv[1:] == ["--check"]:
        return check()
    for folder in (PNGS, STATES):
        folder.mkdir(exist_ok=True)
    made = {master: render(master) for master in sorted(MASTERS.glob("*.svg"))}
    files = sorted(itertools.chain.from_iterable(made.values()))
    for folder in (PNGS, STATES):
        for stale in set(folder.iterdir()) - set(files):
            stale.unlink()
    (HERE / "images.qrc").write_text(qrc(files))
    (HERE / "manifest.txt").write_text(manifest(made))
    return 0


if __name__ == "__main__":
    sys.exit(main())
