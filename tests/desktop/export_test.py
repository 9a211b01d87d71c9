#!/usr/bin/env python3
# Exports from the window through its file dialog: what is selected, or all, and never what is hidden.
# SPDX-License-Identifier: MIT
import re
import sys
import unittest

from screen import LONGEST, TITLE, Home, Screen, until
from views import windows


class ExportTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen())
        for name, flags in (("Adams", ()), ("Baker", ()), ("Carter", ("--private", "yes"))):
            self.home.orvo("add", "--name", name, *flags)
        self.file = self.home.folder / "out.vcf"

    def export(self, *keys_before, typed="", name=None):
        """Exports in a new window, after keys that the dialog gets; the names in the file."""
        with self.home.window(self.screen) as program:
            if typed:
                self.screen.after("typing selects", lambda: self.screen.type(typed))
            self.screen.keys("ctrl+shift+e")
            until("the dialog opens", lambda: len(windows(self.screen)) == 2)
            self.screen.focus("Export As")
            self.screen.keys(*keys_before)
            self.screen.type(str(self.file) if name is None else name)
            self.screen.keys("Return")
            until("the file is there", self.file.exists)
            until("the dialog is gone", lambda: len(windows(self.screen)) == 1)
            self.screen.focus(TITLE)
            self.screen.keys("ctrl+q")
            self.assertEqual(program.wait(LONGEST), 0)
        return sorted(re.findall(r"^N:(\w+)", self.file.read_text(), re.MULTILINE))

    def test_the_selected_entry_is_what_goes_out_at_first(self):
        self.assertEqual(self.export(typed="bak"), ["Baker"])

    def test_all_can_be_chosen_instead(self):
        self.assertEqual(self.export("alt+a", "alt+n", typed="bak"), ["Adams", "Baker", "Carter"])

    def test_the_folder_used_last_and_a_name_are_proposed(self):
        self.file = self.home.folder / "cards" / "out.vcf"
        self.file.parent.mkdir()
        self.export()
        self.file = self.file.with_name("Addresses.vcf")
        self.assertEqual(self.export(name=""), ["Adams", "Baker", "Carter"])

    def test_what_is_hidden_stays_out_of_the_file(self):
        self.home.orvo("options", "--set", "showing-private", "no")
        self.assertEqual(self.export(), ["Adams", "Baker"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
