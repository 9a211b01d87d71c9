#!/usr/bin/env python3
# Runs orvo as a user does: commands, what they print, and their exit codes.
# SPDX-License-Identifier: MIT
import json
import os
import pathlib
import re
import signal
import sqlite3
import subprocess
import sys
import tempfile
import time
import unittest

ORVO = str(pathlib.Path(sys.argv[1]).resolve())
SAMPLES = sorted(str(path) for path in pathlib.Path(sys.argv[2]).resolve().iterdir())
STORES = pathlib.Path(__file__).resolve().parents[1] / "libraries/quire/stores"


def card(name, first="", extra=""):
    return f"BEGIN:VCARD\r\nVERSION:3.0\r\nN:{name};{first};;;\r\n{extra}END:VCARD\r\n"


class OrvoTest(unittest.TestCase):
    def setUp(self):
        self.scratch = tempfile.TemporaryDirectory()
        self.folder = pathlib.Path(self.scratch.name)
        self.store = self.folder / "orvo.db"

    def tearDown(self):
        self.scratch.cleanup()

    def run_orvo(self, *arguments, environment=None):
        return subprocess.run([ORVO, *map(str, arguments)], capture_output=True,
                              env={"PATH": os.environ["PATH"], "LC_ALL": "en_US.UTF-8",
                                   "XDG_CONFIG_HOME": str(self.folder / "config"), **(environment or {})})

    def orvo(self, *arguments, code=0):
        result = self.run_orvo("--store", self.store, *arguments)
        self.assertEqual(result.returncode, code, (arguments, result.stdout, result.stderr))
        self.errors = result.stderr.decode()
        return result.stdout.decode()

    def rows(self, *arguments, code=0):
        return [json.loads(line) for line in self.orvo("--json", *arguments, code=code).splitlines()]

    def file(self, name, content):
        path = self.folder / name
        path.write_bytes(content if isinstance(content, bytes) else content.encode())
        return path

    def test_samples_become_a_sorted_list(self):
        self.assertIn("imported 65 addresses, 30 to-dos, 0 skipped", self.orvo("import", *SAMPLES))
        formatted = [row["formatted"] for row in self.rows("addresses")]
        self.assertEqual(formatted[:5], ["24-Hour Locksmith", "Åkesson, Örjan", "Bakker, Femke", "Brown, Rosalind",
                                         "Brown, Rosalind"])
        self.assertIn("Bakker, Femke", self.orvo("lookup", "bak"), "the README's example")
        self.assertEqual(formatted[-3:], ["阿部, 花子", "陳, 美玲", "髙橋, 誠"])
        japanese = self.rows("--locale", "ja-JP", "addresses")
        self.assertEqual([row["formatted"] for row in japanese if row["nameYomi"]],
                         ["阿部 花子", "小林 大輔", "佐藤 由美", "鈴木 美咲", "髙橋 誠", "松本 直美", "山田 太郎", "𠮷田 陽子", "渡辺 健"])
        self.assertEqual([row["company"] for row in self.rows("addresses", "--category", "Health")],
                         ["Corner Pharmacy", "Riverside Dental Practice"])

    def test_json_rows_have_the_promised_keys(self):
        self.orvo("import", self.file("a.vcf", card("Lee", "Ann", "ORG:Acme\r\nCATEGORIES:Friends\r\n")))
        self.assertEqual(self.rows("addresses"), [
            {"row": 0, "id": 1, "name": "Lee", "first": "Ann", "company": "Acme", "nameYomi": "", "firstYomi": "",
             "companyYomi": "", "formatted": "Lee, Ann", "category": "Friends", "private": False,
             "cells": {"0": "Lee, Ann", "2": "Acme", "7": "", "3": "Friends", "5": False, "4": False}}])

    def test_private_rows_are_hidden_or_masked(self):
        self.orvo("import", self.file("a.vcf", card("Open") + card("Secret", "", "CLASS:PRIVATE\r\n")))
        self.assertEqual(len(self.rows("addresses", "--hide-private")), 1)
        masked = self.rows("addresses", "--mask-private")
        self.assertEqual(masked[1], {"row": 1, "id": 2, "private": True, "masked": True})
        self.assertNotIn("Secret", self.orvo("addresses", "--mask-private"))

    def test_texts_of_the_table_come_in_the_language_of_the_locale(self):
        self.orvo("add", "--name", "Secret", "--private", "yes")
        self.orvo("add", "--name", "Open")
        self.orvo("add", "--name", "Filed", "--category", "Friends")
        for locale, private, category in (("en-US", "(Private)", "Uncategorized"), ("de-DE", "(Privat)", "Ohne Kategorie"),
                                          ("fr-CA", "(Privé)", "Sans catégorie"), ("ja-JP", "(非公開)", "未分類"),
                                          ("es-ES", "(Private)", "Uncategorized")):
            table = self.orvo("--locale", locale, "addresses", "--mask-private")
            for text in (private, category, "Friends"):
                self.assertEqual(table.count(text), 1, (locale, table))
        self.assertEqual([row["category"] for row in self.rows("--locale", "de-DE", "addresses")],
                         ["Friends", "Uncategorized", "Uncategorized"])
        without = self.run_orvo("--store", self.store, "--locale", "de-DE", "addresses", "--mask-private",
                                environment={"ORVO_LANGUAGE_DIR": str(self.folder)})
        self.assertIn(b"(Private)", without.stdout)
        self.assertEqual(without.stderr, b"")

    def test_columns_are_chosen_and_stay(self):
        self.orvo("add", "--name", "Lee", "--first", "Ann", "--title", "Dr.", "--phone1", "555", "--label1", "Work",
                  "--note", "n", "--custom1", "May 1")
        default = ["0", "2", "7", "3", "5", "4"]
        self.assertEqual(list(self.rows("addresses")[0]["cells"]), default)

        self.assertEqual(self.rows("addresses", "--columns", "4,19,1")[0]["cells"], {"4": True, "19": "555", "1": "Dr."})
        self.assertEqual(self.rows("addresses")[0]["cells"], {"4": True, "19": "555", "1": "Dr."})
        self.assertIn("Note  Work  Title\n0    1   *     555   Dr.\n", self.orvo("addresses"))
        cells = self.rows("addresses", "--columns", "all")[0]["cells"]
        self.assertEqual((len(cells), cells["7"], cells["8"]), (20, "555 (W)", "May 1"))
        for bad in ("99", "0,", "name", "0;1"):
            self.orvo("addresses", f"--columns={bad}", code=2)
            self.assertEqual(self.errors.count("\n"), 1, self.errors)
        self.assertEqual(len(self.rows("addresses")[0]["cells"]), 20)
        self.assertEqual(list(self.rows("addresses", "--columns", "default")[0]["cells"]), default)

    def test_the_heading_is_saved_as_a_line_of_numbers(self):
        first = "(6) 0 180 2 180 7 110 3 110 5 29 4 29 (14) 1 180 6 180 8 110"
        self.assertTrue(self.orvo("heading").startswith(first), self.orvo("heading"))
        self.orvo("heading", "--set", "(2) 0 200 3 90 (1) 1 250")
        self.assertEqual(self.orvo("heading"), "(2) 0 200 3 90 (1) 1 250\n")
        self.orvo("add", "--name", "Lee")
        self.assertEqual(list(self.rows("addresses")[0]["cells"]), ["0", "3"])
        self.orvo("addresses", "--columns", "1,0")
        self.assertTrue(self.orvo("heading").startswith("(2) 1 250 0 200 (18)"), self.orvo("heading"))
        for bad in ("(0)", "nonsense", "(3)", "(1) 99 100"):
            self.orvo("heading", "--set", bad, code=2)
            self.assertEqual(self.errors.count("\n"), 1, self.errors)
        self.assertTrue(self.orvo("heading").startswith("(2) 1 250 0 200"))
        self.assertTrue(self.orvo("heading", "--reset").startswith(first))
        self.assertIn("AddressHeading=", (self.folder / "config/orvo/settings.ini").read_text())

    def test_icons_show_a_picture_and_a_label(self):
        self.orvo("add", "--name", "Lee", "--first", "Ann")
        self.orvo("add", "--company", "Acme")
        self.orvo("add", "--name", "Secret", "--private", "yes")
        rows = self.rows("addresses", "--view", "icons", "--mask-private")
        self.assertEqual([(row.get("icon"), row.get("label")) for row in rows],
                         [("building", "Acme"), ("person", "Lee, Ann"), (None, None)])
        self.assertRegex(self.orvo("addresses", "--view", "icons", "--mask-private"), r"2 +3 +masked +\(Private\)\n")

    def test_lookup_types_into_the_box(self):
        for name in ("Adams", "Baker", "Baker", "Bakerson", "Carter", "Émile", "漢字"):
            self.orvo("add", "--name", name)
        table = (("bak", "bak", 1, 0), ("BAKERS", "BAKERS", 3, 0), ("bax", "ba", 1, 1), ("é", "é", 5, 0), ("emi", "emi", 5, 0),
                 ("漢", "漢", 6, 0), ("x", "", -1, 1), ("bax" + "xyz" * 30000 + "k", "bak", 1, 90001))
        for typed, box, row, beeps in table:
            printed = self.rows("lookup", typed, code=0 if row >= 0 else 1)
            self.assertEqual(printed, [{"typed": typed, "box": box, "row": row, "beeps": beeps}])
        self.assertEqual(self.orvo("lookup", "cart"), 'row 4: Carter (the box holds "cart")\n')
        self.orvo("add", "--name", "Bakesecret", "--private", "yes")
        self.orvo("options", "--set", "masking-private", "yes")
        for typed, box, row in (("bakes", "bake", 1), ("bakers", "bakers", 3), ("c", "c", 5)):
            self.assertEqual([(found["box"], found["row"]) for found in self.rows("lookup", typed)], [(box, row)])
        self.orvo("options", "--set", "masking-private", "no")
        self.orvo("add", "--name", "山田", "--name-yomi", "ヤマダ")
        self.orvo("add", "--name", "阿部", "--name-yomi", "あべ")
        japanese = self.rows("--locale", "ja-JP", "addresses")
        row = next(row["row"] for row in japanese if row["name"] == "山田")
        for typed in ("やま", "ヤ", "ﾔﾏ", "山"):
            self.assertEqual(self.rows("--locale", "ja-JP", "lookup", typed)[0]["row"], row, typed)

    def test_a_tip_tells_the_whole_record(self):
        self.orvo("labels", "--set", "phone", 2, "Work:")
        self.orvo("labels", "--set", "custom", 1, "Birthday")
        self.orvo("add", "--name", "Lee", "--first", "Ann", "--company", "Acme", "--phone3", "555-1234", "--custom1", "May 1")
        tip = "Ann Lee\nAcme\n\nWork:\t555-1234\n\nBirthday:\tMay 1"
        self.assertEqual(self.rows("tip", 0), [{"row": 0, "tip": tip}])
        self.assertEqual(self.orvo("tip", 0), tip + "\n")
        self.orvo("tip", 1, code=1)

    def test_a_card_says_what_the_record_holds(self):
        self.orvo("labels", "--set", "phone", 2, "Work:")
        self.orvo("add", "--name", "Lee", "--first", "Ann", "--company", "Acme", "--phone3", "555-1234\n555-1235",
                  "--address", "1 Main St", "--city", "Boston", "--state", "MA", "--zip", "02134", "--note", "n",
                  "--category", "Friends")
        self.orvo("add", "--name", "Secret", "--private", "yes")
        body = "Acme\n\n<L>\nWork:\t555-1234\n\t555-1235\n\n1 Main St\nBoston, MA  02134\n"
        card = {"title": "Lee, Ann", "body": body, "category": "Friends", "private": False, "masked": False, "hasNote": True,
                "tabStop": 12}
        self.assertEqual(self.rows("card", 0), [card])
        german = self.rows("--locale", "de-DE", "card", 0)[0]["body"]
        self.assertTrue(german.endswith("1 Main St\n02134 Boston\nMA\n"), german)
        self.assertEqual(self.orvo("card", 0), "Lee, Ann\nAcme\n\n────────────────────\nWork:       555-1234\n"
                         "            555-1235\n\n1 Main St\nBoston, MA  02134\n[Friends] [Note]\n")
        masked = self.rows("cards", "--mask-private")
        self.assertEqual(masked[0], card)
        self.assertEqual((masked[1]["masked"], masked[1]["title"], masked[1]["body"]), (True, "", ""))
        self.assertEqual(self.orvo("cards", "--mask-private").splitlines()[-1], "(Private)")
        self.assertEqual(len(self.rows("cards", "--hide-private", "--category", "Friends")), 1)
        self.orvo("card", 2, code=1)

    def test_an_address_takes_the_form_of_its_language(self):
        self.orvo("import", *SAMPLES)
        def bodies(locale):
            return {row["title"]: row["body"] for row in self.rows("--locale", locale, "cards")}
        japanese = bodies("ja-JP")
        self.assertIn("\n105-0023\n東京都  港区\n芝浦1丁目2番3号\n日本\n", japanese["山田 太郎"])
        self.assertIn("\n1 Main St", japanese["Lee Ann"])

    def test_a_category_is_chosen_from_the_menu_of_its_cell(self):
        self.orvo("add", "--name", "Lee", "--category", "Friends")
        self.orvo("add", "--name", "Kim")
        self.assertEqual(self.orvo("category", 0, "Friends"), "row 0: Friends\n")
        self.assertEqual(self.orvo("category", 0, "Friends"), "row 0: Friends\n")
        self.assertEqual([row["category"] for row in self.rows("addresses")], ["Friends", "Friends"])
        self.orvo("category", 0, "none such", code=1)
        self.orvo("category", 2, "Friends", code=1)

    def test_compare_tells_the_order_of_two_rows(self):
        self.orvo("add", "--name", "Zeta", "--name-yomi", "a")
        self.orvo("add", "--name", "Kappa", "--name-yomi", "k")
        self.assertEqual(self.orvo("compare", 0, 1), "-1\n")
        self.assertEqual(self.orvo("compare", 1, 0), "1\n")
        self.assertEqual(self.orvo("compare", 1, 1), "0\n")
        self.assertEqual(self.orvo("compare", 0, 1, "--japanese"), "1\n")
        self.orvo("compare", 0, 2, code=1)
        self.orvo("compare", 0, 1, "--english", "--japanese", code=2)

    def test_add_edit_show_and_delete(self):
        everything = {"--name": "Łęcki", "--first": "Jan", "--company": "Acme", "--name-yomi": "a", "--first-yomi": "b",
                      "--company-yomi": "c", "--title": "Dr.", "--address": "Street 1\nYard", "--city": "X", "--state": "Y",
                      "--zip": "Z", "--country": "PL", "--phone2": "123", "--label2": "Fax", "--display-phone": "2",
                      "--custom4": "four", "--note": "a note", "--category": "Friends", "--private": "yes"}
        options = [part for pair in everything.items() for part in pair]
        self.assertEqual(self.orvo("--code-page", 1252, "add", *options), "added 1\n")
        shown = self.rows("show", 1)[0]
        self.assertEqual(shown["name"], "Łęcki")
        self.assertEqual(shown["address"], "Street 1\nYard")
        self.assertEqual(shown["phones"], [{"slot": 2, "labelId": 3, "label": "Fax", "text": "123"}])
        self.assertEqual((shown["displayPhone"], shown["custom"][3], shown["note"], shown["category"], shown["private"]),
                         (2, "four", "a note", "Friends", True))

        self.orvo("edit", 1, "--city", "", "--private", "no")
        after = self.rows("show", 1)[0]
        self.assertEqual({key: (shown[key], after[key]) for key in shown if shown[key] != after[key]},
                         {"city": ("X", ""), "private": (True, False)})
        self.orvo("edit", 1, "--category", "")
        self.assertEqual(self.rows("show", 1)[0]["category"], "Uncategorized")
        self.orvo("edit", 1, "--label1", "no such label", code=2)
        self.orvo("delete", 1)
        self.orvo("show", 1, code=1)
        self.orvo("edit", 1, "--city", "X", code=1)

    def todos(self, *arguments, **options):
        return self.rows("--now", "2026-03-14T12:00", "todos", *arguments, **options)

    def todo(self, *arguments, code=0):
        return self.orvo("--now", "2026-03-14T12:00", "todo", *arguments, code=code)

    def test_todos_are_listed_in_four_orders(self):
        self.assertEqual(self.todo("add", "Buy stamps", "--priority", 1, "--due", "2026-03-20", "--category", "Work"),
                         "added 1\n")
        self.todo("add", "Call Ann", "--due", "3/13/26", "--note", "n", "--private")
        self.todo("add", "Dream", "--priority", 2, "--category", "Alpha")
        first = self.todos()[0]
        self.assertEqual(first, {"row": 0, "id": 1, "description": "Buy stamps", "priority": 1, "due": "2026-03-20",
                                 "overdue": False, "completed": False, "category": "Work", "private": False,
                                 "cells": {"6": False, "1": "1", "0": "Buy stamps", "2": "3/20/26", "3": "Work", "4": False,
                                           "5": False}})
        orders = {"priority-due": [1, 3, 2], "due-priority": [2, 1, 3], "category-due": [3, 2, 1],
                  "category-priority": [3, 2, 1]}
        for sort, ids in orders.items():
            self.assertEqual([row["id"] for row in self.todos("--sort", sort)], ids, sort)
        self.assertEqual([row["overdue"] for row in self.todos("--sort", "due-priority")], [True, False, False])
        self.assertEqual([row["id"] for row in self.todos("--due-only")], [3, 2])
        self.assertEqual([row["id"] for row in self.todos("--hide-private")], [1, 3])
        self.assertEqual([row["id"] for row in self.todos("--category", "Alpha")], [3])
        masked = self.todos("--mask-private")[2]
        self.assertEqual(masked, {"row": 2, "id": 2, "private": True, "masked": True})
        self.assertNotIn("Ann", self.orvo("todos", "--mask-private"))
        self.assertEqual(list(self.todos("--columns", "0,2")[0]["cells"]), ["0", "2"])
        self.assertEqual(list(self.todos()[0]["cells"]), ["0", "2"])

    def test_rows_of_todos_are_edited_as_by_a_click(self):
        self.todo("add", "One", "--category", "Work")
        self.todo("add", "Two", "--priority", 5)
        self.todo("priority", 1, 1)
        self.assertEqual([(row["description"], row["priority"]) for row in self.todos()], [("Two", 1), ("One", 3)])
        for date, due in (("today", "2026-03-14"), ("tomorrow", "2026-03-15"), ("week", "2026-03-21"), ("none", None),
                          ("2026-12-24", "2026-12-24"), ("1/31/27", "2027-01-31")):
            self.assertEqual(self.todo("due", 0, date), "edited 2: Two\n")
            self.assertEqual(self.todos()[0]["due"], due)
        for locale, date in (("sv-SE", "26-12-04"), ("nl-NL", "04-12-26"), ("de-DE", "4.12.26"), ("ja-JP", "2026/12/04")):
            self.orvo("--locale", locale, "todo", "due", 0, date)
            self.assertEqual(self.todos()[0]["due"], "2026-12-04", locale)
        self.todo("due", 0, "1/31/27")
        for bad in ("someday", "2026-02-30", "31/31/27", "", "1969-12-31", "2040-01-01", "2026- 1- 2", "26-1-2-3"):
            self.todo("due", 0, bad, code=2)
            self.assertEqual(self.errors.count("\n"), 1, self.errors)
        self.todo("category", 0, "Work")
        self.assertEqual(self.todos()[0]["category"], "Work")
        self.todo("category", 0, "none such", code=1)
        for command, completed in (("complete", True), ("complete", True), ("undo", False), ("undo", False)):
            self.todo(command, 0)
            self.assertEqual(self.todos()[0]["completed"], completed)
        self.assertEqual(self.todo("note-title", 0), "Two, Priority 1, Due 1/31\n")
        self.todo("add", "Three", "--due", "", code=2)
        self.orvo("--locale", "de-DE", "todo", "add", "Three", "--priority", 5, "--category", "Ohne Kategorie")
        self.assertEqual(self.todos()[2]["category"], "Uncategorized")
        database = sqlite3.connect(self.store, isolation_level=None)
        database.execute("BEGIN IMMEDIATE")
        self.todo("priority", 0, 4, code=2)
        self.assertEqual(self.errors.count("\n"), 1, self.errors)
        database.execute("ROLLBACK")
        database.close()
        self.orvo("options", "--set", "masking-private", "yes")
        self.todo("add", "Secret", "--priority", 1, "--private")
        row = [row["row"] for row in self.todos() if row.get("masked")][0]
        for edit in (("complete", row), ("due", row, "today"), ("note-title", row)):
            self.assertEqual(self.todo(*edit, code=2), "")
            self.assertEqual(self.errors, f"orvo: row {row} is masked\n")
        self.assertEqual(self.todo("delete", 0), "deleted 2\n")
        self.assertEqual(len(self.todos()), 3)
        self.todo("complete", 3, code=1)
        self.todo("priority", 0, 6, code=2)
        self.orvo("--now", "yesterday", "todos", code=2)

    def test_a_series_ends_only_when_that_is_wanted(self):
        repeating = {"Rule": "RRULE:FREQ=DAILY", "Dates": "rdate;VALUE=DATE:2026\r\n 0315", "Once": "EXDATE:20260315",
                     "Alarm": "BEGIN:VALARM\r\nRRULE:FREQ=DAILY\r\nEND:VALARM"}
        to_dos = [f"BEGIN:VTODO\r\nSUMMARY:{text}\r\n{lines}\r\nEND:VTODO\r\n" for text, lines in repeating.items()]
        for version in ("1.0", "2.0"):
            self.orvo("import", self.file("a.ics", "BEGIN:VCALENDAR\r\nVERSION:" + version + "\r\n" +
                                          "".join(to_dos) + "END:VCALENDAR\r\n"))
        for row in self.rows("todos"):
            if row["description"] in ("Once", "Alarm"):
                self.orvo("todo", "complete", row["row"])
                continue
            self.orvo("todo", "complete", row["row"], code=2)
            self.assertRegex(self.errors, f"^orvo: row {row['row']} repeats; [^\n]*--end-series[^\n]*\n$")
            self.assertFalse(self.rows("todos")[row["row"]]["completed"])
            self.orvo("todo", "complete", row["row"], "--end-series")
        self.assertTrue(all(row["completed"] for row in self.rows("todos")))

    def test_labels_and_categories(self):
        labels = self.rows("labels")
        self.assertEqual([row["label"] for row in labels if row["kind"] == "phone"],
                         ["Mobile", "Home", "Work", "Fax", "E-mail", "Web", "Pager", "Other"])
        self.orvo("labels", "--set", "phone", 8, "Boat")
        self.orvo("labels", "--set", "custom", 4, "Birthday")
        labels = {(row["kind"], row["number"]): row["label"] for row in self.rows("labels")}
        self.assertEqual((labels["phone", 8], labels["custom", 4]), ("Boat", "Birthday"))
        for bad in (("phone", 10, "x"), ("custom", 0, "x"), ("custom", 5, "x"), ("fax", 1, "x"), ("phone", "two", "x")):
            self.orvo("labels", "--set", *bad, code=2)

        self.orvo("import", self.file("a.vcf", "".join(card(f"P{i}", "", f"CATEGORIES:C{i}\r\n") for i in range(20))))
        names = [row["name"] for row in self.rows("categories") if row["table"] == "addresses"]
        self.assertEqual(len(names), 16)

    def test_default_labels_are_shown_and_taken_in_the_users_language_and_stored_in_english(self):
        for label in ("Arbeit", "Work"):
            self.orvo("--locale", "de-DE", "add", "--name", "Lee", "--phone1", "1", "--label1", label)
        german = self.orvo("--locale", "de-DE", "show", 1)
        self.assertIn("Arbeit:", german)
        self.assertIn("Ohne Kategorie", german)
        self.assertIn("Zusatz 1", self.orvo("--locale", "de-DE", "labels"))
        self.assertEqual([row["phones"][0]["label"] for row in self.rows("--locale", "de-DE", "show", 2)], ["Work"])
        exports = []
        for locale in ("de-DE", "en-US"):
            out = self.folder / f"{locale}.vcf"
            self.orvo("--locale", locale, "export", out)
            exports.append(out.read_bytes())
        self.assertEqual(*exports)

        self.orvo("labels", "--set", "phone", 2, "Boat")
        self.assertIn("Boat:", self.orvo("--locale", "de-DE", "show", 1))

    def test_the_default_category_is_ordered_by_the_name_that_is_shown(self):
        for category in ("", "Tee"):
            self.todo("add", category or "none", *(("--category", category) if category else ()))
        for locale, order in (("en-US", ["Tee", "Uncategorized"]), ("de-DE", ["Uncategorized", "Tee"])):
            rows = self.rows("--locale", locale, "todos", "--sort", "category-priority")
            self.assertEqual([row["category"] for row in rows], order)

    def test_what_nobody_edited_comes_back_as_it_came(self):
        for sample in SAMPLES:
            self.store = self.folder / (pathlib.Path(sample).name + ".db")
            self.orvo("import", sample)
            out = self.folder / ("out" + pathlib.Path(sample).suffix)
            self.orvo("export", out)
            if sample.endswith(".vcf"):
                self.assertEqual(out.read_bytes(), pathlib.Path(sample).read_bytes(), sample)

    def test_an_import_with_skipped_entries_tells_each(self):
        path = self.file("a.vcf", card("Good") + "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Cut\r\n" + card("Fine"))
        self.assertIn("imported 2 addresses, 0 to-dos, 1 skipped", self.orvo("import", path, code=3))
        self.assertRegex(self.errors, rf"^{path}:5: .+\n$")

    def test_a_folder_is_taken_in_by_name_and_all_that_is_no_card_is_told(self):
        for name in ("b", "b/deep", "c"):
            (self.folder / name).mkdir()
        for name in ("a.VCARD", "b/deep/b.ics.vcf", "c.vcf", "aside.txt"):
            self.file(name, card(name))
        bad = [self.file("bad.vcf", "Dear Ann"), self.file("c/bad.ics", "Dear Bo")]
        (self.folder / "c" / "round").symlink_to(self.folder)
        (self.folder / "z.vcf").symlink_to(self.folder / "c.vcf")
        told = "".join(f"orvo: {path}: holds no card or calendar\n" for path in bad)
        self.orvo("import", self.folder, code=2)
        self.assertEqual((self.errors, self.rows("addresses", code=1)), (told, []))
        self.orvo("import", "--skip-unreadable", self.folder, code=3)
        self.assertEqual(self.errors, told)
        self.assertEqual([self.rows("show", number)[0]["name"] for number in (1, 2, 3)],
                         ["a.VCARD", "b/deep/b.ics.vcf", "c.vcf"])

    def test_bad_input_is_told_in_one_line_and_changes_nothing(self):
        good = self.file("good.vcf", card("Good"))
        self.orvo("import", good)
        before = self.rows("addresses")
        (self.folder / "empty").mkdir()
        for bad in (self.file("x.vcf", "no card at all"), self.file("empty.vcf", ""), self.folder / "missing.vcf",
                    self.folder / "empty", "/dev/full"):
            self.orvo("import", good, bad, code=2)
            self.assertEqual(self.errors.count("\n"), 1, self.errors)
            self.assertEqual(self.rows("addresses"), before)

        for content in (b"not a store", b"SQLite format 3\0" + bytes(84), bytes(5000)):
            path = self.file("foreign.db", content)
            result = self.run_orvo("--store", path, "addresses")
            self.assertEqual((result.returncode, result.stderr.count(b"\n")), (2, 1), result.stderr)
            self.assertEqual(path.read_bytes(), content)

        for wrong in (["frobnicate"], ["addresses", "--by", "shoe size"], ["--locale", "not a tag", "addresses"],
                      ["--code-page", "1", "addresses"], ["show"], ["show", "x"], ["export", self.folder / "a.txt"]):
            self.orvo(*wrong, code=2)
            self.assertEqual(self.errors.count("\n"), 1, self.errors)

    def test_a_damaged_record_is_told_and_the_others_are_listed_and_exported(self):
        for name in ("Abe", "Bach", "Cato"):
            self.orvo("add", "--name", name)
        database = sqlite3.connect(self.store)
        database.execute("UPDATE address SET fields = x'01' WHERE id = 2")
        database.commit()
        database.close()
        told = f"{self.store}: the fields of record 2 are damaged\n"

        self.assertEqual([row["name"] for row in self.rows("addresses", code=3)], ["Abe", "Cato"])
        self.assertEqual(self.errors, told)
        self.assertEqual(self.rows("export", self.folder / "out.vcf", code=3), [{"exported": 2, "leftOut": 1}])
        self.assertEqual(self.errors, told)
        self.assertEqual((self.folder / "out.vcf").read_bytes().count(b"BEGIN:VCARD"), 2)

    def test_programs_that_add_at_once_keep_their_categories(self):
        self.orvo("categories")
        running = [subprocess.Popen([ORVO, "--store", self.store, "add", "--name", f"C{i}", "--category", f"C{i}"],
                                    stdout=subprocess.DEVNULL) for i in range(8)]
        self.assertEqual([process.wait(120) for process in running], [0] * 8)
        self.assertEqual([row["category"] for row in self.rows("addresses")], [f"C{i}" for i in range(8)])
        self.assertEqual([row["name"] for row in self.rows("addresses")], [f"C{i}" for i in range(8)])

    def test_categories_that_the_code_page_lacks_stay_apart(self):
        path = self.file("a.vcf", card("A", "", "CATEGORIES:漢字\r\n") + card("B", "", "CATEGORIES:家族\r\n"))
        self.orvo("--locale", "en-US", "--code-page", 1252, "import", path)
        self.assertEqual([row["category"] for row in self.rows("addresses")], ["漢字", "家族"])
        listed = self.rows("--locale", "en-US", "--code-page", 1252, "addresses", "--category", "家族")
        self.assertEqual([row["name"] for row in listed], ["B"])

    def test_a_file_size_limit_is_told_and_a_store_opens_for_reading(self):
        self.orvo("add", "--name", "Lee")

        def limited(*arguments):
            return subprocess.run(["sh", "-c", 'ulimit -f 0; exec "$@"', "sh", ORVO, "--store", self.store, *arguments],
                                  stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        listed = limited("--json", "addresses")
        self.assertEqual((listed.returncode, listed.stderr), (0, b""))
        self.assertEqual(json.loads(listed.stdout)["name"], "Lee")
        added = limited("add", "--name", "Ann")
        self.assertEqual((added.returncode, added.stderr.decode()),
                         (2, f"orvo: {self.store}: a file may not grow beyond its limit\n"))
        self.assertEqual(len(self.rows("addresses")), 1)

    def test_a_newer_store_is_refused_and_left_alone(self):
        self.orvo("add", "--name", "Lee")
        database = sqlite3.connect(self.store)
        database.execute("PRAGMA user_version = 99")
        database.execute("PRAGMA wal_checkpoint(TRUNCATE)")
        database.close()
        content = self.store.read_bytes()
        self.orvo("addresses", code=2)
        self.assertIn("newer", self.errors)
        self.assertEqual(self.store.read_bytes(), content)

    def test_a_store_of_version_1_gives_the_files_that_it_gave_then(self):
        self.store.write_bytes((STORES / "version-1.db").read_bytes())
        for kind in ("vcf", "ics", "vcs"):
            path = self.folder / f"exported.{kind}"
            exported = self.run_orvo("--store", self.store, "export", path, environment={"TZ": "Europe/Berlin"})
            self.assertEqual((exported.returncode, exported.stderr), (0, b""))
            # What came from vCalendar gets the time of its export.
            contents = [re.sub(rb"DTSTAMP:\d{8}T\d{6}Z", b"", file.read_bytes())
                        for file in (path, STORES / f"version-1.{kind}")]
            self.assertEqual(*contents)

    def test_a_store_that_another_process_writes_is_told(self):
        self.orvo("add", "--name", "Lee")
        database = sqlite3.connect(self.store, isolation_level=None)
        database.execute("BEGIN IMMEDIATE")
        self.orvo("import", self.file("a.vcf", card("New")), code=2)
        self.assertEqual(self.errors.count("\n"), 1, self.errors)
        database.execute("ROLLBACK")
        database.close()
        self.assertEqual(len(self.rows("addresses")), 1)

    def test_a_kill_during_an_import_leaves_all_or_none(self):
        count = 20000
        path = self.file("many.vcf", "".join(card(f"Person{i}") for i in range(count)))
        self.orvo("add", "--name", "First")
        seen = set()
        for delay in (0.05, 0.1, 0.2, 0.4, 0.8, 1.6):
            process = subprocess.Popen([ORVO, "--store", self.store, "import", path], stdout=subprocess.DEVNULL)
            time.sleep(delay)
            process.send_signal(signal.SIGKILL)
            process.wait()
            rows = len(self.rows("addresses"))
            self.assertIn((rows - 1) % count, (0,), rows)
            seen.add(rows)
        self.assertIn(1, seen, "no kill came before the commit")

    def test_names_cannot_steer_a_terminal(self):
        self.orvo("import", self.file("a.vcf", card("Evil\x1b[2J\x07\u009b31m\u202e\u2028")))
        self.assertNotRegex(self.orvo("addresses"), r"[\x00-\x09\x0b-\x1f\x7f-\x9f\u2028-\u202e]")

    def test_completing_a_category_runs_nothing(self):
        self.orvo("import", self.file("a.vcf", card("P", "", "CATEGORIES:$(>pwn)\r\n")))
        script = pathlib.Path(sys.argv[2]).resolve().parent / "src/cli/completion/orvo"
        complete = (f"cd {self.folder}; PATH={pathlib.Path(ORVO).parent}:$PATH; source {script}; "
                    f"COMP_WORDS=(orvo --store {self.store} addresses --category ''); COMP_CWORD=5; _orvo; "
                    "printf '%s\\n' \"${COMPREPLY[@]}\"")
        completed = subprocess.run(["bash", "-c", complete], capture_output=True, text=True).stdout.splitlines()
        self.assertEqual(completed, [r"\$\(\>pwn\)", "Uncategorized"])
        self.assertFalse((self.folder / "pwn").exists())

    def test_the_default_store_lies_in_the_data_folder(self):
        home = self.folder / "home"
        home.mkdir()
        self.assertEqual(self.run_orvo("add", "--name", "Lee", environment={"HOME": str(home)}).returncode, 0)
        self.assertTrue((home / ".local/share/orvo/orvo.db").exists())
        data = self.folder / "data"
        self.run_orvo("add", "--name", "Lee", environment={"HOME": str(home), "XDG_DATA_HOME": str(data)})
        self.assertTrue((data / "orvo/orvo.db").exists())

    def test_a_folder_of_the_user_that_others_may_write_is_told(self):
        home = self.folder / "home"
        config, data = home / ".config", home / ".local/share"
        for folder in (config / "orvo", data):
            folder.mkdir(parents=True)
        run = lambda: self.run_orvo("add", "--name", "Lee", environment={"HOME": str(home), "XDG_CONFIG_HOME": str(config)})
        self.assertEqual(run().stderr, b"")
        told = "orvo: {}/orvo: others could change what lies there: {} may be written by other users\n"
        config.chmod(0o777)
        data.chmod(0o777)
        self.assertEqual(run().stderr.decode(), told.format(config, config) + told.format(data, data))
        home.chmod(0o777)
        self.assertEqual(run().stderr.decode(), told.format(config, home))
        home.chmod(0o1777)
        config.chmod(0o700)
        data.chmod(0o700)
        self.assertEqual(run().stderr, b"")

    def test_a_card_comes_through_a_pipe(self):
        command = f"exec '{ORVO}' --store '{self.store}' import <(printf 'BEGIN:VCARD\\nFN:Lee\\nEND:VCARD\\n')"
        done = subprocess.run(["bash", "-c", command], capture_output=True, timeout=120)
        self.assertEqual((done.returncode, done.stdout), (0, b"imported 1 addresses, 0 to-dos, 0 skipped\n"), done.stderr)

    def test_nothing_found_is_told_by_exit_code_1(self):
        self.orvo("addresses", code=1)
        self.orvo("addresses", "--category", "none such", code=1)
        self.orvo("show", 1, code=1)
        existing = self.file("keep.vcf", card("Keep"))
        self.orvo("export", existing, code=1)
        self.assertEqual(existing.read_bytes(), card("Keep").encode())

    def options(self):
        return self.rows("options")[0]

    def test_an_option_that_is_set_stays(self):
        self.assertEqual(len(self.options()), 18)
        changes = {"password-required": ("yes", True), "confirm-on-delete": ("no", False),
                   "auto-save-interval": ("20", 20), "work-week-begins": ("1", 1),
                   "startup-application": ("表\\\n to do", "表\\\n to do"), "todo-show-completed": ("0", False)}
        for code_page in ("65001", "932"):
            for name, (text, value) in changes.items():
                self.orvo("--code-page", code_page, "options", "--set", name, text)
                self.assertEqual(self.options()[name], value, name)
        self.assertRegex(self.orvo("options"), r"(?m)^password-required +yes$")
        self.assertEqual((self.folder / "config/orvo/xtrauser.dat").read_bytes(), b"\x011\x01\0\0\0")

        self.orvo("options", "--set", "data-directory", self.folder)
        self.assertTrue(self.options()["password-required"], "the user's file lies beside the settings all the same")
        gone = self.folder / "gone"
        gone.mkdir()
        self.orvo("options", "--set", "data-directory", gone)
        gone.rmdir()
        self.assertTrue(self.options()["password-required"], "also where the data directory is gone")
        self.orvo("options", "--set", "password-required", "no")
        self.orvo("options", "--set", "data-directory", "")
        self.assertFalse(self.options()["password-required"])

    def test_a_wrong_option_is_told_and_changes_nothing(self):
        before = self.options()
        for name, value in (("colour", "red"), ("alarm-set", "perhaps"), ("alarm-set", "2"), ("work-day-begins", "24"),
                            ("auto-save-interval", "9"), ("alarm-advance", "1x"), ("alarm-advance", "99999999999"),
                            ("data-directory", "no/such"), ("startup-application", "x" * 261)):
            self.orvo("options", "--set", name, value, code=2)
            self.assertEqual(self.errors.count("\n"), 1, self.errors)
            self.assertIn(name, self.errors)
        self.assertEqual(self.options(), before)

    def test_a_user_file_that_cannot_be_used_is_told(self):
        self.orvo("options", "--set", "password-required", "yes")
        file = self.folder / "config/orvo/xtrauser.dat"
        file.write_bytes(b"\x011")
        self.assertFalse(self.options()["password-required"], "no password is set that a damaged file might require")
        self.assertIn("xtrauser.dat", self.errors)
        self.assertEqual(self.errors.count("\n"), 1)
        self.orvo("options", "--set", "password-required", "yes")
        self.assertTrue(self.options()["password-required"])
        self.assertEqual(self.errors, "")
        file.unlink()
        file.mkdir()
        self.orvo("options", "--set", "work-day-begins", 7)
        self.orvo("options", "--set", "password-required", "yes", code=2)
        self.assertEqual(self.options()["work-day-begins"], 7)

    def test_eight_processes_that_set_eight_options_lose_none(self):
        names = ["password-required", "alarm-set", "masking-private", "verify-data-file", "todo-mark-completion-date",
                 "todo-show-due-items-only", "work-day-begins", "alarm-advance"]
        self.options()
        for value in ("1", "0", "1"):
            processes = [subprocess.Popen([ORVO, "--store", self.store, "options", "--set", name, value],
                                          env={"PATH": os.environ["PATH"], "LC_ALL": "en_US.UTF-8",
                                               "XDG_CONFIG_HOME": str(self.folder / "config")}) for name in names]
            self.assertEqual([process.wait() for process in processes], [0] * len(names))
            options = self.options()
            self.assertEqual([int(options[name]) for name in names], [int(value)] * len(names))


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0]])
