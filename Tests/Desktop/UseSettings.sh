#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# UseSettings.sh <Settings> <SettingsWithBindings> <folder> [--update]: changes settings on an X server of its own with
# mouse and keyboard, ends the program and looks up what it has kept; then the same program with bindings shows that,
# and is used likewise. Takes the pictures of the page about existing applications, and fails when one looks otherwise;
# with --update it replaces these.
set -u
kPlain=$1
kBound=$2
kFolder=$3
kUpdate=${4:-}
# shellcheck source=Tests/Desktop/Screen.sh
. "$(dirname "$0")/Screen.sh"
# shellcheck source=Tests/Desktop/DocumentedPictures.sh
. "$(dirname "$0")/DocumentedPictures.sh"
kPictures=$(dirname "$kPictures")/Applications
kContentHeight=298

# click_at <x> <y>: in the content of the window.
click_at()
{
    xdotool mousemove --window "$gWindow" "$1" $(($2 + $(geometry Height) - kContentHeight)) click 1
}

# has_kept <key> <value>: whether the preference is in the file. The value is a regular expression.
has_kept()
{
    grep -A 1 "<key>$1</key>" "$HOME/org.lmbindings.Settings.plist" | grep -qE "<[a-z]+>$2</[a-z]+>|<$2/>"
}

# open_settings <program>
open_settings()
{
    start_program "$1"
    open_window '^Settings$'
    # Out of the way: what is under the pointer is drawn in other colours.
    xdotool mousemove 5 5
}

# change_station <name>
change_station()
{
    click_at 200 68
    xdotool key ctrl+a type "$1"
    xdotool key Tab mousemove 5 5
}

# turn_to <x of the tab>
turn_to()
{
    click_at "$1" 31
    xdotool mousemove 5 5
}

# stands_as <name>: whether the window looks as in that picture, but for the focus.
stands_as()
{
    shoot now
    differs_little "$kFolder/$1.png" "$kFolder/now.png" 100
}

leave()
{
    click_at 418 269
    until_true "OK ends the program" has_ended
}

mkdir -p "$kFolder"
rm -f "$kFolder"/*.png "$kFolder"/home/*.plist
start_server

open_settings "$kPlain"
change_station Roof
click_at 48 161
xdotool mousemove 5 5
take Settings-measuring
turn_to 144
take Settings-showing
leave
until_true "the name is kept" has_kept station Roof
until_true "it does not measure by itself" has_kept automatic 0
until_true "the page is kept" has_kept page 2

open_settings "$kBound"
until_true "the program with bindings shows that" stands_as Settings-showing
click_at 167 94
click_at 418 172
xdotool mousemove 5 5
take Settings-bound
turn_to 60
until_true "what was typed stands there" stands_as Settings-measuring
change_station Attic
leave
until_true "the other name is kept" has_kept station Attic
until_true "and the page" has_kept page 1
until_true "and one decimal more" has_kept decimals 2
