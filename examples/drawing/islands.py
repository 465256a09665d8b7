# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

"""The islands: adrift over the sea at dusk. The level's PNG carries alpha: sky, clouds and water
are veils through which the parallax layer and the background show. The material is a palette PNG.
"""

import math

from . import scenery
from .canvas import Canvas, blend, colours, with_alpha
from .level import (DOMINATION, FLAG, KICKERPAD, MEDIKIT, TEAMSPAWN, Level)
from .noise import Dice, NoiseTile, StoneTile, hash01, rough_wave, wave
from .pictures import enlarge, write_palette_png, write_png
from .terrain import AIR, GROUND, ROPE_HOLD, WATER, Terrain

WIDTH, HEIGHT, SCALE = 640, 400, 2
SEA_LEVEL = 356
BEACHES = 334  # no beach lies higher

VEIL = blend(colours("1c1670d0 342484cc 643498c4 9c4498bc cc5894b0 f07488a4 ffa07c98"), 14)
CLOUD = blend(colours("6c5098a0 9068a8b0 c08cb4c0 e8b8c0d0 ffe4d8e0"), 9)
SEA = blend(colours("101c50e8 183468dc 205484d0 307ca0c4 58b0b8c0 a8e4d8d4 f4fff4f0"), 10)
FALL = colours("4888b8b0 78b8d8b8 b0e0f0c8 f0ffffe0")
ROCK = with_alpha(blend(colours("1c1430 30244c 4a3a66 6a5480 8c7498 b49cb0 e0c8c8"), 13))
GRASS = with_alpha(blend(colours("12283c 184a44 2c7448 58a04c 98c858 d8ec88"), 11))
SAND = with_alpha(blend(colours("3c2c4c 6c4c5c a47c6c d4b084 f4dca8"), 9))
WOOD = with_alpha(colours("201428 442838 704440 a06c4c cc9c64 ecd094"))
STONE = with_alpha(blend(colours("2c2848 504c70 80789c b0a4b8 dcd0d0 fff4e4"), 11))
LEAVES = with_alpha(blend(colours("10243c 1a4848 2c7450 509c50 8cc45c ccea80"), 11))
BLOSSOM = with_alpha(blend(colours("3c1848 702c68 a84484 dc6c9c f8a4b8 ffdce0"), 11))
LANTERN = with_alpha(colours("802030 d04838 f89048 ffd880 fffae0"))
CORAL = with_alpha(colours("401848 882c60 d84c6c f88c74 ffd0a8"))
CLOTH = with_alpha(colours("301848 58287c 8c44a8 c878d0 f4bcec"))
INK = with_alpha(colours("1c1430"))

FAR_SKY = blend(colours("181448 2c2068 50308a 803e96 b45090 e0707c f49c74 fcc88c"), 18)
FAR_SEA = blend(colours("3c2c70 583c84 845090 b86c94 e8a090 fcd4a4"), 9)
MOON = colours("c8a8d0 e4ccdc f8ecec fffcf4")
STAR = colours("8070c0 c8b8f0 ffffff")
HAZE = with_alpha(blend(colours("443478 5c4488 7c5898 a474a4 cc98ac"), 9), 235)

# Floating islands as (middle, top row, half width, depth, height of the hill on top).
ISLES = (
    (122, 218, 100, 92, 16), (330, 262, 74, 66, 6), (532, 204, 92, 96, 10),
    (242, 172, 24, 26, 2), (300, 112, 46, 44, 5), (414, 176, 26, 28, 2),
    (440, 98, 40, 40, 4), (592, 92, 40, 42, 6), (58, 112, 46, 46, 6), (160, 118, 20, 22, 1),
    (520, 316, 24, 22, 1), (216, 318, 22, 20, 1), (62, 316, 24, 26, 2),
)
# The sea floor and the islets that rise from it.
SHORES = (
    [(-9, 388), (40, 384), (70, 366), (96, 344), (140, 340), (166, 352), (190, 374), (240, 388),
     (330, 390), (372, 378), (396, 354), (420, 346), (446, 350), (470, 372), (520, 388),
     (560, 384), (590, 390), (650, 382), (650, 410), (-9, 410)],
)
BRIDGES = (
    scenery.Bridge(214, 222, 264, 263, sag=6),
    scenery.Bridge(396, 264, 448, 212, sag=9, gap=(416, 432)),
    scenery.Bridge(340, 112, 406, 98, sag=7),
    scenery.Bridge(476, 98, 556, 92, sag=9),
)
WATERFALLS = ((17, 222, 8, 1), (624, 204, 9, -1))  # left edge, top, width, where the land is
TEMPLE = (302, 214, 358)  # left end, row and right end of the lintel


