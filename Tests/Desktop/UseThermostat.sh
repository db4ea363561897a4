#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# UseThermostat.sh <Thermostat> <folder>: uses the application on an X server of its own with mouse and keyboard,
# and checks afterwards what it has traced and what it has written into its preferences. The pictures that
# it takes on the way stay in the folder.
set -u
kProgram=$1
kFolder=$2
kTrace=$kFolder/trace.txt
kServerLog=$kFolder/server.txt
# Tenths of a second that the screen is given for an answer.
kPatience=300
gServer=
gManager=
gProgram=
gWindow=
gMenuHeight=0
gMark=0

end()
{
    [ -n "$gProgram" ] && kill "$gProgram" 2>/dev/null
    [ -n "$gManager" ] && kill "$gManager" 2>/dev/null
    [ -n "$gServer" ] && kill "$gServer" 2>/dev/null
    wait 2>/dev/null
}
trap end EXIT

give_up()
{
    echo "FAILED: $1"
    picture failed
    cat "$kTrace"
    exit 1
}

# until_true <what> <command>...: asks again and again.
until_true()
{
    local theWhat=$1 theCount
    shift
    for ((theCount = 0; theCount < kPatience; ++theCount)); do
        if "$@" >/dev/null 2>&1; then
            echo "ok: $theWhat"
            return
        fi
        sleep 0.1
    done
    give_up "$theWhat"
}

picture()
{
    if command -v import >/dev/null; then
        import -window root "$kFolder/$1.png"
    fi
}

# at <x> <y>: moves the pointer to a place in the window's content.
at()
{
    xdotool mousemove --window "$gWindow" "$1" "$(($2 + gMenuHeight))"
}

# begin_action: what is traced from here on belongs to it.
begin_action()
{
    gMark=$(wc -l <"$kTrace")
}

# traced <key>: whether the action has changed that key of the model.
traced()
{
    tail -n "+$((gMark + 1))" "$kTrace" | grep -q "changed  \\[LmKeyValueBinding .*\\]\\.$1\$"
}

start_server()
{
    rm -rf "${kFolder:?}/home" "${kFolder:?}/display"
    mkdir -p "$kFolder/home"
    Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$kFolder/display" >"$kServerLog" 2>&1 &
    gServer=$!
    until_true "the screen is there" test -s "$kFolder/display"
    DISPLAY=:$(cat "$kFolder/display")
    export DISPLAY
    HOME=$kFolder/home openbox >>"$kServerLog" 2>&1 &
    gManager=$!
    until_true "windows are managed" has_manager
}

has_manager()
{
    xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'
}

start_program()
{
    export HOME=$kFolder/home XDG_CONFIG_HOME=$kFolder/home XDG_RUNTIME_DIR=$kFolder/home
    chmod 700 "$HOME"
    unset WAYLAND_DISPLAY QT_QPA_PLATFORM LM_SCREENSHOT LM_PREFERENCES XAUTHORITY
    LM_PRESENTER=qt QT_STYLE_OVERRIDE=Fusion "$kProgram" --trace >"$kTrace" 2>&1 &
    gProgram=$!
}

find_window()
{
    gWindow=$(xdotool search --onlyvisible --name 'thermostat' | tail -n 1)
    [ -n "$gWindow" ]
}

# geometry <X | Y | WIDTH | HEIGHT>: of the window, the menu bar included.
geometry()
{
    xdotool getwindowgeometry --shell "$gWindow" | sed -n "s/^$1=//p"
}

is_active()
{
    [ "$(xdotool getactivewindow)" = "$gWindow" ]
}

has_ended()
{
    ! kill -0 "$gProgram"
}

remembers()
{
    tr -d '\n\t ' <"$HOME/org.lmbindings.Thermostat.plist" | grep -q "<key>$1</key>$2"
}

kContentHeight=180

open_window()
{
    start_program
    until_true "the window opens" find_window
    until_true "the window is active" is_active
    gMenuHeight=$(($(geometry HEIGHT) - kContentHeight))
    picture 1-opened
}

drag_slider()
{
    local theX
    begin_action
    at 194 98
    xdotool mousedown 1
    for theX in 200 210 220 230 240 260; do
        at "$theX" 98
    done
    xdotool mouseup 1
    until_true "the slider sets the target" traced target
    picture 2-dragged
}

toggle_heating()
{
    begin_action
    at 109 61
    xdotool click 1
    until_true "the check box turns the heating off" traced heating
    picture 3-disabled
    begin_action
    at 109 61
    xdotool click 1
    until_true "and on again" traced heating
}

type_name()
{
    begin_action
    at 200 26
    xdotool click 1 key ctrl+a type Kitchen
    picture 4-typed
    xdotool key Tab
    until_true "Tab ends the name" traced room
    begin_action
    at 200 26
    xdotool click 1 key ctrl+a type Attic
    xdotool key Return
    until_true "Return ends the name" traced room
}

choose_fahrenheit()
{
    begin_action
    at 20 $((-gMenuHeight / 2))
    xdotool click 1
    picture 5-menu
    # Heating On, Celsius, Fahrenheit
    xdotool key Down key Down key Down key Return
    until_true "the menu changes the unit" traced fahrenheit
    picture 6-fahrenheit
}

place_window()
{
    xdotool windowmove "$gWindow" 300 200
    until_true "the window is moved" test_place
    xdotool windowsize "$gWindow" 420 $((kContentHeight + gMenuHeight + 40))
    until_true "the window is resized" traced_size
    picture 7-placed
}

test_place()
{
    [ "$(geometry X)" -ge 300 ] && [ "$(geometry X)" -le 310 ]
}

traced_size()
{
    [ "$(geometry WIDTH)" -eq 420 ]
}

close_window()
{
    xdotool key alt+F4
    until_true "the program ends with its window" has_ended
    wait "$gProgram"
    local theStatus=$?
    gProgram=
    [ "$theStatus" -eq 0 ] || give_up "the program ended with the status $theStatus"
}

check_memory()
{
    until_true "the target is remembered" remembers target '<integer>30</integer>'
    until_true "the unit is remembered" remembers fahrenheit '<true/>'
}

start_server
open_window
drag_slider
toggle_heating
type_name
choose_fahrenheit
place_window
close_window
check_memory
