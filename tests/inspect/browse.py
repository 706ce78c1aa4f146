#!/usr/bin/env python3
"""Looks at reports in a headless browser: no script fails, what plans, profiles and cross sections show lies where the
file's figures say, so does the pointer when a plan is zoomed and dragged, texts don't lie over one another at two zooms,
nothing of a hostile file is run, cross sections can be leafed through, surfaces are drawn, every finding leads to what is
seen then, in English no word of ours is left in Japanese, and on A3 nothing is cut off. A picture of each page stays in
the work folder.

    browse.py BROWSER PROGRAM WORK_FOLDER FILE...    (PROGRAM with what runs it in front, parted by semicolons)
"""
import html
import json
import pathlib
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

import recompute
from recompute import children, properties

WATCH = ("<script>window.faults = []; window.onerror = (message) => { window.faults.push(message); };"
         # A pointer that a script moves can't be captured.
         "Element.prototype.setPointerCapture = () => {};</script>")

PROBE = r"""<pre id="result"></pre><script>
const faults = window.faults;
let places = 0, texts = 0, sections = 0, drawn = 0;
for (const svg of document.querySelectorAll('svg.plan')) {
  const north = Number(svg.dataset.north), east = Number(svg.dataset.east);
  for (const path of svg.querySelectorAll('path.main, path.stake, path.intermediate, path.control')) {
    const place = /^M(\S+) (\S+)h0$/.exec(path.getAttribute('d'));
    const told = /X=(\S+)\s+Y=(\S+)/.exec(path.querySelector('title').textContent);
    const off = Math.hypot(north - Number(place[2]) - Number(told[1]), east + Number(place[1]) - Number(told[2]));
    if (!(off <= 0.0015)) faults.push(path.textContent + ' is drawn ' + off + ' m off');
    ++places;
  }
}
const named = kind => document.querySelectorAll('svg.plan text.' + kind + '.added:not(.hidden)').length;
const namedPoints = named('point'), namedContours = named('height');
// What plans share lies where the file's figures say, too, and is a line, not an area.
for (const use of document.querySelectorAll('svg.plan use')) {
  for (const path of document.querySelector(use.getAttribute('href')).querySelectorAll('path')) {
    if (![...path.classList].some(kind => kind === 'outline' || kind === 'contour' || kind === 'common')) faults.push(path.classList + ' has no style of its own');
  }
}
for (const path of document.querySelectorAll('svg.shared path.common[data-name]')) {
  const plan = document.querySelector('svg.plan').dataset, place = /^M(\S+) (\S+)h0$/.exec(path.getAttribute('d'));
  const told = /X=(\S+)\s+Y=(\S+)/.exec(path.querySelector('title').textContent);
  const off = Math.hypot(Number(plan.north) - Number(place[2]) - Number(told[1]), Number(plan.east) + Number(place[1]) - Number(told[2]));
  if (!(off <= 0.0015)) faults.push(path.textContent + ' is drawn ' + off + ' m off');
  ++places;
}
function overlaps(svg, when) {
  const shown = [...svg.querySelectorAll('text:not(.hidden)')].map(text => [text.textContent, text.getBoundingClientRect()]);
  texts += shown.length;
  shown.forEach(([name, box], index) => {
    for (const [other, otherBox] of shown.slice(0, index)) {
      if (box.left < otherBox.right && otherBox.left < box.right && box.top < otherBox.bottom && otherBox.top < box.bottom) {
        faults.push(when + ': ' + name + ' lies over ' + other);
      }
    }
  });
}
for (const svg of document.querySelectorAll('svg.plan, svg.profile')) overlaps(svg, 'at first');
for (const text of document.querySelectorAll('svg.profile text.upright.hidden')) faults.push('there is no room for ' + text.textContent);
// What is drawn, for the script to hold against the file.
const paths = (svg, kind) => [...svg.querySelectorAll('path.' + kind)].map(path => path.getAttribute('d'));
const profiles = [...document.querySelectorAll('svg.profile')].map(svg => ({
  scales: { ...svg.dataset }, vertices: paths(svg, 'vertex'), grounds: paths(svg, 'ground'), designs: paths(svg, 'design') }));
const crossSections = [...document.querySelectorAll('svg.section')].map(svg => ({
  grounds: paths(svg, 'ground'), designs: paths(svg, 'design'), layers: paths(svg, 'layer') }));
for (const svg of document.querySelectorAll('svg.plan')) {
  const frame = svg.getBoundingClientRect();
  const before = svg.viewBox.baseVal.width;
  for (let turn = 0; turn < 5; ++turn) {
    svg.dispatchEvent(new WheelEvent('wheel', { deltaY: -1, cancelable: true,
      clientX: frame.left + frame.width / 2, clientY: frame.top + frame.height / 2 }));
  }
  if (!(svg.viewBox.baseVal.width < before / 2)) faults.push('the wheel does not zoom');
  overlaps(svg, 'zoomed');
}
// The pointer over main points, before and after zooming; and what is held stays under it.
const pointed = [];
function checkScale(svg, when) {
  const bar = svg.querySelector('path.scale').getBoundingClientRect(), frame = svg.getBoundingClientRect();
  const text = svg.querySelector('text.scale'), told = parseFloat(text.textContent), pixel = 1 / svg.getScreenCTM().a;
  if (!(Math.abs(bar.width * pixel / told - 1) < 0.02)) faults.push(when + ': the scale bar of ' + text.textContent + ' is ' + bar.width * pixel + ' m long');
  if (bar.left < frame.left || bar.right > frame.right || bar.bottom > frame.bottom + 1) faults.push(when + ': the scale bar is not seen');
  if (text.classList.contains('hidden')) faults.push(when + ': the scale bar says nothing');
}
for (const svg of document.querySelectorAll('svg.plan')) checkScale(svg, 'at first');
for (const svg of document.querySelectorAll('svg.plan')) {
  const caption = svg.parentNode.querySelector('.place');
  const point = (type, x, y) => { svg.dispatchEvent(new PointerEvent(type, { clientX: x, clientY: y })); return caption.textContent; };
  const screen = path => {
    const place = /^M(\S+) (\S+)h0$/.exec(path.getAttribute('d'));
    return new DOMPoint(place[1], place[2]).matrixTransform(svg.getScreenCTM());
  };
  // Drawings count in numbers of seven digits, so that far from their corner a place is a little off.
  const isSame = (one, other) => {
    const [x, y, otherX, otherY] = (one + ' ' + other).match(/[-\d.]+/g).map(Number);
    return Math.hypot(x - otherX, y - otherY) <= 0.0015 + 0.2 / svg.getScreenCTM().a;
  };
  const turn = (at, up) => svg.dispatchEvent(new WheelEvent('wheel', { deltaY: up ? -1 : 1, cancelable: true, clientX: at.x, clientY: at.y }));
  for (const path of [...svg.querySelectorAll('path.main')].slice(0, 6)) {
    for (let zoom = 0; zoom < 3; ++zoom) {
      const at = screen(path), name = path.querySelector('title').textContent.split('\n')[0];
      pointed.push([name, point('pointermove', at.x, at.y), 1 / svg.getScreenCTM().a]);
      turn(at, true);
      const off = Math.hypot(screen(path).x - at.x, screen(path).y - at.y);
      if (!(off < 1)) faults.push(name + ' moves ' + off + ' pixels when the wheel turns over it');
    }
    checkScale(svg, 'zoomed to ' + path.textContent);
    const from = screen(path), before = point('pointermove', from.x, from.y);
    point('pointerdown', from.x, from.y);
    if (!isSame(point('pointermove', from.x + 120, from.y - 80), before)) faults.push(before + ' does not follow the pointer');
    point('pointerup', from.x + 120, from.y - 80);
    if (Math.hypot(screen(path).x - from.x - 120, screen(path).y - from.y + 80) > 1) faults.push('the plan is not dragged');
    checkScale(svg, 'dragged');
    if (!isSame(point('pointermove', from.x + 120, from.y - 80), before)) faults.push(before + ' is not where it was dragged to');
    for (let zoom = 0; zoom < 3; ++zoom) turn(screen(path), false);
  }
}
// From section to section, each alone and then all of them.
for (const leaf of document.querySelectorAll('.leaf')) {
  const figures = [...leaf.nextElementSibling.children], [previous, next] = leaf.querySelectorAll('button');
  const seen = () => figures.filter(figure => figure.offsetHeight > 0);
  figures.forEach((figure, index) => {
    if (seen().length !== 1 || seen()[0] !== figure) faults.push('section ' + index + ' is not the one that is shown');
    if (next.disabled !== (index === figures.length - 1) || previous.disabled !== (index === 0)) faults.push('leafing at ' + index);
    figure.querySelectorAll('svg').forEach(svg => overlaps(svg, 'section ' + index));
    ++sections;
    next.click();
  });
  leaf.querySelector('input').click();
  if (seen().length !== figures.length) faults.push('not all sections are shown');
  figures.forEach((figure, index) => figure.querySelectorAll('svg').forEach(svg => overlaps(svg, 'small section ' + index)));
  const line = figures[figures.length - 1].querySelector('path[id]');
  leaf.querySelector('input').click();
  if (line) {
    location.hash = line.id;
    window.dispatchEvent(new HashChangeEvent('hashchange'));
    if (seen()[0] !== figures[figures.length - 1]) faults.push('a link to a section does not lead there');
  }
}
// The page enlarged, as by the browser's own zoom.
document.documentElement.style.zoom = 1.5;
window.dispatchEvent(new Event('resize'));
for (const svg of document.querySelectorAll('svg.plan, svg.profile, svg.section')) overlaps(svg, 'enlarged');
document.documentElement.style.zoom = 1;
window.dispatchEvent(new Event('resize'));
for (const canvas of document.querySelectorAll('canvas.terrain')) {
  const gl = canvas.getContext('webgl2'), pixels = new Uint8Array(canvas.width * canvas.height * 4);
  const count = () => {
    gl.readPixels(0, 0, canvas.width, canvas.height, gl.RGBA, gl.UNSIGNED_BYTE, pixels);
    return pixels.reduce((sum, value, index) => sum + (index % 4 === 0 && value < 250 ? 1 : 0), 0);
  };
  drawn = count() / (canvas.width * canvas.height);
  if (!(drawn > 0.01)) faults.push('no surface is drawn');
  canvas.parentNode.querySelectorAll('.mesh input').forEach(check => check.click());
  if (count() !== 0) faults.push('surfaces are drawn that are switched off');
}
// Each finding leads to something that is seen then.
const links = [...document.querySelectorAll('#findings tbody tr')].map(row => row.querySelector('a'));
for (const link of links) {
  link.click();
  follow();
  const target = document.getElementById(link.hash.slice(1));
  if (!target) { faults.push(link.textContent + ' leads nowhere'); continue; }
  const box = target.getBoundingClientRect(), x = (box.left + box.right) / 2, y = (box.top + box.bottom) / 2;
  const frames = [new DOMRect(0, 0, innerWidth, innerHeight), ...[target.closest('svg'), target.closest('.scroll')]
    .filter(frame => frame && frame !== target).map(frame => frame.getBoundingClientRect())];
  const isIn = frames.every(frame => x >= frame.left - 1 && x <= frame.right + 1 && y >= frame.top - 1 && y <= frame.bottom + 1);
  if (!isIn || !target.checkVisibility()) faults.push(link.textContent + ' leads to what is not seen: ' + link.hash);
}
document.getElementById('language').click();
// What is Japanese in the English page: texts of the file, as the script knows.
const japanese = new Set();
const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
while (walker.nextNode()) {
  const text = walker.currentNode;
  if (!text.parentElement.closest('script, #result, #language') && /[\u3040-\u30ff\u4e00-\u9fff]/.test(text.data)) japanese.add(text.data);
}
if (document.documentElement.lang !== 'en') faults.push('the language is not switched');
document.getElementById('result').textContent = 'RESULT' + JSON.stringify({ faults, places, texts, sections, drawn, namedPoints, namedContours, profiles, crossSections,
  pointed, links: links.length, japanese: [...japanese] }) + 'END';
</script>"""

