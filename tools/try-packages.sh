#!/usr/bin/env bash
# Tries the packages in build/packages where nothing else of the project is: the .deb and the .tar.gz each in a new Debian of
# its own, the ZIP and the installer each in a new folder of Wine's. There the programs run, the dialog opens, the hosts are
# built and run, the manual page is read; then everything is removed, and the same files and the same registry must be there as
# before. As root.
#
#   tools/try-packages.sh [deb] [tgz] [zip] [installer] [unattended]    all without arguments
set -euo pipefail
cd "$(dirname "$0")/.."

packages=$PWD/build/packages
work=$PWD/build/try
version=$(tools/version.sh)
documents=share/doc/jlandxml-convert
for_hosts=(python3 xdotool gcc g++ cmake ninja-build pkg-config qt6-base-dev man-db locales)

missing=()
for package in debootstrap unzip nsis xdotool imagemagick lintian; do
    dpkg -s "$package" >/dev/null 2>&1 || missing+=("$package")
done
[ ${#missing[@]} = 0 ] || apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null

# One display for all; the new Debian's programs reach it through the network's name space, which they share.
mkdir -p "$work"
number=$(mktemp)
Xvfb -displayfd 3 -screen 0 1280x1024x24 -noreset -ac >/dev/null 2>&1 3>"$number" &
display=$!
until [ -s "$number" ]; do sleep 0.1; done
DISPLAY=:$(cat "$number")
export DISPLAY
rm "$number"
mounted=()
leave() { # MOUNTED_FOLDER
    if mountpoint -q "$1"; then umount "$1"; fi
}
finish() {
    kill "$display" 2>/dev/null || true
    local folder
    for folder in "${mounted[@]}"; do
        leave "$folder"
    done
}
trap finish EXIT

told() { echo "== $*"; }

# The picture of an open dialog, for a person to look at; then it is closed with Escape.
show_dialog() { # NAME COMMAND...
    local name=$1 window=
    "${@:2}" &
    local program=$!
    for _ in $(seq 600); do
        window=$(xdotool search --onlyvisible --name J-LandXML | tail -1) && [ -n "$window" ] && break
        sleep 0.2
    done
    sleep 1
    import -window root "$work/$name.png"
    while xdotool search --onlyvisible --name J-LandXML >/dev/null 2>&1; do
        xdotool windowfocus "$window" key Escape || true
        sleep 0.3
    done
    wait "$program"
    told "$name: the dialog, in ${work#"$PWD"/}/$name.png"
}

new_debian() { # FOLDER
    if [ ! -f "$work/debian.tar" ]; then
        local mirror
        # shellcheck disable=SC2016
        mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Codename: bookworm' | head -1)
        rm -rf "$work/debian"
        debootstrap --variant=minbase bookworm "$work/debian" "$mirror" >"$work/debootstrap.log"
        tar -C "$work/debian" -cf "$work/debian.tar" .
        rm -rf "$work/debian"
    fi
    leave "$1/proc"
    leave "$1/var/cache/apt/archives"
    rm -rf --one-file-system "$1"
    mkdir -p "$1" "$work/archives"
    tar -C "$1" -xf "$work/debian.tar"
    mounted+=("$1/proc" "$1/var/cache/apt/archives")
    mount -t proc proc "$1/proc"
    mount --bind "$work/archives" "$1/var/cache/apt/archives" # what one has fetched serves the next
    cp /etc/resolv.conf "$1/etc/"
    within "$1" apt-get update -qq
}
within() { # FOLDER COMMAND...
    chroot "$1" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 TZ=UTC DISPLAY="$DISPLAY" \
        HOME=/root PYTHONDONTWRITEBYTECODE=1 "${@:2}"
}
install_within() {
    within "$1" apt-get install -y -qq --no-install-recommends "${@:2}" >>"$work/apt.log" 2>&1
}

hardened() { # FILE...
    python3 tests/checks/hardening.py "$@"
    told "hardened: $(basename -a "$@" | paste -sd' ')"
}

# Linux: where nothing is there but what the package asks for, and where its hosts are built.

put_deb() { # ROOT
    cp "$packages"/*.deb "$1/tmp/package.deb"
    install_within "$1" --install-recommends /tmp/package.deb # as users do: a Japanese font comes along
}
take_deb() { within "$1" apt-get purge -y -qq jlandxml-convert >>"$work/apt.log" 2>&1; }
needs_of_deb() { # ROOT: brings along what the package asks for
    local needs
    needs=$(dpkg-deb -f "$packages"/*.deb Depends)
    within "$1" apt-get satisfy -y -qq --no-install-recommends "$needs, $(dpkg-deb -f "$packages"/*.deb Recommends)" \
        >>"$work/apt.log" 2>&1
    told "it asks for: $needs"
}

put_tgz() {
    mkdir "$1/opt/converter"
    tar -C "$1/opt/converter" --strip-components=1 -xf "$packages"/*.tar.gz
}
take_tgz() { rm -r "$1/opt/converter"; }
needs_of_tgz() { install_within "$1" libqt6widgets6 libicu72 fonts-ipafont-gothic; } # as the documents say

use_programs() { # ROOT PREFIX NAME
    local road=$2/$documents/examples/road
    within "$1" "$2/bin/jlandxml-convert" "$road" -s "$road/settings.json" -o /tmp/road.xml --check
    within "$1" "$2/bin/jlandxml-inspect" /tmp/road.xml --report /tmp/road.html >/dev/null
    show_dialog "$3" chroot "$1" env -i DISPLAY="$DISPLAY" "$2/bin/jlandxml-convert" --dialog "$road"
}
build_hosts() { # ROOT PREFIX
    cp tests/checks/installed.py tests/checks/pages.py "$1/tmp/"
    within "$1" python3 /tmp/installed.py use "$2" /tmp/hosts "$version"
    told "the programs run, the hosts are built and run"
}
read_pages() { # ROOT PREFIX
    local page
    page=$(cd "$1" && echo ."$2"/share/man/man1/jlandxml-convert.1*)
    within "$1" man -P cat "${page#.}" | sed -n 1,8p
    page=$(cd "$1" && echo ."$2"/share/man/ja/man1/jlandxml-inspect.1*)
    within "$1" env LC_ALL=ja_JP.UTF-8 man -P cat "${page#.}" | sed -n 1,8p
}
# Every file with its size and rights, but for what the system notes of its own work: where packages came from, what fonts there
# are; and what programs keep for their user.
files_of() { # ROOT
    (cd "$1" && find . -xdev \( -path ./proc -o -path ./tmp -o -path ./var/log -o -path ./var/cache -o -path ./var/lib/apt \
        -o -path ./var/lib/dpkg -o -path ./root/.cache \) -prune -o \( -type d -printf '%p/ %m\n' -o -printf '%p %m %s %l\n' \) | LC_ALL=C sort)
}

try_linux() { # NAME PREFIX
    local root=$work/$1
    new_debian "$root"
    [ "$1" = deb ] || "needs_of_$1" "$root"
    "put_$1" "$root"
    hardened "$root$2"/bin/jlandxml-* "$root$2"/lib/jlandxml/lib*.so.1
    use_programs "$root" "$2" "$1"
    told "it works with what it asks for alone"

    new_debian "$root"
    "needs_of_$1" "$root"
    install_within "$root" "${for_hosts[@]}"
    within "$root" localedef -i ja_JP -f UTF-8 ja_JP.UTF-8
    files_of "$root" >"$work/$1.before"
    "put_$1" "$root"
    build_hosts "$root" "$2"
    read_pages "$root" "$2"
    "take_$1" "$root"
    files_of "$root" >"$work/$1.after"
    diff "$work/$1.before" "$work/$1.after"
    told "nothing is left, nothing else is changed: the same $(wc -l <"$work/$1.after") files and folders"
}
try_deb() {
    told "the .deb: lintian"
    lintian --fail-on error,warning --info "$packages"/*.deb
    try_linux deb /usr
}
try_tgz() {
    told "the .tar.gz"
    try_linux tgz /opt/converter
}

# Windows

# A new folder of Wine's, with a person's home of its own, in which a program has already run at a display.
new_wine() { # NAME
    export WINEPREFIX=$work/$1
    rm -rf "$WINEPREFIX"
    tools/wine.sh wineboot --init >/dev/null 2>&1
    tools/wine.sh reg query 'HKCU\Software' >/dev/null 2>&1
    remember_wine "$1.before"
}
# Files with their sizes, and the registry without its times and what Wine notes of the machine at each start or, where it was
# hindered, at a later one.
remember_wine() { # NAME
    timeout 60 /usr/lib/wine/wineserver64 -w # until every program has ended: an uninstaller goes on behind its first process
    (cd "$WINEPREFIX" && find drive_c -not -path '*/Temp/*' -not -path 'drive_c/windows/inf/*.pnf' \( -type d -printf '%p/\n' -o -printf '%p %s %l\n' \) | LC_ALL=C sort) >"$work/$1.files"
    # shellcheck disable=SC2016
    awk '/^\[/ { told = !index($0, "[System\\\\") && !index($0, "\\\\NetworkCards]"); sub(/ [0-9]+$/, "") }
         told && !/^#time=/' "$WINEPREFIX"/*.reg >"$work/$1.registry"
}
nothing_left() { # NAME
    remember_wine "$1.after"
    diff "$work/$1.before.files" "$work/$1.after.files"
    diff "$work/$1.before.registry" "$work/$1.after.registry"
    told "nothing is left, nothing else is changed: the same $(wc -l <"$work/$1.after.files") files and folders, the same registry"
}
use_on_windows() { # FOLDER NAME
    hardened "$1"/bin/*.exe "$1"/lib/jlandxml/*.dll
    python3 tests/checks/versions.py "$version" "$1"/bin/*.exe "$1"/lib/jlandxml/*.dll
    show_dialog "$2" tools/wine.sh "$1/bin/jlandxml-convert.exe" --dialog "$1/$documents/examples/road"
    LC_ALL=ja_JP.UTF-8 python3 tests/checks/installed.py use "$1" "$work/$2-hosts" "$version" "$PWD/tools/wine.sh"
    told "the programs run, the hosts are built and run"
}

try_zip() {
    told "the ZIP"
    new_wine zip
    unzip -q "$packages"/*.zip -d "$WINEPREFIX/drive_c"
    use_on_windows "$(echo "$WINEPREFIX"/drive_c/jlandxml-convert-*)" zip
    rm -r "$WINEPREFIX"/drive_c/jlandxml-convert-*
    nothing_left zip
}

# What the registry tells of what is installed.
in_registry() { # KEY: HKCU or HKLM
    tools/wine.sh reg query "$1\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\JLandXmlConvert" |
        if [ "$WINE_LOCALE" = ja_JP.UTF-8 ]; then iconv -f CP932 -t UTF-8; else cat; fi
}
# The first page of the installer, for a person to look at.
show_installer() { # NAME TITLE
    local window=
    tools/wine.sh "$packages"/*.exe &
    local installer=$!
    for _ in $(seq 600); do
        window=$(xdotool search --onlyvisible --name "$2" | tail -1) && [ -n "$window" ] && break
        sleep 0.2
    done
    sleep 1
    import -window root "$work/$1-installer.png"
    while xdotool search --onlyvisible --name "$2" >/dev/null 2>&1; do
        xdotool windowfocus "$window" key Escape || true
        sleep 0.3
    done
    local status=0
    wait "$installer" || status=$?
    [ "$status" = 1 ] || { echo "the cancelled installer ended with status $status"; exit 1; } # 1: by its user
    told "$1: the installer, in ${work#"$PWD"/}/$1-installer.png"
}

try_installer_for() { # WHO REGISTRY_KEY LOCALE TITLE NAME_IN_THE_REGISTRY
    local name=installer-$1-$3 folder
    told "the installer, /$1, $3"
    export WINE_LOCALE=$3
    python3 tests/checks/versions.py "$version" "$packages"/*.exe
    new_wine "$name"
    show_installer "$name" "$4"
    tools/wine.sh "$packages"/*.exe /S "/$1"
    folder=$(find "$WINEPREFIX/drive_c" -type d -name JLandXmlConvert -path '*Program*' -print -quit)
    told "installed in ${folder#"$WINEPREFIX"/}"
    in_registry "$2" >"$work/$name.key"
    grep REG_ "$work/$name.key"
    grep -q "DisplayName.*$5" "$work/$name.key"
    use_on_windows "$folder" "$name"
    find "$WINEPREFIX/drive_c" -name '*.lnk' | grep 'Start Menu/Programs/J-LandXML' # the manual
    tools/wine.sh "$folder/uninstall.exe" /S
    for _ in $(seq 100); do
        [ -d "$folder" ] || break
        sleep 0.2
    done
    nothing_left "$name"
    unset WINE_LOCALE
}
ends_with() { # STATUS COMMAND...
    local status=0
    timeout 120 "${@:2}" || status=$?
    [ "$status" = "$1" ] || { echo "status $status, not $1: ${*:2}"; exit 1; }
}
wait_for_end_of() { # FOLDER
    timeout 60 /usr/lib/wine/wineserver64 -w
    [ ! -e "$1" ] || { echo "$1 is left"; exit 1; }
}
# Waited for, as the list of programs has it.
uninstall() { # STATUS FOLDER
    ends_with "$1" tools/wine.sh "$2/uninstall.exe" /S "_?=$(tools/wine.sh winepath -w "$2" | tr -d '\r')"
}
# What administrators count on: in a script, without a person to answer, on machines that have it already.
try_unattended() {
    told "the installer, unattended"
    export WINE_LOCALE=en_US.UTF-8
    new_wine unattended
    local installer users own everybodys window=
    installer=$(echo "$packages"/*.exe)
    own=$WINEPREFIX/drive_c/own

    ends_with 0 tools/wine.sh "$installer" /S /AllUsers
    ends_with 0 tools/wine.sh "$installer" /S /CurrentUser
    everybodys="$WINEPREFIX/drive_c/Program Files/JLandXmlConvert"
    users=$(find "$WINEPREFIX/drive_c/users" -type d -name JLandXmlConvert -path '*Program*' -print -quit)
    ends_with 0 tools/wine.sh "$everybodys/uninstall.exe" /S
    wait_for_end_of "$everybodys"
    [ -f "$users/bin/jlandxml-convert.exe" ]
    in_registry HKCU >/dev/null
    if in_registry HKLM >/dev/null 2>&1; then echo "everybody's entry is left"; exit 1; fi
    told "each uninstaller takes away its own"

    echo "a user's" >"$users/own.txt"
    ends_with 0 tools/wine.sh "$installer" /S /CurrentUser '/D=C:\own'
    [ -f "$own/bin/jlandxml-convert.exe" ]
    [ "$(find "$users" -type f)" = "$users/own.txt" ]
    rm -r "$users"
    told "/D= is heeded; of what was there before nothing is left but a user's own file"

    tools/wine.sh "$own/bin/jlandxml-convert.exe" --dialog "$own/$documents/examples/road" &
    local program=$!
    for _ in $(seq 600); do
        window=$(xdotool search --onlyvisible --name J-LandXML | tail -1) && [ -n "$window" ] && break
        sleep 0.2
    done
    (cd "$own" && find . -type f -exec sha256sum {} + | sort) >"$work/unattended.own"
    ends_with 32 tools/wine.sh "$installer" /S /CurrentUser
    uninstall 32 "$own"
    (cd "$own" && find . -type f -exec sha256sum {} + | sort) | diff "$work/unattended.own" -
    in_registry HKCU >/dev/null
    while xdotool search --onlyvisible --name J-LandXML >/dev/null 2>&1; do
        xdotool windowfocus "$window" key Escape || true
        sleep 0.3
    done
    wait "$program"
    told "in use: status 32, nothing is changed"

    uninstall 0 "$own"
    wait_for_end_of "$own"
    rmdir "$(dirname "$users")" 2>/dev/null || true # it held the user's own file when it should have gone
    nothing_left unattended
    unset WINE_LOCALE
}
try_installer() {
    local who
    for who in 'CurrentUser HKCU' 'AllUsers HKLM'; do
        # shellcheck disable=SC2086
        try_installer_for $who ja_JP.UTF-8 'J-LandXML変換 .* セットアップ' J-LandXML変換
        # shellcheck disable=SC2086
        try_installer_for $who en_US.UTF-8 'J-LandXML converter .* Setup' 'J-LandXML converter'
    done
}

[ $# -gt 0 ] || set -- deb tgz zip installer unattended
for one in "$@"; do
    "try_$one"
done
told "all as it should be"
