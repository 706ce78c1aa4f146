#!/usr/bin/env python3
"""Finds lines that no test holds: changes one at a time and sees whether a test of its folder fails.

    tools/mutate.py src/sidefiles [--sample 100 --seed 1] [--log FILE] [--time-limit SECONDS] [FILE...]

The changes are of one line each: an operator or a constant becomes another one, a condition is negated, a statement is
left out, two arguments or two statements that follow each other change places. Each is made in a copy of the tracked
files (build/mutate/source), where the matching test program alone is built, without optimisation, and run until its
first failure. The tree itself is never touched.

A change that doesn't build or that a test notices is killed; what is left is printed with file, line and change. The
outcome of each goes into a log (build/mutate/FOLDER.log, one JSON object a line), and a later call goes on where the
former one ended: a change whose line is still the same isn't tried again. `--survivors` tries those again that
survived. Without FILE all files of the folder take part.
"""

import argparse
import json
import os
import random
import re
import resource
import shutil
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
SOURCE = ROOT / "build/mutate/source"
BUILD = ROOT / "build/mutate/build"
MEMORY_LIMIT = 8 << 30  # bytes; a loop without an end mustn't take the machine with it
BUILD_LIMIT = 1800  # seconds

# The operators stand between blanks, as the formatting has them; without blanks the same signs belong to types.
OPERATORS = [
    ("==", "!="), ("!=", "=="), ("<", "<="), ("<", ">"), ("<=", "<"), (">", ">="), (">", "<"), (">=", ">"),
    ("&&", "||"), ("||", "&&"), ("+", "-"), ("-", "+"), ("*", "/"), ("/", "*"), ("%", "*"), ("+=", "-="), ("-=", "+="),
]
OPERATOR = {sign: [other for one, other in OPERATORS if one == sign] for sign, _ in OPERATORS}
WORDS = {"true": "false", "false": "true", "break": "continue", "continue": "break", "starts_with": "ends_with",
         "begin": "rbegin", "min": "max", "max": "min", "any_of": "all_of", "all_of": "any_of"}
STATEMENT = re.compile(r"^\s+(?!return\b|const\b|using\b|else\b|case\b|default\b|struct\b|class\b|constexpr\b|static\b)"
                       r"(?:(?:[\w\]\[.()>:*-]+(?:<[^;=]*>)?\(.*\))|(?:[\w\]\[.()>*:-]+ [-+*|&]?= .*)|(?:(?:\+\+|--).*)|"
                       r"(?:continue|break));$")
ARGUMENTS = re.compile(r"\b\w+\(([^(),]+), ([^(),]+)\)")
CONDITION = re.compile(r"^(\s*(?:\} else )?(?:if|while) \()(.*)(\))$")


def masked(line):
    """The line with blanks in the place of its literals' texts and of its comment."""
    text = re.sub(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])*\'', lambda hit: hit[0][0] + "~" * (len(hit[0]) - 2) + hit[0][-1],
                  line)
    comment = text.find("//")
    return text if comment < 0 else text[:comment] + " " * (len(text) - comment)


def changes_of_line(line):
    """Every changed form of a line."""
    code = masked(line)
    if not code.strip() or code.lstrip().startswith("#"):
        return
    for hit in re.finditer(r"(?<= )(\S{1,2})(?= )", code):
        for other in OPERATOR.get(hit[1], []):
            yield line[:hit.start()] + other + line[hit.end():]
    for hit in re.finditer(r"(\+\+|--)(?=\w)", code):
        yield line[:hit.start()] + ("--" if hit[1] == "++" else "++") + line[hit.end():]
    for hit in re.finditer(r"(?<![\w.])!(?=[\w(])", code):
        yield line[:hit.start()] + line[hit.end():]
    for hit in re.finditer(r"(?<![\w.~])(\d+)(\.\d+)?(?=[\s,;)}\]U])", code):
        number = int(hit[1])
        yield line[:hit.start(1)] + str(number + 1) + line[hit.end(1):]
        if number > 1:
            yield line[:hit.start(1)] + str(number - 1) + line[hit.end(1):]
    for hit in re.finditer(r"\b(" + "|".join(WORDS) + r")\b", code):
        yield line[:hit.start()] + WORDS[hit[1]] + line[hit.end():]
    for hit in re.finditer(r'"~+"', code):
        yield line[:hit.end() - 1] + "x" + line[hit.end() - 1:]
    condition = CONDITION.match(code)
    if condition and ";" not in condition[2]:
        yield line[:condition.end(1)] + "!(" + line[condition.start(2):condition.end(2)] + "))"
    for hit in ARGUMENTS.finditer(code):
        first, second = line[slice(*hit.span(1))], line[slice(*hit.span(2))]
        if first != second and not re.search(r"[\w>&*] \w", hit[1]):
            yield line[:hit.start(1)] + second + ", " + first + line[hit.end(2):]
    if STATEMENT.match(code):
        yield line[:len(line) - len(line.lstrip())] + ";"


