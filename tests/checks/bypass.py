#!/usr/bin/env python3
"""Makes the bypass of the examples, converts it and looks at what came of it: everything is there, and nothing is found.

    bypass.py EXAMPLE CONVERT INSPECT SCRATCH
"""

import json
import pathlib
import shutil
import subprocess
import sys

# What the finished file must hold, as its summary tells it.
ALIGNMENT = {"length": 2000.0, "elements": 15, "lines": 4, "curves": 4, "spirals": 7, "staEquations": 1, "crossSects": 100,
             "superelevations": 3}
POINTS = {"IntermediatePnts-1": 115, "左幅杭": 101, "右幅杭": 101}
FACES = 20000


def last_line(command):
    ended = subprocess.run(command, capture_output=True, check=False, encoding="utf-8")
    if not ended.stdout:
        sys.exit(f"status {ended.returncode} of {command}:\n{ended.stderr}")
    return json.loads(ended.stdout.splitlines()[-1])


def main():
    example, convert, inspect, scratch = (pathlib.Path(argument) for argument in sys.argv[1:])
    shutil.rmtree(scratch, ignore_errors=True)
    folder, finished = scratch / "bypass", scratch / "bypass.xml"
    subprocess.run([sys.executable, example / "make.py", folder], check=True)
    result = last_line([convert, folder, "-s", example / "settings.json", "-o", finished, "--json"])
    problems = [f"{kind}: {line}" for kind in ("findings", "warnings") for line in result[kind]]

    judged = last_line([inspect, "--json", finished])
    problems += [f"found: {finding}" for finding in judged["findings"]]
    summary = judged["summary"]
    alignment = summary["alignments"][0]
    held = {"alignments": len(summary["alignments"]), **{key: alignment[key] for key in ALIGNMENT},
            **{group["name"]: group["points"] for group in summary["pointGroups"]},
            "faces": [surface["faces"] for surface in summary["surfaces"]]}
    expected = {"alignments": 1, **ALIGNMENT, **POINTS, "faces": [FACES, FACES]}
    if held != expected:
        problems.append(f"holds {held}\ninstead of {expected}")
    print("\n".join(problems))
    sys.exit(1 if problems else 0)


main()
