"""The parts that an inspection camera looks at, as brightness planes: turned steel washers and glazed tiles.

A scene is rendered into two planes of floats, rows from the top: how bright a point is (0 black, 1 white) and
how much of it belongs to the part (1) or to what it lies on (0). Lengths are given in the smaller side of the
picture, so that every size shows the same part.
"""

import math


def smooth(low, high, value):
    """0 below `low`, 1 above `high`, a soft step between."""
    t = min(1.0, max(0.0, (value - low) / (high - low)))
    return t * t * (3.0 - 2.0 * t)


class Noise:
    """Smooth random values over the plane, from -1 to 1; `cell` is the distance of independent values."""

    SIZE = 64

    def __init__(self, random, cell_x, cell_y=None):
        self.cell_x = cell_x
        self.cell_y = cell_y or cell_x
        self.values = [[random.uniform(-1.0, 1.0) for _ in range(self.SIZE)] for _ in range(self.SIZE)]

    def at(self, x, y):
        x /= self.cell_x
        y /= self.cell_y
        column, row = math.floor(x), math.floor(y)
        s, t = x - column, y - row
        s, t = s * s * (3.0 - 2.0 * s), t * t * (3.0 - 2.0 * t)
        left, right = column % self.SIZE, (column + 1) % self.SIZE
        upper, lower = self.values[row % self.SIZE], self.values[(row + 1) % self.SIZE]
        above = upper[left] + (upper[right] - upper[left]) * s
        below = lower[left] + (lower[right] - lower[left]) * s
        return above + (below - above) * t


class Light:
    """One lamp beside the camera: brighter on its side, darker towards the corners."""

    def __init__(self, random):
        self.angle = random.uniform(-2.6, -0.6)  # from above, rather left or right
        self.slope = random.uniform(0.12, 0.26)
        self.exposure = random.uniform(0.92, 1.08)

    def at(self, x, y):
        side = x * math.cos(self.angle) + y * math.sin(self.angle)
        return self.exposure * (1.0 + self.slope * side - 0.22 * (x * x + y * y))


class Table:
    """A worn dark mat."""

    def __init__(self, random):
        self.level = random.uniform(0.13, 0.2)
        self.patches = Noise(random, 0.31)
        self.grain = Noise(random, 0.012)

    def at(self, x, y):
        return self.level * (1.0 + 0.18 * self.patches.at(x, y) + 0.16 * self.grain.at(x, y))


class Washer:
    """A steel ring with turning marks; its chamfers catch the light on one side."""

    def __init__(self, random, light):
        self.x, self.y = random.uniform(-0.05, 0.05), random.uniform(-0.04, 0.04)
        self.outer = random.uniform(0.38, 0.43)
        self.inner = self.outer * random.uniform(0.42, 0.5)
        self.light = light
        self.level = random.uniform(0.5, 0.58)
        self.marks = Noise(random, 0.0042, 9.0)
        self.wide_marks = Noise(random, 0.021, 2.2)
        self.stain = Noise(random, 0.19)
        self.glint = random.uniform(-0.4, 0.4)
        self.shadow_x, self.shadow_y = -0.03 * math.cos(light.angle), -0.03 * math.sin(light.angle)

    def cover(self, x, y, edge):
        r = math.hypot(x - self.x, y - self.y)
        return (1.0 - smooth(self.outer - edge, self.outer + edge, r)) * smooth(self.inner - edge, self.inner + edge, r)

    def shadow(self, x, y):
        return self.cover(x - self.shadow_x, y - self.shadow_y, 0.025)

    def at(self, x, y):
        dx, dy = x - self.x, y - self.y
        r, angle = math.hypot(dx, dy), math.atan2(dy, dx)
        fan = math.cos(angle - self.light.angle - self.glint)
        value = self.level * (0.78 + 0.5 * fan ** 6 + 0.1 * fan)
        way = abs(angle)  # the marks close around the ring
        value *= 1.0 + 0.1 * self.marks.at(r, way) + 0.06 * self.wide_marks.at(r, way) + 0.06 * self.stain.at(x, y)
        facing = math.cos(angle - self.light.angle)
        rim = smooth(self.outer - 0.022, self.outer - 0.016, r) - smooth(self.inner + 0.022, self.inner + 0.016, r)
        return value * (1.0 + 0.45 * rim * facing - 0.12 * abs(rim))

    def place(self, random):
        """A point well on the surface, and the direction around the ring there."""
        angle = random.uniform(0.0, 2.0 * math.pi)
        r = self.inner + (self.outer - self.inner) * random.uniform(0.3, 0.75)
        return self.x + r * math.cos(angle), self.y + r * math.sin(angle), angle + math.pi / 2

    def edge(self, random):
        """A point on the outer edge, and the direction inwards."""
        angle = random.uniform(0.0, 2.0 * math.pi)
        return self.x + self.outer * math.cos(angle), self.y + self.outer * math.sin(angle), angle + math.pi


