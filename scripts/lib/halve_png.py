"""halve_png.py FROM TO: writes a picture at half its width and height, each pixel the mean of four."""

import pathlib
import sys

import png_file
from png_file import CHANNELS


def halved(width, rows):
    for upper, lower in zip(rows[::2], rows[1::2]):
        row = bytearray()
        for at in range(0, width // 2 * 2 * CHANNELS, 2 * CHANNELS):
            for index in range(at, at + CHANNELS):
                row.append((upper[index] + upper[index + CHANNELS] + lower[index] + lower[index + CHANNELS] + 2) // 4)
        yield row


width, rows = png_file.read(pathlib.Path(sys.argv[1]))
png_file.write(pathlib.Path(sys.argv[2]), width // 2, list(halved(width, rows)))
