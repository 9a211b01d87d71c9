#!/usr/bin/env python3
# Edits to-dos in the window with mouse and keys, and reads from the store what became of them.
# SPDX-License-Identifier: MIT
from case import DesktopCase, main
from screen import TITLE, until
from views import TO_DOS, Rows, is_open, item, opened, set_heading

DESCRIPTION, PRIORITY, DUE, CATEGORY, COMPLETED = 0, 1, 2, 3, 6
COLUMNS = ((COMPLETED, 30), (PRIORITY, 60), (DESCRIPTION, 300), (DUE, 110), (CATEGORY, 160))
NOW = ("--now", "2026-11-25T10:00")

# In the order of priority and due date; a change is made to the row at LATER.
TO_DOS_BY_PRIORITY = (("Paint", "1", "2026-11-30", "Home"), ("Order flour and sugar", "2", "2026-11-27", "Work"),
                      ("Write", "3", "none", "Home"), ("Clean", "4", "2026-12-01", "Work"))
LATER = 1
ORDER = TO_DOS_BY_PRIORITY[LATER][0]

# The items of each pop-up, from the top: what they make of a to-do.
PRIORITIES = [{"priority": number} for number in range(1, 6)]
DAYS = [{"due": day} for day in ("2026-11-25", "2026-11-26", "2026-12-02", None)] + ["choose"]
CATEGORIES = [{"category": name} for name in ("Uncategorized", "Home", "Work")]
POPUPS = {PRIORITY: PRIORITIES, DUE: DAYS, CATEGORY: CATEGORIES}
# The last one moves it up.
ITEMS = (("a week later", DUE, 2), ("today", DUE, 0), ("no date", DUE, 3), ("another category", CATEGORY, 1),
         ("no category", CATEGORY, 0), ("the highest priority", PRIORITY, 0))


class TodoTest(DesktopCase):
    def setUp(self):
        super().setUp()
        set_heading(self.home, TO_DOS, COLUMNS)
        for text, priority, due, category in TO_DOS_BY_PRIORITY:
            self.home.orvo("todo", "add", text, "--priority", priority, "--category", category,
                           *(() if due == "none" else ("--due", due)))

    def start(self):
        program = super().start("--view", "todos", *NOW)
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
        for number, (why, column, position) in enumerate(ITEMS):
            choose = (self.choose_by_key, self.choose_by_mouse)[number % 2]
            with self.subTest(why, by=choose.__name__):
                want = self.after(ORDER, POPUPS[column][position])
                self.assertNotEqual(want, self.stored())
                choose(column, position)
                until("the choice is stored", lambda: self.stored() == want)

    def test_the_day_picker_begins_at_the_due_day_and_sets_another(self):
        self.start()
        want = self.after(ORDER, {"due": "2026-11-29"})
        opened(self.screen, "the menu, then the day picker",
               lambda: self.choose_by_mouse(DUE, DAYS.index("choose")))
        self.screen.focus("")
        self.screen.keys("Right", "Right", "Return")
        until("the day is stored", lambda: self.stored() == want)

    def test_a_to_do_with_open_parts_asks_for_them_once(self):
        self.home.orvo("import", self.file(
            "trip.ics", "BEGIN:VCALENDAR\nVERSION:2.0\n"
            "BEGIN:VTODO\nUID:1\nSUMMARY:Trip\nPRIORITY:9\nDUE:20261224T080000\nEND:VTODO\n"
            "BEGIN:VTODO\nUID:2\nSUMMARY:Train\nPRIORITY:9\nRELATED-TO:1\nEND:VTODO\nEND:VCALENDAR\n"))
        self.start()
        trip = len(TO_DOS_BY_PRIORITY)
        self.rows.select(trip, DESCRIPTION)
        self.screen.keys("ctrl+t")
        until("only the trip and its part show", lambda: self.rows.is_selected(0))
        self.screen.keys("ctrl+t")
        until("all show again", lambda: self.rows.is_selected(trip))
        for answer, completed in (("Escape", []), ("alt+a", ["Trip", "Train"]), ("alt+o", ["Trip"])):
            self.screen.keys("minus")
            self.screen.focus("Complete to-do")
            until("the question is gone",
                  lambda: self.screen.keys(answer) or not self.screen.window("Complete to-do"))
            self.screen.focus(TITLE)
            until("the answer is obeyed",
                  lambda: [text for text, row in self.stored().items() if row["completed"]] == completed)
            if completed:
                self.screen.keys("ctrl+z")
                until("both are open again", lambda: not any(row["completed"] for row in self.stored().values()))

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


if __name__ == "__main__":
    main()
