#!/usr/bin/env python3
# Asks the window for help by its keys and menus, and goes the ways that a store without entries offers.
# SPDX-License-Identifier: MIT
from case import DesktopCase, main
from screen import until
from views import close, dialog


class HelpTest(DesktopCase):
    def read(self, *keys):
        """What the window of help says that the last key opens."""
        if keys[:-1]:
            self.screen.after("a menu opens", lambda: self.screen.keys(*keys[:-1]))
        window = dialog(self.screen, keys[-1])
        self.screen.copy("nothing yet")
        self.screen.keys("ctrl+a", "ctrl+c")
        until("the text is copied", lambda: self.screen.clipboard() != "nothing yet")
        close(self.screen, window, "Escape")
        return self.screen.clipboard()

    def open(self, title, *keys):
        window = dialog(self.screen, *keys)
        self.assertTrue(self.screen.xdotool("getwindowname", window).startswith(title))
        return window

    def test_the_menu_of_help_opens_the_guide_the_keys_and_the_version(self):
        version = self.home.desktop("--version").stdout.strip().split()[-1]
        self.start()
        self.assertIn("The window", self.read("F1"))
        self.assertRegex(self.read("F10", "Left", "k"), r"Ctrl\+Shift\+N\s+New to-do\s")
        self.assertIn(f"Orvo Desktop {version}", self.read("alt+h", "a"))

    def test_a_store_without_addresses_offers_the_ways_to_a_first_one_until_there_is_one(self):
        self.start()
        form = self.open("New address", "Tab", "Return")  # behind Import
        self.screen.type("Adams")
        close(self.screen, form, "ctrl+Return")
        self.until_names("Adams")
        close(self.screen, self.open("Edit address", "Return"), "Escape")
        close(self.screen, dialog(self.screen, "Delete"), "Return")
        self.until_names()
        self.screen.at_rest()
        trash = self.open("Trash", "Tab", "Tab", "Return")
        self.screen.keys("alt+r")
        self.until_names("Adams")
        close(self.screen, trash, "Escape")
        close(self.screen, self.open("Edit address", "Down", "Return"), "Escape")


if __name__ == "__main__":
    main()
