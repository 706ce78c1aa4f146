#!/usr/bin/env python3
"""Recomputes the calculation sheets of a LandXML file on its own and holds them against those of jlandxml-inspect.

    recompute.py PROGRAM WORK_FOLDER FILE...    (PROGRAM with what runs it in front, parted by semicolons)

Clothoids by the power series of Fresnel's integrals, circles by their centres, parabolas by their equation, also in the
profile: nothing is shared with the program. Coordinates, stations, heights and radii may differ by 0.5 mm, azimuths by a
tenth of a second; what stands in the file has to be the file's own text.
"""
import csv
import math
import pathlib
import re
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


def name_of(node):
    return node.tag[len(NAMESPACE):]


def children(node, *names):
    return [child for child in node if name_of(child) in names]


def properties(node, label, feature=None):
    """The values of that label in the features right below an element, of all or of one name."""
    return [prop.get("value") for one in children(node, "Feature") if feature is None or one.get("name") == feature
            for prop in one if prop.get("label") == label]


def close(one, other, tolerance=COORDINATE_TOLERANCE):
    return abs(float(one) - float(other)) <= tolerance


PROFILE_POINTS = ("PVI", "ParaCurve", "UnsymParaCurve", "CircCurve")


class Profile:
    """Points with station, height, how far their curve reaches to both sides, and the radius of a circle."""

    def __init__(self, node):
        self.points = [(*map(float, one.text.split()),
                        *(float(one.get(side, 0)) or float(one.get("length", 0)) / 2 for side in ("lengthIn", "lengthOut")),
                        float(one.get("radius")) if name_of(one) == "CircCurve" else None)
                       for one in children(node, *PROFILE_POINTS)]

    @staticmethod
    def arc(before, here, behind):
        """The circle whose centre lies on the line that halves the angle of the tangents: its centre, whether that is above
        the arc (1) or below it (-1), and where it touches them."""
        into = math.atan2(here[1] - before[1], here[0] - before[0])
        out = math.atan2(behind[1] - here[1], behind[0] - here[0])
        radius, half, side = here[4], abs(out - into) / 2, 1 if out > into else -1
        to_centre = side * radius / math.cos(half)
        centre = (here[0] - to_centre * math.sin((into + out) / 2), here[1] + to_centre * math.cos((into + out) / 2))
        return centre, side, sorted(centre[0] + side * radius * math.sin(slope) for slope in (into, out))

    def arc_height(self, before, here, behind, station):
        """None beside the arc."""
        centre, side, (start, end) = self.arc(before, here, behind)
        return centre[1] - side * math.sqrt(here[4] ** 2 - (station - centre[0]) ** 2) if start < station < end else None

    def curve_ends(self, index):
        here = self.points[index]
        if here[4] and 0 < index < len(self.points) - 1:
            return self.arc(self.points[index - 1], here, self.points[index + 1])[2]
        return here[0] - here[2], here[0] + here[3]

    def height(self, station):
        for before, here, behind in zip(self.points, self.points[1:], self.points[2:]):
            if here[4]:
                height = self.arc_height(before, here, behind, station)
                if height is not None:
                    return height
            elif here[0] - here[2] < station < here[0] + here[3]:
                into = (here[1] - before[1]) / (here[0] - before[0])
                out = (behind[1] - here[1]) / (behind[0] - here[0])
                # Two parabolas from tangent to tangent meet at the point's station in the gradient of the chord.
                chord = (into * here[2] + out * here[3]) / (here[2] + here[3])
                if station < here[0]:
                    x = station - (here[0] - here[2])
                    return here[1] - into * here[2] + into * x + (chord - into) / (2 * here[2]) * x * x
                x = here[0] + here[3] - station
                return here[1] + out * here[3] - out * x + (out - chord) / (2 * here[3]) * x * x
        return on_line([point[:2] for point in self.points], station)

    def gradient(self, index):
        """From a point to the next one, in percent; none where there is none."""
        if not 0 <= index < len(self.points) - 1:
            return None
        (s0, h0, *_), (s1, h1, *_) = self.points[index:index + 2]
        return 100 * (h1 - h0) / (s1 - s0)


def on_line(points, station):
    """The height of a line of straight pieces; none in front of it and behind it."""
    for (s0, h0), (s1, h1) in zip(points, points[1:]):
        if s0 - 1e-6 <= station <= s1 + 1e-6:
            return h0 + (h1 - h0) * (station - s0) / (s1 - s0)
    return None


