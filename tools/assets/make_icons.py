#!/usr/bin/env python3
"""Draws Songbin's icon family: writes assets/icons/*.svg.

Every icon is laid out on a 48 x 48 grid and uses plain attributes only, so
that Qt's SVG renderer draws it. Weights are multiples of 1.5 or 3 units,
which fall on half or whole pixels at 16, 24, 32 and 48 px. The palette keeps
mid tones for all outer shapes: they stand out on light and dark windows.

Usage: make_icons.py [output directory]
"""

import math
import pathlib
import sys

HERE = pathlib.Path(__file__).resolve()
OUT = HERE.parents[2] / "assets" / "icons"

# Cool body, warm accent, paper, and a deep ink used only inside shapes.
BLUE_HI, BLUE, BLUE_LO = "#7fabdd", "#5585ba", "#41699a"
INK = "#233850"
AMBER_HI, AMBER, AMBER_LO = "#ffc658", "#f79a2b", "#dd7412"
PAPER_HI, PAPER = "#ffffff", "#dfe9f4"

GRADIENTS = {
    "b": (BLUE_HI, BLUE_LO),
    "a": (AMBER_HI, AMBER_LO),
    "p": (PAPER_HI, PAPER),
    "d": ("#d3e5f7", "#8db4df"),
    "v": ("#6d9cd3", "#345f90"),
    "k": ("#2c4561", "#1b2c41"),
    "r": ("#f58a70", "#cf4430"),
    "g": ("#5fc79a", "#2b8f68"),
}


def num(value):
    text = f"{value:.2f}".rstrip("0").rstrip(".")
    return "0" if text == "-0" else text


def grad(name, y1, y2, ident=None, x1=0, x2=0):
    top, low = GRADIENTS[name]
    return (
        f'<linearGradient id="{ident or name}" gradientUnits="userSpaceOnUse" '
        f'x1="{num(x1)}" y1="{num(y1)}" x2="{num(x2)}" y2="{num(y2)}">'
        f'<stop offset="0" stop-color="{top}"/><stop offset="1" stop-color="{low}"/>'
        "</linearGradient>"
    )


def svg(name, title, defs, *body):
    lines = [
        '<?xml version="1.0" encoding="UTF-8"?>',
        '<svg xmlns="http://www.w3.org/2000/svg" version="1.2" baseProfile="tiny" '
        'width="48" height="48" viewBox="0 0 48 48">',
        f"  <title>{title}</title>",
        "  <defs>",
    ]
    lines += ["    " + d for d in defs]
    lines.append("  </defs>")
    for part in body:
        lines += ["  " + row for row in part.strip().splitlines()]
    lines.append("</svg>")
    (OUT / f"{name}.svg").write_text("\n".join(lines) + "\n", encoding="utf-8")


def rect(x, y, w, h, r, fill, extra=""):
    return (
        f'<rect x="{num(x)}" y="{num(y)}" width="{num(w)}" height="{num(h)}" '
        f'rx="{num(r)}" ry="{num(r)}" fill="{fill}"{" " + extra if extra else ""}/>'
    )


def circle(x, y, r, fill, extra=""):
    return f'<circle cx="{num(x)}" cy="{num(y)}" r="{num(r)}" fill="{fill}"{" " + extra if extra else ""}/>'


def path(d, fill="none", extra=""):
    return f'<path d="{d}" fill="{fill}"{" " + extra if extra else ""}/>'


def line(d, colour, width, extra=""):
    return path(
        d,
        "none",
        f'stroke="{colour}" stroke-width="{num(width)}" stroke-linecap="round" '
        f'stroke-linejoin="round"{" " + extra if extra else ""}',
    )


def shine(d, width=1.5, opacity=0.45):
    return line(d, "#ffffff", width, f'stroke-opacity="{num(opacity)}"')


