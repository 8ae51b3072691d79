"""gallery_page.py LIST FOLDER: writes README.md into FOLDER, with each picture of the list and the code that drew it. A line of the list
is "chapter|source|function|text"."""

import pathlib
import re
import sys
import textwrap

SOURCES = pathlib.Path(__file__).resolve().parents[2] / "examples" / "gallery"
HEAD = """# Gallery

Everything that can be drawn, each with the code that drew it: `symbol` is a symbol, `camera` the view controller, `display` the
display; the frame is begun and the camera loaded. The whole program is `examples/gallery`; `scripts/gallery` draws the pictures
and writes this page.
"""
# Pictures of the viewer, which are drawn by a command.
OF_THE_VIEWER = (
    ("sampleScene", "The sample scene, made by code: every kind of thing at once.", "--view 6 --out FILE.png"),
    ("sampleSceneFront", "The same from the front.", "--view 3 --out FILE.png"),
    ("mapGdi", "The sample map, drawn by the GDI display.", "--map-out PREFIX"),
    ("mapPlane", "The sample map, drawn by OpenGL through the planar transform.", "--map-out PREFIX"),
    ("mapRelief", "The sample map in three dimensions.", "--map-out PREFIX"),
)


def body(source, function):
    """What stands in the function, as a host would write it."""
    text = (SOURCES / source).read_text()
    found = re.search(rf"^void {function}\(Easel& easel\) {{\n(.*?)^}}$", text, re.MULTILINE | re.DOTALL)
    if not found:
        sys.exit(f"{source} has no function {function}")
    return "\n".join(without_easel(textwrap.dedent(found.group(1)).rstrip().splitlines()))


def without_easel(lines):
    """The lines without the word "easel."; those that were aligned behind it move with it."""
    shift = 0
    for line in lines:
        indent = len(line) - len(line.lstrip())
        if indent < 12:
            shift = len("easel.") * line.partition("(")[0].count("easel.")
        yield line.replace("easel.", "") if indent < 12 else line[min(shift, indent) :].replace("easel.", "")


def main():
    listing, folder = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    lines, chapter = [HEAD], None
    for line in listing.read_text().splitlines():
        title, source, function, text = line.split("|")
        if title != chapter:
            chapter = title
            lines.append(f"## {title}\n\nFrom `examples/gallery/{source}`, where the functions called here stand.\n")
        lines.append(f"### {function}\n\n{text}\n\n![{function}]({function}.png)\n\n```c++\n{body(source, function)}\n```\n")
    lines.append("## Scenes\n\nOf the viewer, at half their size.\n")
    for name, text, options in OF_THE_VIEWER:
        lines.append(f"### {name}\n\n{text}\n\n![{name}]({name}.png)\n\n    ./run --size 640x480 {options}\n")
    missing = [path.name for path in folder.glob("*.png") if f"({path.name})" not in "".join(lines)]
    if missing:
        sys.exit(f"pictures that the page does not show: {missing}")
    (folder / "README.md").write_text("\n".join(lines))


main()
