#!/usr/bin/env python3
# Looks whether a window comes back as the user left it, and how it shows private entries.
# SPDX-License-Identifier: MIT
from case import DesktopCase, main
from screen import TITLE, Picture, until
from views import ADDRESSES, Rows, dialog, set_heading

NAME, COMPANY, CATEGORY, PRIVATE = 0, 2, 3, 5
COLUMNS = ((NAME, 250), (COMPANY, 200), (CATEGORY, 150), (PRIVATE, 40))
PEOPLE = (("Adams", "Zenith", "Friends"), ("Baker", "Acme", "Work"), ("Carter", "Mellow", "Friends"))
A_LETTER = 0.05  # the difference that one letter makes is greater
SIZE = (760, 480)
VIEWS = ("list", "large-icons", "small-icons", "cards", "todos")

# Into the View menu, and up from its end to the choices for private entries.
MASK = ("alt+v", "Up", "Up", "Return")
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


class NextStartTest(DesktopCase):
    def fill(self):
        set_heading(self.home, ADDRESSES, COLUMNS)
        for name, company, category in PEOPLE:
            self.add(name, company=company, category=category)
        self.add("Mason", company="Quill", private="yes")

    def look(self, rows):
        """The rows, with what lies below; above them the box shows who has the keys, and the heading the mouse."""
        self.screen.leave()
        self.screen.at_rest()
        return below(self.screen.picture(self.screen.window(TITLE)), rows.top)

    def rows(self):
        """Where the rows are; the selection that tells it ends with its window."""
        with self.window() as program:
            rows = Rows(self.screen, COLUMNS)
            self.end(program)
        return rows

    def test_the_next_start_shows_what_was_left(self):
        for what, change in CHANGES:
            with self.subTest(what):
                self.doCleanups()
                self.setUp()
                self.fill()
                rows = self.rows()
                with self.window() as program:
                    # A place that comes back leaves room for a frame, which there is none of here.
                    self.screen.xdotool("windowmove", self.screen.window(TITLE), 0, 0)
                    first = self.look(rows)
                    self.screen.focus(TITLE)
                    change(self.screen, rows)
                    rows.rest()
                    until(f"{what} changes", lambda: self.look(rows).difference(first) > A_LETTER)
                    left = self.look(rows)
                    self.end(program)
                with self.window():
                    until(f"{what} comes back", lambda: self.look(rows).difference(left) < A_LETTER)

    def test_a_form_that_was_open_is_offered_again_with_its_text(self):
        with self.window() as program:
            dialog(self.screen, "ctrl+n")
            self.screen.type("Nemo")
            self.screen.keys("alt+g", *["shift+Tab"] * 4, "space")  # the button that adds a row for a number
            self.screen.type("555 0199")
            self.end(program)
        (file,) = self.settings().parent.glob("unsaved-*.json")
        self.assertEqual(file.stat().st_mode & 0o777, 0o600)
        self.start()
        self.agree()
        self.screen.focus("New address")
        self.screen.keys("ctrl+Return")
        self.until_names("Nemo")
        self.assertIn("555 0199", str(self.home.rows("addresses")))
        until("the file is gone", lambda: not file.exists())

    def test_a_masked_entry_shows_no_letter_of_its_own(self):
        pictures = []
        for name, more, task in (("Mason", {}, "Order"),
                                 ("Monroe", {"title": "Dr.", "phone1": "555 0142"}, "Polish the silver")):
            self.doCleanups()
            self.setUp()
            self.add(name, company=name, private="yes", **more)
            self.home.orvo("todo", "add", task, "--private")
            for masking in ("yes", "no"):
                self.set_options(masking_private=masking)
                pictures.append([self.drawn("--view", view) for view in VIEWS])
        masked, seen, others_masked, others_seen = pictures
        self.assertEqual(masked, others_masked)
        for view, picture, other in zip(VIEWS, seen, others_seen):
            self.assertNotEqual(picture, other, view)


if __name__ == "__main__":
    main()
