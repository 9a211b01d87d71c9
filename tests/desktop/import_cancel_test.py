#!/usr/bin/env python3
# Ends a long import by the window that shows how far it is, and takes a finished one back.
# SPDX-License-Identifier: MIT
import sys
import unittest

from screen import TITLE, Home, Screen, until
from views import is_open, opened

CARD = "BEGIN:VCARD\nVERSION:3.0\nN:Adams;Ada;;;\nCATEGORIES:Crowd\nTEL:{}\nEND:VCARD\n"
MANY = 1_000_000  # takes seconds at the least
FEW = 20
OTHER = "Baker"


class ImportCancelTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen())
        self.home.orvo("add", "--name", OTHER)

    def cards(self, count):
        path = self.home.folder / "crowd.vcf"
        # Each has its number, so that none is the duplicate of another one.
        path.write_text("".join(CARD.format(number) for number in range(count)))
        return path

    def take_keys(self, window):
        until("it has the keys",
              lambda: self.screen.xdotool("windowfocus", window, "getwindowfocus").split() == [window])

    def choose(self, path):
        """Imports a file by the menu."""
        dialog = opened(self.screen, "the file dialog", lambda: self.screen.keys("ctrl+i"))
        self.take_keys(dialog)
        self.screen.type(str(path))
        self.screen.keys("Return")
        until("the file dialog is gone", lambda: not is_open(self.screen, dialog))

    def content(self):
        return self.home.rows("addresses"), self.home.rows("todos"), self.home.orvo("categories")

    def test_a_cancelled_import_leaves_the_store_as_it_was(self):
        before = self.content()
        self.enterContext(self.home.window(self.screen))
        self.choose(self.cards(MANY))
        progress = until("the progress window", lambda: self.screen.window("^Importing"))
        self.take_keys(progress)
        self.screen.keys("space")  # its only button is Cancel
        until("it is gone", lambda: not is_open(self.screen, progress))
        self.assertEqual(self.content(), before)

        self.screen.focus(TITLE)
        self.screen.keys("ctrl+z")  # nothing was done that could be taken back
        self.choose(self.cards(1))
        until("the window works on", lambda: len(self.home.rows("addresses")) == 2)

    def test_a_finished_import_is_taken_back_as_a_whole(self):
        before = self.content()
        self.enterContext(self.home.window(self.screen, self.cards(FEW)))
        until("all are stored", lambda: len(self.home.rows("addresses")) == FEW + 1)
        self.assertNotEqual(self.content()[2], before[2])
        self.screen.focus(TITLE)
        self.screen.keys("ctrl+z")
        until("all are gone", lambda: len(self.home.rows("addresses")) == 1)
        self.assertEqual(self.content(), before)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
