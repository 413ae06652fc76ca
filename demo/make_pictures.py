#!/usr/bin/env python3
"""Makes the pictures of the demonstration sets: one folder per set, one subfolder per class.

    make_pictures.py [FOLDER]     default: pictures/ beside this script

The same program gives the same pictures. Takes a few minutes; the results are kept in the repository.
"""

import sys
from pathlib import Path
from random import Random

import shapes
from camera import photograph
from defects import cracks, pores, scratches
from picture_files import write_colour_bitmap, write_grey_bitmap, write_jpeg
from surfaces import Tile, Washer

STEEL = (0.985, 1.0, 1.02)
GLAZE = (1.06, 1.0, 0.88)
SMALL, USUAL, LARGE = (320, 240), (640, 480), (1280, 960)

# class: what is wrong with its parts, and its files
PARTS = {
    "gut": (None, [
        ("Scheibe 01.bmp", Washer, SMALL), ("Scheibe 02.jpg", Washer, USUAL), ("Scheibe 03.jpg", Washer, USUAL),
        ("Scheibe 04 groß.jpg", Washer, LARGE), ("Fliese 01.bmp", Tile, SMALL), ("Fliese 02.jpg", Tile, USUAL),
        ("Fliese 03.jpg", Tile, USUAL), ("Fliese 04.jpg", Tile, USUAL), ("DSC0001.JPG", Tile, USUAL)]),
    "Kratzer": (scratches, [
        ("Scheibe 11.bmp", Washer, SMALL), ("Scheibe 12.jpg", Washer, USUAL), ("Scheibe 13.jpg", Washer, USUAL),
        ("Scheibe 14.jpg", Washer, USUAL), ("Fliese 11.bmp", Tile, SMALL), ("Fliese 12.jpg", Tile, USUAL),
        ("Fliese 13 schräg.jpg", Tile, USUAL), ("Fliese 14 farbig.bmp", Tile, SMALL)]),
    "Pore": (pores, [
        ("Scheibe 21.bmp", Washer, SMALL), ("Scheibe 22.jpg", Washer, USUAL), ("Scheibe 23.jpg", Washer, USUAL),
        ("Fliese 21.bmp", Tile, SMALL), ("Fliese 22.jpg", Tile, USUAL), ("Fliese 23 groß.jpg", Tile, LARGE),
        ("Fliese 24.jpg", Tile, USUAL), ("DSC0017.JPG", Washer, USUAL)]),
    "Riß": (cracks, [
        ("Scheibe 31.bmp", Washer, SMALL), ("Scheibe 32.jpg", Washer, USUAL), ("Scheibe 33 Öl.jpg", Washer, USUAL),
        ("Fliese 31.bmp", Tile, SMALL), ("Fliese 32.jpg", Tile, USUAL), ("Fliese 33 Rückseite.jpg", Tile, USUAL),
        ("Fliese 34.jpg", Tile, USUAL), ("DSC0023.JPG", Tile, USUAL)]),
}
COLOUR_BITMAPS = {"Fliese 14 farbig.bmp"}   # any other bitmap is grey


def write(path, plane, tint):
    grey = [[min(255, max(0, round(value))) for value in row] for row in plane]
    if path.suffix == ".bmp" and path.name not in COLOUR_BITMAPS:
        write_grey_bitmap(path, grey)
        return
    table = [tuple(min(255, round(value * part)) for part in tint) for value in range(256)]
    rows = [[table[value] for value in row] for row in grey]
    if path.suffix == ".bmp":
        write_colour_bitmap(path, rows)
    else:
        write_jpeg(path, rows, 78)


def make_parts(folder):
    for name, (spoil, files) in PARTS.items():
        (folder / name).mkdir(parents=True, exist_ok=True)
        for file_name, part, size in files:
            random = Random(f"{name}/{file_name}")
            plane = photograph(random, part, spoil, size)
            write(folder / name / file_name, plane, STEEL if part is Washer else GLAZE)


def main():
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent / "pictures"
    make_parts(folder / "Demo")
    shapes.make(folder / "Formen")


if __name__ == "__main__":
    main()
