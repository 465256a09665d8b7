# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

"""The canyon: an evening in the desert. Truecolour PNG."""

import math

from . import scenery
from .canvas import Canvas, blend, colours
from .level import (DOMINATION, FLAG, KICKERPAD, MEDIKIT, TEAMSPAWN, Level)
from .noise import Dice, NoiseTile, StoneTile, rough_wave, wave
from .pictures import enlarge, write_png
from .terrain import AIR, GROUND, ROPE_HOLD, WATER, Terrain

WIDTH, HEIGHT, SCALE = 640, 400, 2
WATER_LEVEL = 350

SKY = blend(colours("3b2a4a 5e3553 87435a ab5555 c96d50 dc8a58 e8a86c"), 13)
SUN = colours("f0b070 f8c888 ffe0a8 fff0cc")
CLOUD = colours("7a3f58 a4515a c96a58 e08c64 f0b080")
MESAS = (
    blend(colours("a35a58 b76a5a cc8262 d89a70"), 7),
    blend(colours("7a4050 96504f b0664f c98260"), 7),
    blend(colours("57303f 733d42 8f5042 ab6a4c"), 7),
)
ROCK = blend(colours("2c1620 4a2428 6a342c 8c4a32 b06638 d08a4c eab470 f8d49c"), 12)
CAVE = blend(colours("20121c 34202a 4a2c34 62403e 845444 ac7850 d8a868"), 11)
SAND = colours("5c3024 9c5c34 cc8c4c e8b468 f8d890")
BRUSH = colours("2c2c20 4c5028 747838 a0a04c c8c46c")
WATER_RAMP = colours("14343c 1c4c50 287068 489884 88ccac e0f8dc")
WOOD = colours("24141c 44281f 6c4428 98683c c49458 e4c088")
BONE = colours("4a2c28 7c5444 b48c68 dcc090 f4e4bc")
CACTUS = colours("142820 20442c 386838 609048 98b860")
CLOTH = colours("401428 80203c b83c44 e07048 f8b868")
CANVAS_CLOTH = colours("604030 a07858 d0a880 f0d8b0 fff0d8")
METAL = colours("181820 383844 60606c 9494a0 d0d0d8")
FLAME = colours("a03818 e07820 f8b838 fff0a0")
CRYSTAL = colours("3c1c5c 6c30a0 a058d8 d898f8 f8e0ff")

CACTUS_PICTURE = """
...o...
..ogo..
..oGo.o
o.ogoog
go.Gogo
Googogo
ogggGo.
.ooGo..
..ogo..
..oGo..
..ogo..
"""

SKULL_PICTURE = """
.......oo
..ooooowo
.owwwwwo.
owwwwwwo.
owowwowo.
owwwwwo..
.owowo...
"""

FOSSIL_SKULL = """
....ooooo.......
..oowwwwwooooo..
.owwwwwwwwwwwwo.
owwwoovwwwwwwvwo
owwvoovwwwvwwwwo
.owwvvwwoooooooo
..owwwwwowowowo.
...ovwwwwwwwwo..
....ovvvvvvoo...
.....oooooo.....
"""

SIGN_PICTURE = """
oooooooooo..
oWwwwwwwwWo.
owddwddwdwwo
oWwwwwwwwWo.
oooowwoooo..
...owwo.....
...owwo.....
...owwo.....
"""

CART_PICTURE = """
..CcCCcCc..
.mmmmmmmmm.
.mllllllMm.
.mmlmmlmMm.
..mlmmlmm..
..mmmmmmm..
...o...o...
..oMo.oMo..
...o...o...
"""


BIRDS = ((214, 58), (229, 66), (243, 54), (560, 44))


