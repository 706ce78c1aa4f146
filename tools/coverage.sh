#!/usr/bin/env bash
# Builds for Linux with Clang's coverage, runs the tests, and prints lines and branches of src/ for each file; the lines
# that nothing reaches go to build/coverage/uncovered.txt.
#
#   tools/coverage.sh [TEST_PATTERN]     default: all tests
set -euo pipefail
cd "$(dirname "$0")/.."

build=build/coverage
flags="-O0 -g1 -fprofile-instr-generate -fcoverage-mapping"
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
    -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_CXX_FLAGS_DEBUG= >/dev/null
cmake --build "$build" -- --quiet
rm -rf "$build/profiles"
LLVM_PROFILE_FILE="$PWD/$build/profiles/%p-%m.profraw" ctest --test-dir "$build" -R "${1:-.}" --output-on-failure || true
find "$build/profiles" -name '*.profraw' >"$build/profiles.txt"
llvm-profdata merge -sparse -f "$build/profiles.txt" -o "$build/all.profdata"
mapfile -t programs < <(find "$build" -type f -executable \( -name '*_tests' -o -name 'jlandxml-*' -o -name 'libJLandXmlConvert.so' \
    -o -name 'ui_*' -o -name 'play_case' \))
objects=()
for program in "${programs[@]:1}"; do
    objects+=(-object "$program")
done
llvm-cov report "${programs[0]}" "${objects[@]}" -instr-profile="$build/all.profdata" src/
llvm-cov show "${programs[0]}" "${objects[@]}" -instr-profile="$build/all.profdata" src/ |
    awk '/^[^ ].*:$/ { file = $0 } /^ +[0-9]+\| +0\|/ { print file $0 }' >"$build/uncovered.txt"
echo "$(wc -l <"$build/uncovered.txt") lines are reached by nothing: $build/uncovered.txt"
