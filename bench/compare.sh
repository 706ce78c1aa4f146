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
# wide characters; then the aims with the figures beside them. --write puts both into docs/performance.md, with date and
# machine.
#
# Needs the bench preset: cmake --preset bench && cmake --build build/bench. BENCH_BUILD names another build of it,
# TMPDIR a place with room for 3 GB. GNU time measures. BENCH_DIALOG names a command that runs bench_dialog on the module
# (of a build with the tests); without it the dialog's aims stay empty.
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

export LC_NUMERIC=C
TIMEFORMAT='%3R %3U %3S'
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
    local succeeded=1
    rm -f "$out"
    # The shell counts milliseconds, GNU time the memory.
    { time env time -f '%M' -o "$room/memory" "${command[@]}" >"$room/said" 2>&1 || succeeded=; } 2>"$room/time"
    if [ -z "$succeeded" ] || [ ! -s "$out" ]; then
        echo "$tool failed on $folder:" >&2
        head -5 "$room/said" >&2
        exit 1
    fi
    echo "$(cat "$room/time") $(tail -1 "$room/memory")" >>"$figures"
}

median() {
    sort -g | awk '{ value[NR] = $1 } END { print value[int((NR + 1) / 2)] }'
}

# Medians of a document's rounds, a line for each of the tools: document, size, tool, wall time, processor time, memory in MB.
medians() {
    local document=$1 size=$2 tool
    for tool in "${tools[@]}"; do
        local figures=$room/figures.$tool
        printf '%s %s %s %s %s %s\n' "$document" "$size" "$tool" "$(awk '{ print $1 }' "$figures" | median)" \
            "$(awk '{ print $2 + $3 }' "$figures" | median)" "$(awk '{ print $4 / 1024 }' "$figures" | median)"
    done
}

# Medians as rows, with ratios to the bare wide parser.
table() {
    cut -d' ' -f3- | awk '
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

# Measures a document in one size with some of the tools.
measure() {
    local document=$1 size=$2 folder=$room/work round tool
    rm -rf "$folder" "$room"/figures.*
    "$build/bench/bench_documents" "$document" "$size" "$folder"
    printf '\n### %s, %s (%s MB)\n\n' "$document" "$size" "$(du -cbs "$folder" | awk 'END { printf "%.1f", $1 / 1e6 }')"
    local -a tools=("${@:3}")
    for ((round = 0; round < rounds; ++round)); do
        for tool in "${tools[@]}"; do
            run "$tool" "$folder" "$room/figures.$tool"
        done
    done
    medians "$document" "$size" | tee -a "$room/medians" | table
    if [ "$document" = side-files ]; then
        local loading
        loading=$("$build/bench/bench_runs" side-files "$size" | tail -1)
        awk -v rows="$size" '$1 == "side-files" && $2 == rows && $3 == "converter" {
            printf "\nA whole run with its side files: %.2f µs and %.2f kB a row.\n", $5 * 1e6 / rows, $6 * 1024 / rows }' \
            "$room/medians"
        printf '\nLoading them alone: %s\n' "$loading"
        awk -v rows="$size" '{ print "side-files", rows, "loading", $6, $6, $8 }' <<<"$loading" >>"$room/medians"
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
        local busy
        busy=$({ time for ((round = 0; round < 50; ++round)); do "${command[@]}" >/dev/null 2>&1 || exit 1; done; } 2>&1 |
            awk '{ printf "%.1f", ($2 + $3) * 1000 / 50 }')
        printf '| %s | %s |\n' "$what" "$busy"
        echo "start 1 $what 0 $busy 0" >>"$room/medians"
    done
}

# A finished terrain inspected, beside the run that made it.
measureInspection() {
    local told
    told=$("$build/bench/bench_runs" terrain "$1" | tail -1)
    printf '\n### Inspection\n\n    %s\n' "$told"
    sed -E 's/.*time x([0-9.]+) of the run +memory x([0-9.]+) of.*/inspection 1 terrain 0 \1 \2/' <<<"$told" >>"$room/medians"
}

# The dialog at size: what bench_dialog tells, as rows and for the aims.
measureDialog() {
    [ -n "${BENCH_DIALOG:-}" ] || return 0
    printf '\n### Dialog with 2,000 alignments and 5,000 surfaces\n\n'
    $BENCH_DIALOG | tee "$room/dialog" | sed 's/^/    /'
    awk -F ' *median *' '{ name = $1; gsub(/[^a-z]+/, "-", name); split($2, value, " ")
        print "dialog 1", name, 0, value[1], 0 }' "$room/dialog" >>"$room/medians"
}