def independent(first, second):
    """True for two statements whose order says nothing: each assigns or clears a member that the other doesn't name."""
    members = [re.match(r"\s*((?:\w+\.)?\w+)(?: = |\.clear\(\);)", line) for line in (first, second)]
    if not all(members) or members[0][1] == members[1][1]:
        return False
    names = [re.escape(member[1].split(".")[-1]) for member in members]
    rests = [line[member.end():] for line, member in zip((first, second), members)]
    return not re.search(rf"\b{names[0]}\b", rests[1]) and not re.search(rf"\b{names[1]}\b", rests[0])


def changes_of_file(path):
    """(line number, old lines, new lines) for every change of a file."""
    lines = path.read_text(encoding="utf-8").split("\n")
    for index, line in enumerate(lines):
        for changed in dict.fromkeys(changes_of_line(line)):
            if changed != line:
                yield index + 1, [line], [changed]
        pair = lines[index:index + 2]
        if len(pair) == 2 and pair[0] != pair[1] and all(STATEMENT.match(masked(one)) for one in pair):
            indents = [len(one) - len(one.lstrip()) for one in pair]
            if indents[0] == indents[1] and not independent(*pair):
                yield index + 1, pair, pair[::-1]


def copy_tree():
    """Brings the copy up to date; what is the same keeps its time, so that only what differs is built."""
    listed = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, stdout=subprocess.PIPE, check=True).stdout
    names = {name for name in os.fsdecode(listed).split("\0") if name and (ROOT / name).is_file()}
    for name in names:
        target = SOURCE / name
        content = (ROOT / name).read_bytes()
        if not target.is_file() or target.read_bytes() != content:
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_bytes(content)
            shutil.copymode(ROOT / name, target)
    for old in [path for path in SOURCE.rglob("*") if path.is_file() and not path.is_symlink()]:
        if str(old.relative_to(SOURCE)) not in names and ".deps" not in old.parts:
            old.unlink()
    libraries = SOURCE / ".deps"
    if (ROOT / ".deps").is_dir() and not libraries.exists():
        libraries.symlink_to(ROOT / ".deps")


def run(command, limit, **options):
    """True if a command succeeds within its time."""
    def limit_memory():
        os.setsid()
        resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

    process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                               preexec_fn=limit_memory, **options)
    try:
        return process.wait(limit) == 0
    except subprocess.TimeoutExpired:
        return False
    finally:
        try:
            os.killpg(process.pid, 9)
        except ProcessLookupError:
            pass
        process.wait()


def own_suites(path):
    """A filter with the suites of the test file that belongs to a source file; nothing where there is none."""
    tests = ROOT / "tests" / Path(path).relative_to("src").with_suffix("")
    tests = tests.with_name(tests.name + "Test.cpp")
    text = tests.read_text(encoding="utf-8") if tests.is_file() else ""
    return ":".join(f"*{suite}*" for suite in sorted(set(re.findall(r"^TEST(?:_[FP])?\((\w+),", text, re.MULTILINE))))


