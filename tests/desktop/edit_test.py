#!/usr/bin/env python3
# Makes, edits, deletes and restores entries in the window by keys, takes it all back, and reads the store.
# SPDX-License-Identifier: MIT
import sys
import unittest

from screen import Home, Screen, until
from views import close, dialog, is_open

SECRET = "Xanadu"


class EditTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen())

    def start(self, *arguments):
        return self.enterContext(self.home.window(self.screen, *arguments))

    def names(self):
        return [row["name"] for row in self.home.rows("addresses")]

    def until_names(self, *names):
        until(f"the store holds {names}", lambda: self.names() == list(names))

    def add(self, *names, category="Uncategorized"):
        for name in names:
            self.home.orvo("add", "--name", name, "--category", category)

    def make(self, *words):
        """A new address by its form, whose fields are filled in the order of the Tab key."""
        form = dialog(self.screen, "ctrl+n")
        for word in words:
            self.screen.type(word)
            self.screen.keys("Tab")
        close(self.screen, form, "ctrl+Return")

    def test_an_address_is_made_edited_taken_back_and_made_again(self):
        self.start()
        self.make("Lovelace", "Ada")
        self.until_names("Lovelace")
        form = dialog(self.screen, "Return")  # the new one is selected
        self.screen.keys("ctrl+a")
        self.screen.type("King")
        close(self.screen, form, "Return")
        self.until_names("King")
        self.screen.keys("ctrl+z")
        self.until_names("Lovelace")
        self.screen.keys("ctrl+z")
        self.until_names()
        self.screen.keys("ctrl+shift+z", "ctrl+shift+z")
        self.until_names("King")
        self.assertEqual(self.home.rows("addresses")[0]["first"], "Ada")

    def test_what_was_looked_up_is_opened_by_return(self):
        self.add("Adams", "Baker")
        self.start()
        self.screen.after("typing selects", lambda: self.screen.type("bak"))
        form = dialog(self.screen, "Return")
        self.screen.keys("ctrl+a")
        self.screen.type("Carter")
        close(self.screen, form, "Return")
        self.until_names("Adams", "Carter")

    def test_what_was_typed_is_only_lost_where_the_user_says_so(self):
        self.start()
        form = dialog(self.screen, "ctrl+n")
        self.screen.type("Lovelace")
        question = dialog(self.screen, "Escape")
        self.screen.keys("Escape")
        until("the question is gone", lambda: not is_open(self.screen, question))
        self.screen.xdotool("windowfocus", form)
        close(self.screen, form, "Return")
        self.until_names("Lovelace")

    def test_a_to_do_is_made_and_shown(self):
        self.start()
        form = dialog(self.screen, "ctrl+shift+n")
        self.screen.type("Order flour")
        close(self.screen, form, "ctrl+Return")
        until("the to-do is stored", lambda: [row["description"] for row in self.home.rows("todos")] == ["Order flour"])
        close(self.screen, dialog(self.screen, "Delete"), "Return")  # it stands selected in the list of to-dos
        until("it is deleted", lambda: self.home.rows("todos") == [])

    def test_deleted_entries_come_back_from_the_trash_or_by_undo(self):
        self.add("Adams", "Baker", "Carter")
        self.start()
        self.screen.keys("Down", "shift+Down")
        close(self.screen, dialog(self.screen, "Delete"), "Return")
        self.until_names("Carter")
        trash = dialog(self.screen, "alt+e", "t")
        self.screen.keys("alt+r")  # the first is selected
        self.until_names("Adams", "Carter")
        close(self.screen, trash, "Escape")
        self.screen.keys("ctrl+z")
        self.until_names("Carter")
        self.screen.keys("ctrl+z")
        self.until_names("Adams", "Baker", "Carter")

    def test_what_left_the_trash_for_good_comes_back_by_undo_only(self):
        self.add("Adams")
        self.start()
        self.screen.keys("Down")
        close(self.screen, dialog(self.screen, "Delete"), "Return")
        self.until_names()
        trash = dialog(self.screen, "alt+e", "t")
        question = dialog(self.screen, "Delete")
        self.screen.keys("alt+y")
        until("the question is gone", lambda: not is_open(self.screen, question))
        self.screen.xdotool("windowfocus", trash)
        close(self.screen, trash, "Escape")
        self.screen.keys("ctrl+z")
        self.screen.keys("ctrl+z")
        self.until_names("Adams")

    def test_one_choice_changes_the_category_of_all_that_is_selected(self):
        self.add("Adams", "Baker")
        self.add("Carter", category="Friends")
        self.start()
        self.screen.keys("Down", "ctrl+a")
        choice = dialog(self.screen, "ctrl+k")
        self.screen.type("frie")
        close(self.screen, choice, "Return")

        def categories():
            return [row["category"] for row in self.home.rows("addresses")]
        until("all have it", lambda: categories() == ["Friends"] * 3)
        self.screen.keys("ctrl+z")
        until("one step takes all back", lambda: categories() == ["Uncategorized"] * 2 + ["Friends"])

    def test_nothing_is_taken_back_over_the_change_of_another_program(self):
        self.start()
        self.make("Lovelace")
        self.until_names("Lovelace")
        self.home.orvo("edit", str(self.home.rows("addresses")[0]["id"]), "--name", "Byron")
        message = dialog(self.screen, "ctrl+z")
        close(self.screen, message, "Return")
        self.until_names("Byron")

    def test_a_copy_takes_along_what_is_shown_and_nothing_that_is_masked(self):
        self.add("Adams", "Baker")
        self.home.orvo("add", "--name", SECRET, "--private", "yes")
        for option, want in ((("masking-private", "yes"), ["Adams", "Baker"]), (("masking-private", "no"), [SECRET])):
            with self.subTest(option):
                self.home.orvo("options", "--set", *option)
                with self.home.window(self.screen):
                    self.screen.keys("Down", "ctrl+a", "ctrl+c")
                    until("names are copied", lambda: all(name in self.screen.clipboard() for name in want))
                    self.assertEqual(SECRET in self.screen.clipboard(), SECRET in want)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
