"""Draws, compares and renews the stored pictures: those of docs/gallery with their page, and the viewer's scenes in tests/pictures."""

import pathlib
import re
import shutil
import sys
import tempfile
import textwrap

from tools import pictures, tree

GALLERY, SCENES = tree.ROOT / "docs/gallery", tree.ROOT / "tests/pictures"
SOURCES = tree.ROOT / "examples/gallery"
HEAD = """# Gallery

Every drawing operation with the code that drew the picture: `symbol` is a symbol, `camera` the view controller, `display` the display.
The frame has begun and the camera is loaded. The whole program is `examples/gallery`; `scripts/renew-pictures` draws the pictures and
writes this page.
"""
# Pictures of the viewer: name, the file that its command writes, text, options.
OF_THE_VIEWER = (
    ("sampleScene", "view6.png", "The generated sample scene, with every kind of geometry.", "--view 6 --out FILE.png"),
    ("sampleSceneFront", "view3.png", "The same from the front.", "--view 3 --out FILE.png"),
    ("mapGdi", "map-gdi.png", "The sample map, drawn by the GDI display.", "--map-out PREFIX"),
    ("mapPlane", "map-gl.png", "The sample map, drawn by OpenGL through the planar transform.", "--map-out PREFIX"),
    ("mapRelief", "map-3d.png", "The sample map in three dimensions.", "--map-out PREFIX"),
)
# Recorded motion: right and towards the eye, then turned and rolled.
FLIGHT = ("3 1 2 0 0 0 10", "0 0 0 6 -4 0 20", "0 0 0 0 0 8 12")
# Pictures that the viewer draws while it plays a script: name, text, lines of the script.
SCRIPTED = (
    (
        "measured",
        "Points that are clicked after `M`, and what they measure.",
        ("key 0", "key M")
        + tuple(f"{action} left {place}" for place in ("215 140", "435 130", "425 330", "250 300") for action in ("down", "up"))
        + ("key 6",),
    ),
    ("elevation", "Coloured by elevation.", ("key E",)),
    (
        "quartet",
        "Four views at once, with a marked point, cut across y.",
        ("size 960 720", "key Q", "down left 300 190", "up left 300 190", "key X", "key X", "move 720 520", "key Right"),
    ),
    ("sixAxes", f"Moved by six axes. The lines of the recording are `{'`, `'.join(FLIGHT)}`.", ("key 3", "motion flight.txt")),
    ("section", "Cut across y, turned round, with the outline of the cut.", ("key X", "key X", "key I", "key PageUp")),
)
# The same view on screens of several scalings, in percent, side by side.
SCALINGS = (100, 150)
# What the viewer shows besides the gallery: a script with the names of its pictures in tests/pictures. The mouse rests on the background,
# since the coordinates under it are not the same with every driver.
SCENES_SCRIPT = (
    *(step for view in range(8) for step in (f"key {view}", f"picture view{view}.png")),
    *("key 6", "wheel -4 240 180", "down left 200 290", "move 290 292", "picture rings.png", "up left 290 292"),
    *("key 6", "key A", "picture axes.png", "key O", "key F", "picture axesOrthographic.png", "key O", "key A"),
    *("key 6", "key Z", "down left 180 80", "move 400 310", "picture rectangle.png", "key Esc", "key Esc"),
    *("wheel 3 240 180", "down left 240 239", "up left 240 239", "picture mark.png", "capture capture.png"),
)
# Drawing operations that are not the symbol's.
OVERLAYS = {"drawAxes", "drawTrackBall", "drawFrame", "drawLabel", "printText", "restoreCache"}


def body(text, function):
    """The body of the function, as a host would write it."""
    found = re.search(rf"^void {function}\(Easel& easel\) {{\n(.*?)^}}$", text, re.MULTILINE | re.DOTALL)
    if not found:
        raise ValueError(f"no source has a function {function}")
    return "\n".join(without_easel(textwrap.dedent(found.group(1)).rstrip().splitlines()))


def without_easel(lines):
    """The lines without "easel."; lines aligned with what follows it move too."""
    shift = 0
    for line in lines:
        indent = len(line) - len(line.lstrip())
        if indent < 12:
            shift = len("easel.") * line.partition("(")[0].count("easel.")
        yield (line if indent < 12 else line[min(shift, indent) :]).replace("easel.", "")


def page(listing):
    """The gallery's page. A line of the list is "chapter|source|function|text"."""
    lines, chapter = [HEAD], None
    for title, source, function, text in (line.split("|") for line in listing.splitlines()):
        if title != chapter:
            chapter = title
            lines.append(f"## {title}\n\nFrom `examples/gallery/{source}`, which also has the functions called here.\n")
        code = body((SOURCES / source).read_text(), function)
        lines.append(f"### {function}\n\n{text}\n\n![{function}]({function}.png)\n\n```c++\n{code}\n```\n")
    lines.append("## Scenes\n\nPictures of the viewer, at half size.\n")
    for name, _, text, options in OF_THE_VIEWER:
        lines.append(f"### {name}\n\n{text}\n\n![{name}]({name}.png)\n\n    ./run --size 640x480 {options}\n")
    for name, text, script in SCRIPTED:
        steps = "\n".join(f"    {step}" for step in script)
        lines.append(f"### {name}\n\n{text} The script, for `./run --size 640x480 --script FILE`:\n\n{steps}\n\n![{name}]({name}.png)\n")
    steps = "\n".join(f"    {step}" for step in scaled(SCALINGS[1]))
    text = f"On screens of {' % and '.join(map(str, SCALINGS))} %. The script of the second:"
    lines.append(f"### scaling\n\n{text}\n\n{steps}\n\n![scaling](scaling.png)\n")
    return "\n".join(lines)


