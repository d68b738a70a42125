#!/usr/bin/env python3
"""Measures a script that reads the entries of a menu with the csv module, and one that
exchanges two of them on the disk. Prints the least time of each in microseconds.

    csv_times.py MENUFILE RUNS
"""

import csv
import io
import json
import os
import sys
import time

MARKER = b"\r\n<START ZOL>\r\n"
ENCODING = "latin-1"  # any byte is a character


def split(menu):
    end = menu.index(MARKER) + len(MARKER)
    return menu[:end], menu[end:].decode(ENCODING)


def load(menu):
    rows = csv.reader(io.StringIO(split(menu)[1], newline=""))
    return sum(1 for row in rows if len(row) == 6)


def write_to_disk(path, data):
    with open(path, "wb") as file:
        file.write(data)
        file.flush()
        os.fsync(file.fileno())


def move_up(path, scratch):
    with open(path, "rb") as file:
        head, text = split(file.read())
    lines = text.splitlines(keepends=True)
    rows = list(csv.reader(lines[2:]))
    row = len(rows) // 2
    rows[row - 1], rows[row] = rows[row], rows[row - 1]
    out = io.StringIO(newline="")
    # The last field of an entry is bare, all others are quoted.
    for *texts, number in rows:
        out.write(",".join(f'"{text}"' for text in texts) + f",{number}\r\n")
    changed = head + ("".join(lines[:2]) + out.getvalue()).encode(ENCODING)
    write_to_disk(scratch, changed)
    write_to_disk(path, changed)
    os.remove(scratch)


def least_time(runs, work):
    times = []
    for _ in range(runs):
        start = time.perf_counter()
        work()
        times.append(time.perf_counter() - start)
    return min(times) * 1e6


def main():
    path, runs = sys.argv[1], int(sys.argv[2])
    with open(path, "rb") as file:
        menu = file.read()
    copy = path + ".copy"
    write_to_disk(copy, menu)
    times = {
        "entries": load(menu),
        "load": least_time(runs, lambda: load(menu)),
        "move_up": least_time(runs, lambda: move_up(copy, path + ".scratch")),
    }
    with open(copy, "rb") as file:
        if sorted(file.read().splitlines()) != sorted(menu.splitlines()):
            sys.exit("the script has damaged the menu")
    os.remove(copy)
    print(json.dumps(times))


if __name__ == "__main__":
    main()
