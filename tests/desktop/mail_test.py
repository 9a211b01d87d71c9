#!/usr/bin/env python3
# Sends mail from the window: to the selected person, and the card of one.
# SPDX-License-Identifier: MIT
import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "support"))
from mail_program import MailProgram
from screen import LONGEST, TITLE, Home, Screen, until
from views import windows


class MailTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen())
        folder = self.home.folder / "mail"
        folder.mkdir()
        self.mail = MailProgram(folder)
        self.home.orvo("add", "--name", "Adams", "--first", "Ada", "--phone5", "ada@example.org")
        self.home.orvo("add", "--name", "Baker", "--phone1", "+1 617 555 0142")
        self.home.orvo("add", "--name", "Cole',bcc='evil@x.org")

    def choose(self, typed, action):
        """Looks somebody up in a new window, and does something about him."""
        with self.home.window(self.screen, **self.mail.environment) as program:
            self.screen.after("typing selects", lambda: self.screen.type(typed))
            action()
            self.screen.focus(TITLE)
            self.screen.keys("ctrl+q")
            self.assertEqual(program.wait(LONGEST), 0)

    def sent(self, *keys):
        self.screen.keys(*keys)
        until("the mail program is opened", self.mail.received.exists)

    def test_mail_goes_to_the_address_of_the_selected(self):
        self.choose("ada", lambda: self.sent("ctrl+m"))
        self.assertEqual(self.mail.message(), ("ada@example.org", {}))

    def test_a_card_goes_as_an_attachment_under_its_name(self):
        # The second of the commands for selected people.
        self.choose("bak", lambda: self.sent("alt+a", "v"))
        recipients, fields = self.mail.message()
        self.assertEqual(recipients, "")
        card = pathlib.Path(fields["attach"][0])
        self.assertEqual(card.name, "Baker.vcf")
        self.assertIn("+1 617 555 0142", card.read_text())

    def test_no_name_says_more_to_the_mail_program_than_a_name(self):
        self.choose("col", lambda: self.sent("alt+a", "v"))
        card = pathlib.Path(self.mail.message()[1]["attach"][0])
        self.assertEqual(card.name, "Cole_bcc_evil_x.org.vcf")

    def test_without_a_mail_address_a_message_tells(self):
        def ask():
            self.screen.keys("ctrl+m")
            until("a box tells it", lambda: len(windows(self.screen)) == 2)
            self.screen.focus(TITLE)
            self.screen.keys("Return")
            until("the box is gone", lambda: len(windows(self.screen)) == 1)
        self.choose("bak", ask)
        self.assertFalse(self.mail.received.exists())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
