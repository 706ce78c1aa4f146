#!/usr/bin/env bash
# Sets the machine up, builds the release and converts a work folder.
#
#   ./run.sh                      converts examples/road
#   ./run.sh FOLDER [OPTIONS]     converts another folder; the options go to jlandxml-convert
#   ./run.sh --install PREFIX     installs programs, module and documents below PREFIX
set -euo pipefail
start=$PWD
cd "$(dirname "$0")"

# Standard output is the program's alone, so that what it prints can be kept in a file.
tools/setup.sh --build >&2
[ -f build/release/build.ninja ] || cmake --preset release >/dev/null
cmake --build build/release --target all -- --quiet >&2
program=$PWD/build/release/src/jlandxml-convert

if [ "${1:-}" = --install ]; then
    prefix=${2:?a folder to install into is missing}
    [[ $prefix = /* ]] || prefix=$start/$prefix
    exec cmake --install build/release --prefix "$prefix" --strip
fi
if [ $# -gt 0 ]; then
    cd "$start"
    exec "$program" "$@"
fi

out=build/road.xml
"$program" examples/road -s examples/road/settings.json -o "$out"
echo
echo "The finished file:  $out  ($(stat -c %s "$out") bytes)"
echo "To try next:"
echo "  ./run.sh examples/road --print-settings > build/road.json   # edit it: what is null, as _choices offers"
echo "  ./run.sh examples/road -s build/road.json -o build/road.xml"
echo "  ./run.sh examples/river -s examples/river/settings.json -o build/river.xml"
echo "  ./run.sh examples/two-routes -o build/two-routes.xml        # says what its data lack"
echo "  ./run.sh FOLDER -s SETTINGS.json -o OUT.xml"
echo "  ./run.sh --help"
