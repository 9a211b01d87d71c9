#!/usr/bin/env python3
# Runs orvo beside other programs that have the store open.
# SPDX-License-Identifier: MIT
import pathlib
import subprocess
import sys
import unittest

from command import CommandTest

ACCESSOR = str(pathlib.Path(sys.argv[2]).resolve())


class WhoTest(CommandTest):
    def setUp(self):
        super().setUp()
        self.environment["XDG_RUNTIME_DIR"] = str(self.folder)

    def accessor(self, *arguments):
        """Another program, and the first line that it says."""
        process = subprocess.Popen([ACCESSOR, *map(str, arguments)], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                   env=self.environment, text=True)
        self.addCleanup(process.communicate)
        return process, process.stdout.readline().strip()

    def test_nobody_is_nothing_found_and_makes_no_table(self):
        self.assertEqual(self.refused("who", code=1), "orvo: no program has a data set open\n")
        self.assertEqual(list(self.folder.glob("orvo/*.block")), [])

    def test_each_program_has_a_line(self):
        self.assertEqual(self.accessor("row", "Anna", 7, "Agenda")[1], "added")
        self.assertEqual(self.accessor("row", "Ben\033", 4294967295, "Büro")[1], "added")
        self.assertEqual([line.split(maxsplit=1) for line in self.orvo("who").splitlines()],
                         [["Program", "Data set"], ["Agenda", "Anna (7)"], ["Büro", "Ben␛ (4294967295)"]])
        self.assertEqual(self.rows("who"), [{"user": "Anna", "creator": 7, "owner": "Agenda"},
                                            {"user": "Ben\033", "creator": 4294967295, "owner": "Büro"}])

    def test_a_store_that_another_program_has_is_not_changed(self):
        self.orvo("add --name Before")
        holder, told = self.accessor("claim", self.store, "Other")
        self.assertEqual(told, "own []")
        self.assertEqual(self.refused("add --name Refused"),
                         f"orvo: {self.store}: Other has this store open; try again later\n")
        self.assertEqual(self.values("name", "addresses"), ["Before"])
        holder.kill()
        holder.wait(120)
        self.orvo("add --name After")
        self.assertEqual(self.values("name", "addresses"), ["After", "Before"])

    def test_beside_the_desktop_orvo_works(self):
        self.assertEqual(self.accessor("claim", self.store, "Orvo Desktop")[1], "own []")
        self.orvo("add --name Ann")
        self.assertEqual([(row["owner"], row["store"]) for row in self.rows("who")],
                         [("Orvo Desktop", str(self.store.resolve()))])
        self.assertRegex(self.orvo("who"), rf"\nOrvo Desktop +{self.store.resolve()}\n$")

    def test_a_finished_command_leaves_no_row(self):
        self.accessor("row", "keeps the table", 1, "Other")
        self.orvo("add --name Ann")
        self.assertEqual(self.values("owner", "who"), ["Other"])

    def test_without_a_runtime_folder_orvo_works(self):
        self.environment["XDG_RUNTIME_DIR"] = str(self.folder / "none")
        self.orvo("add --name Ann")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
