#!/usr/bin/env python3
"""Looks at reports in a headless browser: no script fails, drawn places are the file's, texts don't lie over one another.

    browse.py BROWSER PROGRAM WORK_FOLDER FILE...    (PROGRAM with what runs it in front, parted by semicolons)
"""
import json
import pathlib
import re
import subprocess
import sys
import tempfile

WATCH = "<script>window.faults = []; window.onerror = (message) => { window.faults.push(message); };</script>"

PROBE = r"""<pre id="result"></pre><script>
const faults = window.faults;
let places = 0, texts = 0;
for (const svg of document.querySelectorAll('svg.plan')) {
  const north = Number(svg.dataset.north), east = Number(svg.dataset.east);
  for (const path of svg.querySelectorAll('path.main, path.stake, path.intermediate')) {
    const drawn = /^M(\S+) (\S+)h0$/.exec(path.getAttribute('d'));
    const told = /X=(\S+)\s+Y=(\S+)/.exec(path.querySelector('title').textContent);
    const off = Math.hypot(north - Number(drawn[2]) - Number(told[1]), east + Number(drawn[1]) - Number(told[2]));
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
for (const svg of document.querySelectorAll('svg.plan, svg.profile, svg.section')) overlaps(svg, 'at first');
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
document.getElementById('language').click();
if (!document.body.textContent.includes('Findings')) faults.push('there is no English');
document.getElementById('result').textContent = 'RESULT' + JSON.stringify({ faults, places, texts }) + 'END';
</script>"""


def look(browser, page):
    text = page.read_text(encoding="utf-8")
    text = text.replace("<style>", WATCH + "<style>", 1).replace("</body>", PROBE + "</body>")
    page.write_text(text, encoding="utf-8")
    with tempfile.TemporaryDirectory() as profile:
        dom = subprocess.run([browser, "--headless", "--no-sandbox", "--disable-gpu", f"--user-data-dir={profile}",
                              "--window-size=1500,2000", "--dump-dom", page.resolve().as_uri()],
                             capture_output=True, text=True, encoding="utf-8", timeout=120, check=True).stdout
    result = re.search(r"RESULT(\{.*\})END</pre>", dom)
    assert result, f"{page}: the page's scripts didn't run to their end"
    return json.loads(result.group(1).replace("&amp;", "&").replace("&lt;", "<").replace("&gt;", ">"))


def main(browser, program, folder, *files):
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    for number, name in enumerate(files):
        page = folder / f"{number}.html"
        command = [part for part in program.split(";") if part]
        subprocess.run([*command, "--report", str(page), name], stdout=subprocess.DEVNULL, check=False)
        result = look(browser, page)
        assert not result["faults"], f"{name}: {result['faults']}"
        assert result["places"] >= 10 and result["texts"] >= 50, f"{name}: {result}"
        print(name, result["places"], "places,", result["texts"], "texts")


if __name__ == "__main__":
    main(*sys.argv[1:])
