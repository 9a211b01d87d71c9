#!/usr/bin/env python3
# Makes, edits, deletes and restores entries in the window by keys and menus, takes it all back, and reads the store.
# SPDX-License-Identifier: MIT
from case import DesktopCase, main
from screen import until
from views import ADDRESSES, Rows, close, dialog, is_open, opened, set_heading, windows

NAME, TO_DO = "Adams", "Paint"
# The category is the second.
COLUMNS = ((0, 250), (3, 150))
TO_COPY = ("Down", "Down", "Down", "Return")  # Open, Set category, Copy
# From where the keys are at the start to the rows.
VIEWS = {"list": ("Tab", "Tab"), "cards": ("Tab", "Tab"), "large-icons": ("Tab", "Tab"), "todos": ()}


class EditTest(DesktopCase):
    def make(self, *words):
        """A new address by its form, whose fields are filled in the order of the Tab key."""
        form = dialog(self.screen, "ctrl+n")
        for word in words:
            self.screen.type(word)
            self.screen.keys("Tab")
        close(self.screen, form, "ctrl+Return")

    def delete(self):
        """Moves what is selected to the trash."""
        close(self.screen, dialog(self.screen, "Delete"), "Return")

    def until_categories(self, *names):
        until(f"the categories are {names}",
              lambda: [row["category"] for row in self.home.rows("addresses")] == list(names))

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

    def test_a_to_do_is_made_and_shown(self):
        self.start()
        form = dialog(self.screen, "ctrl+shift+n")
        self.screen.type("Order flour")
        close(self.screen, form, "ctrl+Return")
        until("the to-do is stored", lambda: [row["description"] for row in self.home.rows("todos")] == ["Order flour"])
        self.delete()  # it stands selected in the list of to-dos
        until("it is deleted", lambda: self.home.rows("todos") == [])

    def test_deleted_entries_come_back_from_the_trash_or_by_undo(self):
        self.add("Adams", "Baker", "Carter")
        self.start()
        self.screen.keys("Down", "shift+Down")
        self.delete()
        self.until_names("Carter")
        trash = self.dialog("Trash", "alt+e", "t")
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
        self.delete()
        self.until_names()
        trash = self.dialog("Trash", "alt+e", "t")
        question = dialog(self.screen, "Delete")
        self.screen.keys("alt+y")
        until("the question is gone", lambda: not is_open(self.screen, question))
        self.screen.xdotool("windowfocus", trash)
        close(self.screen, trash, "Escape")
        self.screen.keys("ctrl+z", "ctrl+z")
        self.until_names("Adams")

    def test_one_choice_changes_the_category_of_all_that_is_selected(self):
        self.add("Adams", "Baker")
        self.add("Carter", category="Friends")
        self.start()
        self.screen.keys("Down", "ctrl+a")
        choice = dialog(self.screen, "ctrl+k")
        self.screen.type("frie")
        close(self.screen, choice, "Return")
        self.until_categories("Friends", "Friends", "Friends")
        self.screen.keys("ctrl+z")
        self.until_categories("Uncategorized", "Uncategorized", "Friends")

    def test_a_click_on_a_category_lets_another_one_be_chosen(self):
        set_heading(self.home, ADDRESSES, COLUMNS)
        self.add("Adams", "Carter", category="Friends")
        self.add("Baker", category="Work")
        self.start()
        cell = Rows(self.screen, COLUMNS).cell(0, 3)
        opened(self.screen, "the menu", lambda: self.screen.click(*cell))
        self.screen.keys("Down", "Down", "Down", "Return")
        self.until_categories("Work", "Work", "Friends")

    def test_nothing_is_taken_back_over_the_change_of_another_program(self):
        self.start()
        self.make("Lovelace")
        self.until_names("Lovelace")
        self.home.orvo("edit", str(self.home.rows("addresses")[0]["id"]), "--name", "Byron")
        close(self.screen, dialog(self.screen, "ctrl+z"), "Return")
        self.until_names("Byron")

    def choose_copy(self, what, open_menu, wanted):
        self.screen.copy("nothing")
        menu = opened(self.screen, what, open_menu)
        self.screen.at_rest()
        self.screen.keys(*TO_COPY)
        until("the entry is copied", lambda: wanted in self.screen.clipboard())
        until("the menu is gone", lambda: not is_open(self.screen, menu))

    def test_tab_comes_to_the_rows_and_a_key_opens_their_menu(self):
        self.add(NAME)
        self.home.orvo("todo", "add", TO_DO)
        for view, tabs in VIEWS.items():
            with self.window("--view", view):
                self.screen.keys(*tabs, "Down")
                for key in ("shift+F10", "Menu"):
                    with self.subTest(view, key=key):
                        self.choose_copy("the menu", lambda key=key: self.screen.keys(key),
                                         TO_DO if view == "todos" else NAME)

    def test_the_right_button_opens_a_menu_only_above_a_row(self):
        self.add(NAME)
        self.start()
        before = windows(self.screen)
        for place in ((650, 38), (700, 669)):  # the tool bar, the status bar
            self.screen.click(*place, 3)
        self.screen.at_rest()
        self.assertEqual(windows(self.screen), before)
        self.choose_copy("the menu", lambda: self.screen.click(100, 95, 3), NAME)

    def test_return_opens_what_was_looked_up_but_not_behind_a_refused_letter(self):
        self.add("Adams", "Baker")
        self.start()
        before = windows(self.screen)
        self.screen.keys("b", "z", "Return")
        self.screen.at_rest()
        self.assertEqual(windows(self.screen), before)
        form = dialog(self.screen, "Return")
        self.screen.keys("ctrl+a")
        self.screen.type("Carter")
        close(self.screen, form, "Return")
        self.until_names("Adams", "Carter")


if __name__ == "__main__":
    main()
