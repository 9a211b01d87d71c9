#!/usr/bin/env python3
# Saves what was typed while the store can't take it: nothing that was typed is lost, and the reason is told.
# SPDX-License-Identifier: MIT
import contextlib
import resource
import sqlite3
import subprocess
import sys
import time
import unittest

from screen import PATIENCE, TITLE, Home, Screen, pace, running, until
from views import is_open, opened

UNOPENED = "Store can't be opened"


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

    def test_a_store_that_cant_be_opened_is_told_and_tried_again(self):
        whole = self.home.store.read_bytes()
        away = self.home.folder / "away"
        for why, data in (("damaged", whole[:100] + bytes(3996) + whole[4096:]),
                          ("newer", whole[:63] + b"\x09" + whole[64:]), ("locked", whole), ("no folder", None)):
            with self.subTest(why), contextlib.ExitStack() as stack:
                if data is None:
                    self.home.store = away / "orvo.db"
                else:
                    self.home.store.write_bytes(data)
                other = stack.enter_context(contextlib.closing(sqlite3.connect(":memory:" if data is None else
                                                                               self.home.store)))
                if why == "locked":
                    other.executescript("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE")
                with open(self.home.folder / "stderr", "w") as messages:
                    stack.enter_context(running([self.home.programs["orvo-desktop"], "--store", self.home.store],
                                                {**self.home.environment, **self.screen.environment},
                                                stderr=messages))
                    self.screen.focus(UNOPENED)
                other.close()
                if data is None:
                    away.mkdir()
                else:
                    self.home.store.write_bytes(whole)
                self.screen.keys("Return")
                until("the store is shown", lambda: not self.screen.window(UNOPENED) and self.screen.window(TITLE))

    def test_a_store_that_is_replaced_while_it_is_open_is_noticed_and_opened_again(self):
        with self.home.window(self.screen) as program:
            self.home.store.rename(self.home.folder / "kept.db")
            self.home.orvo("add", "--name", "Baker")
            begin = time.monotonic()
            until("it is noticed", lambda: self.screen.window("Store is gone"))
            self.assertLess(time.monotonic() - begin, 2 * pace())
            self.screen.focus("Store is gone")
            self.screen.keys("Return")
            until("the question is gone", lambda: not self.screen.window("Store is gone"))
            self.screen.focus(TITLE)
            self.screen.keys("ctrl+z", "ctrl+a", "Delete", "Return")
            self.assertIsNone(program.poll())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
