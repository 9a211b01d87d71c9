#!/usr/bin/env python3
# Finds entries by any part of their texts, in each view, and while they are changed.
# SPDX-License-Identifier: MIT
from case import DesktopCase, main
from screen import until
from views import close, dialog

COMPANIES = {"Adams": "Acme Tools", "Baker": "Zeta", "Clark": "Acme Travel"}
TO_DOS = ("Call Acme", "Rest")


class FindTest(DesktopCase):
    def setUp(self):
        super().setUp()
        for name, company in COMPANIES.items():
            self.add(name, company=company)
        for to_do in TO_DOS:
            self.home.orvo("todo", "add", to_do)
        self.start()

    def find(self, typed):
        """Types it in place of what stood there, and goes to what is found."""
        self.screen.keys("ctrl+f")
        self.screen.type(typed)
        self.screen.keys("Return")

    def until_shown(self, *names):
        """Waits until these are the rows of the view, which has the keys."""
        def shown():
            self.screen.keys("ctrl+a", "ctrl+c")
            copied = self.screen.clipboard()
            return tuple(name for name in (*COMPANIES, "Dunn", *TO_DOS) if name in copied)
        until(f"{names} are shown", lambda: shown() == names)

    def test_only_what_holds_all_words_shows_in_each_view_until_escape(self):
        self.find("acm trav")
        self.until_shown("Clark")
        self.find("cme")
        self.until_shown("Adams", "Clark")
        for keys, shown in (("ctrl+4", ("Adams", "Clark")), ("ctrl+5", ("Call Acme",)), ("ctrl+2", ("Adams", "Clark"))):
            self.screen.keys(keys)
            self.until_shown(*shown)
        self.screen.keys("ctrl+f", "Escape")
        self.until_shown("Adams", "Baker", "Clark")

    def test_what_has_changed_is_looked_at_anew(self):
        self.find("acme")
        self.until_shown("Adams", "Clark")
        self.add("Dunn", company="Acme Bank", category="Friends")
        self.until_shown("Adams", "Clark", "Dunn")
        choice = dialog(self.screen, "ctrl+k")
        self.screen.type("frie")
        close(self.screen, choice, "Return")
        self.find("friends acme")
        self.until_shown("Adams", "Clark", "Dunn")
        self.screen.keys("Delete")
        self.answer_box("Return")
        self.assertEqual(self.names(), ["Baker"])
        self.screen.keys("ctrl+z")
        self.until_shown("Adams", "Clark", "Dunn")
        self.screen.keys("ctrl+z")
        self.until_shown("Dunn")


if __name__ == "__main__":
    main()
