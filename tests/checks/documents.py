#!/usr/bin/env python3
"""Holds the documents against the programs: what they tell a reader to type works, and what they list is what there is.

    documents.py SOURCE CONVERT INSPECT SCRATCH [PAGES]

Every block of shell commands is run, one document after the other in a folder of its own, with the examples beside it, and so
are the examples of the manual pages. Commands that aren't run here, in blocks and in sentences, are listed below, each with the
test that runs it or the reason why none does. A block of JSON that bears a file's name is there as that file. Options stand in
the manual and both READMEs, links and paths lead somewhere, and blocks of JSON are JSON. PAGES is the folder of the manual's
pages, where those were made.
"""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys

from pages import FENCED, blocks, check_links, check_pages, documents

TIME_LIMIT = 300

# Documents whose blocks are run elsewhere.
ELSEWHERE = {
    "docs/batch.md": "tests/cli/batch.py runs them, on folders of which one is broken",
    "docs/hosts.md": "tests/checks/installed.py runs them where the module is installed",
}
# Commands that are run elsewhere: how they begin, and the test with the words by which it runs them.
RUN_BY = {
    "./run.sh --install": (".ci/run", "./run.sh --install"),
    "./run.sh": (".ci/run", "./run.sh examples/"),
    "./test.sh": (".ci/run", "./test.sh"),
    "cmake --preset linux && cmake --build build/linux && ctest --preset linux": ("test.sh", 'ctest --preset "$1"'),
    "build/linux/tests/model_tests": ("tests/CMakeLists.txt", "add_test(NAME ${layer} COMMAND ${layer}_tests)"),
    "tools/wine.sh": ("tests/CMakeLists.txt", "tools/wine.sh"),
    "cmake -DCMAKE_PREFIX_PATH=": ("tests/checks/installed.py", "-DCMAKE_PREFIX_PATH="),
    "cmake --install": ("tests/checks/installed.py", '"cmake", "--install"'),
    "make --keep-going --jobs=2": ("tests/cli/batch.py", "make --keep-going --jobs=2"),
    "sbatch --wait batch.sh": ("tests/cli/batch.py", "sbatch --wait batch.sh"),
    "tools/package.sh": (".ci/run", "tools/package.sh"),
    "sudo apt install ./": ("tools/try-packages.sh", "/tmp/package.deb # as users do"),
    "sudo apt install libqt6widgets6 libicu72 fonts-ipafont-gothic": ("tools/try-packages.sh", "libqt6widgets6 libicu72 fonts-ipafont-gothic"),
    "sudo apt remove": ("tools/try-packages.sh", "apt-get purge"),
    "tar -xf": ("tools/try-packages.sh", 'tar -C "$1/opt/converter"'),
    "apt purge": ("tools/try-packages.sh", "apt-get purge"),
    "uninstall.exe /S _?=": ("tools/try-packages.sh", 'uninstall.exe" /S "_?='),
    "uninstall.exe /S": ("tools/try-packages.sh", 'uninstall.exe" /S'),
    "/S": ("tools/try-packages.sh", "/S /AllUsers"),
    "/CurrentUser": ("tools/try-packages.sh", "/S /CurrentUser"),
    "/AllUsers": ("tools/try-packages.sh", "/S /AllUsers"),
    "/D=": ("tools/try-packages.sh", "/D="),
    "_?=": ("tools/try-packages.sh", "_?="),
    "jlandxml-convert --version": ("tests/checks/installed.py", '"--version"'),
    "jlandxml-convert FOLDER": ("tests/checks/installed.py", "jlandxml-convert FOLDER"),
    "tests/checks/": ("tests/CMakeLists.txt", "/checks/{name}"),
    "tests/inspect/": ("tests/CMakeLists.txt", "/inspect/{name}"),
    "tests/cli/": ("tests/CMakeLists.txt", "/cli/{name}"),
    "fuzz/seeds.py": ("fuzz/run.sh", "fuzz/seeds.py"),
}
# Commands that no test runs.
NOT_RUN = {
    ".ci/run": "runs the tests itself",
    "tools/try-packages.sh": "new Debians and folders of Wine's, as root and with a network: part of each release",
    "tools/package.sh --check": "everything compiled twice: part of each release; .ci/run packs one build twice",
    "cmake --preset bench": "everything compiled once more, with a library for benchmarks",
    "bench/compare.sh": "half an hour, and its figures say something on a quiet machine alone",
    "BENCH_DIALOG=": "the same",
    "fuzz/run.sh": "as long as one likes; ./test.sh runs each target for seconds",
    "tools/lint.sh": "half an hour",
    "tools/pictures.sh": "makes the manual's pictures, which a person looks at",
    "tools/faults.sh": "half an hour; checks/faults is a sample of it",
    "tools/kills.sh": "an hour, and needs volumes mounted as root",
    "tools/soak.sh": "half an hour; checks/soak is a sample of it",
    "tools/sizes.sh": "half an hour; checks/sizes is a sample of it",
    "tools/coverage.sh": "everything compiled once more, to be read by a person",
    "tools/valgrind.sh": "half an hour",
    "tools/mutate.py": "hours",
    "tools/compare.sh": "needs a build of another commit",
    "tests/e2e/accept.sh": "changes what is expected",
    "cut -f1": "a program of the system's; what stands before the tab is compared in tests/e2e",
}
# What a sentence may have of a command line: a program with options is told apart from one by the options alone.
OPTION_OF = r"jlandxml-(convert|inspect) (?!--version)--[\w-]+( [A-Z]+)?"
COMMAND = (r"(\./|(jlandxml-[a-z]+|cmake|ctest|python3|bash|sh|sudo|apt|make|sbatch|cut|tar|uninstall\.exe) |BENCH_DIALOG=|build/[\w/]+_tests|"
           r"/(S|D=|[A-Z]\w+User\w*)|_\?=|\.ci/run|(tools|bench|fuzz|tests)/[\w/-]+\.(sh|py)\b)")
