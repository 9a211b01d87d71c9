#!/usr/bin/env python3
# Draws the views into files, and compares them with references; with --update behind the programs it writes these anew.
# SPDX-License-Identifier: MIT
import pathlib
import subprocess
import sys

from case import DesktopCase, main
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


def look(name):
    view, colours, locale = PICTURES[name]
    return ("--view", view, "--colours", colours, "--locale", locale, *LOOK)


def fill(home):
    home.orvo("import", *(str(SAMPLES / file) for file in FILES))


def drawn(home, name):
    file = home.folder / "window.png"
    told = home.desktop(*look(name), "--picture", file)
    assert told.returncode == 0, told.stderr
    return Picture.read(file)


def selected(home, screen):
    """The list in a real window, with its second row selected."""
    with home.window(screen, *look("list")):
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


class PicturesTest(DesktopCase):
    def test_each_view_looks_as_its_reference(self):
        fill(self.home)
        for name in PICTURES:
            with self.subTest(name):
                difference = drawn(self.home, name).difference(Picture.read(reference(name)))
                self.assertLess(difference, TOLERANCE)
                self.assertLess(reference(name).stat().st_size, LARGEST_FILE)

    def test_a_selected_row_looks_as_its_reference(self):
        fill(self.home)
        wanted = Picture.read(reference(SELECTED))
        self.assertLess(selected(self.home, self.screen).difference(wanted), TOLERANCE)

    def test_a_picture_needs_no_display_and_saves_no_settings(self):
        self.drawn()
        self.assertFalse(self.settings().exists())

    def test_what_cannot_be_opened_or_written_is_told_in_one_line(self):
        self.home.orvo("categories")  # makes the store
        picture = self.home.folder / "window.png"
        whole = self.home.store.read_bytes()
        for why, arguments, store in (("no display", (), whole),
                                      ("the picture can't be written", ("--picture", picture / "missing.png"), whole),
                                      ("", ("--picture", picture), b"not a store"),
                                      ("no such tag", ("--locale", "no such tag"), whole)):
            with self.subTest(why):
                self.home.store.write_bytes(store)
                result = self.home.desktop(*arguments)
                self.assertEqual((result.returncode, result.stderr.count("\n")), (2, 1), result.stderr)
                self.assertIn(why, result.stderr)


def update():
    """Writes all references as small files with a palette."""
    REFERENCES.mkdir(exist_ok=True)
    with Home(sys.argv[2], sys.argv[1]) as home, Screen() as screen:
        fill(home)
        for name in (*PICTURES, SELECTED):
            picture = selected(home, screen) if name == SELECTED else drawn(home, name)
            subprocess.run(["convert", "ppm:-", "+dither", "-colors", "128", "-strip", f"png8:{reference(name)}"],
                           input=picture.ppm(), check=True)


if __name__ == "__main__":
    if "--update" in sys.argv:
        update()
    else:
        main()