class Alignment:
    def __init__(self, node, is_river):
        self.node = node
        self.name = node.get("name")
        self.is_river = is_river
        self.start = float(node.get("staStart"))
        self.nodes = list(node.find(NAMESPACE + "CoordGeom"))
        self.elements = [Element(child) for child in self.nodes]
        self.interval = float((properties(node, "main", "Interval") or ["20"])[0])
        self.equations = sorted((float(one.get("staInternal")), float(one.get("staAhead")))
                                for one in children(node, "StaEquation"))
        self.designs = [design for profile in children(node, "Profile") for design in children(profile, "ProfAlign")]
        wanted = [value for one in children(node, "CrossSects") for value in properties(one, "profAlignRefs")]
        design = next((one for one in self.designs if one.get("name") in wanted), (self.designs or [None])[0])
        self.profile = Profile(design) if design is not None else None
        grounds = [ground for profile in children(node, "Profile") for ground in children(profile, "ProfSurf")]
        self.ground = []
        for line in children(grounds[0], "PntList2D") if grounds else []:
            figures = list(map(float, line.text.split()))
            self.ground.append(list(zip(figures[::2], figures[1::2])))

    def at(self, station):
        distance = station - self.start
        for element in self.elements:
            if distance <= element.length + 1e-6:
                return element.at(distance)
            distance -= element.length
        raise ValueError(station)

    def height(self, station):
        return self.profile.height(station) if self.profile else None

    def ground_height(self, station):
        heights = [on_line(line, station) for line in self.ground]
        return next((height for height in heights if height is not None), None)

    def count(self, station):
        """What the station's label says, by the equations in front of it."""
        shift = 0
        for internal, ahead in self.equations:
            if internal <= station + 1e-9:
                shift = ahead - internal
        return station + shift

    def is_label_of(self, label, station):
        parts = re.fullmatch(r"(-?\d+)k(\d\d\d(?:\.\d+)?)" if self.is_river else r"No\.(-?\d+)(?:\+(\d+\.\d+))?", label)
        unit = 1000 if self.is_river else self.interval
        return parts is not None and close(int(parts[1]) * unit + float(parts[2] or 0), self.count(station), 0.000501)


def degrees(text):
    whole, minutes, seconds = text.split("-")
    return int(whole) + int(minutes) / 60 + float(seconds) / 3600


def off_by(azimuth, text_degrees):
    return (math.degrees(azimuth) - text_degrees + 180) % 360 - 180


def is_height(text, height):
    return text == "" if height is None else text != "" and close(text, height)


