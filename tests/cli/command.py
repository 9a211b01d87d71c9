# The program as a user runs it, and the hands of its tests.
# SPDX-License-Identifier: MIT
import json
import os
import pathlib
import shlex
import subprocess
import sys
import tempfile
import unittest


def card(name, first="", extra=""):
    return f"BEGIN:VCARD\r\nVERSION:3.0\r\nN:{name};{first};;;\r\n{extra}END:VCARD\r\n"


class Orvo:
    """Runs the program with the settings of a scratch folder."""

    def __init__(self, folder, program=sys.argv[1]):
        self.program = str(pathlib.Path(program).resolve())
        self.folder = pathlib.Path(folder)
        self.environment = {"PATH": os.environ["PATH"], "LC_ALL": "en_US.UTF-8",
                            "XDG_CONFIG_HOME": str(self.folder / "config")}

    def call(self, caller, words, store, **options):
        named = ["--store", str(store)] if store else []
        return caller([self.program, *named, *map(str, words)],
                      **{"env": self.environment, "stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE,
                         "stderr": subprocess.PIPE, "encoding": "utf-8", "errors": "replace", **options})

    def run(self, *words, store=None, **options):
        """Gives the exit code, what was printed, and what was told beside it."""
        result = self.call(subprocess.run, words, store, **{"timeout": 600, **options})
        if result.returncode not in (0, 1, 2, 3) or "Sanitizer" in result.stderr:
            raise AssertionError(f"{words} ended with {result.returncode}: {result.stderr}")
        return result.returncode, result.stdout, result.stderr


class CommandTest(unittest.TestCase):
    """Each test has a folder of its own, and a store in it."""

    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name)
        self.store = self.folder / "orvo.db"
        self.program = Orvo(self.folder)
        self.environment = self.program.environment

    def start(self, command, *more, **options):
        return self.program.call(subprocess.Popen, [*shlex.split(command), *more], self.store, **options)

    def orvo(self, command, *more, code=0, **options):
        """What the command prints, whose words stand in one text or behind it; `errors` is what it told beside that."""
        got, out, self.errors = self.program.run(*shlex.split(command), *more, **{"store": self.store, **options})
        self.assertEqual(got, code, (command, more, out[:500], self.errors))
        return out

    def refused(self, command, *more, code=2, **options):
        """The one line that tells why the command isn't done."""
        self.assertEqual(self.orvo(command, *more, code=code, **options), "")
        self.assertEqual(self.errors.count("\n"), 1, self.errors)
        return self.errors

    def rows(self, command, *more, **options):
        return [json.loads(line) for line in self.orvo(f"--json {command}", *more, **options).splitlines()]

    def values(self, key, command, *more, **options):
        return [row[key] for row in self.rows(command, *more, **options)]

    def file(self, name, content):
        path = self.folder / name
        path.write_bytes(content if isinstance(content, bytes) else content.encode())
        return path

    def import_text(self, text, name="a.vcf", **options):
        return self.orvo("import", self.file(name, text), **options)
