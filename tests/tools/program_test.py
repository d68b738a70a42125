#!/usr/bin/env python3
"""Checks the finished program: its headers, manifest and version, and the functions of
Windows that it imports.

    program_test.py PROGRAM.exe VERSION

Every import has to stand in windows_functions.txt, beside this file.
"""

import re
import struct
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path

MOST_BYTES = 1 << 20
FUNCTIONS = Path(__file__).with_name("windows_functions.txt")

# Constants of the headers.
RELOCATIONS_STRIPPED = 0x0001
HIGH_ENTROPY_ADDRESSES = 0x0020
DYNAMIC_BASE = 0x0040
NO_EXECUTABLE_DATA = 0x0100
WINDOWS_PROGRAM = 2
EXECUTABLE, WRITABLE = 0x20000000, 0x80000000
IMPORTS, RESOURCES, RELOCATIONS, DELAYED_IMPORTS = 1, 2, 5, 13

RT_VERSION, RT_MANIFEST = 16, 24
WINDOWS_7 = "{35138b9a-5d96-4fbd-8e2d-a2440225f93a}"
WINDOWS_10 = "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}"

failures = []


def check(good, message):
    if not good:
        failures.append(message)


class Program:
    """A program file of Windows. Addresses are relative to its base in memory."""

    def __init__(self, data):
        self.data = data
        header = struct.unpack_from("<I", data, 0x3C)[0]
        assert data[:2] == b"MZ" and data[header:header + 4] == b"PE\0\0", "not a program"
        _, sections, _, _, _, size, self.characteristics = struct.unpack_from(
            "<HHIIIHH", data, header + 4)
        optional = header + 24
        self.is_64_bit = struct.unpack_from("<H", data, optional)[0] == 0x20B
        self.subsystem, self.dll_characteristics = struct.unpack_from("<HH", data, optional + 68)
        directories = optional + (112 if self.is_64_bit else 96)
        self.directories = [struct.unpack_from("<II", data, directories + 8 * i)
                            for i in range(16)]
        # Name, size in memory, address, size in the file, offset in it, flags.
        self.sections = []
        for i in range(sections):
            fields = struct.unpack_from("<8sIIII12xI", data, optional + size + 40 * i)
            self.sections.append((fields[0].rstrip(b"\0").decode(), *fields[1:]))

    def offset(self, address):
        for _, _, start, size, offset, _ in self.sections:
            if start <= address < start + size:
                return offset + address - start
        raise ValueError(f"no section contains the address {address:#x}")

    def text(self, address):
        start = self.offset(address)
        return self.data[start:self.data.index(b"\0", start)].decode("ascii")

    def imports(self):
        """The functions that it imports, by the library's name."""
        found = {}
        at = self.offset(self.directories[IMPORTS][0])
        while any(entry := struct.unpack_from("<IIIII", self.data, at)):
            names, entry_format = entry[0] or entry[4], "<Q" if self.is_64_bit else "<I"
            size = struct.calcsize(entry_format)
            functions = found.setdefault(self.text(entry[3]).lower(), set())
            place = self.offset(names)
            while name := struct.unpack_from(entry_format, self.data, place)[0]:
                by_number = name >> (8 * size - 1)
                functions.add(f"number {name & 0xFFFF}" if by_number else self.text(name + 2))
                place += size
            at += 20
        return found

    def resources(self, kind):
        """The contents of each resource of that type."""
        base = self.offset(self.directories[RESOURCES][0])

        def entries(folder):
            named, numbered = struct.unpack_from("<HH", self.data, folder + 12)
            for i in range(named + numbered):
                number, place = struct.unpack_from("<II", self.data, folder + 16 + 8 * i)
                yield number, base + (place & 0x7FFFFFFF)

        for number, names in entries(base):
            if number == kind:
                for _, languages in entries(names):
                    for _, leaf in entries(languages):
                        address, size = struct.unpack_from("<II", self.data, leaf)
                        start = self.offset(address)
                        yield self.data[start:start + size]


def check_headers(program):
    check(program.subsystem == WINDOWS_PROGRAM, "it is no program with windows")
    for flag, what in ((DYNAMIC_BASE, "a random address"),
                       (NO_EXECUTABLE_DATA, "data that cannot be executed")):
        check(program.dll_characteristics & flag, f"its header does not ask for {what}")
    check(program.dll_characteristics & HIGH_ENTROPY_ADDRESSES or not program.is_64_bit,
          "its header does not ask for a random address out of 64 bits")
    check(program.directories[RELOCATIONS][1] > 8
          and not program.characteristics & RELOCATIONS_STRIPPED,
          "it has no relocations, without which its address is not random")
    for name, *_, flags in program.sections:
        check(not (flags & EXECUTABLE and flags & WRITABLE),
              f"its section {name} is writable and executable")
    check(len(program.data) < MOST_BYTES, f"it has {len(program.data)} bytes")


