# The ground for tests of real windows: a home, a display of its own, keys, mouse, pictures, and an input method.
# SPDX-License-Identifier: MIT
import collections
import contextlib
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import time

SUPPORT = pathlib.Path(__file__).resolve().parents[1] / "support"
sys.path.append(str(SUPPORT))
from pace import pace  # noqa: E402

PATIENCE = 60  # seconds until what is awaited must be seen, on a machine that works at the usual pace
LONGEST = 900  # seconds that a program of a test may take; only one that hangs takes them
CARET_WIDTH = 4  # pixels, at most
NOTHING_FOUND = 1  # orvo's exit code
TITLE = "Orvo Desktop"
# A bus that starts no services of the machine.
BUS = ["dbus-daemon", f"--config-file={SUPPORT / 'session.conf'}", "--nofork", "--print-address"]
# Leaks of others, for a program that is built with the sanitizers.
LEAKS = pathlib.Path(__file__).resolve().parent / "leaks.supp"


def until(what, is_so):
    """Waits until is_so() gives something true, and returns that; AssertionError names `what` when it never does."""
    begin = time.monotonic()
    patience = PATIENCE
    while not (result := is_so()):
        if (waited := time.monotonic() - begin) > patience:
            patience = max(patience, PATIENCE * pace())  # a busy machine is given the time it needs
            if waited > patience:
                raise AssertionError(f"not seen within {patience:.0f} seconds: {what}")
        time.sleep(0.05)
    return result


@contextlib.contextmanager
def running(command, environment, stdout=None, stderr=subprocess.DEVNULL):
    """Runs a program as long as the block lasts."""
    program = subprocess.Popen([*map(str, command)], env=environment, stdout=stdout, stderr=stderr)
    try:
        yield program
    finally:
        program.kill()
        program.wait()
        if program.stdout:
            program.stdout.close()


@contextlib.contextmanager
def session_bus(environment):
    """A session bus as long as the block lasts; gives a program's environment for it."""
    with running(BUS, environment, stdout=subprocess.PIPE) as daemon:
        address = daemon.stdout.readline().decode().strip()
        assert address, "dbus-daemon doesn't start"
        yield {"DBUS_SESSION_BUS_ADDRESS": address}


class Picture(collections.namedtuple("Picture", "width height rgb")):
    """What was seen: three bytes a pixel, row by row."""

    @staticmethod
    def load(source, environment=None):
        """From any file or screen that ImageMagick's command `source` reads."""
        ppm = subprocess.run([*map(str, source), "-depth", "8", "ppm:-"], env=environment, capture_output=True,
                             check=True).stdout
        _, size, _, rgb = ppm.split(b"\n", 3)
        return Picture(*map(int, size.split()), rgb)

    @staticmethod
    def read(path):
        return Picture.load(["convert", path, "-alpha", "off"])

    def ppm(self):
        return b"P6\n%d %d\n255\n" % (self.width, self.height) + self.rgb

    def save(self, path):
        """Writes a file of the kind that its name tells, such as window.png."""
        subprocess.run(["convert", "ppm:-", path], input=self.ppm(), check=True)

    def is_blank(self):
        return self.rgb == self.rgb[:3] * (self.width * self.height)

    def pixel(self, x, y):
        place = 3 * (y * self.width + x)
        return self.rgb[place:place + 3]

    def changed_bands(self, before):
        """(left, top, right, bottom) of each run of rows that aren't as they were, right and bottom outside."""
        stride = 3 * self.width
        bands = []
        for y in range(self.height):
            now, then = (rgb[y * stride:(y + 1) * stride] for rgb in (self.rgb, before.rgb))
            if now == then:
                continue
            left = next(i for i in range(stride) if now[i] != then[i]) // 3
            right = next(i for i in reversed(range(stride)) if now[i] != then[i]) // 3 + 1
            top = y
            if bands and bands[-1][3] == y:
                other_left, top, other_right, _ = bands.pop()
                left, right = min(left, other_left), max(right, other_right)
            bands.append((left, top, right, y + 1))
        return bands

    def difference(self, reference):
        """How the worst place differs: 0 is not at all, 1 is black for white.

        Both are blurred and reduced to a quarter, so that the smoothing of letters' edges counts little."""
        if (self.width, self.height) != (reference.width, reference.height):
            return 1.0
        command = ["convert", "ppm:-", "-blur", "0x2", "-resize", "25%", "-metric", "PAE", "-compare", "-format",
                   "%[distortion]", "info:"]
        return float(subprocess.run(command, input=self.ppm() + reference.ppm(), capture_output=True,
                                    check=True).stdout)