# A page as it is printed: what is wider than the sheet would be cut off.
PRINTED = r"""<pre id="result"></pre><script>
const faults = window.faults, edge = document.documentElement.clientWidth + 1;
for (const one of document.querySelectorAll('section, figure, table, svg:not(.shared, svg svg), pre, canvas')) {
  const box = one.getBoundingClientRect();
  if (box.right > edge || one.scrollWidth > one.clientWidth + 1) faults.push(one.tagName + ' ' + one.className + ' is cut off at ' + box.right);
}
for (const svg of document.querySelectorAll('svg.profile')) {
  const sheets = [...svg.parentNode.querySelectorAll('.sheetofprofile')], isCut = svg.viewBox.baseVal.width > 1500;
  if (isCut !== sheets.length > 1 || isCut === svg.checkVisibility()) faults.push('a profile is not printed in sheets');
  if (sheets.some(sheet => sheet.offsetHeight < 500 || sheet.offsetHeight > 277 / 25.4 * 96)) faults.push('a sheet of a profile has no place on paper');
}
if ([...document.querySelectorAll('.sections figure')].some(figure => figure.offsetHeight === 0)) faults.push('a section is not printed');
document.getElementById('result').textContent = 'RESULT' + JSON.stringify({ faults }) + 'END';
</script>"""

