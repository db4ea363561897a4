#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# StartAlone.sh <program> <folder>: starts an application again and again on an X server that has no other client. Such
# a server begins anew whenever its last client leaves, and refuses others meanwhile, so an application that asks
# first whether it is there must not leave before it is there to stay.
set -u
kProgram=$1
kFolder=$2
kStarts=15
unset LM_PRESENTER QT_QPA_PLATFORM WAYLAND_DISPLAY
mkdir -p "$kFolder"
mkfifo "$kFolder/display.$$" || exit 1
Xvfb -displayfd 3 -screen 0 640x480x24 -nolisten tcp 3>"$kFolder/display.$$" 2>"$kFolder/server.txt" &
gServer=$!
trap 'kill "$gServer" 2>/dev/null; wait; rm -f "$kFolder/display.$$"' EXIT
read -r theDisplay <"$kFolder/display.$$" || exit 1
export DISPLAY=:$theDisplay LM_PREFERENCES=memory LM_SCREENSHOT=$kFolder/alone.png

for ((theStart = 1; theStart <= kStarts; ++theStart)); do
    rm -f "$LM_SCREENSHOT"
    "$kProgram" || exit 1
    [ -s "$LM_SCREENSHOT" ] || { echo "FAILED: start $theStart has shown no window"; exit 1; }
done
echo "ok: $kStarts starts without another client"
