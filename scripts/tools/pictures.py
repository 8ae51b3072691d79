"""When two pictures show the same: the one rule of all stored pictures.

Systems round a line or a letter to the one pixel or its neighbour. So a pixel agrees with the other picture if any of the nine pixels
at its place has nearly its colour, and all but a handful must agree, looked at from both pictures. What is missing, added, moved by two
pixels or coloured otherwise leaves more than a handful."""

import functools
import itertools

from PIL import Image, ImageChops

from tools import tree

LARGEST_STEP_OF_A_CHANNEL = 40
PIXELS_THAT_MAY_DISAGREE = 12
SHOWN = tree.ROOT / "build/pictures"


def read(path):
    return Image.open(path).convert("RGB")


def neighbours(picture):
    """The picture moved by at most a pixel, its border repeated."""
    width, height = picture.size
    wider = Image.new("RGB", (width + 2, height + 2))
    for place in itertools.product((0, 2, 1), repeat=2):
        wider.paste(picture, place)
    for x, y in itertools.product(range(3), repeat=2):
        yield wider.crop((x, y, x + width, y + height))


def disagreeing(first, second):
    """White where the second picture has nothing near the first one's pixel, else black."""
    steps = (ImageChops.difference(first, moved).split() for moved in neighbours(second))
    nearest = functools.reduce(ImageChops.darker, (functools.reduce(ImageChops.lighter, channels) for channels in steps))
    return nearest.point(lambda step: 255 * (step > LARGEST_STEP_OF_A_CHANNEL))


def differences(first, second):
    """White where two pictures disagree; None if their sizes do."""
    return ImageChops.lighter(disagreeing(first, second), disagreeing(second, first)) if first.size == second.size else None


def count(marks):
    return marks.histogram()[255]


def side_by_side(first, second, marks):
    """Both pictures and their difference: what disagrees is white, and what differs within the rule is dark."""
    width, height = (max(sizes) for sizes in zip(first.size, second.size))
    size = (width, height)
    difference = ImageChops.difference(first.crop((0, 0, *size)), second.crop((0, 0, *size))).point(lambda step: min(step, 120))
    sheet = Image.new("RGB", (3 * width + 8, height), (255, 0, 255))
    for place, picture in enumerate((first, second, difference)):
        sheet.paste(picture, (place * (width + 4), 0))
    if marks:
        sheet.paste((255, 255, 255), (2 * (width + 4), 0), marks)
    return sheet


def faults(expected, actual):
    """What is wrong with the picture in the file `actual`: nothing, or one line, and SHOWN has a picture of the difference."""
    first, second = read(expected), read(actual)
    marks = differences(first, second)
    if marks is not None and count(marks) <= PIXELS_THAT_MAY_DISAGREE:
        return []
    SHOWN.mkdir(parents=True, exist_ok=True)
    side_by_side(first, second, marks).save(SHOWN / actual.name)
    what = "another size" if marks is None else f"{count(marks)} pixels differ"
    return [f"{actual.name}: {what}; look at {SHOWN / actual.name}, and if it is meant to be so run scripts/renew-pictures"]


def shows_nothing(path):
    return read(path).getcolors(2) is not None


def folder_faults(stored, drawn):
    """What differs between the pictures just drawn in one folder and those stored in another."""
    names = [{path.name for path in folder.glob("*.png")} for folder in (stored, drawn)]
    problems = [f"{name} is stored, or drawn, alone" for name in sorted(names[0] ^ names[1])]
    problems += [f"{name} shows nothing" for name in sorted(names[1]) if shows_nothing(drawn / name)]
    return problems + [fault for name in sorted(names[0] & names[1]) for fault in faults(stored / name, drawn / name)]
