#!/usr/bin/env bash
# Converts inputs of great depth and size, a million of each thing, on a small stack, and holds time and memory against
# their size: a quarter of an hour.
#
#   tools/sizes.sh [PATTERN] [BUILD_FOLDER]     PATTERN picks inputs by their names, default all of them
set -euo pipefail
cd "$(dirname "$0")/.."

build=${2:-build/linux}
cmake --build "$build" --target jlandxml-convert -- --quiet
exec nice python3 tests/checks/sizes.py "$build/src/jlandxml-convert" 1 "${1:-.}"
