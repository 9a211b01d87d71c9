#!/usr/bin/env python3
# Damages stores in known ways, and some at random: what can be read is listed, exported and rescued, the rest is told.
# SPDX-License-Identifier: MIT
import contextlib
import pathlib
import random
import sqlite3
import sys
import tempfile
import unittest

from command import CommandTest, Orvo
from damage import DAMAGES, PAGE, Trial, ids_of, make_store, pages, root_page, rows_of, zero_page

RECORDS = 240
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
    places = {}
    for number in range(int.from_bytes(data[start + 3:start + 5], "big")):
        pointer = start + 8 + 2 * number
        _, place = varint(data, start + int.from_bytes(data[pointer:pointer + 2], "big"))
        places[varint(data, place)[0]] = place
    return places


class DamageTest(CommandTest):
    @classmethod
    def setUpClass(cls):
        scratch = tempfile.TemporaryDirectory()
        cls.addClassCleanup(scratch.cleanup)
        cls.whole = pathlib.Path(scratch.name) / "whole.db"
        make_store(Orvo(scratch.name), cls.whole, RECORDS)
        cls.bytes = cls.whole.read_bytes()
        cls.addresses = ids_of(cls.whole, "address")
        cls.leaves = pages(cls.whole, "address")

    def setUp(self):
        super().setUp()
        self.fresh = self.folder / "fresh.db"

    @contextlib.contextmanager
    def damaged(self, why, change):
        """A store of its own, after the change; which must stay as it is."""
        with self.subTest(why):
            self.setUp()
            data = bytearray(self.bytes)
            change(data)
            self.store.write_bytes(data)
            yield
            self.assertEqual(self.store.read_bytes(), data)

    def told(self, command, *more, code=3):
        self.orvo(command, *more, code=code)
        return self.errors

    def rescue(self, code=3, damaged=None):
        """What a rescue into a fresh store tells."""
        self.orvo("rescue", damaged or self.store, self.fresh, code=code, store=None)
        return self.errors

    def expect(self, lost, told):
        """Without the lost addresses, list, export and a rescue have all, and tell `told`."""
        left = self.addresses - lost
        if lost:
            self.assertEqual(set(self.values("id", "addresses", code=3)), left)
            self.assertIn(told, self.errors)
        self.assertEqual(self.values("exported", "export", self.folder / "out.vcf", code=3), [len(left)])
        self.assertIn(told, self.errors)
        self.assertIn(told, self.rescue())
        self.assertEqual(ids_of(self.fresh, "address"), left)
        self.assertEqual(rows_of(self.fresh, "PRAGMA integrity_check"), [("ok",)])

    def test_rows_and_pages_that_cant_be_read_are_told_and_the_others_are_there(self):
        middle, last = self.leaves[len(self.leaves) // 2], self.leaves[-1]
        in_middle, in_last = (set(cells(self.bytes, page)) & self.addresses for page in (middle, last))
        where = {each: place for page in self.leaves for each, place in cells(self.bytes, page).items()}
        index = pages(self.whole, "address_category")

        def set_byte(place, value):
            return lambda data: data.__setitem__(place, value)

        def range_text(ids):
            return f"addresses {min(ids)} to {max(ids)} can't be read"
        for why, change, lost, told in (
                ("an id below the one before it", set_byte(where[200], 0x80), {200}, "address 200 can't be read"),
                ("the last row of what is read at once", set_byte(where[17], 1), {17}, "address 17 can't be read"),
                ("an id above the one behind it", set_byte(where[100], 127), {100}, "address 100 can't be read"),
                ("a page in the middle", lambda data: zero_page(data, middle), in_middle, range_text(in_middle)),
                ("the last page", lambda data: zero_page(data, last), in_last, range_text(in_last)),
                ("the index and a page", lambda data: [zero_page(data, page) for page in (*index, middle)], in_middle,
                 range_text(set(cells(self.bytes, middle))))):
            with self.damaged(why, change):
                self.expect(lost, told)

    def test_rows_to_which_no_page_leads_any_longer_are_rescued(self):
        for why, roots in (("the table's", ["address"]), ("that of the index, too", ["address", "address_category"])):
            with self.damaged(why, lambda data: [zero_page(data, root_page(self.whole, name)) for name in roots]):
                self.assertIn("addresses 1 to ", self.told("addresses"))
                self.rescue(code=0)
                self.assertEqual(*(rows_of(path, "SELECT id, fields FROM address") for path in (self.fresh, self.whole)))

    def test_labels_and_categories_that_cant_be_read_are_those_of_a_new_store(self):
        with self.damaged("the texts", lambda data: zero_page(data, root_page(self.whole, "text"))):
            for command in ("addresses", "cards", "show 1", "labels", "heading", "todos", f"export {self.folder}/out.vcf"):
                self.assertNotEqual(self.orvo(command, code=3), "")
                self.assertEqual(self.errors.count("the usual categories and labels stand for"), 1, (command, self.errors))
            self.assertIn("Custom 4", self.orvo("labels", code=3))
            self.assertIn("categories of addresses can't be read", self.rescue())
            self.assertEqual(ids_of(self.fresh, "address"), self.addresses)

    def test_a_note_that_cant_be_read_leaves_the_rest(self):
        page = pages(self.whole, "address_extra")[1]
        lost = min(cells(self.bytes, page))
        with self.damaged("a page of notes", lambda data: zero_page(data, page)):
            self.assertIn(f"Name{lost - 1}", self.orvo(f"show {lost}", code=3))
            self.assertIn("can't be read", self.errors)
            self.expect(set(), "")
            self.assertIn(f"the note of address {lost} can't be read", self.errors)

    def test_a_store_that_cant_be_opened_is_told_the_way_out_and_rescued_whole(self):
        for why, change, told in (
                ("the schema", lambda data: data.__setitem__(slice(100, PAGE), bytes(PAGE - 100)), "`orvo rescue`"),
                ("the first page", lambda data: zero_page(data, 1), "is not an Orvo store")):
            with self.damaged(why, change):
                self.assertIn(told, self.told("addresses", code=2))
                self.rescue(code=0)
                for query in ("SELECT id, ifnull(placement, id), category, flags, fields FROM address",
                              "SELECT * FROM address_extra", "SELECT id, due, priority, fields FROM todo",
                              "SELECT * FROM todo_extra", "SELECT * FROM text", "SELECT * FROM sqlite_sequence"):
                    self.assertEqual(*(sorted(rows_of(path, query)) for path in (self.fresh, self.whole)), query)

    def test_a_store_of_a_newer_version_isnt_rescued_without_a_word(self):
        with self.damaged("version 99", lambda data: data.__setitem__(63, 99)):
            self.assertIn("newer program", self.rescue())
            self.assertEqual(ids_of(self.fresh, "address"), self.addresses)

    def test_a_store_whose_end_is_cut_off_opens_for_reading(self):
        with self.damaged("cut", lambda data: data.__delitem__(slice(len(data) * 3 // 4, None))):
            self.assertGreater(len(self.rows("addresses", code=3)), 20)
            self.assertIn("`orvo rescue`", self.told("add --name New", code=2))

    def test_a_rescue_makes_no_store_of_what_is_none_and_replaces_nothing(self):
        for content, told in ((b"BEGIN:VCARD\r\nEND:VCARD\r\n" * 999, "holds nothing"), (b"", "is not an Orvo store")):
            self.store.write_bytes(content)
            self.assertIn(told, self.rescue(code=2))
            self.assertFalse(self.fresh.exists())
        self.fresh.write_bytes(b"mine")
        self.rescue(2, self.whole)
        self.assertEqual(self.fresh.read_bytes(), b"mine")
        self.assertEqual(list(self.folder.glob("fresh.db.*")), [])

    def test_what_stands_in_the_way_of_a_log_is_told_by_name(self):
        for ending in ("-wal", "-shm"):
            with self.damaged(ending, lambda data: None):
                obstacle = self.folder / f"{self.store.name}{ending}"
                obstacle.mkdir()
                self.assertIn(f"{obstacle.name} is in the way: it is no file", self.told("add --name New", code=2))

    def test_of_stores_damaged_at_random_the_most_is_there(self):
        sums = {way: [0, 0] for way in ("list", "export", "rescue")}
        for number in range(TRIALS):
            with self.damaged(number, lambda data: DAMAGES[number % len(DAMAGES)](data, random.Random(f"1/{number}"))):
                trial = Trial(self.program, self.store, self.whole)
            for (table, way), shown in trial.shown.items():
                sums[way][0] += len(trial.readable[table])
                sums[way][1] += len(shown)
        for way, (there, shown) in sums.items():
            self.assertGreaterEqual(shown, 0.95 * there, way)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
