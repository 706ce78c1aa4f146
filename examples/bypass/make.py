#!/usr/bin/env python3
"""Makes the work folder of a bypass of 2 km as a host writes it, from the design values at the top.

    make.py FOLDER

Everything else is computed: points on the line by the clothoid's integrals, heights by the vertical curves, cross falls by
the transitions, slopes to where they meet the ground. The same figures make the alignment, the cross sections, the two
surfaces, the stakes and the side files, so that all of them close. Lengths are metres, X points north and Y east.
"""

import math
import pathlib
import sys

ROUTE = "国道998号"
NAME = "本線"
START = (-118420.0, -24380.0)
AZIMUTH = math.radians(58.25)
LENGTH = 2000.0

# Lines by length; spirals by parameter A and the radii at both ends; curves by radius and length. A radius turns to the
# right where it is positive; 0 is a straight end. The last line fills the length.
ELEMENTS = [
    ("Line", 180.0),
    ("Spiral", 125.0, 0.0, 250.0), ("Curve", 250.0, 150.0), ("Spiral", 125.0, 250.0, 0.0),
    ("Line", 120.0),
    # An egg clothoid leads from the wide curve into the narrow one.
    ("Spiral", 200.0, 0.0, -400.0), ("Curve", -400.0, 140.0), ("Spiral", 160.0, -400.0, -200.0),
    ("Curve", -200.0, 110.0), ("Spiral", 120.0, -200.0, 0.0),
    ("Line", 110.0),
    ("Spiral", 150.0, 0.0, 300.0), ("Curve", 300.0, 200.0), ("Spiral", 150.0, 300.0, 0.0),
    ("Line", None),
]

# Behind this station the labels jump: 1200 back is 1220 ahead.
EQUATION_AT = 1200.0
EQUATION_AHEAD = 1220.0

# Station, height and length of the vertical curve.
GRADIENT_CHANGES = [(0.0, 69.5, 0.0), (250.0, 77.0, 160.0), (860.0, 55.5, 220.0), (1380.0, 75.0, 220.0),
                    (1840.0, 57.6, 120.0), (2000.0, 58.6, 0.0)]

INTERVAL = 20.0
SECTIONS = 100
LANE = 3.25
SHOULDER = 0.75
CROWN = 2.0  # percent
FULL_SUPERELEVATION = 5.0  # percent
WIDENING = 0.25  # on either side of the lanes in the narrow curves
WIDENED_BELOW = 260.0  # radius
CUT = 1.0  # horizontal for one vertical
FILL = 1.8
NARROWEST_SLOPE = 0.25
PAVEMENT = [("表層", "密粒度アスコン13", 0.05), ("基層", "粗粒度アスコン20", 0.05),
            ("上層路盤", "粒調砕石M-30", 0.15), ("下層路盤", "切込砕石C-40", 0.25)]

# Surfaces have 501 rows of 21 points, which makes 20,000 faces.
ROW_INTERVAL = 4.0
GROUND_OFFSETS = [5.0 * step for step in range(-10, 11)]
LANE_STRIPS, SHOULDER_STRIPS, SLOPE_STRIPS = 3, 2, 5
STAKES_BEHIND_SLOPE = 1.0


def terrain(x, y):
    """Height of the ground."""
    u, v = x - START[0], y - START[1]
    return (66.0 + 7.5 * math.sin(0.0041 * u + 0.0052 * v) + 3.2 * math.sin(0.0098 * u - 0.0045 * v + 0.7)
            + 0.9 * math.cos(0.021 * u + 0.017 * v))


# The line

# Gauss-Legendre of five points: on pieces of a few metres the clothoid's integrals are exact to far below a micrometre.
NODES = [(0.0, 128 / 225), (math.sqrt(5 - 2 * math.sqrt(10 / 7)) / 3, (322 + 13 * math.sqrt(70)) / 900),
         (math.sqrt(5 + 2 * math.sqrt(10 / 7)) / 3, (322 - 13 * math.sqrt(70)) / 900)]
PIECE = 5.0


