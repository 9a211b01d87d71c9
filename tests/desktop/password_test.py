#!/usr/bin/env python3
# Guards private entries by a password: chosen in the options, asked for at the next start, and taken away again.
# SPDX-License-Identifier: MIT
import stat
import sys
import unittest

from screen import LONGEST, TITLE, Home, Screen, until
from views import close, dialog, is_open, windows

SECRET, OPEN = "Xanadu", "Adams"
PASSWORD, WRONG = "Kubla Khan", "Coleridge"


class PasswordTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen())
        self.home.orvo("add", "--name", OPEN)
        self.home.orvo("add", "--name", SECRET, "--private", "yes")

    def shown(self):
        """What a copy of all rows holds."""
        self.screen.copy("")
        self.screen.keys("ctrl+a", "ctrl+c")
        until("something is copied", lambda: OPEN in self.screen.clipboard())
        return self.screen.clipboard()

    def switch_lock(self):
        """Turns the password on or off in the options; the dialog that asks for it has the keys then."""
        options = dialog(self.screen, "ctrl+comma")
        self.screen.keys("ctrl+Tab", "Tab", "Tab", "space")
        return options, dialog(self.screen, "Return")

    def choose_password(self):
        options, choice = self.switch_lock()
        self.screen.type(PASSWORD)
        self.screen.keys("Tab")
        self.screen.type(PASSWORD)
        self.screen.keys("Return")
        until("both are gone", lambda: not is_open(self.screen, choice) and not is_open(self.screen, options))
        self.screen.focus(TITLE)

    def test_a_kept_form_of_a_private_entry_waits_for_the_password(self):
        with self.home.window(self.screen) as program:
            self.choose_password()
            self.screen.after("typing selects", lambda: self.screen.type(SECRET))
            self.screen.at_rest()
            dialog(self.screen, "ctrl+o")
            self.screen.type("Typed")
            program.terminate()
            self.assertEqual(program.wait(LONGEST), 0)
        with self.home.window(self.screen):
            self.screen.at_rest()
            self.assertEqual(len(windows(self.screen)), 1)
            question = dialog(self.screen, "ctrl+l")
            self.screen.type(PASSWORD)
            self.screen.keys("Return")
            until("it is offered", lambda: not is_open(self.screen, question) and len(windows(self.screen)) == 2)
            self.screen.focus(TITLE)  # the box has the same, and lies above
            self.screen.keys("Return")
            self.screen.focus("Edit address")

    def settings(self):
        return self.home.folder / "config/orvo/settings.ini"

    def test_private_entries_are_hidden_until_the_password_is_given(self):
        with self.home.window(self.screen):
            self.choose_password()
            self.assertIn(SECRET, self.shown())
        self.assertIn("$argon2id$", self.settings().read_text())
        self.assertNotIn(PASSWORD, self.settings().read_text())
        self.assertEqual(stat.S_IMODE(self.settings().stat().st_mode), 0o600)
        with self.home.window(self.screen):
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
        self.assertRegex(self.home.orvo("options"), r"showing-private +yes")

    def test_only_who_knows_the_password_takes_it_away(self):
        with self.home.window(self.screen):
            self.choose_password()
        with self.home.window(self.screen):
            options, question = self.switch_lock()
            close(self.screen, question, "Escape", back="Options")
            close(self.screen, options, "Escape")
            self.assertNotIn(SECRET, self.shown())
            options, question = self.switch_lock()
            self.screen.type(PASSWORD)
            self.screen.keys("Return")
            until("both are gone", lambda: not is_open(self.screen, question) and not is_open(self.screen, options))
            self.screen.focus(TITLE)
            self.assertIn(SECRET, self.shown())
        self.assertNotIn("argon2", self.settings().read_text())

    def test_what_is_rendered_without_a_window_is_locked_too(self):
        def rendered(code):
            file = self.home.folder / "list.pdf"
            result = self.home.desktop("--pdf", str(file))
            self.assertEqual(result.returncode, code)
            self.assertEqual("1 private entry was left out" in result.stderr, code == 3)
            return file.stat().st_size
        before = rendered(0)
        with self.home.window(self.screen):
            self.choose_password()
        self.assertLess(rendered(3), before)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
