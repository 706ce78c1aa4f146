#!/usr/bin/env bash
# Builds for Linux with Clang's coverage, runs the tests, and prints lines and branches of src/ for each file; what nothing
# reaches goes to build/coverage/uncovered.txt. A branch is a condition that was true, or false: edges that only an
# exception takes, which the compiler makes for every call, are none. Runs that are made to fail and runs without end
# (checks/) and reports on large files are left out, since they show nothing new.
#
#   tools/coverage.sh [TEST_PATTERN]     by the unit tests, the whole runs and the real windows; default: all of them
#   tools/coverage.sh --fuzz             by the fuzz targets' seeds (fuzz/corpus, fuzz/seeds.py) and what fuzz/run.sh
#                                        kept under build/fuzz/corpus, without the real windows; goes to
#                                        build/coverage/unreached.txt
set -euo pipefail
cd "$(dirname "$0")/.."

build=build/coverage
flags="-O0 -g1 -fprofile-instr-generate -fcoverage-mapping"
fuzz=OFF
[ "${1:-}" = --fuzz ] && fuzz=ON
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
    -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_CXX_FLAGS_DEBUG= -DJLANDXML_FUZZ=ON >/dev/null
rm -rf "$build/profiles"
export LLVM_PROFILE_FILE="$PWD/$build/profiles/%4m.profraw" # processes of one program share a few files

if [ $fuzz = ON ]; then
    mapfile -t targets < <(basename -s .cpp fuzz/Fuzz*.cpp)
    nice cmake --build "$build" --target "${targets[@]}" -- --quiet -j2
    rm -rf "$build/seeds"
    fuzz/seeds.py "$build/seeds"
    for target in "${targets[@]}"; do
        folders=()
        for folder in "fuzz/corpus/$target" "$build/seeds/$target" "build/fuzz/corpus/$target"; do
            [ -d "$folder" ] && folders+=("$folder")
        done
        nice "$build/fuzz/$target" -runs=0 -close_fd_mask=3 -rss_limit_mb=4096 -max_len=65536 -verbosity=0 "${folders[@]}" || true
    done
    mapfile -t programs < <(printf "$build/fuzz/%s\n" "${targets[@]}")
    exec python3 tools/coverage.py "$build" unreached.txt '/windows/(qt|win32)/' "${programs[@]}"
fi

nice cmake --build "$build" -- --quiet -j2
ctest --test-dir "$build" -R "${1:-.}" -E '^(checks/|schema/|inspect/(large|browse))' --output-on-failure || true
mapfile -t programs < <(find "$build" -type f -executable \( -name '*_tests' -o -name 'jlandxml-*' -o -name 'libJLandXmlConvert.so*' \
    -o -name 'ui_*' -o -name 'play_case' -o -name host \) | sort)
exec python3 tools/coverage.py "$build" uncovered.txt '/windows/win32/' "${programs[@]}"
