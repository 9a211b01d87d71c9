#!/usr/bin/env python3
# Types Japanese into the lookup box of orvo-desktop, through a real input method.
# SPDX-License-Identifier: MIT
import sys
import unittest

from screen import LONGEST, Home, Screen, composes_japanese, japanese_input, until

JAPANESE = ("--locale", "ja-JP")
NAMES = ("阿部", "佐藤", "山田", "渡辺")
LINE_HEIGHT = 40  # pixels, at most: a change in the box is lower, one that reaches into the list is taller


class InputMethodTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen())
        for name in NAMES:
            self.home.orvo(*JAPANESE, "add", "--name", name)

    def box(self):
        """What the box holds, which has the keys."""
        self.screen.keys("End", "shift+Home", "ctrl+c", "End")
        return self.screen.clipboard()

    def window_after_pasting(self, text):
        with self.home.window(self.screen, *JAPANESE):
            empty = self.screen.at_rest()
            self.screen.copy(text)
            self.screen.keys("ctrl+v")
            until("a row is selected", lambda: self.screen.change(empty)[1] > LINE_HEIGHT)
            return self.screen.at_rest()

    def test_japanese_composition_reaches_the_lookup_box(self):
        pasted = self.window_after_pasting("山田")
        self.screen.copy("")  # what the box holds is read by way of the clipboard

        with japanese_input(self.home, self.screen) as environment, \
                self.home.window(self.screen, *JAPANESE, **environment) as program:
            until("the input method serves the box", lambda: composes_japanese(self.home, self.screen))
            empty = self.screen.at_rest()
            self.screen.after("what is composed shows", lambda: self.screen.type("yamada"))
            self.assertLess(self.screen.change(empty)[1], LINE_HEIGHT, "a reading looks nothing up")
            self.screen.after("kanji are offered", lambda: self.screen.keys("space"))
            self.assertLess(self.screen.change(empty)[1], LINE_HEIGHT, "kanji on offer look nothing up")

            self.screen.keys("Return")
            until("a row is selected", lambda: self.screen.change(empty)[1] > LINE_HEIGHT)
            until("the text is in the box", lambda: self.box() == "山田")
            until("the window is as after pasting", lambda: self.screen.picture() == pasted)
            program.terminate()
            self.assertEqual(program.wait(LONGEST), 0)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0]])
