#!/usr/bin/env python3
# Sends messages of another process to the window: it answers, survives what is damaged, and closes when it may.
# SPDX-License-Identifier: MIT
import subprocess
import sys

from case import DesktopCase, main
from screen import LONGEST, TITLE, until
from views import is_open, opened

CAME_THROUGH = "0 0\n"


class ForeignTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.add("Adams")
        self.program = self.start()

    def send(self, message, data=b""):
        return subprocess.run([sys.argv[3], TITLE, message], input=data, capture_output=True,
                              env=self.home.environment, timeout=LONGEST).stdout.decode()

    def test_it_closes_as_its_user_would_close_it(self):
        self.screen.keys("ctrl+4")
        self.assertEqual(self.send("data", b"that nobody expects"), CAME_THROUGH)
        self.assertEqual(self.send("close"), CAME_THROUGH)
        self.assertEqual(self.program.wait(LONGEST), 0)
        self.assertIn("cards", self.settings().read_text())
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
        self.assertEqual(self.names(), ["Adams", "Baker"])
        self.assertIsNone(self.program.poll())


if __name__ == "__main__":
    main(programs=3)