class Sheets:
    """The sheets of a file beside its own elements."""

    def __init__(self, file, folder):
        self.file, self.folder = file, folder
        self.root = ElementTree.parse(file).getroot()
        self.alignments = {}
        for route in children(self.root, "Alignments"):
            is_river = properties(route, "designGmType") == ["河川"]
            for node in children(route, "Alignment"):
                self.alignments[node.get("name")] = Alignment(node, is_river)

    def rows(self, title):
        with open(self.folder / f"{self.file.stem}-{title}.csv", encoding="utf-8-sig", newline="") as sheet:
            return list(csv.DictReader(sheet))

    def expect(self, holds, row, what):
        assert holds, f"{self.file}: {what} in {row}"

    def check_main_points(self):
        """線形計算書: every element from its start, and the end of the last one."""
        rows = self.rows("線形計算書")
        expected = []
        for alignment in self.alignments.values():
            station = alignment.start
            for node, element in zip(alignment.nodes, alignment.elements):
                expected.append((alignment, node, children(node, "Start")[0], station, element.at(0)[2]))
                station += element.length
            expected.append((alignment, None, children(node, "End")[0], station, element.at(element.length)[2]))
        assert len(rows) == len(expected), f"{self.file}: {len(rows)} main points"
        for row, (alignment, node, point, station, azimuth) in zip(rows, expected):
            north, east = point.text.split()[:2]
            self.expect((row["線形"], row["主要点"], row["X"], row["Y"]) ==
                        (alignment.name, point.get("name") or "", north, east), row, "another point")
            self.expect(close(row["測点（m）"], station), row, f"not station {station}")
            self.expect(alignment.is_label_of(row["測点"], station), row, f"no label of {station}")
            self.expect(abs(off_by(azimuth, degrees(row["方向角"]))) <= AZIMUTH_TOLERANCE, row, f"not {math.degrees(azimuth)}")
            own = ["", "", "", "", ""]
            if node is not None:
                radii = [node.get("radius") or node.get(key) or "" for key in ("radiusStart", "radiusEnd")]
                own = [*radii, *(properties(node, "A") or [""]), node.get("length") or "", node.get("rot") or ""]
            self.expect([row[key] for key in ("半径（始点）", "半径（終点）", "A", "長さ", "向き")] == own, row, f"not {own}")
        return len(rows)

    def check_stations(self):
        """測点座標一覧"""
        rows = self.rows("測点座標一覧")
        assert len(rows) >= 10, f"{self.file}: only {len(rows)} stations"
        for row in rows:
            alignment = self.alignments[row["線形"]]
            station = float(row["測点（m）"])
            north, east, azimuth = alignment.at(station)
            self.expect(close(row["X"], north) and close(row["Y"], east), row, f"not {north} {east}")
            is_joint = row["主要点"] != ""  # where a line may bend, the sheet shows the direction behind
            self.expect(abs(off_by(azimuth, degrees(row["方向角"]))) <= AZIMUTH_TOLERANCE or is_joint, row,
                        f"not {math.degrees(azimuth)}")
            self.expect(alignment.is_label_of(row["測点"], station), row, f"no label of {station}")
            self.expect(is_height(row["計画高"], alignment.height(station)), row, f"not {alignment.height(station)}")
            self.expect(is_height(row["地盤高"], alignment.ground_height(station)), row, f"not {alignment.ground_height(station)}")
        return len(rows)

    def check_profiles(self):
        """縦断計算書"""
        rows = self.rows("縦断計算書")
        expected = [(alignment, design, Profile(design), index) for alignment in self.alignments.values()
                    for design in alignment.designs for index in range(len(children(design, *PROFILE_POINTS)))]
        assert len(rows) == len(expected), f"{self.file}: {len(rows)} points of profiles"
        for row, (alignment, design, profile, index) in zip(rows, expected):
            node = children(design, *PROFILE_POINTS)[index]
            station, _, length_in, length_out, radius = profile.points[index]
            length = length_in + length_out
            self.expect((row["線形"], row["縦断線形"], row["測点（m）"], row["高さ"]) ==
                        (alignment.name, design.get("name"), *node.text.split()), row, "another point")
            self.expect(alignment.is_label_of(row["測点"], station), row, f"no label of {station}")
            into, out = profile.gradient(index - 1), profile.gradient(index)
            for key, gradient in (("勾配（手前）％", into), ("勾配（先）％", out)):
                self.expect(row[key] == "" if gradient is None else close(row[key], gradient, 0.000051), row, f"{key} is {gradient}")
            own = node.get("length")
            self.expect(row["縦断曲線長"] == (own or "") if own or not length else close(row["縦断曲線長"], length), row, "another length")
            if length:
                # Two parabolas have two radii.
                computed = radius or (length / abs(out - into) * 100 if length_in == length_out else None)
                self.expect(row["縦断曲線半径"] == (node.get("radius") or "") if radius or not computed else
                            close(row["縦断曲線半径"], computed), row, f"radius {computed}")
                start, end = profile.curve_ends(index)
                self.expect(close(row["曲線始点（m）"], start) and close(row["曲線終点（m）"], end), row, f"not from {start} to {end}")
            self.expect(is_height(row["計画高"], profile.height(station)), row, f"not {profile.height(station)}")
        return len(rows)

    def check_cross_slopes(self):
        """片勾配・拡幅表"""
        words = {"BeginRunoutSta": "片勾配すりつけ開始", "BeginRunoffSta": "直線勾配から曲線勾配への移行開始",
                 "FullSuperSta": "最大片勾配開始", "RunoffSta": "最大片勾配終了", "StartofRunoutSta": "直線勾配への移行終了",
                 "EndofRunoutSta": "片勾配すりつけ終了", "ReverseCrown": "逆勾配と同じ勾配", "FlatSta": "水平"}
        expected = []
        for alignment in self.alignments.values():
            rows = []
            for one in children(alignment.node, "Superelevation"):
                full = (one.findtext(NAMESPACE + "FullSuperelev") or "").strip()
                for node in one:
                    if name_of(node) in words:
                        is_full = name_of(node) in ("FullSuperSta", "RunoffSta")
                        rows.append((words[name_of(node)], node.text.strip(), full if is_full else "", "", ""))
                for feature in ("ReverseCrown", "FlatSta"):
                    rows += [(words[feature], station, "", "", "") for station in properties(one, "sta", feature)]
            for label, word, place in (("slopeValue", "横断勾配", None), ("widthLeftValue", "左拡幅", 0),
                                       ("widthRightValue", "右拡幅", 1)):
                for value in properties(alignment.node, label):
                    figures = [*value.split(), "", ""]
                    sides = figures[1:3] if place is None else ["", ""]
                    if place is not None:
                        sides[place] = figures[1]
                    rows.append((word, figures[0], "", *sides))
            expected += [(alignment.name, *row) for row in sorted(rows, key=lambda row: (float(row[1]), row))]
        rows = self.rows("片勾配・拡幅表")
        keys = ("線形", "種別", "測点（m）", "片勾配％", "左", "右")
        told = [tuple(row[key] for key in keys) for row in rows]
        order = list(self.alignments)
        assert sorted(told, key=lambda row: (order.index(row[0]), float(row[2]), row[1:])) == \
            sorted(expected, key=lambda row: (order.index(row[0]), float(row[2]), row[1:])), f"{self.file}: {told}, not {expected}"
        for row, following in zip(rows, rows[1:] + [None]):
            self.expect(self.alignments[row["線形"]].is_label_of(row["測点"], float(row["測点（m）"])), row, "no label of the station")
            self.expect(following is None or following["線形"] != row["線形"] or
                        float(following["測点（m）"]) >= float(row["測点（m）"]), row, "the next station lies in front")
        return len(rows)

    def check_points(self):
        """中間点・幅杭一覧: the file's own texts; what lies on a centre line is computed."""
        rows = iter(self.rows("中間点・幅杭一覧"))
        count = 0
        unit = next(self.root.iter(NAMESPACE + "Metric")).get("directionUnit")
        for group in children(self.root, "CgPoints"):
            kinds = {one.get("name"): word for one in children(group, "Feature")
                     for name, word in (("IntermediatePnts", "中間点"), ("WidthStakePnts", "幅杭")) if one.get("name") == name}
            feature, kind = next(iter(kinds.items()), (None, "座標点"))
            alignment = (properties(group, "alignmentRefs", feature) or [""])[0] if feature else ""
            for point in children(group, "CgPoint"):
                row = next(rows)
                reference = point.get("featureRef")
                own = [(properties(group, label, reference) or [""])[0] if reference else ""
                       for label in ("sta", "tangentDirectionAngle")]
                self.expect([row[key] for key in ("種別", "組", "注記", "線形", "点名", "X", "Y", "高さ", "測点（m）", "接線方向角")] ==
                            [kind, group.get("name") or "", group.get("desc") or "", alignment, point.get("name") or "",
                             *(point.text.split() + [""])[:3], *own], row, "another point")
                self.check_on_line(row, alignment, unit)
                count += 1
        assert next(rows, None) is None, f"{self.file}: more points than the file has"
        return count

    def check_on_line(self, row, alignment, unit):
        if row["測点（m）"] in ("", ".") or alignment not in self.alignments:
            return
        north, east, azimuth = self.alignments[alignment].at(float(row["測点（m）"]))
        self.expect(close(row["X"], north) and close(row["Y"], east), row, f"not {north} {east}")
        text = row["接線方向角"]
        if text in ("", ".") or unit != "decimal dd.mm.ss":
            return
        whole, _, fraction = text.partition(".")
        fraction = fraction.ljust(4, "0")
        direction = int(whole) + int(fraction[:2]) / 60 + float(fraction[2:4] + "." + fraction[4:]) / 3600
        self.expect(abs(off_by(azimuth, direction)) <= AZIMUTH_TOLERANCE, row, f"not {math.degrees(azimuth)}")


