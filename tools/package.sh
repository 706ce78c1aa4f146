#!/usr/bin/env bash
# Makes the packages from the commit that is checked out, in build/packages: .deb and .tar.gz for Linux, ZIP and installer for
# Windows. The same commit gives the same bytes, so nothing may differ from it.
#
#   tools/package.sh                  builds the release for both and packs it
#   tools/package.sh --check          builds and packs all a second time, in other folders and without the compiler's cache,
#                                     and compares
#   tools/package.sh --of FOLDER...   packs what is built there, whatever it is, in build/packages-ci: to try the packing
set -euo pipefail
cd "$(dirname "$0")/.."

SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH TZ=UTC LC_ALL=C.UTF-8
umask 022

pack() { # BUILD_FOLDER TARGET_FOLDER
    rm -rf "$1/packages"
    (cd "$1" && cpack --config CPackConfig.cmake >packages.log) || { cat "$1/packages.log"; return 1; }
    mkdir -p "$2"
    find "$1/packages" -maxdepth 1 -type f -exec cp {} "$2/" \;
}

build() { # SUFFIX: builds both and packs them in build/packagesSUFFIX
    local preset folder
    rm -rf "build/packages$1"
    for preset in release release-windows; do
        folder=build/package-$preset$1
        rm -rf "$folder" # what an earlier build has found or left there would come along
        cmake --preset "$preset" -B "$folder" >/dev/null
        nice cmake --build "$folder" -- --quiet
        pack "$folder" "build/packages$1"
    done
}

prepare() {
    if [ -n "$(git status --porcelain)" ]; then
        echo "What is here isn't the commit that is checked out:" >&2
        git status --short >&2
        exit 1
    fi
    local version
    version=$(tools/version.sh)
    if [[ $(grep -m1 '^## ' CHANGELOG.md) != "## $version - "* ]]; then
        echo "The newest changes in CHANGELOG.md aren't those of version $version." >&2
        exit 1
    fi
    tools/setup.sh
}

packages=build/packages
case ${1:-} in
"")
    prepare
    build ""
    ;;
--check)
    prepare
    build ""
    CCACHE_DISABLE=1 build -again
    diff -r build/packages build/packages-again
    echo "The second build gives the same bytes."
    ;;
--of)
    shift
    packages=build/packages-ci
    rm -rf "$packages"
    for folder in "$@"; do
        pack "$folder" "$packages"
    done
    ;;
*)
    sed -n '2,8s/^# \?//p' "$0"
    exit 2
    ;;
esac
(cd "$packages" && sha256sum -- *)
