#!/usr/bin/env python3
# Works without a mouse: what Tab comes to, and the menu of what is selected.
# SPDX-License-Identifier: MIT
import sys
import unittest

from screen import Home, Screen, until
from views import is_open, opened, windows

NAME, TO_DO = "Adams", "Paint"
TO_COPY = ("Down", "Down", "Down", "Return")  # Open, Set category, Copy
# From where the keys are at the start to the rows.
VIEWS = {"list": ("Tab", "Tab"), "cards": ("Tab", "Tab"), "large-icons": ("Tab", "Tab"), "todos": ()}


class KeyboardTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen())
        self.home.orvo("add", "--name", NAME)
        self.home.orvo("todo", "add", TO_DO)

    def test_tab_comes_to_the_rows_and_a_key_opens_their_menu(self):
        for view, tabs in VIEWS.items():
            with self.home.window(self.screen, "--view", view):
                self.screen.keys(*tabs, "Down")
                for key in ("shift+F10", "Menu"):
                    with self.subTest(view, key=key):
                        self.screen.copy("nothing")
                        menu = opened(self.screen, "the menu", lambda key=key: self.screen.keys(key))
                        self.screen.at_rest()
                        self.screen.keys(*TO_COPY)
                        wanted = TO_DO if view == "todos" else NAME
                        until("the entry is copied", lambda wanted=wanted: wanted in self.screen.clipboard())
                        until("the menu is gone", lambda menu=menu: not is_open(self.screen, menu))

    def test_the_right_button_opens_the_menu_of_the_row_below_it(self):
        with self.home.window(self.screen, "--view", "list"):
            self.screen.copy("nothing")
            self.screen.at_rest()
            opened(self.screen, "the menu", lambda: self.screen.click(100, 95, 3))
            self.screen.at_rest()
            self.screen.keys(*TO_COPY)
            until("the entry is copied", lambda: NAME in self.screen.clipboard())

    def test_return_behind_a_refused_letter_opens_nothing(self):
        with self.home.window(self.screen, "--view", "list"):
            before = windows(self.screen)
            self.screen.keys("a", "z", "Return")
            self.screen.at_rest()
            self.assertEqual(windows(self.screen), before)
            opened(self.screen, "the form", lambda: self.screen.keys("Return"))

    def test_what_lies_around_the_rows_has_no_menu(self):
        with self.home.window(self.screen, "--view", "list"):
            before = windows(self.screen)
            for place in ((650, 38), (700, 669)):  # the tool bar, the status bar
                self.screen.click(*place, 3)
            self.screen.at_rest()
            # A menu would have taken the keys.
            self.screen.keys("Tab", "Tab", "Down", "ctrl+c")
            until("the entry is copied", lambda: NAME in self.screen.clipboard())
            self.assertEqual(windows(self.screen), before)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