def check_imports(program):
    # Each library's name in brackets, then its functions.
    sections = re.findall(r"^\[(.+)\]\n([^\[]*)", FUNCTIONS.read_text(), re.MULTILINE)
    allowed = {library: set(functions.split()) for library, functions in sections}
    imports = program.imports()
    check("kernel32.dll" in imports and "user32.dll" in imports, "it imports nothing of Windows")
    check(program.directories[DELAYED_IMPORTS][1] == 0, "it has imports that are put off")
    for library, functions in sorted(imports.items()):
        if library not in allowed:
            check(False, f"it needs {library}, which is not Windows' own")
            continue
        for function in sorted(functions - allowed[library]):
            check(False, f"it imports {function} of {library}: if Windows 7 has that, "
                         f"{FUNCTIONS.name} lacks it; else it has to be looked up at run time")


def check_manifest(manifest, version):
    # Name spaces are ignored, since each of these names is in one only.
    elements = {}
    for element in ElementTree.fromstring(manifest).iter():
        elements.setdefault(element.tag.rpartition("}")[2], []).append(element)

    def attributes(tag, name):
        return [element.get(name) for element in elements.get(tag, ())]

    def text(tag):
        return [(element.text or "").strip() for element in elements.get(tag, ())]

    identities = list(zip(attributes("assemblyIdentity", "name"),
                          attributes("assemblyIdentity", "version")))
    check(("Microsoft.Windows.Common-Controls", "6.0.0.0") in identities,
          "the manifest does not ask for version 6 of the common controls")
    check(("CorvalisEdit", f"{version}.0.0") in identities,
          f"the manifest has another version: {identities}")
    check(attributes("requestedExecutionLevel", "level") == ["asInvoker"]
          and attributes("requestedExecutionLevel", "uiAccess") == ["false"],
          "the manifest asks for other rights than the user's")
    check(text("dpiAware") == ["true"] and text("dpiAwareness") == ["PerMonitorV2, System"],
          "the manifest does not say that the program knows of DPI")
    check({WINDOWS_7, WINDOWS_10} <= set(attributes("supportedOS", "Id")),
          "the manifest does not name Windows 7 and 10")
    check("activeCodePage" not in elements,
          "the manifest sets a code page; a menu is in the system's")


def version_strings(block):
    """The strings in a version resource, by name."""
    def walk(start, end):
        while start + 6 < end:
            size, value_size, is_text = struct.unpack_from("<HHH", block, start)
            key_end = block.index(b"\0\0\0", start + 6) + 1
            key = block[start + 6:key_end].decode("utf-16-le")
            value = (key_end + 2 + 3) // 4 * 4
            value_bytes = value_size * (2 if is_text else 1)
            if is_text and value_size:
                found[key] = block[value:value + value_bytes].decode("utf-16-le").rstrip("\0")
            else:
                walk((value + value_bytes + 3) // 4 * 4, start + size)
            start = (start + size + 3) // 4 * 4

    found = {}
    walk(0, len(block))
    return found


def check_version(block, version):
    numbers = tuple(int(part) for part in version.split(".")) + (0, 0)
    fixed = struct.unpack_from("<HHHH HHHH", block, block.index(b"\xbd\x04\xef\xfe") + 8)
    wanted = (numbers[1], numbers[0], numbers[3], numbers[2])
    check(fixed == wanted * 2, f"the numbers of its version are {fixed}, not {wanted} twice")
    strings = version_strings(block)
    for name, text in (("FileVersion", version), ("ProductVersion", version),
                       ("ProductName", "Corvalis Edit"), ("OriginalFilename", "CorvalisEdit.exe")):
        check(strings.get(name) == text, f"its {name} is {strings.get(name)!r}, not {text!r}")


def check_about_page(data, version):
    found = {text.decode(encoding)
             for encoding, digit in (("ascii", b"[0-9.]"), ("utf-16-le", b"[0-9.]\0"))
             for text in re.findall("Corvalis ".encode(encoding) + b"((?:" + digit + b")+)", data)}
    check(found == {version}, f"its About page tells the version {found or 'not at all'}")


def main():
    path, version = sys.argv[1:]
    program = Program(Path(path).read_bytes())
    check_headers(program)
    check_imports(program)
    for kind, what, look in ((RT_MANIFEST, "manifest", check_manifest),
                             (RT_VERSION, "version resource", check_version)):
        found = list(program.resources(kind))
        check(len(found) == 1, f"it has {len(found)} resources of the kind {what}")
        for contents in found:
            look(contents, version)
    check_about_page(program.data, version)
    print(f"{path}: {len(program.data)} bytes, version {version}, "
          f"{sum(map(len, program.imports().values()))} functions of Windows")
    for failure in failures:
        print(f"{path}: {failure}")
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    main()
