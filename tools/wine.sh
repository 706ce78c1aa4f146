#!/bin/sh
# Runs a Windows program under Wine, quietly and with a folder of its own for what Wine keeps.
export WINEPREFIX="${WINEPREFIX:-${XDG_CACHE_HOME:-$HOME/.cache}/jlandxml-wine}"
export WINEDEBUG="${WINEDEBUG:--all}" WINEDLLOVERRIDES="mscoree,mshtml="
export LC_ALL="${WINE_LOCALE:-ja_JP.UTF-8}"
wine=$(command -v wine64 || echo /usr/lib/wine/wine64)
exec "$wine" "$@"
