#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

"""Draws the example levels anew: pictures and level files of every folder beside this script."""

import sys
from pathlib import Path

sys.dont_write_bytecode = True  # the folder is handed out as it is

from drawing import canyon, factory, islands

LEVELS = {"canyon": canyon, "factory": factory, "islands": islands}


def main(names):
    here = Path(__file__).resolve().parent
    for name in names or LEVELS:
        folder = here / name
        folder.mkdir(exist_ok=True)
        LEVELS[name].draw(folder)


if __name__ == "__main__":
    main(sys.argv[1:])
