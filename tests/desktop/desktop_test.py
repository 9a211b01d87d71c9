#!/usr/bin/env python3
# Runs orvo-desktop as a user does: on a display with keys and mouse, and without one.
# SPDX-License-Identifier: MIT
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import time
import unittest

DESKTOP = str(pathlib.Path(sys.argv[1]).resolve())
ORVO = str(pathlib.Path(sys.argv[2]).resolve())
# Leaks of others, for a program that is built with the sanitizers.
LEAKS = pathlib.Path(__file__).resolve().parent / "leaks.supp"
# Where the first row's Category cell stands on the screen, in the default heading.
CATEGORY_OF_FIRST_ROW = (600, 135)
PATIENCE = 60  # seconds until a change must be seen


class DesktopTest(unittest.TestCase):
    def setUp(self):
        self.scratch = tempfile.TemporaryDirectory()
        self.folder = pathlib.Path(self.scratch.name)
        self.store = self.folder / "orvo.db"
        (self.folder / "run").mkdir(mode=0o700)
        self.environment = {"PATH": os.environ["PATH"], "LC_ALL": "en_US.UTF-8", "HOME": str(self.folder),
                            "XDG_CONFIG_HOME": str(self.folder / "config"), "XDG_RUNTIME_DIR": str(self.folder / "run"),
                            "LSAN_OPTIONS": f"suppressions={LEAKS}:print_suppressions=0"}
        for name, category in (("Adams", "Friends"), ("Baker", "Work"), ("Carter", "Friends")):
            self.orvo("add", "--name", name, "--category", category)

    def tearDown(self):
        self.scratch.cleanup()

    def orvo(self, *arguments):
        return subprocess.run([ORVO, "--store", self.store, *arguments], capture_output=True, check=True, text=True,
                              env=self.environment).stdout

    def desktop(self, *arguments):
        return subprocess.run([DESKTOP, "--store", self.store, *arguments], capture_output=True, text=True, timeout=120,
                              env=self.environment)

    def colours(self, picture):
        return int(subprocess.run(["identify", "-format", "%k", picture], capture_output=True, check=True).stdout)

    def test_a_picture_needs_no_display(self):
        picture = self.folder / "window.png"
        self.assertEqual(self.desktop("--picture", picture).returncode, 0)
        self.assertGreater(self.colours(picture), 50)
        self.assertFalse((self.folder / "config").exists(), "a picture saves no settings")
        result = self.desktop("--picture", self.folder / "missing" / "window.png")
        self.assertEqual(result.returncode, 2)
        self.assertIn("the picture can't be written", result.stderr)

    def test_what_cannot_be_opened_is_told_in_one_line(self):
        result = self.desktop()
        self.assertEqual((result.returncode, result.stderr.count("\n")), (2, 1), result.stderr)
        self.assertIn("no display", result.stderr)
        self.store.write_text("not a store")
        result = self.desktop("--picture", self.folder / "window.png")
        self.assertEqual((result.returncode, result.stderr.count("\n")), (2, 1), result.stderr)
        self.assertEqual(self.desktop("--locale", "no such tag").returncode, 2)

    def until(self, what, is_so):
        end = time.monotonic() + PATIENCE
        while not is_so():
            self.assertLess(time.monotonic(), end, what)
            time.sleep(0.1)

    def test_keys_and_mouse_reach_the_list(self):
        display = subprocess.Popen(["Xvfb", "-displayfd", "1", "-screen", "0", "1100x760x24"], stdout=subprocess.PIPE,
                                   stderr=subprocess.DEVNULL, text=True)
        self.environment["DISPLAY"] = ":" + display.stdout.readline().strip()
        program = subprocess.Popen([DESKTOP, "--store", self.store], env=self.environment, stderr=subprocess.DEVNULL)
        try:
            self.use_the_window(program)
        finally:
            program.kill()
            program.wait()
            display.kill()
            display.wait()
            display.stdout.close()

    def use_the_window(self, program):
        def xdotool(*arguments):
            return subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, capture_output=True, text=True)

        def screen():
            return subprocess.run(["import", "-window", "root", "rgb:-"], env=self.environment, capture_output=True).stdout

        def categories():
            return [json.loads(line)["category"] for line in self.orvo("--json", "addresses").splitlines()]

        self.until("the window comes up", lambda: xdotool("search", "--name", "Orvo Desktop").stdout)
        before = screen()
        xdotool("type", "car")
        self.until("typing moves the selection", lambda: screen() != before)

        xdotool("mousemove", *CATEGORY_OF_FIRST_ROW)
        before = screen()
        xdotool("click", 1)
        self.until("a menu opens", lambda: screen() != before)

        def choose_work():
            xdotool("key", "Escape")
            xdotool("click", 1)
            xdotool("key", "Down", "Down", "Down", "Return")
            return categories() == ["Work", "Work", "Friends"]
        self.until("the choice is stored", choose_work)
        self.assertIsNone(program.poll())

        # The right edge of the Name column, dragged to the right.
        xdotool("mousemove", 259, 115)
        before = screen()
        xdotool("mousedown", 1, "mousemove", 280, 115, "mousemove", 300, 115, "mouseup", 1)
        self.until("the column grows", lambda: screen() != before)
        self.until("the drag has ended", lambda: (lambda shown: screen() == shown)(screen()))
        program.terminate()
        self.assertEqual(program.wait(PATIENCE), 0)
        self.assertRegex(self.orvo("heading"), r"\(6\) 0 22\d ")


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0]])
