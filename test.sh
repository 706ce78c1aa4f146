#!/usr/bin/env bash
# Sets the machine up, builds for Linux and Windows and runs every test on both.
#
#   ./test.sh           everything: Linux, sanitizers, Windows under Wine, a short run of the fuzz targets
#   ./test.sh --fast    Linux only, without the sanitizers and the fuzz targets
set -euo pipefail
cd "$(dirname "$0")"

presets=(asan windows linux)
fuzz_seconds=5
if [ "${1:-}" = --fast ]; then
    presets=(linux)
    fuzz_seconds=0
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
    ctest --preset "$preset" -j "$(nproc)" || failed+=("$preset")
done
if [ "$fuzz_seconds" -gt 0 ]; then
    for source in fuzz/Fuzz*.cpp; do
        target=$(basename "$source" .cpp)
        echo "== fuzz: $target for $fuzz_seconds seconds"
        found=build/asan/found/$target # new inputs go into the first folder
        mkdir -p "$found"
        seeds=$(find fuzz/corpus -maxdepth 1 -name "$target")
        "build/asan/fuzz/$target" "$found" ${seeds:+"$seeds"} -dict=fuzz/landxml.dict -max_total_time="$fuzz_seconds" \
            -timeout=20 -close_fd_mask=1 -verbosity=0 -artifact_prefix=build/asan/ || failed+=("$target")
    done
fi
if [ ${#failed[@]} -gt 0 ]; then
    echo "failed: ${failed[*]}"
    exit 1
fi
