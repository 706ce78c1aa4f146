#!/usr/bin/env bash
# Makes every allocation and every file operation of a whole run fail in turn, with each error that it can give, over
# targets of every kind: some ten thousand runs, a few minutes. Needs a configured build/linux.
#
#   tools/faults.sh [BUILD_FOLDER] [WORK_FOLDER]
set -euo pipefail
cd "$(dirname "$0")/.."

build=${1:-build/linux}
folder=${2:-examples/road}
cmake --build "$build" --target jlandxml-convert fault_library -- --quiet
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
nice python3 tests/checks/faults.py "$(realpath "$build/src/jlandxml-convert")" \
    "$(realpath "$build/tests/libfault_library.so")" "$folder" "$folder/settings.json" "$scratch"
