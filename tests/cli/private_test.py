#!/usr/bin/env python3
# Private entries on every way out of orvo: as the options say, behind the password, and whole with --show-private.
# SPDX-License-Identifier: MIT
import contextlib
import os
import pty
import resource
import signal
import sys
import termios
import time
import unittest

from command import CommandTest

PASSWORD, SECRET, OPEN = "Kubla Khan", "Xanadu", "Adams"
HASH = "$argon2id$v=19$m=64,t=1,p=1$JD2az3sppWqdYTYct4wAwA$m1hCL0Ksj8g7CGtyBsPHgIYph80kunHYhojfACTBr3w"
SHOWN, MASKED, HIDDEN = {}, {"masking-private": "yes"}, {"showing-private": "no"}


class PrivateTest(CommandTest):
    def setUp(self):
        super().setUp()
        self.user_file = self.folder / "config/orvo/xtrauser.dat"
        known = self.file("password", f"{PASSWORD}\n")
        self.known = f"--password-file {known}"
        self.orvo(f"add --name {OPEN}")
        self.orvo(f"add --name {SECRET} --company {SECRET} --phone1 {SECRET}@x.org --note {SECRET} --private yes")
        self.orvo(f"todo add {OPEN} --priority 1")
        self.orvo(f"todo add {SECRET} --note {SECRET} --private")

    def set(self, options, arguments=""):
        for name, value in options.items():
            self.orvo(f"options --set {name} {value} {arguments}")

    def guard(self):
        """Sets the password, as the window does."""
        self.set({"password-required": "yes"})
        with (self.folder / "config/orvo/settings.ini").open("a") as settings:
            settings.write(f"\n[Application/Security]\nPasswordHash={HASH}\n")

    # Each way out: the exit code where private entries are shown, masked, and hidden.
    WAYS = {"addresses": (0, 0, 0), "addresses --view icons": (0, 0, 0), "--json addresses": (0, 0, 0),
            "cards": (0, 0, 0), "--json cards": (0, 0, 0), "card 1": (0, 0, 1), "tip 1": (0, 3, 1),
            "lookup x": (0, 1, 1), "show 2": (0, 0, 3), "--json show 2": (0, 0, 3),
            "todos": (0, 0, 0), "--json todos": (0, 0, 0), "todo note-title 1": (0, 2, 1)}

    def check_ways(self, choice, arguments=""):
        for way, codes in self.WAYS.items():
            with self.subTest(way, choice=choice, arguments=arguments):
                said = self.orvo(f"{way} {arguments}", code=codes[choice])
                self.assertEqual(SECRET in said, choice == 0, said)
                self.assertNotIn(SECRET, self.errors)
        for ending in ("vcf", "ics"):
            with self.subTest(ending, choice=choice, arguments=arguments):
                out = self.file(f"out.{ending}", "")
                said = self.orvo(f"export {out} {arguments}", code=3 if choice else 0) + self.errors + out.read_text()
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
        self.check_ways(0, self.known)
        self.check_ways(0, f"--show-private {self.known}")

    def test_what_is_not_shown_is_not_changed(self):
        before = self.orvo("--json --show-private show 2")
        for choice, options in (("masked", MASKED), ("hidden", HIDDEN)):
            self.set(options)
            for command in ("edit 2 --private no", "delete 2"):
                self.assertEqual(self.refused(command),
                                 f"orvo: address 2 is private and {choice}: change it with --show-private\n")
            self.orvo("todo delete 1", code=2 if choice == "masked" else 1)
            self.assertEqual(self.orvo("--json --show-private show 2"), before)
        self.orvo("edit 2 --city Shangdu --show-private")
        self.orvo("delete 2 --show-private")

    def test_a_password_that_is_wrong_or_missing_lets_nothing_be_done(self):
        self.guard()
        wrong = self.file("wrong", f"Coleridge\n{PASSWORD}")
        for reason, given in (("guards private entries", ""), ("is wrong", f"--password-file {wrong}"),
                              ("can't be opened", f"--password-file {self.folder}/none")):
            for command in (f"export {self.folder}/no.vcf --show-private", "delete 2 --show-private",
                            "options --set password-required no"):
                self.assertIn(reason, self.refused(f"{command} {given}"))
        self.assertFalse((self.folder / "no.vcf").exists())
        self.assertIn(SECRET, self.orvo("show 2 --show-private --password-file -", stdin=None, input=f"{PASSWORD}\nmore"))

    def test_only_who_knows_the_password_sets_private_entries_free(self):
        self.set(MASKED | HIDDEN)
        self.guard()
        freeing = {"showing-private": "yes", "password-required": "no"}
        for name, value in freeing.items():
            self.refused(f"options --set {name} {value}")
        self.set({"alarm-set": "yes", "masking-private": "no"})  # nothing is seen by it
        self.set(freeing, self.known)
        self.assertIn(SECRET, self.orvo("addresses"))

    @contextlib.contextmanager
    def asked(self):
        """A command that waits at a terminal for the password, and the terminal's two ends."""
        master, terminal = pty.openpty()
        process = self.start("show 2 --show-private", stdin=terminal)
        self.addCleanup(process.kill)
        self.assertEqual(process.stderr.read(len("Password of private entries: ")), "Password of private entries: ")
        deadline = time.monotonic() + 60
        while termios.tcgetattr(terminal)[3] & termios.ECHO:
            self.assertIsNone(process.poll())
            self.assertLess(time.monotonic(), deadline, "what is typed is shown")
        yield process, master
        self.assertTrue(termios.tcgetattr(terminal)[3] & termios.ECHO)
        os.close(master)
        os.close(terminal)

    def test_the_terminal_is_asked_without_showing_the_password(self):
        self.guard()
        for typed, code in ((PASSWORD, 0), ("Coleridge", 2)):
            with self.asked() as (process, master):
                os.write(master, typed.encode() + b"\n")
                said, _ = process.communicate(timeout=120)
                self.assertEqual((process.returncode, SECRET in said), (code, code == 0))
                self.assertNotIn(typed.encode(), os.read(master, 1000))

    def test_a_terminal_shows_what_is_typed_again_after_an_end_by_a_signal(self):
        self.guard()
        with self.asked() as (process, _):
            process.send_signal(signal.SIGINT)
            process.communicate(timeout=120)
            self.assertEqual(process.returncode, -signal.SIGINT)

    def test_a_write_that_fails_leaves_the_password_on(self):
        self.guard()
        before = self.user_file.read_bytes()

        def full():
            resource.setrlimit(resource.RLIMIT_FSIZE, (0, resource.RLIM_INFINITY))
        self.assertIn("xtrauser.dat: can't be written", self.refused("options --set alarm-set yes", preexec_fn=full))
        self.assertEqual(self.user_file.read_bytes(), before)
        self.assertNotIn(SECRET, self.orvo("addresses"))

    def test_what_is_the_users_own_is_closed_to_others(self):
        def open_to_all():
            os.umask(0)
        own = self.folder / "own"
        self.environment |= {"XDG_CONFIG_HOME": str(own / "config"), "XDG_DATA_HOME": str(own / "data")}
        for command in ("options --set alarm-set yes", f"add --name {OPEN}"):
            self.orvo(command, store=None, preexec_fn=open_to_all)
        modes = {file.name: oct(file.stat().st_mode & 0o777) for file in own.rglob("*") if file.is_file()}
        self.assertLessEqual({"settings.ini", "xtrauser.dat", "orvo.db"}, set(modes))
        self.assertEqual(set(modes.values()), {"0o600"})


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