class Element:
    """A piece of the line whose curvature changes evenly; positive curvature turns right."""

    def __init__(self, kind, station, point, azimuth, length, curvatures):
        self.kind, self.station, self.start, self.azimuth = kind, station, point, azimuth
        self.length, self.curvatures = length, curvatures
        self.end, self.end_azimuth = self.at(length)

    def azimuth_at(self, along):
        begin, end = self.curvatures
        return self.azimuth + begin * along + (end - begin) * along * along / (2 * self.length)

    def at(self, along):
        """Point and azimuth so far from the start: the integrals of cosine and sine of the azimuth."""
        x, y = self.start
        pieces = max(1, math.ceil(along / PIECE))
        half = along / pieces / 2
        for piece in range(pieces):
            middle = (2 * piece + 1) * half
            for node, weight in NODES:
                for sign in (-1, 1) if node else (1,):
                    azimuth = self.azimuth_at(middle + sign * node * half)
                    x += half * weight * math.cos(azimuth)
                    y += half * weight * math.sin(azimuth)
        return (x, y), self.azimuth_at(along)

    @property
    def end_station(self):
        return self.station + self.length

    @property
    def radius(self):
        return 1 / abs(self.curvatures[0]) if self.curvatures[0] else math.inf

    @property
    def rotation(self):
        return "cw" if sum(self.curvatures) > 0 else "ccw"


def curvature(radius):
    return 1 / radius if radius else 0.0


def build_line():
    elements = []
    point, azimuth, station = START, AZIMUTH, 0.0
    for kind, *figures in ELEMENTS:
        if kind == "Line":
            length = figures[0] if figures[0] is not None else LENGTH - station
            curvatures = (0.0, 0.0)
        elif kind == "Curve":
            length = figures[1]
            curvatures = (curvature(figures[0]),) * 2
        else:
            curvatures = (curvature(figures[1]), curvature(figures[2]))
            length = figures[0] ** 2 * abs(curvatures[1] - curvatures[0])
        elements.append(Element(kind, station, point, azimuth, length, curvatures))
        point, azimuth, station = elements[-1].end, elements[-1].end_azimuth, elements[-1].end_station
    return elements


LINE = build_line()


def on_line(station):
    element = next((one for one in LINE if station <= one.end_station), LINE[-1])
    return element.at(station - element.station)


def beside(station, offset):
    """A point beside the line, to the right where the offset is positive."""
    (x, y), azimuth = on_line(station)
    return x - offset * math.sin(azimuth), y + offset * math.cos(azimuth)


def meeting(first, first_azimuth, second, second_azimuth):
    """Where two tangents meet."""
    dx, dy = second[0] - first[0], second[1] - first[1]
    along = (dx * math.sin(second_azimuth) - dy * math.cos(second_azimuth)) / math.sin(second_azimuth - first_azimuth)
    return first[0] + along * math.cos(first_azimuth), first[1] + along * math.sin(first_azimuth)


def bends():
    """The elements between two lines, for each bend."""
    groups = [[]]
    for element in LINE:
        if element.kind != "Line":
            groups[-1].append(element)
        elif groups[-1]:
            groups.append([])
    return groups[:-1]


# Heights, cross falls and widths along it


def formation(station):
    """The height of the gradient line with its vertical curves."""
    for (begin, low, _), (end, high, _) in zip(GRADIENT_CHANGES, GRADIENT_CHANGES[1:]):
        if station <= end:
            height = low + (high - low) * (station - begin) / (end - begin)
            break
    for before, (middle, height_there, length), behind in zip(GRADIENT_CHANGES, GRADIENT_CHANGES[1:], GRADIENT_CHANGES[2:]):
        distance = length / 2 - abs(station - middle)
        if distance > 0:
            into = (height_there - before[1]) / (middle - before[0])
            out = (behind[1] - height_there) / (behind[0] - middle)
            height += (out - into) / (2 * length) * distance * distance
    return height


class Transition:
    """The stations at which the cross fall of a bend begins to change and ends doing so."""

    def __init__(self, bend):
        first, last = bend[0], bend[-1]
        self.turn = first.rotation
        self.level_in, self.full_in = first.station, first.end_station
        self.full_out, self.level_out = last.station, last.end_station
        part = CROWN / FULL_SUPERELEVATION
        self.begin = self.level_in - first.length * part
        self.reverse_in = self.level_in + first.length * part
        self.reverse_out = self.level_out - last.length * part
        self.end = self.level_out + last.length * part

    def outer_fall(self, station):
        if station < self.full_in:
            return -CROWN + (FULL_SUPERELEVATION + CROWN) * (station - self.begin) / (self.full_in - self.begin)
        if station > self.full_out:
            return -CROWN + (FULL_SUPERELEVATION + CROWN) * (self.end - station) / (self.end - self.full_out)
        return FULL_SUPERELEVATION

    def falls(self, station):
        outer = self.outer_fall(station)
        inner = min(-CROWN, -outer)
        return (outer, inner) if self.turn == "cw" else (inner, outer)

    def rows(self):
        return [(self.begin, "End Normal Crown"), (self.level_in, "Level Crown"), (self.reverse_in, "ReverseCrown"),
                (self.full_in, "Begin Full Super"), (self.full_out, "End Full Super"), (self.reverse_out, "ReverseCrown"),
                (self.level_out, "Level Crown"), (self.end, "Begin Normal Crown")]