def island_rows(x, isle):
    """The first and the last row of an island in column x."""
    middle, top, half, depth, hill = isle
    t = (x - middle) / half
    surface = top - hill * (1 - t * t) + 4 * (rough_wave(x / 26, 5, 2) - 0.5)
    body = (1 - abs(t) ** 1.7) * (0.42 + 0.75 * rough_wave(x / 17, middle, 3))
    spikes = 0.24 * abs(math.sin(x / 7.3 + middle)) * (1 - abs(t))
    return round(surface), round(top + 5 + depth * max(0.0, body + spikes - 0.12))


def build_terrain():
    terrain = Terrain(WIDTH, HEIGHT)
    for outline in SHORES:
        terrain.polygon(outline, GROUND)
    for isle in ISLES:
        for x in range(isle[0] - isle[2], isle[0] + isle[2] + 1):
            surface, bottom = island_rows(x, isle)
            terrain.rect(x, surface, x + 1, bottom, GROUND)
    terrain.roughen(NoiseTile(16, 3, seed=8), 6)
    terrain.hold_on_undersides()
    for bridge in BRIDGES:
        bridge.build(terrain)
    terrain.rect(TEMPLE[0], TEMPLE[1], TEMPLE[2], TEMPLE[1] + 7, ROPE_HOLD)
    for x0, top, width, _ in WATERFALLS:
        for x in range(x0, x0 + width):
            for y in range(top, SEA_LEVEL):
                if terrain.at(x, y) == AIR:
                    terrain.set(x, y, WATER)
    for y in range(SEA_LEVEL, HEIGHT):
        for x in range(WIDTH):
            if terrain.at(x, y) == AIR:
                terrain.set(x, y, WATER)
    return terrain


# Veils

def paint_veil(canvas):
    """The sky as a veil, with slanting beams of evening light."""
    scenery.paint_sky(canvas, VEIL, 330)
    for y in range(HEIGHT):
        for x in range(WIDTH):
            beam = wave((x + y * 0.8) / 46, 77) * wave((x + y * 0.8) / 15, 78)
            canvas.shade(x, y, 0.20 * max(0.0, beam - 0.22))


def paint_clouds(canvas, ramp, seed, count, low, high, thickness=0.22):
    dice = Dice(seed)
    for n in range(count):
        length = dice.whole(60, 170)
        scenery.paint_cloud(canvas, dice.whole(-20, WIDTH + 20), dice.whole(low, high), length,
                            ramp, seed * 10 + n, thickness)


