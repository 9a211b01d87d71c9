#!/usr/bin/env python3
# Walks through the window as a screen reader does: names, roles and states of all that is seen, and what it is told.
# SPDX-License-Identifier: MIT
import collections
import os
import subprocess
import sys
import unittest

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402
from screen import Home, Screen, session_bus, until  # noqa: E402
from views import windows  # noqa: E402

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


class AccessTest(unittest.TestCase):
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

    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen())

    def fill(self):
        for name, company in ADDRESSES:
            self.home.orvo("add", "--name", name, "--company", company)
        self.home.orvo("todo", "add", TO_DO, "--priority", "2")
        self.home.orvo("todo", "add", DONE, "--priority", "3")
        self.home.orvo("todo", "complete", "1")

    def start(self, view=LIST, *arguments):
        self.program = self.enterContext(self.home.window(self.screen, "--view", view, *arguments, **self.bus))
        self.root = until("the program is on the bus", self.application)

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

    def test_all_that_is_seen_has_a_name(self):
        self.start()
        for is_full in (False, True):
            if is_full:
                self.fill()
                # Another program's changes come one by one.
                self.show(LIST)
                until("the last that came is shown", lambda: len(self.row_names()) == len(ADDRESSES))
            for view in VIEWS:
                with self.subTest(view, is_full=is_full):
                    self.show(view)
                    until("the rows are told", lambda: bool(self.row_names()) == is_full)
                    self.assertEqual(self.unnamed(), [])

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

    def is_open_after(self, keys, before):
        """The first keys get lost where the bus passes that of a modifier on behind that of the letter."""
        self.screen.keys(keys)
        self.screen.at_rest()
        return windows(self.screen) - before

    def test_another_order_leaves_no_name_behind(self):
        self.fill()
        self.start()
        self.assertIn(ADDRESSES[0][0], self.row_names()[0])
        until("the menu", lambda: self.is_open_after("alt+a", windows(self.screen)))
        self.screen.keys("c")
        want = sorted(company for _, company in ADDRESSES)
        until("the companies in their order", lambda: all(
            company in name for name, company in zip(self.row_names() or [""], want)))

    def rows_that_are(self, state):
        return [row.name for row in self.rows() if state in row.states]

    def test_focus_and_selection_are_followed(self):
        self.fill()
        for view, first, second in ((LIST, *(name for name, _ in ADDRESSES[:2])), (TO_DOS, TO_DO, DONE),
                                    (CARDS, *(name for name, _ in ADDRESSES[:2]))):
            with self.subTest(view), self.home.window(self.screen, "--view", view, **self.bus) as self.program:
                self.root = until("the program is on the bus", self.application)
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

    def test_what_colours_and_places_say_is_told_in_words(self):
        self.home.orvo("todo", "add", TO_DO, "--due", "2026-11-20")
        self.start(TO_DOS, "--now", "2026-11-25T10:00")
        until("the row is overdue", lambda: "(overdue)" in "".join(self.row_names()))
        self.screen.keys("ctrl+n")
        until("the boxes of labels are named", lambda: [
            part.label for part in self.parts() if part.label.startswith("Label of number")
            and part.role == "combo box"] == [f"Label of number {number}" for number in range(1, 6)])

    def test_what_is_masked_is_not_told(self):
        self.fill()
        self.home.orvo("add", "--name", SECRET, "--private", "yes")
        self.home.orvo("todo", "add", SECRET, "--private")
        for options, is_told in (((), True), ((("masking-private", "yes"),), False)):
            for option in options:
                self.home.orvo("options", "--set", *option)
            for view in VIEWS:
                with self.subTest(view, options=options), \
                        self.home.window(self.screen, "--view", view, **self.bus) as self.program:
                    self.root = until("the program is on the bus", self.application)
                    self.assertEqual(SECRET in "".join(part.name + part.label for part in self.parts()), is_told)
                    self.assertEqual(self.unnamed(), [])


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
