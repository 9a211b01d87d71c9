#!/usr/bin/env python3
# Looks for texts of the program that a language lacks, and for a form in each language.
# SPDX-License-Identifier: MIT
import gettext
import pathlib
import subprocess
import sys
import tempfile
import unittest

from screen import Home, Screen, until
from views import opened

SOURCES = pathlib.Path(__file__).resolve().parent.parent.parent
LOCALES = {"de": "de-DE", "fr": "fr-FR", "ja": "ja-JP"}


class TranslationsTest(unittest.TestCase):
    def test_no_text_of_the_program_lacks_a_translation(self):
        with tempfile.NamedTemporaryFile() as template:
            subprocess.run([SOURCES / "scripts/texts", "--template", template.name], check=True)
            for language in LOCALES:
                texts = SOURCES / "lang/desktop" / f"{language}.po"
                with self.subTest(language):
                    compared = subprocess.run(["msgcmp", texts, template.name], capture_output=True, text=True)
                    self.assertEqual(compared.returncode, 0, compared.stderr)

    def test_a_form_speaks_the_language_of_its_user(self):
        with Home(sys.argv[2], sys.argv[1]) as home, Screen() as screen:
            for language, locale in LOCALES.items():
                title = self.title_in(language)
                with self.subTest(title), home.window(screen, "--locale", locale):
                    self.assertNotEqual(title, "New address")
                    self.open_form(screen, title)

    def test_the_language_of_the_options_is_spoken_from_the_next_start(self):
        with Home(sys.argv[2], sys.argv[1]) as home, Screen() as screen:
            with home.window(screen):
                screen.keys("ctrl+comma")
                screen.focus("Options")
                screen.keys("alt+l", "Down", "Down", "Return")  # behind "As the system" and English
                until("the options are kept", lambda: not screen.window("Options"))
            with home.window(screen):
                self.open_form(screen, self.title_in("de"))

    def open_form(self, screen, title):
        form = opened(screen, "the form", lambda: screen.keys("ctrl+n"))
        self.assertTrue(screen.xdotool("getwindowname", form).startswith(title))

    def title_in(self, language):
        """What the form of a new address is called."""
        folder = pathlib.Path(sys.argv[1]).resolve().parent.parent / "share/locale"
        return gettext.translation("orvo-desktop", folder, [language]).gettext("New address")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