TRANSITIONS = [Transition(bend) for bend in bends()]


def cross_falls(station):
    """Left and right of the centre, percent, positive upwards to the outside."""
    for transition in TRANSITIONS:
        if transition.begin <= station <= transition.end:
            return transition.falls(station)
    return -CROWN, -CROWN


def widened_curves():
    """For each narrow curve where the widening begins, is full, begins to end and has ended."""
    curves = []
    for before, curve, behind in zip(LINE, LINE[1:], LINE[2:]):
        if curve.kind == "Curve" and curve.radius < WIDENED_BELOW:
            curves.append((before.station, curve.station, curve.end_station, behind.end_station))
    return curves


def widening(station):
    for begin, full, falls, end in widened_curves():
        if begin <= station <= end:
            return WIDENING * min(1.0, (station - begin) / (full - begin), (end - station) / (end - falls))
    return 0.0


def label(station):
    return station + EQUATION_AHEAD - EQUATION_AT if station >= EQUATION_AT else station


def station_name(station):
    number, rest = divmod(round(label(station), 3), INTERVAL)
    return f"No.{number:.0f}" + (f"+{rest:.3f}" if rest else "")


class Section:
    """What lies across the line at a station: points of offset and height."""

    def __init__(self, station):
        self.station = station
        self.ground = [(offset, round(terrain(*beside(station, offset)), 3)) for offset in GROUND_OFFSETS]
        self.height = round(formation(station), 3)
        self.falls = dict(zip((-1, 1), cross_falls(station)))
        self.lane = round(LANE + widening(station), 3)
        self.shoulder = self.lane + SHOULDER
        self.slopes = {side: self.slope(side) for side in (-1, 1)}

    def ground_at(self, offset):
        for (left, low), (right, high) in zip(self.ground, self.ground[1:]):
            if offset <= right:
                return low + (high - low) * (offset - left) / (right - left)
        raise ValueError(f"a slope at {self.station} doesn't reach the ground")

    def paved(self, side, distance):
        """Height at a distance from the centre, on the pavement or the shoulder."""
        return self.height + distance * self.falls[side] / 100

    def slope(self, side):
        """Distance and height at which the slope meets the ground, and whether it is cut."""
        edge = self.paved(side, self.shoulder)
        is_cut = self.ground_at(side * self.shoulder) > edge
        rise = 1 / CUT if is_cut else -1 / FILL

        def over(distance):
            return (edge + (distance - self.shoulder) * rise - self.ground_at(side * distance)) * (1 if is_cut else -1)

        near, far = self.shoulder, self.shoulder
        while over(far) < 0:
            near, far = far, far + 0.5
        for _ in range(40):
            middle = (near + far) / 2
            near, far = (middle, far) if over(middle) < 0 else (near, middle)
        distance = max(far, self.shoulder + NARROWEST_SLOPE)
        return distance, self.ground_at(side * distance), is_cut

    def across(self):
        """The finished surface from the left to the right as offsets and heights."""
        halves = {}
        for side in (-1, 1):
            toe, toe_height, _ = self.slopes[side]
            edge = self.paved(side, self.shoulder)
            distances = [self.lane * step / LANE_STRIPS for step in range(1, LANE_STRIPS + 1)]
            distances += [self.lane + SHOULDER * step / SHOULDER_STRIPS for step in range(1, SHOULDER_STRIPS + 1)]
            halves[side] = [(side * distance, self.paved(side, distance)) for distance in distances]
            for step in range(1, SLOPE_STRIPS + 1):
                part = step / SLOPE_STRIPS
                halves[side].append((side * (self.shoulder + (toe - self.shoulder) * part),
                                     edge + (toe_height - edge) * part))
        return halves[-1][::-1] + [(0.0, self.height)] + halves[1]


# Writing


def figures(*values, digits=3):
    return " ".join(f"{round(value, digits) + 0.0:.{digits}f}" for value in values)


def point(name, coordinates):
    return f"<{name}>{figures(*coordinates, digits=8)}</{name}>"


def radius_text(value):
    return f"{abs(1 / value):.10g}" if value else "INF"


