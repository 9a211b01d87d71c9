#!/usr/bin/env python3
# Runs `orvo mail` on a desktop whose mail program is a script.
# SPDX-License-Identifier: MIT
import os
import pathlib
import shutil
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
                            "TMPDIR": scratch.name, **self.program.environment}

    def mail(self, *arguments, code=0, program=ORVO):
        result = subprocess.run([program, "--store", self.folder / "orvo.db", "mail", *arguments], capture_output=True,
                                env=self.environment, text=True)
        self.assertEqual(result.returncode, code, (arguments, result.stdout, result.stderr))
        return result.stderr

    def test_the_mail_program_gets_all_that_was_asked_for(self):
        card = self.folder / "Ann Lee.vcf"
        card.write_text("BEGIN:VCARD\n")
        self.mail("--to", "ann@example.org", "--to", "bob@example.org", "--subject", "Grüße", "--body=-a\n$(b)",
                  "--attach", str(card))
        self.assertEqual(self.program.message(),
                         ("ann@example.org,bob@example.org",
                          {"subject": ["Grüße"], "body": ["-a\r\n$(b)"], "attach": [str(card)]}))

    def test_a_file_whose_name_says_more_to_a_mail_program_gets_a_plain_one(self):
        card = self.folder / "Bob',bcc='evil@x.org',body='hi.vcf"
        card.write_text("BEGIN:VCARD\n")
        self.mail("--attach", str(card))
        attached = pathlib.Path(self.program.message()[1]["attach"][0])
        self.assertEqual(attached.name, "Bob_bcc_evil_x.org_body_hi.vcf")
        self.assertEqual(attached.read_text(), "BEGIN:VCARD\n")

    def test_what_stands_beside_the_prefix_is_not_run(self):
        program = self.folder / "prefix/bin/orvo"
        program.parent.mkdir(parents=True)
        shutil.copy(ORVO, program)
        beside, within = self.folder / "lib/orvoshare", self.folder / "prefix/lib/orvoshare"
        shutil.copytree(pathlib.Path(ORVO).parent.parent / "lib/orvoshare", beside)
        self.assertIn("MAPI32.DLL isn't installed", self.mail(code=2, program=program))
        shutil.move(beside, within)
        within.chmod(0o777)
        self.assertEqual(self.mail(code=2, program=program),
                         f"orvo: mail: the mail library isn't loaded: {within} may be written by other users\n")
        self.assertFalse(self.program.received.exists())
        within.chmod(0o755)
        self.mail(program=program)

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
