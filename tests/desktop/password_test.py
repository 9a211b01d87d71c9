#!/usr/bin/env python3
# Guards private entries by a password: chosen in the options, asked for at the next start, and taken away again.
# SPDX-License-Identifier: MIT
import stat

from case import DesktopCase, main
from screen import TITLE, until
from views import close, dialog, is_open, windows

SECRET, OPEN = "Xanadu", "Adams"
PASSWORD, WRONG = "Kubla Khan", "Coleridge"


class PasswordTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.add(OPEN)
        self.add(SECRET, private="yes")

    def shown(self):
        """What a copy of all rows holds."""
        self.screen.copy("")
        self.screen.keys("ctrl+a", "ctrl+c")
        until("something is copied", lambda: OPEN in self.screen.clipboard())
        return self.screen.clipboard()

    def switch_lock(self, *typed):
        """Turns the password on or off in the options, and types it into the fields of the dialog that asks for it."""
        options = dialog(self.screen, "ctrl+comma")
        self.screen.keys("ctrl+Tab", "Tab", "Tab", "space")
        asked = dialog(self.screen, "Return")
        for password in typed:
            self.screen.type(password)
            self.screen.keys("Tab")
        self.screen.keys("Return")
        until("both are gone", lambda: not is_open(self.screen, asked) and not is_open(self.screen, options))
        self.screen.focus(TITLE)

    def test_a_kept_form_of_a_private_entry_waits_for_the_password(self):
        with self.window() as program:
            self.switch_lock(PASSWORD, PASSWORD)
            self.screen.after("typing selects", lambda: self.screen.type(SECRET))
            self.screen.at_rest()
            dialog(self.screen, "ctrl+o")
            self.screen.type("Typed")
            self.end(program)
        self.start()
        self.screen.at_rest()
        self.assertEqual(len(windows(self.screen)), 1)
        question = dialog(self.screen, "ctrl+l")
        self.screen.type(PASSWORD)
        close(self.screen, question, "Return", back=None)
        self.agree()
        self.screen.focus("Edit address")

    def test_private_entries_are_hidden_until_the_password_is_given(self):
        with self.window():
            self.switch_lock(PASSWORD, PASSWORD)
            self.assertIn(SECRET, self.shown())
        self.assertIn("$argon2id$", self.settings().read_text())
        self.assertNotIn(PASSWORD, self.settings().read_text())
        self.assertEqual(stat.S_IMODE(self.settings().stat().st_mode), 0o600)
        with self.window():
            self.assertNotIn(SECRET, self.shown())
            question = dialog(self.screen, "ctrl+l")
            self.screen.after("the wrong one is told", lambda: (self.screen.type(WRONG), self.screen.keys("Return")))
            self.assertTrue(is_open(self.screen, question))
            close(self.screen, question, "Escape")
            self.assertNotIn(SECRET, self.shown())
            question = dialog(self.screen, "ctrl+l")
            self.screen.type(PASSWORD)
            close(self.screen, question, "Return")
            self.assertIn(SECRET, self.shown())
            self.screen.keys("ctrl+l")
            self.assertNotIn(SECRET, self.shown())
            self.switch_lock(PASSWORD)
            self.assertIn(SECRET, self.shown())
        self.assertNotIn("argon2", self.settings().read_text())
        self.assertRegex(self.home.orvo("options"), r"showing-private +yes")

    def test_what_is_rendered_without_a_window_is_locked_too(self):
        def rendered(code):
            file = self.home.folder / "list.pdf"
            result = self.home.desktop("--pdf", str(file))
            self.assertEqual(result.returncode, code)
            self.assertEqual("1 private entry was left out" in result.stderr, code == 3)
            return file.stat().st_size
        before = rendered(0)
        with self.window():
            self.switch_lock(PASSWORD, PASSWORD)
        self.assertLess(rendered(3), before)


if __name__ == "__main__":
    main()
