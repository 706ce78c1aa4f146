#!/usr/bin/env bash
# Runs every fuzz target for some minutes, as many side by side as there are cores, on the seeds and on what was found
# before. Then the corpus is made small again and the coverage of it printed: the lines of src/ that no input reaches.
#
#   fuzz/run.sh MINUTES [TARGET...]
#
# What is found is kept under build/fuzz/corpus, what fails under build/fuzz/failures.
set -euo pipefail
cd "$(dirname "$0")/.."

if ! [[ "${1:-}" =~ ^[0-9]+$ ]]; then
    sed -n '2,8s/^# \?//p' "$0"
    exit 2
fi
seconds=$(($1 * 60))
shift
targets=("$@")
[ ${#targets[@]} -gt 0 ] || mapfile -t targets < <(basename -s .cpp fuzz/Fuzz*.cpp)

cmake --preset fuzz >/dev/null
cmake --build build/fuzz -- --quiet
mkdir -p build/fuzz/failures
rm -rf build/fuzz/seeds
fuzz/seeds.py build/fuzz/seeds

fuzz_one() {
    local target=$1 corpus=build/fuzz/corpus/$1
    local seeds=("fuzz/corpus/$target" "build/fuzz/seeds/$target")
    mkdir -p "$corpus" "$corpus.small" "${seeds[@]}"
    local status=0
    nice -n 19 "build/fuzz/fuzz/$target" "$corpus" "${seeds[@]}" -dict=fuzz/landxml.dict -max_total_time="$2" \
        -timeout=20 -close_fd_mask=1 -rss_limit_mb=4096 -max_len=65536 -verbosity=1 -print_final_stats=1 \
        -artifact_prefix="build/fuzz/failures/$target-" >"$corpus.log" 2>&1 || status=1
    nice -n 19 "build/fuzz/fuzz/$target" -merge=1 "$corpus.small" "${seeds[@]}" "$corpus" >/dev/null 2>&1 || true
    rm -rf "$corpus" && mv "$corpus.small" "$corpus"
    echo "$target: $(sed -n 's/^stat::number_of_executed_units: *//p' "$corpus.log") runs," \
        "$(find "$corpus" -type f | wc -l) inputs kept$([ $status = 0 ] || echo ', FAILED')"
    return $status
}
export -f fuzz_one
printf '%s\n' "${targets[@]}" | xargs -P "$(nproc)" -I{} bash -c "fuzz_one {} $seconds"
tools/coverage.sh --fuzz