class Sweep:
    def __init__(self, folder, time_limit, jobs):
        self.target = Path(folder).name + "_tests"
        self.time_limit = time_limit
        self.jobs = jobs

    def configure(self):
        # Clang without optimisation takes a third of GCC's time.
        return run(["cmake", "-S", SOURCE, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                    "-DCMAKE_CXX_FLAGS_DEBUG=-O0", "-DCMAKE_C_COMPILER=clang", "-DCMAKE_CXX_COMPILER=clang++"], BUILD_LIMIT)

    def build(self):
        return run(["cmake", "--build", BUILD, "--target", self.target, "--", f"-j{self.jobs}"], BUILD_LIMIT,
                   env={**os.environ, "CCACHE_DISABLE": "1"})

    def test(self, path=None):
        """Runs the tests of a source file, which notice most of its changes, or else all of the folder."""
        suites = "*" if path is None else own_suites(path)
        return not suites or run([BUILD / "tests" / self.target, "--gtest_fail_fast", "--gtest_brief=1",
                                  "--gtest_filter=" + suites], self.time_limit, cwd=BUILD)

    def outcome(self, path, number, old, new):
        """Makes one change, and unmakes it whatever happens."""
        copy = SOURCE / path
        content = copy.read_bytes()
        lines = content.decode("utf-8").split("\n")
        assert lines[number - 1:number - 1 + len(old)] == old
        lines[number - 1:number - 1 + len(old)] = new
        try:
            copy.write_bytes("\n".join(lines).encode("utf-8"))
            if not self.build():
                return "not built"
            return "survived" if self.test(path) and self.test() else "killed"
        finally:
            copy.write_bytes(content)


def told(path, number, old, new):
    return f"{path}:{number}: " + " / ".join(line.strip() for line in old) + "  ->  " + " / ".join(
        line.strip() for line in new)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folder", help="src/model, src/sidefiles, src/run, src/dialog, ...")
    parser.add_argument("files", nargs="*", metavar="FILE", help="only these files, by their names")
    parser.add_argument("--sample", type=int, help="try so many changes only, drawn at random")
    parser.add_argument("--seed", type=int, default=1, help="of the sample")
    parser.add_argument("--log", type=Path)
    parser.add_argument("--time-limit", type=int, default=120, help="seconds for one run of the tests")
    parser.add_argument("--jobs", type=int, default=1, help="of the build")
    parser.add_argument("--survivors", action="store_true", help="try again what survived")
    parser.add_argument("--list", action="store_true", help="print the changes and try none")
    options = parser.parse_args()

    folder = (ROOT / options.folder).resolve().relative_to(ROOT)
    paths = sorted(path for path in (ROOT / folder).glob("*") if path.suffix in (".cpp", ".h"))
    paths = [path for path in paths if not options.files or path.name in options.files]
    all_changes = [(str(path.relative_to(ROOT)), *change) for path in paths for change in changes_of_file(path)]
    if options.sample is not None and options.sample < len(all_changes):
        drawn = set(random.Random(options.seed).sample(range(len(all_changes)), options.sample))
        all_changes = [change for index, change in enumerate(all_changes) if index in drawn]
    if options.list:
        print("\n".join(told(*change) for change in all_changes))
        return 0

    log = options.log or ROOT / "build/mutate" / (folder.name + ".log")
    log.parent.mkdir(parents=True, exist_ok=True)
    known = {}
    if log.is_file():
        for entry in map(json.loads, log.read_text(encoding="utf-8").splitlines()):
            known[json.dumps(entry["change"])] = entry["outcome"]

    SOURCE.mkdir(parents=True, exist_ok=True)
    copy_tree()
    sweep = Sweep(folder, options.time_limit, options.jobs)
    if not (sweep.configure() and sweep.build() and sweep.test()):
        print("the tests don't pass without a change", file=sys.stderr)
        return 2

    survivors = []
    for index, change in enumerate(all_changes, 1):
        key = json.dumps(change)
        outcome = known.get(key)
        if outcome is None or (options.survivors and outcome == "survived"):
            outcome = sweep.outcome(*change)
            with log.open("a", encoding="utf-8") as entries:
                entries.write(json.dumps({"change": change, "outcome": outcome}, ensure_ascii=False) + "\n")
            print(f"[{index}/{len(all_changes)}] {outcome}: {told(*change)}", file=sys.stderr, flush=True)
        if outcome == "survived":
            survivors.append(change)
    for change in survivors:
        print(told(*change))
    print(f"{len(survivors)} of {len(all_changes)} changes survive")
    return 1 if survivors else 0


if __name__ == "__main__":
    sys.exit(main())