def sheet(x, y, w, h, fold=9, fill="url(#p)"):
    """A sheet of paper with its upper right corner folded."""
    r = 3
    outline = (
        f"M{num(x + r)} {num(y)}H{num(x + w - fold)}L{num(x + w)} {num(y + fold)}"
        f"V{num(y + h - r)}a{r} {r} 0 0 1 -{r} {r}H{num(x + r)}"
        f"a{r} {r} 0 0 1 -{r} -{r}V{num(y + r)}a{r} {r} 0 0 1 {r} -{r}z"
    )
    corner = (
        f"M{num(x + w - fold)} {num(y)}V{num(y + fold - 2)}a2 2 0 0 0 2 2H{num(x + w)}z"
    )
    edge = f'stroke="{BLUE}" stroke-width="2.4" stroke-linejoin="round"'
    return path(outline, fill, edge) + "\n" + path(corner, BLUE_HI, edge)


def beamed(x, y, s, fill):
    """Two quavers under one beam; (x, y) is the centre, s the half height."""
    head = 0.42 * s
    stem = max(0.22 * s, 1.5)
    x1, x2 = x - 0.62 * s, x + 0.62 * s
    y1, y2 = y + 0.74 * s, y + 0.5 * s
    top1, top2 = y - 0.74 * s, y - 0.98 * s
    beam = 0.46 * s
    right1, right2 = x1 + head, x2 + head
    return "\n".join(
        [
            f'<ellipse cx="{num(x1)}" cy="{num(y1)}" rx="{num(head * 1.1)}" ry="{num(head * 0.86)}" fill="{fill}"/>',
            f'<ellipse cx="{num(x2)}" cy="{num(y2)}" rx="{num(head * 1.1)}" ry="{num(head * 0.86)}" fill="{fill}"/>',
            path(
                f"M{num(right1 - stem)} {num(y1)}V{num(top1)}L{num(right2)} {num(top2)}V{num(y2)}"
                f"H{num(right2 - stem)}V{num(top2 + beam + 0.04 * s)}L{num(right1)} {num(top1 + beam)}V{num(y1)}z",
                fill,
                f'stroke="{fill}" stroke-width="0.6" stroke-linejoin="round"',
            ),
        ]
    )


def quaver(x, y, s, fill, extra=""):
    """One quaver with a flag; (x, y) is the centre of the head, s its radius."""
    right = x + 1.05 * s
    stem = 0.62 * s
    top = y - 5.1 * s
    return "\n".join(
        [
            f'<ellipse cx="{num(x)}" cy="{num(y)}" rx="{num(1.2 * s)}" ry="{num(s)}" fill="{fill}"{" " + extra if extra else ""}/>',
            path(
                f"M{num(right - stem + 0.1)} {num(y)}V{num(top)}h{num(stem)}"
                f"c{num(0.3 * s)} {num(1.5 * s)} {num(2.3 * s)} {num(1.5 * s)} {num(2.1 * s)} {num(3.7 * s)}"
                f"c{num(-0.5 * s)} {num(-1.2 * s)} {num(-1.3 * s)} {num(-1.4 * s)} {num(-2.1 * s)} {num(-1.4 * s)}"
                f"V{num(y)}z",
                fill,
                extra,
            ),
        ]
    )


def disc(x, y, r, body="url(#b)", label="url(#a)", hole=INK):
    return "\n".join(
        [
            circle(x, y, r, body),
            circle(x, y, r * 0.72, "none", f'stroke="#ffffff" stroke-opacity="0.28" stroke-width="{num(max(r * 0.06, 0.8))}"'),
            line(
                f"M{num(x - r * 0.86 * math.cos(0.35))} {num(y - r * 0.86 * math.sin(0.35))}"
                f"A{num(r * 0.86)} {num(r * 0.86)} 0 0 1 {num(x - r * 0.86 * math.cos(1.25))} {num(y - r * 0.86 * math.sin(1.25))}",
                "#ffffff",
                max(r * 0.1, 1.2),
                'stroke-opacity="0.55"',
            ),
            circle(x, y, r * 0.42, label),
            circle(x, y, r * 0.14, hole),
        ]
    )


