#!/usr/bin/env python3
"""Runs the benchmarks, prints a table of ratios and writes it to build/bench.md. With
--docs it also writes it between the two marks of docs/performance.md. ./bench starts
this in a Wine session.

Every time is the least of several runs, because the load of the machine can only make
a run longer. The runs of programs that are compared alternate.
"""

import json
import os
import platform
import shutil
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BUILD = ROOT / "build"
NATIVE = BUILD / "bench" / "benchmarks"
WINDOWS = BUILD / "bench-windows"
WORK = BUILD / "bench" / "work"
DOCS = ROOT / "docs" / "performance.md"
BEGIN, END = "<!-- written by ./bench --docs -->\n", "<!-- until here -->\n"

SIZES = (10, 1_000, 100_000, 1_000_000)
WINDOW_SIZES = (20, 1_000, 20_000)
BUTTONS = ("Move Up", "Move Down", "Separator", "Delete")  # as window_times presses them
RUNS = 9
CHANGES = {"move_up": "MoveUp", "delete": "Delete", "save_appearance": "SaveAppearance"}
WORK_OF = {
    "load": "Loading",
    "move_up": "Moving an entry",
    "delete": "Deleting an entry",
    "save_appearance": "Saving the appearance",
}


def run(*command, **options):
    words = [str(word) for word in command]
    done = subprocess.run(words, stdout=subprocess.PIPE, text=True, check=False, **options)
    if done.returncode != 0:
        sys.exit(f"{' '.join(words)}: exit code {done.returncode}\n{done.stdout}")
    return done.stdout


def progress(text):
    print(f"{text} ...", file=sys.stderr, flush=True)


def google_benchmarks(program, names, sizes, repetitions):
    """The least time in microseconds of each size of the benchmarks with these names, a
    regular expression."""
    progress(f"{program} with up to {sizes[-1]:,} entries")
    told = run(
        NATIVE / program,
        "--benchmark_format=json",
        f"--benchmark_filter=^({names})/({'|'.join(map(str, sizes))})(/|$)",
        "--benchmark_min_time=0.001",
        f"--benchmark_repetitions={repetitions}",
        "--benchmark_enable_random_interleaving=true",
        env={**os.environ, "TMPDIR": str(WORK)},
    )
    times = {}
    for row in json.loads(told)["benchmarks"]:
        if row.get("error_occurred"):
            sys.exit(f"{row['name']}: {row['error_message']}")
        if row["run_type"] == "iteration":
            name, size = row["run_name"].split("/")[:2]
            key = name, int(size)
            times[key] = min(times.get(key, float("inf")), row["real_time"])
    return times


def make_menu(entries):
    path = WORK / f"{entries}.menu"
    run(NATIVE / "make_menu", entries, path)
    return path


def script_times():
    progress("csv_times.py")
    times = {}
    for entries in SIZES:
        path = make_menu(entries)
        runs = 3 if entries > 100_000 else RUNS
        told = json.loads(run(ROOT / "benchmarks" / "csv_times.py", path, runs))
        if told["entries"] != entries:
            sys.exit(f"the script read {told['entries']} of {entries} entries")
        times["LoadScript", entries] = told["load"]
        times["MoveUpScript", entries] = told["move_up"]
        path.unlink()
    return times


def peak_memory():
    """The peak as a multiple of the file's size, for large files only."""
    progress("peak_memory")
    environment = {**os.environ, "TMPDIR": str(WORK)}
    ratios = {}
    for entries in SIZES[2:]:
        for what in ("load", *CHANGES):
            size, peak = run(NATIVE / "peak_memory", entries, what, env=environment).split()
            ratios[what, entries] = int(peak) / int(size)
    return ratios


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def run_window_times(*arguments):
    """The times that the program prints, in microseconds."""
    told = run(ROOT / "tools" / "wine_run.sh", WINDOWS / "benchmarks" / "window_times.exe",
               *arguments, cwd=WORK)
    return [float(line.split()[-1]) for line in told.splitlines()]


