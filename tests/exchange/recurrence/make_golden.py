#!/usr/bin/env python3
# Writes dates.txt beside this file: random rules, each with the dates that dateutil gives for it.
# SPDX-License-Identifier: MIT
#
# A line has, parted by tabs: parameters and value of DTSTART, RRULE, EXDATE, the values of
# DTSTART after each move, and for a time in a zone those as seconds since 1970 in UTC.
import datetime as dt
import itertools
import pathlib
import random

from dateutil import rrule, tz

DAYS = ["MO", "TU", "WE", "TH", "FR", "SA", "SU"]
ZONES = ["DATE", "", "UTC", "Europe/Berlin", "America/New_York", "Asia/Tokyo",
         "Australia/Lord_Howe", "Asia/Kolkata"]
MOVES = 4
random.seed(5545)


def some(values, most=3):
    return sorted(random.sample(list(values), random.randint(1, most)))


def numbers(values, most=3):
    return ",".join(str(value) for value in some(values, most))


def ordinal_days(most):
    ordinals = [o for o in range(-most, most + 1) if o]
    return ",".join(str(random.choice(ordinals)) + day for day in some(DAYS, 2))


def random_parts(kind):
    """The parts behind FREQ. Where the programs differ in how they read a rule, it isn't made."""
    days = ",".join(some(DAYS, 4))
    month_days = numbers([*range(1, 32), -1, -2, -3])
    choices = {
        "DAILY": ["", "BYMONTH=" + numbers(range(1, 13)), "BYDAY=" + days,
                  "BYMONTHDAY=" + month_days, "BYDAY=" + days + ";BYMONTHDAY=" + month_days],
        "WEEKLY": ["", "BYDAY=" + days, "BYDAY=" + days + ";BYMONTH=" + numbers(range(1, 13))],
        "MONTHLY": ["", "BYMONTHDAY=" + month_days, "BYDAY=" + ordinal_days(5),
                    "BYDAY=" + days, "BYDAY=FR;BYMONTHDAY=13",
                    "BYDAY=MO,TU,WE,TH,FR;BYSETPOS=" + random.choice(["-1", "1", "2,-2", "23"]),
                    "BYMONTHDAY=" + month_days + ";BYMONTH=" + numbers(range(1, 13))],
        "YEARLY": ["", "BYMONTH=" + numbers(range(1, 13)),
                   "BYMONTH=" + numbers(range(1, 13)) + ";BYMONTHDAY=" + month_days,
                   "BYMONTH=" + numbers(range(1, 13), 1) + ";BYDAY=" + ordinal_days(4),
                   "BYDAY=" + ordinal_days(50), "BYYEARDAY=" + numbers([1, 60, 200, 366, -1, -366]),
                   "BYWEEKNO=" + numbers([1, 20, 52, 53, -1]) + ";BYDAY=" + days,
                   "BYMONTH=" + numbers(range(1, 13)) + ";BYDAY=" + days + ";BYSETPOS=-1"],
        "HOURLY": ["", "BYHOUR=" + numbers(range(24)), "BYMINUTE=" + numbers(range(60))],
        "MINUTELY": ["", "BYHOUR=" + numbers(range(24)) + ";BYDAY=" + days],
    }
    parts = random.choice(choices[kind])
    if kind in ("DAILY", "WEEKLY") and random.random() < 0.15:
        parts += ";BYHOUR=" + numbers([6, 12, 18])
    return parts.strip(";")


def text_of(moment, zone):
    if zone == "DATE":
        return moment.strftime("%Y%m%d")
    return moment.strftime("%Y%m%dT%H%M%S") + ("Z" if zone == "UTC" else "")


def make_line():
    zone = random.choice(ZONES)
    kinds = ["DAILY", "WEEKLY", "MONTHLY", "YEARLY"]
    kind = random.choice(kinds + kinds + ([] if zone == "DATE" else ["HOURLY", "MINUTELY"]))
    start = dt.datetime(random.randint(1996, 2026), 1, 1) + dt.timedelta(
        days=random.randint(0, 364), minutes=0 if zone == "DATE" else random.randint(0, 1439))
    rule = "FREQ=" + kind
    if random.random() < 0.4:
        rule += ";INTERVAL=" + str(random.choice([2, 3, 4, 6, 13]))
    parts = random_parts(kind)
    if zone == "DATE" and "BYHOUR" in parts:
        return None
    if parts:
        rule += ";" + parts
    if kind == "WEEKLY" and random.random() < 0.5:
        rule += ";WKST=" + random.choice(["SU", "MO", "WE"])
    first = list(itertools.islice(rrule.rrulestr(rule, dtstart=start), 1))
    if not first:
        return None
    start = first[0]
    aware = zone not in ("DATE", "", "UTC")
    tail = random.random()
    coming = list(itertools.islice(rrule.rrulestr(rule, dtstart=start), 12))
    if tail < 0.2:
        rule += ";COUNT=" + str(random.randint(1, 6))
    elif tail < 0.4:
        until = random.choice(coming[1:] or coming)
        if aware:
            until = until.replace(tzinfo=tz.gettz(zone)).astimezone(tz.UTC)
        rule += ";UNTIL=" + text_of(until, "UTC" if aware else zone)
    leaves_out = len(coming) > 3 and random.random() < 0.3
    excluded = some(coming[1:], 3) if leaves_out else []
    dates = rrule.rruleset()
    plain = rule.split(";UNTIL")[0]
    read = rrule.rrulestr(plain, dtstart=start)
    if "UNTIL" in rule:
        local = until.astimezone(tz.gettz(zone)).replace(tzinfo=None) if aware else until
        read = read.replace(until=local)
    dates.rrule(read)
    for date in excluded:
        dates.exdate(date)
    moved = [d for d in itertools.islice(dates, MOVES + 1) if d > start][:MOVES]
    if any(d.year > 2036 for d in moved):  # beyond what a record takes
        return None
    parameters = {"DATE": ";VALUE=DATE", "": "", "UTC": ""}.get(zone, ";TZID=" + zone)
    seconds = [str(int(d.replace(tzinfo=tz.gettz(zone)).timestamp())) for d in moved if aware]
    return "\t".join([parameters, text_of(start, zone), rule,
                      ",".join(text_of(d, zone) for d in excluded),
                      ",".join(text_of(d, zone) for d in moved), ",".join(seconds)])


def main():
    lines = []
    while len(lines) < 400:
        try:
            line = make_line()
        except ValueError:  # an hour that never comes
            continue
        if line:
            lines.append(line)
    path = pathlib.Path(__file__).with_name("dates.txt")
    path.write_text("".join(line + "\n" for line in lines))


main()