def bulb(x, y, r, glass="url(#a)", base=BLUE):
    """A light bulb; (x, y) is the centre of the glass."""
    w = 0.5 * r
    neck = y + 1.32 * r
    d = (
        f"M{num(x - w)} {num(neck)}"
        f"C{num(x - w)} {num(y + 0.95 * r)} {num(x - r)} {num(y + 0.72 * r)} {num(x - r)} {num(y)}"
        f"A{num(r)} {num(r)} 0 0 1 {num(x + r)} {num(y)}"
        f"C{num(x + r)} {num(y + 0.72 * r)} {num(x + w)} {num(y + 0.95 * r)} {num(x + w)} {num(neck)}z"
    )
    step = 0.36 * r
    parts = [
        path(d, glass),
        line(
            f"M{num(x - 0.62 * r)} {num(y + 0.05 * r)}A{num(0.64 * r)} {num(0.64 * r)} 0 0 1 {num(x - 0.05 * r)} {num(y - 0.6 * r)}",
            "#ffffff",
            0.17 * r,
            'stroke-opacity="0.8"',
        ),
        line(
            f"M{num(x - 0.3 * r)} {num(y + 0.28 * r)}L{num(x - 0.12 * r)} {num(neck)}"
            f"M{num(x + 0.3 * r)} {num(y + 0.28 * r)}L{num(x + 0.12 * r)} {num(neck)}",
            "#a34d06",
            0.11 * r,
            'stroke-opacity="0.7"',
        ),
        rect(x - w * 1.08, neck, w * 2.16, step * 1.9, step * 0.5, base),
        line(f"M{num(x - w * 0.9)} {num(neck + step * 0.95)}H{num(x + w * 0.9)}", INK, step * 0.22, 'stroke-opacity="0.55"'),
        path(
            f"M{num(x - w * 0.6)} {num(neck + step * 1.85)}h{num(w * 1.2)}a{num(w * 0.6)} {num(w * 0.5)} 0 0 1 {num(-w * 1.2)} 0z",
            BLUE_LO,
        ),
    ]
    return "\n".join(parts)


def draw_search():
    svg(
        "search", "Search the archive",
        [grad("b", 3, 37), grad("a", 30, 46), grad("p", 8, 33)],
        line("M31 31L34 34", BLUE_LO, 6),
        line("M36 36L41.5 41.5", "url(#a)", 9),
        circle(19.5, 19.5, 14.25, "url(#p)", 'stroke="url(#b)" stroke-width="4.5"'),
        beamed(19, 20, 7.6, INK),
        shine("M6 17.5A13.8 13.8 0 0 1 15 6.6", 1.5, 0.6),
    )


def pencil(tip_x, tip_y, length=33, half=4.4):
    cone, ferrule, rubber = 8.5, length - 8, length - 5
    inner = "\n".join(
        [
            path(f"M1.2 -0.6L{cone} {num(-half)}V{num(half)}L1.2 0.6a0.9 0.9 0 0 1 0 -1.2z", "#ffe3b8"),
            path(f"M1.2 -0.7L3.9 -2v4L1.2 0.7a0.9 0.9 0 0 1 0 -1.4z", INK),
            path(f"M{cone} {num(-half)}H{num(ferrule)}V{num(half)}H{cone}z", AMBER),
            path(f"M{cone} {num(-half)}H{num(ferrule)}V{num(-half / 3)}H{cone}z", AMBER_HI),
            path(f"M{cone} {num(half / 3)}H{num(ferrule)}V{num(half)}H{cone}z", AMBER_LO),
            path(f"M{num(ferrule)} {num(-half)}H{num(rubber)}V{num(half)}H{num(ferrule)}z", PAPER),
            path(
                f"M{num(rubber)} {num(-half)}h2.6a2.4 2.4 0 0 1 2.4 2.4v{num(2 * half - 4.8)}a2.4 2.4 0 0 1 -2.4 2.4h-2.6z",
                "#ec6a52",
            ),
        ]
    )
    return f'<g transform="translate({num(tip_x)} {num(tip_y)}) rotate(-45)">\n{inner}\n</g>'


def draw_edit():
    svg(
        "edit", "Browse and edit the records",
        [grad("p", 6, 44), grad("b", 6, 16)],
        rect(4.2, 6.2, 33.6, 37.6, 4.5, "url(#p)", f'stroke="{BLUE}" stroke-width="2.4"'),
        path("M4.2 15V10.7a4.5 4.5 0 0 1 4.5 -4.5h24.6a4.5 4.5 0 0 1 4.5 4.5V15z", "url(#b)", f'stroke="{BLUE}" stroke-width="2.4" stroke-linejoin="round"'),
        line("M10.5 22.5H14M20 22.5H31.5M10.5 28.5H14M20 28.5H25.5M10.5 34.5H14", BLUE, 3),
        pencil(18.6, 42.4, 35, 4.6),
    )


