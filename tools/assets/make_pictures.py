#!/usr/bin/env python3
"""Draws Songbin's three pictures: writes assets/pictures/*.svg.

player.svg is the banner that opens the player, about.svg the artwork of the
About box and tip.svg the bulb of the tip window. Plain attributes only, as in
make_icons.py, whose palette and helpers are used here; words are drawn as
paths, so that no font is needed.

Usage: make_pictures.py [output directory]
"""

import math
import pathlib
import sys

from make_icons import (
    AMBER, AMBER_HI, AMBER_LO, BLUE, BLUE_HI, BLUE_LO, INK, PAPER, PAPER_HI, SONGBIN_DEFS,
    beamed, circle, line, num, path, quaver, rect, songbin_art,
)

HERE = pathlib.Path(__file__).resolve()
OUT = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else HERE.parents[2] / "assets" / "pictures"


def linear(ident, x1, y1, x2, y2, *stops):
    inner = "".join(
        f'<stop offset="{num(o)}" stop-color="{c}"'
        + (f' stop-opacity="{num(a[0])}"' if a else "")
        + "/>"
        for o, c, *a in stops
    )
    return (
        f'<linearGradient id="{ident}" gradientUnits="userSpaceOnUse" x1="{num(x1)}" y1="{num(y1)}" '
        f'x2="{num(x2)}" y2="{num(y2)}">{inner}</linearGradient>'
    )


def radial(ident, x, y, r, *stops):
    inner = "".join(
        f'<stop offset="{num(o)}" stop-color="{c}" stop-opacity="{num(a)}"/>' for o, c, a in stops
    )
    return (
        f'<radialGradient id="{ident}" gradientUnits="userSpaceOnUse" cx="{num(x)}" cy="{num(y)}" '
        f'r="{num(r)}">{inner}</radialGradient>'
    )


def write(name, title, width, height, defs, body):
    lines = [
        '<?xml version="1.0" encoding="UTF-8"?>',
        '<svg xmlns="http://www.w3.org/2000/svg" version="1.2" baseProfile="tiny" '
        f'width="{width}" height="{height}" viewBox="0 0 {width} {height}">',
        f"  <title>{title}</title>",
        "  <defs>",
    ]
    lines += ["    " + d for d in defs]
    lines.append("  </defs>")
    for part in body:
        lines += ["  " + row for row in part.strip().splitlines()]
    lines.append("</svg>")
    (OUT / f"{name}.svg").write_text("\n".join(lines) + "\n", encoding="utf-8")


# --- the banner -----------------------------------------------------------

SEGMENTS = {
    "0": "abcdef", "1": "bc", "2": "abged", "3": "abgcd", "4": "fgbc",
    "5": "afgcd", "6": "afgedc", "7": "abc", "8": "abcdefg", "9": "abcdfg",
}


def digit(char, x, y, w, h, t):
    """One digit of the display; returns (lit, unlit) path data."""
    m = y + h / 2
    g = 0.7  # the gap between two segments
    k = t / 2

    def across(cy):
        return (
            f"M{num(x + k + g)} {num(cy)}L{num(x + t + g)} {num(cy - k)}H{num(x + w - t - g)}"
            f"L{num(x + w - k - g)} {num(cy)}L{num(x + w - t - g)} {num(cy + k)}H{num(x + t + g)}z"
        )

    def down(cx, y1, y2):
        return (
            f"M{num(cx)} {num(y1 + g)}L{num(cx + k)} {num(y1 + k + g)}V{num(y2 - k - g)}"
            f"L{num(cx)} {num(y2 - g)}L{num(cx - k)} {num(y2 - k - g)}V{num(y1 + k + g)}z"
        )

    shapes = {
        "a": across(y + k), "g": across(m), "d": across(y + h - k),
        "f": down(x + k, y + k, m), "b": down(x + w - k, y + k, m),
        "e": down(x + k, m, y + h - k), "c": down(x + w - k, m, y + h - k),
    }
    lit = "".join(shapes[s] for s in SEGMENTS[char])
    unlit = "".join(d for s, d in shapes.items() if s not in SEGMENTS[char])
    return lit, unlit