class Screen:
    """A display without a window manager, as long as the block lasts; its environment is what programs need on it."""

    def __init__(self, width=1100, height=760):
        self.mode = f"{width}x{height}x24"
        self.environment = {"PATH": os.environ["PATH"]}

    def __enter__(self):
        with contextlib.ExitStack() as stack:
            # Without -noreset it starts anew when the last program leaves, and breaks with one that comes then.
            display = stack.enter_context(running(["Xvfb", "-noreset", "-displayfd", "1", "-screen", "0", self.mode],
                                                  os.environ, stdout=subprocess.PIPE))
            number = display.stdout.readline().decode().strip()
            assert number, "Xvfb doesn't start"
            self.environment["DISPLAY"] = ":" + number
            self.stack = stack.pop_all()
        return self

    def __exit__(self, *error):
        self.stack.close()

    def xdotool(self, *arguments):
        return subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, capture_output=True,
                              text=True).stdout

    def window(self, title):
        """The last window that shows and whose title holds the text; None before there is one."""
        found = self.xdotool("search", "--onlyvisible", "--name", title).split()
        return found[-1] if found else None

    def focus(self, title):
        """Waits for the window, and gives it the keys, as a window manager would."""
        def has_keys():
            window = self.window(title)
            return window if self.xdotool("windowfocus", window, "getwindowfocus").split() == [window] else None
        return until(f"{title!r} has the keys", has_keys)

    def leave(self):
        """Takes the keys away from all windows, so that no caret blinks."""
        root = self.xdotool("search", "--maxdepth", 0, ".*").split()[0]
        until("no window has the keys", lambda: self.xdotool("windowfocus", root, "getwindowfocus").split() == [root])

    def keys(self, *names):
        """Presses keys by their names, such as Return or ctrl+c."""
        self.xdotool("key", *names)

    def type(self, text):
        """Types characters that keys of the keyboard bear; others go by way of copy()."""
        self.xdotool("type", text)

    def move(self, x, y):
        self.xdotool("mousemove", x, y)

    def click(self, x, y, button=1):
        self.xdotool("mousemove", x, y, "click", button)

    def drag(self, *places):
        """Presses the button at the first place, moves over the others, and releases it at the last."""
        moves = [word for x, y in places for word in ("mousemove", x, y)]
        self.xdotool(*moves[:3], "mousedown", 1, *moves[3:], "mouseup", 1)

    def picture(self, window="root"):
        return Picture.load(["import", "-window", window], self.environment)

    def change(self, before):
        """Width and height of all that isn't as it was in the picture."""
        lefts, tops, rights, bottoms = zip(*self.picture().changed_bands(before) or [(0, 0, 0, 0)])
        return max(rights) - min(lefts), max(bottoms) - min(tops)

    def after(self, what, action):
        """Does it, and waits until the screen shows more of a change than a blinking caret."""
        before = self.picture()
        action()
        until(what, lambda: self.change(before)[0] > CARET_WIDTH)

    def at_rest(self):
        """The picture, once two in a row are the same."""
        seen = [self.picture()]

        def is_same():
            seen.append(self.picture())
            return seen[-1] == seen[-2]
        until("the screen is at rest", is_same)
        return seen[-1]

    def copy(self, text):
        """Puts the text where a program's Paste takes it from."""
        subprocess.run(["xclip", "-selection", "clipboard"], input=text.encode(), env=self.environment, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)  # it stays until the display ends

    def clipboard(self):
        """The text that was copied last; empty before there is one."""
        return subprocess.run(["xclip", "-o", "-selection", "clipboard"], env=self.environment, capture_output=True,
                              timeout=LONGEST).stdout.decode()


