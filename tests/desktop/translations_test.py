#!/usr/bin/env python3
# Looks for texts of the program that a language lacks, and for a form in each language.
# SPDX-License-Identifier: MIT
import gettext
import pathlib
import subprocess
import sys

from case import DesktopCase, main
from views import close, dialog, opened

SOURCES = pathlib.Path(__file__).resolve().parent.parent.parent
LOCALES = {"de": "de-DE", "fr": "fr-FR", "ja": "ja-JP"}


class TranslationsTest(DesktopCase):
    def test_no_text_of_the_program_lacks_a_translation(self):
        template = self.home.folder / "texts.pot"
        subprocess.run([SOURCES / "scripts/texts", "--template", template], check=True)
        for language in LOCALES:
            with self.subTest(language):
                texts = SOURCES / "lang/desktop" / f"{language}.po"
                compared = subprocess.run(["msgcmp", texts, template], capture_output=True, text=True)
                self.assertEqual(compared.returncode, 0, compared.stderr)

    def test_a_form_speaks_the_language_of_its_user(self):
        for language, locale in LOCALES.items():
            with self.subTest(language), self.window("--locale", locale):
                self.assertNotEqual(self.title_in(language), "New address")
                self.open_form(language)

    def test_the_language_of_the_options_is_spoken_from_the_next_start(self):
        with self.window():
            options = dialog(self.screen, "ctrl+comma")
            close(self.screen, options, "alt+l", "Down", "Down", "Return")  # behind "As the system" and English
        with self.window():
            self.open_form("de")

    def open_form(self, language):
        form = opened(self.screen, "the form", lambda: self.screen.keys("ctrl+n"))
        self.assertTrue(self.screen.xdotool("getwindowname", form).startswith(self.title_in(language)))

    def title_in(self, language):
        """What the form of a new address is called."""
        folder = pathlib.Path(sys.argv[1]).resolve().parent.parent / "share/locale"
        return gettext.translation("orvo-desktop", folder, [language]).gettext("New address")


if __name__ == "__main__":
    main()
