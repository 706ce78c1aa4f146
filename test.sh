#!/usr/bin/env bash
# Sets the machine up, builds for Linux and Windows and runs every test on both.
#
#   ./test.sh           everything: each test with sanitizers on Linux and under Wine on Windows, whole runs, real windows
#                       and hosts with the release build of both, a short run of the fuzz targets
#   ./test.sh --fast    the release build on Linux only, with all its tests
set -euo pipefail
cd "$(dirname "$0")"

presets=(asan windows linux)
unit_tests=(asan windows) # on Linux once, with the sanitizers
fuzz_seconds=5
together=ON # ten sources are compiled as one: a third of the time where all of them are compiled anyway
if [ "${1:-}" = --fast ]; then
    presets=(linux)
    unit_tests=(linux)
    fuzz_seconds=0
    together=OFF
elif [ $# -gt 0 ]; then
    sed -n '2,6s/^# \?//p' "$0"
    exit 2
fi

tools/setup.sh
for preset in "${presets[@]}"; do
    echo "== $preset: building"
    [[ " ${unit_tests[*]} " = *" $preset "* ]] && with_units=ON || with_units=OFF
    cmake --preset "$preset" -DJLANDXML_UNIT_TESTS=$with_units -DCMAKE_UNITY_BUILD=$together \
        -DCMAKE_UNITY_BUILD_BATCH_SIZE=10 >/dev/null
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
            -seed=1 -timeout=20 -close_fd_mask=1 -verbosity=0 -artifact_prefix=build/asan/ || failed+=("$target")
    done
fi
if [ ${#failed[@]} -gt 0 ]; then
    echo "failed: ${failed[*]}"
    exit 1
fi
