#!/usr/bin/env python3
"""Checks that the checked-in pictures and samples equal what their scripts write, and
that their layout is the one that the menu program reads.

    generated_files_test.py [PROJECT_FOLDER]
"""

import re
import struct
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(sys.argv[1] if len(sys.argv) > 1 else __file__).resolve()
ROOT = ROOT if ROOT.is_dir() else ROOT.parents[2]
GENERATED = (
    ("resources/draw_icons.py", ("*.ico", "*.bmp")),
    ("samples/make_samples.py", ("*.menu",)),
)
PICTURES_LIMIT = 150 * 1024
MARKER = b"\r\n<START ZOL>\r\n"

failures = []


def check(good, message):
    if not good:
        failures.append(message)


def first_difference(a, b):
    for at, (left, right) in enumerate(zip(a, b)):
        if left != right:
            return at
    return min(len(a), len(b))


def compare_with_generator(script, patterns):
    folder = (ROOT / script).parent
    checked_in = {file.name for pattern in patterns for file in folder.glob(pattern)}
    with tempfile.TemporaryDirectory() as scratch:
        subprocess.run([sys.executable, str(ROOT / script), scratch], check=True)
        written = {file.name: file.read_bytes() for file in Path(scratch).iterdir()}
    check(written, f"{script} wrote nothing")
    for name in sorted(checked_in | set(written)):
        if name not in written:
            failures.append(f"{name}: not written by {script}")
        elif name not in checked_in:
            failures.append(f"{name}: written by {script}, but not checked in")
        else:
            old = (folder / name).read_bytes()
            at = first_difference(old, written[name])
            check(old == written[name],
                  f"{name}: differs from what {script} writes at byte {at}")


def icon_entries(name):
    """Width, height, bits, offset and size of each image. Checks that they fill the file."""
    data = (ROOT / "resources" / name).read_bytes()
    reserved, kind, count = struct.unpack_from("<HHH", data)
    check((reserved, kind) == (0, 1) and count > 0, f"{name}: not an icon file")
    entries, end = [], 6 + 16 * count
    for index in range(count):
        width, height, _, _, planes, bits, size, offset = struct.unpack_from(
            "<BBBBHHII", data, 6 + 16 * index)
        check(planes == 1 and offset == end,
              f"{name}: image {index} is not where it should be")
        entries.append((width or 256, height or 256, bits, offset, size))
        end = offset + size
    check(end == len(data), f"{name}: images do not fill the file")
    return entries