# An A3 sheet on its side without its margins of 10 mm, in CSS pixels.
SHEET_WIDTH, SHEET_HEIGHT = int(400 / 25.4 * 96), int(277 / 25.4 * 96)

# Changes of a sound file that make every check speak but that against a schema.
DAMAGES = [
    [("<Pnts>", "<Watersheds/><Pnts>"),
     ('value="62.3"', 'value="."'),
     ('<Start name="BP">12450.00000000 18230.00000000</Start>', '<Start name="BP"/>'),
     ('<Curve rot="cw"', '<Curve rot="right"'),
     ('length="400.000000"', 'length="400.2"'),
     ('<PI name="IP">12530.82325353', '<PI name="IP">12531.82325353'),
     ('<End name="EP">', "<End>"),
     ('staAhead="160.000"', 'staAhead="140.000"'),
     ('name="No.10" sta="200.000"', 'name="No.3" sta="401"'),
     ("<PVI>400.000", "<PVI>290.000"),
     ('profAlignRefs" value="計画"', 'profAlignRefs" value="現況"'),
     ("<FullSuperSta>160.000", "<FullSuperSta>260.000"),
     ("-7.500 107.870", "-17.500 107.870"),
     ("256. 0.25 3", "156. 0.25 3"),
     ("18236.926 103.550", "18236.926"),
     ("15.000 106.745", "15.000"),
     ("<F>3 6 5</F>", "<F>3 6 7</F>"),
     ('value="線形1"', 'value="線形9"'),
     ('horizontalDatum="JGD2011"', 'horizontalDatum="WGS84"'),
     ('="9(X,Y)"', '="20(X,Y)"'),
     ('linearUnit="meter"', 'linearUnit="foot"'),
     ("国道999号 架空", "\ufffd 架空"),
     (' version="1.2"', ' version="1.1"'),
     ("架空設計㈱", "架空設計㈱ & 子")],
    [("<LandXML", '<!DOCTYPE LandXML [<!ENTITY a "b">]>\n<LandXML'),
     ('spiType="clothoid"', 'spiType="bloss"'),
     ('<End name="KE.1-2">12532.90483349', '<End name="KE.1-2">12533.90483349'),
     ('length="94.000000"', 'length="94.2"'),
     ("<Center>12334.46615932", "<Center>12334.46815932"),
     ('value="100.000000" />\n\t\t\t\t\t</Feature>\n\t\t\t\t</Spiral>\n\t\t\t\t<Line',
      'value="101" /></Feature></Spiral><Line'),
     ('<End name="EP">', '<End name="BP">'),
     ('<Start name="KE.1-1">', '<Start name="KE.1-2">'),
     ('staStart="0.000000"', ""),
     ('staBack="260.000"', 'staBack="260.002"'),
     ('staInternal="150.000"', 'staInternal="350.000"'),
     ('featureRef="2">12473.0874', 'featureRef="2">12473.2874'),
     ('value="62.3"', 'value="30.75"'),
     ('ParaCurve length="100.000"', 'ParaCurve length="130.000"'),
     ('radius="800.000"', 'radius="900.000"'),
     ('<CrossSectPnt code="PV1">0.000 0.000</CrossSectPnt>\n\t\t\t\t\t\t<Feature>',
      '<CrossSectPnt code="PV1">0.000 -0.200</CrossSectPnt><Feature>'),
     ('<CrossSectPnt code="CW">-3.250', '<CrossSectPnt code="CW">3.250'),
     ('<CrossSectPnt code="CL">0.000 0.000', '<CrossSectPnt code="CL">0.000 106.800'),
     ('<CrossSectPnt code="PV2">-3.250 -0.115', '<CrossSectPnt code="PV2">-3.250 -0.105'),
     ('CrossSectSurf name="ExistingGround"', 'CrossSectSurf name="Bedrock"'),
     ('<P id="3">', '<P id="2">'),
     ("<F>1 2 4</F>", "<F>1 2 4 5</F>"),
     ("<F>2 3 5</F>", "<F>2 5 5</F>"),
     ("<F>3 6 5</F>", "<F>2 5 4</F><F>2 5 1</F>"),
     ('featureRef="3"', 'featureRef="33"'),
     ('name="L-1"', 'name="L-1" pntRef="Q1"'),
     ('name="L-3"', 'name="L-2"'),
     ('<CgPoint name="L-4">12534.6799 18519.2442', '<CgPoint name="L-4">912461.0876 18224.2281'),
     ('<CgPoint name="L-5">12511.4208 18610.3212', '<CgPoint name="L-5">0.0 150000.0'),
     ('value="0.0000"', 'value="-1.1344"'),
     ("Coordinate System No. 9 (Kanto)", "Coordinate System No. 8 (Kanto)"),
     ("<PVI>400.000 113.000</PVI>", '<ParaCurve length="10.">400.000 113.000</ParaCurve>'),
     ('sta="200.000"', 'sta="60.000"')],
    # Nothing has a name, and there is no alignment for the points.
    [('name="線形1" length', "length"), ('<CgPoints name="左幅杭"', "<CgPoints"), ('<CgPoint name="L-1"', "<CgPoint"),
     ('<Surface name="現況地形"', "<Surface"), ('<ProfAlign name="計画"', "<ProfAlign"),
     ('<CrossSect name="No.3"', "<CrossSect"), ('<Start name="BP">', "<Start>"), ('<End name="KA.1-1">', "<End>"),
     ('Surf name="Carriageway"', "Surf"), ("<PVI>400.000", "<PVI>290.000"), ("<F>3 6 5</F>", "<F>3 6 6</F>"),
     ('<CrossSectPnt code="CW">-3.250', '<CrossSectPnt code="CW">3.250'), ('length="110.000000"', 'length="110.2"'),
     ('radiusEnd="200.00000000" length="50.000000"', 'radiusEnd="200.00000000"'), ("40. 106.635 80. 108.071", "40. 106.635 80."),
     ('<CgPoint name="L-2">12511.88 18321.7993 109.091<', '<CgPoint name="L-2"><'),
     ("</CoordGeom>", '<IrregularLine><Start>12499.30947113 18607.22822412</Start><End>12490 18640</End>'
      "<PntList2D>12499.30947113 18607.22822412 12480 18650</PntList2D></IrregularLine></CoordGeom>"),
     ('directionUnit="decimal dd.mm.ss"', 'directionUnit="degrees"'),
     ('length="40.000" radius="800.000"', 'length="-40.000" radius="0"')],
]

