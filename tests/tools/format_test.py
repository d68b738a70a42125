#!/usr/bin/env python3
"""Reads menu files with a reader written from docs/format.md alone, and compares the
result with the program's: for the samples, the fuzzing corpus, and copies of them with
a few bytes changed.

    format_test.py PRINT_MENU [SEED]

PRINT_MENU is the program of tests/menufile/print_menu.cc.
"""

import random
import re
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
MARKER = b"<START ZOL>"
NUMBER = re.compile(rb"[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?")
APPEARANCE, DIRECTORY, ITEM = 5, 5, 6
DAMAGED_MENUS = 20000


class Damaged(Exception):
    """The file ends inside a record."""


def after_marker(data):
    """Where the type line begins, or None."""
    start = 0
    while start < len(data):
        end = data.find(b"\r", start)
        if end < 0:
            return len(data) if data[start:] == MARKER else None
        following = end + (2 if data[end + 1:end + 2] == b"\n" else 1)
        if data[start:end] == MARKER:
            return following
        start = following
    return None


def number_text(number):
    """The shortest form of a number: as in Python, but without ".0"."""
    return re.sub(r"\.0$", "", repr(number)) if number else "0"


def bare_value(field):
    """The kind of an unquoted field, and the bytes that a writer writes for it."""
    if not field:
        return ("E", b"")
    if NUMBER.fullmatch(field):
        number = float(field)
        too_small = number == 0 and re.search(rb"[1-9]", re.split(rb"[eE]", field)[0])
        if abs(number) != float("inf") and not too_small:
            return ("N", number_text(number).encode())
    return ("T", field)


class Fields:
    def __init__(self, data, position):
        self.data, self.position = data, position

    def at_end(self):
        return self.position >= len(self.data)

    def read(self):
        data, at = self.data, self.position
        while data[at:at + 1] == b" ":
            at += 1
        if at >= len(data):
            raise Damaged
        quoted = data[at:at + 1] == b'"'
        if quoted:
            closing = data.find(b'"', at + 1)
            if closing < 0:
                raise Damaged
            value, after = ("T", data[at + 1:closing]), closing + 1
        else:
            after = at
        end = re.compile(rb"[,\r\n]|\Z").search(data, after).start()
        if not quoted:
            value = bare_value(data[at:end].rstrip(b" "))
        self.position = end + (2 if data[end:end + 2] == b"\r\n" else 1)
        return value

    def record(self, count):
        return [self.read() for _ in range(count)]


def read_menu(data):
    """Returns how reading ended, the keyword, and the complete records."""
    start = after_marker(data)
    if start is None:
        return "no menu", None, []
    fields, records, keyword = Fields(data, start), [], None
    try:
        keyword = fields.read()[1]
        records.append(fields.record(APPEARANCE))
        if keyword == b"DIRPOINT":
            records.append(fields.record(DIRECTORY))
        while keyword == b"USERDEF" and not fields.at_end():
            records.append(fields.record(ITEM))
    except Damaged:
        return "damaged", keyword, records
    return "menu", keyword, records


def line_of(record):
    """A record as writers write it."""
    return b",".join(b'"%s"' % text if kind == "T" else text for kind, text in record) + b"\r\n"


def as_printed(line):
    """Parses a line of print_menu: how reading ended, and the fields of each record."""
    end, *records = line.split("|")
    shown = []
    for record in records:
        # The kind of the record and the number of an entry come before its fields.
        fields = [bytes.fromhex(field) for field in record.split()]
        fields = fields[2 if len(fields) > ITEM + 1 else 1:]
        shown.append([(field[:1].decode(), field[2:]) for field in fields])
    return end, shown


def damaged(data, source):
    """A copy of the menu with some bytes of its description changed, inserted or removed."""
    data = bytearray(data)
    for _ in range(source.randint(1, 3)):
        first = max(data.find(MARKER), 0)
        at = source.randrange(first, len(data) + 1)
        piece = source.choice([b'"', b",", b"\r", b"\n", b"\r\n", b" ", b"7", b"-", b".5", b"1e9",
                               b"E-2", b"\0", b"\x81\x5c", b"\t", b"x", b"1e400", b"007"])
        how = source.randrange(4)
        if how == 0:
            del data[at:at + source.randint(1, 5)]
        elif how == 1:
            data[at:at + len(piece)] = piece
        elif how == 2:
            data[at:at] = piece
        else:
            del data[at:]
    return bytes(data)


def main():
    seed = int(sys.argv[2]) if len(sys.argv) > 2 else int(time.time())
    source = random.Random(seed)
    samples = [path.read_bytes() for path in sorted((ROOT / "samples").glob("*.menu"))]
    corpus = [path.read_bytes() for path in sorted((ROOT / "tests/fuzz/corpus/load").iterdir())]
    assert len(samples) > 3 and len(corpus) > 10, "there is nothing to read"
    menus = samples + corpus
    menus += [damaged(source.choice(samples + corpus), source) for _ in range(DAMAGED_MENUS)]

    printed = subprocess.run(
        [sys.argv[1]], input=b"".join(b"%d\n%s" % (len(menu), menu) for menu in menus),
        stdout=subprocess.PIPE, check=True).stdout.decode("ascii").splitlines()
    assert len(printed) == len(menus), "print_menu left menus out"

    ends = {}
    for menu, line in zip(menus, printed):
        end, _, records = read_menu(menu)
        expected_end, expected = as_printed(line)
        ends[end] = ends.get(end, 0) + 1
        if end == "no menu":
            expected = []  # the program asks whether to convert the file
        if (end, records) != (expected_end, expected):
            sys.exit(f"--seed {seed}: {menu[menu.find(MARKER):]!r}\n"
                     f"read from the description: {end} {records}\n"
                     f"read by the program:       {expected_end} {expected}")
    assert min(ends.get(end, 0) for end in ("menu", "no menu", "damaged")) > 100, ends

    # A file in the layout of writers comes back unchanged.
    for menu in samples:
        end, keyword, records = read_menu(menu)
        if end == "menu":
            head = menu[:after_marker(menu)] + b'"%s"\r\n' % keyword
            written = head + b"".join(map(line_of, records))
            assert written == menu, f"{written!r} is not {menu!r}"
    print(f"Counted: {len(menus)} menus read as docs/format.md tells (seed {seed}: {ends})")


if __name__ == "__main__":
    main()
