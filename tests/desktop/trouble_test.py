#!/usr/bin/env python3
# Works with a store that can't take what is saved, can't be opened, goes away or is damaged: the reason is told, and
# nothing is lost that could be kept.
# SPDX-License-Identifier: MIT
import contextlib
import resource
import sqlite3
import time

from case import DesktopCase, main
from screen import TITLE, pace, running, until
from views import close, opened

PAGE = 4096
UNOPENED = "Store can't be opened"
DAMAGED = "Damaged store"


class TroubleTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.add("Adams", note="about Adams")

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

    def test_a_folder_that_others_may_write_is_told_once_a_start(self):
        config = self.home.folder / "open"
        (config / "orvo").mkdir(parents=True)
        config.chmod(0o777)
        with self.window(XDG_CONFIG_HOME=str(config)) as program:
            self.quit(program)
        self.assertEqual(self.home.said(), f"orvo-desktop: {config}/orvo: others could change what lies there: "
                                           f"{config} may be written by other users\n")

    def test_an_address_is_kept_in_its_form_until_it_can_be_saved(self):
        for trouble in (self.removed, self.locked, self.full):
            with self.subTest(trouble.__doc__), self.window() as program:
                form = opened(self.screen, "the form", lambda: self.screen.keys("ctrl+n"))
                self.screen.focus("New address")
                self.screen.type(trouble.__name__)
                with trouble(program):
                    message = opened(self.screen, "a message", lambda: self.screen.keys("ctrl+Return"))
                    self.screen.xdotool("windowfocus", message)
                    close(self.screen, message, "Return", back=None)
                self.screen.xdotool("windowfocus", form)
                close(self.screen, form, "ctrl+Return")
                self.until_names("Adams", trouble.__name__)
                self.screen.keys("ctrl+z")
                self.until_names("Adams")

    def run_program(self):
        """A program whose window may not come."""
        return running([self.home.programs["orvo-desktop"], "--store", self.home.store], self.environment())

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
                stack.enter_context(self.run_program())
                self.screen.focus(UNOPENED)
                other.close()
                if data is None:
                    away.mkdir()
                else:
                    self.home.store.write_bytes(whole)
                self.screen.keys("Return")
                until("the store is shown", lambda: not self.screen.window(UNOPENED) and self.screen.window(TITLE))

    def accept(self, title):
        window = self.screen.focus(title)
        self.screen.keys("Return")
        until(f"{title} is gone", lambda: self.screen.window(title) != window)

    def test_a_store_that_is_replaced_while_it_is_open_is_noticed_and_opened_again(self):
        with self.window() as program:
            self.home.store.rename(self.home.folder / "kept.db")
            self.add("Baker")
            begin = time.monotonic()
            until("it is noticed", lambda: self.screen.window("Store is gone"))
            self.assertLess(time.monotonic() - begin, 2 * pace())
            self.accept("Store is gone")
            self.screen.focus(TITLE)
            self.screen.keys("ctrl+z", "ctrl+a", "Delete", "Return")
            self.assertIsNone(program.poll())

    def damage(self, first, last):
        data = bytearray(self.home.store.read_bytes())
        data[first:last] = bytes(last - first)
        self.home.store.write_bytes(data)

    def rescue(self):
        self.accept("Rescue into a new store")
        self.accept(DAMAGED)
        notes = sqlite3.connect(self.home.folder / "orvo-rescued.db").execute("SELECT note FROM address_extra")
        self.assertEqual(notes.fetchall(), [("about Adams",)])

    def test_a_store_that_is_damaged_in_part_is_shown_and_can_be_rescued(self):
        root = sqlite3.connect(self.home.store).execute(
            "SELECT rootpage FROM sqlite_schema WHERE name = 'text'").fetchone()[0]
        self.damage((root - 1) * PAGE, root * PAGE)
        with self.window():
            self.accept(DAMAGED)
            self.rescue()

    def test_a_store_that_cant_be_opened_can_be_rescued(self):
        self.damage(100, PAGE)
        with self.run_program():
            self.screen.focus(UNOPENED)
            self.screen.keys("Tab", "Tab", "Return")
            self.rescue()
            until("the new store is shown", lambda: not self.screen.window(DAMAGED) and self.screen.window(TITLE))

    def test_a_store_that_cant_be_opened_can_be_brought_back_from_its_last_backup(self):
        self.add("Baker")
        self.damage(100, PAGE)
        with self.run_program():
            self.screen.focus(UNOPENED)
            self.screen.keys("Tab", "Tab", "Tab", "Return")
            self.accept(DAMAGED)
            until("the store is shown", lambda: not self.screen.window(DAMAGED) and self.screen.window(TITLE))
            self.assertEqual(self.names(), ["Adams"])


if __name__ == "__main__":
    main()
