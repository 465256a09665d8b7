# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

"""Writing pictures: PNG with 8 bits a sample, and BMP with 24 bits a pixel.

A picture is a list of rows, top row first; a row is a list of colours, each a tuple of
(red, green, blue) or (red, green, blue, alpha), 0 to 255.
"""

import struct
import zlib
from itertools import chain

PNG_SIGNATURE = b"\x89PNG\r\n\x1a\n"
TRUECOLOUR, PALETTE, TRUECOLOUR_ALPHA = 2, 3, 6
FILTER_NONE, FILTER_UP = b"\x00", b"\x02"


def enlarge(rows, factor):
    """Every pixel becomes a square of factor x factor pixels."""
    wide = [[colour for colour in row for _ in range(factor)] for row in rows]
    return [row for row in wide for _ in range(factor)]


def halve(rows):
    """Every square of 2 x 2 pixels becomes one pixel, their mean."""
    return [[tuple((sum(samples) + 2) // 4 for samples in zip(*square))
             for square in zip(upper[::2], upper[1::2], lower[::2], lower[1::2])]
            for upper, lower in zip(rows[::2], rows[1::2])]


def _chunk(kind, data):
    checksum = zlib.crc32(kind + data)
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", checksum)


def _filtered(lines):
    """Enlarged pixel art repeats whole lines: such a line is written as its (empty) difference from
    the line above, all others as they are, which deflates best for few flat colours."""
    previous = None
    for line in lines:
        if line == previous:
            yield FILTER_UP + bytes(len(line))
        else:
            yield FILTER_NONE + line
        previous = line


def _write_png(path, width, height, colour_type, lines, before_data=b""):
    header = struct.pack(">IIBBBBB", width, height, 8, colour_type, 0, 0, 0)
    data = zlib.compress(b"".join(_filtered(lines)), 9)
    path.write_bytes(PNG_SIGNATURE + _chunk(b"IHDR", header) + before_data
                     + _chunk(b"IDAT", data) + _chunk(b"IEND", b""))


def write_png(path, rows):
    """Truecolour, with alpha when the colours have four numbers."""
    colour_type = TRUECOLOUR_ALPHA if len(rows[0][0]) == 4 else TRUECOLOUR
    lines = [bytes(chain.from_iterable(row)) for row in rows]
    _write_png(path, len(rows[0]), len(rows), colour_type, lines)


def write_palette_png(path, rows):
    """One byte a pixel; the palette holds the colours in the order of their first use. At most 256
    colours without alpha."""
    palette = list(dict.fromkeys(chain.from_iterable(rows)))
    index = {colour: i for i, colour in enumerate(palette)}
    lines = [bytes(index[colour] for colour in row) for row in rows]
    entries = _chunk(b"PLTE", bytes(chain.from_iterable(palette)))
    _write_png(path, len(rows[0]), len(rows), PALETTE, lines, entries)


def write_bmp(path, rows):
    """24 bits a pixel: bottom row first, blue before red, rows padded to four bytes."""
    width, height = len(rows[0]), len(rows)
    padding = bytes(-width * 3 % 4)
    pixels = b"".join(
        bytes(chain.from_iterable((b, g, r) for r, g, b in row)) + padding
        for row in reversed(rows))
    headers_size = 14 + 40
    file_header = struct.pack("<2sIHHI", b"BM", headers_size + len(pixels), 0, 0, headers_size)
    pixels_per_metre = 2835  # 72 dots an inch
    info_header = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(pixels),
                              pixels_per_metre, pixels_per_metre, 0, 0)
    path.write_bytes(file_header + info_header + pixels)
