#!/usr/bin/env python3
# Looks whether a window comes back as the user left it, and how it shows private entries.
# SPDX-License-Identifier: MIT
import sys
import unittest

from screen import LONGEST, TITLE, Home, Picture, Screen, until
from views import ADDRESSES, Rows, dialog, set_heading, windows

NAME, COMPANY, CATEGORY, PRIVATE = 0, 2, 3, 5
COLUMNS = ((NAME, 250), (COMPANY, 200), (CATEGORY, 150), (PRIVATE, 40))
PEOPLE = (("Adams", "Zenith", "Friends"), ("Baker", "Acme", "Work"), ("Carter", "Mellow", "Friends"))
A_LETTER = 0.05  # the difference that one letter makes is greater
SIZE = (760, 480)

# Into the View menu, and up from its end to the choices for private entries.
MASK = ("alt+v", "Up", "Up", "Return")
SHOW = ("alt+v", "Up", "Up", "Up", "Return")
HIDE = ("alt+v", "Up", "Return")


def keys(*names):
    return lambda screen, rows: screen.keys(*names)


def drag(column, by):
    """Moves the heading's edge behind a column."""
    def do(screen, rows):
        edge, y = rows.column(column)[1] - 1, rows.heading(column)[1]
        screen.drag((edge, y), (edge + by // 2, y), (edge + by, y))
    return do


def move(column, onto):
    def do(screen, rows):
        start, end = rows.heading(column), rows.heading(onto)
        screen.drag(start, ((start[0] + end[0]) // 2, end[1]), (end[0] - 20, end[1]), end)
    return do


def click(column):
    return lambda screen, rows: screen.click(*rows.heading(column))


def resize(screen, rows):
    screen.xdotool("windowsize", screen.window(TITLE), *SIZE)


def below(picture, top):
    return Picture(picture.width, picture.height - top, picture.rgb[3 * picture.width * top:])


CHANGES = (
    ("the view", keys("ctrl+4")),
    ("the size of cards", keys("ctrl+4", "ctrl+plus", "ctrl+plus")),
    ("the size of the window", resize),
    ("the width of a column", drag(COMPANY, 60)),
    ("the place of a column", move(CATEGORY, NAME)),
    ("a hidden column", keys("alt+v", "o", "Down", "Down", "Return")),
    ("the order", click(COMPANY)),
    ("masked private entries", keys(*MASK)),
    ("hidden private entries", keys(*HIDE)),
)


class NextStartTest(unittest.TestCase):
    def setUp(self):
        self.screen = self.enterContext(Screen())

    def new_home(self, **texts):
        home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        set_heading(home, ADDRESSES, COLUMNS)
        for name, company, category in PEOPLE:
            home.orvo("add", "--name", name, "--company", company, "--category", category)
        private = {"name": "Mason", "company": "Quill", **texts}
        home.orvo("add", "--private", "yes", *(word for name, text in private.items() for word in (f"--{name}", text)))
        return home

    def look(self, rows):
        """The rows, with what lies below; above them the box shows who has the keys, and the heading the mouse."""
        self.screen.leave()
        self.screen.at_rest()
        return below(self.screen.picture(self.screen.window(TITLE)), rows.top)

    def end(self, program):
        program.terminate()
        self.assertEqual(program.wait(LONGEST), 0)

    def rows(self, home):
        """Where the rows are; the selection that tells it ends with its window."""
        with home.window(self.screen) as program:
            rows = Rows(self.screen, COLUMNS)
            self.end(program)
        return rows

    def test_the_next_start_shows_what_was_left(self):
        for what, change in CHANGES:
            with self.subTest(what):
                home = self.new_home()
                rows = self.rows(home)
                with home.window(self.screen) as program:
                    # A place that comes back leaves room for a frame, which there is none of here.
                    self.screen.xdotool("windowmove", self.screen.window(TITLE), 0, 0)
                    first = self.look(rows)
                    self.screen.focus(TITLE)
                    change(self.screen, rows)
                    rows.rest()

                    def is_changed():
                        return self.look(rows).difference(first).worst > A_LETTER
                    until(f"{what} changes", is_changed)
                    left = self.look(rows)
                    self.end(program)
                with home.window(self.screen) as program:
                    until(f"{what} comes back", lambda: self.look(rows).difference(left).worst < A_LETTER)
                    self.end(program)

    def test_a_form_that_was_open_is_offered_again_with_its_text(self):
        home = self.new_home()
        kept = home.folder / "config" / "orvo"
        with home.window(self.screen) as program:
            dialog(self.screen, "ctrl+n")
            self.screen.type("Nemo")
            self.end(program)
        (file,) = kept.glob("unsaved-*.json")
        self.assertEqual(file.stat().st_mode & 0o777, 0o600)
        with home.window(self.screen) as program:
            until("it is asked", lambda: len(windows(self.screen)) == 2)
            self.screen.focus(TITLE)
            self.screen.keys("Return")
            self.screen.focus("New address")
            self.screen.keys("ctrl+Return")
            until("it is saved", lambda: "Nemo" in home.orvo("addresses"))
            until("the file is gone", lambda: not file.exists())
            self.end(program)

    def test_hidden_entries_can_be_shown_again(self):
        home = self.new_home()
        home.orvo("options", "--set", "showing-private", "no")
        rows = self.rows(home)
        with home.window(self.screen) as program:
            hidden = self.look(rows)
            self.screen.focus(TITLE)
            self.screen.keys(*SHOW)
            until("the window shows them", lambda: self.look(rows).difference(hidden).worst > A_LETTER)
            self.end(program)
        self.assertEqual(self.drawn(home, "list"), self.drawn(self.new_home(), "list"))

    def test_a_masked_entry_shows_no_letter_of_its_own(self):
        homes = [self.new_home(), self.new_home(name="Monroe", company="Rapid", title="Dr.", phone1="555 0142")]
        for home, text in zip(homes, ("Order", "Polish the silver")):
            home.orvo("todo", "add", text, "--private")
            home.orvo("options", "--set", "masking-private", "yes")
        for view in ("list", "large-icons", "small-icons", "cards", "todos"):
            pictures = [self.drawn(home, view) for home in homes]
            self.assertEqual(pictures[0], pictures[1], view)
            homes[1].orvo("options", "--set", "masking-private", "no")
            self.assertNotEqual(self.drawn(homes[1], view), pictures[1], view)
            homes[1].orvo("options", "--set", "masking-private", "yes")

    def drawn(self, home, view):
        file = home.folder / "window.png"
        self.assertEqual(home.desktop("--view", view, "--picture", file).returncode, 0)
        return Picture.read(file)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