# Manual pages, those of a language in one folder: the second inspects what the first has made.
MANUAL_PAGES = {"docs/man": ["jlandxml-convert.1", "jlandxml-inspect.1"], "docs/man/ja": ["jlandxml-convert.1", "jlandxml-inspect.1"]}
# Work folders whose files have findings, so that inspecting all files that were made would end with status 1.
UNSOUND = ("県道 100号", "堤防")
# What a reader fills in where printed settings hold null.
COMPLETED = {"roadClassification": "第3種第2級", "normalCrown": "2.0", "desc": "用地境界（右）", "alignmentRefs": "線形1",
             "subInterval": "10"}


def complete(value):
    """Settings with the nulls filled in as a reader would."""
    if isinstance(value, dict):
        return {key: COMPLETED.get(key) if one is None else complete(one) for key, one in value.items()}
    return [complete(one) for one in value] if isinstance(value, list) else value


class Commands:
    """Runs the blocks of documents."""

    def __init__(self, source, programs, scratch):
        self.source = source
        self.scratch = scratch
        self.problems = []
        self.listed = set(RUN_BY) | set(NOT_RUN)
        self.count = 0
        shutil.rmtree(scratch, ignore_errors=True)
        (scratch / "bin").mkdir(parents=True)
        for name, program in programs.items():
            (scratch / "bin" / name).symlink_to(program)
        self.environment = dict(os.environ, PATH=f"{scratch / 'bin'}:{os.environ['PATH']}", LC_ALL="C.UTF-8",
                                PYTHONDONTWRITEBYTECODE="1")

    def prepare(self, name):
        place = self.scratch / re.sub(r"[^\w.]", "-", name)
        place.mkdir()
        shutil.copytree(self.source / "examples", place / "examples")
        shutil.copytree(place / "examples" / "road", place / "WORK_FOLDER")
        (place / "WORK_FOLDER" / "settings.json").unlink()
        for folder, example in (("国道999号", "road"), ("県道 100号", "two-routes"), ("堤防", "river")):
            shutil.copytree(place / "examples" / example, place / "work" / folder)
        return place

    def run(self, name, text):
        place = None
        for language, code in blocks(text):
            if language.startswith("json "):
                place = place or self.prepare(name)
                (place / language.removeprefix("json ")).write_text(code, encoding="utf-8")
            if name in ELSEWHERE:
                continue
            if re.match("sh |bat|make|cmake|slurm", language):
                self.problems.append(f"{name}: nothing runs a block of {language}")
            if language != "sh":
                continue
            lines = [line for line in (re.sub(r"(^|\s+)# .*", "", one) for one in code.splitlines()) if line]
            if any(map(self.entry, lines)):
                for line in lines:
                    self.look_up(name, line)
                continue
            place = place or self.prepare(name)
            self.run_block(name, code, place)
        for span in re.findall(r"`([^`\n]+)`", FENCED.sub("", text)):
            if re.match(COMMAND, span) and not re.fullmatch(OPTION_OF, span):
                self.look_up(name, span)

    @staticmethod
    def entry(command):
        """The longest beginning of a command that is listed."""
        begins = [one for one in {**RUN_BY, **NOT_RUN} if re.match(re.escape(one) + (r"\b" if one[-1].isalnum() else ""), command)]
        return max(begins, key=len, default=None)

    def look_up(self, name, command):
        """A command that isn't run here is run by the test that is named, or its reason is; what it runs is there."""
        entry = self.entry(command)
        self.listed.discard(entry)
        if entry is None:
            self.problems.append(f"{name}: nothing runs {command}")
        elif entry in RUN_BY:
            test, words = RUN_BY[entry]
            if words.replace("{name}", command.split()[0].rpartition("/")[2]) not in (self.source / test).read_text(encoding="utf-8"):
                self.problems.append(f"{name}: {test} doesn't run {command}")
        for script in re.findall(r"(?:^|\s)((?:\./|tools/|bench/|fuzz/|tests/)[\w/-]*\.sh)\b", command):
            if not os.access(self.source / script, os.X_OK):
                self.problems.append(f"{name}: {script} isn't a program")

    def run_manual_pages(self, folder, names):
        place = self.prepare(folder)
        for unsound in UNSOUND:
            shutil.rmtree(place / "work" / unsound)
        for page in names:
            text = (self.source / folder / page).read_text(encoding="utf-8")
            for code in re.findall(r"^\.nf\n(.*?)^\.fi$", text, re.M | re.S):
                self.run_block(f"{folder}/{page}", code.replace("\\-", "-"), place)

    def run_block(self, name, code, place):
        settings = place / "settings.json"
        if settings.exists():
            completed = complete(json.loads(settings.read_text(encoding="utf-8")))
            settings.write_text(json.dumps(completed, ensure_ascii=False), encoding="utf-8")
        ended = subprocess.run(["bash", "-e", "-c", code], cwd=place, env=self.environment, timeout=TIME_LIMIT,
                               check=False, stdin=subprocess.DEVNULL, capture_output=True, text=True)
        self.count += 1
        if ended.returncode != 0:
            self.problems.append(f"{name}: status {ended.returncode} of\n{code}{ended.stdout[-2000:]}{ended.stderr[-2000:]}")

    def finish(self):
        self.problems += [f"no document has a command {one}" for one in sorted(self.listed)]
        print(f"{self.count} blocks of commands were run")