def paint_waterfall(canvas, terrain, x0, top, width, inland):
    """A brook that runs off an island's edge and falls into the sea. inland: 1 when the island
    lies to the right, -1 to the left."""
    shore = x0 + width if inland > 0 else x0 - 1
    for step in range(26):
        x = shore + inland * step
        y = terrain.floor_below(x, top - 30)
        for dy in range(4 if step < 20 else 2):
            canvas.put(x, y + dy, FALL, 0.95 - 0.2 * dy + 0.2 * (wave(x / 2, 9) - 0.5))
    lip = terrain.floor_below(shore, top - 30)
    for x in range(x0, x0 + width):
        out = (x0 + width - x) if inland > 0 else (x - x0 + 1)
        first = lip + out * out // 9
        for y in range(first, SEA_LEVEL):
            if not terrain.solid(x, y):
                streak = wave((y + 60 * hash01(x // 2, 0, 8)) / 15, 300 + x // 2)
                edge = 0.3 if x in (x0, x0 + width - 1) else 0.0
                canvas.put(x, y, FALL, 0.30 + 0.75 * streak - edge + (0.5 if y == first else 0))
    dice = Dice(x0)
    for _ in range(70):
        x, y = x0 + width // 2 + dice.whole(-15, 15), SEA_LEVEL + dice.whole(-8, 2)
        if abs(x - x0 - width // 2) < 15 + (y - SEA_LEVEL) * 1.2:
            canvas.ball(x, y, dice.between(0.8, 2.6), FALL, 0.55, 1.1)


# Land

def evening_light(isle_of):
    """Rock gets darker towards the tip of its island."""
    def shade(x, y):
        isle = isle_of(x, y)
        return 0.14 - 0.24 * (y - isle[1]) / isle[3] if isle else 0.04
    return shade


def nearest_isle(x, y):
    for isle in ISLES:
        if abs(x - isle[0]) <= isle[2] + 4 and -20 <= y - isle[1] <= isle[3] + 20:
            return isle
    return None


def on_land(y):
    """Grass grows on the islands, sand lies on what rises from the sea."""
    return y < BEACHES


def paint_land(canvas, terrain):
    scenery.paint_rock(canvas, terrain, ROCK, StoneTile(9, 11, seed=20),
                       evening_light(nearest_isle))
    scenery.paint_turf(canvas, terrain, SAND, 61, thickness=6, tufts=0.0,
                       belongs=lambda x, y: not on_land(y))
    scenery.paint_turf(canvas, terrain, GRASS, 62, thickness=5, tufts=0.34,
                       belongs=lambda x, y: on_land(y) and canvas.ramps[y * WIDTH + x] is ROCK)


def paint_vines(canvas, terrain):
    """Roots and vines under the islands."""
    for x in range(2, WIDTH - 2):
        if hash01(x, 0, 91) > 0.13:
            continue
        for y in range(1, SEA_LEVEL - 30):
            if terrain.solid(x, y) and terrain.at(x, y + 1) == AIR and on_land(y):
                paint_vine(canvas, terrain, x, y + 1, 4 + int(26 * hash01(x, y, 92) ** 2))


def paint_vine(canvas, terrain, x, y, length):
    for down in range(length):
        sway = round(1.4 * math.sin(down / 5 + x))
        if terrain.at(x + sway, y + down) != AIR:
            break
        canvas.put(x + sway, y + down, LEAVES, 0.25 + 0.1 * (down & 1))
        if down % 4 == 2:
            side = 1 if down & 4 else -1
            canvas.put(x + sway + side, y + down, LEAVES, 0.65)
            canvas.put(x + sway + 2 * side, y + down - 1, LEAVES, 0.5)


def paint_tree(canvas, x, foot, tall, spread, ramp, seed):
    """A leaning trunk that forks, under a crown of many tufts."""
    dice = Dice(seed)
    lean = dice.between(-0.25, 0.25)
    for up in range(tall):
        thick = 2 + 3 * (1 - up / tall) ** 2
        left = x + lean * up + 1.5 * math.sin(up / 9)
        for dx in range(-int(thick), int(thick) + 1):
            edge = abs(dx) == int(thick)
            canvas.put(round(left) + dx, foot - up, WOOD,
                       0.05 if edge else 0.42 + 0.09 * dx + 0.1 * wave(up / 3, seed + dx))
    cx, cy = x + lean * tall, foot - tall
    for side in (-1, 1):
        canvas.line(round(cx), cy + 8, round(cx + side * spread * 0.6), cy - 2, WOOD, 0.3, 2)
    tufts = [(cx + dice.between(-1, 1) * spread, cy + dice.between(-0.55, 0.28) * spread,
              dice.between(0.26, 0.46) * spread) for _ in range(22)]
    tufts = [tuft for tuft in tufts if math.hypot((tuft[0] - cx) / spread,
                                                  (tuft[1] - cy) / (0.62 * spread)) < 0.95]
    for tx, ty, radius in tufts:
        canvas.ball(tx, ty, radius + 1, ramp, 0.0, 0.0, 0.86)
    for tx, ty, radius in sorted(tufts, key=lambda tuft: -tuft[1]):
        lift = 0.5 - 0.85 * (ty - cy) / spread + 0.2 * (tx - cx) / spread
        paint_tuft(canvas, tx, ty, radius, ramp, lift, seed)


def paint_tuft(canvas, cx, cy, radius, ramp, lift, seed):
    reach = int(radius) + 1
    for dy in range(-reach, reach + 1):
        for dx in range(-reach, reach + 1):
            nx, ny = dx / radius, dy / (radius * 0.86)
            ragged = 1 - 0.28 * hash01(int(cx) + dx, int(cy) + dy, seed)
            if nx * nx + ny * ny <= ragged:
                leaf = 0.26 * (hash01((int(cx) + dx) // 2, int(cy) + dy, seed + 1) - 0.5)
                canvas.put(int(cx) + dx, int(cy) + dy, ramp,
                           0.10 + 0.56 * lift + 0.28 * (0.5 * nx - ny) + leaf)


def paint_palm(canvas, x, foot, tall, seed):
    dice = Dice(seed)
    bend = dice.between(-9, 9)
    for up in range(tall):
        t = up / tall
        left = round(x + bend * t * t)
        for dx, shade in ((-1, 0.1), (0, 0.55), (1, 0.75)):
            canvas.put(left + dx, foot - up, WOOD, shade - (0.3 if up % 4 == 0 else 0))
    top_x, top_y = round(x + bend), foot - tall
    for angle in (-172, -28, -8, -150, -118, -62, -92):
        paint_frond(canvas, top_x, top_y, math.radians(angle), dice.between(15, 20))
    for dx, dy in ((-2, 2), (2, 3), (0, 4)):
        canvas.ball(top_x + dx, top_y + dy, 1.6, WOOD, 0.2, 0.7)


def paint_frond(canvas, x, y, angle, length):
    """A leaf that rises from (x, y) and bends down under its weight."""
    for half_step in range(int(length * 2)):
        s = half_step / 2
        along = x + math.cos(angle) * s + 0.014 * s * s * math.cos(angle)
        down = y + math.sin(angle) * s * 0.9 + 0.036 * s * s
        fringe = 0 if s < 2 or s > length - 2 else 3 - (half_step & 1)
        canvas.put(round(along), round(down), LEAVES, 0.92 + 0.1 * math.cos(angle))
        for drop in range(1, fringe + 1):
            canvas.put(round(along), round(down) + drop, LEAVES, (0.7, 0.45, 0.12)[drop - 1])


# Things built

def paint_column(canvas, x, top, foot, broken=False):
    """A fluted column with base and, unless it is broken, a capital."""
    for y in range(top, foot):
        for dx in range(-4, 5):
            if broken and y - top < 3 + 4 * wave(dx / 2.2, x):
                continue
            flute = 0.16 if dx % 3 == 0 else 0.0
            edge = abs(dx) == 4
            joint = 0.2 if (foot - y) % 13 == 0 else 0.0
            canvas.put(x + dx, y, STONE, 0.06 if edge else 0.60 + 0.06 * dx - flute - joint)
    for y, half in ((foot - 1, 7), (foot - 2, 7), (foot - 3, 6)) + (
            () if broken else ((top, 7), (top + 1, 6), (top + 2, 5))):
        canvas.rect(x - half, y, x + half + 1, y + 1, STONE, 0.78 if y in (top, foot - 3) else 0.45)
        for dx in (-half, half):
            canvas.put(x + dx, y, STONE, 0.05)


def paint_temple(canvas, terrain):
    x0, y, x1 = TEMPLE
    for x in (310, 330, 350):
        paint_column(canvas, x, y + 7, terrain.floor_below(x, y + 20) + 1)
    for x in (286, 374):
        foot = terrain.floor_below(x, y + 10) + 1
        paint_column(canvas, x, foot - (17 if x < 300 else 26), foot, broken=True)
    for dy in range(7):
        for x in range(x0, x1):
            frieze = dy in (3, 4) and (x - x0) % 8 in (2, 3, 4)
            edge = x in (x0, x1 - 1) or dy == 6
            canvas.put(x, y + dy, STONE,
                       0.05 if edge else 0.95 if dy == 0 else 0.3 if frieze else 0.66)
    for x in range(x0 + 2, x1 - 2):
        if wave(x / 3, 55) > 0.55:
            canvas.put(x, y, GRASS, 0.75)
            canvas.put(x, y + 1, GRASS, 0.45)


HUT_PICTURE = """
............oooo............
..........oorrrroo..........
........oorrRRRRrroo........
......oorrRRrrrrRRrroo......
....oorrRRrrRRRRrrRRrroo....
..oorrRRrrRRrrrrRRrrRRrroo..
oorrRRrrRRrrRRRRrrRRrrRRrroo
ooooooooooooooooooooooooooo.
...owWwwwwwwwwwwwwwwwwwwo...
...owWwwoooooowwwwoooooWo...
...owWwwoyyyyowwwwoddddowo..
...owWwwoyooyowwwwoddddoWo..
...owWwwoyyyyowwwwoddddoWo..
...owWwwoooooowwwwodkddoWo..
...owWwwwwwwwwwwwwoddddoWo..
...owWwwwwwwwwwwwwoddddoWo..
...osssssssssssssssddddsso..
"""

BANNER_PICTURE = """
p........
ppccccccc
p.cCCCCC.
p.cCCCC..
p.cCCCCC.
p.ccccccc
p........
p........
p........
p........
p........
p........
"""

MUSHROOM_PICTURE = """
..ooo..
.orRro.
orRrrRo
ooooooo
..owo..
..owo..
"""


def paint_things(canvas, terrain):
    hut = {"o": (WOOD, 0.0), "r": (CORAL, 0.35), "R": (CORAL, 0.62), "w": (STONE, 0.62),
           "W": (STONE, 0.82), "y": (LANTERN, 0.8), "d": (WOOD, 0.4), "k": (LANTERN, 0.9),
           "s": (STONE, 0.3)}
    banner = {"p": (WOOD, 0.7), "c": (CLOTH, 0.35), "C": (CLOTH, 0.7)}
    mushroom = {"o": (CORAL, 0.0), "r": (CORAL, 0.5), "R": (CORAL, 1.0), "w": (SAND, 0.9)}
    scenery.put_on_ground(canvas, terrain, 138, 170, HUT_PICTURE, hut)
    scenery.put_on_ground(canvas, terrain, 588, 60, BANNER_PICTURE, banner)
    scenery.put_on_ground(canvas, terrain, 52, 80, BANNER_PICTURE, banner)
    for x, y in ((180, 180), (187, 180), (556, 170), (262, 240), (420, 150), (286, 80)):
        scenery.put_on_ground(canvas, terrain, x, y, MUSHROOM_PICTURE, mushroom)
    for bridge in BRIDGES:
        bridge.paint(canvas, WOOD)
        for x in (bridge.x0, bridge.x1):
            paint_lantern(canvas, x, bridge.row(x) - 20)


def paint_lantern(canvas, x, y):
    canvas.ball(x, y + 2, 3, LANTERN, 0.3, 1.0)
    canvas.put(x, y + 2, LANTERN, 1.0)
    canvas.rect(x - 1, y - 2, x + 2, y - 1, WOOD, 0.1)
    canvas.rect(x - 1, y + 5, x + 2, y + 6, WOOD, 0.1)
    canvas.glow(x, y + 2, 30, 0.34, lambda i: canvas.ramps[i] in (ROCK, GRASS, WOOD, STONE))


def paint_coral(canvas, terrain):
    dice = Dice(41)
    for _ in range(30):
        x = dice.whole(4, WIDTH - 5)
        foot = next((y for y in range(SEA_LEVEL, HEIGHT) if terrain.solid(x, y)), None)
        if foot is None or foot < SEA_LEVEL + 10:
            continue
        for branch in range(dice.whole(2, 4)):
            lean = dice.between(-0.8, 0.8)
            for up in range(dice.whole(4, 9)):
                canvas.put(round(x + lean * up), foot - up, CORAL, 0.35 + 0.08 * up)


def paint_trees(canvas, terrain):
    for x, y, tall, spread, ramp, seed in (
            (84, 160, 34, 26, BLOSSOM, 3), (196, 180, 20, 14, LEAVES, 4),
            (560, 160, 40, 28, LEAVES, 25), (500, 170, 22, 15, BLOSSOM, 6),
            (318, 76, 22, 17, BLOSSOM, 7), (40, 80, 18, 13, LEAVES, 8),
            (452, 70, 16, 12, LEAVES, 9), (610, 60, 20, 15, BLOSSOM, 10),
            (392, 240, 18, 13, LEAVES, 11)):
        paint_tree(canvas, x, terrain.floor_below(x, y) + 1, tall, spread, ramp, seed)
    for x, tall, seed in ((112, 34, 1), (126, 26, 2), (424, 32, 3)):
        paint_palm(canvas, x, terrain.floor_below(x, 320) + 1, tall, seed)


def draw_level(terrain):
    canvas = Canvas(WIDTH, HEIGHT, VEIL)
    paint_veil(canvas)
    paint_clouds(canvas, CLOUD, 5, 5, 30, 84, thickness=0.10)
    paint_clouds(canvas, CLOUD, 9, 9, 120, 300)
    paint_clouds(canvas, CLOUD, 14, 9, 334, 352)
    paint_land(canvas, terrain)
    paint_vines(canvas, terrain)
    scenery.paint_water(canvas, terrain, WATER, SEA, 35, sparkle=0.7, top=SEA_LEVEL)
    for waterfall in WATERFALLS:
        paint_waterfall(canvas, terrain, *waterfall)
    paint_coral(canvas, terrain)
    paint_trees(canvas, terrain)
    paint_temple(canvas, terrain)
    paint_things(canvas, terrain)
    for x, y in ((214, 66), (226, 74), (204, 78), (508, 46), (522, 52)):
        canvas.sprite(x, y, scenery.BIRD_PICTURE, {"b": (INK, 0.0)})
    return canvas.resolve()


# Behind the level

def draw_background():
    canvas = Canvas(WIDTH, HEIGHT, FAR_SKY)
    scenery.paint_sky(canvas, FAR_SKY, 300)
    dice = Dice(77)
    for _ in range(240):
        x, y = dice.whole(0, WIDTH - 1), int(190 * dice.between(0, 1) ** 1.5)
        canvas.put(x, y, STAR, dice.between(0.0, 1.0))
    canvas.glow(180, 108, 120, 0.26)
    canvas.ball(180, 108, 34, MOON, 0.3, 1.1)
    for cx, cy, radius in ((170, 98, 7), (192, 118, 9), (186, 92, 4), (166, 122, 5)):
        canvas.ball(cx, cy, radius, MOON, 0.45, 0.05)
    paint_clouds(canvas, tuple(colour[:3] for colour in CLOUD[:6]), 4, 10, 210, 296)
    for y in range(300, HEIGHT):
        for x in range(WIDTH):
            glitter = wave(x / (3 + (y - 300) / 9), y) > 0.72
            path = max(0.0, 1 - abs(x - 180) / (14 + (y - 300) * 0.7))
            shade = 0.75 - 0.7 * (y - 300) / 100 + 0.3 * path
            if glitter:
                shade += 0.3 * (0.4 + path)
            canvas.put(x, y, FAR_SEA, shade)
    return canvas.resolve()


def draw_parallax():
    """Islands and clouds in the middle distance; nothing else, so most of it is clear."""
    clear = ((0, 0, 0, 0),)
    canvas = Canvas(WIDTH, HEIGHT, clear)
    stones = StoneTile(7, 9, seed=88)
    for isle in ((90, 190, 60, 70, 14), (260, 236, 44, 46, 8), (396, 168, 34, 44, 8),
                 (500, 250, 60, 56, 12), (604, 150, 46, 60, 12), (190, 110, 24, 30, 5)):
        for x in range(isle[0] - isle[2], isle[0] + isle[2] + 1):
            surface, bottom = island_rows(x, isle)
            for y in range(surface, bottom):
                joint, stone, height = stones.at(x, y)
                deep = (y - surface) / (bottom - surface + 1)
                shade = 0.52 - 0.42 * deep + 0.12 * stone + 0.07 * height
                if joint < 0.1:
                    shade -= 0.1
                canvas.put(x, y, HAZE, 0.95 if y - surface < 2 else shade)
        for n in range(7):
            x = isle[0] + int((hash01(isle[0], n, 4) - 0.5) * 1.5 * isle[2])
            canvas.ball(x, island_rows(x, isle)[0] - 5, 4 + 5 * hash01(isle[0], n, 5),
                        HAZE, 0.2, 0.85)
    paint_clouds(canvas, CLOUD, 6, 9, 200, 350)
    return canvas.resolve()


# What is in it

WAYPOINTS = (
    # western island and the temple
    ("west1", 34, 190), ("west2", 70, 180), ("west3", 110, 180), ("west4", 156, 180),
    ("west5", 202, 190), ("bridge1", 238, 215), ("temple1", 266, 240), ("temple2", 296, 240),
    ("temple3", 324, 240), ("temple4", 364, 240), ("temple5", 400, 240),
    ("lintel1", 308, 205), ("lintel2", 352, 205),
    # eastern island
    ("plank1", 412, 235), ("plank2", 438, 205), ("east1", 462, 180), ("east2", 500, 180),
    ("east3", 550, 180), ("east4", 582, 180), ("spring", 608, 180),
    # stepping islets
    ("step1", 242, 150), ("step2", 402, 150), ("step3", 160, 100),
    # the northern row
    ("north1", 24, 90), ("north2", 64, 85), ("north3", 98, 90), ("north4", 260, 90),
    ("north5", 300, 85), ("north6", 330, 90), ("north7", 374, 95), ("north8", 405, 75),
    ("north9", 462, 80), ("north10", 516, 85), ("north11", 556, 75), ("north12", 598, 65),
    ("north13", 624, 70),
    # the sea
    ("beach1", 108, 320), ("beach2", 146, 320), ("beach3", 404, 320), ("beach4", 436, 320),
    ("islet1", 74, 300), ("islet2", 206, 300), ("islet3", 228, 300), ("islet4", 512, 300),
)

RELOAD = ("temple3", "north5", "islet4")

PATHS = """
    west1 - west2 - west3 - west4 - west5 - bridge1 - temple1 - temple2 - temple3 - temple4
    temple4 - temple5 - plank1 ~ plank2 - east1 - east2 - east3 - east4 - spring
    temple2 / lintel1 - lintel2
    lintel2 > temple4
    west5 ~ step1 = lintel1
    lintel2 ~ step2 ~ plank2
    west3 / north3
    north1 - north2 - north3 ~ step3 ~ north4
    step1 / north4
    north4 - north5 - north6 - north7 - north8 - north9 - north10 - north11 - north12 - north13
    step2 / north8
    east3 / north11
    beach1 - beach2 = islet2 - islet3 / temple1
    beach1 = islet1
    islet3 ~ beach3 - beach4 = islet4
    beach3 / temple5
    plank2 > beach4
"""


def populate(terrain):
    level = Level(terrain, SCALE, back="dusk.png", graphics="islands.png",
                  material="material.png", parallax="drift.png", parallax_scroll=True)
    for x, y in ((52, 180), (590, 180), (320, 80), (620, 60), (36, 85), (120, 320), (424, 320)):
        level.start(x, y)
    level.item(FLAG, 44, 180, name="West flag", respawn=900)
    level.item(FLAG, 596, 180, name="East flag", respawn=900)
    level.item(TEAMSPAWN, 92, 180, name="West")
    level.item(TEAMSPAWN, 520, 180, name="East")
    level.item(DOMINATION, 330, 205, name="Temple", detect_dist=48)
    level.item(DOMINATION, 440, 75, name="Summit", detect_dist=40)
    level.item(MEDIKIT, 160, 100, amount=50)
    level.item(MEDIKIT, 414, 150)
    level.item(MEDIKIT, 520, 300, amount=100, respawn=1800)
    level.item(MEDIKIT, 62, 300, amount=25, bounce=200)
    level.item(KICKERPAD, 134, 320, amount=5)
    level.item(KICKERPAD, 420, 320, amount=5, gravity=25)
    level.item(KICKERPAD, 242, 150, amount=2, detect_dist=12)
    for name, x, y in WAYPOINTS:
        level.waypoint(name, x, y, reload=name in RELOAD)
    level.paths(PATHS)
    return level


def draw(folder):
    terrain = build_terrain()
    populate(terrain).write(folder)
    write_png(folder / "islands.png", enlarge(draw_level(terrain), SCALE))
    write_png(folder / "dusk.png", enlarge(draw_background(), SCALE))
    write_png(folder / "drift.png", enlarge(draw_parallax(), SCALE))
    write_palette_png(folder / "material.png", enlarge(terrain.picture(), SCALE))
