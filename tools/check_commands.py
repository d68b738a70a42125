#!/usr/bin/env python3
"""Holds the scripts to the commands and packages that they declare.

    tools/check_commands.py [ROOT]

Fails when a script or a CMake file below ROOT starts a command that
tools/commands.txt lacks, when that list names a command that nothing starts,
when the package of a command is not among the packages that tools/setup.sh
installs for that script, or when the installed package does not bring the
command. On a machine that has everything already a forgotten package would
otherwise go unseen.
"""

import json
import os
import re
import shutil
import subprocess
import sys

# Commands that start what follows them, with those of their options that take
# a value and the number of their own operands.
WRAPPERS = {
    "env": ({"-u"}, 0),
    "exec": (set(), 0),
    "flock": (set(), 1),
    "command": (set(), 0),
    "nice": ({"-n"}, 0),
    "setpriv": ({"--pdeathsig"}, 0),
    "sudo": (set(), 0),
    "timeout": ({"-k"}, 1),
    "xargs": ({"-P", "-n"}, 0),
}


def literal(word):
    """The text of a shell word that holds no expansion, else None."""
    text = ""
    for part in word["Parts"]:
        if part["Type"] in ("Lit", "SglQuoted"):
            text += part["Value"]
        elif part["Type"] == "DblQuoted":
            inner = literal({"Parts": part.get("Parts") or []})
            if inner is None:
                return None
            text += inner
        else:
            return None
    return text


def started_by(args):
    """The commands that one simple command starts: its own and wrapped ones."""
    while args:
        word, args = args[0], args[1:]
        name = literal(word)
        if name is None:
            # An array such as "${as_root[@]}" stands before a wrapped command.
            if '"Index"' in json.dumps(word):
                continue
            return
        yield name
        if name not in WRAPPERS:
            return
        options, operands = WRAPPERS[name]
        while args:
            word = literal(args[0])
            if word in options:
                args = args[2:]
            elif word is not None and (word.startswith("-") or re.match(r"\w+=", word)):
                args = args[1:]
            elif operands:
                operands -= 1
                args = args[1:]
            else:
                break


def walk(node):
    if isinstance(node, dict):
        yield node
        for child in node.values():
            yield from walk(child)
    elif isinstance(node, list):
        for child in node:
            yield from walk(child)


def shell_nodes(path):
    with open(path) as script:
        tree = subprocess.run(["shfmt", "--tojson"], stdin=script, check=True, capture_output=True)
    return list(walk(json.loads(tree.stdout)))


def shell_functions(nodes):
    return {node["Name"]["Value"] for node in nodes if node.get("Type") == "FuncDecl"}


def shell_commands(nodes, builtins):
    yield "bash"
    for node in nodes:
        if node.get("Type") == "CallExpr" and node.get("Args"):
            for name in started_by(node["Args"]):
                if name and name not in builtins and "/" not in name:
                    yield name


def cmake_commands(path):
    with open(path) as file:
        text = re.sub(r"#.*", "", file.read())
    for pattern in (
        r"set\(CMAKE_\w+_COMPILER\s+([\w.+-]+)",
        r'"CMAKE_\w+_COMPILER": *"([\w.+-]+)"',
        r"find_program\(\s*\w+\s+(?:NAMES\s+)?([\w.+-]+)",
        r"\bCOMMAND\s+([a-z][\w.+-]*)[\s)]",
    ):
        for name in re.findall(pattern, text):
            yield name
    if re.search(r"find_package\(\s*Python3", text):
        yield "python3"
    if re.search(r'"generator": *"Ninja"', text):
        yield "ninja"


def cmake_targets(paths):
    names = set()
    for path in paths:
        with open(path) as file:
            text = file.read()
        names |= set(re.findall(r"add_(?:executable|custom_target)\(\s*([\w.+-]+)", text))
    return names


def python_commands(path):
    with open(path) as file:
        text = file.read()
    if re.match(r"#!.*\bpython3\b", text):
        yield "python3"
    yield from re.findall(r"subprocess\.\w+\(\s*\[\s*[\"']([\w.+-]+)[\"']", text)


def read_table(path):
    with open(path) as file:
        rows = (line.split() for line in file if not line.startswith("#"))
        return {row[0]: row[1:] for row in rows if row}


def dpkg_query(*arguments):
    # Fails as soon as one of many names is unknown, having told about the rest.
    return subprocess.run(["dpkg-query", *arguments], capture_output=True, text=True).stdout