def key(x, y, w, h, symbol, warm=False):
    """A transport button with bevelled edges."""
    face = "url(#keywarm)" if warm else "url(#key)"
    ink = "#5a2a04" if warm else INK
    return "\n".join(
        [
            rect(x, y, w, h, 5, "#16273b"),
            rect(x + 1.2, y + 1.2, w - 2.4, h - 2.4, 4, face),
            line(f"M{num(x + 5)} {num(y + 2.6)}H{num(x + w - 5)}", "#ffffff", 1.2, 'stroke-opacity="0.7"'),
            path(symbol, ink, f'stroke="{ink}" stroke-width="1.4" stroke-linejoin="round"'),
        ]
    )


def wordmark(x, y, scale, colour):
    """Tonedeck in round single-stroke letters; y is the baseline."""
    # the width of each letter between its centre lines, and the gap after it
    metrics = [
        (24, -2.5), (22, 9), (19, 9.5), (22, 9), (22, 10.5), (22, 8.5), (18.8, 10), (17, 0),
    ]
    data, at = [], 0.0
    for (width, gap), char in zip(metrics, "Tonedeck"):
        a = num(at)
        if char == "T":
            data.append(f"M{a} -34h24m-12 0v34")
        elif char == "o":
            data.append(f"M{a} -11a11 11 0 1 1 22 0a11 11 0 1 1 -22 0z")
        elif char == "n":
            data.append(f"M{a} 0v-22m0 11.5a9.5 11 0 0 1 19 0v10.5")
        elif char == "e":
            data.append(f"M{a} -11h22a11 11 0 1 0 -3.22 7.78")
        elif char == "d":
            data.append(f"M{num(at + 22)} -11a11 11 0 1 0 -22 0a11 11 0 1 0 22 0zm0 -23v34")
        elif char == "c":
            data.append(f"M{num(at + 18.78)} -18.78a11 11 0 1 0 0 15.56")
        elif char == "k":
            data.append(f"M{a} -34v34m15.5 -22l-15.5 13.2m5.6 -4.8l11.4 13.6")
        at += width + gap
    length = at * scale
    mark = (
        f'<g transform="translate({num(x)} {num(y)}) scale({num(scale)})">\n'
        + line("".join(data), colour, 5.6)
        + "\n</g>"
    )
    return mark, length