def draw_player():
    bars = []
    for i, h in enumerate((4.5, 9, 6, 10.5, 7.5, 4.5)):
        bars.append(rect(11.25 + i * 4.5, 22.5 - h, 3, h, 0.8, "url(#a)"))
    svg(
        "player", "Media player",
        [grad("b", 4, 45), grad("k", 8, 25), grad("a", 12, 23)],
        rect(3, 3, 42, 42, 9, "url(#b)"),
        shine("M5 13V12a7 7 0 0 1 7 -7H36a7 7 0 0 1 7 7", 1.5, 0.4),
        rect(8, 8.5, 32, 17, 3.5, "url(#k)"),
        *bars,
        path("M20.5 29.8a1.3 1.3 0 0 1 2 -1.1L30 33.9a1.3 1.3 0 0 1 0 2.2L22.5 41.3a1.3 1.3 0 0 1 -2 -1.1z", "#ffffff"),
        path("M14.6 31.2V38.8L8.8 35z", "#ffffff", 'stroke="#ffffff" stroke-width="1.2" stroke-linejoin="round"'),
        path("M34.4 31.2V38.8L40.2 35z", "#ffffff", 'stroke="#ffffff" stroke-width="1.2" stroke-linejoin="round"'),
    )


def draw_scan():
    svg(
        "scan", "Scan a disc",
        [grad("b", 9, 39), grad("a", 3, 45)],
        circle(24, 24, 15, "url(#b)"),
        circle(24, 24, 10.8, "none", 'stroke="#ffffff" stroke-opacity="0.28" stroke-width="1"'),
        shine("M11.6 19.6A13 13 0 0 1 19.6 11.6", 1.6, 0.6),
        circle(24, 24, 6, PAPER),
        circle(24, 24, 2.2, INK),
        line("M4.5 13.5V9A4.5 4.5 0 0 1 9 4.5H13.5M34.5 4.5H39A4.5 4.5 0 0 1 43.5 9V13.5"
             "M43.5 34.5V39A4.5 4.5 0 0 1 39 43.5H34.5M13.5 43.5H9A4.5 4.5 0 0 1 4.5 39V34.5", "url(#a)", 4.2),
        line("M4.5 31.5H43.5", "#ffb03c", 3),
    )


def draw_quit():
    svg(
        "quit", "Leave Songbin",
        [grad("b", 3, 45), grad("a", 14, 34)],
        path("M6 7.5A4.5 4.5 0 0 1 10.5 3H25.5A4.5 4.5 0 0 1 30 7.5V40.5A4.5 4.5 0 0 1 25.5 45H10.5A4.5 4.5 0 0 1 6 40.5z", INK),
        path("M6 7.5A4.5 4.5 0 0 1 10.5 3H25.5A4.5 4.5 0 0 1 30 7.5V40.5A4.5 4.5 0 0 1 25.5 45H10.5A4.5 4.5 0 0 1 6 40.5z"
             "M21 6V42H25.5A1.5 1.5 0 0 0 27 40.5V7.5A1.5 1.5 0 0 0 25.5 6z", "url(#b)", 'fill-rule="evenodd"'),
        shine("M8 10V8a3 3 0 0 1 3 -3H19", 1.5, 0.4),
        circle(16.5, 24.5, 2, PAPER_HI),
        path("M24 21H33.5V15.4a1.4 1.4 0 0 1 2.4 -1L45.2 23a1.4 1.4 0 0 1 0 2L35.9 33.6a1.4 1.4 0 0 1 -2.4 -1V27H24a1.5 1.5 0 0 1 -1.5 -1.5V22.5A1.5 1.5 0 0 1 24 21z", "url(#a)"),
    )


def draw_artistsong():
    svg(
        "artistsong", "List by artist and song",
        [grad("p", 4, 44), grad("a", 16, 46), grad("b", 10, 22)],
        sheet(5.2, 3.2, 31.6, 40.6),
        circle(14, 13, 3.8, "url(#b)"),
        path("M7.9 23.4a6.1 5.6 0 0 1 12.2 0a1 1 0 0 1 -1 1H8.9a1 1 0 0 1 -1 -1z", "url(#b)"),
        line("M24.5 19.5H29M11 31.5H20M11 37.5H17", BLUE, 3),
        quaver(29.8, 40.4, 5, "url(#a)"),
    )


