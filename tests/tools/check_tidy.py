#!/usr/bin/env python3
"""Fails and prints what clang-tidy finds in the sources of the program. It reads
menufile/ as compiled for this machine and the rest as compiled for Windows, with the
commands of build/native and build/windows, which have to be configured.

    tests/tools/check_tidy.py [FILE_OR_FOLDER...]    default: the whole program

Nearly all of the time goes into the headers, those of Windows above all. So the
sources of a folder are joined to one, which includes each header once. Where two of
them give one name to two things they cannot be joined, and are read one by one.
"""

import json
import re
import subprocess
import sys
from itertools import groupby
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
FOLDERS = ("editor", "icons", "listedit", "menufile", "win32", "wizard")
COMPILER = "x86_64-w64-mingw32-g++-posix"
NOT_FINDINGS = re.compile(r"\d+ warnings?( and \d+ errors?)? (generated|treated as error)")


def sources_of(arguments):
    found = set()
    for argument in arguments:
        path = (ROOT / argument).resolve()
        files = [path] if path.is_file() else [*path.rglob("*.cc"), *path.rglob("*.cpp")]
        found.update(file.relative_to(ROOT) for file in files)
    return sorted(found)


def command_of(source, tree):
    for entry in json.loads((tree / "compile_commands.json").read_text()):
        if Path(entry["file"]) == ROOT / source:
            return entry
    sys.exit(f"{tree} does not compile {source}")


def tidy(source, folder, tree, checks=""):
    """Runs clang-tidy on a source, with the commands in `folder`, with `checks` after
    those of .clang-tidy. Returns its findings, or nothing."""
    options = []
    if tree.name == "windows":
        # clang finds the headers of Windows by itself, but not those of the cross
        # compiler's C++ library; and the commands turn off warnings it does not know.
        library = subprocess.run([COMPILER, "-print-file-name=include/c++"], check=True,
                                 stdout=subprocess.PIPE, text=True).stdout.strip()
        options = [f"-isystem{library}", f"-isystem{library}/x86_64-w64-mingw32",
                   "-Wno-unknown-warning-option"]
    done = subprocess.run(
        ["clang-tidy", "--quiet", f"--config-file={ROOT / '.clang-tidy'}",
         f"--checks={checks}", "-p", folder,
         *(f"--extra-arg={option}" for option in options), source],
        stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
    lines = [line for line in done.stdout.splitlines() if not NOT_FINDINGS.match(line)]
    return "\n".join(lines) or done.returncode and "clang-tidy failed without a word"


def tidy_joined(sources, tree):
    folder = ROOT / "build" / "tidy" / sources[0].parent
    folder.mkdir(parents=True, exist_ok=True)
    joined = folder / "joined.cc"
    places = []  # the source and the number of each line of the joined file
    text = ""
    for source in sources:
        lines = (ROOT / source).read_text(encoding="utf-8").splitlines(keepends=True)
        places += [(source, number) for number in range(1, len(lines) + 1)]
        text += "".join(lines)
    joined.write_text(text, encoding="utf-8")
    entry = command_of(sources[0], tree)
    entry["command"] = entry["command"].replace(entry["file"], str(joined))
    entry["file"] = str(joined)
    (folder / "compile_commands.json").write_text(json.dumps([entry]))

    def place(match):
        source, number = places[int(match[1]) - 1]
        return f"{source}:{number}:"

    found = tidy(joined, folder, tree, "-readability-duplicate-include")
    return found and re.sub(re.escape(str(joined)) + r":(\d+):", place, found)


def main():
    sources = sources_of(sys.argv[1:] or FOLDERS)
    if not sources:
        sys.exit(f"no sources in {' '.join(sys.argv[1:])}")
    is_tidy = True
    for folder, files in groupby(sources, key=lambda source: source.parent):
        tree = ROOT / "build" / ("native" if folder.name == "menufile" else "windows")
        group = list(files)
        found = tidy_joined(group, tree)
        if found and "[clang-diagnostic-error]" in found:
            findings = [tidy(ROOT / source, tree, tree) for source in group]
            found = "\n".join(filter(None, findings))
        if found:
            is_tidy = False
            print(found)
    if not is_tidy:
        sys.exit(1)
    print(f"{len(sources)} sources, all tidy")


if __name__ == "__main__":
    main()