# In every name of a file: what would run if it weren't escaped.
HOSTILE = ("&quot;&apos;&gt;&lt;/script&gt;&lt;script&gt;window.faults.push(&quot;ran&quot;)&lt;/script&gt;"
           "&lt;img src=x onerror=&apos;window.faults.push(1)&apos;&gt;--&gt;&lt;/style&gt;&lt;/svg&gt;&#1;")


def run(browser, page, *options):
    with tempfile.TemporaryDirectory() as profile:
        done = subprocess.run([browser, "--headless", "--no-sandbox", "--disable-gpu", "--use-angle=swiftshader",
                               "--enable-unsafe-swiftshader", "--hide-scrollbars", f"--user-data-dir={profile}",
                               "--enable-logging=stderr", "--window-size=1500,2000", *options, page.resolve().as_uri()],
                              capture_output=True, text=True, encoding="utf-8", timeout=240, check=True)
    # Software that stands in for a graphics card tells of its own slowness.
    said = [line for line in done.stderr.splitlines() if "CONSOLE" in line and "GL Driver Message" not in line]
    assert not said, f"{page}: {said}"
    return done.stdout


def probe(browser, page, name, text, script, *options):
    """What a script that is put at the page's end says of it."""
    probed = page.with_name(name + page.name)
    probed.write_text(text.replace("<style>", WATCH + "<style>", 1).replace("</body>", script + "</body>"), encoding="utf-8")
    result = re.search(r"RESULT(\{.*\})END</pre>", run(browser, probed, "--dump-dom", *options), re.DOTALL)
    assert result, f"{page}: the page's scripts didn't run to their end"
    return json.loads(html.unescape(result.group(1)))