def draw_web():
    svg(
        "web", "Home page",
        [grad("b", 3, 41), grad("a", 22, 46)],
        circle(21.5, 21.5, 18.5, "url(#b)"),
        path("M21.5 3.8C15 9 13 15.5 13 21.5S15 34 21.5 39.2M21.5 3.8C28 9 30 15.5 30 21.5S28 34 21.5 39.2"
             "M4 21.5H39M6.7 12.5H36.3M6.7 30.5H36.3", "none",
             'stroke="#ffffff" stroke-opacity="0.75" stroke-width="2" stroke-linecap="round"'),
        path("M32.6 21.9a2.6 2.6 0 0 1 3.4 0L46.2 31.2a1.3 1.3 0 0 1 -0.9 2.3H43.5V43.2a1.8 1.8 0 0 1 -1.8 1.8H26.9"
             "a1.8 1.8 0 0 1 -1.8 -1.8V33.5H23.3a1.3 1.3 0 0 1 -0.9 -2.3z", "url(#a)"),
        rect(31.3, 35.5, 6, 9.5, 1, "#7a3a06"),
    )


def draw_fullreport():
    svg(
        "fullreport", "Detailed report",
        [grad("p", 4, 44), grad("a", 20, 38), grad("b", 20, 38)],
        sheet(7.2, 3.2, 33.6, 41.6),
        line("M13.5 10.5H24M13.5 16.5H34.5", BLUE, 3),
        rect(12, 30, 6, 9, 1.2, BLUE),
        rect(21, 22.5, 6, 16.5, 1.2, "url(#a)"),
        rect(30, 27, 6, 12, 1.2, BLUE),
    )


def draw_fulllist():
    rows = []
    for i in range(4):
        y = 17.25 + i * 6
        rows.append(rect(15, y - 2, 4, 4, 1.2, AMBER_LO))
        rows.append(line(f"M23 {num(y)}H{(37, 34, 37, 31)[i]}", BLUE, 3))
    svg(
        "fulllist", "Complete list",
        [grad("p", 8, 44), grad("b", 2, 30)],
        path("M4 7A4 4 0 0 1 8 3H30A4 4 0 0 1 34 7V9H13.5A4 4 0 0 0 9.5 13V37.5H8A4 4 0 0 1 4 33.5z", "url(#b)"),
        rect(10.2, 9.2, 33.6, 34.6, 3.5, "url(#p)", f'stroke="{BLUE}" stroke-width="2.4"'),
        *rows,
    )


def gear(cx, cy, outer, root, teeth, half_top, half_root):
    points = []
    for i in range(teeth):
        mid = 2 * math.pi * i / teeth - math.pi / 2
        for radius, off in ((root, -half_root), (outer, -half_top), (outer, half_top), (root, half_root)):
            points.append((cx + radius * math.cos(mid + off), cy + radius * math.sin(mid + off)))
    return "M" + "L".join(f"{num(x)} {num(y)}" for x, y in points) + "z"


def draw_options():
    hole = "M24 16.5A7.5 7.5 0 1 0 24 31.5A7.5 7.5 0 1 0 24 16.5z"
    svg(
        "options", "Options",
        [grad("b", 3, 45), grad("a", 14, 34)],
        path(gear(24, 24, 19.6, 14.6, 8, 0.145, 0.25) + hole, "url(#b)",
             'fill-rule="evenodd" stroke="url(#b)" stroke-width="3" stroke-linejoin="round"'),
        circle(24, 24, 8.2, "none", 'stroke="url(#a)" stroke-width="4.5"'),
    )


def draw_tip():
    svg(
        "tip", "Tip of the day",
        [grad("a", 9, 34)],
        line("M24 2V3.5M9 7L10.2 8.2M39 7L37.8 8.2M3.5 20.5H5.5M42.5 20.5H44.5", AMBER, 3),
        bulb(24, 20, 12.6),
    )


