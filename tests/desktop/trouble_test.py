#!/usr/bin/env python3
# Saves what was typed while the store can't take it: nothing that was typed is lost, and the reason is told.
# SPDX-License-Identifier: MIT
import contextlib
import resource
import sqlite3
import subprocess
import sys
import unittest

from screen import PATIENCE, TITLE, Home, Screen, until
from views import is_open, opened


class TroubleTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen())
        self.home.orvo("add", "--name", "Adams")

    @contextlib.contextmanager
    def removed(self, _):
        """The store lies elsewhere."""
        away = self.home.folder / "away.db"
        self.home.store.rename(away)
        yield
        away.rename(self.home.store)

    @contextlib.contextmanager
    def locked(self, _):
        """Another program writes to it, and takes long."""
        other = sqlite3.connect(self.home.store, isolation_level=None)
        other.execute("BEGIN IMMEDIATE")
        yield
        other.execute("ROLLBACK")
        other.close()

    @contextlib.contextmanager
    def full(self, program):
        """No file may grow beyond what it is."""
        unlimited = resource.prlimit(program.pid, resource.RLIMIT_FSIZE)
        resource.prlimit(program.pid, resource.RLIMIT_FSIZE, (0, unlimited[1]))
        yield
        resource.prlimit(program.pid, resource.RLIMIT_FSIZE, unlimited)

    def save(self):
        self.screen.keys("ctrl+Return")

    def test_a_folder_that_others_may_write_is_told_once_a_start(self):
        config = self.home.folder / "open"
        (config / "orvo").mkdir(parents=True)
        config.chmod(0o777)
        with self.home.window(self.screen, XDG_CONFIG_HOME=str(config)) as program:
            self.screen.focus(TITLE)
            self.screen.keys("ctrl+q")
            self.assertEqual(program.wait(PATIENCE), 0)
        self.assertEqual(self.home.said(), f"orvo-desktop: {config}/orvo: others could change what lies there: "
                                           f"{config} may be written by other users\n")

    def test_an_address_is_kept_in_its_form_until_it_can_be_saved(self):
        for trouble in (self.removed, self.locked, self.full):
            with self.subTest(trouble.__doc__), self.home.window(self.screen) as program:
                form = opened(self.screen, "the form", lambda: self.screen.keys("ctrl+n"))
                self.screen.focus("New address")
                self.screen.type(trouble.__name__)
                with trouble(program):
                    message = opened(self.screen, "a message", self.save)
                    self.screen.xdotool("windowfocus", message)
                    self.screen.keys("Return")
                    until("the message is gone", lambda: not is_open(self.screen, message))
                self.screen.xdotool("windowfocus", form)
                self.save()
                until("the form is gone", lambda: not is_open(self.screen, form))
                names = [row["name"] for row in self.home.rows("addresses")]
                self.assertIn(trouble.__name__, names)
                self.screen.focus(TITLE)
                self.screen.keys("ctrl+z")
                until("it is taken back", lambda: len(self.home.rows("addresses")) == 1)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