def look(browser, page):
    run(browser, page, f"--screenshot={page.with_suffix('.png').resolve()}")
    return probe(browser, page, "probed-", page.read_text(encoding="utf-8"), PROBE)


def check_print(browser, page):
    """The sheets of the page on paper, beyond whose edges nothing lies."""
    text = page.read_text(encoding="utf-8").replace("@media print", "@media all").replace("@media screen", "@media not all")
    result = probe(browser, page, "printed-", text, PRINTED, f"--window-size={SHEET_WIDTH},{SHEET_HEIGHT}")
    assert not result["faults"], f"{page}: {result['faults']}"
    paper = page.with_suffix(".pdf")
    run(browser, page, "--no-pdf-header-footer", f"--print-to-pdf={paper.resolve()}")
    sizes = re.findall(rb"/MediaBox \[0 0 ([0-9.]+) ([0-9.]+)\]", paper.read_bytes())
    assert sizes and all(abs(float(width) - 1190.55) < 1 and abs(float(height) - 841.89) < 1 for width, height in sizes), sizes
    return len(sizes)


def own_texts(name):
    """The texts of a file, the longest first, so that what is left of a sentence without them is ours."""
    texts = {text.strip() for node in ElementTree.parse(name).iter() for text in [*node.attrib.values(), node.text or ""]}
    return sorted(texts - {""}, key=len, reverse=True)


