#!/usr/bin/env python3
# Runs `orvo mail` on a desktop whose mail program is a script.
# SPDX-License-Identifier: MIT
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "support"))
from mail_program import MailProgram

ORVO = str(pathlib.Path(sys.argv[1]).resolve())


class MailTest(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name)
        self.program = MailProgram(self.folder)
        self.environment = {"PATH": os.environ["PATH"], "LC_ALL": "en_US.UTF-8", "DISPLAY": ":none",
                            **self.program.environment}

    def mail(self, *arguments, code=0):
        result = subprocess.run([ORVO, "--store", self.folder / "orvo.db", "mail", *arguments], capture_output=True,
                                env=self.environment, text=True)
        self.assertEqual(result.returncode, code, (arguments, result.stdout, result.stderr))
        return result.stderr

    def test_the_mail_program_gets_all_that_was_asked_for(self):
        card = self.folder / "Ann's card.vcf"
        card.write_text("BEGIN:VCARD\n")
        self.mail("--to", "ann@example.org", "--to", "bob@example.org", "--subject", "Grüße", "--body=-a\n$(b)",
                  "--attach", str(card))
        self.assertEqual(self.program.message(),
                         ("ann@example.org,bob@example.org",
                          {"subject": ["Grüße"], "body": ["-a\r\n$(b)"], "attach": [str(card)]}))

    def test_what_is_wrong_is_told(self):
        for arguments, reason in ((["--to", "Ann"], "a recipient isn't one mail address"),
                                  (["--attach", "missing"], "a file to attach isn't there"),
                                  (["--body", "x" * 100000 + "ä" * 10000],
                                   "the message is longer than the mail program can be given")):
            self.assertEqual(self.mail(*arguments, code=2), f"orvo: mail: {reason}\n")
        self.environment["XDG_DATA_HOME"] = str(self.folder)
        self.assertIn("orvo: mail: no mail program can be opened on this desktop\n", self.mail(code=2))
        self.environment["ORVO_MODULE_DIR"] = str(self.folder)
        self.assertEqual(self.mail(code=2), "orvo: mail: the mail library MAPI32.DLL isn't installed\n")
        self.assertFalse(self.program.received.exists())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
