# Damages stores at random and measures how much of what SQLite still gives, record by record, the lists, the exports
# and a rescue show.
# SPDX-License-Identifier: MIT
import contextlib
import json
import random
import sqlite3

from command import card

PAGE = 4096
TABLES = {"address": ("addresses", "out.vcf"), "todo": ("todos", "out.ics")}


def make_store(orvo, path, records):
    """A store with addresses and half as many to-dos, in categories, with notes of all lengths and some deleted."""
    chance = random.Random(records)
    cards = [card(f"Name{i}", f"First{i}", f"TEL;TYPE=HOME:+1 555 {i:04}\r\nCATEGORIES:Group{i % 5}\r\n"
                  f"NOTE:{'x' * chance.choice((0, 20, 200, 9000 if i % 40 == 0 else 30))}\r\n"
                  f"ADR:;;{i} Long Street;Town{i % 17};;{i:05};Land\r\n") for i in range(records)]
    to_dos = [f"BEGIN:VTODO\r\nUID:u{i}\r\nSUMMARY:Do {i} {'y' * chance.randrange(90)}\r\n"
              f"DUE:20261224T{i % 24:02}0000\r\nCATEGORIES:Kind{i % 3}\r\nEND:VTODO\r\n" for i in range(records // 2)]
    (orvo.folder / "in.vcf").write_text("".join(cards))
    (orvo.folder / "in.ics").write_text("BEGIN:VCALENDAR\r\nVERSION:2.0\r\n" + "".join(to_dos) + "END:VCALENDAR\r\n")
    code, _, errors = orvo.run("import", orvo.folder / "in.vcf", orvo.folder / "in.ics", store=path)
    assert code == 0, errors
    orvo.run("delete", records // 3, store=path)


def rows_of(path, query, *values):
    with contextlib.closing(sqlite3.connect(path)) as database:
        return database.execute(query, values).fetchall()


def root_page(path, name):
    return rows_of(path, "SELECT rootpage FROM sqlite_schema WHERE name = ?", name)[0][0]


def pages(path, name):
    """The leaf pages of a table or an index, in its order."""
    return [page for page, in rows_of(
        path, "SELECT pageno FROM dbstat WHERE name = ? AND pagetype = 'leaf' ORDER BY path", name)]


def ids_of(path, table):
    return {each for each, in rows_of(path, f"SELECT id FROM {table} WHERE flags & 4 = 0")}


def zero_page(data, page):
    data[(page - 1) * PAGE:page * PAGE] = bytes(PAGE)


def random_bytes(data, chance):
    for _ in range(chance.choice((1, 4, 16, 64))):
        data[chance.randrange(len(data))] = chance.randrange(256)


def random_pages(data, chance):
    for _ in range(chance.randrange(1, 4)):
        zero_page(data, chance.randrange(1, len(data) // PAGE) + 1)


def cut_end(data, chance):
    del data[chance.randrange(PAGE, len(data)):]


DAMAGES = (random_bytes, random_pages, cut_end)


def readable_singly(path, table, ids):
    """The records that a search by the id still gives, as `show` does it."""
    found = set()
    with contextlib.closing(sqlite3.connect(f"file:{path}?mode=ro", uri=True)) as database:
        database.text_factory = bytes
        with contextlib.suppress(sqlite3.DatabaseError):
            database.execute("PRAGMA writable_schema = ON")
            for each in ids:
                with contextlib.suppress(sqlite3.DatabaseError):
                    row = database.execute(f"SELECT * FROM {table} WHERE id = ?", (each,)).fetchone()
                    if row and isinstance(row[3], int) and not row[3] & 4 and isinstance(row[4], bytes):
                        found.add(each)
    return found


class Trial:
    """What became of one damaged store."""

    def __init__(self, orvo, path, whole):
        self.readable, self.shown = {}, {}
        fresh = path.parent / "fresh.db"
        can_open = "can't be opened" not in orvo.run("show", 1, store=path)[2]
        for table, (command, target) in TABLES.items():
            self.readable[table] = readable = readable_singly(path, table, ids_of(whole, table)) if can_open else set()
            listed = {json.loads(line)["id"] for line in orvo.run("--json", command, store=path)[1].splitlines()}
            self.shown[table, "list"] = readable & listed
            exported = orvo.run("--json", "export", path.parent / target, store=path)[1]
            self.shown[table, "export"] = set(sorted(readable)[:json.loads(exported)["exported"] if exported else 0])
        code, _, errors = orvo.run("rescue", path, fresh)
        assert fresh.exists() == (code in (0, 3)), errors
        for table, readable in self.readable.items():
            self.shown[table, "rescue"] = readable & (ids_of(fresh, table) if fresh.exists() else set())