def check(file, folder):
    sheets = Sheets(file, folder)
    return (f"{sheets.check_main_points()} main points, {sheets.check_stations()} stations, {sheets.check_profiles()} points of "
            f"profiles, {sheets.check_cross_slopes()} cross slopes, {sheets.check_points()} points")


def with_unsymmetric_curve(name, folder):
    """The file with its first parabola made of two that reach differently far; none if it has no parabola."""
    text = pathlib.Path(name).read_text(encoding="utf-8")
    changed = re.sub(r'<ParaCurve length="[^"]*">([^<]*)</ParaCurve>',
                     r'<UnsymParaCurve lengthIn="30.000" lengthOut="50.000">\1</UnsymParaCurve>', text, count=1)
    if changed == text:
        return []
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "unsymmetric.xml").write_text(changed, encoding="utf-8")
    return [folder / "unsymmetric.xml"]


def main(program, folder, *files):
    folder = pathlib.Path(folder)
    files = [*files, *with_unsymmetric_curve(files[-1], folder)]
    for number, name in enumerate(files):
        target = folder / str(number)
        command = [part for part in program.split(";") if part]
        subprocess.run([*command, "--csv", str(target), name], stdout=subprocess.DEVNULL, check=False)
        print(name, check(pathlib.Path(name), target))


if __name__ == "__main__":
    main(*sys.argv[1:])
