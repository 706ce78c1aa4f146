#!/usr/bin/env bash
# Holds two builds of the command line against each other over generated work folders.
#
#   tools/compare.sh [--texts] OLD NEW [SEED [COUNT]]
#
# OLD and NEW are the programs (jlandxml-convert; a name that ends in .exe runs under Wine). SEED and COUNT choose the
# folders (default 1 and 200; see tests/support/generator/). Each folder is run once with each program, with its
# settings, from the same place to the same target, and compared are the status, standard output, standard error and
# the finished file, byte for byte. A line is printed for each folder in which they differ, and one with the count at
# the end. What the programs left in a folder that differs stays in build/compare/NUMBER/old and new, the work folder
# itself in build/compare/folders/NUMBER. With --texts standard error is compared without warnings and without what stands behind a
# tab. Status 0 where nothing differs, 1 where something does, 2 for a wrong call.
#
# The folders are made by generate_folders of the linux preset (cmake --build build/linux --target generate_folders),
# or by the program that GENERATE_FOLDERS names.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
texts=0
if [ "${1:-}" = --texts ]; then
    texts=1
    shift
fi
if [ $# -lt 2 ] || [ $# -gt 4 ] || [ ! -f "$1" ] || [ ! -f "$2" ]; then
    sed -n '2,5p' "$0" | cut -c3- >&2
    exit 2
fi
generate=${GENERATE_FOLDERS:-$here/build/linux/tests/generate_folders}
compare=$here/build/compare
rm -rf "$compare"
mkdir -p "$compare/run"
"$generate" "${3:-1}" "${4:-200}" "$compare/folders"

# Runs a program on a work folder and gathers what it leaves in a folder.
run() {
    local program=$1 folder=$2 kept=$3 status=0
    local -a command=("$program")
    [[ $program == *.exe ]] && command=("$here/tools/wine.sh" "$program")
    mkdir -p "$kept"
    "${command[@]}" "$folder" -s "$folder/settings.json" -o "$compare/run/out.xml" \
        >"$kept/stdout" 2>"$kept/stderr" </dev/null || status=$?
    if [ $texts = 1 ]; then
        cut -f1 "$kept/stderr" | grep -v '^警告: ' >"$kept/texts" || true
        rm "$kept/stderr"
    fi
    echo "$status" >"$kept/status"
    if [ -e "$compare/run/out.xml" ]; then
        mv "$compare/run/out.xml" "$kept/out.xml"
    fi
}

differing=0
count=0
for folder in "$compare"/folders/*; do
    number=$(basename "$folder")
    run "$1" "$folder" "$compare/$number/old"
    run "$2" "$folder" "$compare/$number/new"
    count=$((count + 1))
    if difference=$(diff -rq "$compare/$number/old" "$compare/$number/new"); then
        rm -r "${compare:?}/$number"
    else
        differing=$((differing + 1))
        echo "$number: $(sed -E 's|^Only in .*/(old\|new): (.*)$|\2 only in \1|; s|^Files .*/old/(.*) and .* differ$|\1|' \
            <<<"$difference" | paste -sd ' ')"
    fi
done
echo "$differing of $count folders differ"
[ "$differing" -eq 0 ]
