#!/usr/bin/env python3
# Damages stores in known ways, and some at random: what can be read is listed, exported and rescued, the rest is told.
# SPDX-License-Identifier: MIT
import json
import pathlib
import shutil
import sqlite3
import sys
import tempfile
import unittest

from damage import PAGE, Orvo, ids_of, make_store, measure, pages, root_page, zero_page

RECORDS = 240
DELETED = RECORDS // 3
TRIALS = 20


def varint(data, at):
    value = 0
    while True:
        byte, at = data[at], at + 1
        value = value << 7 | byte & 0x7F
        if byte < 0x80:
            return value, at


def cells(data, page):
    """Where the id of each row of a leaf page lies, by the id."""
    start = (page - 1) * PAGE
    count = int.from_bytes(data[start + 3:start + 5], "big")
    places = {}
    for number in range(count):
        pointer = start + 8 + 2 * number
        _, place = varint(data, start + int.from_bytes(data[pointer:pointer + 2], "big"))
        places[varint(data, place)[0]] = place
    return places


class DamageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.scratch = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.scratch.cleanup)
        cls.orvo = Orvo(sys.argv[1], cls.scratch.name)
        cls.whole = cls.orvo.folder / "whole.db"
        make_store(cls.orvo, cls.whole, RECORDS)
        cls.bytes = cls.whole.read_bytes()
        cls.addresses = ids_of(cls.whole, "address")
        cls.leaves = pages(cls.whole, "address")

    def setUp(self):
        self.store = self.orvo.folder / "damaged.db"
        self.fresh = self.orvo.folder / "fresh.db"
        for leftover in [*self.orvo.folder.glob("damaged.db*"), *self.orvo.folder.glob("fresh.db*")]:
            shutil.rmtree(leftover) if leftover.is_dir() else leftover.unlink()

    def damage(self, change):
        data = bytearray(self.bytes)
        change(data)
        self.store.write_bytes(data)
        return bytes(data)

    def run_orvo(self, *arguments, code):
        got, out, errors = self.orvo.run(*arguments, store=self.store)
        self.assertEqual(got, code, (arguments, out[:200], errors))
        return out, errors

    def expect(self, lost, told):
        """Without the lost addresses, list, export and a rescue have all, and tell `told`."""
        left = self.addresses - lost
        if lost:
            out, errors = self.run_orvo("--json", "addresses", code=3)
            self.assertEqual({json.loads(line)["id"] for line in out.splitlines()}, left)
            self.assertIn(told, errors)
        out, errors = self.run_orvo("--json", "export", self.orvo.folder / "out.vcf", code=3)
        self.assertEqual(json.loads(out)["exported"], len(left))
        self.assertIn(told, errors)
        before = self.store.read_bytes()
        got, out, errors = self.orvo.run("rescue", self.store, self.fresh)
        self.assertEqual(got, 3, errors)
        self.assertIn(told, errors)
        self.assertEqual(ids_of(self.fresh, "address"), left)
        self.assertEqual(self.store.read_bytes(), before)
        self.assertEqual(sqlite3.connect(self.fresh).execute("PRAGMA integrity_check").fetchall(), [("ok",)])

    def test_rows_and_pages_that_cant_be_read_are_told_and_the_others_are_there(self):
        middle, last = self.leaves[len(self.leaves) // 2], self.leaves[-1]
        in_middle, in_last = (set(cells(self.bytes, page)) & self.addresses for page in (middle, last))
        where = {each: place for page in self.leaves for each, place in cells(self.bytes, page).items()}
        index = pages(self.whole, "address_category")

        def set_byte(place, value):
            def change(data):
                data[place] = value
            return change

        def range_text(ids):
            return f"addresses {min(ids)} to {max(ids)} can't be read"
        rows = [
            ("an id below the one before it", set_byte(where[200], 0x80), {200}, "address 200 can't be read"),
            ("the last row of what is read at once", set_byte(where[17], 1), {17}, "address 17 can't be read"),
            ("an id above the one behind it", set_byte(where[100], 127), {100}, "address 100 can't be read"),
            ("a page in the middle", lambda data: zero_page(data, middle), in_middle, range_text(in_middle)),
            ("the last page", lambda data: zero_page(data, last), in_last, range_text(in_last)),
            ("the index and a page", lambda data: [zero_page(data, page) for page in (*index, middle)], in_middle,
             range_text(set(cells(self.bytes, middle)))),
        ]
        for why, change, lost, told in rows:
            with self.subTest(why):
                self.setUp()
                self.damage(change)
                self.expect(lost, told)

    def test_rows_to_which_no_page_leads_any_longer_are_rescued(self):
        for why, roots in (("the table's", ["address"]), ("that of the index, too", ["address", "address_category"])):
            with self.subTest(why):
                self.setUp()
                self.damage(lambda data: [zero_page(data, root_page(self.whole, name)) for name in roots])
                self.assertIn("addresses 1 to ", self.run_orvo("addresses", code=3)[1])
                code, out, errors = self.orvo.run("rescue", self.store, self.fresh)
                self.assertIn(code, (0, 3), errors)
                self.assertEqual(ids_of(self.fresh, "address"), self.addresses)
                self.assertEqual(*(sqlite3.connect(path).execute("SELECT id, fields FROM address").fetchall()
                                   for path in (self.fresh, self.whole)))

    def test_labels_and_categories_that_cant_be_read_are_those_of_a_new_store(self):
        self.damage(lambda data: zero_page(data, root_page(self.whole, "text")))
        for command in (["addresses"], ["cards"], ["show", 1], ["labels"], ["heading"], ["todos"],
                        ["export", self.orvo.folder / "out.vcf"]):
            out, errors = self.run_orvo(*command, code=3)
            self.assertEqual(errors.count("the usual categories and labels stand for"), 1, (command, errors))
            self.assertNotEqual(out, "")
        self.assertIn("Custom 4", self.run_orvo("labels", code=3)[0])
        self.assertIn("categories of addresses can't be read", self.orvo.run("rescue", self.store, self.fresh)[2])
        self.assertEqual(ids_of(self.fresh, "address"), self.addresses)

    def test_a_note_that_cant_be_read_leaves_the_rest(self):
        page = pages(self.whole, "address_extra")[1]
        self.damage(lambda data: zero_page(data, page))
        lost = min(cells(self.bytes, page))
        out, errors = self.run_orvo("show", lost, code=3)
        self.assertIn(f"Name{lost - 1}", out)
        self.assertIn("can't be read", errors)
        self.expect(set(), "")
        self.assertIn(f"the note of address {lost} can't be read", self.orvo.run(
            "rescue", self.store, self.orvo.folder / "fresh.db2")[2])
        (self.orvo.folder / "fresh.db2").unlink()

    def test_a_store_that_cant_be_opened_is_told_the_way_out_and_rescued_whole(self):
        for why, change, told in (
                ("the schema", lambda data: data.__setitem__(slice(100, PAGE), bytes(PAGE - 100)), "`orvo rescue`"),
                ("the first page", lambda data: zero_page(data, 1), "is not an Orvo store")):
            with self.subTest(why):
                self.setUp()
                damaged = self.damage(change)
                self.assertIn(told, self.run_orvo("addresses", code=2)[1])
                self.assertEqual(self.orvo.run("rescue", self.store, self.fresh)[0], 0)
                self.assertEqual(self.store.read_bytes(), damaged)
                for query in ("SELECT id, ifnull(placement, id), category, flags, fields FROM address",
                              "SELECT * FROM address_extra", "SELECT id, due, priority, fields FROM todo",
                              "SELECT * FROM todo_extra", "SELECT * FROM text", "SELECT * FROM sqlite_sequence"):
                    self.assertEqual(*(sorted(sqlite3.connect(path).execute(query).fetchall())
                                       for path in (self.fresh, self.whole)), query)

    def test_a_store_of_a_newer_version_isnt_rescued_without_a_word(self):
        self.damage(lambda data: data.__setitem__(63, 99))
        code, _, errors = self.orvo.run("rescue", self.store, self.fresh)
        self.assertEqual(code, 3)
        self.assertIn("newer program", errors)
        self.assertEqual(ids_of(self.fresh, "address"), self.addresses)

    def test_a_store_whose_end_is_cut_off_opens_for_reading(self):
        self.damage(lambda data: data.__delitem__(slice(len(data) * 3 // 4, None)))
        out, _ = self.run_orvo("--json", "addresses", code=3)
        self.assertGreater(len(out.splitlines()), 20)
        self.assertIn("`orvo rescue`", self.run_orvo("add", "--name", "New", code=2)[1])

    def test_a_rescue_makes_no_store_of_what_is_none_and_replaces_nothing(self):
        for why, content, told in (("cards", b"BEGIN:VCARD\r\nEND:VCARD\r\n" * 999, "holds nothing"),
                                   ("nothing", b"", "is not an Orvo store")):
            with self.subTest(why):
                self.store.write_bytes(content)
                code, _, errors = self.orvo.run("rescue", self.store, self.fresh)
                self.assertEqual(code, 2)
                self.assertIn(told, errors)
                self.assertFalse(self.fresh.exists())
        self.fresh.write_bytes(b"mine")
        self.assertEqual(self.orvo.run("rescue", self.whole, self.fresh)[0], 2)
        self.assertEqual(self.fresh.read_bytes(), b"mine")
        self.assertEqual([path for path in self.orvo.folder.iterdir() if path.name.startswith("fresh.db.")], [])

    def test_what_stands_in_the_way_of_a_log_is_told_by_name(self):
        for ending in ("-wal", "-shm"):
            self.setUp()
            self.damage(lambda data: None)
            obstacle = pathlib.Path(f"{self.store}{ending}")
            obstacle.mkdir()
            self.assertIn(f"{obstacle.name} is in the way: it is no file",
                          self.run_orvo("add", "--name", "New", code=2)[1])

    def test_of_stores_damaged_at_random_the_most_is_there(self):
        folder = self.orvo.folder / "trials"
        folder.mkdir()
        sums, _ = measure(Orvo(sys.argv[1], folder), TRIALS, seed=1, records=RECORDS)
        for way, (there, shown) in sums.items():
            self.assertGreaterEqual(shown, 0.95 * there, way)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