def draw_player():
    defs = [
        linear("ground", 0, 0, 0, 220, (0, "#2b4260"), (1, "#15202f")),
        radial("warm", 600, 235, 240, (0, AMBER, 0.3), (1, AMBER, 0)),
        radial("cool", 150, 0, 330, (0, BLUE_HI, 0.35), (1, BLUE_HI, 0)),
        linear("body", 0, 26, 0, 194, (0, "#86b0df"), (0.12, "#6894c8"), (1, "#3a5f8d")),
        linear("screen", 0, 54, 0, 124, (0, "#101c2b"), (1, "#1c3049")),
        linear("key", 0, 150, 0, 184, (0, "#f4f8fc"), (1, "#b9cde3")),
        linear("keywarm", 0, 150, 0, 184, (0, "#ffd78a"), (1, "#f28a1e")),
        linear("vinyl", 0, 24, 0, 196, (0, "#4a78ad"), (1, "#1d3655")),
        linear("vinyl2", 0, 40, 0, 180, (0, "#f4a06a"), (1, "#b84a2c")),
        linear("label", 0, 76, 0, 144, (0, AMBER_HI), (1, AMBER_LO)),
        linear("word", 0, -36, 0, 2, (0, "#ffffff"), (1, "#cfe0f2")),
    ]
    body = [
        rect(0, 0, 720, 220, 20, "url(#ground)"),
        rect(0, 0, 720, 220, 20, "url(#cool)"),
        rect(0, 0, 720, 220, 20, "url(#warm)"),
    ]

    # a faint skyline of bars behind everything
    sky = []
    for i in range(38):
        h = 26 + 30 * abs(math.sin(i * 0.55)) + 24 * abs(math.sin(i * 1.7 + 1))
        sky.append(f"M{num(26 + i * 18)} {num(208 - h)}h11v{num(h)}h-11z")
    body.append(path("".join(sky), "#ffffff", 'fill-opacity="0.05"'))

    # two discs leave the player on its right side
    body.append(circle(408, 110, 63, "url(#vinyl2)"))
    body.append(line("M452.2 75.4A56 56 0 0 1 461.3 92.7", "#ffffff", 4, 'stroke-opacity="0.55"'))
    body.append(circle(408, 110, 50, "none", 'stroke="#ffffff" stroke-opacity="0.22" stroke-width="1.4"'))
    body.append(circle(408, 110, 56.5, "none", 'stroke="#ffffff" stroke-opacity="0.14" stroke-width="1.2"'))
    body.append(circle(364, 110, 78, "url(#vinyl)", 'stroke="#0f1a28" stroke-opacity="0.55" stroke-width="3"'))
    for r in (70, 63, 56, 49):
        body.append(circle(364, 110, r, "none", 'stroke="#ffffff" stroke-opacity="0.16" stroke-width="1.2"'))
    body.append(line("M405.6 52.6A71 71 0 0 1 429.6 83.4", "#ffffff", 4.5, 'stroke-opacity="0.5"'))
    body.append(line("M429.6 136.6A71 71 0 0 1 419 155", "#ffffff", 3.5, 'stroke-opacity="0.22"'))
    body.append(circle(364, 110, 38, "url(#label)"))
    body.append(circle(364, 110, 30, "none", 'stroke="#ffffff" stroke-opacity="0.4" stroke-width="1.2"'))

    # the player itself
    body += [
        rect(25, 30, 346, 172, 15, "#0b131d", 'fill-opacity="0.45"'),
        rect(22, 24, 346, 172, 14, "#14253a"),
        rect(24, 26, 342, 168, 12, "url(#body)"),
        line("M30 35A8 8 0 0 1 37 28.2H353A8 8 0 0 1 360 35", "#ffffff", 1.6, 'stroke-opacity="0.6"'),
        line("M36 192H354", "#0f1f33", 2, 'stroke-opacity="0.4"'),
    ]
    # title strip: a small disc, grip lines, three squares
    body.append(circle(44, 41, 6, "url(#label)"))
    body.append(circle(44, 41, 1.8, INK))
    grip = "".join(f"M58 {y}H296" for y in (37, 41, 45))
    body.append(path(grip, "none", 'stroke="#1d3655" stroke-opacity="0.55" stroke-width="1.5"'))
    grip = "".join(f"M58 {y}H296" for y in (38.5, 42.5, 46.5))
    body.append(path(grip, "none", 'stroke="#ffffff" stroke-opacity="0.3" stroke-width="1.2"'))
    for i, colour in enumerate((PAPER, PAPER, "#ef7a5f")):
        body.append(rect(306 + i * 17, 35, 12, 12, 3, "#16273b"))
        body.append(rect(307.2 + i * 17, 36.2, 9.6, 9.6, 2.2, colour))

    # the display
    body += [
        rect(36, 54, 318, 72, 7, "#0c1622"),
        rect(37.5, 55.5, 315, 69, 6, "url(#screen)"),
        path("M43.5 124.5H346.5A6 6 0 0 0 352.5 118.5V61.5", "none", 'stroke="#ffffff" stroke-opacity="0.22" stroke-width="1.2"'),
    ]
    # state sign, then the time
    body.append(path("M48 81.5L58.5 89.5L48 97.5z", "#8fe0b4", 'stroke="#8fe0b4" stroke-width="2" stroke-linejoin="round"'))
    lit, unlit = "", ""
    x = 70
    for char in "03:47":
        if char == ":":
            lit += f"M{num(x)} 79h5v5h-5zM{num(x)} 95h5v5h-5z"
            x += 12
            continue
        on, off = digit(char, x, 67, 25, 45, 5.4)
        lit += on
        unlit += off
        x += 31
    body.append(path(unlit, AMBER_HI, 'fill-opacity="0.09"'))
    body.append(path(lit, AMBER_HI))

    # spectrum bars made of small blocks
    heights = (4, 6, 8, 7, 9, 6, 5, 7, 8, 5, 6, 4, 3)
    caps = (6, 8, 9, 9, 10, 8, 7, 8, 10, 7, 7, 6, 4)
    colours = ["#58a6e8", "#58a6e8", "#6cc4d8", "#7fd6b4", "#a9dc8a", "#e2d86a", AMBER_HI, AMBER_HI, "#f79a2b", "#ef6a4c"]
    left, pitch, wide = 217, 10, 8
    rows = {}
    ghost = ""
    for i, (h, cap) in enumerate(zip(heights, caps)):
        for j in range(10):
            block = f"M{num(left + i * pitch)} {num(113.5 - j * 5)}h{wide}v3.6h-{wide}z"
            if j < h:
                rows.setdefault(colours[j], []).append(block)
            elif j == cap:
                rows.setdefault("#ffffff", []).append(block)
            else:
                ghost += block
    body.append(path(ghost, "#ffffff", 'fill-opacity="0.05"'))
    for colour, blocks in rows.items():
        body.append(path("".join(blocks), colour))

    # the position slider
    body += [
        rect(36, 134, 318, 8, 4, "#14253a"),
        rect(37.5, 135.5, 206, 5, 2.5, AMBER),
        rect(229, 130.5, 28, 15, 4.5, "#16273b"),
        rect(230.2, 131.7, 25.6, 12.6, 3.5, "url(#thumb)"),
        line("M239.5 135V141M243 135V141M246.5 135V141", BLUE_LO, 1.4),
    ]
    defs.append(linear("thumb", 0, 131, 0, 145, (0, "#ffffff"), (1, "#bdd0e5")))

    # transport buttons: back, play, pause, stop, on
    top, high = 152, 33
    mid = top + high / 2
    symbols = [
        (36, 36, f"M46.5 {mid - 6}h2v12h-2zM60 {mid - 6}V{mid + 6}L51.5 {mid}z", False),
        (76, 46, f"M93.5 {mid - 7.5}L107 {mid}L93.5 {mid + 7.5}z", True),
        (126, 36, f"M138.5 {mid - 6}h3.2v12h-3.2zM146.3 {mid - 6}h3.2v12h-3.2z", False),
        (166, 36, f"M178.5 {mid - 5.5}h11v11h-11z", False),
        (206, 36, f"M216.5 {mid - 6}V{mid + 6}L225 {mid}zM228.5 {mid - 6}h2v12h-2z", False),
    ]
    for kx, kw, symbol, warm in symbols:
        body.append(key(kx, top, kw, high, symbol, warm))

    # loudness: a rising row of bars
    body.append(rect(252, top, 102, high, 6, "#14253a"))
    for i in range(11):
        h = 5 + i * 2
        on = i < 8
        body.append(
            rect(258 + i * 8.3, top + high - 4.5 - h, 5.6, h, 1.2, ("#8fe0b4", "#8fe0b4", "#8fe0b4", "#a9dc8a", "#e2d86a", AMBER_HI, AMBER_HI, AMBER)[i] if on else "#3a5478")
        )

    # the word and a wave below it
    _, length = wordmark(0, 0, 0.98, "url(#word)")
    start = 483 + (701 - 483 - length) / 2
    mark, length = wordmark(start, 108, 0.98, "url(#word)")
    body.append(mark)
    warm_d, cool_d = "", ""
    count = 32
    for i in range(count):
        wx = start + length * (i + 0.5) / count
        env = math.sin(math.pi * (i + 0.6) / (count + 0.2))
        h = 2.5 + 17 * env * abs(math.sin(i * 0.83) * 0.6 + math.sin(i * 1.9 + 0.7) * 0.45)
        piece = f"M{num(wx)} {num(147 - h)}V{num(147 + h)}"
        if i < 20:
            warm_d += piece
        else:
            cool_d += piece
    body.append(line(cool_d, "#7fa6d2", 3.6, 'stroke-opacity="0.75"'))
    body.append(line(warm_d, "#ffb549", 3.6))
    body.append(rect(1, 1, 718, 218, 19, "none", 'stroke="#ffffff" stroke-opacity="0.12" stroke-width="2"'))
    write("player", "Tonedeck, the player", 720, 220, defs, body)


