#!/usr/bin/env python3
# Puts libraries into the folder of plug-ins: a good one adds its entry where it wants it, the others are told of.
# SPDX-License-Identifier: MIT
import shutil
import sys

from case import DesktopCase, main
from screen import until
from views import opened

COUNTING, NEWER, NAMELESS = sys.argv[3:]


class PluginsTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.folder = self.home.folder / "plugins"
        self.folder.mkdir()
        self.add("Adams", "Baker")

    def window(self):
        return super().window(ORVO_PLUGIN_DIR=str(self.folder))

    def count(self):
        """Chooses what stands before Send mail, behind the two orders."""
        opened(self.screen, "the menu", lambda: self.screen.keys("alt+a"))
        self.screen.keys("Down", "Down", "Return")

    def test_a_plug_in_adds_its_entry_where_it_wants_it(self):
        shutil.copy(COUNTING, self.folder / "a.so")
        program = self.start()
        self.screen.after("all are selected", lambda: self.screen.keys("Down", "ctrl+a"))
        self.count()
        until("it counts", lambda: "2 selected, the first is 1\n" in self.home.said())
        self.quit(program)
        self.assertEqual(self.home.said(), "2 selected, the first is 1\n")

    def test_those_that_do_not_work_are_told_of_and_leave_nothing(self):
        shutil.copy(NEWER, self.folder / "a.so")
        shutil.copy(NAMELESS, self.folder / "b.so")
        (self.folder / "c.so").write_text("no library")
        (self.folder / "d.txt").write_text("no library either")
        shutil.copy(COUNTING, self.folder / "e.so")
        program = self.start()
        self.screen.after("one is selected", lambda: self.screen.keys("Down"))
        self.count()
        until("the good one counts", lambda: "1 selected, the first is 1\n" in self.home.said())
        self.quit(program)
        told = self.home.said().replace(str(self.folder), "").splitlines()
        self.assertEqual([line.partition("/")[2] for line in told[:3]],
                         ["a.so: the plug-in is made for version 2 of the menus, this is version 1",
                          "b.so: the plug-in has no function OrvoPluginStart",
                          "c.so: the plug-in is no library that can be loaded"])
        self.assertEqual(len(told), 4)

    def test_one_that_others_could_have_put_there_is_not_run(self):
        plugin = self.folder / "a.so"
        shutil.copy(COUNTING, plugin)
        plugin.chmod(0o722)
        program = self.start()
        self.quit(program)
        self.assertIn(f"{plugin}: the plug-in isn't loaded: {plugin} may be written by other users\n", self.home.said())


if __name__ == "__main__":
    main(programs=5)