def window_times(what, entries, *programs):
    menu = make_menu(entries)
    runs = {"start": 5 if entries > 1_000 else 25, "drop": 3}.get(what, RUNS)
    times = run_window_times(what, runs, windows_path(menu), entries,
                             *map(windows_path, programs))
    menu.unlink()
    return times


def write_template(editor, template):
    menu = make_menu(20)
    run_window_times("template", windows_path(menu), 20, windows_path(editor),
                     windows_path(template.with_suffix(".dlg")))
    menu.unlink()


def machine():
    with open("/proc/cpuinfo") as file:
        models = [line.split(":")[1].strip() for line in file if line.startswith("model name")]
    with open("/proc/meminfo") as file:
        memory = int(file.readline().split()[1]) / 2**20
    return (
        f"{models[0] if models else platform.machine()}, {os.cpu_count()} cores, "
        f"{memory:.0f} GiB of memory, Linux {platform.release()}; "
        f"load {os.getloadavg()[0]:.1f} at the start"
    )


def microseconds(time):
    for unit, factor in (("s", 1e6), ("ms", 1e3)):
        if time >= factor:
            return f"{time / factor:.3g} {unit}"
    return f"{time:.3g} µs"


def verdict(goal, met):
    return f"{goal}, {'met' if met else 'not met'}"


class Table:
    def __init__(self):
        self.rows = [("Work", "Entries", "Time", "Compared with", "Time", "Ratio", "Goal")]

    def add(self, work, entries, compared, ratio, times=("", ""), goal=""):
        self.rows.append((work, f"{entries:,}", times[0], compared, times[1], f"{ratio:.2f}", goal))

    def add_times(self, work, entries, time, compared, other, most=None):
        goal = verdict(f"≤ {most:g}", time <= most * other) if most else ""
        times = microseconds(time), microseconds(other)
        self.add(work, entries, compared, time / other, times, goal)

    def text(self):
        widths = [max(len(row[i]) for row in self.rows) for i in range(len(self.rows[0]))]
        numbers = {1, 2, 4, 5}
        lines = []
        for row in self.rows:
            cells = [
                cell.rjust(width) if i in numbers else cell.ljust(width)
                for i, (cell, width) in enumerate(zip(row, widths))
            ]
            lines.append("| " + " | ".join(cells) + " |")
        ends = [":" if i in numbers else "-" for i in range(len(widths))]
        rule = ("-" * (width - 1) + end for width, end in zip(widths, ends))
        lines.insert(1, "| " + " | ".join(rule) + " |")
        return "\n".join(lines)


def add_core(table):
    times = script_times()
    times |= google_benchmarks("memory_bench", ".*", SIZES[:2], 50)
    times |= google_benchmarks("memory_bench", ".*", SIZES[2:], 10)
    # What the disk takes varies most.
    changes = "|".join(CHANGES.values())
    on_disk = f"LoadFromDisk|FindLineEndsOnDisk|TwoCopies|(First)?({changes})"
    times |= google_benchmarks("disk_bench", on_disk, SIZES[:2], 100)
    times |= google_benchmarks("disk_bench", on_disk, SIZES[2:], 25)
    times |= google_benchmarks("disk_bench", "MoveUpKeyFile", SIZES, 5)

    def add(work, name, compared, other, most=None):
        for entries in SIZES:
            own = times[name, entries]
            table.add_times(work, entries, own, compared, times[other, entries], most)

    in_memory = "Loading, bytes in memory"
    add(in_memory, "Load", "finding line ends", "FindLineEnds", 4)
    add(in_memory, "Load", "GLib's GKeyFile", "LoadKeyFile")
    add(in_memory, "Load", "Python's csv", "LoadScript")
    in_file = "Loading, file in cache"
    add(in_file, "LoadFromDisk", "reading, finding line ends", "FindLineEndsOnDisk")
    for turn in ("", "First"):
        for change, name in CHANGES.items():
            work = WORK_OF[change] + (", first change" if turn else "")
            add(work, turn + name, "two copies", "TwoCopies", 1.5)
    add(WORK_OF["move_up"], "MoveUp", "GLib's GKeyFile", "MoveUpKeyFile")
    add(WORK_OF["move_up"], "MoveUp", "Python's csv", "MoveUpScript")
    few, many = SIZES[1], SIZES[-1]
    for work, name in (("Loading one", "Load"), ("Moving, for one", "MoveUp")):
        each, other = times[name, many] / many, times[name, few] / few
        table.add_times(f"{work} of many entries", many, each, f"one of {few:,}", other)


