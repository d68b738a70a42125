#!/usr/bin/env python3
"""Prints which folder includes which. Fails if a folder includes another that it must not
use, or if headers include each other in a circle.

    includes_test.py [PROJECT_FOLDER]
"""

import re
import sys
from pathlib import Path

ROOT = Path(sys.argv[1] if len(sys.argv) > 1 else __file__).resolve()
ROOT = ROOT if ROOT.is_dir() else ROOT.parents[2]

# For each folder, what its files may include besides that folder. "std" is the C++
# library, "windows" the headers of Windows.
STANDS_ON = {
    "menufile": {"std"},
    "win32": {"std", "windows"},
    "resources": {"windows"},
    "editor": {"std", "windows", "menufile", "win32", "resources"},
    "listedit": {"std", "windows", "menufile", "win32", "resources", "editor"},
    "wizard": {"std", "windows", "menufile", "win32", "resources", "editor"},
    "icons": {"std", "windows", "menufile", "win32", "resources", "editor"},
}
# These would make the program much larger.
TOO_LARGE = {"filesystem", "iostream", "locale", "regex"}

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"\n]+)[>"]', re.MULTILINE)


def folder_of(path):
    return path.partition("/")[0]


def read_sources():
    """The includes of each source file, as (kind of bracket, name) pairs."""
    return {
        file.relative_to(ROOT).as_posix(): INCLUDE.findall(file.read_text())
        for folder in STANDS_ON
        for file in sorted((ROOT / folder).rglob("*"))
        if file.suffix in (".h", ".cc", ".cpp", ".rc")
    }


def target_of(path, bracket, name):
    """The folder or the library of an included file."""
    if bracket == "<":
        return "windows" if name.endswith(".h") else "std"
    # windres searches the folder of the file first.
    return folder_of(name) if "/" in name else folder_of(path)


def upward_includes(sources):
    for path, includes in sources.items():
        own = folder_of(path)
        for bracket, name in includes:
            target = target_of(path, bracket, name)
            if target != own and target not in STANDS_ON[own]:
                yield f"{path} includes {name}, but {own}/ does not stand on {target}"
            if bracket == "<" and name in TOO_LARGE:
                yield f"{path} includes <{name}>, which is too large"


def circles(sources):
    """The circles of headers, each as a path around it."""
    done = set()

    def visit(path, trail):
        if path in trail:
            yield " includes ".join(trail[trail.index(path):] + [path])
            return
        if path in done:
            return
        for bracket, name in sources.get(path, ()):
            if bracket == '"':
                yield from visit(name, trail + [path])
        done.add(path)

    for path in sources:
        yield from visit(path, [])


def graph(sources):
    for folder in STANDS_ON:
        counts = {}
        for path, includes in sources.items():
            if folder_of(path) == folder:
                for include in includes:
                    target = target_of(path, *include)
                    counts[target] = counts.get(target, 0) + 1
        counts.pop(folder, None)
        arrows = ", ".join(f"{target} {count}" for target, count in sorted(counts.items()))
        yield f"{folder + '/':10} -> {arrows or 'nothing'}"


def check_the_check():
    for path, include, expected in (
            ("menufile/a.cc", ("<", "windows.h"), 1),
            ("menufile/a.cc", ("<", "string"), 0),
            ("menufile/a.cc", ("<", "regex"), 1),
            ("win32/a.cc", ('"', "menufile/value.h"), 1),
            ("editor/a.cc", ('"', "wizard/form3.h"), 1),
            ("editor/a.cc", ('"', "editor/form2.h"), 0),
            ("wizard/a.cc", ('"', "editor/form2.h"), 0),
            ("wizard/a.cc", ('"', "tests/a.h"), 1),
            ("resources/a.rc", ('"', "resource.h"), 0),
    ):
        found = list(upward_includes({path: [include]}))
        assert len(found) == expected, found
    ring = {"a.h": [('"', "b.h")], "b.h": [('"', "c.h")], "c.h": [('"', "b.h")]}
    assert list(circles(ring)) == ["b.h includes c.h includes b.h"], list(circles(ring))
    assert INCLUDE.findall('#include <a>\n  # include "b/c.h"  // d\n//#include <e>\n') == [
        ("<", "a"), ('"', "b/c.h")]


def main():
    check_the_check()
    sources = read_sources()
    for folder in STANDS_ON:
        assert any(folder_of(path) == folder for path in sources), f"{folder}/ has no sources"
    print("\n".join(graph(sources)))
    found = [*upward_includes(sources), *circles(sources)]
    for fault in found:
        print(fault)
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
