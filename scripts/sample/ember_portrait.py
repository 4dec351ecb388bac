"""Ember's portraits: head and shoulders facing right, in the character's own
palette. The select screen shows the small one (sprite 9000,0) in its cell
and the large one (9000,1) beside the grid.

Shapes are given in head units (the head's radius is 7, as on the sprites)
around the centre of the head, and scaled to the picture."""

from pixelart import Canvas, Capsule, Ellipse, Material, Polygon
from ember_figure import HAIR_OUTLINE
from ember_palettes import EYE_WHITE, HAIR, IRIS, MOUTH, OUTLINE, SKIN, VEST, WRAPS

# The sizes the engine's select screens are laid out for, in 320x240 pixels.
SMALL_SIZE = (25, 25)
LARGE_SIZE = (120, 140)

# The flat colours of the eyes and mouth.
_WHITE = Material(EYE_WHITE, 1)
_DARK = Material(IRIS, 1)
_LIPS = Material(MOUTH, 1)


def _inside(c, rx, ry):
    return lambda x, y: ((x - c[0]) / rx) ** 2 + ((y - c[1]) / ry) ** 2 <= 1.0


def draw(size, centre, scale):
    """The portrait's palette indices, row after row, `size` pixels with the head's
    centre at `centre` and `scale` pixels to a head unit."""
    width, height = size
    canvas = Canvas(width, height, OUTLINE)

    def at(f, d):
        return (centre[0] + f * scale, centre[1] + d * scale)

    def polygon(points, middle, reach):
        return Polygon([at(*p) for p in points], at(*middle), reach * scale)

    layer = canvas.begin_layer()
    for side in (-1, 1):
        canvas.fill(Capsule(at(7.0 * side, 12.5), at(13.0 * side, 30.0), 3.4 * scale), SKIN, layer, 1 if side < 0 else 0)
    layer = canvas.begin_layer()
    canvas.fill(polygon([(-8.5, 40), (-8.0, 13.0), (-3.5, 9.5), (3.5, 9.5), (8.0, 13.0), (8.5, 40)], (1.0, 11.0), 14.0),
                VEST, layer)
    canvas.fill(Capsule(at(0.5, 5.0), at(0.5, 10.0), 2.7 * scale), SKIN, layer, 1)
    canvas.fill(polygon([(-2.6, 9.3), (3.4, 9.3), (0.4, 14.5)], (0.4, 8.0), 8.0), SKIN, layer)
    layer = canvas.begin_layer()
    canvas.fill(Ellipse(at(-4.8, 0.9), 1.5 * scale, 2.0 * scale), SKIN, layer, 1)
    canvas.fill(Ellipse(at(0.6, 0.0), 6.3 * scale, 7.2 * scale), SKIN, layer)
    canvas.fill(Ellipse(at(2.0, 4.4), 3.8 * scale, 2.9 * scale), SKIN, layer)
    canvas.fill(polygon(HAIR_OUTLINE, (-1.0, -4.0), 12.0), HAIR, layer)
    band = (at(-7.2, -3.6), at(7.4, -3.6))
    canvas.fill(Capsule(band[0], band[1], 1.2 * scale), WRAPS, layer)
    canvas.fill(Capsule(band[0], at(-14.0, -0.5), 1.0 * scale, 0.6 * scale), WRAPS, layer, 1)
    canvas.fill(Capsule(band[0], at(-12.5, 3.5), 0.9 * scale, 0.5 * scale), WRAPS, layer, 1)
    if scale >= 2.0:
        for eye, iris, rx in (((1.0, 0.4), (1.6, 0.4), 1.5), ((4.9, 0.3), (5.3, 0.3), 1.0)):
            layer = canvas.begin_layer()
            canvas.fill(Ellipse(at(*eye), rx * scale, 0.8 * scale), _WHITE, layer, flat=0)
            canvas.fill(Ellipse(at(*iris), 0.55 * rx * scale, 0.8 * scale, keep=_inside(at(*eye), rx * scale, 0.8 * scale)),
                        _DARK, layer, flat=0)
        layer = canvas.begin_layer()
        canvas.fill(polygon([(-1.0, -1.9), (2.8, -1.3), (2.8, -0.7), (-1.0, -1.2)], (1.0, -1.0), 3.0), _DARK, layer, flat=0)
        canvas.fill(polygon([(4.0, -1.2), (6.4, -1.8), (6.4, -1.2), (4.0, -0.6)], (5.0, -1.0), 3.0), _DARK, layer, flat=0)
        canvas.fill(polygon([(5.9, 0.9), (7.0, 2.8), (5.8, 2.9)], (6.2, 2.0), 2.0), SKIN, layer, flat=2)
        canvas.fill(Capsule(at(3.2, 4.5), at(5.8, 4.2), 0.35 * scale), _LIPS, layer, flat=0)
    canvas.finish_layers()
    if scale < 2.0:
        for f, d, colour in ((1.2, -0.3, IRIS), (1.2, 0.7, IRIS), (0.2, 0.7, EYE_WHITE), (4.9, -0.3, IRIS),
                             (4.9, 0.7, IRIS), (0.0, -1.6, OUTLINE), (1.0, -1.4, OUTLINE), (2.0, -1.2, OUTLINE),
                             (4.6, -1.4, OUTLINE), (5.6, -1.7, OUTLINE), (4.0, 4.4, MOUTH)):
            canvas.put(*at(f, d), colour)
    canvas.outline_silhouette()
    return canvas.index


def small():
    return draw(SMALL_SIZE, (11.5, 13.0), 1.15)


def large():
    return draw(LARGE_SIZE, (58.0, 62.0), 4.3)
