#!/usr/bin/env bash
# Sets the machine up, builds for Linux and Windows and runs every test on both.
#
#   ./test.sh           everything: Linux, sanitizers, Windows under Wine
#   ./test.sh --fast    Linux only, without the sanitizers
set -euo pipefail
cd "$(dirname "$0")"

presets=(asan windows linux)
if [ "${1:-}" = --fast ]; then
    presets=(linux)
elif [ $# -gt 0 ]; then
    sed -n '2,5s/^# \?//p' "$0"
    exit 2
fi

tools/setup.sh
for preset in "${presets[@]}"; do
    echo "== $preset: building"
    cmake --preset "$preset" >/dev/null
    cmake --build "build/$preset" -- --quiet
done
failed=()
for preset in "${presets[@]}"; do
    echo "== $preset: testing"
    ctest --preset "$preset" || failed+=("$preset")
done
if [ ${#failed[@]} -gt 0 ]; then
    echo "failed: ${failed[*]}"
    exit 1
fi