class Home:
    """A home and a session bus of its own with a store in it, as long as the block lasts, and the two programs."""

    def __init__(self, orvo, desktop):
        self.programs = {"orvo": pathlib.Path(orvo).resolve(), "orvo-desktop": pathlib.Path(desktop).resolve()}

    def __enter__(self):
        self.scratch = tempfile.TemporaryDirectory()
        self.folder = pathlib.Path(self.scratch.name)
        self.store = self.folder / "orvo.db"
        (self.folder / "run").mkdir(mode=0o700)
        folders = {f"XDG_{name}": str(self.folder / folder)
                   for name, folder in (("CONFIG_HOME", "config"), ("DATA_HOME", "data"), ("CACHE_HOME", "cache"),
                                        ("STATE_HOME", "state"), ("RUNTIME_DIR", "run"))}
        self.environment = {"PATH": os.environ["PATH"], "LC_ALL": "en_US.UTF-8", "HOME": str(self.folder), **folders,
                            "FONTCONFIG_FILE": str(SUPPORT / "fonts.conf"),
                            "LSAN_OPTIONS": f"suppressions={LEAKS}:print_suppressions=0"}
        with contextlib.ExitStack() as stack:
            stack.callback(self.scratch.cleanup)
            self.environment |= stack.enter_context(session_bus(self.environment))
            self.stack = stack.pop_all()
        return self

    def __exit__(self, *error):
        self.stack.close()

    def orvo(self, *arguments):
        """What orvo prints; an error where it fails."""
        return subprocess.run([self.programs["orvo"], "--store", self.store, *arguments], capture_output=True,
                              check=True, text=True, env=self.environment).stdout

    def rows(self, *arguments):
        """What orvo --json prints, an object a line; none where it finds nothing."""
        try:
            return [json.loads(line) for line in self.orvo("--json", *arguments).splitlines()]
        except subprocess.CalledProcessError as error:
            if error.returncode != NOTHING_FOUND:
                raise
            return []

    def desktop(self, *arguments):
        """Runs orvo-desktop to its end."""
        return subprocess.run([self.programs["orvo-desktop"], "--store", self.store, *arguments], capture_output=True,
                              text=True, timeout=LONGEST, env=self.environment)

    @contextlib.contextmanager
    def window(self, screen, *arguments, **environment):
        """Runs orvo-desktop on the screen as long as the block lasts; its window shows and has the keys."""
        command = [self.programs["orvo-desktop"], "--store", self.store, *arguments]
        # What it says on standard error stands in the test's output, too.
        with open(self.folder / "stderr", "w+") as messages, contextlib.ExitStack() as stack:
            stack.callback(lambda: sys.stderr.write(self.said()))
            program = stack.enter_context(running(command, {**self.environment, **screen.environment, **environment},
                                                  stderr=messages))
            until("the window", lambda: screen.window(TITLE) or program.poll() is not None)
            assert program.poll() is None, f"orvo-desktop ends with {program.returncode}"
            window = screen.focus(TITLE)
            until("the window is drawn", lambda: not screen.picture(window).is_blank())
            yield program

    def said(self):
        """What the last window said on standard error so far."""
        return (self.folder / "stderr").read_text()


@contextlib.contextmanager
def japanese_input(home, screen):
    """An input method on the screen that turns Latin keys into kana and kanji; gives a program's environment for it."""
    settings = home.folder / "config" / "fcitx5"
    settings.mkdir(parents=True)
    (settings / "profile").write_text("[Groups/0]\nName=Default\nDefault Layout=us\nDefaultIM=anthy\n"
                                      "[Groups/0/Items/0]\nName=anthy\n[GroupOrder]\n0=Default\n")
    environment = {**home.environment, **screen.environment}
    with running(["fcitx5", "--disable=wayland,waylandim,notifications"], environment):
        yield {"QT_IM_MODULE": "fcitx"}


def composes_japanese(home, screen):
    """True when what has the keys is served by japanese_input."""
    asked = subprocess.run(["fcitx5-remote", "-n"], env={**home.environment, **screen.environment}, capture_output=True)
    return asked.stdout.strip() == b"anthy"
