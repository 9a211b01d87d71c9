#!/usr/bin/env python3
# Walks all ways out of the window with a secret word in each field of private entries that are hidden or masked.
# SPDX-License-Identifier: MIT
import pathlib
import subprocess

from case import DesktopCase, main
from mail_program import MailProgram
from screen import TITLE, until
from views import ADDRESSES, Rows, close, opened, set_heading, windows

SECRET = "Xanadu"
OPEN = "Adams"  # what everybody may know
# What the options for showing and for masking private entries are set to.
SHOWN, HIDDEN, MASKED = ("yes", "no"), ("no", "no"), ("yes", "yes")
COLUMNS = ((0, 300), (2, 200))
LOOKUP_BOX = (240, 38)
VIEWS = ("list", "cards", "todos")
WAYS = ("copied", "exported", "mailed", "printed")
CARD = (f"BEGIN:VCARD\nVERSION:3.0\nN:{SECRET};{SECRET};;;\nFN:{SECRET}\nORG:{SECRET}\nTITLE:{SECRET}\n"
        f"TEL;TYPE=CELL:+1 617 555 0100 {SECRET}\nEMAIL:{SECRET}@example.org\n"
        f"ADR:;;{SECRET} street;{SECRET};;;{SECRET}\nNOTE:{SECRET}\nX-HOBBY:{SECRET}\nCLASS:PRIVATE\nEND:VCARD\n")
PHOTO = ("PHOTO;ENCODING=b;TYPE=PNG:iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mP8z8BQDwAEhQGAhKmMIQAA"
         "AABJRU5ErkJggg==\nEND:VCARD\n")
TO_DO = (f"BEGIN:VCALENDAR\nVERSION:2.0\nBEGIN:VTODO\nUID:1\nSUMMARY:{SECRET}\nDESCRIPTION:{SECRET}\nCLASS:PRIVATE\n"
         "END:VTODO\nEND:VCALENDAR\n")


class PrivacyTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.mail = MailProgram(self.home.folder / "config")
        self.home.orvo("import", self.file("secret.vcf", CARD), self.file("secret.ics", TO_DO))
        self.add(OPEN, phone5=f"{OPEN}@example.org")
        self.home.orvo("todo", "add", OPEN)

    def titles(self):
        return "\n".join(self.screen.xdotool("getwindowname", window) for window in windows(self.screen))

    def copied(self, view):
        self.screen.keys("ctrl+a", "ctrl+c")
        until("something is copied", lambda: OPEN in self.screen.clipboard())
        return self.screen.clipboard()

    def exported(self, view):
        file = self.home.folder / f"out-{view}{'.ics' if view == 'todos' else '.vcf'}"
        file.unlink(missing_ok=True)
        dialog = opened(self.screen, "the dialog", lambda: self.screen.keys("ctrl+shift+e"))
        self.screen.focus("Export As")
        self.screen.type(str(file))
        close(self.screen, dialog, "Return")
        until("the file is there", file.exists)
        return file.read_text()

    def mailed(self, view):
        """A mail to all that is selected, and their cards."""
        said = ""
        if view == "todos":
            return OPEN
        for keys in (("ctrl+m",), ("alt+a", "v")):
            self.mail.received.unlink(missing_ok=True)
            self.screen.keys(*keys)
            until("the mail program is opened", self.mail.received.exists)
            recipients, fields = self.mail.message()
            said += recipients + "".join(pathlib.Path(name).name + pathlib.Path(name).read_text()
                                         for name in fields.get("attach", ()))
            self.screen.focus(TITLE)
        return said

    def printed(self, view):
        file = self.home.folder / "printed.pdf"
        self.result = self.home.desktop("--view", view, "--pdf", str(file))
        text = subprocess.run(["pdftotext", file, "-"], capture_output=True, text=True, check=True).stdout
        self.assertIn(OPEN, text)
        return text + subprocess.run(["pdfinfo", file], capture_output=True, text=True, check=True).stdout

    def everything_said(self, view):
        said = {}
        with self.window("--view", view, **self.mail.environment):
            self.screen.keys("Down")
            said["titles"] = self.titles()
            for way in (self.copied, self.exported, self.mailed):
                said[way.__name__] = way(view)
        return {**said, "standard error": self.home.said(), "printed": self.printed(view)}

    def test_each_way_out_tells_what_is_shown_and_nothing_that_is_private_else(self):
        for options in (SHOWN, HIDDEN, MASKED):
            self.set_options(showing_private=options[0], masking_private=options[1])
            for view in VIEWS:
                for way, said in self.everything_said(view).items():
                    is_told = options == SHOWN and way in WAYS and (way, view) != ("mailed", "todos")
                    with self.subTest(way, view=view, options=options):
                        self.assertEqual(SECRET.lower() in said.lower(), is_told)
                told = f"{self.home.folder}/printed.pdf: 1 private entry was left out\n" if options == HIDDEN else ""
                self.assertEqual((self.result.returncode, self.result.stderr.removeprefix("orvo-desktop: ")),
                                 (3 if told else 0, told))

    def test_a_masked_face_is_the_same_whoever_it_is(self):
        stores = [self.home.store]
        for name, card in (("named", CARD.replace(SECRET, "Zorro")), ("seen", CARD.replace("END:VCARD\n", PHOTO))):
            self.home.store = self.home.folder / f"{name}.db"
            stores.append(self.home.store)
            self.home.orvo("import", self.file(f"{name}.vcf", card))
            self.add(OPEN, phone5=f"{OPEN}@example.org")
        for masking in ("yes", "no"):
            self.set_options(masking_private=masking)
            for view in ("large-icons", "small-icons", "cards"):
                pictures = set()
                for self.home.store in stores:
                    pictures.add(self.drawn("--view", view))
                with self.subTest(view, masking=masking):
                    self.assertEqual(len(pictures), 1 if masking == "yes" else len(stores))

    def test_a_row_is_dragged_as_text_unless_it_is_masked(self):
        set_heading(self.home, ADDRESSES, COLUMNS)
        for masking, want in (("yes", ""), ("no", f"{SECRET}, {SECRET}")):
            self.set_options(masking_private=masking)
            with self.subTest(masking), self.window():
                place = Rows(self.screen, COLUMNS).cell(1, 0)
                self.screen.xdotool("mousemove", *place, "mousedown", 1)
                for x, y in ((place[0] + 20, place[1]), LOOKUP_BOX, (LOOKUP_BOX[0] + 1, LOOKUP_BOX[1])):
                    self.screen.move(x, y)
                    self.screen.at_rest()
                self.screen.xdotool("mouseup", 1)
                self.screen.at_rest()
                self.screen.copy("")
                self.screen.click(*LOOKUP_BOX)
                self.screen.keys("shift+Home", "ctrl+x")  # nothing where nothing was dropped
                self.screen.at_rest()
                self.assertEqual(self.screen.clipboard(), want)


if __name__ == "__main__":
    main()
