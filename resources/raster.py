"""A small supersampling rasteriser.

A shape has distance(x, y), which is negative inside it, and box(), a rectangle
that contains it. The distance tells whether a pixel lies wholly inside or
outside; only a pixel on an edge is sampled, 8 by 8 times.

Coordinates are calculated with + - * / and sqrt alone. IEEE 754 defines their
results to the last bit, so every machine draws the same picture.
"""

from math import sqrt

SAMPLES = 8
EDGE = 0.75  # half a pixel's diagonal, and a little


class RoundedRect:
    def __init__(self, left, top, right, bottom, radius=0.0):
        self.edges = (left, top, right, bottom)
        self.center_x = (left + right) / 2
        self.center_y = (top + bottom) / 2
        self.radius = min(radius, (right - left) / 2, (bottom - top) / 2)
        self.half_width = (right - left) / 2 - self.radius
        self.half_height = (bottom - top) / 2 - self.radius

    def box(self):
        return self.edges

    def distance(self, x, y):
        dx = abs(x - self.center_x) - self.half_width
        dy = abs(y - self.center_y) - self.half_height
        if dx > 0 and dy > 0:
            return sqrt(dx * dx + dy * dy) - self.radius
        return max(dx, dy) - self.radius


def circle(x, y, radius):
    return RoundedRect(x - radius, y - radius, x + radius, y + radius, radius)


class Line:
    """A stroke with round ends."""

    def __init__(self, x0, y0, x1, y1, width):
        self.start = (x0, y0)
        self.along = (x1 - x0, y1 - y0)
        self.square = self.along[0] * self.along[0] + self.along[1] * self.along[1]
        self.radius = width / 2

    def box(self):
        (x, y), (dx, dy), r = self.start, self.along, self.radius
        return (min(x, x + dx) - r, min(y, y + dy) - r,
                max(x, x + dx) + r, max(y, y + dy) + r)

    def distance(self, x, y):
        px, py = x - self.start[0], y - self.start[1]
        t = 0.0
        if self.square > 0:
            t = (px * self.along[0] + py * self.along[1]) / self.square
            t = min(1.0, max(0.0, t))
        dx, dy = px - t * self.along[0], py - t * self.along[1]
        return sqrt(dx * dx + dy * dy) - self.radius


class Polygon:
    """Filled by the even-odd rule."""

    def __init__(self, points):
        self.sides = [Line(*a, *b, 0) for a, b in zip(points, points[1:] + points[:1])]
        xs, ys = [p[0] for p in points], [p[1] for p in points]
        self.edges = (min(xs), min(ys), max(xs), max(ys))

    def box(self):
        return self.edges

    def distance(self, x, y):
        inside = False
        for side in self.sides:
            (x0, y0), (dx, dy) = side.start, side.along
            if (y0 > y) != (y0 + dy > y) and x < x0 + (y - y0) * dx / dy:
                inside = not inside
        nearest = min(side.distance(x, y) for side in self.sides)
        return -nearest if inside else nearest


class Grown:
    """A shape made larger by `by` all around; its corners become round."""

    def __init__(self, shape, by):
        self.shape, self.by = shape, by

    def box(self):
        left, top, right, bottom = self.shape.box()
        return (left - self.by, top - self.by, right + self.by, bottom + self.by)

    def distance(self, x, y):
        return self.shape.distance(x, y) - self.by


class Both:
    """The intersection of two shapes."""

    def __init__(self, first, second):
        self.first, self.second = first, second

    def box(self):
        a, b = self.first.box(), self.second.box()
        return (max(a[0], b[0]), max(a[1], b[1]), min(a[2], b[2]), min(a[3], b[3]))

    def distance(self, x, y):
        return max(self.first.distance(x, y), self.second.distance(x, y))


class Without:
    """A shape with another cut out of it."""

    def __init__(self, shape, hole):
        self.shape, self.hole = shape, hole

    def box(self):
        return self.shape.box()

    def distance(self, x, y):
        return max(self.shape.distance(x, y), -self.hole.distance(x, y))


def color(text):
    """"#2F6FDE" as three numbers."""
    return tuple(int(text[i:i + 2], 16) for i in (1, 3, 5))


def mix(a, b, t):
    return tuple(p + (q - p) * t for p, q in zip(a, b))


def down(top, bottom, first, last):
    """A vertical gradient from `first` at `top` to `last` at `bottom`."""
    def paint(_x, y):
        return mix(first, last, min(1.0, max(0.0, (y - top) / (bottom - top))))
    return paint


class Canvas:
    """Pixels as red, green, blue, alpha. The colours are multiplied by alpha."""

    def __init__(self, width, height):
        self.width, self.height = width, height
        self.pixels = [(0.0, 0.0, 0.0, 0.0)] * (width * height)

    def fill(self, shape, paint, opacity=1.0):
        self._cover(shape, 0, lambda x, y: self._coverage(shape, x, y), paint, opacity)

    def shade(self, shape, paint, opacity, blur):
        """Like fill, with an edge that fades over twice `blur` pixels."""
        def coverage(x, y):
            t = (blur - shape.distance(x + 0.5, y + 0.5)) / (2 * blur)
            t = min(1.0, max(0.0, t))
            return t * t * (3 - 2 * t)
        self._cover(shape, blur, coverage, paint, opacity)

    def rgba(self, x, y):
        """One pixel as four integers. The colours are not multiplied by alpha."""
        red, green, blue, alpha = self.pixels[y * self.width + x]
        if alpha < 0.002:
            return (0, 0, 0, 0)
        return tuple(min(255, int(part + 0.5)) for part in
                     (red / alpha, green / alpha, blue / alpha, alpha * 255))

    @staticmethod
    def _coverage(shape, x, y):
        distance = shape.distance(x + 0.5, y + 0.5)
        if distance <= -EDGE:
            return 1.0
        if distance >= EDGE:
            return 0.0
        hits = 0
        for row in range(SAMPLES):
            for column in range(SAMPLES):
                if shape.distance(x + (column + 0.5) / SAMPLES, y + (row + 0.5) / SAMPLES) < 0:
                    hits += 1
        return hits / (SAMPLES * SAMPLES)

    def _cover(self, shape, margin, coverage, paint, opacity):
        left, top, right, bottom = shape.box()
        for y in range(max(0, int(top - margin)), min(self.height, int(bottom + margin) + 1)):
            for x in range(max(0, int(left - margin)), min(self.width, int(right + margin) + 1)):
                alpha = coverage(x, y) * opacity
                if alpha <= 0:
                    continue
                source = paint(x + 0.5, y + 0.5) if callable(paint) else paint
                at = y * self.width + x
                below, keep = self.pixels[at], 1 - alpha
                self.pixels[at] = (source[0] * alpha + below[0] * keep,
                                   source[1] * alpha + below[1] * keep,
                                   source[2] * alpha + below[2] * keep,
                                   alpha + below[3] * keep)
