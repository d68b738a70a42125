#!/usr/bin/env python3
"""Makes the archive of a release and, beside it, its checksum.

The archive holds the program, README.txt for users, and the checksums of both.
It depends on their contents alone: the order of the entries is fixed, and their
date and attributes are set here, not taken from the files on the disk.
"""

import argparse
import datetime
import hashlib
import zipfile
from pathlib import Path

PROGRAM = "CorvalisEdit.exe"
README = "README.txt"
CHECKSUMS = "SHA256SUMS"

MS_DOS = 0
ARCHIVE_ATTRIBUTE = 0x20


def checksum_line(name, contents):
    """A line in the format of sha256sum, for its option --check."""
    return f"{hashlib.sha256(contents).hexdigest()}  {name}\n".encode("ascii")


def readme_text(path, version):
    text = path.read_text(encoding="ascii").replace("@VERSION@", version)
    return text.replace("\n", "\r\n").encode("ascii")


def entry(name, date):
    info = zipfile.ZipInfo(name, (date.year, date.month, date.day, 0, 0, 0))
    info.create_system = MS_DOS
    info.external_attr = ARCHIVE_ATTRIBUTE
    info.compress_type = zipfile.ZIP_DEFLATED
    return info


def main():
    parser = argparse.ArgumentParser(description=__doc__.partition("\n")[0])
    parser.add_argument("--version", required=True)
    parser.add_argument("--date", required=True, type=datetime.date.fromisoformat)
    parser.add_argument("--program", required=True, type=Path)
    parser.add_argument("--readme", required=True, type=Path)
    parser.add_argument("archive", type=Path)
    options = parser.parse_args()

    files = {
        PROGRAM: options.program.read_bytes(),
        README: readme_text(options.readme, options.version),
    }
    files[CHECKSUMS] = b"".join(checksum_line(*file) for file in files.items())
    with zipfile.ZipFile(options.archive, "w") as archive:
        for name, contents in files.items():
            archive.writestr(entry(name, options.date), contents, compresslevel=9)

    line = checksum_line(options.archive.name, options.archive.read_bytes())
    options.archive.with_name(options.archive.name + ".sha256").write_bytes(line)


if __name__ == "__main__":
    main()
