#!/usr/bin/env python3
# Compares what the views draw with references; with --update behind the programs it writes these anew.
# SPDX-License-Identifier: MIT
import pathlib
import subprocess
import sys
import unittest

from screen import TITLE, Home, Picture, Screen

HERE = pathlib.Path(__file__).resolve().parent
REFERENCES = HERE / "references"
SAMPLES = HERE.parent.parent / "samples"
FILES = ("friends.vcf", "office.vcf", "japan.vcf", "duties.ics")
LOOK = ("--now", "2026-11-25T10:00", "--size", "900x560")
# Of one that is another picture the worst place differs more; letters that are smoothed otherwise differ less.
TOLERANCE = 0.2
LARGEST_FILE = 60000  # bytes

PICTURES = {
    "list": ("list", "light", "en-US"),
    "large-icons": ("large-icons", "light", "en-US"),
    "small-icons": ("small-icons", "light", "en-US"),
    "cards": ("cards", "light", "en-US"),
    "todos": ("todos", "light", "en-US"),
    "list-dark": ("list", "dark", "en-US"),
    "cards-dark": ("cards", "dark", "en-US"),
    "list-japanese": ("list", "light", "ja-JP"),
}
SELECTED = "list-selected"
HIGHLIGHT = "#1f5fbf"

# What is done to a picture by ImageMagick, and whether it is still the same then.
CHANGES = (
    ("nothing", "list", (), True),
    ("softer letters", "list", ("-blur", "0x0.5"), True),
    ("sharper letters", "list", ("-sharpen", "0x0.7"), True),
    ("heavier letters", "list", ("-gamma", "0.8"), True),
    ("letters without any smoothing", "list", ("-posterize", "5"), True),
    ("a missing column", "list", ("-fill", "white", "-draw", "rectangle 260,60 500,535"), False),
    ("a row that stands twice", "list", ("(", "+clone", "-crop", "900x18+0+98", "+repage", ")",
                                         "-geometry", "+0+116", "-composite"), False),
    ("rows that are lower", "list", ("(", "+clone", "-crop", "900x400+0+80", "+repage", ")",
                                     "-geometry", "+0+84", "-composite"), False),
    ("no change of the selected row", SELECTED, (), True),
    ("another colour of the selection", SELECTED, ("-fuzz", "12%", "-fill", "#1f9f4f", "-opaque", HIGHLIGHT), False),
    ("another selected row", SELECTED, ("-roll", "+0+18"), False),
)


def look(home, view, colours, locale):
    return ("--view", view, "--colours", colours, "--locale", locale, *LOOK)


def make_home():
    home = Home(sys.argv[2], sys.argv[1])
    home.__enter__()
    home.orvo("import", *(str(SAMPLES / file) for file in FILES))
    return home


def drawn(home, name):
    file = home.folder / "window.png"
    told = home.desktop(*look(home, *PICTURES[name]), "--picture", file)
    assert told.returncode == 0, told.stderr
    return Picture.read(file)


def selected(home):
    """The list in a real window, with its second row selected."""
    with Screen() as screen, home.window(screen, *look(home, "list", "light", "en-US")):
        window = screen.window(TITLE)
        screen.move(0, 700)
        screen.at_rest()
        for _ in range(2):
            screen.after("the next row is selected", lambda: screen.keys("Down"))
            screen.at_rest()
        screen.after("the lookup box shows that the keys are gone", screen.leave)
        screen.at_rest()
        return screen.picture(window)


def reference(name):
    return REFERENCES / f"{name}.png"


class PicturesTest(unittest.TestCase):
    def setUp(self):
        self.home = make_home()
        self.addCleanup(self.home.__exit__)

    def test_each_view_looks_as_its_reference(self):
        for name in PICTURES:
            with self.subTest(name):
                picture = drawn(self.home, name)
                difference = picture.difference(Picture.read(reference(name)))
                self.assertLess(difference.worst, TOLERANCE)
                self.assertLess(reference(name).stat().st_size, LARGEST_FILE)

    def test_a_selected_row_looks_as_its_reference(self):
        wanted = Picture.read(reference(SELECTED))
        self.assertLess(selected(self.home).difference(wanted).worst, TOLERANCE)

    def test_the_comparison_tells_what_matters(self):
        for what, name, change, stays in CHANGES:
            with self.subTest(what):
                wanted = Picture.read(reference(name))
                picture = Picture.load(["convert", reference(name), "-alpha", "off", "-type", "TrueColor", *change])
                difference = picture.difference(wanted)
                self.assertEqual(difference.worst < TOLERANCE, stays, difference)


def update():
    """Writes all references as small files with a palette."""
    REFERENCES.mkdir(exist_ok=True)
    home = make_home()
    for name in (*PICTURES, SELECTED):
        picture = selected(home) if name == SELECTED else drawn(home, name)
        subprocess.run(["convert", "ppm:-", "+dither", "-colors", "128", "-strip", f"png8:{reference(name)}"],
                       input=picture.ppm(), check=True)
    home.__exit__()


if __name__ == "__main__":
    if "--update" in sys.argv:
        update()
    else:
        unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
