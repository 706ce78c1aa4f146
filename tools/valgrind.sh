#!/usr/bin/env bash
# Runs the examples through both command lines, and the unit tests of the layers below them, under valgrind's memory
# checker: no read of what isn't there or was never written, and no leak. Needs valgrind; an hour.
#
#   tools/valgrind.sh [BUILD_FOLDER]     default build/linux, configured
set -euo pipefail
cd "$(dirname "$0")/.."

build=${1:-build/linux}
tests=(base_tests xml_tests model_tests sidefiles_tests run_tests)
cmake --build "$build" --target jlandxml-convert jlandxml-inspect "${tests[@]}" -- --quiet
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# Only what valgrind finds counts: a program's own status may tell of findings.
failures=0
check() {
    local status=0
    echo "$*"
    nice valgrind --quiet --leak-check=full --errors-for-leak-kinds=definite --show-leak-kinds=definite --error-exitcode=99 \
        --suppressions=tools/valgrind.txt --log-file="$scratch/log" "$@" >"$scratch/out" 2>&1 || status=$?
    if [ $status = 99 ]; then
        cat "$scratch/log"
        failures=$((failures + 1))
    fi
}

for settings in examples/*/settings.json; do
    check "$build/src/jlandxml-convert" "$(dirname "$settings")" -s "$settings" -o "$scratch/out.xml" --changes "$scratch/changes.json" --check
    check "$build/src/jlandxml-inspect" "$scratch/out.xml" --report "$scratch/report.html" --csv "$scratch/csv"
done
for test in "${tests[@]}"; do
    check "$build/tests/$test" --gtest_brief=1
    grep -E "FAILED|PASSED" "$scratch/out" || true
done
exit $((failures > 0))
