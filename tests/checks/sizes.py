#!/usr/bin/env python3
"""Runs a program over inputs of great depth and size, on a stack of 256 KB, and holds time and memory against their size.

    sizes.py PROGRAM [SHARE] [PATTERN]

Each input is written in its full size divided by SHARE (1), and, where SHARE is 1, in a tenth of that first: ten times
the input may take fourteen times the time and twelve times the memory. With a larger SHARE only the run's end is judged.
PATTERN picks inputs by their names.
"""

import multiprocessing
import os
import re
import resource
import shutil
import subprocess
import sys
import tempfile

STACK = 256 << 10
MILLION = 1000000
HUNDRED_MEGABYTES = 100 << 20
TIMES_MORE = 14  # for ten times the input
MEMORY_MORE = 12
NOTICEABLE = 0.1  # seconds and, in MB, memory below which growth says nothing
NOTICEABLE_MEMORY = 30

HEAD = """<?xml version="1.0" encoding="UTF-8"?>
<LandXML version="1.2"><Project name="p"/><CoordinateSystem desc="Japan Geodetic Datum 2011, Plane Rectangular \
Coordinate System No. 9 (Kanto), Transverse Mercator, Metre"/>
"""
DESC = ("構築物情報 = 道路 規格・等級 = 第3種第2級 設計交通量 = 450 主測点間隔 = 20 副測点間隔 = 10 "
        "直線部横断勾配 = 2")
SETTINGS = '{"applicationCriterion": "1.7", "projectName": "p"}'
SETTINGS_OF_A_ROUTE = SETTINGS[:-1] + ', "routes": [{"designGmType": "道路", "roadClassification": "第3種第2級"}]}'
GEOMETRY = '<Line length="1"><Start>1 2</Start><End>3 4</End></Line>'
SECTION_SURFACE = '<DesignCrossSectSurf name="Formation"><CrossSectPnt code="Formation">0 0</CrossSectPnt></DesignCrossSectSurf>'


def nested(depth, name="a"):
    """Elements in one another; the text beside each keeps the finished file free of indentation."""
    return f"<{name}>1" * depth + f"</{name}>2" * depth


def alignment(content="", attributes="", before="", after=""):
    return (f'<Alignments name="r">{before}<Alignment name="A" length="400" staStart="0" desc="{DESC}"{attributes}>{content}'
            f"</Alignment>{after}</Alignments>")


def sections(content):
    return alignment(f'<CrossSects name="A">{content}</CrossSects>')


def section(content):
    return sections(f'<CrossSect name="No.0" sta="0">{content}</CrossSect>')


def geometry(content):
    return alignment(f"<CoordGeom>{content}</CoordGeom>")


def profile(content):
    return alignment(f'<Profile name="p"><ProfAlign name="a">{content}</ProfAlign></Profile>')


def surface(content):
    return f'<Surfaces><Surface name="s" desc="ExistingGround"><Definition surfType="TIN">{content}</Definition></Surface></Surfaces>'


def siblings(pattern):
    return lambda count: "".join(pattern.replace("#", str(number)) for number in range(1, count + 1))


def many(frame, pattern):
    """A million siblings of an element, each with its own number."""
    return MILLION, lambda count: (frame(siblings(pattern)(count)), {})


def many_in_list(frame, pattern):
    """Objects that stand in a list of the dialog."""
    return MILLION // 10, lambda count: (frame(siblings(pattern)(count)), {})


def deep(frame):
    return MILLION, lambda depth: (frame(nested(depth)), {})


def long(frame):
    return HUNDRED_MEGABYTES, lambda size: (frame(size), {})


ROUTE_TITLE = "線形名,A\n測点名\n"  # names the alignment that the other side files belong to


def stake(note):
    return f"左幅杭,L-1,左 9.5,0.5,1.5,2.5,3.5,-9.5,{note},open\n"


def side_file(name, head, row):
    """Rows for the alignment that the file of intermediate points names."""
    return MILLION, lambda count: (alignment(), {"intermediatePts_temp_1.csv": ROUTE_TITLE, f"{name}_temp_1.csv": head + siblings(row)(count)})


