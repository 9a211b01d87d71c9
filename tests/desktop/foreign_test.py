#!/usr/bin/env python3
# Sends messages of another process to the window: it answers, survives what is damaged, and closes when it may.
# SPDX-License-Identifier: MIT
import random
import subprocess
import sys
import unittest

from screen import LONGEST, TITLE, Home, Screen, until
from views import is_open, opened

CAME_THROUGH = "0 0\n"


class ForeignTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen())
        self.home.orvo("add", "--name", "Adams")
        self.program = self.enterContext(self.home.window(self.screen))

    def send(self, message, data=b""):
        return subprocess.run([sys.argv[3], TITLE, message], input=data, capture_output=True,
                              env=self.home.environment, timeout=LONGEST).stdout.decode()

    def test_it_answers_at_rest_in_a_menu_and_in_a_form(self):
        for what, keys in (("at rest", ()), ("in a menu", ("alt+f",)), ("in a form", ("ctrl+n",))):
            with self.subTest(what):
                window = opened(self.screen, what, lambda: self.screen.keys(*keys)) if keys else None
                self.assertEqual(self.send("null"), CAME_THROUGH)
                if window:
                    self.screen.xdotool("windowfocus", window)
                    self.screen.keys("Escape")
                    until("it is gone", lambda: not is_open(self.screen, window))
                    self.screen.focus(TITLE)
                    self.screen.keys("Escape")

    def test_data_that_nobody_expects_harms_nothing(self):
        some = random.Random(1)
        for size in (0, 1, 7, 64, 4096, 1_000_000):
            with self.subTest(size):
                self.assertEqual(self.send("data", some.randbytes(size)), CAME_THROUGH)
        self.assertIsNone(self.program.poll())

    def test_it_closes_as_its_user_would_close_it(self):
        self.screen.keys("ctrl+4")
        self.assertEqual(self.send("close"), CAME_THROUGH)
        self.assertEqual(self.program.wait(LONGEST), 0)
        self.assertIn("cards", (self.home.folder / "config/orvo/settings.ini").read_text())
        self.assertNotEqual(self.send("null"), CAME_THROUGH)

    def test_a_menu_is_not_taken_away(self):
        menu = opened(self.screen, "the menu", lambda: self.screen.keys("alt+f"))
        self.assertEqual(self.send("close"), CAME_THROUGH)
        self.assertEqual(self.send("null"), CAME_THROUGH)
        self.assertTrue(is_open(self.screen, menu))
        self.assertIsNone(self.program.poll())

    def test_a_form_is_not_taken_away_with_what_was_typed(self):
        form = opened(self.screen, "the form", lambda: self.screen.keys("ctrl+n"))
        self.screen.focus("New address")
        self.screen.type("Baker")
        self.send("close")
        self.screen.keys("ctrl+Return")
        until("the form is gone", lambda: not is_open(self.screen, form))
        self.assertEqual([row["name"] for row in self.home.rows("addresses")], ["Adams", "Baker"])
        self.assertIsNone(self.program.poll())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
