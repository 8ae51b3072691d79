"""When two pictures show the same: the one rule of all stored pictures.

Systems round a line or a letter to the one pixel or its neighbour. So a pixel agrees with the other picture if any of the nine pixels
at its place has nearly its colour, and all but a handful must agree, looked at from both pictures. What is missing, added, moved by two
pixels or coloured otherwise leaves more than a handful."""

import png_file
from png_file import CHANNELS

LARGEST_STEP_OF_A_CHANNEL = 40
PIXELS_THAT_MAY_DISAGREE = 12


def near(one, other):
    return all(abs(a - b) <= LARGEST_STEP_OF_A_CHANNEL for a, b in zip(one, other))


def disagreeing(first, second):
    """(x, y) of each pixel of the first picture's rows that the second has nowhere near."""
    for y, (row, other) in enumerate(zip(first, second)):
        if row == other:
            continue
        for at in range(0, len(row), CHANNELS):
            pixel = row[at : at + CHANNELS]
            if pixel != other[at : at + CHANNELS] and not has_near(pixel, second, at, y):
                yield at // CHANNELS, y


def has_near(pixel, rows, at, y):
    beside = [place for place in (at - CHANNELS, at, at + CHANNELS) if 0 <= place < len(rows[y])]
    return any(near(pixel, row[place : place + CHANNELS]) for row in rows[max(y - 1, 0) : y + 2] for place in beside)


def differences(first, second):
    """The pixels of two pictures (width, rows) that disagree; None if the sizes do."""
    if first[0] != second[0] or len(first[1]) != len(second[1]):
        return None
    return set(disagreeing(first[1], second[1])) | set(disagreeing(second[1], first[1]))


def faults_of(expected, actual, shown):
    """A list of what is wrong with the picture in the file `actual`: empty, or one line. Then `shown` is a picture of both and of what
    differs."""
    if expected.read_bytes() == actual.read_bytes():
        return []
    pictures = png_file.read(expected), png_file.read(actual)
    found = differences(*pictures)
    if found is not None and len(found) <= PIXELS_THAT_MAY_DISAGREE:
        return []
    shown.parent.mkdir(parents=True, exist_ok=True)
    png_file.write(shown, *side_by_side(*pictures, found or set()))
    what = f"{len(found)} pixels differ" if found is not None else "has another size"
    return [f"{actual.name}: {what}; look at {shown}, and if it is meant to be so run scripts/renew-pictures"]


def side_by_side(expected, actual, found):
    """Expected, actual and their difference in one picture, as (width, rows). In the difference what disagrees is white, and what
    differs within the rule is shown dark."""
    (width, rows), (other_width, other_rows) = expected, actual
    height, gap = max(len(rows), len(other_rows)), bytes((255, 0, 255)) * 4
    result = []
    for y in range(height):
        one = padded(rows, y, width)
        other = padded(other_rows, y, other_width)
        marks = bytearray(min(abs(a - b), 120) for a, b in zip(one, other))
        for x in (x for x, row in found if row == y):
            marks[x * CHANNELS : (x + 1) * CHANNELS] = b"\xff" * CHANNELS
        result.append(bytearray(one + gap + other + gap + marks))
    return len(result[0]) // CHANNELS, result


def padded(rows, y, width):
    return bytes(rows[y]) if y < len(rows) else bytes(width * CHANNELS)
