"""Writes pictures as files: Windows bitmaps by its own code, JPEG files by ImageMagick."""

import struct
import subprocess
from pathlib import Path

PIXELS_PER_METRE = 3780  # 96 dpi


def _headers(width, height, bits, palette):
    """File header, info header and palette of a bottom-up bitmap."""
    stride = (width * bits // 8 + 3) // 4 * 4
    start = 14 + 40 + len(palette)
    size = stride * height
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, 0, size, PIXELS_PER_METRE, PIXELS_PER_METRE,
                       len(palette) // 4, 0)
    return struct.pack("<2sIHHI", b"BM", start + size, 0, 0, start) + info + palette, stride


def write_grey_bitmap(path, rows):
    """`rows` from the top, each a sequence of grey values 0 to 255. 8 bits a pixel with a grey palette."""
    palette = bytes(value for grey in range(256) for value in (grey, grey, grey, 0))
    head, stride = _headers(len(rows[0]), len(rows), 8, palette)
    body = b"".join(bytes(row).ljust(stride, b"\0") for row in reversed(rows))
    Path(path).write_bytes(head + body)


def write_colour_bitmap(path, rows):
    """`rows` from the top, each a sequence of (red, green, blue). 24 bits a pixel."""
    head, stride = _headers(len(rows[0]), len(rows), 24, b"")
    body = b"".join(bytes(value for red, green, blue in row for value in (blue, green, red)).ljust(stride, b"\0")
                    for row in reversed(rows))
    Path(path).write_bytes(head + body)


def write_jpeg(path, rows, quality):
    """`rows` as for a colour bitmap. No time stamp and no comment, so that the same rows give the same file."""
    head = f"P6 {len(rows[0])} {len(rows)} 255\n".encode()
    body = b"".join(bytes(value for pixel in row for value in pixel) for row in rows)
    subprocess.run(["convert", "ppm:-", "-strip", "-sampling-factor", "4:2:0", "-quality", str(quality), f"jpeg:{path}"],
                   input=head + body, check=True)