def check_english(japanese, name, said):
    own = own_texts(name) + [said]
    for text in japanese:
        rest = text
        for one in own:
            rest = rest.replace(one, "")
        assert not re.search("[\u3040-\u30ff\u4e00-\u9fff]", rest), f"{name}: in English it still says {text!r}"


def check_pointer(pointed, name):
    """The coordinates that a plan tells of main points, when the pointer is on them, against the file's."""
    known = {}
    for node in ElementTree.parse(name).getroot().iter():
        if node.tag.split("}")[-1] in ("Start", "End") and node.text and node.get("name"):
            known.setdefault(node.get("name"), []).append(tuple(map(float, node.text.split()[:2])))
    for point, told, pixel in pointed:
        shown = tuple(map(float, re.fullmatch(r"X (\S+)  Y (\S+)", told).groups()))
        off = min(max(abs(one - other) for one, other in zip(shown, place)) for place in known[point])
        assert off <= 0.0011 + pixel, f"{name}: {told} is told of {point}, {off} m off"
    return len(pointed)


def places(path):
    """The pairs of figures of a path's steps."""
    return [tuple(map(float, step.split())) for step in re.findall(r"[ML]([^MLZh]+)", path)]


def pairs(node):
    """The pairs of all point lists of a ground line, one after the other."""
    return [pair for line in children(node, "PntList2D")
            for figures in [list(map(float, line.text.split()))] for pair in zip(figures[::2], figures[1::2])]


