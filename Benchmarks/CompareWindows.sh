#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# CompareWindows.sh: builds the same window with bindings, with Qt Widgets and with GTK 4, measures instructions,
# processor time, memory and idling on an X server of its own, prints the table, and writes it to
# Documentation/Comparison.md and Documentation/Quality/Peers.json. Takes about ten minutes.
# Scripts/InstallPeers.sh installs what it needs.
set -eu
cd "$(dirname "$0")/.."
kPrograms=$PWD/Build/windows/Benchmarks/Windows
kResults=$(mktemp -d)
kRepetitions=5
gServer=
gManager=

end()
{
    [ -z "$gManager" ] || kill "$gManager"
    [ -z "$gServer" ] || kill "$gServer"
    wait
    rm -rf "$kResults"
}
trap end EXIT

cmake --preset windows | sed -n 's/^-- Peers: //p'
cmake --build --preset windows >"$kResults/build" || { cat "$kResults/build"; exit 1; }

# The screen holds the whole window, the largest part of which is painted, and windows are managed as on a desktop.
start_screen()
{
    Xvfb -displayfd 3 -screen 0 2640x2340x24 -nolisten tcp -noreset 3>"$kResults/display" >"$kResults/server" 2>&1 &
    gServer=$!
    until [ -s "$kResults/display" ]; do sleep 0.1; done
    kDisplay=:$(cat "$kResults/display")
    DISPLAY=$kDisplay HOME=$kResults openbox >"$kResults/manager" 2>&1 &
    gManager=$!
    until DISPLAY=$kDisplay xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'; do sleep 0.1; done
}

# on_screen <command>...: in an environment that is the same everywhere. GTK paints in memory as Qt does, and GLib
# takes small blocks from malloc, so that they are counted as everybody's are.
on_screen()
{
    env -i PATH=/usr/bin:/bin HOME="$kResults" XDG_RUNTIME_DIR="$kResults" LC_ALL=C.UTF-8 DISPLAY="$kDisplay" \
        LM_PRESENTER=qt QT_QPA_PLATFORM=xcb QT_STYLE_OVERRIDE=Fusion GDK_BACKEND=x11 GSK_RENDERER=cairo \
        GTK_A11Y=none G_SLICE=always-malloc "$@" 2>"$kResults/errors" || { cat "$kResults/errors" >&2; exit 1; }
}

# figure <measure> <question> <window> <toolkit> <figure>
figure()
{
    printf '%s\t%s\t%s\t%s\t%s\n' "$@" >>"$kResults/figures"
}

# each <function> <argument>...: calls it with every program behind the arguments, in turns.
each()
{
    local theProgram
    for theProgram in QtPeerWindow LmWindow GtkPeerWindow; do
        if [ -x "$kPrograms/$theProgram" ]; then
            "$@" "$theProgram"
        fi
    done
}

count()
{
    local theProfile=$kResults/profile
    rm -f "$theProfile"*
    on_screen valgrind --tool=callgrind --instr-atstart=no --callgrind-out-file="$theProfile" \
        "$kPrograms/$3" "$1" "$2" >/dev/null
    figure instructions "$1" "$2" "$3" "$(awk -F '\t' '
        sub(/^desc: Trigger: Client Request: /, "") { theOperations = $2 }
        sub(/^totals: /, "") && theOperations { printf "%.0f", $0 / theOperations; exit }
    ' "$theProfile.1")"
}

clock()
{
    figure milliseconds "$1" "$2" "$3" "$(on_screen "$kPrograms/$3" "$1" "$2")"
}

# What a control takes: half of the controls cost the same window.
weigh()
{
    local theMost theHalf
    theMost=$(on_screen "$kPrograms/$2" memory "$1" 1000)
    theHalf=$(on_screen "$kPrograms/$2" memory "$1" 500)
    figure bytes control "$1" "$2" $(((theMost - theHalf) / 500))
}

watch_idling()
{
    local theTime theWakings
    read -r theTime theWakings < <(on_screen "$kPrograms/$2" idle "$1")
    figure idle-milliseconds idle "$1" "$2" "$theTime"
    figure idle-wakings idle "$1" "$2" "$theWakings"
}

start_screen
for theWindow in mixed sliders; do
    each count open "$theWindow"
    each count change "$theWindow"
    each weigh "$theWindow"
done
each count drag sliders
each watch_idling mixed
for ((theTurn = 0; theTurn < kRepetitions; ++theTurn)); do
    for theWindow in mixed sliders; do
        each clock open "$theWindow"
        each clock change "$theWindow"
    done
    each clock drag sliders
done

python3 Benchmarks/Windows/DrawWindows.py "$kResults/figures" "$(git rev-parse --short HEAD)" \
    Documentation/Comparison.md Documentation/Quality/Peers.json
