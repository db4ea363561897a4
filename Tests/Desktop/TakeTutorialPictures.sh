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
kPictures=$(cd "$(dirname "$0")/../.." && pwd)/Documentation/Pictures/Tutorial
kMostBytes=30000
# shellcheck source=Tests/Desktop/Screen.sh
. "$(dirname "$0")/Screen.sh"
# Of the frame that the window manager draws.
kTitleHeight=20
kFrame=1

says()
{
    grep -qF "$1" "$kTrace"
}

# shoot <name>: a picture of the window with its frame.
shoot()
{
    local theWidth theHeight
    theWidth=$(($(geometry Width) + 2 * kFrame))
    theHeight=$(($(geometry Height) + kTitleHeight + kFrame))
    import -window root -crop "${theWidth}x$theHeight+$(($(geometry X) - kFrame))+$(($(geometry Y) - kTitleHeight))" \
        +repage -strip -colors 64 -define png:exclude-chunks=date,time "png8:$kFolder/$1.png"
}

# stands_still <name>: whether a picture shows what it did before, but for the caret.
stands_still()
{
    local theFormer=$kFolder/$1-before.png
    if [ -e "$kFolder/$1.png" ]; then
        mv "$kFolder/$1.png" "$theFormer"
    fi
    shoot "$1"
    [ -e "$theFormer" ] && differs_little "$theFormer" "$kFolder/$1.png" 1000 && rm "$theFormer"
}

# changed_points <picture> <picture>: how many differ in more than a shade.
changed_points()
{
    local theChange
    theChange=$(compare -fuzz 25% -metric AE "$1" "$2" null: 2>&1)
    echo "${theChange%%.*}"
}

# differs_little <picture> <picture> <one point in so many>
differs_little()
{
    [ "$(changed_points "$1" "$2")" -le "$(identify -format "%[fx:int(w*h/$3)]" "$2")" ]
}

# is_near <number> <number> <by how much>
is_near()
{
    [ $(($1 - $2)) -le "$3" ] && [ $(($2 - $1)) -le "$3" ]
}

# looks_right <name>: letters may be of another font, and the frame of another look. But it must be nearer to the
# picture of its page than to one of another state.
looks_right()
{
    local theNew=$kFolder/$1.png theOld=$kPictures/$1.png theFitted=$kFolder/$1-fitted.png theSize theOther
    theSize=$(identify -format %wx%h "$theOld")
    convert "$theNew" -crop "$theSize+0+0" +repage -background white -extent "$theSize" "$theFitted"
    for theOther in "$kPictures"/*.png; do
        if [ "$theOther" != "$theOld" ] && [ "$(identify -format %wx%h "$theOther")" = "$theSize" ] &&
            [ "$(changed_points "$theOther" "$theFitted")" -le "$(changed_points "$theOld" "$theFitted")" ]; then
            return 1
        fi
    done
    is_near "$(identify -format %w "$theNew")" "$(identify -format %w "$theOld")" 4 &&
        is_near "$(identify -format %h "$theNew")" "$(identify -format %h "$theOld")" 16 &&
        differs_little "$theOld" "$theFitted" 8
}

# take <name>: the picture, which must be worth it.
take()
{
    until_true "$1: the window stands still" stands_still "$1"
    [ "$(identify -format %k "$kFolder/$1.png")" -ge 16 ] || give_up "$1: there is something in the picture"
    if [ "$kUpdate" = --update ]; then
        mkdir -p "$kPictures"
        cp "$kFolder/$1.png" "$kPictures/$1.png"
        return
    fi
    looks_right "$1" || give_up "$1: it looks as in the page"
    [ "$(wc -c <"$kPictures/$1.png")" -le "$kMostBytes" ] || give_up "$1: it is small"
    echo "ok: $1: it looks as in the page"
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
