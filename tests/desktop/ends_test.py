#!/usr/bin/env python3
# Ends the program while a menu, a box or an animation is busy, and in the middle of edits: the store stays whole.
# SPDX-License-Identifier: MIT
import random
import sys
import unittest

from screen import LONGEST, TITLE, Home, Picture, Screen, until
from views import TO_DOS, Rows, close_window, is_open, item, opened, set_heading

DESCRIPTION, PRIORITY, DUE, CATEGORY, COMPLETED = 0, 1, 2, 3, 6
COLUMNS = ((COMPLETED, 30), (PRIORITY, 60), (DESCRIPTION, 300), (DUE, 110), (CATEGORY, 160))
NOW = ("--now", "2026-11-25T10:00")
LOOK = ("--size", "900x560", *NOW)
OLD_DAY = "2026-11-20"
CHOOSE, DATE_CHOICES = 4, 5  # the item that opens the day picker, of so many
KILLS = 20
MANY = 20
A_LETTER = 0.05  # the difference that one letter makes is greater


class EndsTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen())
        set_heading(self.home, TO_DOS, COLUMNS)

    def start(self):
        program = self.enterContext(self.home.window(self.screen, "--view", "todos", *NOW))
        self.rows = Rows(self.screen, COLUMNS)
        return program

    def open_category_menu(self):
        menu = opened(self.screen, "a menu", lambda: self.screen.click(*self.rows.cell(1, CATEGORY)))
        return {"menu": menu, "picker": None}

    def open_day_picker(self):
        menu = opened(self.screen, "a menu", lambda: self.screen.click(*self.rows.cell(1, DUE)))
        picker = opened(self.screen, "the day picker",
                        lambda: self.screen.click(*item(self.screen, menu, CHOOSE, DATE_CHOICES)))
        return {"menu": None, "picker": picker}

    def strike_out(self):
        self.rows.select(1, DESCRIPTION)
        self.screen.click(*self.rows.cell(1, COMPLETED))
        return {"menu": None, "picker": None}

    def quit_by_key(self, program, menu, picker):
        """What asks has the keys until it is answered."""
        if asking := menu or picker:
            self.screen.keys("ctrl+q", "Escape")
            until("nothing is asked any more", lambda: not is_open(self.screen, asking))
            self.assertIsNone(program.poll())
            self.screen.focus(TITLE)
        self.screen.keys("ctrl+q")

    def close_by_frame(self, program, menu, picker):
        """A box holds its window back until it is answered."""
        close_window(self.screen)
        if picker:
            self.screen.keys("Escape")
            until("nothing is asked any more", lambda: not is_open(self.screen, picker))
            self.assertIsNone(program.poll())
            close_window(self.screen)

    def signal(self, program, menu, picker):
        program.terminate()

    def test_it_ends_well_whatever_it_is_at(self):
        for begin in (self.open_category_menu, self.open_day_picker, self.strike_out):
            for end in (self.signal, self.quit_by_key, self.close_by_frame):
                with self.subTest(begin.__name__, by=end.__name__):
                    self.doCleanups()
                    self.setUp()
                    self.home.orvo("options", "--set", "todo-show-completed", "no")
                    for text in ("Order", "Paint", "Write"):
                        self.home.orvo("todo", "add", text, "--category", "Work", "--due", OLD_DAY)
                    program = self.start()
                    end(program, **begin())
                    self.assertEqual(program.wait(LONGEST), 0)
                    self.assertEqual(self.home.said(), "")
                    settings = (self.home.folder / "config" / "orvo" / "settings.ini").read_text()
                    self.assertIn("View=todos", settings)
                    self.home.orvo("options", "--set", "todo-show-completed", "yes")
                    completed = [row["completed"] for row in self.home.rows(*NOW, "todos")]
                    self.assertEqual(completed, [False, begin == self.strike_out, False])

    def add_many(self, home):
        home.orvo("options", "--set", "todo-mark-completion-date", "yes")
        for number in range(MANY):
            home.orvo("todo", "add", f"number {number}", "--due", OLD_DAY)

    def whole_edits(self):
        """Which to-dos are completed; an error where one is so in part."""
        file = self.home.folder / "todos.ics"
        self.home.orvo("export", file)
        entries = file.read_text().split("BEGIN:VTODO")[1:]
        self.assertEqual(len(entries), MANY)
        for entry in entries:
            self.assertEqual("STATUS:COMPLETED" in entry, "\nCOMPLETED:" in entry, entry)
        return [row["completed"] for row in self.home.rows(*NOW, "todos")]

    def test_edits_are_whole_or_not_there_after_a_kill(self):
        self.add_many(self.home)
        chance = random.Random(1)
        states = []
        for _ in range(KILLS):
            with self.home.window(self.screen, "--view", "todos", *NOW) as program:
                keys = ["Down", "minus"] * chance.randrange(1, MANY)
                self.screen.xdotool("key", "--delay", 8, *keys)
                program.kill()
                program.wait()
            states.append(self.whole_edits())
            self.assertEqual(self.home.said(), "")
        self.assertGreater(len(set(map(tuple, states))), 2, "some edits come before the kill")
        self.show_the_rows_of(states[-1])

    def show_the_rows_of(self, state):
        """The next start shows what a store of that state shows which no program was killed on."""
        other = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.add_many(other)
        set_heading(other, TO_DOS, COLUMNS)
        for row, completed in enumerate(state):
            if completed:
                other.orvo(*NOW, "todo", "complete", str(row))
        file = self.home.folder / "window.png"
        self.assertEqual(other.desktop("--view", "todos", *LOOK, "--picture", file).returncode, 0)
        right = Picture.read(file)
        with self.home.window(self.screen, "--view", "todos", *LOOK):
            window = self.screen.window(TITLE)
            self.screen.leave()
            until("the rows are right", lambda: self.screen.picture(window).difference(right).worst < A_LETTER)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