def expect_places(drawn, expected, tolerance, what):
    assert len(drawn) == len(expected), f"{what}: {len(drawn)} places are drawn, not {len(expected)}"
    for one, other in zip(drawn, expected):
        off = max(abs(one[0] - other[0]), abs(one[1] - other[1]))
        assert off <= tolerance, f"{what}: {other} is drawn at {one}"


def check_profile(drawn, alignment, what):
    """In hundredths of a pixel, as paths have them."""
    scales = {key: float(value) for key, value in drawn["scales"].items()}

    def place(station, height):
        return (scales["x"] + (station - scales["station"]) * scales["along"], scales["y"] - (height - scales["height"]) * scales["up"])

    assert abs(scales["station"] - alignment.start) < 1e-6, f"{what}: begins at {scales['station']}"
    designs = [recompute.Profile(design) for design in alignment.designs]
    vertices = [place(*point[:2]) for design in designs for point in design.points]
    expect_places([places(path)[0] for path in drawn["vertices"]], vertices, 0.0051, f"{what}, gradient changes")
    grounds = [[place(*pair) for pair in pairs(ground)] for profile in children(alignment.node, "Profile")
               for ground in children(profile, "ProfSurf")]
    assert len(drawn["grounds"]) == len(grounds), what
    for path, ground in zip(drawn["grounds"], grounds):
        expect_places(places(path), ground, 0.0051, f"{what}, ground line")
    assert len(drawn["designs"]) == len(designs), what
    for path, design in zip(drawn["designs"], designs):
        for x, y in places(path):
            station = scales["station"] + (x - scales["x"]) / scales["along"]
            # Where a station is drawn to a hundredth of a pixel, its height is off by what the road climbs there.
            steep = 0.0051 * scales["up"] / scales["along"] * 0.2
            off = abs(y - place(station, design.height(station))[1])
            assert off <= 0.0051 + steep, f"{what}: the design line at {station} is drawn {off} pixels off"
    return len(vertices) + sum(map(len, grounds))


def check_section(drawn, alignment, section, what):
    """In metres, to the millimetre."""
    height = alignment.height(float(section.get("sta"))) or 0
    designs = {"true": [], "": []}
    for surface in children(section, "DesignCrossSectSurf"):
        points = children(surface, "CrossSectPnt")
        if points and all(point.get("dataFormat", "Offset Elevation") == "Offset Elevation" for point in points):
            base = height if "fhOffset" in properties(surface, "heightType") else 0
            figures = [tuple(map(float, point.text.split())) for point in points]
            designs[surface.get("closedArea") or ""].append([(offset, -(base + up)) for offset, up in figures])
    grounds = [[(offset, -up) for offset, up in pairs(ground)] for ground in children(section, "CrossSectSurf")]
    count = 0
    for kind, expected in (("grounds", grounds), ("layers", designs["true"]), ("designs", designs[""])):
        assert len(drawn[kind]) == len(expected), f"{what}: {len(drawn[kind])} {kind}, not {len(expected)}"
        for path, line in zip(drawn[kind], expected):
            expect_places(places(path), line, 0.000501, f"{what}, {kind}")
            count += len(line)
    return count


def check_drawings(name, result):
    """Profiles and cross sections against the file's own figures, read without the program."""
    root = ElementTree.parse(name).getroot()
    alignments = [recompute.Alignment(node, False) for route in children(root, "Alignments") for node in children(route, "Alignment")]
    assert len(result["profiles"]) == len(alignments), f"{name}: {len(result['profiles'])} profiles"
    count = sum(check_profile(drawn, alignment, f"{name}, {alignment.name}, profile")
                for drawn, alignment in zip(result["profiles"], alignments))
    sections = [(alignment, section) for alignment in alignments for sects in children(alignment.node, "CrossSects")
                for section in children(sects, "CrossSect")]
    assert len(result["crossSections"]) == len(sections), f"{name}: {len(result['crossSections'])} sections"
    return count + sum(check_section(drawn, *one, f"{name}, section {one[1].get('sta')}")
                       for drawn, one in zip(result["crossSections"], sections))