def draw_nexttip():
    svg(
        "nexttip", "Next tip",
        [grad("a", 5, 30), grad("b", 24, 46)],
        bulb(18, 17.5, 13.5),
        circle(34.5, 33.5, 11.5, "url(#b)"),
        line("M29.5 33.5H38.5M34.7 28.6L39.6 33.5L34.7 38.4", "#ffffff", 3.2),
    )


def draw_about():
    svg(
        "about", "About Songbin",
        [grad("b", 3, 45)],
        circle(24, 24, 21, "url(#b)"),
        shine("M5.2 20A19.3 19.3 0 0 1 20 5.2", 1.6, 0.55),
        circle(24, 14, 3.6, AMBER_HI),
        path("M19.5 20.5H25.5A1.5 1.5 0 0 1 27 22V33H28.5A1.5 1.5 0 0 1 30 34.5V36A1.5 1.5 0 0 1 28.5 37.5H19.5A1.5 1.5 0 0 1 18 36V34.5"
             "A1.5 1.5 0 0 1 19.5 33H21V25H19.5A1.5 1.5 0 0 1 18 23.5V22A1.5 1.5 0 0 1 19.5 20.5z", "#ffffff"),
    )


def draw_print():
    svg(
        "print", "Print",
        [grad("b", 15, 38), grad("p", 4, 44)],
        rect(12.2, 4.2, 23.6, 18, 2.5, "url(#p)", f'stroke="{BLUE}" stroke-width="2.4"'),
        rect(3, 15, 42, 22.5, 6, "url(#b)"),
        shine("M6 18.6a4 4 0 0 1 3 -1.8H39a4 4 0 0 1 3 1.8", 1.5, 0.45),
        circle(38, 22, 2.4, AMBER_HI),
        rect(9, 27, 30, 4.5, 2.25, INK),
        path("M12.2 29.2H35.8V42.3a2.5 2.5 0 0 1 -2.5 2.5H14.7a2.5 2.5 0 0 1 -2.5 -2.5z", "url(#p)", f'stroke="{BLUE}" stroke-width="2.4" stroke-linejoin="round"'),
        line("M17.5 34.5H30.5", AMBER, 3),
        line("M17.5 40H25.5", BLUE, 2.4),
    )


def draw_update():
    svg(
        "update", "Insert into the archive",
        [grad("b", 16, 45), grad("a", 2, 26)],
        path("M4.5 20.5V38.5C4.5 42.6 13.2 45.5 24 45.5S43.5 42.6 43.5 38.5V20.5z", "url(#b)"),
        path("M5.4 31.6C7.4 34.6 15 36.6 24 36.6S40.6 34.6 42.6 31.6", "none", 'stroke="#ffffff" stroke-opacity="0.5" stroke-width="2" stroke-linecap="round"'),
        f'<ellipse cx="24" cy="20.5" rx="19.5" ry="7" fill="#a9c9ea"/>',
        f'<ellipse cx="24" cy="20.5" rx="15" ry="4.4" fill="{INK}"/>',
        path("M20.2 2H27.8A1.2 1.2 0 0 1 29 3.2V12H34.2a1.3 1.3 0 0 1 0.95 2.2L25 24.6a1.4 1.4 0 0 1 -2 0L12.85 14.2A1.3 1.3 0 0 1 13.8 12H19V3.2A1.2 1.2 0 0 1 20.2 2z", "url(#a)"),
    )


def draw_cancel():
    svg(
        "cancel", "Cancel",
        [grad("r", 3, 45)],
        circle(24, 24, 21, "url(#r)"),
        shine("M5.2 20A19.3 19.3 0 0 1 20 5.2", 1.6, 0.55),
        line("M16 16L32 32M32 16L16 32", "#ffffff", 5.4),
    )


def draw_ok():
    svg(
        "ok", "OK",
        [grad("g", 3, 45)],
        circle(24, 24, 21, "url(#g)"),
        shine("M5.2 20A19.3 19.3 0 0 1 20 5.2", 1.6, 0.55),
        line("M13.5 25L21 32.2L34.5 17", "#ffffff", 5.4),
    )


