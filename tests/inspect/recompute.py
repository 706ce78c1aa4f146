#!/usr/bin/env python3
"""Recomputes the calculation sheets of a LandXML file on its own and holds them against those of jlandxml-inspect.

    recompute.py PROGRAM WORK_FOLDER FILE...    (PROGRAM with what runs it in front, parted by semicolons)

Clothoids by the power series of Fresnel's integrals, circles by their centres, parabolas by their equation, also in the
profile: nothing is
shared with the program. Coordinates may differ by 0.5 mm, azimuths by a tenth of a second, heights by 0.5 mm.
"""
import csv
import math
import pathlib
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

NAMESPACE = "{http://www.landxml.org/schema/LandXML-1.2}"
COORDINATE_TOLERANCE = 0.0005
AZIMUTH_TOLERANCE = 0.1 / 3600


def fresnel(x):
    """C(x) and S(x) of pi t^2 / 2, by their power series."""
    half_pi = math.pi / 2
    c = s = 0.0
    term = x
    n = 0
    while abs(term) > 1e-18:
        sign = -1 if n % 4 >= 2 else 1
        if n % 2 == 0:
            c += sign * term / (2 * n + 1)
        else:
            s += sign * term / (2 * n + 1)
        n += 1
        term *= half_pi * x * x / n
    return c, s


def clothoid(distance_from_origin, parameter):
    """Local x and y and the tangent angle of the clothoid of that parameter, at its origin straight ahead."""
    unit = parameter * math.sqrt(math.pi)
    c, s = fresnel(distance_from_origin / unit)
    return unit * c, unit * s, distance_from_origin ** 2 / (2 * parameter ** 2)


class Element:
    def __init__(self, node):
        self.kind = node.tag[len(NAMESPACE):]
        self.points = {child.tag[len(NAMESPACE):]: tuple(map(float, child.text.split()[:2]))
                       for child in node if child.tag[len(NAMESPACE):] in ("Start", "End", "Center", "PI")}
        self.length = float(node.get("length"))
        self.turn = {"cw": 1, "ccw": -1, None: 0}[node.get("rot")]
        self.radii = [math.inf if node.get(key) == "INF" else float(node.get(key))
                      for key in ("radiusStart", "radiusEnd") if node.get(key)]

    def at(self, distance):
        return getattr(self, self.kind.lower())(distance)

    def line(self, distance):
        (n0, e0), (n1, e1) = self.points["Start"], self.points["End"]
        azimuth = math.atan2(e1 - e0, n1 - n0)
        return n0 + distance * math.cos(azimuth), e0 + distance * math.sin(azimuth), azimuth

    def curve(self, distance):
        (n0, e0), (nc, ec) = self.points["Start"], self.points["Center"]
        radius = math.hypot(n0 - nc, e0 - ec)
        from_centre = math.atan2(e0 - ec, n0 - nc) + self.turn * distance / radius
        return (nc + radius * math.cos(from_centre), ec + radius * math.sin(from_centre),
                from_centre + self.turn * math.pi / 2)

    def spiral(self, distance):
        """A part of the clothoid through both radii: walked from its origin, backwards where it opens."""
        start, end = (0 if math.isinf(radius) else 1 / radius for radius in self.radii)
        parameter = math.sqrt(self.length / abs(end - start))
        opens = start > end
        origin = start * parameter ** 2
        here = origin - distance if opens else origin + distance
        x0, y0, t0 = clothoid(origin, parameter)
        x1, y1, t1 = clothoid(here, parameter)
        along, across, turned = x1 - x0, y1 - y0, t1 - t0
        # The frame of the clothoid, turned so that its tangent at the start points along the road.
        if opens:
            along, across, turned, t0 = -along, across, -turned, -t0
        (n0, e0), (npi, epi) = self.points["Start"], self.points["PI"]
        azimuth = math.atan2(epi - e0, npi - n0)
        frame = azimuth - self.turn * t0
        across *= self.turn
        return (n0 + along * math.cos(frame) - across * math.sin(frame),
                e0 + along * math.sin(frame) + across * math.cos(frame), azimuth + self.turn * turned)


