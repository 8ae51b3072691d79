"""PNG files of 8-bit red, green and blue without interlacing, as the viewer and the gallery write them."""

import struct
import sys
import zlib

CHANNELS = 3


def chunks(data):
    at = 8
    while at < len(data):
        size, kind = struct.unpack_from(">I4s", data, at)
        yield kind, data[at + 8 : at + 8 + size]
        at += 12 + size


def paeth(left, above, corner):
    guess = left + above - corner
    return min((abs(guess - left), 0, left), (abs(guess - above), 1, above), (abs(guess - corner), 2, corner))[2]


def unfiltered(kind, row, above):
    for index in range(len(row) if kind else 0):
        left = row[index - CHANNELS] if index >= CHANNELS else 0
        corner = above[index - CHANNELS] if index >= CHANNELS else 0
        predicted = (0, left, above[index], (left + above[index]) // 2, paeth(left, above[index], corner))[kind]
        row[index] = (row[index] + predicted) & 0xFF
    return row


def read(path):
    parts = list(chunks(path.read_bytes()))
    width, height, depth, color, _, _, interlaced = struct.unpack(">IIBBBBB", parts[0][1])
    if (depth, color, interlaced) != (8, 2, 0):
        sys.exit(f"{path} is not a picture of 8-bit red, green and blue")
    data = zlib.decompress(b"".join(content for kind, content in parts if kind == b"IDAT"))
    stride, rows = width * CHANNELS, [bytearray(width * CHANNELS)]
    for at in range(0, height * (stride + 1), stride + 1):
        rows.append(unfiltered(data[at], bytearray(data[at + 1 : at + 1 + stride]), rows[-1]))
    return width, rows[1:]


def chunk(kind, content):
    return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", zlib.crc32(kind + content))


def write(path, width, rows):
    header = struct.pack(">IIBBBBB", width, len(rows), 8, 2, 0, 0, 0)
    pixels = zlib.compress(b"".join(b"\0" + row for row in rows), 9)
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", pixels) + chunk(b"IEND", b""))
