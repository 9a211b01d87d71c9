#!/usr/bin/env python3
# Runs `orvo mail` on a desktop whose mail program is a script.
# SPDX-License-Identifier: MIT
import pathlib
import shutil
import sys
import unittest

from command import CommandTest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "support"))
from mail_program import MailProgram


class MailTest(CommandTest):
    def setUp(self):
        super().setUp()
        self.mailer = MailProgram(self.folder)
        self.environment |= {"DISPLAY": ":none", "TMPDIR": str(self.folder), **self.mailer.environment}

    def test_the_mail_program_gets_all_that_was_asked_for(self):
        card = self.file("Ann Lee.vcf", "BEGIN:VCARD\n")
        self.orvo("mail --to ann@example.org --to bob@example.org --subject Grüße", "--body=-a\n$(b)", "--attach", card)
        self.assertEqual(self.mailer.message(),
                         ("ann@example.org,bob@example.org",
                          {"subject": ["Grüße"], "body": ["-a\r\n$(b)"], "attach": [str(card)]}))

    def test_a_file_whose_name_says_more_to_a_mail_program_gets_a_plain_one(self):
        self.orvo("mail --attach", self.file("Bob',bcc='evil@x.org',body='hi.vcf", "BEGIN:VCARD\n"))
        attached = pathlib.Path(self.mailer.message()[1]["attach"][0])
        self.assertEqual(attached.name, "Bob_bcc_evil_x.org_body_hi.vcf")
        self.assertEqual(attached.read_text(), "BEGIN:VCARD\n")

    def test_what_stands_beside_the_prefix_is_not_run(self):
        built, program = pathlib.Path(self.program.program), self.folder / "prefix/bin/orvo"
        program.parent.mkdir(parents=True)
        shutil.copy(built, program)
        self.program.program = program
        beside, within = self.folder / "lib/orvoshare", self.folder / "prefix/lib/orvoshare"
        shutil.copytree(built.parent.parent / "lib/orvoshare", beside)
        self.assertIn("MAPI32.DLL isn't installed", self.refused("mail"))
        shutil.move(beside, within)
        within.chmod(0o777)
        self.assertEqual(self.refused("mail"),
                         f"orvo: mail: the mail library isn't loaded: {within} may be written by other users\n")
        self.assertFalse(self.mailer.received.exists())
        within.chmod(0o755)
        self.orvo("mail")

    def test_what_is_wrong_is_told(self):
        for option, value, reason in (("--to", "Ann", "a recipient isn't one mail address"),
                                      ("--attach", "missing", "a file to attach isn't there"),
                                      ("--body", "x" * 100000 + "ä" * 10000,
                                       "the message is longer than the mail program can be given")):
            self.assertEqual(self.refused("mail", option, value), f"orvo: mail: {reason}\n")
        self.environment["XDG_DATA_HOME"] = str(self.folder)
        self.orvo("mail", code=2)
        self.assertIn("orvo: mail: no mail program can be opened on this desktop\n", self.errors)
        self.environment["ORVO_MODULE_DIR"] = str(self.folder)
        self.assertEqual(self.refused("mail"), "orvo: mail: the mail library MAPI32.DLL isn't installed\n")
        self.assertFalse(self.mailer.received.exists())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
