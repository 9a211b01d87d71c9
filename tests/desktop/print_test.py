#!/usr/bin/env python3
# Prints each view into PDF files, from the window and without one, and reads them back.
# SPDX-License-Identifier: MIT
import os
import re
import subprocess
import sys
import unicodedata
import unittest

from screen import LONGEST, TITLE, Home, Screen, until
from views import opened, windows

SECRET = "Xanadu"
NAMES = ["Adams, Ada", "Baker, Bob", "Müller-Lüdenscheidt, Karl-Friedrich Maximilian", "山田, 太郎"]
TASKS = ["Call " + "and call again " * 12 + "Bob", "Write", "掃除"]
# No printer is needed for this one: a file that can't be made.
UNWRITABLE = "/proc/out.pdf"


def card(name, first, more=""):
    return (f"BEGIN:VCARD\nVERSION:3.0\nN:{name};{first};;;\nFN:{first} {name}\nORG:Acme {name}\n"
            f"TEL;TYPE=CELL:+1 617 555 0100\n{more}END:VCARD\n")


def task(number, summary, more=""):
    return f"BEGIN:VTODO\nUID:{number}\nSUMMARY:{summary}\nPRIORITY:{number}\n{more}END:VTODO\n"


def output_of(*command):
    return subprocess.run(command, capture_output=True, check=True, text=True).stdout


def text_of(file):
    """What the pages say, with single blanks, in the order in which it was printed: a cell's lines stand together."""
    text = " ".join(output_of("pdftotext", "-raw", file, "-").split())
    # Where fonts have one glyph for two characters, a file tells the other one, such as a radical for a kanji.
    return unicodedata.normalize("NFKC", text)


def page_count(file):
    return int(re.search(r"^Pages: +(\d+)", output_of("pdfinfo", file), re.MULTILINE).group(1))


def page_size(file):
    """In points, as (width, height)."""
    sides = re.search(r"Page size: +(\S+) x (\S+)", output_of("pdfinfo", file)).groups()
    return tuple(round(float(side)) for side in sides)


class PrintTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.file = self.home.folder / "out.pdf"
        cards = "".join(card(*name.split(", ")) for name in reversed(NAMES))
        tasks = "".join(task(i, summary) for i, summary in enumerate(TASKS, 1))
        self.import_text("cards.vcf", cards + card(SECRET, SECRET, f"NOTE:{SECRET}\nCLASS:PRIVATE\n"))
        self.import_text("tasks.ics", "BEGIN:VCALENDAR\nVERSION:2.0\n" + tasks +
                         task(4, SECRET, f"DESCRIPTION:{SECRET}\nCLASS:PRIVATE\n") + "END:VCALENDAR\n")

    def import_text(self, name, text):
        file = self.home.folder / name
        file.write_text(text)
        self.home.orvo("import", str(file))

    def set_privacy(self, shows, masks):
        self.home.orvo("options", "--set", "showing-private", shows)
        self.home.orvo("options", "--set", "masking-private", masks)

    def printed(self, view, *arguments, hides=False):
        self.file.unlink(missing_ok=True)
        done = self.home.desktop("--view", view, "--pdf", self.file, *arguments)
        told = f"orvo-desktop: {self.file}: 1 private entry was left out\n"
        self.assertEqual((done.returncode, done.stderr), (3, told) if hides else (0, ""))
        return text_of(self.file)

    def assert_in_order(self, texts, whole):
        """Each of the texts comes once, behind the one before it."""
        places = [whole.find(text) for text in texts]
        self.assertNotIn(-1, places, f"{texts} in {whole}")
        self.assertEqual(places, sorted(places), whole)
        for text in texts:
            self.assertEqual(whole.count(text), 1, text)


