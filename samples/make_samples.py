#!/usr/bin/env python3
"""Writes the sample menu files next to this file, or into the folder given on the
command line. The files that they name exist on Windows and in a new Wine prefix."""

import struct
import sys
from pathlib import Path

HERE = Path(__file__).resolve().parent
WINDOWS = "C:\\windows\\"
SYSTEM = WINDOWS + "system32\\"


def record(*fields):
    """One line: text in quotes, numbers bare. Text cannot contain a quote."""
    parts = []
    for field in fields:
        assert '"' not in str(field)
        parts.append(f'"{field}"' if isinstance(field, str) else f"{field}")
    return ",".join(parts) + "\r\n"


def appearance(small_icons, font_name, font_size, bold=0, italic=0):
    return record(small_icons, font_name, font_size, bold, italic)


def item(caption, target, arguments="", start_in="", icon_file="", icon_index=0):
    return record(caption, target, arguments, start_in, icon_file, icon_index)


# The sixth field is empty: the line ends with the comma before it.
SEPARATOR = '"","","","","",\r\n'


def default_picture():
    return (HERE.parent / "resources" / "default_menu.ico").read_bytes()


def menu(keyword, *records, picture=None):
    text = "\r\n<START ZOL>\r\n" + record(keyword) + "".join(records)
    return (picture or default_picture()) + text.encode("ascii")


def tools():
    return menu(
        "USERDEF",
        appearance(1, "Tahoma", 8.25),
        item("Notepad", WINDOWS + "notepad.exe", start_in="C:\\",
             icon_file=WINDOWS + "notepad.exe"),
        item("Read win.ini", WINDOWS + "notepad.exe", "C:\\windows\\win.ini", "C:\\windows"),
        item("Command Prompt, opened in C:\\", SYSTEM + "cmd.exe", "/k dir", "C:\\",
             SYSTEM + "cmd.exe"),
        SEPARATOR,
        # No icon file: the index is that of an icon in the target.
        item("Registry Editor", WINDOWS + "regedit.exe", icon_index=1),
        item("Task Manager", SYSTEM + "taskmgr.exe"),
        item("About Windows", SYSTEM + "winver.exe", icon_file=SYSTEM + "user32.dll",
             icon_index=4),
        SEPARATOR,
        item("Drive C", "C:\\", icon_file=SYSTEM + "shell32.dll", icon_index=8),
        item("Windows Folder", "C:\\windows"),
        item("Explorer", WINDOWS + "explorer.exe", "C:\\windows"),
        item("Debian on the Web", "http://www.debian.org/",
             icon_file=SYSTEM + "shell32.dll", icon_index=15))


def folder():
    # showFolders, hideKnownExtensions, showHiddenFiles
    return menu("DIRPOINT", appearance(0, "Tahoma", 10, bold=-1),
                record("C:\\windows", "*.exe", 1, 1, 0))


def empty():
    return menu("USERDEF", appearance(0, "Tahoma", 8.25))


def previous_version():
    """A menu without a picture, a marker and a type line."""
    return (appearance(0, "MS Sans Serif", 8.25)
            + item("Notepad", WINDOWS + "notepad.exe")
            + SEPARATOR
            + item("Command Prompt", SYSTEM + "cmd.exe", start_in="C:\\",
                   icon_file=SYSTEM + "cmd.exe")
            + item("Windows Folder", "C:\\windows")).encode("ascii")


def bitmap():
    """A bitmap file, 8 by 4 pixels in black and white: a ring."""
    rows = [0x3C, 0x42, 0x42, 0x3C]
    pixels = b"".join(bytes([row, 0, 0, 0]) for row in rows)
    colors = bytes([0, 0, 0, 0, 255, 255, 255, 0])
    offset = 14 + 40 + len(colors)
    info = struct.pack("<IiiHHIIiiII", 40, 8, 4, 1, 1, 0, len(pixels), 0, 0, 2, 0)
    return struct.pack("<2sIII", b"BM", offset + len(pixels), 0, offset) + info + colors + pixels


def small():
    """A menu small enough for the dump in docs/format.md."""
    return menu(
        "USERDEF",
        appearance(0, "Tahoma", 8.25, bold=-1),
        item("Notepad", WINDOWS + "notepad.exe", start_in="C:\\"),
        SEPARATOR,
        item("Files, all", "C:\\", icon_file="C:\\a.dll", icon_index=8),
        picture=bitmap())


SAMPLES = {
    "tools.menu": tools,
    "folder.menu": folder,
    "empty.menu": empty,
    "previous-version.menu": previous_version,
    "small.menu": small,
}


def main():
    target = Path(sys.argv[1]) if len(sys.argv) > 1 else HERE
    for name, build in SAMPLES.items():
        (target / name).write_bytes(build())


if __name__ == "__main__":
    main()
