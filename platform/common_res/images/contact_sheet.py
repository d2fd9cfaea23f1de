#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
"""Puts all pictures of png/ on one sheet, on the grounds that they are made for.

    contact_sheet.py <folder>

writes images-contact-sheet.png, where every picture stands at one screen pixel per pixel, and
images-contact-sheet@2x.png with the pictures for a device pixel ratio of 2. Needs rsvg-convert.
"""

import base64
import pathlib
import re
import struct
import subprocess
import sys

PNGS = pathlib.Path(__file__).resolve().parent / "png"
LIGHT, LIGHT_PLATE, DARK, DARK_PLATE = "#F0F0F0", "#D6E4F1", "#2B2B2B", "#C9DBEC"
ACCENT, HOVER, SPINNER = "#5383B5", "#2965A3", "#BEB6AD"
COLUMNS, CELL, ROW, TITLE = 6, 190, 58, 34


def png_size(path):
    return struct.unpack_from(">II", path.read_bytes(), 16)


def picture(name, x, y, scale, shown=None):
    """A picture centred on a whole pixel near x, y."""
    path = PNGS / f"{name}{'@2x' if scale == 2 else ''}.png"
    width, height = (side // scale for side in png_size(path))
    width, height = shown or (width, height)
    data = base64.b64encode(path.read_bytes()).decode()
    return (f'<image x="{x - width // 2}" y="{y - height // 2}" width="{width}" height="{height}"'
            f' href="data:image/png;base64,{data}"/>')


def plate(x, y, side, colour):
    return (f'<rect x="{x - side // 2}" y="{y - side // 2}" width="{side}" height="{side}" rx="3"'
            f' fill="{colour}"/>')


def label(x, y, text, colour="#404040", size=10, weight="normal"):
    return (f'<text x="{x}" y="{y}" font-family="Arial, Liberation Sans, sans-serif"'
            f' font-size="{size}" font-weight="{weight}" fill="{colour}">{text}</text>')


def command_cell(name, x, y, scale):
    """At rest and active (on the plate behind hovered buttons), on light and on dark."""
    out = []
    for i, (ground, hover) in enumerate(((LIGHT, LIGHT_PLATE), (DARK, DARK_PLATE))):
        left = x + 84 * i
        out.append(f'<rect x="{left}" y="{y}" width="84" height="40" fill="{ground}"/>')
        out.append(picture(name + "_normal", left + 22, y + 20, scale))
        out.append(plate(left + 62, y + 20, 36, hover))
        out.append(picture(name + "_active", left + 62, y + 20, scale))
    return out + [label(x, y + 51, name)]


def grounds(name):
    if "button_" in name or name == "sys_issue_ignore":
        return ACCENT, HOVER
    if name.startswith("sys_menu_") and name.endswith("_hover"):
        return HOVER, HOVER
    if name == "sys_reset_hover":
        return LIGHT_PLATE, DARK_PLATE
    return LIGHT, DARK


def system_cell(name, x, y, scale):
    out = []
    for i, ground in enumerate(grounds(name)):
        left = x + 84 * i
        out.append(f'<rect x="{left}" y="{y}" width="84" height="40" fill="{ground}"/>')
        if name == "sys_create_icon_hover_48x48":
            out.append(f'<circle cx="{left + 42}" cy="{y + 20}" r="14" fill="{SPINNER}"/>')
            out.append(picture(name, left + 42, y + 20, scale, (18, 18)))
        else:
            out.append(picture(name, left + 42, y + 20, scale))
    return out + [label(x, y + 51, name)]


def section(title, names, cell, y, scale):
    out = [label(20, y + 20, title, "#2965A3", 14, "bold")]
    y += TITLE
    for i, name in enumerate(names):
        out += cell(name, 20 + CELL * (i % COLUMNS), y + ROW * (i // COLUMNS), scale)
    return out, y + ROW * -(-len(names) // COLUMNS) + 6


def sheet(scale):
    names = sorted(p.stem for p in PNGS.glob("*.png") if "@" not in p.stem)
    commands = sorted({re.sub("_(normal|active)$", "", n) for n in names if n.startswith("cmd_")})
    system = [n for n in names if n.startswith("sys_") and n != "sys_sample"]
    out, y = section("Commands: at rest and active, on light and on dark", commands,
                     command_cell, 6, scale)
    more, y = section("System: on the grounds they are used on", system, system_cell, y, scale)
    sample = [picture("sys_sample", 20 + 120, y + 79, scale), label(20, y + 170, "sys_sample")]
    width, height = 20 + CELL * COLUMNS, y + 184
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}">'
            f'<rect width="{width}" height="{height}" fill="#FFFFFF"/>'
            + "".join(out + more + sample) + "</svg>")


def main():
    folder = pathlib.Path(sys.argv[1])
    for scale, suffix in ((1, ""), (2, "@2x")):
        subprocess.run(["rsvg-convert", "--unlimited", "--zoom", str(scale), "--output",
                        str(folder / f"images-contact-sheet{suffix}.png")],
                       input=sheet(scale).encode(), check=True)


if __name__ == "__main__":
    main()
