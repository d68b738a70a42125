#!/usr/bin/env python3
"""Checks that every text file has the line ends of .gitattributes, no blanks at the end of
a line, and a line end at its end, and that no source file of the program is too long.

    text_files_test.py [PROJECT_FOLDER]
"""

import fnmatch
import os
import re
import sys
from pathlib import Path

ROOT = Path(sys.argv[1] if len(sys.argv) > 1 else __file__).resolve()
ROOT = ROOT if ROOT.is_dir() else ROOT.parents[2]
NOT_OURS = {"build", ".git", "__pycache__"}
# A source file of the program.
SOURCE = re.compile(r"(editor|icons|listedit|menufile|resources|win32|wizard)/.*\.(cc|cpp|h|rc)$")
MOST_LINES = 400


def patterns_of(attribute):
    """The patterns of .gitattributes for files with this attribute."""
    lines = (line.split() for line in (ROOT / ".gitattributes").read_text().splitlines())
    return [line[0] for line in lines if attribute in line[1:]]


def matches(path, patterns):
    # A pattern without a folder matches names in every folder.
    return any(fnmatch.fnmatchcase(path if "/" in pattern else os.path.basename(path),
                                   pattern.replace("**", "*"))
               for pattern in patterns)


def all_files():
    for folder, folders, names in os.walk(ROOT):
        folders[:] = sorted(set(folders) - NOT_OURS)
        for name in sorted(names):
            yield os.path.relpath(os.path.join(folder, name), ROOT)


def faults(path, contents, line_end=b"\n"):
    """The faults of a text file, with their lines."""
    lines = contents.split(b"\n")
    if lines.pop():
        yield len(lines) + 1, "no line end at the end of the file"
    elif lines and not lines[-1].strip():
        yield len(lines), "an empty line at the end of the file"
    for number, line in enumerate(lines, 1):
        if line_end == b"\r\n":
            if not line.endswith(b"\r"):
                yield number, "no carriage return"
            line = line.removesuffix(b"\r")
        if b"\r" in line:
            yield number, "a carriage return"
        elif line != line.rstrip():
            yield number, "blanks at the end of a line"
        if b"\0" in line:
            yield number, "a NUL: is this a binary file that .gitattributes does not know?"
    if SOURCE.match(path) and len(lines) > MOST_LINES:
        yield len(lines), f"more than {MOST_LINES} lines"


def check_the_check():
    for path, contents, expected in (
            ("a.cc", b"", []),
            ("a.cc", b"a\n\n b\n", []),
            ("a.md", b"a", [(1, "no line end at the end of the file")]),
            ("a.md", b"a\n\n", [(2, "an empty line at the end of the file")]),
            ("a.md", b"a\nb \nc\t\n", [(2, "blanks at the end of a line"),
                                       (3, "blanks at the end of a line")]),
            ("a.md", b"a\r\nb\n", [(1, "a carriage return")]),
            ("editor/a.cc", b"a\n" * 400, []),
            ("editor/a.cc", b"a\n" * 401, [(401, "more than 400 lines")]),
            ("tests/menufile/a.cc", b"a\n" * 401, []),
    ):
        found = list(faults(path, contents))
        assert found == expected, (path, contents[:20], found)
    for contents, expected in ((b"a\r\n", []), (b"a\r\nb\n", [(2, "no carriage return")]),
                               (b"a \r\n", [(1, "blanks at the end of a line")])):
        found = list(faults("a.bat", contents, b"\r\n"))
        assert found == expected, (contents, found)
    patterns = ["*.ico", "tests/fuzz/corpus/**"]
    for path, expected in (("resources/a.ico", True), ("tests/fuzz/corpus/load/a", True),
                           ("tests/fuzz/a.cc", False), ("a.icon", False)):
        assert matches(path, patterns) == expected, path


def main():
    check_the_check()
    binary, with_crlf = patterns_of("binary"), patterns_of("eol=crlf")
    files = [path for path in all_files() if not matches(path, binary)]
    failed = False
    longest = []
    for path in files:
        contents = (ROOT / path).read_bytes()
        line_end = b"\r\n" if matches(path, with_crlf) else b"\n"
        for line, fault in faults(path, contents, line_end):
            print(f"{path}:{line}: {fault}")
            failed = True
        if SOURCE.match(path):
            longest.append((contents.count(b"\n"), path))
    assert longest, "no source files found"
    print("the longest: " + ", ".join(f"{p} {n}" for n, p in sorted(longest, reverse=True)[:5]))
    print(f"{len(files)} text files")
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
