#!/usr/bin/env bash
# clang-format and clang-tidy over the whole tree. Needs both programs and a configured build/linux.
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t files < <(git ls-files '*.h' '*.cpp')
clang-format --dry-run --Werror "${files[@]}"
[ -f build/linux/compile_commands.json ] || cmake --preset linux >/dev/null
mapfile -t sources < <(git ls-files 'src/*.cpp' | grep -vE 'Windows\.cpp$|/win32/')
printf '%s\n' "${sources[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy -p build/linux --quiet
