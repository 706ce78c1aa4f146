// The style and the script of the report's page. The script works on what is drawn and holds nothing of the file.

#include "inspect/Report.h"

namespace jlandxml::inspect
{

const char* const REPORT_STYLE = R"css(
@page { size: A3 landscape; margin: 10mm; }
* { box-sizing: border-box; }
body { font: 14px/1.5 sans-serif; margin: 0 16px 32px; color: #222; background: #fff; }
header { display: flex; gap: 16px; align-items: center; }
h1 { font-size: 22px; flex: 1; } h2 { font-size: 18px; border-bottom: 2px solid #456; } h3 { font-size: 15px; margin: 12px 0 4px; }
nav { position: sticky; top: 0; background: #fff; padding: 6px 0; border-bottom: 1px solid #ccc; z-index: 2; }
nav a { margin-right: 12px; }
pre { background: #f6f6f2; padding: 8px; overflow-x: auto; }
table { border-collapse: collapse; font-size: 13px; } th, td { border: 1px solid #bbb; padding: 2px 8px; text-align: left; }
th { background: #eef1f4; } td.tick { font-size: 18px; text-align: center; }
tr.severity2 td:first-child { background: #f6c6c0; } tr.severity1 td:first-child { background: #fbe7a8; }
section { overflow-x: auto; } .leftout { color: #a33; }
figure { margin: 0; } .planbox { position: relative; border: 1px solid #ccc; }
.north { position: absolute; right: 10px; top: 4px; font-weight: bold; z-index: 1; }
.place { position: absolute; right: 10px; bottom: 2px; font: 12px monospace; background: #fffc; }
.scroll { overflow-x: auto; border: 1px solid #ccc; }
svg.shared { position: absolute; }
svg.plan { display: block; width: 100%; height: 620px; cursor: grab; touch-action: none; }
svg path { fill: none; vector-effect: non-scaling-stroke; }
svg text { fill: #222; }
.plan text, .section text { font-size: calc(var(--u) * 11px); paint-order: stroke; stroke: #fff;
  stroke-width: calc(var(--u) * 2.5px); }
.plan text { transform: translate(calc(var(--u) * 6px), calc(var(--u) * -5px)); }
.element { stroke-width: 2.5; } .line { stroke: #1b4f9c; } .curve { stroke: #c0392b; } .spiral { stroke: #1e8449; }
.irregular { stroke: #7d3c98; }
.tick { stroke: #555; } .equation { fill: #c0392b; } text.station { fill: #555; }
.main, .stake, .intermediate, .intersection, .vertex { stroke-linecap: round; stroke-width: 7; stroke: #222; }
.intersection { stroke: #999; } .stake { stroke: #b9770e; } .intermediate { stroke: #2e86c1; }
.stakes { stroke: #b9770e; stroke-dasharray: 6 3; }
/* What is used from elsewhere doesn't know the plan's scale but by --u. */
.outline, .contour { vector-effect: none; stroke-width: calc(var(--u) * 1px); }
.outline { stroke: #8a8a6a; } .contour { stroke: #d5d0b8; }
path.scale { stroke: #222; stroke-width: 3; }
.profile text { font-size: 11px; } .profile .head { font-weight: bold; }
.grid { stroke: #e2e2e2; } .band { fill: none; stroke: #999; }
.ground { stroke: #8b5a2b; stroke-width: 1.5; } .design { stroke: #c0392b; stroke-width: 1.8; }
.diagram { stroke: #1b4f9c; stroke-width: 1.5; } .second { stroke-dasharray: 5 3; }
.profile .gradient, .profile .curvature, .profile .data { text-anchor: middle; }
.profile .data { font-size: 10px; } .gradient { fill: #c0392b !important; }
.sections { display: grid; grid-template-columns: repeat(auto-fill, minmax(560px, 1fr)); gap: 12px; }
.sections figure { border: 1px solid #ccc; padding: 4px; break-inside: avoid; }
svg.section { display: block; width: 100%; max-height: 420px; } .centre { stroke: #999; stroke-dasharray: 8 3 2 3; }
svg .layer { stroke: #444; stroke-width: 0.7; } .section text { text-anchor: middle; }
:target { outline: 3px solid #e67e22; stroke: #e67e22 !important; }
.hidden { visibility: hidden; }
@media print { nav, button { display: none; } .sheet { break-before: page; } section { overflow: visible; } }
)css";

const char* const REPORT_SCRIPT = R"js(
'use strict';
// Texts that would lie over others are hidden, those that come first in the drawing stay.
function declutter(svg) {
  const shown = [];
  for (const text of svg.querySelectorAll('text')) {
    text.classList.remove('hidden');
    const box = text.getBoundingClientRect();
    const overlaps = other => box.left < other.right && other.left < box.right && box.top < other.bottom && other.top < box.bottom;
    if (shown.some(overlaps)) text.classList.add('hidden'); else shown.push(box);
  }
}
// The metres of a pixel, so that texts keep their size.
function setUnit(svg) {
  const matrix = svg.getScreenCTM();
  if (matrix && matrix.a > 0) svg.style.setProperty('--u', 1 / matrix.a);
  declutter(svg);
}
function placeOf(svg, event) {
  return new DOMPoint(event.clientX, event.clientY).matrixTransform(svg.getScreenCTM().inverse());
}
for (const svg of document.querySelectorAll('svg.plan')) {
  const view = svg.viewBox.baseVal;
  const caption = svg.parentNode.querySelector('.place');
  const north = Number(svg.dataset.north), east = Number(svg.dataset.east);
  let held = null;
  svg.addEventListener('wheel', event => {
    event.preventDefault();
    const factor = event.deltaY > 0 ? 1.25 : 0.8, at = placeOf(svg, event);
    view.x = at.x + (view.x - at.x) * factor;
    view.y = at.y + (view.y - at.y) * factor;
    view.width *= factor;
    view.height *= factor;
    setUnit(svg);
  }, { passive: false });
  svg.addEventListener('pointerdown', event => { held = placeOf(svg, event); svg.setPointerCapture(event.pointerId); });
  svg.addEventListener('pointerup', () => { held = null; declutter(svg); });
  svg.addEventListener('pointermove', event => {
    const at = placeOf(svg, event);
    if (held) { view.x += held.x - at.x; view.y += held.y - at.y; }
    caption.textContent = 'X ' + (north - at.y).toFixed(3) + '  Y ' + (east + at.x).toFixed(3);
  });
}
function fit() {
  document.querySelectorAll('svg.plan, svg.section').forEach(setUnit);
  document.querySelectorAll('svg.profile').forEach(declutter);
}
window.addEventListener('resize', fit);
window.addEventListener('beforeprint', fit);
fit();
document.getElementById('language').addEventListener('click', event => {
  for (const word of document.querySelectorAll('[data-en]')) {
    const english = word.dataset.en;
    word.dataset.en = word.textContent;
    word.textContent = english;
  }
  const isEnglish = document.documentElement.lang === 'ja';
  document.documentElement.lang = isEnglish ? 'en' : 'ja';
  event.target.textContent = isEnglish ? '日本語' : 'English';
});
)js";

} // namespace jlandxml::inspect
