#!/usr/bin/env python3
# Walks through the window as a screen reader does: names, roles and states of all that is seen, and what it is told.
# SPDX-License-Identifier: MIT
import collections
import contextlib
import os
import subprocess

import gi

gi.require_version("Atspi", "2.0")
from case import DesktopCase, main  # noqa: E402
from gi.repository import Atspi, GLib  # noqa: E402
from screen import session_bus, until  # noqa: E402

LAUNCHER = ["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"]
ALWAYS_ON = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
# What the user can act on, or reads to find his way.
NAMED = {"table", "list", "table column header", "table row", "list item", "text", "combo box", "check box", "menu",
         "push button", "radio button"}
STATES = {"focused": Atspi.StateType.FOCUSED, "selected": Atspi.StateType.SELECTED, "checked": Atspi.StateType.CHECKED}
# Something that is seen; the parents are roles, from the inside to the outside.
Part = collections.namedtuple("Part", "role name label states parents")
LIST, LARGE_ICONS, CARDS, TO_DOS = "list", "large-icons", "cards", "todos"
VIEWS = {LIST: "ctrl+1", LARGE_ICONS: "ctrl+2", CARDS: "ctrl+4", TO_DOS: "ctrl+5"}
# By name, and by company the other way round.
ADDRESSES = (("Adams", "Zeta"), ("Baker", "Yankee"), ("Clark", "Alpha"))
TO_DO, DONE = "Write", "Paint"
SECRET = "Xanadu"
MARKED = "Fish & <b>chips</b>"


