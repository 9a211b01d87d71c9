#!/usr/bin/env python3
# Lists the birthdays and anniversaries of people, and lets them out as a calendar.
# SPDX-License-Identifier: MIT
from case import DesktopCase, main
from screen import until
from views import close, opened

NOW = ("--now", "2026-11-26T12:00")
CARDS = "".join(f"BEGIN:VCARD\nVERSION:4.0\nN:{name};;;;\nFN:{name}\n{lines}\nEND:VCARD\n" for name, lines in (
    ("Adams", "BDAY:19850225"), ("Baker", "NOTE:none"), ("Clark", "BDAY:--1127\nANNIVERSARY:20061224"),
    ("Dunn", "BDAY:19920229\nCLASS:PRIVATE")))


class BirthdaysTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.home.orvo("import", self.file("cards.vcf", CARDS))

    def copied(self, *keys):
        self.screen.keys(*keys, "ctrl+c")
        return [line for line in self.screen.clipboard().splitlines() if line]

    def until_copied(self, names, *keys):
        until(f"{names} are copied", lambda: self.copied(*keys) == names)

    def test_people_stand_in_the_order_of_the_days_to_come_and_keys_lead_through_them(self):
        self.start("--view", "birthdays", *NOW)
        self.until_copied(["Clark", "Adams", "Dunn"], "ctrl+a")
        for name, key in (("Clark", "Home"), ("Dunn", "End")):
            self.until_copied([name], key)
        self.screen.keys("a", "Return")
        close(self.screen, self.screen.focus("Edit address"), "Escape")
        self.until_copied(["Adams"])
        self.until_copied(["Dunn"], "End")
        self.home.orvo("edit", "4", "--name", "Evans")
        self.until_copied(["Evans"])
        self.screen.keys("Delete")
        self.answer_box("Return")
        self.until_copied(["Clark", "Adams"], "ctrl+a")
        self.screen.keys("ctrl+z", "ctrl+f")
        self.screen.type("eva")
        self.screen.keys("Return")
        self.until_copied(["Evans"], "ctrl+a")

    def test_the_view_comes_back_and_goes_out_as_a_calendar_without_what_is_hidden(self):
        self.set_options(showing_private="no")
        with self.window(*NOW) as program:
            self.screen.keys("ctrl+6")
            self.until_copied(["Clark", "Adams"], "ctrl+a")
            self.quit(program)
        file = self.home.folder / "days.ics"
        with self.window(*NOW):
            self.until_copied(["Clark", "Adams"], "ctrl+a")
            dialog = opened(self.screen, "the dialog", lambda: self.screen.keys("ctrl+shift+e"))
            self.screen.focus("Export As")
            self.screen.type(str(file))
            close(self.screen, dialog, "Return")
            until("the file is there", file.exists)
        self.assertEqual([line for line in file.read_text().splitlines() if line.startswith("SUMMARY")],
                         ["SUMMARY:Clark", "SUMMARY:Adams"])


if __name__ == "__main__":
    main()
