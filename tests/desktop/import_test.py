#!/usr/bin/env python3
# Imports files by the command line and the menu: good ones, such as can't be read, and what is there already.
# SPDX-License-Identifier: MIT
from case import DesktopCase, main
from screen import TITLE, until
from views import close, dialog, take_keys, windows

CARD = "BEGIN:VCARD\nVERSION:3.0\nN:{name};Ada;;;\nTEL:{number}\n{more}END:VCARD\n"
GOOD = "BEGIN:VCARD\nVERSION:3.0\nN:Adams;Ada;;;\nEND:VCARD\n"
TO_DO = "BEGIN:VCALENDAR\nVERSION:2.0\nBEGIN:VTODO\nUID:1\nSUMMARY:Order flour\nEND:VTODO\nEND:VCALENDAR\n"
NO_CARDS = "Dear Ada,\nthis is a letter.\n"
MANY = 1_000_000  # takes seconds at the least
# An address that is there, a private one, and the first one as others write it.
OURS = CARD.format(name="Lovelace", number="030 1234567", more="")
SECRET = CARD.format(name="Hidden", number="7654321", more="CLASS:PRIVATE\n")
THEIRS = CARD.format(name="LOVELACE", number="+49 30 1234567", more="ORG:Mill\nX-SPORT:chess\n")


class ImportTest(DesktopCase):
    def card(self):
        path = self.home.folder / "out.vcf"
        self.home.orvo("export", path, "--show-private")
        return path.read_text()

    def content(self):
        return self.home.rows("addresses"), self.home.rows("todos"), self.home.orvo("categories")

    def test_good_files_are_imported_without_a_question(self):
        with self.window(self.file("ada.vcf", GOOD), self.file("order.ics", TO_DO)) as program:
            until("both are stored", lambda: self.names() == ["Adams"] and len(self.home.rows("todos")) == 1)
            self.quit(program)
        self.assertEqual(self.home.said(), "")

    def test_where_one_file_cannot_be_read_none_is_imported(self):
        good = self.file("ada.vcf", GOOD)
        for why, bad in (("it isn't there", self.home.folder / "missing.vcf"),
                         ("it holds no cards", self.file("letter.vcf", NO_CARDS)),
                         ("its kind is unknown", self.file("letter.txt", NO_CARDS))):
            with self.subTest(why), self.window(good, bad) as program:
                self.answer_box()
                self.assertEqual(self.names(), [])
                self.quit(program)

    def test_the_others_are_taken_in_where_the_user_wants_it(self):
        bad = [self.file(f"cards/{name}.vcf", NO_CARDS) for name in ("letter", "other")]
        self.file("cards/ada.vcf", GOOD)
        with self.window(self.home.folder / "cards"):
            self.answer_box("alt+i")
            self.until_names("Adams")
        self.assertEqual(self.home.said(),
                         "".join(f"orvo-desktop: {path}: holds no card or calendar\n" for path in bad))

    def test_the_dialog_takes_several_files_or_the_folder_that_is_shown(self):
        for name in ("ada", "bea", "cia"):
            folder = self.file(f"cards/{name}.vcf", GOOD).parent
        self.file(self.settings(), f"[Application/Desktop]\nLastFolder={folder}\n")
        self.start()
        chooser = dialog(self.screen, "ctrl+i")
        self.screen.type('"ada.vcf" "bea.vcf"')
        close(self.screen, chooser, "Return")
        until("both are there", lambda: len(self.names()) == 2)
        close(self.screen, dialog(self.screen, "ctrl+i"), "alt+f")
        until("all are there", lambda: len(self.names()) == 5)

    def test_what_is_left_out_is_told_and_the_rest_is_there(self):
        file = self.file("some.vcf", GOOD + "BEGIN:VCARD\nVERSION:3.0\nN:Baker;Bea;;;\n")
        with self.window(file):
            self.answer_box()
            self.assertEqual(self.names(), ["Adams"])
        self.assertRegex(self.home.said(), rf"\Aorvo-desktop: {file}:.*\n\Z")

    def test_a_cancelled_import_leaves_the_store_as_it_was(self):
        self.add("Baker")
        before = self.content()
        self.start()
        chooser = dialog(self.screen, "ctrl+i")
        crowd = "".join(CARD.format(name="Adams", number=number, more="CATEGORIES:Crowd\n") for number in range(MANY))
        self.screen.type(str(self.file("crowd.vcf", crowd)))
        close(self.screen, chooser, "Return", back=None)
        progress = until("the progress window", lambda: self.screen.window("^Importing"))
        take_keys(self.screen, progress)
        close(self.screen, progress, "space")  # its only button is Cancel
        self.assertEqual(self.content(), before)
        self.screen.keys("ctrl+z")  # nothing was done that could be taken back
        self.screen.at_rest()
        self.assertEqual((self.content(), len(windows(self.screen))), (before, 1))

    def test_an_import_and_the_merging_of_its_duplicates_are_taken_back_together(self):
        self.home.orvo("import", self.file("ours.vcf", OURS))
        self.start(self.file("theirs.vcf", THEIRS))
        for what in ("the question", "the two addresses"):
            asked = until(what, lambda: self.screen.window("^Possible duplicates"))
            self.assertEqual(sorted(self.names()), ["LOVELACE", "Lovelace"])
            take_keys(self.screen, asked)
            close(self.screen, asked, "Return", back=None)
        self.until_names("Lovelace")
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
        review = self.dialog("^Possible duplicates", "alt+a", "d")
        close(self.screen, review, "alt+d")  # the only pair
        until("the second is deleted", lambda: "LOVELACE" not in self.names())
        self.assertEqual(self.card().count("N:Hidden"), 2)


if __name__ == "__main__":
    main()
