#!/usr/bin/env python3
"""Looks at reports in a headless browser: no script fails, what plans, profiles and cross sections show lies where the
file's figures say, texts don't lie over one another at two zooms, nothing of a hostile file is run, cross sections can be
leafed through, surfaces are drawn, and the page speaks English. A picture of each page stays in the work folder.

    browse.py BROWSER PROGRAM WORK_FOLDER FILE...    (PROGRAM with what runs it in front, parted by semicolons)
"""
import json
import pathlib
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

import recompute
from recompute import children, properties

WATCH = "<script>window.faults = []; window.onerror = (message) => { window.faults.push(message); };</script>"

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
document.getElementById('language').click();
for (const word of document.querySelectorAll('h2[data-en], h3[data-en], th[data-en], button[data-en]')) {
  if (/[\u3040-\u30ff]/.test(word.textContent)) faults.push('there is no English for ' + word.textContent);
}
if (document.documentElement.lang !== 'en') faults.push('the language is not switched');
document.getElementById('result').textContent = 'RESULT' + JSON.stringify({ faults, places, texts, sections, drawn, profiles, crossSections }) + 'END';
</script>"""

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


def look(browser, page):
    run(browser, page, f"--screenshot={page.with_suffix('.png').resolve()}")
    probed = page.with_name("probed-" + page.name)
    text = page.read_text(encoding="utf-8")
    probed.write_text(text.replace("<style>", WATCH + "<style>", 1).replace("</body>", PROBE + "</body>"), encoding="utf-8")
    result = re.search(r"RESULT(\{.*\})END</pre>", run(browser, probed, "--dump-dom"))
    assert result, f"{page}: the page's scripts didn't run to their end"
    return json.loads(result.group(1).replace("&amp;", "&").replace("&lt;", "<").replace("&gt;", ">"))


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


def hostile(name, target):
    """The file with something hostile behind every name, reference and note."""
    text = pathlib.Path(name).read_text(encoding="utf-8")
    attributes = r'\b(name|desc|code|pntRef|alignmentRefs|verticalDatum|horizontalDatum|material|version|author)="([^"]+)"'
    text = re.sub(attributes, lambda found: f'{found[1]}="{found[2]}{HOSTILE}"', text)
    target.write_text(re.sub(r'value="([^"0-9.-][^"]*)"', rf'value="\1{HOSTILE}"'.replace("&#1;", "&#1;"), text), encoding="utf-8")
    return str(target)


def main(browser, program, folder, *files):
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    names = [*files, hostile(files[0], folder / "hostile.xml")]
    for number, name in enumerate(names):
        page = folder / f"{number}.html"
        command = [part for part in program.split(";") if part]
        subprocess.run([*command, "--report", str(page), name], stdout=subprocess.DEVNULL, check=False)
        result = look(browser, page)
        assert not result["faults"], f"{name}: {result['faults']}"
        assert result["places"] >= 10 and result["texts"] >= 50 and result["sections"] >= 2, f"{name}: {result}"
        assert result["drawn"] > 0, f"{name}: {result}"
        # The hostile file lies where the first one does, and is none that other readers read.
        drawn = check_drawings(name, result) if name in files else 0
        print(name, result["places"], "places in plans,", drawn, "in profiles and sections,", result["texts"], "texts,",
              result["sections"], "sections")


if __name__ == "__main__":
    main(*sys.argv[1:])
