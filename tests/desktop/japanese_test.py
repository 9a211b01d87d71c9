#!/usr/bin/env python3
# Works in Japanese: types names through a real input method, and jumps by the strip of kana rows beside the list.
# SPDX-License-Identifier: MIT
import pathlib

from case import DesktopCase, main
from screen import composes_japanese, japanese_input, until

SAMPLE = pathlib.Path(__file__).resolve().parent.parent.parent / "samples" / "japan.vcf"
JAPANESE = ("--locale", "ja-JP")
# The first entry of each row that has one, from あ down to the row of all others.
FIRST_ENTRIES = ("阿部 花子", "さくら書店", "髙橋 誠", "山田 太郎", "渡辺 健", "東海林 恵")
NEW = "かとう"  # of a row that has none yet
TO_THE_STRIP = ("Tab", "Tab", "Tab")  # from the lookup box
LINE_HEIGHT = 40  # pixels, at most: a change in the box is lower, one that reaches into the list is taller


class JapaneseTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.home.orvo("import", SAMPLE)

    def selected(self):
        """Waits until something else is copied than before."""
        self.screen.copy("nothing")
        self.screen.keys("ctrl+c")
        until("the selected entry is copied", lambda: self.screen.clipboard() != "nothing")
        return self.screen.clipboard().splitlines()[0]

    def test_each_row_leads_to_its_first_entry(self):
        for view in ("list", "cards"):
            with self.subTest(view), self.window(*JAPANESE, "--view", view):
                self.screen.keys(*TO_THE_STRIP)
                for entry in FIRST_ENTRIES:
                    self.screen.keys("space")
                    until(entry, lambda entry=entry: self.selected() == entry)
                    self.screen.keys("Down")
                for key, entry in (("Home", FIRST_ENTRIES[0]), ("End", FIRST_ENTRIES[-1])):
                    self.screen.keys(key, "Return")
                    until(entry, lambda entry=entry: self.selected() == entry)
                self.screen.keys("shift+Tab", "Home")  # the strip is one stop behind the rows
                until("the first row is selected", lambda: self.selected() == FIRST_ENTRIES[0])

    def test_a_row_comes_to_life_with_its_first_entry(self):
        self.start(*JAPANESE, "--view", "list")
        before = self.screen.at_rest()
        self.add(NEW)
        until("the new entry is shown", lambda: self.screen.change(before)[0])
        self.screen.at_rest()
        self.screen.keys(*TO_THE_STRIP, "Down", "Return")
        until("the new entry is selected", lambda: self.selected() == NEW)

    def box(self):
        """What the box holds, which has the keys."""
        self.screen.keys("End", "shift+Home", "ctrl+c", "End")
        return self.screen.clipboard()

    def until_a_row_is_selected(self, empty):
        until("a row is selected", lambda: self.screen.change(empty)[1] > LINE_HEIGHT)

    def test_what_is_composed_looks_up_as_what_is_pasted(self):
        with self.window(*JAPANESE):
            empty = self.screen.at_rest()
            self.screen.copy("山田")
            self.screen.keys("ctrl+v")
            self.until_a_row_is_selected(empty)
            pasted = self.screen.at_rest()
        self.screen.copy("")  # what the box holds is read by way of the clipboard
        with japanese_input(self.home, self.screen) as environment, self.window(*JAPANESE, **environment) as program:
            until("the input method serves the box", lambda: composes_japanese(self.home, self.screen))
            empty = self.screen.at_rest()
            for what, action in (("what is composed shows", lambda: self.screen.type("yamada")),
                                 ("kanji are offered", lambda: self.screen.keys("space"))):
                self.screen.after(what, action)
                self.assertLess(self.screen.change(empty)[1], LINE_HEIGHT, "what isn't chosen yet looks nothing up")
            self.screen.keys("Return")
            self.until_a_row_is_selected(empty)
            until("the text is in the box", lambda: self.box() == "山田")
            until("the window is as after pasting", lambda: self.screen.picture() == pasted)
            self.end(program)


if __name__ == "__main__":
    main()