# The aims, each with its figure out of the medians of this run; "–" where this run didn't measure it.
aims() {
    awk '
        { busy[$1, $2, $3] = $5; memory[$1, $2, $3] = $6 }
        function over(table, document, number, base, tool) {
            tool = document == "side-files" ? "loading" : "converter"
            return table[document, number, base] > 0 ? table[document, number, tool] / table[document, number, base] : 0
        }
        function growth(document, from, to, tool) {
            tool = document == "side-files" ? "loading" : "converter"
            return busy[document, from, tool] > 0 ? busy[document, to, tool] / busy[document, from, tool] : 0
        }
        function row(what, aim, figure, unit) {
            printf("| %s | %g%s | %s | %s |\n", what, aim, unit, figure > 0 ? sprintf("%.2f%s", figure, unit) : "–",
                figure == 0 ? "" : figure <= aim ? "reached" : "missed")
        }
        BEGIN {
            split("terrain mixed alignments cross-sections", documents, " ")
            split("0.35 0.60 1.00 1.10", time, " "); split("0.20 0.40 1.05 1.10", room, " ")
            split("0.20 0.60 0.60 0.60", lint, " ")
            size["terrain"] = 1000000; size["alignments"] = 1000; size["cross-sections"] = 20000
            size["mixed"] = 500000; size["side-files"] = 1000000
        }
        END {
            print "| aim | at most | figure | |"
            print "|---|--:|--:|---|"
            for (number = 1; number <= 4; ++number) {
                name = documents[number]
                row(name ": time over the bare parser", time[number], over(busy, name, size[name], "wide"))
                row(name ": memory over the bare parser", room[number], over(memory, name, size[name], "wide"))
                row(name ": time over `xmllint --format`", lint[number], over(busy, name, size[name], "xmllint"))
            }
            row("terrain: time over `cp`", 4, over(busy, "terrain", size["terrain"], "cp"))
            row("ten times the terrain: memory", 1536, memory["terrain", size["terrain"] * 10, "converter"], " MB")
            row("ten times the terrain: growth of the time", 10.5, growth("terrain", size["terrain"], size["terrain"] * 10))
            documents[5] = "side-files"
            for (number = 1; number <= 5; ++number) {
                name = documents[number]
                row(name ": growth of the time with ten times the input", 10.5, growth(name, size[name] / 10, size[name]))
            }
            rows = size["side-files"]
            row("side files: time a row", 1.2, busy["side-files", rows, "loading"] * 1e6 / rows, " µs")
            row("side files: memory a row", 0.5, memory["side-files", rows, "loading"] * 1024 / rows, " kB")
            row("terrain: inspecting it over converting it", 2, busy["inspection", 1, "terrain"])
            row("terrain: memory of inspecting it over the file", 4, memory["inspection", 1, "terrain"])
            row("a tiny work folder: processor time", 15, busy["start", 1, "tiny"], " ms")
            row("`--version`: processor time", 5, busy["start", 1, "version"], " ms")
            loading = busy["dialog", 1, "loading"]
            row("dialog: opening with loading, over loading alone", 1.5,
                loading > 0 ? busy["dialog", 1, "opening-with-loading"] / loading : 0)
            row("dialog: a selected alignment", 50, busy["dialog", 1, "selecting-an-alignment"], " ms")
            row("dialog: a selected surface", 50, busy["dialog", 1, "selecting-a-surface"], " ms")
            row("dialog: a list of 2,000 entries", 100, busy["dialog", 1, "dropping-the-list-down"], " ms")
        }' "$room/medians"
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
        measure "$document" $((size / 10)) "${tools[@]}"
        measure "$document" "$size" "${tools[@]}"
        if [ "$document" = terrain ]; then
            measureInspection "$size"
        fi
        if [ "$document" = terrain ] && [ -z "$quick" ]; then
            measure "$document" $((size * 10)) converter wide cp # the others take ten times a file of a gigabyte
        fi
    done
    measureStart
    measureDialog
}

: >"$room/medians"
all | tee "$room/tables"
echo
aims | tee "$room/aims"
[ -n "$write" ] || exit 0
awk -v room="$room" '
    /<!-- end of [a-z]+ -->/ { inside = 0 }
    !inside { print }
    /<!-- (aims|tables) -->/ { inside = 1; print ""; while ((getline line < (room "/" $2)) > 0) print line; print "" }
' "$here/docs/performance.md" >"$room/performance.md"
cp "$room/performance.md" "$here/docs/performance.md"
