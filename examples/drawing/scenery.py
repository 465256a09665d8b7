# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

"""What several levels are painted with: skies, rock, clouds, plants, ropes and lights."""

import math
from dataclasses import dataclass

from .noise import rough_wave, wave
from .terrain import ROPE_HOLD

OUTLINE_DEPTH = 1.2   # pixels of a rock's rim that are drawn as its dark outline
BEVEL_DEPTH = 14      # how far into the rock its rounding reaches


BIRD_PICTURE = """
bb...bb
..b.b..
...b...
"""


def paint_sky(canvas, ramp, horizon):
    """A vertical gradient, slightly wavy, that ends at row `horizon`."""
    for y in range(canvas.height):
        for x in range(canvas.width):
            bend = 7 * math.sin(x / 71 + y / 43) + 4 * math.sin(x / 29 - 1.3)
            shade = (y + bend) / horizon
            canvas.put(x, y, ramp, min(max(shade, 0.0), 1.0))


def paint_rock(canvas, terrain, ramp, stones, rows=None, belongs=None):
    """Paints the solid pixels as rock, lit from the upper right: a dark outline, a rounded rim and,
    deeper in, stones. rows(x, y): a shade to add, such as layers; belongs(x, y): limits it."""
    depth = terrain.depths()
    width, height = terrain.width, terrain.height
    for y in range(height):
        for x in range(width):
            i = y * width + x
            d = depth[i]
            if not d or (belongs and not belongs(x, y)):
                continue
            if d <= OUTLINE_DEPTH:
                canvas.put(x, y, ramp, 0.0)
                continue
            joint, stone, stone_height = stones.at(x, y)
            shade = 0.44 + 0.16 * (stone - 0.5) + 0.10 * stone_height
            if joint < 0.10:
                shade -= 0.17
            if d < BEVEL_DEPTH:
                shade += _bevel(depth, i, x, y, width, height) * (1 - d / BEVEL_DEPTH)
            shade -= min(0.30, d / 130)
            if rows:
                shade += rows(x, y)
            canvas.put(x, y, ramp, max(shade, 0.04))


def _bevel(depth, i, x, y, width, height):
    """Light on the rim by the direction in which the rock falls away."""
    right = depth[i + 1] if x < width - 1 else depth[i]
    left = depth[i - 1] if x else depth[i]
    below = depth[i + width] if y < height - 1 else depth[i]
    above = depth[i - width] if y else depth[i]
    return 0.24 * (below - above) / 2 + 0.17 * (left - right) / 2


def surfaces(terrain):
    """The pixels (x, y) that are solid with something not solid above: what one stands on."""
    for y in range(1, terrain.height):
        for x in range(terrain.width):
            if terrain.solid(x, y) and not terrain.solid(x, y - 1):
                yield x, y


def paint_turf(canvas, terrain, ramp, seed, thickness=4, tufts=0.3, belongs=None):
    """A layer on every surface, hanging down in short uneven fringes, with blades standing up."""
    for x, y in surfaces(terrain):
        if belongs and not belongs(x, y):
            continue
        fringe = thickness + int(4 * wave(x / 2.1, seed) * wave(x / 7, seed + 1))
        for depth in range(fringe + 1):
            if not terrain.solid(x, y + depth):
                break
            shade = 0.0 if depth == fringe else 0.92 - 0.62 * depth / fringe
            canvas.put(x, y + depth, ramp, shade)
        blade = wave(x / 1.3, seed + 2)
        if blade < tufts:
            tall = 1 + int(3 * (tufts - blade) / tufts)
            for up in range(1, tall + 1):
                canvas.put(x, y - up, ramp, 0.45 + 0.15 * up)