def plain(content):
    return content


def points_that_go(depth):
    """Points that a side file replaces, so that the whole tree is searched for references to them."""
    stakes = '<CgPoints name="g"><Feature code="CrownPoints"><Property label="x" value="y"/></Feature>' + nested(depth) + "</CgPoints>"
    return alignment() + stakes, {"intermediatePts_temp_1.csv": ROUTE_TITLE, "widthStake_temp_1.csv": "t\nt\n" + stake("用地境界")}


POINT_LIST = "1.125 2.25 "

INPUTS = {
    "levels beside the classes": deep(plain),
    "levels in an alignment": deep(alignment),
    "levels in a curve": deep(lambda inner: geometry(f"<Curve>{inner}</Curve>")),
    "levels in a profile": deep(profile),
    "levels in a section": deep(lambda inner: section(SECTION_SURFACE + inner)),
    "levels in a section that goes": deep(section),
    "levels in a surface": deep(surface),
    "levels in a point group": deep(lambda inner: f'<CgPoints name="g">{inner}</CgPoints>'),
    "levels in a note": deep(lambda inner: alignment(f'<Feature name="Interval">{inner}</Feature>')),
    "levels in point groups that are searched": (MILLION, points_that_go),
    "levels of alignments": (MILLION, lambda depth: (alignment(nested(depth, "Alignment")), {})),
    "levels of sections": (MILLION, lambda depth: (sections(nested(depth, "CrossSect")), {})),
    "levels of notes": (MILLION, lambda depth: (alignment(nested(depth, "Feature")), {})),
    "levels of point groups": (MILLION, lambda depth: (nested(depth, "CgPoints"), {})),
    "an attribute that no class reads": long(lambda size: f'<Other a="{"x" * size}"/>'),
    "a description": long(lambda size: alignment().replace("構築物情報", "あ" * (size // 3) + " 構築物情報")),
    "an alignment's name": long(lambda size: alignment().replace('name="A"', f'name="{"n" * size}"')),
    "a text that no class reads": long(lambda size: f'<Other>{"x" * size}</Other>'),
    "a note": long(lambda size: f'<!--{"x" * size}-->'),
    "a passage as it is": long(lambda size: f'<Other><![CDATA[{"<&" * (size // 2)}]]></Other>'),
    "references to characters": long(lambda size: f'<Other>{"&#x41;" * (size // 6)}</Other>'),
    "blanks in a description": long(lambda size: alignment().replace("構築物情報", " " * size + "構築物情報")),
    "an irregular line's points": long(
        lambda size: geometry(f"<IrregularLine><PntList3D>{POINT_LIST * (size // len(POINT_LIST))}</PntList3D></IrregularLine>")),
    "a ground line's points": long(
        lambda size: section(f'<CrossSectSurf name="s_1"><PntList2D>{POINT_LIST * (size // len(POINT_LIST))}</PntList2D></CrossSectSurf>'
                             + SECTION_SURFACE)),
    "a point's figures": long(
        lambda size: f'<CgPoints name="g"><CgPoint name="1">{"1" * (size // 3)} {"2" * (size // 3)} 3</CgPoint></CgPoints>'),
    "a side file's field": (HUNDRED_MEGABYTES, lambda size: (alignment(), {
        "intermediatePts_temp_1.csv": ROUTE_TITLE, "widthStake_temp_1.csv": "t\nt\n" + stake("x" * size)})),
    "Other": many(plain, '<Other a="#"/>'),
    "Application": many(plain, '<Application name="#"/>'),
    "Units": many(plain, "<Units/>"),
    "Project": many(plain, '<Project name="#"/>'),
    "CoordinateSystem": many(plain, '<CoordinateSystem desc="#"/>'),
    "Alignments": many_in_list(plain, '<Alignments name="#"/>'),
    "Alignment": many_in_list(lambda inner: alignment(after=inner), f'<Alignment name="B#" length="1" staStart="0" desc="{DESC}"/>'),
    "CoordGeom": many(alignment, "<CoordGeom/>"),
    "Line": many(geometry, GEOMETRY),
    "Curve": many(geometry, '<Curve rot="cw" radius="200"><Start>1 2</Start><Center>3 #</Center><End>5 6</End></Curve>'),
    "Spiral": many(geometry, '<Spiral length="#" radiusStart="INF" radiusEnd="200" rot="cw" spiType="clothoid">'
                   "<Start>1 2</Start><PI>3 4</PI><End>5 6</End></Spiral>"),
    "IrregularLine": many(geometry, "<IrregularLine><PntList2D>1 2 3 #</PntList2D></IrregularLine>"),
    "AlignPI": many(lambda inner: alignment(f"<AlignPIs>{inner}</AlignPIs>"), "<AlignPI><PI>1 #</PI></AlignPI>"),
    "StaEquation": many(alignment, '<StaEquation staAhead="#" staBack="#" staInternal="#"/>'),
    "Profile": many(alignment, '<Profile name="#"/>'),
    "ProfAlign": many(lambda inner: alignment(f'<Profile name="p">{inner}</Profile>'), '<ProfAlign name="#"/>'),
    "ProfAlign of a ground": many(lambda inner: alignment(f'<Profile name="p">{inner}</Profile>'),
                                  '<ProfAlign name="ProfSurf_#"><PVI>1 2</PVI></ProfAlign>'),
    "PVI": many(profile, "<PVI>#.5 12.25</PVI>"),
    "ParaCurve": many(profile, '<ParaCurve length="20">#.5 12.25</ParaCurve>'),
    "CircCurve": many(profile, '<CircCurve length="20" radius="9">#.5 12.25</CircCurve>'),
    "ProfSurf": many(lambda inner: alignment(f'<Profile name="p">{inner}</Profile>'), '<ProfSurf name="#"/>'),
    "Superelevation": many(alignment, '<Superelevation staStart="#"/>'),
    "CrossSects": many(alignment, '<CrossSects name="#"/>'),
    "CrossSect": many(sections, '<CrossSect name="No.#" sta="#">' + SECTION_SURFACE + "</CrossSect>"),
    "CrossSect that goes": many(sections, '<CrossSect name="No.#" sta="#"/>'),
    "CrossSectSurf": many(section, '<CrossSectSurf name="s_#"><PntList2D>-1 2 3 4</PntList2D></CrossSectSurf>'),
    "DesignCrossSectSurf": many(section, SECTION_SURFACE),
    "CrossSectPnt": many(lambda inner: section(f'<DesignCrossSectSurf name="Carriageway">{inner}</DesignCrossSectSurf>'),
                         '<CrossSectPnt code="C">#.5 0</CrossSectPnt>'),
    "Feature": many(alignment, '<Feature name="#"/>'),
    "Property": many(lambda inner: alignment(f'<Feature name="Interval">{inner}</Feature>'), '<Property label="l#" value="v"/>'),
    "CgPoints": many(plain, '<CgPoints name="#"/>'),
    "CgPoint": many(lambda inner: f'<CgPoints name="g">{inner}</CgPoints>', '<CgPoint name="#">1.5 2.5 3.5</CgPoint>'),
    "Surfaces": many_in_list(plain, '<Surfaces name="#"/>'),
    "Surface": many_in_list(lambda inner: f"<Surfaces>{inner}</Surfaces>", '<Surface name="#" desc="ExistingGround"/>'),
    "Definition": many(lambda inner: f'<Surfaces><Surface name="s">{inner}</Surface></Surfaces>', '<Definition surfType="TIN"/>'),
    "P": many(lambda inner: surface(f"<Pnts>{inner}</Pnts>"), '<P id="#">1.5 2.5 3.5</P>'),
    "F": many(lambda inner: surface(f"<Faces>{inner}</Faces>"), "<F>1 2 #</F>"),
    "Breakline": many(lambda inner: f'<Surfaces><Surface name="s"><SourceData><Breaklines>{inner}</Breaklines></SourceData></Surface></Surfaces>',
                      "<Breakline><PntList3D>1 2 3</PntList3D></Breakline>"),
    "Roadway": many(lambda inner: f"<Roadways>{inner}</Roadways>", '<Roadway name="#" alignmentRefs="A"/>'),
    "rows of intermediate points": side_file("intermediatePts", "線形名,A\n測点名\n", "No.#,#.5,-36000.125,-7000.5,12.25,45.125\n"),
    "rows of width stakes": side_file("widthStake", "t\nt\n", "左幅杭,L#,9.50,#.5,-36000.125,-7000.5,12.25,9.5,用地境界,open\n"),
    "groups of width stakes": side_file("widthStake", "t\nt\n", "杭#,L#,9.50,#.5,-36000.125,-7000.5,12.25,9.5,用地境界,open\n"),
    "rows of superelevation": side_file("superElevation", "t\nt\n", "1,#+0.5m,ReverseCrown,,,-2.0 %,,,,2.0 %,\n"),
    "rows of widening": side_file("widening", "t\nt\n", "Left,#.5,0.25,1\n"),
}

# Each route lacks its classification: as many findings.
STATUSES = {"Alignments": 1}


def write_files(folder, write, size):
    content, side_files = write(size)
    work_file = HEAD + content + "</LandXML>"
    settings = SETTINGS_OF_A_ROUTE if content.startswith(alignment()[:20]) else SETTINGS
    for name, text in {"Landxml_temp.xml": work_file, "settings.json": settings, **side_files}.items():
        with open(os.path.join(folder, name), "w", encoding="utf-8", newline="") as file:
            file.write(text)


def write_folder(folder, write, size):
    """In a process of its own: what this one holds would count as the program's memory."""
    shutil.rmtree(folder, ignore_errors=True)
    os.mkdir(folder)
    writer = multiprocessing.Process(target=write_files, args=(folder, write, size))
    writer.start()
    writer.join()


def limit_stack():
    resource.setrlimit(resource.RLIMIT_STACK, (STACK, STACK))


class Run:
    """A run over a folder, with its seconds of processor time and the megabytes that it held at most."""

    def __init__(self, program, folder, scratch):
        command = [program, folder, "-s", os.path.join(folder, "settings.json"), "-o", os.path.join(scratch, "out.xml"), "-q"]
        with open(os.path.join(scratch, "messages"), "wb") as messages:
            process = subprocess.Popen(command, stdout=messages, stderr=messages, preexec_fn=limit_stack,
                                       env=dict(os.environ, TMPDIR=scratch))
            _, status, usage = os.wait4(process.pid, 0)
        self.status = os.waitstatus_to_exitcode(status)
        self.seconds = usage.ru_utime + usage.ru_stime
        self.megabytes = usage.ru_maxrss / 1024
        with open(messages.name, encoding="utf-8", errors="replace") as file:
            self.told = file.readline().strip()


def growth(less, more, times, least):
    return f"x{more / less:.1f}" + (" TOO MUCH" if more > least and more / less > times else "")


def main():
    program = os.path.abspath(sys.argv[1])
    share = int(sys.argv[2]) if len(sys.argv) > 2 else 1
    pattern = sys.argv[3] if len(sys.argv) > 3 else "."
    failures = 0
    with tempfile.TemporaryDirectory() as scratch:
        folder = os.path.join(scratch, "work")
        for name, (full_size, write) in INPUTS.items():
            if not re.search(pattern, name):
                continue
            runs = []
            for size in [full_size // share] if share > 1 else [full_size // 10, full_size]:
                write_folder(folder, write, size)
                runs.append(Run(program, folder, scratch))
            last = runs[-1]
            line = f"{name:40} {full_size // share:10}  status {last.status}  {last.seconds:7.2f} s {last.megabytes:7.0f} MB"
            if share == 1:
                line += "  " + growth(runs[0].seconds, last.seconds, TIMES_MORE, NOTICEABLE)
                line += "  " + growth(runs[0].megabytes, last.megabytes, MEMORY_MORE, NOTICEABLE_MEMORY)
            if last.status != STATUSES.get(name, 0):
                line += f"  FAILED: {last.told}"
            print(line, flush=True)
            if "FAILED" in line or "TOO MUCH" in line:
                failures += 1
    sys.exit(1 if failures else 0)


main()
