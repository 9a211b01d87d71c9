#!/usr/bin/env python3
# Drags files from another program onto each view: cards come in, also by way of links, and what is none is refused.
# SPDX-License-Identifier: MIT
import contextlib
import struct
import sys
import unittest

from screen import TITLE, Home, Screen, running, until
from views import windows

SOURCE = (1300, 700)  # beside the window
SHELL_LINK = bytes.fromhex("0114020000000000c000000000000046")
RELATIVE_PATH = 0x08
VIEWS = ("list", "cards", "todos")


def card(name):
    return f"BEGIN:VCARD\nVERSION:3.0\nN:{name};;;;\nFN:{name}\nEND:VCARD\n"


def shell_link(target):
    """The bytes of a link to a file of its own folder."""
    return (struct.pack("<I16sI52x", 0x4C, SHELL_LINK, RELATIVE_PATH) + struct.pack("<H", len(target))
            + target.encode() + bytes(4))


class DragTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen(1400, 800))

    def file(self, name, text):
        path = self.home.folder / name
        path.write_bytes(text.encode() if isinstance(text, str) else text)
        return path

    def names(self):
        return [row["name"] for row in self.home.rows("addresses")]

    def middle(self, title):
        window = self.screen.window(title)
        words = dict(line.split("=") for line in self.screen.xdotool("getwindowgeometry", "--shell", window).split())
        left, top, width, height = (int(words[word]) for word in ("X", "Y", "WIDTH", "HEIGHT"))
        return left + width // 2, top + height // 2

    @contextlib.contextmanager
    def drag(self, is_taken, *files, title=TITLE):
        """Drags the files into the middle of the window, and sees whether it takes them or refuses them.

        The program from which they come stays as long as the block lasts."""
        told = self.home.folder / "told"
        with told.open("w") as output, running([sys.argv[3], *SOURCE, *files], {
                **self.home.environment, **self.screen.environment}, stdout=output):
            until("the source", lambda: self.screen.window("Files to drag"))
            self.screen.xdotool("mousemove", SOURCE[0] + 20, SOURCE[1] + 20, "mousedown", 1)
            until("the drag begins", told.read_text)
            x, y = self.middle(title)
            for step in range(4):
                self.screen.move(x + 9 * step, y)
                self.screen.at_rest()
            if is_taken:
                until("the window would take them", lambda: "copy" in told.read_text())
            self.screen.xdotool("mouseup", 1)
            until("the drag ends", lambda: told.read_text().endswith(("ended copy\n", "ended none\n")))
            self.assertEqual("copy" in told.read_text(), is_taken)
            yield

    def test_cards_come_in_on_each_view(self):
        for view in VIEWS:
            file = self.file(f"{view}.vcf", card(view))
            with self.subTest(view), self.home.window(self.screen, "--view", view), self.drag(True, file):
                until("the card is there", lambda: view in self.names())
        self.assertEqual(len(self.names()), len(VIEWS))

    def test_links_bring_what_they_stand_for(self):
        targets = {name: self.file(f"{name}.vcf", card(name)) for name in ("Symbolic", "Entry", "Shell")}
        symbolic = self.home.folder / "symbolic"
        symbolic.symlink_to(targets["Symbolic"])
        links = {"Symbolic": symbolic,
                 "Entry": self.file("a.desktop", f"[Desktop Entry]\nType=Link\nURL={targets['Entry'].as_uri()}\n"),
                 "Shell": self.file("a.lnk", shell_link(targets["Shell"].name))}
        with self.home.window(self.screen):
            for name, link in links.items():
                with self.subTest(name), self.drag(True, link):
                    until("the card is there", lambda: name in self.names())

    def test_what_is_no_card_is_refused_and_left_out(self):
        letter = self.file("letter.txt", card("Letter"))
        damaged = self.file("damaged.lnk", shell_link("nowhere.vcf")[:70])
        with self.home.window(self.screen):
            for what, files in (("a letter", [letter]), ("a damaged link", [damaged]),
                                ("a folder", [self.home.folder])):
                with self.subTest(what), self.drag(False, *files):
                    pass
            with self.drag(True, letter, self.file("a.vcf", card("Adams")), damaged):
                until("the card among them is there", self.names)
        self.assertEqual(self.names(), ["Adams"])

    def test_a_program_that_embeds_the_library_takes_files_by_its_drop_target_alone(self):
        letter, file = self.file("letter.txt", card("Letter")), self.file("a.vcf", card("Adams"))
        with running([sys.argv[4], self.home.store], {**self.home.environment, **self.screen.environment}):
            self.screen.focus("Addresses")
            with self.drag(False, letter, title="Addresses"):
                pass
            with self.drag(True, letter, file, title="Addresses"):
                until("the window names the file", lambda: self.screen.window(f"^{file}$"))

    def test_a_card_file_without_cards_is_told(self):
        with self.home.window(self.screen), self.drag(True, self.file("a.vcf", "Dear Ada,\n")):
            until("a box tells it", lambda: len(windows(self.screen)) == 2)
        self.assertEqual(self.names(), [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
