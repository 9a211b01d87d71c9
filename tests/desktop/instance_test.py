#!/usr/bin/env python3
# Starts the program more than once on one session bus: a store has one window, which does what later starts are asked.
# SPDX-License-Identifier: MIT
import contextlib
import signal
import subprocess
import sys
import unittest

from screen import LONGEST, TITLE, Home, Screen, running, until

NAME = "org.orvoshare.OrvoDesktop"
CARD = "BEGIN:VCARD\nVERSION:3.0\nN:{0};;;;\nFN:{0}\nEND:VCARD\n"
HARD_NAMES = ("two words.vcf", "Jürgen Müller.vcf", "100%25.vcf", "two\nlines.vcf", "a#b?c&d.vcf", "住所録.vcf")


class InstanceTest(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(Home(sys.argv[2], sys.argv[1]))
        self.screen = self.enterContext(Screen())

    def window(self, *arguments):
        return self.home.window(self.screen, *arguments)

    def start_again(self, *arguments, store=None, folder=None):
        """Runs a start that is to end by itself."""
        command = [self.home.programs["orvo-desktop"], "--store", store or self.home.store, *arguments]
        return subprocess.run(command, capture_output=True, text=True, timeout=LONGEST, cwd=folder,
                              env={**self.home.environment, **self.screen.environment})

    @contextlib.contextmanager
    def other_window(self):
        """A window of another store, in front of what shows already, as long as the block lasts."""
        command = [self.home.programs["orvo-desktop"], "--store", self.home.folder / "other.db"]
        before = len(self.windows())
        with running(command, {**self.home.environment, **self.screen.environment}) as program:
            until("one more window", lambda: len(self.windows()) > before)
            yield program

    def names(self):
        return sorted(row["name"] for row in self.home.rows("addresses"))

    def windows(self):
        return self.screen.xdotool("search", "--onlyvisible", "--name", TITLE).split()

    def file(self, name, person, folder="."):
        path = self.home.folder / folder / name
        path.parent.mkdir(exist_ok=True)
        path.write_text(CARD.format(person))
        return path

    def test_a_second_start_raises_the_window_and_hands_its_files_over(self):
        with self.window(), self.other_window():
            window, other = self.windows()  # the last is in front
            again = self.start_again(self.file("ada.vcf", "Adams"))
            self.assertEqual((again.returncode, again.stderr), (0, ""))
            until("the file is imported", lambda: self.names() == ["Adams"])
            until("the window is in front", lambda: self.windows() == [other, window])

    def test_relative_and_hard_file_names_arrive(self):
        with self.window():
            for number, name in enumerate(HARD_NAMES):
                folder = self.file(name, f"Person {number}", "other folder").parent
                again = self.start_again(name, folder=folder)
                self.assertEqual((again.returncode, again.stderr), (0, ""), name)
                until(f"{name!r} is imported", lambda: len(self.names()) == number + 1)

    def test_a_second_start_chooses_the_view(self):
        self.home.orvo("import", self.file("ada.vcf", "Adams"))
        with self.window("--view", "cards"):
            cards = self.screen.at_rest()
        with self.window("--view", "list"):
            self.assertGreater(self.screen.at_rest().difference(cards).worst, 0.2)
            self.assertEqual(self.start_again("--view", "cards").returncode, 0)
            until("the cards are shown", lambda: self.screen.picture().difference(cards).worst < 0.05)

    def test_the_same_store_by_another_path_is_the_same_window(self):
        link = self.home.folder / "link.db"
        with self.window():
            link.symlink_to(self.home.store)
            again = self.start_again(store=link)
            self.assertEqual((again.returncode, again.stderr), (0, ""))
            self.assertEqual(len(self.windows()), 1)

    def test_another_store_has_a_window_of_its_own(self):
        with self.window(), self.other_window() as program:
            self.assertIsNone(program.poll())

    def test_after_a_kill_the_next_start_has_the_window(self):
        with self.window() as first:
            first.kill()
            first.wait()
        with self.window(self.file("ada.vcf", "Adams")):
            until("the file is imported", lambda: self.names() == ["Adams"])

    def test_one_that_hangs_is_told_of(self):
        with self.window() as first:
            first.send_signal(signal.SIGSTOP)
            again = self.start_again(self.file("ada.vcf", "Adams"))
            self.assertEqual(again.returncode, 2)
            self.assertRegex(again.stderr, r"\Aorvo-desktop: the program that shows this store .* doesn't answer.*\n\Z")

    def test_a_desktop_finds_the_users_own_store_by_the_known_name(self):
        environment = {**self.home.environment, **self.screen.environment}
        with running([self.home.programs["orvo-desktop"]], environment):
            until("the window", self.windows)
            uri = self.file("ada.vcf", "Adams").as_uri()
            until("the call is answered", lambda: subprocess.run(
                ["gdbus", "call", "--address", self.home.environment["DBUS_SESSION_BUS_ADDRESS"], "--dest", NAME, "--object-path",
                 "/" + NAME.replace(".", "/"), "--method", "org.freedesktop.Application.Open", f"['{uri}']", "{}"],
                env=environment, capture_output=True).returncode == 0)
            self.home.store = self.home.folder / "data" / "orvo" / "orvo.db"
            until("the file is imported", lambda: self.names() == ["Adams"])

    def test_without_a_bus_it_starts_all_the_same(self):
        self.home.environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={self.home.folder}/none"
        with self.window():
            self.assertEqual(len(self.windows()), 1)

    def test_a_picture_is_no_matter_of_the_window(self):
        picture = self.home.folder / "window.png"
        with self.window():
            again = self.start_again("--picture", picture)
            self.assertEqual(again.returncode, 0)
            self.assertTrue(picture.exists())


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