class Tile:
    """A glazed tile, laid down a little askew, with a soft reflection of the lamp."""

    def __init__(self, random, light):
        self.x, self.y = random.uniform(-0.04, 0.04), random.uniform(-0.03, 0.03)
        self.half = random.uniform(0.39, 0.43)
        self.turn = random.uniform(-0.09, 0.09)
        self.light = light
        self.level = random.uniform(0.56, 0.66)
        self.cloud = Noise(random, 0.16)
        self.fleck = Noise(random, 0.035)
        self.speck = Noise(random, 0.009)
        self.ripple = Noise(random, 0.07)
        self.glow_x = 0.2 * math.cos(light.angle) + random.uniform(-0.06, 0.06)
        self.glow_y = 0.2 * math.sin(light.angle) + random.uniform(-0.06, 0.06)
        self.shadow_x, self.shadow_y = -0.026 * math.cos(light.angle), -0.026 * math.sin(light.angle)

    def _own(self, x, y):
        dx, dy = x - self.x, y - self.y
        c, s = math.cos(self.turn), math.sin(self.turn)
        return dx * c + dy * s, dy * c - dx * s

    def _depth(self, u, v):
        """The way to the rounded outline, positive inside."""
        corner = 0.035
        du, dv = abs(u) - self.half + corner, abs(v) - self.half + corner
        return corner - math.hypot(max(du, 0.0), max(dv, 0.0)) - min(max(du, dv), 0.0)

    def cover(self, x, y, edge):
        return smooth(-edge, edge, self._depth(*self._own(x, y)))

    def shadow(self, x, y):
        return self.cover(x - self.shadow_x, y - self.shadow_y, 0.022)

    def at(self, x, y):
        u, v = self._own(x, y)
        value = self.level * (1.0 + 0.07 * self.cloud.at(u, v) + 0.035 * self.fleck.at(u, v))
        value *= 1.0 - 0.5 * max(0.0, self.speck.at(u, v) - 0.72)
        wave = 0.03 * self.ripple.at(u, v)
        distance = math.hypot(x - self.glow_x + wave, y - self.glow_y + wave)
        value += 0.2 * math.exp(-(distance / 0.13) ** 2)
        slope = 1.0 - smooth(0.0, 0.03, self._depth(u, v))
        across = u if abs(u) > abs(v) else v
        facing = math.cos(self.light.angle - self.turn) if across is u else math.sin(self.light.angle - self.turn)
        return value * (1.0 + 0.35 * slope * math.copysign(facing, facing * across))

    def place(self, random):
        reach = self.half * 0.7
        return (self.x + random.uniform(-reach, reach), self.y + random.uniform(-reach, reach),
                random.uniform(0.0, math.pi))

    def edge(self, random):
        along, side = random.uniform(-0.6, 0.6) * self.half, random.randrange(4) * math.pi / 2
        angle = side + self.turn
        return (self.x + self.half * math.cos(angle) - along * math.sin(angle),
                self.y + self.half * math.sin(angle) + along * math.cos(angle), angle + math.pi)
