# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

"""A canvas for pixel art: each pixel is a shade of a short row of colours, a ramp.

Shades run from 0 (first colour of the ramp) to 1 (last). Lights only change shades; resolve() turns
them into colours at the end and mixes neighbouring colours of a ramp in an ordered pattern.
"""

import math

# The 4 x 4 ordered-dither matrix (Bayer), as thresholds in (0, 1).
_BAYER = (0, 8, 2, 10, 12, 4, 14, 6, 3, 11, 1, 9, 15, 7, 13, 5)
THRESHOLDS = tuple((n + 0.5) / 16 for n in _BAYER)


def colours(text):
    """Colours from words of six hexadecimal digits, or eight with alpha."""
    return tuple(tuple(bytes.fromhex(word)) for word in text.split())


def with_alpha(ramp, alpha=255):
    return tuple(colour + (alpha,) for colour in ramp)


def blend(ramp, length):
    """The ramp stretched to `length` colours, the new ones mixed from their neighbours."""
    stretched = []
    for i in range(length):
        place = i * (len(ramp) - 1) / (length - 1)
        low = min(int(place), len(ramp) - 2)
        share = place - low
        stretched.append(tuple(round(a + (b - a) * share)
                               for a, b in zip(ramp[low], ramp[low + 1])))
    return tuple(stretched)


class Canvas:
    def __init__(self, width, height, ramp):
        self.width, self.height = width, height
        self.ramps = [ramp] * (width * height)
        self.shades = [0.0] * (width * height)

    def put(self, x, y, ramp, shade):
        """Does nothing outside the canvas, as all that draws."""
        if 0 <= x < self.width and 0 <= y < self.height:
            index = y * self.width + x
            self.ramps[index] = ramp
            self.shades[index] = shade

    def shade(self, x, y, amount):
        """Lightens a pixel, or darkens it when the amount is negative."""
        if 0 <= x < self.width and 0 <= y < self.height:
            self.shades[y * self.width + x] += amount

    def rect(self, x0, y0, x1, y1, ramp, shade):
        """x1 and y1 lie just outside."""
        x0, x1 = max(x0, 0), min(x1, self.width)
        for y in range(max(y0, 0), min(y1, self.height)):
            start = y * self.width
            for index in range(start + x0, start + x1):
                self.ramps[index] = ramp
                self.shades[index] = shade

    def ball(self, cx, cy, radius, ramp, low, high, squash=1.0):
        """A disc that is lit from the upper right, from shade `low` to shade `high`."""
        reach = int(radius) + 1
        for dy in range(-reach, reach + 1):
            for dx in range(-reach, reach + 1):
                nx, ny = dx / radius, dy / (radius * squash)
                if nx * nx + ny * ny <= 1:
                    light = 0.5 + 0.42 * (nx * 0.5 - ny)
                    self.put(int(cx) + dx, int(cy) + dy, ramp, low + (high - low) * light)

    def line(self, x0, y0, x1, y1, ramp, shade, thickness=1):
        steps = max(abs(x1 - x0), abs(y1 - y0), 1)
        for i in range(steps + 1):
            x = round(x0 + (x1 - x0) * i / steps)
            y = round(y0 + (y1 - y0) * i / steps)
            for t in range(thickness):
                if abs(x1 - x0) >= abs(y1 - y0):
                    self.put(x, y + t, ramp, shade)
                else:
                    self.put(x + t, y, ramp, shade)

    def sprite(self, x, y, picture, ramps, mirrored=False):
        """Draws text as pixels, its bottom row just above row y. Each letter in `ramps` stands for
        a (ramp, shade); any other leaves the pixel alone."""
        rows = picture.strip("\n").splitlines()
        for dy, row in enumerate(rows):
            cells = row[::-1] if mirrored else row
            for dx, letter in enumerate(cells):
                if letter in ramps:
                    ramp, shade = ramps[letter]
                    self.put(x + dx, y - len(rows) + dy, ramp, shade)

    def glow(self, cx, cy, radius, strength, where=None):
        """Light that fades from (cx, cy); where(index) tells which pixels receive it."""
        for y in range(max(0, int(cy - radius)), min(self.height, int(cy + radius) + 1)):
            for x in range(max(0, int(cx - radius)), min(self.width, int(cx + radius) + 1)):
                distance = math.hypot(x - cx, y - cy) / radius
                index = y * self.width + x
                if distance < 1 and (where is None or where(index)):
                    self.shades[index] += strength * (1 - distance) * (1 - distance)

    def resolve(self):
        """The picture as a list of rows of colours."""
        rows = []
        for y in range(self.height):
            thresholds = THRESHOLDS[(y & 3) * 4:(y & 3) * 4 + 4]
            start = y * self.width
            row = []
            for x in range(self.width):
                ramp = self.ramps[start + x]
                last = len(ramp) - 1
                step = int(self.shades[start + x] * last + thresholds[x & 3])
                row.append(ramp[0 if step < 0 else last if step > last else step])
            rows.append(row)
        return rows
