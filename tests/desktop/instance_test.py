#!/usr/bin/env python3
# Starts the program more than once on one session bus: a store has one window, which does what later starts are asked.
# SPDX-License-Identifier: MIT
import contextlib
import signal
import subprocess

from case import DesktopCase, main
from screen import LONGEST, TITLE, running, until

NAME = "org.orvoshare.OrvoDesktop"
CARD = "BEGIN:VCARD\nVERSION:3.0\nN:Adams;;;;\nFN:Adams\nEND:VCARD\n"
HARD_NAME = "two\nlines 100%25, a#b?c&d 住所録.vcf"


class InstanceTest(DesktopCase):
    def start_again(self, *arguments, store=None, folder=None):
        """Runs a start that is to end by itself."""
        command = [self.home.programs["orvo-desktop"], "--store", store or self.home.store, *arguments]
        return subprocess.run(command, capture_output=True, text=True, timeout=LONGEST, cwd=folder,
                              env=self.environment())

    @contextlib.contextmanager
    def other_window(self):
        """A window of another store, in front of what shows already, as long as the block lasts."""
        command = [self.home.programs["orvo-desktop"], "--store", self.home.folder / "other.db"]
        before = len(self.windows())
        with running(command, self.environment()) as program:
            until("one more window", lambda: len(self.windows()) > before)
            yield program

    def assertAnswers(self, again):
        self.assertEqual((again.returncode, again.stderr), (0, ""))

    def windows(self):
        return self.screen.xdotool("search", "--onlyvisible", "--name", TITLE).split()

    def test_a_second_start_raises_the_window_and_hands_its_files_over(self):
        with self.window(), self.other_window():
            window, other = self.windows()  # the last is in front
            self.assertAnswers(self.start_again(self.file("ada.vcf", CARD)))
            self.until_names("Adams")
            until("the window is in front", lambda: self.windows() == [other, window])

    def test_a_relative_and_hard_file_name_arrives(self):
        with self.window():
            self.assertAnswers(self.start_again(HARD_NAME, folder=self.file(f"other folder/{HARD_NAME}", CARD).parent))
            self.until_names("Adams")

    def test_a_second_start_chooses_the_view(self):
        self.home.orvo("import", self.file("ada.vcf", CARD))
        with self.window("--view", "cards"):
            cards = self.screen.at_rest()
        with self.window("--view", "list"):
            self.assertGreater(self.screen.at_rest().difference(cards), 0.2)
            self.assertEqual(self.start_again("--view", "cards").returncode, 0)
            until("the cards are shown", lambda: self.screen.picture().difference(cards) < 0.05)

    def test_the_same_store_by_another_path_is_the_same_window(self):
        link = self.home.folder / "link.db"
        with self.window():
            link.symlink_to(self.home.store)
            self.assertAnswers(self.start_again(store=link))
            self.assertEqual(len(self.windows()), 1)

    def test_after_a_kill_the_next_start_has_the_window(self):
        with self.window() as first:
            first.kill()
            first.wait()
        with self.window(self.file("ada.vcf", CARD)):
            self.until_names("Adams")

    def test_one_that_hangs_is_told_of(self):
        with self.window() as first:
            first.send_signal(signal.SIGSTOP)
            again = self.start_again(self.file("ada.vcf", CARD))
            self.assertEqual(again.returncode, 2)
            self.assertRegex(again.stderr, r"\Aorvo-desktop: the program that shows this store .* doesn't answer.*\n\Z")

    def test_a_desktop_finds_the_users_own_store_by_the_known_name(self):
        self.home.store = self.home.folder / "data" / "orvo" / "orvo.db"
        with running([self.home.programs["orvo-desktop"]], self.environment()):
            until("the window", self.windows)
            uri = self.file("ada.vcf", CARD).as_uri()
            until("the call is answered", lambda: subprocess.run(
                ["gdbus", "call", "--session", "--dest", NAME, "--object-path", "/" + NAME.replace(".", "/"),
                 "--method", "org.freedesktop.Application.Open", f"['{uri}']", "{}"],
                env=self.environment(), capture_output=True).returncode == 0)
            self.until_names("Adams")

    def test_without_a_bus_it_starts_all_the_same(self):
        self.home.environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={self.home.folder}/none"
        with self.window():
            self.assertEqual(len(self.windows()), 1)

    def test_a_picture_is_no_matter_of_the_window(self):
        with self.window():
            self.drawn()


if __name__ == "__main__":
    main()
