#!/usr/bin/env python3
# Prints each view into PDF files, from the window and without one, and reads them back.
# SPDX-License-Identifier: MIT
import os
import re
import subprocess
import unicodedata

from case import DesktopCase, main
from screen import until
from views import close, opened, windows

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


class PrintTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.pdf = self.home.folder / "out.pdf"
        cards = "".join(card(*name.split(", ")) for name in reversed(NAMES))
        tasks = "".join(task(i, summary) for i, summary in enumerate(TASKS, 1))
        self.home.orvo("import", self.file("cards.vcf", cards), self.file(
            "tasks.ics", f"BEGIN:VCALENDAR\nVERSION:2.0\n{tasks}END:VCALENDAR\n"))

    def told(self, *arguments):
        """The exit code, and what is said on standard error."""
        done = self.home.desktop("--pdf", *arguments)
        return done.returncode, done.stderr

    def printed(self, view, *arguments):
        self.pdf.unlink(missing_ok=True)
        self.assertEqual(self.told(self.pdf, "--view", view, *arguments), (0, ""))
        return text_of(self.pdf)

    def info(self, pattern):
        """What the file tells of itself, as numbers."""
        return [float(each) for each in re.search(pattern, output_of("pdfinfo", self.pdf), re.MULTILINE).groups()]

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

    def test_a_card_says_all_that_it_has(self):
        text = self.printed("cards")
        counts = {more: text.count(more) for more in ("Acme Adams", "Mobile", "+1 617 555 0100")}
        self.assertEqual(counts, {"Acme Adams": 1, "Mobile": len(NAMES), "+1 617 555 0100": len(NAMES)})

    def test_each_page_has_heading_number_and_date(self):
        cards = "".join(card(f"Name{i:03}.", "Ann") for i in range(300))
        self.home.orvo("import", self.file("more.vcf", cards))
        text = self.printed("list", "--now", "2026-12-24T18:00")
        (pages,) = map(int, self.info(r"^Pages: +(\d+)"))
        self.assertGreater(pages, 4)
        for number in range(1, pages + 1):
            self.assertIn(f"Page {number} of {pages}", text)
        self.assertEqual(text.count("Company"), pages)
        self.assertEqual(text.count("December 24, 2026"), pages)
        self.assert_in_order([f"Name{i:03}., Ann" for i in range(300)], text)

    def test_paper_and_orientation_are_those_of_the_settings(self):
        self.file(self.settings(), "[Application/Printing]\nPaper=A5\nOrientation=landscape\nMargins=10 10 10 10\n")
        self.printed("list")
        self.assertEqual([round(side) for side in self.info(r"Page size: +(\S+) x (\S+)")], [595, 420])

    def test_a_file_that_cannot_be_written_is_told(self):
        code, told = self.told(UNWRITABLE)
        self.assertEqual(code, 2)
        self.assertRegex(told, f'^orvo-desktop: The file "{UNWRITABLE}" can\'t be written: .+\n$')

    def test_a_file_is_for_the_user_alone_and_no_link_of_others_is_followed(self):
        self.printed("list")
        self.assertEqual(self.pdf.stat().st_mode & 0o777, 0o600)
        self.pdf.write_text("old")
        shared = self.home.folder / "shared"
        shared.mkdir()
        shared.chmod(0o1777)
        link = shared / "out.pdf"
        link.symlink_to(self.pdf)
        if os.geteuid() == 0:  # who else can make a link of another user
            os.lchown(link, 65534, 65534)
            code, told = self.told(link)
            self.assertEqual((code, self.pdf.read_text()), (2, "old"))
            self.assertIn(f"{link} is a link of another user", told)
            os.lchown(link, 0, 0)
        self.assertEqual(self.told(link), (0, ""))
        self.assertTrue(self.pdf.read_bytes().startswith(b"%PDF"))


class FromTheWindow(PrintTest):
    def setUp(self):
        super().setUp()
        self.start()

    def choose(self, key):
        """A command of the File menu by its letter; its dialog."""
        opened(self.screen, "the menu", lambda: self.screen.keys("alt+f"))
        return opened(self.screen, "a dialog", lambda: self.screen.keys(key))

    def save_as_pdf(self, file, *keys_before):
        self.choose("d")
        self.screen.focus("Save as PDF")
        self.screen.keys(*keys_before)
        self.screen.type(str(file))
        self.screen.keys("Return")

    def test_only_what_is_selected_is_saved_where_that_is_chosen(self):
        self.screen.after("typing selects", lambda: self.screen.type("bak"))
        self.save_as_pdf(self.pdf, "alt+c", "alt+n")
        until("the file is there", self.pdf.exists)
        self.until_alone("the dialog")
        text = text_of(self.pdf)
        self.assertIn("Baker, Bob", text)
        self.assertNotIn("Adams", text)

    def test_the_print_dialog_prints_into_a_file_what_the_view_shows(self):
        self.screen.keys("ctrl+5")
        file = self.home.folder / "To-dos.pdf"
        opened(self.screen, "the dialog", lambda: self.screen.keys("ctrl+p"))
        self.screen.focus("Print")
        self.screen.keys("Return")
        until("the file is there", file.exists)
        self.until_alone("the dialog")
        self.assert_in_order([" ".join(text.split()) for text in TASKS], text_of(file))

    def test_a_preview_shows_pages_and_prints_nothing(self):
        self.choose("v")
        preview = self.screen.focus("Print preview")
        until("pages are shown", lambda: not self.screen.picture(preview).is_blank())
        close(self.screen, preview, "Escape")
        self.assertEqual(list(self.home.folder.glob("*.pdf")), [])

    def test_the_page_setup_is_kept(self):
        setup = self.choose("u")
        self.screen.focus("Page setup")
        close(self.screen, setup, "Return")
        self.assertIn("[Application/Printing]", self.settings().read_text())

    def test_a_file_that_cannot_be_written_is_told_in_a_box(self):
        self.save_as_pdf(UNWRITABLE)
        until("the message", lambda: len(windows(self.screen)) == 2 and not self.screen.window("Save as PDF"))
        self.answer_box("Escape")


if __name__ == "__main__":
    main()
