# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

"""A virtual desktop with the real editor in it, used with mouse and keys.

Only programs that any Debian has are called: Xvfb, openbox, xdotool and ImageMagick.
"""

import itertools
import os
import shutil
import subprocess
import sys
import tempfile
import time

WAIT = 60.0  # seconds until something that must happen counts as failed
BETWEEN_PRESSES = 0.45  # seconds; two faster presses at one place are a double click


class Failure(Exception):
    """What the editor should have shown or written, and did not."""


def run(*words, **options):
    return subprocess.run(words, check=True, capture_output=True, **options).stdout


class Picture:
    """Pixels as rows of red, green, blue bytes; `alpha` has a byte a pixel where it is known."""

    def __init__(self, width, height, data, alpha=None):
        self.width, self.height, self.data, self.alpha = width, height, data, alpha

    @classmethod
    def load(cls, path):
        width, height = map(int, run("identify", "-format", "%w %h", path).split())
        rgb = run("convert", path, "-alpha", "off", "-depth", "8", "rgb:-")
        alpha = run("convert", path, "-alpha", "extract", "-depth", "8", "gray:-")
        return cls(width, height, rgb, alpha)

    def parts(self, width, height):
        """Places of opaque parts that are not of one colour, so that they can be recognised."""
        for top in range(0, self.height - height, 37):
            for left in range(0, self.width - width, 41):
                opaque = all(self.alpha[(top + y) * self.width + left:][:width] == b"\xff" * width
                             for y in range(height))
                colours = {self.pixel(left + x, top) for x in range(width)}
                if opaque and len(colours) > 5:
                    yield left, top

    def row(self, y, left=0, width=None):
        start = (y * self.width + left) * 3
        return self.data[start:start + 3 * (self.width - left if width is None else width)]

    def pixel(self, x, y):
        return tuple(self.row(y, x, 1))

    def find(self, pattern, rows):
        """Where `rows` (y offset -> bytes) of another picture stand in this one, or None."""
        first = pattern[0]
        for y in range(self.height - rows):
            line = self.row(y)
            at = line.find(first)
            while at >= 0:
                if at % 3 == 0 and all(
                        self.row(y + i, at // 3, len(pattern[i]) // 3) == pattern[i]
                        for i in range(1, rows)):
                    return at // 3, y
                at = line.find(first, at + 1)
        return None


class Desktop:
    """Xvfb and a window manager, with one editor at a time."""

    def __init__(self, folder, width=1280, height=1000, scale=None):
        self.folder = folder
        self.home = tempfile.mkdtemp(prefix="editor-home-")
        self.size = (width, height)
        self.editor = self.manager = None
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", f"{width}x{height}x24",
             "-noreset", "-nolisten", "tcp"], pass_fds=[write], stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as answer:
            number = answer.readline().strip()
        if not number:
            raise Failure("Xvfb did not start")
        keep = {name: os.environ[name] for name in ("PATH", "LANG", "LC_ALL", "ASAN_OPTIONS")
                if name in os.environ}
        self.environment = dict(keep, HOME=self.home, DISPLAY=":" + number,
                                XDG_RUNTIME_DIR=self.home, QT_QPA_PLATFORM="xcb")
        if scale:
            self.environment["QT_SCALE_FACTOR"] = str(scale)
        self.manager = subprocess.Popen(["openbox"], env=self.environment,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


    def __enter__(self):
        try:
            # A window that appears before the manager does would never become the active one.
            self.wait("the window manager", lambda: b"window id" in self.call(
                "xprop", "-root", "_NET_SUPPORTING_WM_CHECK"))
        except Failure:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in (self.editor, self.manager, self.server):
            if process and process.poll() is None:
                process.terminate()
                process.wait()
        shutil.rmtree(self.home, ignore_errors=True)

    # Programs of the desktop -------------------------------------------------------------------

    def call(self, *words):
        return run(*words, env=self.environment)

    def xdotool(self, *words):
        return self.call("xdotool", *map(str, words)).decode()

    def start(self, program, working_folder):
        """`program`: the words of its command line."""
        self.editor = subprocess.Popen(program, env=self.environment, cwd=working_folder)
        self.wait_for_window("Torvak! Level editor")

    def close(self):
        """Closes the main window as its close box does, and waits for the editor's end."""
        self.xdotool("key", "alt+F4")
        status = self.editor.wait(WAIT)
        if status != 0:
            raise Failure(f"the editor ended with status {status}")

    # Seeing --------------------------------------------------------------------------------------

    def wait(self, what, condition):
        end = time.monotonic() + WAIT
        while time.monotonic() < end:
            if self.editor and self.editor.poll() is not None:
                raise Failure(f"the editor ended while waiting for {what}")
            result = condition()
            if result:
                return result
            time.sleep(0.05)
        self.screenshot("failure")
        raise Failure(f"waited in vain for {what}")

    def active_title(self):
        try:
            return self.xdotool("getactivewindow", "getwindowname").strip()
        except subprocess.CalledProcessError:
            return ""

    def wait_for_window(self, title):
        self.wait(f'the window "{title}"', lambda: self.active_title() == title)
        time.sleep(0.2)

    def screen(self):
        data = self.call("import", "-window", "root", "-depth", "8", "rgb:-")
        return Picture(*self.size, data)

    def screenshot(self, name):
        """Leaves a picture of the screen once it no longer changes."""
        before = b""
        for _ in range(50):
            data = self.screen().data
            if data == before:
                break
            before = data
            time.sleep(0.1)
        path = os.path.join(self.folder, name + ".png")
        self.call("import", "-window", "root", "-depth", "8", path)
        return path

    def find(self, picture):
        """The screen position of a picture's top left pixel, once it can be seen."""
        width, rows = 40, 6
        # Marks may lie on a part, so that several are tried.
        parts = list(itertools.islice(picture.parts(width, rows), 12))

        def look():
            screen = self.screen()
            for left, top in parts:
                place = screen.find([picture.row(top + y, left, width) for y in range(rows)], rows)
                if place:
                    return place[0] - left, place[1] - top
            return None

        return self.wait("the level picture", look)

    # Mouse and keys ------------------------------------------------------------------------------

    def move(self, x, y):
        self.xdotool("mousemove", "--sync", x, y)
        time.sleep(0.03)

    def click(self, x, y, button=1):
        self.move(x, y)
        self.xdotool("click", button)
        time.sleep(BETWEEN_PRESSES)

    def drag(self, start, end, button):
        self.move(*start)
        self.xdotool("mousedown", button)
        steps = 6
        for i in range(1, steps + 1):
            self.move(start[0] + (end[0] - start[0]) * i // steps,
                      start[1] + (end[1] - start[1]) * i // steps)
        self.xdotool("mouseup", button)
        time.sleep(BETWEEN_PRESSES)

    def key(self, *keys):
        for key in keys:
            self.xdotool("key", key)
            time.sleep(0.12)

    def type(self, text):
        self.xdotool("type", "--delay", 12, text)
        time.sleep(0.1)

    def answer_chooser(self, title, path):
        """Types a path into a file or folder chooser and accepts it."""
        self.wait_for_window(title)
        self.key("ctrl+a")
        self.type(path)
        time.sleep(0.2)
        self.key("Return")
        self.wait_for_window("Torvak! Level editor")


if __name__ == "__main__":  # runs a command on such a desktop
    with Desktop(tempfile.gettempdir()) as desktop:
        sys.exit(subprocess.call(sys.argv[1:], env=desktop.environment))
