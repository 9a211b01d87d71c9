#!/usr/bin/env python3
# Makes the pictures of the guide anew, with the program itself: docs/pictures/make.py ORVO-DESKTOP ORVO.
# SPDX-License-Identifier: MIT
import pathlib
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
sys.dont_write_bytecode = True
sys.path.insert(0, str(ROOT / "tests/desktop"))
from screen import Home, Picture, Screen, until
from views import opened

SAMPLES = [str(ROOT / "samples" / name) for name in ("friends.vcf", "office.vcf", "world.vcf", "duties.ics")]
NOW = ("--now", "2026-11-25T10:00")
SIZE = ("--size", "900x560")
# Drawn without a display: what the window shows.
VIEWS = {"list": (), "cards-dark": ("--view", "cards", "--colours", "dark"), "todos": ("--view", "todos")}
JAPANESE = {"japanese": ("--locale", "ja-JP")}
# Somebody who is there already.
DUPLICATE = ("add", "--name", "Lee", "--first", "Ann", "--company", "Acme Limited", "--phone1", "+1 617 555 0177",
             "--city", "Boston")
# A window that opens by keys: the keys, one after the other.
WINDOWS = {"address-form": (("Down",), ("Return",)), "todo-form": (("ctrl+5",), ("Down",), ("ctrl+o",)),
           "category": (("Down",), ("ctrl+a",), ("ctrl+k",)), "print-preview": (("alt+f", "v"),),
           "options": (("ctrl+comma",),), "duplicates": (("alt+a", "d"),)}


def save(picture, name):
    """With a palette, which keeps a picture of a window small and sharp."""
    file = HERE / f"{name}.png"
    picture.save(file)
    subprocess.run(["mogrify", "-strip", "-colors", "255", f"png8:{file}"], check=True)


def draw(home, views):
    for name, arguments in views.items():
        file = home.folder / "view.png"
        home.desktop("--picture", str(file), *NOW, *SIZE, *arguments).check_returncode()
        save(Picture.read(file), name)


def main():
    with Home(sys.argv[2], sys.argv[1]) as home, Screen() as screen:
        home.orvo("import", str(ROOT / "samples/japan.vcf"))
        draw(home, JAPANESE)
    with Home(sys.argv[2], sys.argv[1]) as home, Screen() as screen:
        home.orvo("import", *SAMPLES)
        draw(home, VIEWS)
        home.orvo(*DUPLICATE)
        for name, steps in WINDOWS.items():
            with home.window(screen, *NOW, *SIZE):
                for keys in steps[:-1]:
                    screen.keys(*keys)
                    screen.at_rest()
                window = opened(screen, name, lambda: screen.keys(*steps[-1]))
                until("it is drawn", lambda: not screen.picture(window).is_blank())
                screen.at_rest()
                save(screen.picture(window), name)


main()
