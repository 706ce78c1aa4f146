#!/usr/bin/env python3
"""Provokes each finding that the manual lists and puts it right as the manual says, with a whole run each time.

    findings.py SOURCE CONVERT SCRATCH

A finding of which the manual says that it isn't seen as a rule is one that settings can't provoke: its value is refused.
"""

import copy
import dataclasses
import json
import pathlib
import re
import shutil
import subprocess
import sys

DATUM = "Japan Geodetic Datum 2011"
ZONE = "No. 9 (Kanto)"
VOLUME = "設計交通量 = 8500 "
INTERVAL = "主測点間隔 = 20 "
ROUTE_NAME = "線形名,線形1"
RIVER = {"designGmType": "河川", "riverClassification": "1級", "side": "右岸", "alignments": [{"normalCrown": "2.0"}]}

# What becomes of the settings.


def as_they_are(_):
    pass


def untouched_route(settings):
    del settings["routes"]


def project(**values):
    return lambda settings: settings.update(values)


def route(**values):
    return lambda settings: settings["routes"][0].update(values)


def alignment(**values):
    return lambda settings: settings["routes"][0]["alignments"][0].update(values)


def river(without):
    values = {key: value for key, value in RIVER.items() if key != without}
    return lambda settings: settings.update(routes=[values])


def references(settings):
    settings.update(intermediatePoints=[{"alignmentRefs": "線形1"}],
                    widthStakes=[{"alignmentRefs": "線形1"}, {"alignmentRefs": "線形1", "desc": "用地境界（右）"}])


@dataclasses.dataclass
class Case:
    findings: list
    provoke: object  # what is done to the settings
    mend: object  # and what puts it right
    host: tuple = ()  # what else stands in the work file or a side file
    host_mends: bool = False  # by exporting once more


def beyond(item, bounds="0.0010から9999.9990"):
    return f"{item}は{bounds}の範囲内で入力してください。"


CASES = [
    Case(["プロジェクト名称が入力されていません。"], project(projectName=""), project(projectName="業務")),
    Case(["測地原子が入力されていません。", "水平座標系が入力されていません。"], as_they_are, as_they_are, (DATUM, "Datum"), True),
    Case(["水平座標系が入力されていません。"], as_they_are, as_they_are, (ZONE, "No. (9)"), True),
    Case(["座標系がJGD2024なので出力バージョンを1.6以下にしないでください。"], project(applicationCriterion="1.6"),
         project(applicationCriterion="1.7"), (DATUM, "Japan Geodetic Datum 2024")),
    Case(["道路の規格・等級が入力されていません。"], lambda settings: settings["routes"][0].pop("roadClassification"), as_they_are),
    Case(["河川の規格・等級が入力されていません。"], river("riverClassification"), river(None)),
    Case(["左右岸区分が入力されていません。"], river("side"), river(None)),
    Case(["設計交通量が入力されていません。"], route(trafficVolume=""), route(trafficVolume="8500")),
    Case(["設計交通量は数値を入力してください。"], untouched_route, route(trafficVolume="8500"), (VOLUME, "設計交通量 = 8,500台 ")),
    Case([beyond("設計交通量", "0.0000から999999.0000")], untouched_route, route(trafficVolume="8500"),
         (VOLUME, "設計交通量 = 1000000 ")),
    Case(["設計交通量は小数第10位までの値を入力してください。"], untouched_route, route(trafficVolume="8500"),
         (VOLUME, "設計交通量 = 0.12345678901 ")),
    Case(["主測点間隔が入力されていません。"], as_they_are, alignment(mainInterval="20"), (INTERVAL, "")),
    Case([beyond("主測点間隔")], alignment(mainInterval="0"), alignment(mainInterval="20"), (INTERVAL, "")),
    Case([beyond("主測点間隔")], as_they_are, as_they_are, (INTERVAL, "主測点間隔 = 20000 "), True),
    Case([beyond("副測点間隔")], alignment(subInterval="0"), alignment(subInterval="")),
    Case(["直線部横断勾配が入力されていません。"], alignment(normalCrown=""), alignment(normalCrown="", useSlopeList=True)),
    Case([beyond("直線部横断勾配")], alignment(normalCrown="0"), as_they_are),
    Case([beyond("直線部横断勾配")], untouched_route, as_they_are, (INTERVAL, INTERVAL + "直線部横断勾配 = -2.0 ")),
    Case(["中間点の参照線形が入力されていません。", "幅杭の参照線形が入力されていません。"], as_they_are, references,
         (ROUTE_NAME, "線形名,")),
    Case(["注記が入力されていません。"], lambda settings: settings.pop("widthStakes"), as_they_are),
]

# Values of an alignment that can't be given, whatever the finding would be.
REFUSED = {"数値": "x", "小数第10位までの値": "1.12345678901"}
KEYS = {"主測点間隔": "mainInterval", "副測点間隔": "subInterval", "直線部横断勾配": "normalCrown"}


class Runs:
    def __init__(self, example, convert, scratch):
        self.example, self.convert, self.scratch = example, convert, scratch
        self.settings = json.loads((example / "settings.json").read_text(encoding="utf-8"))

    def run(self, change, host=()):
        """Status and the texts of the lines of a run with changed settings."""
        shutil.rmtree(self.scratch, ignore_errors=True)
        shutil.copytree(self.example, self.scratch)
        for path in self.scratch.glob("*_*.*"):
            content = path.read_text(encoding="utf-8-sig")
            path.write_text(content.replace(*host) if host else content, encoding="utf-8")
        settings = copy.deepcopy(self.settings)
        change(settings)
        file = self.scratch / "settings.json"
        file.write_text(json.dumps(settings), encoding="utf-8")
        ended = subprocess.run([self.convert, self.scratch, "-s", file, "-o", self.scratch / "out.xml", "--quiet"],
                               capture_output=True, check=False, encoding="utf-8")
        return ended.returncode, [line.split("\t")[0] for line in ended.stderr.splitlines()]


def main():
    source, convert, scratch = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    manual = (source / "docs/manual.ja.md").read_text(encoding="utf-8")
    rows = re.findall(r"^\| ([^|]*。) \| ([^|]*) \|", manual.split("\n## 指摘と対処\n", 1)[1].split("\n## ", 1)[0], re.M)
    runs = Runs(source / "examples/road", convert, scratch)
    problems, provoked = [], set()
    for case in CASES:
        status, lines = runs.run(case.provoke, case.host)
        if status != 1 or not set(case.findings) <= set(lines):
            problems.append(f"{case.findings} isn't provoked: status {status}, {lines}")
        provoked.update(case.findings)
        status, lines = runs.run(case.mend, () if case.host_mends else case.host)
        if status != 0 or lines:
            problems.append(f"{case.findings} isn't put right: status {status}, {lines}")
    for text, cause in rows:
        if "ふつうは表示されません" in cause:
            item, what = re.fullmatch(r"(.*)は(.*)を入力してください。", text).groups()
            status, lines = runs.run(alignment(**{KEYS[item]: REFUSED[what]}), (INTERVAL, ""))
            if status != 2 or "入力できません" not in lines[0]:
                problems.append(f"{text} isn't refused: status {status}, {lines}")
        elif text not in provoked:
            problems.append(f"{text} is never provoked")
    problems += [f"{text} isn't in the manual" for text in provoked - {text for text, _ in rows}]
    print("\n".join(problems))
    sys.exit(1 if problems else 0)


main()