def check_blocks(name, text):
    """What isn't marked can't be known for a command, and is none of a language either."""
    for language, code in blocks(text):
        if not language:
            yield f"{name}: a code block without its language: {code.splitlines()[0]}"
        if language.startswith("json"):
            try:
                json.loads(code)
            except json.JSONDecodeError as error:
                yield f"{name}: {error} in\n{code}"
    outside = FENCED.sub("", text)
    for line in re.findall(r"\n\n {4,}(\S.*)\n", outside):
        if re.match(r"(\./|[a-z_-]*jlandxml-|cmake |ctest |python3 |bash |sh |sudo |apt|tools/|bench/|build/)", line):
            yield f"{name}: a command outside a block of shell commands: {line}"


# Names of files that somebody is told to make.
PLACEHOLDERS = {"src/model/FViewName.h", "tests/model/FViewNameTest.cpp"}
FOLDERS = "bench|cmake|docs|examples|fuzz|include|packaging|src|tests|tools"


def check_paths(source, texts):
    """Files and folders of the project that prose names are there."""
    for name, text in texts.items():
        for path in re.findall(rf"`((?:(?:{FOLDERS})/|\./)[\w./-]+)[` ]", FENCED.sub("", text)):
            if path not in PLACEHOLDERS and not (source / path).exists():
                yield f"{name}: {path} isn't there"


# Options


