#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# UseKeyboard.sh <Thermostat> <folder>: uses the application on an X server of its own with the keyboard alone, and
# checks what it has traced. The pictures that it takes on the way stay in the folder.
set -u
kProgram=$1
kFolder=$2
# shellcheck source=Tests/Desktop/Screen.sh
. "$(dirname "$0")/Screen.sh"
gMark=0

# press <key>...: what is traced from here on belongs to these keys.
press()
{
    gMark=$(wc -l <"$kTrace")
    xdotool key "$@"
}

# traced <key>: whether the keys have changed that key of the model.
traced()
{
    tail -n "+$((gMark + 1))" "$kTrace" | grep -q "changed  \\[LmKeyValueBinding .*\\]\\.$1\$"
}

has_title()
{
    [ "$(xdotool getwindowname "$gWindow")" = "$1" ]
}

# The whole name is selected, so that typing replaces it.
name_room()
{
    xdotool type Cellar
    press Tab
    until_true "the first field had the focus, and Tab ends the name" traced room
    until_true "which is in the title" has_title 'Cellar thermostat'
    picture 1-named
}

work_controls()
{
    press space
    until_true "Space turns the heating off" traced heating
    press space
    until_true "and on again" traced heating
    press Tab Right
    until_true "the arrow moves the slider that Tab has reached" traced target
    picture 2-slider
    press shift+Tab space
    until_true "Shift-Tab leads back to the check box" traced heating
    press space
    until_true "where Space works again" traced heating
    press shift+Tab
    xdotool type Attic
    press Return
    until_true "and further back to the field, whose text is selected" has_title 'Attic thermostat'
}

work_menus()
{
    # Heating On, Celsius, Fahrenheit
    press alt+t Down Down Down Return
    until_true "Alt and its letter open the menu, in which Fahrenheit is chosen" traced fahrenheit
    picture 3-fahrenheit
    press F10 Down Down Return
    until_true "F10 opens it too, and Celsius is chosen" traced fahrenheit
    # The first Escape leaves the menu, the second the bar, for one who types faster than a person.
    press alt+t Escape Escape Tab space
    until_true "Escape leaves the menu, and the keys go on where they were" traced heating
}

start_server
start_program "$kProgram" --trace
open_window 'thermostat'
# Nothing of what follows is the mouse's doing.
xdotool mousemove 1 1
name_room
work_controls
work_menus
close_window
