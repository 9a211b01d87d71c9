#!/usr/bin/env python3
# Edits in the form of an address what only its card holds: each other line of the card stays as it came.
# SPDX-License-Identifier: MIT
import base64
import subprocess

from case import DesktopCase, main
from screen import until
from views import close, dialog

CARD = """BEGIN:VCARD
VERSION:4.0
N:Lee;Ann;;;
FN:Ann Lee
TEL;TYPE=HOME,x-kept:+1 617 555 0100
TEL:+1 617 555 0101
TEL:+1 617 555 0102
TEL:+1 617 555 0103
TEL:+1 617 555 0104
item1.TEL;X-FOO=1:+1 617 555 0999
item1.X-ABLabel:Boat
EMAIL:a@example.com
BDAY:--0512
X-UNKNOWN;FOO=bar:keep  me
PHOTO:data:image/gif;base64,R0lGODlhAQABAIAAAP///wAAACH5BAEAAAAALAAAAAABAAEAAAICRAEAOw==
END:VCARD
""".replace("\n", "\r\n")
EDITS = {"item1.TEL;X-FOO=1:+1 617 555 0999": "item1.TEL;X-FOO=1:555 0777", "EMAIL:a@example.com": None,
         "BDAY:--0512": "BDAY:--0513"}
NEW = ["ANNIVERSARY:20110702"]
PHOTO = "PHOTO:data:image/jpeg;base64,"


class FormTest(DesktopCase):
    def exported(self):
        file = self.home.folder / "exported.vcf"
        file.unlink(missing_ok=True)
        self.home.orvo("export", str(file))
        return file.read_bytes().decode()

    def back(self, count):
        self.screen.keys(*["shift+Tab"] * count)

    def replace(self, text):
        self.screen.keys("ctrl+a")
        self.screen.type(text)

    def copy_picture(self):
        picture = subprocess.run(["convert", "-size", "600x300", "xc:red", "png:-"], capture_output=True, check=True)
        subprocess.run(["xclip", "-selection", "clipboard", "-t", "image/png"], input=picture.stdout,
                       env=self.screen.environment, check=True, stdout=subprocess.DEVNULL)

    def test_rows_are_changed_added_and_removed_and_all_else_stays(self):
        self.home.orvo("import", self.file("lee.vcf", CARD))
        before = self.exported()
        self.copy_picture()
        self.start()
        self.screen.keys("Down")
        form = dialog(self.screen, "Return")
        self.screen.keys("alt+g")  # the category, behind the buttons of pages, messengers and mails
        self.back(4)
        self.screen.keys("space")  # the mail's only row goes
        self.back(3)
        self.replace("555 0777")
        self.screen.keys("alt+u", "Tab", "Tab", "Tab")  # the country, the button of addresses, the birthday
        self.replace("12/32")
        self.screen.keys("ctrl+Return")  # is refused
        self.replace("5/13")
        self.screen.keys("Tab", "Tab", "Tab", "space")  # the calendar, the cross, the button that adds a row
        self.screen.type("7/2/2011")
        self.screen.keys("alt+m", "shift+Tab", "ctrl+v")
        close(self.screen, form, "ctrl+Return")
        after = self.exported()
        lines = after.replace("\r\n ", "").splitlines()
        self.assertTrue(lines.pop(-2).startswith("REV:"), "the card tells when it was edited")
        photo = next(line for line in lines if line.startswith("PHOTO"))
        self.assertEqual(photo[:len(PHOTO)], PHOTO)
        self.assertEqual(base64.b64decode(photo[len(PHOTO):])[:3], b"\xff\xd8\xff")
        kept = [EDITS.get(line, line) for line in before.replace("\r\n ", "").splitlines()]
        wanted = [photo if line and line.startswith("PHOTO") else line for line in kept if line]
        self.assertEqual(lines, wanted[:-1] + NEW + wanted[-1:])
        self.screen.keys("ctrl+z")
        until("all is taken back", lambda: self.exported() == before)


if __name__ == "__main__":
    main()
