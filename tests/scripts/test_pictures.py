import pathlib
import tempfile
import unittest

from PIL import Image, ImageDraw

from tools import gallery, pictures

# The shortest line that must be noticed.
PIXELS_OF_A_LINE = 16


def agree(first, second):
    return pictures.count(pictures.differences(first, second)) <= pictures.PIXELS_THAT_MAY_DISAGREE


def moved(picture, pixels):
    """The picture moved to the right; what comes in is what stood at the border."""
    result = picture.resize(picture.size, box=(0, 0, 1, picture.height))
    result.paste(picture, (pixels, 0))
    return result


def with_line(picture, x, y):
    """The picture with a line as thin and short as can be, in a colour that is not there."""
    result = picture.copy()
    color = (255, 0, 255) if picture.getpixel((x, y))[0] < 128 else (0, 0, 0)
    ImageDraw.Draw(result).line((x, y, x + PIXELS_OF_A_LINE - 1, y), color)
    return result


class Rule(unittest.TestCase):
    def setUp(self):
        self.stored = {name: pictures.read(gallery.SCENES / name) for name in ("map-gl.png", "map-3d.png")}

    def test_a_line_of_a_few_pixels_is_noticed_whichever_picture_lacks_it(self):
        for name, picture in self.stored.items():
            width, height = picture.size
            for x, y in ((5, 5), (width // 3, height // 2), (width - 40, height - 10)):
                with self.subTest(name, x=x, y=y):
                    damaged = with_line(picture, x, y)
                    self.assertFalse(agree(picture, damaged))
                    self.assertFalse(agree(damaged, picture))

    def test_rounding_to_the_next_pixel_agrees_and_a_picture_that_is_moved_does_not(self):
        for name, picture in self.stored.items():
            with self.subTest(name):
                self.assertTrue(agree(picture, moved(picture, 1)))
                self.assertFalse(agree(picture, moved(picture, 3)))

    def test_another_picture_and_another_size_are_faults_that_are_shown(self):
        with tempfile.TemporaryDirectory() as folder:
            other = pathlib.Path(folder, "made-on-purpose.png")
            self.stored["map-3d.png"].save(other)
            self.assertIn("pixels differ", pictures.faults(gallery.SCENES / "map-gl.png", other)[0])
            self.stored["map-3d.png"].crop((0, 0, 100, 100)).save(other)
            self.assertIn("different size", pictures.faults(gallery.SCENES / "map-gl.png", other)[0])
        shown = pictures.SHOWN / "made-on-purpose.png"
        self.assertTrue(shown.exists())
        shown.unlink()

    def test_a_picture_stored_or_drawn_alone_and_an_empty_one_are_found(self):
        with tempfile.TemporaryDirectory() as stored, tempfile.TemporaryDirectory() as drawn:
            self.stored["map-gl.png"].save(f"{stored}/old.png")
            Image.new("RGB", (8, 8)).save(f"{drawn}/new.png")
            problems = pictures.folder_faults(pathlib.Path(stored), pathlib.Path(drawn))
        self.assertEqual(problems, ["new.png is only stored or only drawn", "old.png is only stored or only drawn", "new.png is empty"])


class Gallery(unittest.TestCase):
    def test_an_operation_without_a_picture_is_found(self):
        header = "virtual std::int32_t drawBox(int);\nvirtual std::int32_t drawLine(int);\n"
        page = " ".join(f"display.{name}()" for name in gallery.OVERLAYS) + " symbol.drawLine(1)"
        self.assertEqual(gallery.not_shown(page, header), ["drawBox is not shown"])

    def test_code_is_shown_without_its_easel_and_stays_aligned(self):
        text = "void box(Easel& easel) {\n    easel.symbol.drawBox(1,\n                         2);\n}\n"
        self.assertEqual(gallery.body(text, "box"), "symbol.drawBox(1,\n               2);")