def coord_geom():
    for one in LINE:
        length = f'length="{one.length:.6f}"'
        ends = point("Start", one.start), point("End", one.end)
        if one.kind == "Line":
            yield from [f"<Line {length}>", *ends, "</Line>"]
        elif one.kind == "Curve":
            centre = meeting(one.start, one.azimuth + math.pi / 2, one.end, one.end_azimuth + math.pi / 2)
            yield from [f'<Curve rot="{one.rotation}" radius="{one.radius:.10g}" {length}>', ends[0], point("Center", centre),
                        ends[1], "</Curve>"]
        else:
            begin, end = (radius_text(value) for value in one.curvatures)
            corner = meeting(one.start, one.azimuth, one.end, one.end_azimuth)
            yield from [f'<Spiral spiType="clothoid" rot="{one.rotation}" radiusStart="{begin}" radiusEnd="{end}" {length}>',
                        ends[0], point("PI", corner), ends[1], "</Spiral>"]


def align_pis():
    corners = [meeting(bend[0].start, bend[0].azimuth, bend[-1].end, bend[-1].end_azimuth) for bend in bends()]
    for corner in [START, *corners, LINE[-1].end]:
        yield f"<AlignPI>{point('PI', corner)}</AlignPI>"


def surface(name, points, closed=False):
    yield f'<DesignCrossSectSurf name="{name}"' + (' closedArea="true">' if closed else ">")
    for code, offset, height in points:
        yield f'<CrossSectPnt code="{code}">{figures(offset, height)}</CrossSectPnt>'
    yield "</DesignCrossSectSurf>"


def ground_line(name, points):
    flat = [value for pair in points for value in pair]
    return f'<CrossSectSurf name="{name}"><PntList2D>{figures(*flat)}</PntList2D></CrossSectSurf>'


def cross_section(section, number):
    yield f'<CrossSect name="{station_name(section.station)}" sta="{section.station:.3f}">'
    yield ground_line(f"現況地形_{number}", section.ground)
    yield ground_line(f"計画道路面_{number}", section.across())
    depth = 0.0
    for layer, material, thickness in PAVEMENT:
        layer_points = [(side * section.lane, section.paved(side, section.lane) - depth) for side in (-1, 1)]
        yield ground_line(f"{layer}_{material}", [layer_points[0], (0.0, section.height - depth), layer_points[1]])
        depth += thickness
    yield from surface("Formation", [("Formation", 0.0, 0.0)])
    for side in (-1, 1):
        fall = section.falls[side] / 100
        lane, shoulder = section.lane, section.shoulder
        toe, toe_height, is_cut = section.slopes[side]
        edge = (side * lane, lane * fall)
        yield from surface("Carriageway", [("CL", 0.0, 0.0), ("CW", *edge)])
        yield from surface("RoadShoulder", [("CW", *edge), ("SH", side * shoulder, shoulder * fall)])
        depth = 0.0
        for number_of_layer, (layer, _, thickness) in enumerate(PAVEMENT, 1):
            bottom = depth + thickness
            outline = [(0.0, -depth), (edge[0], edge[1] - depth), (edge[0], edge[1] - bottom), (0.0, -bottom), (0.0, -depth)]
            yield from surface(layer, [(f"PV{number_of_layer}", *one) for one in outline], closed=True)
            depth = bottom
        yield from surface("SubBase", [("SB", 0.0, -depth), ("SB", side * shoulder, shoulder * fall - depth)])
        yield from surface("SlopeCut" if is_cut else "SlopeFill",
                           [("SH", side * shoulder, shoulder * fall),
                            ("TOP" if is_cut else "TOE", side * toe, toe_height - section.height)])
    yield "</CrossSect>"


def profile(sections):
    yield f'<Profile name="{NAME}">'
    yield '<ProfAlign name="計画">'
    for station, height, length in GRADIENT_CHANGES:
        if length:
            yield f'<ParaCurve length="{length:.3f}">{figures(station, height)}</ParaCurve>'
        else:
            yield f"<PVI>{figures(station, height)}</PVI>"
    yield "</ProfAlign>"
    yield '<ProfAlign name="ProfSurf_現況地形">'
    for section in sections:
        yield f"<PVI>{figures(section.station, section.ground_at(0.0))}</PVI>"
    yield "</ProfAlign>"
    yield "</Profile>"


