"""A second, tiny set: cut-out shapes on a light table, a dozen bitmaps in three classes."""

import math
from random import Random

from picture_files import write_colour_bitmap
from surfaces import Noise, smooth

SIZE = 96
COLOURS = [(196, 62, 48), (46, 104, 176), (58, 142, 84), (214, 158, 44)]


def _circle(u, v):
    return 0.32 - math.hypot(u, v)


def _square(u, v):
    return 0.28 - max(abs(u), abs(v))


def _triangle(u, v):
    return 0.17 - max(v, -0.5 * v + 0.866 * u, -0.5 * v - 0.866 * u)


SHAPES = {"Dreieck": _triangle, "Kreis": _circle, "Quadrat": _square}   # depth inside the outline


def _pixel(inside, shade, light, colour):
    ground = (226, 224, 216)
    return tuple(min(255, max(0, round(light + (1.0 - 0.3 * shade) * (g + (c - g) * inside))))
                 for g, c in zip(ground, colour))


def _picture(random, depth, colour):
    turn, scale = random.uniform(-0.5, 0.5), random.uniform(0.85, 1.15)
    x0, y0 = random.uniform(-0.08, 0.08), random.uniform(-0.08, 0.08)
    paper = Noise(random, 0.05)
    c, s = math.cos(turn) / scale, math.sin(turn) / scale
    rows = []
    for row in range(SIZE):
        line = []
        for column in range(SIZE):
            x, y = (column + 0.5) / SIZE - 0.5 - x0, (row + 0.5) / SIZE - 0.5 - y0
            inside = smooth(-0.008, 0.008, depth(x * c + y * s, y * c - x * s))
            under_x, under_y = x - 0.025, y - 0.03
            shade = smooth(-0.03, 0.03, depth(under_x * c + under_y * s, under_y * c - under_x * s)) * (1.0 - inside)
            light = -14.0 * (x + y) + 4.0 * paper.at(x, y) + random.gauss(0.0, 1.5)
            line.append(_pixel(inside, shade, light, colour))
        rows.append(line)
    return rows


def make(folder):
    for name, depth in SHAPES.items():
        (folder / name).mkdir(parents=True, exist_ok=True)
        for number, colour in enumerate(COLOURS, start=1):
            rows = _picture(Random(f"{name} {number}"), depth, colour)
            write_colour_bitmap(folder / name / f"{name} {number}.bmp", rows)
