#!/usr/bin/env python3
# Damages stores at random and measures how much of what SQLite still gives, record by record, the lists, the exports and
# a rescue show: damage.py ORVO [--trials N] [--seed N] [--records N] [--verbose]
# SPDX-License-Identifier: MIT
import argparse
import json
import os
import pathlib
import random
import shutil
import sqlite3
import subprocess
import sys
import tempfile

PAGE = 4096
TABLES = {"address": ("addresses", "out.vcf"), "todo": ("todos", "out.ics")}


class Orvo:
    """Runs the program on stores of a scratch folder."""

    def __init__(self, program, folder):
        self.program = str(pathlib.Path(program).resolve())
        self.folder = pathlib.Path(folder)

    def run(self, *arguments, store=None, **options):
        named = ["--store", str(store)] if store else []
        result = subprocess.run([self.program, *named, *map(str, arguments)], capture_output=True, timeout=120,
                                env={"PATH": os.environ["PATH"], "LC_ALL": "en_US.UTF-8",
                                     "XDG_CONFIG_HOME": str(self.folder / "config")}, **options)
        errors = result.stderr.decode(errors="replace")
        if result.returncode not in (0, 1, 2, 3) or "Sanitizer" in errors:
            raise AssertionError(f"{arguments} ended with {result.returncode}: {errors}")
        return result.returncode, result.stdout.decode(errors="replace"), errors


