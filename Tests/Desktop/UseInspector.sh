#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# UseInspector.sh <Thermostat> <folder> [--update]: opens the inspector over the application on an X server of its own,
# and uses it with mouse and keyboard. The pictures that it takes on the way stay in the folder; with --update, those
# of Documentation/Inspector.md are replaced by them.
set -u
kProgram=$1
kFolder=$2
kUpdate=${3:-}
kPictures=$(cd "$(dirname "$0")/../.." && pwd)/Documentation/Pictures/Inspector
kScreen=1920x1280
# shellcheck source=Tests/Desktop/Screen.sh
. "$(dirname "$0")/Screen.sh"
gThermostat=
gMark=0
# Of the menu bar of the application, which stands over the content.
gMenuHeight=0
kContentHeight=180

has_inspector()
{
    xdotool search --onlyvisible --name '^Inspector$'
}

has_no_inspector()
{
    ! has_inspector
}

# choose_window <thermostat | Inspector>: it becomes the active one. While windows open on a busy machine, another one may
# take that back, so it is chosen until it stays so.
choose_window()
{
    until_true "the window $1 is there" find_window "$1"
    until_true "the window $1 is active, and has the keys" stays_chosen
}

stays_chosen()
{
    has_keys || xdotool windowactivate --sync "$gWindow"
    has_keys && sleep 0.3 && has_keys && is_active
}

has_keys()
{
    [ "$(xdotool getwindowfocus)" = "$gWindow" ]
}

# windows: how many the program has on the screen, and off it.
windows()
{
    xdotool search --pid "$gProgram" 2>/dev/null | wc -l
}

# has_windows <number>
has_windows()
{
    [ "$(windows)" -eq "$1" ]
}

# content <x> <y>: moves the pointer to a place in the content of the application's window.
content()
{
    xdotool mousemove --window "$gThermostat" "$1" "$(($2 + gMenuHeight))"
}

# traced <key>: whether the model has got another value for it since the mark.
traced()
{
    tail -n "+$((gMark + 1))" "$kTrace" | grep -q "changed  \\[LmKeyValueBinding .*\\]\\.$1\$"
}

mark()
{
    gMark=$(wc -l <"$kTrace")
}

# shoot <name>: the inspector's window.
shoot()
{
    import -window "$gWindow" "$kFolder/$1.png"
}

# stands_still <name>
stands_still()
{
    [ -e "$kFolder/$1.png" ] && mv "$kFolder/$1.png" "$kFolder/$1-before.png"
    shoot "$1"
    [ -e "$kFolder/$1-before.png" ] &&
        [ "$(compare -metric AE "$kFolder/$1-before.png" "$kFolder/$1.png" null: 2>&1)" -lt 500 ] &&
        rm "$kFolder/$1-before.png"
}

# take <name>: a picture that shows something.
take()
{
    command -v import >/dev/null && command -v compare >/dev/null || return
    until_true "$1: the window stands still" stands_still "$1"
    [ "$(identify -format %k "$kFolder/$1.png")" -ge 16 ] || give_up "$1: there is something in the picture"
    keep "$1"
}

# keep <name>: makes it the one of the page, when that is wanted.
keep()
{
    if [ "$kUpdate" = --update ] && [[ $1 == [1-5]-* ]]; then
        mkdir -p "$kPictures"
        convert "$kFolder/$1.png" -bordercolor '#808080' -border 1 -strip +dither -colors 128 -define png:exclude-chunks=date,time "png8:$kPictures/$1.png"
    fi
}

# take_picking <name>: the application's window with the frame about the control under the pointer, which is a window
# of its own; so it is cut out of the screen.
take_picking()
{
    command -v import >/dev/null && command -v compare >/dev/null || return
    local gWindow=$gThermostat
    picture picking
    convert "$kFolder/picking.png" \
        -crop "$(geometry Width)x$(geometry Height)+$(geometry X)+$(geometry Y)" +repage "$kFolder/$1.png"
    [ "$(identify -format %k "$kFolder/$1.png")" -ge 16 ] || give_up "$1: there is something in the picture"
    keep "$1"
}

open_thermostat()
{
    start_program "$kProgram" --trace
    open_window thermostat
    gThermostat=$gWindow
    gMenuHeight=$(($(geometry Height) - kContentHeight * ${QT_SCALE_FACTOR:-1}))
}

