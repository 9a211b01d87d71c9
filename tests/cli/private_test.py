#!/usr/bin/env python3
# Private entries on every way out of orvo: as the options say, behind the password, and whole with --show-private.
# SPDX-License-Identifier: MIT
import os
import pathlib
import pty
import resource
import signal
import subprocess
import sys
import tempfile
import termios
import unittest

ORVO = str(pathlib.Path(sys.argv[1]).resolve())
PASSWORD, SECRET, OPEN = "Kubla Khan", "Xanadu", "Adams"
HASH = "$argon2id$v=19$m=64,t=1,p=1$JD2az3sppWqdYTYct4wAwA$m1hCL0Ksj8g7CGtyBsPHgIYph80kunHYhojfACTBr3w"
SHOWN, MASKED, HIDDEN = {}, {"masking-private": "yes"}, {"showing-private": "no"}


class PrivateTest(unittest.TestCase):
    def setUp(self):
        self.scratch = tempfile.TemporaryDirectory()
        self.addCleanup(self.scratch.cleanup)
        self.folder = pathlib.Path(self.scratch.name)
        self.settings = self.folder / "config/orvo/settings.ini"
        self.user_file = self.folder / "config/orvo/xtrauser.dat"
        self.environment = {"PATH": os.environ["PATH"], "LC_ALL": "en_US.UTF-8", "XDG_RUNTIME_DIR": str(self.folder),
                            "XDG_CONFIG_HOME": str(self.folder / "config"), "XDG_DATA_HOME": str(self.folder / "data")}
        self.password = self.folder / "password"
        self.password.write_text(PASSWORD + "\n")
        secret = ("--name", SECRET, "--company", SECRET, "--phone1", f"{SECRET}@example.org", "--note", SECRET)
        self.orvo("add", "--name", OPEN)
        self.orvo("add", *secret, "--private", "yes")
        self.orvo("todo", "add", OPEN, "--priority", 1)
        self.orvo("todo", "add", SECRET, "--note", SECRET, "--private")

    def run_orvo(self, *arguments, **more):
        return subprocess.run([ORVO, *map(str, arguments)], capture_output=True, timeout=120, text=True,
                              env=self.environment, **{"stdin": subprocess.DEVNULL, **more})

    def orvo(self, *arguments, code=0, **more):
        result = self.run_orvo(*arguments, **more)
        self.assertEqual(result.returncode, code, (arguments, result.stdout, result.stderr))
        self.errors = result.stderr
        return result.stdout

    def set(self, options, *arguments):
        for name, value in options.items():
            self.orvo("options", "--set", name, value, *arguments)

    def guard(self):
        """Sets the password, as the window does."""
        self.set({"password-required": "yes"})
        with self.settings.open("a") as settings:
            settings.write(f"\n[Application/Security]\nPasswordHash={HASH}\n")

    def exported(self, ending, *arguments, code):
        file = self.folder / f"out.{ending}"
        file.unlink(missing_ok=True)
        said = self.orvo("export", file, *arguments, code=code)
        return said + self.errors + file.read_text()

    # Each way out: the exit code where private entries are shown, masked, and hidden.
    WAYS = {("addresses",): (0, 0, 0), ("addresses", "--view", "icons"): (0, 0, 0), ("--json", "addresses"): (0, 0, 0),
            ("cards",): (0, 0, 0), ("--json", "cards"): (0, 0, 0), ("card", 1): (0, 0, 1), ("tip", 1): (0, 3, 1),
            ("lookup", "x"): (0, 1, 1), ("show", 2): (0, 0, 3), ("--json", "show", 2): (0, 0, 3),
            ("todos",): (0, 0, 0), ("--json", "todos"): (0, 0, 0), ("todo", "note-title", 1): (0, 2, 1)}

    def check_ways(self, choice, *arguments):
        for way, codes in self.WAYS.items():
            with self.subTest(way, choice=choice, arguments=arguments):
                said = self.orvo(*way, *arguments, code=codes[choice])
                self.assertEqual(SECRET in said, choice == 0, said)
                self.assertNotIn(SECRET, self.errors)
        for ending in ("vcf", "ics"):
            with self.subTest(ending, choice=choice, arguments=arguments):
                said = self.exported(ending, *arguments, code=3 if choice else 0)
                self.assertEqual(SECRET in said, choice == 0, said)
                self.assertEqual("1 private entry was left out" in said, choice != 0, said)
                self.assertIn(OPEN, said)

    def test_every_way_out_goes_by_the_options(self):
        for choice, options in enumerate((SHOWN, MASKED, HIDDEN)):
            self.set(options)
            self.check_ways(choice)
            self.check_ways(0, "--show-private")

    def test_a_password_hides_what_it_guards_until_it_is_given(self):
        self.guard()
        self.check_ways(2)
        self.check_ways(0, "--password-file", self.password)
        self.check_ways(0, "--show-private", "--password-file", self.password)

    def test_what_is_not_shown_is_not_changed(self):
        before = self.orvo("--json", "--show-private", "show", 2)
        for choice, options in (("masked", MASKED), ("hidden", HIDDEN)):
            self.set(options)
            for command in (("edit", 2, "--private", "no"), ("delete", 2)):
                self.orvo(*command, code=2)
                self.assertEqual(self.errors, f"orvo: address 2 is private and {choice}: change it with --show-private\n")
            self.orvo("todo", "delete", 1, code=2 if choice == "masked" else 1)
            self.assertEqual(self.orvo("--json", "--show-private", "show", 2), before)
        self.orvo("edit", 2, "--city", "Shangdu", "--show-private")
        self.orvo("delete", 2, "--show-private")

    def test_a_password_that_is_wrong_or_missing_lets_nothing_be_done(self):
        self.guard()
        wrong = self.folder / "wrong"
        wrong.write_text("Coleridge\n" + PASSWORD)
        for reason, arguments in (("guards private entries", ()), ("is wrong", ("--password-file", wrong)),
                                  ("can't be opened", ("--password-file", self.folder / "none"))):
            for command in (("export", self.folder / "no.vcf", "--show-private"), ("delete", 2, "--show-private"),
                            ("options", "--set", "password-required", "no")):
                self.orvo(*command, *arguments, code=2)
                self.assertIn(reason, self.errors)
                self.assertEqual(self.errors.count("\n"), 1, self.errors)
        self.assertFalse((self.folder / "no.vcf").exists())
        self.assertIn(SECRET, self.orvo("show", 2, "--show-private", "--password-file", "-", stdin=None, input=PASSWORD))

    def test_only_who_knows_the_password_sets_private_entries_free(self):
        self.set(MASKED | HIDDEN)
        self.guard()
        freeing = ({"showing-private": "yes"}, {"password-required": "no"})
        for options in freeing:
            for name, value in options.items():
                self.orvo("options", "--set", name, value, code=2)
        self.set({"alarm-set": "yes", "masking-private": "no"})  # nothing is seen by it
        for options in freeing:
            self.set(options, "--password-file", self.password)
        self.assertIn(SECRET, self.orvo("addresses"))

    def test_the_terminal_is_asked_without_showing_the_password(self):
        self.guard()
        for typed, code in ((PASSWORD, 0), ("Coleridge", 2)):
            master, terminal = pty.openpty()
            process = subprocess.Popen([ORVO, "show", "2", "--show-private"], env=self.environment, stdin=terminal,
                                       stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
            self.assertEqual(process.stderr.read(len("Password of private entries: ")), "Password of private entries: ")
            while termios.tcgetattr(terminal)[3] & termios.ECHO:
                self.assertIsNone(process.poll())
            os.write(master, typed.encode() + b"\n")
            said, _ = process.communicate(timeout=120)
            self.assertEqual((process.returncode, SECRET in said), (code, code == 0))
            self.assertNotIn(typed.encode(), os.read(master, 1000))
            self.assertTrue(termios.tcgetattr(terminal)[3] & termios.ECHO)
            os.close(master)
            os.close(terminal)

    def test_a_terminal_shows_what_is_typed_again_after_an_end_by_a_signal(self):
        self.guard()
        master, terminal = pty.openpty()
        process = subprocess.Popen([ORVO, "show", "2", "--show-private"], env=self.environment, stdin=terminal,
                                   stderr=subprocess.PIPE)
        while termios.tcgetattr(terminal)[3] & termios.ECHO:
            self.assertIsNone(process.poll())
        process.send_signal(signal.SIGINT)
        process.communicate(timeout=120)
        self.assertEqual(process.returncode, -signal.SIGINT)
        self.assertTrue(termios.tcgetattr(terminal)[3] & termios.ECHO)
        os.close(master)
        os.close(terminal)

    def test_a_write_that_fails_leaves_the_password_on(self):
        self.guard()
        before = self.user_file.read_bytes()

        def full():
            resource.setrlimit(resource.RLIMIT_FSIZE, (0, resource.RLIM_INFINITY))
        self.orvo("options", "--set", "alarm-set", "yes", code=2, preexec_fn=full)
        self.assertIn("xtrauser.dat: can't be written", self.errors)
        self.assertEqual(self.user_file.read_bytes(), before)
        self.assertNotIn(SECRET, self.orvo("addresses"))

    def test_a_user_file_that_is_lost_leaves_the_password_on(self):
        self.guard()
        for content in (None, b"", b"\x011", bytes(6)):
            self.user_file.unlink()
            if content is not None:
                self.user_file.write_bytes(content)
            self.assertNotIn(SECRET, self.orvo("addresses"))
            self.assertEqual("the password counts as required" in self.errors, content is not None)
            self.set({"alarm-set": "yes"})
            self.assertEqual(self.user_file.read_bytes(), b"\x011\x01\0\0\0", "never less")

    def test_what_is_the_users_own_is_closed_to_others(self):
        def open_to_all():
            os.umask(0)
        self.scratch.cleanup()
        self.folder.mkdir()
        self.orvo("options", "--set", "alarm-set", "yes", preexec_fn=open_to_all)
        self.orvo("add", "--name", OPEN, preexec_fn=open_to_all)
        files = [file for top in ("config", "data") for file in (self.folder / top).rglob("*") if file.is_file()]
        self.assertLessEqual({"settings.ini", "xtrauser.dat", "orvo.db"}, {file.name for file in files})
        self.assertEqual({file.name: oct(file.stat().st_mode & 0o777) for file in files},
                         {file.name: "0o600" for file in files})


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
