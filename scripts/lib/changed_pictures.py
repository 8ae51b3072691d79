"""changed_pictures.py BEFORE AFTER FOLDER...: names the pictures in the folders below BEFORE and AFTER that are not the same, and keeps
both of them side by side, with their difference, in AFTER/build/pictures."""

import pathlib
import sys

import compare_pictures
import png_file


def tell(old, new, shown):
    if not old.exists() or not new.exists():
        print(f"{'gone' if old.exists() else 'new'}: {(old if old.exists() else new)}")
    elif old.read_bytes() != new.read_bytes():
        pictures = png_file.read(old), png_file.read(new)
        found = compare_pictures.differences(*pictures)
        shown.parent.mkdir(parents=True, exist_ok=True)
        png_file.write(shown, *compare_pictures.side_by_side(*pictures, found or set()))
        print(f"changed: {new}; beside what it was: {shown}")


def main():
    before, after = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    for folder in sys.argv[3:]:
        names = {path.name for root in (before, after) for path in (root / folder).glob("*.png")}
        for name in sorted(names):
            tell(before / folder / name, after / folder / name, after / "build" / "pictures" / name)


main()
