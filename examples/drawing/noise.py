# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

"""Repeatable randomness: hashes, dice and noise. Nothing here depends on the Python version."""

import math
import random


def hash01(x, y, seed):
    """A number in [0, 1) that depends on the three integers alone."""
    h = (x * 374761393 + y * 668265263 + seed * 1442695041) & 0xFFFFFFFF
    h = ((h ^ (h >> 13)) * 1274126177) & 0xFFFFFFFF
    return ((h ^ (h >> 16)) & 0xFFFFFF) / 0x1000000


class Dice:
    """A stream of random numbers. Only random() of the library's generator is promised to give the
    same stream in every version of Python, so all else is built on it."""

    def __init__(self, seed):
        self._next = random.Random(seed).random

    def between(self, low, high):
        return low + (high - low) * self._next()

    def whole(self, low, high):
        """An integer from low to high, both included."""
        return low + int((high - low + 1) * self._next())

    def pick(self, choices):
        return choices[int(len(choices) * self._next())]

    def chance(self, probability):
        return self._next() < probability


def smooth(t):
    return t * t * (3 - 2 * t)


def wave(x, seed):
    """Smooth noise along a line, in [0, 1]: one bump about every unit of x."""
    cell = math.floor(x)
    a, b = hash01(cell, 0, seed), hash01(cell + 1, 0, seed)
    return a + (b - a) * smooth(x - cell)


def rough_wave(x, seed, octaves=4):
    """Fractal noise along a line, in [0, 1]."""
    total, weight, scale = 0.0, 0.0, 1.0
    for octave in range(octaves):
        total += wave(x * scale, seed + octave) / scale
        weight += 1 / scale
        scale *= 2
    return total / weight


class NoiseTile:
    """A square of fractal noise in [0, 1] that repeats without a seam. Computing it once and
    looking it up is what makes drawing pixel by pixel bearable."""

    SIZE = 128
    MASK = SIZE - 1

    def __init__(self, cells, octaves, seed):
        """cells: bumps along a side in the coarsest octave, a power of two."""
        size = self.SIZE
        self.values = [0.0] * (size * size)
        weight, share = 0.0, 1.0
        for octave in range(octaves):
            self._add_octave(cells << octave, share, seed + octave)
            weight += share
            share /= 2
        self.values = [value / weight for value in self.values]

    def _add_octave(self, cells, share, seed):
        size = self.SIZE
        step = cells / size
        columns = []
        for x in range(size):
            cell = int(x * step)
            columns.append((cell, (cell + 1) % cells, smooth(x * step - cell)))
        for y in range(size):
            cell = int(y * step)
            down = smooth(y * step - cell)
            upper = [hash01(c, cell, seed) for c in range(cells)]
            lower = [hash01(c, (cell + 1) % cells, seed) for c in range(cells)]
            edge = [u + (l - u) * down for u, l in zip(upper, lower)]
            row = y * size
            for x, (left, right, across) in enumerate(columns):
                self.values[row + x] += share * (edge[left] + (edge[right] - edge[left]) * across)

    def at(self, x, y):
        return self.values[((y & self.MASK) << 7) | (x & self.MASK)]


class StoneTile:
    """A square of irregular stones that repeats without a seam. For each pixel: how far it lies
    from the joint between two stones, a number of its own for each stone, and how high on its
    stone it lies (1 top, -1 bottom)."""

    SIZE = 128
    MASK = SIZE - 1

    def __init__(self, columns, rows, seed):
        self.joint, self.stone, self.height = [], [], []
        size = self.SIZE
        width, height = size / columns, size / rows
        centres = {}
        for row in range(rows):
            for column in range(columns):
                centres[column, row] = (
                    (0.15 + 0.7 * hash01(column, row, seed)) + 0.5 * (row & 1),
                    0.15 + 0.7 * hash01(column, row, seed + 1))
        for y in range(size):
            for x in range(size):
                self._add_pixel(x / width, y / height, columns, rows, centres, seed)

    def _add_pixel(self, x, y, columns, rows, centres, seed):
        """x and y are counted in stones."""
        nearest, second, own, above = 9.0, 9.0, None, 0.0
        for row in range(int(y) - 1, int(y) + 2):
            for column in range(int(x) - 2, int(x) + 2):
                key = (column % columns, row % rows)
                dx, dy = centres[key]
                dx, dy = column + dx - x, row + dy - y
                distance = max(abs(dx), abs(dy)) * 0.5 + 0.5 * math.hypot(dx, dy)
                if distance < nearest:
                    nearest, second, own, above = distance, nearest, key, dy
                elif distance < second:
                    second = distance
        self.joint.append(second - nearest)
        self.stone.append(hash01(own[0], own[1], seed + 2))
        self.height.append(max(-1.0, min(1.0, above * 2)))

    def at(self, x, y):
        index = ((y & self.MASK) << 7) | (x & self.MASK)
        return self.joint[index], self.stone[index], self.height[index]
