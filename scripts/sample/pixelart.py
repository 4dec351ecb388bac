"""Indexed pixel art for the sample character: shaded shapes, outlines, and
the PNG and ACT files the sprite compiler reads.

Python 3 standard library only. Everything is integer-exact or uses the
same floating-point operations on every run, so the files come out byte for
byte the same each time they are made.
"""

import math
import struct
import zlib

# Light comes from above and in front of the figure (x forward, y down, z
# towards the viewer).
_LIGHT = (0.42, -0.62, 0.66)
_LIGHT_LENGTH = math.sqrt(sum(c * c for c in _LIGHT))
LIGHT = tuple(c / _LIGHT_LENGTH for c in _LIGHT)


class Material:
    """The palette entries of one surface, lightest first: four shades from
    `first` on, or fewer when `count` says so (1 for a flat colour)."""

    def __init__(self, first, count=4):
        self.shades = tuple(first + min(i, count - 1) for i in range(4))

    def shade(self, level):
        return self.shades[max(0, min(3, level))]


def light_level(nx, ny):
    """Shade level 0 (lit) to 2 (in shadow) of a surface with the 2-D normal
    (nx, ny), seen as the front of a rounded body."""
    nz = math.sqrt(max(0.0, 1.0 - nx * nx - ny * ny))
    lambert = nx * LIGHT[0] + ny * LIGHT[1] + nz * LIGHT[2]
    if lambert > 0.82:
        return 0
    if lambert > 0.38:
        return 1
    return 2


class Capsule:
    """A limb: a segment from a to b whose radius goes from ra to rb."""

    def __init__(self, a, b, ra, rb=None):
        self.a, self.b = a, b
        self.ra = ra
        self.rb = ra if rb is None else rb

    def bounds(self):
        r = max(self.ra, self.rb)
        return (min(self.a[0], self.b[0]) - r, min(self.a[1], self.b[1]) - r,
                max(self.a[0], self.b[0]) + r, max(self.a[1], self.b[1]) + r)

    def normal(self, x, y):
        """The 2-D normal at (x, y), or None outside the shape."""
        ax, ay = self.a
        dx, dy = self.b[0] - ax, self.b[1] - ay
        length2 = dx * dx + dy * dy
        t = 0.0 if length2 == 0 else max(0.0, min(1.0, ((x - ax) * dx + (y - ay) * dy) / length2))
        cx, cy = ax + t * dx, ay + t * dy
        r = self.ra + (self.rb - self.ra) * t
        ox, oy = x - cx, y - cy
        if ox * ox + oy * oy > r * r:
            return None
        return (ox / r, oy / r)


class Ellipse:
    """An ellipse around c with radii rx, ry; `keep(x, y)` may cut it."""

    def __init__(self, c, rx, ry, keep=None):
        self.c, self.rx, self.ry, self.keep = c, rx, ry, keep

    def bounds(self):
        return (self.c[0] - self.rx, self.c[1] - self.ry, self.c[0] + self.rx, self.c[1] + self.ry)

    def normal(self, x, y):
        nx, ny = (x - self.c[0]) / self.rx, (y - self.c[1]) / self.ry
        if nx * nx + ny * ny > 1.0 or (self.keep and not self.keep(x, y)):
            return None
        return (nx, ny)


class Polygon:
    """A filled polygon, shaded as a curved surface around `centre` whose
    reach is `radius`."""

    def __init__(self, points, centre, radius):
        self.points, self.centre, self.radius = points, centre, radius

    def bounds(self):
        xs = [p[0] for p in self.points]
        ys = [p[1] for p in self.points]
        return (min(xs), min(ys), max(xs), max(ys))

    def normal(self, x, y):
        inside = False
        points = self.points
        j = len(points) - 1
        for i in range(len(points)):
            xi, yi = points[i]
            xj, yj = points[j]
            if (yi > y) != (yj > y) and x < (xj - xi) * (y - yi) / (yj - yi) + xi:
                inside = not inside
            j = i
        if not inside:
            return None
        nx = (x - self.centre[0]) / self.radius
        ny = (y - self.centre[1]) / self.radius
        scale = math.sqrt(nx * nx + ny * ny)
        if scale > 0.95:
            nx, ny = nx * 0.95 / scale, ny * 0.95 / scale
        return (nx, ny)


