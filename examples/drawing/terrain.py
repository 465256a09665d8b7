# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

"""The material map of a level: what every pixel is made of. The pictures are drawn after it, and
everything in the level stands on it."""

import math

AIR, GROUND, ROPE_HOLD, WATER, ACID = range(5)

MATERIAL_COLOURS = {
    AIR: (0, 0, 0),
    GROUND: (150, 96, 56),        # walked on; a rope slips off
    ROPE_HOLD: (255, 200, 64),    # walked on; a rope holds
    WATER: (48, 112, 255),
    ACID: (96, 240, 64),
}

SOLID = (GROUND, ROPE_HOLD)


class Terrain:
    def __init__(self, width, height):
        self.width, self.height = width, height
        self.cells = bytearray(width * height)

    def at(self, x, y):
        """Beyond the edges the map goes on as at the edge."""
        x = min(max(x, 0), self.width - 1)
        y = min(max(y, 0), self.height - 1)
        return self.cells[y * self.width + x]

    def solid(self, x, y):
        return self.at(x, y) in SOLID

    def set(self, x, y, material):
        if 0 <= x < self.width and 0 <= y < self.height:
            self.cells[y * self.width + x] = material

    def rect(self, x0, y0, x1, y1, material):
        x0, x1 = max(x0, 0), min(x1, self.width)
        for y in range(max(y0, 0), min(y1, self.height)):
            for x in range(x0, x1):
                self.cells[y * self.width + x] = material

    def polygon(self, points, material):
        """Even-odd fill of the pixels whose centres lie inside."""
        for y in range(self.height):
            crossings = []
            for (xa, ya), (xb, yb) in zip(points, points[1:] + points[:1]):
                if (ya <= y + 0.5) != (yb <= y + 0.5):
                    crossings.append(xa + (y + 0.5 - ya) * (xb - xa) / (yb - ya))
            crossings.sort()
            for left, right in zip(crossings[0::2], crossings[1::2]):
                self.rect(math.ceil(left - 0.5), y, math.ceil(right - 0.5), y + 1, material)

    def disc(self, cx, cy, rx, ry, material):
        for y in range(int(cy - ry), int(cy + ry) + 1):
            for x in range(int(cx - rx), int(cx + rx) + 1):
                if ((x - cx) / rx) ** 2 + ((y - cy) / ry) ** 2 <= 1:
                    self.set(x, y, material)

    def tunnel(self, points, radius, material=AIR):
        """A passage of round cross-section along the points."""
        for (xa, ya), (xb, yb) in zip(points, points[1:]):
            steps = max(1, int(math.hypot(xb - xa, yb - ya) / 2))
            for i in range(steps + 1):
                self.disc(xa + (xb - xa) * i / steps, ya + (yb - ya) * i / steps,
                          radius, radius, material)

    def roughen(self, noise, amount):
        """Shifts every pixel a little, so that straight edges become natural ones."""
        source = bytes(self.cells)
        width, height = self.width, self.height
        for y in range(height):
            for x in range(width):
                sx = x + round((noise.at(x, y) - 0.5) * amount)
                sy = y + round((noise.at(y + 61, x + 17) - 0.5) * amount)
                sx = min(max(sx, 0), width - 1)
                sy = min(max(sy, 0), height - 1)
                self.cells[y * width + x] = source[sy * width + sx]

    def hold_on_undersides(self):
        """A rope holds on the undersides of rock in the open."""
        for y in range(1, self.height - 3):
            for x in range(self.width):
                if self.at(x, y) == GROUND and all(
                        self.at(x + aside, y + 3) == AIR for aside in (-3, 0, 3)):
                    self.set(x, y, ROPE_HOLD)

    def depths(self):
        """How deep each solid pixel lies, in pixels from the nearest pixel that is not solid (1 at
        the surface, 0 outside). Beyond the edges all is taken to be solid."""
        return depths_of([cell in SOLID for cell in self.cells], self.width, self.height)

    def floor_below(self, x, y):
        """The first solid row at or under y in column x. The place itself has to be free."""
        if self.solid(x, y):
            raise ValueError(f"({x}, {y}) lies inside the ground")
        for row in range(y, self.height):
            if self.solid(x, row):
                return row
        raise ValueError(f"there is no ground under ({x}, {y})")

    def picture(self):
        rows = []
        for y in range(self.height):
            cells = self.cells[y * self.width:(y + 1) * self.width]
            rows.append([MATERIAL_COLOURS[cell] for cell in cells])
        return rows


def depths_of(inside, width, height):
    """Distance transform with steps of 3 and 4 for straight and slanting neighbours, given in
    pixels."""
    far = 3 * (width + height)
    depth = [far if cell else 0 for cell in inside]
    for y in range(height):
        for x in range(width):
            i = y * width + x
            if depth[i]:
                best = depth[i]
                if x:
                    best = min(best, depth[i - 1] + 3)
                if y:
                    best = min(best, depth[i - width] + 3)
                    if x:
                        best = min(best, depth[i - width - 1] + 4)
                    if x < width - 1:
                        best = min(best, depth[i - width + 1] + 4)
                depth[i] = best
    for y in range(height - 1, -1, -1):
        for x in range(width - 1, -1, -1):
            i = y * width + x
            if depth[i]:
                best = depth[i]
                if x < width - 1:
                    best = min(best, depth[i + 1] + 3)
                if y < height - 1:
                    best = min(best, depth[i + width] + 3)
                    if x:
                        best = min(best, depth[i + width - 1] + 4)
                    if x < width - 1:
                        best = min(best, depth[i + width + 1] + 4)
                depth[i] = best
    return [d / 3 for d in depth]
