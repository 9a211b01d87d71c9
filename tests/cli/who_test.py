#!/usr/bin/env python3
# Runs orvo beside other programs that have the store open.
# SPDX-License-Identifier: MIT
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

ORVO = str(pathlib.Path(sys.argv[1]).resolve())
ACCESSOR = str(pathlib.Path(sys.argv[2]).resolve())


class WhoTest(unittest.TestCase):
    def setUp(self):
        self.scratch = tempfile.TemporaryDirectory()
        self.addCleanup(self.scratch.cleanup)
        self.folder = pathlib.Path(self.scratch.name)
        self.store = self.folder / "orvo.db"
        self.environment = {"PATH": os.environ["PATH"], "LC_ALL": "en_US.UTF-8",
                            "XDG_CONFIG_HOME": str(self.folder / "config"), "XDG_RUNTIME_DIR": str(self.folder)}

    def orvo(self, *arguments, code=0):
        result = subprocess.run([ORVO, "--store", self.store, *arguments], capture_output=True,
                                env=self.environment, text=True)
        self.assertEqual(result.returncode, code, (arguments, result.stdout, result.stderr))
        self.errors = result.stderr
        return result.stdout

    def accessor(self, *arguments):
        process = subprocess.Popen([ACCESSOR, *map(str, arguments)], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                   env=self.environment, text=True)
        self.addCleanup(process.communicate)
        return process, process.stdout.readline().strip()

    def test_nobody_is_nothing_found_and_makes_no_table(self):
        self.assertEqual(self.orvo("who", code=1), "")
        self.assertEqual(self.errors, "orvo: no program has a data set open\n")
        self.assertEqual(list(self.folder.glob("orvo/*.block")), [])

    def test_each_program_has_a_line(self):
        self.assertEqual(self.accessor("row", "Anna", 7, "Agenda")[1], "added")
        self.assertEqual(self.accessor("row", "Ben\033", 4294967295, "Büro")[1], "added")
        lines = self.orvo("who").splitlines()
        self.assertEqual([line.split(maxsplit=1) for line in lines],
                         [["Program", "Data set"], ["Agenda", "Anna (7)"], ["Büro", "Ben␛ (4294967295)"]])
        self.assertEqual([json.loads(line) for line in self.orvo("--json", "who").splitlines()],
                         [{"user": "Anna", "creator": 7, "owner": "Agenda"},
                          {"user": "Ben\033", "creator": 4294967295, "owner": "Büro"}])

    def test_a_store_that_another_program_has_is_not_changed(self):
        self.orvo("add", "--name", "Before")
        holder, told = self.accessor("claim", self.store, "Other")
        self.assertEqual(told, "own []")
        self.orvo("add", "--name", "Refused", code=2)
        self.assertEqual(self.errors, f"orvo: {self.store}: Other has this store open; try again later\n")
        self.assertIn("Before", self.orvo("addresses"))
        holder.kill()
        holder.wait(120)
        self.orvo("add", "--name", "After")
        self.assertNotIn("Refused", self.orvo("addresses"))

    def test_beside_the_desktop_orvo_works(self):
        self.assertEqual(self.accessor("claim", self.store, "Orvo Desktop")[1], "own []")
        self.orvo("add", "--name", "Ann")
        row = json.loads(self.orvo("--json", "who"))
        self.assertEqual((row["owner"], row["store"]), ("Orvo Desktop", str(self.store.resolve())))
        self.assertRegex(self.orvo("who"), rf"\nOrvo Desktop +{self.store.resolve()}\n$")

    def test_a_finished_command_leaves_no_row(self):
        self.accessor("row", "keeps the table", 1, "Other")
        self.orvo("add", "--name", "Ann")
        self.assertEqual(len(self.orvo("--json", "who").splitlines()), 1)

    def test_without_a_runtime_folder_orvo_works(self):
        self.environment["XDG_RUNTIME_DIR"] = str(self.folder / "none")
        self.orvo("add", "--name", "Ann")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