def scaled(percent):
    width, height, x, y = (pixels * percent // 100 for pixels in (480, 360, 225, 180))
    return f"scale {percent}", f"size {width} {height}", "key F", f"down left {x} {y}", f"up left {x} {y}", "key E"


def draw(program, *arguments):
    result = tree.on_screen("wine", tree.BINARIES / program, *arguments)
    if result.code != 0:
        raise RuntimeError(f"{program} could not draw: {result.output[-2000:]}")
    return result.output.replace("\r", "")


def draw_gallery(folder):
    with tempfile.TemporaryDirectory() as work:
        listing = draw("qelgallery.exe", tree.windows_path(folder))
        draw("qelview.exe", "--size", "640x480", "--views-out", tree.windows_path(f"{work}/view"))
        draw("qelview.exe", "--size", "640x480", "--map-out", tree.windows_path(f"{work}/map"))
        for name, file, _, _ in OF_THE_VIEWER:
            pictures.read(f"{work}/{file}").reduce(2).save(f"{folder}/{name}.png")
        pathlib.Path(work, "flight.txt").write_text("\n".join(FLIGHT))
        for name, _, steps in SCRIPTED:
            steps = [step.replace("flight.txt", tree.windows_path(f"{work}/flight.txt")) for step in steps]
            play("640x480", (*steps, f"picture {name}.png"), folder)
        for percent in SCALINGS:
            play("640x480", (*scaled(percent), f"picture {percent}.png"), work)
        pictures.row([pictures.read(f"{work}/{percent}.png") for percent in SCALINGS]).save(f"{folder}/scaling.png")
    (folder / "README.md").write_text(page("\n".join(re.findall(r"^[^|\n]+\|.*$", listing, re.MULTILINE))))


def play(size, steps, folder):
    """Plays a script whose pictures and captures go to the folder."""

    def in_folder(found):
        return found[1] + tree.windows_path(pathlib.Path(folder, found[2]))

    with tempfile.NamedTemporaryFile("w", suffix=".txt") as script:
        script.write("\n".join(re.sub("^(picture |capture )(.*)$", in_folder, step) for step in steps))
        script.flush()
        draw("qelview.exe", "--size", size, "--script", tree.windows_path(script.name))


def draw_scenes(folder):
    play("480x360", SCENES_SCRIPT, folder)
    draw("qelview.exe", "--size", "480x360", "--map-out", tree.windows_path(folder / "map"))


def compared(stored, draw_into):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        draw_into(folder)
        problems = pictures.folder_faults(stored, folder)
        texts = [file for file in ("README.md",) if (folder / file).exists() and (folder / file).read_text() != (stored / file).read_text()]
        return problems + [f"{file} differs: run scripts/renew-pictures" for file in texts if not problems]


def not_shown(text, header):
    operations = set(re.findall(r"virtual std::int32_t (draw\w+)\(", header)) | OVERLAYS
    return [f"{name} is not shown" for name in sorted(operations) if f".{name}(" not in text]


def check_pictures():
    programs = [tree.BINARIES / name for name in ("QelDisplay64t.dll", "qelgallery.exe", "qelview.exe")]
    tools = [pathlib.Path(__file__), pathlib.Path(pictures.__file__)]
    for sentence, stored, draw_into in (
        ("the gallery is what the sources draw", GALLERY, draw_gallery),
        ("the viewer's scenes look like their stored pictures", SCENES, draw_scenes),
    ):
        files = [part for path in sorted(stored.iterdir()) for part in (path.name, path)]
        key = tree.digest(*programs, *tools, *files)
        tree.report(sentence, tree.once("pictures", key, lambda stored=stored, draw_into=draw_into: compared(stored, draw_into)))
    header = (tree.ROOT / "include/IQelSymbol.h").read_text()
    tree.report("the gallery shows every drawing operation", not_shown((GALLERY / "README.md").read_text(), header))


def renew(stored, draw_into):
    """Draws the folder's pictures again and prints the changed ones."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        draw_into(folder)
        for path in sorted(path for path in stored.iterdir() if not (folder / path.name).exists()):
            print(f"removed: {path}")
            path.unlink()
        for path in sorted(folder.iterdir()):
            kept = stored / path.name
            if not kept.exists():
                print(f"new: {kept}")
            elif kept.read_bytes() != path.read_bytes() and path.suffix == ".png":
                first, second = pictures.read(kept), pictures.read(path)
                pictures.SHOWN.mkdir(parents=True, exist_ok=True)
                pictures.side_by_side(first, second, pictures.differences(first, second)).save(pictures.SHOWN / path.name)
                print(f"changed: {kept}; both pictures: {pictures.SHOWN / path.name}")
            shutil.copy(path, kept)


def main():
    if len(sys.argv) > 1:
        sys.exit(__doc__)
    tree.build("windows", "qelgallery", "qelview")
    renew(GALLERY, draw_gallery)
    renew(SCENES, draw_scenes)