class AccessTest(DesktopCase):
    @classmethod
    def setUpClass(cls):
        cls.bus = {**cls.enterClassContext(session_bus(os.environ)), **ALWAYS_ON}
        os.environ.update(cls.bus)  # for this program's own calls
        launcher = subprocess.Popen(LAUNCHER)
        cls.addClassCleanup(launcher.wait)
        cls.addClassCleanup(launcher.terminate)  # it ends its own bus then
        subprocess.run(["gdbus", "wait", "--session", "org.a11y.Bus"], check=True)
        assert Atspi.init() == 0, "the bus of assistive technology can't be reached"
        cls.focused = []
        cls.listener = Atspi.EventListener.new(lambda event: cls.focused.append(event.source.get_name()))
        cls.listener.register("object:state-changed:focused")

    def fill(self):
        for name, company in ADDRESSES:
            self.add(name, company=company)
        self.home.orvo("todo", "add", TO_DO, "--priority", "2")
        self.home.orvo("todo", "add", DONE, "--priority", "3")
        self.home.orvo("todo", "complete", "1")

    @contextlib.contextmanager
    def window(self, view=LIST, *arguments):
        with super().window("--view", view, *arguments, **self.bus) as self.program:
            self.root = until("the program is on the bus", self.application)
            yield self.program

    def application(self):
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        found = [desktop.get_child_at_index(i) for i in range(desktop.get_child_count())]
        return next((each for each in found if each and each.get_process_id() == self.program.pid), None)

    def walk(self, accessible, parents=()):
        assert accessible, "a child that is no more"
        accessible.clear_cache()
        states = accessible.get_state_set()
        if parents and not states.contains(Atspi.StateType.SHOWING):
            return []
        labels = [relation.get_target(0).get_name() for relation in accessible.get_relation_set()
                  if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY]
        part = Part(accessible.get_role_name(), accessible.get_name(), "".join(labels),
                    {name for name, state in STATES.items() if states.contains(state)}, parents)
        children = [accessible.get_child_at_index(index) for index in range(accessible.get_child_count())]
        return [part] + [each for child in children for each in self.walk(child, (part.role, *parents))]

    def parts(self):
        """All that shows, from the outside to the inside, at a moment at which nothing of it comes or goes."""
        def walk():
            try:
                return self.walk(self.root)
            except (GLib.Error, AssertionError):
                return None
        return until("the window can be walked through", walk)

    def names(self, *roles):
        return [part.name for part in self.parts() if part.role in roles]

    def rows(self):
        """Of the view; the list of the category box is none."""
        return [part for part in self.parts()
                if part.role in ("table row", "list item") and "combo box" not in part.parents]

    def row_names(self):
        return [row.name for row in self.rows()]

    def told(self, what):
        """Waits until the text is in the name of what the focus was told to be on last."""
        def is_so():
            while GLib.MainContext.default().iteration(False):
                pass
            return self.focused and what in self.focused[-1]
        until(f"the focus is told to be on {what!r}", is_so)

    def unnamed(self):
        return [part for part in self.parts()
                if part.role in NAMED and not part.name + part.label and "combo box" not in part.parents]

    def show(self, view):
        self.screen.keys(VIEWS[view])
        role = "table" if view in (LIST, TO_DOS) else "list"
        until(f"the {view} is shown", lambda: any(self.names(role)))

    def test_all_that_is_seen_has_a_name_also_where_there_are_no_entries(self):
        self.start()
        for view in VIEWS:
            with self.subTest(view):
                self.show(view)
                self.assertEqual((self.row_names(), self.unnamed()), ([], []))

    def test_what_is_found_is_counted_and_nothing_is_found_in_masked_rows(self):
        self.fill()
        self.add("Dunn", company=f"{SECRET} Zeta", private="yes")
        self.set_options(masking_private="yes", todo_show_completed="no")
        self.start()
        self.screen.keys("ctrl+f")
        for typed, found in (("zet", ["Adams"]), (SECRET, [])):
            self.screen.type(typed)
            until("what is found is counted",
                  lambda found=found: f"{len(found)} of 4 addresses found" in self.names("status bar", "label"))
            self.assertEqual([name.split(",")[0] for name in self.row_names()], found)
            self.assertEqual(self.unnamed(), [])
            self.screen.keys("Escape", "ctrl+f")
            until("all are there again", lambda: len(self.row_names()) == 4)
        self.show(TO_DOS)
        self.screen.keys("ctrl+f")
        self.screen.type(TO_DO)
        for key, found in (("Return", "1 of 1 to-do found (1 selected)"), ("minus", "0 of 0 to-dos found")):
            self.screen.keys(key)
            until("what is left is counted", lambda found=found: found in self.names("status bar", "label"))

    def test_all_rows_have_a_name_and_what_is_masked_is_not_told(self):
        self.fill()
        self.add(SECRET, private="yes")
        self.home.orvo("todo", "add", SECRET, "--private")
        for masking in ("no", "yes"):
            self.set_options(masking_private=masking)
            with self.window():
                for view in VIEWS:
                    with self.subTest(view, masking=masking):
                        self.show(view)
                        count = 3 if view == TO_DOS else len(ADDRESSES) + 1
                        until("the rows are told", lambda count=count: len(self.row_names()) == count)
                        told = "".join(part.name + part.label for part in self.parts())
                        self.assertEqual(SECRET in told, masking == "no")
                        self.assertEqual(self.unnamed(), [])
                        self.screen.keys("Down", "ctrl+a", "ctrl+c")
                        until("what is left out is told", lambda masking=masking: (
                            "1 private entry was left out." in self.names("status bar", "label")) == (masking == "yes"))

    def test_rows_and_headings_tell_what_is_shown(self):
        self.fill()
        self.start()
        self.assertEqual(self.row_names(), [f"{name}, {company}, Uncategorized" for name, company in ADDRESSES])
        self.assertEqual(self.names("table column header"),
                         ["Name", "Company", "Primary", "Category", "Private", "Note"])
        for view in (CARDS, LARGE_ICONS):
            self.show(view)
            until("the rows are told", lambda view=view: ("\n" in "".join(self.row_names())) == (view == CARDS))
            for row, (name, company) in zip(self.row_names(), ADDRESSES, strict=True):
                self.assertTrue(row.startswith(name))
                self.assertEqual(company in row, view == CARDS)
        self.show(TO_DOS)
        until("the to-dos", lambda: any(TO_DO in name for name in self.row_names()))
        self.assertEqual(["Completed" in name for name in self.row_names()], [False, True])

    def rows_that_are(self, state):
        return [row.name for row in self.rows() if state in row.states]

    def test_focus_and_selection_are_followed(self):
        self.fill()
        for view, first, second in ((LIST, *(name for name, _ in ADDRESSES[:2])), (TO_DOS, TO_DO, DONE),
                                    (CARDS, *(name for name, _ in ADDRESSES[:2]))):
            with self.subTest(view), self.window(view):
                if view != TO_DOS:
                    self.screen.keys("Tab", "Tab")
                self.screen.keys("Down")
                for name in (first, second):
                    self.told(name)
                    until("one row has both", lambda name=name: all(
                        name in "".join(self.rows_that_are(state)) and len(self.rows_that_are(state)) == 1
                        for state in ("focused", "selected")))
                    self.screen.keys("Down")

    def checked(self):
        return ["checked" in part.states for part in self.parts()
                if part.role == "check box" and "table row" in part.parents]

    def test_a_to_do_tells_whether_it_is_done(self):
        self.fill()
        self.start(TO_DOS)
        self.assertEqual(self.checked(), [False, True])
        self.screen.keys("Down", "minus")
        until("both are done", lambda: self.checked() == [True, True])

    def test_a_reminder_is_told_as_it_was_typed(self):
        self.home.orvo("todo", "add", MARKED, "--due", "2026-11-25")
        self.set_options(alarm_set="yes")
        self.start(LIST, "--now", "2026-11-25T10:00")
        until("the reminder is told", lambda: any(MARKED in part.name for part in self.parts() if part.role == "label"))

    def test_what_colours_and_places_say_is_told_in_words(self):
        self.home.orvo("todo", "add", TO_DO, "--due", "2026-11-20")
        self.start(TO_DOS, "--now", "2026-11-25T10:00")
        until("the row is overdue", lambda: "(overdue)" in "".join(self.row_names()))
        self.screen.keys("ctrl+n")
        self.screen.focus("New address")
        self.screen.keys("alt+u", "Tab", "Tab", "space")  # the button behind that of addresses adds a row for a day
        until("the boxes of labels are named", lambda: [
            part.label for part in self.parts() if part.label.startswith("Label of number")
            and part.role == "combo box"] == [f"Label of number {number}" for number in range(1, 6)])
        self.assertIn("Label: Birthday", [part.label for part in self.parts()])
        self.assertEqual(self.unnamed(), [])


if __name__ == "__main__":
    main()