def build_terrain():
    terrain = Terrain(WIDTH, HEIGHT)
    rock = NoiseTile(8, 4, seed=11)
    for outline in LAND:
        terrain.polygon(outline, GROUND)
    for points, radius in CAVES:
        terrain.tunnel(points, radius)
    terrain.roughen(rock, 13)
    terrain.hold_on_undersides()
    for x0, x1, y in DECKS:
        terrain.rect(x0, y, x1, y + 4, ROPE_HOLD)
    for bridge in BRIDGES:
        bridge.build(terrain)
    terrain.rect(*BALLOON_BASKET, ROPE_HOLD)
    for y in range(WATER_LEVEL, HEIGHT):
        for x in range(WIDTH):
            if terrain.at(x, y) == AIR:
                terrain.set(x, y, WATER)
    return terrain


LAND = (
    # left wall with its ledges
    [(-9, 132), (40, 130), (92, 133), (118, 140), (128, 152), (160, 153), (166, 166), (152, 178),
     (148, 196), (156, 208), (150, 238), (164, 241), (206, 242), (210, 252), (190, 262), (174, 272),
     (168, 292), (172, 314), (214, 318), (224, 330), (220, 350), (230, 410), (-9, 410)],
    # the butte in the middle
    [(286, 178), (352, 176), (362, 186), (352, 204), (348, 226), (358, 244), (352, 262), (358, 300),
     (366, 330), (372, 410), (264, 410), (276, 340), (286, 300), (280, 268), (288, 240), (282, 214),
     (288, 200), (280, 188)],
    # right wall
    [(650, 92), (606, 94), (566, 99), (522, 101), (512, 112), (518, 140), (510, 156), (500, 166),
     (462, 170), (458, 180), (476, 192), (494, 206), (500, 228), (494, 250), (452, 256), (446, 266),
     (462, 276), (474, 296), (470, 312), (442, 322), (432, 333), (436, 352), (424, 410),
     (650, 410)],
)

CAVES = (
    ([(54, 120), (52, 160), (46, 204)], 13),                                    # shaft from the top
    ([(38, 214), (84, 222), (124, 224), (176, 220)], 17),                       # upper gallery
    ([(63, 226), (63, 270), (58, 292)], 13),                                    # shaft below it
    ([(34, 296), (88, 302), (140, 298), (186, 296)], 16),                       # the mine
    ([(272, 296), (300, 304), (340, 302), (372, 296)], 16),                     # through the butte
    ([(470, 236), (540, 238), (580, 230)], 16),                                 # right gallery
    ([(574, 222), (606, 226)], 25),                                             # crystal cave
    ([(610, 210), (607, 160), (604, 84)], 14),                                  # its way up
    ([(420, 352), (480, 354), (530, 350), (580, 338), (606, 332)], 17),         # flooded cave
)

# Wooden decks as (left, right, row).
DECKS = ((226, 262, 318), (418, 452, 348), (384, 424, 312), (392, 420, 236), (310, 344, 142),
         (92, 118, 98))
BRIDGES = (
    scenery.Bridge(162, 158, 286, 179, sag=11),
    scenery.Bridge(356, 178, 464, 172, sag=9, gap=(396, 432)),
)
BALLOON_BASKET = (424, 96, 448, 104)


def mesa_profile(x, seed, height):
    """The height of a table mountain range at x: flat tops, steep walls, slopes of scree."""
    raw = 0.72 * rough_wave(x / 88 + seed, seed, 2) + 0.28 * rough_wave(x / 30, seed + 9, 2)
    steps = raw * 5.2
    level, rest = math.floor(steps), steps % 1
    cliff = min(1.0, max(0.0, (rest - 0.42) * 7))
    return height * (level + cliff * 0.86 + rest * 0.14) / 5


def paint_mesas(canvas, ramp, seed, base, height, step):
    """One range of mountains down to row `base`; step: how coarse its faces are."""
    for x in range(canvas.width):
        top = base - mesa_profile(x, seed, height)
        face = rough_wave(x / step, seed + 4, 3)
        lit = 0.30 * (mesa_profile(x - 2, seed, height) - mesa_profile(x + 2, seed, height))
        for y in range(int(top), canvas.height):
            layer = wave(y / 3.1 + 0.02 * x, seed + 5)
            haze = max(0.0, (y - base + height * 0.45) / height)
            shade = 0.10 + 0.50 * face + 0.16 * layer + 0.36 * haze + min(0.2, max(-0.2, lit))
            if y - top < 1.5:
                shade = 0.95
            canvas.put(x, y, ramp, shade)