def draw_sysinfo():
    svg(
        "sysinfo", "System information",
        [grad("b", 4, 44), grad("k", 9, 31)],
        path("M19.5 35H28.5L30 41.5H18z", BLUE_LO),
        rect(12, 40.5, 24, 4.5, 2.25, "url(#b)"),
        rect(3, 4.5, 42, 32, 5.5, "url(#b)"),
        shine("M5 12V10a4 4 0 0 1 4 -3.8H39A4 4 0 0 1 43 10", 1.5, 0.4),
        rect(7.5, 9, 33, 22.5, 2.5, "url(#k)"),
        line("M10.5 21H16L19.5 14L26 27L29.5 18.5L31.5 21H37.5", AMBER_HI, 3),
    )


def chassis(y, h=15):
    """The front of a drive, shared by three of the drive icons."""
    return "\n".join(
        [
            rect(3, y, 42, h, 4, "url(#b)"),
            shine(f"M6 {num(y + 1.6)}H42", 1.4, 0.45),
        ]
    )


def draw_drives():
    svg(
        "drive-hard", "Hard disk",
        [grad("b", 24, 42), grad("p", 8, 28, "t")],
        path("M12.4 9.4A4 4 0 0 1 16 7H32A4 4 0 0 1 35.6 9.4L45 29H3z", "#a9c9ea", f'stroke="{BLUE}" stroke-width="0"'),
        f'<ellipse cx="24" cy="18" rx="11.5" ry="6.6" fill="{BLUE}" fill-opacity="0.55"/>',
        f'<ellipse cx="24" cy="18" rx="3.6" ry="2.1" fill="#ffffff"/>',
        rect(3, 24.5, 42, 17, 4.5, "url(#b)"),
        shine("M6.5 26.2H41.5", 1.4, 0.45),
        line("M10 33H23", INK, 3, 'stroke-opacity="0.75"'),
        circle(37, 33, 3, AMBER_HI),
    )
    svg(
        "drive-removable", "Removable disk",
        [grad("b", 12, 46), grad("p", 2, 18), grad("a", 30, 42)],
        '<g transform="translate(24 24) rotate(45) scale(0.9) translate(-24 -23.4)">',
        rect(15.2, -2.8, 17.6, 17, 2, "url(#p)", f'stroke="{BLUE}" stroke-width="2.4"'),
        rect(19, 3, 3.4, 3.6, 0.6, INK),
        rect(25.6, 3, 3.4, 3.6, 0.6, INK),
        path("M11 15A3 3 0 0 1 14 12H34A3 3 0 0 1 37 15V44.5A6 6 0 0 1 31 50.5H17A6 6 0 0 1 11 44.5z", "url(#b)"),
        shine("M13 44V16", 1.5, 0.4),
        rect(17, 19, 14, 12, 2.4, PAPER),
        circle(24, 41.5, 3.4, AMBER_HI),
        "</g>",
    )
    svg(
        "drive-optical", "Optical disc drive",
        [grad("b", 28, 44), grad("d", 3, 37), grad("a", 14, 26)],
        circle(24, 19.5, 16, "none", f'stroke="{BLUE}" stroke-width="2"'),
        disc(24, 19.5, 16, "url(#d)", "url(#a)", "#ffffff"),
        rect(3, 27, 42, 17, 4.5, "url(#b)"),
        rect(3, 27, 42, 17, 4.5, INK, 'fill-opacity="0.22"'),
        line("M9 33H39", INK, 3),
        circle(37.5, 39, 2, AMBER_HI),
        line("M10.5 39H22.5", "#ffffff", 2, 'stroke-opacity="0.5"'),
    )
    svg(
        "drive-network", "Network drive",
        [grad("b", 5, 24), grad("a", 26, 46)],
        rect(3, 4.5, 42, 18, 4.5, "url(#b)"),
        shine("M6.5 6.2H41.5", 1.4, 0.45),
        line("M10 13.5H23", INK, 3, 'stroke-opacity="0.75"'),
        circle(37, 13.5, 3, AMBER_HI),
        line("M24 22.5V33M6 38.5H42", BLUE, 3.6),
        circle(24, 38.5, 6.5, "url(#a)"),
        circle(24, 38.5, 2.2, "#ffffff"),
        circle(5.5, 38.5, 3.5, BLUE),
        circle(42.5, 38.5, 3.5, BLUE),
    )