def paint_cloud(canvas, cx, cy, length, ramp, seed, thickness=0.22):
    """A flat-bottomed heap of balls with light on top."""
    top = {}
    for x in range(int(-length / 2), int(length / 2) + 1):
        t = 2 * x / length
        body = (1 - t * t) ** 0.6
        bumps = abs(math.sin(x / length * 9 + seed)) * 0.6 + 0.55 * rough_wave(x / 9, seed)
        top[x] = int(length * thickness * body * (0.35 + 0.65 * bumps))
    for x, rise in top.items():
        belly = int(2 * wave(x / 6, seed + 5) + 0.05 * rise)
        for dy in range(-rise, belly + 1):
            high = 1 - (dy + rise) / (rise + belly + 1)
            slope = top.get(x - 4, 0) - top.get(x + 4, 0)
            puff = wave((x + 0.6 * dy) / 7, seed + 3) * wave((dy - 0.4 * x) / 5, seed + 4) - 0.25
            canvas.put(cx + x, cy + dy, ramp, 0.08 + 0.74 * high + 0.018 * slope + 0.22 * puff)


@dataclass(frozen=True)
class Bridge:
    """A hanging bridge from its left to its right end, perhaps with planks missing in a gap."""

    x0: int
    y0: int
    x1: int
    y1: int
    sag: int
    gap: tuple = (0, 0)  # first missing column and the first one after the gap

    def row(self, x):
        t = (x - self.x0) / (self.x1 - self.x0)
        return round(self.y0 + (self.y1 - self.y0) * t + 4 * self.sag * t * (1 - t))

    def columns(self):
        return (x for x in range(self.x0, self.x1 + 1) if not self.gap[0] <= x < self.gap[1])

    def build(self, terrain):
        for x in self.columns():
            terrain.rect(x, self.row(x), x + 1, self.row(x) + 2, ROPE_HOLD)

    def paint(self, canvas, wood):
        for x in self.columns():
            y = self.row(x)
            for dy, shade in enumerate((0.9, 0.6, 0.1)):
                canvas.put(x, y + dy, wood, 0.05 if x % 6 == 5 else shade)
            if x % 12 == 5:
                canvas.line(x, y - 9, x, y, wood, 0.6)
            canvas.put(x, y - 9, wood, 0.9 if x & 2 else 0.7)
        for x, y in ((self.x0, self.y0), (self.x1, self.y1)):
            canvas.rect(x - 1, y - 13, x + 2, y + 3, wood, 0.45)
            canvas.rect(x - 1, y - 13, x, y + 3, wood, 0.1)
            canvas.rect(x - 2, y - 14, x + 3, y - 12, wood, 0.85)
        if self.gap[1]:
            for x in (self.gap[0], self.gap[1] - 1):  # rope ends and a plank that dangles
                y = self.row(x)
                canvas.line(x, y - 9, x, y + 12, wood, 0.7)
                canvas.line(x - 2, y + 6, x + 2, y + 8, wood, 0.5, 2)


def paint_ladder(canvas, ramp, x, top, bottom):
    for y in range(top, bottom):
        for dx in (0, 9):
            canvas.put(x + dx, y, ramp, 0.72)
            canvas.put(x + dx + 1, y, ramp, 0.15)
        if y % 6 == 2:
            canvas.rect(x + 1, y, x + 9, y + 1, ramp, 0.85)
            canvas.rect(x + 1, y + 1, x + 9, y + 2, ramp, 0.1)


def put_on_ground(canvas, terrain, x, y, picture, ramps, mirrored=False):
    """A sprite that stands on the ground under (x, y)."""
    width = max(len(row) for row in picture.strip("\n").splitlines())
    canvas.sprite(x - width // 2, terrain.floor_below(x, y) + 1, picture, ramps, mirrored)


def paint_water(canvas, terrain, material, ramp, seed, sparkle=0.72, top=0):
    """Water from row `top` down, with a bright line on top, darker downwards, and flat waves."""
    for x in range(terrain.width):
        surface = None
        for y in range(top, terrain.height):
            if terrain.at(x, y) != material:
                surface = None if terrain.solid(x, y) else surface
                continue
            if surface is None:
                surface = y
            deep = y - surface
            if deep == 0:
                shade = 1.0
            elif deep == 1:
                shade = 0.75
            else:
                shade = 0.62 - 0.5 * min(1.0, deep / 45)
                ripple = wave((x + 40 * wave(y / 3, seed + 3)) / 11, seed + y)
                if ripple > sparkle and (y & 1):
                    shade += 0.22
            canvas.put(x, y, ramp, shade)