def add_memory(table):
    for (what, entries), ratio in peak_memory().items():
        goal = verdict("≤ 4", ratio <= 4)
        table.add(f"{WORK_OF[what]}, peak memory", entries, "size of the file", ratio, goal=goal)


def add_windows(table):
    editor = WINDOWS / "CorvalisEdit.exe"
    minimal = WINDOWS / "benchmarks" / "minimal_window.exe"
    template = WINDOWS / "benchmarks" / "template_window.exe"
    write_template(editor, template)
    anatomy = ""
    for entries in WINDOW_SIZES:
        progress(f"starting the editor with {entries:,} entries")
        own, same, least = window_times("start", entries, editor, template, minimal)
        few = entries == WINDOW_SIZES[0]
        table.add_times("Start, list shown", entries, own, "the same controls", same,
                        1.25 if few else None)
        table.add_times("Start, list shown", entries, own, "a minimal window", least)
        if few:
            anatomy = (f"A start with {entries} entries takes {microseconds(own)}. Of these, "
                       f"{microseconds(least)} are what a program with one window and one list "
                       f"takes; {microseconds(same - least)} more are the same controls as the "
                       f"editor's, made from a dialog template; the last "
                       f"{microseconds(own - same)} are all that the editor does besides: the "
                       "menu, the icons, the tips, the drop target.")
    entries = WINDOW_SIZES[-1]
    progress("pressing buttons")
    *presses, other = window_times("edits", entries, editor)
    for button, own in zip(BUTTONS, presses, strict=True):
        goal = verdict("≤ 100 ms more", own <= other + 100_000)
        times = microseconds(own), microseconds(other)
        table.add(f"Pressing {button}", entries, "the rewrite alone", own / other, times, goal)
    progress("dropping files")
    own, other = window_times("drop", WINDOW_SIZES[0], editor)
    table.add_times("Dropping files", 300, own, "the shell's names of them", other)
    progress("starting the editor with 1,000 icons")
    plain, _, files, of_files, library, of_library = run_window_times(
        "icons", 3, windows_path(WORK), windows_path(editor))
    table.add_times("Icons of as many files", 1_000, files - plain, "getting them", of_files)
    table.add_times("Icons of a library", 1_000, library - plain, "getting them", of_library)
    return anatomy


def main():
    description = machine()
    shutil.rmtree(WORK, ignore_errors=True)
    WORK.mkdir(parents=True)
    table = Table()
    add_core(table)
    add_memory(table)
    anatomy = add_windows(table)
    shutil.rmtree(WORK)
    report = (
        f"Measured on {description}. Each time is the least of several runs.\n\n"
        f"{table.text()}\n\n{anatomy}\n"
    )
    (BUILD / "bench.md").write_text(report, encoding="utf-8")
    if sys.argv[1:] == ["--docs"]:
        before, rest = DOCS.read_text(encoding="utf-8").split(BEGIN)
        after = rest.split(END)[1]
        DOCS.write_text(f"{before}{BEGIN}\n{report}\n{END}{after}", encoding="utf-8")
    print(report, end="")


if __name__ == "__main__":
    main()
