#!/usr/bin/env python3
"""Prints lines and branches of src/ from what programs built with Clang's coverage have left behind.

    tools/coverage.py BUILD_FOLDER LIST_FILE PASSED_OVER PROGRAM...

The profiles are read from BUILD_FOLDER/profiles; what nothing reached goes to BUILD_FOLDER/LIST_FILE, one line or
branch each. Sources whose path fits the pattern PASSED_OVER aren't counted, nor are constexpr functions that the compiler
alone runs, nor conditions that it alone decides (`if constexpr`).
"""

import glob
import json
import os
import re
import subprocess
import sys


def merge(build):
    profiles = glob.glob(f"{build}/profiles/*.profraw")
    merged = f"{build}/all.profdata"
    subprocess.run(["llvm-profdata", "merge", "-sparse", "--failure-mode=all", *profiles, "-o", merged], check=True)
    return merged


def export(merged, programs, *options):
    objects = [part for program in programs[1:] for part in ("-object", program)]
    command = ["llvm-cov", "export", f"-instr-profile={merged}", *options, programs[0], *objects]
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


def read_lines(path):
    with open(path, encoding="utf-8") as file:
        return file.read().splitlines()


class Source:
    """Counts of one source file: of lines by their number, of branches by line, column and outcome. What a template
    is compiled to several times counts once."""

    def __init__(self):
        self.lines = {}
        self.branches = {}
        self.functions = {}

    def pass_over(self, text, start):
        """Leaves out a constexpr function that the program doesn't hold, since the compiler itself has run it."""
        first = start - 1
        while first > 0 and text[first - 1].strip() and not text[first - 1].rstrip().endswith((";", "}", "{")):
            first -= 1
        if not any("constexpr " in line for line in text[first:start]):
            return
        indent = len(text[start - 1]) - len(text[start - 1].lstrip())
        ends = (number for number in range(start, len(text) + 1) if text[number - 1].startswith(" " * indent + "}"))
        end = start if text[start - 1].rstrip().endswith("}") else next(ends, start)
        for number in range(start, end + 1):
            self.lines.pop(number, None)
        self.branches = {key: count for key, count in self.branches.items() if not start <= key[0] <= end}

    def add(self, counts, key, count):
        counts[key] = counts.get(key, 0) + count


def read(merged, programs, root, passed_over):
    sources = {}

    def source_of(name):
        path = os.path.relpath(name, root)
        wanted = path.startswith("src/") and not re.search(passed_over, path)
        return sources.setdefault(path, Source()) if wanted else None

    source = None
    starts = {}
    for line in export(merged, programs, "-format=lcov").splitlines():
        kind, _, rest = line.partition(":")
        if kind == "SF":
            source = source_of(rest)
        elif source is not None and kind == "FN":
            number, name = rest.split(",", 1)
            starts[name] = int(number)
        elif source is not None and kind == "FNDA":
            count, name = rest.split(",", 1)
            source.add(source.functions, starts[name], int(count))
        elif source is not None and kind == "DA":
            number, count = rest.split(",")[:2]
            source.add(source.lines, int(number), int(count))
    for file in json.loads(export(merged, programs, "-format=text", "-skip-functions"))["data"][0]["files"]:
        source = source_of(file["filename"])
        for line, column, _, _, true_count, false_count, *_ in file["branches"] if source is not None else ():
            source.add(source.branches, (line, column, True), true_count)
            source.add(source.branches, (line, column, False), false_count)
    for path, source in sources.items():
        text = read_lines(path)
        for start, count in source.functions.items():
            if not count:
                source.pass_over(text, start)
        source.branches = {key: count for key, count in source.branches.items() if "if constexpr" not in text[key[0] - 1]}
    return sources


def share(counts):
    reached = sum(1 for count in counts.values() if count)
    return reached, len(counts)


def row(name, lines, branches):
    def cell(reached, all_of_them):
        percent = 100 * reached / all_of_them if all_of_them else 100
        return f"{reached:6} of {all_of_them:6} {percent:6.2f} %"

    return f"{name:52} lines {cell(*lines)}   branches {cell(*branches)}"


def main():
    build, list_file, passed_over, *programs = sys.argv[1:]
    sources = read(merge(build), programs, os.getcwd(), passed_over)
    folders = {}
    with open(f"{build}/{list_file}", "w", encoding="utf-8") as out:
        for path, source in sorted(sources.items()):
            lines, branches = share(source.lines), share(source.branches)
            if lines[0] < lines[1] or branches[0] < branches[1]:
                print(row(path, lines, branches))
            for name in (path.split("/")[1], "src"):
                total = folders.setdefault(name, [0, 0, 0, 0])
                folders[name] = [a + b for a, b in zip(total, (*lines, *branches))]
            text = read_lines(path)
            for number, count in sorted(source.lines.items()):
                if not count:
                    print(f"{path}:{number}: line: {text[number - 1].strip()}", file=out)
            for (number, column, outcome), count in sorted(source.branches.items()):
                if not count and source.lines.get(number, 1):
                    rest = text[number - 1][column - 1:].strip()
                    print(f"{path}:{number}: never {str(outcome).lower()}: {rest}", file=out)
    print()
    for name, total in sorted(folders.items(), key=lambda item: (item[0] == "src", item[0])):
        print(row(name, total[:2], total[2:]))
    print(f"What nothing reaches: {build}/{list_file}")


main()
