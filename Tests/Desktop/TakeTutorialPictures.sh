#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# TakeTutorialPictures.sh <TutorialControlsOnDesktop> <TutorialWindowsOnDesktop> <Radio> <folder> [--update]: takes the
# pictures that stand in the pages of the tutorial, from the programs of these pages, on an X server of its own.
# Fails when one is empty, or looks otherwise than the one in the pages does; with --update it replaces these.
set -u
kControls=$1
kWindows=$2
kRadio=$3
kFolder=$4
kUpdate=${5:-}
# shellcheck source=Tests/Desktop/Screen.sh
. "$(dirname "$0")/Screen.sh"
# shellcheck source=Tests/Desktop/DocumentedPictures.sh
. "$(dirname "$0")/DocumentedPictures.sh"

says()
{
    grep -qF "$1" "$kTrace"
}

# show <program> <line> <part of the title>
show()
{
    start_program "$1"
    until_true "the program says: $2" says "$2"
    open_window "$3"
    # What is under the pointer is drawn in other colours.
    xdotool mousemove 5 5
}

# go_on <line>: the next screen of the program.
go_on()
{
    kill -s TERM "$gProgram"
    until_true "the program says: $1" says "$1"
}

end_program()
{
    kill -s TERM "$gProgram"
    until_true "the program ends" has_ended
    wait "$gProgram" || give_up "the program ended with the status $?"
    gProgram=
}

take_controls()
{
    show "$kControls" 'The window opens:' 'Radio'
    take 03-Controls-on
    go_on 'The radio was switched off:'
    take 03-Controls-off
    end_program
}

# The menu of page 6 with the window of page 7.
take_windows()
{
    show "$kWindows" 'The window is shown' 'Jazz radio'
    xdotool key alt+r
    until_true "the menu opens" has_two_windows
    take 06-Menus
    xdotool key Escape Escape
    go_on 'Another station, another place:'
    until_true "the window has another title" find_window 'News radio'
    take 07-Windows
    end_program
}

# has_two_windows: the program's and its menu's.
has_two_windows()
{
    [ "$(xdotool search --onlyvisible --pid "$gProgram" 2>/dev/null | wc -l)" -eq 2 ]
}

# A station that is being typed, of which the radio does not know yet.
take_testing()
{
    start_program "$kRadio"
    open_window 'Jazz radio'
    xdotool mousemove 5 5
    xdotool type News
    take 09-Testing
    close_window
}

mkdir -p "$kFolder"
rm -f "$kFolder"/*.png
start_server
take_controls
take_windows
take_testing