class Canvas:
    """An indexed picture built from layers of shaded shapes.

    Each shape belongs to a layer (an arm, a leg, the body...). Layers are
    drawn back to front; where a layer covers an earlier one its edge is
    drawn in its darkest shade, and the whole figure gets a dark outline
    outside its silhouette, as hand-made sprites have."""

    def __init__(self, width, height, outline):
        self.width, self.height = width, height
        self.outline = outline
        self.index = [0] * (width * height)
        self.layer = [-1] * (width * height)
        self.edge = {}
        self.layers = 0

    def begin_layer(self):
        self.layers += 1
        return self.layers - 1

    def fill(self, shape, material, layer, darker=0, flat=None):
        left, top, right, bottom = shape.bounds()
        for y in range(max(0, int(math.floor(top))), min(self.height, int(math.ceil(bottom)) + 1)):
            for x in range(max(0, int(math.floor(left))), min(self.width, int(math.ceil(right)) + 1)):
                n = shape.normal(x + 0.5, y + 0.5)
                if n is None:
                    continue
                level = flat if flat is not None else light_level(n[0], n[1])
                at = y * self.width + x
                self.index[at] = material.shade(level + darker)
                self.layer[at] = layer
                self.edge[at] = material.shade(3)

    def put(self, x, y, colour):
        """A single detail pixel (an eye, a mouth) over what is there."""
        x, y = int(math.floor(x)), int(math.floor(y))
        if 0 <= x < self.width and 0 <= y < self.height:
            self.index[y * self.width + x] = colour

    def finish_layers(self):
        """Draws the edges where a layer lies over an earlier one."""
        w = self.width
        result = list(self.index)
        for at, layer in enumerate(self.layer):
            if layer < 0:
                continue
            x, y = at % w, at // w
            for nx, ny in ((x - 1, y), (x + 1, y), (x, y - 1), (x, y + 1)):
                if 0 <= nx < w and 0 <= ny < self.height:
                    other = self.layer[ny * w + nx]
                    if 0 <= other < layer:
                        result[at] = self.edge[at]
                        break
        self.index = result

    def outline_silhouette(self):
        """Puts the outline colour on every empty pixel beside the figure."""
        w = self.width
        result = list(self.index)
        for at, colour in enumerate(self.index):
            if colour != 0:
                continue
            x, y = at % w, at // w
            for nx, ny in ((x - 1, y), (x + 1, y), (x, y - 1), (x, y + 1)):
                if 0 <= nx < w and 0 <= ny < self.height and self.index[ny * w + nx] not in (0, self.outline):
                    result[at] = self.outline
                    break
        self.index = result

    def crop(self, margin=0):
        """The smallest rectangle holding every drawn pixel: (left, top, picture)."""
        w = self.width
        xs = [at % w for at, c in enumerate(self.index) if c]
        ys = [at // w for at, c in enumerate(self.index) if c]
        left, top = max(0, min(xs) - margin), max(0, min(ys) - margin)
        right, bottom = min(w - 1, max(xs) + margin), min(self.height - 1, max(ys) + margin)
        rows = [self.index[y * w + left:y * w + right + 1] for y in range(top, bottom + 1)]
        return left, top, Picture(right - left + 1, bottom - top + 1, rows)


class Picture:
    """Rows of palette indices."""

    def __init__(self, width, height, rows):
        self.width, self.height, self.rows = width, height, rows


def _chunk(kind, data):
    body = kind + data
    return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body) & 0xFFFFFFFF)


def png_bytes(picture, colours):
    """An 8-bit indexed PNG with the 256 colours (r, g, b) and entry 0 transparent."""
    header = struct.pack(">IIBBBBB", picture.width, picture.height, 8, 3, 0, 0, 0)
    palette = b"".join(struct.pack("BBB", *c) for c in colours)
    raw = b"".join(b"\x00" + bytes(row) for row in picture.rows)
    return (b"\x89PNG\r\n\x1a\n" + _chunk(b"IHDR", header) + _chunk(b"PLTE", palette)
            + _chunk(b"tRNS", b"\x00") + _chunk(b"IDAT", zlib.compress(raw, 9)) + _chunk(b"IEND", b""))


def act_bytes(colours):
    """An ACT palette as the engine reads it: 256 triples, entry 0 last."""
    return b"".join(struct.pack("BBB", *c) for c in reversed(colours))
