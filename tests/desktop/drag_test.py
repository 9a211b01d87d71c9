#!/usr/bin/env python3
# Drags files from another program onto each view: cards come in, and what is none is refused.
# SPDX-License-Identifier: MIT
import contextlib
import sys

from case import DesktopCase, main
from screen import TITLE, running, until
from views import item

SOURCE = (1300, 700)  # beside the window
VIEWS = ("list", "cards", "todos")


def card(name):
    return f"BEGIN:VCARD\nVERSION:3.0\nN:{name};;;;\nFN:{name}\nEND:VCARD\n"


class DragTest(DesktopCase):
    SIZE = (1400, 800)

    @contextlib.contextmanager
    def drag(self, is_taken, *files, title=TITLE):
        """Drags the files into the middle of the window, and sees whether it takes them or refuses them.

        The program from which they come stays as long as the block lasts."""
        told = self.home.folder / "told"
        with told.open("w") as output, running(
                [sys.argv[3], *SOURCE, *files], self.environment(), stdout=output):
            until("the source", lambda: self.screen.window("Files to drag"))
            self.screen.xdotool("mousemove", SOURCE[0] + 20, SOURCE[1] + 20, "mousedown", 1)
            until("the drag begins", told.read_text)
            x, y = item(self.screen, self.screen.window(title), 0, 1)
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
            with self.subTest(view), self.window("--view", view), self.drag(True, file):
                until("the card is there", lambda: view in self.names())
        self.assertEqual(len(self.names()), len(VIEWS))

    def test_what_is_no_card_is_refused_and_left_out(self):
        letter = self.file("letter.txt", card("Letter"))
        damaged = self.file("damaged.lnk", bytes(70))
        with self.window():
            for what, files in (("a letter", [letter]), ("a damaged link", [damaged]),
                                ("a folder", [self.home.folder])):
                with self.subTest(what), self.drag(False, *files):
                    pass
            with self.drag(True, letter, self.file("a.vcf", card("Adams")), damaged):
                until("the card among them is there", self.names)
        self.assertEqual(self.names(), ["Adams"])

    def test_a_program_that_embeds_the_library_takes_files_by_its_drop_target_alone(self):
        letter, file = self.file("letter.txt", card("Letter")), self.file("a.vcf", card("Adams"))
        with running([sys.argv[4], self.home.store], self.environment()):
            self.screen.focus("Addresses")
            with self.drag(False, letter, title="Addresses"):
                pass
            with self.drag(True, letter, file, title="Addresses"):
                until("the window names the file", lambda: self.screen.window(f"^{file}$"))


if __name__ == "__main__":
    main(programs=4)
