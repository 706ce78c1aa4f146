#!/usr/bin/env bash
# Tries the packages in build/packages where nothing else of the project is: the .deb and the .tar.gz each in a new Debian of
# its own, the ZIP and the installer each in a new folder of Wine's. There the programs run, the dialog opens, the hosts are
# built and run, the manual page is read; then everything is removed, and nothing may be left. As root.
#
#   tools/try-packages.sh [deb] [tgz] [zip] [installer]    all four without arguments
set -euo pipefail
cd "$(dirname "$0")/.."

packages=$PWD/build/packages
work=$PWD/build/try
version=$(sed -n 's/^project(JLandXmlConvert VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
documents=share/doc/jlandxml-convert
for_hosts=(python3 xdotool gcc g++ cmake ninja-build pkg-config qt6-base-dev man-db locales)

missing=()
for package in debootstrap unzip nsis xdotool imagemagick lintian; do
    dpkg -s "$package" >/dev/null 2>&1 || missing+=("$package")
done
[ ${#missing[@]} = 0 ] || apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null

# One display for all; the new Debian's programs reach it through the network's name space, which they share.
export DISPLAY=:87
Xvfb "$DISPLAY" -screen 0 1280x1024x24 -noreset -ac >/dev/null 2>&1 &
display=$!
leave() { # MOUNTED_FOLDER
    if mountpoint -q "$1"; then umount "$1"; fi
}
finish() {
    kill "$display" 2>/dev/null || true
    local folder
    for folder in "$work"/*/proc "$work"/*/var/cache/apt/archives; do
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
    mount -t proc proc "$1/proc"
    mount --bind "$work/archives" "$1/var/cache/apt/archives" # what one has fetched serves the next
    cp /etc/resolv.conf "$1/etc/"
    within "$1" apt-get update -qq
}
within() { # FOLDER COMMAND...
    chroot "$1" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 TZ=UTC DISPLAY="$DISPLAY" \
        HOME=/root "${@:2}"
}
install_within() {
    within "$1" apt-get install -y -qq --no-install-recommends "${@:2}" >>"$work/apt.log" 2>&1
}

# What a user does with it, with nothing there but what the package asks for.
use_programs() { # FOLDER PREFIX NAME
    local road=$2/$documents/examples/road
    within "$1" "$2/bin/jlandxml-convert" "$road" -s "$road/settings.json" -o /tmp/road.xml --check
    within "$1" "$2/bin/jlandxml-inspect" /tmp/road.xml --report /tmp/road.html >/dev/null
    show_dialog "$3" chroot "$1" env -i DISPLAY="$DISPLAY" "$2/bin/jlandxml-convert" --dialog "$road"
}

build_hosts() { # FOLDER PREFIX
    install_within "$1" "${for_hosts[@]}"
    cp tests/checks/installed.py "$1/tmp/"
    within "$1" python3 /tmp/installed.py use "$2" /tmp/hosts "$version"
    told "both hosts are built and run"
}

none_left() { # FOLDER: nothing that bears the name, but what was made of it here
    local left
    left=$(find "$1" -xdev -ipath '*jlandxml*' -not -path '*/tmp/*' -not -path '*/var/log/*' -not -path '*/var/cache/*')
    [ -z "$left" ] || { echo "left behind: $left"; exit 1; }
    told "nothing is left"
}

try_deb() {
    local root=$work/deb
    told "the .deb: lintian"
    lintian --fail-on error,warning --info "$packages"/*.deb
    new_debian "$root"
    cp "$packages"/*.deb "$root/tmp/package.deb"
    install_within "$root" --install-recommends /tmp/package.deb # as users do: a Japanese font comes along
    told "installed: $(within "$root" dpkg -s jlandxml-convert | grep '^Depends')"
    use_programs "$root" /usr deb
    build_hosts "$root" /usr
    within "$root" man -P cat jlandxml-convert | sed -n 1,8p
    within "$root" localedef -i ja_JP -f UTF-8 ja_JP.UTF-8
    within "$root" env LC_ALL=ja_JP.UTF-8 man -P cat jlandxml-inspect | sed -n 1,8p
    within "$root" apt-get purge -y -qq jlandxml-convert >>"$work/apt.log" 2>&1
    none_left "$root"
}

try_tgz() {
    local root=$work/tgz
    told "the .tar.gz"
    new_debian "$root"
    install_within "$root" libqt6widgets6 libicu72 fonts-ipafont-gothic
    mkdir "$root/opt/converter"
    tar -C "$root/opt/converter" --strip-components=1 -xf "$packages"/*.tar.gz
    use_programs "$root" /opt/converter tgz
    build_hosts "$root" /opt/converter
    within "$root" man -P cat /opt/converter/share/man/man1/jlandxml-convert.1 | sed -n 1,6p
    rm -r "$root/opt/converter"
    none_left "$root"
}

# A new folder of Wine's, with a person's home of its own.
new_wine() { # NAME
    export WINEPREFIX=$work/$1
    rm -rf "$WINEPREFIX"
    tools/wine.sh wineboot --init >/dev/null 2>&1
}
use_on_windows() { # FOLDER NAME
    show_dialog "$2" tools/wine.sh "$1/bin/jlandxml-convert.exe" --dialog "$1/$documents/examples/road"
    python3 tests/checks/installed.py use "$1" "$work/$2-hosts" "$version" "$PWD/tools/wine.sh"
    told "the programs run, the host is built and runs"
}

try_zip() {
    told "the ZIP"
    new_wine zip
    unzip -q "$packages"/*.zip -d "$WINEPREFIX/drive_c"
    use_on_windows "$(echo "$WINEPREFIX"/drive_c/jlandxml-convert-*)" zip
    rm -r "$WINEPREFIX"/drive_c/jlandxml-convert-*
    none_left "$WINEPREFIX"
}

in_registry() {
    local root key found=1
    for root in HKCU HKLM; do
        for key in 'Software\Microsoft\Windows\CurrentVersion\Uninstall\JLandXmlConvert' 'Software\JLandXmlConvert'; do
            tools/wine.sh reg query "$root\\$key" >"$work/key" 2>&1 && iconv -f CP932 -t UTF-8 "$work/key" && found=0
        done
    done
    return $found
}

try_installer() {
    local who folder
    for who in CurrentUser AllUsers; do
        told "the installer, /$who"
        new_wine "installer-$who"
        tools/wine.sh "$packages"/*.exe /S "/$who"
        folder=$(find "$WINEPREFIX/drive_c" -type d -name JLandXmlConvert -path '*Program*' | head -1)
        told "installed in ${folder#"$WINEPREFIX"/}"
        in_registry
        use_on_windows "$folder" "installer-$who"
        tools/wine.sh "$folder/uninstall.exe" "/$who" /S
        for _ in $(seq 100); do
            [ -d "$folder" ] || break
            sleep 0.2
        done
        if in_registry; then
            echo "left in the registry"
            exit 1
        fi
        none_left "$WINEPREFIX"
    done
}

mkdir -p "$work"
[ $# -gt 0 ] || set -- deb tgz zip installer
for one in "$@"; do
    "try_$one"
done
told "all as it should be"
