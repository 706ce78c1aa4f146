#!/usr/bin/env bash
# Makes a Debian machine ready to build and test the converter: installs what is missing through apt and
# fetches the sources of pugixml and libxml2. The second run finds everything in place and does nothing.
#
#   tools/setup.sh            everything that ./test.sh needs
#   tools/setup.sh --build    only what building and running on Linux needs
set -euo pipefail
cd "$(dirname "$0")/.."

BUILD_PACKAGES=(
    g++ cmake ninja-build ccache pkg-config dpkg-dev ca-certificates
    libicu-dev qt6-base-dev libcli11-dev nlohmann-json3-dev cmark-gfm
)
TEST_PACKAGES=(
    libgtest-dev libbenchmark-dev libxml2-utils
    clang libclang-rt-dev python3 chromium doxygen
    make parallel openssh-client openssh-server rsync slurmctld slurmd slurm-client munge
    g++-mingw-w64-x86-64-posix wine64 xvfb xauth xdotool weston qt6-wayland fonts-ipafont-gothic locales
    nsis zip unzip lintian zsh
)

packages=("${BUILD_PACKAGES[@]}")
[ "${1:-}" = --build ] || packages+=("${TEST_PACKAGES[@]}")

as_root() {
    if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

missing_packages() {
    local package
    for package in "${packages[@]}"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || echo "$package"
    done
}

# Warnings of a mirror that answers late are no failure: three tries.
retry() {
    local try
    for try in 1 2 3; do
        "$@" && return 0
        sleep $((try * 3))
    done
    return 1
}

install_packages() {
    local missing
    mapfile -t missing < <(missing_packages)
    [ "${#missing[@]}" -gt 0 ] || return 0
    echo "setup: installing ${missing[*]}"
    export DEBIAN_FRONTEND=noninteractive
    retry as_root apt-get update -qq
    # The tests bring up servers of their own; none of the packages' is started.
    retry as_root env RUNLEVEL=1 apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# Debian packages only the narrow-character build of pugixml, where the converter needs the wide one, and libxml2 for Linux
# alone, so their sources are fetched: from the sources that this machine's apt already uses, with their types turned into
# source entries, in a list folder of its own so that the machine's apt stays as it is.
#
#   fetch_source PACKAGE FILE    FILE tells that the source is there
fetch_source() {
    local package=$1 folder=.deps/$1
    [ -f "$folder/$2" ] && return 0
    echo "setup: fetching the source of $package"
    local work
    work=$(mktemp -d)
    # shellcheck disable=SC2064
    trap "rm -rf '$work'" EXIT
    chmod 755 "$work"
    mkdir -p "$work/parts" "$work/lists/partial" "$work/source" "$work/cache/archives/partial"
    local file
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [ -f "$file" ] && sed -n 's/^deb /deb-src /p' "$file" >>"$work/parts/sources.list"
    done
    for file in /etc/apt/sources.list.d/*.sources; do
        [ -f "$file" ] && sed 's/^Types:.*/Types: deb-src/' "$file" >"$work/parts/$(basename "$file")"
    done
    local options=(
        -o Dir::Etc::sourcelist=/dev/null -o "Dir::Etc::sourceparts=$work/parts"
        -o "Dir::State::lists=$work/lists" -o "Dir::Cache=$work/cache" -o APT::Sandbox::User=root
    )
    retry apt-get "${options[@]}" update -qq
    (cd "$work/source" && retry apt-get "${options[@]}" source -qq "$package" >/dev/null)
    rm -rf "$folder"
    mkdir -p .deps
    mv "$work/source/$package"-*/ "$folder"
    rm -rf "$work"
}

# Windows programs run in a Japanese locale, and once more in an English one.
make_locales() {
    local locale missing=0
    for locale in ja_JP en_US; do
        locale -a 2>/dev/null | grep -qi "^$locale\.utf-\?8$" && continue
        echo "setup: generating the locale $locale.UTF-8"
        as_root sed -i "s/^# *$locale.UTF-8 UTF-8/$locale.UTF-8 UTF-8/" /etc/locale.gen
        missing=1
    done
    [ "$missing" = 0 ] || as_root locale-gen >/dev/null
}

install_packages
fetch_source pugixml src/pugixml.cpp
fetch_source libxml2 xmlschemas.c
[ "${1:-}" = --build ] || make_locales
