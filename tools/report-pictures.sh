#!/usr/bin/env bash
# Takes the READMEs' pictures of a report, in docs/images, from the road example with headless Chromium. Needs a build of
# build/linux, or the program that JLANDXML_INSPECT names.
set -euo pipefail
cd "$(dirname "$0")/.."

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"${JLANDXML_INSPECT:-build/linux/src/jlandxml-inspect}" --report "$work/report.html" tests/e2e/road/expected.xml >/dev/null || true

# picture NAME WIDTH HEIGHT SELECTOR: the report with nothing but what is selected
picture() {
    sed "s#</style>#body > *, section > *, .sections > figure { display: none; } .leaf { display: none !important; } \
section:has($4), .sections:has($4) { display: block !important; } $4 { display: block !important; }</style>#" \
        "$work/report.html" >"$work/$1.html"
    chromium --headless --no-sandbox --disable-gpu --hide-scrollbars "--window-size=$2,$3" \
        "--screenshot=docs/images/report-$1.png" "file://$work/$1.html" 2>/dev/null
}
mkdir -p docs/images
picture plan 1400 640 '.planbox'
picture profile 1140 1060 'figure.scroll'
picture section 1400 320 '.sections > figure:first-child'
