#!/usr/bin/env bash
# Ten thousand calls of the module in one process, over generated folders, and what the process holds before and after;
# then a thousand of them under a leak checker.
#
#   tools/soak.sh [CALLS] [BUILD_FOLDER]
set -euo pipefail
cd "$(dirname "$0")/.."

calls=${1:-10000}
build=${2:-build/linux}
cmake --build "$build" --target soak -- --quiet
nice "$build/tests/soak" "$calls" >/dev/null
nice valgrind --leak-check=full --errors-for-leak-kinds=definite --error-exitcode=1 --quiet "$build/tests/soak" \
    "$((calls / 10))" >/dev/null