# --- the About box --------------------------------------------------------


def draw_about():
    defs = SONGBIN_DEFS + [
        linear("ground", 0, 0, 0, 160, (0, "#35547b"), (1, "#17263a")),
        radial("glow", 80, 74, 84, (0, "#ffd68a", 0.5), (1, "#ffd68a", 0)),
    ]
    body = [
        rect(2, 2, 156, 156, 30, "url(#ground)"),
        rect(2, 2, 156, 156, 30, "url(#glow)"),
    ]
    for r, o in ((50, 0.16), (62, 0.11), (74, 0.07)):
        body.append(circle(80, 78, r, "none", f'stroke="#ffffff" stroke-opacity="{o}" stroke-width="2"'))
    body.append('<ellipse cx="80" cy="133.5" rx="52" ry="6" fill="#0b131d" fill-opacity="0.5"/>')
    body.append('<g transform="translate(27.2 32) scale(2.2)">')
    body += songbin_art()
    body.append("</g>")
    body.append('<g transform="rotate(-12 28 44)">')
    body.append(quaver(27, 50, 4.2, AMBER_HI))
    body.append("</g>")
    body.append('<g transform="rotate(10 128 36)">')
    body.append(beamed(130, 38, 10, PAPER_HI))
    body.append("</g>")
    body.append('<g transform="rotate(14 108 20)">')
    body.append(quaver(103, 26, 2.4, BLUE_HI))
    body.append("</g>")
    body.append(rect(3, 3, 154, 154, 29, "none", 'stroke="#ffffff" stroke-opacity="0.16" stroke-width="2"'))
    write("about", "Songbin", 160, 160, defs, body)