def superelevations():
    for transition in TRANSITIONS:
        yield "<Superelevation>"
        for name, station in (("BeginRunoutSta", transition.begin), ("BeginRunoffSta", transition.level_in),
                              ("FullSuperSta", transition.full_in)):
            yield f"<{name}>{station:.3f}</{name}>"
        yield f"<FullSuperelev>{FULL_SUPERELEVATION:.1f}</FullSuperelev>"
        for name, station in (("RunoffSta", transition.full_out), ("StartofRunoutSta", transition.level_out),
                              ("EndofRunoutSta", transition.end)):
            yield f"<{name}>{station:.3f}</{name}>"
        yield "<AdverseSE>non-adverse</AdverseSE>"
        yield '<Feature name="FlatSta">'
        for station in (transition.level_in, transition.level_out):
            yield f'<Property label="sta" value="{station:g}"/>'
        yield "</Feature>"
        yield "</Superelevation>"


def terrain_surface(name, kind, rows):
    """A triangulated surface of rows of as many points each. The host notes the alignment in the description."""
    yield f'<Surface name="{name}" desc="{kind}&#13;&#10;線形名={NAME}">'
    yield '<Definition surfType="TIN">'
    yield "<Pnts>"
    width = len(rows[0])
    for number, coordinates in enumerate((one for row in rows for one in row), 1):
        yield f'<P id="{number}">{figures(*coordinates)}</P>'
    yield "</Pnts>"
    yield "<Faces>"
    for row in range(len(rows) - 1):
        for column in range(width - 1):
            here = row * width + column + 1
            yield f"<F>{here} {here + 1} {here + width}</F>"
            yield f"<F>{here + 1} {here + width + 1} {here + width}</F>"
    yield "</Faces>"
    yield "</Definition>"
    yield "</Surface>"


def row_of(section, points):
    return [(*beside(section.station, offset), height) for offset, height in points]


DESCRIPTION = (f"道路中心線 構築物情報 = 道路 規格・等級 = 第3種第2級 設計交通量 = 12400 線形計算手法名 = 要素法 主測点間隔 = {INTERVAL:g} "
               "鉛直原子 = T.P 適用基準 = MlitLandXmlVer.1.7 事業段階 = 詳細 プロジェクト名 = 国道998号 みなみ野バイパス 道路詳細設計 "
               "一車線道路又は多車線 = 多車線 任意横断勾配リスト = いいえ")


def work_file():
    rows = [Section(ROW_INTERVAL * number) for number in range(round(LENGTH / ROW_INTERVAL) + 1)]
    by_station = {row.station: row for row in rows}
    sections = [by_station[INTERVAL * number] for number in range(SECTIONS)]
    yield '<?xml version="1.0" encoding="UTF-8"?>'
    yield ('<LandXML xmlns="http://www.landxml.org/schema/LandXML-1.2" '
           'xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" '
           'xsi:schemaLocation="http://www.landxml.org/schema/LandXML-1.2 '
           'http://www.landxml.org/schema/LandXML-1.2/LandXML-1.2.xsd" date="2026-11-16" time="10:00:00" version="1.2">')
    yield '<Project name="設計データ" desc="みなみ野バイパス 道路詳細設計"/>'
    yield ('<Units><Metric areaUnit="squareMeter" linearUnit="meter" volumeUnit="cubicMeter" temperatureUnit="celsius" '
           'pressureUnit="milliBars" angularUnit="decimal dd.mm.ss" directionUnit="decimal dd.mm.ss"/></Units>')
    yield '<Application name="道路設計システム" version="5.1"/>'
    yield ('<CoordinateSystem desc="Japan Geodetic Datum 2011, Plane Rectangular Coordinate System No. 6 (Kinki), '
           'Transverse Mercator, Metre"/>')
    yield f'<Alignments name="{ROUTE}">'
    yield f'<Alignment name="{NAME}" length="{LENGTH:.6f}" staStart="0.000000" desc="{DESCRIPTION}">'
    yield (f'<StaEquation staBack="{EQUATION_AT:.3f}" staAhead="{EQUATION_AHEAD:.3f}" '
           f'staInternal="{EQUATION_AT:.3f}"/>')
    yield from ["<CoordGeom>", *coord_geom(), "</CoordGeom>"]
    yield from ["<AlignPIs>", *align_pis(), "</AlignPIs>"]
    yield f'<CrossSects name="{NAME}">'
    for number, section in enumerate(sections, 1):
        yield from cross_section(section, number)
    yield "</CrossSects>"
    yield from profile([row for row in rows if row.station % INTERVAL == 0])
    yield from superelevations()
    yield from ["</Alignment>", "</Alignments>"]
    yield (f'<Roadways><Roadway name="{ROUTE}" alignmentRefs="{NAME}"><Speeds><DesignSpeed speed="60"/></Speeds></Roadway>'
           '</Roadways>')
    yield '<Surfaces name="サーフェス">'
    yield from terrain_surface("現況地形", "ExistingGround", [row_of(row, row.ground) for row in rows])
    yield from terrain_surface("計画道路面", "FinishedGrade", [row_of(row, row.across()) for row in rows])
    yield from ["</Surfaces>", "</LandXML>"]


