#!/bin/sh
# Runs a command on a display of its own. Wine gets a prefix for windows alone, and a server that has never seen another
# display: programs that ran without one leave a desktop behind that shows nothing.
cache="${XDG_CACHE_HOME:-$HOME/.cache}"
export WINEPREFIX="${WINEPREFIX:-$cache/jlandxml-wine-windows}"
server=$(command -v wineserver || ls /usr/lib/wine/wineserver64 2>/dev/null)
stop_server() {
    [ -z "$server" ] || [ ! -d "$WINEPREFIX" ] || "$server" -k 2>/dev/null
    [ -z "$server" ] || [ ! -d "$WINEPREFIX" ] || "$server" -w 2>/dev/null
}
stop_server
xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" "$@"
status=$?
stop_server
exit $status
