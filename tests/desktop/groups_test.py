#!/usr/bin/env python3
# Groups of people: shown alone, written to, and changed by menu and drag.
# SPDX-License-Identifier: MIT
from case import DesktopCase, main
from mail_program import MailProgram
from screen import until
from views import close, dialog, opened

CARDS = ("BEGIN:VCARD\nVERSION:3.0\nN:Adams\nUID:a\nEMAIL:adams@example.org\nEND:VCARD\n"
         "BEGIN:VCARD\nVERSION:3.0\nN:Baker\nEMAIL:baker@example.org\nEND:VCARD\n"
         "BEGIN:VCARD\nVERSION:3.0\nN:Clark\nEND:VCARD\n"
         "BEGIN:VCARD\nVERSION:4.0\nKIND:group\nFN:Rowers\nMEMBER:urn:uuid:a\nEND:VCARD\n")
BOX = (430, 40)
FIRST_ROW = (60, 97)
LAST_ROW = (60, 162)


class GroupsTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.home.orvo("import", self.file("people.vcf", CARDS))
        self.mail = MailProgram(self.home.folder)
        self.start(**self.mail.environment)

    def look_up(self, typed):
        self.screen.after("typing selects", lambda: self.screen.type(typed))

    def members(self):
        group = next(row["id"] for row in self.home.rows("addresses") if row["name"] == "Rowers")
        person = self.home.rows("show", str(group))[0]["person"]
        return sorted(detail["text"] for detail in person["details"] if detail["kind"] == "Member")

    def until_members(self, *names):
        until(f"the members are {names}", lambda: self.members() == list(names))

    def test_people_come_in_and_go_by_menu_and_a_mail_goes_to_all(self):
        self.look_up("bak")
        opened(self.screen, "the groups", lambda: self.screen.keys("alt+a", "r"))
        self.screen.keys("Return")
        self.until_members("Adams", "Baker")
        self.screen.after("the group is selected", lambda: self.screen.click(*LAST_ROW))
        self.screen.keys("ctrl+m")
        until("the mail program is opened", self.mail.received.exists)
        self.assertEqual(self.mail.message()[0], "adams@example.org,baker@example.org")
        opened(self.screen, "the box", lambda: self.screen.click(*BOX))
        self.screen.after("only the members show", lambda: self.screen.keys("End", "Return"))
        self.screen.after("a member is selected", lambda: self.screen.click(*FIRST_ROW))
        self.screen.keys("alt+a", "k")
        self.until_members("Baker")
        self.screen.keys("ctrl+z")
        self.until_members("Adams", "Baker")

    def test_people_are_dropped_onto_the_box(self):
        self.look_up("cla")
        row = next(y for y in range(100, 240) if self.screen.picture().pixel(200, y)[2] > 150
                   and self.screen.picture().pixel(200, y)[0] < 80)
        opened(self.screen, "the groups", lambda: self.screen.drag((60, row + 6), (200, 80), BOX))
        self.screen.keys("Down", "Return")
        self.until_members("Adams", "Clark")

    def test_a_new_group_has_the_selected_as_members(self):
        self.look_up("bak")
        opened(self.screen, "the groups", lambda: self.screen.keys("alt+a", "r"))
        question = dialog(self.screen, "n")
        self.screen.type("Choir")
        close(self.screen, question, "Return")
        until("the group is there", lambda: "Choir" in self.names())


if __name__ == "__main__":
    main()
