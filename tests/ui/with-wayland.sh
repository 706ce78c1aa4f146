#!/bin/sh
# Runs a command on a Wayland display of its own, with no other in sight. Its compositor stands on an X display, where it
# finds a keyboard and a mouse: to a display without either the toolkit offers no text to type into.
export XDG_RUNTIME_DIR=$(mktemp -d)
trap 'kill "$compositor" 2>/dev/null; wait "$compositor"; rm -rf "$XDG_RUNTIME_DIR"' EXIT
weston --backend=x11-backend.so --socket=display --idle-time=0 --width=1200 --height=900 >"$XDG_RUNTIME_DIR/log" 2>&1 &
compositor=$!
tries=0
until [ -S "$XDG_RUNTIME_DIR/display" ]; do
    tries=$((tries + 1))
    if [ $tries = 100 ]; then
        cat "$XDG_RUNTIME_DIR/log"
        exit 1
    fi
    sleep 0.1
done
env -u DISPLAY WAYLAND_DISPLAY=display XDG_SESSION_TYPE=wayland "$@"
