#!/bin/sh
# Runs a Windows program under Wine, quietly and with a folder of its own for what Wine keeps; entries of the Start menu don't
# come into the desktop's own menu.
export WINEPREFIX="${WINEPREFIX:-${XDG_CACHE_HOME:-$HOME/.cache}/jlandxml-wine}"
export WINEDEBUG="${WINEDEBUG:--all}" WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
export LC_ALL="${WINE_LOCALE:-ja_JP.UTF-8}"
wine=$(command -v wine64 || echo /usr/lib/wine/wine64)
# Without a window manager the driver of X11 waits two seconds for each window that goes, where it believes in one.
if [ ! -f "$WINEPREFIX/.unmanaged" ]; then
    mkdir -p "$WINEPREFIX"
    "$wine" reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1 && touch "$WINEPREFIX/.unmanaged"
fi
exec "$wine" "$@"