def direction_text(azimuth):
    """Degrees, minutes and seconds one behind the other: 62°30′ is 62.3000."""
    seconds = round(math.degrees(azimuth) % 360 * 3600, 4)
    degrees, seconds = divmod(seconds, 3600)
    minutes, seconds = divmod(seconds, 60)
    return f"{degrees:.0f}.{minutes:02.0f}{round(seconds * 10000):06d}"


def main_points():
    """The ends of the elements by the names that point lists give them."""
    for number, bend in enumerate(bends(), 1):
        names = {3: ["KA.{}-1", "KE.{}-1", "KE.{}-2", "KA.{}-2"],
                 5: ["KA.{}-1", "KE.{}-1", "KAE.{}-1", "KEE.{}-1", "KE.{}-2", "KA.{}-2"]}[len(bend)]
        stations = [bend[0].station] + [one.end_station for one in bend]
        yield from ((station, name.format(number)) for station, name in zip(stations, names))


def intermediate_points():
    yield f"線形名,{NAME}"
    yield "測点名,測点,X座標,Y座標,計画高,接線方向角"
    stations = [(INTERVAL * number, "") for number in range(round(LENGTH / INTERVAL) + 1)]
    for station, name in sorted(stations + list(main_points())):
        (x, y), azimuth = on_line(station)
        yield (f"{name or station_name(station)},{station:.3f},{x:.4f},{y:.4f},{formation(station):.3f},"
               f"{direction_text(azimuth)}")


def width_stakes():
    yield f"幅杭,{NAME}"
    yield "杭群名,杭名,表示,測点,X座標,Y座標,標高,離れ,注記,接合タイプ"
    for number in range(SECTIONS + 1):
        section = Section(min(INTERVAL * number, LENGTH))
        for side, name, letter, note in ((-1, "左幅杭", "L", "用地境界（左）"), (1, "右幅杭", "R", "用地境界（右）")):
            offset = round(side * (section.slopes[side][0] + STAKES_BEHIND_SLOPE), 1)
            x, y = beside(section.station, offset)
            yield (f"{name},{letter}-{number + 1},{name[0]} {abs(offset):.3f},{section.station:.3f},{x:.4f},{y:.4f},"
                   f"{section.ground_at(offset):.3f},{offset:.3f},{note},open")


def superelevation_rows():
    yield f"片勾配,{NAME}"
    yield ("Region,Station,Description,Length,Overlap,Left Outside Lane,Left Outside Shoulder,Left Inside Lane,"
           "Right Outside Shoulder,Right Outside Lane,")
    rows = [(1, 0.0, "Begin Alignment")]
    for region, transition in enumerate(TRANSITIONS, 1):
        rows += [(region, station, what) for station, what in transition.rows()]
    rows.append((len(TRANSITIONS), LENGTH, "End Alignment"))
    for region, station, what in rows:
        thousands, rest = divmod(round(label(station), 3), 1000)
        left, right = cross_falls(station)
        yield (f"{region},{thousands:.0f}+{rest:07.3f}m,{what},,,{figures(left)} %,,,,{figures(right)} %,")


def widening_rows():
    yield f"拡幅,{NAME}"
    yield "Side,Station,Width,Code"
    for side in ("Left", "Right"):
        for curve in widened_curves():
            for code, (station, width) in enumerate(zip(curve, (0.0, WIDENING, WIDENING, 0.0)), 1):
                yield f"{side},{station:.3f},{width:.3f},{code}"


FILES = {
    "Landxml_temp.xml": work_file,
    "intermediatePts_temp_1.csv": intermediate_points,
    "widthStake_temp_1.csv": width_stakes,
    "superElevation_temp_1.csv": superelevation_rows,
    "widening_temp_1.csv": widening_rows,
}


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: make.py FOLDER")
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    for name, rows in FILES.items():
        (folder / name).write_text("".join(row + "\n" for row in rows()), encoding="utf-8", newline="\n")


if __name__ == "__main__":
    main()
