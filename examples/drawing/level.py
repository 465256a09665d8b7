# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

"""A level beside its pictures: start points, items and waypoints, and the two files that hold them.

Both files are plain text, every line ended by CR LF: sections in brackets, "key=value" lines, blank
lines between groups. Values that are the game's standard are left out.
"""

from dataclasses import dataclass, field

MEDIKIT, FLAG, TEAMSPAWN, DOMINATION, KICKERPAD = range(5)
WALK, JUMP, ROPE = 0, 1, 2
MAX_LINKS = 4  # as many as the editor lets one waypoint have

# How far above the ground things are, in level pixels.
WAYPOINT_HEIGHT = 12
START_HEIGHT = 18
ITEM_HEIGHT = 8


@dataclass
class Item:
    kind: int
    x: int
    y: int
    amount: int = 1
    name: str = ""
    bounce: int = 500
    detect_dist: int = 0
    gravity: int = 50
    respawn: int = 600


@dataclass
class Waypoint:
    x: int
    y: int
    reload: bool = False
    links: list = field(default_factory=list)  # (waypoint index, WALK or a sum of JUMP and ROPE)


@dataclass
class Level:
    """ground: the material map on which everything stands, `scale` level pixels to its pixel.
    Places are given in the map's pixels, as x and a y in the air somewhere above the ground."""

    ground: object
    scale: int
    back: str
    graphics: str
    material: str
    parallax: str = ""
    parallax_scroll: bool = False
    jumper_force: int = 0
    kicker_force: int = 0
    starts: list = field(default_factory=list)
    items: list = field(default_factory=list)
    waypoints: dict = field(default_factory=dict)  # by name; the order is the numbering

    def standing(self, x, y, height):
        """The level position `height` above the ground under the map position (x, y)."""
        return (x * self.scale + self.scale // 2,
                self.ground.floor_below(x, y) * self.scale - height)

    def start(self, x, y):
        self.starts.append(self.standing(x, y, START_HEIGHT))

    def item(self, kind, x, y, **settings):
        self.items.append(Item(kind, *self.standing(x, y, ITEM_HEIGHT), **settings))

    def waypoint(self, name, x, y, reload=False):
        self.waypoints[name] = Waypoint(*self.standing(x, y, WAYPOINT_HEIGHT), reload)

    def link(self, start, end, needs=WALK):
        """One way: what a bot needs to get from start to end."""
        waypoint = self.waypoints[start]
        waypoint.links.append((list(self.waypoints).index(end), needs))
        if len(waypoint.links) > MAX_LINKS:
            raise ValueError(f"too many links leave waypoint {start}")

    def paths(self, text):
        """Links by lines such as "a - b = c": names, and between them what the way needs. All ways
        lead there and back, except a drop ">"."""
        needs = {"-": WALK, ">": WALK, "=": JUMP, "/": ROPE, "~": JUMP | ROPE}
        for line in text.strip().splitlines():
            words = line.split()
            for start, way, end in zip(words[0::2], words[1::2], words[2::2]):
                self.link(start, end, needs[way])
                if way != ">":
                    self.link(end, start, needs[way])

    def write(self, folder):
        (folder / "level.cfg").write_bytes(_text(self._level_lines()))
        (folder / "waypoint.cfg").write_bytes(_text(self._waypoint_lines()))

    def _level_lines(self):
        yield "[Map]"
        yield f"Back={self.back}"
        yield f"Level={self.graphics}"
        yield f"Material={self.material}"
        if self.parallax:
            yield f"Parallax={self.parallax}"
        yield ""
        yield f"NumItems={len(self.items)}"
        yield ""
        if self.parallax_scroll:
            yield "PScroll=1"
        yield ""
        yield f"NumStartPoints={len(self.starts)}"
        for n, (x, y) in enumerate(self.starts):
            yield f"StartX{n}={x}"
            yield f"StartY{n}={y}"
            yield ""
        yield ""
        yield "[Physics]"
        if self.jumper_force != 0:
            yield f"JumperForce={self.jumper_force}"
        if self.kicker_force != 0:
            yield f"KickerForce={self.kicker_force}"
        yield ""
        for n, item in enumerate(self.items):
            yield f"[Item.{n}]"
            yield from _item_lines(item)
            yield ""

    def _waypoint_lines(self):
        yield "[Map]"
        yield f"NumWayPoints={len(self.waypoints)}"
        yield ""
        for n, waypoint in enumerate(self.waypoints.values()):
            yield f"[Point.{n}]"
            yield f"X={waypoint.x}"
            yield f"Y={waypoint.y}"
            if waypoint.reload:
                yield "Flags=1"
            for slot, (destination, needs) in enumerate(waypoint.links):
                yield f"Link{slot}.Dest={destination}"
                if needs != WALK:
                    yield f"Link{slot}.Flags={needs}"
            yield ""


def _item_lines(item):
    standard = Item(item.kind, item.x, item.y)
    yield f"Type={item.kind}"
    yield f"PosX={item.x}"
    yield f"PosY={item.y}"
    yield f"Amount={item.amount}"
    if item.name:
        yield f"Name={item.name}"
    if item.bounce != standard.bounce:
        yield f"Bounce={item.bounce}"
    if item.detect_dist != standard.detect_dist:
        yield f"DetectDist={item.detect_dist}"
    if item.gravity != standard.gravity:
        yield f"Gravity={item.gravity}"
    if item.respawn != standard.respawn:
        yield f"Respawn={item.respawn}"


def _text(lines):
    return "".join(line + "\r\n" for line in lines).encode("cp1252")
