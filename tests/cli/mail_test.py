#!/usr/bin/env python3
# Runs `orvo mail` on a desktop whose mail program is a script.
# SPDX-License-Identifier: MIT
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest
import urllib.parse

ORVO = str(pathlib.Path(sys.argv[1]).resolve())


class MailTest(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name)
        self.received = self.folder / "received"
        applications = self.folder / "data/applications"
        applications.mkdir(parents=True)
        composer = self.folder / "composer.sh"
        composer.write_text(f"#!/bin/sh\nprintf %s \"$1\" >'{self.received}'\n")
        composer.chmod(0o700)
        (applications / "composer.desktop").write_text(
            f"[Desktop Entry]\nType=Application\nName=Composer\nExec={composer} %u\n"
            "MimeType=x-scheme-handler/mailto;\n")
        (self.folder / "mimeapps.list").write_text(
            "[Default Applications]\nx-scheme-handler/mailto=composer.desktop\n")
        self.environment = {"PATH": os.environ["PATH"], "LC_ALL": "en_US.UTF-8", "DISPLAY": ":none",
                            "BROWSER": "no-such-browser", "XDG_CONFIG_HOME": str(self.folder),
                            "XDG_DATA_HOME": str(self.folder / "data"), "XDG_CURRENT_DESKTOP": "X-Generic"}

    def mail(self, *arguments, code=0):
        result = subprocess.run([ORVO, "--store", self.folder / "orvo.db", "mail", *arguments], capture_output=True,
                                timeout=120, env=self.environment, text=True)
        self.assertEqual(result.returncode, code, (arguments, result.stdout, result.stderr))
        return result.stderr

    def test_the_mail_program_gets_all_that_was_asked_for(self):
        card = self.folder / "Ann's card.vcf"
        card.write_text("BEGIN:VCARD\n")
        self.mail("--to", "ann@example.org", "--to", "bob@example.org", "--subject", "Grüße", "--body=-a\n$(b)",
                  "--attach", str(card))
        uri = urllib.parse.urlsplit(self.received.read_text())
        self.assertEqual((uri.scheme, uri.path), ("mailto", "ann@example.org,bob@example.org"))
        self.assertEqual(urllib.parse.parse_qs(uri.query),
                         {"subject": ["Grüße"], "body": ["-a\r\n$(b)"], "attach": [str(card)]})

    def test_what_is_wrong_is_told(self):
        for arguments, reason in ((["--to", "Ann"], "--to takes one mail address each time"),
                                  (["--attach", "missing"], "a file to attach isn't there"),
                                  (["--body", "x" * 100000 + "ä" * 10000],
                                   "the message is longer than the mail program can be given")):
            self.assertEqual(self.mail(*arguments, code=2), f"orvo: mail: {reason}\n")
        self.environment["XDG_DATA_HOME"] = str(self.folder)
        self.assertIn("orvo: mail: no mail program can be opened on this desktop\n", self.mail(code=2))
        self.environment["ORVO_MODULE_DIR"] = str(self.folder)
        self.assertEqual(self.mail(code=2), "orvo: mail: the mail library MAPI32.DLL isn't installed\n")
        self.assertFalse(self.received.exists())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
