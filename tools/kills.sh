#!/usr/bin/env bash
# Kills the command line at random moments while it writes over a target, and looks at the target: it is the old file or
# the new one, whole, each time, and a later run has its way. On every kind of file system that can be mounted from a
# file here, with plenty of room and with hardly any.
#
#   tools/kills.sh [TIMES] [BUILD_FOLDER]     TIMES for each target size on each volume, default 20; BUILD_FOLDER may be
#                                              build/windows, whose program runs under Wine
set -euo pipefail
cd "$(dirname "$0")/.."

times=${1:-20}
build=${2:-build/linux}
cmake --build "$build" --target jlandxml-convert -- --quiet
program=$(realpath "$(ls "$build/src/jlandxml-convert" "$build/src/jlandxml-convert.exe" 2>/dev/null)")
WINE=tools/wine.sh exec nice python3 tests/checks/kills.py "$program" examples/road "$times"
