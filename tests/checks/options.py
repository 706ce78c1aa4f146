"""Every option that a program's help names, and no other, stands in its manual pages and in both shells' completions; and
both shells complete them.

    options.py SOURCE PROGRAM...
"""
import pathlib
import re
import subprocess
import sys
import tempfile

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


def completed_by_bash(path, program, *words):
    """With the words as the shell hands them over."""
    function = "_" + program.replace("-", "_")
    script = f'. "{path}"; COMP_WORDS=({program} "$@"); COMP_CWORD=$#; {function}; printf "%s\\n" "${{COMPREPLY[@]}}"'
    run = subprocess.run(["bash", "-uc", script, "bash", *words], capture_output=True, check=True, encoding="utf-8")
    return set(run.stdout.split())


def completed_by_zsh(path, program, options):
    """What each long option becomes when all but its last letter has been typed, without what parts it from its value."""
    options = sorted(option for option in options if option.startswith("--"))
    with tempfile.TemporaryDirectory() as folder:
        lines, made = pathlib.Path(folder) / "lines", pathlib.Path(folder) / "made"
        lines.write_text("".join(f"{program} {option[:-1]}\n" for option in options))
        subprocess.run(["zsh", "-f", pathlib.Path(__file__).with_name("complete.zsh"), path.parent, lines, made], check=True, timeout=60)
        return {re.sub(f"^{program} ", "", line).rstrip(" =") for line in made.read_text().splitlines()}


def zsh_faults(path):
    return subprocess.run(["zsh", "-n", path], capture_output=True, check=False, encoding="utf-8").stderr


def main(source, programs):
    failures = []

    def expect(what, found, expected):
        if found != expected:
            failures.append(f"{what}: {found}" if isinstance(found, str) else
                            f"{what}: lacks {sorted(expected - found)}, has {sorted(found - expected)} too")

    for program in map(pathlib.Path, programs):
        options = of_help(program)
        if len(options) < 5:
            failures.append(f"{program} names {sorted(options)} only")
        completions = source / "packaging" / "completions"
        bash = completions / f"{program.name}.bash"
        expect("manual page", of_page(source / "docs" / "man" / f"{program.name}.1"), options)
        expect("Japanese manual page", of_page(source / "docs" / "man" / "ja" / f"{program.name}.1"), options)
        expect("bash's list", of_bash(bash), options)
        zsh = completions / f"_{program.name}"
        expect("zsh's list", of_zsh(zsh), options)
        expect("what zsh makes of it", zsh_faults(zsh), "")
        expect("zsh", completed_by_zsh(zsh, program.name, options), {option for option in options if option.startswith("--")})
        expect("bash after -", completed_by_bash(bash, program.name, "-"), options)
        expect("bash after --re", completed_by_bash(bash, program.name, "--re"), {"--report"})
        for words in ["--report"], ["--report", "="]:
            expect(f"bash after {words}", completed_by_bash(bash, program.name, *words, "/us"), {"/usr"})
        if "--fail-on" in options:
            expect("bash after --fail-on=", completed_by_bash(bash, program.name, "--fail-on", "="), {"誤り", "警告", "情報"})
    for failure in failures:
        print(failure)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]), sys.argv[2:]))
