#!/usr/bin/env bash
# Measures the command line beside other tools that load such documents and save them again, and prints tables.
#
#   bench/compare.sh [--quick] [--rounds N] [--write] [DOCUMENT...]
#
# Without a document: all of them (terrain, alignments, cross-sections, mixed, side-files), each at a tenth and at full
# size, terrain at ten times it as well. --quick leaves the ten times out and makes three rounds in place of five. The tools run in
# turn, round by round, so that what else the machine does meets all of them: the command line; the bare parser with
# wide characters and with narrow ones; xmllint --format; xsltproc with the identity; Python's lxml; cp. One that isn't
# installed is left out. Medians of wall time, processor time and peak memory, and their ratios to the bare parser with
# wide characters. --write puts the tables into docs/performance.md, with date and machine.
#
# Needs the bench preset: cmake --preset bench && cmake --build build/bench. BENCH_BUILD names another build of it,
# TMPDIR a place with room for 3 GB. GNU time measures.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
build=${BENCH_BUILD:-$here/build/bench}
rounds=5
quick=
write=
wanted=()
while [ $# -gt 0 ]; do
    case $1 in
    --quick)
        quick=1
        rounds=3
        ;;
    --rounds)
        rounds=$2
        shift
        ;;
    --write) write=1 ;;
    -*)
        sed -n '2,4p' "$0" | cut -c3- >&2
        exit 2
        ;;
    *) wanted+=("$1") ;;
    esac
    shift
done

room=$(mktemp -d)
trap 'rm -rf "$room"' EXIT
cat >"$room/identity.xsl" <<'XSL'
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
<xsl:output method="xml" indent="yes"/><xsl:strip-space elements="*"/>
<xsl:template match="@*|node()"><xsl:copy><xsl:apply-templates select="@*|node()"/></xsl:copy></xsl:template>
</xsl:stylesheet>
XSL
cat >"$room/identity.py" <<'PYTHON'
import sys
from lxml import etree
tree = etree.parse(sys.argv[1], etree.XMLParser(remove_blank_text=True, huge_tree=True))
tree.write(sys.argv[2], pretty_print=True, encoding="UTF-8", xml_declaration=True)
PYTHON
python=
for candidate in python3 /usr/bin/python3; do
    if "$candidate" -c 'import lxml.etree' 2>/dev/null; then
        python=$candidate
        break
    fi
done

# The tools that there are, in the order in which they run.
tools=(converter wide narrow)
command -v xmllint >/dev/null && tools+=(xmllint)
command -v xsltproc >/dev/null && tools+=(xsltproc)
[ -n "$python" ] && tools+=(lxml)
tools+=(cp)

# Runs a tool on a work folder; its figures go to a file: wall time, user and system time in seconds, memory in kB.
run() {
    local tool=$1 folder=$2 figures=$3 in=$2/Landxml_temp.xml out=$room/out.xml
    local -a command
    case $tool in
    converter) command=("$build/src/jlandxml-convert" "$folder" -s "$folder/settings.json" -o "$out") ;;
    wide) command=("$build/bench/bench_bare" "$in" "$out") ;;
    narrow) command=("$build/bench/bench_bare_narrow" "$in" "$out") ;;
    xmllint) command=(xmllint --huge --format --output "$out" "$in") ;;
    xsltproc) command=(xsltproc --huge --output "$out" "$room/identity.xsl" "$in") ;;
    lxml) command=("$python" "$room/identity.py" "$in" "$out") ;;
    cp) command=(cp "$in" "$out") ;;
    esac
    rm -f "$out"
    if ! env time -f '%e %U %S %M' -o "$room/time" "${command[@]}" >"$room/said" 2>&1 || [ ! -s "$out" ]; then
        echo "$tool failed on $folder:" >&2
        head -5 "$room/said" >&2
        exit 1
    fi
    tail -1 "$room/time" >>"$figures"
}

median() {
    sort -g | awk '{ value[NR] = $1 } END { print value[int((NR + 1) / 2)] }'
}

