#!/usr/bin/env bash
# Takes the pictures of the manual, in docs/images, from the real windows on Windows (under Wine) and on Linux: the dialog with
# an alignment selected, the list of findings and a message box, and on Windows the other panels too. Needs ./test.sh to have
# built both.
set -euo pipefail
cd "$(dirname "$0")/.."

mkdir -p docs/images
declare -A pictures=([windows]="alignment surface width-stakes errors message" [linux]="alignment errors message")
for platform in windows linux; do
    ctest --preset "$platform" -R '^ui/journeys$'
    for picture in ${pictures[$platform]}; do
        cp "build/$platform/ui/pictures/$picture.png" "docs/images/$picture-$platform.png"
    done
done
