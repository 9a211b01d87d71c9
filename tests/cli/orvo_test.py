#!/usr/bin/env python3
# Runs orvo as a user does: commands, what they print, and their exit codes.
# SPDX-License-Identifier: MIT
import contextlib
import pathlib
import re
import sqlite3
import subprocess
import sys
import time
import unittest

from command import CommandTest, card

SAMPLES = sorted(str(path) for path in pathlib.Path(sys.argv[2]).resolve().iterdir())
STORES = pathlib.Path(__file__).resolve().parents[1] / "libraries/quire/stores"


class OrvoTest(CommandTest):
    def add(self, *records):
        for options in records:
            self.orvo(f"add {options}")

    def at_once(self, commands):
        """Runs the commands beside each other."""
        running = [self.start(command) for command in commands]
        self.assertEqual([(process.communicate()[1], process.returncode) for process in running], [("", 0)] * len(commands))

    def without_identity(self, row):
        """The row, without who it is and when it changed, once these are as promised."""
        self.assertRegex(row.pop("uid"), r"^[0-9a-f-]{36}$")
        for key in ("created", "modified"):
            self.assertRegex(row.pop(key), r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z$")
        return row

    def test_samples_become_a_sorted_list(self):
        self.assertIn("imported 95, updated 0, unchanged 0, skipped 0", self.orvo("import", *SAMPLES))
        formatted = self.values("formatted", "addresses")
        self.assertEqual(formatted[:5], ["24-Hour Locksmith", "Åkesson, Örjan", "Bakker, Femke", "Brown, Rosalind",
                                         "Brown, Rosalind"])
        self.assertIn("Bakker, Femke", self.orvo("lookup bak"), "the README's example")
        self.assertEqual(formatted[-3:], ["阿部, 花子", "陳, 美玲", "髙橋, 誠"])
        japanese = self.rows("--locale ja-JP addresses")
        self.assertEqual([row["formatted"] for row in japanese if row["nameYomi"]],
                         ["阿部 花子", "小林 大輔", "佐藤 由美", "鈴木 美咲", "髙橋 誠", "松本 直美", "山田 太郎", "𠮷田 陽子", "渡辺 健"])
        self.assertEqual(self.values("company", "addresses --category Health"),
                         ["Corner Pharmacy", "Riverside Dental Practice"])
        cards = {row["title"]: row["body"] for row in self.rows("--locale ja-JP cards")}
        self.assertIn("\n105-0023\n東京都  港区\n芝浦1丁目2番3号\n日本\n", cards["山田 太郎"])
        self.assertIn("\n1 Main St", cards["Lee Ann"])

    def test_json_rows_have_the_promised_keys(self):
        self.import_text(card("Lee", "Ann", "ORG:Acme\r\nCATEGORIES:Friends\r\n"))
        row = self.without_identity(self.rows("addresses")[0])
        self.assertEqual([row], [
            {"row": 0, "id": 1, "name": "Lee", "first": "Ann", "company": "Acme", "nameYomi": "", "firstYomi": "",
             "companyYomi": "", "formatted": "Lee, Ann", "category": "Friends", "private": False,
             "cells": {"0": "Lee, Ann", "2": "Acme", "7": "", "3": "Friends", "5": False, "4": False}}])

    def test_texts_of_the_table_come_in_the_language_of_the_locale(self):
        self.add("--name Secret --private yes", "--name Open", "--name Filed --category Friends")
        for locale, private, category in (("en-US", "(Private)", "Uncategorized"), ("de-DE", "(Privat)", "Ohne Kategorie"),
                                          ("fr-CA", "(Privé)", "Sans catégorie"), ("ja-JP", "(非公開)", "未分類"),
                                          ("es-ES", "(Private)", "Uncategorized")):
            table = self.orvo(f"--locale {locale} addresses --mask-private")
            for text in (private, category, "Friends"):
                self.assertEqual(table.count(text), 1, (locale, table))
        self.assertEqual(self.values("category", "--locale de-DE addresses"), ["Friends", "Uncategorized", "Uncategorized"])
        self.environment["ORVO_LANGUAGE_DIR"] = str(self.folder)
        self.assertIn("(Private)", self.orvo("--locale de-DE addresses --mask-private"))
        self.assertEqual(self.errors, "")
        self.assertNotIn("Secret", self.orvo("addresses --mask-private"))
        self.assertEqual(self.rows("addresses --mask-private")[2], {"row": 2, "id": 1, "private": True, "masked": True})
        self.assertEqual(self.values("name", "addresses --hide-private"), ["Filed", "Open"])

    def cells(self, options=""):
        return self.rows(f"addresses {options}")[0]["cells"]

    def test_columns_are_chosen_and_stay(self):
        self.orvo("add --name Lee --first Ann --title Dr. --phone1 555 --label1 Work --note n --custom1 'May 1'")
        default = ["0", "2", "7", "3", "5", "4"]
        self.assertEqual(list(self.cells()), default)
        for options in ("--columns 4,19,1", ""):
            self.assertEqual(self.cells(options), {"4": True, "19": "555", "1": "Dr."})
        self.assertIn("Note  Work  Title\n0    1   *     555   Dr.\n", self.orvo("addresses"))
        cells = self.cells("--columns all")
        self.assertEqual((len(cells), cells["7"], cells["8"]), (20, "555 (W)", "May 1"))
        for bad in ("99", "0,", "name", "0;1"):
            self.refused(f"addresses '--columns={bad}'")
        self.assertEqual(len(self.cells()), 20)
        self.assertEqual(list(self.cells("--columns default")), default)

    def test_the_heading_is_saved_as_a_line_of_numbers(self):
        first = "(6) 0 180 2 180 7 110 3 110 5 29 4 29 (14) 1 180 6 180 8 110"
        self.assertTrue(self.orvo("heading").startswith(first))
        self.orvo("heading --set", "(2) 0 200 3 90 (1) 1 250")
        self.assertEqual(self.orvo("heading"), "(2) 0 200 3 90 (1) 1 250\n")
        self.orvo("add --name Lee")
        self.assertEqual(list(self.cells()), ["0", "3"])
        self.orvo("addresses --columns 1,0")
        self.assertTrue(self.orvo("heading").startswith("(2) 1 250 0 200 (18)"))
        for bad in ("(0)", "nonsense", "(3)", "(1) 99 100"):
            self.refused("heading --set", bad)
        self.assertTrue(self.orvo("heading").startswith("(2) 1 250 0 200"))
        self.assertTrue(self.orvo("heading --reset").startswith(first))
        self.assertIn("AddressHeading=", (self.folder / "config/orvo/settings.ini").read_text())

    def test_icons_show_a_picture_and_a_label(self):
        self.add("--name Lee --first Ann", "--company Acme", "--name Secret --private yes")
        rows = self.rows("addresses --view icons --mask-private")
        self.assertEqual([(row.get("icon"), row.get("label")) for row in rows],
                         [("building", "Acme"), ("person", "Lee, Ann"), (None, None)])
        self.assertRegex(self.orvo("addresses --view icons --mask-private"), r"2 +3 +masked +\(Private\)\n")

    def test_lookup_types_into_the_box(self):
        self.add(*(f"--name {name}" for name in ("Adams", "Baker", "Baker", "Bakerson", "Carter", "Émile", "漢字")))
        long_text = "bax" + "xyz" * 30000 + "k"
        for typed, box, row, beeps in (("BAKERS", "BAKERS", 3, 0), ("bax", "ba", 1, 1), ("漢", "漢", 6, 0), ("x", "", -1, 1),
                                       (long_text, "bak", 1, 90001)):
            self.assertEqual(self.rows("lookup", typed, code=0 if row >= 0 else 1),
                             [{"typed": typed, "box": box, "row": row, "beeps": beeps}])
        self.assertEqual(self.orvo("lookup cart"), 'row 4: Carter (the box holds "cart")\n')
        self.orvo("add --name Bakesecret --private yes")
        self.orvo("options --set masking-private yes")
        for typed, box, row in (("bakes", "bake", 1), ("bakers", "bakers", 3), ("c", "c", 5)):
            self.assertEqual([(found["box"], found["row"]) for found in self.rows("lookup", typed)], [(box, row)])

    def test_a_tip_tells_the_whole_record(self):
        self.orvo("labels --set phone 2 Work:")
        self.orvo("labels --set custom 1 Birthday")
        self.add("--name Lee --first Ann --company Acme --phone3 555-1234 --custom1 'May 1'")
        tip = "Ann Lee\nAcme\n\nWork:\t555-1234\n\nBirthday:\tMay 1"
        self.assertEqual(self.rows("tip 0"), [{"row": 0, "tip": tip}])
        self.assertEqual(self.orvo("tip 0"), tip + "\n")
        self.orvo("tip 1", code=1)

    def test_a_card_says_what_the_record_holds(self):
        self.orvo("labels --set phone 2 Work:")
        self.orvo("add --name Lee --first Ann --company Acme --address '1 Main St' --city Boston --state MA --zip 02134 "
                  "--note n --category Friends --phone3", "555-1234\n555-1235")
        self.orvo("add --name Secret --private yes")
        body = "Acme\n\n<L>\nWork:\t555-1234\n\t555-1235\n\n1 Main St\nBoston, MA  02134\n"
        card = {"title": "Lee, Ann", "body": body, "category": "Friends", "private": False, "masked": False, "hasNote": True,
                "tabStop": 12}
        self.assertEqual(self.rows("card 0"), [card])
        self.assertRegex(self.values("body", "--locale de-DE card 0")[0], "1 Main St\n02134 Boston\nMA\n$")
        self.assertEqual(self.orvo("card 0"), "Lee, Ann\nAcme\n\n────────────────────\nWork:       555-1234\n"
                         "            555-1235\n\n1 Main St\nBoston, MA  02134\n[Friends] [Note]\n")
        masked = self.rows("cards --mask-private")
        self.assertEqual(masked[0], card)
        self.assertEqual((masked[1]["masked"], masked[1]["title"], masked[1]["body"]), (True, "", ""))
        self.assertEqual(self.orvo("cards --mask-private").splitlines()[-1], "(Private)")
        self.assertEqual(self.values("title", "cards --hide-private --category Friends"), ["Lee, Ann"])
        self.orvo("card 2", code=1)

    def test_a_category_is_chosen_from_the_menu_of_its_cell(self):
        self.add("--name Lee --category Friends", "--name Kim")
        for _ in range(2):
            self.assertEqual(self.orvo("category 0 Friends"), "row 0: Friends\n")
        self.assertEqual(self.values("category", "addresses"), ["Friends", "Friends"])
        self.orvo("category 0 'none such'", code=1)
        self.orvo("category 2 Friends", code=1)

    def test_compare_tells_the_order_of_two_rows(self):
        self.add("--name Zeta --name-yomi a", "--name Kappa --name-yomi k")
        for rows, order in (("0 1", "-1\n"), ("1 0", "1\n"), ("1 1", "0\n"), ("0 1 --japanese", "1\n")):
            self.assertEqual(self.orvo(f"compare {rows}"), order, rows)
        self.orvo("compare 0 2", code=1)
        self.orvo("compare 0 1 --english --japanese", code=2)

    def test_add_edit_show_and_delete(self):
        self.assertEqual(self.orvo(
            "--code-page 1252 add --name Łęcki --first Jan --company Acme --name-yomi a --first-yomi b --company-yomi c "
            "--title Dr. --city X --state Y --zip Z --country PL --phone2 123 --label2 Fax --display-phone 2 "
            "--custom4 four --note 'a note' --category Friends --private yes --address", "Street 1\nYard"), "added 1\n")
        shown = self.rows("show 1")[0]
        person = shown.pop("person")
        uid = shown["uid"]
        self.assertEqual(self.without_identity(shown), {
            "id": 1, "name": "Łęcki", "first": "Jan", "company": "Acme", "nameYomi": "a", "firstYomi": "b",
            "companyYomi": "c", "title": "Dr.", "address": "Street 1\nYard", "city": "X", "state": "Y", "zip": "Z",
            "country": "PL", "phones": [{"slot": 2, "labelId": 3, "label": "Fax", "text": "123"}], "displayPhone": 2,
            "custom": ["", "", "", "four"], "note": "a note", "category": "Friends", "private": True, "archived": False})
        self.orvo("edit 1 --city '' --private no")
        person["details"][1]["text"] = "Street 1\nYard\nY Z\nPL"
        again = self.rows(f"show --uid {uid.upper()}")
        self.assertEqual(self.rows("show 1"), again)
        self.assertEqual([self.without_identity(row) for row in again],
                         [{**shown, "city": "", "private": False, "person": person}])
        self.orvo("edit 1 --category ''")
        self.assertEqual(self.values("category", "show 1"), ["Uncategorized"])
        self.refused("edit 1 --label1 'no such label'")
        self.orvo("delete 1")
        self.orvo("show 1", code=1)
        self.orvo("edit 1 --city X", code=1)

    def test_what_only_the_card_holds_is_shown_and_found(self):
        self.import_text(card("Lee", "Ann", "BDAY:1985-04-12\r\nTEL:+1 (617) 555-0142\r\nX-ICQ:77\r\nNOTE:süß\r\n"))
        self.orvo("add --name Kim --private yes --note suess")
        self.orvo("todo add 'Call Ann Lee'")
        shown = self.orvo("--now 2026-04-11 show 1")
        for line in ("Birthday:            1985-04-12  (41 tomorrow)", "ICQ:                 77"):
            self.assertIn(line + "\n", shown)
        for words, names in (("SUSS", ["Lee"]), ("617 5550142", ["Lee"]), ("icq ann", ["Lee"]), ("suess", ["Kim"])):
            self.assertEqual(self.values("name", f"find {words}"), names, words)
        self.assertEqual(len(self.rows("find lee ann")), 2)
        self.assertEqual(self.values("description", "find --todos ann"), ["Call Ann Lee"])
        born = {"id": 1, "name": "Lee, Ann", "birthday": "1985-04-12", "days": 1, "turns": 41}
        self.assertEqual(self.rows("--now 2026-04-11 birthdays --days 1"), [born])
        self.orvo("--now 2026-04-11 birthdays --days 0", code=1)
        self.orvo("birthdays --export", self.folder / "b.ics")
        calendar = (self.folder / "b.ics").read_text()
        self.assertIn("DTSTART;VALUE=DATE:19850412\nRRULE:FREQ=YEARLY\nSUMMARY:Lee\\, Ann\n", calendar)
        self.orvo("options --set masking-private yes")
        self.assertIn("nothing holds", self.refused("find suess", code=1))

    def todos(self, options="", key="id"):
        return self.values(key, f"--now 2026-03-14T12:00 todos {options}")

    def todo(self, command, *more, **options):
        return self.orvo(f"--now 2026-03-14T12:00 todo {command}", *more, **options)

    def test_todos_are_listed_in_four_orders(self):
        self.assertEqual(self.todo("add 'Buy stamps' --priority 1 --due 2026-03-20 --category Work"), "added 1\n")
        self.todo("add 'Call Ann' --due 3/13/26 --note n --private")
        self.todo("add Dream --priority 2 --category Alpha")
        self.assertEqual(self.without_identity(self.rows("--now 2026-03-14T12:00 todos")[0]), {
            "row": 0, "id": 1, "description": "Buy stamps", "priority": 1, "due": "2026-03-20", "overdue": False,
            "completed": False, "recurrence": None, "start": None, "percent": 0, "parent": None, "reminders": [],
            "category": "Work", "private": False,
            "cells": {"6": False, "1": "1", "0": "Buy stamps", "2": "3/20/26", "3": "Work", "4": False, "5": False}})
        for options, ids in (("--sort priority-due", [1, 3, 2]), ("--sort due-priority", [2, 1, 3]),
                             ("--sort category-due", [3, 2, 1]), ("--sort category-priority", [3, 2, 1]),
                             ("--due-only", [3, 2]), ("--hide-private", [1, 3]), ("--category Alpha", [3])):
            self.assertEqual(self.todos(options), ids, options)
        self.assertEqual(self.todos("--sort due-priority", "overdue"), [True, False, False])
        self.assertEqual(self.rows("todos --mask-private")[2], {"row": 2, "id": 2, "private": True, "masked": True})
        self.assertNotIn("Ann", self.orvo("todos --mask-private"))
        for options in ("--columns 0,2", ""):
            self.assertEqual(list(self.todos(options, "cells")[0]), ["0", "2"])

    def test_rows_of_todos_are_edited_as_by_a_click(self):
        self.todo("add One --category Work")
        self.todo("add Two --priority 5")
        self.todo("priority 1 1")
        self.assertEqual((self.todos("", "description"), self.todos("", "priority")), (["Two", "One"], [1, 3]))
        for date, due in (("today", "2026-03-14"), ("tomorrow", "2026-03-15"), ("week", "2026-03-21"), ("none", None),
                          ("2026-12-24", "2026-12-24"), ("1/31/27", "2027-01-31")):
            self.assertEqual(self.todo(f"due 0 {date}"), "edited 2: Two\n")
            self.assertEqual(self.todos("", "due")[0], due)
        for locale, date in (("sv-SE", "26-12-04"), ("nl-NL", "04-12-26"), ("de-DE", "4.12.26"), ("ja-JP", "2026/12/04")):
            self.orvo(f"--locale {locale} todo due 0 {date}")
            self.assertEqual(self.todos("", "due")[0], "2026-12-04", locale)
        self.todo("due 0 1/31/27")
        for bad in ("someday", "2026-02-30", "31/31/27", "", "1969-12-31", "2040-01-01", "2026- 1- 2", "26-1-2-3"):
            self.refused("todo due 0", bad)
        self.todo("category 0 Work")
        self.assertEqual(self.todos("", "category")[0], "Work")
        self.todo("category 0 'none such'", code=1)
        for command, completed in (("complete", True), ("complete", True), ("undo", False), ("undo", False)):
            self.todo(f"{command} 0")
            self.assertEqual(self.todos("", "completed")[0], completed)
        self.assertEqual(self.todo("note-title 0"), "Two, Priority 1, Due 1/31\n")
        self.refused("todo add Three --due ''")
        self.orvo("--locale de-DE todo add Three --priority 5 --category 'Ohne Kategorie'")
        self.assertEqual(self.todos("", "category")[2], "Uncategorized")
        with contextlib.closing(sqlite3.connect(self.store, isolation_level=None)) as database:
            database.execute("BEGIN IMMEDIATE")
            self.refused("todo priority 0 4")
            self.refused("import", self.file("a.vcf", card("New")))
            database.execute("ROLLBACK")
        self.orvo("options --set masking-private yes")
        self.todo("add Secret --priority 1 --private")
        row = [row["row"] for row in self.rows("todos") if row.get("masked")][0]
        for edit in ("complete {}", "due {} today", "note-title {}"):
            self.assertEqual(self.refused(f"todo {edit.format(row)}"), f"orvo: row {row} is masked\n")
        self.assertEqual(self.todo("delete 0"), "deleted 2\n")
        self.assertEqual(len(self.todos()), 3)
        self.todo("complete 3", code=1)
        self.todo("priority 0 6", code=2)
        self.orvo("--now yesterday todos", code=2)

    def test_a_series_moves_to_its_next_date_until_the_last_one(self):
        self.todo("add Water --due 2026-11-27 --start 2026-11-25 --repeat 'every second week on fri, 2 times'")
        self.assertEqual(self.todo("complete 0"), "completed 1: Water; next on 2026-12-11\n")
        self.assertEqual(self.todo("complete 0 --hide-completed"), "completed 1: Water; that was the last one\n")
        self.assertEqual(self.todos("", "completed"), [True, True])

    def exported(self):
        self.orvo("export", self.folder / "b.ics")
        return (self.folder / "b.ics").read_text()

    def test_what_repeats_is_read_in_words(self):
        self.todo("add A --due 2026-11-30")
        rules = {"daily": "FREQ=DAILY", "weekly on Mondays and fri until 2027-06-30": "FREQ=WEEKLY;BYDAY=MO,FR;"
                 "UNTIL=20270630", "monthly on last fri, once": "FREQ=MONTHLY;BYDAY=-1FR;COUNT=1",
                 "monthly on day 15": "FREQ=MONTHLY;BYMONTHDAY=15", "monthly on the 2nd tue": "FREQ=MONTHLY;BYDAY=2TU",
                 "every other month on the last day": "FREQ=MONTHLY;INTERVAL=2;BYMONTHDAY=-1",
                 "every 3 years 10 times": "FREQ=YEARLY;INTERVAL=3;COUNT=10", "every fri": "FREQ=WEEKLY;BYDAY=FR"}
        for words, rule in rules.items():
            self.todo(f"edit 0 --repeat '{words}'")
            self.assertIn(f"\nRRULE:{rule}\n", self.exported())
        for bad in ("hourly", "weekly on foo", "every", "daily 0 times", "yearly on day 3", "daily until 2027-02-30",
                    "daily 3 times until 2027-06-30", "monthly on 6th fri", "every 0 days", ""):
            self.assertIn("understood is: none, daily", self.refused(f"todo edit 0 --repeat '{bad}'"), bad)
        self.todo("edit 0 --repeat none --text B --percent 30 --start today --parent none --due none")
        self.assertNotIn("RRULE", self.exported())
        self.assertIn("PERCENT-COMPLETE:30", self.exported())
        self.assertIn("no date", self.refused("todo add C --repeat daily"))

    def test_labels_and_categories(self):
        self.assertEqual(self.values("label", "labels")[:8],
                         ["Mobile", "Home", "Work", "Fax", "E-mail", "Web", "Pager", "Other"])
        self.orvo("labels --set phone 8 Boat")
        self.orvo("labels --set custom 4 Birthday")
        labels = {(row["kind"], row["number"]): row["label"] for row in self.rows("labels")}
        self.assertEqual((labels["phone", 8], labels["custom", 4]), ("Boat", "Birthday"))
        for bad in ("phone 10", "custom 0", "custom 5", "fax 1", "phone two"):
            self.refused(f"labels --set {bad} x")
        self.import_text("".join(card(f"P{i}", "", f"CATEGORIES:C{i}\r\n") for i in range(20)))
        self.assertEqual(self.values("table", "categories").count("addresses"), 16)

    def test_default_labels_are_shown_and_taken_in_the_users_language_and_stored_in_english(self):
        for label in ("Arbeit", "Work"):
            self.orvo(f"--locale de-DE add --name Lee --phone1 1 --label1 {label}")
        german = self.orvo("--locale de-DE show 1")
        self.assertIn("Arbeit:", german)
        self.assertIn("Ohne Kategorie", german)
        self.assertIn("Zusatz 1", self.orvo("--locale de-DE labels"))
        self.assertEqual(self.values("phones", "--locale de-DE show 2")[0][0]["label"], "Work")
        exports = [self.folder / f"{locale}.vcf" for locale in ("de-DE", "en-US")]
        for out in exports:
            self.orvo(f"--locale {out.stem} export", out)
        self.assertEqual(*(out.read_bytes() for out in exports))

        self.orvo("labels --set phone 2 Boat")
        self.assertIn("Boat:", self.orvo("--locale de-DE show 1"))

    def test_the_default_category_is_ordered_by_the_name_that_is_shown(self):
        self.todo("add none")
        self.todo("add Tee --category Tee")
        for locale, order in (("en-US", ["Tee", "Uncategorized"]), ("de-DE", ["Uncategorized", "Tee"])):
            self.assertEqual(self.values("category", f"--locale {locale} todos --sort category-priority"), order)

    def test_what_nobody_edited_comes_back_as_it_came(self):
        for sample in map(pathlib.Path, SAMPLES):
            self.store, out = self.folder / f"{sample.name}.db", self.folder / f"out{sample.suffix}"
            self.orvo("import", sample)
            self.orvo("export", out)
            if sample.suffix == ".vcf":
                self.assertEqual(out.read_bytes(), sample.read_bytes(), sample)

    def test_an_import_with_skipped_entries_tells_each(self):
        said = self.import_text(card("Good") + "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Cut\r\n" + card("Fine"), code=3)
        self.assertIn("imported 2, updated 0, unchanged 0, skipped 1", said)
        self.assertRegex(self.errors, rf"^{self.folder}/a.vcf:5: .+\n$")

    def test_what_the_store_holds_is_not_added_again(self):
        text = card("Lee", "Ann", "UID:urn:uuid:A-1\r\nREV:20200101\r\n") + card("Nobody")
        self.import_text(text)
        self.assertIn("imported 1, updated 0, unchanged 1, skipped 0", self.import_text(text.replace("urn:uuid:A", "a")))
        newer = text.replace("Ann", "Anna").replace("2020", "2021")
        self.assertIn("imported 1, updated 1, unchanged 0, skipped 0", self.import_text(newer))
        self.assertIn("imported 1, updated 0, unchanged 0, skipped 1", self.import_text(text, code=3))
        self.assertEqual(self.errors, f"{self.folder}/a.vcf:1: Anna Lee is newer here and stays as it is\n")
        self.orvo("edit 1 --private yes")
        self.import_text(newer, code=3)
        self.assertNotIn("Anna", self.errors)
        self.assertIn("imported 2, updated 0, unchanged 0, skipped 0", self.orvo("import --as-new", self.folder / "a.vcf"))

    def test_a_script_keeps_up_with_the_changes(self):
        self.add("--name Lee", "--name Secret --private yes")
        self.todo("add Call")
        *changes, last = self.rows("changes")
        self.assertEqual([(row["table"], row["id"], row["change"]) for row in changes],
                         [("address", 1, "added"), ("address", 2, "added"), ("todo", 1, "added")])
        self.assertEqual(changes[0]["uid"], self.values("uid", "show 1")[0])
        self.orvo("delete 1")
        self.orvo("options --set masking-private yes")
        self.orvo("edit 2 --name Other --show-private")
        trashed, masked, end = self.rows(f"changes --since {last['upTo']}")
        self.assertEqual(trashed["change"], "trashed")
        self.assertEqual({**masked, "revision": 0},
                         {"revision": 0, "table": "address", "id": 2, "masked": True, "change": "changed"})
        self.assertEqual(self.rows(f"changes --since {end['upTo']}"), [end])
        for number in ("x", "-1", "99"):
            self.refused(f"changes --since {number}")

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
        self.orvo("import --skip-unreadable", self.folder, code=3)
        self.assertEqual((self.errors, self.values("name", "addresses")), (told, ["a.VCARD", "b/deep/b.ics.vcf", "c.vcf"]))

    def test_bad_input_is_told_in_one_line_and_changes_nothing(self):
        self.import_text(card("Good"), "good.vcf")
        before = self.rows("addresses")
        (self.folder / "empty").mkdir()
        for bad in (self.file("x.vcf", "no card at all"), self.file("empty.vcf", ""), self.folder / "missing.vcf",
                    self.folder / "empty", "/dev/full"):
            self.refused("import", self.folder / "good.vcf", bad)
            self.assertEqual(self.rows("addresses"), before)

        for content in (b"not a store", b"SQLite format 3\0" + bytes(84), bytes(5000)):
            path = self.file("foreign.db", content)
            self.refused("addresses", store=path)
            self.assertEqual(path.read_bytes(), content)

        for wrong in ("frobnicate", "addresses --by 'shoe size'", "--locale 'not a tag' addresses",
                      "--code-page 1 addresses", "show", "show x", f"export {self.folder}/a.txt"):
            self.refused(wrong)

    def test_programs_that_add_at_once_keep_their_categories(self):
        self.orvo("categories")
        names = [f"C{i}" for i in range(8)]
        self.at_once([f"add --name {name} --category {name}" for name in names])
        self.assertEqual((self.values("category", "addresses"), self.values("name", "addresses")), (names, names))

    def test_a_store_of_version_1_gives_the_files_that_it_gave_then(self):
        self.store.write_bytes((STORES / "version-1.db").read_bytes())
        self.environment["TZ"] = "Europe/Berlin"
        for kind in ("vcf", "ics", "vcs"):
            path = self.folder / f"exported.{kind}"
            self.orvo("export", path)
            self.assertEqual(self.errors, "")
            # What was edited, or came from vCalendar, tells when, and it was another time then. One that came without a UID
            # has got one since.
            self.assertEqual(*(re.sub(rb"\n(REV|CREATED|DTSTAMP|LAST-MODIFIED):\d{8}T\d{6}Z\r?(?=\n)"
                                      rb"|(?<=UID:)([0-9a-f-]{36}|orvo-\d+-[0-9a-f]{16})", b"", file.read_bytes())
                               for file in (path, STORES / f"version-1.{kind}")))

    def test_a_kill_during_an_import_leaves_all_or_none(self):
        count = 20000
        path = self.file("many.vcf", "".join(card(f"Person{i}") for i in range(count)))
        self.orvo("add --name First")
        seen = set()
        for delay in (0.05, 0.1, 0.2, 0.4, 0.8, 1.6):
            process = self.start("import", path)
            time.sleep(delay)
            process.kill()
            process.communicate()
            rows = len(self.rows("addresses"))
            self.assertEqual((rows - 1) % count, 0)
            seen.add(rows)
        self.assertIn(1, seen, "no kill came before the commit")

    def test_a_restore_brings_a_backup_back_and_tells_how_to_take_it_back(self):
        self.import_text(card("Old"))
        backup = self.folder / "it's.db"
        self.assertIn("backed up 1 addresses, 0 to-dos", self.orvo("backup", backup))
        self.assertIn("is there already", self.refused("backup", backup))
        self.import_text(card("New"))
        told = self.orvo("restore", backup).splitlines()
        self.assertEqual(len(self.rows("addresses")), 1)
        self.orvo(told[1].split("orvo ", 1)[1], store=None)
        self.assertEqual(len(self.rows("addresses")), 2)
        self.environment["XDG_DATA_HOME"] = str(self.folder / "new")
        self.orvo("restore", backup, store=None)
        self.assertEqual(len(self.rows("addresses", store=None)), 1)

    def test_a_backup_is_made_before_the_first_change_of_a_day_and_seven_stay(self):
        backups = self.folder / "backups"
        self.orvo("add --name First")
        self.assertFalse(backups.exists(), "of an empty store")
        for day in range(1, 11):
            self.orvo(f"--now 2026-12-{day:02}T10:00 add --name Day")
            if day == 1:
                self.file("backups/orvo-old.db", "of the user")
        days = [f"orvo-2026-12-{day:02}.db" for day in range(4, 11)]
        self.assertEqual(sorted(path.name for path in backups.iterdir()), [*days, "orvo-old.db"])
        self.assertEqual(len(self.rows("addresses", store=backups / days[-1])), 10)
        self.orvo("options --set automatic-backups no")
        self.orvo("--now 2026-12-11T10:00 add --name Day")
        self.orvo("options --set automatic-backups yes")
        self.store.write_bytes(self.store.read_bytes()[:5000])
        self.assertIn(f"restore {backups / days[-1]}` brings", self.refused("--now 2026-12-12T10:00 add --name Day"))
        self.assertEqual(len([*backups.iterdir()]), 8)

    def test_names_cannot_steer_a_terminal(self):
        self.import_text(card("Evil\x1b[2J\x07\u009b31m\u202e\u2028"))
        self.assertNotRegex(self.orvo("addresses"), r"[\x00-\x09\x0b-\x1f\x7f-\x9f\u2028-\u202e]")

    def test_completing_a_category_runs_nothing(self):
        self.import_text(card("P", "", "CATEGORIES:$(>pwn)\r\n"))
        script = pathlib.Path(sys.argv[2]).resolve().parent / "src/cli/completion/orvo"
        complete = (f"cd {self.folder}; PATH={pathlib.Path(self.program.program).parent}:$PATH; source {script}; "
                    f"COMP_WORDS=(orvo --store {self.store} addresses --category ''); COMP_CWORD=5; _orvo; "
                    "printf '%s\\n' \"${COMPREPLY[@]}\"")
        completed = subprocess.run(["bash", "-c", complete], capture_output=True, text=True).stdout.splitlines()
        self.assertEqual(completed, [r"\$\(\>pwn\)", "Uncategorized"])
        self.assertFalse((self.folder / "pwn").exists())

    def test_the_default_store_lies_in_the_data_folder(self):
        self.environment["HOME"] = str(self.folder)
        self.orvo("add --name Lee", store=None)
        self.assertTrue((self.folder / ".local/share/orvo/orvo.db").exists())
        self.environment["XDG_DATA_HOME"] = str(self.folder / "data")
        self.orvo("add --name Lee", store=None)
        self.assertTrue((self.folder / "data/orvo/orvo.db").exists())

    def test_a_folder_of_the_user_that_others_may_write_is_told(self):
        home = self.folder / "home"
        config, data = home / ".config", home / ".local/share"
        for folder in (config / "orvo", data):
            folder.mkdir(parents=True)
        self.environment |= {"HOME": str(home), "XDG_CONFIG_HOME": str(config)}

        def check(*told):
            self.orvo("add --name Lee", store=None)
            self.assertEqual(self.errors, "".join(
                f"orvo: {folder}/orvo: others could change what lies there: {open_one} may be written by other users\n"
                for folder, open_one in told))
        check()
        config.chmod(0o777)
        data.chmod(0o777)
        check((config, config), (data, data))
        home.chmod(0o777)
        check((config, home))
        home.chmod(0o1777)
        config.chmod(0o700)
        data.chmod(0o700)
        check()

    def test_a_card_comes_through_a_pipe(self):
        command = (f"exec '{self.program.program}' --store '{self.store}' import "
                   "<(printf 'BEGIN:VCARD\\nFN:Lee\\nEND:VCARD\\n')")
        done = subprocess.run(["bash", "-c", command], capture_output=True, timeout=120)
        self.assertEqual((done.returncode, done.stdout), (0, b"imported 1, updated 0, unchanged 0, skipped 0\n"), done.stderr)

    def test_nothing_found_is_told_by_exit_code_1(self):
        existing = self.file("keep.vcf", card("Keep"))
        for command in ("addresses", "addresses --category 'none such'", "show 1", f"export {existing}"):
            self.orvo(command, code=1)
        self.assertEqual(existing.read_bytes(), card("Keep").encode())

    def options(self):
        return self.rows("options")[0]

    def test_an_option_that_is_set_stays(self):
        self.assertEqual(len(self.options()), 19)
        changes = {"password-required": ("yes", True), "confirm-on-delete": ("no", False),
                   "auto-save-interval": ("20", 20), "work-week-begins": ("1", 1),
                   "startup-application": ("表\\\n to do", "表\\\n to do"), "todo-show-completed": ("0", False)}
        for code_page in (65001, 932):
            for name, (text, value) in changes.items():
                self.orvo(f"--code-page {code_page} options --set", name, text)
                self.assertEqual(self.options()[name], value, name)
        self.assertRegex(self.orvo("options"), r"(?m)^password-required +yes$")
        self.assertEqual((self.folder / "config/orvo/xtrauser.dat").read_bytes(), b"\x011\x01\0\0\0")

        self.orvo("options --set data-directory", self.folder)
        self.assertTrue(self.options()["password-required"], "the user's file lies beside the settings all the same")
        gone = self.folder / "gone"
        gone.mkdir()
        self.orvo("options --set data-directory", gone)
        gone.rmdir()
        self.assertTrue(self.options()["password-required"], "also where the data directory is gone")
        self.orvo("options --set password-required no")
        self.orvo("options --set data-directory ''")
        self.assertFalse(self.options()["password-required"])

    def test_a_wrong_option_is_told_and_changes_nothing(self):
        before = self.options()
        for name, value in (("colour", "red"), ("alarm-set", "perhaps"), ("alarm-set", "2"), ("work-day-begins", "24"),
                            ("auto-save-interval", "9"), ("alarm-advance", "1x"), ("alarm-advance", "99999999999"),
                            ("data-directory", "no/such"), ("startup-application", "x" * 261)):
            self.assertIn(name, self.refused("options --set", name, value))
        self.assertEqual(self.options(), before)

    def test_eight_processes_that_set_eight_options_lose_none(self):
        names = ["password-required", "alarm-set", "masking-private", "verify-data-file", "todo-mark-completion-date",
                 "todo-show-due-items-only", "work-day-begins", "alarm-advance"]
        self.options()
        for value in (1, 0, 1):
            self.at_once([f"options --set {name} {value}" for name in names])
            options = self.options()
            self.assertEqual([int(options[name]) for name in names], [value] * len(names))


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0]])
