#!/usr/bin/env python3
# Lets orvo and the window work on one store at the same time: each shows what the other does, and nothing is lost.
# SPDX-License-Identifier: MIT
from case import DesktopCase, main
from screen import TITLE, until
from views import ADDRESSES, TO_DOS, Rows, close, dialog, is_open, set_heading

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


class TwoProgramsTest(DesktopCase):
    def setUp(self):
        super().setUp()
        for name, category in (("Adams", "Friends"), ("Baker", "Work"), ("Carter", "Friends")):
            self.add(name, category=category)
        for text, priority in (("Order", "2"), ("Paint", "3")):
            self.home.orvo("todo", "add", text, "--priority", priority, "--category", "Work")
        self.home.orvo("todo", "add", "Clean", "--category", "Home")

    def show(self, view, changes):
        def drawn():
            return self.drawn("--view", view, *LOOK)
        with self.window("--view", view, *LOOK):
            window = self.screen.window(TITLE)
            self.screen.leave()
            before = drawn()
            for why, change in changes:
                self.home.orvo(*change)
                now = drawn()
                self.assertGreater(now.difference(before), A_LETTER, why)
                until(f"{view}: {why}", lambda: self.screen.picture(window).difference(now) < A_LETTER)
                before = now

    def test_each_view_shows_what_orvo_does(self):
        for view, changes in (("list", ADDRESS_CHANGES), ("cards", ADDRESS_CHANGES), ("todos", TO_DO_CHANGES)):
            with self.subTest(view):
                self.doCleanups()
                self.setUp()
                self.show(view, changes)

    def test_the_selection_stays_on_its_entry(self):
        set_heading(self.home, ADDRESSES, COLUMNS)
        with self.window("--view", "list", *LOOK):
            rows = Rows(self.screen, COLUMNS)
            self.screen.keys("Down")
            until("Baker is selected", lambda: rows.is_selected(1))
            for name, row in (("Aaron", 2), ("Abel", 3), ("Dover", 3)):
                self.add(name)
                until(f"the selection is at its place after {name}", lambda: rows.is_selected(row))
            self.home.orvo("edit", "2", "--name", "Aaberg")
            until("the selection goes with the entry", lambda: rows.is_selected(0))

    def test_a_change_leaves_the_lookup_box_and_the_selection(self):
        set_heading(self.home, ADDRESSES, COLUMNS)
        self.add("Bakula")
        with self.window("--view", "list", *LOOK):
            rows = Rows(self.screen, COLUMNS)
            self.screen.type("bak")
            until("Baker is selected", lambda: rows.is_selected(1))
            before = self.screen.picture()
            self.home.orvo("edit", "2", "--company", "Acme")
            until("the company shows", lambda: self.screen.picture().difference(before) > A_LETTER)
            self.home.orvo("edit", "1", "--name", "Zoe")
            until("the selection goes with the entry", lambda: rows.is_selected(0))
            self.screen.type("u")
            until("the lookup goes on", lambda: rows.is_selected(1))

    def test_an_open_form_shows_what_orvo_does_and_asks_about_what_both_changed(self):
        with self.window("--view", "list", *LOOK):
            self.screen.keys("Tab", "Tab", "Down")
            form = dialog(self.screen, "Return")
            self.screen.keys("ctrl+a")
            self.screen.type("Mine")
            quiet = self.screen.picture(form)
            self.home.orvo("edit", "1", "--name", "Theirs", "--city", "Oslo")
            until("the form says so", lambda: self.screen.picture(form).difference(quiet) > A_LETTER)
            box = dialog(self.screen, "ctrl+Return")
            close(self.screen, box, "alt+k", back=None)
            until("the form is gone", lambda: not is_open(self.screen, form))
            self.until_names("Baker", "Carter", "Mine")
            self.assertEqual(self.home.rows("show", "1")[0]["city"], "Oslo")

    def test_fifty_turns_of_both_lose_nothing(self):
        set_heading(self.home, TO_DOS, TO_DO_COLUMNS)
        for _ in range(TURNS):
            self.home.orvo("todo", "add", "of the window", "--priority", "1")
        with self.window("--view", "todos", *LOOK):
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
    main()