class WithoutWindow(PrintTest):
    def test_each_view_says_what_it_shows_in_its_order(self):
        for view, wanted in (("list", NAMES), ("cards", NAMES), ("small-icons", NAMES), ("todos", TASKS)):
            with self.subTest(view=view):
                self.assert_in_order([" ".join(text.split()) for text in wanted], self.printed(view))

    def test_each_page_has_heading_number_and_date(self):
        self.home.orvo("options", "--set", "showing-private", "no")
        self.import_text("more.vcf", "".join(card(f"Name{i:03}.", "Ann") for i in range(300)))
        text = self.printed("list", "--now", "2026-12-24T18:00", hides=True)
        pages = page_count(self.file)
        self.assertGreater(pages, 4)
        for number in range(1, pages + 1):
            self.assertIn(f"Page {number} of {pages}", text)
        self.assertEqual(text.count("Company"), pages)
        self.assertEqual(text.count("December 24, 2026"), pages)
        self.assert_in_order([f"Name{i:03}., Ann" for i in range(300)], text)

    def test_what_is_hidden_or_masked_stays_off_the_paper(self):
        for shows, masks in (("no", "no"), ("yes", "yes")):
            self.set_privacy(shows, masks)
            for view in ("list", "large-icons", "cards", "todos"):
                with self.subTest(view=view, shows=shows):
                    text = self.printed(view, hides=shows == "no")
                    self.assertNotIn(SECRET, text)
                    self.assertIn("Write" if view == "todos" else "Baker, Bob", text)

    def test_what_is_shown_is_printed_though_it_is_private(self):
        self.set_privacy("yes", "no")
        for view in ("list", "cards", "todos"):
            self.assertIn(SECRET, self.printed(view))

    def test_paper_and_orientation_are_those_of_the_settings(self):
        settings = self.home.folder / "config" / "orvo" / "settings.ini"
        settings.parent.mkdir(parents=True, exist_ok=True)
        settings.write_text("[Application/Printing]\nPaper=A5\nOrientation=landscape\nMargins=10 10 10 10\n")
        self.printed("list")
        self.assertEqual(page_size(self.file), (595, 420))

    def test_a_file_that_cannot_be_written_is_told(self):
        done = self.home.desktop("--view", "list", "--pdf", UNWRITABLE)
        self.assertEqual(done.returncode, 2)
        self.assertRegex(done.stderr, f'^orvo-desktop: The file "{UNWRITABLE}" can\'t be written: .+\n$')

    def test_a_file_is_for_the_user_alone_and_no_link_of_others_is_followed(self):
        self.printed("list")
        self.assertEqual(self.file.stat().st_mode & 0o777, 0o600)
        self.file.write_text("old")
        shared = self.home.folder / "shared"
        shared.mkdir()
        shared.chmod(0o1777)
        link = shared / "out.pdf"
        link.symlink_to(self.file)
        if os.geteuid() == 0:  # who else can make a link of another user
            os.lchown(link, 65534, 65534)
            done = self.home.desktop("--view", "list", "--pdf", link)
            self.assertEqual((done.returncode, self.file.read_text()), (2, "old"))
            self.assertIn(f"{link} is a link of another user", done.stderr)
            os.lchown(link, 0, 0)
        self.assertEqual(self.home.desktop("--view", "list", "--pdf", link).returncode, 0)
        self.assertTrue(self.file.read_bytes().startswith(b"%PDF"))


class FromTheWindow(PrintTest):
    def setUp(self):
        super().setUp()
        self.set_privacy("yes", "no")
        self.screen = self.enterContext(Screen())
        self.program = self.enterContext(self.home.window(self.screen))

    def choose(self, key):
        """A command of the File menu by its letter; its dialog."""
        opened(self.screen, "the menu", lambda: self.screen.keys("alt+f"))
        menu = windows(self.screen)
        self.screen.keys(key)
        return until("a dialog", lambda: windows(self.screen) - menu).pop()

    def until_gone(self):
        until("the dialog is gone", lambda: len(windows(self.screen)) == 1)
        self.screen.focus(TITLE)

    def quit(self):
        self.screen.keys("ctrl+q")
        self.assertEqual(self.program.wait(LONGEST), 0)

    def save_as_pdf(self, file, *keys_before):
        self.choose("d")
        self.screen.focus("Save as PDF")
        self.screen.keys(*keys_before)
        self.screen.type(str(file))
        self.screen.keys("Return")

    def test_all_views_are_saved_as_pdf(self):
        for keys, wanted in (("ctrl+1", NAMES), ("ctrl+4", NAMES), ("ctrl+5", TASKS)):
            with self.subTest(keys=keys):
                self.file.unlink(missing_ok=True)
                self.screen.keys(keys)
                self.save_as_pdf(self.file)
                until("the file is there", self.file.exists)
                self.until_gone()
                self.assert_in_order([" ".join(text.split()) for text in wanted], text_of(self.file))
        self.quit()

    def test_only_what_is_selected_is_saved_where_that_is_chosen(self):
        self.screen.after("typing selects", lambda: self.screen.type("bak"))
        self.save_as_pdf(self.file, "alt+c", "alt+n")
        until("the file is there", self.file.exists)
        self.until_gone()
        text = text_of(self.file)
        self.assertIn("Baker, Bob", text)
        self.assertNotIn("Adams", text)
        self.quit()

    def test_the_print_dialog_prints_into_a_file(self):
        file = self.home.folder / "Addresses.pdf"
        opened(self.screen, "the dialog", lambda: self.screen.keys("ctrl+p"))
        self.screen.focus("Print")
        self.screen.keys("Return")
        until("the file is there", file.exists)
        self.until_gone()
        self.assert_in_order(NAMES, text_of(file))
        self.quit()

    def test_a_preview_shows_pages_and_prints_nothing(self):
        self.choose("v")
        preview = self.screen.focus("Print preview")
        until("pages are shown", lambda: not self.screen.picture(preview).is_blank())
        self.screen.keys("Escape")
        self.until_gone()
        self.assertEqual(list(self.home.folder.glob("*.pdf")), [])
        self.quit()

    def test_the_page_setup_is_kept(self):
        self.choose("u")
        self.screen.focus("Page setup")
        self.screen.keys("Return")
        self.until_gone()
        self.assertIn("[Application/Printing]", (self.home.folder / "config" / "orvo" / "settings.ini").read_text())
        self.quit()

    def test_a_file_that_cannot_be_written_is_told_in_a_box(self):
        self.save_as_pdf(UNWRITABLE)
        until("the message", lambda: len(windows(self.screen)) == 2 and not self.screen.window("Save as PDF"))
        self.screen.focus(TITLE)
        self.screen.keys("Escape")
        self.until_gone()
        self.quit()


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
