#!/usr/bin/env bash
# Takes the pictures of the manual, in docs/images, from the real windows: the dialog with an alignment selected, the list
# of findings and a message box, on Windows (under Wine) and on Linux. Needs ./test.sh to have built both.
set -euo pipefail
cd "$(dirname "$0")/.."

mkdir -p docs/images
for platform in windows linux; do
    ctest --preset "$platform" -R '^ui/journeys$'
    for picture in alignment errors message; do
        cp "build/$platform/ui/pictures/$picture.png" "docs/images/$picture-$platform.png"
    done
done
