#!/usr/bin/env python3
# Opens damaged stores in the window: what can be read is shown, and copied into a new store where the user wants it.
# SPDX-License-Identifier: MIT
import sqlite3
import subprocess
import sys
import unittest

from screen import TITLE, Home, Screen, until

PAGE = 4096
QUESTION = "Damaged store"
TROUBLE = "Store can't be opened"


class RescueTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen())
        for name in ("Adams", "Baker"):
            self.home.orvo("add", "--name", name, "--note", f"about {name}")
        self.fresh = self.home.folder / "orvo-rescued.db"

    def damage(self, first, last):
        data = bytearray(self.home.store.read_bytes())
        data[first:last] = bytes(last - first)
        self.home.store.write_bytes(data)

    def accept(self, title):
        window = self.screen.focus(title)
        self.screen.keys("Return")
        until(f"{title} is gone", lambda: self.screen.window(title) != window)

    def expect_rescue(self):
        self.accept(QUESTION)
        self.accept("Rescue into a new store")
        self.accept(QUESTION)
        self.expect_rescued()

    def expect_rescued(self):
        names = sqlite3.connect(self.fresh).execute("SELECT note FROM address_extra").fetchall()
        self.assertEqual(names, [("about Adams",), ("about Baker",)])

    def test_a_store_that_is_damaged_in_part_is_shown_and_can_be_rescued(self):
        root = sqlite3.connect(self.home.store).execute(
            "SELECT rootpage FROM sqlite_schema WHERE name = 'text'").fetchone()[0]
        self.damage((root - 1) * PAGE, root * PAGE)
        with self.home.window(self.screen):
            self.expect_rescue()

    def test_a_store_that_cant_be_opened_can_be_rescued(self):
        self.damage(100, PAGE)
        program = subprocess.Popen([self.home.programs["orvo-desktop"], "--store", self.home.store],
                                   env={**self.home.environment, **self.screen.environment},
                                   stderr=subprocess.DEVNULL)
        self.addCleanup(program.wait)
        self.addCleanup(program.kill)
        self.screen.focus(TROUBLE)
        self.screen.keys("Tab", "Tab", "Return")
        self.accept("Rescue into a new store")
        self.accept(QUESTION)
        self.expect_rescued()
        until("the new store is shown", lambda: not self.screen.window(QUESTION) and self.screen.window(TITLE))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
