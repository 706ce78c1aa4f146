"""Patterns in the command lines of Windows, whose shells hand them on as they are typed: the programs put the names that fit
in their place, in order, and leave what fits nothing.

    patterns.py WINE CONVERT INSPECT ROAD SCRATCH

Each line is typed into Windows' own shell. Wine's runtime takes no notice of quotes around a pattern, so these aren't tried.
"""
import json
import os
import pathlib
import shutil
import subprocess
import sys

FOLDERS = ["A road", "国道1号", "国道2号", "国道12号", "𠮷野川"]


def main(wine, convert, inspect, road, scratch):
    scratch = pathlib.Path(scratch).resolve()
    shutil.rmtree(scratch, ignore_errors=True)
    for name in FOLDERS:
        shutil.copytree(road, scratch / "work" / name)
    problems = []
    for program in (convert, inspect):
        shutil.copy(program, scratch)

    def typed(line, status=0):
        ended = subprocess.run([wine, "cmd", "/c", line], cwd=scratch, encoding="utf-8", check=False, capture_output=True,
                               env=dict(os.environ, WINE_LOCALE="ja_JP.UTF-8"))
        if ended.returncode != status:
            problems.append(f"{line}: status {ended.returncode}: {ended.stderr}")
        return ended

    def taken(pattern):
        """The work folders that a pattern stands for."""
        ended = typed(f"jlandxml-convert.exe {pattern} -s work\\国道1号\\settings.json --output-dir finished --json")
        return [json.loads(line)["folder"] for line in ended.stdout.splitlines()]

    def expect(actual, expected, what):
        if actual != expected:
            problems.append(f"{what}: {actual} instead of {expected}")

    everything = [f"work\\{name}" for name in sorted(FOLDERS)]
    expect(taken("work\\*"), everything, "all of a folder")
    expect(taken("work/*"), [name.replace("\\", "/") for name in everything], "the other separator")
    expect(taken("work\\国道?号"), ["work\\国道1号", "work\\国道2号"], "one character")
    expect(taken("work\\*川 work\\A*"), ["work\\𠮷野川", "work\\A road"], "two patterns")

    files = [f"finished\\{name}.xml" for name in sorted(FOLDERS)]
    told = typed("jlandxml-inspect.exe finished\\*.xml --json").stdout
    expect([json.loads(line)["file"] for line in told.splitlines()], files, "files")

    nothing = typed("jlandxml-convert.exe work\\県道* --dry-run", status=2)
    expect(nothing.stderr, "作業フォルダーが見つかりません\twork\\県道*\n", "what fits nothing")
    print("\n".join(problems))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
