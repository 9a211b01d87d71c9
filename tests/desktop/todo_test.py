#!/usr/bin/env python3
# Edits to-dos in the window with mouse and keys, and reads from the store what became of them.
# SPDX-License-Identifier: MIT
import signal
import sys
import unittest

from screen import TITLE, Home, Screen, until
from views import TO_DOS, Rows, is_open, item, opened, set_heading

DESCRIPTION, PRIORITY, DUE, CATEGORY, COMPLETED = 0, 1, 2, 3, 6
COLUMNS = ((COMPLETED, 30), (PRIORITY, 60), (DESCRIPTION, 300), (DUE, 110), (CATEGORY, 160))
NOW = ("--now", "2026-11-25T10:00")

# In the order of priority and due date; a change is made to the row at LATER.
TO_DOS_BY_PRIORITY = (("Paint", "1", "2026-11-30", "Home"), ("Order flour and sugar", "2", "2026-11-27", "Work"),
                      ("Write", "3", "none", "Home"), ("Clean", "4", "2026-12-01", "Work"))
LATER = 1

# The items of each pop-up, from the top: what they make of a to-do.
PRIORITIES = [{"priority": number} for number in range(1, 6)]
DAYS = [{"due": day} for day in ("2026-11-25", "2026-11-26", "2026-12-02", None)] + ["choose"]
CATEGORIES = [{"category": name} for name in ("Uncategorized", "Home", "Work")]
POPUPS = {PRIORITY: PRIORITIES, DUE: DAYS, CATEGORY: CATEGORIES}
ITEMS = (("another priority", PRIORITY, 4), ("the highest priority", PRIORITY, 0), ("today", DUE, 0),
         ("no date", DUE, 3), ("a week later", DUE, 2), ("another category", CATEGORY, 1), ("no category", CATEGORY, 0))
# Of the line that is drawn, before anything else is looked at.
PICTURES_IN_A_ROW = 10


class TodoTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen())
        set_heading(self.home, TO_DOS, COLUMNS)
        for text, priority, due, category in TO_DOS_BY_PRIORITY:
            self.home.orvo("todo", "add", text, "--priority", priority, "--category", category,
                           *(() if due == "none" else ("--due", due)))

    def start(self):
        program = self.enterContext(self.home.window(self.screen, "--view", "todos", *NOW))
        self.rows = Rows(self.screen, COLUMNS)
        return program

    def stored(self):
        """The to-dos by their texts; a to-do's place in the list is no part of it."""
        return {row["description"]: {name: row[name] for name in ("id", "priority", "due", "completed", "category",
                                                                  "private")}
                for row in self.home.rows(*NOW, "todos")}

    def after(self, text, change):
        """What is stored, with one to-do changed."""
        now = self.stored()
        return {**now, text: {**now[text], **change}}

    def menu(self, column, row=LATER):
        return opened(self.screen, "a menu", lambda: self.screen.click(*self.rows.cell(row, column)))

    def choose_by_key(self, column, position):
        self.menu(column)
        self.screen.keys(*["Down"] * (position + 1), "Return")

    def choose_by_mouse(self, column, position):
        menu = self.menu(column)
        self.screen.click(*item(self.screen, menu, position, len(POPUPS[column])))

    def test_a_pop_up_changes_what_was_chosen_and_nothing_else(self):
        self.start()
        text = TO_DOS_BY_PRIORITY[LATER][0]
        before = self.stored()
        for choose in (self.choose_by_key, self.choose_by_mouse):
            for why, column, position in ITEMS:
                with self.subTest(why, by=choose.__name__):
                    want = self.after(text, POPUPS[column][position])
                    self.assertNotEqual(want, self.stored())
                    choose(column, position)
                    until("the choice is stored", lambda: self.stored() == want)
                self.put_back(text, before)

    def put_back(self, text, before):
        """As another program would; the window is ready when it shows the row at its place again."""
        row = next(row["row"] for row in self.home.rows(*NOW, "todos") if row["description"] == text)
        priority, due, category = (before[text][name] for name in ("priority", "due", "category"))
        for change in (("category", str(row), category), ("due", str(row), due)):
            self.home.orvo(*NOW, "todo", *change)
            row = next(row["row"] for row in self.home.rows(*NOW, "todos") if row["description"] == text)
        self.home.orvo(*NOW, "todo", "priority", str(row), str(priority))
        self.assertEqual(self.stored(), before)
        self.rows.rest()
        until("the to-do is at its place again", lambda: self.rows.is_selected(LATER))

    def test_a_pop_up_that_is_left_by_escape_changes_nothing(self):
        self.start()
        before = self.stored()
        for column in POPUPS:
            menu = self.menu(column)
            self.screen.keys("Down", "Escape")
            until("the menu is gone", lambda: not is_open(self.screen, menu))
        picker = opened(self.screen, "the day picker", lambda: self.choose_by_mouse(DUE, DAYS.index("choose")))
        self.screen.keys("Right", "Escape")
        until("the day picker is gone", lambda: not is_open(self.screen, picker))
        self.assertEqual(self.stored(), before)

    def test_the_day_picker_begins_at_the_due_day_and_sets_another(self):
        self.start()
        text = TO_DOS_BY_PRIORITY[LATER][0]
        want = self.after(text, {"due": "2026-11-29"})
        opened(self.screen, "the menu, then the day picker",
               lambda: self.choose_by_mouse(DUE, DAYS.index("choose")))
        self.screen.focus("")
        self.screen.keys("Right", "Right", "Return")
        until("the day is stored", lambda: self.stored() == want)

    def test_a_to_do_is_completed_by_a_click_on_its_box_and_by_a_key(self):
        self.start()
        text = TO_DOS_BY_PRIORITY[LATER][0]
        for completed in (True, False):
            want = self.after(text, {"completed": completed})
            self.screen.click(*self.rows.cell(LATER, COMPLETED))
            until("the click is stored", lambda: self.stored() == want)
        for completed in (True, False):
            want = self.after(text, {"completed": completed})
            self.screen.keys("minus")
            until("the key is stored", lambda: self.stored() == want)

    def test_a_series_ends_only_where_the_user_agrees(self):
        file = self.home.folder / "series.ics"
        file.write_text("BEGIN:VCALENDAR\nVERSION:2.0\nBEGIN:VTODO\nSUMMARY:Water\nPRIORITY:9\nDUE:20261224T080000\n"
                        "RRULE:FREQ=DAILY\nEND:VTODO\nEND:VCALENDAR\n")
        self.home.orvo("import", file)
        self.start()
        series = len(TO_DOS_BY_PRIORITY)
        self.rows.select(series, DESCRIPTION)

        def by_click():
            for row in (0, series):  # two clicks at one place would be one double click
                self.rows.select(row, DESCRIPTION)
            self.screen.click(*self.rows.cell(series, COMPLETED))
        for ask in (by_click, lambda: self.screen.keys("minus")):
            for answer, is_completed in (("Escape", False), ("alt+c", True)):
                ask()
                self.screen.focus("Complete to-do")
                until("the question is gone",
                      lambda: self.screen.keys(answer) or not self.screen.window("Complete to-do"))
                self.screen.focus(TITLE)
                until("the answer is obeyed", lambda: self.stored()["Water"]["completed"] == is_completed)
            self.screen.keys("minus")
            until("it is open again", lambda: not self.stored()["Water"]["completed"])

    def begin_text(self, action):
        """Does what opens a field over the text of the row at LATER, which is selected."""
        def is_field_open():
            behind_text = self.rows.column(DESCRIPTION)[1] - 20, self.rows.middle(LATER)
            return self.screen.picture().pixel(*behind_text) != self.rows.highlight
        until("no field is over the text", lambda: not is_field_open())
        action()
        until("a field is over the text", is_field_open)

    def test_the_text_of_the_selected_row_is_edited_in_place(self):
        self.start()
        text = TO_DOS_BY_PRIORITY[LATER][0]
        # By a key, as two clicks at one place would be one double click.
        self.rows.select(LATER - 1, DESCRIPTION)
        self.screen.keys("Down")
        self.begin_text(lambda: self.screen.keys("F2"))
        self.screen.type("not this")
        self.screen.keys("Escape")
        self.begin_text(lambda: self.screen.click(*self.rows.cell(LATER, DESCRIPTION)))
        self.screen.type("Order salt")
        self.screen.click(*self.rows.cell(LATER + 1, DESCRIPTION))
        until("the text is stored", lambda: text not in self.stored())
        self.assertIn("Order salt", self.stored())
        self.rows.rest()
        form = opened(self.screen, "the form",
                      lambda: self.screen.xdotool("mousemove", *self.rows.cell(LATER + 1, DESCRIPTION), "click",
                                                  "--repeat", 2, "--delay", 50, 1))
        self.screen.focus("Edit to-do")
        self.screen.keys("Escape")
        until("the form is gone", lambda: not is_open(self.screen, form))

    def test_a_click_on_a_heading_sorts_by_it(self):
        self.start()
        by_due_date = sorted(TO_DOS_BY_PRIORITY, key=lambda row: row[2])
        by_category = sorted(TO_DOS_BY_PRIORITY, key=lambda row: (row[3], row[2]))
        first = TO_DOS_BY_PRIORITY[0]
        for column, order in ((DUE, by_due_date), (CATEGORY, by_category), (PRIORITY, list(TO_DOS_BY_PRIORITY))):
            self.screen.click(*self.rows.heading(column))
            self.rows.rest()
            until("the selected row is at its new place", lambda: self.rows.is_selected(order.index(first)))
        self.assertEqual(len(self.stored()), len(TO_DOS_BY_PRIORITY))

    def test_a_line_strikes_out_a_completed_row_piece_by_piece_before_it_goes(self):
        self.home.orvo("options", "--set", "todo-show-completed", "no")
        program = self.start()
        self.rows.select(LATER, DESCRIPTION)
        want = self.after(TO_DOS_BY_PRIORITY[LATER][0], {"completed": True})
        self.screen.move(*self.rows.cell(LATER, COMPLETED))
        before = self.screen.at_rest()
        last = len(TO_DOS_BY_PRIORITY) - 1
        lengths = []

        def is_gone():
            for _ in range(PICTURES_IN_A_ROW):
                # Stopped, it leaves the line as long as it is at that moment.
                program.send_signal(signal.SIGSTOP)
                picture = self.screen.picture()
                program.send_signal(signal.SIGCONT)
                if self.row(picture, last) == self.row(before, last + 1):
                    return True
                lengths.append(self.line(picture, before))
            return False
        self.screen.xdotool("click", 1)
        until("the row is gone", is_gone)
        self.assertEqual(lengths, sorted(lengths), "the line grows")
        self.assertGreater(len(set(lengths)), 2, "the line comes piece by piece")
        self.home.orvo("options", "--set", "todo-show-completed", "yes")
        self.assertEqual(self.stored(), want)

    def row(self, picture, row):
        """The pixels of a row's description, beside the frame of the focus."""
        left, right = self.rows.column(DESCRIPTION)
        y = self.rows.middle(row)
        return [picture.pixel(x, y) for x in range(left + 2, right)]

    def line(self, picture, before):
        """How far the line through the description reaches."""
        now, then = self.row(picture, LATER), self.row(before, LATER)
        return max((x + 1 for x in range(len(now)) if now[x] != then[x]), default=0)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
