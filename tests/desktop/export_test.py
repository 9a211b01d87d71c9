#!/usr/bin/env python3
# Lets entries out of the window: into files, by mail to the selected person, and as cards by mail.
# SPDX-License-Identifier: MIT
import pathlib
import re

from case import DesktopCase, main
from mail_program import MailProgram
from screen import until
from views import close, opened


class OutTest(DesktopCase):
    def look_up(self, typed):
        self.screen.after("typing selects", lambda: self.screen.type(typed))


class ExportTest(OutTest):
    def setUp(self):
        super().setUp()
        self.add("Adams", "Baker")
        self.add("Carter", private="yes")
        self.path = self.home.folder / "out.vcf"

    def export(self, *keys_before, typed="", name=None):
        """Exports in a new window, after keys that the dialog gets; the names in the file."""
        with self.window():
            if typed:
                self.look_up(typed)
            dialog = opened(self.screen, "the dialog", lambda: self.screen.keys("ctrl+shift+e"))
            self.screen.focus("Export As")
            self.screen.keys(*keys_before)
            self.screen.type(str(self.path) if name is None else name)
            close(self.screen, dialog, "Return")
            until("the file is there", self.path.exists)
        return sorted(re.findall(r"^N:(\w+)", self.path.read_text(), re.MULTILINE))

    def test_the_selected_entry_is_what_goes_out_at_first(self):
        self.assertEqual(self.export(typed="bak"), ["Baker"])

    def test_all_can_be_chosen_instead(self):
        self.assertEqual(self.export("alt+a", "alt+n", typed="bak"), ["Adams", "Baker", "Carter"])

    def test_the_folder_used_last_and_a_name_are_proposed(self):
        self.path = self.file("cards/out.vcf", "old")
        self.path.unlink()
        self.export()
        self.path = self.path.with_name("Addresses.vcf")
        self.assertEqual(self.export(name=""), ["Adams", "Baker", "Carter"])

    def test_what_is_hidden_stays_out_of_the_file(self):
        self.set_options(showing_private="no")
        self.assertEqual(self.export(), ["Adams", "Baker"])


class MailTest(OutTest):
    def setUp(self):
        super().setUp()
        self.mail = MailProgram(self.home.folder / "config")
        self.add("Adams", first="Ada", phone5="ada@example.org")
        self.add("Baker", phone1="+1 617 555 0142")
        self.add("Cole',bcc='evil@x.org")
        numbers = "".join(f"TEL:555010{number}\n" for number in range(6))
        self.home.orvo("import", self.file("sixth.vcf", "BEGIN:VCARD\nVERSION:3.0\nN:Dale\n" + numbers
                                           + "EMAIL:dale@example.org\nEND:VCARD\n"))
        self.start(**self.mail.environment)

    def sent(self, typed, *keys):
        """Looks somebody up, and presses keys that send something; the message."""
        self.look_up(typed)
        self.screen.keys(*keys)
        until("the mail program is opened", self.mail.received.exists)
        return self.mail.message()

    def test_mail_goes_to_the_address_of_the_selected(self):
        self.assertEqual(self.sent("ada", "ctrl+m"), ("ada@example.org", {}))

    def test_mail_goes_to_an_address_that_only_the_card_holds(self):
        self.assertEqual(self.sent("dal", "ctrl+m"), ("dale@example.org", {}))

    def test_a_card_goes_as_an_attachment_under_its_name(self):
        # The second of the commands for selected people.
        recipients, fields = self.sent("bak", "alt+a", "v")
        self.assertEqual(recipients, "")
        card = pathlib.Path(fields["attach"][0])
        self.assertEqual(card.name, "Baker.vcf")
        self.assertIn("+1 617 555 0142", card.read_text())

    def test_no_name_says_more_to_the_mail_program_than_a_name(self):
        fields = self.sent("col", "alt+a", "v")[1]
        self.assertEqual(pathlib.Path(fields["attach"][0]).name, "Cole_bcc_evil_x.org.vcf")

    def test_without_a_mail_address_a_message_tells(self):
        self.look_up("bak")
        self.screen.keys("ctrl+m")
        self.answer_box()
        self.assertFalse(self.mail.received.exists())


if __name__ == "__main__":
    main()
