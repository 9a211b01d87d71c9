#!/usr/bin/env python3
# Lets orvo and the window work on one store at the same time: each shows what the other does, and nothing is lost.
# SPDX-License-Identifier: MIT
import sys
import unittest

from screen import TITLE, Home, Picture, Screen, until
from views import ADDRESSES, TO_DOS, Rows, set_heading

COLUMNS = ((0, 250), (2, 200), (3, 150), (5, 40))
TO_DO_COLUMNS = ((6, 30), (1, 60), (0, 300), (2, 110), (3, 160), (5, 40))
LOOK = ("--size", "900x560", "--now", "2026-11-25T10:00", "--colours", "light")
A_LETTER = 0.05  # the difference that one letter makes is greater
TURNS = 50

# What orvo does in turn; each shows in the view.
ADDRESS_CHANGES = (
    ("an address is added", ("add", "--name", "Baldwin", "--company", "Acme", "--category", "Work")),
    ("a name is changed", ("edit", "2", "--name", "Zeller")),
    ("a category is changed", ("category", "0", "Work")),
    ("an address is made private", ("edit", "3", "--private", "yes")),
    ("an address is deleted", ("delete", "1")),
)
TO_DO_CHANGES = (
    ("a to-do is added", ("todo", "add", "Write", "--priority", "1")),
    ("a due day is set", ("todo", "due", "0", "2026-12-24")),
    ("a category is changed", ("todo", "category", "0", "Work")),
    ("a priority is changed", ("todo", "priority", "0", "5")),
    ("a to-do is completed", ("todo", "complete", "0")),
    ("a to-do is deleted", ("todo", "delete", "1")),
)


class TwoProgramsTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen())
        for name, category in (("Adams", "Friends"), ("Baker", "Work"), ("Carter", "Friends")):
            self.home.orvo("add", "--name", name, "--category", category)
        for text, priority in (("Order", "2"), ("Paint", "3")):
            self.home.orvo("todo", "add", text, "--priority", priority, "--category", "Work")
        self.home.orvo("todo", "add", "Clean", "--category", "Home")

    def drawn(self, view):
        """What a window shows that is opened now."""
        file = self.home.folder / "window.png"
        self.assertEqual(self.home.desktop("--view", view, *LOOK, "--picture", file).returncode, 0)
        return Picture.read(file)

    def show(self, view, changes):
        with self.home.window(self.screen, "--view", view, *LOOK):
            window = self.screen.window(TITLE)
            self.screen.leave()
            before = self.drawn(view)
            for why, change in changes:
                self.home.orvo(*change)
                now = self.drawn(view)
                self.assertGreater(now.difference(before).worst, A_LETTER, why)
                until(f"{view}: {why}", lambda: self.screen.picture(window).difference(now).worst < A_LETTER)
                before = now

    def test_the_list_shows_what_orvo_does(self):
        self.show("list", ADDRESS_CHANGES)

    def test_the_cards_show_what_orvo_does(self):
        self.show("cards", ADDRESS_CHANGES)

    def test_the_to_dos_show_what_orvo_does(self):
        self.show("todos", TO_DO_CHANGES)

    def test_the_selection_stays_on_its_entry(self):
        set_heading(self.home, ADDRESSES, COLUMNS)
        with self.home.window(self.screen, "--view", "list", *LOOK):
            rows = Rows(self.screen, COLUMNS)
            self.screen.keys("Down")
            until("Baker is selected", lambda: rows.is_selected(1))
            for name, row in (("Aaron", 2), ("Abel", 3), ("Dover", 3)):
                self.home.orvo("add", "--name", name)
                until(f"the selection is at its place after {name}", lambda: rows.is_selected(row))
            self.home.orvo("edit", "2", "--name", "Aaberg")
            until("the selection goes with the entry", lambda: rows.is_selected(0))

    def test_fifty_turns_of_both_lose_nothing(self):
        set_heading(self.home, TO_DOS, TO_DO_COLUMNS)
        for _ in range(TURNS):
            self.home.orvo("todo", "add", "of the window", "--priority", "1")
        with self.home.window(self.screen, "--view", "todos", *LOOK):
            Rows(self.screen, TO_DO_COLUMNS)
            for turn in range(TURNS):
                self.screen.keys("minus", "Down")
                self.home.orvo("todo", "add", f"turn {turn}", "--priority", "5")

            def completed():
                return {row["id"] for row in self.home.rows("todos")
                        if row["completed"] and row["description"] == "of the window"}
            until("all are completed", lambda: len(completed()) == TURNS)
        added = [row["description"] for row in self.home.rows("todos") if row["description"].startswith("turn ")]
        self.assertEqual(sorted(added), sorted(f"turn {turn}" for turn in range(TURNS)))


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
