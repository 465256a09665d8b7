#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

"""Looks at the links of every Markdown file: those to files and headings of the project must lead
to one, every picture must say in words what it shows, and every picture in docs/ must be used. Long
names of the code that stand there must stand in the code as well."""

import pathlib
import re
import sys
import urllib.parse

ROOT = pathlib.Path(__file__).resolve().parents[2]
LINK = re.compile(r"(!?)\[((?:[^\[\]]|\[[^\]]*\])*)\]\(([^)\s]+)\)")
LONG_NAME = re.compile(r"`([A-Z][A-Za-z0-9]{14,})`")
CODE = re.compile(r"^```.*?^```|`[^`\n]+`", re.MULTILINE | re.DOTALL)


def markdown_files():
    for path in sorted(ROOT.rglob("*.md")):
        if path.relative_to(ROOT).parts[0] not in ("build", ".git"):
            yield path


def anchors(path):
    """The names under which a file's headings can be linked to."""
    for heading in re.findall(r"^#+ +(.+?) *$", CODE.sub(
            lambda code: code.group().strip("`") if "\n" not in code.group() else "",
            path.read_text("utf-8")), re.MULTILINE):
        words = re.sub(r"[^\w\- ]", "", heading.lower())
        yield words.replace(" ", "-")


def problems():
    shown = set()
    links = 0
    for path in markdown_files():
        for picture, text, address in LINK.findall(CODE.sub("", path.read_text("utf-8"))):
            links += 1
            where = f"{path.relative_to(ROOT)}: {address}"
            if picture and not text.strip():
                yield f"{where} has no words for those who cannot see it"
            parts = urllib.parse.urlsplit(address)
            if parts.scheme:
                continue
            target = (path.parent / urllib.parse.unquote(parts.path)).resolve() \
                if parts.path else path
            if picture:
                shown.add(target)
            if not target.exists():
                yield f"{where} leads nowhere"
            elif parts.fragment and parts.fragment not in anchors(target):
                yield f"{where} leads to a heading that does not exist"
    for picture in sorted((ROOT / "docs" / "pictures").glob("*.png")):
        if picture not in shown:
            yield f"{picture.relative_to(ROOT)} is shown nowhere"
    code = "".join(path.read_text("utf-8") for folder in ("src", "tests")
                   for path in (ROOT / folder).rglob("*.[ch]*"))
    for path in markdown_files():
        for name in sorted(set(LONG_NAME.findall(path.read_text("utf-8")))):
            if not re.search(rf"\b{name}\b", code):
                yield f"{path.relative_to(ROOT)}: no {name} is in the code"
    if links == 0:
        yield "no link was found in any file"


found = list(problems())
print("\n".join(found))
sys.exit(1 if found else 0)