def check_default_picture():
    data = (ROOT / "resources/default_menu.ico").read_bytes()
    check(len(data) == 2238, f"default_menu.ico has {len(data)} bytes")
    check(icon_entries("default_menu.ico") == [(32, 32, 8, 22, 2216)],
          "default_menu.ico: wrong image")
    header = struct.unpack_from("<IiiHHI", data, 22)
    check(header == (40, 32, 64, 1, 8, 0), f"default_menu.ico: wrong image header {header}")
    colors, image, mask = data[62:1086], data[1086:2110], data[2110:]
    clear = 0
    for at in range(1024):
        if mask[at // 8] & (0x80 >> at % 8):
            clear += 1
            color = colors[4 * image[at]:4 * image[at] + 3]
            check(color == b"\0\0\0", f"default_menu.ico: transparent pixel {at} is not black")
    check(100 < clear < 500, f"default_menu.ico: {clear} transparent pixels")
    check(b"<START ZOL>" not in data, "default_menu.ico contains the marker")


def check_sizes():
    application = [entry[0] for entry in icon_entries("application.ico")]
    check(application == [16, 20, 24, 32, 40, 48, 64, 256], f"application.ico: {application}")
    for name in ("contents", "folder", "appearance"):
        entries = icon_entries(f"{name}.ico")
        check([(w, h, bits) for w, h, bits, _, _ in entries]
              == [(size, size, 32) for size in (16, 32, 40, 48, 64)], f"{name}.ico: {entries}")
    pictures = [file for kind in ("*.ico", "*.bmp") for file in (ROOT / "resources").glob(kind)]
    total = sum(file.stat().st_size for file in pictures)
    check(0 < total < PICTURES_LIMIT, f"the pictures have {total} bytes together")


def check_samples():
    picture = (ROOT / "resources/default_menu.ico").read_bytes()
    separator = b'\r\n"","","","","",\r\n'
    whole = {
        "empty.menu": picture + MARKER + b'"USERDEF"\r\n0,"Tahoma",8.25,0,0\r\n',
        "folder.menu": picture + MARKER + b'"DIRPOINT"\r\n0,"Tahoma",10,-1,0\r\n'
                       b'"C:\\windows","*.exe",1,1,0\r\n',
        "previous-version.menu":
            b'0,"MS Sans Serif",8.25,0,0\r\n'
            b'"Notepad","C:\\windows\\notepad.exe","","","",0\r\n'
            b'"","","","","",\r\n'
            b'"Command Prompt","C:\\windows\\system32\\cmd.exe","","C:\\",'
            b'"C:\\windows\\system32\\cmd.exe",0\r\n'
            b'"Windows Folder","C:\\windows","","","",0\r\n',
    }
    for name, expected in whole.items():
        data = (ROOT / "samples" / name).read_bytes()
        check(data == expected, f"{name}: wrong at byte {first_difference(data, expected)}")

    tools = (ROOT / "samples/tools.menu").read_bytes()
    start = picture + MARKER + b'"USERDEF"\r\n1,"Tahoma",8.25,0,0\r\n'
    check(tools.startswith(start), "tools.menu: wrong start")
    check(tools.count(separator) == 2, "tools.menu: two separators wanted")
    check(tools.endswith(b'"Debian on the Web","http://www.debian.org/","","",'
                         b'"C:\\windows\\system32\\shell32.dll",15\r\n'), "tools.menu: wrong end")
    lines = tools[len(start):].split(b"\r\n")
    check(len(lines) == 13 and lines[-1] == b"", f"tools.menu: {len(lines) - 1} entries")


def check_format_example():
    """Checks that the example in docs/format.md is samples/small.menu."""
    data = (ROOT / "samples/small.menu").read_bytes()
    text = (ROOT / "docs/format.md").read_text(encoding="utf-8")
    dump = re.findall(r"^([0-9a-f]{8}): ((?:[0-9a-f]{2} )+) +(\S.*)$", text, re.MULTILINE)
    shown = b"".join(bytes.fromhex(row) for _, row, _ in dump)
    check(shown == data, f"format.md: the dump is wrong at byte {first_difference(shown, data)}")
    for at, (offset, row, characters) in enumerate(dump):
        printable = "".join(chr(b) if 32 <= b < 127 else "." for b in bytes.fromhex(row))
        check(int(offset, 16) == 16 * at and characters == printable,
              f"format.md: the row {offset} of the dump is wrong")
    check(f"{len(data)} bytes" in text, "format.md: tells another size")
    parts = re.findall(r"^\| 0x([0-9A-F]+) \| (\d+) \|", text, re.MULTILINE)
    end = 0
    for offset, size in parts:
        check(int(offset, 16) == end, f"format.md: nothing begins at 0x{offset}")
        end += int(size)
    check(end == len(data), "format.md: the parts do not fill the file")
    check([data[int(offset, 16):][:2] for offset, _ in parts]
          == [b"BM", b"\r\n", b'"U', b"0,", b'"N', b'""', b'"F'],
          "format.md: a part begins elsewhere")


def main():
    for script, patterns in GENERATED:
        compare_with_generator(script, patterns)
    if not failures:  # The other checks need complete files.
        check_default_picture()
        check_sizes()
        check_samples()
        check_format_example()
    for failure in failures:
        print(failure)
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    main()
