"""Every option that a program's help names, and no other, stands in its manual pages and in both shells' completions; and
bash completes them.

    options.py SOURCE PROGRAM...
"""
import pathlib
import re
import subprocess
import sys

OPTION = re.compile(r"(?<![\w-])--?[a-zA-Z][a-z-]*")


def of_help(program):
    text = subprocess.run([program, "--help"], capture_output=True, check=True, encoding="utf-8").stdout
    lines = [line.strip().split(" ")[0] for line in text.splitlines() if line.strip().startswith("-")]
    return {option for line in lines for option in line.split(",")}


def of_page(path):
    """The options that have a paragraph of their own."""
    lines = path.read_text(encoding="utf-8").replace("\\-", "-").splitlines()
    tags = [line for before, line in zip(lines, lines[1:]) if before == ".TP"]
    return {option for tag in tags for option in OPTION.findall(tag.replace("=", " "))}


def of_bash(path):
    return set(re.search(r"options='([^']*)'", path.read_text(encoding="utf-8")).group(1).split())


def of_zsh(path):
    """Each line declares one option, in one spelling or, between braces, in two."""
    found = set()
    for line in path.read_text(encoding="utf-8").splitlines():
        spellings = re.search(r"\{(.*?)\}'\[", line) or re.search(r"'(?:\([^)]*\))?\*?(-.*?)\[", line)
        if spellings and not line.lstrip().startswith("'*:"):
            found |= set(OPTION.findall(spellings.group(1).replace("+", " ").replace("=", " ")))
    return found


def completed_by_bash(path, program, word):
    function = "_" + program.replace("-", "_")
    script = f'. "{path}"; COMP_WORDS=({program} "$1"); COMP_CWORD=1; {function}; printf "%s\\n" "${{COMPREPLY[@]}}"'
    run = subprocess.run(["bash", "-uc", script, "bash", word], capture_output=True, check=True, encoding="utf-8")
    return set(run.stdout.split())


def main(source, programs):
    failures = []

    def expect(what, found, expected):
        if found != expected:
            failures.append(f"{what}: lacks {sorted(expected - found)}, has {sorted(found - expected)} too")

    for program in map(pathlib.Path, programs):
        options = of_help(program)
        if len(options) < 5:
            failures.append(f"{program} names {sorted(options)} only")
        completions = source / "packaging" / "completions"
        bash = completions / f"{program.name}.bash"
        expect("manual page", of_page(source / "docs" / "man" / f"{program.name}.1"), options)
        expect("Japanese manual page", of_page(source / "docs" / "man" / "ja" / f"{program.name}.1"), options)
        expect("bash's list", of_bash(bash), options)
        expect("zsh's list", of_zsh(completions / f"_{program.name}"), options)
        expect("bash after -", completed_by_bash(bash, program.name, "-"), options)
        expect("bash after --re", completed_by_bash(bash, program.name, "--re"), {"--report"})
    for failure in failures:
        print(failure)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]), sys.argv[2:]))