def draw_folders():
    back = "M3 11A4 4 0 0 1 7 7H17.2A4 4 0 0 1 20 8.2L23.3 11.5H41A4 4 0 0 1 45 15.5V20H3z"
    svg(
        "folder", "Folder",
        [grad("a", 17, 42), grad("p", 12, 24)],
        path(back + "M3 18H45V37A4 4 0 0 1 41 41H7A4 4 0 0 1 3 37z", AMBER_LO),
        rect(7.5, 14, 33, 14, 2, "url(#p)"),
        path("M3 22A4 4 0 0 1 7 18H41A4 4 0 0 1 45 22V37.5A4 4 0 0 1 41 41.5H7A4 4 0 0 1 3 37.5z", "url(#a)"),
        shine("M5.5 20.6A3 3 0 0 1 7.5 19.6H40.5A3 3 0 0 1 42.5 20.6", 1.3, 0.6),
    )
    svg(
        "folder-open", "Open folder",
        [grad("a", 20, 42), grad("p", 12, 26)],
        path("M3 11A4 4 0 0 1 7 7H16.2A4 4 0 0 1 19 8.2L22.3 11.5H36A4 4 0 0 1 40 15.5V41H7A4 4 0 0 1 3 37z", AMBER_LO),
        rect(7.5, 14.5, 28.5, 20, 2, "url(#p)"),
        line("M12 19.5H26", BLUE, 2.4),
        path("M10.9 25A4 4 0 0 1 14.7 22.2H43.6A2.6 2.6 0 0 1 46.1 25.6L42 39A3.6 3.6 0 0 1 38.6 41.5H6.3A2.6 2.6 0 0 1 3.8 38.1z".replace("10.9 25", "8.2 25").replace("14.7", "12"), "url(#a)"),
        shine("M10.6 24.6A2.6 2.6 0 0 1 12.4 23.8H43", 1.3, 0.6),
    )


def songbin_art():
    """The bin with its sleeves and the disc, shared with the About picture."""
    return [
        # two sleeves that stand behind
        '<g transform="rotate(-9 10 36)">',
        rect(5.2, 11.5, 20, 26, 2.2, "url(#d)", f'stroke="{BLUE}" stroke-width="1.2"'),
        rect(8.4, 14.6, 8, 2.6, 1.3, BLUE),
        "</g>",
        '<g transform="rotate(9 38 36)">',
        rect(24, 12.5, 18.8, 26, 2.2, "url(#r)"),
        "</g>",
        # the disc that sticks out
        circle(24, 18, 16, "url(#v)"),
        circle(24, 18, 12.8, "none", 'stroke="#ffffff" stroke-opacity="0.22" stroke-width="0.9"'),
        circle(24, 18, 10, "none", 'stroke="#ffffff" stroke-opacity="0.22" stroke-width="0.9"'),
        shine("M10.4 15A13.9 13.9 0 0 1 19.6 4.8", 2, 0.65),
        shine("M37.4 21.6A13.9 13.9 0 0 0 37.6 15", 2, 0.4),
        circle(24, 18, 6.4, PAPER_HI),
        circle(24, 18, 2.4, INK),
        # the bin
        path("M4.4 25.5H43.6A2.4 2.4 0 0 1 46 28.2L44 43A3.6 3.6 0 0 1 40.4 46H7.6A3.6 3.6 0 0 1 4 43L2 28.2A2.4 2.4 0 0 1 4.4 25.5z", "url(#a)"),
        path("M3.3 37H44.7L44.5 38.4H3.5z", "#9c4a06", 'fill-opacity="0.5"'),
        shine("M4.6 27.1H43.4", 1.4, 0.65),
        shine("M5 39.3H43", 0.8, 0.35),
        rect(17.5, 30, 13, 4.4, 2.2, "#6b3205"),
    ]


SONGBIN_DEFS = [grad("v", 2, 34), grad("a", 25, 46), grad("d", 7, 30), grad("r", 7, 30)]


def draw_songbin():
    svg("songbin", "Songbin", SONGBIN_DEFS, *songbin_art())


def main():
    global OUT
    if len(sys.argv) > 1:
        OUT = pathlib.Path(sys.argv[1])
    OUT.mkdir(parents=True, exist_ok=True)
    for name, func in sorted(globals().items()):
        if name.startswith("draw_"):
            func()


if __name__ == "__main__":
    main()
