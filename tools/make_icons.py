#!/usr/bin/env python3
"""Draws the program's icons and its cursor: res/stich.ico, res/set.ico, res/move.cur.

Every shape is a signed distance (negative inside, in units of the picture's side), so that each size is drawn
sharp for itself instead of being scaled from another one.
"""

import math
import pathlib
import struct
import zlib

ICON_SIZES = (16, 20, 24, 32, 40, 48, 64, 256)
CURSOR_SIZES = (32, 40, 48, 56, 64)

PAPER = (255, 255, 255)
EDGE = (84, 98, 117)
BACK_PAPER = (222, 228, 236)
SKY = (126, 190, 235)
HILL = (76, 153, 92)
SUN = (255, 209, 84)
LABEL = (226, 88, 54)
LINE = (160, 172, 188)
BLACK = (0, 0, 0)


# Shapes: functions from a point to a distance.

def box(left, top, right, bottom, radius=0.0, turned=0.0):
    """A rectangle with round corners, turned around its middle by so many degrees."""
    cx, cy = (left + right) / 2, (top + bottom) / 2
    hx, hy = (right - left) / 2 - radius, (bottom - top) / 2 - radius
    cos, sin = math.cos(math.radians(turned)), math.sin(math.radians(turned))

    def distance(x, y):
        px, py = x - cx, y - cy
        qx = abs(px * cos + py * sin) - hx
        qy = abs(py * cos - px * sin) - hy
        return math.hypot(max(qx, 0), max(qy, 0)) + min(max(qx, qy), 0) - radius
    return distance


def disc(cx, cy, radius):
    return lambda x, y: math.hypot(x - cx, y - cy) - radius


def polygon(*points):
    def distance(x, y):
        nearest, inside = math.inf, False
        for (ax, ay), (bx, by) in zip(points, points[1:] + points[:1]):
            ex, ey = bx - ax, by - ay
            t = max(0, min(1, ((x - ax) * ex + (y - ay) * ey) / (ex * ex + ey * ey)))
            nearest = min(nearest, math.hypot(x - ax - t * ex, y - ay - t * ey))
            if (ay > y) != (by > y) and x < ax + (y - ay) * ex / ey:
                inside = not inside
        return -nearest if inside else nearest
    return distance


def both(a, b):
    return lambda x, y: max(a(x, y), b(x, y))


def grown(shape, by):
    return lambda x, y: shape(x, y) - by


# Pictures: lists of (shape, colour), from the back to the front.

def picture(left, top, right, bottom, size, detailed):
    """A small landscape on paper with an edge that is never thinner than a pixel."""
    rim = max(0.025, 1 / size)
    frame = box(left, top, right, bottom, radius=0.03)
    inner = box(left + 2 * rim, top + 2 * rim, right - 2 * rim, bottom - 2 * rim)
    width, height = right - left, bottom - top
    layers = [(frame, EDGE), (grown(frame, -rim), PAPER), (inner, SKY)]
    hill = polygon((left, bottom), (left + 0.36 * width, top + 0.45 * height), (left + 0.6 * width, top + 0.7 * height),
                   (left + 0.75 * width, top + 0.55 * height), (right, bottom))
    layers.append((both(inner, hill), HILL))
    if detailed:
        layers.append((both(inner, disc(left + 0.72 * width, top + 0.32 * height, 0.1 * width)), SUN))
    return layers


def label(cx, cy, side, size):
    """A tag: a square with a point to the left and a hole in it."""
    h = side / 2
    tag = polygon((cx - h * 1.5, cy), (cx - h * 0.6, cy - h), (cx + h * 1.2, cy - h), (cx + h * 1.2, cy + h),
                  (cx - h * 0.6, cy + h))
    layers = [(grown(tag, 1.2 / size), PAPER), (tag, LABEL)]
    if size >= 24:
        layers.append((disc(cx - h * 0.55, cy, h * 0.28), PAPER))
    return layers


def program_icon(size):
    snap = lambda value: round(value * size) / size   # edges on whole pixels stay sharp
    left, top, right, bottom = snap(0.04), snap(0.24), snap(0.84), snap(0.88)
    rim = max(0.025, 1 / size)
    layers = []
    steps = ((0.12, -0.15), (0.06, -0.075)) if size >= 32 else ((0.1, -0.13),)
    for dx, dy in steps:
        card = box(left + snap(dx), top + snap(dy), right + snap(dx), bottom + snap(dy), radius=0.03)
        layers += [(card, EDGE), (grown(card, -rim), BACK_PAPER)]
    layers += picture(left, top, right, bottom, size, size >= 20)
    return layers + label(snap(0.72), snap(0.8), 0.36, size)


