# What the tests of the window have in common: a home and a screen for each, entries to begin with, and hands.
# SPDX-License-Identifier: MIT
import sys
import unittest

from screen import LONGEST, TITLE, Home, Picture, Screen, until
from views import windows


class DesktopCase(unittest.TestCase):
    SIZE = (1100, 760)  # of the screen

    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen(*self.SIZE))

    def window(self, *arguments, **environment):
        return self.home.window(self.screen, *arguments, **environment)

    def start(self, *arguments, **environment):
        """A window that stays to the end of the test; its program."""
        return self.enterContext(self.window(*arguments, **environment))

    def environment(self):
        """Of a program that isn't started by window()."""
        return {**self.home.environment, **self.screen.environment}

    def quit(self, program):
        """Ends the program as its user does."""
        self.screen.focus(TITLE)
        self.screen.keys("ctrl+q")
        self.assertEqual(program.wait(LONGEST), 0)

    def end(self, program):
        program.terminate()
        self.assertEqual(program.wait(LONGEST), 0)

    def file(self, name, text):
        path = self.home.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(text.encode() if isinstance(text, str) else text)
        return path

    def add(self, *names, **fields):
        for name in names:
            self.home.orvo("add", "--name", name, *(f"--{field}={text}" for field, text in fields.items()))

    def names(self):
        return [row["name"] for row in self.home.rows("addresses")]

    def until_names(self, *names):
        until(f"the store holds {names}", lambda: self.names() == list(names))

    def set_options(self, **options):
        for name, value in options.items():
            self.home.orvo("options", "--set", name.replace("_", "-"), value)

    def settings(self):
        return self.home.folder / "config" / "orvo" / "settings.ini"

    def drawn(self, *arguments):
        """What a window shows that is opened now."""
        file = self.home.folder / "window.png"
        told = self.home.desktop(*arguments, "--picture", file)
        self.assertEqual(told.returncode, 0, told.stderr)
        return Picture.read(file)

    def dialog(self, title, *keys):
        """Presses keys that lead through a menu to the dialog of that title; its window, which has the keys then."""
        self.screen.keys(*keys)
        window = self.screen.focus(title)
        until("the dialog is drawn", lambda: not self.screen.picture(window).is_blank())
        return window

    def until_alone(self, what):
        """Waits until the main window is the only one, and gives it the keys."""
        until(f"{what} is gone", lambda: len(windows(self.screen)) == 1)
        self.screen.focus(TITLE)

    def agree(self, *keys):
        """Answers the box that tells or asks something, which has come or comes."""
        until("a box asks", lambda: len(windows(self.screen)) == 2)
        self.screen.focus(TITLE)  # the box has the same, and lies above
        self.screen.keys(*keys or ("Return",))

    def answer_box(self, *keys):
        """Answers it, and waits until it is gone."""
        self.agree(*keys)
        self.until_alone("the box")


def main(programs=2):
    """Runs the tests of the file, or those that the command line names behind the programs that they need."""
    unittest.main(argv=[sys.argv[0], *sys.argv[1 + programs:]])