class Alignment:
    def __init__(self, node):
        self.start = float(node.get("staStart"))
        self.elements = [Element(child) for child in node.find(NAMESPACE + "CoordGeom")]
        wanted = [prop.get("value") for prop in node.iterfind(f"{NAMESPACE}CrossSects/{NAMESPACE}Feature/*")
                  if prop.get("label") == "profAlignRefs"]
        designs = node.findall(f"{NAMESPACE}Profile/{NAMESPACE}ProfAlign")
        design = next((one for one in designs if one.get("name") in wanted), designs[0] if designs else None)
        self.profile = [(*map(float, one.text.split()), float(one.get("length", 0)),
                         float(one.get("radius")) if one.tag == NAMESPACE + "CircCurve" else None)
                        for one in (design if design is not None else [])]

    def at(self, station):
        distance = station - self.start
        for element in self.elements:
            if distance <= element.length + 1e-6:
                return element.at(distance)
            distance -= element.length
        raise ValueError(station)

    @staticmethod
    def arc_height(before, here, behind, station):
        """On the circle whose centre lies on the line that halves the angle of the tangents; none beside its arc."""
        into = math.atan2(here[1] - before[1], here[0] - before[0])
        out = math.atan2(behind[1] - here[1], behind[0] - here[0])
        radius, half, side = here[3], abs(out - into) / 2, 1 if out > into else -1
        to_centre = side * radius / math.cos(half)
        centre = (here[0] - to_centre * math.sin((into + out) / 2), here[1] + to_centre * math.cos((into + out) / 2))
        touches = [centre[0] + side * radius * math.sin(slope) for slope in (into, out)]
        if not min(touches) < station < max(touches):
            return None
        return centre[1] - side * math.sqrt(radius ** 2 - (station - centre[0]) ** 2)

    def height(self, station):
        profile = self.profile
        for before, here, behind in zip(profile, profile[1:], profile[2:]):
            if here[3]:
                height = self.arc_height(before, here, behind, station)
                if height is not None:
                    return height
            elif abs(station - here[0]) < here[2] / 2:
                into = (here[1] - before[1]) / (here[0] - before[0])
                out = (behind[1] - here[1]) / (behind[0] - here[0])
                x = station - (here[0] - here[2] / 2)
                return here[1] - into * here[2] / 2 + into * x + (out - into) / (2 * here[2]) * x * x
        for before, here in zip(profile, profile[1:]):
            if before[0] - 1e-6 <= station <= here[0] + 1e-6:
                return before[1] + (here[1] - before[1]) * (station - before[0]) / (here[0] - before[0])
        return None


def degrees(text):
    whole, minutes, seconds = text.split("-")
    return int(whole) + int(minutes) / 60 + float(seconds) / 3600


def check(file, folder):
    alignments = {node.get("name"): Alignment(node) for node in ElementTree.parse(file).iter(NAMESPACE + "Alignment")}
    with open(folder / f"{file.stem}-測点座標一覧.csv", encoding="utf-8-sig", newline="") as sheet:
        rows = list(csv.DictReader(sheet))
    assert len(rows) >= 10, f"{file}: only {len(rows)} stations"
    for row in rows:
        alignment = alignments[row["線形"]]
        station = float(row["測点（m）"])
        north, east, azimuth = alignment.at(station)
        where = f"{file}: {row['線形']} {row['測点']}"
        assert abs(north - float(row["X"])) <= COORDINATE_TOLERANCE, f"{where}: X {row['X']}, not {north}"
        assert abs(east - float(row["Y"])) <= COORDINATE_TOLERANCE, f"{where}: Y {row['Y']}, not {east}"
        off = (math.degrees(azimuth) - degrees(row["方向角"]) + 180) % 360 - 180
        is_joint = row["主要点"] != ""  # where a line may bend, the sheet shows the direction behind
        assert abs(off) <= AZIMUTH_TOLERANCE or is_joint, f"{where}: {row['方向角']} is {off * 3600} seconds off"
        height = alignment.height(station)
        assert (height is None) == (row["計画高"] == ""), f"{where}: 計画高 {row['計画高']}"
        if height is not None:
            assert abs(height - float(row["計画高"])) <= COORDINATE_TOLERANCE, f"{where}: {row['計画高']}, not {height}"
    return len(rows)


def main(program, folder, *files):
    folder = pathlib.Path(folder)
    for number, name in enumerate(files):
        target = folder / str(number)
        command = [part for part in program.split(";") if part]
        subprocess.run([*command, "--csv", str(target), name], stdout=subprocess.DEVNULL, check=False)
        print(name, check(pathlib.Path(name), target), "stations")


if __name__ == "__main__":
    main(*sys.argv[1:])
