#!/usr/bin/env python3
# Names files to import on the command line of the window: good ones, and such as can't be read.
# SPDX-License-Identifier: MIT
import sys
import unittest

from screen import LONGEST, TITLE, Home, Screen, until
from views import dialog, windows

GOOD = "BEGIN:VCARD\nVERSION:3.0\nN:Adams;Ada;;;\nFN:Ada Adams\nEND:VCARD\n"
TO_DO = "BEGIN:VCALENDAR\nVERSION:2.0\nBEGIN:VTODO\nUID:1\nSUMMARY:Order flour\nEND:VTODO\nEND:VCALENDAR\n"
SKIPPED = GOOD + "BEGIN:VCARD\nVERSION:3.0\nN:Baker;Bea;;;\n"
NO_CARDS = "Dear Ada,\nthis is a letter.\n"


class ImportTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen())

    def file(self, name, text):
        path = self.home.folder / name
        path.write_text(text)
        return path

    def names(self):
        return [row["name"] for row in self.home.rows("addresses")]

    def end(self, program):
        """The window takes keys, and ends by one."""
        self.screen.focus(TITLE)
        self.screen.keys("ctrl+q")
        self.assertEqual(program.wait(LONGEST), 0)

    def answer_box(self):
        """Waits for the box that tells something, and closes it."""
        until("a box tells it", lambda: len(windows(self.screen)) == 2)
        self.screen.focus(TITLE)  # the box has the same, and lies above
        self.screen.keys("Return")
        until("the box is gone", lambda: len(windows(self.screen)) == 1)

    def test_good_files_are_imported_without_a_question(self):
        with self.home.window(self.screen, self.file("ada.vcf", GOOD), self.file("order.ics", TO_DO)) as program:
            until("both are stored", lambda: len(self.names()) == 1 and len(self.home.rows("todos")) == 1)
            self.end(program)
        self.assertEqual(self.home.said(), "")

    def test_where_one_file_cannot_be_read_none_is_imported(self):
        good = self.file("ada.vcf", GOOD)
        for why, bad in (("it isn't there", self.home.folder / "missing.vcf"),
                         ("it holds no cards", self.file("letter.vcf", NO_CARDS)),
                         ("its kind is unknown", self.file("letter.txt", NO_CARDS))):
            with self.subTest(why), self.home.window(self.screen, good, bad) as program:
                self.answer_box()
                self.assertEqual(self.names(), [])
                self.end(program)

    def test_the_others_are_taken_in_where_the_user_wants_it(self):
        folder = self.home.folder / "cards"
        folder.mkdir()
        bad = [self.file(f"cards/{name}.vcf", NO_CARDS) for name in ("letter", "other")]
        self.file("cards/ada.vcf", GOOD)
        with self.home.window(self.screen, folder) as program:
            until("a box asks", lambda: len(windows(self.screen)) == 2)
            self.screen.focus(TITLE)
            self.screen.keys("alt+i")
            until("the good one is there", lambda: len(self.names()) == 1)
            self.end(program)
        self.assertEqual(self.home.said(),
                         "".join(f"orvo-desktop: {path}: holds no card or calendar\n" for path in bad))

    def test_the_dialog_takes_several_files_or_the_folder_that_is_shown(self):
        folder = self.home.folder / "cards"
        folder.mkdir()
        (self.home.folder / "config" / "orvo").mkdir(parents=True)
        settings = self.home.folder / "config" / "orvo" / "settings.ini"
        settings.write_text(f"[Application/Desktop]\nLastFolder={folder}\n")
        for name in ("ada", "bea", "cia"):
            self.file(f"cards/{name}.vcf", GOOD.replace("Ada", name))
        with self.home.window(self.screen) as program:
            dialog(self.screen, "ctrl+i")
            self.screen.type('"ada.vcf" "bea.vcf"')
            self.screen.keys("Return")
            until("both are there", lambda: len(self.names()) == 2)
            until("the dialog is gone", lambda: len(windows(self.screen)) == 1)
            self.screen.focus(TITLE)
            dialog(self.screen, "ctrl+i")
            self.screen.keys("alt+f")
            until("all are there", lambda: len(self.names()) == 5)
            self.end(program)

    def test_what_is_left_out_is_told_and_the_rest_is_there(self):
        file = self.file("some.vcf", SKIPPED)
        with self.home.window(self.screen, file) as program:
            self.answer_box()
            self.assertEqual(len(self.names()), 1)
            self.end(program)
        self.assertEqual(self.home.said().count("\n"), 1)
        self.assertTrue(self.home.said().startswith(f"orvo-desktop: {file}:"), self.home.said())


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
