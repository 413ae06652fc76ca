"""What is wrong with a part: scratches, pores and cracks, as small changes of brightness on its surface.

A defect is asked point by point: `change(x, y)` gives a factor and an addend for the brightness there. Only
points inside `box` (left, top, right, bottom) need asking.
"""

import math


class Line:
    """A thin polyline whose strength varies on its way. `flank` is the brightness of the ridge beside it."""

    def __init__(self, points, widths, strengths, dark, flank=0.0, flank_side=(0.0, 0.0)):
        self.points, self.widths, self.strengths = points, widths, strengths
        self.dark, self.flank, self.flank_side = dark, flank, flank_side
        reach = 4.0 * max(widths)
        xs, ys = [p[0] for p in points], [p[1] for p in points]
        self.box = (min(xs) - reach, min(ys) - reach, max(xs) + reach, max(ys) + reach)

    def _nearness(self, x, y, soft):
        """How much of the point the line covers, times its strength there."""
        best = 0.0
        for i in range(len(self.points) - 1):
            (ax, ay), (bx, by) = self.points[i], self.points[i + 1]
            dx, dy = bx - ax, by - ay
            t = ((x - ax) * dx + (y - ay) * dy) / (dx * dx + dy * dy)
            t = min(1.0, max(0.0, t))
            distance = math.hypot(x - ax - t * dx, y - ay - t * dy)
            width = self.widths[i] + (self.widths[i + 1] - self.widths[i]) * t
            if distance < width + 2.0 * soft:
                strength = self.strengths[i] + (self.strengths[i + 1] - self.strengths[i]) * t
                best = max(best, strength * math.exp(-(distance / (0.6 * width + 0.6 * soft)) ** 2)
                           * width / (width + 0.25 * soft))
        return best

    def change(self, x, y, soft):
        factor = 1.0 - self.dark * self._nearness(x, y, soft)
        side_x, side_y = self.flank_side
        return factor, self.flank * self._nearness(x - side_x, y - side_y, soft) if self.flank else 0.0


class Pit:
    """An open pore: an uneven dark hole with a lit rim away from the lamp."""

    def __init__(self, random, x, y, radius, light_angle):
        self.x, self.y, self.radius, self.light_angle = x, y, radius, light_angle
        self.waves = [(n, random.uniform(0.0, 6.3), random.uniform(0.02, 0.13)) for n in (2, 3, 5)]
        reach = 1.9 * radius
        self.box = (x - reach, y - reach, x + reach, y + reach)

    def change(self, x, y, soft):
        dx, dy = x - self.x, y - self.y
        angle = math.atan2(dy, dx)
        radius = self.radius * (1.0 + sum(a * math.sin(n * angle + phase) for n, phase, a in self.waves))
        r = math.hypot(dx, dy)
        inside = 1.0 / (1.0 + math.exp(min(60.0, (r - radius) / (0.3 * soft + 0.08 * radius))))
        away = -math.cos(angle - self.light_angle)
        rim = math.exp(-((r - 1.2 * radius) / (0.22 * radius + 0.3 * soft)) ** 2)
        return 1.0 - inside * (0.72 - 0.18 * away), 0.13 * rim * max(0.0, away)


def _walk(random, x, y, angle, length, steps, bend, jag):
    """A way of `steps` pieces that turns a little at each (`bend`) and jumps aside (`jag`)."""
    points = [(x, y)]
    for _ in range(steps):
        angle += random.gauss(0.0, bend)
        step_angle = angle + random.gauss(0.0, jag)
        x += length / steps * math.cos(step_angle)
        y += length / steps * math.sin(step_angle)
        points.append((x, y))
    return points


def scratches(random, part):
    """One long scratch, sometimes a second one nearly along it."""
    x, y, angle = part.place(random)
    angle += random.uniform(-0.7, 0.7)
    lines = []
    for _ in range(random.choice((1, 2, 2, 3))):
        length, steps = random.uniform(0.22, 0.42), 9
        start = x - 0.5 * length * math.cos(angle), y - 0.5 * length * math.sin(angle)
        points = _walk(random, *start, angle, length, steps, 0.035, 0.0)
        width = random.uniform(0.0026, 0.0042)
        widths = [width * math.sin(math.pi * (0.08 + 0.84 * i / steps)) for i in range(steps + 1)]
        strengths = [random.uniform(0.45, 1.0) for _ in range(steps + 1)]
        aside = 1.3 * width
        lines.append(Line(points, widths, strengths, 0.3, 0.34, (-aside * math.sin(angle), aside * math.cos(angle))))
        x, y = x + random.uniform(-0.05, 0.05), y + random.uniform(-0.05, 0.05)
        angle += random.uniform(-0.16, 0.16)
    return lines


def pores(random, part):
    """A cluster of pores of different sizes."""
    x, y, _ = part.place(random)
    pits = [Pit(random, x, y, random.uniform(0.014, 0.022), part.light.angle)]
    for _ in range(random.randint(3, 8)):
        near = x + random.gauss(0.0, 0.055), y + random.gauss(0.0, 0.055)
        pits.append(Pit(random, *near, random.uniform(0.004, 0.011), part.light.angle))
    return pits


def cracks(random, part):
    """A jagged crack from the edge inwards that thins out, with a side branch."""
    x, y, angle = part.edge(random)
    steps = 16
    angle += random.uniform(-0.5, 0.5)
    trunk = _walk(random, x, y, angle, random.uniform(0.28, 0.46), steps, 0.16, 0.45)
    width = random.uniform(0.0042, 0.006)

    def line(points, first_width):
        count = len(points)
        widths = [first_width * (1.0 - 0.8 * i / count) for i in range(count)]
        return Line(points, widths, [random.uniform(0.8, 1.0) for _ in points], 0.8, 0.06, (0.004, 0.004))

    at = random.randint(5, 9)
    side = angle + random.choice((-1, 1)) * random.uniform(0.5, 0.9)
    branch = _walk(random, *trunk[at], side, random.uniform(0.08, 0.16), 7, 0.2, 0.5)
    return [line(trunk, width), line(branch, 0.55 * width)]
