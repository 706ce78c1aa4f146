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
th { background: #eef1f4; } td.figure { text-align: right; font-variant-numeric: tabular-nums; } td.tick { font-size: 18px; text-align: center; }
#checksheet td:nth-child(-n+2) { min-width: 10em; } #checksheet th:last-child { min-width: 4em; }
tr.severity2 td:first-child { background: #f6c6c0; } tr.severity1 td:first-child { background: #fbe7a8; }
section { overflow-x: auto; } .leftout { color: #a33; } .note, .planbox ~ .leftout { font-size: 12px; margin: 4px 0; }
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
.plan text { transform: translate(calc(var(--u) * var(--x, 6) * 1px), calc(var(--u) * var(--y, -5) * 1px)); }
.section text { transform: translate(calc(var(--u) * var(--x, 0) * 1px), calc(var(--u) * var(--y, -4) * 1px)); }
.element { stroke-width: 2.5; } .line { stroke: #1b4f9c; } .curve { stroke: #c0392b; } .spiral { stroke: #1e8449; }
.irregular { stroke: #7d3c98; }
.tick { stroke: #555; } .equation { fill: #c0392b; } text.station { fill: #555; }
.main, .stake, .intermediate, .control, .intersection, .vertex { stroke-linecap: round; stroke-width: 7; stroke: #222; }
.intersection { stroke: #999; } .stake { stroke: var(--outline, #b9770e); } .intermediate { stroke: var(--outline, #2e86c1); } .control { stroke: var(--outline, #8e44ad); }
.stakes { stroke: #b9770e; stroke-dasharray: 6 3; }
/* What is used from elsewhere doesn't know the plan and its scale but by --u. */
.outline, .contour, .common { fill: none; vector-effect: none; stroke-width: calc(var(--u) * 1px); }
.outline { stroke: var(--outline, #8a8a6a); } .contour { stroke: #d5d0b8; } .contour.index { stroke: #b5ab80; stroke-width: calc(var(--u) * 1.6px); }
.control.common, .stake.common, .intermediate.common { stroke-width: calc(var(--u) * 7px); }
.stakes.common { stroke-dasharray: calc(var(--u) * 6px) calc(var(--u) * 3px); }
.plan text.height { --x: 0; --y: 4; text-anchor: middle; fill: #857a4a; }
path.scale { stroke: #222; stroke-width: 3; }
.profile path { fill: none; vector-effect: none; } .datum { stroke: #222; } .profile .axis { text-anchor: end; } .level { font-weight: bold; }
.profile .corner { stroke: #1b4f9c; stroke-width: 4; stroke-linecap: round; }
.profile text { font-size: 11px; paint-order: stroke; stroke: #fff; stroke-width: 3px; } .profile .head { font-weight: bold; }
.grid { stroke: #e2e2e2; } .tangent { stroke: #c0392b; stroke-width: 0.7; stroke-dasharray: 4 4; } .profile .name { fill: #555; transform: translate(calc(var(--x, 0) * 1px), calc(var(--y, 0) * 1px)); } .band { fill: none; stroke: #999; }
.ground { stroke: #8b5a2b; stroke-width: 1.5; } .design { stroke: #c0392b; stroke-width: 1.8; }
.diagram { stroke: #1b4f9c; stroke-width: 1.5; } .second { stroke-dasharray: 5 3; }
.profile .gradient, .profile .curvature, .profile .data { text-anchor: middle; }
.profile .data, .profile .legend { font-size: 10px; } .gradient { fill: #c0392b !important; }
.leaf { display: flex; gap: 8px; align-items: center; margin: 4px 0; } .leaf[hidden] { display: none; }
@media screen { .sections.leafed > figure:not(.shown) { display: none; } }
.sections { display: grid; grid-template-columns: repeat(auto-fill, minmax(560px, 1fr)); gap: 12px; }
@media screen { .sections.leafed { display: block; } }
.sections figure { border: 1px solid #ccc; padding: 4px; break-inside: avoid; }
svg.section { display: block; width: 100%; max-height: 420px; } .centre { stroke: #999; stroke-dasharray: 8 3 2 3; }
svg .layer { stroke: #444; stroke-width: 0.7; } .section text { text-anchor: middle; } .section text.scale { text-anchor: start; }
:target { outline: 3px solid #e67e22; } svg path:target, svg :target > path { stroke: #e67e22 !important; }
/* What plans share gets its colour from where it is used. */
use:target { --outline: #e67e22; }
.spot { stroke: #e67e22; stroke-width: 8; stroke-linecap: round; stroke-opacity: 0.6; } .spot.face { stroke-width: 2; fill: #e67e2255; }
.ring { r: calc(var(--u, 1) * 14px); fill: none; stroke: #e67e22; stroke-width: 3; vector-effect: non-scaling-stroke; pointer-events: none; }
.hidden { visibility: hidden; }
canvas.terrain { display: block; width: 100%; height: 560px; border: 1px solid #ccc; cursor: grab; touch-action: none; }
.meshes { display: flex; flex-wrap: wrap; gap: 4px 16px; } .swatch { display: inline-block; width: 12px; height: 12px; margin: 0 4px; }
.terrainbox { position: relative; } .compass { position: absolute; right: 14px; top: 8px; font-weight: bold; }
@media screen { .sheetofprofile { display: none; } }
@media print { nav, button, .leaf, .place, .terrainbox > span:not(.compass), .rise { display: none; }
  .sheet { break-before: page; } h2, h3 { break-after: avoid; } tr, .planbox, .terrainbox { break-inside: avoid; }
  section, .scroll { overflow: visible; } pre { white-space: pre-wrap; } pre, td, figcaption { overflow-wrap: anywhere; }
  svg.profile { max-width: 100%; height: auto; break-inside: avoid; }
  /* Cut into the sheets that follow. */
  svg.profile:not(:last-child) { display: none; } .sheetofprofile { break-before: page; break-inside: avoid; }
  .sheetofprofile p { margin: 0; } .sheetofprofile > svg { max-width: 100%; max-height: 260mm; } }
)css";

const char* const REPORT_SCRIPT = R"js(
'use strict';
// Where a name may stand beside its point, in pixels, in the order of preference.
const BESIDE_A_POINT = [[6, -5, 'start'], [6, 14, 'start'], [-6, -5, 'end'], [-6, 14, 'end']];
const PLACES = { 'plan name': BESIDE_A_POINT, 'plan point': BESIDE_A_POINT,
  'profile name': [[0, 0, 'start'], [0, 20, 'start'], [80, 0, 'start'], [80, 20, 'start']],
  'section data': [[0, -4, 'middle'], [0, 14, 'middle'], [0, -18, 'middle'], [0, 28, 'middle'], [0, -32, 'middle']] };
function moveText(text, [x, y, anchor]) {
  text.style.setProperty('--x', x);
  text.style.setProperty('--y', y);
  text.style.textAnchor = anchor;
}
// Texts that would lie over others move aside or, where there is no room, are hidden; those that come first in the drawing stay.
function declutter(svg) {
  if (svg.getBoundingClientRect().width === 0) return;
  const texts = [...svg.querySelectorAll('text.scale'), ...svg.querySelectorAll('text:not(.scale)')], shown = [];
  // Plans and cross sections keep their texts' size; those of a profile grow with it.
  const pixel = svg.classList.contains('profile') ? svg.getScreenCTM().a : 1;
  const placesOf = text => PLACES[svg.getAttribute('class') + ' ' + text.classList[0]];
  for (const text of texts) {
    text.classList.remove('hidden');
    if (placesOf(text)) moveText(text, placesOf(text)[0]);
  }
  const boxes = texts.map(text => text.getBoundingClientRect());
  texts.forEach((text, index) => {
    const box = boxes[index], places = placesOf(text) || [[0, 0, 'start']], [x, y, anchor] = places[0];
    const right = place => (place[0] - x) * pixel, down = place => (place[1] - y) * pixel;
    const at = places.map(place => {
      const left = box.left + right(place) - (place[2] === anchor ? 0 : box.width);
      // Some pixels to spare: texts that are moved aren't measured again.
      return { left: left - 2, right: left + box.width + 2, top: box.top + down(place), bottom: box.bottom + down(place) };
    });
    const free = at.findIndex(one => !shown.some(other =>
      one.left < other.right && other.left < one.right && one.top < other.bottom && other.top < one.bottom));
    if (free < 0) { text.classList.add('hidden'); return; }
    if (free > 0) moveText(text, places[free]);
    shown.push(at[free]);
  });
}
// What plans share is drawn without texts: here are the names of points and the lines of contours with their heights.
const shared = new Map([...document.querySelectorAll('svg.shared g[id]')].map(group => ['#' + group.id, {
  points: [...group.querySelectorAll('path.common[data-name]')].map(path => [...steps(path)[0], path.dataset.name]),
  contours: [...group.querySelectorAll('path.contour[data-name]')].flatMap(path =>
    path.getAttribute('d').split('M').slice(1).map(part => [part.split('L').map(step => step.split(' ').map(Number)), path.dataset.name])) }]));
function steps(path) {
  return path.getAttribute('d').split(/[ML]/).slice(1).map(step => step.split(/[ h]/).slice(0, 2).map(Number));
}
function addText(svg, kind, [x, y], name) {
  const text = document.createElementNS(svg.namespaceURI, 'text');
  text.setAttribute('class', kind + ' added');
  text.setAttribute('x', x);
  text.setAttribute('y', y);
  text.textContent = name;
  svg.append(text);
}
// Names what is seen of what a plan shares with others, one thing in the room of one name.
function nameShared(svg, pixel) {
  svg.querySelectorAll('text.added').forEach(text => text.remove());
  const uses = [...svg.querySelectorAll('use')].map(use => shared.get(use.getAttribute('href')));
  const frame = svg.getBoundingClientRect(), taken = new Set();
  const corner = new DOMPoint(frame.left, frame.top).matrixTransform(svg.getScreenCTM().inverse());
  const isSeen = ([x, y]) => x > corner.x && y > corner.y && x < corner.x + frame.width * pixel && y < corner.y + frame.height * pixel;
  const isFree = ([x, y]) => {
    const room = Math.floor(x / pixel / 60) + ' ' + Math.floor(y / pixel / 16);
    return !taken.has(room) && taken.add(room);
  };
  for (const { points, contours } of uses) {
    for (const [x, y, name] of points) if (isSeen([x, y]) && isFree([x, y])) addText(svg, 'point', [x, y], name);
    for (const [line, height] of contours) {
      const seen = line.filter(isSeen), middle = seen[seen.length >> 1], first = seen[0];
      // Short ones have no room for their height.
      const isLong = seen.some(place => Math.hypot(place[0] - first[0], place[1] - first[1]) > 60 * pixel);
      if (isLong && isFree(middle)) addText(svg, 'height', middle, height);
    }
  }
}
// The metres of a pixel, so that texts keep their size.
function setUnit(svg) {
  const matrix = svg.getScreenCTM();
  if (matrix && matrix.a > 0) {
    svg.style.setProperty('--u', 1 / matrix.a);
    if (svg.classList.contains('plan')) nameShared(svg, 1 / matrix.a);
  }
  declutter(svg);
}
// The scale bar stays in the corner of what is seen of a plan, and about a sixth as wide.
function placeScale(svg) {
  const view = svg.viewBox.baseVal, bar = svg.querySelector('path.scale'), text = svg.querySelector('text.scale');
  const sixth = view.width / 6, power = 10 ** Math.floor(Math.log10(sixth));
  const length = Number((power * (sixth >= 5 * power ? 5 : sixth >= 2 * power ? 2 : 1)).toPrecision(1));
  const x = view.x + view.width * 0.02, y = view.y + view.height - view.width * 0.015;
  bar.setAttribute('d', `M${x} ${y}h${length}`);
  text.setAttribute('x', x);
  text.setAttribute('y', y - view.width * 0.005);
  text.textContent = length + ' m';
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
    placeScale(svg);
    setUnit(svg);
  }, { passive: false });
  svg.addEventListener('pointerdown', event => { held = placeOf(svg, event); svg.setPointerCapture(event.pointerId); });
  svg.addEventListener('pointerup', () => { held = null; setUnit(svg); });
  svg.addEventListener('pointermove', event => {
    const at = placeOf(svg, event);
    if (held) { view.x += held.x - at.x; view.y += held.y - at.y; placeScale(svg); }
    // What is held stays under the pointer.
    const under = held || at;
    caption.textContent = 'X ' + (north - under.y).toFixed(3) + '  Y ' + (east + under.x).toFixed(3);
  });
}
// Figures stand under one another by their last digits, as in calculation sheets.
for (const cell of document.querySelectorAll('td')) {
  if (/^[-+]?\d[-.\d]*$/.test(cell.textContent)) cell.classList.add('figure');
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

const char* const SECTIONS_SCRIPT = R"js(
for (const leaf of document.querySelectorAll('.leaf')) {
  const sections = leaf.nextElementSibling, figures = [...sections.children];
  leaf.hidden = figures.length === 0;
  if (leaf.hidden) continue;
  const list = leaf.querySelector('select'), all = leaf.querySelector('input');
  const [previous, next] = leaf.querySelectorAll('button');
  for (const figure of figures) list.add(new Option(figure.querySelector('figcaption').textContent));
  function show(index) {
    list.selectedIndex = Math.min(Math.max(index, 0), figures.length - 1);
    figures.forEach((figure, number) => figure.classList.toggle('shown', number === list.selectedIndex));
    sections.classList.toggle('leafed', !all.checked);
    previous.disabled = list.selectedIndex === 0;
    next.disabled = list.selectedIndex === figures.length - 1;
    (all.checked ? sections : figures[list.selectedIndex]).querySelectorAll('svg').forEach(setUnit);
  }
  previous.addEventListener('click', () => show(list.selectedIndex - 1));
  next.addEventListener('click', () => show(list.selectedIndex + 1));
  list.addEventListener('change', () => show(list.selectedIndex));
  all.addEventListener('change', () => show(list.selectedIndex));
  // A finding may lead to a section that isn't shown.
  sections.addEventListener('reveal', event => show(figures.findIndex(figure => figure.contains(event.target))));
  show(0);
}
// Brings what a finding is about into the plan's view, and rings it if it is small there.
function showInDrawing(svg, target) {
  const box = target.getBBox(), x = box.x + box.width / 2, y = box.y + box.height / 2, view = svg.viewBox.baseVal;
  if (svg.classList.contains('plan') && !(x > view.x && x < view.x + view.width && y > view.y && y < view.y + view.height)) {
    view.x = x - view.width / 2;
    view.y = y - view.height / 2;
    placeScale(svg);
    setUnit(svg);
  }
  const small = 24 / Math.abs(svg.getScreenCTM().a);
  if (box.width > small || box.height > small) return;
  const ring = document.createElementNS(svg.namespaceURI, 'circle');
  ring.setAttribute('class', 'ring');
  ring.setAttribute('cx', x);
  ring.setAttribute('cy', y);
  svg.append(ring);
}
function follow() {
  const target = document.getElementById(location.hash.slice(1));
  document.querySelectorAll('.ring').forEach(ring => ring.remove());
  if (!target) return;
  target.dispatchEvent(new CustomEvent('reveal', { bubbles: true }));
  const svg = target.ownerSVGElement;
  if (svg) showInDrawing(svg, target);
  (svg ? svg.querySelector('.ring') || target : target).scrollIntoView({ block: 'center', inline: 'center' });
}
window.addEventListener('hashchange', follow);
// A link that is followed again changes nothing of the address.
document.getElementById('findings').addEventListener('click', event => { if (event.target.hash === location.hash) follow(); });
follow();
)js";

const char* const TERRAIN_SCRIPT = R"js(
for (const box of document.querySelectorAll('.terrainbox')) {
  const canvas = box.querySelector('canvas'), gl = canvas.getContext('webgl2', { antialias: true, preserveDrawingBuffer: true });
  if (!gl) { box.querySelector('.nowebgl').hidden = false; canvas.hidden = true; continue; }
  const VERTEX = `#version 300 es
    in vec3 place; uniform vec3 middle; uniform vec4 turn; uniform vec2 zoom; uniform vec2 shift; uniform float rise; out vec3 world;
    void main() {
      world = (place - middle) * vec3(1.0, 1.0, rise);
      float east = world.x * turn.x - world.y * turn.y, away = world.x * turn.y + world.y * turn.x;
      float up = world.z * turn.z + away * turn.w, depth = away * turn.z - world.z * turn.w;
      gl_Position = vec4((vec2(east, up) + shift) * zoom, depth / (2.0 + rise), 1.0);
    }`;
  const FRAGMENT = `#version 300 es
    precision highp float; in vec3 world; uniform vec3 colour; out vec4 shade;
    void main() {
      vec3 normal = normalize(cross(dFdx(world), dFdy(world)));
      shade = vec4(colour * (0.45 + 0.55 * abs(dot(normal, normalize(vec3(-0.5, 0.5, 0.9))))), 1.0);
    }`;
  const program = gl.createProgram();
  for (const [kind, text] of [[gl.VERTEX_SHADER, VERTEX], [gl.FRAGMENT_SHADER, FRAGMENT]]) {
    const shader = gl.createShader(kind);
    gl.shaderSource(shader, text);
    gl.compileShader(shader);
    gl.attachShader(program, shader);
  }
  gl.bindAttribLocation(program, 0, 'place');
  gl.linkProgram(program);
  if (!gl.getProgramParameter(program, gl.LINK_STATUS)) throw new Error(gl.getProgramInfoLog(program));
  gl.useProgram(program);
  const uniform = name => gl.getUniformLocation(program, name);
  const bytes = text => Uint8Array.from(atob(text), character => character.charCodeAt(0));
  const COLOURS = [[0.66, 0.55, 0.38], [0.45, 0.62, 0.78], [0.55, 0.72, 0.45], [0.80, 0.52, 0.48], [0.62, 0.55, 0.75], [0.80, 0.75, 0.40]];
  const meshes = [...box.querySelectorAll('.mesh')].map((label, number) => {
    const array = gl.createVertexArray(), faces = bytes(label.dataset.faces), colour = COLOURS[number % COLOURS.length];
    gl.bindVertexArray(array);
    gl.bindBuffer(gl.ARRAY_BUFFER, gl.createBuffer());
    gl.bufferData(gl.ARRAY_BUFFER, bytes(label.dataset.points), gl.STATIC_DRAW);
    gl.enableVertexAttribArray(0);
    gl.vertexAttribPointer(0, 3, gl.UNSIGNED_SHORT, true, 0, 0);
    gl.bindBuffer(gl.ELEMENT_ARRAY_BUFFER, gl.createBuffer());
    gl.bufferData(gl.ELEMENT_ARRAY_BUFFER, faces, gl.STATIC_DRAW);
    label.querySelector('.swatch').style.background = `rgb(${colour.map(part => Math.round(part * 255))})`;
    const check = label.querySelector('input');
    check.addEventListener('change', draw);
    return { array, count: faces.length / 4, colour, check };
  });
  const sizes = canvas.dataset.sizes.split(' ').map(Number), rise = box.querySelector('.rise'), compass = box.querySelector('.compass');
  let yaw = 0.3, pitch = 0.7, east = 0, up = 0, held = null;
  // As large as the box round all surfaces fits.
  const wide = (canvas.clientWidth || 1000) / (canvas.clientHeight || 560);
  const across = sizes[0] * Math.cos(yaw) + sizes[1] * Math.sin(yaw), away = sizes[0] * Math.sin(yaw) + sizes[1] * Math.cos(yaw);
  let near = 1.9 * Math.min(Math.max(1, wide) / across, 1 / (Math.min(1, wide) * (away * Math.sin(pitch) + sizes[2] * Math.cos(pitch)) || 1));
  function draw() {
    const width = canvas.clientWidth || 1000, height = canvas.clientHeight || 560, ratio = window.devicePixelRatio || 1;
    canvas.width = width * ratio;
    canvas.height = height * ratio;
    gl.viewport(0, 0, canvas.width, canvas.height);
    gl.enable(gl.DEPTH_TEST);
    gl.clearColor(1, 1, 1, 1);
    gl.clear(gl.COLOR_BUFFER_BIT | gl.DEPTH_BUFFER_BIT);
    gl.uniform3f(uniform('middle'), sizes[0] / 2, sizes[1] / 2, sizes[2] / 2);
    gl.uniform4f(uniform('turn'), Math.cos(yaw), Math.sin(yaw), Math.cos(pitch), Math.sin(pitch));
    gl.uniform2f(uniform('zoom'), near * Math.min(1, height / width), near * Math.min(1, height / width) * width / height);
    gl.uniform2f(uniform('shift'), east, up);
    gl.uniform1f(uniform('rise'), Number(rise.value));
    for (const mesh of meshes.filter(one => one.check.checked)) {
      gl.bindVertexArray(mesh.array);
      gl.uniform3fv(uniform('colour'), mesh.colour);
      gl.drawElements(gl.TRIANGLES, mesh.count, gl.UNSIGNED_INT, 0);
    }
    compass.style.transform = `rotate(${-yaw}rad)`;
  }
  rise.addEventListener('change', draw);
  window.addEventListener('resize', draw);
  canvas.addEventListener('wheel', event => { event.preventDefault(); near *= event.deltaY > 0 ? 0.8 : 1.25; draw(); }, { passive: false });
  canvas.addEventListener('pointerdown', event => { held = event; canvas.setPointerCapture(event.pointerId); });
  canvas.addEventListener('pointerup', () => { held = null; });
  canvas.addEventListener('pointermove', event => {
    if (!held) return;
    const x = event.clientX - held.clientX, y = event.clientY - held.clientY;
    if (event.shiftKey) {
      east += x * 2 / (canvas.clientHeight * near);
      up -= y * 2 / (canvas.clientHeight * near);
    } else {
      yaw += x * 0.01;
      pitch = Math.min(Math.max(pitch + y * 0.01, 0), Math.PI / 2);
    }
    held = event;
    draw();
  });
  draw();
}
)js";

} // namespace jlandxml::inspect
