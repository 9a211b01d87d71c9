#!/usr/bin/env python3
# Ends the program while a menu, a box or an animation is busy: it ends well, and nothing is lost.
# SPDX-License-Identifier: MIT
from case import DesktopCase, main
from screen import LONGEST, TITLE, until
from views import TO_DOS, Rows, close_window, is_open, item, opened, set_heading

DESCRIPTION, PRIORITY, DUE, CATEGORY, COMPLETED = 0, 1, 2, 3, 6
COLUMNS = ((COMPLETED, 30), (PRIORITY, 60), (DESCRIPTION, 300), (DUE, 110), (CATEGORY, 160))
NOW = ("--now", "2026-11-25T10:00")
OLD_DAY = "2026-11-20"
CHOOSE, DATE_CHOICES = 4, 5  # the item that opens the day picker, of so many


class EndsTest(DesktopCase):
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
                    self.set_options(todo_show_completed="no")
                    set_heading(self.home, TO_DOS, COLUMNS)
                    for text in ("Order", "Paint", "Write"):
                        self.home.orvo("todo", "add", text, "--category", "Work", "--due", OLD_DAY)
                    program = self.start("--view", "todos", *NOW)
                    self.rows = Rows(self.screen, COLUMNS)
                    end(program, **begin())
                    self.assertEqual(program.wait(LONGEST), 0)
                    self.assertEqual(self.home.said(), "")
                    self.assertIn("View=todos", self.settings().read_text())
                    self.set_options(todo_show_completed="yes")
                    completed = [row["completed"] for row in self.home.rows(*NOW, "todos")]
                    self.assertEqual(completed, [False, begin == self.strike_out, False])


if __name__ == "__main__":
    main()