def make_store(orvo, path, records):
    """A store with addresses and half as many to-dos, in categories, with notes of all lengths and some deleted."""
    chance = random.Random(records)
    cards = [f"BEGIN:VCARD\r\nVERSION:3.0\r\nN:Name{i};First{i};;;\r\nTEL;TYPE=HOME:+1 555 {i:04}\r\n"
             f"CATEGORIES:Group{i % 5}\r\nNOTE:{'x' * chance.choice((0, 20, 200, 9000 if i % 40 == 0 else 30))}\r\n"
             f"ADR:;;{i} Long Street;Town{i % 17};;{i:05};Land\r\nEND:VCARD\r\n" for i in range(records)]
    to_dos = [f"BEGIN:VTODO\r\nUID:u{i}\r\nSUMMARY:Do {i} {'y' * chance.randrange(90)}\r\nDUE:20261224T{i % 24:02}0000\r\n"
              f"CATEGORIES:Kind{i % 3}\r\nEND:VTODO\r\n" for i in range(records // 2)]
    (orvo.folder / "in.vcf").write_text("".join(cards))
    (orvo.folder / "in.ics").write_text("BEGIN:VCALENDAR\r\nVERSION:2.0\r\n" + "".join(to_dos) + "END:VCALENDAR\r\n")
    code, _, errors = orvo.run("import", orvo.folder / "in.vcf", orvo.folder / "in.ics", store=path)
    assert code == 0, errors
    orvo.run("delete", records // 3, store=path)


def root_page(path, name):
    database = sqlite3.connect(path)
    page = database.execute("SELECT rootpage FROM sqlite_schema WHERE name = ?", (name,)).fetchone()[0]
    database.close()
    return page


def pages(path, name, kind="leaf"):
    """The pages of a table or an index, in its order."""
    database = sqlite3.connect(path)
    found = [page for page, in database.execute(
        "SELECT pageno FROM dbstat WHERE name = ? AND pagetype = ? ORDER BY path", (name, kind))]
    database.close()
    return found


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


def is_packed(fields):
    last, at = 0, 0
    while at < len(fields):
        number, at, length, shift = fields[at], at + 1, 0, 0
        while at < len(fields):
            byte = fields[at]
            length, shift, at = length | (byte & 0x7F) << shift, shift + 7, at + 1
            if byte < 0x80:
                break
        if number <= last or length == 0 or at + length > len(fields):
            return False
        last, at = number, at + length
    return True


def readable_singly(path, table, ids):
    """The records that a search by the id still gives, as `show` does it."""
    found = set()
    database = sqlite3.connect(f"file:{path}?mode=ro", uri=True)
    database.text_factory = bytes
    try:
        database.execute("PRAGMA writable_schema = ON")
    except sqlite3.DatabaseError:
        return found
    for each in ids:
        try:
            row = database.execute(f"SELECT * FROM {table} WHERE id = ?", (each,)).fetchone()
        except (sqlite3.DatabaseError, sqlite3.OperationalError):
            continue
        if row and isinstance(row[3], int) and not row[3] & 4 and isinstance(row[4], bytes) and is_packed(row[4]):
            found.add(each)
    database.close()
    return found


def ids_of(path, table):
    database = sqlite3.connect(path)
    ids = {each for each, in database.execute(f"SELECT id FROM {table} WHERE flags & 4 = 0")}
    database.close()
    return ids


class Trial:
    """What became of one damaged store."""

    def __init__(self, orvo, path, before):
        self.readable, self.shown, self.silent = {}, {}, []
        fresh = orvo.folder / "fresh.db"
        fresh.unlink(missing_ok=True)
        can_open = "can't be opened" not in orvo.run("show", 1, store=path)[2]
        for table, (command, target) in TABLES.items():
            readable = readable_singly(path, table, before[table]) if can_open else set()
            code, out, self.errors = orvo.run("--json", command, store=path)
            listed = {json.loads(line)["id"] for line in out.splitlines()}
            (orvo.folder / target).unlink(missing_ok=True)
            exported = orvo.run("--json", "export", orvo.folder / target, store=path)
            self.readable[table] = readable
            self.shown[table, "list"] = readable & listed
            count = json.loads(exported[1])["exported"] if exported[1] else 0
            self.shown[table, "export"] = set(sorted(readable)[:count])
            if code in (0, 1) and before[table] - listed:
                self.silent.append((table, before[table] - listed))
        damaged = path.read_bytes()
        self.rescue = orvo.run("rescue", path, fresh)
        assert path.read_bytes() == damaged, "the damaged store was changed"
        assert fresh.exists() == (self.rescue[0] in (0, 3)), self.rescue
        for table in TABLES:
            rescued = ids_of(fresh, table) if fresh.exists() else set()
            self.shown[table, "rescue"] = self.readable[table] & rescued


def measure(orvo, trials, seed, records, verbose=False):
    """Gives, by way of showing, how many records there were to show and how many were shown."""
    whole = orvo.folder / "whole.db"
    make_store(orvo, whole, records)
    before = {table: ids_of(whole, table) for table in TABLES}
    sums = {way: [0, 0] for way in ("list", "export", "rescue")}
    silent = 0
    for number in range(trials):
        chance = random.Random(f"{seed}/{number}")
        data = bytearray(whole.read_bytes())
        damage = DAMAGES[number % len(DAMAGES)]
        damage(data, chance)
        path = orvo.folder / "damaged.db"
        for leftover in orvo.folder.glob("damaged.db*"):
            leftover.unlink()
        path.write_bytes(data)
        trial = Trial(orvo, path, before)
        for (table, way), shown in trial.shown.items():
            missing = trial.readable[table] - shown
            sums[way][0] += len(trial.readable[table])
            sums[way][1] += len(shown)
            if missing and verbose:
                print(f"trial {number} ({damage.__name__}): {way} of {table} lacks {sorted(missing)[:8]}: {trial.errors}"
                      f" {trial.rescue}")
        silent += bool(trial.silent)
        if trial.silent and verbose:
            print(f"trial {number} ({damage.__name__}): silent {trial.silent}")
    return sums, silent


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("orvo")
    parser.add_argument("--trials", type=int, default=500)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--records", type=int, default=300)
    parser.add_argument("--verbose", action="store_true")
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        sums, silent = measure(Orvo(options.orvo, folder), options.trials, options.seed, options.records,
                               options.verbose)
    for way, (there, shown) in sums.items():
        print(f"{way}: {shown} of {there} records that can be read one by one ({100 * shown / max(there, 1):.2f} %)")
    print(f"stores that lack a record without a word: {silent} of {options.trials}")
    return 0 if all(shown >= 0.95 * there for there, shown in sums.values()) else 1


if __name__ == "__main__":
    sys.exit(main())
