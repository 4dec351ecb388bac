#!/usr/bin/env python3
"""Writes the sources of the sample character Ember into a folder:

  ember1.act, ember2.act      the two colour schemes (the DEF's pal1 and pal2)
  work/sprites/G-I.png        every sprite, 8-bit indexed, entry 0 transparent
  work/ember-sff.pfe          the sprite list that `pugilforge-cli sff import` reads
  work/sounds/G-N.wav         every sound, 16-bit mono PCM
  work/ember-snd.txt          the same sounds in the engine's sound-compiler form,
                              paths relative to the folder

Usage: make_ember.py FOLDER. build_ember.sh runs it and then compiles the
sprite and sound files with the program's own writers."""

import os
import sys

import ember_portrait
import ember_sounds
from ember_figure import draw
from ember_palettes import PAL1, PAL2
from ember_poses import HELD_GROUPS, SPRITES
from pixelart import Picture, act_bytes, png_bytes


def _write(folder, name, data):
    path = os.path.join(folder, name)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as out:
        out.write(data)


def _portrait(rows, size):
    width, height = size
    return Picture(width, height, [rows[y * width:(y + 1) * width] for y in range(height)])


def sprites(folder):
    """Writes the pictures and returns the sprite list: (group, index, file, x, y)."""
    listing = []
    held = []
    pictures = {}
    for group, index, pose in SPRITES:
        drawing = draw(pose)
        name = "sprites/%d-%d.png" % (group, index)
        # A picture drawn twice should be one file named twice, which the
        # sprite file then stores once and links.
        key = (drawing.picture.width, tuple(map(bytes, drawing.picture.rows)))
        if key in pictures:
            raise ValueError("%s draws the same picture as %s" % (name, pictures[key]))
        pictures[key] = name
        _write(folder, "work/" + name, png_bytes(drawing.picture, PAL1))
        listing.append((group, index, name) + drawing.axis)
        if group in HELD_GROUPS:
            held.append((group + 1, index, name) + drawing.at("pelvis"))
            held.append((group + 2, index, name) + drawing.at("head"))
    for index, (rows, size) in enumerate(((ember_portrait.small(), ember_portrait.SMALL_SIZE),
                                          (ember_portrait.large(), ember_portrait.LARGE_SIZE))):
        name = "sprites/9000-%d.png" % index
        _write(folder, "work/" + name, png_bytes(_portrait(rows, size), PAL1))
        listing.append((9000, index, name, 0, 0))
    return listing + sorted(held)


def sprite_list(listing):
    lines = [";0 always import the palette, 1 import only if all colors doesn't match to any existing palette",
             "noDuplicatePal = 0"]
    for number, name in ((1, "../ember1.act"), (2, "../ember2.act")):
        lines += ["", "[PaletteDef]", "group = 1", "number = %d" % number, "file = %s" % name]
    for group, index, name, x, y in listing:
        lines += ["", "[SpriteDef]", "group = %d" % group, "image = %d" % index, "xaxis = %d" % x,
                  "yaxis = %d" % y, "flags = 0", "palette = 1,1", "file = %s" % name]
    return ("\n".join(lines) + "\n").encode("ascii")


def sounds(folder):
    script = ["ember.snd"]
    for group, number, _stem, make in ember_sounds.SOUNDS:
        name = "work/sounds/%d-%d.wav" % (group, number)
        _write(folder, name, ember_sounds.wav_bytes(make()))
        script += [name, str(group), str(number)]
    _write(folder, "work/ember-snd.txt", ("\n".join(script) + "\n").encode("ascii"))


def main(arguments):
    if len(arguments) != 1:
        sys.stderr.write("usage: make_ember.py FOLDER\n")
        return 2
    folder = arguments[0]
    _write(folder, "ember1.act", act_bytes(PAL1))
    _write(folder, "ember2.act", act_bytes(PAL2))
    _write(folder, "work/ember-sff.pfe", sprite_list(sprites(folder)))
    sounds(folder)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
