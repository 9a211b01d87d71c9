#!/usr/bin/env python3
# Runs orvo-desktop as a user does: on a display with keys and mouse, and without one.
# SPDX-License-Identifier: MIT
import sys
import unittest

from screen import LONGEST, TITLE, Home, Picture, Screen, until

# Pixels from a row's right end into its Category cell, and from the first row's top up into the heading, to its
# middle and to where only the lines between the columns are drawn.
CATEGORY_FROM_RIGHT = 90
HEADING_MIDDLE = 11
HEADING_LINES = 3
# The difference that one letter of a name makes is greater.
A_LETTER = 0.05


class DesktopTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        for name, category in (("Adams", "Friends"), ("Baker", "Work"), ("Carter", "Friends")):
            self.home.orvo("add", "--name", name, "--category", category)

    def categories(self):
        return [row["category"] for row in self.home.rows("addresses")]

    def test_a_picture_needs_no_display(self):
        file = self.home.folder / "window.png"
        self.assertEqual(self.home.desktop("--picture", file).returncode, 0)
        self.assertFalse((self.home.folder / "config").exists(), "a picture saves no settings")
        result = self.home.desktop("--picture", self.home.folder / "missing" / "window.png")
        self.assertEqual(result.returncode, 2)
        self.assertIn("the picture can't be written", result.stderr)

    def test_a_picture_shows_what_the_window_shows(self):
        file = self.home.folder / "window.png"
        self.home.desktop("--picture", file)
        drawn = Picture.read(file)
        with Screen() as screen, self.home.window(screen) as program:
            window = screen.window(TITLE)
            screen.leave()
            until("the window looks as it was drawn",
                  lambda: screen.picture(window).difference(drawn).worst < A_LETTER)
            self.assertIsNone(program.poll())
        self.home.orvo("add", "--name", "Dull")
        self.home.desktop("--picture", file)
        self.assertGreater(Picture.read(file).difference(drawn).worst, A_LETTER)

    def test_what_cannot_be_opened_is_told_in_one_line(self):
        result = self.home.desktop()
        self.assertEqual((result.returncode, result.stderr.count("\n")), (2, 1), result.stderr)
        self.assertIn("no display", result.stderr)
        self.home.store.write_text("not a store")
        result = self.home.desktop("--picture", self.home.folder / "window.png")
        self.assertEqual((result.returncode, result.stderr.count("\n")), (2, 1), result.stderr)
        self.assertEqual(self.home.desktop("--locale", "no such tag").returncode, 2)

    def test_keys_and_mouse_reach_the_list(self):
        with Screen() as screen, self.home.window(screen) as program:
            empty = screen.at_rest()
            screen.after("typing selects the first row", lambda: screen.type("ada"))
            selected = screen.at_rest()
            left, top, right, bottom = selected.changed_band(empty)
            cell = (right - CATEGORY_FROM_RIGHT, (top + bottom) // 2)
            edge, heading = selected.edge(left + 3, top - HEADING_LINES) + 1, top - HEADING_MIDDLE
            screen.move(*cell)
            screen.at_rest()
            screen.after("a menu opens", lambda: screen.click(*cell))

            def choose_work():
                screen.keys("Escape")
                screen.click(*cell)
                screen.keys("Down", "Down", "Down", "Return")
                return self.categories() == ["Work", "Work", "Friends"]
            until("the choice is stored", choose_work)
            self.assertIsNone(program.poll())

            screen.after("the column grows",
                         lambda: screen.drag((edge, heading), (edge + 20, heading), (edge + 40, heading)))
            screen.at_rest()
            program.terminate()
            self.assertEqual(program.wait(LONGEST), 0)
        name_column = int(self.home.orvo("heading").split()[2])
        self.assertAlmostEqual(name_column, edge + 40 - left, delta=3)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0]])
