#!/usr/bin/env python3
# Imports an address that is there already, merges both by keys, and takes it back.
# SPDX-License-Identifier: MIT
import sys
import unittest

from screen import TITLE, Home, Screen, until
from views import is_open, opened

CARD = "BEGIN:VCARD\nVERSION:3.0\nN:{name};Ada;;;\nTEL:{number}\n{more}END:VCARD\n"
OURS = CARD.format(name="Lovelace", number="030 1234567", more="")
SECRET = CARD.format(name="Hidden", number="7654321", more="CLASS:PRIVATE\n")
THEIRS = CARD.format(name="LOVELACE", number="+49 30 1234567", more="ORG:Mill\nX-SPORT:chess\n")


class DuplicatesTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen())

    def file(self, name, text):
        path = self.home.folder / name
        path.write_text(text)
        return path

    def start(self, *arguments):
        self.enterContext(self.home.window(self.screen, *arguments))

    def take_keys(self, window):
        until("it has the keys",
              lambda: self.screen.xdotool("windowfocus", window, "getwindowfocus").split() == [window])
        until("it is drawn", lambda: not self.screen.picture(window).is_blank())

    def press(self, window, *keys):
        """Presses keys that close the window."""
        self.take_keys(window)
        self.screen.keys(*keys)
        until("it is gone", lambda: not is_open(self.screen, window))

    def card(self):
        path = self.home.folder / "out.vcf"
        self.home.orvo("export", path, "--show-private")
        return path.read_text()

    def names(self):
        return [row["name"] for row in self.home.rows("addresses")]

    def test_an_import_and_the_merging_of_its_duplicates_are_taken_back_together(self):
        self.home.orvo("import", self.file("ours.vcf", OURS))
        self.start(self.file("theirs.vcf", THEIRS))
        question = until("the question", lambda: self.screen.window("^Possible duplicates"))
        self.assertEqual(sorted(self.names()), ["LOVELACE", "Lovelace"])
        self.press(question, "Return")
        dialog = until("the two addresses", lambda: self.screen.window("^Possible duplicates"))
        self.press(dialog, "Return")
        until("they are one", lambda: self.names() == ["Lovelace"])
        merged = self.card()
        for line in ("TEL:+49 30 1234567", "ORG:Mill", "X-SPORT:chess"):
            self.assertIn(line, merged)
        self.screen.focus(TITLE)
        self.screen.keys("ctrl+z")
        until("the import is taken back", lambda: self.card() == OURS)

    def test_all_duplicates_of_the_store_are_found_but_for_what_is_hidden(self):
        self.home.orvo("import", self.file("both.vcf", OURS + THEIRS + SECRET + SECRET))
        self.start()
        self.screen.keys("alt+v", "d")  # hides what is private
        dialog = opened(self.screen, "the two addresses", lambda: self.screen.keys("alt+a", "d"))
        self.press(dialog, "alt+d")  # the only pair
        until("the second is deleted", lambda: self.names().count("LOVELACE") == 0)
        self.assertEqual(self.card().count("N:Hidden"), 2)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