def crowded(name, target):
    """The file with more points of no alignment than its plans can hold each, round the first of its own."""
    text = pathlib.Path(name).read_text(encoding="utf-8")
    north, east = map(float, re.search(r"<Start[^>]*>([-\d.]+) ([-\d.]+)", text).groups())
    points = "\n".join(f'<CgPoint name="T-{number}">{north + number % 80 - 40:.4f} {east + number // 80 - 40:.4f} 10.000</CgPoint>'
                       for number in range(6400))
    target.write_text(text.replace("<Alignments", f'<CgPoints name="基準点">{points}</CgPoints><Alignments', 1), encoding="utf-8")
    return str(target)


def hostile(name, target):
    """The file with something hostile behind every name, reference and note."""
    text = pathlib.Path(name).read_text(encoding="utf-8")
    attributes = r'\b(name|desc|code|pntRef|alignmentRefs|verticalDatum|horizontalDatum|material|version|author)="([^"]+)"'
    text = re.sub(attributes, lambda found: f'{found[1]}="{found[2]}{HOSTILE}"', text)
    target.write_text(re.sub(r'value="([^"0-9.-][^"]*)"', rf'value="\1{HOSTILE}"'.replace("&#1;", "&#1;"), text), encoding="utf-8")
    return str(target)


def damaged(folder):
    """Sound files with many changes; together they make every check speak."""
    sound = pathlib.Path(__file__).with_name("sound.xml").read_text(encoding="utf-8")
    names = []
    for number, changes in enumerate(DAMAGES):
        text = sound
        for old, new in changes:
            assert old in text, old
            text = text.replace(old, new, 1)
        names.append(folder / f"damaged-{number}.xml")
        names[-1].write_bytes(text.encode().replace("\ufffd".encode(), b"\xff"))
    return names


def check_links(browser, command, folder):
    """From every finding of every check to what is seen then."""
    listed = subprocess.run([*command, "--list-checks", "--json"], capture_output=True, check=True).stdout
    silent = {json.loads(line)["code"] for line in listed.splitlines()}
    count = 0
    for name in damaged(folder):
        page = name.with_suffix(".html")
        said = subprocess.run([*command, "--json", "--report", str(page), str(name)], capture_output=True, check=False).stdout
        findings = json.loads(said)["findings"]
        silent -= {finding["code"] for finding in findings}
        result = look(browser, page)
        assert not result["faults"], f"{name}: {result['faults']}"
        assert result["links"] == len(findings), f"{name}: {result['links']} links of {len(findings)} findings"
        if b"\xff" not in name.read_bytes():
            check_english(result["japanese"], name, "")
        count += len(findings)
    assert silent == {"S01"}, f"{silent} say nothing"
    print(count, "findings lead to what is seen")


def main(browser, program, folder, *files):
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    command = [part for part in program.split(";") if part]
    check_links(browser, command, folder)
    crowd = crowded(next(name for name in files if "two-routes" in name), folder / "crowded.xml")
    names = [*files, crowd, hostile(files[0], folder / "hostile.xml")]
    contours = 0
    for number, name in enumerate(names):
        page = folder / f"{number}.html"
        subprocess.run([*command, "--report", str(page), name], stdout=subprocess.DEVNULL, check=False)
        result = look(browser, page)
        assert not result["faults"], f"{name}: {result['faults']}"
        assert result["places"] >= 10 and result["texts"] >= 50 and result["sections"] >= 2, f"{name}: {result}"
        assert result["drawn"] > 0, f"{name}: {result}"
        contours += result["namedContours"]
        assert (result["namedPoints"] > 0) == (name == crowd), f"{name}: {result['namedPoints']} shared points are named"
        sheets = check_print(browser, page)
        drawn = pointed = 0
        # The hostile file lies where the first one does, and is none that other readers read.
        if name in files:
            drawn = check_drawings(name, result)
            pointed = check_pointer(result["pointed"], name)
            check_english(result["japanese"], name, name)
        print(name, result["places"], "places in plans,", drawn, "in profiles and sections,", pointed, "under the pointer,",
              result["texts"], "texts,", result["sections"], "sections,", sheets, "sheets of A3")
    assert contours > 0, "no contour has its height"


if __name__ == "__main__":
    main(*sys.argv[1:])