class Installed:
    """What the packages of this machine install, for the paths asked about."""

    def __init__(self, paths, packages):
        names = {name for path in paths for name in self.names_of(path)}
        self.owners = {}
        for line in dpkg_query("-S", *names).splitlines():
            owners, _, name = line.rpartition(": ")
            for owner in owners.split(","):
                self.owners.setdefault(name, set()).add(owner.split(":")[0].strip())
        self.depends = {}
        dependencies = "${Package}\t${Pre-Depends},${Depends}\n"
        for line in dpkg_query("-W", "-f", dependencies, *packages).splitlines():
            package, _, depends = line.partition("\t")
            self.depends[package] = {
                re.split(r"[ :(]", name.strip())[0] for name in re.split(r"[,|]", depends)
            }
        rows = dpkg_query("-W", "-f", "${Package} ${Essential} ${Priority}\n").splitlines()
        self.smallest = {
            row.split()[0] for row in rows if row.endswith(" required") or " yes " in row
        }

    @staticmethod
    def names_of(path):
        # A link of the alternatives belongs to no package, nor does a path
        # below a merged /usr to the one that ships it below /.
        real = os.path.realpath(path)
        return {path, real, path.removeprefix("/usr"), real.removeprefix("/usr")}

    def brings(self, package, path):
        """Whether a package or one that it depends on installs the file."""
        owners = set().union(*(self.owners.get(name, set()) for name in self.names_of(path)))
        if package == "debian":
            return bool(owners & self.smallest)
        return bool(owners & ({package} | self.depends.get(package, set())))


def source_files(root):
    for folder, folders, files in os.walk(root):
        folders[:] = [f for f in folders if f not in ("build", ".git")]
        for name in files:
            yield os.path.relpath(os.path.join(folder, name), root)


def is_shell(path):
    with open(path, "rb") as file:
        return path.endswith(".sh") or bool(re.match(rb"#!.*\b(ba)?sh\b", file.readline()))


def commands_of_files(root):
    """The commands that each file starts, by the file's path below the root."""
    listing = ["bash", "-c", "compgen -bk"]
    listed = subprocess.run(listing, check=True, capture_output=True, text=True).stdout
    builtins = set(listed.split())
    files = sorted(source_files(root))
    cmake_name = re.compile(r"(CMakeLists\.txt|\.cmake|CMakePresets\.json)$")
    cmake = [f for f in files if cmake_name.search(f)]
    python = [f for f in files if f.endswith(".py")]
    shell = {
        f: shell_nodes(os.path.join(root, f))
        for f in files
        if f not in cmake + python and is_shell(os.path.join(root, f))
    }
    for nodes in shell.values():
        builtins |= shell_functions(nodes)
    targets = cmake_targets(os.path.join(root, f) for f in cmake)
    found = {f: set(cmake_commands(os.path.join(root, f))) - targets for f in cmake}
    found |= {f: set(python_commands(os.path.join(root, f))) for f in python}
    found |= {f: set(shell_commands(nodes, builtins)) for f, nodes in shell.items()}
    return found


def reached_from(root, start, files):
    """The files that one script leads to, by their names in its text."""
    reached, open_files = set(), [start]
    while open_files:
        path = open_files.pop()
        reached.add(path)
        with open(os.path.join(root, path)) as file:
            text = file.read()
        for other in files:
            name = os.path.basename(other)
            if other.startswith("tools/") and other not in reached and name in text:
                open_files.append(other)
    return reached


def main():
    root = os.path.abspath(sys.argv[1] if len(sys.argv) > 1 else os.path.dirname(__file__) + "/..")
    commands = {name: row[0] for name, row in read_table(root + "/tools/commands.txt").items()}
    packages = read_table(root + "/tools/packages.txt")
    files = commands_of_files(root)
    toolchain = {"cmake/mingw_x86_64.cmake"}
    files_of = {
        "run": reached_from(root, "run", files) | toolchain,
        "bench": reached_from(root, "bench", files) | toolchain | {"benchmarks/report.py"},
    }

    users = {}
    for path, names in files.items():
        for name in names:
            users.setdefault(name, set()).add(path)

    faults = []
    for name in sorted(users.keys() - commands.keys()):
        where = ", ".join(sorted(users[name]))
        faults.append(f"{name}: not in tools/commands.txt, used by {where}")
    for name in sorted(commands.keys() - users.keys()):
        faults.append(f"{name}: in tools/commands.txt, used by nothing")
    # Where Debian puts its commands, whatever else the machine has.
    debian_path = "/usr/bin:/usr/sbin:/bin:/sbin"
    paths = {name: shutil.which(name, path=debian_path) for name in commands}
    installed = Installed(filter(None, paths.values()), set(commands.values()))
    for name, package in sorted(commands.items()):
        if package == "optional":
            continue
        if package != "debian":
            for script in ("test", "run", "bench"):
                needed = script == "test" or users.get(name, set()) & files_of[script]
                if needed and script not in packages.get(package, []):
                    faults.append(f"{name}: tools/packages.txt lacks {package} for ./{script}")
        if not paths[name]:
            faults.append(f"{name}: {package} is to bring it, but it is not there")
        elif not installed.brings(package, paths[name]):
            faults.append(f"{name}: {paths[name]} does not come with {package}")

    for fault in faults:
        print(fault)
    if faults:
        sys.exit(1)
    print(f"{len(users)} commands, all declared with their packages")


if __name__ == "__main__":
    main()
