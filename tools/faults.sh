#!/usr/bin/env bash
# Makes every allocation and every file operation of a whole run fail in turn, with each error that it can give, over
# targets of every kind: some ten thousand runs, a few minutes. Needs a configured build/linux, or build/windows, whose
# program runs under Wine, some five thousand times.
#
#   tools/faults.sh [BUILD_FOLDER] [WORK_FOLDER]
set -euo pipefail
cd "$(dirname "$0")/.."

build=${1:-build/linux}
folder=${2:-examples/road}
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
if grep -q mingw32 "$build/CMakeCache.txt"; then
    target=faulty_convert program=$build/tests/faulty_convert.exe library=-
else
    target=jlandxml-convert program=$build/src/jlandxml-convert library=$build/tests/libfault_library.so
    cmake --build "$build" --target fault_library -- --quiet
fi
cmake --build "$build" --target "$target" -- --quiet
WINE=tools/wine.sh nice python3 tests/checks/faults.py "$(realpath "$program")" "$(realpath -m "$library")" \
    "$folder" "$folder/settings.json" "$scratch"
