# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

"""The factory: a hall at dusk, lamps lit. All pictures are 24-bit BMP, names in mixed case."""

import math

from . import scenery
from .canvas import Canvas, THRESHOLDS, blend, colours
from .level import (DOMINATION, FLAG, KICKERPAD, MEDIKIT, TEAMSPAWN, Level)
from .noise import Dice, NoiseTile, hash01, rough_wave, wave
from .pictures import halve, write_bmp
from .terrain import ACID, AIR, GROUND, ROPE_HOLD, Terrain

WIDTH, HEIGHT, SCALE = 640, 480, 1

BRICK = blend(colours("24161e 40242a 643a38 885248 a8705a c89474 ecc898"), 13)
PANEL = blend(colours("1e1c26 34323e 504c58 6e6a72 908c8c b4b0a4 dcd4b8"), 13)
PANEL_GREEN = blend(colours("122018 1c3c28 2c6034 4c8c40 7cbc4c b4e464 e8ffa0"), 13)
PANEL_FIRE = blend(colours("24101a 4c1c1c 803420 b85824 e08830 f8bc50 fff0a0"), 13)
DUSK = blend(colours("2c2a54 483a6c 74487c a85c78 d8806c f0b078"), 13)
CITY = colours("1c1a34 2c2848 443c60 f0c870")
GLASS = blend(colours("5c5078 846484 b48488 dcac90"), 6)
STEEL = blend(colours("14141e 2c2e3c 4a4e5e 707684 9aa0a6 c4c8c4 f0f0e4"), 13)
CONCRETE = blend(colours("18161e 302c34 4c464c 6c6464 8c8480 b0a89c"), 12)
HAZARD = colours("241c18 7c5c10 d8a01c f8d040 fff098")
COPPER = blend(colours("28140f 542818 8c4824 c0743c e4a464 fcdca4"), 9)
PIPE_GREEN = blend(colours("101c1c 1c3834 30584c 508068 84ac84 c4d8a8"), 9)
WOOD = colours("241610 4a2e1c 785030 a47848 cca068 ecd098")
ACID_RAMP = colours("0c3018 186428 30a030 68d838 b4f860 f4ffb8")
FIRE = colours("601810 b83818 f07820 f8c040 fff4b0")
RED = colours("3c0c14 80181c c83028 f07050 fcc0a0")
LAMP = colours("3c3430 b08840 f8d878 fffce0")

FLOOR, CEILING, WALL = 440, 22, 16
VAT = (424, 568, 449)                      # left, right, surface of the acid
GIRDERS = (
    (16, 156, 372), (470, 530, 404), (564, 624, 372),
    (84, 278, 290), (318, 418, 298), (456, 624, 290),
    (16, 128, 206), (186, 300, 212), (364, 470, 206), (536, 624, 206),
    (76, 220, 124), (276, 378, 128), (430, 560, 124),
)
CONVEYOR = (190, 350, 368)
CRATES = ((280, 424), (296, 424), (288, 408), (226, 352), (242, 352), (600, 356), (104, 274),
          (120, 274), (112, 258), (528, 274), (32, 190), (450, 108), (592, 424), (608, 424),
          (608, 408))
CRATE = 16
LADDERS = ((146, 366, 440), (266, 284, 368), (460, 200, 290), (568, 284, 372), (209, 118, 212),
           (366, 122, 206), (60, 200, 372))
WINDOWS = ((52, 172, 44, 190), (260, 380, 44, 190), (468, 588, 44, 190))
COLUMNS = (206, 414)
LAMPS = ((150, 300), (365, 308), (556, 300), (72, 216), (244, 222), (418, 216), (82, 382),
         (148, 134), (500, 134), (318, 138), (240, 22), (400, 22), (600, 22), (600, 382))

REFLECTIONS = (20, 21, 22, 23, 24, 25, 32, 33)  # slanting stripes on the panes
GEAR_TEETH = 12


def build_terrain():
    terrain = Terrain(WIDTH, HEIGHT)
    terrain.rect(0, 0, WIDTH, CEILING, GROUND)
    terrain.rect(0, 0, WALL, HEIGHT, GROUND)
    terrain.rect(WIDTH - WALL, 0, WIDTH, HEIGHT, GROUND)
    terrain.rect(0, FLOOR, WIDTH, HEIGHT, GROUND)
    terrain.rect(VAT[0], FLOOR, VAT[1], HEIGHT, AIR)
    terrain.rect(VAT[0], VAT[2], VAT[1], HEIGHT, ACID)
    for x0, x1, y in GIRDERS:
        terrain.rect(x0, y, x1, y + 10, ROPE_HOLD)
    x0, x1, y = CONVEYOR
    terrain.rect(x0, y, x1, y + 14, GROUND)
    for x, y in CRATES:
        terrain.rect(x, y, x + CRATE, y + CRATE, GROUND)
    return terrain


