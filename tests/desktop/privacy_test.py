#!/usr/bin/env python3
# Walks all ways out of the window with a secret word in each field of private entries that are hidden or masked.
# SPDX-License-Identifier: MIT
import pathlib
import re
import subprocess
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "support"))
from mail_program import MailProgram
from screen import TITLE, Home, Screen, until
from views import ADDRESSES, Rows, is_open, opened, set_heading, windows

SECRET = "Xanadu"
OPEN = "Adams"  # what everybody may know
# Options, and what they are to be set to.
HIDDEN, MASKED = (("showing-private", "no"),), (("showing-private", "yes"), ("masking-private", "yes"))
COLUMNS = ((0, 300), (2, 200))
LOOKUP_BOX = (240, 38)
VIEWS = ("list", "cards", "todos")
CARD = f"""BEGIN:VCARD
VERSION:3.0
N:{SECRET};{SECRET};;;
FN:{SECRET}
ORG:{SECRET}
TITLE:{SECRET}
TEL;TYPE=CELL:+1 617 555 0100 {SECRET}
EMAIL:{SECRET}@example.org
ADR:;;{SECRET} street;{SECRET};;;{SECRET}
NOTE:{SECRET}
X-HOBBY:{SECRET}
CLASS:PRIVATE
END:VCARD
"""
TO_DO = f"""BEGIN:VCALENDAR
VERSION:2.0
BEGIN:VTODO
UID:1
SUMMARY:{SECRET}
DESCRIPTION:{SECRET}
CLASS:PRIVATE
END:VTODO
END:VCALENDAR
"""


class PrivacyTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen())
        self.mail = MailProgram(self.home.folder / "config")
        for name, text in (("secret.vcf", CARD), ("secret.ics", TO_DO)):
            file = self.home.folder / name
            file.write_text(text)
            self.home.orvo("import", str(file))
        self.home.orvo("add", "--name", OPEN, "--phone5", f"{OPEN}@example.org")
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
        self.screen.keys("Return")
        until("the file is there", file.exists)
        until("the dialog is gone", lambda: not is_open(self.screen, dialog))
        self.screen.focus(TITLE)
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
        hides = re.search(r"(?m)^showing-private +no$", self.home.orvo("options"))
        self.assertEqual(self.home.desktop("--view", view, "--pdf", str(file)).returncode, 3 if hides else 0)
        text = subprocess.run(["pdftotext", file, "-"], capture_output=True, text=True, check=True).stdout
        self.assertIn(OPEN, text)
        return text + subprocess.run(["pdfinfo", file], capture_output=True, text=True, check=True).stdout

    WAYS = (copied, exported, mailed)

    def everything_said(self, view):
        said = {}
        with self.home.window(self.screen, "--view", view, **self.mail.environment):
            self.screen.keys("Down")
            said["titles"] = self.titles()
            for way in self.WAYS:
                said[way.__name__] = way(self, view)
        said["standard error"] = self.home.said()
        said["printed"] = self.printed(view)
        return said

    def test_no_way_out_tells_what_is_private(self):
        for options in (HIDDEN, MASKED):
            for option in options:
                self.home.orvo("options", "--set", *option)
            for view in VIEWS:
                for way, said in self.everything_said(view).items():
                    with self.subTest(way, view=view, options=options):
                        self.assertNotIn(SECRET.lower(), said.lower())

    def test_a_row_is_dragged_as_text_unless_it_is_masked(self):
        set_heading(self.home, ADDRESSES, COLUMNS)
        for masking, want in (("yes", ""), ("no", f"{SECRET}, {SECRET}")):
            self.home.orvo("options", "--set", "masking-private", masking)
            with self.subTest(masking), self.home.window(self.screen):
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

    def test_each_way_out_tells_what_is_shown(self):
        """Else the other test would find nothing in any case."""
        for view in VIEWS:
            for way, said in self.everything_said(view).items():
                if way not in ("titles", "standard error") and (way, view) != ("mailed", "todos"):
                    with self.subTest(way, view=view):
                        self.assertIn(SECRET.lower(), said.lower())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
