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
fuzz_seconds=3
# Everything is compiled anew and each program run for seconds: ten sources as one take a third of the time, and the
# optimiser's last tenth would cost more than it saves.
options=(-DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=10 "-DCMAKE_CXX_FLAGS_RELEASE=-O1 -DNDEBUG"
    "-DCMAKE_C_FLAGS_RELEASE=-O0 -DNDEBUG")
if [ "${1:-}" = --fast ]; then
    presets=(linux)
    unit_tests=(linux)
    fuzz_seconds=0
    options=(-DCMAKE_UNITY_BUILD=OFF "-DCMAKE_CXX_FLAGS_RELEASE=-O3 -DNDEBUG" "-DCMAKE_C_FLAGS_RELEASE=-O3 -DNDEBUG")
elif [ $# -gt 0 ]; then
    sed -n '2,6s/^# \?//p' "$0"
    exit 2
fi

# Beside a build go the tests of the one before, which wait for windows more than they compute: they go first.
build() {
    [[ " ${unit_tests[*]} " = *" $1 "* ]] && local with_units=ON || local with_units=OFF
    cmake --preset "$1" -DJLANDXML_UNIT_TESTS=$with_units "${options[@]}" >/dev/null
    nice cmake --build "build/$1" -- --quiet
}

# Real windows meet what else the machine does: what fails there is tried once more, and both are told.
run_tests() {
    local status=0
    ctest --preset "$1" -E '^ui/' -j "$(nproc)" || status=1
    ctest --preset "$1" -R '^ui/' --repeat until-pass:2 || status=1
    return $status
}

run_fuzz_targets() {
    local status=0
    for source in fuzz/Fuzz*.cpp; do
        local target found seeds
        target=$(basename "$source" .cpp)
        echo "== fuzz: $target for $fuzz_seconds seconds"
        found=build/asan/found/$target # new inputs go into the first folder
        mkdir -p "$found"
        seeds=$(find fuzz/corpus -maxdepth 1 -name "$target")
        nice "build/asan/fuzz/$target" "$found" ${seeds:+"$seeds"} -dict=fuzz/landxml.dict \
            -max_total_time="$fuzz_seconds" -seed=1 -timeout=20 -close_fd_mask=1 -verbosity=0 \
            -artifact_prefix=build/asan/ || { echo "failed: $target"; status=1; }
    done
    return $status
}

failed=()
running=
finish() {
    [ -n "$running" ] || return 0
    wait "$pid" || failed+=("$running")
    echo "== $running: tests, finished after $((SECONDS / 60)) minutes"
    cat "build/$running.log"
    running=
}
start() { # NAME COMMAND...: in the background, told when it has finished
    running=$1
    "${@:2}" >"build/$running.log" 2>&1 &
    pid=$!
}
trap '[ -z "$running" ] || kill "$pid" 2>/dev/null' EXIT

tools/setup.sh
for preset in "${presets[@]}"; do
    echo "== $preset: building, after $((SECONDS / 60)) minutes"
    build "$preset"
    finish
    start "$preset" run_tests "$preset"
done
if [ "$fuzz_seconds" -gt 0 ]; then
    run_fuzz_targets || failed+=(fuzz)
fi
finish
if [ ${#failed[@]} -gt 0 ]; then
    echo "failed: ${failed[*]}"
    exit 1
fi