# The rows of a document: tool, medians, ratios to the bare wide parser.
table() {
    local folder=$1 tool
    for tool in "${tools[@]}"; do
        local figures=$room/figures.$tool
        printf '%s %s %s %s\n' "$tool" "$(awk '{ print $1 }' "$figures" | median)" \
            "$(awk '{ print $2 + $3 }' "$figures" | median)" "$(awk '{ print $4 / 1024 }' "$figures" | median)"
    done | awk '
        { tool[NR] = $1; wall[NR] = $2; busy[NR] = $3; memory[NR] = $4; if ($1 == "wide") wide = NR }
        function ratio(value, base) { return base > 0 ? sprintf("%.2f", value / base) : "–" }
        END {
            print "| tool | wall s | processor s | peak MB | time over bare | memory over bare |"
            print "|---|--:|--:|--:|--:|--:|"
            for (row = 1; row <= NR; ++row)
                printf "| %s | %.2f | %.2f | %.0f | %s | %s |\n", tool[row], wall[row], busy[row], memory[row],
                    ratio(busy[row], busy[wide]), ratio(memory[row], memory[wide])
        }'
}

measure() {
    local document=$1 size=$2 folder=$room/work round tool
    rm -rf "$folder" "$room"/figures.*
    "$build/bench/bench_documents" "$document" "$size" "$folder"
    printf '\n### %s, %s (%s MB)\n\n' "$document" "$size" "$(du -cbs "$folder" | awk 'END { printf "%.1f", $1 / 1e6 }')"
    for ((round = 0; round < rounds; ++round)); do
        for tool in "${tools[@]}"; do
            run "$tool" "$folder" "$room/figures.$tool"
        done
    done
    table "$folder"
    if [ "$document" = side-files ]; then
        awk -v rows="$size" -v busy="$(awk '{ print $2 + $3 }' "$room/figures.converter" | median)" \
            -v memory="$(awk '{ print $4 }' "$room/figures.converter" | median)" 'BEGIN {
            printf "\nA whole run with its side files: %.2f µs and %.2f kB a row.\n", busy * 1e6 / rows, memory / rows }'
        "$build/bench/bench_runs" side-files "$size" | tail -1 | sed 's/^/\nLoading them alone: /'
    fi
}

# What a person waits for before anything is done.
measureStart() {
    local folder=$room/tiny round
    "$build/bench/bench_documents" terrain 2 "$folder"
    printf '\n### Start\n\n| call | processor ms |\n|---|--:|\n'
    for what in tiny version; do
        local -a command=("$build/src/jlandxml-convert" --version)
        [ "$what" = tiny ] && command=("$build/src/jlandxml-convert" "$folder" -s "$folder/settings.json" -o "$room/out.xml")
        printf '| %s | %s |\n' "$what" "$(LC_ALL=C bash -c 'TIMEFORMAT="%U %S"; time for ((i = 0; i < 50; ++i)); do "$@" >/dev/null 2>&1 || exit 1; done' \
            _ "${command[@]}" 2>&1 | awk '{ printf "%.1f", ($1 + $2) * 1000 / 50 }')"
    done
}

all() {
    echo "$(date -u +%F), $(nproc) × $(sed -n 's/^model name[^:]*: //p' /proc/cpuinfo | head -1)," \
        "$(awk '/MemTotal/ { printf "%.0f GB", $2 / 1e6 }' /proc/meminfo), $(uname -sr)," \
        "load $(cut -d' ' -f1 /proc/loadavg); medians of $rounds rounds"
    "$build/bench/bench_documents" | while read -r document size; do
        [ "$document" != dialog ] || continue # for bench_dialog
        if [ ${#wanted[@]} -gt 0 ] && [[ " ${wanted[*]} " != *" $document "* ]]; then
            continue
        fi
        measure "$document" $((size / 10))
        measure "$document" "$size"
        if [ "$document" = terrain ] && [ -z "$quick" ]; then
            measure "$document" $((size * 10))
        fi
    done
    measureStart
}

if [ -z "$write" ]; then
    all
    exit
fi
all | tee "$room/tables"
awk -v tables="$room/tables" '
    /<!-- end of tables -->/ { inside = 0 }
    !inside { print }
    /<!-- tables -->/ { inside = 1; print ""; while ((getline line < tables) > 0) print line; print "" }
' "$here/docs/performance.md" >"$room/performance.md"
cp "$room/performance.md" "$here/docs/performance.md"