# --- the tip window -------------------------------------------------------


def draw_tip():
    cx, cy, r = 48, 40, 23
    neck = cy + 30
    defs = [
        radial("glow", cx, cy, 40, (0, "#ffb73f", 0.55), (0.55, "#ffb73f", 0.22), (1, "#ffb73f", 0)),
        linear("glass", 0, cy - r, 0, neck, (0, "#ffdf94"), (0.45, AMBER_HI), (1, "#ef8a20")),
        linear("base", 33, 0, 63, 0, (0, BLUE_HI), (0.35, BLUE), (1, "#34577f")),
    ]
    body = [circle(cx, cy, 40, "url(#glow)")]
    rays = ""
    for deg in (-180, -150, -120, -90, -60, -30, 0):
        a = math.radians(deg)
        r1, r2 = (30, 36) if deg % 60 == 0 or deg == -90 else (30, 34)
        if deg == -90:
            r2 = 37
        rays += f"M{num(cx + r1 * math.cos(a))} {num(cy + r1 * math.sin(a))}L{num(cx + r2 * math.cos(a))} {num(cy + r2 * math.sin(a))}"
    body.append(line(rays, AMBER, 4))
    body.append(
        path(
            f"M{cx - 11} {neck}C{cx - 11} {cy + 21} {cx - r} {cy + 16} {cx - r} {cy}"
            f"A{r} {r} 0 0 1 {cx + r} {cy}C{cx + r} {cy + 16} {cx + 11} {cy + 21} {cx + 11} {neck}z",
            "url(#glass)", f'stroke="{AMBER_LO}" stroke-width="1.6"',
        )
    )
    # the filament is a pair of quavers
    body.append(line(f"M{cx - 4} {neck}V{cy + 16}M{cx + 4} {neck}V{cy + 16}", "#a34d06", 1.8, 'stroke-opacity="0.55"'))
    body.append(beamed(cx - 1, cy + 2, 12, "#8a3f04"))
    body.append(line(f"M{cx - 16.5} {cy + 1}A16.5 16.5 0 0 1 {cx - 6} {cy - 15.4}", "#ffffff", 3.6, 'stroke-opacity="0.85"'))
    body.append(rect(cx - 13, neck - 1, 26, 16, 4, "url(#base)"))
    body.append(line(f"M{cx - 11} {neck + 4.5}L{cx + 11} {neck + 3}M{cx - 11} {neck + 10}L{cx + 11} {neck + 8.5}", INK, 1.8, 'stroke-opacity="0.55"'))
    body.append(path(f"M{cx - 8} {neck + 15}h16a8 7 0 0 1 -16 0z", "#34577f"))
    write("tip", "Tip of the day", 96, 96, defs, body)


if __name__ == "__main__":
    OUT.mkdir(parents=True, exist_ok=True)
    draw_player()
    draw_about()
    draw_tip()
