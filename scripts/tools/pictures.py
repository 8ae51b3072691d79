"""Compares pictures: the one rule for all stored pictures.

Systems round a line or a letter to a pixel or to its neighbour. So a pixel agrees with the other picture if one of the nine pixels around
its place has nearly its colour, and all but a few must agree, in both directions. Content that is missing, added, moved by two pixels or
coloured differently leaves more."""

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
    """White where no pixel of the second picture agrees with the first one's, else black."""
    steps = (ImageChops.difference(first, moved).split() for moved in neighbours(second))
    nearest = functools.reduce(ImageChops.darker, (functools.reduce(ImageChops.lighter, channels) for channels in steps))
    return nearest.point(lambda step: 255 * (step > LARGEST_STEP_OF_A_CHANNEL))


def differences(first, second):
    """White where two pictures disagree; None if their sizes differ."""
    return ImageChops.lighter(disagreeing(first, second), disagreeing(second, first)) if first.size == second.size else None


def count(marks):
    return marks.histogram()[255]


def row(shown):
    """Pictures side by side, from a common lower edge."""
    sheet = Image.new("RGB", (sum(picture.width + 4 for picture in shown) - 4, max(picture.height for picture in shown)), (255, 255, 255))
    left = 0
    for picture in shown:
        sheet.paste(picture, (left, sheet.height - picture.height))
        left += picture.width + 4
    return sheet


def side_by_side(first, second, marks):
    """Both pictures and their difference: white disagrees, dark differs within the rule."""
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
    """Problems of the picture in the file `actual`, at most one; SHOWN then has a picture of the difference."""
    first, second = read(expected), read(actual)
    marks = differences(first, second)
    if marks is not None and count(marks) <= PIXELS_THAT_MAY_DISAGREE:
        return []
    SHOWN.mkdir(parents=True, exist_ok=True)
    side_by_side(first, second, marks).save(SHOWN / actual.name)
    what = "different size" if marks is None else f"{count(marks)} pixels differ"
    return [f"{actual.name}: {what}; see {SHOWN / actual.name}; if it is intended, run scripts/renew-pictures"]


def shows_nothing(path):
    return read(path).getcolors(2) is not None


def folder_faults(stored, drawn):
    """Differences between the pictures drawn in one folder and those stored in another."""
    names = [{path.name for path in folder.glob("*.png")} for folder in (stored, drawn)]
    problems = [f"{name} is only stored or only drawn" for name in sorted(names[0] ^ names[1])]
    problems += [f"{name} is empty" for name in sorted(names[1]) if shows_nothing(drawn / name)]
    return problems + [fault for name in sorted(names[0] & names[1]) for fault in faults(stored / name, drawn / name)]