def paint_distance(canvas):
    """What lies behind the level: also the whole of the background picture."""
    scenery.paint_sky(canvas, SKY, 262)
    canvas.glow(452, 176, 150, 0.34)
    canvas.ball(452, 176, 27, SUN, 0.5, 1.1)
    dice = Dice(5)
    for _ in range(15):
        x, y = dice.whole(0, WIDTH), dice.whole(18, 150)
        streak(canvas, x, y, dice.whole(50, 150), dice.whole(1, 99))
    paint_mesas(canvas, MESAS[0], 21, 268, 96, 9)
    paint_mesas(canvas, MESAS[1], 34, 304, 112, 7)
    paint_mesas(canvas, MESAS[2], 48, 352, 104, 5)


def streak(canvas, cx, cy, length, seed):
    """A thin evening cloud, lit from below."""
    for x in range(-length // 2, length // 2):
        body = 1 - abs(2 * x / length)
        rise = 5 * body * rough_wave(x / 13, seed, 3)
        fall = 3.4 * body * wave(x / 17, seed + 7)
        for y in range(round(cy - rise), round(cy + fall)):
            shade = 0.35 + 0.5 * (y - cy + rise) / (rise + fall + 0.1) + (cy - 60) / 260
            canvas.put(cx + x, y, CLOUD, shade)


def paint_caves(canvas, terrain):
    """The back walls of all passages: what lay inside the land before they were dug."""
    solid = Terrain(WIDTH, HEIGHT)
    for outline in LAND:
        solid.polygon(outline, GROUND)
    solid.roughen(NoiseTile(8, 4, seed=11), 13)
    stones = StoneTile(8, 11, seed=60)
    for y in range(HEIGHT):
        for x in range(WIDTH):
            if solid.at(x, y) == GROUND and terrain.at(x, y) != GROUND:
                joint, stone, height = stones.at(x, y)
                shade = 0.27 + 0.11 * stone + 0.09 * height - (0.11 if joint < 0.12 else 0)
                for down in range(1, 7):
                    if terrain.at(x, y - down) in (GROUND, ROPE_HOLD):
                        shade -= 0.028 * (7 - down)
                        break
                canvas.put(x, y, CAVE, shade)


def strata(x, y):
    """The layers of the rock: broad ones in different shades and thin dark ones between."""
    bent = y + 5 * math.sin(x / 83) + 4 * wave(x / 37, 70)
    band = wave(bent / 15, 71)
    thin = wave(bent / 2.6, 72)
    return 0.26 * (band - 0.5) - (0.10 if thin < 0.16 else 0)


def paint_wood(canvas, terrain):
    for x0, x1, y in DECKS:
        paint_deck(canvas, terrain, x0, x1, y)
    for bridge in BRIDGES:
        bridge.paint(canvas, WOOD)
    for ladder in ((52, 137, 232), (58, 234, 312)):
        scenery.paint_ladder(canvas, WOOD, *ladder)
    for x in (82, 118, 152):
        paint_props(canvas, terrain, x)


def paint_deck(canvas, terrain, x0, x1, y):
    """Planks on two posts that reach down to the ground."""
    for x in (x0 + 4, x1 - 6):
        row = y + 4
        while row < HEIGHT and not terrain.solid(x, row):
            for dx, shade in enumerate((0.15, 0.55, 0.35)):
                canvas.put(x + dx, row, WOOD, shade - (0.2 if row - y < 8 else 0))
            row += 1
        canvas.line(x + 1, y + 14, x + (8 if x < (x0 + x1) // 2 else -6), y + 4, WOOD, 0.4, 2)
    for x in range(x0, x1):
        gap = (x - x0) % 9 == 8
        for dy, shade in enumerate((0.95, 0.72, 0.5, 0.05)):
            canvas.put(x, y + dy, WOOD, 0.1 if gap else shade - 0.1 * wave(x / 2, 80 + dy))


def paint_props(canvas, terrain, x):
    """A pair of timbers with a beam, from the floor of the mine to its roof."""
    floor = terrain.floor_below(x, 298)
    roof = 298
    while not terrain.solid(x, roof):
        roof -= 1
    for side in (x - 9, x + 7):
        for dx, shade in enumerate((0.1, 0.6, 0.42, 0.2)):
            canvas.rect(side + dx, roof, side + dx + 1, floor + 1, WOOD, shade)
    for dy, shade in enumerate((0.8, 0.6, 0.4, 0.1)):
        canvas.rect(x - 13, roof + 1 + dy, x + 15, roof + 2 + dy, WOOD, shade)


def paint_balloon(canvas):
    """The balloon that carries the highest platform."""
    x0, y0, x1, y1 = BALLOON_BASKET
    middle, top = (x0 + x1) // 2, y0 - 56
    for dy in range(-26, 34):
        half = 26 * math.sqrt(max(0.0, 1 - (dy / 26) ** 2)) if dy < 8 else 26 - (dy - 4) * 0.80
        if half < 1:
            continue
        for dx in range(-int(half), int(half) + 1):
            t = math.asin(max(-1.0, min(1.0, dx / (half + 0.5))))
            gore = int((t + 1.6) * 2.6) & 1
            shade = 0.45 + 0.42 * math.sin(t) - 0.010 * dy
            edge = abs(dx) >= int(half)
            canvas.put(middle + dx, top + dy + 6, CLOTH if gore else CANVAS_CLOTH,
                       0.05 if edge else shade)
    for dx in (-9, -3, 3, 9):
        canvas.line(middle + dx // 3, y0 - 17, middle + dx, y0, WOOD, 0.25)
    canvas.rect(x0, y0, x1, y1, WOOD, 0.5)
    for y in range(y0, y1):
        for x in range(x0, x1):
            weave = 0.75 if (x // 2 + y // 2) & 1 else 0.45
            edge = x in (x0, x1 - 1) or y == y1 - 1
            canvas.put(x, y, WOOD, 0.95 if y == y0 else 0.05 if edge else weave)


def paint_lantern(canvas, x, y, radius=44):
    canvas.line(x, y - 6, x, y - 1, METAL, 0.2)
    canvas.rect(x - 2, y - 1, x + 3, y, METAL, 0.1)
    canvas.rect(x - 1, y, x + 2, y + 3, FLAME, 0.8)
    canvas.put(x, y + 1, FLAME, 1.0)
    canvas.rect(x - 2, y + 3, x + 3, y + 4, METAL, 0.1)
    canvas.glow(x, y + 1, radius, 0.62, lambda i: canvas.ramps[i] in (CAVE, ROCK, WOOD))


def paint_crystals(canvas, terrain):
    dice = Dice(3)
    for x in (566, 574, 583, 594, 604, 612):
        floor = terrain.floor_below(x, 228)
        tall, lean = dice.whole(5, 13), dice.between(-0.4, 0.4)
        for up in range(tall):
            half = 2 if up < tall - 3 else (tall - 1 - up) // 2
            for dx in range(-half, half + 1):
                shade = 0.05 if abs(dx) == half and half else 0.5 + 0.22 * dx
                canvas.put(round(x + lean * up) + dx, floor - up, CRYSTAL, shade)
        canvas.glow(x, floor - 6, 26, 0.10, lambda i: canvas.ramps[i] in (CAVE, ROCK))


def paint_details(canvas, terrain):
    cactus = {"o": (CACTUS, 0.0), "g": (CACTUS, 0.5), "G": (CACTUS, 0.85)}
    bone = {"o": (CANVAS_CLOTH, 0.0), "w": (CANVAS_CLOTH, 0.8)}
    sign = {"o": (WOOD, 0.0), "w": (WOOD, 0.6), "W": (WOOD, 0.85), "d": (WOOD, 0.2)}
    cart = {"m": (METAL, 0.35), "l": (METAL, 0.6), "M": (METAL, 0.85), "o": (METAL, 0.0),
            "C": (CRYSTAL, 0.9), "c": (CRYSTAL, 0.6)}
    for x, y, mirrored in ((24, 110, False), (74, 110, True), (146, 130, False), (326, 160, False),
                           (548, 80, True), (496, 150, True), (178, 222, True),
                           (450, 300, False)):
        scenery.put_on_ground(canvas, terrain, x, y, CACTUS_PICTURE, cactus, mirrored)
    scenery.put_on_ground(canvas, terrain, 190, 300, SKULL_PICTURE, bone)
    scenery.put_on_ground(canvas, terrain, 140, 120, SIGN_PICTURE, sign)
    scenery.put_on_ground(canvas, terrain, 538, 80, SIGN_PICTURE, sign, True)
    scenery.put_on_ground(canvas, terrain, 100, 300, CART_PICTURE, cart)
    for x, y in BIRDS:
        canvas.sprite(x, y, scenery.BIRD_PICTURE, {"b": (ROCK, 0.0)})
    paint_bushes(canvas, terrain)
    paint_fossil(canvas, 96, 358)
    for x, y, radius in ((118, 214, 50), (46, 204, 40), (88, 290, 44), (150, 288, 44),
                         (322, 292, 48), (560, 338, 52), (528, 230, 46), (598, 206, 52)):
        paint_lantern(canvas, x, y, radius)


def paint_fossil(canvas, x0, y0):
    """The bones of something large, deep in the rock: a spine with ribs, and a skull."""
    for step in range(74):
        x = x0 + step
        y = round(y0 + 9 * math.sin(step / 15 + 0.6))
        canvas.line(x, y, x, y + 2, BONE, 0.75 if step % 5 < 3 else 0.25)
        if 8 < step < 54 and step % 6 == 1:
            length = 17 * math.sin((step - 4) / 17) ** 0.5 if step < 57 else 0
            for down in range(int(length)):
                bend = round(4 * math.sin(down / 5.5))
                canvas.put(x - bend, y + 3 + down, BONE, 0.72 - down / 36)
    picture = {"o": (BONE, 0.0), "w": (BONE, 0.85), "v": (BONE, 0.45)}
    canvas.sprite(x0 + 70, y0 + 1, FOSSIL_SKULL, picture)


def paint_bushes(canvas, terrain):
    """Dry grass in patches on open rock."""
    for x, y in scenery.surfaces(terrain):
        if canvas.ramps[y * WIDTH + x] is SAND and wave(x / 11, 93) > 0.62:
            tall = int(5 * rough_wave(x / 1.7, 94, 2))
            for up in range(1, tall):
                canvas.put(x, y - up, BRUSH, 0.2 + 0.2 * up)


def draw_level(terrain):
    canvas = Canvas(WIDTH, HEIGHT, SKY)
    paint_distance(canvas)
    paint_caves(canvas, terrain)
    scenery.paint_rock(canvas, terrain, ROCK, StoneTile(5, 9, seed=40), strata)
    scenery.paint_turf(canvas, terrain, SAND, 50, thickness=3, tufts=0.0,
                       belongs=lambda x, y: canvas.ramps[y * WIDTH + x] is ROCK)
    paint_balloon(canvas)
    scenery.paint_water(canvas, terrain, WATER, WATER_RAMP, 90)
    paint_wood(canvas, terrain)
    paint_crystals(canvas, terrain)
    paint_details(canvas, terrain)
    return canvas.resolve()


def draw_background():
    canvas = Canvas(WIDTH, HEIGHT, SKY)
    paint_distance(canvas)
    return canvas.resolve()


def populate(terrain):
    level = Level(terrain, SCALE, back="sunset.png", graphics="canyon.png",
                  material="material.png")
    for x, y in ((14, 110), (80, 110), (340, 160), (560, 80), (632, 70), (200, 222), (30, 300),
                 (454, 300)):
        level.start(x, y)
    level.item(FLAG, 30, 110, name="Red flag", respawn=900)
    level.item(FLAG, 580, 80, name="Blue flag", respawn=900)
    level.item(TEAMSPAWN, 88, 110, name="Red")
    level.item(TEAMSPAWN, 558, 80, name="Blue")
    level.item(DOMINATION, 326, 130, name="Butte", detect_dist=48)
    level.item(DOMINATION, 590, 235, name="Crystals", detect_dist=40)
    level.item(MEDIKIT, 104, 90, amount=50, respawn=1200)
    level.item(MEDIKIT, 322, 300)
    level.item(MEDIKIT, 140, 300, amount=25)
    level.item(MEDIKIT, 606, 335, amount=75, respawn=1800)
    level.item(MEDIKIT, 436, 80, amount=100, bounce=0, gravity=0, respawn=2400)
    level.item(KICKERPAD, 184, 305, amount=3)
    level.item(KICKERPAD, 476, 240, amount=2, bounce=800)
    for name, x, y in WAYPOINTS:
        level.waypoint(name, x, y, reload=name in RELOAD)
    level.paths(PATHS)
    return level


WAYPOINTS = (
    # left plateau, its lookout and the bridge
    ("rim1", 14, 110), ("rim2", 39, 110), ("rim3", 80, 110), ("lookout", 104, 90),
    ("rim4", 126, 130), ("rim5", 154, 140), ("bridge1", 188, 150), ("bridge2", 224, 150),
    ("bridge3", 260, 160),
    # butte
    ("butte1", 296, 160), ("tower", 328, 130), ("butte2", 348, 160), ("broken1", 382, 165),
    ("arch1", 286, 300), ("arch2", 322, 300), ("arch3", 356, 300),
    # right wall
    ("broken2", 446, 155), ("ledge", 484, 150), ("balloon", 436, 86), ("top1", 524, 80),
    ("top2", 562, 80), ("top3", 589, 80), ("top4", 625, 70),
    ("gallery1", 459, 240), ("gallery2", 504, 240), ("gallery3", 548, 240), ("crystal", 584, 235),
    ("chimney", 604, 230),
    ("shore1", 438, 305), ("shore2", 453, 300), ("dock", 428, 338), ("grotto", 598, 335),
    # scaffold and pier in the river
    ("deck1", 392, 300), ("deck2", 416, 300), ("deck3", 406, 228), ("pier1", 234, 310),
    ("pier2", 254, 310),
    # caves on the left
    ("cave1", 43, 215), ("cave2", 80, 225), ("cave3", 130, 225), ("cave4", 166, 225),
    ("nose", 205, 225),
    ("mine1", 32, 300), ("mine2", 66, 300), ("mine3", 104, 300), ("mine4", 142, 300),
    ("mine5", 180, 300), ("quay", 212, 305),
)

RELOAD = ("tower", "mine3", "crystal")

PATHS = """
    rim1 - rim2 = rim3 - rim4 - rim5 - bridge1 - bridge2 - bridge3 - butte1 - butte2 - broken1
    rim3 / lookout
    butte1 / tower > butte2
    broken1 ~ broken2 - ledge / top1 - top2 - top3 = top4
    broken1 ~ balloon ~ top1
    cave1 / rim2
    cave1 = cave2 - cave3 - cave4 - nose
    mine2 / cave2
    mine1 - mine2 - mine3 - mine4 - mine5 - quay = pier1 - pier2 = arch1 - arch2 - arch3
    quay / nose
    arch3 = deck1 - deck2 = shore1 - shore2
    deck2 / deck3 = gallery1 - gallery2 - gallery3 - crystal - chimney
    deck3 ~ broken1
    chimney / top4
    top3 > chimney
    shore2 / gallery1
    deck2 ~ dock ~ grotto
"""


def draw(folder):
    terrain = build_terrain()
    populate(terrain).write(folder)
    write_png(folder / "canyon.png", enlarge(draw_level(terrain), SCALE))
    write_png(folder / "sunset.png", enlarge(draw_background(), SCALE))
    write_png(folder / "material.png", enlarge(terrain.picture(), SCALE))