end_thermostat()
{
    choose_window thermostat
    close_window
}

# opens: a window that has just become active may not hear its first keys yet, so they are pressed again when
# nothing came of them for a while.
opens()
{
    local theCount
    xdotool key ctrl+shift+i
    for ((theCount = 0; theCount < 50; ++theCount)); do
        has_inspector && return
        sleep 0.1
    done
    return 1
}

# closes <keys>: presses them in the inspector, in the same way.
closes()
{
    local theCount
    xdotool key "$1"
    for ((theCount = 0; theCount < 50; ++theCount)); do
        has_inspector || return 0
        sleep 0.1
    done
    return 1
}

open_inspector()
{
    until_true "the inspector opens" opens
    choose_window '^Inspector$'
}

# Nobody who did not ask for it meets it.
use_keys_in_vain()
{
    unset LM_INSPECTOR
    open_thermostat
    xdotool key ctrl+shift+i
    # The keys have arrived when what is typed behind them has.
    mark
    xdotool key ctrl+a type Attic
    xdotool key Return
    until_true "what is typed later arrives" traced room
    until_true "and there is no inspector" has_no_inspector
    grep -q libLmInspector "/proc/$gProgram/maps" && give_up "nothing of the inspector is loaded"
    close_window
}

# find_object <name>: the first that is called so becomes the chosen one, and all are shown again.
find_object()
{
    xdotool key ctrl+f
    xdotool type "$1"
    xdotool key ctrl+a BackSpace
}

# edits_room: from the list of objects into the keys, and a value edited; with the keyboard alone. Keys that a window
# which has just become active did not hear are pressed again, as above.
edits_room()
{
    local theCount
    stays_chosen || return
    find_object thermostat
    # From the field over the list of objects to the keys.
    xdotool key Tab Tab ctrl+Home
    # altered, fahrenheit, heating, power, room
    xdotool key Down Down Down Down Return ctrl+a
    xdotool type Kitchen
    xdotool key Return
    for ((theCount = 0; theCount < 50; ++theCount)); do
        xdotool search --onlyvisible --name '^Kitchen thermostat$' && return
        sleep 0.1
    done
    return 1
}

edit_room()
{
    mark
    until_true "what is typed in the inspector reaches the window" edits_room
    until_true "and has reached the model" traced room
}

# Picking a control shows its binding; the program hears nothing of the click.
pick_heating()
{
    choose_window '^Inspector$'
    xdotool key ctrl+shift+c
    mark
    content 109 61
    sleep 0.3
    content 112 61
    take_picking 5-picking
    xdotool click 1
    until_true "the inspector comes back" is_active
    take 2-picked
    traced heating && give_up "the click that picks does not reach the program"
    find_object thermostat
    xdotool key alt+g
    xdotool windowsize "$gWindow" 1250 760
    take 3-graph
    xdotool windowsize "$gWindow" 860 560
    find_object 'heating box'
}

# Something happens in the program, and stands among the last changes.
click_heating()
{
    choose_window thermostat
    mark
    content 109 61
    xdotool click 1
    until_true "a click reaches the program while the inspector is open" traced heating
    choose_window '^Inspector$'
    xdotool key alt+w
    take 4-why
    xdotool key alt+l
    take 1-opened
}

close_and_look()
{
    choose_window '^Inspector$'
    until_true "Escape closes the inspector" closes Escape
    until_true "and nothing is left of it" has_windows "$1"
    choose_window thermostat
    until_true "it opens again" opens
    choose_window '^Inspector$'
    until_true "and the same keys close it" closes ctrl+shift+i
    until_true "again nothing is left" has_windows "$1"
}

use_inspector()
{
    local theCount
    export LM_INSPECTOR=1
    open_thermostat
    xdotool windowmove "$gThermostat" 20 40
    theCount=$(windows)
    open_inspector
    xdotool windowmove "$gWindow" 390 40
    edit_room
    pick_heating
    click_heating
    close_and_look "$theCount"
    end_thermostat
}

look_at_it()
{
    export LM_INSPECTOR=1
    make_dark
    open_thermostat
    open_inspector
    xdotool key alt+g
    take dark
    end_thermostat
    export QT_SCALE_FACTOR=2
    open_thermostat
    open_inspector
    xdotool key alt+g
    take scaled
    end_thermostat
}

start_server
use_keys_in_vain
use_inspector
look_at_it
