"""Generates the files that scripts/bench --load opens: a terrain of a million triangles in three formats, ten million coloured points, and
a million points as text. The bytes are the same on every machine."""

import math
import struct

COLUMNS, ROWS = 1000, 500
POINTS_OF_THE_CLOUD, POINTS_OF_THE_TEXT = 10_000_000, 1_000_000
BLOCK = 100_000


def height(x, y):
    return 8.0 * math.sin(x * 0.037) * math.cos(y * 0.029) + 2.0 * math.sin(x * 0.21 + y * 0.13)


def vertices():
    return [(float(x), float(y), height(x, y)) for y in range(ROWS + 1) for x in range(COLUMNS + 1)]


def triangles():
    for y in range(ROWS):
        for x in range(COLUMNS):
            at = y * (COLUMNS + 1) + x
            above = at + COLUMNS + 1
            yield at, at + 1, above + 1
            yield at, above + 1, above


def obj(stream):
    for x, y, z in vertices():
        stream.write(b"v %.4f %.4f %.6f\n" % (x, y, z))
    for corners in triangles():
        stream.write(b"f %d %d %d\n" % tuple(corner + 1 for corner in corners))


def ply(stream):
    stream.write(
        b"ply\nformat binary_little_endian 1.0\nelement vertex %d\nproperty float x\nproperty float y\nproperty float z\n"
        b"element face %d\nproperty list uchar int vertex_indices\nend_header\n" % ((COLUMNS + 1) * (ROWS + 1), 2 * COLUMNS * ROWS)
    )
    for vertex in vertices():
        stream.write(struct.pack("<3f", *vertex))
    for corners in triangles():
        stream.write(struct.pack("<B3i", 3, *corners))


def stl(stream):
    stream.write(bytes(80) + struct.pack("<I", 2 * COLUMNS * ROWS))
    places = vertices()
    for a, b, c in triangles():
        # Readers compute the normals themselves.
        stream.write(struct.pack("<12fH", 0.0, 0.0, 0.0, *places[a], *places[b], *places[c], 0))


def cloud(stream):
    stream.write(
        b"ply\nformat binary_little_endian 1.0\nelement vertex %d\nproperty float x\nproperty float y\nproperty float z\n"
        b"property uchar red\nproperty uchar green\nproperty uchar blue\nend_header\n" % POINTS_OF_THE_CLOUD
    )
    side = math.isqrt(POINTS_OF_THE_CLOUD)
    for begin in range(0, POINTS_OF_THE_CLOUD, BLOCK):
        block = bytearray()
        for i in range(begin, begin + BLOCK):
            x, y = (i % side) * 0.01, (i // side) * 0.01
            z = math.sin(x * 0.7) + math.cos(y * 0.9)
            block += struct.pack("<3f3B", x, y, z, i % 251, i // 7 % 241, i // 31 % 239)
        stream.write(block)


def text(stream):
    for i in range(POINTS_OF_THE_TEXT):
        x, y = (i % 1000) * 0.1, (i // 1000) * 0.1
        stream.write(b"%.2f %.2f %.5f\n" % (x + 100.0, y + 100.0, height(x, y)))


# File name: (title, writer).
FILES = {
    "hills.obj": ("1,000,000 triangles, OBJ", obj),
    "hills.ply": ("the same, binary PLY", ply),
    "hills.stl": ("the same, binary STL", stl),
    "cloud.ply": ("10,000,000 coloured points, binary PLY", cloud),
    "points.xyz": ("1,000,000 points, XYZ", text),
}


def make(folder):
    """Writes the missing files."""
    folder.mkdir(parents=True, exist_ok=True)
    for name, (_, write) in FILES.items():
        if not (folder / name).exists():
            part = folder / f"{name}.part"
            with part.open("wb", buffering=1 << 20) as stream:
                write(stream)
            part.rename(folder / name)