def set_icon(size):
    snap = lambda value: round(value * size) / size
    left, top, right, bottom, fold = snap(0.12), snap(0.03), snap(0.88), snap(0.97), 0.22
    rim = max(0.025, 1 / size)
    page = polygon((left, top), (right - fold, top), (right, top + fold), (right, bottom), (left, bottom))
    corner = polygon((right - fold, top), (right, top + fold), (right - fold, top + fold))
    layers = [(page, EDGE), (grown(page, -rim), PAPER), (corner, LINE)]
    layers += picture(snap(0.22), snap(0.32), snap(0.74), snap(0.72), size, size >= 24)
    if size >= 32:
        layers.append((box(snap(0.22), snap(0.79), snap(0.5), snap(0.79) + max(0.035, 1 / size)), LINE))
    return layers + label(snap(0.68), snap(0.76), 0.34, size)


def move_cursor(size):
    """Four arrows out of one middle, black with a white rim; as large on a screen as the system's own."""
    side = 21 / 32
    reach, head = side / 2, side * 0.17
    shaft = (0.5 if size < 48 else 1.5) / size   # whole pixels on both sides of the hot spot's
    arm = reach - head
    tip = ((0, -reach), (head, -arm), (shaft, -arm), (shaft, -shaft))
    points = []
    for quarter in range(4):
        cos, sin = ((1, 0), (0, 1), (-1, 0), (0, -1))[quarter]
        points += [(x * cos - y * sin, x * sin + y * cos) for x, y in tip]
        x, y = -head, -arm   # the other half of the next arrow's head
        cos, sin = ((0, 1), (-1, 0), (0, -1), (1, 0))[quarter]
        points += [(px * cos - py * sin, px * sin + py * cos) for px, py in ((-shaft, -arm), (x, y))]
    middle = (size // 2 + 0.5) / size   # the middle of the pixel that is the hot spot
    arrows = polygon(*[(x + middle, y + middle) for x, y in points])
    return [(grown(arrows, max(1.0, size / 32) / size), PAPER), (arrows, BLACK)]


# From shapes to files.

def render(layers, size):
    """Rows from the top of (red, green, blue, alpha), not premultiplied."""
    rows = []
    for py in range(size):
        row = []
        for px in range(size):
            x, y = (px + 0.5) / size, (py + 0.5) / size
            red = green = blue = alpha = 0.0
            for shape, colour in layers:
                cover = min(1.0, max(0.0, 0.5 - shape(x, y) * size))
                red, green, blue = (old * (1 - cover) + new * cover for old, new in zip((red, green, blue), colour))
                alpha = alpha * (1 - cover) + cover
            straight = [round(value / alpha) if alpha > 0 else 0 for value in (red, green, blue)]
            row.append((*straight, round(255 * alpha)))
        rows.append(row)
    return rows


def png(rows):
    def chunk(kind, data):
        return struct.pack('>I', len(data)) + kind + data + struct.pack('>I', zlib.crc32(kind + data))
    size = len(rows)
    raw = b''.join(b'\0' + bytes(value for pixel in row for value in pixel) for row in rows)
    header = struct.pack('>IIBBBBB', size, size, 8, 6, 0, 0, 0)
    return b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', header) + chunk(b'IDAT', zlib.compress(raw, 9)) + chunk(b'IEND', b'')


def bitmap(rows):
    """A bitmap as icons hold it: twice as high, the second half a mask for systems without transparency."""
    size = len(rows)
    pixels = b''.join(bytes((blue, green, red, alpha)) for row in reversed(rows) for red, green, blue, alpha in row)
    mask = b''
    for row in reversed(rows):
        bits = ''.join('1' if pixel[3] < 128 else '0' for pixel in row).ljust((size + 31) // 32 * 32, '0')
        mask += int(bits, 2).to_bytes(len(bits) // 8, 'big')
    header = struct.pack('<IiiHHIIiiII', 40, size, 2 * size, 1, 32, 0, len(pixels) + len(mask), 0, 0, 0, 0)
    return header + pixels + mask


def container(kind, images):
    """An .ico (kind 1) or .cur (kind 2) of rendered pictures; a cursor's hot spot is its middle."""
    blobs = [png(rows) if len(rows) >= 256 else bitmap(rows) for rows in images]
    entries, offset = b'', 6 + 16 * len(images)
    for rows, blob in zip(images, blobs):
        size = len(rows)
        planes, depth = (size // 2, size // 2) if kind == 2 else (1, 32)
        entries += struct.pack('<BBBBHHII', size % 256, size % 256, 0, 0, planes, depth, len(blob), offset)
        offset += len(blob)
    return struct.pack('<HHH', 0, kind, len(images)) + entries + b''.join(blobs)


def main():
    res = pathlib.Path(__file__).resolve().parent.parent / 'res'
    for name, kind, sizes, draw in (('stich.ico', 1, ICON_SIZES, program_icon), ('set.ico', 1, ICON_SIZES, set_icon),
                                    ('move.cur', 2, CURSOR_SIZES, move_cursor)):
        (res / name).write_bytes(container(kind, [render(draw(size), size) for size in sizes]))


if __name__ == '__main__':
    main()
