#!/usr/bin/env python3
# Jumps through the sample of Japanese addresses by the strip of kana rows beside the list.
# SPDX-License-Identifier: MIT
import pathlib
import sys
import unittest

from screen import Home, Screen, until

SAMPLE = pathlib.Path(__file__).resolve().parent.parent.parent / "samples" / "japan.vcf"
JAPANESE = ("--locale", "ja-JP")
# The first entry of each row that has one, from あ down to the row of all others.
FIRST_ENTRIES = ("阿部 花子", "さくら書店", "髙橋 誠", "山田 太郎", "渡辺 健", "東海林 恵")
NEW = "かとう"  # of a row that has none yet
TO_THE_STRIP = ("Tab", "Tab", "Tab")  # from the lookup box


class KanaTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen())
        self.home.orvo("import", str(SAMPLE))

    def selected(self):
        """Waits until something else is copied than before."""
        self.screen.copy("nothing")
        self.screen.keys("ctrl+c")
        until("the selected entry is copied", lambda: self.screen.clipboard() != "nothing")
        return self.screen.clipboard().splitlines()[0]

    def test_each_row_leads_to_its_first_entry(self):
        for view in ("list", "cards"):
            with self.subTest(view), self.home.window(self.screen, *JAPANESE, "--view", view):
                self.screen.keys(*TO_THE_STRIP)
                for entry in FIRST_ENTRIES:
                    self.screen.keys("space")
                    until(entry, lambda entry=entry: self.selected() == entry)
                    self.screen.keys("Down")

    def test_a_row_comes_to_life_with_its_first_entry(self):
        with self.home.window(self.screen, *JAPANESE, "--view", "list"):
            before = self.screen.at_rest()
            self.home.orvo("add", "--name", NEW)
            until("the new entry is shown", lambda: self.screen.change(before)[0])
            self.screen.at_rest()
            self.screen.keys(*TO_THE_STRIP, "Down", "Return")
            until("the new entry is selected", lambda: self.selected() == NEW)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
