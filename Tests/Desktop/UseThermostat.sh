#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# UseThermostat.sh <Thermostat> <folder>: uses the application on an X server of its own with mouse and keyboard,
# and checks afterwards what it has traced and what it has written into its preferences. The pictures that
# it takes on the way stay in the folder.
set -u
kProgram=$1
kFolder=$2
# shellcheck source=Tests/Desktop/Screen.sh
. "$(dirname "$0")/Screen.sh"
gMenuHeight=0
gMark=0
gPlace=

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

remembers()
{
    tr -d '\n\t ' <"$HOME/org.lmbindings.Thermostat.plist" | grep -q "<key>$1</key>$2"
}

kContentHeight=180

open_thermostat()
{
    start_program "$kProgram" --trace
    open_window 'thermostat'
    gMenuHeight=$(($(geometry Height) - kContentHeight))
    picture 1-opened
}

drag_slider()
{
    local theX
    begin_action
    at 194 98
    xdotool mousedown 1
    for theX in 200 220 240; do
        at "$theX" 98
    done
    until_true "the slider sets the target while it is dragged" traced target
    begin_action
    at 260 98
    until_true "and follows on" traced target
    xdotool mouseup 1
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
    until_true "which is in the title" has_title 'Kitchen thermostat'
    begin_action
    at 200 26
    xdotool click 1 key ctrl+a type Attic
    xdotool key Return
    until_true "Return ends the name" traced room
    until_true "which is in the title again" has_title 'Attic thermostat'
}

# shown_windows: how many there are, menus included.
shown_windows()
{
    xdotool search --onlyvisible --class . 2>/dev/null | wc -l
}

# shows_more_than <number>
shows_more_than()
{
    [ "$(shown_windows)" -gt "$1" ]
}

choose_fahrenheit()
{
    local theCount
    theCount=$(shown_windows)
    begin_action
    at 20 $((-gMenuHeight / 2))
    xdotool click 1
    until_true "the menu opens" shows_more_than "$theCount"
    picture 5-menu
    # Heating On, Celsius, Fahrenheit
    xdotool key Down key Down key Down key Return
    until_true "the menu changes the unit" traced fahrenheit
    picture 6-fahrenheit
}

has_title()
{
    [ "$(xdotool getwindowname "$gWindow")" = "$1" ]
}

minimise_window()
{
    xdotool windowminimize "$gWindow"
    until_true "the window is minimised" has_state Iconic
    picture 7-minimised
    xdotool windowactivate "$gWindow"
    until_true "and restored" has_state Normal
    until_true "and active again" is_active
}

# has_state <Iconic | Normal>
has_state()
{
    xprop -id "$gWindow" WM_STATE | grep -q "window state: $1"
}

place_window()
{
    begin_action
    xdotool windowmove "$gWindow" 300 200
    until_true "the window is moved" has_geometry X 300
    until_true "and the application knows" traced_bounds
    begin_action
    xdotool windowsize "$gWindow" 420 $((kContentHeight + gMenuHeight + 40))
    until_true "the window is resized" has_geometry Width 420
    until_true "and the application knows that too" traced_bounds
    picture 8-placed
    gPlace="$(geometry X) $(($(geometry Y) + gMenuHeight)) $(geometry Width) $(($(geometry Height) - gMenuHeight))"
}

# has_geometry <X | Y | Width | Height> <number>
has_geometry()
{
    [ "$(geometry "$1")" -eq "$2" ]
}

traced_bounds()
{
    tail -n "+$((gMark + 1))" "$kTrace" | grep -q 'changed  \[Window .*\]\.bounds$'
}

# remembered_place: left, top, width and height, behind four bytes that say what they are.
remembered_place()
{
    sed -n '/<data>/,/<\/data>/p' "$HOME/org.lmbindings.Thermostat.plist" | sed 's/<[^>]*>//g' |
        tr -d '[:space:]' | base64 -d | od -An -t f4 -j 4 -w16 | xargs
}

has_remembered_place()
{
    [ "$(remembered_place)" = "$gPlace" ]
}

check_memory()
{
    until_true "the target is remembered" remembers target '<integer>30</integer>'
    until_true "the unit is remembered" remembers fahrenheit '<true/>'
    until_true "the window's place is remembered" has_remembered_place
}

start_server
open_thermostat
drag_slider
toggle_heating
type_name
choose_fahrenheit
minimise_window
place_window
close_window
check_memory