# The hall itself

def brick(x, y, stains):
    row = y // 7
    place = x + 8 * (row & 1)
    column, dx, dy = place // 16, place % 16, y % 7
    if dx == 0 or dy == 0:
        return 0.20
    shade = 0.34 + 0.14 * hash01(column, row, 7)
    if dy == 1:
        shade += 0.07
    if dy == 6 or dx == 15:
        shade -= 0.06
    return shade + 0.22 * (stains.at(x // 2, y // 2) - 0.5)


def panel(x, y, stains):
    """Riveted plates of 48 x 40 pixels with streaks of dirt."""
    dx, dy = (x + 8) % 48, (y + 20) % 40
    shade = 0.36 + 0.10 * hash01((x + 8) // 48, (y + 20) // 40, 9)
    if dx == 0 or dy == 0:
        return 0.10
    if dx == 1 or dy == 1:
        shade += 0.14
    if dx in (4, 43) and dy in (5, 20, 35):
        return 0.80
    if dx in (4, 43) and dy in (6, 21, 36):
        return 0.12
    return shade + 0.26 * (stains.at(x, y // 5) - 0.5)


def paint_wall(canvas):
    stains = NoiseTile(8, 4, seed=3)
    for y in range(HEIGHT):
        gloom = 0.10 * math.cos((y - 150) / 92)
        for x in range(WIDTH):
            if y < 306:
                canvas.put(x, y, BRICK, brick(x, y, stains) + gloom)
            elif y < 314:
                canvas.put(x, y, PANEL, (0.75, 0.5, 0.4, 0.4, 0.4, 0.35, 0.25, 0.05)[y - 306])
            else:
                canvas.put(x, y, PANEL, panel(x, y, stains) + gloom * 0.5)


def skyline(x, seed, step):
    block = x // step
    return 22 + 58 * hash01(block, 0, seed) * (0.5 + hash01(block, 1, seed))


def paint_outside(canvas, x0, x1, y0, y1):
    """Dusk over the town, as seen through a window."""
    for y in range(y0, y1):
        for x in range(x0, x1):
            shade = (y - y0) / (y1 - y0) * 1.05 + 0.02 * math.sin(x / 17)
            canvas.put(x, y, DUSK, shade)
    for x in range(x0, x1):
        drift = 5 * rough_wave(x / 18, 60, 3)
        for y in range(y0 + 30 + int(drift), y0 + 34 + int(2.4 * drift)):
            canvas.put(x, y, GLASS, 0.35 + 0.1 * ((y - y0 - 30) / 8))
    for seed, step, tone, share in ((71, 19, 0.66, 1.0), (72, 13, 0.30, 0.66)):
        for x in range(x0, x1):
            top = y1 - int(skyline(x, seed, step) * share)
            for y in range(top, y1):
                lit = (hash01(x // 3, y // 4, seed) < 0.11 and x % 3 and y % 4 < 2
                       and y > top + 3 and x % step not in (0, step - 1))
                canvas.put(x, y, CITY, 1.0 if lit else tone)
    for stack in (0, 1):
        place = x0 + 14 + int((x1 - x0 - 40) * (stack + hash01(x0, stack, 5)) / 2)
        paint_smokestack(canvas, place, y1 + int(26 * hash01(x0, stack, 6)), y1)


def paint_smokestack(canvas, x, foot, bottom):
    for dy in range(min(92, bottom - foot + 92)):
        half = 4 + dy // 40
        for dx in range(-half, half + 1):
            canvas.put(x + dx, foot - 92 + dy, CITY, 0.25 if dx < 2 else 0.62)
        if dy in (4, 5, 14, 15):
            canvas.rect(x - half, foot - 92 + dy, x + half + 1, foot - 91 + dy, RED, 0.45)
    for puff in range(6):
        canvas.ball(x + 3 + puff * 6 + puff * puff // 3, foot - 97 - puff * 5, 4 + puff * 0.9,
                    GLASS, 0.15, 0.95, 0.8)


def paint_window(canvas, x0, x1, y0, y1):
    """An arched steel window."""
    keep = {}  # the wall that smoke and sky must not cover
    middle, radius = (x0 + x1) / 2 - 0.5, (x1 - x0) / 2
    arch = y0 + 34

    def outside(x, y, grow=0):
        if y >= arch:
            return not (x0 - grow <= x < x1 + grow and y < y1 + grow)
        return math.hypot((x - middle) / (radius + grow), (y - arch) / (34.0 + grow)) > 1

    for y in range(y0 - 7, y1 + 7):
        for x in range(x0 - 7, x1 + 30):
            if outside(x, y):
                keep[x, y] = (canvas.ramps[y * WIDTH + x], canvas.shades[y * WIDTH + x])
    paint_outside(canvas, x0, x1, y0, y1)
    for (x, y), (ramp, shade) in keep.items():
        canvas.put(x, y, ramp, shade)
        if not outside(x, y, 5):
            joint = (int(math.atan2(y - arch, x - middle) * 16) if y < arch else y // 8) & 1
            canvas.put(x, y, CONCRETE, 0.62 if joint else 0.5)
        elif not outside(x, y, 6):
            canvas.put(x, y, CONCRETE, 0.05)
    for y in range(y0, y1):
        for x in range(x0, x1):
            if outside(x, y):
                continue
            across, down = (x - x0) % 30, (y - arch) % 28
            if down in (0, 1) or (across in (29, 0) and x0 + 2 < x < x1 - 2):
                canvas.put(x, y, STEEL, 0.16 if across == 0 or down == 1 else 0.38)
            elif outside(x - 2, y - 2) or outside(x + 2, y):
                canvas.put(x, y, STEEL, 0.12)
            elif canvas.ramps[y * WIDTH + x] is DUSK and (x + y) % 120 in REFLECTIONS:
                canvas.shade(x, y, 0.14)


def paint_column(canvas, x):
    """A riveted steel beam from floor to ceiling."""
    profile = (0.05, 0.55, 0.75, 0.6, 0.34, 0.2, 0.26, 0.3,
               0.3, 0.28, 0.22, 0.4, 0.6, 0.5, 0.3, 0.05)
    for y in range(CEILING, FLOOR):
        for dx, shade in enumerate(profile):
            canvas.put(x + dx, y, STEEL, shade - 0.02)
        if y % 14 == 3:
            for dx in (2, 13):
                canvas.put(x + dx, y, STEEL, 1.0)
                canvas.put(x + dx, y + 1, STEEL, 0.1)
        lattice = (y % 28) if y % 28 < 14 else 27 - y % 28
        canvas.put(x + 4 + lattice // 2, y, STEEL, 0.55)
        canvas.put(x + 5 + lattice // 2, y, STEEL, 0.08)
    for y in (CEILING, FLOOR - 12):
        canvas.rect(x - 4, y, x + 20, y + 12, STEEL, 0.05)
        canvas.rect(x - 3, y + 1, x + 19, y + 11, STEEL, 0.42)
        canvas.rect(x - 3, y + 1, x + 19, y + 2, STEEL, 0.8)


def paint_truss(canvas):
    """The roof's lattice under the ceiling."""
    canvas.rect(WALL, 32, WIDTH - WALL, 36, STEEL, 0.45)
    canvas.rect(WALL, 32, WIDTH - WALL, 33, STEEL, 0.75)
    canvas.rect(WALL, 36, WIDTH - WALL, 37, STEEL, 0.05)
    for x in range(WALL, WIDTH - WALL, 20):
        canvas.line(x, 32, x + 10, 22, STEEL, 0.3, 2)
        canvas.line(x + 10, 22, x + 20, 32, STEEL, 0.5, 2)


# Machines and pipes

def paint_pipe(canvas, points, ramp, half=5):
    """A pipe along straight pieces, with a flange at every joint and some on the way."""
    for (xa, ya), (xb, yb) in zip(points, points[1:]):
        flat = ya == yb
        low, high = sorted((xa, xb) if flat else (ya, yb))
        for along in range(low - half, high + half + 1):
            for across in range(-half, half + 1):
                t = across / half
                shade = 0.78 - 0.95 * (t + 0.35) ** 2 if abs(across) < half else 0.0
                x, y = (along, ya + across) if flat else (xa + across, along)
                canvas.put(x, y, ramp, max(0.05, shade) if abs(across) < half else 0.0)
        for along in range(low + 22, high - 10, 56):
            _flange(canvas, along, ya if flat else xa, flat, ramp, half)
    for x, y in points[1:-1]:
        canvas.ball(x, y, half + 2, ramp, 0.0, 0.95)


def _flange(canvas, along, centre, flat, ramp, half):
    for step in range(5):
        for across in range(-half - 2, half + 3):
            edge = step in (0, 4) or abs(across) == half + 2
            shade = 0.02 if edge else 0.85 - 0.5 * (across / half + 0.3) ** 2
            if flat:
                canvas.put(along + step, centre + across, ramp, shade)
            else:
                canvas.put(centre + across, along + step, ramp, shade)


def paint_valve(canvas, x, y):
    for angle in range(0, 360, 4):
        right, down = math.cos(math.radians(angle)), math.sin(math.radians(angle))
        for radius, shade in ((7, 0.55), (6, 0.75)):
            canvas.put(round(x + radius * right), round(y + radius * down), RED,
                       shade - 0.3 * down)
    canvas.line(x - 6, y, x + 6, y, RED, 0.6)
    canvas.line(x, y - 6, x, y + 6, RED, 0.6)
    canvas.ball(x, y, 2, STEEL, 0.4, 1.0)


def paint_gauge(canvas, x, y):
    canvas.ball(x, y, 8, STEEL, 0.0, 0.6)
    canvas.ball(x, y, 6, LAMP, 0.9, 1.0)
    for angle in range(150, 400, 30):
        a = math.radians(angle)
        canvas.put(round(x + 4.6 * math.cos(a)), round(y + 4.6 * math.sin(a)), STEEL, 0.1)
    canvas.line(x, y, x + 3, y - 3, RED, 0.5)


def paint_gear(canvas, cx, cy, radius, turn, ramp):
    for dy in range(-radius - 6, radius + 7):
        for dx in range(-radius - 6, radius + 7):
            distance = math.hypot(dx, dy)
            angle = math.atan2(dy, dx)
            tooth = math.cos(angle * GEAR_TEETH + turn) * 4.0
            rim = radius + max(-3.0, min(3.0, tooth))
            spoke = abs(math.sin(angle * 2.5 + turn)) < 0.22 + 1.6 / (distance + 1)
            if distance > rim or (radius * 0.36 < distance < radius * 0.70 and not spoke):
                continue
            edge = distance > rim - 1.3 or distance < 3.5
            inner = abs(distance - radius * 0.70) < 1.0 or abs(distance - radius * 0.36) < 1.0
            light = 0.46 + 0.18 * (dx - dy) / (radius + 1)
            canvas.put(cx + dx, cy + dy, ramp, 0.02 if edge else light - 0.22 if inner else light)


def paint_fan(canvas, cx, cy, radius):
    canvas.ball(cx, cy, radius + 5, STEEL, 0.02, 0.10)
    for dy in range(-radius - 4, radius + 5):
        for dx in range(-radius - 4, radius + 5):
            distance, angle = math.hypot(dx, dy), math.atan2(dy, dx)
            if radius < distance < radius + 4:
                canvas.put(cx + dx, cy + dy, STEEL, 0.5 + 0.3 * (dx - dy) / radius)
            elif 4 < distance <= radius - 1:
                blade = math.sin(angle * 5 + distance / 9)
                if blade > 0:
                    canvas.put(cx + dx, cy + dy, STEEL, 0.22 + 0.30 * blade)
                else:
                    canvas.put(cx + dx, cy + dy, DUSK, 0.30 + 0.3 * (dy + radius) / radius)
    canvas.ball(cx, cy, 5, STEEL, 0.2, 0.95)
    for spoke in range(4):
        a = math.radians(45 + 90 * spoke)
        canvas.line(round(cx + 6 * math.cos(a)), round(cy + 6 * math.sin(a)),
                    round(cx + radius * math.cos(a)), round(cy + radius * math.sin(a)), STEEL, 0.12)


def paint_furnace(canvas, x0, y0, x1, y1):
    canvas.rect(x0, y0, x1, y1, PANEL, 0.06)
    for y in range(y0 + 1, y1):
        for x in range(x0 + 1, x1 - 1):
            row = (y - y0) // 12
            seam = (y - y0) % 12 == 0 or (x + 9 * (row & 1)) % 18 == 0
            canvas.put(x, y, BRICK, 0.16 if seam else 0.34 + 0.1 * hash01(x // 18, row, 4))
    mx0, mx1, my = x0 + 12, x1 - 12, y0 + 16
    for y in range(my, y1 - 4):
        for x in range(mx0, mx1):
            heat = (y - my) / (y1 - 4 - my)
            lick = wave(x / 3.3, 31) * 0.35 + 0.25 * wave(x / 1.7, 32)
            canvas.put(x, y, FIRE, min(1.0, max(0.0, heat * 1.25 - lick + 0.15)))
    for x in range(mx0 + 2, mx1, 6):
        canvas.rect(x, my, x + 2, y1 - 4, STEEL, 0.08)
    canvas.rect(mx0 - 3, my - 3, mx1 + 3, my, STEEL, 0.5)
    canvas.rect(mx0 - 3, y1 - 4, mx1 + 3, y1, STEEL, 0.4)
    canvas.rect(mx0 - 3, my, mx0, y1 - 4, STEEL, 0.34)
    canvas.rect(mx1, my, mx1 + 3, y1 - 4, STEEL, 0.34)


def paint_tank(canvas, x0, y0, x1, y1):
    """An upright tank with bands and a level glass that glows."""
    for x in range(x0, x1):
        t = (x - x0 + 0.5) / (x1 - x0) * 2 - 1
        cap = int(8 * (1 - math.sqrt(max(0.0, 1 - t * t))))
        for y in range(y0 + cap, y1):
            shade = 0.62 - 0.62 * (t - 0.35) ** 2 - 0.10 * (y - y0) / (y1 - y0)
            band = (y - y0) % 24
            if band in (10, 11, 12):
                shade += (0.2, 0.08, -0.2)[band - 10]
            edge = x in (x0, x1 - 1) or y < y0 + cap + 1
            canvas.put(x, y, PIPE_GREEN, 0.0 if edge else shade)
    gx = x0 + 8
    canvas.rect(gx - 1, y0 + 18, gx + 6, y1 - 7, STEEL, 0.05)
    for y in range(y0 + 19, y1 - 8):
        full = (y - y0 - 19) / (y1 - y0 - 27)
        for x in range(gx, gx + 5):
            canvas.put(x, y, ACID_RAMP, 0.15 if full < 0.35 else 0.9 - 0.15 * abs(x - gx - 1))


# Solid things

def paint_blocks(canvas, terrain):
    """Walls, floor and ceiling of concrete blocks."""
    stains = NoiseTile(16, 3, seed=15)
    for y in range(HEIGHT):
        for x in range(WIDTH):
            frame = y < CEILING or y >= FLOOR or x < WALL or x >= WIDTH - WALL
            if not (frame and terrain.solid(x, y)):
                continue
            row = (y - FLOOR) // 16
            dx, dy = (x + 10 * (row & 1)) % 32, (y - FLOOR) % 16
            shade = 0.40 + 0.3 * (stains.at(x, y) - 0.5)
            if dx == 0 or dy == 0:
                shade = 0.08
            elif dx == 1 or dy == 1:
                shade += 0.17
            elif dx == 31 or dy == 15:
                shade -= 0.12
            canvas.put(x, y, CONCRETE, shade)
    plate_edges(canvas)


def plate_edges(canvas):
    """Steel plates on the floor, striped at the vat, and a dark line around the hall."""
    for x in range(WALL, WIDTH - WALL):
        if not VAT[0] <= x < VAT[1]:
            near = VAT[0] - 26 <= x < VAT[1] + 26
            for dy, shade in enumerate((0.85, 0.6, 0.5, 0.4, 0.02)):
                stripe = (x + dy) // 6 & 1
                if near and 0 < dy < 4:
                    canvas.put(x, FLOOR + dy, HAZARD, 0.7 if stripe else 0.0)
                else:
                    canvas.put(x, FLOOR + dy, STEEL, 0.1 if x % 40 == 0 else shade)
        canvas.put(x, CEILING - 1, CONCRETE, 0.0)
    for y in range(CEILING, FLOOR):
        for x in (WALL - 1, WIDTH - WALL):
            canvas.put(x, y, CONCRETE, 0.0)
        canvas.put(WALL - 2, y, CONCRETE, 0.62)
        canvas.put(WIDTH - WALL + 1, y, CONCRETE, 0.3)
    for y in range(FLOOR, HEIGHT):
        for x, shade in ((VAT[0] - 3, 0.3), (VAT[0] - 2, 0.7), (VAT[0] - 1, 0.05),
                         (VAT[1], 0.05), (VAT[1] + 1, 0.7), (VAT[1] + 2, 0.3)):
            canvas.put(x, y, STEEL, shade)


def paint_girder(canvas, x0, x1, y):
    """A walkway: plate, lattice, lower chord, striped ends."""
    for x in range(x0, x1):
        for dy, shade in enumerate((0.95, 0.66, 0.05, 0.16, 0.16, 0.16, 0.16, 0.6, 0.4, 0.02)):
            canvas.put(x, y + dy, STEEL, shade)
        zigzag = (x - x0) % 12
        rise = zigzag if zigzag < 6 else 11 - zigzag
        canvas.put(x, y + 7 - rise * 5 // 6 - 1, STEEL, 0.62)
        if zigzag == 0:
            canvas.put(x, y + 1, STEEL, 0.2)
    for end in (x0, x1 - 12):
        for x in range(end, end + 12):
            for dy in range(2, 9):
                canvas.put(x, y + dy, HAZARD, 0.66 if (x + dy) // 4 & 1 else 0.0)
    for yy in range(y, y + 10):
        canvas.put(x0, yy, STEEL, 0.02)
        canvas.put(x1 - 1, yy, STEEL, 0.02)


def paint_hanger(canvas, x, top, bottom):
    for y in range(top, bottom):
        link = y % 6
        canvas.put(x, y, STEEL, 0.75 if link < 4 else 0.2)
        if link in (1, 2):
            canvas.put(x - 1, y, STEEL, 0.35)
            canvas.put(x + 1, y, STEEL, 0.08)


def paint_conveyor(canvas, x0, x1, y):
    canvas.rect(x0 + 2, y, x1 - 2, y + 14, STEEL, 0.20)
    for x in range(x0 + 2, x1 - 2):
        tread = (x - x0) % 8
        for dy, shade in enumerate((0.5, 0.28, 0.12, 0.02)):
            canvas.put(x, y + dy, STEEL, shade if tread else 0.0)
        canvas.put(x, y + 12, STEEL, 0.28 if tread else 0.0)
        canvas.put(x, y + 13, STEEL, 0.02)
        if 24 <= x - x0 < x1 - x0 - 24:
            for dy in range(5, 11):
                canvas.put(x, y + dy, HAZARD, 0.62 if (x - dy) // 7 & 1 else 0.02)
    for x in range(x0 + 7, x1 - 4, 18):
        if x < x0 + 24 or x > x1 - 26:
            canvas.ball(x, y + 7, 5, STEEL, 0.1, 0.8)
            canvas.ball(x, y + 7, 2, STEEL, 0.0, 0.2)
    for x in (x0 + 20, x1 - 28):
        canvas.rect(x, y + 14, x + 8, FLOOR, STEEL, 0.30)
        canvas.rect(x, y + 14, x + 1, FLOOR, STEEL, 0.05)
        canvas.rect(x + 2, y + 14, x + 4, FLOOR, STEEL, 0.60)
        canvas.rect(x + 7, y + 14, x + 8, FLOOR, STEEL, 0.05)


def paint_crate(canvas, x0, y0):
    for dy in range(CRATE):
        for dx in range(CRATE):
            edge = dx in (0, CRATE - 1) or dy in (0, CRATE - 1)
            frame = dx in (1, 2, CRATE - 3, CRATE - 2) or dy in (1, 2, CRATE - 3, CRATE - 2)
            brace = abs(dx - dy) <= 1 and not frame
            plank = dy % 4 == 0
            shade = (0.0 if edge else 0.9 if dy == 1 or dx == 1 else 0.66 if frame
                     else 0.72 if brace else 0.2 if plank else 0.45)
            canvas.put(x0 + dx, y0 + dy, WOOD, shade)


# Light

LIT = (BRICK, PANEL, PANEL_GREEN, PANEL_FIRE, STEEL, PIPE_GREEN, COPPER, CONCRETE, WOOD)


def paint_lamp(canvas, x, y, reach=74):
    """A lamp under something at row y, and its cone of light."""
    for dy in range(6, reach):
        half = 5 + dy * 0.62
        fade = (1 - dy / reach) ** 1.2
        for dx in range(-int(half), int(half) + 1):
            index = (y + dy) * WIDTH + x + dx
            inside = 0 <= x + dx < WIDTH and y + dy < HEIGHT
            if inside and canvas.ramps[index] in LIT:
                canvas.shades[index] += 0.26 * fade * (1 - (dx / half) ** 2) ** 0.5
    canvas.rect(x, y, x + 1, y + 4, STEEL, 0.1)
    for dy, half in ((4, 2), (5, 4), (6, 5)):
        canvas.rect(x - half, y + dy, x + half + 1, y + dy + 1, STEEL, 0.5 if dy < 6 else 0.1)
    canvas.rect(x - 3, y + 7, x + 4, y + 8, LAMP, 0.7)
    canvas.rect(x - 2, y + 8, x + 3, y + 9, LAMP, 1.0)


def tint(canvas, cx, cy, radius, ramp, squash=1.0):
    """Coloured light: walls near (cx, cy) change over to the ramp, in a dithered rim."""
    for y in range(max(0, int(cy - radius)), min(HEIGHT, int(cy + radius))):
        for x in range(max(0, int(cx - radius)), min(WIDTH, int(cx + radius))):
            near = 1 - math.hypot((x - cx) * squash, y - cy) / radius
            index = y * WIDTH + x
            if near > 0 and canvas.ramps[index] in (PANEL, BRICK):
                if near * 1.5 > THRESHOLDS[(y & 3) * 4 + (x & 3)]:
                    canvas.ramps[index] = ramp
                canvas.shades[index] += 0.22 * near


def paint_acid(canvas, terrain):
    scenery.paint_water(canvas, terrain, ACID, ACID_RAMP, 33, sparkle=0.66)
    dice = Dice(12)
    for _ in range(26):
        x, y = dice.whole(VAT[0] + 4, VAT[1] - 5), dice.whole(VAT[2] - 1, HEIGHT - 4)
        canvas.ball(x, y, dice.between(0.8, 2.4), ACID_RAMP, 0.55, 1.0)
    for _ in range(9):
        x, y = dice.whole(VAT[0] + 10, VAT[1] - 10), dice.whole(VAT[2] - 34, VAT[2] - 5)
        canvas.put(x, y, ACID_RAMP, 0.75)
        canvas.put(x + 1, y, ACID_RAMP, 0.55)


def paint_cabinet(canvas, x0, y0):
    """A control cabinet on the floor, with a screen, lights and louvres."""
    canvas.rect(x0, y0, x0 + 30, FLOOR, STEEL, 0.03)
    canvas.rect(x0 + 1, y0 + 1, x0 + 29, FLOOR, STEEL, 0.46)
    canvas.rect(x0 + 1, y0 + 1, x0 + 29, y0 + 2, STEEL, 0.8)
    canvas.rect(x0 + 27, y0 + 2, x0 + 29, FLOOR, STEEL, 0.26)
    canvas.rect(x0 + 4, y0 + 5, x0 + 18, y0 + 16, STEEL, 0.02)
    for x in range(x0 + 5, x0 + 17):
        canvas.rect(x, y0 + 6, x + 1, y0 + 15, ACID_RAMP, 0.12)
        canvas.put(x, y0 + 10 + round(3 * math.sin(x / 1.7)), ACID_RAMP, 0.85)
    for n, ramp in enumerate((RED, LAMP, ACID_RAMP, RED, ACID_RAMP, LAMP)):
        canvas.rect(x0 + 20 + n % 2 * 4, y0 + 5 + n // 2 * 4, x0 + 22 + n % 2 * 4,
                    y0 + 7 + n // 2 * 4, ramp, 0.75)
    for y in range(y0 + 22, FLOOR - 6, 4):
        canvas.rect(x0 + 5, y, x0 + 25, y + 1, STEEL, 0.1)
        canvas.rect(x0 + 5, y + 1, x0 + 25, y + 2, STEEL, 0.66)


def paint_signs(canvas):
    """A few notices on the wall: warning triangles and level numbers."""
    for x, y in ((444, 398), (548, 398)):
        for dy in range(12):
            for dx in range(-dy // 2 - 1, dy // 2 + 2):
                rim = abs(dx) >= dy // 2 or dy == 11
                canvas.put(x + dx, y + dy, HAZARD, 0.0 if rim else 0.75)
        canvas.rect(x, y + 4, x + 1, y + 8, HAZARD, 0.0)
        canvas.put(x, y + 9, HAZARD, 0.0)
    for x, y in ((284, 326), (92, 346), (180, 240), (396, 240)):
        canvas.rect(x, y, x + 16, y + 14, STEEL, 0.05)
        canvas.rect(x + 1, y + 1, x + 15, y + 13, PIPE_GREEN if y < 300 else RED, 0.5)
        canvas.rect(x + 4, y + 4, x + 12, y + 5, LAMP, 1.0)
        canvas.rect(x + 4, y + 7, x + 9, y + 8, LAMP, 1.0)


def paint_hall(canvas):
    """The hall without anything solid: also the whole of the background picture."""
    paint_wall(canvas)
    for window in WINDOWS:
        paint_window(canvas, *window)
    paint_truss(canvas)
    for x in COLUMNS:
        paint_column(canvas, x)


def paint_machines(canvas):
    paint_fan(canvas, 116, 248, 26)
    paint_gear(canvas, 336, 250, 27, 0.0, COPPER)
    paint_gear(canvas, 380, 232, 17, 1.4, STEEL)
    paint_pipe(canvas, [(16, 330), (176, 330), (176, 446)], COPPER, 4)
    paint_pipe(canvas, [(440, 22), (440, 240), (470, 240), (470, 352), (400, 352), (400, 440)],
               PIPE_GREEN, 6)
    paint_pipe(canvas, [(624, 250), (508, 250), (508, 330), (640, 330)], COPPER, 4)
    paint_pipe(canvas, [(30, 22), (30, 150), (16, 150)], PIPE_GREEN, 5)
    paint_valve(canvas, 470, 310)
    paint_valve(canvas, 120, 330)
    paint_gauge(canvas, 440, 200)
    paint_gauge(canvas, 560, 330)
    paint_furnace(canvas, 36, 388, 124, FLOOR)
    paint_tank(canvas, 356, 346, 398, FLOOR)
    paint_cabinet(canvas, 224, 386)
    paint_signs(canvas)


def draw_level(terrain):
    canvas = Canvas(WIDTH, HEIGHT, BRICK)
    paint_hall(canvas)
    paint_machines(canvas)
    tint(canvas, 496, 452, 120, PANEL_GREEN, 0.8)
    tint(canvas, 80, 428, 84, PANEL_FIRE)
    for ladder in LADDERS:
        scenery.paint_ladder(canvas, STEEL, *ladder)
    for x in (474, 525):
        paint_hanger(canvas, x, 300, 404)
    for x in (82, 196):
        paint_hanger(canvas, x, 36, 124)
    for x in (282, 371, 436, 553):
        paint_hanger(canvas, x, 36, 124)
    for girder in GIRDERS:
        paint_girder(canvas, *girder)
    paint_conveyor(canvas, *CONVEYOR)
    for x, y in LAMPS:
        paint_lamp(canvas, x, y)
    paint_blocks(canvas, terrain)
    for crate in CRATES:
        paint_crate(canvas, *crate)
    paint_acid(canvas, terrain)
    return canvas.resolve()


def draw_background():
    canvas = Canvas(WIDTH, HEIGHT, BRICK)
    paint_hall(canvas)
    return canvas.resolve()


# What is in it

WAYPOINTS = (
    # the floor, from the furnace to the far side of the vat
    ("floor1", 28, 430), ("floor2", 80, 430), ("floor3", 148, 430), ("floor4", 204, 430),
    ("floor5", 266, 430), ("crates", 296, 400), ("floor6", 330, 430), ("brink", 412, 430),
    ("raft1", 482, 396), ("raft2", 518, 396), ("shore", 580, 430), ("step", 580, 364),
    # low walkways
    ("low1", 30, 364), ("low2", 66, 364), ("low3", 140, 364),
    ("belt1", 206, 360), ("belt2", 242, 344), ("belt3", 280, 360), ("belt4", 338, 360),
    # middle walkways
    ("mid1", 92, 282), ("pile", 120, 250), ("mid2", 150, 282), ("mid3", 204, 282),
    ("mid4", 262, 282), ("mid5", 328, 290), ("mid6", 372, 290), ("mid7", 408, 290),
    ("mid8", 480, 282), ("mid9", 518, 282), ("mid10", 556, 282), ("mid11", 612, 282),
    # upper walkways
    ("high1", 24, 198), ("high2", 66, 198), ("high3", 118, 198), ("high4", 196, 204),
    ("high5", 238, 204), ("high6", 290, 204), ("high7", 374, 198), ("high8", 418, 198),
    ("high9", 466, 198), ("high10", 546, 198), ("high11", 610, 198),
    # under the roof
    ("roof1", 86, 116), ("roof2", 148, 116), ("roof3", 216, 116), ("roof4", 286, 120),
    ("roof5", 360, 120), ("roof6", 440, 116), ("roof7", 484, 116), ("roof8", 550, 116),
)

RELOAD = ("low1", "mid6", "roof4", "high11")

PATHS = """
    floor1 - floor2 - floor3 - floor4 - floor5 = crates = floor6 - brink
    brink ~ raft1 - raft2 = shore / step / mid10
    floor3 / low3
    low1 - low2 - low3 ~ belt1 = belt2 = belt3 - belt4 > floor6
    low2 / high2
    mid1 = pile = mid2 - mid3 - mid4 = mid5 - mid6 - mid7 ~ mid8
    mid8 - mid9 = mid10 - mid11
    belt3 / mid4
    belt1 ~ mid3
    mid1 > low2
    high1 = high2 - high3 ~ high4 - high5 - high6 ~ high7 - high8 - high9 / mid8
    high3 / roof1 - roof2 - roof3 ~ roof4 - roof5 ~ roof6 = roof7 - roof8 ~ high10 - high11
    high5 / roof3
    high7 / roof5
    high6 > mid5
    high10 > mid10
"""


def populate(terrain):
    level = Level(terrain, SCALE, back="Hall.bmp", graphics="LEVEL.BMP",
                  material="Material.Bmp", jumper_force=36000, kicker_force=45000)
    for x, y in ((44, 430), (110, 430), (60, 198), (100, 116), (520, 116), (600, 198), (600, 282),
                 (380, 430)):
        level.start(x, y)
    level.item(FLAG, 24, 364, name="Furnace", respawn=900)
    level.item(FLAG, 616, 198, name="Loading bay", respawn=900)
    level.item(TEAMSPAWN, 60, 430, name="Red")
    level.item(TEAMSPAWN, 584, 282, name="Blue")
    level.item(DOMINATION, 372, 290, name="Gears", detect_dist=40)
    level.item(DOMINATION, 500, 396, name="Raft", detect_dist=32)
    level.item(MEDIKIT, 120, 250, amount=25)
    level.item(MEDIKIT, 306, 360)
    level.item(MEDIKIT, 318, 120, amount=100, respawn=2400)
    level.item(MEDIKIT, 458, 100, amount=50, bounce=250)
    level.item(KICKERPAD, 358, 430, amount=4)
    level.item(KICKERPAD, 176, 282, amount=3, detect_dist=16)
    level.item(KICKERPAD, 440, 198, amount=2, gravity=0)
    for name, x, y in WAYPOINTS:
        level.waypoint(name, x, y, reload=name in RELOAD)
    level.paths(PATHS)
    return level


def draw(folder):
    terrain = build_terrain()
    populate(terrain).write(folder)
    write_bmp(folder / "LEVEL.BMP", draw_level(terrain))
    write_bmp(folder / "Hall.bmp", halve(draw_background()))
    write_bmp(folder / "Material.Bmp", terrain.picture())
