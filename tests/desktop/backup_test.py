#!/usr/bin/env python3
# Backs the store up into a file, restores it, takes that back, and finds the backup that is made by itself.
# SPDX-License-Identifier: MIT
import contextlib
import sqlite3

from case import DesktopCase, main
from screen import TITLE, until


class BackupTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.set_options(automatic_backups="no")
        self.add("Adams")

    def backup(self, name):
        """The names in a backup."""
        with contextlib.closing(sqlite3.connect(self.home.folder / name)) as store:
            return store.execute("SELECT count(*) FROM address").fetchone()[0]

    def test_a_backup_is_made_into_the_file_of_that_name(self):
        self.start()
        self.dialog("Back up", "alt+f", "k")
        self.screen.type(str(self.home.folder / "copy"))
        self.screen.keys("Return")
        until("the backup is there", (self.home.folder / "copy.db").exists)
        self.screen.focus(TITLE)
        self.assertEqual(self.backup("copy.db"), 1)

    def test_the_backup_of_the_day_is_made_while_the_window_is_open_and_offered_first(self):
        self.set_options(automatic_backups="yes")
        self.start()
        until("a backup is made", lambda: [*self.home.folder.glob("backups/orvo-*.db")])
        self.add("Baker")
        self.dialog("Restore", "alt+f", "r")
        self.screen.keys("Return")
        self.until_names("Adams")
        self.until_alone("the dialog")
        self.screen.at_rest()
        self.screen.keys("ctrl+z")
        self.until_names("Adams", "Baker")


if __name__ == "__main__":
    main()