def check_options(program, texts):
    """The manual lists a program's options, each spelling, and no others; the READMEs have them all."""
    told = subprocess.run([program.path, "--help"], env=dict(os.environ, LC_ALL="C.UTF-8"), capture_output=True, check=True,
                          encoding="utf-8").stdout
    spellings = [line.split()[0] for line in told.splitlines() if line.strip().startswith("-")]
    options = {option for one in spellings for option in one.split(",")}
    section = texts["docs/manual.ja.md"].split(f"\n### {program.name}\n", 1)[1].split("\n#", 1)[0]
    listed = {option for row in re.findall(r"^\| (`-[^|]*)\|", section, re.M) for option in re.findall(r"`(-[^`]*)`", row)}
    if listed != options:
        yield f"docs/manual.ja.md: {program.name}: not alike: {sorted(listed ^ options)}"
    for name in ("README.md", "README.ja.md"):
        for option in options:
            if not re.search(rf"`[^`]*(?<![\w-]){option}(?![\w-])", texts[name]):
                yield f"{name}: {program.name} {option} is missing"


# What becomes of elements

# They carry values and are named with what these are.
CARRIERS = {"Feature", "Property", "value"}
# A class of a list's rows, which are no elements.
NO_ELEMENTS = {"Widening"}


def check_elements(commands, program, texts):
    """The manual names each element that a class stands for, and all that changes in the examples."""
    section = texts["docs/manual.ja.md"].split("\n## 作業ファイルの要素の扱い\n", 1)[1].split("\n## ", 1)[0]
    named = set(re.findall(r"`([\w.]+)", section))
    headers = "".join(path.read_text(encoding="utf-8") for path in (commands.source / "src/model").glob("*.h"))
    wanted = set(re.findall(r'GetElementName\(\) const override \{ return L"(\w+)"', headers)) - NO_ELEMENTS
    for example in ("road", "river", "two-routes"):
        folder, changes = commands.source / "examples" / example, commands.scratch / f"{example}.jsonl"
        subprocess.run([program.path, folder, "-s", folder / "settings.json", "-o", commands.scratch / "out.xml", "--quiet",
                        "--changes", changes], check=True, stdout=subprocess.DEVNULL)
        for line in changes.read_text(encoding="utf-8").splitlines():
            change = json.loads(line)
            feature = re.match(r'<Feature name="(\w+)"', change.get("new", ""))
            wanted.add(feature.group(1) if feature else change["name"])
    for name in sorted(wanted - named - CARRIERS):
        yield f"docs/manual.ja.md: {name} is missing where it says what becomes of elements"


# Messages


def check_messages(source, texts):
    """What the manual quotes is what the program says; an ellipsis stands for what differs from run to run."""
    code = "".join(path.read_text(encoding="utf-8") for pattern in ("**/*.cpp", "**/*.h") for path in (source / "src").glob(pattern))
    section = texts["docs/manual.ja.md"].split("\n## メッセージ\n", 1)[1].split("\n## ", 1)[0]
    for message in re.findall(r"^\| (?!メッセージ)([^|-][^|]*) \|", section, re.M):
        for part in re.split(r"…|（|: (?!%)|, ", message):
            part = part.strip(" :")
            if part not in code:
                yield f"docs/manual.ja.md: no program says {part}"


class Program:
    def __init__(self, name, path):
        self.name, self.path = name, pathlib.Path(path).resolve()


def main():
    source, convert, inspect, scratch, *pages = sys.argv[1:]
    source = pathlib.Path(source).resolve()
    programs = [Program("jlandxml-convert", convert), Program("jlandxml-inspect", inspect)]
    texts = documents(source)
    commands = Commands(source, {program.name: program.path for program in programs}, pathlib.Path(scratch).resolve())
    problems = commands.problems
    for name, text in texts.items():
        problems += check_blocks(name, text)
        commands.run(name, text)
    for folder, names in MANUAL_PAGES.items():
        commands.run_manual_pages(folder, names)
    commands.finish()
    problems += check_links(source, texts)
    problems += check_paths(source, texts)
    problems += check_messages(source, texts)
    problems += check_elements(commands, programs[0], texts)
    for program in programs:
        problems += check_options(program, texts)
    for folder in pages:
        problems += check_pages(pathlib.Path(folder), source)
    print("\n".join(problems))
    sys.exit(1 if problems else 0)


main()
